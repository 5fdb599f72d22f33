#include "descriptor/Allowables.h"
#include "support/Random.h"
#include "support/samples.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace qzDescriptor;
using namespace qzDescriptor::test;

namespace {

constexpr unsigned int s_all = 0xFFFFFFFF;

/// One of the two lists, as it is told: entries in order, and the index of the default.
struct ListModel {
    std::vector<std::pair<int, qzString>> entries;
    unsigned int defaultIndex = 0;

    bool Remove(unsigned int index) {
        if (index == s_all) {
            bool const any = !entries.empty();
            *this = {};
            return any;
        }
        if (index >= entries.size())
            return false;
        entries.erase(entries.begin() + index);
        defaultIndex = defaultIndex == index ? 0 : defaultIndex > index ? defaultIndex - 1 : defaultIndex;
        return true;
    }
};

void ExpectEqual(Allowables const& allowables, ListModel const& model) {
    Allowables::List<int> list;
    qzStlVector<int> values;
    qzStlVector<qzString> names;
    unsigned int index = 1, valueIndex = 1, nameIndex = 1;
    ASSERT_TRUE(allowables.GetList(list, index) && allowables.GetValueList(values, valueIndex) &&
                allowables.GetNameList(names, nameIndex));
    ASSERT_EQ(list.size(), model.entries.size());
    ASSERT_EQ(allowables.GetListCount(), model.entries.size());
    for (unsigned int i = 0; i < list.size(); ++i) {
        ASSERT_EQ(list[i], model.entries[i]);
        ASSERT_TRUE(values[i] == list[i].first && names[i] == list[i].second);
        ASSERT_EQ(allowables.GetListItemName(i), names[i]);
    }
    ASSERT_TRUE(index == model.defaultIndex && valueIndex == index && nameIndex == index);
    int defaultValue = -7;
    bool const hasDefault = model.defaultIndex < model.entries.size();
    ASSERT_EQ(allowables.GetDefault(defaultValue), hasDefault);
    ASSERT_EQ(defaultValue, hasDefault ? model.entries[model.defaultIndex].first : -7);
    for (int x = 0; x < 8; ++x) {
        bool const listed = std::any_of(model.entries.begin(), model.entries.end(),
                                        [&](auto const& entry) { return entry.first == x; });
        ASSERT_EQ(allowables.Test(x), listed ? 0 : 1);
    }
}

TEST(AllowedLists, FollowTheModelThroughRandomOperations) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    Allowables allowables(Allowables::List<int>(), 0);
    ListModel models[2];
    for (int step = 0; step < 5000; ++step) {
        bool const extra = allowables.GetOperateOnExtra();
        ListModel& model = models[extra ? 1 : 0];
        unsigned int const index = random.Below(static_cast<unsigned int>(model.entries.size()) + 3);
        switch (random.Below(12)) {
        default: {
            int const value = static_cast<int>(random.Below(8));
            qzString const name = random.Chance(3) ? qzString() : "n" + std::to_string(random.Below(9));
            ASSERT_EQ(&allowables.AddToList(value, name), &allowables);
            model.entries.emplace_back(value, name.empty() ? std::to_string(value) : name);
            break;
        }
        case 0:
        case 1:
        case 2:
        case 3:
            ASSERT_EQ(allowables.RemoveFromList(index), model.Remove(index));
            break;
        case 4:
            if (random.Chance(10)) {
                ASSERT_EQ(allowables.RemoveFromList(s_all), model.Remove(s_all));
            }
            break;
        case 5:
            allowables.SetDefaultIdx(index);
            model.defaultIndex = index;
            break;
        case 6: {
            bool const isThere = index < model.entries.size();
            ASSERT_EQ(allowables.SetListItemName(index, "renamed"), isThere);
            if (isThere)
                model.entries[index].second = "renamed";
            break;
        }
        case 7:
            ASSERT_EQ(allowables.SetOperateOnExtra(!extra), 1);
            break;
        case 8:
            allowables = Allowables(allowables); // a copy has both lists
            break;
        }
        ExpectEqual(allowables, models[allowables.GetOperateOnExtra() ? 1 : 0]);
        if (HasFatalFailure())
            return;
    }
}

