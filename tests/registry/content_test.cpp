#include "registry/plate.h"

#include <gtest/gtest.h>

using namespace qzDescriptor;
using namespace qzDescriptor::test;

namespace {

Value MakeTable(qzStlVector<double> const& times) {
    Tabular table;
    table.InsertColumn(times, 0);
    return Content::MakeValue(table);
}

TEST(Content, ReadsDefaultsUntilSomethingIsSet) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    EXPECT_EQ(plate->GetCount(), COUNT_OF);
    EXPECT_EQ(Get<double>(*plate, T), 1.0);
    EXPECT_EQ(Get<qzString>(*plate, MATERIAL), "steel");
    EXPECT_TRUE(Get<qzStlVector<double>>(*plate, FACTORS).empty());
    EXPECT_EQ(Get<double>(*plate, LIMIT), 12.0);
    ValuePtr const *ofPlate = nullptr, *ofOther = nullptr;
    OwnedContent const other = MakeContent(members);
    EXPECT_TRUE(plate->GetValue(T, ofPlate) && other->GetValue(T, ofOther));
    EXPECT_EQ(ofPlate, ofOther); // defaults are shared

    EXPECT_EQ(plate->SetValue(T, 1.0), qzReturnStatus());
    EXPECT_TRUE(plate->IsSet(T) && plate->IsAtDefault(T) && *plate == *other);
}

TEST(Content, KnowsTheKindsOfAttributes) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    std::pair<unsigned int, Content::AttributeType> const cases[] = {
        {T, Content::ATTRIBUTE_VALUE},         {FACTORS, Content::ATTRIBUTE_VALUE},
        {GRIDS, Content::ATTRIBUTE_ENTITY},    {CORNER, Content::ATTRIBUTE_ENTITY},
        {PARTS, Content::ATTRIBUTE_ENTITY},    {LOADS, Content::ATTRIBUTE_TABULAR},
        {MENU, Content::ATTRIBUTE_OPERATIONS}, {COUNT_OF, Content::ATTRIBUTE_NONE},
        {0xFFFFFFFF, Content::ATTRIBUTE_NONE}};
    for (auto const& [index, type] : cases)
        EXPECT_EQ(plate->GetAttributeType(index), type) << index;
}

TEST(Content, RefusesWithoutAChangeAndSaysWhy) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    plate->SetValue(T, 2.0);
    plate->SetValue(FACTORS, qzStlVector<double>{1, 2});
    plate->SetValue(GRIDS, List("GRID", {1}));
    OwnedContent const before(plate->Clone());
    EntityListBagList bags;
    bags.Register(1, "set");
    struct Case {
        unsigned int index;
        Value value;
        char const* message;
    };
    Case const cases[] = {
        {T, Value(qzString("thick")), "A double is expected, not a text."},
        {T, Value(2), "A double is expected, not an int."},
        {T, Value(), "A double is expected, not an empty value."},
        {T, Content::MakeValue(qzStlVector<double>{1}), "A double is expected, not a list of doubles."},
        {T, Value(-1.0), "Input of -1 violates: 0 < VALUE < 10"},
        {MATERIAL, Value(qzString("paper")), "Input of paper violates: VALUE in {steel, wood}"},
        {FACTORS, Value(2.0), "A list of doubles is expected, not a double."},
        {FACTORS, Content::MakeValue(qzStlVector<double>{1, 11, 3}), "Input of 11 violates: 0 < VALUE < 10"},
        {FACTORS, Content::MakeValue(qzStlVector<qzTCouple<double>>{{1, 2}}),
         "A list of doubles is expected, not a list of couples of doubles."},
        {LIMIT, Value(11.0), "Input of 11 violates: 0 < VALUE < 10"},
        {GRIDS, Content::MakeValue(List("ELEMENT", {1})), "Input of ELEMENT violates: VALUE in {GRID}"},
        {CORNER, Value(Entity(EntityFullType("ELEMENT"), 7)), "Input of ELEMENT violates: VALUE in {GRID}"},
        {CORNER, Content::MakeValue(List("GRID", {1})), "An entity is expected, not a list of entities."},
        {PARTS, Content::MakeValue(bags),
         "A bag of entities is expected, not a register of bags of entities."},
        {LOADS, Value(1.0), "A table is expected, not a double."},
        {MENU, Value(1.0), "The attribute holds no value."},
        {COUNT_OF, Value(1.0), "There is no such attribute."},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(plate->SetValue(c.index, c.value).message, c.message);
        EXPECT_EQ(plate->TestValue(c.index, c.value).status, -1);
        EXPECT_TRUE(*plate == *before) << c.message;
    }
    EXPECT_EQ(plate->SetValue(LIMIT, 12.0), qzReturnStatus()); // the default, although outside
    EXPECT_FALSE(plate->TrySetValue(T, 11.0) || plate->TrySetValue(COUNT, 1.0) ||
                 plate->TrySetValue(FACTORS, 1.0) || plate->TrySetValue(COUNT_OF, 1));
    EXPECT_EQ(plate->SetValue(T, 11.0).message, "Input of 11 violates: 0 < VALUE < 10");
    EXPECT_EQ(Get<double>(*plate, T), 2.0);
}

