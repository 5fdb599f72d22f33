#pragma once

#include "Connection.h"
#include "chunk_codec.h"

#include <algorithm>
#include <cstdint>
#include <list>
#include <span>
#include <string_view>
#include <unordered_map>

namespace qzdt {

/// Which column of a database, and how many rows it has.
struct ColumnExtent {
    unsigned int id = 0;
    unsigned int rowCount = 0;

    unsigned int GetChunkCount() const {
        return rowCount / s_chunkRows + (rowCount % s_chunkRows != 0 ? 1 : 0);
    }
    unsigned int GetRowsOfChunk(unsigned int number) const {
        return std::min(rowCount - number * s_chunkRows, s_chunkRows);
    }
};

/// The chunks of all columns of a database. Those whose cells were used last stay in memory; cells are
/// changed there, and changed chunks are written together.
class ChunkStore {
public:
    explicit ChunkStore(Connection& connection) : m_connection(connection) {}

    // --- cells of rows that are there ---

    template <class T>
    bool GetCell(ColumnExtent const& column, unsigned int row, T& value) {
        Cached const* const chunk = P_Load<T>(column, row / s_chunkRows);
        if (chunk != nullptr)
            value = Chunk<T>::Get(chunk->bytes, column.GetRowsOfChunk(row / s_chunkRows), row % s_chunkRows);
        return chunk != nullptr;
    }

    template <class T>
    bool SetCell(ColumnExtent const& column, unsigned int row, T const& value) {
        Cached* const chunk = P_Load<T>(column, row / s_chunkRows);
        if (chunk == nullptr)
            return false;
        unsigned int const rows = column.GetRowsOfChunk(row / s_chunkRows);
        if (Chunk<T>::GetSizeAfterSet(chunk->bytes, rows, row % s_chunkRows, value) > s_largestChunk)
            return m_connection.Fail(s_tooLong);
        std::uint64_t const size = P_Size(*chunk);
        Chunk<T>::Set(chunk->bytes, rows, row % s_chunkRows, value);
        m_keptSize += P_Size(*chunk) - size;
        P_MarkChanged(*chunk);
        return true;
    }

    bool HasChanges() const { return m_changeCount != 0; }
    /// Whether there is room for the next cell only when changes are written first.
    bool MustWrite() const { return m_keptSize > s_mostKept && m_chunks.back().changed; }
    bool WriteChanges();
    /// To be said when what was written will stay.
    void ForgetChanges();

    // --- whole chunks ---

    /// Appends the rows of a chunk as they are now.
    template <class T>
    bool Read(ColumnExtent const& column, unsigned int number, qzStlVector<T>& values) {
        return P_Visit(P_Key(column.id, number), [&](std::string_view bytes) {
            unsigned int const rows = column.GetRowsOfChunk(number);
            bool const sound = Chunk<T>::IsSound(bytes, rows);
            if (sound)
                AppendChunk<T>(bytes, rows, values);
            return sound;
        });
    }

    // What follows is for columns that Forget was called for, all changes being written.

    template <class T>
    bool Write(unsigned int column, unsigned int number, std::span<T const> values) {
        if (Chunk<T>::GetSize(values) > s_largestChunk)
            return m_connection.Fail(s_tooLong);
        Chunk<T>::Encode(values, m_encoded);
        return m_write.Run(P_Key(column, number), m_encoded);
    }
    /// The chunks of a column from a number on.
    bool Remove(unsigned int column, unsigned int from);
    bool Copy(unsigned int column, unsigned int to);

    void Forget(unsigned int column);
    void Forget();

private:
    struct Cached {
        std::int64_t key;
        qzString bytes;
        bool changed = false;
    };
    using Place = std::list<Cached>::iterator;

    static constexpr std::uint64_t s_mostKept = 32u << 20;
    // Far below what SQLite can hold, so that whatever is accepted can be written.
    static constexpr std::uint64_t s_largestChunk = 1u << 29;
    static constexpr char const* s_tooLong = "The texts of neighbouring rows are too long together.";
    static constexpr char const* s_damaged = "The database is damaged: rows of a column are missing.";

    // Small chunks count for more than they are, so that there are never very many.
    static std::uint64_t P_Size(Cached const& chunk) {
        return std::max<std::uint64_t>(chunk.bytes.size(), 4096);
    }

    static std::int64_t P_Key(unsigned int column, unsigned int number) {
        return std::int64_t{column} << 32 | number;
    }

    // The chunk, used last from now on; null on failure.
    template <class T>
    Cached* P_Load(ColumnExtent const& column, unsigned int number) {
        std::int64_t const key = P_Key(column.id, number);
        if (P_IsKept(key))
            return &m_chunks.front();
        bool const read = P_Visit(key, [&](std::string_view bytes) {
            bool const sound = Chunk<T>::IsSound(bytes, column.GetRowsOfChunk(number));
            if (sound)
                P_Keep(key, bytes);
            return sound;
        });
        return read ? &m_chunks.front() : nullptr;
    }

    template <class Visit>
    bool P_Visit(std::int64_t key, Visit&& visit) {
        if (auto const found = m_places.find(key); found != m_places.end())
            return visit(found->second->bytes);
        Query query(m_select, key);
        if (query.Next() && visit(query.GetBytes(0)))
            return true;
        return query.HasFailed() ? false : m_connection.Fail(s_damaged);
    }

    bool P_IsKept(std::int64_t key);
    void P_Keep(std::int64_t key, std::string_view bytes);
    void P_Drop(Place place);
    void P_MarkChanged(Cached& chunk);

    Connection& m_connection;
    Statement m_select{m_connection, "SELECT data FROM chunk WHERE key = ?"};
    Statement m_write{m_connection, "REPLACE INTO chunk VALUES(?, ?)"};
    Statement m_remove{m_connection, "DELETE FROM chunk WHERE key BETWEEN ? AND ?"};
    Statement m_copy{m_connection,
                     "INSERT INTO chunk SELECT key + ?3, data FROM chunk WHERE key BETWEEN ?1 AND ?2"};

    std::list<Cached> m_chunks; // the one used last is the first
    std::unordered_map<std::int64_t, Place> m_places;
    std::uint64_t m_keptSize = 0;
    std::size_t m_changeCount = 0;
    qzString m_encoded;
};

} // namespace qzdt
