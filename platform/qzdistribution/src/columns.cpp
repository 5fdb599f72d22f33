// The columns of a database's tables, their rows and cells.

#include "Database.h"

#include <algorithm>
#include <limits>

namespace qzdt {

Column const* Database::P_Column(unsigned int table, unsigned int column) const {
    Table const* const owner = P_Table(table);
    if (owner == nullptr)
        return nullptr;
    if (column < owner->columns.size())
        return &owner->columns[column];
    P_Fail("There is no such column.");
    return nullptr;
}

template <class T>
Column const* Database::P_ColumnOf(unsigned int table, unsigned int column) const {
    Column const* const found = P_Column(table, column);
    if (found == nullptr || found->type == s_typeOf<T>)
        return found;
    P_Fail("The column holds values of another type.");
    return nullptr;
}

Column const* Database::FindColumn(unsigned int table, unsigned int column) const {
    return P_Column(table, column);
}

bool Database::GetColumnCount(unsigned int table, unsigned int& count) {
    Table const* const found = P_Table(table);
    if (found != nullptr)
        count = static_cast<unsigned int>(found->columns.size());
    return found != nullptr;
}

bool Database::InsertColumn(unsigned int table, QZDT_Type type, unsigned int at) {
    Table const* const owner = P_Table(table);
    if (owner == nullptr)
        return false;
    if (!IsCellType(type))
        return P_Fail("There are no columns of this type.");
    Column column;
    column.type = type;
    auto const place = std::min(at, static_cast<unsigned int>(owner->columns.size()));
    return P_Perform([&] { return m_catalog.AddColumn(table, place, std::move(column)); });
}

bool Database::RemoveColumn(unsigned int table, unsigned int column) {
    return P_Column(table, column) != nullptr && P_Perform([&] { return P_DropColumn(table, column); });
}

bool Database::P_DropColumn(unsigned int table, unsigned int column) {
    unsigned int const id = P_Column(table, column)->id;
    m_chunks.Forget(id);
    return m_chunks.Remove(id, 0) && m_catalog.RemoveColumn(table, column);
}

bool Database::MoveColumn(unsigned int table, unsigned int column, unsigned int to) {
    if (P_Column(table, column) == nullptr)
        return false;
    auto const last = static_cast<unsigned int>(P_Table(table)->columns.size() - 1);
    return P_Perform([&] { return m_catalog.MoveColumn(table, column, std::min(to, last)); });
}

// --- whole columns ---

template <class T>
bool Database::SetColumn(unsigned int table, unsigned int column, qzStlVector<T> const& values) {
    Column const* const replaced = P_ColumnOf<T>(table, column);
    if (replaced == nullptr)
        return false;
    if (values.size() > std::numeric_limits<unsigned int>::max())
        return P_Fail("A column has no room for so many rows.");
    return P_Perform([&] {
        m_chunks.Forget(replaced->id);
        ColumnWriter<T> writer(m_chunks, replaced->id, 0);
        return writer.Append(values) && P_EndColumn(table, column, writer);
    });
}

template <class T>
bool Database::GetColumn(unsigned int table, unsigned int column, qzStlVector<T>& values) {
    constexpr unsigned int mostAtOnce = 1u << 20; // a damaged row count must not take all memory
    Column const* const source = P_ColumnOf<T>(table, column);
    if (source == nullptr)
        return false;
    qzStlVector<T> read;
    read.reserve(std::min(source->rowCount, mostAtOnce));
    for (unsigned int number = 0; number < source->GetChunkCount(); ++number) {
        if (!m_chunks.Read(*source, number, read))
            return false;
    }
    values = std::move(read);
    return true;
}

bool Database::SetColumnIdentifier(unsigned int table, unsigned int column,
                                   QZDT_ColumnIdentifier const& identifier) {
    return P_Column(table, column) != nullptr &&
           P_Perform([&] { return m_catalog.SetIdentifier(table, column, identifier); });
}

bool Database::RemoveColumnIdentifier(unsigned int table, unsigned int column) {
    return P_Column(table, column) != nullptr &&
           P_Perform([&] { return m_catalog.RemoveIdentifier(table, column); });
}

bool Database::GetColumnIdentifier(unsigned int table, unsigned int column,
                                   QZDT_ColumnIdentifier& identifier) {
    Column const* const found = P_Column(table, column);
    if (found == nullptr)
        return false;
    if (!found->identifier)
        return P_Fail("The column has no identifier.");
    identifier = QZDT_ColumnIdentifier(*found->identifier); // whole or, without memory, not at all
    return true;
}

bool Database::SetColumnEntityType(unsigned int table, unsigned int column, QZDT_EntityType const& type) {
    return P_ColumnOf<QZDT_Id>(table, column) != nullptr &&
           P_Perform([&] { return m_catalog.SetEntityType(table, column, type); });
}

bool Database::GetColumnEntityType(unsigned int table, unsigned int column, QZDT_EntityType& type) {
    Column const* const found = P_ColumnOf<QZDT_Id>(table, column);
    if (found != nullptr)
        type = QZDT_EntityType(found->entityType);
    return found != nullptr;
}

// --- rows ---

bool Database::ResizeRows(unsigned int table, unsigned int count) {
    Table const* const resized = P_Table(table);
    return resized != nullptr && P_Perform([&] {
               for (unsigned int column = 0; column < resized->columns.size(); ++column) {
                   if (!P_Resize(table, column, count))
                       return false;
               }
               return true;
           });
}

bool Database::ResizeColumn(unsigned int table, unsigned int column, unsigned int count) {
    return P_Column(table, column) != nullptr && P_Perform([&] { return P_Resize(table, column, count); });
}

bool Database::P_Resize(unsigned int table, unsigned int column, unsigned int count) {
    Column const& resized = *P_Column(table, column);
    if (resized.rowCount == count)
        return true;
    m_chunks.Forget(resized.id);
    return VisitType(resized.type, [&]<class T>(std::type_identity<T>) {
        unsigned int const number =
            std::min(count, resized.rowCount) / s_chunkRows; // whole ones stay as they are
        ColumnWriter<T> writer(m_chunks, resized.id, number);
        qzStlVector<T> chunk;
        if (number < resized.GetChunkCount() && !m_chunks.Read(resized, number, chunk))
            return false;
        for (std::uint64_t first = writer.GetRowCount(); first < count; first += s_chunkRows) {
            chunk.resize(static_cast<std::size_t>(std::min<std::uint64_t>(count - first, s_chunkRows)));
            if (!writer.Append(chunk))
                return false;
            chunk.clear();
        }
        return P_EndColumn(table, column, writer);
    });
}

bool Database::RemoveRows(unsigned int table, qzStlVector<unsigned int> const& rows) {
    Table const* const shortened = P_Table(table);
    if (shortened == nullptr)
        return false;
    auto const has = [&](Column const& column) { return P_HasRows(column, rows); };
    return std::ranges::all_of(shortened->columns, has) && P_Perform([&] {
               for (unsigned int column = 0; column < shortened->columns.size(); ++column) {
                   if (!P_RemoveRows(table, column, rows))
                       return false;
               }
               return true;
           });
}

bool Database::RemoveRowsOfColumn(unsigned int table, unsigned int column,
                                  qzStlVector<unsigned int> const& rows) {
    Column const* const shortened = P_Column(table, column);
    return shortened != nullptr && P_HasRows(*shortened, rows) &&
           P_Perform([&] { return P_RemoveRows(table, column, rows); });
}

bool Database::P_HasRows(Column const& column, qzStlVector<unsigned int> const& rows) const {
    if (rows.empty())
        return P_Fail("No rows are given.");
    if (!std::ranges::is_sorted(rows))
        return P_Fail("The rows are not in ascending order.");
    return rows.back() < column.rowCount || P_Fail("There is no such row.");
}

bool Database::P_RemoveRows(unsigned int table, unsigned int column, qzStlVector<unsigned int> const& rows) {
    Column const& shortened = *P_Column(table, column);
    m_chunks.Forget(shortened.id);
    return VisitType(shortened.type, [&]<class T>(std::type_identity<T>) {
        unsigned int const firstChanged = rows.front() / s_chunkRows;
        ColumnWriter<T> writer(m_chunks, shortened.id, firstChanged);
        auto removed = rows.begin();
        for (unsigned int number = firstChanged; number < shortened.GetChunkCount(); ++number) {
            qzStlVector<T> chunk;
            if (!m_chunks.Read(shortened, number, chunk))
                return false;
            std::span<T const> const values = chunk;
            std::size_t kept = 0; // from where on rows are to be kept
            for (; removed != rows.end() && *removed / s_chunkRows == number; ++removed) {
                std::size_t const at = *removed % s_chunkRows;
                if (at < kept)
                    continue; // a repeat
                if (!writer.Append(values.subspan(kept, at - kept)))
                    return false;
                kept = at + 1;
            }
            if (!writer.Append(values.subspan(kept)))
                return false;
        }
        return P_EndColumn(table, column, writer);
    });
}

// --- cells ---

bool Database::GetCell(unsigned int table, unsigned int row, unsigned int column, QZ_DT_Variant& value) {
    Column const* const source = P_ColumnWithRow(table, row, column);
    if (source == nullptr || !P_MakeRoomForCell())
        return false;
    return VisitType(source->type, [&]<class T>(std::type_identity<T>) {
        T cell{};
        bool const read = m_chunks.GetCell(*source, row, cell);
        if (read)
            value.Set(std::move(cell));
        return read;
    });
}

bool Database::SetCell(unsigned int table, unsigned int row, unsigned int column,
                       QZ_DT_Variant const& value) {
    Column const* const changed = P_ColumnWithRow(table, row, column);
    if (changed == nullptr)
        return false;
    if (value.GetType() != changed->type)
        return P_Fail("The column holds values of another type.");
    if (!P_IsUsable() || !P_MakeRoomForCell())
        return false;
    return VisitType(changed->type, [&]<class T>(std::type_identity<T>) {
        return m_chunks.SetCell(*changed, row, *value.GetPointer<T>());
    });
}

Column const* Database::P_ColumnWithRow(unsigned int table, unsigned int row, unsigned int column) const {
    Column const* const found = P_Column(table, column);
    if (found == nullptr || row < found->rowCount)
        return found;
    P_Fail("There is no such row.");
    return nullptr;
}

bool Database::P_MakeRoomForCell() { return !m_chunks.MustWrite() || P_WriteCells(); }

#define QZDT_INSTANTIATE(T, code)                                                                            \
    template bool Database::SetColumn(unsigned int, unsigned int, qzStlVector<T> const&);                    \
    template bool Database::GetColumn(unsigned int, unsigned int, qzStlVector<T>&);
QZDT_CELL_TYPES(QZDT_INSTANTIATE)
#undef QZDT_INSTANTIATE

} // namespace qzdt