TEST(AllowedLists, ExplainRefusalsByWhatTheyHold) {
    Allowables allowables(Allowables::List<qzString>{{"FIXED", ""}, {"FREE", "as it is"}}, 1);
    EXPECT_TRUE(allowables.HaveList() && allowables.Enforceable() && !allowables.HaveBounds());
    EXPECT_EQ(allowables.Test(qzString("fixed")), 1);
    EXPECT_EQ(allowables.GetFailureMessage(), "Input of fixed violates: VALUE in {FIXED, FREE}");
    for (int k = 0; k < 100; ++k)
        allowables.AddToList(qzString("x"), "");
    EXPECT_TRUE(allowables.GetFailureMessage().ends_with(", x, ...}"));
    Allowables empty(Allowables::List<double>(), 0);
    EXPECT_EQ(empty.Test(1.0), 1);
    EXPECT_EQ(empty.GetFailureMessage(), "Input of 1 violates: VALUE in {}");
}

TEST(AllowedLists, AreCopiedWithOrWithoutTheDefault) {
    Allowables::List<int> const ownList{{1, "a"}, {2, "b"}, {3, "c"}},
        otherList{{3, "x"}, {4, "y"}, {1, "z"}};
    struct Case {
        bool list, takeDefault;
        qzString names;
        int defaultValue;
    };
    for (Case const& c : {Case{false, false, "abc", 3},
                          {true, false, "xyz", 3},
                          {false, true, "abc", 1},
                          {true, true, "xyz", 1}}) {
        Allowables own(ownList, 2), other(otherList, 2);
        other.SetOperateOnExtra(true);
        other.AddToList(9, "extra");
        ASSERT_TRUE(own.Copy(other, c.list, c.takeDefault));
        qzString names;
        for (unsigned int i = 0; i < own.GetListCount(); ++i)
            names += own.GetListItemName(i);
        int defaultValue = 0;
        EXPECT_TRUE(own.GetDefault(defaultValue));
        EXPECT_EQ(names, c.names);
        EXPECT_EQ(defaultValue, c.defaultValue);
        own.SetOperateOnExtra(true);
        EXPECT_EQ(own.GetListCount(), c.list ? 1u : 0u);
        EXPECT_TRUE(own.Copy(own, true, true));
        EXPECT_EQ(own.GetListCount(), c.list ? 1u : 0u);
    }
    Allowables own(ownList, 2);
    EXPECT_TRUE(own.Copy(Allowables(Allowables::List<int>{{5, ""}}, 0), true, false));
    int defaultValue = 0;
    EXPECT_TRUE(own.GetDefault(defaultValue));
    EXPECT_EQ(defaultValue, 5); // the old default is gone
}

TEST(AllowedLists, NameSubTypesOfTheirEntityTypes) {
    EntityFullType const shell("SHELL"), bar("BAR"), absent("BOLT");
    Allowables::SubType const config{1}, topology{2};
    Allowables types(Allowables::List<EntityFullType>{{shell, ""}, {bar, "Bar"}, {shell, "again"}}, 0);
    EXPECT_EQ(types.GetListItemName(0), "SHELL");
    EXPECT_TRUE(types.AddSubType(shell, config, "quad4") && types.AddSubType(shell, config, "tria3") &&
                types.AddSubType(shell, topology, "quad4") && types.AddSubType(bar, config, "bar2"));
    EXPECT_FALSE(types.AddSubType(shell, config, "tria3"));
    EXPECT_FALSE(types.AddSubType(absent, config, "tria3"));

    qzString name = "untouched";
    EXPECT_FALSE(types.GetSubTypeName(shell, config, 2, name));
    EXPECT_EQ(name, "untouched");
    EXPECT_TRUE(types.GetSubTypeName(shell, config, 1, name));
    EXPECT_EQ(name, "tria3");
    EXPECT_TRUE(types.RemoveSubType(shell, config, "quad4"));
    EXPECT_FALSE(types.RemoveSubType(shell, config, "quad4"));
    EXPECT_EQ(types.GetSubTypeCount(shell, config), 1u);

    Allowables copy(types);
    EXPECT_EQ(copy, types);
    copy.RemoveSubType(bar, config, "bar2");
    EXPECT_NE(copy, types);

    EXPECT_TRUE(types.RemoveFromList(0)); // the type is still there
    EXPECT_EQ(types.GetSubTypeCount(shell, topology), 1u);
    EXPECT_TRUE(types.RemoveFromList(1));
    EXPECT_EQ(types.GetSubTypeCount(shell, topology), 0u);
    EXPECT_EQ(types.GetSubTypeCount(bar, config), 1u);
    types.SetOperateOnExtra(true);
    EXPECT_EQ(types.GetSubTypeCount(bar, config), 0u);
}

