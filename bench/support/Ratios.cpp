#include "bench/support/Ratios.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <utility>

#include "bench/support/Median.h"

namespace cardpanels::bench {
namespace {

/// Shows the medians and such, keeps each run's processor time: others may use the machine too.
class Collector final : public benchmark::ConsoleReporter {
 public:
  Collector() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    std::vector<Run> aggregates;
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Aggregate) {
        aggregates.push_back(run);
      } else {
        const bool isManual = run.run_name.time_type == "manual_time";
        times_[run.run_name.function_name].push_back(isManual ? run.GetAdjustedRealTime()
                                                              : run.GetAdjustedCPUTime());
      }
    }
    ConsoleReporter::ReportRuns(aggregates);
  }

  /// The median time of a benchmark's runs, the processor's unless it measures by itself; 0 when it
  /// did not run.
  double medianOf(const std::string& name) { return bench::median(times_[name]); }

 private:
  std::map<std::string, std::vector<double>> times_;
};

}  // namespace

int runWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string defaults[] = {"--benchmark_repetitions=15",
                            "--benchmark_enable_random_interleaving=true",
                            "--benchmark_min_time=0.05"};
  for (std::size_t i = 0; i < std::size(defaults); ++i) {
    arguments.insert(arguments.begin() + 1 + static_cast<std::ptrdiff_t>(i), defaults[i].data());
  }
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
  std::puts("");
  for (const auto& [name, baseline, atMost] : ratios) {
    const double base = collector.medianOf(baseline);
    if (base <= 0) continue;
    std::printf("ratio %s / %s: %.3f (at most %.2f)\n", name.c_str(), baseline.c_str(),
                collector.medianOf(name) / base, atMost);
  }
  return 0;
}

}  // namespace cardpanels::bench
