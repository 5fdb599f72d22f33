#include "tables/list_table.h"

#include "cards/card_position.h"
#include "cards/tails.h"
#include "qzutl/qzStlVector.h"

namespace qzDeck {

using qzDescriptor::Definition;
using qzDescriptor::Tabular;
using qzDescriptor::TabularDefinition;
using qzDescriptor::Value;

namespace {

bool IsNested(Field const& field) { return field.definition.GetArrayDimension() > 1; }

/// The last id of a range, under the name of the word that stands before it.
Field RangeEnd(Field const& id, Field const& word) {
    Field end = word;
    end.definition = id.definition;
    end.definition.SetDisplayName(word.definition.GetDisplayName());
    end.definition.SetValueSpecification(Definition::SPECIFICATION_OPTIONAL);
    return end;
}

/// Makes rows of the values of a list, which it is given in their order, without blanks.
class ListReader {
public:
    explicit ListReader(std::vector<Field> columns) : m_columns(std::move(columns)) {}

    std::size_t CountColumns() const { return m_columns.size(); }

    void Take(PlacedField const& placed, std::size_t column, Value const& value) {
        if (HasFlag(*placed.field, FIELD_IS_RANGE)) {
            m_endOfRange = m_rows.empty() ? 0 : column;
            return;
        }
        if (m_endOfRange != 0 && column == 0) {
            P_Set(m_endOfRange, value);
            m_endOfRange = 0;
            return;
        }
        m_endOfRange = 0;
        if (placed.row != m_row)
            m_rows.emplace_back(m_columns.size(), nullptr);
        else if (IsNested(*placed.field) && m_rows.back()[column] != nullptr)
            m_rows.push_back(TableRow(m_rows.back()));
        m_row = placed.row;
        P_Set(column, value);
    }

    TableRows TakeRows() { return std::move(m_rows); }

private:
    void P_Set(std::size_t column, Value const& value) {
        m_rows.back()[column] = Fitting(m_columns[column], value);
    }

    std::vector<Field> m_columns;
    TableRows m_rows;
    unsigned int m_row = PlacedField::s_single; // of the card's list, where the last row of the table began
    std::size_t m_endOfRange = 0;               // the column of the next id, when that ends a range
};

std::vector<Field> ColumnsOf(Card const& card) {
    CardDefinition const* const definition = card.Kind().definition;
    return definition == nullptr ? std::vector<Field>() : ListColumns(*definition);
}

} // namespace

std::vector<Field> ListColumns(CardDefinition const& card) {
    std::vector<Field> columns;
    if (card.GetTail() == nullptr || card.GetTail() == &SectionStations())
        return columns;
    for (Field const& field : card.TailFields()) {
        bool const isInnermost = IsNested(field);
        columns.push_back(HasFlag(field, FIELD_IS_RANGE) ? RangeEnd(columns.front(), field) : field);
        if (isInnermost)
            break;
    }
    return columns;
}

TableRows ListRows(Card const& card) {
    std::vector<Field> columns = ColumnsOf(card);
    if (columns.empty())
        return {};
    Fields const fields = card.Kind().definition->TailFields();
    ListReader reader(std::move(columns));
    PlacedFields placed;
    card.Place(placed);
    auto const& values = card.Values();
    for (std::size_t place = PlaceOf(fields.front().position); place < values.size(); ++place) {
        auto const column = static_cast<std::size_t>(placed[place].field - fields.data());
        if (column < reader.CountColumns() && values[place].GetBasicType() != qzDescriptor::BT_NONE)
            reader.Take(placed[place], column, values[place]);
    }
    return reader.TakeRows();
}

TabularDefinition MakeTableDefinition(CardDefinition const& card) {
    qzStlVector<Definition> columns;
    for (Field const& column : ListColumns(card)) {
        columns.push_back(column.definition);
        columns.back().SetArrayDimension(0); // of a cell
    }
    return TabularDefinition(card.Title(), columns, true, true, std::string(), std::string());
}

Tabular MakeTable(Card const& card) { return MakeTable(ColumnsOf(card), ListRows(card)); }

} // namespace qzDeck
