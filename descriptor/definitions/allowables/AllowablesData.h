#pragma once

#include "definitions/allowables/allowable_types.h"
#include "descriptor/Allowables.h"
#include "values/storage/HolderPool.h"

#include <new>
#include <stdexcept>
#include <typeinfo>

namespace qzDescriptor {

/// What a constraint consists of. Every operation answers here that the constraint has no such thing; each
/// family overrides the operations of its own type, so that a call with another type fails on its own.
class AllowablesData {
public:
    virtual ~AllowablesData() = default;

    /// Null when there is no memory.
    virtual AllowablesData* Clone() const = 0;
    virtual bool Copy(AllowablesData const& other, bool takeAllowed, bool takeDefault) = 0;
    virtual bool Equals(AllowablesData const& other) const = 0;
    virtual bool GetOperateOnExtra() const { return false; }
    virtual int SetOperateOnExtra(bool) { return 0; }
    virtual BasicType GetBasicType() const = 0;
    virtual CompoundType GetCompoundType() const = 0;
    virtual bool Enforceable() const { return false; }
    virtual qzString GetFailureMessage() const { return qzString(); }

#define QZ_GET_DEFAULT(T)                                                                                    \
    virtual bool GetDefault(T&) const { return false; }
    QZ_ALLOWABLE_TYPES(QZ_GET_DEFAULT)
#undef QZ_GET_DEFAULT

    virtual bool HaveBounds() const { return false; }
#define QZ_GET_BOUNDS(T)                                                                                     \
    virtual bool GetBounds(qzStlVector<BoundT<T>>&) const { return false; }
    QZ_ALLOWABLE_NUMBERS(QZ_GET_BOUNDS)
#undef QZ_GET_BOUNDS

    virtual bool HaveList() const { return false; }
    virtual unsigned int GetListCount() const { return 0; }
#define QZ_GET_LIST(T)                                                                                       \
    virtual bool GetList(Allowables::List<T>&, unsigned int&) const { return false; }
    QZ_ALLOWABLE_TYPES(QZ_GET_LIST)
#undef QZ_GET_LIST
    virtual bool GetNameList(qzStlVector<qzString>&, unsigned int&) const { return false; }
#define QZ_GET_VALUE_LIST(T)                                                                                 \
    virtual bool GetValueList(qzStlVector<T>&, unsigned int&) const { return false; }
    QZ_ALLOWABLE_TYPES(QZ_GET_VALUE_LIST)
#undef QZ_GET_VALUE_LIST
    virtual int ValidSubset(AllowablesData const&) const { return 0; }

#define QZ_TEST(T)                                                                                           \
    virtual int Test(T const&) const { return 0; }
    QZ_ALLOWABLE_TYPES(QZ_TEST)
#undef QZ_TEST
    virtual void SetFailureMessage(qzString const&) {}

#define QZ_ADD_TO_LIST(T)                                                                                    \
    virtual void AddToList(T const&, qzString const&) {}
    QZ_ALLOWABLE_TYPES(QZ_ADD_TO_LIST)
#undef QZ_ADD_TO_LIST
    virtual bool RemoveFromList(unsigned int) { return false; }
    virtual void SetDefaultIdx(unsigned int) {}
    virtual bool SetListItemName(unsigned int, qzString const&) { return false; }
    virtual qzString GetListItemName(unsigned int) const { return qzString(); }

    virtual bool AddSubType(EntityFullType const&, Allowables::SubType, qzString const&) { return false; }
    virtual bool RemoveSubType(EntityFullType const&, Allowables::SubType, qzString const&) { return false; }
    virtual unsigned int GetSubTypeCount(EntityFullType const&, Allowables::SubType) const { return 0; }
    virtual bool GetSubTypeName(EntityFullType const&, Allowables::SubType, unsigned int, qzString&) const {
        return false;
    }

protected:
    AllowablesData() = default;
    AllowablesData(AllowablesData const&) = default;
    AllowablesData& operator=(AllowablesData const&) = default;
};

/// Does what may run out of memory; a neutral result when it does.
template <class F>
auto Attempt(F&& action) noexcept -> decltype(action()) {
    try {
        return action();
    } catch (std::bad_alloc const&) {
    } catch (std::length_error const&) {
    }
    return decltype(action())();
}

/// What every class of the families has: a pool of its own, clones from it, and its kind.
template <class Self, class Base>
class PooledAllowables : public Base {
public:
    static void* operator new(std::size_t size) { return HolderPool<Self>::Allocate(size); }
    static void operator delete(void* memory, std::size_t size) { HolderPool<Self>::Release(memory, size); }

    AllowablesData* Clone() const override {
        return Attempt([this]() -> AllowablesData* { return new Self(static_cast<Self const&>(*this)); });
    }

    bool Equals(AllowablesData const& other) const override {
        Self const* const same = P_Cast(other);
        return same != nullptr && static_cast<Self const&>(*this).IsEqual(*same);
    }

    bool Copy(AllowablesData const& other, bool takeAllowed, bool takeDefault) override {
        Self const* const same = P_Cast(other);
        if (same == nullptr)
            return false;
        static_cast<Self&>(*this).Take(*same, takeAllowed, takeDefault);
        return true;
    }

protected:
    template <class... Arguments>
    explicit PooledAllowables(Arguments&&... arguments) : Base(std::forward<Arguments>(arguments)...) {}

    /// Null when the other is not of this very class.
    static Self const* P_Cast(AllowablesData const& other) {
        return typeid(other) == typeid(Self) ? static_cast<Self const*>(&other) : nullptr;
    }
};

} // namespace qzDescriptor
