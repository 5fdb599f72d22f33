#include "descriptor/Clause.h"
#include "descriptor/EntityFullType.h"
#include "descriptor/Formula.h"
#include "descriptor/FormulaBag.h"
#include "support/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <thread>
#include <vector>

using namespace qzDescriptor;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

namespace {

Formula MakeFormula(EntityFullType const& type, qzStlVector<unsigned int> const& ids) {
    Formula formula(type);
    formula.PushBackClause(Clause::FromIdList(ids), type, true);
    return formula;
}

qzStlVector<EntityFullType> GetTypes(FormulaBag const& bag) {
    qzStlVector<EntityFullType> types = {EntityFullType("from before")};
    bag.GetEntityFullTypeList(types);
    return types;
}

/// Numbers and names that crowd a few buckets, of one type and of many.
EntityFullType MakeType(unsigned int i) {
    switch (i % 4) {
    case 0:
        return EntityFullType(i / 4 * 101);
    case 1:
        return EntityFullType("T" + std::to_string(i / 4));
    case 2:
        return EntityFullType(7, i / 4);
    default:
        return EntityFullType("T", std::to_string(i / 4));
    }
}

TEST(FormulaBag, HoldsOneFormulaForEachType) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    FormulaBag bag(0);
    std::map<unsigned int, Formula> model;
    for (unsigned int step = 0; step < 20000; ++step) {
        unsigned int const i = random.Below(2000);
        EntityFullType const type = MakeType(i);
        if (random.Chance(3)) {
            ASSERT_EQ(bag.RemoveFormula(type), model.erase(i) == 1);
        } else {
            model[i] = MakeFormula(type, {step});
            bag.SetFormula(model[i]);
        }
        ASSERT_EQ(bag.GetEntityFullTypeListCount(), model.size());
    }
    for (unsigned int i = 0; i < 2000; ++i) {
        auto const found = model.find(i);
        Formula const* const formula = bag.GetFormulaPointer(MakeType(i));
        ASSERT_EQ(formula != nullptr, found != model.end());
        if (formula != nullptr) {
            ASSERT_EQ(*formula, found->second);
        }
    }
    EXPECT_EQ(GetTypes(bag).size(), model.size());
}

TEST(FormulaBag, ListsItsTypes) {
    FormulaBag bag;
    EXPECT_THAT(GetTypes(bag), IsEmpty());
    std::vector<EntityFullType> const types = {EntityFullType(1), EntityFullType(102), EntityFullType("A"),
                                               EntityFullType("A", 1U), EntityFullType()};
    for (EntityFullType const& type : types)
        bag.SetFormula(MakeFormula(type, {1}));
    EXPECT_THAT(GetTypes(bag), UnorderedElementsAreArray(types));
}

TEST(FormulaBag, ReplacesTheFormulaOfAType) {
    EntityFullType const grid("GRID");
    FormulaBag bag;
    bag.SetFormula(MakeFormula(grid, {1}));
    bag.SetFormula(MakeFormula(EntityFullType(EntityFullType::TopologyType{2}, "GRID", 0U), {2}));
    ASSERT_EQ(bag.GetEntityFullTypeListCount(), 1U);
    EXPECT_EQ(bag.GetFormula(grid), MakeFormula(grid, {2}));
    EXPECT_EQ(GetTypes(bag).front().GetTopologyType(), 2) << "the type comes with the formula";
}

TEST(FormulaBag, KeepsTheAbsenceOfAFormulaUnderNoType) {
    FormulaBag bag;
    bag.SetFormula(Formula());
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), 1U);
    ASSERT_NE(bag.GetFormulaPointer(EntityFullType()), nullptr);
    EXPECT_EQ(*bag.GetFormulaPointer(EntityFullType()), Formula());
}

