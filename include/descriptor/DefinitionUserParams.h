#pragma once

#include "descriptor/DataTypes.h"
#include "descriptor/DefinitionContextMenu.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <cstdint>

namespace qzDescriptor {

/// What user interfaces want to know of an attribute beyond its definition. The library carries these fields
/// and acts on none of them; the flag and the foreign reference mean what their users agree on.
class QZDESCRIPTOR_API DefinitionUserParams {
public:
    /// How a change of the value is to be confirmed. Codes other than these are carried unchanged.
    enum ConfirmMessageType : std::int32_t {
        CONFIRM_NONE = 0,
        CONFIRM_INFORMATION = 1,
        CONFIRM_WARNING = 2,
        CONFIRM_QUESTION = 3
    };

    DefinitionUserParams() = default;
    DefinitionUserParams(int flag, bool canBeParameterized, bool commonToMultipleTypes,
                         unsigned int foreignReference, qzString const& comment,
                         qzString const& statusOffValue, bool ignoreStatus,
                         ConfirmMessageType confirmMessageType, qzString const& confirmMessage,
                         bool unstructuredTable, bool usedForTableColumnWithStatus, qzString const& imagePath,
                         qzString const& imageTitle, bool privateVariable, DisplayStatus defaultDisplayStatus,
                         DefinitionContextMenu const& contextMenuDefinition);

    int GetFlag() const { return m_flag; }
    void SetFlag(int flag) { m_flag = flag; }
    bool GetCanBeParameterized() const { return m_canBeParameterized; }
    void SetCanBeParameterized(bool can) { m_canBeParameterized = can; }
    bool GetCommonToMultipleTypes() const { return m_commonToMultipleTypes; }
    void SetCommonToMultipleTypes(bool common) { m_commonToMultipleTypes = common; }
    unsigned int GetForeignReference() const { return m_foreignReference; }
    void SetForeignReference(unsigned int foreignReference) { m_foreignReference = foreignReference; }
    qzString GetComment() const { return m_comment; }
    void SetComment(qzString const& comment) { m_comment = comment; }
    qzString GetStatusOffValue() const { return m_statusOffValue; }
    void SetStatusOffValue(qzString const& statusOffValue) { m_statusOffValue = statusOffValue; }
    bool GetIgnoreStatus() const { return m_ignoreStatus; }
    void SetIgnoreStatus(bool ignoreStatus) { m_ignoreStatus = ignoreStatus; }
    ConfirmMessageType GetConfirmMessageType() const { return m_confirmMessageType; }
    qzString GetConfirmMessage() const { return m_confirmMessage; }
    void SetConfirmMessage(ConfirmMessageType type, qzString const& message);
    bool GetUnstructuredTable() const { return m_unstructuredTable; }
    void SetUnstructuredTable(bool unstructured) { m_unstructuredTable = unstructured; }
    bool GetUsedForTableColumnWithStatus() const { return m_usedForTableColumnWithStatus; }
    void SetUsedForTableColumnWithStatus(bool used) { m_usedForTableColumnWithStatus = used; }
    qzString GetImagePath() const { return m_imagePath; }
    void SetImagePath(qzString const& imagePath) { m_imagePath = imagePath; }
    qzString GetImageTitle() const { return m_imageTitle; }
    void SetImageTitle(qzString const& imageTitle) { m_imageTitle = imageTitle; }
    bool GetPrivateVariable() const { return m_privateVariable; }
    void SetPrivateVariable(bool privateVariable) { m_privateVariable = privateVariable; }
    DisplayStatus GetDefaultDisplayStatus() const { return m_defaultDisplayStatus; }
    void SetDefaultDisplayStatus(DisplayStatus status) { m_defaultDisplayStatus = status; }
    DefinitionContextMenu const& GetContextMenuDefinition() const { return m_contextMenuDefinition; }
    void SetContextMenuDefinition(DefinitionContextMenu const& menu) { m_contextMenuDefinition = menu; }

    friend bool operator==(DefinitionUserParams const&, DefinitionUserParams const&) = default;

private:
    int m_flag = 0;
    bool m_canBeParameterized = false;
    bool m_commonToMultipleTypes = false;
    unsigned int m_foreignReference = 0;
    qzString m_comment;
    qzString m_statusOffValue;
    bool m_ignoreStatus = false;
    ConfirmMessageType m_confirmMessageType = CONFIRM_NONE;
    qzString m_confirmMessage;
    bool m_unstructuredTable = false;
    bool m_usedForTableColumnWithStatus = false;
    qzString m_imagePath;
    qzString m_imageTitle;
    bool m_privateVariable = false;
    DisplayStatus m_defaultDisplayStatus = DS_DEFAULT;
    DefinitionContextMenu m_contextMenuDefinition;
};

} // namespace qzDescriptor
