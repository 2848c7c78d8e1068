#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kFuel = "cmbBOI_FuelType";
const char* const kOverTotal = "Value exceeds total fuel used for structure";
const Names kGasSet = {"txtBOI_FuelH2SContent", "txtBOI_FuelHeatingValue", "txtBOI_MaxRatedFuelUsage",
                       "txtBOI_FuelUsageRate"};
const Names kOilSet = {"txtBOI_FuelH2SContentOil", "txtBOI_FuelHeatingValueOil", "txtBOI_MaxRatedFuelUsageOil"};
const Names kMonthlyOilSet = {"txtBOI_FuelUsageRateOil", "txtBOI_TotalFuelUsedOil"};
const Names kGasFuels = {"Natural Gas", "Process Gas", "Waste Gas"};
const Names kOilFuels = {"Diesel", "Waste Oil"};

// FieldIDs of the open findings, in the order of the log.
std::string Fields(TestRun& run) {
  return NullToEmpty(run.Sql("SELECT group_concat(FieldID,'|') FROM (SELECT FieldID FROM QC ORDER BY rowid)"));
}

void ExpectEnabled(TestRun& run, const Names& fields, bool enabled) {
  for (const std::string& field : fields) EXPECT_EQ(run.At(field).enabled, enabled) << field;
}

void ExpectBack(TestRun& run, const Names& fields, Back back) {
  for (const std::string& field : fields) EXPECT_EQ(run.At(field).back, back) << field;
}

void ExpectLocked(TestRun& run, const Names& fields, bool locked) {
  for (const std::string& field : fields) EXPECT_EQ(run.At(field).locked, locked) << field;
}

// In the first month of a boiler with that fuel, on a structure with that total.
void StartMonth(TestRun& run, const std::string& fuel, const std::string& column, const std::string& total) {
  run.StartWith("BOI", "B1");
  run.Keep({{kFuel, fuel}});
  run.GoTo("BOI", "B1", Mode::kActv);
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET " + column + "=" + total);
  run.Click("cmdEdit");
}

// The finding of the month's gas total at that value.
std::string FindingAt(TestRun& run, const std::string& value) {
  run.Set("txtBOI_TotalFuelUsed", value);
  run.Click("cmdQC");
  return run.Finding("Total Fuel Used");
}

TEST(Boiler, misses_these_fields_of_a_blank_description_in_this_order) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdQC");
  EXPECT_EQ(Fields(run),
            "Fuel Type|Max Rated Fuel Usage|Fuel Heating Value|Fuel H2S Content|Average Fuel Usage|Average Heat Input|"
            "Max Rated Heat Input|Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|"
            "Exhaust Exit Temperature|Exhaust Outlet Orientation|Emissions Controls");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'DESC'"), 0);
}

TEST(Boiler, on_oil_misses_these_fields_of_a_blank_description_in_this_order) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdEdit");
  run.Put({{kFuel, "Waste Oil"}, {"cmbBOI_OtherControlDevice", "Yes"}});
  run.Click("cmdQC");
  EXPECT_EQ(Fields(run),
            "Max Rated Fuel Usage|Fuel Heating Value|Fuel H2S Content|Average Heat Input|Max Rated Heat Input|"
            "Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|Exhaust Exit Temperature|"
            "Exhaust Outlet Orientation|Emissions Controls|Other Control Device Descrip.");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank'"), 0);
}

TEST(Boiler, misses_these_fields_of_a_blank_month_in_this_order) {
  for (const auto& [fuel, fields] : Values{{"Process Gas", "Total Fuel Used|Hours Operated"},
                                           {"Diesel", "Average Fuel Usage|Total Fuel Used|Hours Operated"}}) {
    TestRun run;
    run.StartWith("BOI", "B1");
    run.Keep({{kFuel, fuel}});
    run.GoTo("BOI", "B1", Mode::kActv);
    run.Click("cmdQC");
    EXPECT_EQ(Fields(run), fields) << fuel;
    EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'ACTV'"), 0) << fuel;
  }
}

