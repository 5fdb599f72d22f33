// Which entities an entity refers to by the values of its attributes.

#include "descriptor/Definition.h"
#include "descriptor/EntityList2.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/EntityListBagList.h"
#include "descriptor/ISession.h"
#include "descriptor/MetaclassMgr.h"
#include "descriptor/Metaobject.h"
#include "descriptor/ValuePtr.h"
#include "qzutl/qzStlVector.h"

#include <algorithm>
#include <span>
#include <unordered_set>
#include <vector>

namespace qzDescriptor {

namespace {

/// Entities by type, each once and in the order in which they came.
class ReferredEntities {
public:
    void Add(ValuePtr const& value) {
        if (Entity const* const entity = value.GetValuePointerEntity(0u, 0u);
            entity != nullptr && value.GetArrayDimension() == 0)
            P_Add(entity->GetEntityFullType(), std::span(&entity->GetIdRef(), 1));
        else if (EntityList const* const list = value.GetValuePointerEntityList())
            P_Add(list->GetEntityFullType(), list->GetList());
        else if (EntityList2 const* const rows = value.GetValuePointerEntityList2())
            std::ranges::for_each(rows->GetList(),
                                  [&](auto const& row) { P_Add(rows->GetEntityFullType(), row); });
        else if (EntityListBag const* const bag = value.GetValuePointerEntityListBag())
            P_Add(*bag);
        else if (EntityListBagList const* const bags = value.GetValuePointerEntityListBagList())
            P_Add(*bags);
    }

    unsigned int MergeInto(EntityListBag& out) const {
        EntityListBag bag;
        unsigned int count = 0;
        for (Type const& type : m_types) {
            bag.SetList(type.list);
            count += type.list.GetIdListCount();
        }
        out += bag;
        return count;
    }

private:
    struct Type {
        EntityList list;
        std::unordered_set<unsigned int> ids;
    };

    void P_Add(EntityListBagList const& bags) {
        qzStlVector<std::pair<unsigned int, qzString>> pairs;
        bags.GetRegisteredPairs(pairs);
        for (auto const& [key, name] : pairs)
            P_Add(bags.Query(bags.Find(key, name)));
    }

    void P_Add(EntityListBag const& bag) {
        for (EntityList const& list : bag)
            P_Add(list.GetEntityFullType(), list.GetList());
    }

    void P_Add(EntityFullType const& entityType, std::span<unsigned int const> ids) {
        if (!entityType.IsValid())
            return;
        Type& type = P_GetType(entityType);
        for (unsigned int const id : ids) {
            if (id != 0 && type.ids.insert(id).second)
                type.list.GetList().push_back(id);
        }
    }

    Type& P_GetType(EntityFullType const& entityType) {
        auto const found =
            std::ranges::find(m_types, entityType, [](Type const& type) -> EntityFullType const& {
                return type.list.GetEntityFullType();
            });
        if (found != m_types.end())
            return *found;
        Type& type = m_types.emplace_back();
        type.list.SetEntityFullType(entityType);
        return type;
    }

    std::vector<Type> m_types;
};

} // namespace

unsigned int ISession::GetReferred(EntityListBag& out, Entity const& entity) const {
    Metaobject const* const object = Get(entity);
    if (m_registry == nullptr || object == nullptr)
        return 0;
    unsigned int const metaclass = m_registry->GetMetaclassHandle(entity.GetEntityFullType());
    qzStlVector<unsigned int> attributes;
    m_registry->GetAttributeHandles(metaclass, attributes, 0);
    ReferredEntities referred;
    for (unsigned int const attribute : attributes) {
        Definition const* const definition = m_registry->GetDefinition(metaclass, attribute, 0);
        ValuePtr const* value = nullptr;
        if (definition != nullptr && definition->GetValueCompoundType() == CT_ENTITY &&
            object->GetValue(attribute, value) && value != nullptr)
            referred.Add(*value);
    }
    return referred.MergeInto(out);
}

} // namespace qzDescriptor
