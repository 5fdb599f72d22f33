#pragma once

#include "descriptor/Attribute.h"
#include "descriptor/Export.h"
#include "qzutl/qzStlVector.h"
#include "qzutl/qzString.h"

#include <utility>

namespace qzDescriptor {

/// A named group of attributes, as a property sheet shows them under one heading; see AttributeHelper.
///
///     for (Attribute const& attribute : category)
///         sheet.AddRow(attribute.GetDisplayName(), attribute);
///
/// A plain list of views, not synchronised.
class QZDESCRIPTOR_API CategoryAttribute {
public:
    CategoryAttribute() = default;
    explicit CategoryAttribute(qzString name) : m_name(std::move(name)) {}

    qzString const& GetName() const { return m_name; }
    void PushBack(Attribute const& attribute) { m_attributes.push_back(attribute); }
    unsigned int GetCount() const { return static_cast<unsigned int>(m_attributes.size()); }
    /// A view of nothing for an attribute that does not exist.
    Attribute Get(unsigned int i) const { return i < GetCount() ? m_attributes[i] : Attribute(); }
    Attribute const* begin() const { return m_attributes.begin(); }
    Attribute const* end() const { return m_attributes.end(); }

    friend bool operator==(CategoryAttribute const&, CategoryAttribute const&) = default;

private:
    qzString m_name;
    qzStlVector<Attribute> m_attributes;
};

} // namespace qzDescriptor
