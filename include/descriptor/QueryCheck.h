#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "descriptor/qzReturnStatus.h"
#include "qzutl/qzString.h"

namespace qzDescriptor {

/// Whether a query can be read for the entities of a type, and asks for nothing but attributes that they
/// have. The message says where it is wrong: "at 11: found 'or', expected a condition", "'thicknes' is no
/// attribute of Ply". An empty query is right: it asks for everything.
/// Reads the session, as the next one does: on any thread while nothing in it changes.
QZDESCRIPTOR_API qzReturnStatus CheckQuery(ISession const& session, EntityFullType const& type,
                                           qzString const& query);

/// Why an object is found by a query, or is not: a line for each condition that decides, such as
/// "T > 2.5 is false: T is 1.2". What CheckQuery says when the query cannot
/// be read; nothing for an empty one.
QZDESCRIPTOR_API qzString ExplainQuery(ISession const& session, Metaobject const& object,
                                       qzString const& query);

} // namespace qzDescriptor
