#pragma once

/// Reads a deck's files: finds the bulk section, follows INCLUDE statements and tells the formats of lines.

#include "reader/FreeLineCutter.h"
#include "reader/Report.h"
#include "reader/Source.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace qzDeck {

/// Far beyond what people write: generated mistakes must end.
inline constexpr std::size_t s_maximalIncludeDepth = 1000;
inline constexpr std::size_t s_maximalIncludeCount = 100000;

// Statements: lines that are no cards.

/// Whether a line is the last one of a bulk section.
bool IsEndOfDeck(std::string_view line);
/// Whether a line is the last one before a bulk section.
bool IsBeginOfBulk(std::string_view line);
/// The path that an INCLUDE statement names; nothing when it is none, or without quotes.
std::optional<std::string_view> IncludedPath(std::string_view line);
/// Where that path leads from the file with the statement.
std::filesystem::path IncludeTarget(SourceFile const& file, std::string_view path);

class SourceReader {
public:
    /// Nothing when the main file cannot be read. Everything else is reported and read over.
    static std::optional<Source> Read(std::string const& path, Reports& reports);

private:
    /// A file that is being read.
    struct OpenFile {
        std::uint32_t index;
        std::string_view rest;
        std::uint32_t lineNumber; // of the last line taken
        std::string identity;
    };

    explicit SourceReader(Reports& reports) : m_reports(reports) {}

    bool P_Open(std::filesystem::path const& path);
    void P_SkipHeader();
    void P_ReadLines();
    void P_ReadLine(std::string_view line);
    void P_Include(std::string_view path);
    std::optional<Problem> P_Follow(std::filesystem::path const& target);
    void P_AddLine(LineFormat format, std::string_view text);
    void P_CutFields();
    void P_CheckName(Line const& line) const;
    std::string_view P_WithoutTabs(std::string_view text);
    LineReporter P_Report() const;

    Reports& m_reports;
    Source m_source;
    std::vector<OpenFile> m_open; // the innermost last
    std::unordered_set<std::string> m_openIdentities;
    FreeLineCutter m_freeLines;
};

} // namespace qzDeck
