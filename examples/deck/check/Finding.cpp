#include "check/Finding.h"

namespace qzDeck {

std::string Describe(Finding const& finding, Model const& model) {
    LocatedFields const fields = model.TextsOf(*finding.card);
    Line const* line = model.LinesOf(*finding.card).front();
    std::string value;
    if (finding.place < fields.Count()) {
        line = fields[finding.place].line;
        value = Printable(fields[finding.place].text);
    }
    std::string text = Location(model.GetSource(), line->file, line->number);
    text.append(": ").append(finding.card->Name()).append(1, ' ').append(finding.field);
    if (!value.empty())
        text.append(1, ' ').append(value);
    return text.append(": ").append(finding.message);
}

} // namespace qzDeck
