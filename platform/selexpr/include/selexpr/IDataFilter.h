#pragma once

#include "selexpr/Condition.h"
#include "selexpr/IParser.h"
#include "selexpr/Scalar.h"

namespace ui::selexpr {

class IDataInterface;

/// The parser of the query language over a data interface. Derived classes say what names and values mean in
/// their model; everything has a sensible meaning here already.
///
///     class PartFilter : public IDataFilter {
///     public:
///         using IDataFilter::IDataFilter;
///         bool NumericCondition(ConditionType& condition, ValueType& type, qzString& property,
///                               qzString& refusal) override {
///             if (property.empty())
///                 property = "name";                          // what a bare word or number is about
///             return IDataFilter::NumericCondition(condition, type, property, refusal);
///         }
///     };
///
/// A filter parses one text at a time; its requests may then be used on several threads.
class QZSELEXPR_API IDataFilter : public IParser {
public:
    /// The data interface is kept and not owned. Without one no object has a value.
    explicit IDataFilter(IDataInterface* data);
    ~IDataFilter() override;
    IDataFilter(IDataFilter const&) = delete;
    IDataFilter& operator=(IDataFilter const&) = delete;

    IRequest* Parse(qzString const& text) override;
    ParseError const& GetError() const override;
    IDataInterface* GetDataInterface() const noexcept { return m_data; }

    // While a text is parsed, for each condition.

    /// Adjusts a condition before it is compiled. The property is empty for bare values; the value type is
    /// that of the values as they are written. False refuses the condition, and `refusal` may say what was
    /// expected instead. Here an equality becomes a match with wildcards, a property must be named, and
    /// `SettleValueType` is asked.
    virtual bool NumericCondition(ConditionType& condition, ValueType& type, qzString& property,
                                  qzString& refusal);
    /// Says what a property holds. Here the type stays that of the written values.
    virtual void SettleValueType(ValueType& type, qzString const& property) const;
    /// Whether there is such a property. Here every name is one; the data interface may still refuse it.
    virtual bool IsProperty(qzString const& property) const;
    /// Whether a value may be written in a condition on a property of that type. Here numbers and integers
    /// want texts that read as a number, booleans true, false or a number.
    virtual bool IsValueAccepted(qzString const& property, ValueType type, qzString const& value) const;
    /// Whether `==` tells upper from lower case. Here it does.
    virtual bool IsExactCaseSensitive() const;
    /// Whether the filter itself answers for a property, in place of the data interface. Here for none.
    virtual bool IsSpecific(qzString const& property) const;

    // While objects are matched. A value is never empty and never NaN, and the answer does not look at
    // `IsNegated`, which is applied to it afterwards.

    /// A value against a condition that is neither a range nor a regular expression.
    virtual bool Matching(Scalar const& value, Condition const& condition) const;
    virtual bool MatchingRange(Scalar const& value, Condition const& condition) const;
    virtual bool MatchingRegex(Scalar const& value, Condition const& condition) const;
    /// An object against a condition on a specific property, negation included. Here the specific value is
    /// read and compared.
    virtual bool MatchSpecific(void* object, Condition const& condition) const;
    /// The value of a specific property, as `IProperty::Read` gives it. Here there is none.
    virtual bool GetValueSpecific(void* object, qzString const& property, Scalar& value,
                                  qzString& scratch) const;

protected:
    /// Whether a value satisfies a condition, by the operations above: false for no value and for NaN.
    bool P_Holds(Scalar const& value, Condition const& condition) const;

private:
    friend class Request;

    IDataInterface* m_data;
    ParseError m_error;
};

} // namespace ui::selexpr
