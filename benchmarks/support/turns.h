#pragma once

#include <benchmark/benchmark.h>

/// Measures a benchmark many times, in turns with the others of the program that are measured so: a machine
/// that is slow for a while is so for ours and for its peers. The least time counts, since whatever disturbs
/// a measurement adds to it. To be called before main.
benchmark::internal::Benchmark* MeasureInTurns(benchmark::internal::Benchmark* benchmark);
