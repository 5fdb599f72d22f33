#pragma once

#include "qzutl/qzSimpleMutex.h"
#include "qzutl/qzString.h"

#include <mutex>
#include <new>
#include <optional>

namespace qzDescriptor {

/// Why a test refused last. The value is kept as it is and put into words only when somebody asks. Threads
/// may refuse at once; the last one is explained.
template <class T>
class Refusal {
public:
    Refusal() = default;
    explicit Refusal(char const* message) : m_message(message) {}
    Refusal(Refusal const& other) { *this = other; }
    Refusal& operator=(Refusal const& other) {
        if (this == &other)
            return *this;
        std::scoped_lock const guards(m_mutex, other.m_mutex);
        m_message = other.m_message;
        m_value = other.m_value;
        return *this;
    }

    void Remember(T const& value) noexcept {
        std::lock_guard const guard(m_mutex);
        try {
            m_value = value;
        } catch (std::bad_alloc const&) {
            m_value.reset();
        }
    }

    void SetMessage(qzString const& message) {
        std::lock_guard const guard(m_mutex);
        m_message = message;
        m_value.reset();
    }

    /// The message that was set, or the words of `explain(qzString&, T const&)` for what was refused since,
    /// unless they are false.
    template <class Explain>
    qzString GetMessage(Explain explain) const {
        std::lock_guard const guard(m_mutex);
        qzString explanation;
        if (m_value && explain(explanation, *m_value))
            return explanation;
        return m_message;
    }

private:
    mutable qzSimpleMutex m_mutex;
    std::optional<T> m_value;
    qzString m_message;
};

} // namespace qzDescriptor
