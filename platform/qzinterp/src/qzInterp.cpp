#include "qzinterp/qzInterp.h"

#include "backend.h"

#include <iostream>
#include <map>
#include <mutex>
#include <set>
#include <utility>

namespace {

struct Registry {
    std::mutex mutex;
    std::map<qzString, qzInterp*> interpreters;
    qzInterp::FailureReport report;
    std::recursive_mutex opening; // starting an interpreter may ask for others
    std::set<qzString> opened;    // languages whose back end has been asked for
};

// Never destroyed: interpreters may be unregistered, and fail, while the program ends.
Registry& GetRegistry() {
    static Registry& registry = *new Registry;
    return registry;
}

qzInterp* FindRegistered(qzString const& language) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    auto const found = registry.interpreters.find(language);
    return found == registry.interpreters.end() ? nullptr : found->second;
}

/// Whether nobody has asked for the language's own library yet.
bool IsToBeOpened(qzString const& language) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    return !registry.opened.contains(language);
}

void SetOpened(qzString const& language) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    registry.opened.insert(language);
}

} // namespace

qzInterp::~qzInterp() = default;

// Whoever asks while another thread opens the same library waits; what was opened before is found without.
qzInterp* qzInterp::Get(qzString const& language) {
    if (qzInterp* const registered = FindRegistered(language))
        return registered;
    if (!IsToBeOpened(language))
        return nullptr;
    std::lock_guard const guard(GetRegistry().opening);
    if (IsToBeOpened(language)) {
        qzInterp* const interpreter = OpenBackend(language);
        if (interpreter != nullptr)
            Register(language, *interpreter);
        SetOpened(language);
    }
    return FindRegistered(language);
}

bool qzInterp::Register(qzString const& language, qzInterp& interpreter) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    return registry.interpreters.emplace(language, &interpreter).second;
}

bool qzInterp::Unregister(qzString const& language) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    return registry.interpreters.erase(language) > 0;
}

void qzInterp::SetFailureReport(FailureReport report) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    std::swap(registry.report, report); // the old one ends outside of the lock
}

void qzInterp::ReportFailure(qzString const& language, qzString const& message) {
    Registry& registry = GetRegistry();
    FailureReport report;
    {
        std::lock_guard const guard(registry.mutex);
        report = registry.report;
    }
    if (report)
        report(language, message);
    else
        std::cerr << "script (" << language << "): " << message << '\n';
}
