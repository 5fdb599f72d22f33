// One emission to some listeners.

#include "signal_peers.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

template <class Emitter>
void Emit(benchmark::State& state) {
    Emitter emitter(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        emitter.Emit(1);
        benchmark::ClobberMemory();
    }
    if (emitter.Sum() < state.iterations())
        state.SkipWithError("not every emission arrived");
}

template <class Emitter>
void Register(std::string const& who) {
    benchmark::RegisterBenchmark(("emit/" + who).c_str(), Emit<Emitter>)->Arg(1)->Arg(10)->Arg(100);
}

int RegisterAll() {
    Register<OursEmitter>("ours");
    Register<BoostEmitter>("boost");
#ifdef QZ_HAVE_SIGC
    Register<SigcEmitter>("sigc");
#endif
#ifdef QZ_HAVE_QT
    Register<QtEmitter>("qt");
#endif
    return 0;
}

int const s_registered = RegisterAll();

} // namespace
