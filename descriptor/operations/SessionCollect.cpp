#include "descriptor/Entity.h"
#include "descriptor/EntityList.h"
#include "descriptor/ISession.h"
#include "descriptor/Metaobject.h"
#include "descriptor/ObjectQuery.h"

#include <algorithm>

namespace qzDescriptor {

namespace {

/// Keeps the entities of a list that pass a test, in their order.
template <class Test>
void KeepIf(EntityList& list, Test&& test) {
    qzStlVector<unsigned int>& ids = list.GetList();
    qzStlVector<char>& topology = list.GetTopologyIndexList();
    topology.resize(topology.empty() ? 0 : ids.size());
    std::size_t kept = 0;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (!test(i))
            continue;
        ids[kept] = ids[i];
        if (!topology.empty())
            topology[kept] = topology[i];
        ++kept;
    }
    ids.resize(kept);
    topology.resize(std::min(kept, topology.size()));
}

} // namespace

unsigned long long ISession::Collect(EntityList& out, EntityFullType const& givenType,
                                     std::string const& query) const {
    EntityFullType const type = givenType; // it may be that of the list
    if (m_registry == nullptr || !m_hasEntities)
        return 0;
    P_CollectAll(out, type, query);
    if (query.empty())
        return out.GetIdListCount();
    ObjectQuery const wanted(*this, type, query);
    bool const hasType = out.GetEntityFullType().IsValid();
    Entity entity(out.GetEntityFullType());
    KeepIf(out, [&](std::size_t i) {
        if (!wanted.IsValid())
            return false;
        entity.GetIdRef() = out.GetList()[i];
        if (i < out.GetTopologyIndexList().size())
            entity.GetTopologyIndexRef() = out.GetTopologyIndexList()[i];
        return wanted.Matches(hasType ? GetMetaobject(entity) : nullptr);
    });
    return out.GetIdListCount();
}

} // namespace qzDescriptor
