#include "writer/DeckWriter.h"

#include "model/field_value.h"
#include "reader/SourceReader.h"
#include "reader/latin1.h"
#include "writer/CardLines.h"
#include "writer/number_text.h"

#include <algorithm>
#include <unordered_set>

namespace qzDeck {

namespace fs = std::filesystem;
using qzDescriptor::Value;

namespace {

constexpr std::size_t s_nameColumns = 8;
constexpr std::size_t s_tenthColumn = s_nameColumns + s_dataColumns; // where field 10 of a fixed line begins

/// The columns that a changed number may take up: those of the fields in which its card was written.
std::size_t ColumnsOfNumbers(std::vector<Line const*> const& lines) {
    auto const has = [&](LineFormat format) {
        return std::any_of(lines.begin(), lines.end(),
                           [format](Line const* line) { return line->format == format; });
    };
    if (lines.empty() || has(LineFormat::Free))
        return s_exactColumns;
    return has(LineFormat::Large) ? 16 : 8;
}

std::string NewText(Value const& value, std::size_t columns) {
    if (int integer = 0; value.GetValue(integer))
        return std::to_string(integer);
    if (double real = 0.0; value.GetValue(real))
        return RealText(real, columns);
    qzString const* const text = value.GetValuePointerString();
    return text != nullptr ? *text : std::string();
}

/// Whether a line of any format gives the name back, and makes a card of it.
bool IsProperName(std::string_view name) {
    return Classify(name) == FieldKind::Text && name.size() <= 8 && name != "INCLUDE";
}

/// What stands behind the n-th comma.
std::string_view BehindComma(std::string_view text, std::size_t n) {
    for (; n > 0 && !text.empty(); --n)
        text.remove_prefix(std::min(text.find(','), text.size() - 1) + 1);
    return text;
}

/// What stands on a line behind the fields that count: field 10 where no line continues the card, and all
/// behind it.
std::string_view BehindFields(Line const& line, bool isLast) {
    constexpr std::size_t endColumn = 80;
    std::string_view behind;
    if (line.format == LineFormat::Free)
        behind = BehindComma(line.text, isLast ? s_fieldsPerLine - 1 : s_fieldsPerLine);
    else if (std::size_t const column = isLast ? s_tenthColumn : endColumn; column < line.text.size())
        behind = line.text.substr(column);
    behind = Trim(behind);
    return behind == "+" || behind == "*" ? std::string_view() : behind;
}

fs::path Absolute(fs::path const& path) {
    std::error_code error;
    fs::path const absolute = fs::absolute(path, error);
    return error ? path : absolute.lexically_normal();
}

class DeckWriter {
public:
    DeckWriter(Model const& model, fs::path const& path)
        : m_model(model),
          m_source(model.GetSource()),
          m_folder(Absolute(path).parent_path()),
          m_nextCard(model.Cards().begin()),
          m_nextOrphan(model.Orphans().begin()) {
        std::string_view const text = m_source.Files().front().text;
        std::size_t const end = text.find('\n');
        m_lineEnd = end != std::string_view::npos && text.substr(0, end).ends_with('\r') ? "\r\n" : "\n";
    }

    std::string Write();

private:
    void P_WriteLine(std::uint32_t index);
    void P_WriteInclude(Line const& line);
    bool P_IsRead(fs::path const& path);
    void P_WriteNewCards();
    void P_WriteCard(Card const& card);
    bool P_SetTexts(Card const& card, std::vector<Line const*> const& lines);
    void P_WriteCardLines(Card const& card, std::vector<Line const*> const& lines);
    void P_WriteOrphan(Line const& line);
    std::string_view P_Mark(Line const& line, bool isFirst) const;
    void P_WriteAsItStood(Line const& line, std::string_view mark, bool isLast);
    void P_AppendComment(std::string_view text);
    bool P_IsStatement(std::string_view text) const;
    void P_MakeComment(std::size_t begin);

