#include "copies.h"
#include "elements.h"

namespace qzPython {

namespace {

/// Constraints on entities are about their types.
template <class T>
using AllowedType = std::conditional_t<std::is_same_v<T, Entity>, EntityFullType, T>;

template <class T>
concept Allowed = requires(Allowables const& allowables, T& value) {
    allowables.GetDefault(value);
};
template <class T>
concept Bounded = requires(Allowables const& allowables, qzStlVector<BoundT<T>>& bounds) {
    allowables.GetBounds(bounds);
};

py::object GiveItem(EntityFullType const& type) { return py::cast(type); }
template <class T>
py::object GiveItem(T const& item) {
    return Give(item);
}

template <class T>
T TakeItem(py::handle object) {
    T item{};
    if constexpr (std::is_same_v<T, EntityFullType>)
        return object.cast<EntityFullType>();
    else if (!Take(object, item))
        throw Refused("allowables of another type than " + ToText(py::repr(object)));
    return item;
}

template <class T>
Allowables FromBounds(AllowablesParts const& parts) {
    if (parts.defaultValue.is_none())
        throw Refused("bounds come with a default");
    qzStlVector<BoundT<T>> bounds;
    auto const add = [&](py::object const& bound, typename BoundT<T>::Rule rule) {
        if (!bound.is_none())
            bounds.push_back(BoundT<T>(TakeItem<T>(bound), rule));
    };
    add(parts.above, BoundT<T>::Greater);
    add(parts.atLeast, BoundT<T>::GreaterOrEqual);
    add(parts.below, BoundT<T>::Less);
    add(parts.atMost, BoundT<T>::LessOrEqual);
    return Allowables(bounds, TakeItem<T>(parts.defaultValue));
}

/// Values with names beside them, or a mapping of names to values.
template <class T>
Allowables FromList(AllowablesParts const& parts) {
    Allowables::List<T> list;
    if (py::isinstance<py::dict>(parts.values)) {
        // A copy: the conversion of a value may run code that changes the mapping.
        auto const values = py::reinterpret_steal<py::dict>(PyDict_Copy(parts.values.ptr()));
        for (auto const& item : values)
            list.push_back(std::pair<T, qzString>(TakeItem<T>(item.second), ToText(item.first)));
    } else {
        for (py::handle const value : parts.values)
            list.push_back(std::pair<T, qzString>(TakeItem<T>(value), ""));
        std::size_t i = 0;
        for (py::handle const name : parts.names.is_none() ? py::object(py::tuple()) : parts.names) {
            if (i < list.size())
                list[i++].second = ToText(name);
        }
    }
    std::size_t index = list.size();
    if (!parts.defaultValue.is_none()) {
        T const wanted = TakeItem<T>(parts.defaultValue);
        for (index = 0; index < list.size() && !(list[index].first == wanted);)
            ++index;
        if (index == list.size())
            throw Refused("the default is none of the values");
    }
    return Allowables(list, static_cast<unsigned int>(index));
}

template <class T>
Allowables FromParts(AllowablesParts const& parts) {
    bool const haveBounds = !(parts.above.is_none() && parts.atLeast.is_none() && parts.below.is_none() &&
                              parts.atMost.is_none());
    if (haveBounds && !parts.values.is_none())
        throw Refused("allowables have bounds or a list of values, not both");
    if (!parts.values.is_none())
        return FromList<T>(parts);
    if (!haveBounds)
        return parts.defaultValue.is_none() ? Allowables() : Allowables(TakeItem<T>(parts.defaultValue));
    if constexpr (Bounded<T>)
        return FromBounds<T>(parts);
    throw Refused("only numbers have bounds");
}

bool HaveAny(AllowablesParts const& parts) {
    for (py::object const& part :
         {parts.defaultValue, parts.above, parts.atLeast, parts.below, parts.atMost, parts.values}) {
        if (!part.is_none())
            return true;
    }
    return false;
}

/// Calls the visitor with the C++ type that allowables of this kind are about.
template <class F>
void VisitAllowed(Allowables const& allowables, F&& visitor) {
    VisitElement(allowables.GetBasicType(), allowables.GetCompoundType(), [&](auto row) {
        using T = AllowedType<typename decltype(row)::Type>;
        if constexpr (Allowed<T>)
            visitor(std::type_identity<T>());
    });
}

} // namespace

Allowables MakeAllowables(TypeSpec const& type, AllowablesParts const& parts) {
    Allowables allowables;
    if (!HaveAny(parts))
        return allowables;
    bool made = false;
    VisitElement(type.basic, type.compound, [&](auto row) {
        using T = AllowedType<typename decltype(row)::Type>;
        if constexpr (Allowed<T>) {
            allowables = FromParts<T>(parts);
            made = true;
        }
    });
    if (!made)
        throw Refused("there are no allowables of type " + Describe(type));
    return allowables;
}

py::object GiveDefault(Allowables const& allowables) {
    py::object given = py::none();
    VisitAllowed(allowables, [&]<class T>(std::type_identity<T>) {
        T value{};
        if (allowables.GetDefault(value))
            given = GiveItem(value);
    });
    return given;
}

py::list GiveAllowed(Allowables const& allowables) {
    py::list given;
    VisitAllowed(allowables, [&]<class T>(std::type_identity<T>) {
        Allowables::List<T> list;
        unsigned int index = 0;
        allowables.GetList(list, index);
        for (auto const& [value, name] : list)
            given.append(py::make_tuple(GiveItem(value), GiveText(name)));
    });
    return given;
}

py::list GiveBounds(Allowables const& allowables) {
    static constexpr char const* s_rules[] = {"<", "<=", ">", ">="};
    py::list given;
    VisitAllowed(allowables, [&]<class T>(std::type_identity<T>) {
        if constexpr (Bounded<T>) {
            qzStlVector<BoundT<T>> bounds;
            allowables.GetBounds(bounds);
            for (BoundT<T> const& bound : bounds) {
                T value{};
                typename BoundT<T>::Rule rule = BoundT<T>::Less;
                if (bound.GetValueAndRule(value, rule) && rule >= 0 && rule <= 3)
                    given.append(py::make_tuple(s_rules[rule], GiveItem(value)));
            }
        }
    });
    return given;
}

namespace {

/// The data as the type of the constraint, tested.
bool Test(Allowables const& self, py::object const& data) {
    int result = 0;
    VisitAllowed(self, [&]<class T>(std::type_identity<T>) { result = self.Test(TakeItem<T>(data)); });
    return result != 1;
}

unsigned int CheckItem(Allowables const& self, unsigned int index) {
    if (index >= self.GetListCount())
        throw py::index_error("there is no such item");
    return index;
}

std::optional<unsigned int> FindDefault(Allowables const& self) {
    qzStlVector<qzString> names;
    unsigned int index = 0;
    return self.GetNameList(names, index) && index < names.size() ? std::optional(index) : std::nullopt;
}

void BindListOperations(py::class_<Allowables>& bound) {
    constexpr unsigned int all = 0xFFFFFFFF;
    bound
        .def(
            "add",
            [](Allowables& self, py::object const& value, qzString const& name) {
                Check(self.HaveList(), "these allowables have no list");
                VisitAllowed(
                    self, [&]<class T>(std::type_identity<T>) { self.AddToList(TakeItem<T>(value), name); });
            },
            py::arg("value"), py::arg("name") = "",
            "Appends a value to the list, named by its text unless a name is given.")
        .def(
            "remove",
            [](Allowables& self, unsigned int index) { self.RemoveFromList(CheckItem(self, index)); },
            py::arg("index"), "Removes an item. When it was the default, the first one is from now on.")
        .def(
            "clear", [](Allowables& self) { self.RemoveFromList(all); }, "Empties the list.")
        .def(
            "rename",
            [](Allowables& self, unsigned int index, qzString const& name) {
                self.SetListItemName(CheckItem(self, index), name);
            },
            py::arg("index"), py::arg("name"))
        .def_property(
            "default_index", &FindDefault,
            [](Allowables& self, unsigned int index) { self.SetDefaultIdx(CheckItem(self, index)); },
            "Which item of the list is the default; None when none is.")
        .def_property(
            "operate_on_extra", &Allowables::GetOperateOnExtra,
            [](Allowables& self, bool extra) {
                Check(self.SetOperateOnExtra(extra) == 1, "these allowables have no list");
            },
            "Whether everything about lists concerns the extra list, and not the main one.")
        .def("valid_subset", &Allowables::ValidSubset, py::arg("other"),
             "0 when the other list is part of this one, -1 when it is not, 1 without two lists, 2 for "
             "another "
             "type.")
        .def(
            "take",
            [](Allowables& self, Allowables const& other, bool allowed, bool defaultValue) {
                Check(self.Copy(other, allowed, defaultValue), "the allowables are of another kind or type");
            },
            py::arg("other"), py::arg("allowed") = true, py::arg("default") = true,
            "Takes over what others allow, their default, or both.");
}

void BindSubTypes(py::class_<Allowables>& bound) {
    bound
        .def(
            "add_sub_type",
            [](Allowables& self, EntityFullType const& type, int kind, qzString const& name) {
                Check(self.AddSubType(type, static_cast<Allowables::SubType>(kind), name),
                      "the list has no such type, or it has the sub-type");
            },
            py::arg("type"), py::arg("kind"), py::arg("name"),
            "Names a sub-type of an entity type that the list holds.")
        .def(
            "remove_sub_type",
            [](Allowables& self, EntityFullType const& type, int kind, qzString const& name) {
                Check(self.RemoveSubType(type, static_cast<Allowables::SubType>(kind), name),
                      "there is no such sub-type");
            },
            py::arg("type"), py::arg("kind"), py::arg("name"))
        .def(
            "sub_types",
            [](Allowables const& self, EntityFullType const& type, int kind) {
                auto const subType = static_cast<Allowables::SubType>(kind);
                qzStlVector<qzString> names(self.GetSubTypeCount(type, subType));
                for (unsigned int i = 0; i < names.size(); ++i)
                    self.GetSubTypeName(type, subType, i, names[i]);
                return names;
            },
            py::arg("type"), py::arg("kind") = 0);
}

} // namespace

void BindAllowables(py::module_& module) {
    py::class_<Allowables> bound(
        module, "Allowables",
        "Which values an attribute may take, and its default: a default alone, bounds, or a list. "
        "Allowables(float, default=1.0, above=0), Allowables(str, values=['steel', 'wood']).");
    bound.def(py::init<>(), "No constraint.")
        .def(py::init([](py::object const& type, py::object const& defaultValue, py::object const& above,
                         py::object const& atLeast, py::object const& below, py::object const& atMost,
                         py::object const& values, py::object const& names) {
                 return MakeAllowables(ToTypeSpec(type),
                                       {defaultValue, above, atLeast, below, atMost, values, names});
             }),
             py::arg("type"), py::arg("default") = py::none(), py::kw_only(), py::arg("above") = py::none(),
             py::arg("at_least") = py::none(), py::arg("below") = py::none(), py::arg("at_most") = py::none(),
             py::arg("values") = py::none(), py::arg("names") = py::none())
        .def_static(
            "from_text",
            [](py::object const& type, std::string const& text) {
                TypeSpec const spec = ToTypeSpec(type);
                return Allowables(spec.basic, spec.compound, text);
            },
            py::arg("type"), py::arg("text"), "Reads 'LIST(2, 4, 8) DEFAULT(4)', or either part alone.")
        .def("test", &Test, py::arg("data"), "Whether a value is allowed. The default always is.")
        .def_property("failure_message", &Allowables::GetFailureMessage, &Allowables::SetFailureMessage,
                      "Why a test refused last.")
        .def_property_readonly("type",
                               [](Allowables const& self) {
                                   return TypeSpec{self.GetBasicType(), self.GetCompoundType(), 0};
                               })
        .def_property_readonly("have_bounds", &Allowables::HaveBounds)
        .def_property_readonly("have_list", &Allowables::HaveList)
        .def_property_readonly("default", &GiveDefault, "None without one.")
        .def_property_readonly("bounds", &GiveBounds, "Pairs such as ('>', 0.0).")
        .def_property_readonly("values", &GiveAllowed, "The list: pairs of a value and its name.")
        .def_property_readonly("is_valid", &Allowables::IsValid)
        .def_property_readonly("enforceable", &Allowables::Enforceable, "Whether it can refuse a value.")
        .def(
            "__eq__", [](Allowables const& a, Allowables const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](Allowables const& self) {
            return py::str("<Allowables default={!r} bounds={} values={}>")
                .format(GiveDefault(self), GiveBounds(self), GiveAllowed(self));
        });
    BindCopy<Allowables>(bound);
    BindListOperations(bound);
    BindSubTypes(bound);
}

} // namespace qzPython
