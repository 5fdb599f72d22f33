#include "descriptor/AttributeHelper.h"

#include "descriptor/Definition.h"
#include "descriptor/Members.h"

#include <unordered_map>

namespace qzDescriptor {

AttributeHelper::AttributeHelper(Content const* content)
    : m_members(content != nullptr ? content->GetMembers() : nullptr), m_content(content) {}

AttributeHelper::AttributeHelper(Content* content) : AttributeHelper(static_cast<Content const*>(content)) {
    m_writable = content;
}

unsigned int AttributeHelper::GetCount() const {
    return m_members != nullptr ? m_members->GetVariableCount() : 0;
}

Attribute AttributeHelper::Get(unsigned int index) const {
    if (index >= GetCount())
        return Attribute();
    if (m_writable != nullptr)
        return Attribute(m_writable, index);
    return m_content != nullptr ? Attribute(m_content, index) : Attribute(m_members, index);
}

Attribute AttributeHelper::Find(Identifier const& identifier, bool secondary) const {
    if (m_members == nullptr)
        return Attribute();
    return Get(m_members->FindVariableIndexFromIdentifier(identifier, 0, secondary));
}

qzStlVector<Attribute> AttributeHelper::GetAttributes() const {
    qzStlVector<Attribute> attributes;
    attributes.reserve(GetCount());
    for (unsigned int index = 0; index < GetCount(); ++index)
        attributes.push_back(Get(index));
    return attributes;
}

qzStlVector<Attribute> AttributeHelper::GetVisibleAttributes() const {
    qzStlVector<Attribute> visible;
    for (Attribute const& attribute : GetAttributes()) {
        if (attribute.IsVisible())
            visible.push_back(attribute);
    }
    return visible;
}

qzStlVector<CategoryAttribute> AttributeHelper::GetCategories(CategoryOf const& categoryOf) const {
    qzStlVector<CategoryAttribute> categories;
    std::unordered_map<qzString, std::size_t> places;
    for (Attribute const& attribute : GetVisibleAttributes()) {
        qzString const name = categoryOf ? categoryOf(attribute) : qzString();
        auto const [place, isNew] = places.emplace(name, categories.size());
        if (isNew)
            categories.push_back(CategoryAttribute(name));
        categories[place->second].PushBack(attribute);
    }
    return categories;
}

qzString AttributeHelper::HelpCategory(Attribute const& attribute) {
    Definition const* const definition = attribute.GetDefinition();
    qzString const path = definition != nullptr ? definition->GetHelpPath() : qzString();
    std::size_t const folderEnd = path.find_last_of('/');
    return folderEnd == qzString::npos ? qzString() : path.substr(0, folderEnd);
}

} // namespace qzDescriptor