    Model const& m_model;
    Source const& m_source;
    fs::path m_folder;
    std::string_view m_lineEnd;
    std::vector<Card>::const_iterator m_nextCard;
    std::vector<std::uint32_t>::const_iterator m_nextOrphan;
    std::unordered_set<std::string> m_readFiles;
    std::string m_out;
    // of the card that is being written
    LocatedFields m_fields;
    std::vector<std::string> m_texts;
};

std::string DeckWriter::Write() {
    m_out = m_source.Header();
    P_WriteNewCards();
    for (std::uint32_t i = 0; i < m_source.Lines().size(); ++i)
        P_WriteLine(i);
    for (; m_nextCard != m_model.Cards().end(); ++m_nextCard)
        P_WriteCard(*m_nextCard);
    m_out += m_source.Ending();
    return std::move(m_out);
}

/// A card is written where its first line stood; the lines that continued it are part of that.
void DeckWriter::P_WriteLine(std::uint32_t index) {
    Line const& line = m_source.Lines()[index];
    if (line.format == LineFormat::Include || line.format == LineFormat::FailedInclude)
        return P_WriteInclude(line);
    if (!line.HoldsFields()) {
        m_out.append(line.text).append(line.Comment()).append(m_lineEnd);
        return;
    }
    if (m_nextOrphan != m_model.Orphans().end() && *m_nextOrphan == index) {
        ++m_nextOrphan;
        return P_WriteOrphan(line);
    }
    if (m_nextCard == m_model.Cards().end() || m_nextCard->SourceLine() != index)
        return;
    P_WriteCard(*m_nextCard++);
    P_WriteNewCards();
}

/// Those that were not read, up to the next that was.
void DeckWriter::P_WriteNewCards() {
    for (; m_nextCard != m_model.Cards().end() && m_nextCard->SourceLine() == Card::s_noLine; ++m_nextCard)
        P_WriteCard(*m_nextCard);
}

/// What was included is part of this file now. A file that could not be read is still to be included, unless
/// that would bring back what has been read.
void DeckWriter::P_WriteInclude(Line const& line) {
    auto const path = IncludedPath(line.text).value_or(std::string_view());
    fs::path const target = IncludeTarget(m_source.Files()[line.file], path);
    if (line.format == LineFormat::FailedInclude && !P_IsRead(target)) {
        fs::path const relative = Absolute(target).lexically_proximate(m_folder);
        m_out.append("INCLUDE '").append(relative.generic_string()).append("'");
    } else {
        m_out.append("$ ").append(Trim(line.text));
    }
    P_AppendComment(line.Comment());
    m_out += m_lineEnd;
}

bool DeckWriter::P_IsRead(fs::path const& path) {
    std::error_code ignored;
    if (m_readFiles.empty()) {
        for (SourceFile const& file : m_source.Files())
            m_readFiles.insert(fs::weakly_canonical(file.path, ignored).string());
    }
    return m_readFiles.contains(fs::weakly_canonical(path, ignored).string());
}

void DeckWriter::P_WriteCard(Card const& card) {
    auto const lines = m_model.LinesOf(card);
    bool const isAsRead = P_SetTexts(card, lines);
    std::size_t const begin = m_out.size();
    if (isAsRead && !IsProperName(card.Name())) {
        for (Line const* line : lines)
            P_WriteAsItStood(*line, P_Mark(*line, line == lines.front()), line == lines.back());
    } else {
        P_WriteCardLines(card, lines);
    }
    if (P_IsStatement(std::string_view(m_out).substr(begin)))
        P_MakeComment(begin);
}

/// What the first columns of a line are written as. Other cards have lost their marks, so that a line that
/// was not found among several cards would be found by one that kept its.
std::string_view DeckWriter::P_Mark(Line const& line, bool isFirst) const {
    if (!isFirst)
        return m_source.Data(line).count == s_fieldsPerRow ? "+" : "*";
    return line.format == LineFormat::Free ? m_source.FirstField(line) : line.text.substr(0, s_nameColumns);
}

/// Finds the texts of a card's fields; true when all are those that were read.
bool DeckWriter::P_SetTexts(Card const& card, std::vector<Line const*> const& lines) {
    m_fields.Clear();
    for (Line const* line : lines)
        m_fields.Add(m_source, *line);
    std::size_t const oldCount = m_fields.Count();
    auto const& values = card.Values();
    bool isAsRead = !lines.empty() && oldCount == values.size();
    m_texts.resize(values.size());
    for (std::size_t place = 0; place < values.size(); ++place) {
        std::string_view const old = place < oldCount ? m_fields[place].text : std::string_view();
        bool const isSame = MakeValue(Classify(old), old) == values[place];
        m_texts[place] = isSame ? std::string(old) : NewText(values[place], ColumnsOfNumbers(lines));
        isAsRead = isAsRead && isSame;
    }
    return isAsRead;
}

/// Comments go with their line, or with the last when there are fewer lines than before.
void DeckWriter::P_WriteCardLines(Card const& card, std::vector<Line const*> const& lines) {
    CardLines const written(card.Name(), m_texts);
    std::size_t next = 0;
    for (std::size_t i = 0; i < written.Count(); ++i) {
        bool const isLast = i + 1 == written.Count();
        written.Append(m_out, i);
        for (; next < lines.size() && (next <= i || isLast); ++next) {
            P_AppendComment(BehindFields(*lines[next], next + 1 == lines.size()));
            P_AppendComment(lines[next]->Comment());
        }
        m_out += m_lineEnd;
    }
}

/// Adds the sign of a comment where there is none.
void DeckWriter::P_AppendComment(std::string_view text) {
    if (text.empty())
        return;
    if (!m_out.empty() && m_out.back() != ' ')
        m_out += ' ';
    m_out.append(text.starts_with('$') ? "" : "$ ").append(text);
}

/// With the generators of a free line expanded: the line that they took fields from may not stand before it.
void DeckWriter::P_WriteOrphan(Line const& line) {
    if (line.format == LineFormat::Free)
        AppendTokens(m_out, m_source.Tokens(line));
    else
        m_out += TrimRight(line.text);
    P_AppendComment(line.Comment());
    m_out += m_lineEnd;
}

/// A line of a card with its fields where they stood, under its name or a mark that continues the line
/// before.
void DeckWriter::P_WriteAsItStood(Line const& line, std::string_view mark, bool isLast) {
    std::size_t const begin = m_out.size();
    if (line.format == LineFormat::Free) {
        auto const tokens = m_source.Tokens(line);
        std::vector<std::string_view> fields(tokens.begin(), tokens.end());
        fields.resize(std::min(fields.size(), s_fieldsPerLine - 1));
        fields.front() = mark;
        AppendTokens(m_out, fields);
    } else {
        m_out.append(mark).resize(begin + s_nameColumns, ' ');
        m_out += line.text.substr(std::min(s_nameColumns, line.text.size()), s_dataColumns);
        m_out.resize(begin + TrimRight(std::string_view(m_out).substr(begin)).size());
    }
    P_AppendComment(BehindFields(line, isLast));
    P_AppendComment(line.Comment());
    m_out += m_lineEnd;
}

/// Whether a text begins with a line that would end the deck, or make a header of all before it. In an
/// included file such a line is a card like any other.
bool DeckWriter::P_IsStatement(std::string_view text) const {
    std::string_view const line = text.substr(0, text.find('\n'));
    return IsEndOfDeck(line) || (m_source.Header().empty() && IsBeginOfBulk(line));
}

/// Makes comments of the lines that were written last.
void DeckWriter::P_MakeComment(std::size_t begin) {
    for (std::size_t line = begin; line < m_out.size(); line = m_out.find('\n', line) + 1)
        m_out.insert(line, "$ ");
}

} // namespace

std::string WriteDeck(Model const& model, fs::path const& path) { return DeckWriter(model, path).Write(); }

} // namespace qzDeck
