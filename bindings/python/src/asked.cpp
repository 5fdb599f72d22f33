#include "asked.h"

#include "derived_object.h"

#include <algorithm>
#include <iterator>
#include <mutex>

namespace qzPython {

namespace {

/// What threads that are gone left to be ended. It stays, since Python may be gone before.
struct Left {
    std::mutex mutex;
    std::vector<Kept> ended;
};

Left& GetLeft() {
    static Left& left = *new Left;
    return left;
}

/// Of one thread, as sessions are.
struct Asks {
    // A thread that ends cannot wait for Python, which may be ending itself.
    ~Asks() {
        std::lock_guard const guard(GetLeft().mutex);
        std::ranges::move(ended, std::back_inserter(GetLeft().ended));
    }

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

Asked::Asked(std::optional<Kept> self) : m_self(std::move(self)) {
    EndWhatIsOver();
    ++GetAsks().depth;
}

Asked::~Asked() {
    if (m_self && IsLastReference(*m_self))
        GetEnded().push_back(std::move(*m_self));
    --GetAsks().depth;
}

std::vector<Kept>& Asked::GetEnded() { return GetAsks().ended; }

void Asked::EndWhatIsOver() {
    if (GetAsks().depth != 0)
        return;
    // Both are taken out before they end, which may run scripts that ask again.
    std::vector<Kept> const ended = std::exchange(GetEnded(), {});
    std::vector<Kept> left;
    {
        std::lock_guard const guard(GetLeft().mutex);
        left.swap(GetLeft().ended);
    }
}

AskedObject::AskedObject(DerivedObject const& object) : m_asked(Hold(object)) {
    if (ISession const* const session = object.GetSession())
        m_reading.emplace(*session);
}

AskedObject::~AskedObject() {
    if (m_reading)
        m_reading->TakeDisplaced(Asked::GetEnded());
}

} // namespace qzPython
