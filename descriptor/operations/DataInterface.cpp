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
    if (IsIdProperty(property)) {
        out.SetLong64(metaobject.GetEntity().GetId());
        return true;
    }
    Identifier const attribute(property);
    ValuePtr const* value = nullptr;
    QueryType const& type = GetQueryType(metaobject.GetDefinition(attribute));
    if (!type.isKnown || !metaobject.GetValue(attribute, value) || value == nullptr)
        return false;
    return type.readVariant == nullptr || type.readVariant(*value, out);
}

} // namespace qzDescriptor
