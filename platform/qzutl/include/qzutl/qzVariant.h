#pragma once

#include "qzutl/qzString.h"

#include <utility>
#include <variant>

/// A tagged value that crosses the borders of the platform libraries: query properties and script arguments.
/// A getter of another kind than the one held answers false and leaves its argument as it was.
class qzVariant {
public:
    enum Kind {
        KIND_EMPTY,
        KIND_INTEGER,
        KIND_LONG64,
        KIND_BOOLEAN,
        KIND_FLOAT,
        KIND_DOUBLE,
        KIND_STRING,
        KIND_POINTER
    };

    Kind GetKind() const noexcept { return static_cast<Kind>(m_value.index()); }
    bool IsEmpty() const noexcept { return GetKind() == KIND_EMPTY; }
    void Clear() noexcept { m_value.emplace<std::monostate>(); }

    void SetInteger(int value) { m_value = value; }
    void SetLong64(long long value) { m_value = value; }
    void SetBoolean(bool value) { m_value = value; }
    void SetFloat(float value) { m_value = value; }
    void SetDouble(double value) { m_value = value; }
    void SetString(qzString value) { m_value = std::move(value); }
    void SetPointer(void* value) { m_value = value; }

    bool GetInteger(int& value) const { return P_Get(value); }
    bool GetLong64(long long& value) const { return P_Get(value); }
    bool GetBoolean(bool& value) const { return P_Get(value); }
    bool GetFloat(float& value) const { return P_Get(value); }
    bool GetDouble(double& value) const { return P_Get(value); }
    bool GetString(qzString& value) const { return P_Get(value); }
    bool GetPointer(void*& value) const { return P_Get(value); }

    /// Calls the visitor with what is held, a std::monostate when that is nothing.
    template <class Visitor>
    decltype(auto) Visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), m_value);
    }

    friend bool operator==(qzVariant const&, qzVariant const&) = default;

private:
    template <class T>
    bool P_Get(T& value) const {
        T const* const held = std::get_if<T>(&m_value);
        if (held != nullptr)
            value = *held;
        return held != nullptr;
    }

    std::variant<std::monostate, int, long long, bool, float, double, qzString, void*> m_value;
};

namespace qzDescriptor {
using ::qzVariant;
}