TEST(Boiler, loses_four_texts_that_are_no_numbers_to_a_run_and_then_misses_them) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdEdit");
  run.Put({{"txtBOI_HeatInputRate", "about 5"},
           {"txtBOI_MaxRatedHeatInputRate", "5x"},
           {"txtBOI_FuelUsageRate", "."},
           {"txtBOI_MaxRatedFuelUsage", "1 000"},
           {"txtBOI_FuelHeatingValue", "900x"}});
  run.Click("cmdQC");
  for (const auto& [field, tag] : Values{{"txtBOI_HeatInputRate", "Average Heat Input"},
                                         {"txtBOI_MaxRatedHeatInputRate", "Max Rated Heat Input"},
                                         {"txtBOI_FuelUsageRate", "Average Fuel Usage"},
                                         {"txtBOI_MaxRatedFuelUsage", "Max Rated Fuel Usage"}}) {
    EXPECT_EQ(run.Text(field), "") << field;
    EXPECT_EQ(run.Finding(tag), kBlankFinding) << field;
  }
  EXPECT_EQ(run.Text("txtBOI_FuelHeatingValue"), "900x");
  EXPECT_EQ(run.Finding("Fuel Heating Value"), "");
}

TEST(Boiler, may_average_its_maximum_and_not_more) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdEdit");
  run.Put({{kFuel, "Natural Gas"},
           {"txtBOI_HeatInputRate", "5.01"},
           {"txtBOI_MaxRatedHeatInputRate", "5"},
           {"txtBOI_FuelUsageRate", "200.01"},
           {"txtBOI_MaxRatedFuelUsage", "200"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Average Heat Input"), "Average Heat Input exceeds Max Rated Heat Input");
  EXPECT_EQ(run.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
  ExpectBack(run, {"txtBOI_HeatInputRate", "txtBOI_FuelUsageRate"}, Back::kFlag);
  ExpectBack(run, {"txtBOI_MaxRatedHeatInputRate", "txtBOI_MaxRatedFuelUsage"}, Back::kWindow);
  run.Put({{"txtBOI_HeatInputRate", "5"}, {"txtBOI_FuelUsageRate", "200"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Average Heat Input") + run.Finding("Average Fuel Usage"), "");
  ExpectBack(run, {"txtBOI_HeatInputRate", "txtBOI_FuelUsageRate"}, Back::kWindow);
}

TEST(Boiler, compares_the_gas_fuel_usages_on_oil_too) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdEdit");
  run.Put({{"txtBOI_FuelUsageRate", "201"}, {"txtBOI_MaxRatedFuelUsage", "200"}, {kFuel, "Diesel"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
}

TEST(Boiler, keeps_the_comparison_s_finding_while_the_maximum_heat_input_is_blank) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdEdit");
  run.Put({{"txtBOI_HeatInputRate", "6"}, {"txtBOI_MaxRatedHeatInputRate", "5"}});
  run.Click("cmdQC");
  run.Set("txtBOI_MaxRatedHeatInputRate", "");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Average Heat Input"), "Average Heat Input exceeds Max Rated Heat Input");
  EXPECT_EQ(run.Finding("Max Rated Heat Input"), kBlankFinding);
}

TEST(Boiler, neither_checks_nor_clears_the_set_that_its_fuel_does_not_choose) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdEdit");
  run.Put({{kFuel, "Diesel"},
           {"txtBOI_MaxRatedFuelUsageOil", "4999"},
           {"txtBOI_FuelHeatingValueOil", "900"},
           {"txtBOI_FuelH2SContentOil", "1"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Max Rated Fuel Usage"), "Value not in expected range (5000 to 20000)");
  run.Put({{kFuel, "Natural Gas"},
           {"txtBOI_MaxRatedFuelUsage", "200"},
           {"txtBOI_FuelHeatingValue", "400"},
           {"txtBOI_FuelH2SContent", "1"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Max Rated Fuel Usage"), "Value not in expected range (5000 to 20000)");
  EXPECT_EQ(run.Finding("Fuel Heating Value"), "Value not in expected range (500 to 1500)");
  EXPECT_EQ(run.Finding("Fuel H2S Content"), "");
  run.Set(kFuel, "Diesel");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Fuel Heating Value"), "Value not in expected range (500 to 1500)");
}

TEST(Boiler, on_natural_gas_may_use_the_structure_s_total_and_not_more) {
  TestRun run;
  StartMonth(run, "Natural Gas", "TOT_FUEL_USE_NG", "100");
  EXPECT_EQ(FindingAt(run, "100.01"), kOverTotal);
  EXPECT_EQ(run.At("txtBOI_TotalFuelUsed").back, Back::kFlag);
  EXPECT_EQ(FindingAt(run, "100"), "");
  EXPECT_EQ(run.At("txtBOI_TotalFuelUsed").back, Back::kWindow);
}

TEST(Boiler, is_compared_with_the_structure_in_single_precision) {
  TestRun run;
  StartMonth(run, "Natural Gas", "TOT_FUEL_USE_NG", "16777216");
  EXPECT_EQ(FindingAt(run, "16777217"), "");
  EXPECT_EQ(FindingAt(run, "16777218"), kOverTotal);
}

TEST(Boiler, is_not_compared_with_a_total_that_rounds_to_none) {
  for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
    TestRun run;
    StartMonth(run, "Natural Gas", "TOT_FUEL_USE_NG", total);
    EXPECT_EQ(FindingAt(run, "5000"), "") << total;
  }
  TestRun run;
  StartMonth(run, "Natural Gas", "TOT_FUEL_USE_NG", "0.51");
  EXPECT_EQ(FindingAt(run, "5000"), kOverTotal);
}

TEST(Boiler, on_another_gas_is_compared_with_no_total) {
  for (const char* fuel : {"Process Gas", "Waste Gas"}) {
    TestRun run;
    StartMonth(run, fuel, "TOT_FUEL_USE_NG", "1");
    run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_DIE=1,TOT_FUEL_USE_GAS=1");
    EXPECT_EQ(FindingAt(run, "5000"), "") << fuel;
  }
}

TEST(Boiler, on_oil_is_not_compared_with_the_structure) {
  for (const std::string& fuel : kOilFuels) {
    TestRun run;
    StartMonth(run, fuel, "TOT_FUEL_USE_DIE", "1");
    run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=1,TOT_FUEL_USE_GAS=1");
    run.Put({{"txtBOI_TotalFuelUsedOil", "5000"}, {"txtBOI_FuelUsageRateOil", "10"}});
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Total Fuel Used"), "") << fuel;
  }
}

TEST(Boiler, of_too_much_fuel_and_of_a_range_failure_tells_the_structure_s_finding) {
  TestRun run;
  StartMonth(run, "Natural Gas", "TOT_FUEL_USE_NG", "100");
  EXPECT_EQ(FindingAt(run, "300000100"), kOverTotal);
  EXPECT_EQ(FindingAt(run, "-1"), "Value not in expected range (0 to 300000000)");
  EXPECT_EQ(run.At("txtBOI_TotalFuelUsed").back, Back::kFlag);
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

TEST(Boiler, needs_its_emission_controls_and_marks_them_either_way) {
  TestRun run;
  run.StartWith("BOI", "B1");
  run.Click("cmdEdit");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Emissions Controls"), kBlankFinding);
  ExpectBack(run, {"cmbBOI_EmissionControls", kFuel}, Back::kFlag);
  run.Put({{"cmbBOI_EmissionControls", "Low NOx Burner"}, {kFuel, "Diesel"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Emissions Controls") + run.Finding("Fuel Type"), "");
  ExpectBack(run, {"cmbBOI_EmissionControls"}, Back::kWindow);
  ExpectBack(run, {kFuel}, Back::kFlag);
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
