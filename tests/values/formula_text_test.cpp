#include "descriptor/FormulaText.h"

#include "descriptor/Clause.h"
#include "descriptor/EntityFullType.h"
#include "descriptor/Formula.h"
#include "descriptor/Function.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <locale>
#include <utility>
#include <vector>

using namespace qzDescriptor;
using namespace std::string_literals;

namespace {

EntityFullType::TopologyType Topology(int code) { return EntityFullType::TopologyType{code}; }

Formula Make(EntityFullType const& type, std::vector<std::pair<Clause, bool>> const& clauses) {
    Formula formula(type);
    for (auto const& [clause, addition] : clauses)
        formula.PushBackClause(clause, type, addition);
    return formula;
}

/// What stands between bars.
std::vector<qzString> Split(qzString const& text) {
    std::vector<qzString> parts(1);
    for (char const c : text) {
        if (c == '|')
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

TEST(ClauseText, IsWrittenAndReadBack) {
    std::pair<Clause, qzString> const cases[] = {
        {Clause(), "none()"},
        {Clause::FromIdRange(10, 20, 5), "range(10 20 5)"},
        {Clause::FromIdRange(1, 100), "range(1 100)"},
        {Clause::FromIdRange(20, 10, 0), "range(20 10 0)"},
        {Clause::FromIdRange(0, 0xFFFFFFFF, 0xFFFFFFFF), "range(0 4294967295 4294967295)"},
        {Clause::FromIdList({}), "ids()"},
        {Clause::FromIdList({7, 1, 1, 4294967295}), "ids(7 1 1 4294967295)"},
        {Clause::FromName(""), R"(name(""))"},
        {Clause::FromName("wing"), R"(name("wing"))"},
        {Clause::FromName(R"(wing "left" \ right)"), R"(name("wing \"left\" \\ right"))"},
        {Clause::FromName("a\0\n\x7F\xC3\xA9)"s), "name(\"a\\x00\\x0A\\x7F\xC3\xA9)\")"},
        {Clause::FromColor(Color(10, 20, 255)), "color(#0A14FF)"},
        {Clause::FromColor(Color(3)), "color(3)"},
        {Clause::FromColor(Color(0xFFFFFFFE)), "color(4294967294)"},
    };
    for (auto const& [clause, text] : cases) {
        EXPECT_EQ(clause.GetAsString(), text);
        Clause read = Clause::FromName("before");
        EXPECT_TRUE(read.SetFromString(text)) << text;
        EXPECT_EQ(read, clause) << text;
    }
}

TEST(ClauseText, MayBeWrittenMoreFreely) {
    std::pair<qzString, Clause> const cases[] = {
        {"\t ids \r\n( 1\n2 )  ", Clause::FromIdList({1, 2})},
        {"range(1 3 1)", Clause::FromIdRange(1, 3)},
        {"range(001 3)", Clause::FromIdRange(1, 3)},
        {"name(wing_2.a)", Clause::FromName("wing_2.a")},
        {"name(\"raw\n\0bytes\")"s, Clause::FromName("raw\n\0bytes"s)},
        {R"(name("\xe9"))", Clause::FromName("\xE9")},
        {"color(#0a14fF)", Clause::FromColor(Color(10, 20, 255))},
    };
    for (auto const& [text, clause] : cases) {
        Clause read;
        EXPECT_TRUE(read.SetFromString(text)) << text;
        EXPECT_EQ(read, clause) << text;
    }
}

TEST(ClauseText, RefusesEverythingElse) {
    for (
        qzString const& text : Split(
            "| |none|none(|none(1)|None()|ids|ids(1|ids(1,2)|ids(-1)|ids(+1)|ids(1a)|ids(0x1)|ids(1.5)|"
            "ids(4294967296)|ids(99999999999999999999)|ids(1))|ids(1) 2|range()|range(1)|range(1 2 3 4)|"
            "range(1 2 4294967296)|name()|name(2a)|name(a b)|name(\")|name(\"a)|name(\"\\\")|name(\"\\n\")|"
            "name(\"\\x0\")|name(\"\\xG0\")|name(\"\\x-1\")|name(\"a\"b)|color()|color(#)|color(#0A14F)|"
            "color(#0A14FF0)|color(#0A14FG)|color(# 0A14FF)|color(4294967295)|color(red)|ids(1)\0|\0ids(1)"s)) {
        Clause clause = Clause::FromName("before");
        EXPECT_FALSE(clause.SetFromString(text)) << testing::PrintToString(text);
        EXPECT_EQ(clause, Clause::FromName("before"));
    }
}

TEST(FormulaText, IsWrittenAndReadBack) {
    EntityFullType const grid("GRID");
    Formula sources = Make(grid, {{Clause::FromIdRange(10, 20, 5), true}});
    sources.PushBackClause(Clause::FromIdList({1, 2, 7}), EntityFullType("SET"), false);
    sources.PushBackClause(Clause(), EntityFullType(), true);
    sources.PushBackClause(Clause(), EntityFullType(Topology(-1), 12, "a b"), true);

    std::pair<Formula, qzString> const cases[] = {
        {Formula(), "none()"},
        {Formula(EntityFullType()), "0:"},
        {Formula(grid), "GRID:"},
        {Formula(EntityFullType("none")), "none:"},
        {Formula(EntityFullType(4294967295, 3)), "4294967295/3:"},
        {Formula(EntityFullType("4294967295", "3")), R"("4294967295"/"3":)"},
        {Formula(EntityFullType(0, "S")), "0/S:"},
        {Formula(EntityFullType("wing panel", "a/b[2]:")), R"("wing panel"/"a/b[2]:":)"},
        {Formula(EntityFullType(Topology(2), "SHELL", "Q4")), "SHELL/Q4[2]:"},
        {Formula(EntityFullType(Topology(-2147483647 - 1), 5, 0)), "5[-2147483648]:"},
        {Make(grid, {{Clause::FromName("+ids(1)@X"), true}}), R"(GRID: +name("+ids(1)@X"))"},
        {sources, R"(GRID: +range(10 20 5) -ids(1 2 7)@SET +none()@0 +none()@12/"a b"[-1])"},
    };
    for (auto const& [formula, text] : cases) {
        EXPECT_EQ(GetAsString(formula), text);
        Formula read(EntityFullType("before"));
        EXPECT_TRUE(SetFromString(read, text)) << text;
        EXPECT_EQ(read, formula) << text;
        EXPECT_EQ(GetAsString(read), text) << "the topology kinds, which take no part in equality";
    }
}

TEST(FormulaText, MayBeWrittenMoreFreely) {
    std::pair<qzString, qzString> const cases[] = {
        {"GRID:+ids(1)-ids(2)", "GRID: +ids(1) -ids(2)"},
        {" \"GRID\" / 0 [ 0 ] :\n + ids ( 1 ) @ GRID\t", "GRID: +ids(1)"},
        {"none ( )", "none()"},
        {"007/008:", "7/8:"},
        {"\"\":", "0:"},
    };
    for (auto const& [text, canonical] : cases) {
        Formula read;
        EXPECT_TRUE(SetFromString(read, text)) << text;
        EXPECT_EQ(GetAsString(read), canonical);
    }
}

TEST(FormulaText, RefusesEverythingElse) {
    for (qzString const& text : Split(
             "|GRID|:|none|none()x|none() none()|GRID: SET:|GRID/: "
             "|GRID[]:|GRID[x]:|GRID[1:|GRID[2147483648]:|"
             "4294967296:|-1:|1/4294967296:|GRID: ids(1)|GRID: +|GRID: +-ids(1)|GRID: +ids(1)@|"
             "GRID: +ids(1)@@A|GRID: +ids(1) ids(2)|GRID: +ids(1)@A:|12a:|a b:|\xE9:|GRID: +ids(4294967296)|"
             "GRID:\0"s)) {
        Formula formula(EntityFullType("before"));
        EXPECT_FALSE(SetFromString(formula, text)) << testing::PrintToString(text);
        EXPECT_EQ(formula, Formula(EntityFullType("before")));
    }
}

qzString MakeRandomName(Random& random) {
    qzString name;
    for (unsigned int length = random.Below(6); length > 0; --length)
        name += random.Chance(2) ? random.Pick("ab_.09\"\\/[]:@ +-()#\n"s + '\0')
                                 : static_cast<char>(random.Below(256));
    return name;
}

EntityFullType MakeRandomType(Random& random) {
    auto const topology = Topology(random.Chance(3) ? static_cast<int>(random.Below(7)) - 3 : 0);
    switch (random.Below(4)) {
    case 0:
        return EntityFullType(topology, random.Below(3), random.Below(3));
    case 1:
        return EntityFullType(topology, MakeRandomName(random), random.Below(3));
    case 2:
        return EntityFullType(topology, random.Below(3), MakeRandomName(random));
    default:
        return EntityFullType(topology, MakeRandomName(random), MakeRandomName(random));
    }
}

Clause MakeRandomClause(Random& random) {
    switch (random.Below(6)) {
    case 0:
        return Clause();
    case 1:
        return Clause::FromIdRange(random.Below(9), random.Below(9), random.Below(3));
    case 2:
        return Clause::FromName(MakeRandomName(random));
    case 3:
        return Clause::FromColor(Color(random.Below(0xFFFFFFFF)));
    case 4: {
        auto const component = [&random] { return static_cast<unsigned char>(random.Below(256)); };
        return Clause::FromColor(Color(component(), component(), component()));
    }
    default:
        return Clause::FromIdList(qzStlVector<unsigned int>(random.Below(4), random.Below(0xFFFFFFFF)));
    }
}

Formula MakeRandomFormula(Random& random) {
    Formula formula(MakeRandomType(random));
    for (unsigned int count = random.Below(4); count > 0; --count) {
        auto const source = random.Chance(2) ? formula.GetEntityFullType() : MakeRandomType(random);
        formula.PushBackClause(MakeRandomClause(random), source, random.Chance(2));
    }
    return formula;
}

TEST(FormulaText, RoundTripsAnyBytes) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 3000; ++round) {
        Formula const formula = MakeRandomFormula(random);
        qzString const text = GetAsString(formula);
        Formula read;
        ASSERT_TRUE(SetFromString(read, text)) << testing::PrintToString(text);
        ASSERT_EQ(read, formula) << testing::PrintToString(text);
        ASSERT_EQ(GetAsString(read), text);
    }
}

