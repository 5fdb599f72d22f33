#pragma once

/// Lets the repetitions of all benchmarks of a program take turns in a random order, instead of one benchmark
/// after the other: a machine that is slow for a while is so for ours and for its peers. To be called before
/// main, by programs whose benchmarks repeat.
bool TakeTurns();
