#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kFuel = "cmbBOI_FuelType";
const Names kGasSet = {"txtBOI_FuelH2SContent", "txtBOI_FuelHeatingValue", "txtBOI_MaxRatedFuelUsage",
                       "txtBOI_FuelUsageRate"};
const Names kOilSet = {"txtBOI_FuelH2SContentOil", "txtBOI_FuelHeatingValueOil", "txtBOI_MaxRatedFuelUsageOil"};
const Names kMonthlyOilSet = {"txtBOI_FuelUsageRateOil", "txtBOI_TotalFuelUsedOil"};
const Names kGasFuels = {"Natural Gas", "Process Gas", "Waste Gas"};
const Names kOilFuels = {"Diesel", "Waste Oil"};

void ExpectEnabled(TestRun& run, const Names& fields, bool enabled) {
  for (const std::string& field : fields) EXPECT_EQ(run.At(field).enabled, enabled) << field;
}

void ExpectBack(TestRun& run, const Names& fields, Back back) {
  for (const std::string& field : fields) EXPECT_EQ(run.At(field).back, back) << field;
}

void ExpectLocked(TestRun& run, const Names& fields, bool locked) {
  for (const std::string& field : fields) EXPECT_EQ(run.At(field).locked, locked) << field;
}

TEST(Boiler, turns_one_set_off_at_a_click_on_the_fuel) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdEdit");
  for (const Names* set : {&kGasSet, &kOilSet}) {
    ExpectEnabled(run, *set, true);
    ExpectBack(run, *set, Back::kWindow);
  }
  ExpectBack(run, kMonthlyOilSet, Back::kFace);
  for (const std::string& fuel : kGasFuels) {
    run.Set(kFuel, fuel);
    ExpectEnabled(run, kGasSet, true);
    ExpectBack(run, kGasSet, Back::kWindow);
    ExpectEnabled(run, kOilSet, false);
    ExpectBack(run, kOilSet, Back::kFace);
    ExpectEnabled(run, kMonthlyOilSet, false);
    ExpectBack(run, kMonthlyOilSet, Back::kFace);
  }
  for (const std::string& fuel : kOilFuels) {
    run.Set(kFuel, fuel);
    ExpectEnabled(run, kGasSet, false);
    ExpectBack(run, kGasSet, Back::kFace);
    for (const Names* set : {&kOilSet, &kMonthlyOilSet}) {
      ExpectEnabled(run, *set, true);
      ExpectBack(run, *set, Back::kWindow);
    }
  }
  run.Set(kFuel, "Natural Gas");
  ExpectEnabled(run, kMonthlyOilSet, false);
  ExpectBack(run, kMonthlyOilSet, Back::kWindow);
  ExpectEnabled(run, {"txtBOI_TotalFuelUsed"}, true);
}

TEST(Boiler, opens_both_sets_of_its_description_whatever_the_fuel) {
  for (const char* fuel : {"Diesel", "Natural Gas"}) {
    TestRun run;
    run.StartWith("BOI", "B1");
    run.Keep({{kFuel, fuel}});
    run.Select(run.Key());
    run.Select(run.Key("BOI", "B1"));
    run.Click("cmdEdit");
    for (const Names* set : {&kGasSet, &kOilSet}) {
      ExpectEnabled(run, *set, true);
      ExpectLocked(run, *set, false);
      ExpectBack(run, *set, Back::kWindow);
    }
  }
}

TEST(Boiler, opens_one_set_of_a_month_by_its_fuel) {
  for (const char* fuel : {"Natural Gas", "Process Gas", "Waste Gas", "Diesel", "Waste Oil"}) {
    const bool oil = std::string(fuel) == "Diesel" || std::string(fuel) == "Waste Oil";
    TestRun run;
    run.StartWith("BOI", "B1");
    run.Keep({{kFuel, fuel}});
    run.GoTo("BOI", "B1", Mode::kActv);
    run.Click("cmdEdit");
    const auto expect = [&] {
      ExpectEnabled(run, kMonthlyOilSet, oil);
      ExpectLocked(run, kMonthlyOilSet, !oil);
      ExpectBack(run, kMonthlyOilSet, oil ? Back::kWindow : Back::kFace);
      ExpectEnabled(run, {"txtBOI_TotalFuelUsed"}, !oil);
      ExpectLocked(run, {"txtBOI_TotalFuelUsed"}, oil);
      ExpectBack(run, {"txtBOI_TotalFuelUsed"}, oil ? Back::kFace : Back::kWindow);
      ExpectLocked(run, {"txtBOI_HrsOperated", "txtBOI_Comments"}, false);
      ExpectBack(run, {"txtBOI_HrsOperated", "txtBOI_Comments"}, Back::kWindow);
    };
    expect();
    run.Click("cmdSaveEdits");
    expect();
  }
}

