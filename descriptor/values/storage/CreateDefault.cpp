#include "values/storage/CreateDefault.h"

#include "values/storage/BagHolders.h"

namespace qzDescriptor {

namespace {

template <class T>
ValuePtr* CreateBag(DisplayStatus status) {
    if constexpr (std::is_same_v<T, Formula>)
        return new ValuePtrFormulaBag(FormulaBag(), status);
    else if constexpr (std::is_same_v<T, Entity>)
        return new ValuePtrEntityListBag(EntityListBag(), status);
    else
        return nullptr;
}

template <class T, Kind K>
ValuePtr* CreateEmpty(DisplayStatus status) {
    using Container = typename ContainerFor<T, K>::Type;
    if constexpr (std::is_void_v<Container>)
        return nullptr;
    else
        return ValuePtr::Create(Container(), status);
}

template <class T>
ValuePtr* CreateDefaultOf(unsigned int arrayDimension, DisplayStatus status) {
    switch (arrayDimension) {
    case 0:
        return ValuePtr::Create(T(), status);
    case 1:
        return CreateEmpty<T, Kind::Array1>(status);
    case 2:
        return CreateEmpty<T, Kind::Array2>(status);
    case 3:
        return CreateBag<T>(status);
    case 4:
        return std::is_same_v<T, Entity> ? new ValuePtrEntityListBagList(EntityListBagList(), status)
                                         : nullptr;
    default:
        return nullptr;
    }
}

} // namespace

ValuePtr* CreateDefault(BasicType basic, CompoundType compound, unsigned int arrayDimension,
                        DisplayStatus status) {
    ValuePtr* holder = nullptr;
    VisitElement(basic, compound, [&]<class T>(std::type_identity<T>) {
        holder = CreateDefaultOf<T>(arrayDimension, status);
    });
    return holder;
}

} // namespace qzDescriptor
