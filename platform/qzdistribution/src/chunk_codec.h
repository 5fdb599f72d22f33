#pragma once

#include "qzdistribution/QZ_DT_Variant.h"

#include "qzutl/qzStlVector.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace qzdt {

/// How many rows of a column are stored together, part of the file format: so many doubles fill a page of
/// SQLite.
inline constexpr unsigned int s_chunkRows = 500;

/// Numbers are stored with their lowest byte first.
template <class Number>
void StoreNumber(char* to, Number number) {
    std::memcpy(to, &number, sizeof(Number));
    if constexpr (std::endian::native == std::endian::big)
        std::reverse(to, to + sizeof(Number));
}

template <class Number>
Number LoadNumber(char const* from) {
    char bytes[sizeof(Number)];
    std::memcpy(bytes, from, sizeof(Number));
    if constexpr (std::endian::native == std::endian::big)
        std::reverse(bytes, bytes + sizeof(Number));
    return std::bit_cast<Number>(bytes);
}

/// A cell of fixed size as bytes. Every bit of a number is kept, so infinities, NaN and -0.0 are, too.
template <class T>
struct Cell {
    static constexpr std::size_t size = sizeof(T);
    static void Store(char* to, T value) { StoreNumber(to, value); }
    static T Load(char const* from) { return LoadNumber<T>(from); }
};

template <>
struct Cell<bool> {
    static constexpr std::size_t size = 1;
    static void Store(char* to, bool value) { *to = value ? 1 : 0; }
    static bool Load(char const* from) { return *from != 0; }
};

template <class Number>
struct Cell<qzTTriple<Number>> {
    static constexpr std::size_t size = 3 * sizeof(Number);
    static void Store(char* to, qzTTriple<Number> const& value) {
        StoreNumber(to, value.first);
        StoreNumber(to + sizeof(Number), value.second);
        StoreNumber(to + 2 * sizeof(Number), value.third);
    }
    static qzTTriple<Number> Load(char const* from) {
        return {LoadNumber<Number>(from), LoadNumber<Number>(from + sizeof(Number)),
                LoadNumber<Number>(from + 2 * sizeof(Number))};
    }
};

template <>
struct Cell<QZDT_Id> {
    static constexpr std::size_t size = sizeof(std::uint32_t) + 1;
    static void Store(char* to, QZDT_Id const& value) {
        StoreNumber(to, value.id);
        to[sizeof(std::uint32_t)] = value.topologyIndex;
    }
    static QZDT_Id Load(char const* from) {
        return {LoadNumber<std::uint32_t>(from), from[sizeof(std::uint32_t)]};
    }
};

/// The cells of a chunk side by side. Get and Set are for sound chunks of that many rows.
template <class T>
struct Chunk {
    static std::uint64_t GetSize(std::span<T const> values) { return values.size() * Cell<T>::size; }

    static void Encode(std::span<T const> values, qzString& bytes) {
        bytes.resize(values.size() * Cell<T>::size);
        char* to = bytes.data();
        for (T const& value : values) {
            Cell<T>::Store(to, value);
            to += Cell<T>::size;
        }
    }

    static bool IsSound(std::string_view bytes, std::size_t rows) {
        return bytes.size() == rows * Cell<T>::size;
    }

    static T Get(std::string_view bytes, std::size_t, std::size_t row) {
        return Cell<T>::Load(bytes.data() + row * Cell<T>::size);
    }

    static void Set(qzString& bytes, std::size_t, std::size_t row, T const& value) {
        Cell<T>::Store(bytes.data() + row * Cell<T>::size, value);
    }

    static std::uint64_t GetSizeAfterSet(std::string_view bytes, std::size_t, std::size_t, T const&) {
        return bytes.size();
    }
};

/// Texts: where each one ends, counted from the end of these numbers, and then the texts.
template <>
struct Chunk<qzString> {
    using End = std::uint32_t;

    static std::uint64_t GetSize(std::span<qzString const> values) {
        std::uint64_t size = values.size() * sizeof(End);
        for (qzString const& value : values)
            size += value.size();
        return size;
    }

    static void Encode(std::span<qzString const> values, qzString& bytes) {
        bytes.assign(values.size() * sizeof(End), '\0');
        bytes.reserve(static_cast<std::size_t>(GetSize(values)));
        std::size_t const heads = bytes.size();
        for (std::size_t row = 0; row < values.size(); ++row) {
            bytes += values[row];
            StoreNumber(bytes.data() + row * sizeof(End), static_cast<End>(bytes.size() - heads));
        }
    }

    static bool IsSound(std::string_view bytes, std::size_t rows) {
        if (bytes.size() < rows * sizeof(End))
            return false;
        End previous = 0;
        for (std::size_t row = 0; row < rows; ++row) {
            End const end = P_End(bytes, row);
            if (end < previous)
                return false;
            previous = end;
        }
        return rows * sizeof(End) + previous == bytes.size();
    }

    static qzString Get(std::string_view bytes, std::size_t rows, std::size_t row) {
        return qzString(bytes.substr(rows * sizeof(End) + P_Begin(bytes, row), P_Length(bytes, row)));
    }

    static void Set(qzString& bytes, std::size_t rows, std::size_t row, qzString const& value) {
        std::size_t const length = P_Length(bytes, row);
        bytes.replace(rows * sizeof(End) + P_Begin(bytes, row), length, value);
        for (std::size_t k = row; k < rows; ++k)
            StoreNumber(bytes.data() + k * sizeof(End),
                        static_cast<End>(P_End(bytes, k) - length + value.size()));
    }

    static std::uint64_t GetSizeAfterSet(std::string_view bytes, std::size_t, std::size_t row,
                                         qzString const& value) {
        return bytes.size() - P_Length(bytes, row) + std::uint64_t{value.size()};
    }

private:
    static End P_End(std::string_view bytes, std::size_t row) {
        return LoadNumber<End>(bytes.data() + row * sizeof(End));
    }
    static End P_Begin(std::string_view bytes, std::size_t row) {
        return row == 0 ? 0 : P_End(bytes, row - 1);
    }
    static std::size_t P_Length(std::string_view bytes, std::size_t row) {
        return P_End(bytes, row) - P_Begin(bytes, row);
    }
};

/// Appends the rows of a sound chunk.
template <class T>
void AppendChunk(std::string_view bytes, std::size_t rows, qzStlVector<T>& values) {
    std::size_t const first = values.size();
    values.resize(first + rows);
    for (std::size_t row = 0; row < rows; ++row)
        values[first + row] = Chunk<T>::Get(bytes, rows, row);
}

} // namespace qzdt
