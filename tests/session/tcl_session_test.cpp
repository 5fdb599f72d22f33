// The package `qzdescriptor` of Tcl, on a session of this program.

#include "descriptor/ActionDefinition.h"
#include "descriptor/Content.h"
#include "descriptor/Definition.h"
#include "descriptor/EntityList.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Metaobject.h"
#include "descriptor/ScriptSession.h"
#include "descriptor/Tabular.h"
#include "descriptor/Tuples.h"
#include "descriptor/Value.h"
#include "descriptor/Version.h"
#include "qzinterp/qzInterp.h"
#include "store/Registry.h"
#include "store/Session.h"

#include <gtest/gtest.h>

using namespace qzDescriptor;

namespace {

struct AttributeRow {
    char const* name;
    BasicType basic;
    CompoundType compound;
    unsigned int dimension;
};
constexpr AttributeRow s_attributes[] = {
    {"T", BT_DOUBLE, CT_SCALAR, 0},        {"count", BT_INT, CT_SCALAR, 0},
    {"on", BT_BOOL, CT_SCALAR, 0},         {"label", BT_STRING, CT_SCALAR, 0},
    {"angles", BT_DOUBLE, CT_SCALAR, 1},   {"words", BT_STRING, CT_SCALAR, 1},
    {"axis", BT_DOUBLE, CT_TRIPLE, 0},     {"next", BT_UINT, CT_ENTITY, 0},
    {"neighbours", BT_UINT, CT_ENTITY, 1}, {"selected", BT_UINT, CT_ENTITY, 3},
    {"grid", BT_INT, CT_SCALAR, 2},        {"color", BT_UINT, CT_COLOR, 0},
    {"loads", BT_NONE, CT_TABULAR, 0},
};

class TclSession : public testing::Test {
protected:
    void SetUp() override {
        laminate = registry.Insert("Laminate", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
        ply = registry.Insert("Special ply", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
        registry.Insert("Thin ply", Version(), "Special ply", MetaclassMgr::CONFIG_USAGE_NONE, "");
        for (AttributeRow const& row : s_attributes) {
            Definition definition;
            definition.SetValueBasicType(row.basic);
            definition.SetValueCompoundType(row.compound);
            definition.SetArrayDimension(row.dimension);
            if (qzString(row.name) == "T")
                definition.SetAllowables(Allowables(BoundT<double>(0.0, BoundT<double>::Greater), 1.0));
            registry.InsertAttribute(ply, Identifier(row.name), definition, Identifier(), {});
        }
        registry.InsertAttribute(ply, Identifier(7), Definition(), Identifier(), {});
        Definition plies;
        plies.SetValueBasicType(BT_UINT);
        plies.SetValueCompoundType(CT_ENTITY);
        plies.SetArrayDimension(1);
        registry.SetOwnership(
            ply, laminate, registry.InsertAttribute(laminate, Identifier("plies"), plies, Identifier(), {}));
        registry.InsertAction(ply, Identifier("Weigh"),
                              {"Weigh",
                               [](Metaobject const*) {
                                   return qzReturnStatus{0, "5 kg"};
                               },
                               true, ActionDefinition::Function(), "", ""},
                              {});
        registry.InsertAction(ply, Identifier("Lose"),
                              {"Lose",
                               [](Metaobject const*) {
                                   return qzReturnStatus{-1, "It is gone."};
                               },
                               true, ActionDefinition::Function(), "", ""},
                              {});
        registry.GetSession("wing");
        SetScriptRegistry(&registry);
        ASSERT_EQ(Run("package require qzdescriptor; qz create Laminate; set owner {Laminate 1}\n"
                      "set p [qz create {Special ply} $owner]; qz create {Special ply} $owner plies\n"
                      "puts $p"),
                  "{Special ply} 1\n");
    }
    void TearDown() override { SetScriptRegistry(nullptr); }

    /// What a script prints, with its first line of failure.
    static qzString Run(qzString const& script) {
        qzString output;
        return qzInterp::Get("tcl")->Execute(script, output) ? output : output.substr(0, output.find('\n'));
    }
    static qzString Evaluate(qzString const& command) { return Run("puts [" + command + "]"); }

    store::Registry registry;
    unsigned int ply = 0;
    unsigned int laminate = 0;
};

struct Case {
    char const* command;
    qzString printed;
};

TEST_F(TclSession, TellsWhatThereIs) {
    for (Case const& each : {
             Case{"qz session", "wing\n"},
             {"qz types", "Laminate {Special ply} {Thin ply}\n"},
             {"qz types {Special ply}", "{Special ply} {Thin ply}\n"},
             {"qz attributes Laminate", "plies\n"},
             {"lrange [qz attributes {Special ply}] 10 end", "grid color loads 7\n"},
             {"qz actions {Thin ply}", "Weigh Lose\n"},
             {"qz find Laminate", "{Laminate 1}\n"},
             {"qz find {Special ply} {T > 0.5 and id = 2}", "{{Special ply} 2}\n"},
             {"qz count {Special ply} {T > 5}", "0\n"},
             {"qz explain $p {T > 5}", "T > 5 is false: T is 1\n"},
             {"qz exists $p", "1\n"},
             {"qz exists {Nothing 1}", "0\n"},
             {"qz owner $p", "{Laminate 1} plies\n"},
             {"qz owner $owner", "\n"},
             {"qz owned $owner plies", "{{Special ply} 1} {{Special ply} 2}\n"},
             {"qz run $p Weigh", "5 kg\n"},
         })
        EXPECT_EQ(Evaluate(each.command), each.printed) << each.command;
}

TEST_F(TclSession, ReadsWhatItHasSet) {
    struct Row {
        char const* attribute;
        char const* word;
        char const* read;
    };
    for (Row const& row : {
             Row{"T", "1e-05", "1e-5"},
             {"T", "0.1", "0.1"},
             {"T", "3", "3.0"},
             {"count", "-2147483648", "-2147483648"},
             {"on", "yes", "1"},
             {"on", "0", "0"},
             {"label", "{it's {a} \xC3\xA4 \"text\"}", "it's {a} \xC3\xA4 \"text\""},
             {"label", "a\\0b", "a\\0b"},
             {"angles", "{0 45 -45.5}", "0.0 45.0 -45.5"},
             {"angles", "{}", ""},
             {"words", "{one {two three}}", "one {two three}"},
             {"next", "{{Special ply} 2}", "{Special ply} 2"},
             {"neighbours", "{{{Special ply} 2} {{Special ply} 1}}", "{{Special ply} 2} {{Special ply} 1}"},
             {"color", "4", "4"},
             {"axis", "{0 0.5 1}", "0.0 0.5 1.0"},
             {"selected", "{{Laminate 1} {{Special ply} 2} {Laminate 3}}",
              "{Laminate 1} {Laminate 3} {{Special ply} 2}"},
         }) {
        qzString const of = " $p " + qzString(row.attribute);
        EXPECT_EQ(Run("qz set" + of + ' ' + row.word), "") << row.attribute << row.word;
        EXPECT_EQ(Run("puts [string map {\\0 {\\0}} [qz get" + of + "]]"), qzString(row.read) + '\n')
            << row.attribute << row.word;
    }
    EXPECT_EQ(Evaluate("qz set $p angles {1 2}; qz get $p angles 1"), "2.0\n");
}

TEST_F(TclSession, ReadsTuplesNestedListsAndBags) {
    Metaobject const* const object =
        registry.GetSession("wing")->Get(Entity(EntityFullType("Special ply"), 1));
    qzStlVector<qzStlVector<int>> rows = {{1, 2}, {}, {3}};
    EntityListBag bag;
    bag.SetList(EntityList(EntityFullType("Laminate"), {1}, {}));
    bag.SetList(EntityList(EntityFullType("Special ply"), {2, 1}, {}));
    EXPECT_EQ(object->SetValue(Identifier("selected"), Content::MakeValue(bag)).status, 0);
    Value const axis(qzTTriple<double>{0, 0.5, 1}), grid(ValuePtr::Create(std::move(rows), DS_DEFAULT));
    EXPECT_EQ(object->SetValue(Identifier("axis"), axis).status, 0);
    EXPECT_EQ(object->SetValue(Identifier("grid"), grid).status, 0);
    Tabular table;
    table.InsertColumn(qzStlVector<int>{1, 2}, 0);
    table.InsertColumn(qzStlVector<qzString>{"a b", "c"}, 1);
    EXPECT_EQ(object->SetValue(Identifier("loads"), Content::MakeValue(table)).status, 0);
    EXPECT_EQ(Evaluate("qz get $p loads"), "{1 {a b}} {2 c}\n");
    EXPECT_EQ(Evaluate("lindex [qz get $p loads 1] 1"), "c\n");
    EXPECT_EQ(Evaluate("qz get $p selected"), "{Laminate 1} {{Special ply} 2} {{Special ply} 1}\n");
    EXPECT_EQ(Evaluate("qz get $p axis"), "0.0 0.5 1.0\n");
    EXPECT_EQ(Evaluate("qz get $p grid"), "{1 2} {} 3\n");
    EXPECT_EQ(Evaluate("lindex [qz get $p grid 0] 1"), "2\n");
}

TEST_F(TclSession, RefusesWithTheReason) {
    for (Case const& each : {
             Case{"qz set $p T -3", "Input of -3 violates: VALUE > 0"},
             {"qz set $p angles {1 x}", "'x' does not fit into the list"},
             {"qz set $p neighbours {{{Special ply} 1} {Laminate 1}}", "a list has entities of one type"},
             {"qz set $p next 5", "'5' is no entity: a list of a type and an id is expected"},
             {"qz set $p count [expr {5 / 2.0}]", "'2.5' is no whole number"},
             {"qz set $p count {7 8}", "'7 8' is no whole number"},
             {"qz set $p count -18446744073709551615", "'-18446744073709551615' is no whole number"},
             {"qz set $p count 18446744073709551615",
              "The text \"18446744073709551615\" cannot be read into the value."},
             {"qz set $p axis {1 2 3 4}", "'1 2 3 4' is no list of 3 numbers"},
             {"qz set $p axis {1 {2 3} 4}", "'1 {2 3} 4' is no list of 3 numbers"},
             {"qz set $p grid {7 8}", "values of this kind are set in C++ and Python"},
             {"qz set $p loads 5", "tables are set in C++ and Python"},
             {"qz name \"\\{[string repeat a 20000]\"", "'{" + qzString(9'998, 'a')},
             {"qz get {Laminate -1} plies",
              "'Laminate -1' is no entity: a list of a type and an id is expected"},
             {"qz get \"\\{\" T", "'{' is no list"},
             {"qz get $p X", "Special ply has no attribute X"},
             {"qz get $p angles 99999999999", "there is no element 99999999999"},
             {"qz get {{Special ply} 9} T", "there is no {Special ply} 9"},
             {"qz find Nothing", "there is no type Nothing"},
             {"qz find {Special ply} {T >}", "at 4: found the end, expected a value"},
             {"qz create {Special ply}", "Owner is manadatory for this type."},
             {"qz delete {Laminate 5}", "The entity does not exist."},
             {"qz run $p Lose", "It is gone."},
             {"qz run $p Nothing", "Action is not enabled"},
             {"qz session nothing", "there is no session nothing"},
             {"qz", "wrong # args: should be \"qz subcommand ?arg ...?\""},
             {"qz get $p", "wrong # args: should be \"qz get ENTITY ATTRIBUTE ?INDEX?\""},
         })
        EXPECT_EQ(Run(each.command), each.printed) << each.command;
    EXPECT_EQ(Evaluate("qz get $p T"), "1.0\n");
    SetScriptRegistry(nullptr);
    EXPECT_EQ(Run("qz find Laminate"), "there is no session for scripts");
}

TEST_F(TclSession, DeletesWithAllThatIsOwned) {
    EXPECT_EQ(Evaluate("qz delete $owner; list [qz exists $p] [qz count {Special ply}]"), "0 0\n");
}

TEST_F(TclSession, IsTheOneThatIsMadeCurrent) {
    registry.GetSession("tail");
    EXPECT_EQ(Evaluate("qz session tail; list [qz session] [qz count Laminate]"), "tail 0\n");
    ScriptSessionScope const scope(registry.GetSession("wing"));
    EXPECT_EQ(Evaluate("list [qz session] [qz count Laminate]"), "wing 1\n");
}

} // namespace
