#include "reader/Source.h"

#include "reader/latin1.h"

#include <algorithm>

namespace qzDeck {

namespace {

constexpr std::size_t s_firstWidth = 8;

std::string_view Columns(std::string_view text, std::size_t begin, std::size_t width) {
    return begin < text.size() ? Trim(text.substr(begin, width)) : std::string_view();
}

bool HoldsLargeTokens(std::string_view firstToken) {
    return firstToken.starts_with('*') || firstToken.ends_with('*');
}

} // namespace

std::string_view Source::FirstField(Line const& line) const {
    if (line.format != LineFormat::Free)
        return Columns(line.text, 0, s_firstWidth);
    return line.tokenCount > 0 ? Tokens(line).front() : std::string_view();
}

DataFields Source::Data(Line const& line) const {
    DataFields fields{};
    if (line.format == LineFormat::Free) {
        fields.count = HoldsLargeTokens(FirstField(line)) ? 4 : 8;
        auto const tokens = Tokens(line);
        for (std::size_t i = 0; i < fields.count && i + 1 < tokens.size(); ++i)
            fields.texts[i] = tokens[i + 1];
        return fields;
    }
    fields.count = line.format == LineFormat::Large ? 4 : 8;
    for (std::size_t i = 0; i < fields.count; ++i)
        fields.texts[i] = Columns(line.text, s_firstWidth + i * fields.Width(), fields.Width());
    return fields;
}

std::string_view Source::TenthField(Line const& line) const {
    if (line.format != LineFormat::Free)
        return Columns(line.text, s_firstWidth + s_dataColumns, 8);
    auto const tokens = Tokens(line);
    return tokens.size() == s_fieldsPerLine ? tokens.back() : std::string_view();
}

} // namespace qzDeck
