#pragma once

#include "descriptor/Export.h"

#include "qzutl/qzString.h"

#include <cstdint>

namespace qzDescriptor {

/// A reference to something callable: by name in the scripting language, by native callback, or both. The
/// callback is not owned and never called by the library.
class QZDESCRIPTOR_API Function {
public:
    /// What the function is for; codes of the application's own are carried unchanged.
    enum Usage : std::int32_t { USAGE_NONE = 0 };

    Function() = default;
    Function(Usage usage, qzString const& tclName) : m_usage(usage), m_tclName(tclName) {}
    Function(Usage usage, void* callback, qzString const& nativeName)
        : m_usage(usage), m_callback(callback), m_nativeName(nativeName) {}
    Function(Usage usage, qzString const& tclName, void* callback, qzString const& nativeName)
        : m_usage(usage), m_tclName(tclName), m_callback(callback), m_nativeName(nativeName) {}

    Usage GetUsage() const { return m_usage; }
    qzString GetFunctionNameTCL() const { return m_tclName; }
    qzString GetFunctionNameCPP() const { return m_nativeName; }
    void* GetCallBackCPP() const { return m_callback; }

    friend bool operator==(Function const&, Function const&) = default;

private:
    Usage m_usage = USAGE_NONE;
    qzString m_tclName;
    void* m_callback = nullptr;
    qzString m_nativeName;
};

} // namespace qzDescriptor
