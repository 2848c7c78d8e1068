// Month workbooks that an office program has opened and saved again, under three formats. A flare's hours and comment
// were filled in, and a number of the structure as the formula =250*31.
#include <gtest/gtest.h>

#include <sstream>

#include "command/commands.h"
#include "inventory.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class OfficeFile : public testing::TestWithParam<const char*> {};

TEST_P(OfficeFile, is_read_like_the_program_s_own) {
  const TemporaryFolder folder;
  const std::string inventory = folder.path("inventory.mdb");
  InventoryPlan plan;
  plan.structures = 1;
  plan.equipment = 2;
  plan.months = 1;
  plan.types = {"FLA"};
  MakeInventory(TemplatePath(), inventory, plan);
  const std::string file = std::string(MERLU_SOURCE_FOLDER "/tests/command/office/filled.") + GetParam();
  std::ostringstream out, err;
  Console console{out, err};
  EXPECT_EQ(RunCommand(*FindCommand("read"), {inventory, "--from", file}, console), Status::kWell) << err.str();
  const auto stored = [&](const char* sql) { return RawValue(inventory, sql); };
  EXPECT_EQ(ToNumber(stored("SELECT OP_HR FROM EA_FLA WHERE EA_ID_AK=1")), 77);
  EXPECT_EQ(ToNumber(stored("SELECT OP_HR FROM EA_FLA WHERE EA_ID_AK=2")), 372) << "left as it was";
  EXPECT_EQ(NullToEmpty(stored("SELECT EA_COMNT_TXT FROM EA_EQUIP_ACTV WHERE EA_ID_AK=1")), "two words & <a>");
  const bool one_sheet = std::string(GetParam()) == "csv";
  EXPECT_EQ(out.str().find("\"old\":\"10000\",\"new\":\"7750\",\"action\":\"changed\"") == std::string::npos,
            one_sheet);
}

INSTANTIATE_TEST_SUITE_P(Saved, OfficeFile, testing::Values("xlsx", "ods", "csv"));

}  // namespace
}  // namespace merlu::test
