#include "descriptor/DefinitionUserParams.h"

namespace qzDescriptor {

DefinitionUserParams::DefinitionUserParams(int flag, bool canBeParameterized, bool commonToMultipleTypes,
                                           unsigned int foreignReference, qzString const& comment,
                                           qzString const& statusOffValue, bool ignoreStatus,
                                           ConfirmMessageType confirmMessageType,
                                           qzString const& confirmMessage, bool unstructuredTable,
                                           bool usedForTableColumnWithStatus, qzString const& imagePath,
                                           qzString const& imageTitle, bool privateVariable,
                                           DisplayStatus defaultDisplayStatus,
                                           DefinitionContextMenu const& contextMenuDefinition)
    : m_flag(flag),
      m_canBeParameterized(canBeParameterized),
      m_commonToMultipleTypes(commonToMultipleTypes),
      m_foreignReference(foreignReference),
      m_comment(comment),
      m_statusOffValue(statusOffValue),
      m_ignoreStatus(ignoreStatus),
      m_confirmMessageType(confirmMessageType),
      m_confirmMessage(confirmMessage),
      m_unstructuredTable(unstructuredTable),
      m_usedForTableColumnWithStatus(usedForTableColumnWithStatus),
      m_imagePath(imagePath),
      m_imageTitle(imageTitle),
      m_privateVariable(privateVariable),
      m_defaultDisplayStatus(defaultDisplayStatus),
      m_contextMenuDefinition(contextMenuDefinition) {}

void DefinitionUserParams::SetConfirmMessage(ConfirmMessageType type, qzString const& message) {
    m_confirmMessage = message;
    m_confirmMessageType = type;
}

} // namespace qzDescriptor
