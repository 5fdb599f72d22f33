// What a constraint has to do with values of any type.

#include "definitions/allowables/TestElements.h"
#include "definitions/allowables/families.h"
#include "values/storage/holder_parts.h"

#include <utility>

namespace qzDescriptor {

namespace {

/// Of the results of many elements: refused before an excluded default, and that before allowed.
int Worse(int a, int b) { return a == 1 || b == 1 ? 1 : std::max(a, b); }

int TestEntityTypes(Allowables const& allowables, EntityListBag const& bag) {
    qzStlVector<EntityFullType> types;
    bag.GetEntityFullTypeList(types);
    int result = 0;
    for (EntityFullType const& type : types)
        result = Worse(result, allowables.Test(type));
    return result;
}

int TestEntityTypes(Allowables const& allowables, EntityListBagList const& bags) {
    qzStlVector<std::pair<unsigned int, qzString>> pairs;
    bags.GetRegisteredPairs(pairs);
    int result = 0;
    for (auto const& [key, name] : pairs)
        result = Worse(result, TestEntityTypes(allowables, bags.Query(bags.Find(key, name))));
    return result;
}

/// Entities are constrained by their type, of which a list has one and a bag several.
int TestEntities(Allowables const& allowables, ValuePtr const& value) {
    EntityListBag bag;
    if (EntityListBag const* const data = ReadContainer(value, bag))
        return TestEntityTypes(allowables, *data);
    EntityListBagList bags;
    if (EntityListBagList const* const data = ReadContainer(value, bags))
        return TestEntityTypes(allowables, *data);
    EntityFullType const type = value.GetEntityFullType();
    return type.IsValid() ? allowables.Test(type) : 0;
}

template <class T>
int TestElementsOf(Allowables const& allowables, ValuePtr const& value) {
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

int TestElements(Allowables const& allowables, ValuePtr const& value) {
    int result = 0;
    VisitElement(value.GetBasicType(), value.GetCompoundType(),
                 [&]<class Element>(std::type_identity<Element>) {
                     using T = typename AllowableOf<Element>::Type;
                     if constexpr (std::is_same_v<Element, Entity>)
                         result = TestEntities(allowables, value);
                     else if constexpr (!std::is_void_v<T>)
                         result = TestElementsOf<T>(allowables, value);
                 });
    return result;
}

int Allowables::Test(Value const& value) const {
    ValuePtr const* const holder = value.GetValuePtr();
    if (m_data == nullptr || holder == nullptr || !P_IsGenericTestEnforced())
        return 0;
    // Qualifiers are tested only as such.
    return holder->GetCompoundType() == CT_QUALIFIER ? 0 : TestElements(*this, *holder);
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