// ---- subsets ----

template <class T>
bool IsSubsetOneByOne(qzStlVector<T> const& all, qzStlVector<T> const& part) {
    return std::all_of(part.begin(), part.end(), [&](T const& wanted) {
        return std::any_of(all.begin(), all.end(), [&](T const& value) { return value == wanted; });
    });
}

template <class T, class Make>
void CheckSubsets(Make make) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    int contained = 0;
    for (int round = 0; round < 2000; ++round) {
        qzStlVector<T> lists[2];
        for (unsigned int k = 0; k < 2; ++k) {
            for (unsigned int n = 1 + random.Below(k == 0 ? 12 : 2); n > 0; --n)
                lists[k].push_back(make(random));
        }
        Allowables allowables[2];
        for (int k = 0; k < 2; ++k) {
            allowables[k] = Allowables(Allowables::List<T>(), 0);
            for (T const& value : lists[k])
                allowables[k].AddToList(value, "x");
        }
        bool const expected = IsSubsetOneByOne(lists[0], lists[1]);
        ASSERT_EQ(allowables[0].ValidSubset(allowables[1]), expected ? 0 : -1);
        contained += expected ? 1 : 0;
    }
    EXPECT_TRUE(contained > 100 && contained < 1900);
}

double MakeAwkward(Random& random) {
    return random.Pick({0.0, -0.0, 1.0, 1.5, 1e300, std::numeric_limits<double>::infinity(),
                        std::numeric_limits<double>::quiet_NaN()});
}

TEST(Subsets, AreWhatAComparisonOneByOneFinds) {
    CheckSubsets<double>(MakeAwkward);
    CheckSubsets<unsigned char>([](Random& r) { return static_cast<unsigned char>(r.Below(12)); });
    CheckSubsets<qzTCouple<double>>([](Random& r) {
        return qzTCouple<double>{MakeAwkward(r), r.Chance(2) ? 1.0 : 0.0};
    });
    CheckSubsets<qzString>([](Random& r) { return qzString(r.Below(8), 'a'); });
    CheckSubsets<Color>([](Random& r) {
        return r.Chance(2) ? Color(r.Below(5)) : Color(static_cast<unsigned char>(r.Below(5)), 2, 3);
    });
    CheckSubsets<EntityFullType>([](Random& r) {
        return r.Chance(2) ? EntityFullType(r.Below(4), r.Below(2)) : EntityFullType("T", r.Below(4));
    });
    CheckSubsets<Qualifier>([](Random& r) { // unset parts match anything: equality is not transitive
        return Qualifier("T", EntityFullType(1), r.Below(3), r.Chance(2) ? Identifier::s_unset : r.Below(3),
                         r.Below(2), r.Below(2));
    });
}

TEST(Subsets, NeedTwoListsOfOneType) {
    Allowables const numbers(Allowables::List<int>{{1, ""}}, 0), none(Allowables::List<int>(), 0),
        words(Allowables::List<qzString>{{"1", ""}}, 0), plain(1), null;
    EXPECT_EQ(numbers.ValidSubset(none), 1);
    EXPECT_EQ(none.ValidSubset(numbers), 1);
    EXPECT_EQ(numbers.ValidSubset(plain), 1);
    EXPECT_EQ(numbers.ValidSubset(null), 1);
    EXPECT_EQ(numbers.ValidSubset(words), 2);
    EXPECT_EQ(numbers.ValidSubset(numbers), 0);
    EXPECT_EQ(plain.ValidSubset(numbers), 0);
    EXPECT_EQ(null.ValidSubset(numbers), 0);
}

TEST(Subsets, OfAHundredThousandNamesAreFound) {
    Allowables all(Allowables::List<qzString>(), 0), part(all);
    for (int k = 0; k < 100'000; ++k)
        all.AddToList(qzString("name ") + std::to_string(k), "");
    for (int k = 0; k < 100'000; k += 2)
        part.AddToList(qzString("name ") + std::to_string(k), "");
    EXPECT_EQ(all.ValidSubset(part), 0);
    part.AddToList(qzString("another"), "");
    EXPECT_EQ(all.ValidSubset(part), -1);
}

} // namespace
