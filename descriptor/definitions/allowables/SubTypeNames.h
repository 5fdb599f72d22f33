#pragma once

#include "descriptor/Allowables.h"
#include "descriptor/EntityFullType.h"
#include "qzutl/qzStlVector.h"

namespace qzDescriptor {

/// The names of the sub-types of entity types, in the order in which they were added.
class SubTypeNames {
public:
    /// False for a name that the type has already.
    bool Add(EntityFullType const& type, Allowables::SubType kind, qzString const& name);
    bool Remove(EntityFullType const& type, Allowables::SubType kind, qzString const& name);
    void RemoveAllOf(EntityFullType const& type);
    unsigned int Count(EntityFullType const& type, Allowables::SubType kind) const;
    /// Null when there are not so many.
    qzString const* Name(EntityFullType const& type, Allowables::SubType kind, unsigned int index) const;

    friend bool operator==(SubTypeNames const&, SubTypeNames const&) = default;

private:
    struct Entry {
        EntityFullType type;
        Allowables::SubType kind;
        qzString name;

        bool IsOf(EntityFullType const& itsType, Allowables::SubType itsKind) const {
            return kind == itsKind && type == itsType;
        }
        friend bool operator==(Entry const&, Entry const&) = default;
    };

    qzStlVector<Entry> m_entries;
};

} // namespace qzDescriptor
