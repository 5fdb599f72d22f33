// What values are made from a definition. The operations belong to classes below this folder, which know
// nothing of definitions.

#include "descriptor/DataTypeUtils.h"
#include "descriptor/Definition.h"
#include "descriptor/Value.h"
#include "values/storage/CreateDefault.h"
#include "values/storage/CreateTable.h"

namespace qzDescriptor {

namespace {

bool GetDefaultOfOwnType(Definition const& definition, Value& value) {
    return definition.GetArrayDimension() == 0 && definition.GetAllowables().GetDefault(value) &&
           value.GetBasicType() == definition.GetValueBasicType() &&
           value.GetCompoundType() == definition.GetValueCompoundType();
}

} // namespace

ValuePtr* ValuePtr::Create(Definition const* definition, DisplayStatus status,
                           QZDT_DBHandle const& database) {
    if (definition == nullptr)
        return nullptr;
    if (definition->GetValueCompoundType() == CT_TABULAR)
        return CreateTable(database, status);
    Value value;
    if (!GetDefaultOfOwnType(*definition, value))
        return CreateDefault(definition->GetValueBasicType(), definition->GetValueCompoundType(),
                             definition->GetArrayDimension(), status);
    value.SetDisplayStatus(status);
    return value.GetValuePtr()->Clone();
}

Value::Value(Definition const* definition, DisplayStatus status, QZDT_DBHandle const& database)
    : m_holder(ValuePtr::Create(definition, status, database)) {}

DATA_TYPE DataTypeUtils::GetValueDataType(Definition const* definition) {
    if (definition == nullptr)
        return DT_UNKNOWN;
    return GetValueDataType(definition->GetValueBasicType(), definition->GetValueCompoundType(),
                            definition->GetArrayDimension());
}

} // namespace qzDescriptor
