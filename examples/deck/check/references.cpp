#include "check/Finding.h"
#include "model/field_value.h"
#include "references/dangling.h"

namespace qzDeck {

namespace {

std::string MessageFor(DanglingReference const& reference) {
    std::string message = "there is no " + std::string(TraitsOf(reference.family).noun);
    if (!reference.id)
        return message;
    message.append(1, ' ').append(reference.id->Text());
    auto const& values = reference.card.Values();
    bool const isWritten =
        reference.place < values.size() && KindOf(values[reference.place]) == FieldKind::Integer;
    return isWritten ? message : message + ", which a blank names: the card's own number";
}

} // namespace

Findings CheckReferences(Model const& model) {
    Findings findings;
    FindDanglingReferences(model, Blanks::ByDefaultsCard, [&](DanglingReference const& reference) {
        findings.push_back({Finding::DanglingReference, &reference.card, reference.place,
                            reference.field.Label(reference.place), MessageFor(reference)});
    });
    return findings;
}

} // namespace qzDeck
