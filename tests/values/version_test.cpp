#include "descriptor/Version.h"
#include "support/Random.h"
#include "values/identities/VersionScanner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <stdexcept>
#include <tuple>
#include <vector>

using namespace qzDescriptor;
using namespace std::string_literals;

namespace {

using Fields = std::tuple<unsigned int, unsigned int, unsigned int, qzString, qzString>;

Fields GetFields(Version const& version) {
    return {version.GetMajor(), version.GetMinor(), version.GetPatch(), version.GetPreRelease(),
            version.GetBuild()};
}

TEST(Version, ReadsItsFields) {
    std::pair<qzString, Fields> const cases[] = {
        {"0.0.0", {0, 0, 0, "", ""}},
        {"1.2.3", {1, 2, 3, "", ""}},
        {"10.20.4294967295", {10, 20, 0xFFFFFFFF, "", ""}},
        {"1.0.0-alpha", {1, 0, 0, "alpha", ""}},
        {"1.0.0-0.3.7", {1, 0, 0, "0.3.7", ""}},
        {"1.0.0-0a.-.--1", {1, 0, 0, "0a.-.--1", ""}},
        {"1.4.0-beta.2+b17", {1, 4, 0, "beta.2", "b17"}},
        {"1.0.0+001.-", {1, 0, 0, "", "001.-"}},
        {"1.0.0+a-b", {1, 0, 0, "", "a-b"}},
    };
    for (auto const& [text, fields] : cases) {
        EXPECT_TRUE(Version::IsValid(text)) << text;
        EXPECT_EQ(GetFields(Version(text)), fields) << text;
        EXPECT_EQ(Version(text).GetString(), text);
    }
}

TEST(Version, OfAnInvalidTextIsZeroThroughout) {
    // Which ones are invalid is a question for the scanner.
    for (qzString const& text :
         {""s, "01.2.3"s, " 1.2.3"s, "v1.2.3"s, "1.2.3-01"s, "1.2.3\0"s, "1.2.3-\xE9"s}) {
        EXPECT_FALSE(Version::IsValid(text)) << testing::PrintToString(text);
        EXPECT_EQ(GetFields(Version(text)), Fields(0, 0, 0, "", "")) << testing::PrintToString(text);
    }
}

TEST(Version, DefaultIsTheFirstPatch) {
    EXPECT_EQ(Version().GetString(), "0.0.1");
    EXPECT_LT(Version("no version"), Version());
}

TEST(Version, OrderPutsAReleaseBeforeItsPreReleasesAndCountsTheBuild) {
    std::vector<qzString> const ascending = {
        "0.0.0",       "0.0.1",          "0.0.2",         "0.1.0",    "0.9.9",         "0.10.0",
        "1.2.3",       "1.2.3+b1",       "1.2.3+b2",      "1.2.3-10", "1.2.3-2",       "1.2.3-ALPHA",
        "1.2.3-alpha", "1.2.3-alpha+b1", "1.2.3-alpha.1", "2.0.0",    "4294967295.0.0"};
    for (std::size_t i = 0; i < ascending.size(); ++i)
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            Version const a(ascending[i]);
            Version const b(ascending[j]);
            SCOPED_TRACE(ascending[i] + " and " + ascending[j]);
            EXPECT_EQ(a < b, i < j);
            EXPECT_EQ(a <= b, i <= j);
            EXPECT_EQ(a > b, i > j);
            EXPECT_EQ(a >= b, i >= j);
            EXPECT_EQ(a == b, i == j);
            EXPECT_EQ(a != b, i != j);
        }
}

TEST(Version, RefusesNumbersBeyond32BitsByThrowing) {
    for (qzString const& text : {"4294967296.0.0"s, "0.4294967296.0"s, "0.0.18446744073709551616"s,
                                 "1.0."s + qzString(100000, '9')}) {
        EXPECT_TRUE(Version::IsValid(text));
        try {
            Version const version(text);
            FAIL() << text << " was read as " << version.GetString();
        } catch (std::out_of_range const& error) {
            EXPECT_STREQ(error.what(), "stoul argument out of range");
        }
    }
}

TEST(Version, ReadsTextsOfAnyLength) {
    for (std::size_t const length : {200U, 249U, 250U, 251U, 252U, 1000U, 1000000U}) {
        qzString const label(length, '7');
        EXPECT_EQ(GetFields(Version("1.2.3-" + label)), Fields(1, 2, 3, label, ""));
        EXPECT_EQ(GetFields(Version("1.2.3-a." + label + "+0" + label)),
                  Fields(1, 2, 3, "a." + label, "0" + label));
        EXPECT_FALSE(Version::IsValid("1.2.3-0" + label));
        EXPECT_FALSE(Version::IsValid("1.2.3-" + label + "."));
        EXPECT_FALSE(Version::IsValid("1.2.3-" + label + "\n"));
    }
}

/// What a version is, as a regular expression.
bool MatchExpression(qzString const& text, VersionParts& parts) {
    static std::regex const expression(
        R"(^(0|[1-9]\d*)\.(0|[1-9]\d*)\.(0|[1-9]\d*)(?:-((?:0|[1-9]\d*|\d*[a-zA-Z-][0-9a-zA-Z-]*)(?:\.(?:0|[1-9]\d*|\d*[a-zA-Z-][0-9a-zA-Z-]*))*))?(?:\+([0-9a-zA-Z-]+(?:\.[0-9a-zA-Z-]+)*))?$)");
    std::smatch match;
    if (!std::regex_match(text, match, expression))
        return false;
    auto const group = [&](std::size_t i) { return std::string_view(match[i].first, match[i].second); };
    parts = {{group(1), group(2), group(3)}, group(4), group(5)};
    return true;
}

void ExpectScannerToAgree(qzString const& text) {
    VersionParts expected;
    VersionParts scanned;
    bool const valid = MatchExpression(text, expected);
    ASSERT_EQ(VersionScanner(text).Scan(scanned), valid) << testing::PrintToString(text);
    ASSERT_EQ(Version::IsValid(text), valid) << testing::PrintToString(text);
    if (valid) {
        ASSERT_EQ(scanned, expected) << testing::PrintToString(text);
    }
}

TEST(VersionScanner, AgreesWithTheExpressionOnEveryShortEnding) {
    constexpr std::string_view alphabet = "01a-.+";
    std::vector<qzString> endings = {""};
    for (std::size_t i = 0; i < endings.size(); ++i) {
        ExpectScannerToAgree("1.2.3" + endings[i]);
        ExpectScannerToAgree("1.2" + endings[i]);
        if (endings[i].size() < 5)
            for (char const c : alphabet)
                endings.push_back(endings[i] + c);
    }
}

TEST(VersionScanner, AgreesWithTheExpressionOnDamagedVersions) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 5000; ++round) {
        qzString text = random.Pick({"1.0.0"s, "10.20.30-rc.1+exp.sha-5114f85"s, "0.1.9-0a.0.x-y.10"s,
                                     "1.2.3----R-S.12.9.1--.12+meta"s, "7.0.0+0.build.1-rc.10000aaa-kk"s});
        for (unsigned int damage = random.Below(4); damage > 0; --damage) {
            std::size_t const at = random.Below(static_cast<unsigned int>(text.size()) + 1);
            char const c = random.Pick("0019.-+aZ_ \n/:@[`{"s);
            switch (random.Below(3)) {
            case 0:
                text.insert(at, 1, c);
                break;
            case 1:
                text.erase(at, 1 + random.Below(2));
                break;
            default:
                text.replace(at, 1, 1, c);
                break;
            }
        }
        ExpectScannerToAgree(text);
    }
}

} // namespace
