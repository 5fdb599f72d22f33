#pragma once

namespace qzDescriptor {

/// While alive, the C library formats and reads numbers on this thread as in the "C" locale, whatever the
/// process has chosen.
class ClassicLocale {
public:
    ClassicLocale();
    ~ClassicLocale();
    ClassicLocale(ClassicLocale const&) = delete;
    ClassicLocale& operator=(ClassicLocale const&) = delete;

private:
    void* m_previous;
};

} // namespace qzDescriptor
