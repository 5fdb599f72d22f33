#pragma once

#include "ChunkStore.h"

namespace qzdt {

/// Writes rows to a column one behind the other, from the first row of a chunk on. Chunks that are
/// overwritten must have been read before.
template <class T>
class ColumnWriter {
public:
    ColumnWriter(ChunkStore& chunks, unsigned int column, unsigned int firstChunk)
        : m_chunks(chunks),
          m_column(column),
          m_chunkCount(firstChunk),
          m_rowCount(firstChunk * s_chunkRows) {}

    bool Append(std::span<T const> values) {
        while (!values.empty()) {
            std::size_t const room = s_chunkRows - m_pending.size();
            std::span<T const> const taken = values.first(std::min(room, values.size()));
            values = values.subspan(taken.size());
            if (taken.size() == s_chunkRows) {
                if (!P_Write(taken))
                    return false;
                continue;
            }
            m_pending.insert(m_pending.end(), taken.begin(), taken.end());
            if (m_pending.size() == s_chunkRows && !Finish())
                return false;
        }
        return true;
    }

    /// Writes the rows that do not fill a chunk.
    bool Finish() {
        bool const written = m_pending.empty() || P_Write(m_pending);
        m_pending.clear();
        return written;
    }

    unsigned int GetChunkCount() const { return m_chunkCount; }
    unsigned int GetRowCount() const { return m_rowCount; }

private:
    bool P_Write(std::span<T const> values) {
        m_rowCount += static_cast<unsigned int>(values.size());
        return m_chunks.Write(m_column, m_chunkCount++, values);
    }

    ChunkStore& m_chunks;
    unsigned int m_column;
    unsigned int m_chunkCount;
    unsigned int m_rowCount;
    qzStlVector<T> m_pending;
};

} // namespace qzdt
