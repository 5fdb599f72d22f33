// Finding a metaclass by its name and an attribute by its name or handle; registering a whole model.

#include "metaclass_peers.h"
#include "support/turns.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#ifdef __GLIBC__
#    include <malloc.h>
#endif

using namespace qzDescriptor;

namespace {

// --- a metaclass among many -----------------------------------------------------------------------------

std::vector<std::string> ShuffledNames(unsigned int count) {
    std::vector<std::string> names;
    for (unsigned int k = 0; k < count; ++k)
        names.push_back("Metaclass" + std::to_string(k));
    std::ranges::shuffle(names, std::mt19937(1));
    return names;
}

/// Asks for a thousand of the names in turn, so that it is the look-up that is measured and not the list.
void FindAmong(benchmark::State& state, std::vector<std::string> const& names, auto const& find) {
    std::size_t const asked = std::min<std::size_t>(names.size(), 1000);
    std::size_t next = 0;
    for (auto _ : state) {
        auto found = find(names[next]);
        benchmark::DoNotOptimize(found);
        next = next + 1 == asked ? 0 : next + 1;
        if (!found) {
            state.SkipWithError("a metaclass was not found");
            break;
        }
    }
}

void FindMetaclass(benchmark::State& state) {
    auto const names = ShuffledNames(static_cast<unsigned int>(state.range(0)));
    Registry registry;
    for (std::string const& name : names)
        registry.Insert(name, Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    FindAmong(state, names, [&](std::string const& name) { return registry.FindHandle(name); });
}

void FindInMap(benchmark::State& state) {
    auto const names = ShuffledNames(static_cast<unsigned int>(state.range(0)));
    std::unordered_map<std::string, unsigned int> map;
    for (std::string const& name : names)
        map.emplace(name, static_cast<unsigned int>(map.size()) + 1);
    FindAmong(state, names, [&](std::string const& name) { return map.find(name)->second; });
}

#ifdef QZ_HAVE_GLIB
void FindGType(benchmark::State& state) {
    auto const names = ShuffledNames(static_cast<unsigned int>(state.range(0)));
    for (std::string const& name : names) {
        if (g_type_from_name(name.c_str()) == 0)
            g_type_register_static_simple(G_TYPE_OBJECT, name.c_str(), sizeof(GObjectClass), nullptr,
                                          sizeof(GObject), nullptr, static_cast<GTypeFlags>(0));
    }
    FindAmong(state, names, [](std::string const& name) { return g_type_from_name(name.c_str()); });
}
#endif

// --- an attribute ---------------------------------------------------------------------------------------

template <class Peer>
void FindAttribute(benchmark::State& state) {
    Peer const peer;
    std::vector<typename Peer::Key> keys;
    for (char const* const name : s_attributes)
        keys.push_back(typename Peer::Key(name));
    std::size_t next = 0;
    for (auto _ : state) {
        bool const isFound = peer.Find(keys[next]);
        next = next + 1 == keys.size() ? 0 : next + 1;
        if (!isFound) {
            state.SkipWithError("an attribute was not found");
            break;
        }
    }
}

template <class Peer>
void GetAttribute(benchmark::State& state) {
    Peer const peer;
    unsigned int next = 0;
    for (auto _ : state) {
        bool const isThere = peer.Get(next);
        next = next + 1 == std::size(s_attributes) ? 0 : next + 1;
        if (!isThere) {
            state.SkipWithError("there is no such attribute");
            break;
        }
    }
}

template <class Peer>
void Register(std::string const& who) {
    MeasureInTurns(
        benchmark::RegisterBenchmark(("find an attribute by name/" + who).c_str(), FindAttribute<Peer>));
    if constexpr (requires(Peer const& peer) { peer.Get(0); })
        benchmark::RegisterBenchmark(("get an attribute by handle/" + who).c_str(), GetAttribute<Peer>);
}

// --- a whole model --------------------------------------------------------------------------------------

double AllocatedMegabytes() {
#ifdef __GLIBC__
    auto const info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
#else
    return 0;
#endif
}

Definition Thickness() {
    return Definition(
        "Thickness", BT_DOUBLE, CT_SCALAR, 0, Allowables(BoundT<double>(0.0, BoundT<double>::Greater), 1.0),
        Definition::SOURCE_STORED, Definition::SPECIFICATION_REQUIRED, true, true, "Thickness of the shell",
        "help/shell#thickness", UnitsDimensionality("LENGTH", "Length"), Definition::DIFFERENTIATOR_NONE,
        DefinitionUserParams());
}

/// 10,000 metaclasses of 50 attributes, by copies of a definition or by shares of it.
template <class DefinitionArgument>
void RegisterAModel(benchmark::State& state, DefinitionArgument const& definition) {
    std::vector<Identifier> ids;
    for (unsigned int k = 0; k < 50; ++k)
        ids.emplace_back("attribute" + std::to_string(k));
    auto const names = ShuffledNames(10000);
    for (auto _ : state) {
        double const before = AllocatedMegabytes();
        auto registry = std::make_unique<Registry>();
        for (std::string const& name : names) {
            unsigned int const metaclass =
                registry->Insert(name, Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
            for (Identifier const& id : ids)
                registry->InsertAttribute(metaclass, id, definition, Identifier(), {});
        }
        state.PauseTiming();
        state.counters["MB"] = AllocatedMegabytes() - before;
        registry.reset();
        state.ResumeTiming();
    }
}

int RegisterAll() {
    for (int const count : {10, 1000, 10000}) {
        benchmark::RegisterBenchmark("find a metaclass among/ours", FindMetaclass)->Arg(count);
        benchmark::RegisterBenchmark("find a metaclass among/unordered_map", FindInMap)->Arg(count);
#ifdef QZ_HAVE_GLIB
        benchmark::RegisterBenchmark("find a metaclass among/glib", FindGType)->Arg(count);
#endif
    }
    Register<OursBar>("ours");
#ifdef QZ_HAVE_QT
    Register<QtBar>("qt");
#endif
#ifdef QZ_HAVE_RTTR
    Register<RttrBar>("rttr");
#endif
#ifdef QZ_HAVE_GLIB
    Register<GLibBar>("glib");
#endif
    benchmark::RegisterBenchmark("register 10,000 x 50 by copies/ours", RegisterAModel<Definition>,
                                 Thickness())
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("register 10,000 x 50 by shares/ours",
                                 RegisterAModel<std::shared_ptr<Definition const>>,
                                 std::make_shared<Definition const>(Thickness()))
        ->Unit(benchmark::kMillisecond);
    return 0;
}

int const s_registered = RegisterAll();

} // namespace
