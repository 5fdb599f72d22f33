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
    py::class_<EntityList>(
        module, "EntityList", py::buffer_protocol(),
        "Entities of one type, in order. Its ids are an array that NumPy sees without a copy; "
        "the length is fixed.")
        .def(py::init([](EntityFullType const& type, py::object const& ids) {
                 return EntityList(type, ToIds(ids), {});
             }),
             py::arg("type") = EntityFullType(), py::arg("ids") = py::tuple())
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
}

void BindEntityList2(py::module_& module) {
    py::class_<EntityList2>(module, "EntityList2", "Entities of one type, in rows.")
        .def(py::init([](EntityFullType const& type, py::iterable const& rows) {
                 qzStlVector<qzStlVector<unsigned int>> taken;
                 for (py::handle const row : rows)
                     taken.push_back(ToIds(row));
                 return EntityList2(type, taken);
             }),
             py::arg("type") = EntityFullType(), py::arg("rows") = py::tuple())
        .def_property_readonly("type", &EntityList2::GetEntityFullType)
        .def_property_readonly(
            "rows", [](EntityList2 const& self) { return Give(self.GetList()); },
            "A copy of the ids: an array for each row.")
        .def("__len__", [](EntityList2 const& self) { return self.GetList().size(); })
        .def(
            "__eq__", [](EntityList2 const& a, EntityList2 const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](EntityList2 const& self) {
            return py::str("<EntityList2 of {}, {} rows>")
                .format(self.GetEntityFullType(), self.GetList().size());
        });
}

} // namespace

void BindLists(py::module_& module) {
    BindEntityList(module);
    BindEntityList2(module);
}

} // namespace qzPython
