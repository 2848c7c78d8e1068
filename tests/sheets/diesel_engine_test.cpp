#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kFuel = "cmbDIE_FuelType";
const char* const kOverTotal = "Value exceeds total fuel used for structure";

// FieldIDs of the open findings, in the order of the log.
std::string Fields(TestRun& run) {
  return NullToEmpty(run.Sql("SELECT group_concat(FieldID,'|') FROM (SELECT FieldID FROM QC ORDER BY rowid)"));
}

// In the first month of an engine on that fuel.
void StartMonth(TestRun& run, const std::string& fuel) {
  run.StartWith("DIE", "D1");
  run.Keep({{kFuel, fuel}});
  run.GoTo("DIE", "D1", Mode::kActv);
  run.Click("cmdEdit");
}

void SetTotal(TestRun& run, const std::string& column, const std::string& total) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET " + column + "=" + total);
}

// The finding of the month's total at that value.
std::string FindingAt(TestRun& run, const std::string& value) {
  run.Set("txtDIE_TotalFuelUsed", value);
  run.Click("cmdQC");
  return run.Finding("Total Fuel Used");
}

void TryDescription(const Values& base, double heating_low, double heating_high) {
  TryBounds({.type = "DIE",
             .mode = Mode::kDesc,
             .description = {},
             .base = base,
             .required = {{"txtDIE_OperatingHP", "Operating Horsepower", 5, 3000},
                          {"txtDIE_FuelUsageRate", "Average Fuel Usage", 0, 8500},
                          {"txtDIE_MaxHP", "Max Rated Horsepower", 10, 3000},
                          {"txtDIE_FuelHeatingValue", "Fuel Heating Value", heating_low, heating_high},
                          {"txtDIE_FuelSulfurContent", "Fuel Sulfur Content", 0, 5},
                          {"txtDIE_MaxRatedFuelUsage", "Max Rated Fuel Usage", 0, 20000}},
             .if_filled = {}});
}

void TryMonth(const Values& description, double total) {
  TryBounds({.type = "DIE",
             .mode = Mode::kActv,
             .description = description,
             .base = {},
             .required = {{"txtDIE_HrsOperated", "Hours Operated", 0, 744},
                          {"txtDIE_TotalFuelUsed", "Total Fuel Used", 0, total}},
             .if_filled = {}});
}

TEST(DieselEngine, on_gasoline_is_held_to_the_bounds_of_gasoline) {
  TryDescription({{kFuel, "Gasoline"}}, 19000, 22000);
  TryMonth({{kFuel, "Gasoline"}}, 10000);
}

TEST(DieselEngine, on_any_other_fuel_or_none_is_held_to_the_bounds_of_diesel) {
  for (const char* fuel : {"Diesel", "Waste Oil/Solvent"}) {
    TryDescription({{kFuel, fuel}}, 18000, 21000);
    TryMonth({{kFuel, fuel}}, 350000);
  }
  TryDescription({}, 18000, 21000);
  TryMonth({}, 350000);
}

TEST(DieselEngine, misses_these_fields_of_a_blank_description_in_this_order) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.Click("cmdQC");
  EXPECT_EQ(
      Fields(run),
      "Operating Horsepower|Average Fuel Usage|Fuel Type|Max Rated Horsepower|Fuel Heating Value|Fuel Sulfur Content|"
      "Max Rated Fuel Usage|Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|"
      "Exhaust Exit Temperature|Exhaust Outlet Orientation");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'DESC'"), 0);
}

TEST(DieselEngine, misses_these_fields_of_a_blank_month_in_this_order) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.GoTo("DIE", "D1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(Fields(run), "Hours Operated|Total Fuel Used");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'ACTV'"), 0);
}

