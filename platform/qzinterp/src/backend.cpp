#include "backend.h"

#include "SharedLibrary.h"

#include <algorithm>

namespace {

/// Languages are names, never paths.
bool IsName(qzString const& language) {
    return !language.empty() && std::ranges::all_of(language, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    });
}

} // namespace

qzInterp* OpenBackend(qzString const& language) {
    if (!IsName(language))
        return nullptr;
    std::filesystem::path const folder = SharedLibrary::GetFolderOf(&OpenBackend);
    std::filesystem::path const path = folder / SharedLibrary::GetFileName("qzinterp_" + language);
    std::error_code ignored;
    if (folder.empty() || !std::filesystem::exists(path, ignored))
        return nullptr;
    SharedLibrary const library(path);
    auto* const open = library.IsOpen() ? library.Find<qzInterp*(qzString&)>("qzinterp_open") : nullptr;
    qzString failure = library.IsOpen() ? "it has no interpreter" : library.GetFailure();
    qzInterp* const interpreter = open != nullptr ? open(failure) : nullptr;
    if (interpreter == nullptr)
        qzInterp::ReportFailure(language, "the interpreter cannot start: " + failure);
    return interpreter;
}
