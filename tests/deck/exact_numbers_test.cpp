#include "facts/ExactSum.h"
#include "model/IdSet.h"
#include "model/WholeNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace qzDeck;

double Sum(std::vector<double> const& terms) {
    ExactSum sum;
    for (double term : terms)
        sum.Add(term);
    return sum.Value();
}

double ToDouble(std::string const& text) {
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

TEST(ExactSum, NothingIsLostOnTheWay) {
    constexpr double half = 1.1102230246251565e-16; // of the last digit of 1
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Sum({}), 0.0);
    EXPECT_EQ(Sum({1e100, 1.0, -1e100}), 1.0);
    EXPECT_EQ(Sum({1e16, 1.0, 1e-16}), 10000000000000002.0);
    EXPECT_EQ(Sum(std::vector<double>(10, 0.1)), 1.0);
    EXPECT_EQ(Sum({1.0, half}), 1.0);
    EXPECT_EQ(Sum({1.0, half, 1e-40}), std::nextafter(1.0, 2.0));
    EXPECT_EQ(Sum({1.0, half, -1e-40}), 1.0);
    EXPECT_EQ(Sum({-1.0, -half, -1e-40}), std::nextafter(-1.0, -2.0));
    EXPECT_EQ(Sum({1.0, infinity, 2.0}), infinity);
    EXPECT_EQ(Sum({-infinity, 1.0}), -infinity);
    EXPECT_EQ(Sum({1.7e308, 1.7e308, 1.0}), infinity);
    EXPECT_TRUE(std::isnan(Sum({infinity, -infinity, 1.0})));
}

TEST(ExactSum, SumsOfIntegersAreTheIntegerSumRoundedOnce) {
    std::mt19937_64 random(11);
    for (int round = 0; round < 200; ++round) {
        ExactSum sum;
        WholeSum whole;
        for (int i = 0; i < 300; ++i) {
            auto const term = static_cast<std::int64_t>(random() >> (11 + random() % 50));
            std::int64_t const signedTerm = random() % 2 == 0 ? term : -term;
            sum.Add(static_cast<double>(signedTerm)); // below 2^53: exact
            whole.Add(WholeNumber(signedTerm));
        }
        ASSERT_EQ(sum.Value(), ToDouble(whole.Value().Text()));
    }
}

TEST(ExactSum, OrderDoesNotMatter) {
    std::mt19937_64 random(12);
    std::vector<double> terms;
    for (int i = 0; i < 1000; ++i)
        terms.push_back(
            std::ldexp(static_cast<double>(random()) - 0x1p63, static_cast<int>(random() % 400) - 200));
    double const sum = Sum(terms);
    for (int round = 0; round < 20; ++round) {
        std::shuffle(terms.begin(), terms.end(), random);
        ASSERT_EQ(Sum(terms), sum);
    }
}

std::string Written(std::string const& text) { return WholeNumber(std::string_view(text)).Text(); }

TEST(WholeNumbers, AreReadAtAnyLength) {
    EXPECT_EQ(Written("0"), "0");
    EXPECT_EQ(Written("-0"), "0");
    EXPECT_EQ(Written("+00012"), "12");
    EXPECT_EQ(Written("-0000"), "0");
    EXPECT_EQ(Written("9223372036854775807"), "9223372036854775807");
    EXPECT_EQ(Written("+09223372036854775808"), "9223372036854775808");
    EXPECT_EQ(Written("-9223372036854775808"), "-9223372036854775808");
    EXPECT_EQ(Written("-00009223372036854775809"), "-9223372036854775809");
    EXPECT_TRUE(WholeNumber(std::string_view("000000000000000000000000")).IsZero());
    EXPECT_FALSE(WholeNumber(std::string_view("9223372036854775808")).IsZero());
}

TEST(WholeNumbers, AreOrderedAcrossLengths) {
    std::vector<std::string> const ascending = {"-100000000000000000000",
                                                "-9999999999999999999",
                                                "-9223372036854775809",
                                                "-9223372036854775808",
                                                "-1",
                                                "0",
                                                "1",
                                                "9223372036854775807",
                                                "9223372036854775808",
                                                "9999999999999999999",
                                                "100000000000000000000"};
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t k = 0; k < ascending.size(); ++k) {
            WholeNumber const a{std::string_view(ascending[i])};
            WholeNumber const b{std::string_view(ascending[k])};
            EXPECT_EQ(a <=> b, i <=> k) << ascending[i] << " " << ascending[k];
            EXPECT_EQ(a == b, i == k);
        }
    }
}

/// The sum of two signless texts of digits, as done on paper.
std::string AddOnPaper(std::string a, std::string b) {
    a.insert(0, std::max(a.size(), b.size()) - a.size() + 1, '0');
    b.insert(0, a.size() - b.size(), '0');
    int carry = 0;
    for (std::size_t i = a.size(); i-- > 0;) {
        int const digit = (a[i] - '0') + (b[i] - '0') + carry;
        a[i] = static_cast<char>('0' + digit % 10);
        carry = digit / 10;
    }
    return a;
}

TEST(WholeNumbers, SumsAreExactAtAnyLength) {
    std::mt19937 random(13);
    for (int round = 0; round < 300; ++round) {
        WholeSum positive;
        WholeSum negative;
        WholeSum cancelled;
        std::string expected = "0";
        for (int i = 0; i < 20; ++i) {
            std::string digits;
            for (auto length = 1 + random() % 40; length > 0; --length)
                digits += static_cast<char>('0' + random() % 10);
            expected = AddOnPaper(expected, digits);
            positive.Add(WholeNumber(std::string_view(digits)));
            negative.Add(WholeNumber(std::string_view("-" + digits)));
            cancelled.Add(WholeNumber(std::string_view(digits)));
            cancelled.Add(WholeNumber(std::string_view("-" + digits)));
        }
        ASSERT_EQ(positive.Value().Text(), Written(expected));
        ASSERT_EQ(negative.Value().Text(), Written("-" + expected));
        ASSERT_TRUE(cancelled.Value().IsZero());
    }
    EXPECT_TRUE(WholeSum().Value().IsZero());
}

TEST(IdSets, AnswerOverSmallAndLargeIds) {
    IdSet ids;
    for (char const* id : {"5", "-3", "5", "99999999999999999999", "12", "099999999999999999999", "0"})
        ids.Add(WholeNumber(std::string_view(id)));
    ids.Seal();
    EXPECT_EQ(ids.Count(), 7U);
    EXPECT_EQ(ids.CountDistinct(), 5U);
    EXPECT_EQ(ids.Least().Text(), "-3");
    EXPECT_EQ(ids.Greatest().Text(), "99999999999999999999");
    EXPECT_TRUE(ids.Contains(WholeNumber(12)));
    EXPECT_TRUE(ids.Contains(WholeNumber(std::string_view("99999999999999999999"))));
    EXPECT_FALSE(ids.Contains(WholeNumber(4)));
    EXPECT_FALSE(ids.Contains(WholeNumber(std::string_view("-99999999999999999999"))));
}

} // namespace
