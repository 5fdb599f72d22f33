#include "descriptor/qzdescriptor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace qzDescriptor::test {
namespace {

constexpr double s_infinity = std::numeric_limits<double>::infinity();
constexpr double s_nan = std::numeric_limits<double>::quiet_NaN();

template <class T>
Value Of(T const& value) {
    Value result;
    result.SetValue(value);
    return result;
}

template <class C>
Value OfList(C list) {
    return Value(ValuePtr::Create(std::move(list), DS_DEFAULT));
}

TEST(Tolerance, DecidesByDifferenceOrByRelativeDifference) {
    struct Row {
        double a, b, tolerance;
        bool relative, agree;
    };
    constexpr double s_big = std::numeric_limits<double>::max();
    Row const rows[] = {
        {1.0, 1.0, 0, false, true},
        {1.0, 1.0 + 0.9e-12, 0, false, true}, // no tolerance means 1e-12
        {1.0, 1.0 + 1.1e-12, 0, false, false},
        {1.0, 1.0 + 1.1e-12, -5, false, false},
        {1.0, 1.0 + 0.9e-12, s_nan, false, true},
        {1.0, 1.5, 0.5, false, true},
        {1.0, 1.5, 0.49, false, false},
        {100, 101, 0.0100, true, true}, // 1 / 100.5
        {100, 101, 0.0099, true, false},
        {0, 1e-13, 0, true, true}, // a mean below 1e-12 agrees
        {1e-12, 3e-12, 0.1, true, false},
        {-1, 1, 1.99, true, false}, // 2 / 1
        {-1, 1, 2.0, true, true},
        {s_infinity, s_infinity, 1, false, true},
        {s_infinity, s_infinity, 1, true, true},
        {s_infinity, -s_infinity, 1e300, false, false},
        {s_infinity, 1, 1e300, true, false},
        {s_infinity, 1, s_infinity, false, true},
        {s_big, -s_big, s_infinity, false, true},
        {s_nan, s_nan, 1e300, false, false},
        {s_nan, s_nan, 1e300, true, false},
        {s_big, 0.6 * s_big, 0.1, true, false}, // the mean must not overflow
        {s_big, -s_big, 1, true, false},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Value::AreEqualWithinTolerance(Of(row.a), Of(row.b), row.tolerance, row.relative),
                  row.agree)
            << row.a << ' ' << row.b << ' ' << row.tolerance << ' ' << row.relative;
        EXPECT_EQ(Value::AreEqualWithinTolerance(Of(row.b), Of(row.a), row.tolerance, row.relative),
                  row.agree);
        qzTMatrix44<double> left, right;
        left(3, 2) = row.a;
        right(3, 2) = row.b;
        EXPECT_EQ(Value::AreEqualWithinTolerance(Of(left), Of(right), row.tolerance, row.relative),
                  row.agree);
        using Triples = qzStlVector<qzStlVector<qzTTriple<double>>>;
        EXPECT_EQ(Value::AreEqualWithinTolerance(OfList(Triples{{{}, {0, 0, row.a}}}),
                                                 OfList(Triples{{{}, {0, 0, row.b}}}), row.tolerance,
                                                 row.relative),
                  row.agree);
    }
}

TEST(Tolerance, ComparesFloatsInTheirOwnPrecision) {
    float const next = std::nextafter(1.0f, 2.0f);
    EXPECT_TRUE(Value::AreEqualWithinTolerance(Of(1.0f), Of(next), 1.2e-7, false));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(Of(1.0f), Of(next), 1.1e-7, false));
    EXPECT_TRUE(Value::AreEqualWithinTolerance(Of(1.0f), Of(2.0f), 1e300, false));
    EXPECT_TRUE(Value::AreEqualWithinTolerance(Of(qzTCouple<float>{1, 1}), Of(qzTCouple<float>{1, next}),
                                               1e-6, true));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(Of(1.0f), Of(1.0), 1, false)) << "types must be equal";
}

TEST(Tolerance, AsksForEqualLengthsAndExactEqualityOfEverythingElse) {
    using Doubles = qzStlVector<double>;
    using Strings = qzStlVector<qzString>;
    EXPECT_TRUE(Value::AreEqualWithinTolerance(OfList(Doubles{}), OfList(Doubles{}), 1, false));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(OfList(Doubles{1}), OfList(Doubles{1, 1}), 1, false));
    EXPECT_TRUE(Value::AreEqualWithinTolerance(OfList(Doubles{1, 2}), OfList(Doubles{1.5, 2}), 1, false));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(Of(1), Of(2), 100, false));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(OfList(Strings{"a"}), OfList(Strings{"b"}), 100, false));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(Of(1.0), OfList(Doubles{1}), 100, false));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(OfList(Doubles{}), Value(), 100, false));
    EXPECT_TRUE(Value::AreEqualWithinTolerance(Value(), Value(), 100, false));
}

} // namespace
} // namespace qzDescriptor::test
