#include "descriptor/EntityListBagList.h"

#include "values/Absence.h"

#include <deque>
#include <map>
#include <type_traits>
#include <utility>

namespace qzDescriptor {

/// A register without slots is empty: nothing has been registered, or all of it has been moved away.
struct EntityListBagList::Slots {
    using Indices = std::map<std::pair<unsigned int, qzString>, unsigned int>;

    struct Slot {
        Slot() = default;
        Slot(unsigned int slotKey, qzString const& slotName) : key(slotKey), name(slotName) {}

        unsigned int key = 0;
        unsigned int userFlag = 0;
        qzString name;
        EntityListBag bag;
        bool free = false;

        friend bool operator==(Slot const&, Slot const&) = default;
    };

    /// The slot at an index; null when it is free or there is none.
    static Slot* Find(Slots* slots, unsigned int index) {
        bool const isThere = slots != nullptr && index < slots->all.size() && !slots->all[index].free;
        return isThere ? &slots->all[index] : nullptr;
    }

    std::deque<Slot> all; // a slot never moves
    Indices registered;
};

EntityListBagList::EntityListBagList() = default;
EntityListBagList::EntityListBagList(EntityListBagList&&) noexcept = default;
EntityListBagList& EntityListBagList::operator=(EntityListBagList&&) noexcept = default;
EntityListBagList::~EntityListBagList() = default;

EntityListBagList::EntityListBagList(EntityListBagList const& other)
    : m_slots(other.m_slots ? std::make_unique<Slots>(*other.m_slots) : nullptr) {}

EntityListBagList& EntityListBagList::operator=(EntityListBagList const& other) {
    if (this != &other)
        *this = EntityListBagList(other);
    return *this;
}

unsigned int EntityListBagList::Register(unsigned int key, qzString const& name) {
    unsigned int const found = Find(key, name);
    if (found != s_notFound)
        return found;
    if (!m_slots)
        m_slots = std::make_unique<Slots>();
    unsigned int const index = static_cast<unsigned int>(m_slots->all.size());
    Slots::Indices entry;
    entry.emplace(std::pair(key, name), index);
    m_slots->all.emplace_back(key, name);
    m_slots->registered.merge(entry); // only links: a slot and its entry come together
    return index;
}

unsigned int EntityListBagList::Find(unsigned int key, qzString const& name) const {
    if (!m_slots)
        return s_notFound;
    auto const entry = m_slots->registered.find({key, name});
    return entry != m_slots->registered.end() ? entry->second : s_notFound;
}

bool EntityListBagList::Unregister(unsigned int index) {
    Slots::Slot* const slot = Slots::Find(m_slots.get(), index);
    if (slot == nullptr)
        return false;
    static_assert(std::is_nothrow_move_assignable_v<Slots::Slot>, "a slot and its entry go together");
    Slots::Slot emptied;
    emptied.free = true;
    m_slots->registered.erase({slot->key, slot->name});
    *slot = std::move(emptied);
    return true;
}

EntityListBag const& EntityListBagList::Query(unsigned int index) const {
    // Still there for objects in static storage.
    static EntityListBag const& s_invalid = *new EntityListBag(EntityListBag::s_invalidBlockSize);
    Slots::Slot const* const slot = Slots::Find(m_slots.get(), index);
    return slot != nullptr ? slot->bag : s_invalid;
}

EntityListBag& EntityListBagList::Modify(unsigned int index) {
    if (Slots::Slot* const slot = Slots::Find(m_slots.get(), index))
        return slot->bag;
    return MakeAbsent<EntityListBag>(EntityListBag::s_invalidBlockSize);
}

bool EntityListBagList::SetUserFlag(unsigned int index, unsigned int flag) {
    Slots::Slot* const slot = Slots::Find(m_slots.get(), index);
    if (slot == nullptr)
        return false;
    slot->userFlag = flag;
    return true;
}

unsigned int EntityListBagList::GetUserFlag(unsigned int index) const {
    Slots::Slot const* const slot = Slots::Find(m_slots.get(), index);
    return slot != nullptr ? slot->userFlag : 0;
}

void EntityListBagList::GetRegisteredPairs(qzStlVector<std::pair<unsigned int, qzString>>& pairs) const {
    pairs.clear();
    if (!m_slots)
        return;
    for (Slots::Slot const& slot : m_slots->all)
        if (!slot.free)
            pairs.emplace_back(slot.key, slot.name);
}

bool operator==(EntityListBagList const& a, EntityListBagList const& b) {
    if (!a.m_slots || !b.m_slots)
        return (!a.m_slots || a.m_slots->all.empty()) && (!b.m_slots || b.m_slots->all.empty());
    return a.m_slots->all == b.m_slots->all;
}

} // namespace qzDescriptor
