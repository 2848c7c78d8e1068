#include <gtest/gtest.h>

#include "rules/same_rules.h"
#include "sheets/turbine.h"

namespace merlu::test {
namespace {

using namespace turbine;

const char* const kOverTotal = "Value exceeds N.G. usage for structure";

// The first month of a turbine on a structure with that total of natural gas.
SheetRecord InMonth(const std::string& total) {
  SheetRecord record("NGT", Mode::kActv);
  record.SetTotal("TOT_FUEL_USE_NG", total);
  return record;
}

// The field's finding at that value.
std::string FindingAt(SheetRecord& record, const std::string& field, const std::string& value) {
  record.Set(field, value);
  record.Run();
  return record.Finding(record.TagOf(field));
}

bool FindsDiesel(const SheetRecord& record) {
  return record.Fields().find("Diesel") != std::string::npos;
}

struct DieselComparison {
  const char* field;
  const char* tag;
  const char* maximum;
  const char* text;
};

constexpr DieselComparison kComparisons[] = {
    {"txtNGT_OperatingHP_Diesel", "Operating Horsepower (Diesel)", "txtNGT_MaxHP_Diesel",
     "Diesel Operating Horsepower exceeds Max Rated Horsepower"},
    {"txtNGT_FuelUsageRate_Diesel", "Average Fuel Usage (Diesel)", "txtNGT_MaxRatedFuelUsage_Diesel",
     "Diesel Average Fuel Usage exceeds Max Rated Fuel Usage"}};

TEST(Turbine, misses_these_fields_of_a_blank_description_in_this_order) {
  ExpectMissing(
      "NGT", Mode::kDesc,
      "Opeating Horsepower|Average Fuel Usage|Max Rated Horsepower|Fuel Heating Value|Fuel H2S Content|Engine Purpose|"
      "Max Rated Fuel Usage|Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|"
      "Exhaust Exit Temperature|Exhaust Outlet Orientation|Exhaust Emission Controls");
}

TEST(Turbine, misses_these_fields_of_a_blank_month_in_this_order) {
  ExpectMissing("NGT", Mode::kActv, "Hours Operated|Total Fuel Used");
}

TEST(Turbine, of_an_empty_diesel_set_has_no_diesel_finding_in_either_mode) {
  SheetRecord record("NGT", Mode::kDesc);
  for (Mode mode : {Mode::kDesc, Mode::kActv}) {
    record.GoTo(mode);
    record.Run();
    EXPECT_FALSE(record.Findings().empty());
    EXPECT_FALSE(FindsDiesel(record));
  }
}

TEST(Turbine, loses_eight_texts_that_are_no_numbers_to_a_run_and_then_misses_the_gas_ones) {
  SheetRecord record("NGT", Mode::kDesc);
  const Values fields = {{"OperatingHP", "Opeating Horsepower"},
                         {"MaxHP", "Max Rated Horsepower"},
                         {"FuelUsageRate", "Average Fuel Usage"},
                         {"MaxRatedFuelUsage", "Max Rated Fuel Usage"}};
  for (const auto& [field, tag] : fields)
    record.Put({{"txtNGT_" + field, "600 hp"}, {"txtNGT_" + field + "_Diesel", "600 hp"}});
  record.Put({{"txtNGT_FuelHeatingValue", "900x"}, {"txtNGT_FuelHeatingValue_Diesel", "900x"}});
  record.Run();
  for (const auto& [field, tag] : fields) {
    EXPECT_EQ(record.Text("txtNGT_" + field) + record.Text("txtNGT_" + field + "_Diesel"), "") << field;
    EXPECT_EQ(record.Finding(tag), kBlankFinding) << field;
  }
  EXPECT_FALSE(FindsDiesel(record));
  EXPECT_EQ(record.Text("txtNGT_FuelHeatingValue") + record.Text("txtNGT_FuelHeatingValue_Diesel"), "900x900x");
}

TEST(Turbine, may_run_on_gas_at_its_maximum_and_not_above) {
  SheetRecord record("NGT", Mode::kDesc);
  record.Put({{"txtNGT_OperatingHP", "500.01"},
              {"txtNGT_MaxHP", "500"},
              {"txtNGT_FuelUsageRate", "5000.01"},
              {"txtNGT_MaxRatedFuelUsage", "5000"}});
  record.Run();
  EXPECT_EQ(record.Finding("Opeating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(record.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
  EXPECT_EQ(record.MarkOf("txtNGT_OperatingHP"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("txtNGT_FuelUsageRate"), Mark::kFlag);
  record.Put({{"txtNGT_OperatingHP", "500"}, {"txtNGT_FuelUsageRate", "5000"}});
  record.Run();
  EXPECT_EQ(record.Finding("Opeating Horsepower") + record.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(record.MarkOf("txtNGT_OperatingHP"), Mark::kPlain);
}

TEST(Turbine, of_a_blank_maximum_on_gas_misses_the_maximum_and_compares_nothing) {
  SheetRecord record("NGT", Mode::kDesc);
  record.Put({{"txtNGT_OperatingHP", "600"}, {"txtNGT_FuelUsageRate", "6000"}});
  record.Run();
  EXPECT_EQ(record.Finding("Max Rated Horsepower"), kBlankFinding);
  EXPECT_EQ(record.Finding("Max Rated Fuel Usage"), kBlankFinding);
  EXPECT_EQ(record.Finding("Opeating Horsepower") + record.Finding("Average Fuel Usage"), "");
}

TEST(Turbine, may_run_on_diesel_at_its_maximum_and_not_above) {
  SheetRecord record("NGT", Mode::kDesc);
  for (const DieselComparison& c : kComparisons) {
    record.Put({{c.field, "5000.01"}, {c.maximum, "5000"}});
    record.Run();
    EXPECT_EQ(record.Finding(c.tag), c.text);
    EXPECT_EQ(record.MarkOf(c.field), Mark::kFlag);
    record.Set(c.field, "5000");
    record.Run();
    EXPECT_EQ(record.Finding(c.tag), "");
    EXPECT_EQ(record.MarkOf(c.field), Mark::kPlain);
  }
}

TEST(Turbine, of_a_blank_maximum_on_diesel_fails_at_any_positive_value) {
  SheetRecord record("NGT", Mode::kDesc);
  for (const DieselComparison& c : kComparisons) {
    EXPECT_EQ(FindingAt(record, c.field, "0.01"), c.text);
    EXPECT_EQ(record.MarkOf(c.field), Mark::kFlag);
    EXPECT_EQ(record.Finding(record.TagOf(c.maximum)), "");
    EXPECT_EQ(FindingAt(record, c.field, "0"), "");
    EXPECT_EQ(record.MarkOf(c.field), Mark::kPlain);
  }
}

TEST(Turbine, loses_a_diesel_comparison_s_finding_when_the_field_turns_blank) {
  SheetRecord record("NGT", Mode::kDesc);
  for (const DieselComparison& c : kComparisons) {
    EXPECT_EQ(FindingAt(record, c.field, "10"), c.text);
    EXPECT_EQ(FindingAt(record, c.field, ""), "");
  }
}

TEST(Turbine, keeps_another_diesel_finding_when_the_field_turns_blank) {
  SheetRecord record("NGT", Mode::kDesc);
  record.Set("txtNGT_MaxHP_Diesel", "30000");
  EXPECT_EQ(FindingAt(record, "txtNGT_OperatingHP_Diesel", "-1"), "Value not in expected range (0 to 30000)");
  EXPECT_EQ(FindingAt(record, "txtNGT_OperatingHP_Diesel", ""), "Value not in expected range (0 to 30000)");
}

TEST(Turbine, may_use_500000_mscf_in_a_month) {
  SheetRecord record = InMonth("NULL");
  EXPECT_EQ(FindingAt(record, kGasTotal, "500000"), "");
  EXPECT_EQ(FindingAt(record, kGasTotal, "500001"), "Value not in expected range (0 to 500000)");
}

TEST(Turbine, may_use_the_structure_s_natural_gas_and_not_more_of_it_nor_of_diesel) {
  SheetRecord record = InMonth("100");
  record.SetTotal("TOT_FUEL_USE_DIE", "1");
  record.SetTotal("TOT_FUEL_USE_GAS", "1");
  for (const char* field : {kGasTotal, kDieselTotal}) {
    EXPECT_EQ(FindingAt(record, field, "100.01"), kOverTotal) << field;
    EXPECT_EQ(record.MarkOf(field), Mark::kFlag);
    EXPECT_EQ(FindingAt(record, field, "100"), "") << field;
    EXPECT_EQ(record.MarkOf(field), Mark::kPlain);
  }
}

TEST(Turbine, is_not_compared_with_a_total_that_rounds_to_none) {
  SheetRecord record = InMonth("NULL");
  record.SetTotal("TOT_FUEL_USE_DIE", "1");
  record.SetTotal("TOT_FUEL_USE_GAS", "1");
  for (const char* field : {kGasTotal, kDieselTotal}) {
    for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
      record.SetTotal("TOT_FUEL_USE_NG", total);
      EXPECT_EQ(FindingAt(record, field, "5000"), "") << field << " " << total;
    }
    record.SetTotal("TOT_FUEL_USE_NG", "0.51");
    EXPECT_EQ(FindingAt(record, field, "5000"), kOverTotal) << field;
  }
}

TEST(Turbine, is_compared_with_the_structure_in_single_precision) {
  SheetRecord record = InMonth("300000");
  for (const char* field : {kGasTotal, kDieselTotal}) {
    EXPECT_EQ(FindingAt(record, field, "300000.01"), "") << field;
    EXPECT_EQ(FindingAt(record, field, "300000.1"), kOverTotal) << field;
  }
}

TEST(Turbine, has_one_mark_for_the_checks_of_a_total) {
  SheetRecord record = InMonth("100");
  EXPECT_EQ(FindingAt(record, kGasTotal, ""), kBlankFinding);
  EXPECT_EQ(record.MarkOf(kGasTotal), Mark::kFlag);
  EXPECT_EQ(FindingAt(record, kGasTotal, "500001"), kOverTotal);
  EXPECT_EQ(FindingAt(record, kGasTotal, "-1"), "Value not in expected range (0 to 500000)");
  EXPECT_EQ(record.MarkOf(kGasTotal), Mark::kFlag);
  EXPECT_EQ(FindingAt(record, kGasTotal, "50"), "");
  EXPECT_EQ(record.MarkOf(kGasTotal), Mark::kPlain);
  EXPECT_EQ(FindingAt(record, kDieselTotal, "-1"), "Value not in expected range (0 to 2400000)");
  EXPECT_EQ(record.MarkOf(kDieselTotal), Mark::kFlag);
  EXPECT_EQ(FindingAt(record, kDieselTotal, "50"), "");
  EXPECT_EQ(record.MarkOf(kDieselTotal), Mark::kPlain);
}

TEST(Turbine, needs_a_purpose_and_emission_controls_and_leaves_their_flags_when_they_pass) {
  SheetRecord record("NGT", Mode::kDesc);
  record.Run();
  EXPECT_EQ(record.MarkOf("cmbNGT_Purpose"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("cmbNGT_ExhaustEmissionControls"), Mark::kFlag);
  record.Put({{"cmbNGT_Purpose", "Other"}, {"cmbNGT_ExhaustEmissionControls", "None"}});
  record.Run();
  EXPECT_EQ(record.Finding("Engine Purpose") + record.Finding("Exhaust Emission Controls"), "");
  EXPECT_EQ(record.MarkOf("cmbNGT_Purpose"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("cmbNGT_ExhaustEmissionControls"), Mark::kFlag);
}

}  // namespace
}  // namespace merlu::test
