#pragma once

#include "descriptor/Attribute.h"
#include "descriptor/CategoryAttribute.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "qzutl/qzStlVector.h"

#include <functional>

namespace qzDescriptor {

/// Finds and lists the attributes of one object, or of a member set without an object, as views.
///
///     AttributeHelper const helper(plate);                       // plate: a Content*
///     helper.Find(Identifier("T")).SetValue(2.5);
///     for (CategoryAttribute const& category : helper.GetCategories())
///         sheet.AddHeading(category.GetName());
///
/// As views do, a helper owns nothing, refuses to write through a constant content, and may be used where the
/// content may.
class QZDESCRIPTOR_API AttributeHelper {
public:
    /// Names the category of an attribute.
    using CategoryOf = std::function<qzString(Attribute const&)>;

    explicit AttributeHelper(Members const* members) : m_members(members) {}
    explicit AttributeHelper(Content const* content);
    explicit AttributeHelper(Content* content);

    unsigned int GetCount() const;
    /// A view of nothing for an attribute that does not exist.
    Attribute Get(unsigned int index) const;
    /// The first attribute of an equal identifier, else, when `secondary` is set, of an equal secondary one;
    /// a view of nothing when there is none.
    Attribute Find(Identifier const& identifier, bool secondary = false) const;

    /// In the order of the member set: all of them, or those that their definitions show.
    qzStlVector<Attribute> GetAttributes() const;
    qzStlVector<Attribute> GetVisibleAttributes() const;
    /// The visible attributes by category, categories in the order in which their first attributes stand.
    qzStlVector<CategoryAttribute> GetCategories(CategoryOf const& categoryOf = &HelpCategory) const;
    /// The folder of the help path: attributes that are explained side by side belong together. Empty for a
    /// path without a folder.
    static qzString HelpCategory(Attribute const& attribute);

private:
    Members const* m_members = nullptr;
    Content const* m_content = nullptr;
    Content* m_writable = nullptr; ///< the content, unless it is constant
};

} // namespace qzDescriptor
