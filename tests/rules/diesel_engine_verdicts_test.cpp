#include <gtest/gtest.h>

#include "rules/same_rules.h"

namespace merlu::test {
namespace {

const char* const kFuel = "cmbDIE_FuelType";
const char* const kOverTotal = "Value exceeds total fuel used for structure";

// The first month of an engine on that fuel.
SheetRecord InMonth(const std::string& fuel) {
  return {"DIE", Mode::kActv, {{kFuel, fuel}}};
}

// The finding of the month's total at that value.
std::string FindingAt(SheetRecord& record, const std::string& value) {
  record.Set("txtDIE_TotalFuelUsed", value);
  record.Run();
  return record.Finding("Total Fuel Used");
}

TEST(DieselEngine, misses_these_fields_of_a_blank_description_in_this_order) {
  ExpectMissing(
      "DIE", Mode::kDesc,
      "Operating Horsepower|Average Fuel Usage|Fuel Type|Max Rated Horsepower|Fuel Heating Value|Fuel Sulfur Content|"
      "Max Rated Fuel Usage|Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|"
      "Exhaust Exit Temperature|Exhaust Outlet Orientation");
}

TEST(DieselEngine, misses_these_fields_of_a_blank_month_in_this_order) {
  ExpectMissing("DIE", Mode::kActv, "Hours Operated|Total Fuel Used");
}

TEST(DieselEngine, loses_four_texts_that_are_no_numbers_to_a_run_and_then_misses_them) {
  SheetRecord record("DIE", Mode::kDesc);
  const Values fields = {{"txtDIE_OperatingHP", "Operating Horsepower"},
                         {"txtDIE_MaxHP", "Max Rated Horsepower"},
                         {"txtDIE_FuelUsageRate", "Average Fuel Usage"},
                         {"txtDIE_MaxRatedFuelUsage", "Max Rated Fuel Usage"}};
  for (const auto& [field, tag] : fields) record.Set(field, "100 hp");
  record.Set("txtDIE_FuelSulfurContent", "2 %");
  record.Run();
  for (const auto& [field, tag] : fields) {
    EXPECT_EQ(record.Text(field), "") << field;
    EXPECT_EQ(record.Finding(tag), kBlankFinding) << field;
  }
  EXPECT_EQ(record.Text("txtDIE_FuelSulfurContent"), "2 %");
  EXPECT_EQ(record.Finding("Fuel Sulfur Content"), "");
}

TEST(DieselEngine, may_run_at_its_maximum_and_not_above) {
  SheetRecord record("DIE", Mode::kDesc);
  record.Put({{"txtDIE_OperatingHP", "100.01"},
              {"txtDIE_MaxHP", "100"},
              {"txtDIE_FuelUsageRate", "70.01"},
              {"txtDIE_MaxRatedFuelUsage", "70"}});
  record.Run();
  EXPECT_EQ(record.Finding("Operating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(record.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
  EXPECT_EQ(record.MarkOf("txtDIE_OperatingHP"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("txtDIE_FuelUsageRate"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("txtDIE_MaxHP"), Mark::kPlain);
  record.Put({{"txtDIE_OperatingHP", "100"}, {"txtDIE_FuelUsageRate", "70"}});
  record.Run();
  EXPECT_EQ(record.Finding("Operating Horsepower") + record.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(record.MarkOf("txtDIE_OperatingHP"), Mark::kPlain);
}

TEST(DieselEngine, keeps_a_comparison_s_finding_while_a_maximum_is_blank) {
  SheetRecord record("DIE", Mode::kDesc);
  record.Put({{"txtDIE_OperatingHP", "101"},
              {"txtDIE_MaxHP", "100"},
              {"txtDIE_FuelUsageRate", "71"},
              {"txtDIE_MaxRatedFuelUsage", "70"}});
  record.Run();
  record.Put({{"txtDIE_MaxHP", ""}, {"txtDIE_MaxRatedFuelUsage", ""}});
  record.Run();
  EXPECT_EQ(record.Finding("Operating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(record.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
}

TEST(DieselEngine, of_a_blank_maximum_is_not_compared) {
  SheetRecord record("DIE", Mode::kDesc);
  record.Put({{"txtDIE_OperatingHP", "100"}, {"txtDIE_FuelUsageRate", "70"}});
  record.Run();
  EXPECT_EQ(record.Finding("Operating Horsepower") + record.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(record.Finding("Max Rated Horsepower"), kBlankFinding);
}

TEST(DieselEngine, on_gasoline_fails_at_a_total_that_passes_on_diesel) {
  for (const auto& [fuel, finding] : Values{{"Gasoline", "Value not in expected range (0 to 10000)"}, {"Diesel", ""}}) {
    SheetRecord record = InMonth(fuel);
    EXPECT_EQ(FindingAt(record, "15000"), finding) << fuel;
  }
}

TEST(DieselEngine, that_changes_its_fuel_keeps_the_finding_of_the_old_bounds) {
  SheetRecord record("DIE", Mode::kDesc);
  record.Put({{kFuel, "Gasoline"}, {"txtDIE_FuelHeatingValue", "18500"}});
  record.Run();
  EXPECT_EQ(record.Finding("Fuel Heating Value"), "Value not in expected range (19000 to 22000)");
  record.Set(kFuel, "Diesel");
  record.Run();
  EXPECT_EQ(record.Finding("Fuel Heating Value"), "Value not in expected range (19000 to 22000)");
  EXPECT_EQ(record.MarkOf("txtDIE_FuelHeatingValue"), Mark::kPlain);
  record.Set("txtDIE_FuelHeatingValue", "17999");
  record.Run();
  EXPECT_EQ(record.Finding("Fuel Heating Value"), "Value not in expected range (18000 to 21000)");
  record.Set("txtDIE_FuelHeatingValue", "18500");
  record.Run();
  EXPECT_EQ(record.Finding("Fuel Heating Value"), "");
}

TEST(DieselEngine, may_use_the_structure_s_total_of_its_fuel_and_not_more) {
  for (const auto& [fuel, column] : Values{{"Gasoline", "TOT_FUEL_USE_GAS"}, {"Diesel", "TOT_FUEL_USE_DIE"}}) {
    SheetRecord record = InMonth(fuel);
    record.SetTotal("TOT_FUEL_USE_GAS", "1");
    record.SetTotal("TOT_FUEL_USE_DIE", "1");
    record.SetTotal("TOT_FUEL_USE_NG", "1");
    record.SetTotal(column, "100");
    EXPECT_EQ(FindingAt(record, "100.01"), kOverTotal) << fuel;
    EXPECT_EQ(record.MarkOf("txtDIE_TotalFuelUsed"), Mark::kFlag);
    EXPECT_EQ(FindingAt(record, "100"), "") << fuel;
    EXPECT_EQ(record.MarkOf("txtDIE_TotalFuelUsed"), Mark::kPlain);
  }
}

TEST(DieselEngine, on_waste_oil_or_nothing_is_compared_with_no_total) {
  for (const char* fuel : {"Waste Oil/Solvent", ""}) {
    SheetRecord record = InMonth(fuel);
    for (const char* column : {"TOT_FUEL_USE_GAS", "TOT_FUEL_USE_DIE", "TOT_FUEL_USE_NG"}) record.SetTotal(column, "1");
    EXPECT_EQ(FindingAt(record, "5000"), "") << fuel;
  }
}

TEST(DieselEngine, is_not_compared_with_a_total_that_rounds_to_none) {
  SheetRecord record = InMonth("Diesel");
  for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
    record.SetTotal("TOT_FUEL_USE_DIE", total);
    EXPECT_EQ(FindingAt(record, "5000"), "") << total;
  }
  record.SetTotal("TOT_FUEL_USE_DIE", "0.51");
  EXPECT_EQ(FindingAt(record, "5000"), kOverTotal);
}

TEST(DieselEngine, is_compared_with_the_structure_in_single_precision) {
  SheetRecord record = InMonth("Diesel");
  record.SetTotal("TOT_FUEL_USE_DIE", "300000");
  EXPECT_EQ(FindingAt(record, "300000.01"), "");
  EXPECT_EQ(FindingAt(record, "300000.1"), kOverTotal);
}

TEST(DieselEngine, of_too_much_fuel_and_of_a_range_failure_tells_the_structure_s_finding) {
  SheetRecord record = InMonth("Diesel");
  record.SetTotal("TOT_FUEL_USE_DIE", "100");
  EXPECT_EQ(FindingAt(record, "350001"), kOverTotal);
  record.SetTotal("TOT_FUEL_USE_DIE", "NULL");
  EXPECT_EQ(FindingAt(record, "350001"), "Value not in expected range (0 to 350000)");
}

}  // namespace
}  // namespace merlu::test
