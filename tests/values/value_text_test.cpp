#include "descriptor/qzdescriptor.h"

#include <boost/lexical_cast.hpp>
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <locale>
#include <random>

namespace qzDescriptor::test {
namespace {

template <class T>
Value Of(T const& value) {
    Value result;
    result.SetValue(value);
    return result;
}

template <class T>
qzString TextOf(T const& value, char const* format = nullptr) {
    qzString text = "before";
    bool const written = Of(value).GetValueAsString(text, format);
    EXPECT_TRUE(written || text.empty());
    return written ? text : "refused";
}

/// The value after reading, or "refused".
template <class T>
qzString Read(qzString const& text, char const* format = nullptr) {
    Value value = Of(T());
    Value const before(value);
    bool const read = value.SetValueFromString(text, format);
    EXPECT_TRUE(read || value == before);
    qzString result;
    value.GetValueAsString(result);
    return read ? result : "refused";
}

constexpr double s_infinity = std::numeric_limits<double>::infinity();

TEST(NumberText, IsWrittenInItsOwnForm) {
    EXPECT_EQ(TextOf(3.0), "3");
    EXPECT_EQ(TextOf(2.5), "2.5");
    EXPECT_EQ(TextOf(-0.0), "0");
    EXPECT_EQ(TextOf(1e15), "1000000000000000");
    EXPECT_EQ(TextOf(-9223372036854775808.0), "-9223372036854775808");
    EXPECT_EQ(TextOf(9223372036854775808.0), "9.2233720368548e+18");
    EXPECT_EQ(TextOf(1e300), "1e+300");
    EXPECT_EQ(TextOf(1.0 / 3), "0.33333333333333");
    EXPECT_EQ(TextOf(0.1f), "0.10000000149012");
    EXPECT_EQ(TextOf(5e-324), "4.9406564584125e-324");
    EXPECT_EQ(TextOf(s_infinity), "inf");
    EXPECT_EQ(TextOf(-s_infinity), "-inf");
    EXPECT_EQ(TextOf(std::nan("")), "nan");
    EXPECT_EQ(TextOf('A'), "65");
    EXPECT_EQ(TextOf(static_cast<unsigned char>(200)), "200");
    EXPECT_EQ(TextOf(std::numeric_limits<int>::min()), "-2147483648");
    EXPECT_EQ(TextOf(4294967295u), "4294967295");
    EXPECT_EQ(TextOf(std::numeric_limits<long>::min()), std::to_string(std::numeric_limits<long>::min()));
    EXPECT_EQ(TextOf(qzTCouple<double>{1.5, -2}), "1.5 -2");
    EXPECT_EQ(TextOf(qzTTriple<float>{0.1f, 1e20f, 3}), "0.10000000149012 1.0000000200409e+20 3");
    EXPECT_EQ(TextOf(qzTTriple<int>{-1, 0, 7}), "-1 0 7");
    EXPECT_EQ(TextOf(qzTMatrix33<double>()), "1 0 0  0 1 0  0 0 1");
    EXPECT_EQ(TextOf(qzTMatrix44<double>()), "1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1");
    EXPECT_EQ(TextOf(true), "true");
    EXPECT_EQ(TextOf(1234567.0), "1234567") << "digits are never grouped";
}

TEST(NumberText, OfRandomDoublesHasFourteenDigitsAsPrintfWritesThem) {
    std::mt19937_64 random(20261121);
    for (int k = 0; k < 200000; ++k) {
        std::uint64_t const bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isnan(value))
            continue;
        char expected[64];
        constexpr double s_limit = 9223372036854775808.0;
        bool const integral = value >= -s_limit && value < s_limit && value == std::floor(value);
        std::snprintf(expected, sizeof expected, integral ? "%.0f" : "%.14g", integral ? value + 0.0 : value);
        for (char& c : expected)
            c = c == ',' ? '.' : c; // the process may run under a decimal comma
        ASSERT_EQ(TextOf(value), expected);
    }
}

TEST(FloatingText, IsReadAsAWholeOrNotAtAll) {
    struct Row {
        char const* text;
        char const* result;
    };
    Row const rows[] = {
        {"2.5", "2.5"},
        {"+2.5", "2.5"},
        {"-2.5e3", "-2500"},
        {".5", "0.5"},
        {"5.", "5"},
        {"1e-400", "0"},
        {"-1e-400", "0"},
        {"1e400", "refused"},
        {"inf", "inf"},
        {"-INFINITY", "-inf"},
        {"nan", "nan"},
        {" 2.5", "refused"},
        {"2.5 ", "refused"},
        {"2,5", "refused"},
        {"1.000,5", "refused"},
        {"0x10", "refused"},
        {"1e", "refused"},
        {"1e+", "refused"},
        {"", "refused"},
        {"+", "refused"},
        {"+-1", "refused"},
        {"1 2", "refused"},
        {"1.5d3", "refused"},
        {"4.9e-324", "4.9406564584125e-324"},
        {"2.4703282292062327e-324", "0"},
        {"1.7976931348623157e308", "1.7976931348623e+308"},
    };
    for (Row const& row : rows)
        EXPECT_EQ(Read<double>(row.text), row.result) << row.text;
    EXPECT_EQ(Read<double>(qzString("1\0", 2)), "refused");
    EXPECT_EQ(Read<double>(qzString(1 << 20, '1')), "refused");
    EXPECT_EQ(Read<double>("0." + qzString(1 << 20, '0') + "1"), "0");
    EXPECT_EQ(Read<float>("1e39"), "refused");
    EXPECT_EQ(Read<float>("1e-60"), "0");
    // The nearest float of the text, and not that of the nearest double.
    EXPECT_EQ(Read<float>("1.00000017881393432617187499"), TextOf(1.00000011920928955078125f));
}

TEST(FloatingText, IsReadAsALexicalCastReadsIt) {
    if (std::locale() != std::locale::classic())
        GTEST_SKIP() << "a lexical cast follows the global locale";
    std::mt19937 random(42);
    char const alphabet[] = "0123456789.eE+-nif ";
    for (int k = 0; k < 300000; ++k) {
        qzString text;
        for (unsigned long n = random() % 9; n-- > 0;)
            text += alphabet[random() % (sizeof alphabet - 1)];
        double expected = 0;
        bool const parses = boost::conversion::try_lexical_convert(text, expected);
        Value value = Of(0.0);
        ASSERT_EQ(value.SetValueFromString(text), parses) << '"' << text << '"';
        if (parses && !std::isnan(expected)) {
            ASSERT_EQ(*value.GetValuePointerDouble(), expected) << '"' << text << '"';
        }
    }
}

TEST(IntegerText, IsScannedFromTheFrontWithinItsRange) {
    EXPECT_EQ(Read<int>("42"), "42");
    EXPECT_EQ(Read<int>(" \t\n-42 mm"), "-42");
    EXPECT_EQ(Read<int>("+7.9"), "7");
    EXPECT_EQ(Read<int>("2147483647"), "2147483647");
    EXPECT_EQ(Read<int>("2147483648"), "refused");
    EXPECT_EQ(Read<int>("-2147483648"), "-2147483648");
    EXPECT_EQ(Read<int>("-2147483649"), "refused");
    EXPECT_EQ(Read<int>("99999999999999999999999"), "refused");
    EXPECT_EQ(Read<unsigned int>("4294967295"), "4294967295");
    EXPECT_EQ(Read<unsigned int>("4294967296"), "refused");
    EXPECT_EQ(Read<unsigned int>("-1"), "refused");
    EXPECT_EQ(Read<unsigned int>("-0"), "0");
    EXPECT_EQ(Read<char>("127"), "127");
    EXPECT_EQ(Read<char>("128"), "refused");
    EXPECT_EQ(Read<unsigned char>("256"), "refused");
    EXPECT_EQ(Read<short>("-32769"), "refused");
    EXPECT_EQ(Read<unsigned long>(std::to_string(std::numeric_limits<unsigned long>::max())),
              std::to_string(std::numeric_limits<unsigned long>::max()));
    EXPECT_EQ(Read<int>("x"), "refused");
    EXPECT_EQ(Read<int>("- 5"), "refused");
    EXPECT_EQ(Read<int>(qzString("5\0006", 3)), "5");
}

TEST(TupleText, IsScannedComponentByComponent) {
    EXPECT_EQ(Read<qzTCouple<double>>("1.5\n -2e3 rest"), "1.5 -2000");
    EXPECT_EQ(Read<qzTCouple<double>>("0x1p3 inf"), "8 inf");
    for (char const* const text : {"0x-1 2", "-0x-1 2", "0xinf 2", "0xnan 2", "0x+1 2"})
        EXPECT_EQ(Read<qzTCouple<double>>(text), "refused") << text;
    EXPECT_EQ(Read<qzTCouple<double>>("1.5"), "refused");
    EXPECT_EQ(Read<qzTCouple<double>>("1.5 1e400"), "refused");
    EXPECT_EQ(Read<qzTCouple<double>>("1e 2"), "refused") << "an exponent without digits is no number";
    EXPECT_EQ(Read<qzTCouple<double>>("1,5 2"), "refused");
    EXPECT_EQ(Read<qzTTriple<float>>("1 2 3.5"), "1 2 3.5");
    EXPECT_EQ(Read<qzTTriple<int>>("1 2 3.5"), "1 2 3");
    EXPECT_EQ(Read<qzTMatrix33<double>>("1 2 3 4 5 6 7 8 9.5"), "1 2 3  4 5 6  7 8 9.5");
    EXPECT_EQ(Read<qzTMatrix33<double>>("1 2 3 4 5 6 7 8"), "refused");
}

TEST(OtherText, FollowsTheFormsOfItsType) {
    EXPECT_EQ(Read<bool>("TrUe"), "true");
    EXPECT_EQ(Read<bool>("true "), "refused");
    EXPECT_EQ(Read<bool>("1"), "refused");
    EXPECT_EQ(TextOf(Color(10, 20, 255)), "#0A14FF");
    EXPECT_EQ(TextOf(Color(3)), "3");
    EXPECT_EQ(Read<Color>("{#0a14ff}"), "#0A14FF");
    EXPECT_EQ(Read<Color>("'#0a14ff\""), "#0A14FF") << "any opening and any closing mark";
    EXPECT_EQ(Read<Color>("17"), "17");
    EXPECT_EQ(Read<Color>("#0a14f"), "refused");
    EXPECT_EQ(Read<Color>("17x"), "refused");
    EXPECT_EQ(TextOf(Color(0xFFFFFFFE)), "-2") << "an index is written as a signed number";
    EXPECT_EQ(Read<Color>("-2"), "-2");
    EXPECT_EQ(Read<Color>("4294967294"), "-2");
    EXPECT_EQ(Read<Color>("-1"), "refused");
    EXPECT_EQ(Read<Color>("-2147483649"), "refused");
    EXPECT_EQ(Read<Color>("4294967295"), "refused") << "the mark of a color that has components is no index";
    EXPECT_EQ(Read<Color>(qzString(1 << 20, '#')), "refused");
    EXPECT_EQ(Read<qzString>(qzString("a\0b", 3)), qzString("a\0b", 3));
    EXPECT_EQ(TextOf(static_cast<void*>(nullptr)), "0x0");
    EXPECT_EQ(Read<void*>("0x1F"), "0x1f");
    EXPECT_EQ(TextOf(Function(Function::Usage(3), "on change")).find("on change") != qzString::npos, true);
}

TEST(EntityText, TriesItsFormsInOrder) {
    struct Row {
        char const* text;
        EntityFullType type;
        unsigned int id;
    };
    Row const rows[] = {
        {"1 2 3", EntityFullType(1, 2), 3},         {"1 sub 3", EntityFullType(1, "sub"), 3},
        {"GRID 2 3", EntityFullType("GRID", 2), 3}, {"GRID sub 3", EntityFullType("GRID", "sub"), 3},
        {"5 7", EntityFullType(5, 0), 7},           {"GRID 7", EntityFullType("GRID"), 7},
        {"GRID 7 rest", EntityFullType("GRID"), 7}, {"5 4294967295", EntityFullType(5, 0), 4294967295u},
    };
    for (Row const& row : rows) {
        Value value = Of(Entity(EntityFullType("OTHER"), 1, 9));
        EXPECT_TRUE(value.SetValueFromString(row.text)) << row.text;
        EXPECT_EQ(*value.GetValuePointerEntity(), Entity(row.type, row.id)) << row.text;
    }
    for (char const* const text :
         {"", "7", "GRID", "GRID x", "5 3 99999999999", "GRID 4294967296", "5 -3", "-5 3"})
        EXPECT_EQ(Read<Entity>(text), "refused") << text;
}

TEST(EntityText, IsWrittenTypeSubtypeId) {
    EXPECT_EQ(TextOf(Entity()), "0 0");
    EXPECT_EQ(TextOf(Entity(EntityFullType("GRID"), 7, 3)), "GRID 7");
    EXPECT_EQ(TextOf(Entity(EntityFullType(4, "sub"), 7)), "4 sub 7");
    EXPECT_EQ(TextOf(Entity(EntityFullType(4, 9), 7), "%u/%u#%05u"), "4/9#00007");
    EXPECT_EQ(TextOf(Entity(EntityFullType("GRID"), 7), "%s:%d"), "GRID:7");
    EXPECT_EQ(TextOf(Entity(EntityFullType("GRID", 2), 7), "%s:%d"), "refused")
        << "it would lose the subtype";
    EXPECT_EQ(Read<Entity>("GRID:7", "%[A-Z]:%u"), "GRID 7");
    EXPECT_EQ(Read<Entity>("4/9#7", "%u/%u#%u"), "4 9 7");
    EXPECT_EQ(Read<Entity>("4/GRID", "%u/%s"), "refused") << "an id is a number";
    EXPECT_EQ(Read<Entity>("5 7", "%d %d %d"), "5 7")
        << "a format for a subtype also reads a text without one";
    EXPECT_EQ(Read<Entity>("GRID sub x", "%s %s %d"), "refused");
    EXPECT_EQ(Read<Entity>("5 7 4294967296", "%d %d %d"), "refused");
    EXPECT_EQ(TextOf(Qualifier("T", EntityFullType("PSHELL"), 0, 0xFFFFFFFF, 5, 0), "%s %s %d %u %x"),
              "T PSHELL 0 4294967295 5");
}

TEST(QualifierText, HasFiveFieldsOrSix) {
    EXPECT_EQ(TextOf(Qualifier("T", EntityFullType("PSHELL"), 1, 2, 3, 9)), "T PSHELL 1 2 3");
    EXPECT_EQ(TextOf(Qualifier(-4, EntityFullType(7, "sub"), 0, 0xFFFFFFFF, 5, 0)), "-4 7 sub 0 -1 5");
    EXPECT_EQ(Read<Qualifier>("T PSHELL 1 2 3"), "T PSHELL 1 2 3");
    EXPECT_EQ(Read<Qualifier>("-4 7 sub 0 -1 4294967295"), "-4 7 sub 0 -1 -1");
    EXPECT_EQ(Read<Qualifier>("T PSHELL 1 2"), "refused");
    EXPECT_EQ(Read<Qualifier>("2147483648 7 1 2 3"), "refused");
    EXPECT_EQ(Read<Qualifier>("4 -7 1 2 3"), "refused");
}

TEST(CallerFormats, WriteWhatPrintfWrites) {
    EXPECT_EQ(TextOf(2.5, "%.2f"), "2.50");
    EXPECT_EQ(TextOf(2.5, "t = %+08.3lf mm (100%%)"), "t = +002.500 mm (100%)");
    EXPECT_EQ(TextOf(1234567.5, "%'.1f"), "1234567.5");
    EXPECT_EQ(TextOf(255, "%#x"), "0xff");
    EXPECT_EQ(TextOf(-1, "%x"), "ffffffff") << "an int is as wide as an int";
    EXPECT_EQ(TextOf(-1, "%hhd"), "-1");
    EXPECT_EQ(TextOf(4000000000u, "%lld"), "-294967296");
    EXPECT_EQ(TextOf('A', "%c"), "A");
    EXPECT_EQ(TextOf(static_cast<char>(-1)), "-1");
    EXPECT_EQ(TextOf(7, "%+#d"), "+7") << "flags that mean nothing to a conversion are dropped";
    EXPECT_EQ(TextOf(static_cast<unsigned char>(200), "%d %%"), "200 %");
    EXPECT_EQ(TextOf(static_cast<unsigned short>(40000), "%d"), "40000");
    EXPECT_EQ(TextOf(static_cast<short>(-1), "%x"), "ffffffff");
    EXPECT_EQ(TextOf(Color(200, 255, 1), "%d,%d,%d"), "200,255,1");
    EXPECT_EQ(TextOf(65, "%c"), "refused");
    EXPECT_EQ(TextOf(true, "%d %%"), "1 %");
    EXPECT_EQ(TextOf(true, "%6s"), "  true");
    EXPECT_EQ(TextOf(qzString("a\0b", 3), "[%-5.2s]"), qzString("[a\0   ]", 7));
    EXPECT_EQ(TextOf(qzTCouple<int>{1, 2}, "(%d; %d)"), "(1; 2)");
    EXPECT_EQ(TextOf(Color(1, 2, 3), "%d %d %d"), "1 2 3");
    EXPECT_EQ(TextOf(Color(9), "no. %03d"), "no. 009");
    EXPECT_EQ(TextOf(Color(9), "%d %d %d"), "refused");
    EXPECT_EQ(TextOf(2.5, "%1000.1f").size(), 1000u);
    EXPECT_EQ(TextOf(2.5, "%99999999999f"), "refused");
    EXPECT_EQ(TextOf(2.5, "%.2000000000f"), "refused");
    EXPECT_EQ(TextOf(2.5, "%d"), "refused");
    EXPECT_EQ(TextOf(2, "%f"), "refused");
    EXPECT_EQ(TextOf(2, "%s"), "refused");
    EXPECT_EQ(TextOf(qzString("x"), "%d"), "refused");
    EXPECT_EQ(TextOf(qzString("x"), "%s%n"), "refused");
}

TEST(CallerFormats, ReadAsManyFieldsAsThereAreComponents) {
    EXPECT_EQ(Read<double>("t=2.5mm", "t=%lfmm"), "2.5");
    EXPECT_EQ(Read<double>("12345", "%3lf"), "123");
    EXPECT_EQ(Read<float>("1.00000017881393432617187499", "%f"), TextOf(1.00000011920928955078125f));
    EXPECT_EQ(Read<float>("1e39", "%f"), "refused");
    EXPECT_EQ(Read<int>("17 42", "%*d %d"), "42");
    EXPECT_EQ(Read<int>("ff", "%x"), "255");
    EXPECT_EQ(Read<int>("0x1f", "%i"), "31");
    EXPECT_EQ(Read<int>("017", "%i"), "15");
    EXPECT_EQ(Read<int>("1 2", "%d %d"), "refused");
    EXPECT_EQ(Read<int>("1", "%d %n"), "refused");
    EXPECT_EQ(Read<int>("2.5", "%f"), "refused");
    EXPECT_EQ(Read<char>("A", "%c"), "65");
    EXPECT_EQ(Read<unsigned char>("FF", "%2hhX"), "255");
    EXPECT_EQ(Read<bool>("yes true", "%*s %s"), "true");
    EXPECT_EQ(Read<bool>("1", "%d"), "true");
    EXPECT_EQ(Read<bool>("2", "%d"), "refused");
    EXPECT_EQ(Read<qzString>("  word rest", "%s"), "word");
    EXPECT_EQ(Read<qzString>("  word rest", "%[^\n]"), "  word rest");
    EXPECT_EQ(Read<qzString>("a]-b", "%[]a-]"), "a]-");
    EXPECT_EQ(Read<qzString>("abc", "%2c"), "ab");
    EXPECT_EQ(Read<qzString>("abc", "%4c"), "refused");
    EXPECT_EQ(Read<qzString>("abc", "%[a-"), "refused");
    EXPECT_EQ(Read<qzString>("abc", "%0s"), "refused");
    EXPECT_EQ(Read<qzString>(qzString(1 << 20, 'x'), "%s").size(), std::size_t{1} << 20);
    EXPECT_EQ(Read<Color>("1 2 3", "%d %d %d"), "#010203");
    EXPECT_EQ(Read<Color>("1 2 256", "%d %d %d"), "refused");
    EXPECT_EQ(Read<Color>("no. 9", "no. %u"), "9");
    EXPECT_EQ(Read<double>("50%", "%lf%%"), "50");
    EXPECT_EQ(Read<double>("50", "%lf%% of it"), "50") << "only fields are counted";
    EXPECT_EQ(Read<int>("5 kg", "%d mm"), "5");
    EXPECT_EQ(Read<int>("kg 5", "mm %d"), "refused");
    EXPECT_EQ(Read<int>("x5", "%*d %d"), "refused");
}

TEST(CallerFormats, MayLieInTheTextThatIsWritten) {
    qzString text = "t = %.2f";
    EXPECT_TRUE(Of(2.5).GetValueAsString(text, text.c_str()));
    EXPECT_EQ(text, "t = 2.50");
}

// Whatever stands in a format or a text, the answer is yes or no.
TEST(CallerFormats, OfAnyShapeDoNoHarm) {
    std::mt19937 random(7);
    char const alphabet[] = "%%%%*dsifgxcnp[]^-+ #'.0123456789lhLaz\\";
    Value values[] = {Of(2.5),
                      Of(7),
                      Of(qzString("text")),
                      Of(true),
                      Of(Color(1, 2, 3)),
                      Of(qzTCouple<int>{1, 2}),
                      Of(Entity(EntityFullType("GRID"), 4)),
                      Of(static_cast<void*>(values))};
    int written = 0;
    for (int k = 0; k < 200000; ++k) {
        qzString format, text;
        for (unsigned long n = random() % 12; n-- > 0;)
            format += alphabet[random() % (sizeof alphabet - 1)];
        for (unsigned long n = random() % 12; n-- > 0;)
            text += static_cast<char>(random());
        Value value(values[random() % std::size(values)]);
        qzString out = "before";
        if (value.GetValueAsString(out, format.c_str()))
            ++written;
        else
            ASSERT_EQ(out, "");
        Value const before(value);
        ASSERT_TRUE(value.SetValueFromString(text, format.c_str()) || value == before);
        ASSERT_TRUE(value.SetValueFromString(text) || before.GetValuePointerString() == nullptr);
    }
    EXPECT_GT(written, 1000) << "enough of the formats are good ones";
}

} // namespace
} // namespace qzDescriptor::test
