// merlu_bench: what the program costs, in times of what plain SQLite needs for the same rows.
//
// A figure that misses its aim is marked and fails nothing: it depends on the machine of the day.
#include <QGuiApplication>

#include <cstdio>

#include "base/fault.h"
#include "measures.h"

namespace {

int Run() {
  using namespace merlu::bench;
  const Workshop shop;
  const long peak = PeakKilobytesOfStart(shop.full);
  Register(StartMeasures(shop));
  Register(ReadMeasures(shop));
  Register(MonthMeasures(shop));
  Register(QCMeasures(shop));
  Register(AnnualMeasures(shop));
  Register(ExchangeMeasures(shop));
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
  benchmark::Initialize(&count, words);
  if (benchmark::ReportUnrecognizedArguments(count, words)) return 2;
  try {
    return Run();
  } catch (const merlu::Fault& fault) {
    std::fprintf(stderr, "%s\n", fault.description.c_str());
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}
