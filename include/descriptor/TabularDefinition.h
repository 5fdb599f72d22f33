#pragma once

#include "descriptor/Definition.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "qzutl/qzStlVector.h"

namespace qzDescriptor {

/// The shape of a table: a definition for each column, and the table's own texts and flags. It has no rows.
///
///     qzStlVector<Definition> columns = {time, load};
///     TabularDefinition history("Load history", columns, true, true, "Loads over time", "");
///     history.GetColumnDefinition(1).GetDisplayName();
///
/// Columns are given once; after that each can be replaced, but none added or removed.
class QZDESCRIPTOR_API TabularDefinition {
public:
    TabularDefinition() = default;
    /// Copies the columns.
    TabularDefinition(qzString const& displayName, qzStlVector<Definition>& columns, bool editable,
                      bool visible, qzString const& description, qzString const& helpPath);
    TabularDefinition(TabularDefinition const&) = default;
    TabularDefinition(TabularDefinition&&) noexcept = default;
    TabularDefinition& operator=(TabularDefinition const&) = default;
    TabularDefinition& operator=(TabularDefinition&&) noexcept = default;
    virtual ~TabularDefinition();

    unsigned int GetColumnCount() const { return static_cast<unsigned int>(m_columns.size()); }
    /// A default definition, the same at every call, for a column that does not exist.
    Definition const& GetColumnDefinition(unsigned int column) const;
    /// Does nothing for a column that does not exist.
    void SetColumnDefinition(unsigned int column, Definition const& definition);

    qzString GetDisplayName() { return m_displayName; }
    void SetDisplayName(qzString const& displayName) { m_displayName = displayName; }
    bool GetEditable() const { return m_editable; }
    void SetEditable(bool editable) { m_editable = editable; }
    bool GetVisible() const { return m_visible; }
    void SetVisible(bool visible) { m_visible = visible; }
    qzString GetDescription() { return m_description; }
    void SetDescription(qzString const& description) { m_description = description; }
    qzString GetHelpPath() { return m_helpPath; }
    void SetHelpPath(qzString const& helpPath) { m_helpPath = helpPath; }

    /// Equal columns in the same order and equal texts. The flags take no part: a table shown read-only is
    /// the same table.
    QZDESCRIPTOR_API friend bool operator==(TabularDefinition const& a, TabularDefinition const& b);

private:
    qzStlVector<Definition> m_columns;
    qzString m_displayName;
    bool m_editable = false;
    bool m_visible = false;
    qzString m_description;
    qzString m_helpPath;
};

} // namespace qzDescriptor
