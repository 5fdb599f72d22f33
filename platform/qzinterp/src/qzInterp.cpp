#include "qzinterp/qzInterp.h"

#include <iostream>
#include <map>
#include <mutex>
#include <utility>

namespace {

struct Registry {
    std::mutex mutex;
    std::map<qzString, qzInterp*> interpreters;
    qzInterp::FailureReport report;
};

// Never destroyed: interpreters may be unregistered, and fail, while the program ends.
Registry& GetRegistry() {
    static Registry& registry = *new Registry;
    return registry;
}

} // namespace

qzInterp::~qzInterp() = default;

qzInterp* qzInterp::Get(qzString const& language) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    auto const found = registry.interpreters.find(language);
    return found == registry.interpreters.end() ? nullptr : found->second;
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
