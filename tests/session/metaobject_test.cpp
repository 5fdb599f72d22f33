#include "descriptor/ActionDefinition.h"
#include "descriptor/Allowables.h"
#include "descriptor/Definition.h"
#include "descriptor/MetaobjectCollection.h"
#include "descriptor/ScriptSession.h"
#include "descriptor/Value.h"
#include "descriptor/Version.h"
#include "qzinterp/qzInterp.h"
#include "store/Object.h"
#include "store/Registry.h"
#include "store/Session.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using namespace qzDescriptor;

namespace {

/// Remembers the script and the session that it would work on.
class RecordingInterpreter : public qzInterp {
public:
    RecordingInterpreter() { EXPECT_TRUE(Register("recorder", *this)); }
    ~RecordingInterpreter() override { Unregister("recorder"); }

    bool Execute(qzString const& text, qzString& output) override {
        script = text;
        output = "said";
        session = GetScriptSession();
        if (during)
            during();
        return succeeds;
    }
    bool Call(qzString const&, qzStlVector<qzVariant> const&, qzString&) override { return false; }

    qzString script = "nothing";
    ISession* session = nullptr;
    bool succeeds = true;
    std::function<void()> during;
};

class Objects : public testing::Test {
public:
    Objects() {
        qzInterp::SetOutputReport([this](qzString const& language, qzString const& text) {
            reports += language + " printed " + text + "\n";
        });
        qzInterp::SetFailureReport([this](qzString const& language, qzString const& text) {
            reports += language + " failed, " + text + "\n";
        });
    }
    ~Objects() override {
        qzInterp::SetOutputReport({});
        qzInterp::SetFailureReport({});
    }

    unsigned int Declare(qzString const& name) {
        return registry.Insert(name, Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    }
    store::Object* Make(qzString const& type, unsigned int id) {
        Entity entity;
        EXPECT_EQ(session().CreateWithId(EntityFullType(type), id, entity, Entity(), Identifier()).message,
                  "");
        return const_cast<store::Object*>(dynamic_cast<store::Object const*>(session().Get(entity)));
    }
    store::Session& session() { return dynamic_cast<store::Session&>(*registry.GetSession("s")); }

    store::Registry registry;
    RecordingInterpreter interpreter;
    qzString reports; ///< what was told of scripts
};

TEST_F(Objects, RunScriptActionsAsOneLineOfPython) {
    struct {
        qzString type;
        unsigned int id;
        ActionDefinition action;
        qzString expected;
    } const cases[] = {
        {"Shell",
         17,
         {"Mesh", "run", "", "plant.mesh", "recorder", true, true, "", ""},
         "from qz.mdi.isession import Session; from qzdescriptor import Entity, EntityFullType; "
         "from plant.mesh import run; controller = Session().get(Entity(EntityFullType('Shell'), 17)); "
         "run(controller)"},
        {"Shell",
         4294967295u,
         {"Mesh", "Mesher.run", "Mesher", "plant", "recorder", true, true, "", ""},
         "from qz.mdi.isession import Session; from qzdescriptor import Entity, EntityFullType; "
         "from plant import Mesher; controller = Session().get(Entity(EntityFullType('Shell'), 4294967295)); "
         "Mesher.run(controller)"},
        {"it's a \\ \n",
         1,
         {"Mesh", "print", "", "", "recorder", true, true, "", ""},
         "from qz.mdi.isession import Session; from qzdescriptor import Entity, EntityFullType; "
         "controller = Session().get(Entity(EntityFullType('it\\'s a \\\\ \\n'), 1)); print(controller)"},
    };
    for (auto const& c : cases) {
        unsigned int handle = registry.FindHandle(c.type);
        if (handle == 0)
            handle = Declare(c.type);
        Identifier const id(c.expected);
        registry.InsertAction(handle, id, c.action, {});
        Metaobject const* const object = Make(c.type, c.id);
        reports.clear();
        EXPECT_EQ(object->InvokeAction(id), (qzReturnStatus{0, "Callback execution succeeded"}));
        EXPECT_EQ(reports, "recorder printed said\n");
        EXPECT_EQ(interpreter.script, c.expected);
        EXPECT_EQ(interpreter.session, &session());
    }
    EXPECT_EQ(GetScriptSession(), nullptr);
}

TEST_F(Objects, SayWhyAnActionDidNotRun) {
    unsigned int const shell = Declare("Shell");
    ActionDefinition::Function const never = [](Metaobject const*) { return qzReturnStatus{-1, "not now"}; };
    ActionDefinition::Function const answer = [](Metaobject const* object) {
        return qzReturnStatus{static_cast<int>(object->GetEntity().GetId()), "called"};
    };
    struct {
        char const* name;
        ActionDefinition definition;
        qzReturnStatus expected;
    } const cases[] = {
        {"disabled", {"", "f", "", "", "recorder", false, true, "", ""}, {-1, "Action is not enabled"}},
        {"refused", {"", answer, true, never, "", ""}, {-1, "Action is not enabled"}},
        {"unknown", {"", "f", "", "", "cobol", true, true, "", ""}, {-1, "Interpretor not found"}},
        {"native", {"", answer, true, nullptr, "", ""}, {5, "called"}},
    };
    for (auto const& c : cases)
        registry.InsertAction(shell, Identifier(c.name), c.definition, {});
    Metaobject const* const object = Make("Shell", 5);
    for (auto const& c : cases)
        EXPECT_EQ(object->InvokeAction(Identifier(c.name)), c.expected) << c.name;
    EXPECT_EQ(object->InvokeAction(Identifier("none")).message, "Action is not enabled");
    EXPECT_EQ(interpreter.script, "nothing");

    registry.InsertAction(shell, Identifier("fails"), {"", "f", "", "", "recorder", true, true, "", ""}, {});
    interpreter.succeeds = false;
    EXPECT_EQ(object->InvokeAction(Identifier("fails")), (qzReturnStatus{-1, "Callback execution failed"}));
    EXPECT_EQ(reports, "recorder failed, f: said\n");
}

TEST_F(Objects, LeaveNoSessionBehindForScriptsWhenOneEndsItsOwn) {
    unsigned int const shell = Declare("Shell");
    registry.InsertAction(shell, Identifier("end"), {"", "f", "", "", "recorder", true, true, "", ""}, {});
    Metaobject const* const object = Make("Shell", 1);
    SetScriptRegistry(&registry);
    EXPECT_EQ(GetScriptSession(), &session());
    interpreter.during = [&] {
        registry.RemoveSession(&session());
        EXPECT_EQ(GetScriptSession(), nullptr);
    };
    EXPECT_EQ(object->InvokeAction(Identifier("end")).status, 0);
    EXPECT_EQ(GetScriptSession(), nullptr); // the current session of the registry has ended
    {
        store::Registry other;
        SetScriptRegistry(&other);
    }
    EXPECT_EQ(GetScriptRegistry(), nullptr);
}

TEST_F(Objects, GiveUpAValueThatNewAllowedValuesRefuse) {
    unsigned int const shell = Declare("Shell");
    Definition thickness;
    thickness.SetValueBasicType(BT_DOUBLE);
    registry.InsertAttribute(shell, Identifier("T"), thickness, Identifier(), {});
    BoundT<double> const above2(2.0, BoundT<double>::Greater);
    struct {
        double before;
        Allowables allowables;
        double after;
    } const cases[] = {
        {3.0, Allowables(above2, 5.0), 3.0},
        {1.0, Allowables(above2, 5.0), 5.0},
        {1.0, Allowables(above2, 1.0), 1.0}, // the default is never refused
        {1.0, Allowables(), 1.0},
    };
    unsigned int id = 1;
    for (auto const& c : cases) {
        store::Object* const object = Make("Shell", id++);
        EXPECT_EQ(object->SetValue(Identifier("T"), Value(c.before)).message, "");
        EXPECT_TRUE(object->SetAllowables(Identifier("T"), c.allowables));
        ValuePtr const* value = nullptr;
        ASSERT_TRUE(object->GetValue(Identifier("T"), value));
        double after = 0;
        EXPECT_TRUE(value->GetValue(after, 0u, 0u));
        EXPECT_EQ(after, c.after);
    }
    EXPECT_FALSE(Make("Shell", 99)->SetAllowables(Identifier("none"), cases[0].allowables));
}

/// Entities as a collection, each found as an object when it is asked for.
class Selection : public ICollection {
public:
    class Place : public MetaobjectCollectionIterator {
    public:
        Place(Selection& selection, std::size_t index) : m_selection(selection), m_index(index) {
            ++s_living;
        }
        Place(Place const& other) : Place(other.m_selection, other.m_index) {}
        ~Place() override { --s_living; }
        void next() override { m_index += m_index < m_selection.m_entities.size(); }
        bool equals(ICollectionIterator const& other) const override {
            return m_index == static_cast<Place const&>(other).m_index;
        }
        ICollectionIterator* clone() const override { return new Place(*this); }
        Metaobject* get() override {
            return const_cast<Metaobject*>(m_selection.m_session.Get(m_selection.m_entities.at(m_index)));
        }
        static inline int s_living = 0;

