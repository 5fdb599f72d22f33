#include "asked_object.h"

#include "derived_object.h"

namespace qzPython {

namespace {

/// Of one thread, as sessions are.
struct Asks {
    unsigned int depth = 0;
    std::vector<Kept> ended; // what only those who asked last may still look at
};

Asks& GetAsks() {
    thread_local Asks asks;
    return asks;
}

std::optional<Kept> Hold(DerivedObject const& object) {
    if (!IsPythonAlive())
        return std::nullopt;
    py::gil_scoped_acquire const held;
    return Kept(object.GetSelf());
}

bool IsLastReference(Kept const& object) {
    if (!IsPythonAlive())
        return false;
    py::gil_scoped_acquire const held;
    return object.Get().ref_count() == 1;
}

} // namespace

AskedObject::AskedObject(DerivedObject const& object) : m_self(Hold(object)) {
    if (ISession const* const session = object.GetSession())
        m_reading.emplace(*session);
    if (GetAsks().depth++ == 0) // scripts run when these end: the object is held by now
        std::vector<Kept> const ended = std::exchange(GetAsks().ended, {});
}

AskedObject::~AskedObject() {
    std::vector<Kept>& ended = GetAsks().ended;
    if (m_reading)
        m_reading->TakeDisplaced(ended);
    m_reading.reset(); // the registry may end with it
    if (m_self && IsLastReference(*m_self))
        ended.push_back(std::move(*m_self));
    --GetAsks().depth;
}

} // namespace qzPython
