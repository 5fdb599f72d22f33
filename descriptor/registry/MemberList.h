#pragma once

#include "descriptor/Identifier.h"
#include "registry/HashIndex.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace qzDescriptor {

/// Attributes or actions in their order, found by identifier. Equality of identifiers has wildcards, but
/// equal identifiers have equal keys, whose hash leads to the candidates in stored order: the answer is that
/// of comparing one after the other.
template <class Member>
class MemberList {
public:
    using Pointer = std::shared_ptr<Member>;

    static constexpr unsigned int s_none = HashIndex::s_none;

    unsigned int GetCount() const { return static_cast<unsigned int>(m_places.size()); }
    Member const* Get(unsigned int index) const {
        return index < m_places.size() ? m_places[index].member.get() : nullptr;
    }
    Pointer const& Share(unsigned int index) const { return m_places[index].member; }
    bool IsInherited(unsigned int index) const {
        return index < m_places.size() && m_places[index].inherited;
    }

    void Reserve(std::size_t count) { m_places.reserve(count); }

    /// `growth` is the number of places to make when there is no room, 0 for as many again.
    void Insert(unsigned int index, Pointer member, bool inherited, unsigned int growth) {
        if (growth != 0 && m_places.size() == m_places.capacity())
            m_places.reserve(m_places.size() + growth);
        m_places.insert(m_places.begin() + index, {std::move(member), inherited});
        if (m_places.size() > s_scannedCount + 1 && index + 1 == m_places.size())
            m_index.Insert(P_Hash(m_places.back().member->GetId()), index);
        else if (m_places.size() > s_scannedCount)
            P_BuildIndex();
    }
    /// Puts another member of the same identifier there.
    void Replace(unsigned int index, Pointer member, bool inherited) {
        m_places[index] = {std::move(member), inherited};
    }

    /// The first member from that index on whose identifier is equal.
    unsigned int Find(Identifier const& id, unsigned int first = 0) const {
        auto const matches = [&](unsigned int index) {
            return index >= first && m_places[index].member->GetId() == id;
        };
        if (m_places.size() > s_scannedCount)
            return m_index.Find(P_Hash(id), matches);
        for (unsigned int index = 0; index < m_places.size(); ++index) {
            if (matches(index))
                return index;
        }
        return s_none;
    }

    /// Whether it is this very member that stands somewhere; s_none when not.
    unsigned int Find(Member const* member) const {
        unsigned int index = Find(member->GetId());
        while (index != s_none && m_places[index].member.get() != member)
            index = Find(member->GetId(), index + 1);
        return index;
    }

private:
    struct Place {
        Pointer member;
        bool inherited;
    };

    static constexpr std::size_t s_scannedCount = 4; ///< as long a list is looked through as fast

    static std::uint32_t P_Hash(Identifier const& id) {
        auto const hash = static_cast<std::uint32_t>(id.GetNumericKey());
        return id.UsesNameKey() ? hash ^ HashOf(id.GetNameKey()) : hash;
    }

    void P_BuildIndex() {
        m_index.Clear();
        m_index.Reserve(m_places.size());
        for (unsigned int index = 0; index < m_places.size(); ++index)
            m_index.Insert(P_Hash(m_places[index].member->GetId()), index);
    }

    std::vector<Place> m_places;
    HashIndex m_index; ///< of longer lists
};

} // namespace qzDescriptor
