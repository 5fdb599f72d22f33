#include "descriptor/Allowables.h"
#include "qzutl/qzStlVector.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace qzDescriptor;

namespace {

template <class T>
class BoundsOf : public testing::Test {
public:
    using Limits = std::numeric_limits<T>;

    static std::vector<T> Interesting() {
        std::vector<T> values{Limits::lowest(),
                              static_cast<T>(Limits::lowest() + 1),
                              0,
                              1,
                              10,
                              static_cast<T>(Limits::max() - 1),
                              Limits::max()};
        if constexpr (std::is_floating_point_v<T>)
            values.insert(values.end(), {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                                         Limits::denorm_min(), -T(0)});
        return values;
    }

    /// What a rule means, in a type that holds every value of every T: NaN violates nothing.
    static bool IsViolated(T x, int rule, T bound) {
        auto const value = static_cast<long double>(x), limit = static_cast<long double>(bound);
        switch (rule) {
        case 0:
            return value > limit || value == limit;
        case 1:
            return value > limit;
        case 2:
            return value < limit || value == limit;
        case 3:
            return value < limit;
        default:
            return false;
        }
    }
};

using Numbers = testing::Types<char, unsigned char, short, unsigned short, int, unsigned int, long,
                               unsigned long, float, double>;
TYPED_TEST_SUITE(BoundsOf, Numbers);

TYPED_TEST(BoundsOf, EveryRuleHoldsAtEveryExtreme) {
    using T = TypeParam;
    for (T const limit : this->Interesting()) {
        for (int const rule : {0, 1, 2, 3, 4, -1}) {
            BoundT<T> const bound(limit, static_cast<typename BoundT<T>::Rule>(rule));
            for (T const x : this->Interesting())
                EXPECT_EQ(bound.Test(x), this->IsViolated(x, rule, limit) ? 1 : 0)
                    << +x << " rule " << rule << " bound " << +limit;
        }
    }
    EXPECT_EQ(BoundT<T>().Test(5), 0);
}

// One to three bounds, set or not, with every value as the default: refused are just the values that violate
// one of them, and an excluded default is told from the rest.
TYPED_TEST(BoundsOf, ManyBoundsRefuseWhatOneOfThemRefuses) {
    using T = TypeParam;
    using Bound = BoundT<T>;
    auto const values = this->Interesting();
    for (T const a : values) {
        for (int const rule : {0, 1, 2, 3}) {
            Bound const first(a, static_cast<typename Bound::Rule>(rule));
            Bound const second(static_cast<T>(10), static_cast<typename Bound::Rule>(3 - rule));
            Bound const third(static_cast<T>(100), Bound::LessOrEqual);
            for (qzStlVector<Bound> const& bounds : {qzStlVector<Bound>{first},
                                                     {first, second},
                                                     {second, first},
                                                     {Bound(), third, first, second}}) {
                for (T const defaultValue : values) {
                    Allowables const allowables(bounds, defaultValue);
                    for (T const x : values) {
                        bool violated = false, excluded = false;
                        for (Bound const& bound : bounds) {
                            violated = violated || bound.Test(x) != 0;
                            excluded = excluded || bound.Test(defaultValue) != 0;
                        }
                        int const expected = excluded && x == defaultValue ? 2 : violated ? 1 : 0;
                        ASSERT_EQ(allowables.Test(x), expected) << +x << " of default " << +defaultValue;
                    }
                }
            }
        }
    }
}

TYPED_TEST(BoundsOf, RulesAreTwoBits) {
    using Bound = BoundT<TypeParam>;
    for (int const rule : {0, 1, 2, 3}) {
        bool greater = rule < 2, orEqual = rule % 2 == 0;
        TypeParam value{};
        ASSERT_TRUE(Bound(7, (rule & 2) != 0, (rule & 1) != 0).GetValueAndRule(value, greater, orEqual));
        EXPECT_EQ(value, TypeParam(7));
        EXPECT_EQ((greater ? 2 : 0) + (orEqual ? 1 : 0), rule);
        EXPECT_EQ(Bound(7, static_cast<typename Bound::Rule>(rule)), Bound(7, greater, orEqual));
    }
    TypeParam value(3);
    auto rule = Bound::GreaterOrEqual;
    bool greater = true, orEqual = true;
    EXPECT_FALSE(Bound().GetValueAndRule(value, rule));
    EXPECT_FALSE(Bound().GetValueAndRule(value, greater, orEqual));
    EXPECT_TRUE(value == TypeParam(3) && rule == Bound::GreaterOrEqual && greater && orEqual);
    EXPECT_NE(Bound(), Bound(0, Bound::Less)); // one of them is not set
}

using RealBound = BoundT<double>;
constexpr char const* s_initial = "Value does not lie within allowable range.";

TEST(FailureMessage, SaysWhatOneOrTwoBoundsAllow) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        qzStlVector<RealBound> bounds;
        double refused;
        char const* message;
    };
    Case const cases[] = {
        {{RealBound(10, RealBound::Less)}, 15, "Input of 15 violates: VALUE < 10"},
        {{RealBound(10, RealBound::LessOrEqual)}, 10.5, "Input of 10.5 violates: VALUE <= 10"},
        {{RealBound(-2.5, RealBound::Greater)}, -2.5, "Input of -2.5 violates: VALUE > -2.5"},
        {{RealBound(-1e20, RealBound::GreaterOrEqual)}, -1e21, "Input of -1e+21 violates: VALUE >= -1e+20"},
        {{RealBound(0, RealBound::GreaterOrEqual), RealBound(10, RealBound::Less)},
         12,
         "Input of 12 violates: 0 <= VALUE < 10"},
        {{RealBound(10, RealBound::Less), RealBound(0, RealBound::GreaterOrEqual)},
         12,
         "Input of 12 violates: 0 <= VALUE < 10"},
        {{RealBound(10, RealBound::LessOrEqual), RealBound(0, RealBound::Greater)},
         0,
         "Input of 0 violates: 0 < VALUE <= 10"},
        {{RealBound(), RealBound(10, RealBound::Less)}, 15, "Input of 15 violates: VALUE < 10"},
        {{RealBound(10, RealBound::Less), RealBound(12, RealBound::Less)}, 15, s_initial},
        {{RealBound(0, RealBound::Greater), RealBound(nan, RealBound::Less), RealBound(9, RealBound::Less)},
         15,
         s_initial},
    };
    for (Case const& c : cases) {
        Allowables const allowables(c.bounds, 5.0);
        EXPECT_EQ(allowables.GetFailureMessage(), s_initial);
        EXPECT_EQ(allowables.Test(c.refused), 1) << c.message;
        EXPECT_EQ(allowables.Test(5.0), 0); // a pass leaves the message alone
        EXPECT_EQ(allowables.GetFailureMessage(), c.message);
        EXPECT_EQ(Allowables(allowables).GetFailureMessage(), c.message);
    }
}

