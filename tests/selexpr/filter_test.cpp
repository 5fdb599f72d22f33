#include "objects.h"

#include <algorithm>
#include <atomic>

namespace ui::selexpr::test {
namespace {

/// Adjusts conditions as an object model does that knows its objects by number.
class ModelFilter : public IDataFilter {
public:
    using IDataFilter::IDataFilter;

    bool NumericCondition(ConditionType& condition, ValueType& type, qzString& property, qzString&) override {
        if (condition == CONDITION_CONTAINS || condition == CONDITION_EQUAL)
            condition = CONDITION_MATCHES;
        if (property.empty())
            property = "id";
        if (property == "id") {
            condition = condition == CONDITION_RANGE ? CONDITION_RANGE : CONDITION_EQUAL;
            type = VALUE_INTEGER;
        } else {
            SettleValueType(type, property);
        }
        return true;
    }
    void SettleValueType(ValueType& type, qzString const& property) const override {
        type = property == "thickness" ? VALUE_NUMBER : property == "active" ? VALUE_BOOLEAN : VALUE_TEXT;
    }
};

TEST(Filter, SettlesPropertiesConditionsAndValues) {
    Object part = {{"id", Integer(17)}, {"thickness", Double(2.5)}, {"active", Boolean(true)}};
    struct Row {
        char const* text;
        char const* message; ///< empty where the part matches
    };
    Row const rows[] = {
        {"17", ""},
        {"1:20:2, 99", ""},
        {"id ~ '17'", ""},
        {"thickness = '2.5'", ""},
        {"active = True", ""},
        {"wing", "at 1: found 'wing', expected a number"},
        {"id = 1*", "at 6: found '1*', expected a number"},
        {"thickness > thick", "at 13: found 'thick', expected a number"},
        {"thickness ~ 2", "at 11: found '~', expected another operator"},
        {"active = maybe", "at 10: found 'maybe', expected true or false"},
    };
    Data data;
    ModelFilter filter(&data);
    for (Row const& row : rows) {
        auto const request = Parse(filter, row.text);
        EXPECT_EQ(filter.GetError().message, row.message);
        EXPECT_TRUE(!request || request->Matches(&part)) << row.text;
        EXPECT_EQ(request != nullptr, *row.message == '\0') << row.text;
    }
}

TEST(Filter, TheBaseKnowsNoDefaultPropertyAndCanDoWithoutData) {
    IDataFilter filter(nullptr);
    EXPECT_EQ(Parse(filter, "17"), nullptr);
    EXPECT_EQ(filter.GetError().message, "at 1: found '17', expected a property");
    auto const request = Parse(filter, "a != 1");
    ASSERT_NE(request, nullptr);
    EXPECT_FALSE(request->Matches(nullptr));
}

/// Overrides what the other tests leave as it is.
class OwnFilter : public Filter {
public:
    using Filter::Filter;

    bool NumericCondition(ConditionType& condition, ValueType& type, qzString& property,
                          qzString& refusal) override {
        if (property == "secret")
            refusal = "something public";
        return property != "secret" && Filter::NumericCondition(condition, type, property, refusal);
    }
    bool IsProperty(qzString const& property) const override { return property != "unknown"; }
    bool IsExactCaseSensitive() const override { return false; }
    bool IsSpecific(qzString const& property) const override {
        return property == "size" || property == "odd";
    }
    bool GetValueSpecific(void* object, qzString const& property, Scalar& value, qzString&) const override {
        value.SetInteger(static_cast<long long>(static_cast<Object*>(object)->size()));
        return property == "size";
    }
    bool MatchSpecific(void* object, Condition const& condition) const override {
        if (condition.GetProperty() == "odd")
            return static_cast<Object*>(object)->size() % 2 == 1;
        return Filter::MatchSpecific(object, condition);
    }
    bool MatchingRange(Scalar const& value, Condition const& condition) const override {
        Scalar magnitude = value;
        if (value.GetKind() == Scalar::KIND_INTEGER)
            magnitude.SetInteger(std::abs(value.GetInteger()));
        return Filter::MatchingRange(magnitude, condition);
    }
};

TEST(Filter, CanAnswerItself) {
    Data data;
    OwnFilter filter(&data);
    EXPECT_EQ(Parse(filter, "a = 1 and secret = 1"), nullptr);
    EXPECT_EQ(filter.GetError().message, "at 11: found 'secret', expected something public");
    EXPECT_EQ(Parse(filter, "unknown = 1"), nullptr);
    EXPECT_EQ(filter.GetError().message, "at 1: found 'unknown', expected a property");

    Object part = {{"name", Text("Wing")}, {"n", Integer(-7)}};
    auto const request = Parse(filter, "name == wING and size = 2 and size != 3 and n > 5 and not odd = 1");
    ASSERT_NE(request, nullptr);
    EXPECT_TRUE(request->Matches(&part)) << Explain(*request, &part).GetText();
    part["m"] = Integer(1);
    EXPECT_EQ(Explain(*request, &part).GetText(), "size = 2 is false: size is 3");
}

/// Binds two properties, and must never be asked through the getter.
class BoundData : public IDataInterface {
public:
    bool GetValue(void*, qzString const& property, qzVariant&) override {
        ADD_FAILURE() << "the getter is asked for " << property;
        return false;
    }
    std::unique_ptr<IProperty> Bind(qzString const& property) override {
        m_bound.push_back(property);
        return property == "n" ? std::make_unique<Value>() : nullptr;
    }

    std::vector<qzString> m_bound;

private:
    struct Value : IProperty {
        bool Read(void* object, Scalar& value, qzString& scratch) const override {
            scratch = std::to_string(*static_cast<int*>(object));
            value.SetText(scratch);
            return true;
        }
    };
};

TEST(Filter, ResolvesEachNameOnce) {
    BoundData data;
    Filter filter(&data);
    auto const request = Parse(filter, "n > 5 and (n < 7 or n = 9) and not n = 6");
    ASSERT_NE(request, nullptr);
    EXPECT_EQ(data.m_bound, std::vector<qzString>{"n"});
    int matching = 0;
    for (int number = 0; number < 20; ++number)
        matching += request->Matches(&number) ? number : 0;
    EXPECT_EQ(matching, 9);
    EXPECT_EQ(Parse(filter, "n = 1 and m = 2"), nullptr);
    EXPECT_EQ(filter.GetError().message, "at 11: found 'm', expected a property");
}

} // namespace
} // namespace ui::selexpr::test
