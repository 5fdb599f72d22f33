#include "descriptor/Clause.h"
#include "descriptor/Color.h"
#include "descriptor/EntityFullType.h"
#include "descriptor/Formula.h"
#include "descriptor/Function.h"
#include "support/ExpectDistinct.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

using namespace qzDescriptor;

namespace {

EntityFullType const s_grid("GRID");
EntityFullType const s_set("SET", 3U);

// ---- evaluation against a model that knows nothing but the rules ----

/// What a clause says about ids below a limit: nothing, or whether it matches.
constexpr unsigned int s_idLimit = 24;
using Verdicts = std::array<std::optional<bool>, s_idLimit>;

struct ModelClause {
    Clause clause;
    Verdicts verdicts{};
};

ModelClause MakeRange(unsigned int start, unsigned int end, unsigned int step) {
    ModelClause made{Clause::FromIdRange(start, end, step)};
    for (unsigned int id = start; id <= end && id < s_idLimit; ++id)
        made.verdicts[id] = step < 2;
    for (unsigned int id = start; step >= 2 && id <= end && id < s_idLimit; id += step)
        made.verdicts[id] = true;
    return made;
}

ModelClause MakeList(qzStlVector<unsigned int> const& ids) {
    ModelClause made{Clause::FromIdList(ids)};
    made.verdicts.fill(false);
    for (unsigned int const id : ids)
        made.verdicts[id] = true;
    return made;
}

ModelClause MakeRandomClause(Random& random) {
    switch (random.Below(8)) {
    case 0:
        return {random.Pick({Clause(), Clause::FromName("wing"), Clause::FromColor(Color(3))})};
    case 1:
    case 2:
    case 3: {
        qzStlVector<unsigned int> ids(random.Below(10));
        std::ranges::generate(ids, [&] { return random.Below(s_idLimit); });
        return MakeList(ids);
    }
    default:
        return MakeRange(random.Below(s_idLimit), random.Below(s_idLimit), random.Below(6));
    }
}

struct ModelEntry {
    ModelClause clause;
    bool addition;
};

bool ExpectWithin(std::vector<ModelEntry> const& entries, unsigned int id, bool lenient) {
    std::optional<bool> decision;
    for (auto const& entry : entries) {
        auto const& verdict = entry.clause.verdicts[id];
        if (!verdict && !lenient)
            return false;
        if (verdict && *verdict)
            decision = entry.addition;
    }
    return decision.value_or(false);
}

TEST(Formula, EvaluatesAsTheRulesSay) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 2000; ++round) {
        Formula formula(s_grid);
        std::vector<ModelEntry> model;
        for (unsigned int count = random.Below(6); count > 0; --count) {
            model.push_back({MakeRandomClause(random), random.Chance(2)});
            formula.PushBackClause(model.back().clause.clause, s_grid, model.back().addition);
        }
        for (unsigned int id = 0; id < s_idLimit; ++id)
            for (bool const lenient : {false, true})
                ASSERT_EQ(formula.IsIdWithin(id, lenient), ExpectWithin(model, id, lenient))
                    << "round " << round << ", id " << id << ", lenient " << lenient;
    }
}

TEST(Clause, SaysWhetherItIsApplicableAndMatches) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 2000; ++round) {
        ModelClause const model = MakeRandomClause(random);
        for (unsigned int id = 0; id < s_idLimit; ++id) {
            bool applicable = random.Chance(2);
            ASSERT_EQ(model.clause.IsIdWithin(id, applicable), model.verdicts[id].value_or(false));
            ASSERT_EQ(applicable, model.verdicts[id].has_value());
        }
    }
}

TEST(Clause, CountsUpToTheLastId) {
    Clause const everySecond = Clause::FromIdRange(1, 0xFFFFFFFF, 2);
    bool applicable = false;
    EXPECT_TRUE(everySecond.IsIdWithin(0xFFFFFFFF, applicable));
    EXPECT_FALSE(everySecond.IsIdWithin(0xFFFFFFFE, applicable));
    EXPECT_TRUE(applicable);
    EXPECT_FALSE(everySecond.IsIdWithin(0, applicable));
    EXPECT_FALSE(applicable);
}

