// Script actions and script connections in the Python that runs inside of this program.

#include "descriptor/ActionDefinition.h"
#include "descriptor/Definition.h"
#include "descriptor/Metaobject.h"
#include "descriptor/ScriptSession.h"
#include "descriptor/Value.h"
#include "descriptor/Version.h"
#include "descriptor/qzSigSlotHandler.h"
#include "qzinterp/qzInterp.h"
#include "store/Registry.h"
#include "store/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <unistd.h>

using namespace qzDescriptor;
using testing::HasSubstr;

namespace {

constexpr char s_type[] = "Ply's \\ \"type\"";

constexpr char s_module[] = R"(
import sys, types
from qz.mdi.isession import Session
import qzdescriptor

actions = types.ModuleType("actions")
sys.modules["actions"] = actions
seen = []

def thicken(ply):
    ply["T"] = ply["T"] + 1
    seen.append(Session().name)

def spoil(ply):
    ply["T"] = -1

def tell(ply):
    print("told", end="")

class Kinds:
    @staticmethod
    def make(ply):
        Session().create(ply.type)

actions.thicken, actions.spoil, actions.tell, actions.Kinds = thicken, spoil, tell, Kinds
)";

class EmbeddedPython : public testing::Test {
protected:
    void SetUp() override {
        python = qzInterp::Get("python");
        ASSERT_NE(python, nullptr);
        ASSERT_TRUE(python->Execute(s_module, output)) << output;
        Definition thickness;
        thickness.SetValueBasicType(BT_DOUBLE);
        thickness.SetAllowables(Allowables(BoundT<double>(0.0, BoundT<double>::Greater), 1.0));
        ply = registry.Insert(s_type, Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
        registry.InsertAttribute(ply, Identifier("T"), thickness, Identifier(), {});
        InsertAction("thicken", "");
        InsertAction("spoil", "");
        InsertAction("tell", "");
        InsertAction("Kinds.make", "Kinds");
        InsertAction("nowhere", "");
    }

    void InsertAction(qzString const& function, qzString const& functionClass) {
        registry.InsertAction(
            ply, Identifier(function),
            ActionDefinition(function, function, functionClass, "actions", "python", true, true, "", ""), {});
    }
    Metaobject const* Make(qzString const& session) {
        Entity entity;
        ISession* const made = registry.GetSession(session);
        EXPECT_EQ(made->Create(EntityFullType(s_type), entity, Entity(), Identifier()).message, "");
        return made->Get(entity);
    }
    static double Thickness(Metaobject const* object) {
        ValuePtr const* value = nullptr;
        double thickness = 0;
        EXPECT_TRUE(object->GetValue(Identifier("T"), value) && value->GetValue(thickness, 0, 0));
        return thickness;
    }
    /// What Python prints for expressions.
    qzString Evaluate(qzString const& expressions) {
        EXPECT_TRUE(python->Execute("print(" + expressions + ")", output)) << output;
        return output;
    }

    store::Registry registry;
    unsigned int ply = 0;
    qzInterp* python = nullptr;
    qzString output;
};

TEST_F(EmbeddedPython, RunsActionsOnTheSessionOfTheObject) {
    Make("first");
    Metaobject const* const object = Make("second");
    SetScriptRegistry(&registry);
    EXPECT_EQ(object->InvokeAction(Identifier("thicken")),
              (qzReturnStatus{0, "Callback execution succeeded"}));
    EXPECT_EQ(Thickness(object), 2.0);
    EXPECT_EQ(Evaluate("seen[-1], Session().name"), "second first\n");
    EXPECT_EQ(object->InvokeAction(Identifier("Kinds.make")).message, "Callback execution succeeded");
    EXPECT_EQ(dynamic_cast<store::Session&>(*object->GetSession()).GetCount(EntityFullType(s_type)), 2u);
    SetScriptRegistry(nullptr);
}

TEST_F(EmbeddedPython, ShowsWhatAnActionPrintsAtOnce) {
    Metaobject const* const object = Make("s");
    testing::internal::CaptureStdout();
    EXPECT_EQ(object->InvokeAction(Identifier("tell")).status, 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "told");
}

TEST_F(EmbeddedPython, SaysThatAnActionFailed) {
    Metaobject const* const object = Make("s");
    for (char const* const action : {"spoil", "nowhere"})
        EXPECT_EQ(object->InvokeAction(Identifier(action)),
                  (qzReturnStatus{-1, "Callback execution failed"}));
    EXPECT_EQ(Thickness(object), 1.0);
}

TEST_F(EmbeddedPython, OutlivesWhatItHolds) {
    {
        store::Registry other;
        other.Insert("X", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
        Entity entity;
        other.GetSession("s")->Create(EntityFullType("X"), entity, Entity(), Identifier());
        SetScriptRegistry(&other);
        EXPECT_EQ(Evaluate("[held := Session(), item := held.objects('X')[0], old := held.registry] and 1"),
                  "1\n");
    }
    EXPECT_EQ(Evaluate("held.is_alive, item.is_alive, qzdescriptor.get_script_registry()"),
              "False False None\n");
    EXPECT_FALSE(python->Execute("old.types()", output));
    EXPECT_THAT(output, HasSubstr("Ended: the registry has ended"));
}

TEST_F(EmbeddedPython, KeepsAnObjectThatLetsGoOfItselfUntilTheNextIsAsked) {
    ASSERT_TRUE(python->Execute(R"(
class Row(qzdescriptor.CustomObject):
    def read_value(self, attribute):
        self.session.delete(self.entity)
        return [0.5] * 1000
    def __del__(self):
        ended.append(self.entity.id)

class Rows(qzdescriptor.CustomSession):
    def __init__(self, name, registry):
        super().__init__(name, registry)
        self.rows = {id: Row(self, qzdescriptor.Entity("Row", id)) for id in (1, 2)}
    def get_object(self, entity):
        return self.rows.get(entity.id)
    def delete_entity(self, entity):
        self.rows.pop(entity.id, None)

ended = []
tables = qzdescriptor.Registry()
tables.insert("Row")
tables.insert_attribute("Row", "T", qzdescriptor.Definition("T", list[float]))
Rows("rows", tables)
qzdescriptor.set_script_registry(tables)
)",
                                output))
        << output;
    ISession* const rows = GetScriptRegistry()->GetSession("rows");
    Metaobject const* const first = rows->Get(Entity(EntityFullType("Row"), 1));
    Metaobject const* const second = rows->Get(Entity(EntityFullType("Row"), 2));
    ValuePtr const* value = nullptr;
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(first->GetValue(Identifier("T"), value));
        EXPECT_EQ(Evaluate("ended"), "[]\n");
        EXPECT_EQ(value->GetValuePointerDoubleList()->back(), 0.5);
    }
    ASSERT_TRUE(second->GetValue(Identifier("T"), value));
    EXPECT_EQ(Evaluate("ended"), "[1]\n");
    EXPECT_EQ(value->GetValuePointerDoubleList()->back(), 0.5);
    EXPECT_EQ(Evaluate("qzdescriptor.set_script_registry(None)"), "None\n");
}