TEST(DieselEngine, loses_four_texts_that_are_no_numbers_to_a_run_and_then_misses_them) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.Click("cmdEdit");
  const Values fields = {{"txtDIE_OperatingHP", "Operating Horsepower"},
                         {"txtDIE_MaxHP", "Max Rated Horsepower"},
                         {"txtDIE_FuelUsageRate", "Average Fuel Usage"},
                         {"txtDIE_MaxRatedFuelUsage", "Max Rated Fuel Usage"}};
  for (const auto& [field, tag] : fields) run.Set(field, "100 hp");
  run.Set("txtDIE_FuelSulfurContent", "2 %");
  run.Click("cmdQC");
  for (const auto& [field, tag] : fields) {
    EXPECT_EQ(run.Text(field), "") << field;
    EXPECT_EQ(run.Finding(tag), kBlankFinding) << field;
  }
  EXPECT_EQ(run.Text("txtDIE_FuelSulfurContent"), "2 %");
  EXPECT_EQ(run.Finding("Fuel Sulfur Content"), "");
}

TEST(DieselEngine, may_run_at_its_maximum_and_not_above) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.Click("cmdEdit");
  run.Put({{"txtDIE_OperatingHP", "100.01"},
           {"txtDIE_MaxHP", "100"},
           {"txtDIE_FuelUsageRate", "70.01"},
           {"txtDIE_MaxRatedFuelUsage", "70"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Operating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(run.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
  EXPECT_EQ(run.At("txtDIE_OperatingHP").back, Back::kFlag);
  EXPECT_EQ(run.At("txtDIE_FuelUsageRate").back, Back::kFlag);
  EXPECT_EQ(run.At("txtDIE_MaxHP").back, Back::kWindow);
  run.Put({{"txtDIE_OperatingHP", "100"}, {"txtDIE_FuelUsageRate", "70"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Operating Horsepower") + run.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(run.At("txtDIE_OperatingHP").back, Back::kWindow);
}

TEST(DieselEngine, keeps_a_comparison_s_finding_while_a_maximum_is_blank) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.Click("cmdEdit");
  run.Put({{"txtDIE_OperatingHP", "101"},
           {"txtDIE_MaxHP", "100"},
           {"txtDIE_FuelUsageRate", "71"},
           {"txtDIE_MaxRatedFuelUsage", "70"}});
  run.Click("cmdQC");
  run.Put({{"txtDIE_MaxHP", ""}, {"txtDIE_MaxRatedFuelUsage", ""}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Operating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(run.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
}

TEST(DieselEngine, of_a_blank_maximum_is_not_compared) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.Click("cmdEdit");
  run.Put({{"txtDIE_OperatingHP", "100"}, {"txtDIE_FuelUsageRate", "70"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Operating Horsepower") + run.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(run.Finding("Max Rated Horsepower"), kBlankFinding);
}

TEST(DieselEngine, on_gasoline_fails_at_a_total_that_passes_on_diesel) {
  for (const auto& [fuel, finding] : Values{{"Gasoline", "Value not in expected range (0 to 10000)"}, {"Diesel", ""}}) {
    TestRun run;
    StartMonth(run, fuel);
    EXPECT_EQ(FindingAt(run, "15000"), finding) << fuel;
  }
}

TEST(DieselEngine, that_changes_its_fuel_keeps_the_finding_of_the_old_bounds) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.Click("cmdEdit");
  run.Put({{kFuel, "Gasoline"}, {"txtDIE_FuelHeatingValue", "18500"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Fuel Heating Value"), "Value not in expected range (19000 to 22000)");
  run.Set(kFuel, "Diesel");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Fuel Heating Value"), "Value not in expected range (19000 to 22000)");
  EXPECT_EQ(run.At("txtDIE_FuelHeatingValue").back, Back::kWindow);
  run.Set("txtDIE_FuelHeatingValue", "17999");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Fuel Heating Value"), "Value not in expected range (18000 to 21000)");
  run.Set("txtDIE_FuelHeatingValue", "18500");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Fuel Heating Value"), "");
}

TEST(DieselEngine, may_use_the_structure_s_total_of_its_fuel_and_not_more) {
  for (const auto& [fuel, column] : Values{{"Gasoline", "TOT_FUEL_USE_GAS"}, {"Diesel", "TOT_FUEL_USE_DIE"}}) {
    TestRun run;
    StartMonth(run, fuel);
    SetTotal(run, "TOT_FUEL_USE_GAS", "1");
    SetTotal(run, "TOT_FUEL_USE_DIE", "1");
    SetTotal(run, "TOT_FUEL_USE_NG", "1");
    SetTotal(run, column, "100");
    EXPECT_EQ(FindingAt(run, "100.01"), kOverTotal) << fuel;
    EXPECT_EQ(run.At("txtDIE_TotalFuelUsed").back, Back::kFlag);
    EXPECT_EQ(FindingAt(run, "100"), "") << fuel;
    EXPECT_EQ(run.At("txtDIE_TotalFuelUsed").back, Back::kWindow);
  }
}

TEST(DieselEngine, on_waste_oil_or_nothing_is_compared_with_no_total) {
  for (const char* fuel : {"Waste Oil/Solvent", ""}) {
    TestRun run;
    run.StartWith("DIE", "D1");
    if (*fuel != '\0') run.Keep({{kFuel, fuel}});
    run.GoTo("DIE", "D1", Mode::kActv);
    for (const char* column : {"TOT_FUEL_USE_GAS", "TOT_FUEL_USE_DIE", "TOT_FUEL_USE_NG"}) SetTotal(run, column, "1");
    run.Click("cmdEdit");
    EXPECT_EQ(FindingAt(run, "5000"), "") << fuel;
  }
}

TEST(DieselEngine, is_not_compared_with_a_total_that_rounds_to_none) {
  TestRun run;
  StartMonth(run, "Diesel");
  for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
    SetTotal(run, "TOT_FUEL_USE_DIE", total);
    EXPECT_EQ(FindingAt(run, "5000"), "") << total;
  }
  SetTotal(run, "TOT_FUEL_USE_DIE", "0.51");
  EXPECT_EQ(FindingAt(run, "5000"), kOverTotal);
}

TEST(DieselEngine, is_compared_with_the_structure_in_single_precision) {
  TestRun run;
  StartMonth(run, "Diesel");
  SetTotal(run, "TOT_FUEL_USE_DIE", "300000");
  EXPECT_EQ(FindingAt(run, "300000.01"), "");
  EXPECT_EQ(FindingAt(run, "300000.1"), kOverTotal);
}

TEST(DieselEngine, of_too_much_fuel_and_of_a_range_failure_tells_the_structure_s_finding) {
  TestRun run;
  StartMonth(run, "Diesel");
  SetTotal(run, "TOT_FUEL_USE_DIE", "100");
  EXPECT_EQ(FindingAt(run, "350001"), kOverTotal);
  SetTotal(run, "TOT_FUEL_USE_DIE", "NULL");
  EXPECT_EQ(FindingAt(run, "350001"), "Value not in expected range (0 to 350000)");
}

TEST(DieselEngine, keeps_its_own_month_before_the_comment_and_the_status) {
  TestRun run;
  StartMonth(run, "Diesel");
  run.s.db.Execute("CREATE TEMP TRIGGER full BEFORE UPDATE ON EA_EQUIP_ACTV BEGIN SELECT RAISE(ABORT,'full'); END");
  run.Put({{"txtDIE_HrsOperated", "5"}, {"txtDIE_Comments", "first"}});
  run.TakeBoxes();
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes().size(), 1u);
  EXPECT_EQ(ToNumber(run.Sql("SELECT OP_HR FROM EA_DIE")), 5);
  EXPECT_TRUE(IsNull(run.Sql("SELECT EA_COMNT_TXT FROM EA_EQUIP_ACTV")));
}

TEST(DieselEngine, without_activity_in_a_month_keeps_its_status_and_says_nothing) {
  TestRun run;
  StartMonth(run, "Diesel");
  run.Put({{"txtDIE_HrsOperated", "0"}, {"txtDIE_TotalFuelUsed", "0"}});
  run.TakeBoxes();
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Names{});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EA_STATUS FROM EA_EQUIP_ACTV")), "A");
  run.Check("chkDIE_Status", true);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Names{});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EA_STATUS FROM EA_EQUIP_ACTV")), "I");
}

TEST(DieselEngine, keeps_its_description_and_reads_it_back) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.Keep({{"txtDIE_MaxHP", "1.5"},
            {"txtDIE_OperatingHP", "2.5"},
            {"txtDIE_MaxRatedFuelUsage", "3.5"},
            {"txtDIE_FuelUsageRate", "4.5"},
            {"txtDIE_FuelHeatingValue", "5.5"},
            {"txtDIE_FuelSulfurContent", "6.5"}});
  EXPECT_EQ(NullToEmpty(run.Sql(
                "SELECT MAX_HP||' '||OP_HP||' '||MAX_RATED_FUEL_USE||' '||FUEL_USE_RATE||' '||FUEL_HEAT_VAL||' '"
                "||FUEL_SULFUR_CONTENT FROM ED_DIE")),
            "1.5 2.5 3.5 4.5 5.5 6.5");
  std::string texts;
  for (const char* field :
       {"MaxHP", "OperatingHP", "MaxRatedFuelUsage", "FuelUsageRate", "FuelHeatingValue", "FuelSulfurContent"})
    texts += run.Text(std::string("txtDIE_") + field) + " ";
  EXPECT_EQ(texts, "1.5 2.5 3.5 4.5 5.5 6.5 ");
  for (const auto& [fuel, code] : Values{{"Diesel", "D"}, {"Gasoline", "G"}, {"Waste Oil/Solvent", "W"}}) {
    run.Keep({{kFuel, fuel}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT FUEL_TYP FROM ED_DIE")), code);
    EXPECT_EQ(run.Text(kFuel), fuel);
  }
}

TEST(DieselEngine, keeps_its_month_and_reads_it_back) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.GoTo("DIE", "D1", Mode::kActv);
  run.Keep({{"txtDIE_HrsOperated", "1.5"}, {"txtDIE_TotalFuelUsed", "2.5"}});
  EXPECT_EQ(run.Count("EA_DIE WHERE OP_HR=1.5 AND TOT_FUEL_USE=2.5"), 1);
  EXPECT_EQ(run.Text("txtDIE_HrsOperated") + " " + run.Text("txtDIE_TotalFuelUsed"), "1.5 2.5");
}

TEST(DieselEngine, has_its_captions_tags_and_fuels) {
  TestRun run;
  run.StartWith("DIE", "D1");
  const std::vector<std::array<std::string, 3>> fields = {
      {kFuel, "", "Fuel Type"},
      {"txtDIE_MaxHP", "Max Rated Horsepower (hp):", "Max Rated Horsepower"},
      {"txtDIE_OperatingHP", "Operating Horsepower (hp):", "Operating Horsepower"},
      {"txtDIE_MaxRatedFuelUsage", "Max Rated Fuel Usage (Btu/hp-hr):", "Max Rated Fuel Usage"},
      {"txtDIE_FuelUsageRate", "Average Fuel Usage (Btu/hp-hr):", "Average Fuel Usage"},
      {"txtDIE_FuelHeatingValue", "Fuel Heating Value (Btu/lb):", "Fuel Heating Value"},
      {"txtDIE_FuelSulfurContent", "Fuel Sulfur Content (% by mass):", "Fuel Sulfur Content"},
      {"txtDIE_HrsOperated", "Hours Operated (hrs):", "Hours Operated"},
      {"txtDIE_TotalFuelUsed", "Total Fuel Used (gal):", "Total Fuel Used"},
      {"txtDIE_Comments", "Comments:", ""}};
  for (const auto& [control, caption, tag] : fields) {
    EXPECT_EQ(run.At(control).caption, caption);
    EXPECT_EQ(run.At(control).tag, tag);
  }
  EXPECT_EQ(run.At(kFuel).items, (Names{"Diesel", "Gasoline", "Waste Oil/Solvent"}));
}

}  // namespace
}  // namespace merlu::test
