#pragma once

#include "SearchedText.h"
#include "Wildcard.h"
#include "ascii.h"

#include <vector>

namespace ui::selexpr {

/// Which texts a condition names.
class TextSet {
public:
    enum class Side { Below, UpTo, From, Above };

    void AddEqual(std::string_view text) { m_equal.push_back(FoldText(text)); }
    void AddExact(std::string_view text) { m_exact.emplace_back(text); }
    void AddPart(std::string_view text) { m_parts.emplace_back(text); }
    void AddPattern(std::string_view pattern) { m_patterns.emplace_back(pattern); }
    /// All texts on one side of another, by their bytes, ignoring ASCII case.
    void AddSide(Side side, std::string_view text) { m_sides.push_back({side, FoldText(text)}); }
    /// To be called between the last addition and the first question.
    void Seal();

    bool Contains(std::string_view text) const;

private:
    struct Half {
        bool Contains(std::string_view text) const;

        Side side;
        qzString end;
    };

    bool P_ContainsByText(std::string_view text) const;

    std::vector<Wildcard> m_patterns;
    std::vector<qzString> m_equal; ///< sorted, as m_exact is
    std::vector<qzString> m_exact;
    std::vector<SearchedText> m_parts;
    std::vector<Half> m_sides;
    bool m_hasOnlyPatterns = true;
};

} // namespace ui::selexpr
