#include <gtest/gtest.h>

#include "rules/same_rules.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kFuel = "cmbBOI_FuelType";
const char* const kOverTotal = "Value exceeds total fuel used for structure";

void ExpectMark(const SheetRecord& record, const Names& fields, Mark mark) {
  for (const std::string& field : fields) EXPECT_EQ(record.MarkOf(field), mark) << field;
}

// The first month of a boiler with that fuel, on a structure with that total.
SheetRecord InMonth(const std::string& fuel, const std::string& column, const std::string& total) {
  SheetRecord record("BOI", Mode::kActv, {{kFuel, fuel}});
  record.SetTotal(column, total);
  return record;
}

// The finding of the month's gas total at that value.
std::string FindingAt(SheetRecord& record, const std::string& value) {
  record.Set("txtBOI_TotalFuelUsed", value);
  record.Run();
  return record.Finding("Total Fuel Used");
}

TEST(Boiler, misses_these_fields_of_a_blank_description_in_this_order) {
  ExpectMissing(
      "BOI", Mode::kDesc,
      "Fuel Type|Max Rated Fuel Usage|Fuel Heating Value|Fuel H2S Content|Average Fuel Usage|Average Heat Input|"
      "Max Rated Heat Input|Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|"
      "Exhaust Exit Temperature|Exhaust Outlet Orientation|Emissions Controls");
}

TEST(Boiler, on_oil_misses_these_fields_of_a_blank_description_in_this_order) {
  SheetRecord record("BOI", Mode::kDesc);
  record.Put({{kFuel, "Waste Oil"}, {"cmbBOI_OtherControlDevice", "Yes"}});
  record.Run();
  EXPECT_EQ(record.Fields(),
            "Max Rated Fuel Usage|Fuel Heating Value|Fuel H2S Content|Average Heat Input|Max Rated Heat Input|"
            "Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|Exhaust Exit Temperature|"
            "Exhaust Outlet Orientation|Emissions Controls|Other Control Device Descrip.");
  EXPECT_TRUE(record.FindsOnlyBlanks());
}

TEST(Boiler, misses_these_fields_of_a_blank_month_in_this_order) {
  for (const auto& [fuel, fields] : Values{{"Process Gas", "Total Fuel Used|Hours Operated"},
                                           {"Diesel", "Average Fuel Usage|Total Fuel Used|Hours Operated"}}) {
    SheetRecord record("BOI", Mode::kActv, {{kFuel, fuel}});
    record.Run();
    EXPECT_EQ(record.Fields(), fields) << fuel;
    EXPECT_TRUE(record.FindsOnlyBlanks()) << fuel;
  }
}

TEST(Boiler, loses_four_texts_that_are_no_numbers_to_a_run_and_then_misses_them) {
  SheetRecord record("BOI", Mode::kDesc);
  record.Put({{"txtBOI_HeatInputRate", "about 5"},
              {"txtBOI_MaxRatedHeatInputRate", "5x"},
              {"txtBOI_FuelUsageRate", "."},
              {"txtBOI_MaxRatedFuelUsage", "1 000"},
              {"txtBOI_FuelHeatingValue", "900x"}});
  record.Run();
  for (const auto& [field, tag] : Values{{"txtBOI_HeatInputRate", "Average Heat Input"},
                                         {"txtBOI_MaxRatedHeatInputRate", "Max Rated Heat Input"},
                                         {"txtBOI_FuelUsageRate", "Average Fuel Usage"},
                                         {"txtBOI_MaxRatedFuelUsage", "Max Rated Fuel Usage"}}) {
    EXPECT_EQ(record.Text(field), "") << field;
    EXPECT_EQ(record.Finding(tag), kBlankFinding) << field;
  }
  EXPECT_EQ(record.Text("txtBOI_FuelHeatingValue"), "900x");
  EXPECT_EQ(record.Finding("Fuel Heating Value"), "");
}

