// merlu_steady: 10,000 changes of sheet and 100 runs of QC, which must not make the program grow.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "forms/desk.h"
#include "inventory.h"
#include "quiet_platform.h"
#include "session/session.h"
#include "shell/main_program.h"
#include "shell/sheet_acts.h"
#include "support/temporary_place.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr int kWarmUp = 1000, kChanges = 10000, kRuns = 100;
constexpr long kMostGrowth = 4096;  // KB: what an allocator may keep by chance

long ResidentKilobytes() {
  std::ifstream status("/proc/self/status");
  std::string word;
  long kilobytes = 0;
  while (status >> word)
    if (word == "VmRSS:") status >> kilobytes;
  return kilobytes;
}

void ChangeSheets(Session& s, int count) {
  for (int i = 0; i < count; ++i) {
    const std::size_t nodes = s.tree.nodes.size();
    ClickNode(s, static_cast<int>(static_cast<std::size_t>(i) * 37 % nodes));
    if (i % 500 == 499) act::Click(s.desk, *s.main, "mnuSetEditMode");
  }
}

void RunQC(Session& s, int count) {
  if (!s.InActv()) act::Click(s.desk, *s.main, "mnuSetEditMode");
  for (int i = 0; i < count; ++i) {
    ClickNode(s, s.tree.nodes.front().children.front());
    act::Click(s.desk, *s.main, "cmdQC");
  }
}

int Measure() {
  const TemporaryFolder folder;
  InventoryPlan plan;
  plan.structures = 4;
  plan.equipment = 64;
  plan.months = 6;
  plan.fault_share = 0.3;
  MakeInventory(TemplatePath(), folder.path("inventory.mdb"), plan);
  QuietPlatform platform(folder.path("inventory.mdb"));
  Session s(platform, platform, platform);
  Main(s);
  ChangeSheets(s, kWarmUp);
  RunQC(s, kRuns / 10);
  const long before = ResidentKilobytes();
  ChangeSheets(s, kChanges);
  const long between = ResidentKilobytes();
  RunQC(s, kRuns);
  const long after = ResidentKilobytes();
  std::printf("memory: %ld KB, %ld KB after %d changes of sheet, %ld KB after %d runs of QC\n", before, between,
              kChanges, after, kRuns);
  return after - before > kMostGrowth ? 1 : 0;
}

}  // namespace
}  // namespace merlu::test

int main() {
  merlu::test::UseTemporaryPlace();
  return merlu::test::Measure();
}
