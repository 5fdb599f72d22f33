#include "ChunkStore.h"

#include <iterator>
#include <vector>

namespace qzdt {

namespace {

constexpr unsigned int s_lastChunk = 0xFFFFFFFF;

} // namespace

bool ChunkStore::WriteChanges() {
    std::vector<Cached const*> changed;
    for (Cached const& chunk : m_chunks) {
        if (chunk.changed)
            changed.push_back(&chunk);
    }
    std::ranges::sort(changed, {}, &Cached::key); // neighbours share pages
    return std::ranges::all_of(changed,
                               [this](Cached const* chunk) { return m_write.Run(chunk->key, chunk->bytes); });
}

void ChunkStore::ForgetChanges() {
    for (Cached& chunk : m_chunks)
        chunk.changed = false;
    m_changeCount = 0;
}

bool ChunkStore::Remove(unsigned int column, unsigned int from) {
    return m_remove.Run(P_Key(column, from), P_Key(column, s_lastChunk));
}

bool ChunkStore::Copy(unsigned int column, unsigned int to) {
    return m_copy.Run(P_Key(column, 0), P_Key(column, s_lastChunk), P_Key(to, 0) - P_Key(column, 0));
}

void ChunkStore::Forget(unsigned int column) {
    for (Place place = m_chunks.begin(); place != m_chunks.end();) {
        Place const chunk = place++;
        if (chunk->key >= P_Key(column, 0) && chunk->key <= P_Key(column, s_lastChunk))
            P_Drop(chunk);
    }
}

void ChunkStore::Forget() {
    m_chunks.clear();
    m_places.clear();
    m_keptSize = 0;
    m_changeCount = 0;
}

bool ChunkStore::P_IsKept(std::int64_t key) {
    if (!m_chunks.empty() && m_chunks.front().key == key)
        return true;
    auto const found = m_places.find(key);
    if (found == m_places.end())
        return false;
    m_chunks.splice(m_chunks.begin(), m_chunks, found->second);
    return true;
}

void ChunkStore::P_Keep(std::int64_t key, std::string_view bytes) {
    while (m_keptSize > s_mostKept && !m_chunks.back().changed)
        P_Drop(std::prev(m_chunks.end()));
    std::list<Cached> kept(1, {key, qzString(bytes)});
    m_places.emplace(key, kept.begin());
    m_chunks.splice(m_chunks.begin(), kept); // when memory runs out, it does before
    m_keptSize += P_Size(m_chunks.front());
}

void ChunkStore::P_Drop(Place place) {
    m_keptSize -= P_Size(*place);
    m_changeCount -= place->changed ? 1 : 0;
    m_places.erase(place->key);
    m_chunks.erase(place);
}

void ChunkStore::P_MarkChanged(Cached& chunk) {
    m_changeCount += chunk.changed ? 0 : 1;
    chunk.changed = true;
}

} // namespace qzdt
