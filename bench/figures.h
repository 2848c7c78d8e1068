// Measuring the program beside plain SQLite: pairs of times, taken in turn in the same run, and the table of
// their medians at the end.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace merlu::bench {

struct Pair {
  double ours = 0;   // seconds
  double plain = 0;  // 0: nothing to compare with
};

struct Measure {
  std::string name;
  double aim = 0;  // the most that ours may cost, in times of the plain side; 0 for no aim
  int repetitions = 5;
  std::function<Pair()> once;
};

// Seconds that the work takes.
template <typename Work>
double Seconds(Work&& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// The medians of ours at 1/16, 1/4 and the whole of the size, and the power of the size by which they grow.
void PrintGrowth(const std::vector<Measure>& sixteenth, const std::vector<Measure>& quarter,
                 const std::vector<Measure>& whole);

void Register(const std::vector<Measure>& measures);

// The usual report, and the table behind it.
class TableReporter : public benchmark::ConsoleReporter {
 public:
  TableReporter() : ConsoleReporter(OO_None) {}
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  struct Row {
    std::string name;
    double ours_ms, plain_ms, aim;
  };
  std::vector<Row> rows_;
};

}  // namespace merlu::bench
