#include "cards/families.h"
#include "cards/registry.h"
#include "check/Finding.h"
#include "deck/DeckFolder.h"
#include "facts/DeckFacts.h"
#include "model/field_value.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

using namespace qzDeck;

Findings Check(Model const& model) {
    Findings all = CheckFields(model);
    for (Findings const& findings : {CheckReferences(model), CheckIds(model)})
        all.insert(all.end(), findings.begin(), findings.end());
    return all;
}

/// Sorted, one a line.
std::string Joined(std::multiset<std::string> const& texts) {
    std::string joined;
    for (std::string const& text : texts)
        joined += text + "\n";
    return joined;
}

std::string TextsOf(Findings const& findings, Model const& model) {
    std::string const path = model.GetSource().Files().front().path + ':';
    std::multiset<std::string> texts;
    for (Finding const& finding : findings) {
        std::string text = Describe(finding, model);
        for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path))
            text.erase(at, path.size());
        texts.insert(text);
    }
    return Joined(texts);
}

// The deck says itself what is wrong with each of its lines.
TEST(Check, FindsWhatIsWrongAndNothingElse) {
    auto const model = Model::Read(OwnDeck("faults.bdf")).value();
    std::multiset<std::string> expected;
    std::uint32_t number = 0;
    for (Line const& line : model.GetSource().Lines()) {
        if (line.format != LineFormat::Comment)
            number = line.number;
        else if (line.text.starts_with("$! "))
            expected.insert(std::to_string(number) + ": " + std::string(line.text.substr(3)));
    }
    EXPECT_EQ(TextsOf(Check(model), model), Joined(expected));
    EXPECT_GT(expected.size(), 60U);
}

TEST(Check, TakesNoSoundCardForAFaultyOne) {
    auto const model = Model::Read(OwnDeck("sampler.bdf")).value();
    EXPECT_EQ(ReportsOf(model), "");
    EXPECT_EQ(TextsOf(Check(model), model), "106: DESVAR ID 51: warning: it repeats DESVAR at 105\n");
    for (CardDefinition const& card : AllCards()) {
        EXPECT_TRUE(std::any_of(model.Cards().begin(), model.Cards().end(), [&](Card const& other) {
            return other.Name() == card.Name();
        })) << card.Name();
    }
}

// The facts do not apply defaults and leave out what may be a vector instead.
TEST(Check, FindsTheReferencesAndUnreadableFieldsThatTheFactsCount) {
    std::vector<std::string> decks = SharedDecks();
    for (char const* name : {"footbridge.bdf", "footbridge_loads.bdf", "faults.bdf", "broken.bdf"})
        decks.push_back(OwnDeck(name));
    for (std::string const& deck : decks) {
        auto const model = Model::Read(deck).value();
        DeckFacts const facts = CollectFacts(model);
        std::map<std::string, std::size_t> dangling;
        for (auto const& [key, count] : facts.dangling)
            dangling[key] = 0;
        std::size_t unreadable = 0;
        PlacedFields placed;
        for (Finding const& finding : Check(model)) {
            finding.card->Place(placed);
            Field const* const field = placed[finding.place].field;
            if (finding.kind == Finding::Violation && finding.place < finding.card->Values().size()) {
                FieldKind const kind = KindOf(finding.card->Values()[finding.place]);
                unreadable += kind == FieldKind::Unreadable || kind == FieldKind::GappedExponent ? 1U : 0U;
            }
            if (finding.kind != Finding::DanglingReference || finding.field == "G0")
                continue;
            auto const family = static_cast<Family>(field->definition.GetUserParams().GetForeignReference());
            auto const counted =
                dangling.find(finding.card->Name() + "->" + std::string(TraitsOf(family).label));
            if (counted != dangling.end())
                ++counted->second;
        }
        EXPECT_EQ(dangling, facts.dangling) << deck;
        EXPECT_EQ(unreadable, facts.kinds.OfUnreadable()) << deck;
    }
}

// Read by hand: the only thing wrong with these decks is a property that one of them leaves to another file.
TEST(Check, FindsInPublishedDecksOnlyWhatIsWrong) {
    for (std::string const& deck : SharedDecks()) {
        auto const model = Model::Read(deck).value();
        Findings const findings = Check(model);
        EXPECT_EQ(findings.size(), deck.ends_with("fixed_motor.bdf") ? 1681U : 0U) << deck;
        for (Finding const& finding : findings)
            ASSERT_EQ(finding.card->Name() + finding.field + finding.message,
                      "CTETRAPIDthere is no solid property 1");
    }
}

TEST(Check, AppliesTheDefaultsOfAnotherCard) {
    DeckFolder const folder;
    std::string const bars = "GRID,1\nGRID,2\nMAT1,1,1.\nPBAR,5,1\nCBAR,1,,1,2\n";
    auto const model = folder.Read(bars);
    EXPECT_EQ(TextsOf(Check(model), model),
              "5: CBAR PID: there is no bar property 1, which a blank names: the card's own number\n");
    EXPECT_TRUE(Check(folder.Read(bars + "BAROR,,5\n")).empty());
    auto const wrong = folder.Read("BAROR,,6\n" + bars);
    EXPECT_EQ(TextsOf(Check(wrong), wrong), "1: BAROR PID 6: there is no bar property 6\n");
}

} // namespace
