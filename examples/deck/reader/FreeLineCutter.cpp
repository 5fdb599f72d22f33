#include "reader/FreeLineCutter.h"

#include "reader/latin1.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace qzDeck {

namespace {

/// `n)X`: X goes to field n.
struct PlacedToken {
    std::size_t field;
    std::string_view text;
};

std::optional<PlacedToken> ReadPlacedToken(std::string_view token) {
    std::size_t const digits = std::min(token.find_first_not_of("0123456789"), token.size());
    if (digits == 0 || digits == token.size() || token[digits] != ')')
        return std::nullopt;
    std::size_t field = 0;
    constexpr std::size_t farBeyondTheLine = 1000;
    auto const [end, error] = std::from_chars(token.data(), token.data() + digits, field);
    if (error != std::errc() || field > farBeyondTheLine)
        field = farBeyondTheLine;
    return PlacedToken{field, token.substr(digits + 1)};
}

/// Generators that make several cards, or count from card to card.
bool IsUnexpandable(std::string_view token) {
    return token.starts_with("=(") || token.starts_with("*(") || token.starts_with("%(") || token == "/" ||
           token.find(")+") != std::string_view::npos;
}

} // namespace

void FreeFields::Add(std::string_view text) {
    if (m_count < m_texts.size())
        m_texts[m_count] = text;
    else if (m_surplus.empty())
        m_surplus = text;
    ++m_count;
}

FreeFields const& FreeLineCutter::Cut(std::string_view text, LineReporter const& report) {
    FreeFields fields;
    for (bool isLast = false; !isLast;) {
        std::size_t const comma = text.find(',');
        bool const isFilled = !P_Expand(Trim(text.substr(0, comma)), fields, report);
        isLast = isFilled || comma == std::string_view::npos;
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    if (text.find_first_not_of(", ") != std::string_view::npos)
        report(Problem::IgnoredTokens, text);
    if (fields.Count() > s_fieldsPerLine)
        report(Problem::TooManyFreeFields, fields.Surplus());
    m_previous = fields;
    return m_previous;
}

bool FreeLineCutter::P_Expand(std::string_view token, FreeFields& fields, LineReporter const& report) const {
    auto const previous = m_previous.Placed();
    std::size_t const next = fields.Count();
    bool const repeats = token == "=" || token == "==";
    if (repeats && previous.empty())
        report(Problem::NothingToRepeat, token);
    if (token == "==") {
        // the continuation mark is no field to repeat
        for (std::size_t i = next; i < std::min(previous.size(), s_fieldsPerLine - 1); ++i)
            fields.Add(previous[i]);
        return false;
    }
    if (token == "=") {
        fields.Add(next < previous.size() ? previous[next] : std::string_view());
        return true;
    }
    if (auto const placed = ReadPlacedToken(token)) {
        if (placed->field > next)
            fields.AddBlanksUpTo(placed->field - 1);
        else
            report(Problem::MisplacedToken, token);
        fields.Add(placed->text);
    } else {
        fields.Add(token);
    }
    if (IsUnexpandable(token))
        report(Problem::UnexpandedGenerator, token);
    return true;
}

} // namespace qzDeck
