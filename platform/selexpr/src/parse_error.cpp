#include "parse_error.h"
#include "ascii.h"

namespace ui::selexpr {

namespace {

/// Text for a message of one line: control characters by their codes, and no more than its first characters.
qzString Shorten(std::string_view text) {
    constexpr std::size_t s_longest = 40;
    constexpr char s_digits[] = "0123456789abcdef";
    qzString shown;
    std::size_t place = 0;
    while (place < text.size() && place < s_longest) {
        std::size_t const next = NextCharacter(text, place);
        auto const byte = static_cast<unsigned char>(text[place]);
        if (byte < ' ' || byte == 0x7F)
            shown += {'\\', 'x', s_digits[byte / 16], s_digits[byte % 16]};
        else
            shown += text.substr(place, next - place);
        place = next;
    }
    return place < text.size() ? shown + "..." : shown;
}

std::size_t CountCharacters(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t place = 0; place < text.size(); place = NextCharacter(text, place))
        ++count;
    return count;
}

} // namespace

ParseError DescribeError(qzString const& text, std::size_t offset, std::size_t size,
                         qzString const& expected) {
    std::string_view const whole(text);
    ParseError error{offset, CountCharacters(whole.substr(0, offset)) + 1, {}, expected, {}};
    qzString const shown = Shorten(whole.substr(offset, size));
    bool const isQuoted = shown.starts_with('"') || shown.starts_with('\'');
    error.found = size == 0 ? "the end" : isQuoted ? shown : "'" + shown + "'";
    error.message =
        "at " + std::to_string(error.position) + ": found " + error.found + ", expected " + expected;
    return error;
}

} // namespace ui::selexpr
