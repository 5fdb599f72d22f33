#pragma once

#include "model/Card.h"
#include "model/LocatedFields.h"
#include "reader/Report.h"
#include "reader/Source.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace qzDeck {

/// A structural model as its deck states it: every card with every field as a typed value, and the text that
/// it was read from.
class Model {
public:
    /// Nothing when the main file cannot be read; whatever is wrong inside a deck is a report.
    static std::optional<Model> Read(std::string const& path);

    std::vector<Card> const& Cards() const { return m_cards; }
    std::vector<Card>& Cards() { return m_cards; }
    std::deque<CardKind> const& Kinds() const { return m_kinds; }

    /// Adds a card behind the others that was not read. The name is in capitals.
    Card& Add(std::string const& name, std::vector<qzDescriptor::Value> values);
    /// Takes cards out, by their indices in ascending order.
    void Remove(std::vector<std::uint32_t> const& cards);

    Source const& GetSource() const { return m_source; }
    /// The lines of a card as they were read; none for one that was not.
    std::vector<Line const*> LinesOf(Card const& card) const;
    /// The texts on those lines. A text stays what it was when the value changes.
    LocatedFields TextsOf(Card const& card) const;
    /// Continuation lines that belong to no card, by their index in Source::Lines.
    std::vector<std::uint32_t> const& Orphans() const { return m_orphans; }
    /// What is wrong, by file and line.
    Reports const& GetReports() const { return m_reports; }

private:
    friend class ModelBuilder;

    CardKind& P_KindNamed(std::string const& name);

    explicit Model(Source source) : m_source(std::move(source)) {}

    Source m_source;
    std::vector<std::uint32_t> m_nextLines; // by line of the source: the one that continues its card
    std::deque<CardKind> m_kinds;
    std::vector<Card> m_cards;
    std::vector<std::uint32_t> m_orphans;
    Reports m_reports;
};

} // namespace qzDeck
