#include "figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace merlu::bench {
namespace {

clockid_t counted = CLOCK_MONOTONIC;

double MedianMs(std::vector<double> seconds) {
  if (seconds.empty()) return 0;
  const auto middle = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2);
  std::nth_element(seconds.begin(), middle, seconds.end());
  return *middle * 1000;
}

// The ratio of one pair that comes before all others; 0 without a plain side.
template <typename Before>
double Extreme(const std::vector<double>& ours, const std::vector<double>& plain, Before before) {
  double extreme = 0;
  for (std::size_t i = 0; i < ours.size(); ++i) {
    if (plain[i] <= 0) continue;
    const double ratio = ours[i] / plain[i];
    if (extreme == 0 || before(ratio, extreme)) extreme = ratio;
  }
  return extreme;
}

void RunMeasure(benchmark::State& state, const Measure& measure) {
  std::vector<double> ours, plain;
  try {
    for (auto step : state) {
      (void)step;
      const Pair pair = measure.once();
      state.SetIterationTime(pair.ours);
      ours.push_back(pair.ours);
      plain.push_back(pair.plain);
    }
  } catch (const std::exception& failure) {
    return state.SkipWithError(failure.what());
  }
  state.counters["ours_ms"] = MedianMs(ours);
  state.counters["plain_ms"] = MedianMs(plain);
  state.counters["lowest"] = Extreme(ours, plain, [](double a, double b) { return a < b; });
  state.counters["highest"] = Extreme(ours, plain, [](double a, double b) { return a > b; });
  state.counters["aim"] = measure.aim;
}

}  // namespace

void CountProcessorTime() {
  counted = CLOCK_PROCESS_CPUTIME_ID;
}

double Now() {
  timespec now{};
  ::clock_gettime(counted, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void PrintGrowth(const std::vector<Measure>& sixteenth, const std::vector<Measure>& quarter,
                 const std::vector<Measure>& whole) {
  constexpr int kRounds = 5;
  const auto median = [](const Measure& measure) {
    std::vector<double> seconds;
    for (int i = 0; i < kRounds; ++i) seconds.push_back(measure.once().ours);
    return MedianMs(seconds);
  };
  std::printf("%-52s %10s %10s %10s %9s\n", "ms at a share of the size", "1/16", "1/4", "1", "exponent");
  for (std::size_t i = 0; i < whole.size(); ++i) {
    const double small = median(sixteenth[i]), middle = median(quarter[i]), large = median(whole[i]);
    std::printf("%-52s %10.2f %10.2f %10.2f %9.2f\n", whole[i].name.c_str(), small, middle, large,
                std::log(large / small) / std::log(16.0));
  }
}

void Register(const std::vector<Measure>& measures) {
  for (const Measure& measure : measures)
    benchmark::RegisterBenchmark(measure.name.c_str(),
                                 [measure](benchmark::State& state) { RunMeasure(state, measure); })
        ->UseManualTime()
        ->Iterations(measure.repetitions)
        ->Unit(benchmark::kMillisecond);
}

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    const auto figure = [&](const char* name) {
      const auto found = run.counters.find(name);
      return found == run.counters.end() ? 0.0 : static_cast<double>(found->second);
    };
    if (!run.error_occurred)
      rows_.push_back({run.run_name.function_name, figure("ours_ms"), figure("plain_ms"), figure("lowest"),
                       figure("highest"), figure("aim")});
  }
}

void TableReporter::Finalize() {
  std::printf("\n%-52s %10s %10s %7s %13s %7s\n", "medians", "ours ms", "plain ms", "ratio", "spread", "aim");
  for (const Row& row : rows_) {
    std::printf("%-52s %10.2f", row.name.c_str(), row.ours_ms);
    if (row.plain_ms > 0) {
      std::printf(" %10.2f %7.2f %6.2f %6.2f", row.plain_ms, row.ours_ms / row.plain_ms, row.lowest, row.highest);
      if (row.aim > 0) std::printf(" %7.2g%s", row.aim, row.ours_ms > row.aim * row.plain_ms ? "  missed" : "");
    }
    std::printf("\n");
  }
}

}  // namespace merlu::bench
