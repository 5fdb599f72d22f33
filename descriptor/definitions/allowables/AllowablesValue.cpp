// What a constraint has to do with values of any type.

#include "definitions/allowables/families.h"

#include <utility>

namespace qzDescriptor {

namespace {

/// Of the results of many elements: refused before an excluded default, and that before allowed.
int Worse(int a, int b) { return a == 1 || b == 1 ? 1 : std::max(a, b); }

/// Entities are constrained by their type, of which a list has one and a bag several.
int TestEntities(Allowables const& allowables, Value const& value) {
    EntityListBag bag;
    if (!value.GetValue(bag)) {
        EntityFullType const type = value.GetEntityFullType();
        return type.IsValid() ? allowables.Test(type) : 0;
    }
    qzStlVector<EntityFullType> types;
    bag.GetEntityFullTypeList(types);
    int result = 0;
    for (EntityFullType const& type : types)
        result = Worse(result, allowables.Test(type));
    return result;
}

template <class T>
int TestElements(Allowables const& allowables, Value const& value) {
    unsigned int const dimension = value.GetArrayDimension();
    unsigned int const rows = dimension == 0 ? 1 : value.GetArrayDimensionExtent(0u);
    int result = 0;
    T element{};
    for (unsigned int i = 0; i < rows; ++i) {
        // Rows may be of any length; other values have one element in each place.
        for (unsigned int j = 0; (j == 0 || dimension == 2) && value.GetValue(element, i, j); ++j)
            result = Worse(result, allowables.Test(element));
    }
    return result;
}

} // namespace

int Allowables::Test(Value const& value) const {
    if (m_data == nullptr || !P_IsGenericTestEnforced())
        return 0;
    int result = 0;
    VisitElement(value.GetBasicType(), value.GetCompoundType(),
                 [&]<class Element>(std::type_identity<Element>) {
                     // Qualifiers are tested only as such.
                     using T = typename AllowableOf<Element>::Type;
                     if constexpr (std::is_same_v<Element, Entity>)
                         result = TestEntities(*this, value);
                     else if constexpr (!std::is_void_v<T> && !std::is_same_v<T, Qualifier>)
                         result = TestElements<T>(*this, value);
                 });
    return result;
}

bool Allowables::GetDefault(Value& value) const {
    bool isRead = false;
    VisitAllowable(GetBasicType(), GetCompoundType(), [&]<class T>(std::type_identity<T>) {
        using Element = typename ConstrainedBy<T>::Element;
        T defaultValue{};
        isRead = GetDefault(defaultValue);
        if (!isRead)
            return;
        if (value.GetArrayDimension() != 0) // the default replaces a list, rather than an element of it
            value = Value();
        value.SetValue(Element(defaultValue));
    });
    return isRead;
}

} // namespace qzDescriptor
