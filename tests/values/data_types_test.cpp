#include "descriptor/qzdescriptor.h"

#include <gtest/gtest.h>

namespace qzDescriptor::test {
namespace {

TEST(DataTypes, FlatCodesFollowTheirUnevenTable) {
    struct Row {
        BasicType basic;
        CompoundType compound;
        int codes[5]; // for array dimension 0, 1, 2, 3 and 7
    };
    Row const rows[] = {
        {BT_NONE, CT_NONE, {38, 38, 38, 38, 38}},
        {BT_BOOL, CT_SCALAR, {1, 1, 1, 1, 1}},
        {BT_CHAR, CT_SCALAR, {2, 3, 38, 38, 38}},
        {BT_UCHAR, CT_SCALAR, {34, 34, 34, 34, 34}},
        {BT_INT, CT_SCALAR, {21, 22, 23, 23, 23}},
        {BT_UINT, CT_SCALAR, {35, 36, 37, 37, 37}},
        {BT_SHORT, CT_SCALAR, {38, 38, 38, 38, 38}},
        {BT_USHORT, CT_SCALAR, {38, 38, 38, 38, 38}},
        {BT_LONG, CT_SCALAR, {38, 38, 38, 38, 38}},
        {BT_ULONG, CT_SCALAR, {38, 38, 38, 38, 38}},
        {BT_FLOAT, CT_SCALAR, {15, 16, 17, 17, 17}},
        {BT_DOUBLE, CT_SCALAR, {9, 10, 11, 11, 11}},
        {BT_STRING, CT_SCALAR, {28, 29, 29, 29, 29}},
        {BT_OBJECT, CT_SCALAR, {38, 38, 38, 38, 38}},
        {BT_POINTER, CT_SCALAR, {38, 38, 38, 38, 38}},
        {BT_INT, CT_COUPLE, {8, 8, 8, 8, 8}},
        {BT_FLOAT, CT_COUPLE, {7, 7, 7, 7, 7}},
        {BT_DOUBLE, CT_COUPLE, {5, 6, 6, 6, 6}},
        {BT_BOOL, CT_COUPLE, {38, 38, 38, 38, 38}},
        {BT_INT, CT_TRIPLE, {33, 33, 33, 33, 33}},
        {BT_FLOAT, CT_TRIPLE, {32, 32, 32, 32, 32}},
        {BT_DOUBLE, CT_TRIPLE, {30, 31, 31, 31, 31}},
        {BT_STRING, CT_TRIPLE, {38, 38, 38, 38, 38}},
        {BT_DOUBLE, CT_MATRIX33, {24, 24, 24, 24, 24}},
        {BT_BOOL, CT_MATRIX33, {24, 24, 24, 24, 24}},
        {BT_NONE, CT_MATRIX44, {25, 25, 25, 25, 25}},
        {BT_STRING, CT_COLOR, {4, 4, 4, 4, 4}},
        {BT_UINT, CT_ENTITY, {12, 14, 38, 13, 38}},
        {BT_OBJECT, CT_QUALIFIER, {26, 27, 38, 38, 38}},
        {BT_OBJECT, CT_FORMULA, {18, 20, 38, 19, 38}},
        {BT_POINTER, CT_FUNCTION, {38, 38, 38, 38, 38}},
        {BT_UINT, CT_TABULAR, {38, 38, 38, 38, 38}},
        {BT_INT, CompoundType(12), {38, 38, 38, 38, 38}},
        {BasicType(-1), CompoundType(-1), {38, 38, 38, 38, 38}},
    };
    unsigned int const dimensions[] = {0, 1, 2, 3, 7};
    for (Row const& row : rows) {
        for (int k = 0; k < 5; ++k)
            EXPECT_EQ(DataTypeUtils::GetValueDataType(row.basic, row.compound, dimensions[k]), row.codes[k])
                << row.basic << '/' << row.compound << " dimension " << dimensions[k];
    }
}

// Which lists, two-level lists and bags exist, by array dimension 1 to 3.
TEST(DataTypes, DefaultsExistForExactlyTheTypesThatHaveStorage) {
    struct Row {
        BasicType basic;
        CompoundType compound;
        char const* dimensions;
    };
    Row const rows[] = {
        {BT_BOOL, CT_SCALAR, "1"},     {BT_CHAR, CT_SCALAR, "1"},     {BT_UCHAR, CT_SCALAR, ""},
        {BT_INT, CT_SCALAR, "12"},     {BT_UINT, CT_SCALAR, "12"},    {BT_SHORT, CT_SCALAR, ""},
        {BT_USHORT, CT_SCALAR, ""},    {BT_LONG, CT_SCALAR, "12"},    {BT_ULONG, CT_SCALAR, "12"},
        {BT_FLOAT, CT_SCALAR, "12"},   {BT_DOUBLE, CT_SCALAR, "12"},  {BT_STRING, CT_SCALAR, "1"},
        {BT_POINTER, CT_SCALAR, "1"},  {BT_INT, CT_COUPLE, ""},       {BT_FLOAT, CT_COUPLE, ""},
        {BT_DOUBLE, CT_COUPLE, "1"},   {BT_INT, CT_TRIPLE, "1"},      {BT_FLOAT, CT_TRIPLE, ""},
        {BT_DOUBLE, CT_TRIPLE, "12"},  {BT_DOUBLE, CT_MATRIX33, ""},  {BT_DOUBLE, CT_MATRIX44, ""},
        {BT_UINT, CT_COLOR, ""},       {BT_UINT, CT_ENTITY, "123"},   {BT_OBJECT, CT_QUALIFIER, "1"},
        {BT_OBJECT, CT_FORMULA, "13"}, {BT_POINTER, CT_FUNCTION, ""},
    };
    for (Row const& row : rows) {
        for (unsigned int dimension = 0; dimension < 6; ++dimension) {
            bool const exists =
                dimension == 0 || std::string_view(row.dimensions).find(static_cast<char>('0' + dimension)) !=
                                      std::string_view::npos;
            Value const value = DataTypeUtils::GetValueConstruct(row.basic, row.compound, dimension);
            EXPECT_EQ(value.GetValuePtr() != nullptr, exists)
                << row.basic << '/' << row.compound << " dimension " << dimension;
            if (exists) {
                EXPECT_EQ(value.GetDisplayStatus(), DS_DEFAULT);
                EXPECT_EQ(value.GetArrayDimension(), dimension);
                EXPECT_EQ(value.GetArrayDimensionExtent(0u), 0u);
            }
            if (row.compound == CT_ENTITY) // whose factory takes the kind of collection for the count
                continue;
            auto const array = [&](unsigned int count) {
                Value const made(row.basic, row.compound, count, dimension, DS_ON, QZDT_DBHandle());
                return made.GetValuePtr() == nullptr ? 0 : made.GetArrayDimension();
            };
            bool const isList = std::string_view(row.dimensions).starts_with('1');
            bool const isGrid = std::string_view(row.dimensions) == "12";
            EXPECT_EQ(array(4), dimension == 0 ? (isList ? 1U : 0U) : (isGrid ? 2U : 0U));
            EXPECT_EQ(array(0), 0U);
        }
    }
    for (auto const& [basic, compound] : {std::pair(BT_BOOL, CT_COUPLE), std::pair(BT_NONE, CT_SCALAR),
                                          std::pair(BT_UINT, CT_MATRIX33), std::pair(BT_OBJECT, CT_SCALAR)})
        EXPECT_EQ(DataTypeUtils::GetValueConstruct(basic, compound, 0).GetValuePtr(), nullptr);
}

TEST(ReturnStatus, SucceedsWithoutAMessage) {
    qzReturnStatus const success;
    EXPECT_EQ(success.status, 0);
    EXPECT_EQ(success.message, "");
    EXPECT_FALSE(success == (qzReturnStatus{-1, "MetaclassMgr is null."}));
}

} // namespace
} // namespace qzDescriptor::test
