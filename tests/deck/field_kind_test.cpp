#include "reader/field_kind.h"

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <regex>
#include <string>

namespace {

using namespace qzDeck;

constexpr double s_infinity = std::numeric_limits<double>::infinity();

TEST(FieldKind, RealsOutOfRangeBecomeInfiniteOrZero) {
    struct Case {
        std::string text;
        double value;
    };
    std::string const zeros(400, '0');
    for (auto const& [text, value] : {Case{"1.+400", s_infinity},
                                      {"-1.+400", -s_infinity},
                                      {"1.-400", 0.0},
                                      {"1.E99999999999999999999", s_infinity},
                                      {"1.E-99999999999999999999", 0.0},
                                      {"0.E99999999999999999999", 0.0},
                                      {"1" + zeros + ".", s_infinity},
                                      {"1" + zeros + ".-400", 1.0},
                                      {"." + zeros + "1", 0.0},
                                      {"." + zeros + "1+401", 1.0},
                                      {"." + zeros + "1+99999", s_infinity}}) {
        EXPECT_EQ(Classify(text), FieldKind::Real) << text;
        EXPECT_EQ(ReadReal(text), value) << text;
    }
}

TEST(FieldKind, IntegersOf32BitsAreRead) {
    EXPECT_EQ(ReadInteger("2147483647"), 2147483647);
    EXPECT_EQ(ReadInteger("-2147483648"), -2147483647 - 1);
    EXPECT_EQ(ReadInteger("+0000000000000007"), 7);
    EXPECT_EQ(ReadInteger("2147483648"), std::nullopt);
    EXPECT_EQ(ReadInteger("-99999999999999999999"), std::nullopt);
}

TEST(FieldKind, NamesOfKindsCanBeReadBack) {
    for (FieldKind kind : {FieldKind::Blank, FieldKind::Integer, FieldKind::Real, FieldKind::RealWithoutPoint,
                           FieldKind::GappedExponent, FieldKind::Text, FieldKind::Unreadable})
        EXPECT_EQ(KindNamed(NameOf(kind)), kind);
    EXPECT_EQ(NameOf(FieldKind::RealWithoutPoint), "real_nodot");
    EXPECT_EQ(NameOf(FieldKind::GappedExponent), "bad_gap_exponent");
    EXPECT_EQ(KindNamed("integer"), std::nullopt);
}

/// The grammar once more, as regular expressions.
FieldKind ClassifyByExpression(std::string const& text) {
    static std::regex const s_integer("[+-]?[0-9]+");
    static std::regex const s_real("[+-]?([0-9]+[.][0-9]*|[.][0-9]+)([eEdD][+-]?[0-9]+|[+-][0-9]+)?");
    static std::regex const s_withoutPoint("[+-]?[0-9]+[eEdD][+-]?[0-9]+");
    static std::regex const s_gapped("[+-]?([0-9]+[.][0-9]*|[.][0-9]+)[eEdD] +[0-9]+");
    static std::regex const s_text("[A-Za-z][A-Za-z0-9_./-]*");
    if (text.empty())
        return FieldKind::Blank;
    for (auto const& [expression, kind] :
         {std::pair(&s_integer, FieldKind::Integer), std::pair(&s_real, FieldKind::Real),
          std::pair(&s_withoutPoint, FieldKind::RealWithoutPoint),
          std::pair(&s_gapped, FieldKind::GappedExponent), std::pair(&s_text, FieldKind::Text)}) {
        if (std::regex_match(text, *expression))
            return kind;
    }
    return FieldKind::Unreadable;
}

/// The value by the C library, whose notation has an E and the point of the process's locale.
double ReadByCLibrary(std::string text) {
    std::erase(text, ' ');
    std::ranges::replace(text, '.', *std::localeconv()->decimal_point);
    for (std::size_t i = 1; i < text.size(); ++i) {
        bool const followsDigit =
            std::string_view("0123456789.,").find(text[i - 1]) != std::string_view::npos;
        if (text[i] == 'd' || text[i] == 'D')
            text[i] = 'E';
        else if ((text[i] == '+' || text[i] == '-') && followsDigit)
            text.insert(i++, 1, 'E');
    }
    return std::strtod(text.c_str(), nullptr);
}

void ExpectAgreement(std::string const& text) {
    FieldKind const kind = ClassifyByExpression(text);
    ASSERT_EQ(Classify(text), kind) << text;
    if (!IsReal(kind) && kind != FieldKind::Integer)
        return;
    double const value = ReadByCLibrary(text);
    ASSERT_EQ(ReadReal(text), value) << text;
    ASSERT_EQ(std::signbit(ReadReal(text)), std::signbit(value)) << text;
}

TEST(FieldKind, TextsOfEveryKindAgreeWithTheGrammarAndTheCLibrary) {
    for (char const* text : {"",
                             "12",
                             "-12",
                             "+00",
                             "99999999999999999999",
                             "1e5",
                             "-1D-5",
                             "1-5",
                             "0.75E 01",
                             "0.75D   1",
                             "0.75E +1",
                             "75E 01",
                             "2.1  E5",
                             "1 2",
                             ".",
                             "+",
                             "-.",
                             ".E5",
                             "1.E",
                             "1.+",
                             "1.2.3",
                             "1.E5.",
                             "--1",
                             "1,5",
                             "0x10",
                             "NaN",
                             "Inf",
                             "E5",
                             "THRU",
                             "a_b./-9",
                             "_A",
                             "A+B",
                             "A B",
                             "M\xE9",
                             "7.",
                             ".7E1",
                             "0.7+1",
                             "70.-1",
                             "7.E+0",
                             ".7d+1",
                             "+7.e0",
                             "-1.1-15",
                             "-.0",
                             "000000000000000000000000001.5",
                             "0.1000000000000000055511151231257827021181583404541015625",
                             "4.9D-324"})
        ExpectAgreement(text);
}

TEST(FieldKind, RandomTextsAgreeWithTheGrammarAndTheCLibrary) {
    std::mt19937 random(20240501);
    constexpr std::string_view alphabet = "0123456789..++--eEdD A_/";
    std::size_t numbers = 0;
    for (int i = 0; i < 60000; ++i) {
        std::string text;
        for (auto length = random() % 10; length > 0; --length)
            text += alphabet[random() % alphabet.size()];
        ASSERT_NO_FATAL_FAILURE(ExpectAgreement(text));
        numbers += IsReal(Classify(text)) || Classify(text) == FieldKind::Integer ? 1U : 0U;
    }
    EXPECT_GT(numbers, 1000U);
}

} // namespace
