// One datum of any type: made, copied, read and written.

#include "peers.h"

#include <benchmark/benchmark.h>
#include <boost/pool/singleton_pool.hpp>

#include <string>

namespace {

template <class Peer, class Data>
void Create(benchmark::State& state, Data const& data) {
    for (auto _ : state) {
        typename Peer::Type value = Peer::Make(data);
        benchmark::DoNotOptimize(value);
    }
}

template <class Peer, class Data>
void Copy(benchmark::State& state, Data const& data) {
    typename Peer::Type const source = Peer::Make(data);
    for (auto _ : state) {
        typename Peer::Type copy(source);
        benchmark::DoNotOptimize(copy);
    }
}

template <class Peer>
void Read(benchmark::State& state) {
    typename Peer::Type value = Peer::Make(2.5);
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        double const number = Peer::Read(value);
        benchmark::DoNotOptimize(number);
    }
}

template <class Peer>
void Write(benchmark::State& state) {
    typename Peer::Type value = Peer::Make(2.5);
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        Peer::Write(value, 7.5);
        benchmark::ClobberMemory();
    }
    if (Peer::Read(value) != 7.5)
        state.SkipWithError("the number was not stored");
}

template <class Peer>
void RegisterScalar(std::string const& who) {
    benchmark::RegisterBenchmark(("create double/" + who).c_str(), Create<Peer, double>, 2.5);
    benchmark::RegisterBenchmark(("read double/" + who).c_str(), Read<Peer>);
    benchmark::RegisterBenchmark(("write double/" + who).c_str(), Write<Peer>);
}

template <class Peer>
void RegisterText(std::string const& who) {
    using Text = typename Peer::Text;
    Text const text("a text of thirty characters...");
    benchmark::RegisterBenchmark(("create text/" + who).c_str(), Create<Peer, Text>, text);
    benchmark::RegisterBenchmark(("copy text/" + who).c_str(), Copy<Peer, Text>, text);
}

template <class Peer>
void RegisterList(std::string const& who) {
    using List = typename Peer::List;
    List const list(16, 2.5);
    benchmark::RegisterBenchmark(("create 16 doubles/" + who).c_str(), Create<Peer, List>, list);
    benchmark::RegisterBenchmark(("copy 16 doubles/" + who).c_str(), Copy<Peer, List>, list);
}

template <class Peer>
void Register(std::string const& who) {
    RegisterScalar<Peer>(who);
    RegisterText<Peer>(who);
    RegisterList<Peer>(who);
}

// Two threads that make and release objects of one size at once.

void CreateOnThreads(benchmark::State& state) {
    for (auto _ : state) {
        qzDescriptor::Value value = Ours::Make(2.5);
        benchmark::DoNotOptimize(value);
    }
}

void CreateInBoostPool(benchmark::State& state) {
    struct Tag {};
    using Pool = boost::singleton_pool<Tag, 24>;
    for (auto _ : state) {
        void* object = Pool::malloc();
        benchmark::DoNotOptimize(object);
        Pool::free(object);
    }
}

} // namespace

int RegisterAll() {
    Register<Ours>("ours");
    Register<StdAny>("std_any");
    Register<BoostAny>("boost_any");
#ifdef QZ_HAVE_QT
    Register<QtVariant>("qt");
#endif
#ifdef QZ_HAVE_RTTR
    Register<Rttr>("rttr");
#endif
#ifdef QZ_HAVE_GLIB
    RegisterScalar<GLib>("glib");
    RegisterText<GLib>("glib");
#endif
    benchmark::RegisterBenchmark("create on two threads/ours", CreateOnThreads)->Threads(2);
    benchmark::RegisterBenchmark("create on two threads/boost_pool", CreateInBoostPool)->Threads(2);
    return 0;
}

static int const s_registered = RegisterAll();
