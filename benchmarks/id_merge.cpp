// Ids added to and removed from the list of a bag, beside the same work written over a hash set of others.

#include "descriptor/EntityListBag.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <unordered_set>
#include <vector>

#ifdef QZ_HAVE_ABSL
#    include <absl/container/flat_hash_set.h>
#endif
#if __has_include(<boost/unordered/unordered_flat_set.hpp>)
#    include <boost/unordered/unordered_flat_set.hpp>
#    define QZ_HAVE_BOOST_FLAT_SET
#endif

namespace {

using qzDescriptor::EntityFullType;
using qzDescriptor::EntityList;
using qzDescriptor::EntityListBag;

using Ids = std::vector<unsigned int>;

/// Two lists of the same length, of which each holds half of the other's ids.
struct Lists {
    Ids ids;
    Ids other;
};

Lists MakeDense(unsigned int count, std::mt19937&) {
    Lists lists{Ids(count), Ids(count)};
    std::iota(lists.ids.begin(), lists.ids.end(), 1u);
    std::iota(lists.other.begin(), lists.other.end(), count / 2 + 1);
    return lists;
}

Lists MakeShuffled(unsigned int count, std::mt19937& random) {
    Lists lists = MakeDense(count, random);
    std::ranges::shuffle(lists.ids, random);
    std::ranges::shuffle(lists.other, random);
    return lists;
}

Lists MakeSparse(unsigned int count, std::mt19937& random) {
    Lists lists = MakeShuffled(count, random);
    Ids scattered(2 * count);
    std::ranges::generate(scattered, std::ref(random));
    for (Ids* const ids : {&lists.ids, &lists.other})
        for (unsigned int& id : *ids)
            id = scattered[id];
    return lists;
}

template <class Set>
struct Peer {
    using Target = Ids;

    static Ids Make(Ids const& ids) { return ids; }
    static Ids const& GetIds(Ids const& target) { return target; }

    static void Add(Ids& ids, Ids const& other) {
        Set known;
        known.reserve(ids.size() + other.size());
        known.insert(ids.begin(), ids.end());
        for (unsigned int const id : other)
            if (known.insert(id).second)
                ids.push_back(id);
    }

    static void Remove(Ids& ids, Ids const& other) {
        Set removed;
        removed.reserve(other.size());
        removed.insert(other.begin(), other.end());
        std::erase_if(ids, [&](unsigned int id) { return removed.contains(id); });
    }
};

struct Ours {
    using Target = EntityListBag;

    static EntityListBag Make(Ids const& ids) {
        EntityListBag bag;
        bag.SetList(EntityList(EntityFullType(1), ids, {}));
        return bag;
    }
    static Ids GetIds(EntityListBag const& bag) {
        EntityList const& list = bag.GetList(EntityFullType(1));
        return Ids(list.begin(), list.end());
    }

    static void Add(EntityListBag& bag, EntityListBag const& other) { bag += other; }
    static void Remove(EntityListBag& bag, EntityListBag const& other) { bag -= other; }
};

template <class Who>
using Change = void (*)(typename Who::Target&, typename Who::Target const&);

using Results = std::vector<Ids>;

/// Every round changes a fresh copy, which is made outside the measured time, of other lists than the round
/// before: a processor learns the branches of one short list by heart.
template <class Who>
void Measure(benchmark::State& state, std::vector<Lists> const& rounds, Results const& expected,
             Change<Who> change) {
    std::vector<typename Who::Target> originals;
    std::vector<typename Who::Target> others;
    for (Lists const& lists : rounds) {
        originals.push_back(Who::Make(lists.ids));
        others.push_back(Who::Make(lists.other));
        typename Who::Target target = originals.back();
        change(target, others.back());
        if (Who::GetIds(target) != expected[originals.size() - 1]) {
            state.SkipWithError("the result differs from that of std::unordered_set");
            return;
        }
    }
    std::size_t round = 0;
    for ([[maybe_unused]] auto const _ : state) {
        round = (round + 1) % rounds.size();
        typename Who::Target target = originals[round];
        auto const start = std::chrono::steady_clock::now();
        change(target, others[round]);
        benchmark::ClobberMemory();
        std::chrono::duration<double> const time = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(time.count());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rounds[0].ids.size()));
}

struct Case {
    std::string pattern;
    std::vector<Lists> rounds;
    Results added;
    Results remaining;
};

using MakeLists = Lists (*)(unsigned int, std::mt19937&);

Case MakeCase(std::string const& pattern, MakeLists makeLists, unsigned int count) {
    constexpr unsigned int s_idsOfAllRounds = 500'000;
    using Reference = Peer<std::unordered_set<unsigned int>>;
    Case made{pattern, {}, {}, {}};
    std::mt19937 random(count);
    for (unsigned int ids = 0; ids < s_idsOfAllRounds; ids += count) {
        Lists const& lists = made.rounds.emplace_back(makeLists(count, random));
        Reference::Add(made.added.emplace_back(lists.ids), lists.other);
        Reference::Remove(made.remaining.emplace_back(lists.ids), lists.other);
    }
    return made;
}

template <class Who>
void Register(std::string const& who, Case const& each) {
    std::string const place = each.pattern + "/" + who + "/" + std::to_string(each.rounds[0].ids.size());
    auto const add = [&](benchmark::State& state) {
        Measure<Who>(state, each.rounds, each.added, &Who::Add);
    };
    auto const remove = [&](benchmark::State& state) {
        Measure<Who>(state, each.rounds, each.remaining, &Who::Remove);
    };
    benchmark::RegisterBenchmark(("add_ids/" + place).c_str(), add)->UseManualTime();
    benchmark::RegisterBenchmark(("remove_ids/" + place).c_str(), remove)->UseManualTime();
}

} // namespace

int RegisterAll() {
    static std::vector<Case> cases; // outlives the registered functions
    for (unsigned int const count : {1'000u, 10'000u, 100'000u, 1'000'000u}) {
        cases.push_back(MakeCase("dense", &MakeDense, count));
        cases.push_back(MakeCase("sparse", &MakeSparse, count));
        cases.push_back(MakeCase("shuffled", &MakeShuffled, count));
    }
    for (Case const& each : cases) {
        Register<Ours>("ours", each);
#ifdef QZ_HAVE_ABSL
        Register<Peer<absl::flat_hash_set<unsigned int>>>("absl", each);
#endif
#ifdef QZ_HAVE_BOOST_FLAT_SET
        Register<Peer<boost::unordered_flat_set<unsigned int>>>("boost", each);
#endif
        Register<Peer<std::unordered_set<unsigned int>>>("std", each);
    }
    return 0;
}

static int const s_registered = RegisterAll();
