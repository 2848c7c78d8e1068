#include "same_rules.h"
#include "storage_tank.h"

namespace merlu::test {
namespace {

using namespace tank;

// ---- bounds ----

TEST(StorageTank, needs_a_vacuum_setting_below_zero) {
  TestRun run;
  run.StartWith("STO", "T1");
  for (const auto& [vacuum, finding] :
       Values{{"-0.01", ""}, {"-5", ""}, {"0", "Value not in expected range (-5 to -0.01)"}}) {
    run.Keep({{"txtSTO_BreatherVentVacuum", vacuum}});
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Breather Vent Vacuum"), finding) << vacuum;
  }
}

// ---- blank records ----

TEST(StorageTank, blank_in_a_month_lacks_these_in_their_order) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.GoTo("STO", "T1", Mode::kActv);
  run.Click("cmdQC");
  Found expected;
  for (const char* tag : {"Avg Liquid Height", "Bulk Liquid Temp", "API Gravity", "Reid Vapor Pressure",
                          "Product Throughput", "Avg Molecular Wt VOCs", "Avg Percent by Wt VOCs"})
    expected.emplace_back(tag, kBlankFinding);
  EXPECT_EQ(run.Findings(), expected);
}

TEST(StorageTank, blank_in_its_description_lacks_these_in_their_order) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  const auto findings = [&](std::initializer_list<const char*> tags) {
    run.s.db.Execute("DELETE FROM QC");
    run.Click("cmdQC");
    Found expected;
    for (const char* tag : tags) expected.emplace_back(tag, kBlankFinding);
    EXPECT_EQ(run.Findings(), expected);
  };
  findings({"Tank Shape", "Tank Orientation", "Fixed (not floating)?", "Roof Shape", "Paint Color", "Paint Condition",
            "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type", "Emissions Destination",
            "Installed Control Equipment"});
  run.Put({{kShape, "Rectangular"},
           {kOrientation, "Vertical"},
           {"cmbSTO_FixedRoof", "Yes"},
           {kDestination, "Vented Locally"},
           {kTechnology, kCondenser},
           {"cmbSTO_OtherControlDevice", "Yes"}});
  findings({"Tank Shell Height", "Tank Shell Width", "2nd Tank Shell Width", "Roof Shape", "Roof Height", "Paint Color",
            "Paint Condition", "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type",
            "Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Outlet Orientation", "Ventilation Exit Temperature", "Other Control Device Descript."});
  run.Put({{"cmbSTO_FixedRoof", "No"},
           {kDestination, "Flared Locally"},
           {kTechnology, "None"},
           {"cmbSTO_OtherControlDevice", "No"}});
  findings({"Tank Shell Height", "Tank Shell Width", "2nd Tank Shell Width", "Roof Shape", "Paint Color",
            "Paint Condition", "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type",
            "Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Outlet Orientation", "Flare Feed Rate", "Combustion Temperature", "Combustion Efficiency"});
}

// ---- conditions ----

TEST(StorageTank, withdraws_the_findings_of_fields_that_no_longer_apply) {
  const std::vector<ListCase> cases = {
      {"cmbSTO_FixedRoof", "Yes", "No", {"Roof Height"}},
      {"cmbSTO_OtherControlDevice", "Yes", "No", {"Other Control Device Descript."}},
      {kDestination, "Vented Locally", "Flared Locally", {"Ventilation Exit Temperature"}},
      {kDestination,
       "Flared Locally",
       "Vented Locally",
       {"Flare Feed Rate", "Combustion Temperature", "Combustion Efficiency"}},
      {kDestination,
       "Vented Locally",
       "Flared Remotely",
       {"Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
        "Ventilation Outlet Orientation"}},
  };
  ExpectWithdrawnWithoutTheChoice({"STO", "T1"}, cases);
}

