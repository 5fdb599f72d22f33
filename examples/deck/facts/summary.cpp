#include "facts/summary.h"

#include "reader/latin1.h"

#include <algorithm>
#include <iomanip>

namespace qzDeck {

namespace {

/// The text behind `TITLE =` before the bulk section.
std::string_view FindTitle(Source const& source) {
    std::string_view rest = source.Header();
    while (!rest.empty()) {
        std::string_view const line = Trim(rest.substr(0, rest.find('\n')));
        rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
        std::size_t const equals = line.find('=');
        if (BeginsWithWord(line, "TITLE") && equals != std::string_view::npos)
            return Trim(line.substr(equals + 1));
    }
    return "(a deck without a title)";
}

void WriteFiles(std::ostream& out, Model const& model) {
    for (SourceFile const& file : model.GetSource().Files())
        out << "  " << file.path << '\n';
    out << "  " << model.GetSource().Lines().size() << " lines of bulk data\n";
}

void WriteCards(std::ostream& out, Model const& model, DeckFacts const& facts) {
    out << "\nCards: " << model.Cards().size() << " of " << facts.cards.size() << " kinds\n";
    for (auto const& [name, card] : facts.cards) {
        out << "  " << std::left << std::setw(8) << CapitalsToUtf8(name) << std::right << std::setw(9)
            << card.count;
        if (card.ids.Count() > 0)
            out << "  first field " << card.ids.Least().Text() << " to " << card.ids.Greatest().Text();
        out << '\n';
    }
}

void WriteExtent(std::ostream& out, DeckFacts const& facts) {
    auto const grid = facts.cards.find("GRID");
    if (grid == facts.cards.end())
        return;
    out << "\nGrid: coordinates as written, each point in its own system\n";
    constexpr std::size_t firstCoordinate = 2;
    for (std::size_t i = 0; i < 3; ++i) {
        out << "  X" << i + 1 << "  ";
        auto const& columns = grid->second.columns;
        std::size_t const column = firstCoordinate + i;
        if (column < columns.size() && columns[column].kinds.OfReals() > 0)
            out << columns[column].leastReal << " to " << columns[column].greatestReal << '\n';
        else
            out << "no real number\n";
    }
}

void WriteDangling(std::ostream& out, DeckFacts const& facts) {
    out << "\nReferences to what the deck does not hold:";
    bool isSound = true;
    for (auto const& [reference, count] : facts.dangling) {
        if (count == 0)
            continue;
        out << "\n  " << std::left << std::setw(24) << reference << std::right << count;
        isSound = false;
    }
    out << (isSound ? " none\n" : "\n");
}

} // namespace

void WriteSummary(std::ostream& out, Model const& model, DeckFacts const& facts) {
    out << FindTitle(model.GetSource()) << '\n';
    WriteFiles(out, model);
    WriteCards(out, model, facts);
    WriteExtent(out, facts);
    WriteDangling(out, facts);
    std::size_t const reports = model.GetReports().size();
    out << "Reports of what is wrong in the text: ";
    if (reports == 0)
        out << "none\n";
    else
        out << reports << ", on standard error\n";
}

} // namespace qzDeck
