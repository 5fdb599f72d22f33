#pragma once

#include "derived_session.h"

#include <optional>

namespace qzPython {

class DerivedObject;

/// While one lives, C++ asks an object that is written in Python, whose script may let go of that very
/// object, and of others. They end when an object is asked the next time: whoever asked may still look at
/// them, or at the value that it was given.
class AskedObject {
public:
    explicit AskedObject(DerivedObject const& object);
    ~AskedObject();
    AskedObject(AskedObject const&) = delete;
    AskedObject& operator=(AskedObject const&) = delete;

private:
    std::optional<Kept> m_self; // none when Python is gone
    std::optional<SessionReading> m_reading;
};

} // namespace qzPython
