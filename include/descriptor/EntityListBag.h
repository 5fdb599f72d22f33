#pragma once

#include "descriptor/EntityList.h"

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

namespace qzDescriptor {

class EntityListBagPrivate;

/// Entity lists by entity type, one list per type: what a session fills when it collects entities.
///
/// The map is locked inside every look-up, insertion and removal, and while the bag is copied, assigned to,
/// merged or compared. A list that was handed out by reference, or is written by SetListId and SetListEntity,
/// is not: threads that share a bag must not change one list at the same time. The reference stays good until
/// the bag is assigned to or gone.
class QZDESCRIPTOR_API EntityListBag {
public:
    static constexpr unsigned int s_invalidBlockSize = 0xFFFFFFFF;

    /// The lists of a bag one after the other, in the bag's own order.
    class const_iterator;

    /// blockSize: how many lists one allocation makes room for (0 counts as 1). With s_invalidBlockSize the
    /// bag is invalid: every operation on it fails at once.
    explicit EntityListBag(unsigned int blockSize);
    EntityListBag() : EntityListBag(1) {}
    EntityListBag(EntityListBag const& other);
    EntityListBag(EntityListBag&& other) noexcept;
    EntityListBag& operator=(EntityListBag const& other);
    EntityListBag& operator=(EntityListBag&& other) noexcept;
    ~EntityListBag();

    /// Puts a copy of the list under its type, in place of the one that was there. False for a list without
    /// a type.
    bool SetList(EntityList const& list);
    /// The list of a type; a shared empty list when there is none. Never adds a type, and what is written
    /// into the shared list is gone at the next call.
    EntityList const& GetList(EntityFullType const& type) const;
    EntityList& GetList(EntityFullType const& type);
    bool GetList(EntityFullType const& type, EntityList& list) const;

    bool GetListEntity(EntityFullType const& type, unsigned int index, Entity& entity) const;
    bool GetListId(EntityFullType const& type, unsigned int index, unsigned int& id) const;
    /// Writes into the list of `type`, which must be there and be of the entity's own type.
    bool SetListEntity(Entity const& entity, EntityFullType const& type, unsigned int index);
    bool SetListId(EntityFullType const& type, unsigned int index, unsigned int id);
    /// Makes room in the list of `type`, if it is there.
    void ReserveList(EntityFullType const& type, unsigned int capacity);

    void GetEntityFullTypeList(qzStlVector<EntityFullType>& types) const;
    unsigned int GetEntityFullTypeListCount() const;
    unsigned int GetIdListCount(EntityFullType const& type) const;
    /// True when there is no list, whatever the lists hold.
    bool IsEmpty() const;
    bool IsValid() const;

    /// Adds the other bag's ids that the list of their type does not hold, each once and in the other's
    /// order, behind the ids that are there; a list of a type that is not there is taken over whole.
    EntityListBag& operator+=(EntityListBag const& other);
    /// Takes the other bag's ids away from the lists of the same type; what remains keeps its order.
    EntityListBag& operator-=(EntityListBag const& other);

    const_iterator begin() const;
    const_iterator end() const;

    /// The same types with equal lists.
    QZDESCRIPTOR_API friend bool operator==(EntityListBag const& a, EntityListBag const& b);

private:
    std::unique_ptr<EntityListBagPrivate> m_private;
};

/// Walks the lists that the bag held when the walk began; lists of types that are added meanwhile are not
/// met. It must not be used while another thread changes the lists, nor after the bag is assigned to or gone.
class QZDESCRIPTOR_API EntityListBag::const_iterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = EntityList;
    using difference_type = std::ptrdiff_t;
    using pointer = EntityList const*;
    using reference = EntityList const&;

    const_iterator() = default;

    reference operator*() const { return *P_Get(); }
    pointer operator->() const { return P_Get(); }

    const_iterator& operator++() {
        ++m_index;
        return *this;
    }
    const_iterator operator++(int) {
        const_iterator before = *this;
        ++*this;
        return before;
    }

    friend bool operator==(const_iterator const& a, const_iterator const& b) {
        return a.P_Get() == b.P_Get();
    }

private:
    friend class EntityListBag;

    using Lists = qzStlVector<EntityList const*>;

    explicit const_iterator(std::shared_ptr<Lists const> lists) : m_lists(std::move(lists)) {}

    // Null at the end: the lists are followed by a null.
    pointer P_Get() const { return m_lists ? (*m_lists)[m_index] : nullptr; }

    std::shared_ptr<Lists const> m_lists;
    std::size_t m_index = 0;
};

} // namespace qzDescriptor
