// merlu_bench: what the program costs, in times of what plain SQLite needs for the same rows.
//
// merlu_bench [--growth | --processor-time] [options of the benchmark library]
//
// A figure that misses its aim is marked and fails nothing: it depends on the machine of the day.
#include <QGuiApplication>

#include <cstdio>
#include <string>

#include "base/fault.h"
#include "measures.h"

namespace {

using namespace merlu::bench;

// What grows with the inventory.
std::vector<Measure> GrowingMeasures(const Workshop& shop) {
  std::vector<Measure> all = ReadMeasures(shop);
  for (const auto& more : {MonthMeasures(shop), QCMeasures(shop), AnnualMeasures(shop), ExchangeMeasures(shop)})
    all.insert(all.end(), more.begin(), more.end());
  std::erase_if(all, [](const Measure& measure) { return measure.name.starts_with("PDF"); });
  return all;
}

int RunGrowth() {
  const Workshop sixteenth(1.0 / 16), quarter(1.0 / 4), whole(1);
  PrintGrowth(GrowingMeasures(sixteenth), GrowingMeasures(quarter), GrowingMeasures(whole));
  return 0;
}

int Run() {
  const Workshop shop;
  const long peak = PeakKilobytesOfStart(shop.full);
  Register(StartMeasures(shop));
  Register(ReadMeasures(shop));
  Register(MonthMeasures(shop));
  Register(QCMeasures(shop));
  Register(AnnualMeasures(shop));
  Register(ExchangeMeasures(shop));
  Register(GridMeasures(shop));
  Register(HistoryMeasures(shop));
  TableReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("peak memory after building the full tree: %.1f MB\n", static_cast<double>(peak) / 1024);
  benchmark::ClearRegisteredBenchmarks();
  return 0;
}

}  // namespace

int main(int count, char** words) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(count, words);
  const bool growth = count == 2 && std::string(words[1]) == "--growth";
  if (growth) count = 1;
  if (count > 1 && std::string(words[1]) == "--processor-time") {
    CountProcessorTime();
    words[1] = words[0];
    --count, ++words;
  }
  benchmark::Initialize(&count, words);
  if (benchmark::ReportUnrecognizedArguments(count, words)) return 2;
  try {
    return growth ? RunGrowth() : Run();
  } catch (const merlu::Fault& fault) {
    std::fprintf(stderr, "%s\n", fault.description.c_str());
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}