TEST(FailureMessage, ShowsCharactersAsNumbersAndKeepsWhatWasSetUntilTheNextRefusal) {
    Allowables letters(BoundT<char>('A', BoundT<char>::Greater), 'B');
    letters.SetFailureMessage("not a letter");
    EXPECT_EQ(letters.Test('B'), 0);
    EXPECT_EQ(letters.GetFailureMessage(), "not a letter");
    EXPECT_EQ(letters.Test('A'), 1);
    EXPECT_EQ(letters.GetFailureMessage(), "Input of 65 violates: VALUE > 65");
    letters.SetFailureMessage("no");
    EXPECT_EQ(letters.GetFailureMessage(), "no");
}

TEST(FailureMessage, ExplainsAnExcludedDefaultToo) {
    Allowables const area(RealBound(0, RealBound::Greater), 0.0);
    EXPECT_EQ(area.Test(0.0), 2);
    EXPECT_EQ(area.GetFailureMessage(), "Input of 0 violates: VALUE > 0");
    EXPECT_EQ(area.Test(-0.0), 2);
    EXPECT_EQ(area.Test(-1.0), 1);
    EXPECT_EQ(area.Test(1.0), 0);
}

TEST(Bounds, AreGivenBackAndNotCounted) {
    qzStlVector<RealBound> const bounds{RealBound(0, RealBound::Greater), RealBound(),
                                        RealBound(9, RealBound::Less)};
    Allowables const allowables(bounds, 5.0);
    qzStlVector<RealBound> read;
    EXPECT_TRUE(allowables.HaveBounds() && allowables.Enforceable() && !allowables.HaveList());
    EXPECT_TRUE(allowables.GetBounds(read));
    EXPECT_EQ(read, bounds);
    EXPECT_EQ(allowables.GetBoundsCount(), 0u);
}

// What comes and what stays must decide together whether the default lies outside.
TEST(Bounds, AreCopiedWithOrWithoutTheDefault) {
    Allowables const source(RealBound(10, RealBound::Greater), 3.0);
    struct Case {
        bool bounds, takeDefault;
        int ofThree, ofFive, ofTwelve;
    };
    for (Case const& c : {Case{false, false, 0, 0, 1},
                          {true, false, 1, 2, 0},
                          {false, true, 0, 0, 1},
                          {true, true, 2, 1, 0}}) {
        Allowables target(RealBound(10, RealBound::Less), 5.0);
        ASSERT_TRUE(target.Copy(source, c.bounds, c.takeDefault));
        EXPECT_EQ(target.Test(3.0), c.ofThree);
        EXPECT_EQ(target.Test(5.0), c.ofFive);
        EXPECT_EQ(target.Test(12.0), c.ofTwelve);
    }
    Allowables target(RealBound(10, RealBound::Less), 5.0);
    Allowables const before(target);
    for (Allowables const& other :
         {Allowables(), Allowables(3.0), Allowables(BoundT<float>(1, true, true), 2.f)})
        EXPECT_FALSE(target.Copy(other, true, true));
    EXPECT_EQ(target, before);
}

TEST(Bounds, AreTestedByManyThreadsAtOnce) {
    Allowables const shared(RealBound(10, RealBound::Less), 5.0);
    RunThreads(4, [&](unsigned int thread) {
        for (int k = 0; k < 2000; ++k) {
            double const refused = 20.0 + thread;
            EXPECT_EQ(shared.Test(refused), 1);
            EXPECT_EQ(shared.Test(9.0), 0);
            qzString const message = shared.GetFailureMessage();
            EXPECT_TRUE(message.starts_with("Input of 2") && message.ends_with(" violates: VALUE < 10"));
        }
    });
}

} // namespace
