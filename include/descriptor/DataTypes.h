#pragma once

#include <cstdint>

namespace qzDescriptor {

/// The scalar type of a value's elements. The codes are part of the interface and of stored definitions.
enum BasicType : std::int32_t {
    BT_NONE = 0, ///< no type: what a value without storage reports
    BT_BOOL = 1,
    BT_CHAR = 2, ///< a signed 8-bit number
    BT_UCHAR = 3,
    BT_INT = 4,
    BT_UINT = 5, ///< also the basic type of colors and entities
    BT_SHORT = 6,
    BT_USHORT = 7,
    BT_LONG = 8, ///< the platform's `long`
    BT_ULONG = 9,
    BT_FLOAT = 10,
    BT_DOUBLE = 11,
    BT_STRING = 12,
    BT_OBJECT = 13, ///< `Qualifier` and `Formula`
    BT_POINTER = 14 ///< `void*` and `Function`
};

/// The shape of a value's elements.
enum CompoundType : std::int32_t {
    CT_NONE = 0,
    CT_SCALAR = 1,
    CT_COUPLE = 2,
    CT_TRIPLE = 3,
    CT_MATRIX33 = 4,
    CT_MATRIX44 = 5,
    CT_COLOR = 6,
    CT_ENTITY = 7,
    CT_QUALIFIER = 8,
    CT_FORMULA = 9,
    CT_FUNCTION = 10,
    CT_TABULAR = 11 ///< a table; made only from a handle: in memory when that is invalid
};

/// The triple (basic type, compound type, array dimension) folded into one code by `DataTypeUtils`.
enum DATA_TYPE : std::int32_t {
    DT_BOOL = 1,
    DT_CHAR = 2,
    DT_CHAR_LIST = 3,
    DT_COLOR = 4,
    DT_COUPLE = 5,
    DT_COUPLE_LIST = 6,
    DT_COUPLE_F = 7,
    DT_COUPLE_I = 8,
    DT_DOUBLE = 9,
    DT_DOUBLE_LIST = 10,
    DT_DOUBLE_LIST2 = 11,
    DT_ENTITY = 12,
    DT_ENTITY_BAG = 13,
    DT_ENTITY_LIST = 14,
    DT_FLOAT = 15,
    DT_FLOAT_LIST = 16,
    DT_FLOAT_LIST2 = 17,
    DT_FORMULA = 18,
    DT_FORMULA_BAG = 19,
    DT_FORMULA_LIST = 20,
    DT_INT = 21,
    DT_INT_LIST = 22,
    DT_INT_LIST2 = 23,
    DT_MATRIX33 = 24,
    DT_MATRIX44 = 25,
    DT_QUALIFIER = 26,
    DT_QUALIFIER_LIST = 27,
    DT_STRING = 28,
    DT_STRING_LIST = 29,
    DT_TRIPLE = 30,
    DT_TRIPLE_LIST = 31,
    DT_TRIPLE_F = 32,
    DT_TRIPLE_I = 33,
    DT_UCHAR = 34,
    DT_UINT = 35,
    DT_UINT_LIST = 36,
    DT_UINT_LIST2 = 37,
    DT_UNKNOWN = 38 ///< no such type
};

/// How an attribute's value is to be shown. The library carries the code and never acts on it; codes other
/// than these are carried unchanged. Whatever the library creates on its own gets DS_DEFAULT.
enum DisplayStatus : std::int32_t { DS_OFF = 0, DS_ON = 1, DS_DEFAULT = 2 };

} // namespace qzDescriptor
