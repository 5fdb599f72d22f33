// A bounded number: a write that its bounds accept, and one that they refuse. Ours tests by the attribute's
// constraint and then writes the attribute's value; the peers write a property that checks its bounds.

#include "constraint_peers.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

template <class Peer>
void Accept(benchmark::State& state) {
    Peer peer;
    double number = 2.5;
    for (auto _ : state) {
        benchmark::DoNotOptimize(number);
        bool isWritten = peer.Write(number);
        benchmark::DoNotOptimize(isWritten);
    }
    if (peer.Read() != 2.5)
        state.SkipWithError("the number was not stored");
}

template <class Peer>
void Refuse(benchmark::State& state) {
    Peer peer;
    double number = 12.0;
    bool isWritten = false;
    for (auto _ : state) {
        benchmark::DoNotOptimize(number);
        isWritten = peer.Write(number);
        benchmark::DoNotOptimize(isWritten);
    }
    if (isWritten || peer.Read() != 1.0)
        state.SkipWithError("the number was not refused");
}

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
