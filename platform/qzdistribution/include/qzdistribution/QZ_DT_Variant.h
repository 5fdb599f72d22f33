#pragma once

#include "qzdistribution/Records.h"

#include "qzutl/qzTuples.h"

#include <concepts>
#include <utility>
#include <variant>

/// A type that cells can have.
template <class T>
concept QZDT_Element = std::same_as<T, bool> || std::same_as<T, int> || std::same_as<T, unsigned int> ||
    std::same_as<T, double> || std::same_as<T, qzString> || std::same_as<T, qzTTriple<int>> ||
    std::same_as<T, qzTTriple<double>> || std::same_as<T, QZDT_Id>;

/// A cell on its way into or out of a table: nothing, or one value of a cell's type. Nothing is converted.
///
///     QZ_DT_Variant cell(2.5);
///     double number = 0;
///     bool const read = cell.Get(number);         // true; an int would be left as it was
class QZ_DT_Variant {
public:
    QZ_DT_Variant() = default;
    template <QZDT_Element T>
    explicit QZ_DT_Variant(T value) : m_value(std::move(value)) {}

    QZDT_Type GetType() const noexcept { return static_cast<QZDT_Type>(m_value.index()); }
    bool IsEmpty() const noexcept { return GetType() == QZDT_NONE; }
    void Clear() noexcept { m_value.emplace<std::monostate>(); }

    template <QZDT_Element T>
    void Set(T value) {
        m_value = std::move(value);
    }

    /// False, and the argument as it was, when a value of another type is held.
    template <QZDT_Element T>
    bool Get(T& value) const {
        T const* const held = GetPointer<T>();
        if (held != nullptr)
            value = *held;
        return held != nullptr;
    }

    /// The held value, until the variant changes; null when a value of another type is held.
    template <QZDT_Element T>
    T const* GetPointer() const noexcept {
        return std::get_if<T>(&m_value);
    }

    friend bool operator==(QZ_DT_Variant const&, QZ_DT_Variant const&) = default;

private:
    // In the order of QZDT_Type.
    std::variant<std::monostate, bool, int, unsigned int, double, qzString, qzTTriple<int>, qzTTriple<double>,
                 QZDT_Id>
        m_value;
};
