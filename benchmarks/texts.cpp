// Numbers to text and back.

#include "peers.h"

#include <benchmark/benchmark.h>
#include <boost/lexical_cast.hpp>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr double s_number = 0.12345678901234;
constexpr double s_integral = 1234567.0;
char const s_text[] = "0.12345678901234";

void WriteOurs(benchmark::State& state, double number) {
    qzDescriptor::Value const value = Ours::Make(number);
    qzString text;
    for (auto _ : state) {
        value.GetValueAsString(text, nullptr, 0, 0);
        benchmark::DoNotOptimize(text);
    }
}

void WritePrintf(benchmark::State& state, double number) {
    char text[40];
    for (auto _ : state) {
        benchmark::DoNotOptimize(number);
        std::snprintf(text, sizeof text, "%.14g", number);
        benchmark::DoNotOptimize(text);
    }
}

void ReadOurs(benchmark::State& state) {
    qzDescriptor::Value value = Ours::Make(0.0);
    qzString const text = s_text;
    for (auto _ : state) {
        value.SetValueFromString(text, nullptr, 0, 0);
        benchmark::ClobberMemory();
    }
    if (Ours::Read(value) != s_number)
        state.SkipWithError("the number was not read");
}

void ReadStrtod(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(std::strtod(s_text, nullptr));
}

void ReadLexicalCast(benchmark::State& state) {
    qzString const text = s_text;
    for (auto _ : state)
        benchmark::DoNotOptimize(boost::lexical_cast<double>(text));
}

#ifdef QZ_HAVE_QT
void WriteQt(benchmark::State& state, double number) {
    for (auto _ : state) {
        QString text = QString::number(number, 'g', 14);
        benchmark::DoNotOptimize(text);
    }
}

void ReadQt(benchmark::State& state) {
    QString const text = QString::fromLatin1(s_text);
    for (auto _ : state)
        benchmark::DoNotOptimize(text.toDouble());
}
#endif

} // namespace

BENCHMARK_CAPTURE(WriteOurs, , s_number)->Name("write 14 digits/ours");
BENCHMARK_CAPTURE(WritePrintf, , s_number)->Name("write 14 digits/printf");
BENCHMARK_CAPTURE(WriteOurs, , s_integral)->Name("write integral/ours");
BENCHMARK_CAPTURE(WritePrintf, , s_integral)->Name("write integral/printf");
BENCHMARK(ReadOurs)->Name("read double/ours");
BENCHMARK(ReadStrtod)->Name("read double/strtod");
BENCHMARK(ReadLexicalCast)->Name("read double/lexical_cast");
#ifdef QZ_HAVE_QT
BENCHMARK_CAPTURE(WriteQt, , s_number)->Name("write 14 digits/qt");
BENCHMARK_CAPTURE(WriteQt, , s_integral)->Name("write integral/qt");
BENCHMARK(ReadQt)->Name("read double/qt");
#endif
