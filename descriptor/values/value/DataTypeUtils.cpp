#include "descriptor/DataTypeUtils.h"

#include "descriptor/Value.h"
#include "values/storage/CreateDefault.h"

#include <algorithm>

namespace qzDescriptor {

namespace {

/// The codes of a pair by array dimension 0, 1, 2, 3, and more than that. BT_NONE stands for any basic type.
struct FlatCodes {
    BasicType basic;
    CompoundType compound;
    DATA_TYPE codes[5];
};

constexpr DATA_TYPE s_none = DT_UNKNOWN;

// clang-format off
constexpr FlatCodes s_flatCodes[] = {
    {BT_BOOL,   CT_SCALAR,    {DT_BOOL, DT_BOOL, DT_BOOL, DT_BOOL, DT_BOOL}},
    {BT_CHAR,   CT_SCALAR,    {DT_CHAR, DT_CHAR_LIST, s_none, s_none, s_none}},
    {BT_UCHAR,  CT_SCALAR,    {DT_UCHAR, DT_UCHAR, DT_UCHAR, DT_UCHAR, DT_UCHAR}},
    {BT_INT,    CT_SCALAR,    {DT_INT, DT_INT_LIST, DT_INT_LIST2, DT_INT_LIST2, DT_INT_LIST2}},
    {BT_UINT,   CT_SCALAR,    {DT_UINT, DT_UINT_LIST, DT_UINT_LIST2, DT_UINT_LIST2, DT_UINT_LIST2}},
    {BT_FLOAT,  CT_SCALAR,    {DT_FLOAT, DT_FLOAT_LIST, DT_FLOAT_LIST2, DT_FLOAT_LIST2, DT_FLOAT_LIST2}},
    {BT_DOUBLE, CT_SCALAR,    {DT_DOUBLE, DT_DOUBLE_LIST, DT_DOUBLE_LIST2, DT_DOUBLE_LIST2, DT_DOUBLE_LIST2}},
    {BT_STRING, CT_SCALAR,    {DT_STRING, DT_STRING_LIST, DT_STRING_LIST, DT_STRING_LIST, DT_STRING_LIST}},
    {BT_INT,    CT_COUPLE,    {DT_COUPLE_I, DT_COUPLE_I, DT_COUPLE_I, DT_COUPLE_I, DT_COUPLE_I}},
    {BT_FLOAT,  CT_COUPLE,    {DT_COUPLE_F, DT_COUPLE_F, DT_COUPLE_F, DT_COUPLE_F, DT_COUPLE_F}},
    {BT_DOUBLE, CT_COUPLE,    {DT_COUPLE, DT_COUPLE_LIST, DT_COUPLE_LIST, DT_COUPLE_LIST, DT_COUPLE_LIST}},
    {BT_INT,    CT_TRIPLE,    {DT_TRIPLE_I, DT_TRIPLE_I, DT_TRIPLE_I, DT_TRIPLE_I, DT_TRIPLE_I}},
    {BT_FLOAT,  CT_TRIPLE,    {DT_TRIPLE_F, DT_TRIPLE_F, DT_TRIPLE_F, DT_TRIPLE_F, DT_TRIPLE_F}},
    {BT_DOUBLE, CT_TRIPLE,    {DT_TRIPLE, DT_TRIPLE_LIST, DT_TRIPLE_LIST, DT_TRIPLE_LIST, DT_TRIPLE_LIST}},
    {BT_NONE,   CT_MATRIX33,  {DT_MATRIX33, DT_MATRIX33, DT_MATRIX33, DT_MATRIX33, DT_MATRIX33}},
    {BT_NONE,   CT_MATRIX44,  {DT_MATRIX44, DT_MATRIX44, DT_MATRIX44, DT_MATRIX44, DT_MATRIX44}},
    {BT_NONE,   CT_COLOR,     {DT_COLOR, DT_COLOR, DT_COLOR, DT_COLOR, DT_COLOR}},
    {BT_NONE,   CT_ENTITY,    {DT_ENTITY, DT_ENTITY_LIST, s_none, DT_ENTITY_BAG, s_none}},
    {BT_NONE,   CT_QUALIFIER, {DT_QUALIFIER, DT_QUALIFIER_LIST, s_none, s_none, s_none}},
    {BT_NONE,   CT_FORMULA,   {DT_FORMULA, DT_FORMULA_LIST, s_none, DT_FORMULA_BAG, s_none}},
};
// clang-format on

} // namespace

DATA_TYPE DataTypeUtils::GetValueDataType(BasicType const& basic, CompoundType const& compound,
                                          unsigned int arrayDimension) {
    auto const row = std::ranges::find_if(s_flatCodes, [&](FlatCodes const& codes) {
        return codes.compound == compound && (codes.basic == basic || codes.basic == BT_NONE);
    });
    if (row == std::end(s_flatCodes))
        return DT_UNKNOWN;
    return row->codes[std::min(arrayDimension, 4u)];
}

Value DataTypeUtils::GetValueConstruct(BasicType const& basic, CompoundType const& compound,
                                       unsigned int arrayDimension) {
    if (arrayDimension > 3)
        return Value(); // beyond the dimensions of types, registers of bags are made by selector
    return Value(CreateDefault(basic, compound, arrayDimension, DS_DEFAULT));
}

} // namespace qzDescriptor
