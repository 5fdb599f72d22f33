#pragma once

#include <cstddef>
#include <string_view>

namespace ui::selexpr {

/// One value of a property on its way into a condition: a plain value that allocates nothing. A text is a
/// view of what whoever set it owns.
///
///     Scalar value;
///     value.SetDouble(part.thickness);
class Scalar {
public:
    enum Kind : unsigned char { KIND_NONE, KIND_INTEGER, KIND_DOUBLE, KIND_FLOAT, KIND_BOOLEAN, KIND_TEXT };

    Kind GetKind() const noexcept { return m_kind; }
    bool IsEmpty() const noexcept { return m_kind == KIND_NONE; }

    void Clear() noexcept { m_kind = KIND_NONE; }
    void SetInteger(long long value) noexcept {
        m_integer = value;
        m_kind = KIND_INTEGER;
    }
    void SetDouble(double value) noexcept {
        m_double = value;
        m_kind = KIND_DOUBLE;
    }
    void SetFloat(float value) noexcept {
        m_float = value;
        m_kind = KIND_FLOAT;
    }
    void SetBoolean(bool value) noexcept {
        m_boolean = value;
        m_kind = KIND_BOOLEAN;
    }
    void SetText(std::string_view value) noexcept {
        m_text = {value.data(), value.size()};
        m_kind = KIND_TEXT;
    }

    // Each is asked only for its own kind.
    long long GetInteger() const noexcept { return m_integer; }
    double GetDouble() const noexcept { return m_double; }
    float GetFloat() const noexcept { return m_float; }
    bool GetBoolean() const noexcept { return m_boolean; }
    std::string_view GetText() const noexcept { return {m_text.data, m_text.size}; }

private:
    struct Text {
        char const* data;
        std::size_t size;
    };
    union {
        long long m_integer = 0;
        double m_double;
        float m_float;
        bool m_boolean;
        Text m_text;
    };
    Kind m_kind = KIND_NONE;
};

} // namespace ui::selexpr
