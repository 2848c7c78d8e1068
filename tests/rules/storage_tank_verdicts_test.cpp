#include <gtest/gtest.h>

#include "rules/same_rules.h"
#include "sheets/storage_tank.h"

namespace merlu::test {
namespace {

using namespace tank;

TEST(StorageTank, needs_a_vacuum_setting_below_zero) {
  SheetRecord record("STO", Mode::kDesc);
  for (const auto& [vacuum, finding] :
       Values{{"-0.01", ""}, {"-5", ""}, {"0", "Value not in expected range (-5 to -0.01)"}}) {
    record.Put({{"txtSTO_BreatherVentVacuum", vacuum}});
    record.Run();
    EXPECT_EQ(record.Finding("Breather Vent Vacuum"), finding) << vacuum;
  }
}

TEST(StorageTank, blank_in_a_month_lacks_these_in_their_order) {
  SheetRecord record("STO", Mode::kActv);
  record.Run();
  Found expected;
  for (const char* tag : {"Avg Liquid Height", "Bulk Liquid Temp", "API Gravity", "Reid Vapor Pressure",
                          "Product Throughput", "Avg Molecular Wt VOCs", "Avg Percent by Wt VOCs"})
    expected.emplace_back(tag, kBlankFinding);
  EXPECT_EQ(record.Findings(), expected);
}

TEST(StorageTank, blank_in_its_description_lacks_these_in_their_order) {
  SheetRecord record("STO", Mode::kDesc);
  const auto findings = [&](std::initializer_list<const char*> tags) {
    record.Forget();
    record.Run();
    Found expected;
    for (const char* tag : tags) expected.emplace_back(tag, kBlankFinding);
    EXPECT_EQ(record.Findings(), expected);
  };
  findings({"Tank Shape", "Tank Orientation", "Fixed (not floating)?", "Roof Shape", "Paint Color", "Paint Condition",
            "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type", "Emissions Destination",
            "Installed Control Equipment"});
  record.Put({{kShape, "Rectangular"},
              {kOrientation, "Vertical"},
              {"cmbSTO_FixedRoof", "Yes"},
              {kDestination, "Vented Locally"},
              {kTechnology, kCondenser},
              {"cmbSTO_OtherControlDevice", "Yes"}});
  findings({"Tank Shell Height", "Tank Shell Width", "2nd Tank Shell Width", "Roof Shape", "Roof Height", "Paint Color",
            "Paint Condition", "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type",
            "Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Outlet Orientation", "Ventilation Exit Temperature", "Other Control Device Descript."});
  record.Put({{"cmbSTO_FixedRoof", "No"},
              {kDestination, "Flared Locally"},
              {kTechnology, "None"},
              {"cmbSTO_OtherControlDevice", "No"}});
  findings({"Tank Shell Height", "Tank Shell Width", "2nd Tank Shell Width", "Roof Shape", "Paint Color",
            "Paint Condition", "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type",
            "Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Outlet Orientation", "Flare Feed Rate", "Combustion Temperature", "Combustion Efficiency"});
}

TEST(StorageTank, withdraws_the_findings_of_fields_that_no_longer_apply) {
  const std::vector<ListCase> cases = {
      {"cmbSTO_FixedRoof", "Yes", "No", {"Roof Height"}},
      {"cmbSTO_OtherControlDevice", "Yes", "No", {"Other Control Device Descript."}},
  };
  ExpectWithdrawnWithoutTheChoice("STO", cases);
  ExpectWithdrawnWithoutTheChoice("STO", CasesOfDestination(kDestination, "Flared Remotely", "Combustion"));
}

TEST(StorageTank, checks_no_condenser_and_withdraws_what_stands_on_one_that_is_not_installed) {
  SheetRecord record("STO", Mode::kDesc);
  record.Put({{kTechnology, kCondenser}, {"txtSTO_CondenserT", "9999"}});
  record.Run();
  EXPECT_EQ(record.Finding("Condenser Temperature"), "");
  EXPECT_EQ(record.Finding("Condenser Pressure"), "");
  // findings of old runs
  record.Leave("Condenser Temperature", kBlankFinding);
  record.Leave("Condenser Pressure", kBlankFinding);
  record.Run();
  EXPECT_EQ(record.Finding("Condenser Temperature"), kBlankFinding);
  EXPECT_EQ(record.Finding("Condenser Pressure"), kBlankFinding);
  record.Set(kTechnology, "None");
  record.Run();
  EXPECT_EQ(record.Finding("Condenser Temperature"), "");
  EXPECT_EQ(record.Finding("Condenser Pressure"), "");
}

// The month of a tank with these dimensions.
SheetRecord MonthOf(const char* shape, const char* orientation, const char* diameter, const char* height) {
  return {"STO",
          Mode::kActv,
          {{kShape, shape},
           {kOrientation, orientation},
           {"txtSTO_TankShellDiam", diameter},
           {"txtSTO_TankShellHgt", height}}};
}

TEST(StorageTank, holds_its_liquid_to_the_height_or_when_it_lies_round_to_the_diameter) {
  struct {
    const char *shape, *orientation, *diameter, *height, *liquid, *finding;
  } const cases[] = {
      {"Cylindrical", "Vertical", "", "30", "40", kOverHeight},
      {"Cylindrical", "Vertical", "20", "30", "30", ""},
      {"Cylindrical", "Vertical", "45", "30", "30.5", kOverHeight},
      {"Cylindrical", "Horizontal", "30", "", "40", kOverDiameter},
      {"Cylindrical", "Horizontal", "30", "", "30", ""},
      {"Cylindrical", "Horizontal", "", "45", "2", kOverDiameter},
      {"Rectangular", "Vertical", "", "30", "40", kOverHeight},
      {"Rectangular", "Horizontal", "", "30", "40", kOverHeight},
      {"Rectangular", "Horizontal", "20", "30", "25", ""},
      {"Cylindrical", "", "30", "", "2", kOverHeight},
      {"", "Horizontal", "30", "", "2", kOverHeight},
      {"", "", "", "", "2", kOverHeight},
      {"Cylindrical", "Vertical", "30", "", "", kBlankFinding},
      {"Cylindrical", "Vertical", "30", "30", "60", "Value not in expected range (1 to 50)"},
  };
  for (const auto& one : cases) {
    SheetRecord record = MonthOf(one.shape, one.orientation, one.diameter, one.height);
    record.Set(kLiquid, one.liquid);
    record.Run();
    EXPECT_EQ(record.Finding("Avg Liquid Height"), one.finding)
        << one.liquid << " in \"" << one.shape << "\" \"" << one.orientation << "\" " << one.diameter << " by "
        << one.height;
  }
}

TEST(StorageTank, is_overfull_without_looking_failed_while_the_height_is_in_its_range) {
  SheetRecord record = MonthOf("Cylindrical", "Vertical", "", "30");
  record.Set(kLiquid, "60");
  record.Run();
  EXPECT_EQ(record.Finding("Avg Liquid Height"), "Value not in expected range (1 to 50)");
  EXPECT_EQ(record.MarkOf(kLiquid), Mark::kFlag);
  record.Set(kLiquid, "40");
  record.Run();
  EXPECT_EQ(record.Finding("Avg Liquid Height"), kOverHeight);
  EXPECT_EQ(record.MarkOf(kLiquid), Mark::kPlain);
  record.Set(kLiquid, "30");
  record.Run();
  EXPECT_EQ(record.Finding("Avg Liquid Height"), "");
}

TEST(StorageTank, may_not_pass_more_than_its_structure) {
  ExpectNoMoreThanTheStructure(
      "STO", {"THRU_OIL", kThroughput, "Product Throughput", kExceeds, 5000000, {"4000000", "4000000.1", "4000000.5"}});
}

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
  ExpectPassedOnceFilled("STO", {{"cmbSTO_OtherControlDevice", "Yes"}}, fields);
}

TEST(StorageTank, asks_for_the_dimensions_of_its_shape_and_orientation) {
  SheetRecord record("STO", Mode::kDesc);
  for (int round = 0; round < 2; ++round)
    for (const Geometry& geometry : kGeometries) {
      record.Put({{kShape, geometry.shape}, {kOrientation, geometry.orientation}});
      record.Run();
      for (int i = 0; i < 5; ++i)
        EXPECT_EQ(record.Finding(kDimensions[i].tag), geometry.in_rules[i] != '.' ? kBlankFinding : "")
            << kDimensions[i].tag << " of " << Words(geometry);
    }
}

TEST(StorageTank, depends_on_its_flash_tank_in_nothing) {
  SheetRecord record("STO", Mode::kDesc);
  record.Run();
  const Found blank = record.Findings();
  record.Put({{"cboEquippedWithFlashTank", "Yes"}});
  record.Run();
  EXPECT_EQ(record.Findings(), blank);
  EXPECT_EQ(record.Finding("Equipped with flash tank"), "");
}

}  // namespace
}  // namespace merlu::test