/// A text is either refused, and then nothing changes, or read as a formula that it also is when written.
void ExpectReadOrRefused(qzString const& text) {
    Formula const before(EntityFullType("before"));
    Formula formula = before;
    if (!SetFromString(formula, text)) {
        ASSERT_EQ(formula, before) << testing::PrintToString(text);
        return;
    }
    Formula again;
    ASSERT_TRUE(SetFromString(again, GetAsString(formula))) << testing::PrintToString(text);
    ASSERT_EQ(again, formula) << testing::PrintToString(text);
}

TEST(FormulaText, SurvivesEveryPrefixAndManyDamages) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 300; ++round) {
        qzString const text = GetAsString(MakeRandomFormula(random));
        for (std::size_t length = 0; length < text.size(); ++length) {
            ExpectReadOrRefused(text.substr(0, length));
            qzString damaged = text;
            damaged[length] = random.Pick("01\"\\()@:/[]+-# x\0"s);
            ExpectReadOrRefused(damaged);
            ExpectReadOrRefused(qzString(text).erase(length, 1 + random.Below(3)));
        }
    }
}

qzString Repeat(qzString const& part, std::size_t size) {
    qzString text;
    while (text.size() < size)
        text += part;
    return text;
}

TEST(FormulaText, OfAMegabyteIsRead) {
    constexpr std::size_t size = 1 << 20;
    qzString const texts[] = {
        "GRID: +ids(7" + Repeat(" 4294967295 1", size) + ")",
        "GRID: +name(\"" + Repeat(R"(\"\x00)", size) + "\")",
        "GRID:" + Repeat(" +ids(7) -range(1 2)@SET", size),
        // Were the name kept for each clause, this would take gigabytes.
        Repeat("x", size / 2) + ":" + Repeat(" +ids(7)", size / 2),
    };
    for (qzString const& text : texts) {
        Formula formula;
        EXPECT_TRUE(SetFromString(formula, text));
        EXPECT_EQ(GetAsString(formula), text);
        EXPECT_FALSE(SetFromString(formula, text + '('));
    }
    Formula formula;
    for (char const c : "(\"\\+-@:/[0 "s)
        EXPECT_FALSE(SetFromString(formula, qzString(size, c))) << c;
}

