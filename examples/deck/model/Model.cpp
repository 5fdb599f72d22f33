#include "model/Model.h"

#include "cards/registry.h"
#include "model/field_problem.h"
#include "model/field_value.h"
#include "reader/SourceReader.h"
#include "reader/continuation.h"
#include "reader/latin1.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

namespace qzDeck {

/// Makes cards of lines.
class ModelBuilder {
public:
    ModelBuilder(Model& model, Assembly const& assembly) : m_model(model), m_assembly(assembly) {}

    void AddCards() {
        m_model.m_cards.reserve(m_assembly.cards.size());
        for (CardLines const& lines : m_assembly.cards)
            P_AddCard(lines);
    }

private:
    void P_AddCard(CardLines const& lines);
    void P_Locate(CardLines const& lines);
    CardKind& P_Kind(std::string_view name);
    qzDescriptor::Value P_MakeValue(LocatedField const& field);

    Model& m_model;
    Assembly const& m_assembly;
    std::unordered_map<std::string, CardKind*> m_kindsByName;
    LocatedFields m_fields; // of the card that is being made
};

void ModelBuilder::P_AddCard(CardLines const& lines) {
    P_Locate(lines);
    std::size_t const count = m_fields.Count();
    std::vector<qzDescriptor::Value> values;
    values.reserve(count);
    for (std::size_t place = 0; place < count; ++place)
        values.push_back(P_MakeValue(m_fields[place]));
    Source const& source = m_model.m_source;
    CardKind const& kind = P_Kind(CardName(source.FirstField(source.Lines()[lines.first])));
    m_model.m_cards.emplace_back(kind, lines.first, std::move(values));
}

void ModelBuilder::P_Locate(CardLines const& lines) {
    auto const& all = m_model.m_source.Lines();
    m_fields.Clear();
    for (std::uint32_t i = lines.first; i != Assembly::s_none; i = m_assembly.next[i]) {
        if (!m_fields.Add(m_model.m_source, all[i]))
            m_model.m_reports.push_back(
                {Problem::ShiftedByLargeFreeLine, all[i].file, all[i].number, all[i].text});
    }
}

CardKind& ModelBuilder::P_Kind(std::string_view name) {
    auto const [found, isNew] = m_kindsByName.try_emplace(Upper(name), nullptr);
    if (isNew)
        found->second = &m_model.m_kinds.emplace_back(CardKind{found->first, FindCard(found->first)});
    return *found->second;
}

qzDescriptor::Value ModelBuilder::P_MakeValue(LocatedField const& field) {
    FieldKind const kind = Classify(field.text);
    qzDescriptor::Value value = MakeValue(kind, field.text);
    if (auto const problem = FindProblem(field, kind, value))
        m_model.m_reports.push_back({*problem, field.line->file, field.line->number, field.text});
    return value;
}

std::optional<Model> Model::Read(std::string const& path) {
    Reports reports;
    auto source = SourceReader::Read(path, reports);
    if (!source)
        return std::nullopt;
    Assembly assembly = Assemble(*source, reports);
    Model model(std::move(*source));
    model.m_reports = std::move(reports);
    ModelBuilder(model, assembly).AddCards();
    model.m_nextLines = std::move(assembly.next);
    model.m_orphans = std::move(assembly.orphans);
    auto const place = [](Report const& report) { return std::tie(report.file, report.line); };
    std::stable_sort(model.m_reports.begin(), model.m_reports.end(),
                     [&](Report const& a, Report const& b) { return place(a) < place(b); });
    return model;
}

CardKind& Model::P_KindNamed(std::string const& name) {
    auto const found =
        std::find_if(m_kinds.begin(), m_kinds.end(), [&](CardKind const& kind) { return kind.name == name; });
    return found != m_kinds.end() ? *found : m_kinds.emplace_back(CardKind{name, FindCard(name)});
}

Card& Model::Add(std::string const& name, std::vector<qzDescriptor::Value> values) {
    return m_cards.emplace_back(P_KindNamed(name), Card::s_noLine, std::move(values));
}

void Model::Remove(std::vector<std::uint32_t> const& cards) {
    auto next = cards.begin();
    std::uint32_t index = 0;
    std::erase_if(m_cards, [&](Card const&) {
        bool const isGone = next != cards.end() && *next == index;
        next += isGone ? 1 : 0;
        ++index;
        return isGone;
    });
}

std::vector<Line const*> Model::LinesOf(Card const& card) const {
    std::vector<Line const*> lines;
    for (std::uint32_t i = card.SourceLine(); i != Card::s_noLine; i = m_nextLines[i])
        lines.push_back(&m_source.Lines()[i]);
    return lines;
}

LocatedFields Model::TextsOf(Card const& card) const {
    LocatedFields fields;
    for (Line const* line : LinesOf(card))
        fields.Add(m_source, *line);
    return fields;
}

} // namespace qzDeck
