#pragma once

#include "descriptor/EntityListBag.h"

#include <utility>

namespace qzDescriptor {

/// A register of bags, each under a key and a name. The index of a bag never changes, and the places of
/// unregistered bags are not used again.
class QZDESCRIPTOR_API EntityListBagList {
public:
    static constexpr unsigned int s_notFound = 0xFFFFFFFF;

    EntityListBagList();
    EntityListBagList(EntityListBagList const& other);
    EntityListBagList(EntityListBagList&& other) noexcept;
    EntityListBagList& operator=(EntityListBagList const& other);
    EntityListBagList& operator=(EntityListBagList&& other) noexcept;
    ~EntityListBagList();

    /// The index of the bag with this key and name, which is made when there is none.
    unsigned int Register(unsigned int key, qzString const& name);
    /// The index of the bag with this key and name, or s_notFound.
    unsigned int Find(unsigned int key, qzString const& name) const;
    /// Empties the place for good; false when there is no bag.
    bool Unregister(unsigned int index);

    /// The bag at an index; an invalid bag, on which everything fails, when there is none. The reference
    /// stays good while other bags are registered.
    EntityListBag const& Query(unsigned int index) const;
    EntityListBag& Modify(unsigned int index);

    bool SetUserFlag(unsigned int index, unsigned int flag);
    /// The flag; 0 when there is no bag.
    unsigned int GetUserFlag(unsigned int index) const;
    /// The keys and names in use, in index order.
    void GetRegisteredPairs(qzStlVector<std::pair<unsigned int, qzString>>& pairs) const;

    QZDESCRIPTOR_API friend bool operator==(EntityListBagList const& a, EntityListBagList const& b);

private:
    struct Slots;
    std::unique_ptr<Slots> m_slots;
};

} // namespace qzDescriptor
