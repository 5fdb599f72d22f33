#pragma once

/// The lines of a deck in the order in which they are read, with the text of every file that they came from.

#include <array>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qzDeck {

struct SourceFile {
    std::string path; ///< as given, or relative to the including file
    std::string text;
};

enum class LineFormat : std::uint8_t {
    Comment,
    Blank,
    Include,
    FailedInclude, ///< one that could not be followed
    Small,         ///< eight data fields of 8 columns
    Large,         ///< four data fields of 16 columns
    Free           ///< fields between commas
};

/// One line of the bulk section.
struct Line {
    std::string_view text;       ///< what stands before a `$`, tabs expanded; all of a comment
    std::uint32_t commentLength; ///< of what follows the text in the file
    std::uint32_t file;          ///< index of Source::Files
    std::uint32_t number;        ///< in its file, from 1
    std::uint32_t firstToken;    ///< of a free line
    LineFormat format;
    std::uint8_t tokenCount; ///< of a free line, at most s_fieldsPerLine

    bool HoldsFields() const { return format >= LineFormat::Small; }
    /// A `$` and what follows it, behind the text.
    std::string_view Comment() const { return {text.data() + text.size(), commentLength}; }
};

inline constexpr std::size_t s_fieldsPerLine = 10; ///< the name, eight data fields, the continuation mark
inline constexpr std::size_t s_dataColumns = 64;   ///< of all data fields of a line

/// The data fields of one line, trimmed: eight, or four when they are large.
struct DataFields {
    std::array<std::string_view, 8> texts;
    std::size_t count;

    std::size_t Width() const { return s_dataColumns / count; }
};

/// A data field and where it stands.
struct LocatedField {
    std::string_view text;
    Line const* line;
    std::uint8_t place; ///< among the data fields of its line, from 0
    std::uint8_t width; ///< in columns
};

/// Owns every text that lines, fields and reports look at; they stay valid when it is moved.
class Source {
public:
    std::deque<SourceFile> const& Files() const { return m_files; }
    std::vector<Line> const& Lines() const { return m_lines; }
    /// The lines before the bulk section, those of a file without one being none.
    std::string_view Header() const { return m_header; }
    /// What ends the main file: ENDDATA and all behind it, or nothing.
    std::string_view Ending() const { return m_ending; }

    /// Field 1, trimmed: a card's name or a continuation mark.
    std::string_view FirstField(Line const& line) const;
    DataFields Data(Line const& line) const;
    /// Field 10, trimmed.
    std::string_view TenthField(Line const& line) const;
    /// All fields of a free line, generators expanded.
    std::span<std::string_view const> Tokens(Line const& line) const {
        return {m_tokens.data() + line.firstToken, line.tokenCount};
    }

private:
    friend class SourceReader;

    std::deque<SourceFile> m_files;
    std::deque<std::string> m_expanded; // lines whose tabs became blanks
    std::vector<std::string_view> m_tokens;
    std::vector<Line> m_lines;
    std::string_view m_header;
    std::string_view m_ending;
};

} // namespace qzDeck
