#include "descriptor/Entity.h"
#include "descriptor/EntityList.h"
#include "descriptor/ISession.h"
#include "descriptor/Metaobject.h"
#include "operations/TypeQuery.h"
#include "selexpr/filter.h"

#include <algorithm>
#include <array>

namespace qzDescriptor {

namespace {

constexpr std::size_t s_blockSize = 256; // of objects that are matched at a time

using Matches = std::array<bool, s_blockSize>;

/// Moves those entities of a block that match to the end of those that were kept before.
class Keeper {
public:
    explicit Keeper(EntityList& list) : m_ids(list.GetList()), m_topology(list.GetTopologyIndexList()) {}

    void Keep(std::size_t begin, std::size_t count, Matches const& matches) {
        for (std::size_t i = 0; i < count; ++i) {
            if (!matches[i])
                continue;
            m_ids[m_kept] = m_ids[begin + i];
            if (begin + i < m_topology.size())
                m_topology[m_kept] = m_topology[begin + i];
            ++m_kept;
        }
    }
    void DropTheRest() {
        m_ids.resize(m_kept);
        m_topology.resize(std::min(m_kept, m_topology.size()));
    }

private:
    qzStlVector<unsigned int>& m_ids;
    qzStlVector<char>& m_topology;
    std::size_t m_kept = 0;
};

} // namespace

unsigned long long ISession::Collect(EntityList& out, EntityFullType const& type,
                                     std::string const& query) const {
    if (m_registry == nullptr || !m_hasEntities)
        return 0;
    P_CollectAll(out, type, query);
    if (query.empty())
        return out.GetIdListCount();
    TypeQuery const typeQuery(*this, type, query);
    Keeper keeper(out);
    bool const hasType = out.GetEntityFullType().IsValid();
    Entity entity(out.GetEntityFullType());
    std::size_t const total = typeQuery.GetRequest() != nullptr ? out.GetList().size() : 0;
    for (std::size_t begin = 0; begin < total; begin += s_blockSize) {
        std::size_t const count = std::min(s_blockSize, total - begin);
        std::array<void*, s_blockSize> objects{};
        for (std::size_t i = 0; i < count && hasType; ++i) {
            entity.GetIdRef() = out.GetList()[begin + i];
            objects[i] = const_cast<Metaobject*>(GetMetaobject(entity));
        }
        Matches matches{};
        ui::selexpr::MatchEach(*typeQuery.GetRequest(), objects.data(), count, matches.data());
        keeper.Keep(begin, count, matches);
    }
    keeper.DropTheRest();
    return out.GetIdListCount();
}

} // namespace qzDescriptor
