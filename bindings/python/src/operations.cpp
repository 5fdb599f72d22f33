#include "copies.h"

#include "descriptor/DataOperationListBuilder.h"
#include "descriptor/MemoryBuffer.h"

namespace qzPython {

namespace {

void BindDataOperation(py::module_& module) {
    py::class_<DataOperation> bound(
        module, "DataOperation",
        "One entry of a menu of operations on data: a predefined or a custom operation, "
        "a list of further entries, or a separator.");
    py::enum_<DataOperation::Operation>(bound, "Operation")
        .value("CUSTOM", DataOperation::OPERATION_CUSTOM)
        .value("NEW", DataOperation::OPERATION_NEW)
        .value("CREATE", DataOperation::OPERATION_CREATE)
        .value("DUPLICATE", DataOperation::OPERATION_DUPLICATE)
        .value("DELETE", DataOperation::OPERATION_DELETE)
        .value("REMOVE", DataOperation::OPERATION_REMOVE)
        .value("EDIT", DataOperation::OPERATION_EDIT)
        .value("REVIEW", DataOperation::OPERATION_REVIEW)
        .value("SHOW", DataOperation::OPERATION_SHOW)
        .value("HIDE", DataOperation::OPERATION_HIDE)
        .value("ISOLATE", DataOperation::OPERATION_ISOLATE)
        .value("ISOLATE_ONLY", DataOperation::OPERATION_ISOLATE_ONLY)
        .value("PARAMETERIZE", DataOperation::OPERATION_PARAMETERIZE)
        .value("UNPARAMETERIZE", DataOperation::OPERATION_UNPARAMETERIZE)
        .value("LIST", DataOperation::OPERATION_LIST)
        .value("SEPARATOR", DataOperation::OPERATION_SEPARATOR);
    bound.def(py::init<>(), "A separator.")
        .def(py::init<qzString const&, qzString const&, bool, qzString const&>(), py::arg("display_name"),
             py::arg("function_name"), py::arg("enabled") = true, py::arg("icon") = "", "A custom operation.")
        .def(py::init<qzString const&, DataOperationList const&, bool, qzString const&>(),
             py::arg("display_name"), py::arg("entries"), py::arg("enabled") = true, py::arg("icon") = "",
             "A list of entries.")
        .def(py::init<qzString const&, DataOperation::Operation, bool, qzString const&>(),
             py::arg("display_name"), py::arg("operation"), py::arg("enabled") = true, py::arg("icon") = "",
             "A predefined operation.")
        .def_property_readonly("operation", &DataOperation::GetOperation)
        .def_property_readonly("display_name", &DataOperation::GetDisplayName)
        .def_property_readonly("icon", &DataOperation::GetIconFilePath)
        .def_property_readonly("enabled", &DataOperation::IsEnabled)
        .def_property_readonly("has_list", &DataOperation::HasList)
        .def_property_readonly("function_name",
                               [](DataOperation const& self) {
                                   qzString name;
                                   self.GetFunctionName(name);
                                   return name;
                               })
        .def_property_readonly("entries",
                               [](DataOperation const& self) {
                                   DataOperationList list;
                                   self.GetDataOperationList(list);
                                   return list;
                               })
        .def_static(
            "from_keyword",
            [](std::string const& keyword) {
                DataOperation::Operation operation = DataOperation::OPERATION_CUSTOM;
                qzString displayName;
                Check(DataOperation::OperationFromString(keyword, operation, displayName),
                      "the text is no keyword");
                return DataOperation(displayName, operation, true, "");
            },
            py::arg("keyword"), "The operation of a keyword such as 'isolateonly', in any letter case.")
        .def(
            "__eq__", [](DataOperation const& a, DataOperation const& b) { return a == b; },
            py::is_operator())
        .def("__repr__", [](DataOperation const& self) {
            return py::str("<DataOperation {!r}>").format(self.GetDisplayName());
        });
    BindCopy<DataOperation>(bound);
}

void BindDataOperationList(py::module_& module) {
    // An entry of a menu has one as its entries, so that it is declared before its items.
    py::class_<DataOperationList> bound(module, "DataOperationList", "The entries of a menu, in order.");
    BindDataOperation(module);
    bound.def(py::init<>())
        .def(py::init<qzStlVector<DataOperation> const&>(), py::arg("operations"))
        .def("append", &DataOperationList::PushBack, py::arg("operation"))
        .def("__len__", &DataOperationList::GetCount)
        .def(
            "__getitem__",
            [](DataOperationList const& self, unsigned int index) {
                if (index >= self.GetCount())
                    throw py::index_error("there is no such entry"); // which is how iteration ends
                return self.Get(index);
            },
            py::arg("index"))
        .def(
            "__eq__", [](DataOperationList const& a, DataOperationList const& b) { return a == b; },
            py::is_operator())
        .def("__repr__", [](DataOperationList const& self) {
            return py::str("<DataOperationList of {}>").format(self.GetCount());
        });
    BindCopy<DataOperationList>(bound);
}

struct EndBuilder {
    void operator()(DataOperationListBuilder* builder) const { builder->Destroy(); }
};

/// The library's builders end by a call of their own.
class MenuBuilder {
public:
    MenuBuilder() = default;
    MenuBuilder(MenuBuilder const& other) : m_builder(other->Clone()) {}