TEST(Boiler, that_turned_from_diesel_to_gas_loses_the_month_s_oil_at_the_next_save) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Keep({{kFuel, "Diesel"}});
  run.GoTo("BOI", "B1", Mode::kActv);
  run.Keep({{"txtBOI_FuelUsageRateOil", "7"}, {"txtBOI_TotalFuelUsedOil", "8"}});
  EXPECT_EQ(run.Text("txtBOI_FuelUsageRateOil") + run.Text("txtBOI_TotalFuelUsedOil"), "78");
  run.GoTo("BOI", "B1", Mode::kDesc);
  run.Keep({{kFuel, "Natural Gas"}});
  run.GoTo("BOI", "B1", Mode::kActv);
  EXPECT_EQ(run.Text("txtBOI_FuelUsageRateOil") + run.Text("txtBOI_TotalFuelUsedOil"), "");
  EXPECT_EQ(run.Count("EA_BOI WHERE FUEL_USE_RATE_OIL=7 AND TOT_FUEL_USE_OIL=8"), 1);
  run.Keep({{"txtBOI_TotalFuelUsed", "9"}});
  EXPECT_EQ(run.Count("EA_BOI WHERE FUEL_USE_RATE_OIL IS NULL AND TOT_FUEL_USE_OIL IS NULL AND TOT_FUEL_USE=9"), 1);
}

TEST(Boiler, that_turned_from_gas_to_oil_loses_the_month_s_gas_at_the_next_save) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Keep({{kFuel, "Waste Gas"}});
  run.GoTo("BOI", "B1", Mode::kActv);
  run.Keep({{"txtBOI_TotalFuelUsed", "9"}});
  run.GoTo("BOI", "B1", Mode::kDesc);
  run.Keep({{kFuel, "Waste Oil"}});
  run.GoTo("BOI", "B1", Mode::kActv);
  EXPECT_EQ(run.Text("txtBOI_TotalFuelUsed"), "");
  run.Keep({{"txtBOI_TotalFuelUsedOil", "8"}});
  EXPECT_EQ(run.Count("EA_BOI WHERE TOT_FUEL_USE IS NULL AND TOT_FUEL_USE_OIL=8"), 1);
}

TEST(Boiler, keeps_the_description_s_old_set_when_its_fuel_changes) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Keep({{kFuel, "Natural Gas"},
            {"txtBOI_MaxRatedFuelUsage", "1.5"},
            {"txtBOI_FuelUsageRate", "2.5"},
            {"txtBOI_FuelHeatingValue", "3.5"},
            {"txtBOI_FuelH2SContent", "4.5"}});
  run.Keep({{kFuel, "Diesel"},
            {"txtBOI_MaxRatedFuelUsageOil", "5.5"},
            {"txtBOI_FuelHeatingValueOil", "6.5"},
            {"txtBOI_FuelH2SContentOil", "7.5"}});
  EXPECT_EQ(
      NullToEmpty(run.Sql(
          "SELECT FUEL_TYP||' '||MAX_RATED_FUEL_USE||' '||FUEL_USE_RATE||' '||FUEL_HEAT_VAL||' '||FUEL_H2S_CONTENT"
          "||' '||MAX_RATED_FUEL_USE_OIL||' '||FUEL_HEAT_VAL_OIL||' '||FUEL_H2S_CONTENT_OIL FROM ED_BOI")),
      "D 1.5 2.5 3.5 4.5 5.5 6.5 7.5");
  std::string texts;
  for (const char* field : {"MaxRatedFuelUsage", "FuelUsageRate", "FuelHeatingValue", "FuelH2SContent",
                            "MaxRatedFuelUsageOil", "FuelHeatingValueOil", "FuelH2SContentOil"})
    texts += run.Text(std::string("txtBOI_") + field) + " ";
  EXPECT_EQ(texts, "1.5 2.5 3.5 4.5 5.5 6.5 7.5 ");
}

