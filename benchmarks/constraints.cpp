// A bounded number: a write that its bounds accept, and one that they refuse. Ours tests by the attribute's
// constraint and then writes the attribute's value; the peers write a property that checks its bounds.

#include "bounded_write.h"
#include "constraint_peers.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

void RefuseAndExplain(benchmark::State& state) {
    OursBounded peer;
    for (auto _ : state) {
        peer.Write(12.0);
        qzString message = peer.Explain();
        benchmark::DoNotOptimize(message);
    }
}

void TestAName(benchmark::State& state) {
    using qzDescriptor::Allowables;
    Allowables names(Allowables::List<qzString>(), 0);
    qzString const last = "keyword 15";
    for (int k = 0; k < 16; ++k)
        names.AddToList("keyword " + std::to_string(k), qzString());
    for (auto _ : state) {
        int result = names.Test(last);
        benchmark::DoNotOptimize(result);
    }
}

template <class Peer>
void Register(std::string const& who) {
    benchmark::RegisterBenchmark(("bounded write accepted/" + who).c_str(), Accept<Peer>);
    benchmark::RegisterBenchmark(("bounded write refused/" + who).c_str(), Refuse<Peer>);
}

int RegisterAll() {
    Register<OursBounded>("ours");
#ifdef QZ_HAVE_QT
    Register<QtBounded>("qt");
#endif
#ifdef QZ_HAVE_RTTR
    Register<RttrBounded>("rttr");
#endif
#ifdef QZ_HAVE_GLIB
    Register<GLibBounded>("glib");
#endif
    benchmark::RegisterBenchmark("bounded write refused and explained/ours", RefuseAndExplain);
    benchmark::RegisterBenchmark("name in a list of 16/ours", TestAName);
    return 0;
}

int const s_registered = RegisterAll();

} // namespace
