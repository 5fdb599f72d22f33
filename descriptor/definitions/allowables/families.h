#pragma once

#include "definitions/allowables/BoundsAllowables.h"
#include "definitions/allowables/ListAllowables.h"

namespace qzDescriptor {

// The families by the type alone.
template <class T>
using DefaultAllowables =
    AllowablesDataDefaultT<T, AllowableTraits<T>::s_basic, AllowableTraits<T>::s_compound>;
template <class T>
using BoundsAllowables =
    AllowablesDataBoundsT<T, BoundT<T>, AllowableTraits<T>::s_basic, AllowableTraits<T>::s_compound>;
template <class T>
using ListAllowables = AllowablesDataListT<T, AllowableTraits<T>::s_basic, AllowableTraits<T>::s_compound>;

/// Null when there is no memory.
template <class Data, class... Arguments>
AllowablesData* MakeAllowables(Arguments const&... arguments) {
    return Attempt([&]() -> AllowablesData* { return new Data(arguments...); });
}

} // namespace qzDescriptor