TEST(Boiler, keeps_its_heat_inputs_and_its_lists_by_code) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Keep({{"txtBOI_MaxRatedHeatInputRate", "1.5"}, {"txtBOI_HeatInputRate", "2.5"}});
  EXPECT_EQ(run.Count("ED_BOI WHERE MAX_RATED_HI_RATE=1.5 AND HEAT_INPUT_RATE=2.5"), 1);
  EXPECT_EQ(run.Text("txtBOI_MaxRatedHeatInputRate") + " " + run.Text("txtBOI_HeatInputRate"), "1.5 2.5");
  const Values fuels = {
      {"Natural Gas", "NG"}, {"Process Gas", "PG"}, {"Waste Gas", "WG"}, {"Waste Oil", "WO"}, {"Diesel", "D"}};
  for (const auto& [fuel, code] : fuels) {
    run.Keep({{kFuel, fuel}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT FUEL_TYP FROM ED_BOI")), code);
    EXPECT_EQ(run.Text(kFuel), fuel);
  }
  for (const auto& [control, code] : Values{{"None", "N"}, {"Low NOx Burner", "L"}, {"Flu Gas Recirc", "F"}}) {
    run.Keep({{"cmbBOI_EmissionControls", control}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT EMIS_CTRL FROM ED_BOI")), code);
    EXPECT_EQ(run.Text("cmbBOI_EmissionControls"), control);
  }
  EXPECT_EQ(run.At(kFuel).items, (Names{"Natural Gas", "Process Gas", "Waste Gas", "Waste Oil", "Diesel"}));
  EXPECT_EQ(run.At("cmbBOI_EmissionControls").items, (Names{"None", "Low NOx Burner", "Flu Gas Recirc"}));
}

TEST(Boiler, keeps_its_month_and_reads_it_back) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Keep({{kFuel, "Diesel"}});
  run.GoTo("BOI", "B1", Mode::kActv);
  run.Keep({{"txtBOI_HrsOperated", "1.5"}, {"txtBOI_FuelUsageRateOil", "2.5"}, {"txtBOI_TotalFuelUsedOil", "3.5"}});
  EXPECT_EQ(
      run.Count("EA_BOI WHERE OP_HR=1.5 AND FUEL_USE_RATE_OIL=2.5 AND TOT_FUEL_USE_OIL=3.5 AND TOT_FUEL_USE IS NULL"),
      1);
  EXPECT_EQ(run.Text("txtBOI_HrsOperated") + " " + run.Text("txtBOI_FuelUsageRateOil") + " " +
                run.Text("txtBOI_TotalFuelUsedOil"),
            "1.5 2.5 3.5");
}

TEST(Boiler, has_captions_that_tell_its_two_sets_apart_and_tags_that_do_not) {
  TestRun run;
  run.StartWith("BOI", "B1");
  const std::vector<std::array<std::string, 3>> fields = {
      {kFuel, "Fuel Type:", "Fuel Type"},
      {"cmbBOI_EmissionControls", "Emission Controls:", "Emissions Controls"},
      {"txtBOI_MaxRatedHeatInputRate", "Max Rated Heat Input (MMBtu/hr):", "Max Rated Heat Input"},
      {"txtBOI_HeatInputRate", "Average Heat Input (MMBtu/hr):", "Average Heat Input"},
      {"txtBOI_MaxRatedFuelUsage", "Max Rated Fuel Usage (scf/hr):", "Max Rated Fuel Usage"},
      {"txtBOI_FuelUsageRate", "Average Fuel Usage (scf/hr):", "Average Fuel Usage"},
      {"txtBOI_FuelHeatingValue", "Fuel Heating Value (Btu/scf):", "Fuel Heating Value"},
      {"txtBOI_FuelH2SContent", "Fuel H2S Content (ppmv):", "Fuel H2S Content"},
      {"txtBOI_MaxRatedFuelUsageOil", "Max Rated Fuel Usage (lb/hr):", "Max Rated Fuel Usage"},
      {"txtBOI_FuelHeatingValueOil", "Fuel Heating Value (Btu/lb):", "Fuel Heating Value"},
      {"txtBOI_FuelH2SContentOil", "Fuel Sulfur Content (% by mass):", "Fuel H2S Content"},
      {"txtBOI_HrsOperated", "Hours Operated (hrs):", "Hours Operated"},
      {"txtBOI_TotalFuelUsed", "Total Fuel Used (Mscf):", "Total Fuel Used"},
      {"txtBOI_FuelUsageRateOil", "Average Fuel Usage Oil (lb/hr):", "Average Fuel Usage"},
      {"txtBOI_TotalFuelUsedOil", "Total Fuel Used Oil (lb):", "Total Fuel Used"},
      {"txtBOI_Comments", "Comments:", ""}};
  for (const auto& [control, caption, tag] : fields) {
    EXPECT_EQ(run.At(control).caption, caption);
    EXPECT_EQ(run.At(control).tag, tag);
  }
}

}  // namespace
}  // namespace merlu::test
