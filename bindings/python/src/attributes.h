#pragma once

#include "contents.h"

#include "descriptor/Attribute.h"
#include "descriptor/AttributeHelper.h"

#include <variant>

namespace qzPython {

/// Where attributes are looked at: in an object, in a content, or in a member set, which shows their
/// defaults.
using AttributeSource = std::variant<ObjectHandle, ContentRef, MembersRef>;

/// Makes an `Object`, a `Content` or a `Members` one; raises TypeError for others.
AttributeSource ToSource(py::handle source);
/// The views of C++ of a source as it is now. Throws Ended.
AttributeHelper Look(AttributeSource const& source);

/// `Attribute` in Python: a view that is looked up at every use. What is written goes through the object,
/// where there is one, so that the session's listeners hear of it.
class AttributeView {
public:
    AttributeView(AttributeSource source, unsigned int index) : m_source(std::move(source)), m_index(index) {}

    /// The view of C++ as it is now; throws Ended. Of a content it can be written to.
    Attribute Look() const;
    /// The same with the value that an object written in Python has now.
    Attribute Refresh() const;
    ObjectHandle const* GetObject() const { return std::get_if<ObjectHandle>(&m_source); }
    /// Throws Refused for attributes of an object or a member set.
    Content& GetContent() const;
    AttributeSource const& GetSource() const { return m_source; }
    unsigned int GetIndex() const { return m_index; }
    bool IsReadOnly() const { return std::holds_alternative<MembersRef>(m_source); }

    Definition const& GetDefinition() const;
    Value GetValue() const;
    void SetValue(Value const& value) const;

    friend bool operator==(AttributeView const&, AttributeView const&) = default;

private:
    AttributeSource m_source;
    unsigned int m_index;
};

/// The attribute of an identifier, a secondary one if need be; throws Missing.
AttributeView FindAttribute(AttributeSource const& source, Identifier const& identifier);

void BindTabularAttribute(py::module_& module);
void BindAttributeGroups(py::module_& module);

} // namespace qzPython
