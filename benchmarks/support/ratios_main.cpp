// Runs the benchmarks of a program and then sets ours beside each peer. A benchmark's name is made of parts
// between slashes, one of which says whose it is: "ours" or a peer's name.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Measured {
    std::vector<std::string> parts;
    double time;
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
            if (single || run.aggregate_name == "median")
                m_measured.push_back({Split(run.run_name.str()), run.GetAdjustedRealTime()});
        }
    }

    void PrintRatios() const {
        std::printf("\n%-44s %12s %12s  %s\n", "ours beside", "ours", "peer", "ours / peer");
        for (Measured const& ours : m_measured) {
            auto const place = std::ranges::find(ours.parts, "ours");
            if (place != ours.parts.end())
                PrintPeers(ours, static_cast<std::size_t>(place - ours.parts.begin()));
        }
    }

private:
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

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    // A process with one thread skips the locked instructions; the applications that we measure for have
    // more.
    std::thread second([] {});
    second.join();
    RatioReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
}