TEST_F(EmbeddedPython, TellsOfExceptionsWhoseTextFails) {
    EXPECT_FALSE(
        python->Execute("class Mute(BaseException):\n    def __str__(self): raise Mute\nraise Mute", output));
    EXPECT_THAT(output, HasSubstr("Mute"));
}

TEST_F(EmbeddedPython, HearsSignalsByTheNameOfAFunction) {
    ISession* const session = registry.GetSession("s");
    ASSERT_TRUE(python->Execute("heard = []\ndef hear(name): heard.append(name)\n"
                                "def count(event): heard.append(event.split()[0])\n",
                                output));
    session->GetSigSlotHandler()->GetSessionDeletedSignal()->ConnectScript(
        qzScriptCallback("python", "hear"));
    session->GetSigSlotHandler()->GetEntityEventSignal()->ConnectScript(qzScriptCallback("python", "count"));
    Make("s");
    registry.RemoveSession(session);
    EXPECT_EQ(Evaluate("heard"), "['created', 's']\n");
}

/// The pages of memory that this process uses.
long ResidentPages() {
    std::ifstream statistics("/proc/self/statm");
    long total = 0, resident = 0;
    statistics >> total >> resident;
    return resident;
}

TEST_F(EmbeddedPython, RunsTenThousandActionsInConstantMemory) {
    Metaobject const* const object = Make("s");
    auto const run = [&](int count) {
        for (int i = 0; i < count; ++i)
            ASSERT_EQ(object->InvokeAction(Identifier("thicken")).status, 0);
        EXPECT_TRUE(python->Execute("seen.clear()", output));
    };
    run(1000); // what is kept for good is there by now
    long const before = ResidentPages();
    run(10000);
    EXPECT_EQ(Thickness(object), 11001.0);
#ifndef __SANITIZE_ADDRESS__ // which keeps what is freed for a while
    EXPECT_LT(ResidentPages() - before, 2 * 1024 * 1024 / sysconf(_SC_PAGESIZE));
#else
    static_cast<void>(before);
#endif
}

} // namespace
