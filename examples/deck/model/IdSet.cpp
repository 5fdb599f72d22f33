#include "model/IdSet.h"

#include <algorithm>

namespace qzDeck {

namespace {

template <class T>
void SortUnique(std::vector<T>& list) {
    if (!std::is_sorted(list.begin(), list.end()))
        std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
}

} // namespace

void IdSet::Add(WholeNumber const& id) {
    ++m_count;
    if (id.IsSmall())
        m_small.push_back(id.Small());
    else
        m_large.push_back(id);
}

void IdSet::Seal() {
    SortUnique(m_small);
    SortUnique(m_large);
}

WholeNumber IdSet::Least() const {
    if (m_small.empty())
        return m_large.front();
    WholeNumber const least(m_small.front());
    return m_large.empty() ? least : std::min(least, m_large.front());
}

WholeNumber IdSet::Greatest() const {
    if (m_small.empty())
        return m_large.back();
    WholeNumber const greatest(m_small.back());
    return m_large.empty() ? greatest : std::max(greatest, m_large.back());
}

bool IdSet::Contains(WholeNumber const& id) const {
    if (id.IsSmall())
        return std::binary_search(m_small.begin(), m_small.end(), id.Small());
    return std::binary_search(m_large.begin(), m_large.end(), id);
}

} // namespace qzDeck
