#include "check/Finding.h"

namespace qzDeck {

std::string WhereIs(Card const& card, Model const& model) {
    if (card.SourceLine() == Card::s_noLine)
        return "a new card";
    Line const& line = model.GetSource().Lines()[card.SourceLine()];
    return Location(model.GetSource(), line.file, line.number);
}

std::string Describe(Finding const& finding, Model const& model) {
    LocatedFields const fields = model.TextsOf(*finding.card);
    std::string text = WhereIs(*finding.card, model);
    std::string value;
    if (finding.place < fields.Count()) {
        Line const& line = *fields[finding.place].line;
        text = Location(model.GetSource(), line.file, line.number);
        value = Printable(fields[finding.place].text);
    }
    text.append(": ").append(finding.card->Name()).append(1, ' ').append(finding.field);
    if (!value.empty())
        text.append(1, ' ').append(value);
    return text.append(": ").append(finding.message);
}

} // namespace qzDeck
