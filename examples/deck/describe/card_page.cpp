#include "describe/card_page.h"

#include "cards/card_position.h"
#include "cards/families.h"
#include "qzutl/qzStlVector.h"
#include "writer/number_text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace qzDeck {

using qzDescriptor::Allowables;
using qzDescriptor::BoundT;
using qzDescriptor::UnitsDimensionality;
using qzDescriptor::Value;

namespace {

using Row = std::array<std::string, 8>;
constexpr Row::size_type s_last = std::tuple_size_v<Row> - 1;

Row Heading() { return {"Field", "Line", "Columns", "Type", "Blank", "Allowed", "Measures", "Meaning"}; }

std::string Join(std::string const& first, std::string const& separator, std::string const& second) {
    return first.empty() ? second : second.empty() ? first : first + separator + second;
}

std::string NumberText(int number) { return std::to_string(number); }
std::string NumberText(double number) { return RealText(number, s_exactColumns); }

std::string NameOf(Field const& field) {
    constexpr char const* indices[] = {"", "(i)", "(i,j)"};
    return field.identifier.GetNameKey() + indices[std::min(field.definition.GetArrayDimension(), 2U)];
}

std::string LineOf(Field const& field) {
    return field.position.IsValid() ? std::to_string(field.position.GetCardRow() + 1) : "";
}

std::string ColumnsOf(Field const& field) {
    if (!field.position.IsValid())
        return "";
    std::size_t const first = ColumnOf(field.position);
    return std::to_string(first + 1) + '-' + std::to_string(first + field.position.GetLength());
}

std::string TypeOf(Field const& field) {
    if (HasFlag(field, FIELD_IS_COMPONENTS))
        return "components";
    switch (field.definition.GetValueBasicType()) {
    case qzDescriptor::BT_INT:
        return "integer";
    case qzDescriptor::BT_DOUBLE:
        return "real";
    case qzDescriptor::BT_STRING:
        return "text";
    default:
        return "any";
    }
}

/// What a blank stands for.
std::string BlankOf(CardDefinition const& card, Field const& field) {
    if (IsRequired(field))
        return "required";
    if (HasFlag(field, FIELD_DEFAULTS_TO_ID))
        return card.AllFields().front().identifier.GetNameKey();
    Value value;
    if (!HasFlag(field, FIELD_HAS_DEFAULT) || !field.definition.GetAllowables().GetDefault(value))
        return "";
    if (int integer = 0; value.GetValue(integer))
        return NumberText(integer);
    if (double real = 0.0; value.GetValue(real))
        return NumberText(real);
    qzString text;
    value.GetValue(text);
    return text;
}

template <class T>
std::string BoundsOf(Allowables const& allowables) {
    constexpr char const* relations[] = {"< ", "<= ", "> ", ">= "};
    std::string text;
    qzStlVector<BoundT<T>> bounds;
    allowables.GetBounds(bounds);
    for (BoundT<T> const& bound : bounds) {
        T limit{};
        typename BoundT<T>::Rule rule{};
        if (bound.GetValueAndRule(limit, rule))
            text = Join(text, ", ", relations[rule] + NumberText(limit));
    }
    return text;
}

std::string WordsOf(Allowables const& allowables) {
    std::string text;
    qzStlVector<qzString> names;
    unsigned int defaultIndex = 0;
    allowables.GetNameList(names, defaultIndex);
    for (qzString const& name : names)
        text = Join(text, ", ", name);
    return text;
}

std::string MeaningOf(Field const& field) {
    return Join(field.definition.GetDisplayName(), ". ", field.definition.GetDescription());
}

std::vector<Row> RowsOf(CardDefinition const& card) {
    std::vector<Row> rows;
    for (Field const& field : card.AllFields()) {
        bool const isAlternative = &field != &card.AlternativesTo(field).front();
        rows.push_back({(isAlternative ? "or " : "") + NameOf(field), isAlternative ? "" : LineOf(field),
                        isAlternative ? "" : ColumnsOf(field), TypeOf(field), BlankOf(card, field),
                        AllowedIn(field.definition), MeasuredBy(field.definition), MeaningOf(field)});
    }
    return rows;
}

/// What holds for the card as a whole.
std::vector<std::string> NotesOn(CardDefinition const& card) {
    std::vector<std::string> notes;
    if (card.GetTail() != nullptr)
        notes.push_back("(i): " + std::string(card.GetTail()->Note()) + '.');
    if (!card.DefaultsCard().empty())
        notes.push_back("A blank field is what it is on the card " + card.DefaultsCard() +
                        ", if there is one.");
    if (card.IsSingle())
        notes.push_back("A deck has this card once at most.");
    return notes;
}

std::string TextLine(Row const& row, std::array<std::size_t, s_last> const& widths) {
    std::string line;
    for (std::size_t i = 0; i < s_last; ++i) {
        std::string cell = row[i];
        cell.resize(widths[i] + 2, ' ');
        line += cell;
    }
    return line + row[s_last];
}

void WriteTextTable(std::ostream& out, std::vector<Row> rows) {
    rows.insert(rows.begin(), Heading());
    std::array<std::size_t, s_last> widths{};
    for (Row const& row : rows) {
        for (std::size_t i = 0; i < s_last; ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (Row const& row : rows)
        out << "  " << TextLine(row, widths) << '\n';
}

void WriteMarkdownRow(std::ostream& out, Row const& row) {
    for (std::string const& cell : row)
        out << "| " << cell << (cell.empty() ? "" : " ");
    out << "|\n";
}

void WriteMarkdownTable(std::ostream& out, std::vector<Row> const& rows) {
    Row rule;
    rule.fill("---");
    WriteMarkdownRow(out, Heading());
    WriteMarkdownRow(out, rule);
    for (Row const& row : rows)
        WriteMarkdownRow(out, row);
}

} // namespace

std::string AllowedIn(qzDescriptor::Definition const& definition) {
    if ((definition.GetUserParams().GetFlag() & FIELD_IS_COMPONENTS) != 0)
        return "digits 1 to 6, each once, or 0";
    Allowables const& allowables = definition.GetAllowables();
    std::string text = Join(BoundsOf<int>(allowables), ", ", BoundsOf<double>(allowables));
    text = Join(text, ", ", WordsOf(allowables));
    auto const family = static_cast<Family>(definition.GetUserParams().GetForeignReference());
    return family == Family::None ? text : Join(text, ", ", "a " + std::string(TraitsOf(family).noun));
}

std::string MeasuredBy(qzDescriptor::Definition const& definition) {
    UnitsDimensionality const& units = definition.GetUnitsDimensionality();
    return Join(units.GetDimensionalityDisplayName(0), " or ", units.GetDimensionalityDisplayName(1));
}

void WriteCardPage(std::ostream& out, CardDefinition const& card, PageStyle style) {
    bool const isMarkdown = style == PageStyle::Markdown;
    out << (isMarkdown ? "## " : "") << card.Name() << ": " << card.Title() << "\n\n";
    if (isMarkdown)
        WriteMarkdownTable(out, RowsOf(card));
    else
        WriteTextTable(out, RowsOf(card));
    for (std::string const& note : NotesOn(card))
        out << (isMarkdown ? "\n" : "\n  ") << note << '\n';
}

} // namespace qzDeck
