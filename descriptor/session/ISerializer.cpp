#include "descriptor/ISerializer.h"

namespace qzDescriptor {

ISerializer::ISerializer([[maybe_unused]] ISession* session) {}
ISerializer::ISerializer(ISerializer const&) {}
ISerializer& ISerializer::operator=(ISerializer const&) { return *this; }
ISerializer::~ISerializer() = default;

} // namespace qzDescriptor
