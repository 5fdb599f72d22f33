#pragma once

#include "derived_session.h"

#include <optional>

namespace qzPython {

class DerivedObject;

/// While one lives, C++ asks something that is written in Python, whose script may let go of that very thing,
/// and of others. They end when something is asked, or a session read, the next time: whoever asked may still
/// look at them, or at the value that it was given. Only what stands in a cycle of references ends whenever
/// Python's collector finds it.
class Asked {
public:
    /// None for what need not be held.
    explicit Asked(std::optional<Kept> self);
    ~Asked();
    Asked(Asked const&) = delete;
    Asked& operator=(Asked const&) = delete;

    /// What is to end later.
    static std::vector<Kept>& GetEnded();
    /// Ends it, unless something is being asked on this thread.
    static void EndWhatIsOver();

private:
    std::optional<Kept> m_self;
};

/// The same for an object, and what its session hands out.
class AskedObject {
public:
    explicit AskedObject(DerivedObject const& object);
    ~AskedObject();
    AskedObject(AskedObject const&) = delete;
    AskedObject& operator=(AskedObject const&) = delete;

private:
    Asked m_asked;
    std::optional<SessionReading> m_reading; // ends before: the registry may end with it
};

} // namespace qzPython
