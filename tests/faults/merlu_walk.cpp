// merlu_walk: a random walk over all screens.
//
//   merlu_walk [--acts N] [--seed S]
//
// Exit status 0 when everything held after every act, 1 when something did not, 2 for wrong usage.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>

#include "faults/walker.h"
#include "inventory.h"
#include "support/temporary_place.h"

namespace merlu::test {
namespace {

constexpr int kActsBetweenFileChecks = 200;

void MakeFiles(const TemporaryFolder& folder) {
  InventoryPlan plan;
  plan.structures = 2;
  plan.equipment = 32;
  plan.months = 2;
  plan.fault_share = 0.2;
  MakeInventory(TemplatePath(), folder.path("inventory.mdb"), plan);
  plan.structures = 1;
  plan.equipment = 16;
  MakeInventory(TemplatePath(), folder.path("other.mdb"), plan);
  Raw(folder.path("other.mdb"), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X'"});
  fs::copy_file(TemplatePath(), folder.path("mr.dbt"));
}

int Walk(long acts, std::uint32_t seed) {
  const TemporaryFolder folder;
  MakeFiles(folder);
  fs::current_path(folder.path());  // odd names of files stay here
  Walker walker(seed, folder.path());
  std::string wrong;
  try {
    walker.Start();
    long checked = 0;
    while (walker.acts() < acts && wrong.empty()) {
      walker.Act();
      wrong = WrongOnScreen(walker.s);
      if (wrong.empty() && !walker.differs().empty()) wrong = "other rows behind the step " + walker.differs();
      if (!wrong.empty() || walker.acts() - checked < kActsBetweenFileChecks) continue;
      checked = walker.acts();
      wrong = WrongInFile(walker.s);
    }
  } catch (const std::exception& failure) {
    wrong = std::string("exception: ") + failure.what();
  }
  fs::current_path("/");
  if (wrong.empty()) {
    const auto count = [&](const char* table) {
      return ToInteger(RawValue(folder.path("inventory.mdb"), std::string("SELECT COUNT(*) FROM ") + table));
    };
    std::printf(
        "%ld acts, seed %u: everything held; %ld structures, %ld equipment, month %d, %ld findings, %ld comments, %ld "
        "undone or redone\n",
        walker.acts(), seed, count("PD_PLATFORM_DESC"), count("ED_EQUIP_DESC"), walker.s.last_month, count("QC"),
        count("QC WHERE Comments<>''"), walker.compared());
    return 0;
  }
  for (const std::string& line : walker.log()) std::printf("  %s\n", line.c_str());
  std::printf("seed %u, after %ld acts: %s\n", seed, walker.acts(), wrong.c_str());
  return 1;
}

}  // namespace
}  // namespace merlu::test

int main(int count, char** words) {
  long acts = 20000;
  std::uint32_t seed = 1;
  for (int i = 1; i + 1 < count; i += 2) {
    if (std::strcmp(words[i], "--acts") == 0) acts = std::atol(words[i + 1]);
    if (std::strcmp(words[i], "--seed") == 0) seed = static_cast<std::uint32_t>(std::atol(words[i + 1]));
  }
  if (count % 2 == 0 || acts <= 0) {
    std::fputs("usage: merlu_walk [--acts N] [--seed S]\n", stderr);
    return 2;
  }
  merlu::test::UseTemporaryPlace();
  return merlu::test::Walk(acts, seed);
}
