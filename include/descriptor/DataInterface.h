#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "selexpr/IDataInterface.h"

namespace qzDescriptor {

/// What queries know of objects: the values of their attributes, by identifier, and their "id".
///
/// An attribute has a value for queries when it is a single bool, char, int, unsigned int, float, double or
/// text. One of another type is there without a value, so that no condition on it holds. Unsigned numbers are
/// read as signed ones of 32 bits: from 2147483648 on they count as negative, as the conditions that
/// applications have stored expect.
///
/// It keeps nothing, and may be used by as many threads as the objects may be read by.
class QZDESCRIPTOR_API DataInterface : public ui::selexpr::IDataInterface {
public:
    DataInterface() = default;

    /// `object` is a Metaobject; the property "id", in any case, is the number of its entity. False for no
    /// object and for an attribute that it does not have.
    bool GetValue(void* object, qzString const& property, qzVariant& out) override;
};

} // namespace qzDescriptor
