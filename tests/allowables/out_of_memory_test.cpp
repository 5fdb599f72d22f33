#include "descriptor/qzdescriptor.h"
#include "support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <functional>

using namespace qzDescriptor;

namespace {

qzString const s_long(100, 'x');

Allowables Names() { return Allowables(Allowables::List<qzString>{{s_long, s_long}, {"b", s_long}}, 1); }

// Nothing throws: what finds no memory fails and leaves everything as it was.
TEST(AllowablesWithoutMemory, StayAsTheyAre) {
    using Change = std::function<bool(Allowables&)>;
    qzString const longer = s_long + "y";
    Allowables const other = Allowables(Names()).AddToList(longer, s_long);
    qzStlVector<qzString> names;
    unsigned int index = 77;
    Change const changes[] = {
        [](Allowables& a) { return a.AddToList(s_long, s_long).GetListCount() == 3; },
        [&](Allowables& a) { return a.SetListItemName(1, longer); },
        [&](Allowables& a) { return a.GetNameList(names, index); },
        [&](Allowables& a) { return a.Copy(other, true, true); },
    };
    for (Change const& change : changes) {
        unsigned int n = 1;
        for (bool failed = true; failed; ++n) {
            Allowables allowables = Names();
            Allowables const before(allowables);
            bool isDone = false;
            names.assign(1, "kept");
            failed = FailsAtAllocation(n, [&] { isDone = change(allowables); });
            EXPECT_FALSE(failed); // nothing was thrown
            if (!isDone) {
                EXPECT_EQ(allowables, before);
                EXPECT_EQ(names.size(), 1u);
                failed = true;
            }
            ASSERT_LT(n, 100u);
        }
        EXPECT_GT(n, 2u); // something was refused on the way
    }
}

TEST(AllowablesWithoutMemory, AreNull) {
    unsigned int refused = 0;
    for (unsigned int n = 1; n < 20; ++n) {
        Allowables made, read;
        FailsAtAllocation(n, [&] { made = Allowables(Allowables::List<qzString>{{s_long, s_long}}, 0); });
        Allowables const source = Names();
        FailsAtAllocation(n, [&] { read = Allowables(source); });
        EXPECT_TRUE(!read.IsValid() || read == source);
        refused += read.IsValid() ? 0 : 1;
    }
    EXPECT_GT(refused, 0u);
}

} // namespace
