#include "qzinterp/qzInterp.h"
#include "qzinterp/qzScriptCallback.h"

#include "support/Threads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using testing::HasSubstr;
using testing::Not;

namespace {

/// One language: scripts of one meaning, and what they give.
struct Language {
    char const* name;
    char const* printing; ///< prints a line "6" on standard output, and "oops" on standard error
    char const* failing;  ///< prints "before" and fails in the function "inner"
    char const* reason;   ///< part of the failure text
    char const* broken;   ///< is no script
    char const* brokenReason;
    char const* defining; ///< defines "show", which prints its arguments with a bar between them
    char const* shown;    ///< what "show" prints of the arguments below
    char const* ending;   ///< prints "ended" and ends itself
    char const* givingUp; ///< ends itself with code 3
    char const* counting; ///< adds one to a global variable, and prints it
};

std::vector<Language> const s_languages = {
// none in a build without interpreters
#ifdef QZ_WITH_PYTHON
    {"python", "import sys\nprint(2 * 3)\nprint('oops', file=sys.stderr)",
     "def inner():\n    raise ValueError('no good')\nprint('before')\ninner()\n", "line 4, in <module>",
     "x = 1\nif x\n    pass", "line 2", "def show(*all): print('|'.join(map(str, all)))",
     "1|-5000000000|True|0.5|it's {a} $text \\\xC3\xA4|None\n",
     "import sys\nprint('ended')\nsys.exit()\nprint('more')", "import sys\nsys.exit(3)",
     "n = globals().get('n', 0) + 1\nprint(n)"},
#endif
#ifdef QZ_WITH_TCL
    {"tcl", "puts [expr {2 * 3}]\nputs stderr oops", "proc inner {} {error {no good}}\nputs before\ninner",
     "procedure \"inner\" line 1", "if {1} {", "missing close-brace",
     "proc show {args} {puts [join $args |]}", "1|-5000000000|1|0.5|it's {a} $text \\\xC3\xA4|\n",
     "puts ended\ncatch exit\nputs more", "exit 3", "puts [incr ::n]"},
#endif
};

class Interpreters : public testing::TestWithParam<Language> {
public:
    /// What a script prints, with an exclamation mark behind it when it fails.
    std::string Run(std::string const& script) {
        qzString output;
        bool const succeeded = interpreter->Execute(script, output);
        return output + (succeeded ? "" : "!");
    }

    Language const& language = GetParam();
    qzInterp* interpreter = qzInterp::Get(language.name);
};

TEST_P(Interpreters, StartWhenTheyAreAskedFor) {
    ASSERT_NE(interpreter, nullptr);
    EXPECT_EQ(qzInterp::Get(language.name), interpreter);
}

TEST_P(Interpreters, CaptureWhatScriptsPrint) {
    EXPECT_EQ(Run(language.printing), "6\noops\n");
    EXPECT_EQ(Run(""), "");
    EXPECT_EQ(Run(language.ending), "ended\n");
    EXPECT_EQ(Run(language.givingUp).back(), '!');
}

TEST_P(Interpreters, SayWhereAndWhyAScriptFails) {
    EXPECT_THAT(Run(language.failing), testing::StartsWith("before\n"));
    EXPECT_THAT(Run(language.failing), HasSubstr(language.reason));
    EXPECT_THAT(Run(language.failing), HasSubstr("no good"));
    EXPECT_THAT(Run(language.broken), HasSubstr(language.brokenReason));
    // Whatever bytes come, nothing worse happens, and the next script runs.
    for (std::string const& bytes : {std::string("\0", 1), std::string("\xff\xfe'"), std::string("a\0b", 3)})
        EXPECT_THAT(Run(bytes), testing::EndsWith("!"));
    EXPECT_EQ(Run(language.printing), "6\noops\n");
}

TEST_P(Interpreters, KeepWhatScriptsDefine) {
    int const first = std::stoi(Run(language.counting));
    EXPECT_EQ(std::stoi(Run(language.counting)), first + 1);
}

TEST_P(Interpreters, PassArgumentsAsTheyAre) {
    ASSERT_EQ(Run(language.defining), "");
    qzStlVector<qzVariant> arguments(6);
    arguments[0].SetInteger(1);
    arguments[1].SetLong64(-5000000000);
    arguments[2].SetBoolean(true);
    arguments[3].SetDouble(0.5);
    arguments[4].SetString("it's {a} $text \\\xC3\xA4");
    qzString output;
    EXPECT_TRUE(qzScriptCallback(language.name, "show").Invoke(arguments, output)) << output;
    EXPECT_EQ(output, language.shown);
    EXPECT_FALSE(qzScriptCallback(language.name, "no such thing").Invoke(arguments, output));
    EXPECT_THAT(output, HasSubstr("no such thing"));
}

TEST_P(Interpreters, RunTenThousandScripts) {
    for (int i = 0; i < 10000; ++i)
        ASSERT_EQ(Run(language.printing), "6\noops\n");
}

INSTANTIATE_TEST_SUITE_P(Languages, Interpreters, testing::ValuesIn(s_languages),
                         [](auto const& each) { return std::string(each.param.name); });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Interpreters);

TEST(Interpreters, OfLanguagesThatNobodyBringsAreNull) {
    for (char const* const language : {"cobol", "", "../lib/libqzinterp", "Python", "python_side"})
        EXPECT_EQ(qzInterp::Get(language), nullptr) << language;
#ifndef QZ_WITH_PYTHON
    EXPECT_EQ(qzInterp::Get("python"), nullptr);
#endif
#ifndef QZ_WITH_TCL
    EXPECT_EQ(qzInterp::Get("tcl"), nullptr);
#endif
}

#ifdef QZ_WITH_PYTHON
TEST(Python, RunsOnAnyThread) {
    qzInterp* const python = qzInterp::Get("python");
    ASSERT_NE(python, nullptr);
    RunThreads(4, [&](unsigned int thread) {
        for (int i = 0; i < 50; ++i) {
            qzString output;
            EXPECT_TRUE(python->Execute("x" + std::to_string(thread) + " = 1", output)) << output;
        }
    });
}

TEST(Python, KnowsNothingOfTheUsersSettings) {
    qzString output;
    ASSERT_TRUE(
        qzInterp::Get("python")->Execute("import sys\nprint(sys.flags.isolated, sys.prefix)", output));
    EXPECT_EQ(output, "1 /usr\n");
}
#endif

#ifdef QZ_WITH_TCL
TEST(Tcl, RefusesOtherThreads) {
    qzInterp* const tcl = qzInterp::Get("tcl");
    RunThreads(1, [&](unsigned int) {
        qzString output;
        EXPECT_FALSE(tcl->Execute("puts 1", output));
        EXPECT_EQ(output, "Tcl is used by another thread");
    });
}
#endif

} // namespace
