#pragma once

#include "descriptor/ValuePtr.h"

namespace qzDescriptor {

/// The basic type of a C++ scalar; BT_NONE for anything else.
template <class T>
inline constexpr BasicType s_scalarType = BT_NONE;
template <>
inline constexpr BasicType s_scalarType<bool> = BT_BOOL;
template <>
inline constexpr BasicType s_scalarType<char> = BT_CHAR;
template <>
inline constexpr BasicType s_scalarType<unsigned char> = BT_UCHAR;
template <>
inline constexpr BasicType s_scalarType<int> = BT_INT;
template <>
inline constexpr BasicType s_scalarType<unsigned int> = BT_UINT;
template <>
inline constexpr BasicType s_scalarType<short> = BT_SHORT;
template <>
inline constexpr BasicType s_scalarType<unsigned short> = BT_USHORT;
template <>
inline constexpr BasicType s_scalarType<long> = BT_LONG;
template <>
inline constexpr BasicType s_scalarType<unsigned long> = BT_ULONG;
template <>
inline constexpr BasicType s_scalarType<float> = BT_FLOAT;
template <>
inline constexpr BasicType s_scalarType<double> = BT_DOUBLE;

/// The mark of a holder of one number or text; BT_NONE for anything else.
template <class T>
inline constexpr BasicType s_holderMark = s_scalarType<T>;
template <>
inline constexpr BasicType s_holderMark<qzString> = BT_STRING;

/// One element in a holder. Numbers and texts are reached without a virtual call: Of recognises a holder of
/// this library by a mark that nothing else sets, so that holders derived elsewhere keep their own behaviour.
template <class T>
class ScalarStorage : public ValuePtr {
public:
    T m_value;

    static ScalarStorage const* Of(ValuePtr const* holder) {
        static_assert(s_holderMark<T> != BT_NONE, "only numbers and texts are marked");
        return holder->m_scalarTag == s_holderMark<T> ? static_cast<ScalarStorage const*>(holder) : nullptr;
    }
    static ScalarStorage* Of(ValuePtr* holder) {
        static_assert(s_holderMark<T> != BT_NONE, "only numbers and texts are marked");
        return holder->m_scalarTag == s_holderMark<T> ? static_cast<ScalarStorage*>(holder) : nullptr;
    }

private:
    // Only the library's own holders of one element are made of this, and so carry the mark.
    template <class, class>
    friend class ElementPointerOf;

    ScalarStorage(T const& value, DisplayStatus status) : ValuePtr(status, false), m_value(value) {
        m_scalarTag = static_cast<unsigned char>(s_holderMark<T>);
    }
};

} // namespace qzDescriptor