TEST(Formula, WithoutClausesSelectsNothing) {
    EXPECT_FALSE(Formula().IsIdWithin(0, true));
    EXPECT_FALSE(Formula(s_grid).IsIdWithin(0, true));
    EXPECT_FALSE(Formula(s_grid).IsValid());
}

// ---- clauses as values ----

std::vector<Clause> MakeDistinctClauses() {
    return {Clause(),
            Clause::FromIdRange(1, 2, 1),
            Clause::FromIdRange(0, 2, 1),
            Clause::FromIdRange(1, 3, 1),
            Clause::FromIdRange(1, 2, 2),
            Clause::FromIdList({}),
            Clause::FromIdList({1, 2}),
            Clause::FromIdList({2, 1}),
            Clause::FromName(""),
            Clause::FromName("wing"),
            Clause::FromColor(Color(3)),
            Clause::FromColor(Color(0, 0, 3))};
}

TEST(Clause, IsEqualToItsCopiesAlone) { ExpectDistinct(MakeDistinctClauses()); }

TEST(Clause, AnswersOnlyForItsOwnKind) {
    unsigned int start = 9, end = 9, step = 9;
    qzStlVector<unsigned int> ids = {9};
    qzString name = "9";
    Color color(9);
    for (Clause const& clause : MakeDistinctClauses()) {
        EXPECT_EQ(clause.GetIdRange(start, end, step), clause.GetKind() == Clause::KIND_ID_RANGE);
        EXPECT_EQ(clause.GetIdList(ids), clause.GetKind() == Clause::KIND_ID_LIST);
        EXPECT_EQ(clause.GetName(name), clause.GetKind() == Clause::KIND_NAME);
        EXPECT_EQ(clause.GetColor(color), clause.GetKind() == Clause::KIND_COLOR);
        EXPECT_EQ(clause.IsEmpty(), clause.GetKind() == Clause::KIND_EMPTY);
    }
    // Each holds what the last clause of its kind gave, untouched by those of other kinds.
    EXPECT_EQ(Clause::FromIdRange(start, end, step), Clause::FromIdRange(1, 2, 2));
    EXPECT_EQ(ids, (qzStlVector<unsigned int>{2, 1}));
    EXPECT_EQ(name, "wing");
    EXPECT_EQ(color, Color(0, 0, 3));
}

TEST(Clause, CopiesDeeplyAndSurvivesAssignmentFromItself) {
    Clause const list = Clause::FromIdList({1, 2});
    Clause copy = list;
    copy = Clause::FromName("wing");
    EXPECT_EQ(list, Clause::FromIdList({1, 2}));
    Clause& same = copy;
    copy = same;
    EXPECT_EQ(copy, Clause::FromName("wing"));
    Clause const moved = std::move(copy);
    EXPECT_EQ(moved, Clause::FromName("wing"));
    EXPECT_TRUE(copy.IsEmpty());
}

// ---- the entries of a formula ----

struct Entry {
    Clause clause;
    EntityFullType source;
    bool addition;
};

Entry MakeRandomEntry(Random& random) {
    return {random.Pick(MakeDistinctClauses()), random.Pick({s_grid, s_set, EntityFullType()}),
            random.Chance(2)};
}

void ExpectEntries(Formula const& formula, std::vector<Entry> const& model) {
    ASSERT_EQ(formula.GetClauseCount(), model.size());
    ASSERT_EQ(formula.IsValid(), !model.empty());
    for (unsigned int i = 0; i < model.size(); ++i) {
        Entry read{Clause::FromName("before"), EntityFullType("before"), !model[i].addition};
        formula.GetClause(i, read.clause, read.source, read.addition);
        ASSERT_EQ(read.clause, model[i].clause);
        ASSERT_EQ(read.source, model[i].source);
        ASSERT_EQ(read.addition, model[i].addition);
        ASSERT_EQ(formula.GetClauseReference(i), model[i].clause);
        ASSERT_EQ(formula.GetClauseEntityTypeSource(i), model[i].source);
        ASSERT_EQ(formula.GetClauseAdditionType(i), model[i].addition);
    }
}

