#include "descriptor/EntityListBag.h"

#include "descriptor/Entity.h"
#include "values/Absence.h"
#include "values/collections/EntityTypeMap.h"
#include "values/collections/IdMerge.h"

#include "qzutl/qzSimpleMutex.h"

#include <algorithm>
#include <mutex>

namespace qzDescriptor {

class EntityListBagPrivate {
public:
    using Mutex = qzSimpleMutex;

    explicit EntityListBagPrivate(unsigned int blockSize)
        : valid(blockSize != EntityListBag::s_invalidBlockSize), lists(std::max(blockSize, 1u)) {}
    EntityListBagPrivate(EntityListBagPrivate const& other)
        : EntityListBagPrivate(other, std::lock_guard(other.mutex)) {}

    bool const valid;
    EntityTypeMap<EntityList> lists;
    mutable Mutex mutex;

private:
    EntityListBagPrivate(EntityListBagPrivate const& other, std::lock_guard<Mutex> const&)
        : valid(other.valid), lists(other.lists) {}
};

namespace {

/// Holds the locks of two bags, taken without deadlock; one lock when both are the same bag.
class PairLock {
public:
    PairLock(EntityListBagPrivate& a, EntityListBagPrivate& b)
        : m_a(a.mutex, std::defer_lock), m_b(b.mutex, std::defer_lock) {
        if (&a == &b)
            m_a.lock();
        else
            std::lock(m_a, m_b);
    }

private:
    std::unique_lock<EntityListBagPrivate::Mutex> m_a;
    std::unique_lock<EntityListBagPrivate::Mutex> m_b;
};

bool IsValidBody(EntityListBagPrivate const* bag) { return bag != nullptr && bag->valid; }

/// The list of the type; null when there is none. It keeps its address until the bag is assigned to or gone.
EntityList* FindList(EntityListBagPrivate* bag, EntityFullType const& type) {
    if (!IsValidBody(bag))
        return nullptr;
    std::lock_guard const guard(bag->mutex);
    return bag->lists.Find(type);
}

/// What read says of the list of the type, asked under the lock; false when there is no list.
template <class Read>
bool ReadList(EntityListBagPrivate const* bag, EntityFullType const& type, Read read) {
    if (!IsValidBody(bag))
        return false;
    std::lock_guard const guard(bag->mutex);
    EntityList const* const list = bag->lists.Find(type);
    return list != nullptr && read(*list);
}

} // namespace

EntityListBag::EntityListBag(unsigned int blockSize)
    : m_private(std::make_unique<EntityListBagPrivate>(blockSize)) {}

EntityListBag::EntityListBag(EntityListBag const& other)
    : m_private(other.m_private ? std::make_unique<EntityListBagPrivate>(*other.m_private) : nullptr) {}

EntityListBag::EntityListBag(EntityListBag&&) noexcept = default;
EntityListBag& EntityListBag::operator=(EntityListBag&&) noexcept = default;
EntityListBag::~EntityListBag() = default;

EntityListBag& EntityListBag::operator=(EntityListBag const& other) {
    if (this == &other)
        return *this;
    EntityListBag copy(other);
    if (!IsValid() || !copy.IsValid())
        return *this = std::move(copy);
    std::lock_guard const guard(m_private->mutex); // other threads may be at this body: it stays
    std::swap(m_private->lists, copy.m_private->lists);
    return *this;
}

bool EntityListBag::IsValid() const { return IsValidBody(m_private.get()); }

bool EntityListBag::SetList(EntityList const& list) {
    if (!IsValid() || !list.GetEntityFullType().IsValid())
        return false;
    EntityFullType type = list.GetEntityFullType();
    EntityList copy(list);
    std::lock_guard const guard(m_private->mutex);
    m_private->lists.Set(std::move(type), std::move(copy));
    return true;
}

EntityList const& EntityListBag::GetList(EntityFullType const& type) const {
    static EntityList const& s_absent = *new EntityList; // still there for objects in static storage
    EntityList const* const list = FindList(m_private.get(), type);
    return list != nullptr ? *list : s_absent;
}

EntityList& EntityListBag::GetList(EntityFullType const& type) {
    if (EntityList* const list = FindList(m_private.get(), type))
        return *list;
    return MakeAbsent<EntityList>();
}

bool EntityListBag::GetList(EntityFullType const& type, EntityList& list) const {
    return ReadList(m_private.get(), type, [&](EntityList const& found) {
        list = found;
        return true;
    });
}

bool EntityListBag::GetListEntity(EntityFullType const& type, unsigned int index, Entity& entity) const {
    return ReadList(m_private.get(), type,
                    [&](EntityList const& list) { return list.GetEntity(entity, index); });
}

bool EntityListBag::GetListId(EntityFullType const& type, unsigned int index, unsigned int& id) const {
    return ReadList(m_private.get(), type, [&](EntityList const& list) { return list.GetId(index, id); });
}

bool EntityListBag::SetListEntity(Entity const& entity, EntityFullType const& type, unsigned int index) {
    EntityList* const list = FindList(m_private.get(), type);
    if (list == nullptr || !(list->GetEntityFullType() == entity.GetEntityFullType()))
        return false;
    return list->SetEntity(entity, index);
}

bool EntityListBag::SetListId(EntityFullType const& type, unsigned int index, unsigned int id) {
    EntityList* const list = FindList(m_private.get(), type);
    if (list == nullptr)
        return false;
    list->SetId(index, id, 0);
    return true;
}

void EntityListBag::ReserveList(EntityFullType const& type, unsigned int capacity) {
    if (EntityList* const list = FindList(m_private.get(), type))
        list->Reserve(capacity);
}

void EntityListBag::GetEntityFullTypeList(qzStlVector<EntityFullType>& types) const {
    types.clear();
    if (!IsValid())
        return;
    std::lock_guard const guard(m_private->mutex);
    for (auto const& [type, list] : m_private->lists)
        types.push_back(type);
}

unsigned int EntityListBag::GetEntityFullTypeListCount() const {
    if (!IsValid())
        return 0;
    std::lock_guard const guard(m_private->mutex);
    return m_private->lists.GetCount();
}

unsigned int EntityListBag::GetIdListCount(EntityFullType const& type) const {
    unsigned int count = 0;
    ReadList(m_private.get(), type, [&](EntityList const& list) {
        count = list.GetIdListCount();
        return true;
    });
    return count;
}

bool EntityListBag::IsEmpty() const { return GetEntityFullTypeListCount() == 0; }

EntityListBag& EntityListBag::operator+=(EntityListBag const& other) {
    if (!IsValid() || !other.IsValid())
        return *this;
    PairLock const guard(*m_private, *other.m_private);
    for (auto const& [type, theirs] : other.m_private->lists) {
        if (EntityList* const ours = m_private->lists.Find(type))
            AppendMissingIds(*ours, theirs);
        else
            m_private->lists.Set(type, theirs);
    }
    return *this;
}

EntityListBag& EntityListBag::operator-=(EntityListBag const& other) {
    if (!IsValid() || !other.IsValid())
        return *this;
    PairLock const guard(*m_private, *other.m_private);
    for (auto const& [type, theirs] : other.m_private->lists)
        if (EntityList* const ours = m_private->lists.Find(type))
            RemoveIds(*ours, theirs);
    return *this;
}

EntityListBag::const_iterator EntityListBag::begin() const {
    if (!IsValid())
        return end();
    auto lists = std::make_shared<const_iterator::Lists>();
    std::lock_guard const guard(m_private->mutex);
    for (auto const& entry : m_private->lists)
        lists->push_back(&entry.value);
    lists->push_back(nullptr);
    return const_iterator(std::move(lists));
}

EntityListBag::const_iterator EntityListBag::end() const { return {}; }

bool operator==(EntityListBag const& a, EntityListBag const& b) {
    if (!a.IsValid() || !b.IsValid())
        return a.IsValid() == b.IsValid();
    EntityTypeMap<EntityList> const& ours = a.m_private->lists;
    EntityTypeMap<EntityList> const& theirs = b.m_private->lists;
    PairLock const guard(*a.m_private, *b.m_private);
    return ours.GetCount() == theirs.GetCount() && std::ranges::all_of(ours, [&](auto const& entry) {
               EntityList const* const list = theirs.Find(entry.type);
               return list != nullptr && *list == entry.value;
           });
}

} // namespace qzDescriptor
