#include "descriptor/FormulaText.h"

#include "descriptor/Function.h"
#include "values/formulas/ClauseText.h"
#include "values/formulas/FormulaPrivate.h"
#include "values/formulas/TextTokens.h"

#include <utility>
#include <variant>

namespace qzDescriptor {

namespace {

constexpr std::string_view s_absence = "none";

void AppendTypeKey(qzString& text, unsigned int number, qzString const& name) {
    if (name.empty())
        AppendNumber(text, number);
    else
        AppendName(text, name);
}

void AppendType(qzString& text, EntityFullType const& type) {
    AppendTypeKey(text, type.GetTypeNumeric(), type.GetTypeNamed());
    if (type.HaveSubType()) {
        text += '/';
        AppendTypeKey(text, type.GetSubtypeNumeric(), type.GetSubtypeNamed());
    }
    if (type.GetTopologyType() == EntityFullType::TOPOLOGY_NONE)
        return;
    text += '[';
    AppendNumber(text, std::int32_t{type.GetTopologyType()});
    text += ']';
}

using TypeKey = std::variant<unsigned int, qzString>;

bool ReadTypeKey(TextReader& reader, TypeKey& key) {
    if (reader.TakeNumber(key.emplace<unsigned int>()))
        return true;
    return reader.TakeName(key.emplace<qzString>());
}

bool ReadType(TextReader& reader, EntityFullType& type) {
    TypeKey key;
    TypeKey subkey;
    if (!ReadTypeKey(reader, key) || (reader.TakeSign('/') && !ReadTypeKey(reader, subkey)))
        return false;
    std::int32_t topology = EntityFullType::TOPOLOGY_NONE;
    if (reader.TakeSign('[') && !(reader.TakeNumber(topology) && reader.TakeSign(']')))
        return false;
    auto const make = [topology](auto const& typeKey, auto const& subtypeKey) {
        return EntityFullType(EntityFullType::TopologyType{topology}, typeKey, subtypeKey);
    };
    type = std::visit(make, key, subkey);
    return true;
}

bool ReadAbsence(TextReader& reader) {
    TextReader ahead = reader;
    std::string_view word;
    if (!ahead.TakeWord(word) || word != s_absence || !ahead.TakeSign('(') || !ahead.TakeSign(')'))
        return false;
    reader = ahead;
    return true;
}

// The clause whose sign has been read.
bool ReadEntry(TextReader& reader, FormulaPrivate& body, bool addition) {
    FormulaPrivate::Entry entry{Clause(), std::nullopt, addition};
    if (!ReadClause(reader, entry.clause))
        return false;
    if (EntityFullType source; reader.TakeSign('@')) {
        if (!ReadType(reader, source))
            return false;
        entry = body.MakeEntry(entry.clause, source, addition);
    }
    body.entries.push_back(std::move(entry));
    return true;
}

bool ReadFormula(TextReader& reader, Formula& formula) {
    if (ReadAbsence(reader)) {
        formula = Formula();
        return true;
    }
    EntityFullType type;
    if (!ReadType(reader, type) || !reader.TakeSign(':'))
        return false;
    auto body = std::make_unique<FormulaPrivate>(type);
    for (;;) {
        bool const addition = reader.TakeSign('+');
        if (!addition && !reader.TakeSign('-'))
            break;
        if (!ReadEntry(reader, *body, addition))
            return false;
    }
    FormulaPrivate::Of(formula) = std::move(body);
    return true;
}

} // namespace

qzString GetAsString(Formula const& formula) {
    FormulaPrivate const* const body = FormulaPrivate::Of(formula);
    if (body == nullptr)
        return qzString(s_absence) + "()";
    qzString text;
    AppendType(text, body->type);
    text += ':';
    for (auto const& entry : body->entries) {
        text += entry.addition ? " +" : " -";
        text += entry.clause.GetAsString();
        if (!entry.source)
            continue;
        text += '@';
        AppendType(text, *entry.source);
    }
    return text;
}

bool SetFromString(Formula& formula, qzString const& text) {
    TextReader reader(text);
    Formula read;
    if (!ReadFormula(reader, read) || !reader.IsAtEnd())
        return false;
    formula = std::move(read);
    return true;
}

qzString GetAsString(Function const& function) {
    qzString text = "function(";
    AppendNumber(text, std::int32_t{function.GetUsage()});
    auto const appendName = [&text](std::string_view language, qzString const& name) {
        if (name.empty())
            return;
        text.append(1, ' ').append(language).append(1, '(');
        AppendQuoted(text, name);
        text += ')';
    };
    appendName("tcl", function.GetFunctionNameTCL());
    appendName("native", function.GetFunctionNameCPP());
    if (function.GetCallBackCPP() != nullptr)
        text += " callback";
    text += ')';
    return text;
}

} // namespace qzDescriptor
