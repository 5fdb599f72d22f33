#include "copies.h"
#include "elements.h"

namespace qzPython {

namespace {

qzStlVector<unsigned int> ToIds(py::handle ids) {
    qzStlVector<unsigned int> taken;
    if (!Take(ids, taken))
        throw py::type_error("ids are whole numbers from 0 to 4294967295");
    return taken;
}

unsigned int ToIndex(EntityList const& list, long long index) {
    long long const count = list.GetIdListCount();
    if (index < -count || index >= count)
        throw py::index_error("there is no such entity");
    return static_cast<unsigned int>(index < 0 ? index + count : index);
}

EntityList ToList(EntityFullType const& type, py::object const& ids, py::object const& topologyIndices) {
    qzStlVector<char> indices;
    if (!Take(topologyIndices, indices))
        throw py::type_error("topology indices have 8 bits");
    return EntityList(type, ToIds(ids), indices);
}

/// A Python list of entities, and what goes over it.
py::list GiveEntities(EntityList const& list) {
    py::list entities;
    Entity entity;
    for (unsigned int i = 0; list.GetEntity(entity, i); ++i)
        entities.append(entity);
    return entities;
}

// The length never changes in Python, so that the ids stay where arrays over them look.
void BindEntityList(py::module_& module) {
    py::class_<EntityList> bound(
        module, "EntityList", py::buffer_protocol(),
        "Entities of one type, in order. Its ids are an array that NumPy sees without a copy; "
        "the length is fixed.");
    bound
        .def(py::init(&ToList), py::arg("type") = EntityFullType(), py::arg("ids") = py::tuple(),
             py::arg("topology_indices") = py::tuple(),
             "Topology indices are kept where the type has a topology kind.")
        .def_static(
            "of",
            [](py::iterable const& entities) {
                EntityList list;
                unsigned int count = 0;
                for (py::handle const item : entities)
                    Check(list.SetEntity(ToEntity(item), count++), "the entities are of several types");
                return list;
            },
            py::arg("entities"), "The list of entities, or of objects, of one type.")
        .def_buffer([](EntityList& self) {
            return py::buffer_info(self.GetList().data(), static_cast<py::ssize_t>(self.GetIdListCount()));
        })
        .def_property_readonly(
            "ids",
            [](py::object const& self) {
                EntityList& list = self.cast<EntityList&>();
                return py::array_t<unsigned int>(static_cast<py::ssize_t>(list.GetIdListCount()),
                                                 list.GetList().data(), self);
            },
            "The ids as a NumPy array, which writes into the list.")
        .def_property_readonly(
            "topology_indices", [](EntityList const& self) { return Give(self.GetTopologyIndexList()); },
            "A copy of the topology indices; empty where the type has no topology kind.")
        .def_property_readonly("type", &EntityList::GetEntityFullType)
        .def("__len__", &EntityList::GetIdListCount)
        .def(
            "__getitem__",
            [](EntityList const& self, long long index) {
                Entity entity;
                self.GetEntity(entity, ToIndex(self, index));
                return entity;
            },
            py::arg("index"))
        .def(
            "__setitem__",
            [](EntityList& self, long long index, Entity const& entity) {
                Check(self.SetEntity(entity, ToIndex(self, index)),
                      "the entity is of another type than the list");
            },
            py::arg("index"), py::arg("entity"))
        .def("__iter__", [](EntityList const& self) { return py::iter(GiveEntities(self)); })
        .def("__contains__",
             [](EntityList const& self, Entity const& entity) {
                 return self.GetEntityFullType() == entity.GetEntityFullType() &&
                        std::find(self.begin(), self.end(), entity.GetId()) != self.end();
             })
        .def(
            "__eq__", [](EntityList const& a, EntityList const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](EntityList const& self) {
            return py::str("EntityList({!r}, {})")
                .format(self.GetEntityFullType(), py::list(Give(self.GetList())));
        });
    using State = std::tuple<EntityFullType, py::object, py::object>;
    BindPickle(
        bound,
        +[](EntityList const& self) {
            return State(self.GetEntityFullType(), Give(self.GetList()), Give(self.GetTopologyIndexList()));
        },
        +[](EntityFullType type, py::object ids, py::object topologyIndices) {
            return ToList(type, ids, topologyIndices);
        });
}

EntityList2 ToRows(EntityFullType const& type, py::iterable const& rows) {
    qzStlVector<qzStlVector<unsigned int>> taken;
    for (py::handle const row : rows)
        taken.push_back(ToIds(row));
    return EntityList2(type, taken);
}

void BindEntityList2(py::module_& module) {
    py::class_<EntityList2> bound(module, "EntityList2", "Entities of one type, in rows.");
    bound.def(py::init(&ToRows), py::arg("type") = EntityFullType(), py::arg("rows") = py::tuple())
        .def_property_readonly("type", &EntityList2::GetEntityFullType)
        .def_property_readonly(
            "rows", [](EntityList2 const& self) { return Give(self.GetList()); },
            "A copy of the ids: an array for each row.")
        .def("__len__", [](EntityList2 const& self) { return self.GetList().size(); })
        .def(
            "__getitem__",
            [](EntityList2 const& self, std::pair<unsigned int, unsigned int> place) {
                Entity entity;
                if (!self.GetEntity(entity, place.first, place.second))
                    throw py::index_error("there is no such entity");
                return entity;
            },
            py::arg("place"), "The entity of a row and a column.")
        .def(
            "__setitem__",
            [](EntityList2& self, std::pair<unsigned int, unsigned int> place, py::object const& entity) {
                if (place.second >= self.GetIdListCount(place.first))
                    throw py::index_error("there is no such entity");
                Check(self.SetEntity(ToEntity(entity), place.first, place.second),
                      "the entity is of another type than the list");
            },
            py::arg("place"), py::arg("entity"))
        .def(
            "__eq__", [](EntityList2 const& a, EntityList2 const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](EntityList2 const& self) {
            return py::str("<EntityList2 of {}, {} rows>")
                .format(self.GetEntityFullType(), self.GetList().size());
        });
    using State = std::tuple<EntityFullType, py::iterable>;
    BindPickle(
        bound,
        +[](EntityList2 const& self) {
            return State(self.GetEntityFullType(), py::iterable(Give(self.GetList())));
        },
        +[](EntityFullType type, py::iterable rows) { return ToRows(type, rows); });
}

} // namespace

void BindLists(py::module_& module) {
    BindEntityList(module);
    BindEntityList2(module);
}

} // namespace qzPython
