#pragma once

/// Free lines: fields between commas, some of which may be generator tokens that take their text from the
/// free line before.

#include "reader/Report.h"
#include "reader/Source.h"

namespace qzDeck {

/// Reports what is wrong with one line.
struct LineReporter {
    Reports& reports;
    std::uint32_t file;
    std::uint32_t line;

    void operator()(Problem problem, std::string_view subject) const {
        reports.push_back({problem, file, line, subject});
    }
};

/// The fields of a free line, trimmed.
class FreeFields {
public:
    /// All that were written; only the first s_fieldsPerLine of them have a place.
    std::size_t Count() const { return m_count; }
    std::span<std::string_view const> Placed() const {
        return {m_texts.data(), std::min(m_count, m_texts.size())};
    }
    /// The first text that has no place, if any.
    std::string_view Surplus() const { return m_surplus; }

    void Add(std::string_view text);
    void AddBlanksUpTo(std::size_t count) { m_count = std::max(m_count, count); }

private:
    std::array<std::string_view, s_fieldsPerLine> m_texts;
    std::size_t m_count = 0;
    std::string_view m_surplus;
};

/// Cuts free lines. It remembers the last one, which `=` and `==` repeat.
class FreeLineCutter {
public:
    FreeFields const& Cut(std::string_view text, LineReporter const& report);

private:
    /// Adds the fields that a token stands for; false when the rest of the line is thereby filled.
    bool P_Expand(std::string_view token, FreeFields& fields, LineReporter const& report) const;

    FreeFields m_previous;
};

} // namespace qzDeck
