#include "derived_session.h"
#include "elements.h"

#include "descriptor/MetaobjectCollection.h"

#include <algorithm>
#include <unordered_set>

namespace qzPython {

namespace {

/// Objects of one session by their entities, each once: a collection that C++ can be handed, too.
class ListedObjects final : public ICollection {
public:
    explicit ListedObjects(SessionHandle session) : m_session(std::move(session)) {}

    MetaobjectCollectionIterator* begin() override;
    MetaobjectCollectionIterator* end() override;
    /// 1 for an entity that has no object, and for one that is there already.
    int add(Entity const& entity) override;
    /// 1 for an entity that is not there.
    int remove(Entity const& entity) override;

    SessionHandle const& GetSession() const { return m_session; }
    std::size_t GetCount() const { return m_entities.size(); }
    Metaobject* Find(std::size_t index) const {
        ISession const* const session = m_session.Find();
        // What C++ walks are the application's objects, which the session hands out as constant.
        return session != nullptr && index < m_entities.size()
                   ? const_cast<Metaobject*>(session->Get(m_entities[index]))
                   : nullptr;
    }

private:
    SessionHandle m_session;
    std::vector<Entity> m_entities;
    std::unordered_set<Entity, EntityHash> m_known;
};

class ListedPlace final : public MetaobjectCollectionIterator {
public:
    ListedPlace(ListedObjects const& objects, std::size_t index) : m_objects(&objects), m_index(index) {}

    void next() override { m_index += m_index < m_objects->GetCount() ? 1 : 0; }
    bool equals(ICollectionIterator const& other) const override {
        auto const* const place = dynamic_cast<ListedPlace const*>(&other);
        return place != nullptr && place->m_objects == m_objects && place->P_Index() == P_Index();
    }
    ICollectionIterator* clone() const override { return new ListedPlace(*this); }
    Metaobject* get() override { return m_objects->Find(m_index); }

private:
    /// Not beyond the end, which comes nearer when objects are removed meanwhile.
    std::size_t P_Index() const { return std::min(m_index, m_objects->GetCount()); }

    ListedObjects const* m_objects;
    std::size_t m_index;
};

MetaobjectCollectionIterator* ListedObjects::begin() { return new ListedPlace(*this, 0); }
MetaobjectCollectionIterator* ListedObjects::end() { return new ListedPlace(*this, m_entities.size()); }

int ListedObjects::add(Entity const& entity) {
    if (m_session.Find() == nullptr)
        return 1;
    SessionInUse const session(m_session);
    if (session->Get(entity) == nullptr || !m_known.insert(entity).second)
        return 1;
    m_entities.push_back(entity);
    return 0;
}

int ListedObjects::remove(Entity const& entity) {
    if (m_known.erase(entity) == 0)
        return 1;
    m_entities.erase(std::ranges::find(m_entities, entity));
    return 0;
}

/// Visits the objects that there are in a collection, in its order, each before the next one is asked for:
/// where scripts are asked, that may end the others.
template <class Visit>
void Walk(ICollection& collection, Visit&& visit) {
    std::optional<SessionInUse> session;
    if (auto const* const listed = dynamic_cast<ListedObjects const*>(&collection);
        listed != nullptr && listed->GetSession().Find() != nullptr)
        session.emplace(listed->GetSession());
    MetaobjectCollection const handle(&collection);
    std::unique_ptr<MetaobjectCollectionIterator> const place(handle.begin()), end(handle.end());
    for (; place && end && !place->equals(*end); place->next()) {
        if (Metaobject const* const object = place->get())
            visit(*object);
    }
}

std::vector<Entity> ToEntities(ICollection& self) {
    std::vector<Entity> entities;
    Walk(self, [&](Metaobject const& object) { entities.push_back(object.GetEntity()); });
    return entities;
}

py::object Give(Metaobject const& object) {
    ISession* const session = object.GetSession();
    return session != nullptr ? GiveObject(&object, SessionHandle(*session)) : py::object(py::none());
}

py::list GiveAll(ICollection& self) {
    py::list objects;
    Walk(self, [&](Metaobject const& object) { objects.append(Give(object)); });
    return objects;
}

EntityListBag ToLists(ICollection& self) {
    EntityListBag bag;
    for (Entity const& entity : ToEntities(self)) {
        EntityFullType const& type = entity.GetEntityFullType();
        if (bag.GetIdListCount(type) == 0)
            bag.SetList(EntityList(type, {}, {}));
        bag.SetListEntity(entity, type, bag.GetIdListCount(type));
    }
    return bag;
}

std::unique_ptr<ICollection> MakeCollection(SessionHandle const& session, py::iterable const& objects) {
    session.Get();
    auto made = std::make_unique<ListedObjects>(session);
    for (py::handle const object : objects)
        Check(made->add(ToEntity(object)) == 0, "an object is gone, or given twice");
    return made;
}

} // namespace

void BindCollections(py::module_& module) {
    py::class_<ICollection>(module, "MetaobjectCollection",
                            "A collection of objects, such as a selection: one of Python, in the order in "
                            "which they were put in, "
                            "or an application's. Objects that are gone are passed over.")
        .def(py::init(&MakeCollection), py::arg("session"), py::arg("objects") = py::tuple(),
             "A collection of objects, or entities, of one session.")
        .def("__iter__", [](ICollection& self) { return py::iter(GiveAll(self)); })
        .def("__len__", [](ICollection& self) { return ToEntities(self).size(); })
        .def(
            "__getitem__",
            [](ICollection& self, long long index) {
                py::list const objects = GiveAll(self);
                auto const count = static_cast<long long>(objects.size());
                if (index < -count || index >= count)
                    throw py::index_error("there is no such object");
                return py::object(objects[static_cast<std::size_t>(index < 0 ? index + count : index)]);
            },
            py::arg("index"))
        .def(
            "__contains__",
            [](ICollection& self, py::object const& object) {
                return std::ranges::count(ToEntities(self), ToEntity(object)) > 0;
            },
            py::arg("object"))
        .def(
            "add",
            [](ICollection& self, py::object const& object) {
                Check(MetaobjectCollection(&self).add(ToEntity(object)) == 0,
                      "the collection does not take the object");
            },
            py::arg("object"), "Raises Refused for an object that is gone or there already.")
        .def(
            "remove",
            [](ICollection& self, py::object const& object) {
                Check(MetaobjectCollection(&self).remove(ToEntity(object)) == 0,
                      "the object is not in the collection");
            },
            py::arg("object"))
        .def_property_readonly("entities", &ToEntities)
        .def_property_readonly("lists", &ToLists, "The entities by type, as an EntityListBag.")
        .def(
            "ids",
            [](ICollection& self, EntityFullType const& type) {
                return qzPython::Give(ToLists(self).GetList(type).GetList());
            },
            py::arg("type"), "The ids of the objects of a type, as a NumPy array.")
        .def("__repr__", [](ICollection& self) {
            return py::str("<MetaobjectCollection of {}>").format(ToEntities(self).size());
        });
}

} // namespace qzPython