TEST(Content, SetsAndReadsTexts) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    qzString text;
    EXPECT_EQ(plate->SetValueFromString(T, "2.5"), qzReturnStatus());
    EXPECT_TRUE(plate->GetValueAsString(T, text, "%.2f"));
    EXPECT_EQ(text, "2.50");
    EXPECT_EQ(plate->SetValueFromString(T, "abc").message, "The text \"abc\" cannot be read into the value.");
    EXPECT_EQ(plate->SetValueFromString(T, "99").message, "Input of 99 violates: 0 < VALUE < 10");
    EXPECT_EQ(plate->SetValueFromString(FACTORS, "3", nullptr, 1).message,
              "Input of 0 violates: 0 < VALUE < 10"); // the gap before it
    EXPECT_EQ(plate->SetValueFromString(FACTORS, "3"), qzReturnStatus());
    EXPECT_EQ(Get<qzStlVector<double>>(*plate, FACTORS), (qzStlVector<double>{3}));
    EXPECT_EQ(plate->SetValueFromString(MENU, "1").message, "The attribute holds no value.");
    EXPECT_FALSE(plate->GetValueAsString(MENU, text) || plate->GetValueAsString(COUNT_OF, text));
    EXPECT_EQ(text, "");
}

TEST(Content, TakesWhatIsKnownToBeRightWithoutACheck) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    EXPECT_TRUE(plate->SetValueUnchecked(T, Value(-5.0)));
    EXPECT_EQ(Get<double>(*plate, T), -5.0);
    EXPECT_TRUE(plate->SetValueUnchecked(T, Value()));
    EXPECT_FALSE(plate->IsSet(T));
    EXPECT_FALSE(plate->SetValueUnchecked(COUNT_OF, Value(1.0)) || plate->Reset(COUNT_OF));
    EXPECT_TRUE(plate->SetValueUnchecked(T, Value(qzString("of another type"))));
    EXPECT_TRUE(plate->TrySetValue(T, 3.0));
    EXPECT_EQ(Get<double>(*plate, T), 3.0);

    plate->ModifyValue(FACTORS)->SetValue(7.0, 2, 0);
    EXPECT_EQ(Get<qzStlVector<double>>(*plate, FACTORS), (qzStlVector<double>{0, 0, 7}));
    EXPECT_EQ(plate->ModifyValue(MENU), nullptr);
    EXPECT_EQ(plate->ModifyValue(COUNT_OF), nullptr);
    EXPECT_TRUE(Get<qzStlVector<double>>(*MakeContent(members), FACTORS).empty());
}

