#pragma once

namespace qzDescriptor {

class EntityList;

/// Appends every id of the other list that the list does not hold yet, once each and in the other's order.
/// What is there stays as it is, repeated ids included.
void AppendMissingIds(EntityList& list, EntityList const& other);

/// Removes the ids of the other list; what remains keeps its order.
void RemoveIds(EntityList& list, EntityList const& other);

} // namespace qzDescriptor
