#include "values/text/ClassicLocale.h"

#include <clocale>

#ifdef _WIN32
#    include <string>
#else
#    include <locale.h>
#endif

namespace qzDescriptor {

#ifdef _WIN32

namespace {
struct ThreadLocale {
    int mode = _configthreadlocale(_ENABLE_PER_THREAD_LOCALE);
    std::string numeric = std::setlocale(LC_NUMERIC, nullptr);
};
} // namespace

ClassicLocale::ClassicLocale() : m_previous(new ThreadLocale) { std::setlocale(LC_NUMERIC, "C"); }

ClassicLocale::~ClassicLocale() {
    auto* const previous = static_cast<ThreadLocale*>(m_previous);
    std::setlocale(LC_NUMERIC, previous->numeric.c_str());
    _configthreadlocale(previous->mode);
    delete previous;
}

#else

ClassicLocale::ClassicLocale() {
    // Never freed: another thread, or an object in static storage, may still be writing text at exit.
    static locale_t const classic = newlocale(LC_ALL_MASK, "C", locale_t(nullptr));
    m_previous = uselocale(classic);
}

ClassicLocale::~ClassicLocale() { uselocale(static_cast<locale_t>(m_previous)); }

#endif

} // namespace qzDescriptor