TEST(Boiler, may_average_its_maximum_and_not_more) {
  SheetRecord record("BOI", Mode::kDesc);
  record.Put({{kFuel, "Natural Gas"},
              {"txtBOI_HeatInputRate", "5.01"},
              {"txtBOI_MaxRatedHeatInputRate", "5"},
              {"txtBOI_FuelUsageRate", "200.01"},
              {"txtBOI_MaxRatedFuelUsage", "200"}});
  record.Run();
  EXPECT_EQ(record.Finding("Average Heat Input"), "Average Heat Input exceeds Max Rated Heat Input");
  EXPECT_EQ(record.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
  ExpectMark(record, {"txtBOI_HeatInputRate", "txtBOI_FuelUsageRate"}, Mark::kFlag);
  ExpectMark(record, {"txtBOI_MaxRatedHeatInputRate", "txtBOI_MaxRatedFuelUsage"}, Mark::kPlain);
  record.Put({{"txtBOI_HeatInputRate", "5"}, {"txtBOI_FuelUsageRate", "200"}});
  record.Run();
  EXPECT_EQ(record.Finding("Average Heat Input") + record.Finding("Average Fuel Usage"), "");
  ExpectMark(record, {"txtBOI_HeatInputRate", "txtBOI_FuelUsageRate"}, Mark::kPlain);
}

TEST(Boiler, compares_the_gas_fuel_usages_on_oil_too) {
  SheetRecord record("BOI", Mode::kDesc);
  record.Put({{"txtBOI_FuelUsageRate", "201"}, {"txtBOI_MaxRatedFuelUsage", "200"}, {kFuel, "Diesel"}});
  record.Run();
  EXPECT_EQ(record.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
}

TEST(Boiler, keeps_the_comparison_s_finding_while_the_maximum_heat_input_is_blank) {
  SheetRecord record("BOI", Mode::kDesc);
  record.Put({{"txtBOI_HeatInputRate", "6"}, {"txtBOI_MaxRatedHeatInputRate", "5"}});
  record.Run();
  record.Set("txtBOI_MaxRatedHeatInputRate", "");
  record.Run();
  EXPECT_EQ(record.Finding("Average Heat Input"), "Average Heat Input exceeds Max Rated Heat Input");
  EXPECT_EQ(record.Finding("Max Rated Heat Input"), kBlankFinding);
}

TEST(Boiler, neither_checks_nor_clears_the_set_that_its_fuel_does_not_choose) {
  SheetRecord record("BOI", Mode::kDesc);
  record.Put({{kFuel, "Diesel"},
              {"txtBOI_MaxRatedFuelUsageOil", "4999"},
              {"txtBOI_FuelHeatingValueOil", "900"},
              {"txtBOI_FuelH2SContentOil", "1"}});
  record.Run();
  EXPECT_EQ(record.Finding("Max Rated Fuel Usage"), "Value not in expected range (5000 to 20000)");
  record.Put({{kFuel, "Natural Gas"},
              {"txtBOI_MaxRatedFuelUsage", "200"},
              {"txtBOI_FuelHeatingValue", "400"},
              {"txtBOI_FuelH2SContent", "1"}});
  record.Run();
  EXPECT_EQ(record.Finding("Max Rated Fuel Usage"), "Value not in expected range (5000 to 20000)");
  EXPECT_EQ(record.Finding("Fuel Heating Value"), "Value not in expected range (500 to 1500)");
  EXPECT_EQ(record.Finding("Fuel H2S Content"), "");
  record.Set(kFuel, "Diesel");
  record.Run();
  EXPECT_EQ(record.Finding("Fuel Heating Value"), "Value not in expected range (500 to 1500)");
}

TEST(Boiler, on_natural_gas_may_use_the_structure_s_total_and_not_more) {
  SheetRecord record = InMonth("Natural Gas", "TOT_FUEL_USE_NG", "100");
  EXPECT_EQ(FindingAt(record, "100.01"), kOverTotal);
  EXPECT_EQ(record.MarkOf("txtBOI_TotalFuelUsed"), Mark::kFlag);
  EXPECT_EQ(FindingAt(record, "100"), "");
  EXPECT_EQ(record.MarkOf("txtBOI_TotalFuelUsed"), Mark::kPlain);
}

TEST(Boiler, is_compared_with_the_structure_in_single_precision) {
  SheetRecord record = InMonth("Natural Gas", "TOT_FUEL_USE_NG", "16777216");
  EXPECT_EQ(FindingAt(record, "16777217"), "");
  EXPECT_EQ(FindingAt(record, "16777218"), kOverTotal);
}

TEST(Boiler, is_not_compared_with_a_total_that_rounds_to_none) {
  for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
    SheetRecord record = InMonth("Natural Gas", "TOT_FUEL_USE_NG", total);
    EXPECT_EQ(FindingAt(record, "5000"), "") << total;
  }
  SheetRecord record = InMonth("Natural Gas", "TOT_FUEL_USE_NG", "0.51");
  EXPECT_EQ(FindingAt(record, "5000"), kOverTotal);
}

TEST(Boiler, on_another_gas_is_compared_with_no_total) {
  for (const char* fuel : {"Process Gas", "Waste Gas"}) {
    SheetRecord record = InMonth(fuel, "TOT_FUEL_USE_NG", "1");
    record.SetTotal("TOT_FUEL_USE_DIE", "1");
    record.SetTotal("TOT_FUEL_USE_GAS", "1");
    EXPECT_EQ(FindingAt(record, "5000"), "") << fuel;
  }
}

TEST(Boiler, on_oil_is_not_compared_with_the_structure) {
  for (const char* fuel : {"Diesel", "Waste Oil"}) {
    SheetRecord record = InMonth(fuel, "TOT_FUEL_USE_DIE", "1");
    record.SetTotal("TOT_FUEL_USE_NG", "1");
    record.SetTotal("TOT_FUEL_USE_GAS", "1");
    record.Put({{"txtBOI_TotalFuelUsedOil", "5000"}, {"txtBOI_FuelUsageRateOil", "10"}});
    record.Run();
    EXPECT_EQ(record.Finding("Total Fuel Used"), "") << fuel;
  }
}

TEST(Boiler, of_too_much_fuel_and_of_a_range_failure_tells_the_structure_s_finding) {
  SheetRecord record = InMonth("Natural Gas", "TOT_FUEL_USE_NG", "100");
  EXPECT_EQ(FindingAt(record, "300000100"), kOverTotal);
  EXPECT_EQ(FindingAt(record, "-1"), "Value not in expected range (0 to 300000000)");
  EXPECT_EQ(record.MarkOf("txtBOI_TotalFuelUsed"), Mark::kFlag);
}

TEST(Boiler, needs_its_emission_controls_and_marks_them_either_way) {
  SheetRecord record("BOI", Mode::kDesc);
  record.Run();
  EXPECT_EQ(record.Finding("Emissions Controls"), kBlankFinding);
  ExpectMark(record, {"cmbBOI_EmissionControls", kFuel}, Mark::kFlag);
  record.Put({{"cmbBOI_EmissionControls", "Low NOx Burner"}, {kFuel, "Diesel"}});
  record.Run();
  EXPECT_EQ(record.Finding("Emissions Controls") + record.Finding("Fuel Type"), "");
  ExpectMark(record, {"cmbBOI_EmissionControls"}, Mark::kPlain);
  ExpectMark(record, {kFuel}, Mark::kFlag);
}

}  // namespace
}  // namespace merlu::test