    DataOperationListBuilder* operator->() const { return m_builder.get(); }

private:
    std::unique_ptr<DataOperationListBuilder, EndBuilder> m_builder{DataOperationListBuilder::Create()};
};

void BindBuilder(py::module_& module) {
    constexpr char const* refusal = "the parent key names no list, or the key is taken";
    py::class_<MenuBuilder> bound(
        module, "DataOperationListBuilder",
        "Makes a nested menu out of entries that name the list they go into by its key; an "
        "empty key means the top level.");
    BindCopy<MenuBuilder>(bound);
    bound.def(py::init<>())
        .def(
            "insert_list",
            [](MenuBuilder& self, std::string const& name, std::string const& key, std::string const& parent,
               bool enabled, std::string const& icon) {
                Check(self->InsertList(name, key, parent, enabled, icon), refusal);
            },
            py::arg("display_name"), py::arg("key"), py::arg("parent_key") = "", py::arg("enabled") = true,
            py::arg("icon") = "")
        .def(
            "insert_operation",
            [](MenuBuilder& self, std::string const& name, DataOperation::Operation operation,
               std::string const& parent, bool enabled, std::string const& icon) {
                Check(self->InsertOperation(name, operation, parent, enabled, icon), refusal);
            },
            py::arg("display_name"), py::arg("operation"), py::arg("parent_key") = "",
            py::arg("enabled") = true, py::arg("icon") = "")
        .def(
            "insert_function",
            [](MenuBuilder& self, std::string const& name, std::string const& function,
               std::string const& parent, bool enabled, std::string const& icon) {
                Check(self->InsertOperation(name, function, parent, enabled, icon), refusal);
            },
            py::arg("display_name"), py::arg("function_name"), py::arg("parent_key") = "",
            py::arg("enabled") = true, py::arg("icon") = "")
        .def(
            "insert_separator",
            [](MenuBuilder& self, std::string const& parent) {
                Check(self->InsertOperation(parent), refusal);
            },
            py::arg("parent_key") = "")
        .def(
            "build",
            [](MenuBuilder const& self) {
                DataOperationList list;
                self->RetrieveDataOperationList(list);
                return list;
            },
            "The menu; lists without entries are left out.");
}

void BindMemoryBuffer(py::module_& module) {
    py::class_<MemoryBuffer>(module, "MemoryBuffer",
                             "Bytes that travel between a serializer of C++ and its caller; those of Python "
                             "give and take bytes.")
        .def(py::init([](py::bytes const& bytes) {
                 std::string_view const view = bytes;
                 auto buffer = std::make_unique<MemoryBuffer>();
                 buffer->SetBuffer(view.data(), view.size());
                 return buffer;
             }),
             py::arg("data") = py::bytes())
        .def("__len__", &MemoryBuffer::GetBufferLength)
        .def("__bytes__", [](MemoryBuffer const& self) {
            std::string bytes(self.GetBufferLength(), '\0');
            self.GetBuffer(bytes.data(), bytes.size());
            return py::bytes(bytes);
        });
}

} // namespace

void BindOperations(py::module_& module) {
    BindDataOperationList(module);
    BindBuilder(module);
    BindMemoryBuffer(module);
}

} // namespace qzPython
