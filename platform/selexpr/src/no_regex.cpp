// The regular expressions of a library built without RE2: none can be used.

#include "Regex.h"

namespace ui::selexpr {

std::unique_ptr<Regex> Regex::Compile(qzString const&, qzString& failure) {
    failure = "this library was built without regular expressions";
    return nullptr;
}

} // namespace ui::selexpr
