#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <cstdint>
#include <memory>

namespace qzDescriptor {

class DataOperationPrivate;

/// One entry of a menu of operations on data: a predefined or a custom operation, a list of further entries,
/// or a separator.
///
///     DataOperation show("Show", DataOperation::OPERATION_SHOW, true, "icons/show.png");
///     DataOperation weigh("Weigh", "WeighParts", true, "");      // performed by a function of that name
///     DataOperation separator;
///
/// Entries never change, so that copies, which cost no more than a pointer, are as good as deep ones.
class QZDESCRIPTOR_API DataOperation {
public:
    /// Codes other than these are carried unchanged.
    enum Operation : std::int32_t {
        OPERATION_CUSTOM = 0, ///< performed by a named function
        OPERATION_NEW = 1,
        OPERATION_CREATE = 2,
        OPERATION_DUPLICATE = 3,
        OPERATION_DELETE = 4,
        OPERATION_REMOVE = 5,
        OPERATION_EDIT = 6,
        OPERATION_REVIEW = 7,
        OPERATION_SHOW = 8,
        OPERATION_HIDE = 9,
        OPERATION_ISOLATE = 10,
        OPERATION_ISOLATE_ONLY = 11,
        OPERATION_PARAMETERIZE = 12,
        OPERATION_UNPARAMETERIZE = 13,
        OPERATION_LIST = 100, ///< holds a list of entries
        OPERATION_SEPARATOR = 200
    };

    /// A separator.
    DataOperation() = default;
    /// A custom operation.
    DataOperation(qzString const& displayName, qzString const& functionName, bool enabled,
                  qzString const& iconFilePath);
    /// A list of entries.
    DataOperation(qzString const& displayName, DataOperationList const& list, bool enabled,
                  qzString const& iconFilePath);
    /// A predefined operation. The codes of custom operations and lists, which are made by the constructors
    /// above, make a separator without texts.
    DataOperation(qzString const& displayName, Operation operation, bool enabled,
                  qzString const& iconFilePath);

    /// OPERATION_SEPARATOR for a separator.
    Operation GetOperation() const;
    bool HasList() const { return GetOperation() == OPERATION_LIST; }
    /// True for a separator.
    bool IsEnabled() const;
    /// Empty for a separator.
    qzString GetDisplayName() const;
    qzString GetIconFilePath() const;
    /// Copies the function's name out, which is empty unless the operation is a custom one; false, changing
    /// nothing, for a separator.
    bool GetFunctionName(qzString& functionName) const;
    /// Copies the list out, which is empty unless the entry holds one; false, changing nothing, for a
    /// separator.
    bool GetDataOperationList(DataOperationList& list) const;

    /// The operation of a keyword such as "isolateonly", in any letter case, and the text to show for it.
    /// False, changing nothing, for any other text.
    static bool OperationFromString(qzString const& text, Operation& operation, qzString& displayName);

    QZDESCRIPTOR_API friend bool operator==(DataOperation const& a, DataOperation const& b);

private:
    std::shared_ptr<DataOperationPrivate const> m_private;
};

} // namespace qzDescriptor
