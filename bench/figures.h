// Measuring the program beside plain SQLite: pairs of times, taken in turn in the same run, and the table of
// their medians at the end.
#pragma once

#include <benchmark/benchmark.h>

#include <ctime>
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
  double aim = 0;  // the most that ours may take, in multiples of the plain side; 0 for no aim
  int repetitions = 5;
  std::function<Pair()> once;
};

// Counts the processor's time from now on, not the clock's: on a machine that others use at the same time.
void CountProcessorTime();
// Seconds by the clock that is counted.
double Now();

// Seconds that the work takes.
template <typename Work>
double Seconds(Work&& work) {
  const double begin = Now();
  work();
  return Now() - begin;
}

// Times of both sides. Each goes first every other time: what the first one leaves in the machine's memory helps the
// second.
class InTurn {
 public:
  template <typename Ours, typename Plain>
  Pair operator()(Ours&& ours, Plain&& plain) {
    Pair pair;
    ours_first_ = !ours_first_;
    if (ours_first_) pair.ours = ours();
    pair.plain = plain();
    if (!ours_first_) pair.ours = ours();
    return pair;
  }

 private:
  bool ours_first_ = false;
};

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
    double ours_ms, plain_ms, lowest, highest, aim;
  };
  std::vector<Row> rows_;
};

}  // namespace merlu::bench