TEST(FormulaText, DoesNotDependOnTheLocale) {
    struct Grouping : std::numpunct<char> {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    auto const formula = Make(EntityFullType(1234567), {{Clause::FromIdRange(1000, 1000000, 7000), true}});
    std::locale const before = std::locale::global(std::locale(std::locale(), new Grouping));
    qzString const text = GetAsString(formula);
    Formula read;
    bool const isRead = SetFromString(read, text);
    std::locale::global(before);
    EXPECT_EQ(text, "1234567: +range(1000 1000000 7000)");
    EXPECT_TRUE(isRead);
    EXPECT_EQ(read, formula);
}

TEST(FunctionText, ShowsWhatTheFunctionHas) {
    int target = 0;
    EXPECT_EQ(GetAsString(Function()), "function(0)");
    EXPECT_EQ(GetAsString(Function(Function::Usage{3}, "on \"change\"")),
              R"(function(3 tcl("on \"change\"")))");
    EXPECT_EQ(GetAsString(Function(Function::Usage{-2}, nullptr, "OnChange")),
              R"(function(-2 native("OnChange")))");
    EXPECT_EQ(GetAsString(Function(Function::Usage{3}, "on change", &target, "OnChange")),
              R"(function(3 tcl("on change") native("OnChange") callback))");
}

} // namespace