TEST(Content, OfOneObjectMayHaveOtherAllowables) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members), other = MakeContent(members);
    plate->SetValue(T, 9.0);
    plate->SetValue(FACTORS, qzStlVector<double>{9});
    using Bound = BoundT<double>;
    Allowables const small(Bound(5, Bound::Less), 2.0);
    EXPECT_TRUE(plate->SetAllowables(T, small) && plate->SetAllowables(FACTORS, small));
    EXPECT_EQ(plate->GetAllowables(T), small);
    EXPECT_FALSE(plate->IsSet(T)); // a value that is refused now goes
    EXPECT_EQ(Get<double>(*plate, T), 2.0);
    EXPECT_FALSE(plate->IsSet(FACTORS));
    EXPECT_EQ(plate->SetValue(T, 9.0).message, "Input of 9 violates: VALUE < 5");

    EXPECT_EQ(other->GetDefinition(T), members->GetVariableDefinition(T));
    EXPECT_EQ(other->SetValue(T, 9.0), qzReturnStatus());
    OwnedContent const clone(plate->Clone());
    EXPECT_EQ(clone->SetValue(T, -9.0), qzReturnStatus());
    EXPECT_FALSE(plate->IsSet(T));
    EXPECT_TRUE(clone->RestoreDefinition(T));
    EXPECT_EQ(Get<double>(*clone, T), 1.0);
    EXPECT_EQ(plate->GetAllowables(T), small);

    // Without a default nothing could take the place of a value that is only not allowed.
    plate->SetValue(MATERIAL, qzString("wood"));
    EXPECT_TRUE(plate->SetAllowables(MATERIAL, Allowables(Allowables::List<qzString>{{"tin", ""}}, 1)));
    EXPECT_EQ(Get<qzString>(*plate, MATERIAL), "wood");
    // One of another type never stays.
    auto const number = std::make_shared<Definition>(Define("Number", BT_INT, CT_SCALAR, 0));
    EXPECT_TRUE(plate->ReplaceDefinition(MATERIAL, number));
    EXPECT_EQ(Get<int>(*plate, MATERIAL), 0);
    EXPECT_FALSE(plate->ReplaceDefinition(COUNT_OF, number) || plate->SetAllowables(COUNT_OF, small) ||
                 plate->ReplaceDefinition(T, std::shared_ptr<Definition const>()) ||
                 plate->RestoreDefinition(COUNT_OF));
}

TEST(Content, KeepsTabularDefinitionsOfItsOwn) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    EXPECT_EQ(plate->GetTabularDefinition(LOADS), members->GetTabularDefinition(LOADS).get());
    TabularDefinition shape = LoadColumns();
    TabularDefinition const* const managed = plate->RegisterManagedTabularDefinition(shape);
    EXPECT_EQ(plate->RegisterManagedTabularDefinition(shape), managed);
    shape.SetEditable(false);
    EXPECT_NE(plate->RegisterManagedTabularDefinition(shape), managed);
    EXPECT_TRUE(plate->ReplaceDefinition(LOADS, managed));
    EXPECT_EQ(plate->GetTabularDefinition(LOADS), managed);
    EXPECT_FALSE(plate->ReplaceDefinition(T, managed) ||
                 plate->ReplaceDefinition(LOADS, static_cast<TabularDefinition const*>(nullptr)));
    EXPECT_EQ(plate->GetTabularDefinition(T), nullptr);
    EXPECT_TRUE(plate->RestoreDefinition(LOADS));
    EXPECT_EQ(plate->GetTabularDefinition(LOADS), members->GetTabularDefinition(LOADS).get());
}

TEST(Content, KeepsMenusByAttribute) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    DataOperationList const menu(
        qzStlVector<DataOperation>{DataOperation("Show", DataOperation::OPERATION_SHOW, true, "")});
    EXPECT_TRUE(plate->SetDataOperationList(MENU, menu) && plate->SetDataOperationList(T, menu));
    EXPECT_FALSE(plate->SetDataOperationList(COUNT_OF, menu));
    EXPECT_EQ(plate->GetDataOperationList(MENU), menu);
    EXPECT_EQ(OwnedContent(plate->Clone())->GetDataOperationList(T), menu);
    EXPECT_EQ(plate->GetDataOperationList(COUNT).GetCount(), 0u);
    EXPECT_EQ(plate->GetDataOperationList(COUNT_OF).GetCount(), 0u);
}

TEST(Content, KeepsADisplayStatusApartFromTheValue) {
    OwnedMembers const members = MakePlate();
    Definition hidden = Define("", BT_INT, CT_SCALAR, 0);
    DefinitionUserParams params;
    params.SetDefaultDisplayStatus(DS_OFF);
    hidden.SetUserParams(params);
    unsigned int const index = Insert(members, "HIDDEN", hidden);
    OwnedContent const plate = MakeContent(members);
    auto const shown = [&] {
        ValuePtr const* value = nullptr;
        EXPECT_TRUE(plate->GetValue(index, value));
        return std::pair(plate->GetDisplayStatus(index), value->GetDisplayStatus());
    };
    EXPECT_EQ(shown(), std::pair(DS_OFF, DS_OFF));
    plate->SetValue(index, 3);
    EXPECT_EQ(shown(), std::pair(DS_OFF, DS_OFF));
    EXPECT_TRUE(plate->SetDisplayStatus(index, DS_ON));
    plate->SetValueFromString(index, "4");
    EXPECT_EQ(shown(), std::pair(DS_ON, DS_ON));
    plate->Reset(index);
    plate->ModifyValue(index);
    EXPECT_EQ(shown(), std::pair(DS_ON, DS_ON));
    EXPECT_TRUE(plate->IsAtDefault(index)); // a status is no part of a value
    plate->SetValue(index, Value(5, "", DisplayStatus(7)));
    EXPECT_EQ(shown(), std::pair(DisplayStatus(7), DisplayStatus(7)));
    EXPECT_TRUE(plate->SetDisplayStatus(index, DS_DEFAULT));
    EXPECT_EQ(shown(), std::pair(DS_OFF, DS_OFF));
    EXPECT_FALSE(plate->SetDisplayStatus(Members::s_none, DS_ON));
}

