#include "reader/continuation.h"

#include "reader/latin1.h"

#include <algorithm>
#include <functional>
#include <queue>
#include <string>
#include <unordered_map>
#include <utility>

namespace qzDeck {

namespace {

bool IsSameIdentifier(std::string_view a, std::string_view b) { return a == b || Upper(a) == Upper(b); }

/// Whether a line with this continuation mark continues the one before it.
bool Continues(Source const& source, Line const& before, std::string_view mark) {
    std::string_view const identifier = ContinuationIdentifier(mark);
    return identifier.empty() ||
           IsSameIdentifier(ContinuationIdentifier(source.TenthField(before)), identifier);
}

void ReportOrphans(Source const& source, Assembly const& assembly, Reports& reports) {
    for (std::uint32_t orphan : assembly.orphans) {
        Line const& line = source.Lines()[orphan];
        std::string_view const mark = source.FirstField(line);
        bool const isNamed = !ContinuationIdentifier(mark).empty();
        Problem const problem = isNamed ? Problem::OrphanContinuation : Problem::ContinuationOfNothing;
        reports.push_back({problem, line.file, line.number, mark});
    }
}

/// Finds the parents of continuations that do not follow them. The earliest line that has exactly one parent
/// goes first, and its card then ends with another identifier, which may settle further lines.
class DistantContinuations {
public:
    DistantContinuations(Source const& source, Assembly& assembly) : m_source(source), m_assembly(assembly) {}

    void Attach(std::vector<std::uint32_t> const& lines);

private:
    struct Identifier {
        std::size_t cardCount = 0;          // cards that end with it
        std::size_t cardSum = 0;            // the sum of their indices: of a single one, its index
        std::vector<std::uint32_t> waiting; // lines that begin with it
        std::size_t settled = 0;            // of those

        /// The next line to settle.
        std::uint32_t Next() const { return settled < waiting.size() ? waiting[settled] : Assembly::s_none; }
    };
    using Candidate = std::pair<std::uint32_t, Identifier*>;

    void P_IndexCards();
    Identifier* P_Ending(CardLines const& card);
    void P_Offer(Identifier& identifier);
    void P_Append(std::size_t card, std::uint32_t line);
    void P_KeepOrphans();

    Source const& m_source;
    Assembly& m_assembly;
    std::unordered_map<std::string, Identifier> m_identifiers;
    std::priority_queue<Candidate, std::vector<Candidate>, std::greater<>> m_candidates;
};

void DistantContinuations::Attach(std::vector<std::uint32_t> const& lines) {
    if (lines.empty())
        return;
    for (std::uint32_t line : lines) {
        auto const mark = m_source.FirstField(m_source.Lines()[line]);
        m_identifiers[Upper(ContinuationIdentifier(mark))].waiting.push_back(line);
    }
    P_IndexCards();
    for (auto& [text, identifier] : m_identifiers)
        P_Offer(identifier);
    while (!m_candidates.empty()) {
        auto const [line, identifier] = m_candidates.top();
        m_candidates.pop();
        if (identifier->cardCount != 1 || identifier->Next() != line)
            continue; // settled since it was offered, or no longer with one parent
        ++identifier->settled;
        P_Append(identifier->cardSum, line);
    }
    P_KeepOrphans();
}

void DistantContinuations::P_KeepOrphans() {
    auto& orphans = m_assembly.orphans;
    for (auto const& [text, identifier] : m_identifiers)
        orphans.insert(orphans.end(),
                       identifier.waiting.begin() + static_cast<std::ptrdiff_t>(identifier.settled),
                       identifier.waiting.end());
    std::sort(orphans.begin(), orphans.end());
}

void DistantContinuations::P_IndexCards() {
    for (std::size_t card = 0; card < m_assembly.cards.size(); ++card) {
        if (Identifier* const ending = P_Ending(m_assembly.cards[card])) {
            ++ending->cardCount;
            ending->cardSum += card;
        }
    }
}

/// The identifier with which a card ends, when lines wait for it.
DistantContinuations::Identifier* DistantContinuations::P_Ending(CardLines const& card) {
    auto const identifier = ContinuationIdentifier(m_source.TenthField(m_source.Lines()[card.last]));
    if (identifier.empty())
        return nullptr;
    auto const found = m_identifiers.find(Upper(identifier));
    return found == m_identifiers.end() ? nullptr : &found->second;
}

void DistantContinuations::P_Offer(Identifier& identifier) {
    if (identifier.cardCount == 1 && identifier.Next() != Assembly::s_none)
        m_candidates.push({identifier.Next(), &identifier});
}

void DistantContinuations::P_Append(std::size_t card, std::uint32_t line) {
    CardLines& lines = m_assembly.cards[card];
    Identifier* const before = P_Ending(lines);
    --before->cardCount;
    before->cardSum -= card;
    m_assembly.next[lines.last] = line;
    lines.last = line;
    if (Identifier* const after = P_Ending(lines)) {
        ++after->cardCount;
        after->cardSum += card;
        P_Offer(*after);
    }
    P_Offer(*before);
}

} // namespace

std::string_view CardName(std::string_view firstField) {
    while (firstField.ends_with('*'))
        firstField.remove_suffix(1);
    return TrimRight(firstField);
}

std::string_view ContinuationIdentifier(std::string_view mark) {
    return mark.empty() ? mark : Trim(mark.substr(1));
}

Assembly Assemble(Source const& source, Reports& reports) {
    Assembly assembly;
    auto const& lines = source.Lines();
    assembly.next.assign(lines.size(), Assembly::s_none);
    std::vector<std::uint32_t> distant;
    bool followsDistant = false;
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].HoldsFields())
            continue;
        std::string_view const mark = source.FirstField(lines[i]);
        CardLines* const card = assembly.cards.empty() ? nullptr : &assembly.cards.back();
        if (!IsContinuation(mark)) {
            assembly.cards.push_back({i, i});
            followsDistant = false;
        } else if (card != nullptr && Continues(source, lines[card->last], mark)) {
            if (followsDistant && ContinuationIdentifier(mark).empty())
                reports.push_back(
                    {Problem::DoubtfulContinuation, lines[i].file, lines[i].number, lines[i].text});
            assembly.next[card->last] = i;
            card->last = i;
            followsDistant = false;
        } else {
            distant.push_back(i);
            followsDistant = true;
        }
    }
    DistantContinuations(source, assembly).Attach(distant);
    ReportOrphans(source, assembly, reports);
    return assembly;
}

} // namespace qzDeck
