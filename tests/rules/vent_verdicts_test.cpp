#include <gtest/gtest.h>

#include "rules/same_rules.h"

namespace merlu::test {
namespace {

const char* const kTechnology = "cmbVEN_ControlTechnology";

TEST(Vent, misses_these_fields_of_a_blank_description_in_this_order) {
  ExpectMissing(
      "VEN", Mode::kDesc,
      "Vent Type|Stack Outlet Elevation|Stack Orientation|Stack Inner Diameter|Exit Velocity|Exit Temperature|"
      "Installed Control Equipment");
}

TEST(Vent, misses_these_fields_of_a_blank_month_in_this_order) {
  ExpectMissing(
      "VEN", Mode::kActv,
      "Hours Operated, excl upsets|Volume Vented, incl upsets|Vent Gas H2S Concentration|Vent Gas VOC Concentration|"
      "Avg Molecular Weight of VOCs");
}

TEST(Vent, is_asked_for_its_molecular_weight_in_every_month) {
  for (const int month : {1, 2}) {
    SheetRecord record("VEN", Mode::kActv, {}, month);
    record.Run();
    EXPECT_EQ(record.Finding("Avg Molecular Weight of VOCs"), kBlankFinding) << month;
  }
}

TEST(Vent, fails_at_a_stack_temperature_that_is_far_below_a_flare_s) {
  SheetRecord record("VEN", Mode::kDesc);
  record.Set("txtVEN_StackT", "201");
  record.Run();
  EXPECT_EQ(record.Finding("Exit Temperature"), "Value not in expected range (0 to 200)");
  record.Set("txtVEN_StackT", "200");
  record.Run();
  EXPECT_EQ(record.Finding("Exit Temperature"), "");
  SheetRecord flare("FLA", Mode::kDesc, {{"txtFLA_StackExitT", "1099"}});
  flare.Run();
  EXPECT_EQ(flare.Finding("Avg. Combustion Temperature"), "Value not in expected range (1100 to 2000)");
  flare.Set("txtFLA_StackExitT", "1100");
  flare.Run();
  EXPECT_EQ(flare.Finding("Avg. Combustion Temperature"), "");
}

TEST(Vent, with_a_condenser_of_blank_temperature_and_pressure_passes) {
  SheetRecord record("VEN", Mode::kDesc);
  record.Set(kTechnology, "Condenser");
  record.Run();
  EXPECT_FALSE(record.Findings().empty());
  EXPECT_EQ(record.CountOf("Condenser"), 0);
}

TEST(Vent, without_a_condenser_loses_the_condenser_s_findings) {
  SheetRecord record("VEN", Mode::kDesc);
  record.Put({{kTechnology, "Condenser"}, {"txtVEN_CondenserT", "31"}, {"txtVEN_CondenserP", "1001"}});
  record.Run();
  EXPECT_EQ(record.Finding("Condenser Temperature"), "Value not in expected range (32 to 212)");
  EXPECT_EQ(record.Finding("Condenser Pressure"), "Value not in expected range (0.5 to 1000)");
  record.Set(kTechnology, "None");
  record.Run();
  EXPECT_EQ(record.CountOf("Condenser"), 0);
  EXPECT_FALSE(record.Findings().empty());
}

TEST(Vent, keeps_a_standing_condenser_finding_while_the_field_is_blank) {
  SheetRecord record("VEN", Mode::kDesc);
  record.Put({{kTechnology, "Condenser"}, {"txtVEN_CondenserT", "31"}});
  record.Run();
  record.Set("txtVEN_CondenserT", "");
  record.Run();
  EXPECT_EQ(record.Finding("Condenser Temperature"), "Value not in expected range (32 to 212)");
}

TEST(Vent, leaves_a_required_list_flagged_when_it_passes) {
  SheetRecord record("VEN", Mode::kDesc);
  record.Run();
  EXPECT_EQ(record.MarkOf("cmbVEN_VentType"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf(kTechnology), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("txtVEN_StackT"), Mark::kFlag);
  record.Put({{"cmbVEN_VentType", "Low Pressure"}, {kTechnology, "None"}, {"txtVEN_StackT", "100"}});
  record.Run();
  EXPECT_EQ(
      record.Finding("Vent Type") + record.Finding("Installed Control Equipment") + record.Finding("Exit Temperature"),
      "");
  EXPECT_EQ(record.MarkOf("cmbVEN_VentType"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf(kTechnology), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("txtVEN_StackT"), Mark::kPlain);
}

}  // namespace
}  // namespace merlu::test