TEST(FormulaBag, AnswersForTypesThatAreNotThere) {
    EntityFullType const grid("GRID");
    FormulaBag bag;
    Formula formula = MakeFormula(grid, {1});
    EXPECT_FALSE(bag.GetFormula(grid, formula));
    EXPECT_EQ(formula, MakeFormula(grid, {1}));
    EXPECT_EQ(bag.GetFormulaPointer(grid), nullptr);
    EXPECT_EQ(std::as_const(bag).GetFormula(grid), Formula());
    EXPECT_EQ(bag.GetFormula(grid), Formula());
    EXPECT_FALSE(bag.RemoveFormula(grid));
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), 0U);
}

TEST(FormulaBag, ForgetsWhatIsWrittenIntoAnAbsentFormula) {
    EntityFullType const grid("GRID");
    FormulaBag bag;
    FormulaBag other;
    bag.GetFormula(grid) = MakeFormula(grid, {1});
    EXPECT_EQ(bag.GetFormula(grid), Formula());
    EXPECT_EQ(other.GetFormula(EntityFullType(1)), Formula());
    EXPECT_EQ(std::as_const(bag).GetFormula(grid), Formula());
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), 0U);

    Formula& absent = bag.GetFormula(grid);
    std::thread([&] { bag.GetFormula(grid) = MakeFormula(grid, {2}); }).join();
    EXPECT_EQ(absent, Formula());
}

TEST(FormulaBag, TakesFormulasOfItsOwnAsArguments) {
    EntityFullType const grid("GRID");
    FormulaBag bag;
    bag.SetFormula(MakeFormula(grid, {1, 2, 3}));
    bag.SetFormula(bag.GetFormula(grid));
    EXPECT_EQ(bag.GetFormula(grid), MakeFormula(grid, {1, 2, 3}));
    EXPECT_TRUE(bag.GetFormula(grid, bag.GetFormula(grid)));
    EXPECT_EQ(bag.GetFormula(grid), MakeFormula(grid, {1, 2, 3}));
    bag.GetFormula(grid).PushBackClause(Clause(), grid, false);
    EXPECT_EQ(bag.GetFormula(grid).GetClauseCount(), 2U);
    Formula const* const place = bag.GetFormulaPointer(grid);
    FormulaBag& same = bag;
    bag = same;
    EXPECT_EQ(bag.GetFormulaPointer(grid), place);
    EXPECT_EQ(bag.GetFormula(grid).GetClauseCount(), 2U);
    EXPECT_EQ(bag, same);
}

TEST(FormulaBag, CopiesDeeply) {
    FormulaBag bag(0xFFFFFFFF);
    for (unsigned int i = 0; i < 1000; ++i)
        bag.SetFormula(MakeFormula(MakeType(i), {i}));
    FormulaBag copy(bag);
    FormulaBag assigned(5);
    assigned.SetFormula(MakeFormula(EntityFullType("gone"), {1}));
    assigned = bag;
    for (FormulaBag const* const other : {&copy, &assigned})
        EXPECT_EQ(GetTypes(*other), GetTypes(bag));
    EXPECT_EQ(copy, bag);
    EXPECT_EQ(assigned, bag);
    copy.GetFormula(MakeType(3)).RemoveClauses(0, 1);
    EXPECT_NE(copy, bag);
    assigned.RemoveFormula(MakeType(3));
    EXPECT_NE(assigned, bag);
    EXPECT_EQ(bag.GetFormula(MakeType(3)), MakeFormula(MakeType(3), {3}));
}

TEST(FormulaBag, IsEqualToBagsOfTheSameFormulasInAnyOrder) {
    EntityFullType const a("A"), b("B");
    FormulaBag first, second;
    EXPECT_EQ(first, second);
    first.SetFormula(MakeFormula(a, {1}));
    first.SetFormula(MakeFormula(b, {2}));
    EXPECT_NE(first, second);
    second.SetFormula(MakeFormula(b, {2}));
    EXPECT_NE(first, second);
    second.SetFormula(MakeFormula(a, {1}));
    EXPECT_EQ(first, second);
    second.SetFormula(MakeFormula(a, {3}));
    EXPECT_NE(first, second);
    second.RemoveFormula(a);
    second.SetFormula(MakeFormula(EntityFullType("C"), {1}));
    EXPECT_NE(first, second) << "as many, but another type";
}

} // namespace
