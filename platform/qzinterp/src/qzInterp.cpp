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
    qzInterp::Report failureReport;
    qzInterp::Report outputReport;
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

qzInterp::Report Exchange(qzInterp::Report Registry::*report, qzInterp::Report other) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    return std::exchange(registry.*report, std::move(other));
}

/// To be called without the lock: a report may ask for interpreters.
qzInterp::Report Copy(qzInterp::Report Registry::*report) {
    Registry& registry = GetRegistry();
    std::lock_guard const guard(registry.mutex);
    return registry.*report;
}

/// What has been run is done, whatever those think who are told.
void Tell(qzInterp::Report const& report, qzString const& language, qzString const& text) {
    try {
        report(language, text);
    } catch (...) { // nobody is left to be told
    }
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

qzInterp::Report qzInterp::SetFailureReport(Report report) {
    return Exchange(&Registry::failureReport, std::move(report));
}

void qzInterp::ReportFailure(qzString const& language, qzString const& message) {
    if (Report const report = Copy(&Registry::failureReport))
        Tell(report, language, message);
    else
        std::cerr << "script (" << language << "): " << message << (message.ends_with('\n') ? "" : "\n");
}

qzInterp::Report qzInterp::SetOutputReport(Report report) {
    return Exchange(&Registry::outputReport, std::move(report));
}

void qzInterp::ReportOutput(qzString const& language, qzString const& output) {
    if (output.empty())
        return;
    if (Report const report = Copy(&Registry::outputReport))
        Tell(report, language, output);
    else
        std::cout << output << std::flush;
}
