#include "qzsigslot/qzSignal.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

namespace {

/// Knows the functions "record" and "fail", and "raise", which throws.
class TestInterpreter : public qzInterp {
public:
    bool Execute(qzString const& script, qzString& output) override {
        output = script;
        return script != "fail";
    }
    bool Call(qzString const& function, qzStlVector<qzVariant> const& arguments, qzString& output) override {
        if (function == "raise")
            throw std::runtime_error("raised");
        if (function != "record") {
            output = "no function " + function;
            return false;
        }
        calls.push_back(arguments);
        output = "recorded";
        return true;
    }

    std::vector<qzStlVector<qzVariant>> calls;
};

class Scripts : public testing::Test {
public:
    Scripts() {
        EXPECT_TRUE(qzInterp::Register("test", interpreter));
        qzInterp::SetFailureReport([this](qzString const& language, qzString const& message) {
            failures.push_back(language + ": " + message);
        });
        qzInterp::SetOutputReport([this](qzString const&, qzString const& output) { printed += output; });
    }
    ~Scripts() override {
        qzInterp::Unregister("test");
        qzInterp::SetFailureReport({});
        qzInterp::SetOutputReport({});
    }

    TestInterpreter interpreter;
    std::vector<qzString> failures;
    qzString printed;
};

struct Plain : qzListener<> {};

TEST_F(Scripts, AreFoundByTheirLanguage) {
    EXPECT_EQ(qzInterp::Get("test"), &interpreter);
    EXPECT_EQ(qzInterp::Get("Test"), nullptr);
    TestInterpreter other;
    EXPECT_FALSE(qzInterp::Register("test", other));
    EXPECT_TRUE(qzInterp::Unregister("test"));
    EXPECT_FALSE(qzInterp::Unregister("test"));
    EXPECT_TRUE(qzInterp::Register("test", other));
    EXPECT_EQ(qzInterp::Get("test"), &other);
}

TEST_F(Scripts, AreCalledWithTheObjectTheySpeakForAndTheArgument) {
    qzSignal1<void, qzString const&, single_threaded> signal;
    qzScriptCallback const record("test", "record");
    auto listener = std::make_unique<Plain>();
    int object = 0;
    signal.ConnectScript(record);
    signal.ConnectScript(*listener, record);
    signal.ConnectScript(&object, record);
    signal.Emit("text");
    ASSERT_EQ(interpreter.calls.size(), 3u);
    qzVariant text, listenerAddress, objectAddress;
    text.SetString("text");
    listenerAddress.SetPointer(listener.get());
    objectAddress.SetPointer(&object);
    EXPECT_EQ(interpreter.calls[0], (qzStlVector<qzVariant>{text}));
    EXPECT_EQ(interpreter.calls[1], (qzStlVector<qzVariant>{listenerAddress, text}));
    EXPECT_EQ(interpreter.calls[2], (qzStlVector<qzVariant>{objectAddress, text}));
    listener.reset();
    qzSignal1<void, qzString const&, single_threaded>(signal).Emit("again");
    EXPECT_EQ(interpreter.calls.size(), 5u);
    EXPECT_TRUE(failures.empty());
    EXPECT_EQ(printed, "recordedrecordedrecordedrecordedrecorded");
}

TEST_F(Scripts, ReportWhatTheyCannotDo) {
    qzSignal1<void, qzString const&, single_threaded> signal;
    int calls = 0;
    for (char const* const function : {"fail", "raise"})
        signal.ConnectScript(qzScriptCallback("test", function));
    signal.ConnectScript(qzScriptCallback("absent", "record"));
    signal.Connect([&](qzString const&) { ++calls; });
    signal.Emit("text");
    EXPECT_EQ(calls, 1); // the others go on
    EXPECT_EQ(failures,
              (std::vector<qzString>{"test: fail: no function fail", "test: raise: raised",
                                     "absent: record: no interpreter for 'absent' to call 'record' in"}));
}

TEST(ScriptArguments, AreNumbersTextsOrAddresses) {
    qzVariant variant;
    variant.SetLong64(7);
    EXPECT_EQ(qzScriptArgument(7), variant);
    variant.SetBoolean(true);
    EXPECT_EQ(qzScriptArgument(true), variant);
    variant.SetDouble(0.5);
    EXPECT_EQ(qzScriptArgument(0.5f), variant);
    Plain const object;
    void* address = nullptr;
    EXPECT_TRUE(qzScriptArgument(object).GetPointer(address));
    EXPECT_EQ(address, &object);
}

} // namespace
