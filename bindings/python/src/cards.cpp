#include "copies.h"

#include "descriptor/CardPosition.h"

namespace qzPython {

namespace {

unsigned char ToByte(int number, char const* what) {
    if (number < 0 || number > 255)
        throw py::value_error(std::string("a ") + what + " goes from 0 to 255");
    return static_cast<unsigned char>(number);
}

CardPosition MakePosition(unsigned int row, int position, int length, qzString const& comment, int kind,
                          qzString const& decorator) {
    return CardPosition(row, ToByte(position, "position in a row"), ToByte(length, "length"), comment,
                        static_cast<CardPosition::ValueDecorator>(kind), decorator);
}

} // namespace

void BindCards(py::module_& module) {
    py::class_<CardPosition> bound(module, "CardPosition",
                                   "Where a value stands in a text of cards: the row of the card, the place "
                                   "in the row and the length of "
                                   "the field, 0 for free format. CardPosition() is no position.");
    py::enum_<CardPosition::ValueDecorator>(bound, "Decorator", "Where the text around the value stands.")
        .value("NONE", CardPosition::DECORATOR_NONE)
        .value("BEFORE", CardPosition::DECORATOR_BEFORE)
        .value("AFTER", CardPosition::DECORATOR_AFTER)
        .value("AROUND", CardPosition::DECORATOR_AROUND);
    bound.def(py::init<>())
        .def(py::init(&MakePosition), py::arg("row"), py::arg("position"), py::arg("length") = 0,
             py::arg("comment") = "", py::kw_only(), py::arg("decorator_kind") = 0, py::arg("decorator") = "")
        .def_property("row", &CardPosition::GetCardRow, &CardPosition::SetCardRow)
        .def_property("position", &CardPosition::GetRowPosition,
                      [](CardPosition& self, int position) {
                          self.SetRowPosition(ToByte(position, "position in a row"));
                      })
        .def_property("length", &CardPosition::GetLength,
                      [](CardPosition& self, int length) { self.SetLength(ToByte(length, "length")); })
        .def_property("comment", &CardPosition::GetComment, &CardPosition::SetComment)
        .def_property(
            "decorator_kind",
            [](CardPosition const& self) { return static_cast<int>(self.GetValueDecorator()); },
            [](CardPosition& self, int kind) {
                self.SetValueDecorator(static_cast<CardPosition::ValueDecorator>(kind));
            },
            "One of Decorator, or a code of the application's own.")
        .def_property("decorator", &CardPosition::GetDecorator, &CardPosition::SetDecorator)
        .def_property_readonly("is_valid", &CardPosition::IsValid)
        .def_property_readonly("for_unstructured", &CardPosition::ForUnstructured,
                               "Whether it addresses input in free format.")
        .def(
            "__eq__", [](CardPosition const& a, CardPosition const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](CardPosition const& self) {
            return self.IsValid() ? py::str("CardPosition({}, {}, {}, {!r})")
                                        .format(self.GetCardRow(), self.GetRowPosition(), self.GetLength(),
                                                self.GetComment())
                                  : py::str("CardPosition()");
        });
    BindPickle(
        bound,
        +[](CardPosition const& self) {
            return std::tuple(self.GetCardRow(), int{self.GetRowPosition()}, int{self.GetLength()},
                              self.GetComment(), static_cast<int>(self.GetValueDecorator()),
                              self.GetDecorator());
        },
        +[](unsigned int row, int position, int length, qzString comment, int kind, qzString decorator) {
            return MakePosition(row, position, length, comment, kind, decorator);
        });
}

} // namespace qzPython
