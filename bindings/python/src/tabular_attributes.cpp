#include "attributes.h"
#include "conversions.h"

#include "descriptor/TabularAttribute.h"
#include "descriptor/TabularDefinition.h"

namespace qzPython {

namespace {

/// `TabularAttribute` in Python.
class TableView : public AttributeView {
public:
    TableView(AttributeView const& attribute, std::optional<TabularDefinition> definition)
        : AttributeView(attribute), m_definition(std::move(definition)) {
        if (attribute.Look().GetType() != Content::ATTRIBUTE_TABULAR)
            throw Refused("the attribute is no table");
    }

    /// The view of C++ as it is now.
    TabularAttribute LookAtTable() const { return TabularAttribute(Refresh(), P_GetDefinition()); }

    /// Calls the work with a view that can be written to. The table of an object is written as a whole.
    template <class Work>
    void Change(Work&& work) const;

private:
    struct End {
        void operator()(Content* content) const { content->Destroy(); }
    };

    TabularDefinition const* P_GetDefinition() const { return m_definition ? &*m_definition : nullptr; }

    std::optional<TabularDefinition> m_definition;
};

template <class Work>
void TableView::Change(Work&& work) const {
    if (GetObject() == nullptr) {
        TabularAttribute view(Look(), P_GetDefinition());
        work(view);
        return;
    }
    TabularAttribute const current = LookAtTable();
    Content const* const content = current.GetContent();
    if (content == nullptr)
        throw Refused("the object does not keep its table where it can be changed: set a whole one");
    std::unique_ptr<Content, End> const scratch(content->Clone());
    TabularAttribute view(Attribute(scratch.get(), GetIndex()), current.GetTabularDefinition());
    work(view);
    Value changed;
    scratch->GetValue(GetIndex(), changed);
    SetValue(changed);
}

using Place = std::pair<unsigned int, unsigned int>;

void CheckPlace(TabularAttribute const& view, Place const& place) {
    if (place.first >= view.GetRowCount() || place.second >= view.GetColumnCount())
        throw py::index_error("there is no such cell");
}

/// The type of a cell; throws for a place that is none.
TypeSpec TypeOfCell(TabularAttribute const& view, Place const& place) {
    CheckPlace(view, place);
    Tabular const* const table = view.GetTable();
    if (table != nullptr && place.second < table->GetColumnCount())
        return {table->GetBasicType(place.second), table->GetCompoundType(place.second), 0};
    return TypeSpec::Of(view.GetColumnDefinition(place.second));
}

py::object GetCell(TableView const& self, Place const& place) {
    TabularAttribute const view = self.LookAtTable();
    CheckPlace(view, place);
    Value cell;
    return view.GetCellValue(place.first, place.second, cell) ? GiveData(cell.GetValuePtr())
                                                              : py::object(py::none());
}

void SetCell(TableView const& self, Place const& place, py::object const& data) {
    Value const cell = TakeValue(TypeOfCell(self.LookAtTable(), place), data);
    Check(self.LookAtTable().TestCellValue(place.first, place.second, cell));
    self.Change([&](TabularAttribute& view) { Check(view.SetCellValue(place.first, place.second, cell)); });
}

qzString TestCell(TableView const& self, Place const& place, py::object const& data) {
    TypeSpec const type = TypeOfCell(self.LookAtTable(), place);
    try {
        Value const cell = TakeValue(type, data);
        return self.LookAtTable().TestCellValue(place.first, place.second, cell).message;
    } catch (Refused const& refused) {
        return refused.what();
    }
}

std::optional<unsigned int> FindColumn(TableView const& self, qzString const& displayName) {
    unsigned int const column = self.LookAtTable().FindColumn(displayName);
    return column != Members::s_none ? std::optional(column) : std::nullopt;
}

} // namespace

void BindTabularAttribute(py::module_& module) {
    py::class_<TableView, AttributeView>(module, "TabularAttribute",
                                         "An attribute that is a table: attribute[row, column] is a cell, "
                                         "checked against the definition of its "
                                         "column. The table of an Object is written as a whole each time: "
                                         "for many cells, change a copy and set "
                                         "that.")
        .def(py::init<AttributeView const&, std::optional<TabularDefinition>>(), py::arg("attribute"),
             py::arg("definition") = py::none(),
             "With the tabular definition that holds for the attribute, or with another one.")
        .def_property_readonly("row_count",
                               [](TableView const& self) { return self.LookAtTable().GetRowCount(); })
        .def_property_readonly("column_count",
                               [](TableView const& self) { return self.LookAtTable().GetColumnCount(); })
        .def("__len__", [](TableView const& self) { return self.LookAtTable().GetRowCount(); })
        .def(
            "column_definition",
            [](TableView const& self, unsigned int column) {
                return self.LookAtTable().GetColumnDefinition(column);
            },
            py::arg("column"), "A default definition for a column that nothing defines.")
        .def("find_column", &FindColumn, py::arg("display_name"), "None when there is none.")
        .def_property(
            "tabular_definition",
            [](TableView const& self) {
                TabularDefinition const* const held = self.LookAtTable().GetTabularDefinition();
                return held != nullptr ? std::optional(*held) : std::nullopt;
            },
            [](TableView const& self, TabularDefinition const& definition) {
                self.GetContent().ReplaceDefinition(self.GetIndex(), &definition);
            },
            "What the columns are; None where nothing says it. Set, it holds for this Content alone.")
        .def("__getitem__", &GetCell, py::arg("place"))
        .def("__setitem__", &SetCell, py::arg("place"), py::arg("data"))
        .def("test_cell", &TestCell, py::arg("place"), py::arg("data"),
             "Why a cell would be refused; an empty text for one that would not.")
        .def(
            "insert_rows",
            [](TableView const& self, unsigned int at, unsigned int count) {
                self.Change([&](TabularAttribute& view) {
                    Check(view.InsertRows(at, count), "there is no such place, or the table has no columns");
                });
            },
            py::arg("at"), py::arg("count") = 1, "Inserts rows of the columns' defaults before a row.")
        .def(
            "remove_rows",
            [](TableView const& self, qzStlVector<unsigned int> const& rows) {
                self.Change([&](TabularAttribute& view) {
                    Check(rows.empty() || view.RemoveRows(rows), "there is no such row");
                });
            },
            py::arg("rows"));
}

} // namespace qzPython
