#include "descriptor/qzdescriptor.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <vector>

namespace qzDescriptor::test {
namespace {

Definition MakeDefinition(unsigned int i) {
    Definition definition;
    definition.SetDisplayName("a name that does not fit into the string itself " + std::to_string(i));
    return definition;
}

TEST(DefinitionPool, PutsDefinitionsSideBySide) {
    std::vector<std::unique_ptr<Definition>> definitions;
    int neighbours = 0;
    for (unsigned int i = 0; i < 100; ++i) {
        definitions.push_back(std::make_unique<Definition>());
        if (i > 0)
            neighbours += definitions[i].get() - definitions[i - 1].get() == 1;
    }
    EXPECT_GT(neighbours, 90) << "the heap would put something between them";
}

TEST(DefinitionPool, LeavesLargerObjectsToTheHeap) {
    struct Wide : Definition {
        char note[100] = {};
    };
    std::vector<std::unique_ptr<Wide>> wide;
    for (int i = 0; i < 100; ++i) {
        wide.push_back(std::make_unique<Wide>());
        wide.back()->SetDisplayName(MakeDefinition(1).GetDisplayName());
    }
    for (auto const& one : wide)
        EXPECT_EQ(one->GetDisplayName(), MakeDefinition(1).GetDisplayName());

    alignas(Definition) unsigned char place[sizeof(Definition)];
    auto* const placed = new (place) Definition(MakeDefinition(2));
    EXPECT_EQ(static_cast<void*>(placed), static_cast<void*>(place));
    placed->~Definition();
}

TEST(DefinitionPool, ServesManyThreads) {
    constexpr unsigned int threads = 4, count = 1500;
    std::vector<std::unique_ptr<Definition>> made[threads];
    RunThreads(threads, [&](unsigned int thread) {
        for (unsigned int i = 0; i < count; ++i) {
            made[thread].push_back(std::make_unique<Definition>(MakeDefinition(thread * count + i)));
            if (i % 3 == 0)
                delete new Definition;
        }
    });
    RunThreads(threads, [&](unsigned int thread) {
        unsigned int const maker = (thread + 1) % threads;
        for (unsigned int i = 0; i < count; ++i) {
            ASSERT_EQ(*made[maker][i], MakeDefinition(maker * count + i));
            made[maker][i].reset();
        }
    });
}

} // namespace
} // namespace qzDescriptor::test
