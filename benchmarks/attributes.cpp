// A bounded number of an object, written by index or by name: a write that its bounds accept, and one that
// they refuse. And objects as such: what one costs in time and memory.

#include "attribute_peers.h"
#include "bounded_write.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

using namespace qzDescriptor;

namespace {

template <class Peer>
void Register(std::string const& how, std::string const& who) {
    benchmark::RegisterBenchmark(("attribute accepted " + how + '/' + who).c_str(), Accept<Peer>);
    benchmark::RegisterBenchmark(("attribute refused " + how + '/' + who).c_str(), Refuse<Peer>);
}

/// A hundred thousand objects, each with so many of its ten numbers set.
void MakeObjects(benchmark::State& state) {
    auto const setCount = static_cast<unsigned int>(state.range(0));
    Members* const members = Members::Create("Bar");
    Definition definition;
    definition.SetValueBasicType(BT_DOUBLE);
    for (int k = 0; k < 10; ++k)
        members->InsertVariable(Identifier("a" + std::to_string(k)), definition, Identifier(), false,
                                Members::s_none, "", {});
    constexpr std::size_t objectCount = 100000;
    std::vector<Content*> objects(objectCount);
    std::size_t bytes = 0;
    for (auto _ : state) {
        for (Content*& object : objects) {
            object = Content::Create(members);
            for (unsigned int index = 0; index < setCount; ++index)
                object->TrySetValue(index, 2.5);
        }
        bytes = objects.front()->GetMemoryUsage();
        for (Content* const object : objects)
            object->Destroy();
    }
    members->Destroy();
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * objectCount));
    state.counters["bytes"] = static_cast<double>(bytes);
}

int RegisterAll() {
    Register<OursByIndex>("by index", "ours");
    Register<OursByName>("by name", "ours");
    Register<OursByIndexExplained>("by index with a status", "ours");
#ifdef QZ_HAVE_QT
    Register<QtBounded>("by index", "qt");
    Register<QtByName>("by name", "qt");
#endif
#ifdef QZ_HAVE_RTTR
    Register<RttrBounded>("by index", "rttr");
    Register<RttrByName>("by name", "rttr");
#endif
#ifdef QZ_HAVE_GLIB
    Register<GLibBounded>("by index", "glib");
    benchmark::RegisterBenchmark("attribute accepted by name/glib", Accept<GLibByName>);
#endif
    benchmark::RegisterBenchmark("make and end an object/ours", MakeObjects)->Arg(0)->Arg(2)->Arg(10);
    return 0;
}

int const s_registered = RegisterAll();

} // namespace
