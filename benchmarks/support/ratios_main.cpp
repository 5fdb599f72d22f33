// Runs the benchmarks of a program and then sets ours beside each peer. A benchmark's name is made of parts
// between slashes, one of which says whose it is: "ours" or a peer's name. Of one that is measured in turns
// the least time counts, of one that is merely repeated the median.

#include "support/turns.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

bool s_takesTurns = false;
constexpr char const* s_least = "least";

struct Measured {
    std::vector<std::string> parts;
    double time;
    std::int64_t family; ///< of benchmarks, in the order of their registration
    std::int64_t member;
};

std::vector<std::string> Split(std::string const& name) {
    std::vector<std::string> parts(1);
    for (char const c : name) {
        if (c == '/')
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

std::string Join(std::vector<std::string> const& parts, std::size_t without) {
    std::string text;
    for (std::size_t k = 0; k < parts.size(); ++k) {
        if (k != without)
            text += (text.empty() ? "" : "/") + parts[k];
    }
    return text;
}

class RatioReporter : public benchmark::ConsoleReporter {
public:
    using ConsoleReporter::ConsoleReporter;

    void ReportRuns(std::vector<Run> const& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (Run const& run : runs) {
            bool const single = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
            if (single || run.aggregate_name == (s_takesTurns ? s_least : "median"))
                m_measured.push_back({P_PartsOf(run.run_name), run.GetAdjustedRealTime(), run.family_index,
                                      run.per_family_instance_index});
        }
    }

    /// In the order of registration, in whatever order benchmarks have ended.
    void PrintRatios() {
        std::ranges::sort(m_measured, {},
                          [](Measured const& each) { return std::pair(each.family, each.member); });
        std::printf("\n%-44s %12s %12s  %s\n", "ours beside", "ours", "peer", "ours / peer");
        for (Measured const& ours : m_measured) {
            auto const place = std::ranges::find(ours.parts, "ours");
            if (place != ours.parts.end())
                PrintPeers(ours, static_cast<std::size_t>(place - ours.parts.begin()));
        }
    }

private:
    static std::vector<std::string> P_PartsOf(benchmark::BenchmarkName name) {
        name.repetitions.clear(); // how it is measured, which says nothing of what is
        name.min_time.clear();
        return Split(name.str());
    }

    void PrintPeers(Measured const& ours, std::size_t place) const {
        std::string const subject = Join(ours.parts, place);
        for (Measured const& peer : m_measured) {
            if (&peer == &ours || peer.parts.size() != ours.parts.size() ||
                Join(peer.parts, place) != subject)
                continue;
            std::printf("%-44s %12.4g %12.4g  %.2f\n", (subject + " : " + peer.parts[place]).c_str(),
                        ours.time, peer.time, ours.time / peer.time);
        }
    }

    std::vector<Measured> m_measured;
};

} // namespace

benchmark::internal::Benchmark* MeasureInTurns(benchmark::internal::Benchmark* benchmark) {
    s_takesTurns = true;
    auto const least = [](std::vector<double> const& times) { return *std::ranges::min_element(times); };
    return benchmark->MinTime(0.05)
        ->Repetitions(25)
        ->ComputeStatistics(s_least, least)
        ->ReportAggregatesOnly();
}

int main(int argc, char** argv) {
    std::vector<char*> arguments(argv, argv + argc);
    std::string inTurns = "--benchmark_enable_random_interleaving=true";
    if (s_takesTurns)
        arguments.insert(arguments.begin() + 1, inTurns.data());
    argc = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&argc, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(argc, arguments.data()))
        return 1;
    // A process with one thread skips the locked instructions; the applications that we measure for have
    // more.
    std::thread second([] {});
    second.join();
    RatioReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
}
