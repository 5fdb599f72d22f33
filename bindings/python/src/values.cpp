#include "copies.h"
#include "elements.h"

#include "descriptor/DataTypeUtils.h"

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
                      ToText(py::repr(data).attr("__getitem__")(py::slice(0, 60, 1))));
    return value;
}

Value TakeValue(TypeSpec const& type, py::handle data) {
    return py::isinstance<Value>(data) ? data.cast<Value>() : TakeData(type, data);
}

namespace {

/// A single element with a text beside it; refuses types that have none.
Value TakeWithText(TypeSpec const& type, py::handle data, qzString const& text) {
    Value value;
    if (type.dimension == 0) {
        VisitElement(type.basic, type.compound, [&](auto row) {
            using T = typename decltype(row)::Type;
            if constexpr (std::is_constructible_v<Value, T const&, qzString const&>) {
                T held{};
                if (Take(data, held))
                    value = Value(held, text);
            }
        });
    }
    if (value.GetValuePtr() == nullptr)
        throw Refused("there are no values of type " + Describe(type) + " with a text beside them");
    return value;
}

Value MakeValue(TypeSpec const& type, py::handle data, std::optional<qzString> const& text, int status) {
    Value value = text ? TakeWithText(type, data, *text) : TakeData(type, data);
    value.SetDisplayStatus(static_cast<DisplayStatus>(status));
    return value;
}

TypeSpec TypeOf(Value const& value) {
    // Bags and registers of them tell the same dimension.
    bool const isRegister = value.GetValuePointerEntityListBagList() != nullptr;
    return {value.GetBasicType(), value.GetCompoundType(), isRegister ? 4 : value.GetArrayDimension()};
}

std::optional<qzString> TextBeside(Value const& value) {
    qzString text;
    return value.GetAssociatedString(text) ? std::optional(text) : std::nullopt;
}

void BindCopies(py::class_<Value>& bound) {
    using State = std::tuple<TypeSpec, py::object, std::optional<qzString>, int, bool>;
    BindPickle(
        bound,
        +[](Value const& self) {
            return State(TypeOf(self), GiveData(self.GetValuePtr()), TextBeside(self),
                         self.GetDisplayStatus(), self.GetCorrespondsToEntityType());
        },
        +[](TypeSpec type, py::object data, std::optional<qzString> text, int status, bool corresponds) {
            if (type == TypeSpec())
                return Value();
            Value value = MakeValue(type, data, text, status);
            value.SetCorrespondsToEntityType(corresponds);
            return value;
        });
}

void BindSideData(py::class_<Value>& bound) {
    bound
        .def_property(
            "display_status", [](Value const& self) { return static_cast<int>(self.GetDisplayStatus()); },
            [](Value& self, int status) { self.SetDisplayStatus(static_cast<DisplayStatus>(status)); },
            "How the value is to be shown: 0 off, 1 on, 2 as its definition says.")
        .def_property("corresponds_to_entity_type", &Value::GetCorrespondsToEntityType,
                      &Value::SetCorrespondsToEntityType)
        .def_property_readonly("text_beside", &TextBeside,
                               "The text beside a single element; None without one.")
        .def_property_readonly("memory_usage", &Value::GetValueMemoryUsage, "Bytes that the value occupies.");
}

} // namespace

void BindValues(py::module_& module) {
    py::class_<Value> bound(
        module, "Value",
        "One typed datum, as attributes hold them. Attributes are set to plain Python data; a Value is "
        "for those who want to keep the type beside the data.");
    bound.def(py::init<>())
        .def(py::init([](py::object const& data, py::object const& type, std::optional<qzString> const& text,
                         int status) {
                 return MakeValue(type.is_none() ? GuessType(data) : ToTypeSpec(type), data, text, status);
             }),
             py::arg("data"), py::arg("type") = py::none(), py::kw_only(),
             py::arg("text_beside") = py::none(), py::arg("display_status") = static_cast<int>(DS_DEFAULT))
        .def_static(
            "default_of",
            [](py::object const& type) {
                TypeSpec const spec = ToTypeSpec(type);
                Value value = DataTypeUtils::GetValueConstruct(spec.basic, spec.compound, spec.dimension);
                Check(value.GetValuePtr() != nullptr, "there are no values of this type");
                return value;
            },
            py::arg("type"), "The default element of a type, or an empty list or bag.")
        .def_property_readonly("data", [](Value const& self) { return GiveData(self.GetValuePtr()); })
        .def_property_readonly("type", &TypeOf)
        .def(
            "text",
            [](Value const& self, std::optional<std::string> const& format) {
                qzString text;
                Check(self.GetValueAsString(text, format ? format->c_str() : nullptr),
                      "the value has no text of that form");
                return text;
            },
            py::arg("format") = py::none(), "The value as text, in the type's own form or a given one.")
        .def(
            "set_text",
            [](Value& self, qzString const& text) {
                Check(self.SetValueFromString(text), "the text does not read as a value of this type");
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
    BindSideData(bound);
    BindCopies(bound);
}

} // namespace qzPython
