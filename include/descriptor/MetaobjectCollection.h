#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <cstddef>

namespace qzDescriptor {

/// A place in a collection of objects. Applications derive theirs from `MetaobjectCollectionIterator`.
///
/// Iterators are made by the collection and deleted by whoever asked for them; their memory is taken and
/// given back by this library, in whichever one they are derived or deleted.
class QZDESCRIPTOR_API ICollectionIterator {
public:
    /// Goes one object on; nothing at the end.
    virtual void next() = 0;
    /// Whether both are at the same place of one collection.
    virtual bool equals(ICollectionIterator const& other) const = 0;
    virtual ICollectionIterator* clone() const = 0;
    /// The object at this place, which its session keeps; null at the end.
    virtual Metaobject* get() = 0;
    virtual ~ICollectionIterator();

    static void* operator new(std::size_t size);
    static void operator delete(void* memory) noexcept;

protected:
    ICollectionIterator() = default;
    ICollectionIterator(ICollectionIterator const&) = default;
    ICollectionIterator& operator=(ICollectionIterator const&) = default;
};

/// A place in a collection of `Metaobject`s.
class QZDESCRIPTOR_API MetaobjectCollectionIterator : public ICollectionIterator {
public:
    ~MetaobjectCollectionIterator() override;

protected:
    MetaobjectCollectionIterator() = default;
    MetaobjectCollectionIterator(MetaobjectCollectionIterator const&) = default;
    MetaobjectCollectionIterator& operator=(MetaobjectCollectionIterator const&) = default;
};

/// An application's collection of objects, such as a selection or the content of a folder.
class QZDESCRIPTOR_API ICollection {
public:
    /// The first place; it belongs to the caller, who deletes it.
    virtual MetaobjectCollectionIterator* begin() = 0;
    /// The place behind the last object; likewise.
    virtual MetaobjectCollectionIterator* end() = 0;
    /// 0, or a code of the application's own when it does not take the entity.
    virtual int add(Entity const& entity) = 0;
    virtual int remove(Entity const& entity) = 0;
    virtual ~ICollection();

protected:
    ICollection() = default;
    ICollection(ICollection const&) = default;
    ICollection& operator=(ICollection const&) = default;
};

/// A handle on an application's collection, which it neither owns nor copies.
///
///     std::unique_ptr<MetaobjectCollectionIterator> place(collection.begin()), end(collection.end());
///     for (; !place->equals(*end); place->next())
///         Show(*place->get());
///
/// Collections and places are used on the thread of their session.
class QZDESCRIPTOR_API MetaobjectCollection {
public:
    /// Without a collection there are no places, and nothing is added or removed.
    explicit MetaobjectCollection(ICollection* collection) : m_collection(collection) {}

    MetaobjectCollectionIterator* begin() const;
    MetaobjectCollectionIterator* end() const;
    /// What the collection answers; -1 without one.
    int add(Entity const& entity) const;
    int remove(Entity const& entity) const;

private:
    ICollection* m_collection;
};

} // namespace qzDescriptor
