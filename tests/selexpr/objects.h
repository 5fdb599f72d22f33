#pragma once

#include "selexpr/IDataFilter.h"
#include "selexpr/IDataInterface.h"
#include "selexpr/IRequest.h"
#include "selexpr/explain.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>

namespace ui::selexpr::test {

/// An object is its properties by name; one with an empty variant has no value.
using Object = std::map<qzString, qzVariant>;

inline qzVariant Integer(long long value) {
    qzVariant variant;
    variant.SetLong64(value);
    return variant;
}
inline qzVariant Double(double value) {
    qzVariant variant;
    variant.SetDouble(value);
    return variant;
}
inline qzVariant Float(float value) {
    qzVariant variant;
    variant.SetFloat(value);
    return variant;
}
inline qzVariant Boolean(bool value) {
    qzVariant variant;
    variant.SetBoolean(value);
    return variant;
}
inline qzVariant Text(qzString value) {
    qzVariant variant;
    variant.SetString(std::move(value));
    return variant;
}

/// Knows the getter only. Answers false for names that an object does not have, and for no object.
class Data : public IDataInterface {
public:
    bool GetValue(void* object, qzString const& property, qzVariant& out) override {
        if (object == nullptr)
            return false;
        auto const& properties = *static_cast<Object const*>(object);
        auto const found = properties.find(property);
        if (found == properties.end())
            return false;
        out = found->second;
        return true;
    }
};

/// The base with a default property.
class Filter : public IDataFilter {
public:
    using IDataFilter::IDataFilter;

    bool NumericCondition(ConditionType& condition, ValueType& type, qzString& property,
                          qzString& refusal) override {
        if (property.empty())
            property = "name";
        return IDataFilter::NumericCondition(condition, type, property, refusal);
    }
};

inline std::unique_ptr<IRequest> Parse(IParser& parser, qzString const& text) {
    return std::unique_ptr<IRequest>(parser.Parse(text));
}

/// Whether an object matches a text that parses.
inline bool Matches(qzString const& text, Object object) {
    Data data;
    Filter filter(&data);
    auto const request = Parse(filter, text);
    EXPECT_NE(request, nullptr) << text << ": " << filter.GetError().message;
    return request && request->Matches(&object);
}

} // namespace ui::selexpr::test
