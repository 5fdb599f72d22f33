#include "registry/content/check_value.h"

#include "definitions/allowables/TestElements.h"
#include "descriptor/Definition.h"
#include "descriptor/Value.h"
#include "registry/content/type_words.h"

namespace qzDescriptor {

namespace {

/// As definitions count it: a register of bags, which as a value is a bag, has dimension 4.
unsigned int DimensionOf(ValuePtr const& value) {
    return value.GetValuePointerEntityListBagList() != nullptr ? 4 : value.GetArrayDimension();
}

qzString WordsOf(Definition const& definition) {
    return TypeWords(definition.GetValueBasicType(), definition.GetValueCompoundType(),
                     definition.GetArrayDimension());
}

qzString WordsOf(ValuePtr const* value) {
    if (value == nullptr)
        return "an empty value";
    return TypeWords(value->GetBasicType(), value->GetCompoundType(), DimensionOf(*value));
}

qzString Capitalised(qzString words) {
    words.front() = static_cast<char>(words.front() - 'a' + 'A');
    return words;
}

} // namespace

qzReturnStatus Refusal(qzString const& message) { return {-1, message}; }

bool IsOfType(Definition const& definition, ValuePtr const* value) {
    if (value == nullptr || value->GetCompoundType() != definition.GetValueCompoundType())
        return false;
    return value->GetCompoundType() == CT_TABULAR ||
           (value->GetBasicType() == definition.GetValueBasicType() &&
            DimensionOf(*value) == definition.GetArrayDimension());
}

qzReturnStatus CheckValue(Definition const& definition, ValuePtr const* value) {
    if (!IsOfType(definition, value))
        return Refusal(Capitalised(WordsOf(definition)) + " is expected, not " + WordsOf(value) + '.');
    Allowables const& allowables = definition.GetAllowables();
    if (TestElements(allowables, *value) != 1)
        return qzReturnStatus();
    qzString const message = allowables.GetFailureMessage();
    return Refusal(message.empty() ? "The value is not allowed." : message);
}

Content::AttributeType TypeOfAttribute(Definition const* definition) {
    if (definition == nullptr)
        return Content::ATTRIBUTE_NONE;
    CompoundType const compound = definition->GetValueCompoundType();
    if (compound == CT_TABULAR)
        return Content::ATTRIBUTE_TABULAR;
    if (compound == CT_NONE || definition->GetValueBasicType() == BT_NONE)
        return Content::ATTRIBUTE_OPERATIONS;
    return compound == CT_ENTITY ? Content::ATTRIBUTE_ENTITY : Content::ATTRIBUTE_VALUE;
}

qzReturnStatus CheckAttributeValue(Definition const* definition, ValuePtr const* value) {
    switch (TypeOfAttribute(definition)) {
    case Content::ATTRIBUTE_NONE:
        return Refusal("There is no such attribute.");
    case Content::ATTRIBUTE_OPERATIONS:
        return Refusal("The attribute holds no value.");
    default:
        return CheckValue(*definition, value);
    }
}

bool HaveEqualData(ValuePtr const* a, ValuePtr const* b) {
    if (a == nullptr || b == nullptr)
        return a == b;
    if (a->GetDisplayStatus() == b->GetDisplayStatus())
        return a->Equals(b);
    Value alike;
    alike = *a;
    alike.SetDisplayStatus(b->GetDisplayStatus());
    return alike.GetValuePtr()->Equals(b);
}

} // namespace qzDescriptor
