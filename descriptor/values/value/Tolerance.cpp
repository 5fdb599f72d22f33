#include "descriptor/Value.h"

#include "values/storage/holder_parts.h"
#include "values/value/Agreement.h"

namespace qzDescriptor {

namespace {

template <class T>
bool ElementsAgree(ValuePtr const& a, ValuePtr const& b, Agreement const& agree) {
    T scratchA{}, scratchB{};
    T const* const left = ReadElement(a, scratchA);
    T const* const right = ReadElement(b, scratchB);
    return left != nullptr && right != nullptr && agree(*left, *right);
}

template <class Container>
bool ContainersAgree(ValuePtr const& a, ValuePtr const& b, Agreement const& agree) {
    if constexpr (std::is_void_v<Container>) {
        return false;
    } else {
        Container scratchA, scratchB;
        Container const* const left = ReadContainer(a, scratchA);
        Container const* const right = ReadContainer(b, scratchB);
        return left != nullptr && right != nullptr && agree(*left, *right);
    }
}

template <class T>
bool HoldersAgree(ValuePtr const& a, ValuePtr const& b, Agreement const& agree) {
    switch (a.GetArrayDimension()) {
    case 0:
        return ElementsAgree<T>(a, b, agree);
    case 1:
        return ContainersAgree<typename ContainerFor<T, Kind::Array1>::Type>(a, b, agree);
    case 2:
        return ContainersAgree<typename ContainerFor<T, Kind::Array2>::Type>(a, b, agree);
    default:
        return ContainersAgree<typename ContainerFor<T, Kind::Bag>::Type>(a, b, agree) ||
               ContainersAgree<typename ContainerFor<T, Kind::BagList>::Type>(a, b, agree);
    }
}

} // namespace

bool Value::AreEqualWithinTolerance(Value const& a, Value const& b, double tolerance, bool relative) {
    if (a.m_holder == nullptr || b.m_holder == nullptr)
        return a.m_holder == b.m_holder;
    if (a.GetBasicType() != b.GetBasicType() || a.GetCompoundType() != b.GetCompoundType() ||
        a.GetArrayDimension() != b.GetArrayDimension() || a.IsBagType() != b.IsBagType())
        return false;
    Agreement const agree(tolerance, relative);
    if (a.GetCompoundType() == CT_TABULAR)
        return ContainersAgree<Tabular>(*a.m_holder, *b.m_holder, agree);
    bool agreed = false;
    VisitElement(a.GetBasicType(), a.GetCompoundType(), [&]<class T>(std::type_identity<T>) {
        agreed = HoldersAgree<T>(*a.m_holder, *b.m_holder, agree);
    });
    return agreed;
}

} // namespace qzDescriptor
