#include "SearchedText.h"
#include "ascii.h"

#include <algorithm>

namespace ui::selexpr {

namespace {

std::uint8_t Shorten(std::size_t move) { return static_cast<std::uint8_t>(std::min<std::size_t>(move, 255)); }

} // namespace

SearchedText::SearchedText(std::string_view text) : m_folded(FoldText(text)) {
    m_moves.fill(Shorten(m_folded.size()));
    for (std::size_t place = 0; place < m_folded.size(); ++place) {
        auto const lower = static_cast<unsigned char>(m_folded[place]);
        auto const upper = static_cast<unsigned char>(Unfold(m_folded[place]));
        m_moveOn = m_moves[lower];
        m_moves[lower] = m_moves[upper] = Shorten(m_folded.size() - 1 - place);
    }
}

std::size_t SearchedText::FindEnd(std::string_view text) const {
    std::size_t const size = m_folded.size();
    if (size == 0)
        return 0;
    std::size_t last = size - 1;
    while (last < text.size()) {
        std::uint8_t const move = m_moves[static_cast<unsigned char>(text[last])];
        if (move == 0 && EqualsFolded(text.substr(last + 1 - size, size), m_folded))
            return last + 1;
        last += move == 0 ? m_moveOn : move;
    }
    return std::string_view::npos;
}

} // namespace ui::selexpr
