#pragma once

#include <benchmark/benchmark.h>

// What is measured of every peer that keeps a number from 0 to 10, both excluded, which is 1 at first.

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