void Edit(Random& random, Formula& formula, std::vector<Entry>& model) {
    auto const count = static_cast<unsigned int>(model.size());
    unsigned int const at = random.Chance(10) ? 0xFFFFFFFF : random.Below(count + 2);
    Entry const entry = MakeRandomEntry(random);
    switch (random.Below(4)) {
    case 0:
        formula.PushBackClause(entry.clause, entry.source, entry.addition);
        model.push_back(entry);
        break;
    case 1:
        formula.InsertClause(at, entry.clause, entry.source, entry.addition);
        if (at < count)
            model.insert(model.begin() + at, entry);
        break;
    case 2:
        formula.ReplaceClause(at, entry.clause, entry.source, entry.addition);
        if (at < count)
            model[at] = entry;
        break;
    default:
        unsigned int const last = random.Chance(10) ? 0xFFFFFFFF : random.Below(count + 2);
        formula.RemoveClauses(at, last);
        if (at < count)
            model.erase(model.begin() + at, model.begin() + (last > at ? std::min(last, count) : at + 1));
    }
}

TEST(Formula, EditsItsEntriesAsAVectorWould) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 50; ++round) {
        Formula formula(s_grid);
        std::vector<Entry> model;
        for (int edit = 0; edit < 60; ++edit) {
            Edit(random, formula, model);
            ASSERT_NO_FATAL_FAILURE(ExpectEntries(formula, model)) << "round " << round << ", edit " << edit;
        }
    }
}

TEST(Formula, OfNoTypeTakesNoClauses) {
    Formula none;
    none.PushBackClause(Clause::FromIdList({1}), s_grid, true);
    none.InsertClause(0, Clause::FromIdList({1}), s_grid, true);
    none.ReplaceClause(0, Clause::FromIdList({1}), s_grid, true);
    none.RemoveClauses(0, 1);
    EXPECT_EQ(none, Formula());
    EXPECT_EQ(none.GetEntityFullType(), EntityFullType());
}

TEST(Formula, AnswersForEntriesThatAreNotThere) {
    Formula one(s_grid);
    one.PushBackClause(Clause::FromIdList({1}), s_grid, true);
    for (Formula const& formula : {Formula(), Formula(s_grid), one}) {
        unsigned int const past = formula.GetClauseCount();
        Clause clause = Clause::FromName("before");
        EntityFullType source("before");
        bool addition = true;
        formula.GetClause(past, clause, source, addition);
        EXPECT_TRUE(clause.IsEmpty());
        EXPECT_EQ(source, EntityFullType("before"));
        EXPECT_TRUE(addition);
        EXPECT_TRUE(formula.GetClauseReference(past).IsEmpty());
        EXPECT_FALSE(formula.GetClauseAdditionType(past));
        EXPECT_EQ(formula.GetClauseEntityTypeSource(past), EntityFullType());
    }
}

TEST(Formula, TakesClausesOfItsOwnAsArguments) {
    Formula formula(s_grid);
    std::vector<Entry> model;
    for (unsigned int id = 0; id < 3; ++id) {
        model.push_back({Clause::FromIdList({id, id, id}), s_grid, true});
        formula.PushBackClause(model.back().clause, s_grid, true);
    }
    for (int round = 0; round < 20; ++round) {
        formula.PushBackClause(formula.GetClauseReference(1), s_set, false);
        model.push_back({model[1].clause, s_set, false});
        formula.InsertClause(0, formula.GetClauseReference(2), s_set, false);
        model.insert(model.begin(), Entry{model[2].clause, s_set, false});
        formula.ReplaceClause(1, formula.GetClauseReference(1), s_grid, true);
        model[1] = {model[1].clause, s_grid, true};
    }
    ExpectEntries(formula, model);
}

