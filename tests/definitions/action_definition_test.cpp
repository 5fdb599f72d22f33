#include "descriptor/qzdescriptor.h"
#include "support/ExpectDistinct.h"

#include <gtest/gtest.h>

namespace qzDescriptor::test {
namespace {

static_assert(std::has_virtual_destructor_v<ActionDefinition>);

qzReturnStatus Review(Metaobject const*) { return {0, "reviewed"}; }
qzReturnStatus Refuse(Metaobject const*) { return {-1, "Not now."}; }

struct Painter {
    int color;
    qzReturnStatus operator()(Metaobject const*) const { return {color, ""}; }
};

struct Welder : Painter {};

ActionDefinition MakeNative(ActionDefinition::Function callback,
                            ActionDefinition::Function enabledTest = {}) {
    return ActionDefinition("A", std::move(callback), true, std::move(enabledTest), "about", "help");
}

TEST(ActionDefinition, IsNativeOrAScript) {
    ActionDefinition const native = MakeNative(Review, Refuse);
    EXPECT_FALSE(native.IsScriptAction());
    EXPECT_EQ(native.GetCallbackFunction()(nullptr).message, "reviewed");
    EXPECT_EQ(native.GetEnabledTest()(nullptr).message, "Not now.");
    EXPECT_TRUE(native.GetEnabled() && native.GetVisible());
    EXPECT_EQ(native.GetDisplayName() + native.GetDescription() + native.GetHelpPath(), "Aabouthelp");
    EXPECT_FALSE(ActionDefinition("A", Review, false, nullptr, "", "").GetEnabled());

    qzReturnStatus (*const nothing)(Metaobject const*) = nullptr;
    for (ActionDefinition const& script :
         {ActionDefinition(), ActionDefinition("A", "run", "", "", "python", true, true, "", ""),
          MakeNative(nullptr, Refuse), MakeNative(nothing)})
        EXPECT_TRUE(script.IsScriptAction());
}

TEST(ActionDefinition, DiffersByItsFunctions) {
    ActionDefinition const actions[] = {
        MakeNative(nullptr),    MakeNative(nullptr, Review), MakeNative(Review),
        MakeNative(Refuse),     MakeNative(Review, Review),  MakeNative(Review, Refuse),
        MakeNative(Painter{1}), MakeNative(Welder{{1}}),
    };
    ExpectDistinct(actions);
    EXPECT_EQ(MakeNative(Painter{1}), MakeNative(Painter{2})) << "what is captured cannot be compared";
}

} // namespace
} // namespace qzDescriptor::test
