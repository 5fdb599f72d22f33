#include "reader/SourceReader.h"

#include "reader/continuation.h"
#include "reader/field_kind.h"
#include "reader/latin1.h"

#include <fstream>

namespace qzDeck {

namespace {

namespace fs = std::filesystem;

std::optional<std::string> ReadWholeFile(fs::path const& path) {
    std::error_code error;
    if (fs::is_directory(path, error))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string text;
    if (auto const size = fs::file_size(path, error); !error)
        text.reserve(static_cast<std::size_t>(size));
    std::array<char, 1 << 16> chunk{};
    while (file.read(chunk.data(), chunk.size()) || file.gcount() > 0)
        text.append(chunk.data(), static_cast<std::size_t>(file.gcount()));
    if (file.bad())
        return std::nullopt;
    return text;
}

/// Takes the next line, without its end.
std::string_view TakeLine(std::string_view& rest) {
    std::size_t const end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    while (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::string ExpandTabs(std::string_view text) {
    constexpr std::size_t tabWidth = 8;
    std::string expanded;
    std::size_t column = 0;
    for (char c : text) {
        std::size_t const blanks = tabWidth - column % tabWidth;
        if (c == '\t')
            expanded.append(blanks, ' ');
        else
            expanded += c;
        column = c == '\r' ? 0 : column + (c == '\t' ? blanks : 1);
    }
    return expanded;
}

LineFormat FormatOf(std::string_view text) {
    if (text.starts_with('=') || text.substr(0, 10).find(',') != std::string_view::npos)
        return LineFormat::Free;
    return text.substr(0, 8).find('*') != std::string_view::npos ? LineFormat::Large : LineFormat::Small;
}

} // namespace

bool IsEndOfDeck(std::string_view line) {
    return BeginsWithWord(line.starts_with(' ') ? line.substr(1) : line, "ENDDATA");
}

bool IsBeginOfBulk(std::string_view line) { return BeginsWithWord(Trim(line), "BEGIN"); }

std::optional<std::string_view> IncludedPath(std::string_view line) {
    constexpr std::string_view keyword = "INCLUDE";
    std::string_view const statement = Trim(line);
    if (!BeginsWithWord(statement, keyword))
        return std::nullopt;
    std::string_view const rest = statement.substr(keyword.size());
    std::string_view const quoted = Trim(rest);
    std::size_t const end = quoted.find('\'', 1);
    if (rest.size() == quoted.size() || !quoted.starts_with('\'') || end == std::string_view::npos)
        return std::nullopt;
    return quoted.substr(1, end - 1);
}

fs::path IncludeTarget(SourceFile const& file, std::string_view path) {
    return (fs::path(file.path).parent_path() / fs::path(path)).lexically_normal();
}

std::optional<Source> SourceReader::Read(std::string const& path, Reports& reports) {
    SourceReader reader(reports);
    if (!reader.P_Open(path))
        return std::nullopt;
    reader.P_SkipHeader();
    reader.P_ReadLines();
    return std::move(reader.m_source);
}

bool SourceReader::P_Open(fs::path const& path) {
    auto text = ReadWholeFile(path);
    if (!text)
        return false;
    std::error_code error;
    auto const index = static_cast<std::uint32_t>(m_source.m_files.size());
    m_source.m_files.push_back({path.string(), std::move(*text)});
    m_open.push_back({index, m_source.m_files.back().text, 0, fs::weakly_canonical(path, error).string()});
    m_openIdentities.insert(m_open.back().identity);
    return true;
}

/// Moves to the line behind BEGIN BULK. A file without one is bulk from its first line.
void SourceReader::P_SkipHeader() {
    OpenFile& main = m_open.front();
    OpenFile scan = main;
    while (!scan.rest.empty()) {
        ++scan.lineNumber;
        if (!IsBeginOfBulk(TakeLine(scan.rest)))
            continue;
        m_source.m_header = main.rest.substr(0, main.rest.size() - scan.rest.size());
        main = scan;
        return;
    }
}

void SourceReader::P_ReadLines() {
    while (!m_open.empty()) {
        OpenFile& file = m_open.back();
        if (file.rest.empty()) {
            m_openIdentities.erase(file.identity);
            m_open.pop_back();
            continue;
        }
        ++file.lineNumber;
        std::string_view const before = file.rest;
        std::string_view const line = TakeLine(file.rest);
        if (line.starts_with('$')) {
            P_AddLine(LineFormat::Comment, line);
            continue;
        }
        std::string_view const text = P_WithoutTabs(line);
        if (m_open.size() == 1 && IsEndOfDeck(text)) { // an included file does not end those who include it
            m_source.m_ending = before;
            return;
        }
        P_ReadLine(text);
    }
}

void SourceReader::P_ReadLine(std::string_view line) {
    std::string_view const text = line.substr(0, line.find('$'));
    std::string_view const statement = Trim(text);
    LineFormat const format = statement.empty() ? LineFormat::Blank : FormatOf(text);
    auto const path = IncludedPath(text);
    P_AddLine(path ? LineFormat::Include : format, text);
    m_source.m_lines.back().commentLength = static_cast<std::uint32_t>(line.size() - text.size());
    if (path)
        return P_Include(*path);
    if (BeginsWithWord(statement, "INCLUDE"))
        P_Report()(Problem::IncludeWithoutPath, statement);
    if (!statement.empty())
        P_CutFields();
}

void SourceReader::P_Include(std::string_view path) {
    fs::path const target = IncludeTarget(m_source.m_files[m_open.back().index], path);
    if (auto const problem = P_Follow(target)) {
        m_source.m_lines.back().format = LineFormat::FailedInclude;
        P_Report()(*problem, path);
    }
}

/// What hinders a file from being read here, if anything does.
std::optional<Problem> SourceReader::P_Follow(fs::path const& target) {
    if (m_open.size() > s_maximalIncludeDepth)
        return Problem::DeepInclude;
    if (m_source.m_files.size() > s_maximalIncludeCount)
        return Problem::TooManyIncludes;
    std::error_code error;
    if (m_openIdentities.contains(fs::weakly_canonical(target, error).string()))
        return Problem::CyclicInclude;
    return P_Open(target) ? std::nullopt : std::optional(Problem::MissingInclude);
}

void SourceReader::P_AddLine(LineFormat format, std::string_view text) {
    auto const firstToken = static_cast<std::uint32_t>(m_source.m_tokens.size());
    m_source.m_lines.push_back(
        {text, 0, m_open.back().index, m_open.back().lineNumber, firstToken, format, 0});
}

/// Of the line that was added last.
void SourceReader::P_CutFields() {
    Line& line = m_source.m_lines.back();
    if (line.format == LineFormat::Free) {
        auto const placed = m_freeLines.Cut(line.text, P_Report()).Placed();
        line.tokenCount = static_cast<std::uint8_t>(placed.size());
        m_source.m_tokens.insert(m_source.m_tokens.end(), placed.begin(), placed.end());
    }
    P_CheckName(line);
}

void SourceReader::P_CheckName(Line const& line) const {
    std::string_view const first = m_source.FirstField(line);
    if (IsContinuation(first))
        return;
    std::string_view const name = CardName(first);
    if (name.size() > 8 || Classify(name) != FieldKind::Text)
        P_Report()(Problem::BadCardName, name);
}

std::string_view SourceReader::P_WithoutTabs(std::string_view text) {
    if (text.find('\t') == std::string_view::npos)
        return text;
    return m_source.m_expanded.emplace_back(ExpandTabs(text));
}

LineReporter SourceReader::P_Report() const {
    return {m_reports, m_open.back().index, m_open.back().lineNumber};
}

} // namespace qzDeck
