#include "copies.h"

namespace qzPython {

namespace {

/// What mappings by entity type have in common; `Find` answers false for a type without an entry.
template <class Item, class Bag>
class Mapping {
public:
    explicit Mapping(py::class_<Bag>& bound) {
        bound.def("__getitem__", &P_Get, py::arg("type"), "A copy of what stands under the type.")
            .def("__len__", &Bag::GetEntityFullTypeListCount)
            .def("__iter__", [](Bag const& bag) { return py::iter(py::cast(P_Types(bag))); })
            .def("__contains__",
                 [](Bag const& bag, EntityFullType const& type) {
                     Item item;
                     return P_Find(bag, type, item);
                 })
            .def("keys", &P_Types)
            .def("values",
                 [](Bag const& bag) {
                     py::list values;
                     for (EntityFullType const& type : P_Types(bag))
                         values.append(P_Get(bag, type));
                     return values;
                 })
            .def("items",
                 [](Bag const& bag) {
                     py::list items;
                     for (EntityFullType const& type : P_Types(bag))
                         items.append(py::make_tuple(type, P_Get(bag, type)));
                     return items;
                 })
            .def(
                "get",
                [](Bag const& bag, EntityFullType const& type, py::object const& missing) {
                    Item item;
                    return P_Find(bag, type, item) ? py::cast(item) : missing;
                },
                py::arg("type"), py::arg("missing") = py::none())
            .def(
                "__eq__", [](Bag const& a, Bag const& b) { return a == b; }, py::is_operator());
    }

private:
    static bool P_Find(Bag const& bag, EntityFullType const& type, EntityList& list) {
        return bag.GetList(type, list);
    }
    static bool P_Find(Bag const& bag, EntityFullType const& type, Formula& formula) {
        return bag.GetFormula(type, formula);
    }
    static Item P_Get(Bag const& bag, EntityFullType const& type) {
        Item item;
        if (!P_Find(bag, type, item))
            throw Missing("nothing of type " + ToText(py::cast(type)));
        return item;
    }
    static qzStlVector<EntityFullType> P_Types(Bag const& bag) {
        qzStlVector<EntityFullType> types;
        bag.GetEntityFullTypeList(types);
        return types;
    }
};

EntityListBag ToBag(py::iterable const& lists) {
    EntityListBag bag;
    for (py::handle const list : lists)
        Check(bag.SetList(list.cast<EntityList const&>()), "a list in a bag needs a type");
    return bag;
}

void BindEntityListBag(py::module_& module) {
    py::class_<EntityListBag> bound(module, "EntityListBag", "Entity lists by entity type: a mapping.");
    bound.def(py::init<>()).def(py::init(&ToBag), py::arg("lists"));
    Mapping<EntityList, EntityListBag> const mapping(bound);
    bound
        .def(
            "__setitem__",
            [](EntityListBag& self, EntityFullType const& type, EntityList const& list) {
                Check(list.GetEntityFullType() == type && self.SetList(list), "the list is of another type");
            },
            py::arg("type"), py::arg("list"))
        .def(
            "add",
            [](EntityListBag& self, EntityList const& list) {
                Check(self.SetList(list), "a list in a bag needs a type");
            },
            py::arg("list"), "Puts a list under its type.")
        .def("__iadd__",
             [](EntityListBag& self, EntityListBag const& other) -> EntityListBag& { return self += other; })
        .def("__isub__",
             [](EntityListBag& self, EntityListBag const& other) -> EntityListBag& { return self -= other; })
        .def_property_readonly(
            "total",
            [](EntityListBag const& self) {
                std::size_t total = 0;
                for (EntityList const& list : self)
                    total += list.GetIdListCount();
                return total;
            },
            "How many entities all lists hold together.")
        .def("__repr__", [](EntityListBag const& self) {
            py::list parts;
            for (EntityList const& list : self)
                parts.append(py::str("{}: {}").format(list.GetEntityFullType(), list.GetIdListCount()));
            return py::str("<EntityListBag {{{}}}>").format(py::str(", ").attr("join")(parts));
        });
    BindPickle(
        bound,
        +[](EntityListBag const& self) {
            qzStlVector<EntityList> lists;
            for (EntityList const& list : self)
                lists.push_back(list);
            return std::tuple(lists);
        },
        +[](qzStlVector<EntityList> lists) {
            EntityListBag bag;
            for (EntityList const& list : lists)
                bag.SetList(list);
            return bag;
        });
}

void BindFormulaBag(py::module_& module) {
    py::class_<FormulaBag> bound(module, "FormulaBag", "Formulas by entity type: a mapping.");
    bound.def(py::init<>());
    Mapping<Formula, FormulaBag> const mapping(bound);
    bound.def("add", &FormulaBag::SetFormula, py::arg("formula"), "Puts a formula under its type.")
        .def(
            "__delitem__",
            [](FormulaBag& self, EntityFullType const& type) {
                if (!self.RemoveFormula(type))
                    throw Missing("nothing of this type");
            },
            py::arg("type"))
        .def("__repr__", [](FormulaBag const& self) {
            return py::str("<FormulaBag of {} formulas>").format(self.GetEntityFullTypeListCount());
        });
    BindPickle(
        bound,
        +[](FormulaBag const& self) {
            qzStlVector<EntityFullType> types;
            self.GetEntityFullTypeList(types);
            qzStlVector<Formula> formulas;
            for (EntityFullType const& type : types)
                formulas.push_back(self.GetFormula(type));
            return std::tuple(formulas);
        },
        +[](qzStlVector<Formula> formulas) {
            FormulaBag bag;
            for (Formula const& formula : formulas)
                bag.SetFormula(formula);
            return bag;
        });
}

/// The index, for those that ask for a bag that is not there.
unsigned int CheckIndex(EntityListBagList const& self, unsigned int index) {
    if (!self.Query(index).IsValid())
        throw py::index_error("there is no such bag");
    return index;
}

/// A bag of a register with its index, key, name and flag.
using Registered = std::tuple<unsigned int, unsigned int, qzString, unsigned int, EntityListBag>;

std::tuple<qzStlVector<Registered>> ToEntries(EntityListBagList const& self) {
    qzStlVector<std::pair<unsigned int, qzString>> pairs;
    self.GetRegisteredPairs(pairs);
    qzStlVector<Registered> entries;
    for (auto const& [key, name] : pairs) {
        unsigned int const index = self.Find(key, name);
        entries.push_back(Registered(index, key, name, self.GetUserFlag(index), self.Query(index)));
    }
    return {entries};
}

/// With the same indices: places that are no longer in use are left out.
EntityListBagList FromEntries(qzStlVector<Registered> entries) {
    EntityListBagList made;
    unsigned int next = 0;
    for (auto const& [index, key, name, flag, bag] : entries) {
        for (; next < index; ++next)
            made.Unregister(made.Register(key, name));
        next = made.Register(key, name) + 1;
        made.Modify(index) = bag;
        made.SetUserFlag(index, flag);
    }
    return made;
}

void BindBagList(py::module_& module) {
    py::class_<EntityListBagList> bound(module, "EntityListBagList",
                                        "A register of bags, each under a key and a name.");
    bound.def(py::init<>())
        .def("register", &EntityListBagList::Register, py::arg("key"), py::arg("name"),
             "The index of the bag with this key and name, which is made when there is none.")
        .def(
            "find",
            [](EntityListBagList const& self, unsigned int key, std::string const& name) {
                unsigned int const index = self.Find(key, name);
                return index != EntityListBagList::s_notFound ? std::optional(index) : std::nullopt;
            },
            py::arg("key"), py::arg("name"), "None when there is none.")
        .def("unregister", &EntityListBagList::Unregister, py::arg("index"))
        .def(
            "__getitem__",
            [](EntityListBagList const& self, unsigned int index) {
                return self.Query(CheckIndex(self, index));
            },
            py::arg("index"), "A copy of a bag.")
        .def(
            "__setitem__",
            [](EntityListBagList& self, unsigned int index, EntityListBag const& bag) {
                self.Modify(CheckIndex(self, index)) = bag;
            },
            py::arg("index"), py::arg("bag"))
        .def("user_flag", &EntityListBagList::GetUserFlag, py::arg("index"))
        .def("set_user_flag", &EntityListBagList::SetUserFlag, py::arg("index"), py::arg("flag"))
        .def_property_readonly(
            "pairs",
            [](EntityListBagList const& self) {
                qzStlVector<std::pair<unsigned int, qzString>> pairs;
                self.GetRegisteredPairs(pairs);
                return pairs;
            },
            "The keys and names in use, in index order.")
        .def(
            "__eq__", [](EntityListBagList const& a, EntityListBagList const& b) { return a == b; },
            py::is_operator())
        .def("__repr__", [](EntityListBagList const& self) {
            return py::str("<EntityListBagList of {} bags>").format(std::get<0>(ToEntries(self)).size());
        });
    BindPickle(bound, &ToEntries, &FromEntries);
}

} // namespace

void BindBags(py::module_& module) {
    BindEntityListBag(module);
    BindFormulaBag(module);
    BindBagList(module);
}

} // namespace qzPython
