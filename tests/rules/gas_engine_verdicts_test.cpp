#include <gtest/gtest.h>

#include <array>

#include "rules/same_rules.h"

namespace merlu::test {
namespace {

const char* const kTotal = "txtNGE_TotalFuelUsed";
const char* const kOverTotal = "Value exceeds N.G. usage for structure";

// The first month of an engine on a structure with that total of natural gas, and of no other fuel.
SheetRecord InMonth(const std::string& total) {
  SheetRecord record("NGE", Mode::kActv);
  record.SetTotal("TOT_FUEL_USE_NG", total);
  return record;
}

// The finding of the month's total at that value.
std::string FindingAt(SheetRecord& record, const std::string& value) {
  record.Set(kTotal, value);
  record.Run();
  return record.Finding("Total Fuel Used");
}

TEST(GasEngine, misses_these_fields_of_a_blank_description_in_this_order) {
  ExpectMissing(
      "NGE", Mode::kDesc,
      "Operating Horsepower|Average Fuel Usage|Max Rated Horsepower|Fuel Heating Value|Fuel H2S Content|Engine Burn|"
      "Max Rated Fuel Usage|Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|"
      "Exhaust Exit Temperature|Exhaust Emission Controls");
}

TEST(GasEngine, misses_these_fields_of_a_blank_month_in_this_order) {
  ExpectMissing("NGE", Mode::kActv, "Hours Operated|Total Fuel Used");
}

TEST(GasEngine, tells_a_missing_stroke_cycle_only_while_the_burn_type_of_the_same_tag_is_missing_too) {
  SheetRecord record("NGE", Mode::kDesc);
  record.Set("cmbNGE_EngineStrokeCycle", "2-Cycle");
  record.Run();
  EXPECT_EQ(record.Finding("Engine Burn"), kBlankFinding);
  EXPECT_EQ(record.MarkOf("cmbNGE_EngineBurnType"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("cmbNGE_EngineStrokeCycle"), Mark::kPlain);
  SheetRecord other("NGE", Mode::kDesc, {{"cmbNGE_EngineBurnType", "Lean"}});
  other.Run();
  EXPECT_EQ(other.Finding("Engine Burn"), "");
  EXPECT_EQ(other.MarkOf("cmbNGE_EngineBurnType"), Mark::kPlain);
  EXPECT_EQ(other.MarkOf("cmbNGE_EngineStrokeCycle"), Mark::kFlag);
}

TEST(GasEngine, loses_four_texts_that_are_no_numbers_to_a_run_and_then_misses_them) {
  SheetRecord record("NGE", Mode::kDesc);
  const Values fields = {{"txtNGE_OperatingHP", "Operating Horsepower"},
                         {"txtNGE_MaxHP", "Max Rated Horsepower"},
                         {"txtNGE_FuelUsageRate", "Average Fuel Usage"},
                         {"txtNGE_MaxRatedFuelUsage", "Max Rated Fuel Usage"}};
  for (const auto& [field, tag] : fields) record.Set(field, "100 hp");
  record.Set("txtNGE_FuelHeatingValue", "900x");
  record.Run();
  for (const auto& [field, tag] : fields) {
    EXPECT_EQ(record.Text(field), "") << field;
    EXPECT_EQ(record.Finding(tag), kBlankFinding) << field;
  }
  EXPECT_EQ(record.Text("txtNGE_FuelHeatingValue"), "900x");
  EXPECT_EQ(record.Finding("Fuel Heating Value"), "");
}

TEST(GasEngine, may_run_at_its_maximum_and_not_above) {
  SheetRecord record("NGE", Mode::kDesc);
  record.Put({{"txtNGE_OperatingHP", "100.01"},
              {"txtNGE_MaxHP", "100"},
              {"txtNGE_FuelUsageRate", "3000.01"},
              {"txtNGE_MaxRatedFuelUsage", "3000"}});
  record.Run();
  EXPECT_EQ(record.Finding("Operating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(record.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
  EXPECT_EQ(record.MarkOf("txtNGE_OperatingHP"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("txtNGE_FuelUsageRate"), Mark::kFlag);
  record.Put({{"txtNGE_OperatingHP", "100"}, {"txtNGE_FuelUsageRate", "3000"}});
  record.Run();
  EXPECT_EQ(record.Finding("Operating Horsepower") + record.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(record.MarkOf("txtNGE_OperatingHP"), Mark::kPlain);
  EXPECT_EQ(record.MarkOf("txtNGE_FuelUsageRate"), Mark::kPlain);
}

TEST(GasEngine, of_a_blank_maximum_neither_gets_nor_loses_a_comparison_s_finding) {
  SheetRecord record("NGE", Mode::kDesc);
  record.Put({{"txtNGE_OperatingHP", "200"}, {"txtNGE_FuelUsageRate", "4000"}});
  record.Run();
  EXPECT_EQ(record.Finding("Operating Horsepower") + record.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(record.Finding("Max Rated Horsepower"), kBlankFinding);
  record.Put({{"txtNGE_MaxHP", "100"}, {"txtNGE_MaxRatedFuelUsage", "3000"}});
  record.Run();
  record.Put({{"txtNGE_MaxHP", ""}, {"txtNGE_MaxRatedFuelUsage", ""}});
  record.Run();
  EXPECT_EQ(record.Finding("Operating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(record.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
}

TEST(GasEngine, may_use_the_structure_s_natural_gas_and_not_more) {
  SheetRecord record = InMonth("100");
  EXPECT_EQ(FindingAt(record, "100.01"), kOverTotal);
  EXPECT_EQ(record.MarkOf(kTotal), Mark::kFlag);
  EXPECT_EQ(FindingAt(record, "100"), "");
  EXPECT_EQ(record.MarkOf(kTotal), Mark::kPlain);
}

TEST(GasEngine, is_not_compared_with_a_total_that_rounds_to_none) {
  SheetRecord record = InMonth("NULL");
  record.SetTotal("TOT_FUEL_USE_GAS", "1");
  record.SetTotal("TOT_FUEL_USE_DIE", "1");
  for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
    record.SetTotal("TOT_FUEL_USE_NG", total);
    EXPECT_EQ(FindingAt(record, "5000"), "") << total;
  }
  record.SetTotal("TOT_FUEL_USE_NG", "0.51");
  EXPECT_EQ(FindingAt(record, "5000"), kOverTotal);
}

TEST(GasEngine, is_compared_with_the_structure_in_single_precision) {
  SheetRecord record = InMonth("100000");
  EXPECT_EQ(FindingAt(record, "100000.003"), "");
  EXPECT_EQ(FindingAt(record, "100000.01"), kOverTotal);
}

TEST(GasEngine, has_one_mark_for_the_three_checks_of_its_total) {
  SheetRecord record = InMonth("100");
  EXPECT_EQ(FindingAt(record, ""), kBlankFinding);
  EXPECT_EQ(record.MarkOf(kTotal), Mark::kFlag);
  EXPECT_EQ(FindingAt(record, "120001"), kOverTotal);
  EXPECT_EQ(record.MarkOf(kTotal), Mark::kFlag);
  EXPECT_EQ(FindingAt(record, "-1"), "Value not in expected range (0 to 120000)");
  EXPECT_EQ(record.MarkOf(kTotal), Mark::kFlag);
  EXPECT_EQ(FindingAt(record, "50"), "");
  EXPECT_EQ(record.MarkOf(kTotal), Mark::kPlain);
}

TEST(GasEngine, needs_its_emission_controls_and_leaves_their_flag_when_they_pass) {
  SheetRecord record("NGE", Mode::kDesc);
  record.Run();
  EXPECT_EQ(record.MarkOf("cmbNGE_ExhaustEmissionControls"), Mark::kFlag);
  record.Set("cmbNGE_ExhaustEmissionControls", "None");
  record.Run();
  EXPECT_EQ(record.Finding("Exhaust Emission Controls"), "");
  EXPECT_EQ(record.MarkOf("cmbNGE_ExhaustEmissionControls"), Mark::kFlag);
}

TEST(GasEngine, compares_numbers_with_thousands_commas_as_wholes) {
  for (const auto& [operating, maximum, finding] : std::vector<std::array<std::string, 3>>{
           {"1,500", "1000", "Operating Horsepower exceeds Max Rated Horsepower"}, {"900", "1,000", ""}}) {
    SheetRecord record("NGE", Mode::kDesc);
    record.Put({{"txtNGE_OperatingHP", operating}, {"txtNGE_MaxHP", maximum}});
    record.Run();
    EXPECT_EQ(record.Finding("Operating Horsepower"), finding) << operating << " against " << maximum;
  }
}

}  // namespace
}  // namespace merlu::test
