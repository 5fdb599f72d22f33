#include "descriptor/DataInterface.h"

#include "descriptor/Entity.h"
#include "descriptor/Identifier.h"
#include "descriptor/Metaobject.h"
#include "operations/query_values.h"

namespace qzDescriptor {

bool DataInterface::GetValue(void* object, qzString const& property, qzVariant& out) {
    if (object == nullptr)
        return false;
    auto const& metaobject = *static_cast<Metaobject const*>(object);
    Entity const entity = metaobject.GetEntity();
    if (IsIdProperty(property)) {
        out.SetLong64(entity.GetId());
        return true;
    }
    Identifier const attribute(property);
    ValuePtr const* value = nullptr;
    bool const hasValue = metaobject.GetValue(attribute, value) && value != nullptr;
    QueryType const& type = GetQueryType(metaobject.GetDefinition(attribute));
    if (!type.isKnown || type.readVariant == nullptr)
        return type.isKnown;
    return hasValue && type.readVariant(*value, out);
}

} // namespace qzDescriptor
