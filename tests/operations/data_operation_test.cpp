#include "descriptor/qzdescriptor.h"
#include "support/ExpectDistinct.h"

#include <gtest/gtest.h>

#include <string>

namespace qzDescriptor::test {
namespace {

TEST(DataOperation, IsFoundByItsKeywordInAnyLetterCase) {
    struct Row {
        char const* text;
        int code;
        char const* displayName;
    };
    Row const rows[] = {
        {"new", 1, "New"},
        {"create", 2, "Create"},
        {"DUPLICATE", 3, "Duplicate"},
        {"delete", 4, "Delete"},
        {"remove", 5, "Remove"},
        {"Edit", 6, "Edit"},
        {"review", 7, "Review"},
        {"show", 8, "Show"},
        {"hIDe", 9, "Hide"},
        {"isolate", 10, "Isolate"},
        {"IsolateONLY", 11, "Isolate only"},
        {"parameterize", 12, "Parameterize"},
        {"unParameterize", 13, "Unparameterize"},
        {"List", 100, ""},
        {"none", 200, ""},
        {"Separator", 200, ""},
    };
    for (Row const& row : rows) {
        auto operation = DataOperation::Operation(-7);
        qzString displayName = "from before";
        EXPECT_TRUE(DataOperation::OperationFromString(row.text, operation, displayName)) << row.text;
        EXPECT_EQ(operation, row.code) << row.text;
        EXPECT_EQ(displayName, row.displayName);
    }
    for (qzString const& text : {qzString(), qzString("custom"), qzString(" new"), qzString("newer"),
                                 qzString("new\0", 4), qzString("isolate only"), qzString("sh\xC3\x96w")}) {
        auto operation = DataOperation::Operation(-7);
        qzString displayName = "from before";
        EXPECT_FALSE(DataOperation::OperationFromString(text, operation, displayName)) << text;
        EXPECT_EQ(operation, -7) << "left alone";
        EXPECT_EQ(displayName, "from before") << "left alone";
    }
}

TEST(DataOperation, HoldsWhatItsConstructorTakes) {
    DataOperationList const inner({DataOperation("Show", DataOperation::OPERATION_SHOW, true, "")});
    struct Row {
        DataOperation operation;
        int code;
        bool enabled;
        char const* displayName;
        char const* functionName; ///< null for an entry without a body
        unsigned int entries;
    };
    Row const rows[] = {
        {DataOperation(), 200, true, "", nullptr, 0},
        {DataOperation("X", "Weigh", false, "icon"), 0, false, "X", "Weigh", 0},
        {DataOperation("X", inner, false, "icon"), 100, false, "X", "", 1},
        {DataOperation("X", DataOperation::OPERATION_HIDE, false, "icon"), 9, false, "X", "", 0},
        {DataOperation("X", DataOperation::OPERATION_SEPARATOR, false, "icon"), 200, false, "X", "", 0},
        {DataOperation("X", DataOperation::Operation(77), false, "icon"), 77, false, "X", "", 0},
        {DataOperation("X", DataOperation::OPERATION_LIST, false, "icon"), 200, true, "", nullptr, 0},
        {DataOperation("X", DataOperation::OPERATION_CUSTOM, false, "icon"), 200, true, "", nullptr, 0},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.code);
        bool const hasBody = row.functionName != nullptr;
        EXPECT_EQ(row.operation.GetOperation(), row.code);
        EXPECT_EQ(row.operation.HasList(), row.code == 100);
        EXPECT_EQ(row.operation.IsEnabled(), row.enabled);
        EXPECT_EQ(row.operation.GetDisplayName(), row.displayName);
        EXPECT_EQ(row.operation.GetIconFilePath(), hasBody ? "icon" : "");
        qzString functionName = "from before";
        EXPECT_EQ(row.operation.GetFunctionName(functionName), hasBody);
        EXPECT_EQ(functionName, hasBody ? row.functionName : "from before");
        DataOperationList list({DataOperation(), DataOperation()});
        EXPECT_EQ(row.operation.GetDataOperationList(list), hasBody);
        EXPECT_EQ(list.GetCount(), hasBody ? row.entries : 2);
    }
}

TEST(DataOperation, DiffersByEveryField) {
    DataOperation const entries[] = {
        DataOperation("X", "Weigh", true, ""),
        DataOperation("Y", "Weigh", true, ""),
        DataOperation("X", "Paint", true, ""),
        DataOperation("X", "Weigh", false, ""),
        DataOperation("X", "Weigh", true, "icon"),
        DataOperation("X", DataOperation::OPERATION_SHOW, true, ""),
        DataOperation("X", DataOperationList(), true, ""),
        DataOperation("X", DataOperationList({DataOperation()}), true, ""),
        DataOperation("X", DataOperationList({DataOperation("X", "Weigh", true, "")}), true, ""),
    };
    ExpectDistinct(entries);
}

TEST(DataOperation, KeepsItsListWhenTheOriginalChanges) {
    DataOperationList list({DataOperation()});
    DataOperation const entry("X", list, true, "");
    list.PushBack(entry);
    list.PushBack(list.Get(1)); // one of its own
    DataOperationList out = list;
    list.Get(1).GetDataOperationList(list); // out of the list that is replaced
    EXPECT_EQ(list.GetCount(), 1U);
    EXPECT_EQ(out.GetCount(), 3U);
    EXPECT_EQ(out.Get(2), entry);
}

TEST(DataOperationList, HasASeparatorWhereThereIsNoEntry) {
    DataOperationList const list({DataOperation("X", "Weigh", true, "")});
    EXPECT_EQ(list.Get(0).GetDisplayName(), "X");
    EXPECT_EQ(list.Get(1).GetOperation(), DataOperation::OPERATION_SEPARATOR);
    EXPECT_EQ(&list.Get(1), &DataOperationList().Get(0xFFFFFFFF));
}

} // namespace
} // namespace qzDescriptor::test
