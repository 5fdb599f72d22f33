#include "TextSet.h"

#include <algorithm>

namespace ui::selexpr {

namespace {

bool IsAmong(std::vector<qzString> const& sortedFolded, std::string_view text) {
    auto const place = std::ranges::partition_point(
        sortedFolded, [text](qzString const& each) { return CompareToFolded(text, each) > 0; });
    return place != sortedFolded.end() && CompareToFolded(text, *place) == 0;
}

} // namespace

void TextSet::Seal() {
    std::ranges::sort(m_equal);
    std::ranges::sort(m_exact);
    m_hasOnlyPatterns = m_equal.empty() && m_exact.empty() && m_parts.empty() && m_sides.empty();
}

bool TextSet::Contains(std::string_view text) const {
    return std::ranges::any_of(m_patterns, [text](Wildcard const& each) { return each.Matches(text); }) ||
           (!m_hasOnlyPatterns && P_ContainsByText(text));
}

bool TextSet::P_ContainsByText(std::string_view text) const {
    auto const isPart = [text](SearchedText const& part) {
        return part.FindEnd(text) != std::string_view::npos;
    };
    auto const isOnSide = [text](Half const& half) { return half.Contains(text); };
    return IsAmong(m_equal, text) ||
           std::ranges::binary_search(m_exact, text, std::less<std::string_view>()) ||
           std::ranges::any_of(m_parts, isPart) || std::ranges::any_of(m_sides, isOnSide);
}

bool TextSet::Half::Contains(std::string_view text) const {
    int const order = CompareToFolded(text, end);
    switch (side) {
    case Side::Below:
        return order < 0;
    case Side::UpTo:
        return order <= 0;
    case Side::From:
        return order >= 0;
    case Side::Above:
        return order > 0;
    }
    return false;
}

} // namespace ui::selexpr
