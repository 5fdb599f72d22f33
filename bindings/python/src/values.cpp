#include "elements.h"

namespace qzPython {

namespace {

template <class... Row>
py::object GiveContainer(ValuePtr const& holder, Rows<Row...>) {
    py::object data = py::none();
    // What another type holds answers null.
    auto const give = [&](auto row) {
        auto const* const held = decltype(row)::Find(holder);
        if (held != nullptr)
            data = Give(*held);
        return held != nullptr;
    };
    static_cast<void>((give(Row()) || ...));
    return data;
}

template <class Row>
py::object GiveElement(ValuePtr const& holder) {
    typename Row::Type element{};
    return holder.GetValue(element, 0, 0) ? Give(element) : py::object(py::none());
}

} // namespace

py::object GiveData(ValuePtr const* holder) {
    py::object data = py::none();
    if (holder == nullptr)
        return data;
    if (holder->GetArrayDimension() > 0 || holder->GetCompoundType() == CT_TABULAR)
        return GiveContainer(*holder, ContainerRows());
    VisitElement(holder->GetBasicType(), holder->GetCompoundType(),
                 [&](auto row) { data = GiveElement<decltype(row)>(*holder); });
    return data;
}

Value TakeData(TypeSpec const& type, py::handle data) {
    Value value;
    bool taken = false;
    auto const take = [&](auto row) {
        typename decltype(row)::Type held{};
        taken = Take(data, held);
        if (taken)
            value = Content::MakeValue(held);
    };
    bool const isType = type.dimension == 0 && type.compound != CT_TABULAR
                            ? VisitElement(type.basic, type.compound, take)
                            : VisitContainer(type, take);
    if (!isType)
        throw Refused("there are no values of type " + Describe(type));
    if (!taken)
        throw Refused("a value of type " + Describe(type) + " is expected, and not " +
                      std::string(py::str(py::repr(data).attr("__getitem__")(py::slice(0, 60, 1)))));
    return value;
}

void BindValues(py::module_& module) {
    py::class_<Value>(
        module, "Value",
        "One typed datum, as attributes hold them. Attributes are set to plain Python data; a Value is "
        "for those who want to keep the type beside the data.")
        .def(py::init<>())
        .def(py::init([](py::object const& data, py::object const& type) {
                 return TakeData(type.is_none() ? GuessType(data) : ToTypeSpec(type), data);
             }),
             py::arg("data"), py::arg("type") = py::none())
        .def_property_readonly("data", [](Value const& self) { return GiveData(self.GetValuePtr()); })
        .def_property_readonly(
            "type",
            [](Value const& self) {
                return TypeSpec{self.GetBasicType(), self.GetCompoundType(), self.GetArrayDimension()};
            })
        .def(
            "text",
            [](Value const& self, std::optional<std::string> const& format) {
                qzString text;
                Check(self.GetValueAsString(text, format ? format->c_str() : nullptr),
                      "the value has no text of that form");
                return GiveText(text);
            },
            py::arg("format") = py::none(), "The value as text, in the type's own form or a given one.")
        .def(
            "set_text",
            [](Value& self, py::str const& text) {
                qzString bytes;
                TakeText(text, bytes);
                Check(self.SetValueFromString(bytes), "the text does not read as a value of this type");
            },
            py::arg("text"), "Reads the value from text. The type stays.")
        .def_static("are_equal_within_tolerance", &Value::AreEqualWithinTolerance, py::arg("a"), py::arg("b"),
                    py::arg("tolerance") = 1e-12, py::arg("relative") = false)
        .def(
            "__eq__", [](Value const& a, Value const& b) { return a == b; }, py::is_operator())
        .def(
            "__lt__", [](Value const& a, Value const& b) { return a < b; }, py::is_operator())
        .def("__repr__",
             [](Value const& self) { return py::str("Value({!r})").format(GiveData(self.GetValuePtr())); });
}

} // namespace qzPython