std::vector<Formula> MakeDistinctFormulas() {
    std::vector<Formula> formulas = {Formula(), Formula(EntityFullType()), Formula(s_grid), Formula(s_set)};
    auto const add = [&formulas](std::vector<Entry> const& entries) {
        Formula& formula = formulas.emplace_back(s_grid);
        for (auto const& [clause, source, addition] : entries)
            formula.PushBackClause(clause, source, addition);
    };
    Clause const ids = Clause::FromIdList({1});
    Clause const wing = Clause::FromName("wing");
    add({{ids, s_grid, true}});
    add({{ids, s_grid, false}});
    add({{ids, s_set, true}});
    add({{wing, s_grid, true}});
    add({{ids, s_grid, true}, {wing, s_grid, true}});
    add({{wing, s_grid, true}, {ids, s_grid, true}});
    return formulas;
}

TEST(Formula, IsEqualToItsCopiesAlone) { ExpectDistinct(MakeDistinctFormulas()); }

TEST(Formula, KeepsTheTopologyKindOfEverySourceButComparesWithoutIt) {
    EntityFullType const faces(EntityFullType::TopologyType{2}, "GRID", 0U);
    EntityFullType const edges(EntityFullType::TopologyType{3}, "GRID", 0U);
    Formula ofFaces(faces);
    Formula ofEdges(edges);
    for (EntityFullType const& source : {faces, edges, s_grid}) {
        ofFaces.PushBackClause(Clause(), source, true);
        ofEdges.PushBackClause(Clause(), source, true);
    }
    for (Formula const& formula : {ofFaces, ofEdges}) {
        EXPECT_EQ(formula.GetClauseEntityTypeSource(0).GetTopologyType(), 2);
        EXPECT_EQ(formula.GetClauseEntityTypeSource(1).GetTopologyType(), 3);
        EXPECT_EQ(formula.GetClauseEntityTypeSource(2).GetTopologyType(), 0);
    }
    EXPECT_EQ(ofFaces, ofEdges);
}

TEST(Formula, CopiesDeeplyAndSurvivesAssignmentFromItself) {
    Formula formula(s_grid);
    formula.PushBackClause(Clause::FromIdList({1}), s_grid, true);
    Formula copy = formula;
    copy.RemoveClauses(0, 1);
    EXPECT_EQ(formula.GetClauseCount(), 1U);
    Formula& same = formula;
    formula = same;
    EXPECT_EQ(formula.GetClauseCount(), 1U);
    copy = std::move(formula);
    EXPECT_EQ(copy.GetClauseCount(), 1U);
    EXPECT_EQ(formula, Formula());
}

// ---- functions ----

TEST(Function, KeepsWhatItWasMadeFrom) {
    int target = 0;
    Function::Usage const usage{17};
    Function const both(usage, "proc", &target, "Solve");
    EXPECT_EQ(both.GetUsage(), usage);
    EXPECT_EQ(both.GetFunctionNameTCL(), "proc");
    EXPECT_EQ(both.GetFunctionNameCPP(), "Solve");
    EXPECT_EQ(both.GetCallBackCPP(), &target);
    EXPECT_EQ(Function(usage, "proc"), Function(usage, "proc", nullptr, ""));
    EXPECT_EQ(Function(usage, &target, "Solve"), Function(usage, "", &target, "Solve"));
    EXPECT_EQ(Function(), Function(Function::USAGE_NONE, "", nullptr, ""));
}

TEST(Function, IsEqualToItsCopiesAlone) {
    int targets[2] = {};
    std::vector<Function> const functions = {
        Function(),
        Function(Function::Usage{1}, ""),
        Function(Function::Usage{1}, "f"),
        Function(Function::Usage{2}, "f"),
        Function(Function::Usage{1}, nullptr, "f"),
        Function(Function::Usage{1}, &targets[0], "f"),
        Function(Function::Usage{1}, &targets[1], "f"),
        Function(Function::Usage{1}, "f", &targets[0], "f"),
    };
    ExpectDistinct(functions);
}

} // namespace
