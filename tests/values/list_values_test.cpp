#include "support/samples.h"

namespace qzDescriptor::test {
namespace {

template <class C>
class ContainerValues : public testing::Test {
protected:
    using Facts = ElementTraits<typename ContainerTraits<C>::Element>;
    static constexpr Kind s_kind = ContainerTraits<C>::s_kind;

    static Value MakeEmpty() {
        if constexpr (s_kind == Kind::Table)
            return Value(BT_OBJECT, CT_TABULAR, 0, 0, DS_DEFAULT, QZDT_DBHandle());
        else if constexpr (s_kind == Kind::BagList)
            return Value(BT_UINT, CT_ENTITY, 4, 0, DS_DEFAULT, QZDT_DBHandle());
        else
            return DataTypeUtils::GetValueConstruct(Facts::s_basic, Facts::s_compound,
                                                    static_cast<unsigned int>(s_kind) + 1);
    }
    static Value MakeValue(C const& data, DisplayStatus status = DS_DEFAULT) {
        Value value = MakeEmpty();
        EXPECT_TRUE(value.SetValue(data));
        value.SetDisplayStatus(status);
        return value;
    }
};

TYPED_TEST_SUITE(ContainerValues, TypesOf<ContainerTypes>::Type);

TYPED_TEST(ContainerValues, DataIsStoredShownAndCopiedOut) {
    using C = TypeParam;
    C const data = MakeContainer<C>(0);
    Value const value = this->MakeValue(data);
    C read;
    EXPECT_TRUE(value.GetValue(read));
    EXPECT_EQ(read, data);
    ASSERT_NE(ContainerTraits<C>::Pointer(*value.GetValuePtr()), nullptr);
    EXPECT_EQ(*ContainerTraits<C>::Pointer(*value.GetValuePtr()), data);
    EXPECT_EQ(value.IsBagType(), value.GetArrayDimension() == 3);
    EXPECT_GT(value.GetValueMemoryUsage(), 0u);
}

template <class Other>
void ExpectRefused(Value& value) {
    Other output = MakeContainer<Other>(1);
    EXPECT_FALSE(value.GetValue(output));
    EXPECT_EQ(output, MakeContainer<Other>(1));
    EXPECT_FALSE(value.SetValue(output));
    EXPECT_EQ(ContainerTraits<Other>::Pointer(*value.GetValuePtr()), nullptr);
}

TYPED_TEST(ContainerValues, OtherContainersAreRefusedAndLeaveTheOutputUntouched) {
    using C = TypeParam;
    Value value = this->MakeValue(MakeContainer<C>(0));
    TypesOf<ContainerTypes>::ForEach([&]<class Other>(std::type_identity<Other>) {
        if constexpr (!std::is_same_v<Other, C>)
            ExpectRefused<Other>(value);
    });
    C read;
    value.GetValue(read);
    EXPECT_EQ(read, MakeContainer<C>(0));
}

TYPED_TEST(ContainerValues, CopiesAreDeepAndEqual) {
    using C = TypeParam;
    Value const original = this->MakeValue(MakeContainer<C>(0), DS_OFF);
    Value copy(original);
    EXPECT_EQ(copy, original);
    copy.SetDisplayStatus(DS_ON);
    EXPECT_FALSE(copy == original);
    EXPECT_TRUE(Value::AreEqualWithinTolerance(copy, original, 0, true));
    EXPECT_TRUE(copy.SetValue(MakeContainer<C>(1)));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(copy, original, 0, true));
    EXPECT_EQ(*ContainerTraits<C>::Pointer(*original.GetValuePtr()), MakeContainer<C>(0));
}

TYPED_TEST(ContainerValues, SettingAContainerToItselfKeepsIt) {
    using C = TypeParam;
    Value value = this->MakeValue(MakeContainer<C>(0));
    EXPECT_TRUE(value.SetValue(*ContainerTraits<C>::Pointer(*value.GetValuePtr())));
    EXPECT_EQ(*ContainerTraits<C>::Pointer(*value.GetValuePtr()), MakeContainer<C>(0));
}

TYPED_TEST(ContainerValues, ElementsAreReadAndWrittenInPlaceAndPastTheEnd) {
    using C = TypeParam;
    using T = typename ContainerTraits<C>::Element;
    if constexpr (TestFixture::s_kind == Kind::Array1) {
        Value value = this->MakeValue(MakeContainer<C>(0, 3));
        T read{};
        EXPECT_TRUE(value.GetValue(read, 1, 77)) << "a list ignores the second index";
        EXPECT_EQ(read, Samples<T>::Make(1));
        EXPECT_FALSE(value.GetValue(read, 3, 0));
        EXPECT_EQ(read, Samples<T>::Make(1));
        EXPECT_TRUE(value.SetValue(Samples<T>::Make(2), 5, 0));
        EXPECT_EQ(value.GetArrayDimensionExtent(0u), 6u);
        EXPECT_TRUE(value.GetValue(read, 4, 0));
        if constexpr (std::is_same_v<T, Entity>) {
            EXPECT_EQ(read.GetId(), 0u);
        } else {
            EXPECT_EQ(read, T());
        }
        EXPECT_EQ(value.GetValuePtr()->GetMemoryLocation(6, 0), nullptr);
        EXPECT_NE(value.GetValuePtr()->GetMemoryLocation(5, 0), nullptr);
        EXPECT_FALSE(value.SetValue(Samples<T>::Make(0), 0xFFFFFFFF, 0));
        EXPECT_EQ(value.GetArrayDimensionExtent(0u), 6u);
    }
}

TYPED_TEST(ContainerValues, TwoLevelListsGrowRowsAndColumns) {
    using C = TypeParam;
    using T = typename ContainerTraits<C>::Element;
    if constexpr (TestFixture::s_kind == Kind::Array2) {
        Value value = this->MakeValue(C());
        EXPECT_EQ(value.GetArrayDimensionExtent(1u), 0u);
        EXPECT_TRUE(value.SetValue(Samples<T>::Make(1), 2, 3));
        EXPECT_EQ(value.GetArrayDimensionExtent(0u), 3u);
        EXPECT_EQ(value.GetArrayDimensionExtent(1u), 0u) << "the inner extent is the first row's";
        T read = Samples<T>::Make(0);
        EXPECT_TRUE(value.GetValue(read, 2, 3));
        EXPECT_EQ(read, Samples<T>::Make(1));
        EXPECT_FALSE(value.GetValue(read, 0, 0));
        EXPECT_FALSE(value.GetValue(read, 3, 0));
        EXPECT_FALSE(value.SetValue(read, 0xFFFFFFFF, 0));
        EXPECT_FALSE(value.SetValue(read, 0, 0xFFFFFFFF));
        EXPECT_EQ(value.GetArrayDimensionExtent(0u), 3u);
    }
}

TYPED_TEST(ContainerValues, AnElementOfTheListMayBeWrittenPastItsEnd) {
    using C = TypeParam;
    using T = typename ContainerTraits<C>::Element;
    if constexpr (TestFixture::s_kind == Kind::Array1 && !std::is_same_v<T, Entity>) {
        Value value = this->MakeValue(MakeContainer<C>(0, 3));
        EXPECT_TRUE(value.SetValue(*ElementTraits<T>::Pointer(*value.GetValuePtr(), 2, 0), 5000, 0));
        EXPECT_EQ(*ElementTraits<T>::Pointer(*value.GetValuePtr(), 5000, 0), Samples<T>::Make(2));
    }
}

TYPED_TEST(ContainerValues, WholeTextsAreTheElementsInBraces) {
    using C = TypeParam;
    using T = typename ContainerTraits<C>::Element;
    auto const textOf = [](int k) {
        Value element;
        if constexpr (!std::is_same_v<T, Tabular>)
            element.SetValue(Samples<T>::Make(k), 0, 0);
        qzString text;
        EXPECT_TRUE(element.GetValueAsString(text));
        return text;
    };
    Value const value = this->MakeValue(MakeContainer<C>(0, 3));
    qzString whole, element, row;
    ASSERT_TRUE(value.GetValueAsString(whole));
    if constexpr (TestFixture::s_kind == Kind::Array1) {
        EXPECT_EQ(whole, "{" + textOf(0) + " " + textOf(1) + " " + textOf(2) + "}");
        EXPECT_TRUE(value.GetValueAsString(element, nullptr, 1, 0));
        EXPECT_EQ(element, textOf(1));
    } else if constexpr (TestFixture::s_kind == Kind::Array2) {
        EXPECT_EQ(whole, "{{" + textOf(0) + " " + textOf(1) + "} {" + textOf(2) + "}}");
        EXPECT_TRUE(value.GetValueAsString(element, nullptr, 0, 1));
        EXPECT_EQ(element, textOf(1));
        EXPECT_TRUE(value.GetValueAsString(row, nullptr, 0, 0xFFFFFFFF));
        EXPECT_EQ(row, "{" + textOf(0) + " " + textOf(1) + "}");
    }
    element = "before";
    EXPECT_FALSE(value.GetValueAsString(element, nullptr, 3, 0));
    EXPECT_EQ(element, "");
}

TYPED_TEST(ContainerValues, ElementsAreWrittenFromText) {
    using C = TypeParam;
    using T = typename ContainerTraits<C>::Element;
    if constexpr (TestFixture::s_kind == Kind::Array1 || TestFixture::s_kind == Kind::Array2) {
        Value element;
        element.SetValue(Samples<T>::Make(1), 0, 0);
        qzString text;
        element.GetValueAsString(text);
        Value value = this->MakeValue(C());
        EXPECT_TRUE(value.SetValueFromString(text, nullptr, 1, 0));
        EXPECT_EQ(value.GetArrayDimensionExtent(0u), 2u);
        T read{};
        EXPECT_TRUE(value.GetValue(read, 1, 0));
        EXPECT_EQ(read, Samples<T>::Make(1));
        EXPECT_FALSE(value.SetValueFromString(text, nullptr, 0xFFFFFFFF, 0));
        if constexpr (!std::is_same_v<T, qzString>) {
            EXPECT_FALSE(value.SetValueFromString("?", nullptr, 9, 0));
        }
        EXPECT_EQ(value.GetArrayDimensionExtent(0u), 2u);
    }
}

TYPED_TEST(ContainerValues, ListsOfOrderedElementsAreOrderedLexicographically) {
    using C = TypeParam;
    using T = typename ContainerTraits<C>::Element;
    Value const low = this->MakeValue(MakeContainer<C>(0, 3));
    Value const high = this->MakeValue(MakeContainer<C>(1, 3));
    bool const ordered = (TestFixture::s_kind == Kind::Array1 || TestFixture::s_kind == Kind::Array2) &&
                         s_ordered<T> && !std::is_same_v<T, Entity>;
    EXPECT_EQ(low < high, ordered);
    EXPECT_FALSE(high < low);
    EXPECT_FALSE(low < low);
    EXPECT_FALSE(low < this->MakeValue(MakeContainer<C>(1, 6))) << "extents must be equal";
}

} // namespace
} // namespace qzDescriptor::test
