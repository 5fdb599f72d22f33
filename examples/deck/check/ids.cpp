#include "cards/families.h"
#include "check/Finding.h"
#include "references/card_ids.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace qzDeck {

namespace {

class IdChecker {
public:
    explicit IdChecker(Model const& model) : m_model(model) {
        for (CardKind const& kind : model.Kinds())
            m_idsByKind[&kind] = IdGroupOf(kind).empty() ? nullptr : &m_ids[IdGroupOf(kind)];
    }

    Findings Check() {
        for (Card const& card : m_model.Cards()) {
            if (card.Kind().definition != nullptr && card.Kind().definition->IsSingle())
                P_CheckSingle(card);
            if (Ids* const ids = m_idsByKind[&card.Kind()])
                P_CheckIds(card, *ids);
        }
        return std::move(m_findings);
    }

private:
    using Ids = std::unordered_map<int, Card const*>;

    void P_CheckIds(Card const& card, Ids& ids) {
        VisitIds(card, m_placed, [&](std::size_t place, bool) {
            int id = 0;
            if (!card.Values()[place].GetValue(id))
                return; // a number of more than 32 bits, which is a violation
            auto const [first, isNew] = ids.try_emplace(id, &card);
            if (!isNew && first->second != &card)
                P_Report(card, place, *first->second, "has this number already");
        });
    }

    void P_CheckSingle(Card const& card) {
        auto const [first, isNew] = m_singles.try_emplace(&card.Kind(), &card);
        if (!isNew)
            P_Report(card, 0, *first->second, "is the one that a deck may hold");
    }

    void P_Report(Card const& card, std::size_t place, Card const& first, std::string const& reason) {
        bool const isSame = card.Name() == first.Name() && card.Values() == first.Values();
        std::string const where = first.Name() + " at " + WhereIs(first, m_model);
        card.Place(m_placed);
        m_findings.push_back({isSame ? Finding::Warning : Finding::DuplicateId, &card, place,
                              m_placed[place].Label(place),
                              isSame ? "warning: it repeats " + where : where + ' ' + reason});
    }

    Model const& m_model;
    std::unordered_map<std::string_view, Ids> m_ids; // by group
    std::unordered_map<CardKind const*, Ids*> m_idsByKind;
    std::unordered_map<CardKind const*, Card const*> m_singles;
    PlacedFields m_placed;
    Findings m_findings;
};

} // namespace

Findings CheckIds(Model const& model) { return IdChecker(model).Check(); }

} // namespace qzDeck
