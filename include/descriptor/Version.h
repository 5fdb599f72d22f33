#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

namespace qzDescriptor {

/// A semantic version, "1.4.0-beta.2+b17".
class QZDESCRIPTOR_API Version {
public:
    /// 0.0.1: what has no version yet comes before everything but 0.0.0.
    Version() = default;

    /// A text that is no version gives 0.0.0 with empty strings. A number above 0xFFFFFFFF raises
    /// std::out_of_range.
    explicit Version(qzString const& text);

    unsigned int GetMajor() const { return m_major; }
    unsigned int GetMinor() const { return m_minor; }
    unsigned int GetPatch() const { return m_patch; }
    qzString const& GetPreRelease() const { return m_preRelease; }
    qzString const& GetBuild() const { return m_build; }
    qzString GetString() const;

    static bool IsValid(qzString const& text);

    friend bool operator==(Version const&, Version const&) = default;

    /// Numbers first, then the pre-release and the build as bytes: unlike the precedence of semantic
    /// versions, 1.2.3 comes before 1.2.3-alpha, and the build takes part.
    friend auto operator<=>(Version const&, Version const&) = default;

private:
    unsigned int m_major = 0;
    unsigned int m_minor = 0;
    unsigned int m_patch = 1;
    qzString m_preRelease;
    qzString m_build;
};

} // namespace qzDescriptor
