#include "registry/TestRegistry.h"
#include "support/Random.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>

namespace qzDescriptor::test {
namespace {

TEST(ConcurrentReaders, SeeTheSameRegistry) {
    constexpr unsigned int metaclasses = 50, attributes = 20;
    TestRegistry registry;
    for (unsigned int m = 0; m < metaclasses; ++m) {
        unsigned int const metaclass =
            registry.Insert("M" + std::to_string(m), m % 2 == 0 ? "" : "M" + std::to_string(m - 1));
        for (unsigned int a = 0; m % 2 == 0 && a < attributes; ++a)
            registry.InsertAttribute(metaclass, "a" + std::to_string(a));
        registry.SetOwnership(metaclass, 1, 1);
    }
    std::atomic<unsigned int> faults = 0;
    RunThreads(4, [&](unsigned int thread) {
        Random random(thread);
        for (int k = 0; k < 2000; ++k) {
            unsigned int const m = random.Below(metaclasses), a = random.Below(attributes);
            unsigned int const metaclass =
                registry.GetMetaclassHandle(EntityFullType("M" + std::to_string(m)));
            unsigned int const attribute =
                registry.FindAttributeHandle(metaclass, Identifier("a" + std::to_string(a)), 0, true);
            Members const* const members = registry.GetMembers(metaclass, 0);
            qzStlVector<unsigned int> owners;
            bool const agrees = metaclass == m + 1 && attribute == a + 1 && members != nullptr &&
                                registry.GetDefinition(metaclass, attribute, 0) != nullptr &&
                                members->GetDefaultValue(a) == members->GetDefaultValue(a) &&
                                members->GetDefaultValue(a) != nullptr &&
                                registry.GetOwnership(metaclass, 1, owners) && owners.size() == 1;
            faults += agrees ? 0 : 1;
        }
    });
    EXPECT_EQ(faults, 0U);
}

} // namespace
} // namespace qzDescriptor::test
