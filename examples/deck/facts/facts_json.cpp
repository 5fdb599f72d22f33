#include "facts/facts_json.h"

#include "reader/latin1.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

namespace qzDeck {

using Json = nlohmann::ordered_json;

namespace {

constexpr FieldKind s_kinds[] = {
    FieldKind::Unreadable, FieldKind::GappedExponent,   FieldKind::Blank, FieldKind::Integer,
    FieldKind::Real,       FieldKind::RealWithoutPoint, FieldKind::Text};

/// Appends a member whose key is new. The object's own look-up would scan all the members before it.
void Append(Json& object, std::string const& key, Json value) {
    object.get_ref<Json::object_t&>().emplace_back(key, std::move(value));
}

// A number that the JSON library cannot hold goes through it as a string. No other value in the facts is one,
// so that Unquote may take the quotes off every string that is a value.

Json Number(WholeNumber const& number) {
    return number.IsSmall() ? Json(number.Small()) : Json(number.Text());
}

Json Number(double real) {
    if (std::isnan(real))
        return nullptr; // infinities of both signs were added
    if (std::isinf(real))
        return real > 0 ? "1e999" : "-1e999";
    return real;
}

std::string Unquote(std::string const& json) {
    std::string text;
    text.reserve(json.size());
    bool isInString = false;
    bool isValue = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        bool const isQuote = json[i] == '"';
        if (isQuote && !isInString)
            isValue = text.ends_with(": ");
        if (isQuote)
            isInString = !isInString;
        if (!(isQuote && isValue))
            text += json[i];
        if (isInString && json[i] == '\\')
            text += json[++i];
    }
    return text;
}

/// Rounded to six significant digits.
double SixDigits(double real) {
    if (!std::isfinite(real))
        return real;
    std::array<char, 32> text{};
    auto const written =
        std::to_chars(text.data(), text.data() + text.size(), real, std::chars_format::general, 6);
    double rounded = 0.0;
    std::from_chars(text.data(), written.ptr, rounded);
    return rounded;
}

Json CountsToJson(KindCounts const& counts) {
    Json json = Json::object();
    for (FieldKind kind : s_kinds) {
        if (counts.Of(kind) > 0)
            json[std::string(NameOf(kind))] = counts.Of(kind);
    }
    return json;
}

Json CardsToJson(DeckFacts const& facts) {
    std::vector<std::pair<std::string, std::size_t>> counts;
    for (auto const& [name, card] : facts.cards)
        counts.emplace_back(name, card.count);
    std::stable_sort(counts.begin(), counts.end(),
                     [](auto const& a, auto const& b) { return a.second > b.second; });
    Json json = Json::object();
    for (auto const& [name, count] : counts)
        Append(json, CapitalsToUtf8(name), count);
    return json;
}

Json IdsToJson(DeckFacts const& facts) {
    Json json = Json::object();
    for (auto const& [name, card] : facts.cards) {
        if (card.ids.Count() == 0)
            continue;
        Json ids = {{"min", Number(card.ids.Least())},
                    {"max", Number(card.ids.Greatest())},
                    {"count", card.ids.Count()},
                    {"distinct", card.ids.CountDistinct()}};
        Append(json, CapitalsToUtf8(name), std::move(ids));
    }
    return json;
}

Json ColumnToJson(ColumnFacts const& column) {
    Json json = CountsToJson(column.kinds);
    if (column.kinds.OfReals() > 0) {
        json["real_sum"] = Number(SixDigits(column.realSum.Value()));
        json["real_min"] = Number(SixDigits(column.leastReal));
        json["real_max"] = Number(SixDigits(column.greatestReal));
    }
    if (column.kinds.Of(FieldKind::Integer) > 0)
        json["int_sum"] = Number(column.integerSum.Value());
    return json;
}

Json ColumnsToJson(DeckFacts const& facts) {
    Json json = Json::object();
    for (auto const& [name, card] : facts.cards) {
        if (card.columns.empty())
            continue;
        Json columns = Json::object();
        for (std::size_t i = 0; i < card.columns.size(); ++i)
            Append(columns, std::to_string(i + 1), ColumnToJson(card.columns[i]));
        Append(json, CapitalsToUtf8(name), std::move(columns));
    }
    return json;
}

Json GridSumsToJson(DeckFacts const& facts) {
    Json json = Json::object();
    constexpr char const* axes[] = {"x", "y", "z"};
    for (std::size_t i = 0; i < std::size(axes); ++i)
        json[axes[i]] = facts.gridSums ? Number(SixDigits((*facts.gridSums)[i].Value())) : Json(nullptr);
    return json;
}

} // namespace

std::string ToJson(DeckFacts const& facts) {
    Json json = Json::object();
    json["cards"] = CardsToJson(facts);
    json["ids"] = IdsToJson(facts);
    json["field_kinds"] = CountsToJson(facts.kinds);
    json["columns"] = ColumnsToJson(facts);
    json["grid_sums_6_digits"] = GridSumsToJson(facts);
    json["dangling_references"] = facts.dangling;
    json["structure_errors_count"] = facts.structureErrors;
    json["unparsable_fields_count"] = facts.kinds.OfUnreadable();
    return Unquote(json.dump(1));
}

} // namespace qzDeck
