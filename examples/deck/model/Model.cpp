#include "model/Model.h"

#include "model/field_names.h"
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
    void P_AddFields(Line const& line);
    CardKind& P_Kind(std::string_view name);
    qzDescriptor::Value P_MakeValue(LocatedField const& field);

    Model& m_model;
    Assembly const& m_assembly;
    std::unordered_map<std::string, CardKind*> m_kindsByName;
    std::vector<LocatedField> m_fields; // of the card that is being made
};

void ModelBuilder::P_AddCard(CardLines const& lines) {
    auto const& all = m_model.m_source.Lines();
    m_fields.clear();
    for (std::uint32_t i = lines.first; i != Assembly::s_none; i = m_assembly.next[i])
        P_AddFields(all[i]);
    while (!m_fields.empty() && m_fields.back().text.empty())
        m_fields.pop_back();

    Line const& first = all[lines.first];
    CardKind& kind = P_Kind(CardName(m_model.m_source.FirstField(first)));
    while (kind.fields.size() < m_fields.size())
        kind.fields.push_back(FieldIdentifier(kind.name, kind.fields.size() + 1));
    std::vector<qzDescriptor::Value> values;
    values.reserve(m_fields.size());
    for (LocatedField const& field : m_fields)
        values.push_back(P_MakeValue(field));
    m_model.m_cards.emplace_back(kind, first.file, first.number, std::move(values));
}

/// Lines of large fields go on where the card ends; all others begin a row of eight.
void ModelBuilder::P_AddFields(Line const& line) {
    constexpr std::uint8_t row = 8;
    DataFields const data = m_model.m_source.Data(line);
    if (line.format != LineFormat::Large && m_fields.size() % row != 0) {
        if (data.count < row)
            m_model.m_reports.push_back({Problem::ShiftedByLargeFreeLine, line.file, line.number, line.text});
        m_fields.resize((m_fields.size() / row + 1) * row, {{}, &line, 0, row});
    }
    auto const width = static_cast<std::uint8_t>(data.Width());
    for (std::uint8_t i = 0; i < data.count; ++i)
        m_fields.push_back({data.texts[i], &line, i, width});
}

CardKind& ModelBuilder::P_Kind(std::string_view name) {
    auto const [found, isNew] = m_kindsByName.try_emplace(Upper(name), nullptr);
    if (isNew)
        found->second = &m_model.m_kinds.emplace_back(CardKind{found->first, {}});
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
    model.m_orphans = std::move(assembly.orphans);
    auto const place = [](Report const& report) { return std::tie(report.file, report.line); };
    std::stable_sort(model.m_reports.begin(), model.m_reports.end(),
                     [&](Report const& a, Report const& b) { return place(a) < place(b); });
    return model;
}

} // namespace qzDeck
