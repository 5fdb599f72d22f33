#pragma once

#include "NumberSet.h"
#include "Regex.h"
#include "TextSet.h"
#include "selexpr/Condition.h"
#include "selexpr/IDataInterface.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace ui::selexpr {

enum class Operator { Bare, Equal, Exact, Unequal, Less, LessEqual, Greater, GreaterEqual, Regex, In, NotIn };

/// A value as it is written, and where.
struct Literal {
    qzString text;
    bool isNumber = false; ///< a number that is not in quotes
    std::size_t offset = 0;
    std::size_t size = 0;
};

/// One entry of a list: a value, or a range from one to another, maybe in steps. Lists are long, and most of
/// their entries are values.
struct WrittenItem {
    struct Range {
        Literal last;
        std::optional<Literal> step;
    };

    Literal first;
    std::unique_ptr<Range> range;
};

/// A condition as it is written.
struct WrittenCondition {
    Literal property;
    Operator op = Operator::Bare;
    std::size_t opOffset = 0;
    std::size_t opSize = 0;
    std::vector<WrittenItem> items;
};

/// A written value that a condition cannot be made with.
struct Refusal {
    Literal const* literal;
    qzString expected;
};

/// A condition ready to be tested: all that can be known of its values is worked out, each in every type that
/// a property's value may have.
class CompiledCondition : public Condition {
public:
    CompiledCondition(WrittenCondition written, qzString property, ConditionType condition,
                      ValueType valueType);

    /// Works the values out. None when all could be used.
    std::optional<Refusal> Compile(bool exactCaseSensitive);

    /// Null for what the filter answers itself.
    void SetReader(IProperty const* reader) { m_reader = reader; }
    IProperty const* GetReader() const { return m_reader; }

    bool Accepts(Scalar const& value) const {
        switch (value.GetKind()) {
        case Scalar::KIND_INTEGER:
            return m_numbers.Contains(value.GetInteger());
        case Scalar::KIND_DOUBLE:
            return m_numbers.Contains(value.GetDouble());
        case Scalar::KIND_FLOAT:
            return m_numbers.Contains(value.GetFloat());
        case Scalar::KIND_BOOLEAN:
            return m_booleans[value.GetBoolean() ? 1 : 0];
        case Scalar::KIND_TEXT:
            return P_AcceptsText(value.GetText());
        case Scalar::KIND_NONE:
            break;
        }
        return false;
    }
    bool AcceptsByRegex(Scalar const& value) const;

    qzString Write() const;

private:
    std::optional<Refusal> P_AddItem(WrittenItem const& item, bool exactCaseSensitive);
    void P_AddRange(WrittenItem const& item);
    void P_AddSide(Literal const& literal);
    std::optional<Refusal> P_AddValue(Literal const& literal, bool exactCaseSensitive);
    std::optional<Refusal> P_AddRegex(Literal const& literal);
    void P_AddToNumbers(Literal const& literal, Bound const& low, Bound const& high);
    bool P_IsOneSided() const;
    bool P_AcceptsText(std::string_view text) const;

    IProperty const* m_reader = nullptr;
    NumberSet m_numbers;     ///< what numbers are compared with
    NumberSet m_textNumbers; ///< what texts that read as a number are compared with: no numbers in quotes
    TextSet m_texts;
    bool m_booleans[2] = {false, false}; ///< whether false and true are accepted
    std::vector<std::unique_ptr<Regex>> m_regexes;
    WrittenCondition m_written;
};

} // namespace ui::selexpr
