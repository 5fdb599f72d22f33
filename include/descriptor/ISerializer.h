#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

namespace qzDescriptor {

/// What writes the data of a session into bytes and reads them back. Its operations are the application's;
/// this library calls none of them. Used on the thread of its session.
class QZDESCRIPTOR_API ISerializer {
public:
    ISerializer() = default;
    /// Keeps nothing: a serializer that needs its session keeps it itself.
    explicit ISerializer(ISession* session);
    ISerializer(ISerializer const&);
    ISerializer& operator=(ISerializer const&);
    virtual ~ISerializer();

    /// All of a session, and back. False when it cannot be written or read; then nothing has changed.
    virtual bool SerializeSession(ISession const& session, MemoryBuffer& buffer) = 0;
    virtual bool DeserializeSession(MemoryBuffer const& buffer, ISession& session) = 0;
    /// The entities of a bag and what they own, and back; `created` tells under which ids they came.
    virtual bool SerializeEntities(EntityListBag const& entities, MemoryBuffer& buffer) = 0;
    virtual bool DeserializeEntities(MemoryBuffer const& buffer, EntityListBag& created) = 0;
    virtual bool SerializeEntity(Entity const& entity, MemoryBuffer& buffer) = 0;
    virtual bool DeserializeEntity(MemoryBuffer const& buffer, Entity& created) = 0;
    /// One attribute of an entity.
    virtual bool SerializeValue(Entity const& entity, Identifier const& attribute, MemoryBuffer& buffer) = 0;
    virtual bool DeserializeValue(MemoryBuffer const& buffer, Entity const& entity,
                                  Identifier const& attribute) = 0;
    /// The form in which it writes, and whether it reads another.
    virtual Version GetVersion() const = 0;
    virtual bool CanRead(Version const& version) const = 0;
    /// Whether bytes look like something this serializer wrote.
    virtual bool Recognizes(MemoryBuffer const& buffer) const = 0;
    /// Why the last operation failed.
    virtual qzString GetFailureMessage() const = 0;
};

} // namespace qzDescriptor
