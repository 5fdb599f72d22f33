#include "descriptor/qzdescriptor.h"
#include "support/VirtualSlots.h"
#include "values/storage/type_traits.h"

// Holders are derived outside the library too, so the order of the virtual operations is part of the
// interface.
#ifdef QZ_HAVE_VIRTUAL_SLOTS

namespace qzDescriptor::test {
namespace {

class Slots : public VirtualSlots {
public:
    template <class T>
    void NextElementGetter() {
        Next("GetValue",
             static_cast<bool (ValuePtr::*)(T&, unsigned int, unsigned int) const>(&ValuePtr::GetValue));
    }
    template <class T>
    void NextElementSetter() {
        Next("SetValue",
             static_cast<bool (ValuePtr::*)(T const&, unsigned int, unsigned int)>(&ValuePtr::SetValue));
    }
    template <class C>
    void NextContainerGetter() {
        Next("GetValue", static_cast<bool (ValuePtr::*)(C&) const>(&ValuePtr::GetValue));
    }
    template <class C>
    void NextContainerSetter() {
        Next("SetValue", static_cast<bool (ValuePtr::*)(C const&)>(&ValuePtr::SetValue));
    }
};

// The getters and setters stand in the reverse order of the table.
template <class First, class... Rest>
void InReverse(TypeList<First, Rest...>, auto&& visit) {
    if constexpr (sizeof...(Rest) > 0)
        InReverse(TypeList<Rest...>(), visit);
    visit(std::type_identity<First>());
}

TEST(ValueSlots, StandInTheOrderThatHoldersOutsideTheLibraryRelyOn) {
    using V = ValuePtr;
    using Type = EntityFullType const&;
    using Index = unsigned int;
    Slots slots;
    slots.Next("Clone", &V::Clone);
    slots.Next("GetBasicType", &V::GetBasicType);
    slots.Next("GetCompoundType", &V::GetCompoundType);
    slots.Next("GetArrayDimension", &V::GetArrayDimension);
    slots.Next("GetArrayDimensionExtent", static_cast<Index (V::*)(Type) const>(&V::GetArrayDimensionExtent));
    slots.Next("GetArrayDimensionExtent",
               static_cast<Index (V::*)(Index) const>(&V::GetArrayDimensionExtent));
    slots.Next("GetEntityFullType", &V::GetEntityFullType);
    slots.Next("IsBagType", &V::IsBagType);
    slots.Next("Equals", &V::Equals);
    slots.Next("LessThan", &V::LessThan);
    InReverse(ContainerTypes(), [&]<class C>(std::type_identity<C>) { slots.NextContainerGetter<C>(); });
    slots.Next("GetValue", static_cast<bool (V::*)(Formula&, Type) const>(&V::GetValue));
    slots.Next("GetValue", static_cast<bool (V::*)(Entity&, Type, Index) const>(&V::GetValue));
    InReverse(ElementTypes(), [&]<class T>(std::type_identity<T>) { slots.NextElementGetter<T>(); });
    slots.Next("GetValueAsString",
               static_cast<bool (V::*)(qzString&, Type, Index, char const*) const>(&V::GetValueAsString));
    slots.Next("GetValueAsString",
               static_cast<bool (V::*)(qzString&, char const*, Index, Index) const>(&V::GetValueAsString));
    slots.Next("GetValueMemoryUsage", &V::GetValueMemoryUsage);
#    define QZ_POINTER_SLOT(T, Name, ...)                                                                    \
        slots.Next(#Name, static_cast<T const* (V::*)(Index, Index) const>(&V::GetValuePointer##Name));      \
        if (std::string_view(#Name) == "Entity")                                                             \
            slots.Next("by type",                                                                            \
                       static_cast<Entity const* (V::*)(Type, Index) const>(&V::GetValuePointerEntity));     \
        if (std::string_view(#Name) == "Formula")                                                            \
            slots.Next("by type", static_cast<Formula const* (V::*)(Type) const>(&V::GetValuePointerFormula));
    QZ_ELEMENT_TYPES(QZ_POINTER_SLOT)
#    undef QZ_POINTER_SLOT
#    define QZ_POINTER_SLOT(C, Name, ...)                                                                    \
        slots.Next(#Name, static_cast<C const* (V::*)() const>(&V::GetValuePointer##Name));
    QZ_CONTAINER_TYPES(QZ_POINTER_SLOT)
#    undef QZ_POINTER_SLOT
    slots.Next("GetDisplayStatus", &V::GetDisplayStatus);
    InReverse(ContainerTypes(), [&]<class C>(std::type_identity<C>) { slots.NextContainerSetter<C>(); });
    slots.Next("SetValue", static_cast<bool (V::*)(Formula const&, Type)>(&V::SetValue));
    slots.Next("SetValue", static_cast<bool (V::*)(Entity const&, Type, Index)>(&V::SetValue));
    InReverse(ElementTypes(), [&]<class T>(std::type_identity<T>) { slots.NextElementSetter<T>(); });
    slots.Next("SetValueFromString",
               static_cast<bool (V::*)(qzString const&, Type, Index, char const*)>(&V::SetValueFromString));
    slots.Next("SetValueFromString",
               static_cast<bool (V::*)(qzString const&, char const*, Index, Index)>(&V::SetValueFromString));
    slots.Next("SetDisplayStatus", &V::SetDisplayStatus);
    slots.Next("GetMemoryLocation",
               static_cast<void const* (V::*)(Index, Index) const>(&V::GetMemoryLocation));
    slots.Next("GetMemoryLocation", static_cast<void* (V::*)(Index, Index)>(&V::GetMemoryLocation));
    slots.Destructor();
    slots.Next("GetAssociatedString", &V::GetAssociatedString);
}

// Stored definitions and template arguments carry these numbers.
TEST(TypeTable, HoldsTheTypesInTheOrderOfTheirFamilies) {
    qzString names;
#    define QZ_NAME(T, Name, Basic, Compound, Strings)                                                       \
        names += #Name ":" + std::to_string(Basic) + "/" + std::to_string(Compound) + (Strings ? "+ " : " ");
    QZ_ELEMENT_TYPES(QZ_NAME)
#    undef QZ_NAME
    EXPECT_EQ(names,
              "Bool:1/1+ Char:2/1+ UChar:3/1+ Int:4/1+ UInt:5/1+ Short:6/1 UShort:7/1 Long:8/1 ULong:9/1 "
              "Float:10/1+ Double:11/1+ String:12/1+ Couple:11/2+ CoupleF:10/2+ CoupleI:4/2+ "
              "Triple:11/3+ TripleF:10/3+ TripleI:4/3+ Matrix33:11/4+ Matrix44:11/5+ Color:5/6 "
              "Qualifier:13/8 Entity:5/7+ Formula:13/9 Void:14/1 Function:14/10 ");
    names.clear();
#    define QZ_NAME(C, Name, ...) names += #    Name " ";
    QZ_CONTAINER_TYPES(QZ_NAME)
#    undef QZ_NAME
    EXPECT_EQ(
        names,
        "BoolList CharList IntList UIntList LongList ULongList FloatList DoubleList StringList CoupleList "
        "TripleList TripleIList QualifierList EntityList FormulaList FormulaBag PointerList IntList2 "
        "UIntList2 LongList2 ULongList2 FloatList2 DoubleList2 TripleList2 EntityList2 EntityListBag "
        "EntityListBagList Tabular ");
}

} // namespace
} // namespace qzDescriptor::test

#endif
