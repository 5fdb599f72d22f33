#include "writer/CardLines.h"

#include "cards/card_position.h"
#include "reader/latin1.h"

#include <algorithm>

namespace qzDeck {

namespace {

constexpr std::size_t s_nameColumns = 8;
constexpr std::size_t s_fieldsPerLargeLine = s_fieldsPerRow / 2;
constexpr std::size_t s_columnsForSeparator = 10; // a comma in these makes a line free

/// Where a text stands in its field: at the left, or at the right when a comma in it would otherwise make the
/// line free.
std::size_t ColumnFor(std::string_view text, qzDescriptor::CardPosition const& position) {
    std::size_t const left = ColumnOf(position);
    bool const wouldSeparate = left + text.find(',') < s_columnsForSeparator;
    return text.find(',') != std::string_view::npos && wouldSeparate
               ? left + position.GetLength() - text.size()
               : left;
}

bool FitsField(std::string_view text, std::size_t place, LineFormat format) {
    qzDescriptor::CardPosition const position = PositionAt(place, format);
    if (text.size() > position.GetLength())
        return false;
    std::size_t const comma = text.find(',');
    return comma == std::string_view::npos || ColumnFor(text, position) + comma >= s_columnsForSeparator;
}

bool FitsName(std::string_view name, LineFormat format) {
    return name.size() <= (format == LineFormat::Large ? s_nameColumns - 1 : s_nameColumns);
}

/// Whether a free line would not give a token back as it is: `=` repeats a field, `5)` counts them.
bool IsGenerator(std::string_view token) {
    std::size_t const digits = std::min(token.find_first_not_of("0123456789"), token.size());
    return token == "=" || token == "==" || (digits > 0 && token.substr(digits).starts_with(')'));
}

} // namespace

CardLines::CardLines(std::string_view name, std::span<std::string const> texts)
    : m_name(name), m_texts(texts) {
    LineFormat format = LineFormat::Free;
    for (LineFormat narrow : {LineFormat::Large, LineFormat::Small}) {
        if (FitsName(m_name, narrow) && P_Fit(narrow, 0, m_texts.size()))
            format = narrow;
    }
    std::size_t place = 0;
    do {
        P_AddRow(format, place);
        place += s_fieldsPerRow;
    } while (place < m_texts.size());
}

bool CardLines::P_Fit(LineFormat format, std::size_t firstPlace, std::size_t count) const {
    for (std::size_t place = firstPlace; place < firstPlace + count; ++place) {
        if (!FitsField(P_Text(place), place, format))
            return false;
    }
    return true;
}

/// A row of eight fields takes two large lines, of which the second is left out where the card ends before
/// it. A text with a comma cannot stand on a free line, but it was read from a fixed one, where it fits
/// again.
void CardLines::P_AddRow(LineFormat format, std::size_t firstPlace) {
    auto const row = m_texts.subspan(firstPlace, std::min(s_fieldsPerRow, m_texts.size() - firstPlace));
    bool const hasComma = std::any_of(
        row.begin(), row.end(), [](std::string const& text) { return text.find(',') != std::string::npos; });
    if (format == LineFormat::Free && hasComma)
        format = P_Fit(LineFormat::Small, firstPlace, s_fieldsPerRow) ? LineFormat::Small : LineFormat::Large;
    if (format != LineFormat::Large) {
        m_lines.push_back({format, firstPlace, s_fieldsPerRow});
        return;
    }
    bool const isFirstFixed = P_Fit(LineFormat::Large, firstPlace, s_fieldsPerLargeLine);
    m_lines.push_back(
        {isFirstFixed ? LineFormat::Large : LineFormat::Free, firstPlace, s_fieldsPerLargeLine});
    if (m_texts.size() > firstPlace + s_fieldsPerLargeLine)
        m_lines.push_back({LineFormat::Large, firstPlace + s_fieldsPerLargeLine, s_fieldsPerLargeLine});
}

void CardLines::Append(std::string& out, std::size_t line) const {
    Part const& part = m_lines[line];
    if (part.format == LineFormat::Free)
        P_AppendFree(out, part);
    else
        P_AppendFixed(out, part);
}

std::string CardLines::P_FirstField(Part const& line) const {
    bool const isLarge = line.count == s_fieldsPerLargeLine;
    if (line.firstPlace == 0)
        return std::string(m_name).append(isLarge ? "*" : "");
    return isLarge ? "*" : "+";
}

void CardLines::P_AppendFixed(std::string& out, Part const& line) const {
    std::size_t const begin = out.size();
    out += P_FirstField(line);
    for (std::size_t place = line.firstPlace; place < line.firstPlace + line.count; ++place) {
        std::string_view const text = P_Text(place);
        if (text.empty())
            continue;
        out.resize(begin + ColumnFor(text, PositionAt(place, line.format)), ' ');
        out += text;
    }
}

void CardLines::P_AppendFree(std::string& out, Part const& line) const {
    std::string const first = P_FirstField(line);
    std::vector<std::string_view> tokens = {first};
    for (std::size_t place = line.firstPlace; place < line.firstPlace + line.count; ++place)
        tokens.push_back(P_Text(place));
    while (tokens.size() > 1 && tokens.back().empty())
        tokens.pop_back();
    AppendTokens(out, tokens);
}

void AppendTokens(std::string& out, std::span<std::string_view const> tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (i > 0)
            out += ',';
        if (IsGenerator(tokens[i]))
            out.append(std::to_string(i + 1)).append(1, ')'); // the number of the field it goes to
        out += tokens[i];
    }
    bool const isFreeWithoutComma = !tokens.empty() && tokens[0].starts_with('=');
    if (tokens.size() < 2 && !isFreeWithoutComma)
        out += ',';
}

} // namespace qzDeck
