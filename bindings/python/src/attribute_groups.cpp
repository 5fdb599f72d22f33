#include "attributes.h"

#include <map>

namespace qzPython {

namespace {

/// `AttributeHelper` in Python.
class Attributes {
public:
    explicit Attributes(py::object const& source) : m_source(ToSource(source)) {}

    AttributeHelper Look() const { return qzPython::Look(m_source); }
    AttributeView At(unsigned int index) const { return AttributeView(m_source, index); }

    template <class List>
    std::vector<AttributeView> ToViews(List const& attributes) const {
        std::vector<AttributeView> views;
        for (Attribute const& attribute : attributes)
            views.push_back(At(attribute.GetIndex()));
        return views;
    }

private:
    AttributeSource m_source;
};

/// `CategoryAttribute` in Python.
struct Category {
    qzString name;
    std::vector<AttributeView> attributes;

    friend bool operator==(Category const&, Category const&) = default;
};

/// What a function of Python says of each attribute. Asked while nobody walks over them: it may end what they
/// are attributes of.
AttributeHelper::CategoryOf AskEach(Attributes const& self, py::object const& function) {
    std::map<unsigned int, qzString> categories;
    self.Look().GetCategories([&](Attribute const& attribute) {
        categories.try_emplace(attribute.GetIndex());
        return qzString();
    });
    for (auto& [index, category] : categories)
        category = function(self.At(index)).cast<qzString>();
    return [categories = std::move(categories)](Attribute const& attribute) {
        auto const found = categories.find(attribute.GetIndex());
        return found != categories.end() ? found->second : qzString(); // inserted meanwhile
    };
}

std::vector<Category> ListCategories(Attributes const& self, py::object const& function) {
    AttributeHelper::CategoryOf const categoryOf =
        function.is_none() ? &AttributeHelper::HelpCategory : AskEach(self, function);
    std::vector<Category> categories;
    for (CategoryAttribute const& category : self.Look().GetCategories(categoryOf))
        categories.push_back({category.GetName(), self.ToViews(category)});
    return categories;
}

AttributeView GetAttribute(std::vector<AttributeView> const& attributes, std::size_t index) {
    if (index >= attributes.size())
        throw py::index_error("there is no such attribute"); // which is how iteration ends
    return attributes[index];
}

} // namespace

void BindAttributeGroups(py::module_& module) {
    py::class_<Category>(module, "CategoryAttribute",
                         "A named group of attributes, as property sheets show them under one heading.")
        .def(py::init([](qzString const& name, std::vector<AttributeView> const& attributes) {
                 return Category{name, attributes};
             }),
             py::arg("name") = "", py::arg("attributes") = std::vector<AttributeView>())
        .def_readonly("name", &Category::name)
        .def(
            "append",
            [](Category& self, AttributeView const& attribute) { self.attributes.push_back(attribute); },
            py::arg("attribute"))
        .def("__len__", [](Category const& self) { return self.attributes.size(); })
        .def(
            "__getitem__",
            [](Category const& self, std::size_t index) { return GetAttribute(self.attributes, index); },
            py::arg("index"))
        .def(
            "__eq__", [](Category const& a, Category const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](Category const& self) {
            return py::str("<CategoryAttribute {!r} of {}>").format(self.name, self.attributes.size());
        });

    py::class_<Attributes>(module, "AttributeHelper",
                           "The attributes of an Object, of a Content, or of Members, in their order.")
        .def(py::init<py::object const&>(), py::arg("source"))
        .def("__len__", [](Attributes const& self) { return self.Look().GetCount(); })
        .def(
            "__getitem__",
            [](Attributes const& self, unsigned int index) {
                if (index >= self.Look().GetCount())
                    throw py::index_error("there is no such attribute");
                return self.At(index);
            },
            py::arg("index"))
        .def(
            "find",
            [](Attributes const& self, Identifier const& identifier, bool secondary) {
                Attribute const found = self.Look().Find(identifier, secondary);
                return found.IsValid() ? std::optional(self.At(found.GetIndex())) : std::nullopt;
            },
            py::arg("identifier"), py::arg("secondary") = false, "None when there is none.")
        .def_property_readonly(
            "visible",
            [](Attributes const& self) { return self.ToViews(self.Look().GetVisibleAttributes()); },
            "Those that their definitions show.")
        .def("categories", &ListCategories, py::arg("category_of") = py::none(),
             "The visible attributes by category: what the function names for an Attribute, else the folder "
             "of "
             "its help path.")
        .def_static(
            "help_category",
            [](AttributeView const& attribute) { return AttributeHelper::HelpCategory(attribute.Look()); },
            py::arg("attribute"), "The folder of the help path.");
}

} // namespace qzPython
