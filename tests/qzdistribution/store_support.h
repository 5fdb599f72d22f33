#pragma once

#include "qzdistribution/QZ_DT_Mgr.h"

#include "cell_types.h"
#include "support/Random.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

inline QZ_DT_Mgr& Store() { return QZ_DT_Mgr::GetInstance(); }

inline testing::AssertionResult Done(QZDT_Result const& result) {
    return result ? testing::AssertionSuccess() : testing::AssertionFailure() << result.GetMessage();
}

/// Failed, and said why.
inline testing::AssertionResult Refused(QZDT_Result const& result) {
    return !result && !result.GetMessage().empty() ? testing::AssertionSuccess()
                                                   : testing::AssertionFailure();
}

using Cells = std::vector<QZ_DT_Variant>;

template <class T>
T RandomCell(Random& random) {
    if constexpr (std::is_same_v<T, bool>) {
        return random.Chance(2);
    } else if constexpr (std::is_same_v<T, double>) {
        using Limits = std::numeric_limits<double>;
        return random.Pick({0.0, -0.0, 0.1, -1e300, Limits::denorm_min(), Limits::infinity(),
                            -Limits::infinity(), Limits::quiet_NaN(), double(random.Below(1000))});
    } else if constexpr (std::is_same_v<T, qzString>) {
        using namespace std::string_literals;
        return random.Pick(
            {""s, "steel"s, "a\0b"s, "\0"s, "\xFF\xC0\x80"s, qzString(random.Below(40), 'x'), "\u00e9"s});
    } else if constexpr (std::is_same_v<T, qzTTriple<int>>) {
        return {RandomCell<int>(random), RandomCell<int>(random), RandomCell<int>(random)};
    } else if constexpr (std::is_same_v<T, qzTTriple<double>>) {
        return {RandomCell<double>(random), RandomCell<double>(random), RandomCell<double>(random)};
    } else if constexpr (std::is_same_v<T, QZDT_Id>) {
        return {RandomCell<unsigned int>(random), static_cast<char>(random.Below(256))};
    } else {
        return random.Pick({T{0}, T{1}, std::numeric_limits<T>::max(), std::numeric_limits<T>::min(),
                            static_cast<T>(random.Below(1000))});
    }
}

/// Equal bit by bit: -0.0 is not 0.0, and NaN is itself.
template <class T>
bool IsSame(T const& a, T const& b) {
    if constexpr (std::is_same_v<T, double>)
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    else if constexpr (std::is_same_v<T, qzTTriple<double>>)
        return IsSame(a.first, b.first) && IsSame(a.second, b.second) && IsSame(a.third, b.third);
    else
        return a == b;
}

inline bool AreSame(QZ_DT_Variant const& a, QZ_DT_Variant const& b) {
    return a.GetType() == b.GetType() && qzdt::VisitType(a.GetType(), [&]<class T>(std::type_identity<T>) {
               return IsSame(*a.GetPointer<T>(), *b.GetPointer<T>());
           });
}

inline bool AreSame(Cells const& a, Cells const& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](QZ_DT_Variant const& x, QZ_DT_Variant const& y) { return AreSame(x, y); });
}

inline Cells RandomCells(QZDT_Type type, unsigned int count, Random& random) {
    Cells cells;
    qzdt::VisitType(type, [&]<class T>(std::type_identity<T>) {
        for (unsigned int k = 0; k < count; ++k)
            cells.emplace_back(RandomCell<T>(random));
        return true;
    });
    return cells;
}

/// A whole column by the operation for its type.
inline QZDT_Result SetCells(QZDT_TableHandle const& table, unsigned int column, QZDT_Type type,
                            Cells const& cells) {
    QZDT_Result result;
    qzdt::VisitType(type, [&]<class T>(std::type_identity<T>) {
        qzStlVector<T> values;
        for (QZ_DT_Variant const& cell : cells)
            values.push_back(*cell.GetPointer<T>());
        result = Store().SetColumn(table, column, values);
        return true;
    });
    return result;
}

inline QZDT_Result GetCells(QZDT_TableHandle const& table, unsigned int column, Cells& cells) {
    QZDT_Result result = QZDT_Result::Failure("no column");
    qzdt::VisitType(Store().GetColumnType(table, column), [&]<class T>(std::type_identity<T>) {
        qzStlVector<T> values(3); // to be replaced
        result = Store().GetColumn(table, column, values);
        if (result) {
            cells.clear();
            for (T const& value : values)
                cells.emplace_back(value);
        }
        return true;
    });
    return result;
}