    private:
        Selection& m_selection;
        std::size_t m_index;
    };

    explicit Selection(ISession& session) : m_session(session) {}
    MetaobjectCollectionIterator* begin() override { return new Place(*this, 0); }
    MetaobjectCollectionIterator* end() override { return new Place(*this, m_entities.size()); }
    int add(Entity const& entity) override {
        m_entities.push_back(entity);
        return 0;
    }
    int remove(Entity const& entity) override { return std::erase(m_entities, entity) != 0 ? 0 : 3; }

private:
    ISession& m_session;
    std::vector<Entity> m_entities;
};

TEST_F(Objects, AreWalkedThroughACollectionOfTheApplication) {
    Declare("Shell");
    Selection selection(session());
    MetaobjectCollection const collection(&selection);
    for (unsigned int const id : {4u, 2u, 9u})
        EXPECT_EQ(collection.add(Make("Shell", id)->GetEntity()), 0);
    EXPECT_EQ(collection.remove(Entity(EntityFullType("Shell"), 2)), 0);
    EXPECT_EQ(collection.remove(Entity(EntityFullType("Shell"), 2)), 3);
    std::vector<unsigned int> ids;
    {
        std::unique_ptr<ICollectionIterator> place(collection.begin()), end(collection.end());
        for (; !place->equals(*end); place->next())
            ids.push_back(place->get()->GetEntity().GetId());
    }
    EXPECT_EQ(ids, (std::vector<unsigned int>{4, 9}));
    EXPECT_EQ(Selection::Place::s_living, 0);

    MetaobjectCollection const none(nullptr);
    EXPECT_EQ(none.begin(), nullptr);
    EXPECT_EQ(none.add(Entity()), -1);
}

} // namespace
