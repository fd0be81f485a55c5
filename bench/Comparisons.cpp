#include "bench/Comparisons.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace brinmoor {
namespace {

constexpr std::string_view wallClockSuffix = "/real_time";

/// Passes everything on and keeps the medians.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    MedianReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.aggregate_name == "median" || run.repetitions == 1)
                keep(run);
    }

    /// In milliseconds; 0 for a benchmark that did not run.
    [[nodiscard]] double median(const std::string& name) const {
        const auto found = medians_.find(name);
        return found == medians_.end() ? 0 : found->second;
    }

private:
    void keep(const Run& run) {
        Run whole = run;
        whole.aggregate_name.clear();
        std::string name = whole.run_name.str();
        const bool byWallClock = name.ends_with(wallClockSuffix);
        if (byWallClock)
            name.erase(name.size() - wallClockSuffix.size());
        const double time = byWallClock ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
        medians_[name] = time / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1000;
    }

    std::map<std::string, double> medians_;
};

void print(const Comparison& comparison, double own, double other) {
    const bool isFaster = own < other;
    std::printf("| %s | %.3g ms | %s | %.3g ms | %.2f × %s |\n", comparison.work.c_str(), own,
                comparison.beside.c_str(), other, isFaster ? other / own : own / other,
                isFaster ? "faster" : "its time");
}

} // namespace

int runComparisons(int argc, char** argv, const std::vector<Comparison>& comparisons) {
    std::vector<std::string> defaults{
        argv[0], "--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true",
        "--benchmark_report_aggregates_only=true", "--benchmark_min_time=0.1"};
    std::vector<char*> arguments;
    for (std::string& argument : defaults)
        arguments.push_back(argument.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::puts(
        "\n| Work | Brinmoor | beside | takes | Brinmoor is |\n| --- | --- | --- | --- | --- |");
    for (const Comparison& comparison : comparisons) {
        const double own = reporter.median(comparison.name);
        const double other = reporter.median(comparison.other);
        if (own > 0 && other > 0)
            print(comparison, own, other);
    }
    return 0;
}

} // namespace brinmoor
