#include "reader/field_kind.h"
#include "writer/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace {

using namespace qzDeck;

TEST(RealTexts, AreWrittenAsPeopleWriteThem) {
    struct Case {
        double number;
        std::size_t columns;
        char const* text;
    };
    constexpr double third = 1.0 / 3.0;
    for (auto const& [number, columns, text] : {Case{0.0, 8, "0."},
                                                {-0.0, 8, "-0."},
                                                {1.0, 8, "1."},
                                                {-2.5, 8, "-2.5"},
                                                {0.0015, 8, "0.0015"},
                                                {210000.0, 8, "210000."},
                                                {third, 8, ".3333333"},
                                                {-third, 8, "-.333333"},
                                                {third, 16, ".333333333333333"},
                                                {third, 24, "0.3333333333333333"},
                                                {7.85e-9, 8, "7.85-9"},
                                                {1e20, 8, "1.+20"},
                                                {-1.5e-100, 8, "-1.5-100"},
                                                {123456789.0, 8, "1.2346+8"},
                                                {1.5e-10, 10, "1.5-10"},
                                                {1.2345678e-10, 10, ".1234568-9"},
                                                {0.99999999999, 8, "1."},
                                                {12345678.9, 9, "12345679."},
                                                {1.7976931348623157e308, 8, "1.79+308"},
                                                {4.9e-324, 8, "5.-324"}})
        EXPECT_EQ(RealText(number, columns), text) << columns;
}

/// A number rounded to so many digits by the C library, and the least columns that it can be written in.
struct Rounded {
    double value;
    std::size_t columns;
};

Rounded Round(double number, int digitCount) {
    char text[40];
    std::snprintf(text, sizeof text, "%.*e", digitCount - 1, number);
    std::string digits(text, std::strchr(text, 'e'));
    std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
    digits.erase(digits.find_last_not_of('0') + 1);
    auto const count = static_cast<int>(digits.size());
    int const power = std::atoi(std::strchr(text, 'e') + 1) + 1; // of ten, with the point before the digits
    int const zeros = std::max({0, -power, power - count});
    std::size_t columns = static_cast<std::size_t>(count + zeros);
    for (int before = 0; before <= count; ++before)
        columns = std::min(columns, digits.size() + 1 + std::to_string(std::abs(power - before)).size());
    return {std::strtod(text, nullptr), columns + (number < 0 ? 2U : 1U)};
}

TEST(RealTexts, ReadBackAsNearAsTheirColumnsAllow) {
    std::mt19937_64 random(5);
    int inexact = 0;
    for (int round = 0; round < 50000; ++round) {
        std::size_t const columns = 8 + random() % 17;
        auto const mantissa = static_cast<double>(1 + (random() >> (11 + random() % 50)));
        int const range = round % 2 == 0 ? 10 : 280;
        int const exponent = static_cast<int>(random() % static_cast<unsigned>(2 * range)) - range;
        double const number = (random() % 2 == 0 ? mantissa : -mantissa) * std::pow(10.0, exponent);
        std::string const text = RealText(number, columns);
        ASSERT_LE(text.size(), columns) << text;
        ASSERT_EQ(Classify(text), FieldKind::Real) << text;
        double best = std::abs(number);
        for (int digits = 1; digits <= 17; ++digits) {
            Rounded const rounded = Round(number, digits);
            if (rounded.columns <= columns)
                best = std::min(best, std::abs(rounded.value - number));
        }
        ASSERT_LE(std::abs(ReadReal(text) - number), best) << text << " " << number << " in " << columns;
        inexact += best > 0 ? 1 : 0;
    }
    EXPECT_GT(inexact, 10000);
}

} // namespace
