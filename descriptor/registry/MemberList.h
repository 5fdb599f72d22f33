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
        std::size_t const count = m_places.size() + 1;
        if (growth != 0 && m_places.size() == m_places.capacity())
            m_places.reserve(m_places.size() + growth);
        if (count > s_scannedCount)
            m_keys.Reserve(count);
        if (P_SecondaryId(*member).IsValid())
            m_secondaryKeys.Reserve(m_secondaryKeys.GetCount() + 1);

        m_places.insert(m_places.begin() + index, {std::move(member), inherited});
        if (index + 1 == count && count > s_scannedCount + 1)
            P_Index(index);
        else
            P_IndexAll();
    }
    /// Puts another member of the same identifier there, or the same one anew after a change.
    void Replace(unsigned int index, Pointer member, bool inherited) {
        m_places[index] = {std::move(member), inherited};
        if (m_secondaryKeys.GetCount() > 2 * m_places.size()) // there are many that no member has any more
            P_IndexAll();
        else
            P_IndexSecondary(index);
    }

    /// The first member from that index on whose identifier is equal.
    unsigned int Find(Identifier const& id, unsigned int first = 0) const {
        auto const matches = [&](unsigned int index) {
            return index >= first && m_places[index].member->GetId() == id;
        };
        if (m_places.size() > s_scannedCount)
            return m_keys.Find(P_Hash(id), matches);
        for (unsigned int index = 0; index < m_places.size(); ++index) {
            if (matches(index))
                return index;
        }
        return s_none;
    }

    /// The first member from that index on whose secondary identifier is valid and equal.
    unsigned int FindSecondary(Identifier const& id, unsigned int first) const {
        unsigned int found = s_none;
        m_secondaryKeys.Find(P_Hash(id), [&](unsigned int index) {
            if (index >= first && index < found && P_SecondaryId(*m_places[index].member) == id)
                found = index;
            return false;
        });
        return id.IsValid() ? found : s_none;
    }

    /// Where this very member stands.
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

    static Identifier const& P_SecondaryId(Member const& member) {
        if constexpr (requires { member.GetSecondaryId(); }) {
            return member.GetSecondaryId();
        } else {
            static Identifier const s_identifier;
            return s_identifier;
        }
    }

    void P_Index(unsigned int index) {
        m_keys.Insert(P_Hash(m_places[index].member->GetId()), index);
        P_IndexSecondary(index);
    }

    // What stood there before is found no more, since what is found is compared.
    void P_IndexSecondary(unsigned int index) {
        Identifier const& id = P_SecondaryId(*m_places[index].member);
        if (!id.IsValid())
            return;
        std::uint32_t const hash = P_Hash(id);
        auto const isIndexed = [index](unsigned int known) { return known == index; };
        if (m_secondaryKeys.Find(hash, isIndexed) == s_none)
            m_secondaryKeys.Insert(hash, index);
    }

    void P_IndexAll() {
        m_keys.Clear();
        m_secondaryKeys.Clear();
        bool const isScanned = m_places.size() <= s_scannedCount;
        for (unsigned int index = 0; index < m_places.size(); ++index)
            isScanned ? P_IndexSecondary(index) : P_Index(index);
    }

    std::vector<Place> m_places;
    HashIndex m_keys; ///< of longer lists
    HashIndex m_secondaryKeys;
};

} // namespace qzDescriptor
