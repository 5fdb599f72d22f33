#include "descriptor/qzdescriptor.h"
#include "support/Random.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace qzDescriptor::test {
namespace {

struct DestroyBuilder {
    void operator()(DataOperationListBuilder* builder) const { builder->Destroy(); }
};
using Builder = std::unique_ptr<DataOperationListBuilder, DestroyBuilder>;

Builder MakeBuilder() { return Builder(DataOperationListBuilder::Create()); }

DataOperationList Retrieve(Builder const& builder) {
    DataOperationList list({DataOperation("from before", "", true, "")});
    builder->RetrieveDataOperationList(list);
    return list;
}

/// A menu as text: "name+icon" for an entry that is enabled, "name-icon" for one that is not, "|" for a
/// separator, the entries of a list in brackets.
std::string Describe(DataOperationList const& list) {
    std::string text;
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        DataOperation const& entry = list.Get(i);
        DataOperationList inner;
        if (!entry.GetDataOperationList(inner)) {
            text += "| ";
            continue;
        }
        text += entry.GetDisplayName() + (entry.IsEnabled() ? "+" : "-") + entry.GetIconFilePath();
        text += entry.HasList() ? "[ " + Describe(inner) + "] " : " ";
    }
    return text;
}

/// Menus built the plain way: keys are sought from the start, and every list walks everything inserted behind
/// it.
struct PlainMenus {
    struct Record {
        std::string text;
        bool isList;
        std::string key;
        int parent;
    };

    std::vector<Record> records;

    int Find(std::string const& key) const {
        for (std::size_t i = 0; i < records.size(); ++i) {
            if (records[i].isList && records[i].key == key)
                return static_cast<int>(i);
        }
        return -1;
    }

    bool Insert(std::string const& text, bool isList, std::string const& key, std::string const& parentKey) {
        int const parent = parentKey.empty() ? -1 : Find(parentKey);
        if ((isList && Find(key) >= 0) || (parent < 0 && !parentKey.empty()))
            return false;
        records.push_back({text, isList, key, parent});
        return true;
    }

    std::string Describe(int parent) const {
        std::string text;
        for (int i = parent + 1; i < static_cast<int>(records.size()); ++i) {
            Record const& record = records[static_cast<std::size_t>(i)];
            std::string const inner = record.parent == parent && record.isList ? Describe(i) : "";
            if (record.parent == parent && (!record.isList || !inner.empty()))
                text += record.text + (record.isList ? "[ " + inner + "] " : " ");
        }
        return text;
    }
};

TEST(MenuBuilder, BuildsWhatPlainSearchBuilds) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (unsigned int round = 0; round < 400; ++round) {
        Builder builder = MakeBuilder();
        PlainMenus model;
        for (unsigned int step = 0; step < 60; ++step) {
            // An empty list key is a key like others, but as a parent key it means the top level.
            auto const pickKey = [&] {
                return random.Chance(4) ? "" : "K" + std::to_string(random.Below(25));
            };
            std::string const name = std::to_string(step), key = pickKey(), parentKey = pickKey();
            bool const enabled = random.Chance(2);
            std::string const text = name + (enabled ? "+" : "-") + "i" + name;
            switch (random.Below(5)) {
            case 0:
                ASSERT_EQ(builder->InsertOperation(parentKey), model.Insert("|", false, "", parentKey));
                break;
            case 1:
                ASSERT_EQ(builder->InsertOperation(name, "Weigh", parentKey, enabled, "i" + name),
                          model.Insert(text, false, "", parentKey));
                break;
            case 2:
                ASSERT_EQ(builder->InsertOperation(name,
                                                   random.Pick({DataOperation::OPERATION_SHOW,
                                                                DataOperation::OPERATION_SEPARATOR}),
                                                   parentKey, enabled, "i" + name),
                          model.Insert(text, false, "", parentKey));
                break;
            default:
                ASSERT_EQ(builder->InsertList(name, key, parentKey, enabled, "i" + name),
                          model.Insert(text, true, key, parentKey));
            }
            if (random.Chance(20))
                builder.reset(builder->Clone()); // builds on from there
        }
        ASSERT_EQ(Describe(Retrieve(builder)), model.Describe(-1));
    }
}

TEST(MenuBuilder, CopiesItself) {
    Builder const builder = MakeBuilder();
    builder->InsertList("A", "a", "", true, "");
    Builder const copy(builder->Clone());
    EXPECT_TRUE(copy->InsertOperation("a"));
    EXPECT_FALSE(copy->InsertList("A", "a", "", true, "")) << "the key came along";
    EXPECT_EQ(Describe(Retrieve(copy)), "A+[ | ] ");
    EXPECT_EQ(Describe(Retrieve(builder)), "");
}

constexpr unsigned int s_many = 100000;

/// Lists in lists, with one entry in the innermost.
DataOperationList MakeDeepMenu(qzString const& innermost) {
    Builder const builder = MakeBuilder();
    qzString parent;
    for (unsigned int level = 0; level < s_many; ++level) {
        qzString const key = std::to_string(level);
        builder->InsertList("L", key, parent, true, "");
        parent = key;
    }
    builder->InsertOperation(innermost, "Weigh", parent, true, "");
    return Retrieve(builder);
}

TEST(Menus, MayBeNestedDeeperThanTheStack) {
    DataOperationList const menu = MakeDeepMenu("X");
    DataOperationList const copy = menu;
    EXPECT_TRUE(copy == MakeDeepMenu("X"));
    EXPECT_FALSE(copy == MakeDeepMenu("Y"));
    unsigned int levels = 0;
    DataOperationList list = menu;
    for (; list.Get(0).HasList(); ++levels)
        list.Get(0).GetDataOperationList(list);
    EXPECT_EQ(levels, s_many);
    EXPECT_EQ(Describe(list), "X+ ");
}

TEST(Menus, MayBeWide) {
    Builder const builder = MakeBuilder();
    for (unsigned int i = 0; i < s_many; ++i) {
        qzString const key = std::to_string(i);
        builder->InsertList(key, key, "", true, "");
        builder->InsertOperation(std::to_string(s_many - 1 - i));
    }
    DataOperationList const menu = Retrieve(builder);
    ASSERT_EQ(menu.GetCount(), s_many / 2) << "whatever came before its list was refused";
    EXPECT_EQ(menu.Get(0).GetDisplayName(), "0");
    EXPECT_EQ(menu.Get(s_many / 2 - 1).GetDisplayName(), std::to_string(s_many / 2 - 1));
}

TEST(Menus, AreSharedByThreadsThatCopyAndEndThem) {
    DataOperationList menu = MakeDeepMenu("X");
    DataOperationList const expected = MakeDeepMenu("X");
    std::vector<DataOperationList> copies(4, menu);
    menu = DataOperationList();
    RunThreads(4, [&](unsigned int i) {
        for (unsigned int k = 0; k < 100; ++k) {
            DataOperationList const copy = copies[i];
            EXPECT_EQ(copy.GetCount(), 1U);
        }
        EXPECT_TRUE(copies[i] == expected);
        copies[i] = DataOperationList(); // the last one ends the menu
    });
}

} // namespace
} // namespace qzDescriptor::test
