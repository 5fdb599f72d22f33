#include "check/Finding.h"
#include "commands/commands.h"
#include "commands/read_deck.h"
#include "reader/Report.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace qzDeck {

namespace {

/// `3 dangling references`.
std::string Count(std::size_t count, std::string const& noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

} // namespace

int Check(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    if (session == nullptr)
        return s_failure;
    Model const& model = session->GetModel();
    std::array<std::size_t, 4> counts{};
    for (Findings const& findings : {CheckFields(model), CheckReferences(model), CheckIds(model)}) {
        for (Finding const& finding : findings) {
            ++counts[finding.kind];
            std::cout << Describe(finding, model) << '\n';
        }
    }
    auto const& reports = model.GetReports();
    auto const structural = static_cast<std::size_t>(std::count_if(
        reports.begin(), reports.end(), [](Report const& report) { return IsStructural(report.problem); }));
    std::cout << arguments.deck << ": " << Count(model.Cards().size(), "card") << ", "
              << Count(structural, "misplaced line") << ", " << Count(counts[Finding::Violation], "violation")
              << ", " << Count(counts[Finding::DanglingReference], "dangling reference") << ", "
              << Count(counts[Finding::DuplicateId], "duplicate id") << ", "
              << Count(counts[Finding::Warning], "warning") << '\n';
    bool const isSound = structural + counts[Finding::Violation] + counts[Finding::DanglingReference] +
                             counts[Finding::DuplicateId] ==
                         0;
    return EndOutput(isSound ? s_success : s_findings);
}

} // namespace qzDeck
