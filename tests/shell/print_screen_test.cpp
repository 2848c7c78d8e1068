#include <gtest/gtest.h>

#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

TEST(PrintScreen, prints_the_sheet_of_the_equipment_and_otherwise_the_main_window) {
  TestRun run;
  run.StartWith("FLA", "F1");
  EXPECT_EQ(run.At("PrintScrn").caption, "Print Screen");
  run.Click("PrintScrn");
  run.Select(run.Key());
  run.Click("PrintScrn");
  run.SelectRoot();
  run.Click("PrintScrn");
  EXPECT_EQ(run.printed, (Texts{"frmFLA", "frmMain", "frmMain"}));
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST(PrintScreen, waits_for_the_end_of_an_edit) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotClick("PrintScrn"), "is disabled");
}

}  // namespace
}  // namespace merlu::test