TEST(Content, MeetsAMemberSetThatGrows) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    plate->SetValue(MATERIAL, qzString("wood"));
    unsigned int const added = Insert(members, "NEW", Define("", BT_DOUBLE, CT_SCALAR, 0, Allowables(4.0)));
    EXPECT_EQ(plate->GetCount(), COUNT_OF + 1u);
    EXPECT_EQ(Get<double>(*plate, added), 4.0);
    EXPECT_EQ(plate->SetValue(added, 5.0), qzReturnStatus());
    EXPECT_EQ(Get<double>(*plate, added), 5.0);
    EXPECT_EQ(Get<qzString>(*plate, MATERIAL), "wood");
}

TEST(Content, TakesRoomForWhatWasSetOnly) {
    OwnedMembers const members(Members::Create("Wide"));
    for (int k = 0; k < 200; ++k)
        Insert(members, ("A" + std::to_string(k)).c_str(), Define("", BT_DOUBLE, CT_SCALAR, 0));
    std::size_t bytes = 0;
    std::vector<OwnedContent> contents;
    for (int k = 0; k < 100000; ++k) {
        contents.push_back(MakeContent(members));
        bytes += contents.back()->GetMemoryUsage();
    }
    EXPECT_LE(bytes, 100000u * 6 * sizeof(void*));
    Content& content = *contents.front();
    std::size_t const empty = content.GetMemoryUsage();
    content.SetValue(2, 1.0);
    EXPECT_LE(content.GetMemoryUsage() - empty, 3 * sizeof(void*) + 24);
    for (unsigned int k = 0; k < 200; ++k)
        content.SetValue(k, 1.0);
    EXPECT_LE(content.GetMemoryUsage() - empty, 200 * (sizeof(void*) + 24));
    content.ClearAll();
    EXPECT_EQ(content.GetMemoryUsage(), empty);
}

TEST(Content, ExtendsWhatHoldsMany) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members), other = MakeContent(members);
    plate->SetValue(GRIDS, List("GRID", {1, 2}));
    other->SetValue(GRIDS, List("GRID", {2, 3}));
    EntityListBag parts, otherParts;
    parts.SetList(List("PART", {1, 2}));
    otherParts.SetList(List("PART", {2, 3}));
    otherParts.SetList(List("GROUP", {9}));
    plate->SetValue(PARTS, parts);
    other->SetValue(PARTS, otherParts);
    plate->SetValue(LOADS, MakeTable({0, 1}));
    other->SetValue(LOADS, MakeTable({2}));
    EXPECT_EQ(plate->Append(*other, Content::APPEND_EXTEND), qzReturnStatus());
    EXPECT_EQ(Get<EntityList>(*plate, GRIDS), List("GRID", {1, 2, 2, 3}));
    EXPECT_EQ(Get<EntityListBag>(*plate, PARTS), parts += otherParts);
    EXPECT_EQ(Get<Tabular>(*plate, LOADS), *MakeTable({0, 1, 2}).GetValuePointerTabular());

    EXPECT_EQ(plate->Append(*plate, Content::APPEND_EXTEND), qzReturnStatus());
    EXPECT_EQ(Get<EntityList>(*plate, GRIDS), List("GRID", {1, 2, 2, 3, 1, 2, 2, 3}));

    Tabular words;
    words.InsertColumn(qzStlVector<qzString>{"a"}, 0);
    other->SetValue(GRIDS, List("GRID", {4}));
    other->SetValue(LOADS, words);
    OwnedContent const before(plate->Clone());
    EXPECT_EQ(plate->Append(*other, Content::APPEND_EXTEND).message,
              "LOADS: The values cannot be put together.");
    EXPECT_TRUE(*plate == *before);
    EXPECT_EQ(plate->Append(*other, Content::AppendRule(9)).message, "There is no such rule.");
}

} // namespace
