// Every type of constraint asked with every other type.

#include "definitions/allowables/allowable_types.h"
#include "descriptor/qzdescriptor.h"
#include "support/samples.h"

#include <gtest/gtest.h>

using namespace qzDescriptor;
using namespace qzDescriptor::test;

namespace {

template <class T>
class AllowablesOf : public testing::Test {
public:
    static Allowables OfDefault(int k) { return Allowables(Samples<T>::Make(k)); }
    static Allowables OfList(unsigned int defaultIndex = 1) {
        return Allowables(Allowables::List<T>{{Samples<T>::Make(0), "zero"}, {Samples<T>::Make(1), ""}},
                          defaultIndex);
    }

    static qzString TextOf(int k) {
        qzString text;
        if constexpr (std::is_same_v<T, EntityFullType>) {
            text = k == 1 ? "GRID" : "GRID 1"; // no value holds a type alone
        } else {
            Value value;
            value.SetValue(Samples<T>::Make(k));
            value.GetValueAsString(text);
        }
        return text;
    }
};

TYPED_TEST_SUITE(AllowablesOf, TypesOf<AllowableTypes>::Type);

TYPED_TEST(AllowablesOf, KnowTheirTypeAndDefault) {
    using T = TypeParam;
    T value{};
    EXPECT_TRUE(this->OfDefault(1).GetDefault(value));
    EXPECT_EQ(value, Samples<T>::Make(1));
    value = T();
    EXPECT_TRUE(this->OfList().GetDefault(value));
    EXPECT_EQ(value, Samples<T>::Make(1));
    EXPECT_FALSE(this->OfList(2).GetDefault(value)); // there is none
    for (Allowables const& allowables : {this->OfDefault(0), this->OfList()}) {
        EXPECT_EQ(allowables.GetBasicType(), AllowableTraits<T>::s_basic);
        EXPECT_EQ(allowables.GetCompoundType(), AllowableTraits<T>::s_compound);
        EXPECT_TRUE(allowables.IsValid());
    }
}

TYPED_TEST(AllowablesOf, AdmitAnythingByADefaultAndOnlyEntriesByAList) {
    using T = TypeParam;
    EXPECT_EQ(this->OfDefault(0).Test(Samples<T>::Make(2)), 0);
    Allowables const list = this->OfList();
    EXPECT_EQ(list.Test(Samples<T>::Make(0)), 0);
    EXPECT_EQ(list.Test(Samples<T>::Make(1)), 0);
    if constexpr (!std::is_same_v<T, bool>) { // which has no third value
        EXPECT_EQ(list.Test(Samples<T>::Make(2)), 1);
        EXPECT_TRUE(
            list.GetFailureMessage().starts_with("Input of " + this->TextOf(2) + " violates: VALUE in {"));
    }
    EXPECT_EQ(list.GetListItemName(1), this->TextOf(1));
}

TYPED_TEST(AllowablesOf, AreEqualByKindAndContent) {
    Allowables const allowables[] = {Allowables(), this->OfDefault(0), this->OfDefault(1), this->OfList(0),
                                     this->OfList(1)};
    for (Allowables const& a : allowables) {
        for (Allowables const& b : allowables)
            EXPECT_EQ(a == b, &a == &b);
        Allowables copy(a);
        EXPECT_EQ(copy, a);
        Allowables const moved(std::move(copy));
        EXPECT_EQ(moved, a);
        copy = moved;
        copy = *&copy;
        EXPECT_EQ(copy, a);
        copy.SetFailureMessage("takes no part");
        EXPECT_EQ(copy, a);
    }
    Allowables extra = this->OfList();
    extra.SetOperateOnExtra(true);
    EXPECT_NE(extra, this->OfList());
}

/// Everything that a constraint of T is asked in terms of U.
template <class T, class U>
void ExpectNothingOf(Allowables& allowables) {
    U value = Samples<U>::Make(1);
    EXPECT_FALSE(allowables.GetDefault(value));
    EXPECT_EQ(value, Samples<U>::Make(1));
    EXPECT_EQ(allowables.Test(Samples<U>::Make(2)), 0);
    Allowables::List<U> list{{Samples<U>::Make(0), "kept"}};
    qzStlVector<U> values{Samples<U>::Make(0)};
    unsigned int index = 77;
    EXPECT_FALSE(allowables.GetList(list, index));
    EXPECT_FALSE(allowables.GetValueList(values, index));
    EXPECT_TRUE(list.size() == 1 && list[0].second == "kept" && values.size() == 1 && index == 77);
    Allowables const before(allowables);
    allowables.AddToList(Samples<U>::Make(1), "other");
    EXPECT_EQ(allowables, before);
    if constexpr (std::is_arithmetic_v<U> && !std::is_same_v<U, bool>) {
        qzStlVector<BoundT<U>> bounds{BoundT<U>()};
        EXPECT_FALSE(allowables.GetBounds(bounds));
        EXPECT_EQ(bounds.size(), 1u);
    }
}

TYPED_TEST(AllowablesOf, AnswerNothingToCallsOfOtherTypes) {
    using T = TypeParam;
    Allowables null, plain = this->OfDefault(0), list = this->OfList();
    TypesOf<AllowableTypes>::ForEach([&]<class U>(std::type_identity<U>) {
        ExpectNothingOf<T, U>(null);
        if constexpr (!std::is_same_v<T, U>) {
            ExpectNothingOf<T, U>(plain);
            ExpectNothingOf<T, U>(list);
            if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, bool>) {
                Allowables bounded(BoundT<T>(1, BoundT<T>::Greater), 0);
                ExpectNothingOf<T, U>(bounded);
            }
        }
    });
    qzStlVector<qzString> names{"kept"};
    unsigned int index = 77;
    for (Allowables* allowables : {&null, &plain}) {
        EXPECT_FALSE(allowables->GetNameList(names, index) || allowables->RemoveFromList(0) ||
                     allowables->SetListItemName(0, "x") || allowables->HaveList() ||
                     allowables->Enforceable() || allowables->SetOperateOnExtra(true) != 0 ||
                     allowables->GetOperateOnExtra() || allowables->AddSubType(EntityFullType(4), {}, "x"));
        EXPECT_TRUE(allowables->GetListItemName(0).empty() && allowables->GetFailureMessage().empty());
        EXPECT_TRUE(names.size() == 1 && index == 77);
    }
}

} // namespace
