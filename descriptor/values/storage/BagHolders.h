#pragma once

#include "values/storage/HolderPool.h"
#include "values/storage/holder_parts.h"
#include "values/storage/list_text.h"

namespace qzDescriptor {

/// What the bags have in common. Bags are written whole only.
template <class Bag, BasicType B, CompoundType C>
class BagStorage : public ContainerPointerOf<Bag, ContainerStorage<Bag, B, C, 3>> {
    using Base = ContainerPointerOf<Bag, ContainerStorage<Bag, B, C, 3>>;

public:
    QZ_USING_TEXT_OVERLOADS

    bool IsBagType() const override { return true; }
    unsigned int GetArrayDimensionExtent(unsigned int dimension) const override {
        return dimension == 0 ? CountOf(this->m_data) : 0;
    }
    bool GetValueAsString(qzString& out, char const* format, unsigned int i, unsigned int) const override {
        return WriteOrEmpty(out, [&](qzString& text) {
            return i == ValuePtr::s_wholeValue && AppendBag(text, this->m_data, format);
        });
    }

protected:
    template <class Data>
    BagStorage(Data&& data, DisplayStatus status) : Base(std::forward<Data>(data), status) {}

    static unsigned int CountOf(EntityListBagList const& bags) {
        qzStlVector<std::pair<unsigned int, qzString>> pairs;
        bags.GetRegisteredPairs(pairs);
        return static_cast<unsigned int>(pairs.size());
    }
    static unsigned int CountOf(auto const& bag) { return bag.GetEntityFullTypeListCount(); }
};

/// Formulas by entity type.
class ValuePtrFormulaBag : public BagStorage<FormulaBag, BT_OBJECT, CT_FORMULA> {
public:
    using BagStorage::GetValue;
    using BagStorage::SetValue;
    using ValuePtr::GetValuePointerFormula;
    QZ_USING_TEXT_OVERLOADS

    template <class Data>
    ValuePtrFormulaBag(Data&& data, DisplayStatus status) : BagStorage(std::forward<Data>(data), status) {}

    static void* operator new(std::size_t size) { return HolderPool<ValuePtrFormulaBag>::Allocate(size); }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ValuePtrFormulaBag>::Release(memory, size);
    }

    ValuePtr* Clone() const override;
    unsigned int GetArrayDimensionExtent(EntityFullType const& type) const override;
    bool GetValue(Formula& value, EntityFullType const& type) const override;
    bool SetValue(Formula const& value, EntityFullType const& type) override;
    Formula const* GetValuePointerFormula(EntityFullType const& type) const override;
    bool GetValueAsString(qzString& out, EntityFullType const& type, unsigned int index,
                          char const* format) const override;
    bool SetValueFromString(qzString const& text, EntityFullType const& type, unsigned int index,
                            char const* format) override;
};

/// Entity lists by entity type.
class ValuePtrEntityListBag : public BagStorage<EntityListBag, BT_UINT, CT_ENTITY> {
public:
    using BagStorage::GetValue;
    using BagStorage::SetValue;
    QZ_USING_TEXT_OVERLOADS

    template <class Data>
    ValuePtrEntityListBag(Data&& data, DisplayStatus status) : BagStorage(std::forward<Data>(data), status) {}

    static void* operator new(std::size_t size) { return HolderPool<ValuePtrEntityListBag>::Allocate(size); }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ValuePtrEntityListBag>::Release(memory, size);
    }

    ValuePtr* Clone() const override;
    unsigned int GetArrayDimensionExtent(EntityFullType const& type) const override;
    bool GetValue(Entity& value, EntityFullType const& type, unsigned int index) const override;
    bool SetValue(Entity const& value, EntityFullType const& type, unsigned int index) override;
    bool GetValueAsString(qzString& out, EntityFullType const& type, unsigned int index,
                          char const* format) const override;
    bool SetValueFromString(qzString const& text, EntityFullType const& type, unsigned int index,
                            char const* format) override;
};

/// A register of bags.
class ValuePtrEntityListBagList : public BagStorage<EntityListBagList, BT_UINT, CT_ENTITY> {
public:
    template <class Data>
    ValuePtrEntityListBagList(Data&& data, DisplayStatus status)
        : BagStorage(std::forward<Data>(data), status) {}

    static void* operator new(std::size_t size) {
        return HolderPool<ValuePtrEntityListBagList>::Allocate(size);
    }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ValuePtrEntityListBagList>::Release(memory, size);
    }

    ValuePtr* Clone() const override;
};

} // namespace qzDescriptor