TEST(StorageTank, checks_no_condenser_and_withdraws_what_stands_on_one_that_is_not_installed) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  run.Put({{kTechnology, kCondenser}, {"txtSTO_CondenserT", "9999"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Condenser Temperature"), "");
  EXPECT_EQ(run.Finding("Condenser Pressure"), "");
  // findings of old runs
  run.s.db.Execute("UPDATE QC SET FieldID='Condenser Temperature' WHERE FieldID='Roof Shape'");
  run.s.db.Execute("UPDATE QC SET FieldID='Condenser Pressure' WHERE FieldID='Paint Color'");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Condenser Temperature"), kBlankFinding);
  EXPECT_EQ(run.Finding("Condenser Pressure"), kBlankFinding);
  run.Set(kTechnology, "None");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Condenser Temperature"), "");
  EXPECT_EQ(run.Finding("Condenser Pressure"), "");
}

TEST(StorageTank, without_another_control_device_keeps_its_efficiency_and_raises_nothing) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Keep({{"cmbSTO_OtherControlDevice", "Yes"}, {"txtSTO_OtherControlEffVOC", "100"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("VOC Efficiency"), RangeFinding(0, 99.9));
  run.Keep({{"cmbSTO_OtherControlDevice", "No"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("VOC Efficiency"), "");
  EXPECT_EQ(StoredText(run, "OTH_CTRL_EFFIC_VOC"), "100");
}

// ---- the liquid's height ----

// Dimensions as stored, then the month of the tank in an edit.
void GoToMonthOf(TestRun& run, const char* shape, const char* orientation, const char* diameter, const char* height) {
  const auto code = [](const char* text) {
    return *text == '\0' ? std::string("NULL") : "'" + std::string(1, *text) + "'";
  };
  run.s.db.Execute("UPDATE ED_STO SET TANK_SHAPE=" + code(shape) + ", TANK_ORIENTATION=" + code(orientation) +
                   ", TANK_SHELL_DIAM=" + diameter + ", TANK_SHELL_HGT=" + height);
  run.GoTo("STO", "T1", Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Select(run.Key("STO", "T1", 1));
  run.Click("cmdEdit");
}

TEST(StorageTank, holds_its_liquid_to_the_height_or_when_it_lies_round_to_the_diameter) {
  struct {
    const char *shape, *orientation, *diameter, *height, *liquid, *finding;
  } const cases[] = {
      {"Cylindrical", "Vertical", "NULL", "30", "40", kOverHeight},
      {"Cylindrical", "Vertical", "20", "30", "30", ""},
      {"Cylindrical", "Vertical", "45", "30", "30.5", kOverHeight},
      {"Cylindrical", "Horizontal", "30", "NULL", "40", kOverDiameter},
      {"Cylindrical", "Horizontal", "30", "NULL", "30", ""},
      {"Cylindrical", "Horizontal", "NULL", "45", "2", kOverDiameter},
      {"Rectangular", "Vertical", "NULL", "30", "40", kOverHeight},
      {"Rectangular", "Horizontal", "NULL", "30", "40", kOverHeight},
      {"Rectangular", "Horizontal", "20", "30", "25", ""},
      {"Cylindrical", "", "30", "NULL", "2", kOverHeight},
      {"", "Horizontal", "30", "NULL", "2", kOverHeight},
      {"", "", "NULL", "NULL", "2", kOverHeight},
      {"Cylindrical", "Vertical", "30", "NULL", "", kBlankFinding},
      {"Cylindrical", "Vertical", "30", "30", "60", "Value not in expected range (1 to 50)"},
  };
  for (const auto& one : cases) {
    TestRun run;
    run.StartWith("STO", "T1");
    GoToMonthOf(run, one.shape, one.orientation, one.diameter, one.height);
    run.Set(kLiquid, one.liquid);
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Avg Liquid Height"), one.finding)
        << one.liquid << " in \"" << one.shape << "\" \"" << one.orientation << "\" " << one.diameter << " by "
        << one.height;
  }
}

TEST(StorageTank, is_overfull_without_looking_failed_while_the_height_is_in_its_range) {
  TestRun run;
  run.StartWith("STO", "T1");
  GoToMonthOf(run, "Cylindrical", "Vertical", "NULL", "30");
  run.Set(kLiquid, "60");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg Liquid Height"), "Value not in expected range (1 to 50)");
  EXPECT_EQ(run.At(kLiquid).back, Back::kFlag);
  run.Set(kLiquid, "40");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg Liquid Height"), kOverHeight);
  EXPECT_EQ(run.At(kLiquid).back, Back::kWindow);
  run.Set(kLiquid, "30");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg Liquid Height"), "");
}

TEST(StorageTank, forgets_what_explained_a_low_liquid_height_at_the_next_run) {
  TestRun run;
  run.StartWith("STO", "T1");
  GoToMonthOf(run, "Cylindrical", "Vertical", "NULL", "30");
  run.Set(kLiquid, "0.5");
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='being emptied'");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg Liquid Height"), "Value not in expected range (1 to 50)");
  EXPECT_EQ(run.Count("QC WHERE FieldID='Avg Liquid Height' AND Comments=''"), 1);
  EXPECT_EQ(run.Count("QC WHERE FieldID='API Gravity' AND Comments='being emptied'"), 1) << "as other fields do not";
}

// ---- the structure's throughput ----

TEST(StorageTank, may_not_pass_more_than_its_structure) {
  ExpectNoMoreThanTheStructure(
      {"STO", "T1"},
      {"THRU_OIL", kThroughput, "Product Throughput", kExceeds, 5000000, {"4000000", "4000000.1", "4000000.5"}});
}

// ---- colours ----

TEST(StorageTank, looks_passed_again_once_a_required_field_is_filled) {
  const Values fields = {{kShape, "Cylindrical"},
                         {kOrientation, "Vertical"},
                         {"cmbSTO_FixedRoof", "No"},
                         {"cmbSTO_TankRoofType", "Flat"},
                         {"cmbSTO_TankPaintColor", "White/NA"},
                         {"cmbSTO_TankPaintCondition", "Good"},
                         {"cmbSTO_ProductType", "Crude"},
                         {kTechnology, "None"},
                         {"txtSTO_OtherControlDesc", "scrubber"}};
  ExpectPassedOnceFilled({"STO", "T1"}, {{"cmbSTO_OtherControlDevice", "Yes"}}, fields);
}

}  // namespace
}  // namespace merlu::test
