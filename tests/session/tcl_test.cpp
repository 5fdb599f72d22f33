// Functions and signals that call Tcl.

#include "descriptor/ActionDefinition.h"
#include "descriptor/Entity.h"
#include "descriptor/EntityEventInfo.h"
#include "descriptor/Function.h"
#include "descriptor/Metaobject.h"
#include "descriptor/ScriptFunction.h"
#include "descriptor/Version.h"
#include "descriptor/qzSigSlotHandler.h"
#include "qzinterp/qzInterp.h"
#include "store/Registry.h"
#include "store/Session.h"

#include <gtest/gtest.h>

using namespace qzDescriptor;

namespace {

qzString RunTcl(qzString const& script) {
    qzString output;
    EXPECT_TRUE(qzInterp::Get("tcl")->Execute(script, output)) << output;
    return output;
}

TEST(TclFunctions, AreCalledByTheirName) {
    RunTcl("proc double {n} {puts [expr {2 * $n}]}");
    qzStlVector<qzVariant> arguments(1);
    arguments[0].SetInteger(21);
    qzString output;
    EXPECT_EQ(CallScriptFunction(Function(Function::USAGE_NONE, "double"), arguments, output).status, 0);
    EXPECT_EQ(output, "42\n");
    EXPECT_EQ(CallScriptFunction(Function(Function::USAGE_NONE, "triple"), arguments, output).message,
              "Callback execution failed");
    EXPECT_NE(output.find("triple"), qzString::npos);
    EXPECT_EQ(CallScriptFunction(Function(), arguments, output).message, "The function has no name in Tcl.");
}

TEST(TclFunctions, ListenToSessions) {
    store::Registry registry;
    for (char const* const name : {"Ply", "Special ply", "{odd} name"})
        registry.Insert(name, Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    ISession* const session = registry.GetSession("s");
    RunTcl(
        "set seen {}; proc note {event} {lappend ::seen [lindex $event 0] [lindex $event 1] [lindex $event "
        "3]}");
    session->GetSigSlotHandler()->GetEntityEventSignal()->ConnectScript(qzScriptCallback("tcl", "note"));
    Entity created;
    for (char const* const name : {"Ply", "Special ply", "{odd} name"})
        EXPECT_EQ(session->Create(EntityFullType(qzString(name)), created, Entity(), Identifier()).status, 0);
    session->Delete(created);
    EXPECT_EQ(
        RunTcl("puts [llength $seen]; puts [lindex $seen 4]; puts [lindex $seen 7]; puts [lindex $seen 9]"),
        "12\nSpecial ply\n{odd} name\ndeleted\n");
}

TEST(TclActions, FailSinceTheLineThatCallsActionsIsPython) {
    store::Registry registry;
    unsigned int const ply = registry.Insert("Ply", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    registry.InsertAction(ply, Identifier("note"), {"", "note", "", "", "tcl", true, true, "", ""}, {});
    Entity created;
    registry.GetSession("s")->Create(EntityFullType("Ply"), created, Entity(), Identifier());
    EXPECT_EQ(registry.GetSession("s")->Get(created)->InvokeAction(Identifier("note")),
              (qzReturnStatus{-1, "Callback execution failed"}));
}

} // namespace
