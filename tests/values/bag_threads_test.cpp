// The two bags by entity type, used by several threads at once.

#include "descriptor/Clause.h"
#include "descriptor/Entity.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Formula.h"
#include "descriptor/FormulaBag.h"
#include "support/Random.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>

using namespace qzDescriptor;

namespace {

constexpr unsigned int s_sharedTypes = 8;

/// Types of one bucket, by number and by name.
EntityFullType MakeType(unsigned int i) {
    return i % 2 == 0 ? EntityFullType(101 * i + 5) : EntityFullType("T", std::to_string(i));
}

bool IsUniform(qzStlVector<unsigned int> const& ids) {
    return ids.size() == 4 && std::ranges::count(ids, ids[0]) == 4;
}

/// What a bag holds of a type. One that was put together from two shows it: its ids are not all the same.
struct Lists {
    using Bag = EntityListBag;
    static void Set(Bag& bag, EntityFullType const& type, unsigned int id) {
        EXPECT_TRUE(bag.SetList(EntityList(type, {id, id, id, id}, {})));
    }
    static bool IsWhole(Bag const& bag, EntityFullType const& type, bool isNeeded) {
        EntityList list;
        return bag.GetList(type, list) ? list.GetEntityFullType() == type && IsUniform(list.GetList())
                                       : !isNeeded;
    }
    static bool TakeAway(Bag& bag, Bag const& other, EntityFullType const&) {
        return (bag -= other).IsValid();
    }
    static constexpr bool s_leavesLists = true; ///< what is taken away leaves lists without ids
};

struct Formulas {
    using Bag = FormulaBag;
    static void Set(Bag& bag, EntityFullType const& type, unsigned int id) {
        Formula formula(type);
        formula.PushBackClause(Clause::FromIdList({id, id, id, id}), type, true);
        bag.SetFormula(formula);
    }
    static bool IsWhole(Bag const& bag, EntityFullType const& type, bool isNeeded) {
        Formula formula;
        qzStlVector<unsigned int> ids;
        if (!bag.GetFormula(type, formula))
            return !isNeeded;
        return formula.GetEntityFullType() == type && formula.GetClauseCount() == 1 &&
               formula.GetClauseReference(0).GetIdList(ids) && IsUniform(ids);
    }
    static bool TakeAway(Bag& bag, Bag const&, EntityFullType const& type) {
        bag.RemoveFormula(type);
        return true;
    }
    static constexpr bool s_leavesLists = false;
};

template <class Kind>
class SharedBag : public testing::Test {
public:
    using Bag = typename Kind::Bag;

    static std::size_t CountTypes(Bag const& bag) {
        qzStlVector<EntityFullType> types;
        bag.GetEntityFullTypeList(types);
        return types.size();
    }

    /// Does one thing to two bags that other threads work on as well; false when it sees a damaged one.
    static bool Work(Random& random, Bag& mine, Bag& yours) {
        EntityFullType const type = MakeType(random.Below(s_sharedTypes));
        switch (random.Below(8)) {
        case 0:
            return Kind::TakeAway(mine, yours, type);
        case 1:
            mine = yours;
            return true;
        case 2:
            static_cast<void>(mine == yours); // either may be right: it must end, without a race
            return true;
        case 3:
            return yours == yours;
        case 4:
            return Bag(yours).GetEntityFullTypeListCount() <= s_sharedTypes;
        case 5:
            return CountTypes(yours) <= s_sharedTypes;
        case 6:
            Kind::Set(mine, type, random.Below(50));
            return true;
        default:
            return Kind::s_leavesLists || Kind::IsWhole(yours, type, false);
        }
    }
};

using Kinds = testing::Types<Lists, Formulas>;
TYPED_TEST_SUITE(SharedBag, Kinds);

TYPED_TEST(SharedBag, ShowsEveryThreadEitherTheOldContentOrTheNewOne) {
    typename TestFixture::Bag bag;
    for (unsigned int i = 0; i < s_sharedTypes; ++i)
        TypeParam::Set(bag, MakeType(i), 0);
    std::atomic<unsigned int> damage = 0;
    RunThreads(4, [&](unsigned int thread) {
        for (unsigned int step = 0; step < 1500; ++step) {
            EntityFullType const type = MakeType((step + thread) % s_sharedTypes);
            TypeParam::Set(bag, type, step);
            damage += !TypeParam::IsWhole(bag, type, true);
            damage += (typename TestFixture::Bag(bag)).GetEntityFullTypeListCount() != s_sharedTypes;
            damage += this->CountTypes(bag) != s_sharedTypes;
        }
    });
    EXPECT_EQ(damage, 0U);
}

TYPED_TEST(SharedBag, IsUsedWithAnotherInEitherOrder) {
    typename TestFixture::Bag bags[2];
    std::atomic<unsigned int> damage = 0;
    RunThreads(4, [&](unsigned int thread) {
        Random random(thread);
        for (unsigned int step = 0; step < 2000; ++step)
            damage += !this->Work(random, bags[thread % 2], bags[random.Below(2)]);
    });
    EXPECT_EQ(damage, 0U);
}

TYPED_TEST(SharedBag, IsComparedInEitherOrder) {
    typename TestFixture::Bag bags[2]; // empty: the locks are all that takes time
    std::atomic<unsigned int> unequal = 0;
    RunThreads(4, [&](unsigned int thread) {
        for (unsigned int step = 0; step < 100000; ++step)
            unequal += !(bags[thread % 2] == bags[1 - thread % 2]);
    });
    EXPECT_EQ(unequal, 0U);
}

TEST(SharedLists, AreMergedInEitherOrder) {
    EntityListBag bags[2];
    RunThreads(4, [&](unsigned int thread) {
        Random random(thread);
        for (unsigned int step = 0; step < 1500; ++step) {
            EntityListBag &mine = bags[thread % 2], &yours = bags[random.Below(2)];
            EntityFullType const type = MakeType(random.Below(s_sharedTypes));
            mine.SetList(EntityList(type, {random.Below(50), 50 + random.Below(50)}, {}));
            EXPECT_LE((mine += yours).GetIdListCount(type), 100U);
            EXPECT_TRUE((mine -= yours).IsValid());
        }
    });
}

TEST(SharedLists, AreWrittenEachByItsOwnThreadWhileOthersAddTypes) {
    EntityListBag bag;
    RunThreads(4, [&](unsigned int thread) {
        EntityFullType const own("OWN", thread);
        bag.SetList(EntityList(own, {}, {}));
        for (unsigned int i = 0; i < 2000; ++i) {
            bag.SetListId(own, i, i);
            bag.SetListEntity(Entity(own, i + 1), own, i);
            bag.SetList(EntityList(EntityFullType("NEW", thread * 2000 + i), {i}, {}));
            bag.GetList(EntityFullType("ABSENT")).SetId(0, i, 0);
        }
    });
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), 4U + 4U * 2000U);
    for (unsigned int thread = 0; thread < 4; ++thread) {
        EntityList const& list = bag.GetList(EntityFullType("OWN", thread));
        ASSERT_EQ(list.GetIdListCount(), 2000U);
        for (unsigned int i = 0; i < 2000; ++i)
            ASSERT_EQ(list.GetList()[i], i + 1);
    }
}

} // namespace
