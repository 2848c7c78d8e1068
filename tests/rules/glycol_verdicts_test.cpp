#include <gtest/gtest.h>

#include "rules/same_rules.h"
#include "sheets/glycol.h"

namespace merlu::test {
namespace {

using namespace glycol;

constexpr const char* kExceeds = "Value exceeds N.G. throughput for structure";

TEST(Glycol, blank_in_a_month_lacks_its_throughput) {
  SheetRecord record("GLY", Mode::kActv);
  record.Run();
  EXPECT_EQ(record.Findings(), (Values{{"Processed Throughput", kBlankFinding}}));
}

TEST(Glycol, blank_in_its_description_lacks_these_in_their_order) {
  SheetRecord record("GLY", Mode::kDesc);
  const auto findings = [&](std::initializer_list<const char*> tags) {
    record.Forget();
    record.Run();
    Values expected;
    for (const char* tag : tags) expected.emplace_back(tag, kBlankFinding);
    EXPECT_EQ(record.Findings(), expected);
  };
  findings({"Destination of Flash Gas", "Wet Gas Temperature", "Wet Gas Pressure", "Equipped with flash tank?",
            "Uses stripping gas?", "Emissions Destination", "Installed Control Equipment"});
  record.Put({{kFlashTank, "Yes"},
              {kStripping, "Nitrogen"},
              {kDestination, "Vented Locally"},
              {kTechnology, kCondenser},
              {kDevice, "Yes"}});
  findings({"Destination of Flash Gas", "Wet Gas Temperature", "Wet Gas Pressure", "Flash Tank Temperature",
            "Flash Tank Pressure", "Stripping Gas Flowrate", "Ventilation Outlet Height",
            "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity", "Ventilation Exit Temperature",
            "Ventilation Outlet Orientation", "Condenser Temperature", "Condenser Pressure",
            "Other Control Equipment Descript."});
  record.Put({{kDestination, "Flared Locally"},
              {kTechnology, "None"},
              {kDevice, "No"},
              {kFlashTank, "No"},
              {kStripping, "None"}});
  findings({"Destination of Flash Gas", "Wet Gas Temperature", "Wet Gas Pressure", "Ventilation Outlet Height",
            "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity", "Ventilation Outlet Orientation",
            "Flare Feed Rate", "Flare Combustion Temperature", "Flare Combustion Efficiency"});
}

TEST(Glycol, without_a_flash_tank_still_needs_a_destination_of_the_flash_gas) {
  SheetRecord record("GLY", Mode::kDesc);
  record.Put({{kFlashTank, "No"}});
  record.Run();
  EXPECT_EQ(record.Finding("Destination of Flash Gas"), kBlankFinding);
  record.Put({{"cmbGLY_Disposition", "vented to atm"}});
  record.Run();
  EXPECT_EQ(record.Finding("Destination of Flash Gas"), "");
}

TEST(Glycol, withdraws_the_findings_of_fields_that_no_longer_apply) {
  const std::vector<ListCase> cases = {
      {kFlashTank, "Yes", "No", {"Flash Tank Temperature", "Flash Tank Pressure"}},
      {kStripping, "Dry Gas", "None", {"Stripping Gas Flowrate"}},
      {kTechnology, kCondenser, "None", {"Condenser Temperature", "Condenser Pressure"}},
      {kDevice, "Yes", "No", {"Other Control Equipment Descript."}},
  };
  ExpectWithdrawnWithoutTheChoice("GLY", cases);
  ExpectWithdrawnWithoutTheChoice("GLY", CasesOfDestination(kDestination, "Vented Remotely", "Flare Combustion"));
}

TEST(Glycol, looks_after_the_condenser_of_a_combined_recovery_too) {
  SheetRecord record("GLY", Mode::kDesc);
  record.Set(kTechnology, "SR + VR/C");  // no item of this list
  record.Run();
  EXPECT_EQ(record.Finding("Installed Control Equipment"), "");
  EXPECT_EQ(record.Finding("Condenser Temperature"), kBlankFinding);
  EXPECT_EQ(record.Finding("Condenser Pressure"), kBlankFinding);
}

TEST(Glycol, may_not_process_more_than_its_structure) {
  ExpectNoMoreThanTheStructure(
      "GLY", {"THRU_NG", kThroughput, "Processed Throughput", kExceeds, 15500, {"1000", "1000.00001", "1000.001"}});
}

TEST(Glycol, looks_passed_again_once_a_required_field_is_filled) {
  const Values fields = {{"cmbGLY_Disposition", "routed to system"},
                         {kFlashTank, "No"},
                         {kStripping, "None"},
                         {kTechnology, "None"},
                         {"txtGLY_OtherControlDesc", "scrubber"}};
  ExpectPassedOnceFilled("GLY", {{kDevice, "Yes"}}, fields);
}

TEST(Glycol, marks_an_efficiency_only_while_it_is_filled) {
  SheetRecord record("GLY", Mode::kDesc);
  record.Put({{kDevice, "Yes"}, {"txtGLY_OtherControlEffCO", "100"}});
  record.Run();
  EXPECT_EQ(record.MarkOf("txtGLY_OtherControlEffCO"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("txtGLY_OtherControlEffVOC"), Mark::kPlain);
  record.Set("txtGLY_OtherControlEffCO", "99.9");
  record.Run();
  EXPECT_EQ(record.MarkOf("txtGLY_OtherControlEffCO"), Mark::kPlain);
}

}  // namespace
}  // namespace merlu::test
