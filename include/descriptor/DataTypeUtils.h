#pragma once

#include "descriptor/DataTypes.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"

namespace qzDescriptor {

/// The flat type code of a value, and default values by type.
class QZDESCRIPTOR_API DataTypeUtils {
public:
    /// The code for a triple, DT_UNKNOWN where there is none. The mapping is lossy and uneven, and callers
    /// rely on it as it stands: a list of bool has the scalar's code, short and long have none, and any
    /// non-zero dimension of a string is a string list.
    static DATA_TYPE GetValueDataType(BasicType const& basic, CompoundType const& compound,
                                      unsigned int arrayDimension);

    /// The code for a definition's triple; DT_UNKNOWN for null.
    static DATA_TYPE GetValueDataType(Definition const* definition);

    /// A value that holds the default element of the type (or an empty list or bag), with display status
    /// DS_DEFAULT; an empty value when the triple is not a type.
    static Value GetValueConstruct(BasicType const& basic, CompoundType const& compound,
                                   unsigned int arrayDimension);
};

} // namespace qzDescriptor
