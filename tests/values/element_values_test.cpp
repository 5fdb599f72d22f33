#include "support/samples.h"

#include <gmock/gmock.h>

namespace qzDescriptor::test {
namespace {

template <class T>
class ElementValues : public testing::Test {
protected:
    static T First() { return Samples<T>::Make(0); }
    static T Second() { return Samples<T>::Make(1); }
};

TYPED_TEST_SUITE(ElementValues, TypesOf<ElementTypes>::Type);

TYPED_TEST(ElementValues, AnEmptyValueTakesTheTypeOfWhatIsWritten) {
    using T = TypeParam;
    Value value;
    EXPECT_TRUE(value.SetValue(this->Second(), 0, 0));
    EXPECT_EQ(value.GetBasicType(), ElementTraits<T>::s_basic);
    EXPECT_EQ(value.GetCompoundType(), ElementTraits<T>::s_compound);
    EXPECT_EQ(value.GetArrayDimension(), 0u);
    EXPECT_EQ(value.GetArrayDimensionExtent(0u), 0u);
    EXPECT_EQ(value.GetDisplayStatus(), DS_DEFAULT);
    T read = this->First();
    EXPECT_TRUE(value.GetValue(read, 9, 9)) << "a single element ignores its indices";
    EXPECT_EQ(read, this->Second());
}

TYPED_TEST(ElementValues, WritingTheSameTypeStoresAndAnswersFalse) {
    using T = TypeParam;
    Value value;
    value.SetValue(this->First(), 0, 0);
    ValuePtr const* const holder = value.GetValuePtr();
    value.SetDisplayStatus(DS_OFF);
    EXPECT_FALSE(value.SetValue(this->Second(), 0xFFFFFFFF, 5));
    EXPECT_EQ(value.GetValuePtr(), holder);
    EXPECT_EQ(value.GetDisplayStatus(), DS_OFF);
    EXPECT_EQ(*ElementTraits<T>::Pointer(*holder, 3, 3), this->Second());
    EXPECT_EQ(std::as_const(*holder).GetMemoryLocation(8, 8), ElementTraits<T>::Pointer(*holder, 0, 0));
}

// The checks of other types are written by the other type alone: one instance serves all types.

template <class Other>
void ExpectRefused(Value& value) {
    Other output = Samples<Other>::Make(2);
    EXPECT_FALSE(value.GetValue(output, 0, 0));
    EXPECT_EQ(output, Samples<Other>::Make(2));
    EXPECT_EQ(ElementTraits<Other>::Pointer(*value.GetValuePtr(), 0, 0), nullptr);
    EXPECT_FALSE(value.GetValuePtr()->SetValue(Samples<Other>::Make(0), 0, 0));
}

template <class Other>
void ExpectToBecome(Value value) {
    EXPECT_TRUE(value.SetValue(Samples<Other>::Make(1), 0, 0));
    Other read = Samples<Other>::Make(0);
    EXPECT_TRUE(value.GetValue(read, 0, 0));
    EXPECT_EQ(read, Samples<Other>::Make(1));
    EXPECT_EQ(value.GetDisplayStatus(), DS_DEFAULT);
}

TYPED_TEST(ElementValues, EveryOtherTypeIsRefusedAndLeavesTheOutputUntouched) {
    using T = TypeParam;
    Value value;
    value.SetValue(this->Second(), 0, 0);
    ForEachElementType([&]<class Other>(std::type_identity<Other>) {
        if constexpr (!std::is_same_v<Other, T>)
            ExpectRefused<Other>(value);
    });
    EXPECT_EQ(*ElementTraits<T>::Pointer(*value.GetValuePtr(), 0, 0), this->Second());
}

TYPED_TEST(ElementValues, AValueBecomesAnyOtherTypeThatIsWritten) {
    Value const value(ValuePtr::Create(this->Second(), DS_OFF));
    ForEachElementType([&]<class Other>(std::type_identity<Other>) {
        if constexpr (!std::is_same_v<Other, TypeParam>)
            ExpectToBecome<Other>(value);
    });
}

TYPED_TEST(ElementValues, ContainersNeverChangeTheType) {
    Value value;
    value.SetValue(this->Second(), 0, 0);
    EXPECT_FALSE(value.SetValue(qzStlVector<double>{1, 2}));
    EXPECT_FALSE(value.SetValue(EntityList()));
    qzStlVector<double> output{5};
    EXPECT_FALSE(value.GetValue(output));
    EXPECT_EQ(output, qzStlVector<double>{5});
    EXPECT_EQ(value.GetBasicType(), ElementTraits<TypeParam>::s_basic);
}

TYPED_TEST(ElementValues, AWriteMayReferToTheValueItself) {
    using T = TypeParam;
    Value value;
    value.SetValue(this->Second(), 0, 0);
    value.SetValue(*ElementTraits<T>::Pointer(*value.GetValuePtr(), 0, 0), 0, 0);
    EXPECT_EQ(*ElementTraits<T>::Pointer(*value.GetValuePtr(), 0, 0), this->Second());
}

TYPED_TEST(ElementValues, ClonesAreEqualAndIndependent) {
    using T = TypeParam;
    Value const original(ValuePtr::Create(this->First(), DS_ON));
    Value copy(original);
    EXPECT_EQ(copy, original);
    EXPECT_NE(copy.GetValuePtr(), original.GetValuePtr());
    copy.SetValue(this->Second(), 0, 0);
    EXPECT_EQ(*ElementTraits<T>::Pointer(*original.GetValuePtr(), 0, 0), this->First());
    EXPECT_FALSE(copy == original);
}

TYPED_TEST(ElementValues, EqualityLooksAtTheDisplayStatusAndOrderDoesNot) {
    Value const first(ValuePtr::Create(this->First(), DS_OFF));
    Value const same(ValuePtr::Create(this->First(), DS_OFF));
    Value const hidden(ValuePtr::Create(this->First(), DS_ON));
    Value const second(ValuePtr::Create(this->Second(), DS_ON));
    EXPECT_TRUE(first == same);
    EXPECT_TRUE(first != hidden);
    EXPECT_TRUE(Value::AreEqualWithinTolerance(first, hidden, 0, false));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(first, second, 0, false));
    EXPECT_EQ(first < second, s_ordered<TypeParam>);
    EXPECT_FALSE(second < first);
    EXPECT_FALSE(first < hidden);
}

TYPED_TEST(ElementValues, TextIsReadBackUnchanged) {
    using T = TypeParam;
    for (int k = 0; k < 3; ++k) {
        Value value;
        value.SetValue(Samples<T>::Make(k), 0, 0);
        qzString text;
        ASSERT_TRUE(value.GetValueAsString(text));
        Value other;
        other.SetValue(Samples<T>::Make((k + 1) % 3), 0, 0);
        if constexpr (std::is_same_v<T, Function>) {
            EXPECT_FALSE(other.SetValueFromString(text)) << "a callback cannot come out of a text";
        } else if constexpr (std::is_floating_point_v<T>) {
            EXPECT_TRUE(other.SetValueFromString(text)) << text;
            EXPECT_EQ(other, value) << text;
        } else {
            EXPECT_TRUE(other.SetValueFromString(text)) << text;
            qzString again;
            EXPECT_TRUE(other.GetValueAsString(again));
            EXPECT_EQ(again, text);
            EXPECT_EQ(other, value) << text;
        }
    }
}

TYPED_TEST(ElementValues, TextThatDoesNotParseChangesNothing) {
    using T = TypeParam;
    if constexpr (!std::is_same_v<T, qzString>) {
        Value value;
        value.SetValue(this->Second(), 0, 0);
        for (qzString const& text : {qzString(), qzString("?"), qzString(1 << 20, '-'), qzString("\0\0", 2)})
            EXPECT_FALSE(value.SetValueFromString(text)) << text.substr(0, 20);
        EXPECT_EQ(*ElementTraits<T>::Pointer(*value.GetValuePtr(), 0, 0), this->Second());
    }
}

TYPED_TEST(ElementValues, UnfittingFormatsAreRefused) {
    Value value;
    value.SetValue(this->Second(), 0, 0);
    qzString out = "before";
    for (char const* const format :
         {"", "text", "%n", "%d%n", "%", "%5", "%.", "%*d",
          "%d %d %d %d %d %d %d %d %d %d %d %d %d %d %d %d %d", "%s%s%s%s", "%y", "%l", "%f %p", "%ls%n"}) {
        EXPECT_FALSE(value.GetValueAsString(out, format)) << format;
        EXPECT_EQ(out, "");
        EXPECT_FALSE(value.SetValueFromString("1 2 3 4 5 6 7 8 9", format)) << format;
        EXPECT_EQ(*ElementTraits<TypeParam>::Pointer(*value.GetValuePtr(), 0, 0), this->Second());
    }
}

TYPED_TEST(ElementValues, AssociatedStringsSurviveWritesAndClones) {
    using T = TypeParam;
    qzString text = "untouched";
    Value plain;
    plain.SetValue(this->First(), 0, 0);
    EXPECT_FALSE(plain.GetAssociatedString(text));
    EXPECT_EQ(text, "untouched");
    if constexpr (ElementTraits<T>::s_strings) {
        Value value(this->First(), "mm", DS_ON);
        EXPECT_FALSE(value.SetValue(this->Second(), 0, 0));
        Value const copy(value);
        EXPECT_TRUE(copy.GetAssociatedString(text));
        EXPECT_EQ(text, "mm");
        EXPECT_EQ(copy.GetDisplayStatus(), DS_ON);
        EXPECT_TRUE(copy == Value(ValuePtr::Create(this->Second(), DS_ON))) << "it takes no part in equality";
    }
}

TYPED_TEST(ElementValues, DefaultsAndTypeQueriesAgreeWithTheType) {
    using T = TypeParam;
    Value const value =
        DataTypeUtils::GetValueConstruct(ElementTraits<T>::s_basic, ElementTraits<T>::s_compound, 0);
    ASSERT_NE(value.GetValuePtr(), nullptr);
    EXPECT_EQ(*ElementTraits<T>::Pointer(*value.GetValuePtr(), 0, 0), T());
    EXPECT_EQ(value.GetDisplayStatus(), DS_DEFAULT);
    EXPECT_GE(value.GetValueMemoryUsage(), sizeof(T));
    EXPECT_FALSE(value.IsBagType());
}

TYPED_TEST(ElementValues, OnlyScalarsTuplesColorsAndEntitiesAreMadeFromText) {
    using T = TypeParam;
    constexpr bool fromText =
        ElementTraits<T>::s_compound <= CT_ENTITY && ElementTraits<T>::s_basic <= BT_STRING;
    Value source;
    source.SetValue(this->Second(), 0, 0);
    qzString text;
    source.GetValueAsString(text);
    Value const made(ElementTraits<T>::s_basic, ElementTraits<T>::s_compound, text, nullptr, DS_DEFAULT);
    EXPECT_EQ(made.GetValuePtr() != nullptr, fromText);
    if (fromText) {
        EXPECT_EQ(made, source);
        Value const zero(ElementTraits<T>::s_basic, ElementTraits<T>::s_compound, "?", nullptr, DS_DEFAULT);
        if constexpr (!std::is_same_v<T, qzString>) {
            EXPECT_EQ(*ElementTraits<T>::Pointer(*zero.GetValuePtr(), 0, 0), T());
        }
    }
}

} // namespace
} // namespace qzDescriptor::test
