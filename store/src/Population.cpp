#include "Population.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace qzDescriptor::store {

Object* Population::Find(unsigned int id) const {
    // Most ids run on from the first one, and then the place is known.
    if (std::size_t const guess = m_ids.empty() ? 0 : id - m_ids.front();
        id != 0 && guess < m_ids.size() && m_ids[guess] == id)
        return m_objects[guess].get();
    unsigned int const place = id == 0 ? IdIndex::s_notFound : m_index.Find(m_ids, id);
    return place == IdIndex::s_notFound ? nullptr : m_objects[place].get();
}

Object& Population::Add(unsigned int id) {
    auto const place = static_cast<unsigned int>(m_ids.size());
    m_objects.push_back(std::unique_ptr<Object>(new Object(*this, id, place)));
    m_contents.push_back(m_objects.back()->m_content.get());
    m_ids.push_back(id);
    m_index.Insert(m_ids, place);
    m_highestId = std::max(m_highestId, id);
    return *m_objects.back();
}

std::unique_ptr<Object> Population::Remove(Object const& object) {
    unsigned int const place = object.m_place;
    m_index.Remove(m_ids, m_ids[place]);
    m_ids[place] = 0;
    m_contents[place] = nullptr;
    std::unique_ptr<Object> removed = std::move(m_objects[place]);
    if (++m_gone > m_ids.size() / 2)
        P_CloseGaps();
    return removed;
}

void Population::P_CloseGaps() {
    std::erase(m_ids, 0u);
    std::erase(m_objects, nullptr);
    std::erase(m_contents, nullptr);
    for (std::size_t place = 0; place < m_objects.size(); ++place)
        m_objects[place]->m_place = static_cast<unsigned int>(place);
    m_index.Rebuild(m_ids);
    m_gone = 0;
}

unsigned int Population::GetNextId() const {
    if (m_highestId != std::numeric_limits<unsigned int>::max())
        return m_highestId + 1;
    unsigned int id = 1;
    while (Find(id) != nullptr)
        ++id;
    return id;
}

void Population::List(qzStlVector<unsigned int>& ids) const {
    ids.clear();
    ids.reserve(GetCount());
    std::ranges::copy_if(m_ids, std::back_inserter(ids), [](unsigned int id) { return id != 0; });
}

} // namespace qzDescriptor::store
