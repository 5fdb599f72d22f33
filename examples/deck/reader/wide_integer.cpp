#include "reader/wide_integer.h"

#include "reader/latin1.h"

namespace qzDeck {

namespace {

constexpr std::size_t s_width = 8;
constexpr std::size_t s_lastField = 7;

/// A field with all its blanks: shorter where the line ends.
std::string_view RawField(Line const& line, std::size_t field) {
    std::size_t const begin = s_width * (field + 1);
    return begin < line.text.size() ? line.text.substr(begin, s_width) : std::string_view();
}

bool BeginsWithDigit(std::string_view text) { return !text.empty() && IsDigit(text.front()); }

bool IsAtRightEdge(std::string_view raw) {
    return raw.size() == s_width && IsBlank(raw.front()) && !IsBlank(raw.back());
}

} // namespace

bool IsWiderThanField(LocatedField const& integer) {
    Line const& line = *integer.line;
    if (line.format == LineFormat::Free)
        return integer.text.size() > integer.width;
    if (integer.width > s_width || integer.text.size() < s_width || IsSign(integer.text.front()))
        return false;
    std::string_view const next = RawField(line, integer.place + 1U);
    if (!BeginsWithDigit(next))
        return false;
    if (integer.place == s_lastField)
        return true;
    bool const isShort = TrimRight(next).size() < s_width;
    return isShort && integer.place > 0 && IsAtRightEdge(RawField(line, integer.place - 1U));
}

} // namespace qzDeck
