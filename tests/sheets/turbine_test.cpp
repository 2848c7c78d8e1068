#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kOverTotal = "Value exceeds N.G. usage for structure";
const char* const kGasTotal = "txtNGT_TotalFuelUsed";
const char* const kDieselTotal = "txtNGT_TotalFuelUsed_Diesel";
const char* const kDieselTotalTag = "Diesel Total Fuel Used (Diesel)";

// FieldIDs of the open findings, in the order of the log.
std::string Fields(TestRun& run) {
  return NullToEmpty(run.Sql("SELECT group_concat(FieldID,'|') FROM (SELECT FieldID FROM QC ORDER BY rowid)"));
}

// Editing the first month of a turbine on a structure with that total of natural gas.
void StartMonth(TestRun& run, const std::string& total) {
  run.StartWith("NGT", "T1");
  run.GoTo("NGT", "T1", Mode::kActv);
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=" + total);
  run.Click("cmdEdit");
}

// The field's finding at that value.
std::string FindingAt(TestRun& run, const std::string& field, const std::string& value) {
  run.Set(field, value);
  run.Click("cmdQC");
  return run.Finding(run.At(field).tag);
}

TEST(Turbine, misses_these_fields_of_a_blank_description_in_this_order) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdQC");
  EXPECT_EQ(
      Fields(run),
      "Opeating Horsepower|Average Fuel Usage|Max Rated Horsepower|Fuel Heating Value|Fuel H2S Content|Engine Purpose|"
      "Max Rated Fuel Usage|Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|"
      "Exhaust Exit Temperature|Exhaust Outlet Orientation|Exhaust Emission Controls");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'DESC'"), 0);
}

TEST(Turbine, misses_these_fields_of_a_blank_month_in_this_order) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.GoTo("NGT", "T1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(Fields(run), "Hours Operated|Total Fuel Used");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'ACTV'"), 0);
}

TEST(Turbine, of_an_empty_diesel_set_has_no_diesel_finding_in_either_mode) {
  TestRun run;
  run.StartWith("NGT", "T1");
  for (Mode mode : {Mode::kDesc, Mode::kActv}) {
    run.GoTo("NGT", "T1", mode);
    run.Click("cmdQC");
    EXPECT_GT(run.Count("QC"), 0);
    EXPECT_EQ(run.Count("QC WHERE FieldID LIKE '%Diesel%'"), 0);
  }
}

TEST(Turbine, loses_eight_texts_that_are_no_numbers_to_a_run_and_then_misses_the_gas_ones) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdEdit");
  const Values fields = {{"OperatingHP", "Opeating Horsepower"},
                         {"MaxHP", "Max Rated Horsepower"},
                         {"FuelUsageRate", "Average Fuel Usage"},
                         {"MaxRatedFuelUsage", "Max Rated Fuel Usage"}};
  for (const auto& [field, tag] : fields)
    run.Put({{"txtNGT_" + field, "600 hp"}, {"txtNGT_" + field + "_Diesel", "600 hp"}});
  run.Put({{"txtNGT_FuelHeatingValue", "900x"}, {"txtNGT_FuelHeatingValue_Diesel", "900x"}});
  run.Click("cmdQC");
  for (const auto& [field, tag] : fields) {
    EXPECT_EQ(run.Text("txtNGT_" + field) + run.Text("txtNGT_" + field + "_Diesel"), "") << field;
    EXPECT_EQ(run.Finding(tag), kBlankFinding) << field;
  }
  EXPECT_EQ(run.Count("QC WHERE FieldID LIKE '%Diesel%'"), 0);
  EXPECT_EQ(run.Text("txtNGT_FuelHeatingValue") + run.Text("txtNGT_FuelHeatingValue_Diesel"), "900x900x");
}

TEST(Turbine, may_run_on_gas_at_its_maximum_and_not_above) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdEdit");
  run.Put({{"txtNGT_OperatingHP", "500.01"},
           {"txtNGT_MaxHP", "500"},
           {"txtNGT_FuelUsageRate", "5000.01"},
           {"txtNGT_MaxRatedFuelUsage", "5000"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Opeating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(run.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
  EXPECT_EQ(run.At("txtNGT_OperatingHP").back, Back::kFlag);
  EXPECT_EQ(run.At("txtNGT_FuelUsageRate").back, Back::kFlag);
  run.Put({{"txtNGT_OperatingHP", "500"}, {"txtNGT_FuelUsageRate", "5000"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Opeating Horsepower") + run.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(run.At("txtNGT_OperatingHP").back, Back::kWindow);
}

TEST(Turbine, of_a_blank_maximum_on_gas_misses_the_maximum_and_compares_nothing) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdEdit");
  run.Put({{"txtNGT_OperatingHP", "600"}, {"txtNGT_FuelUsageRate", "6000"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Max Rated Horsepower"), kBlankFinding);
  EXPECT_EQ(run.Finding("Max Rated Fuel Usage"), kBlankFinding);
  EXPECT_EQ(run.Finding("Opeating Horsepower") + run.Finding("Average Fuel Usage"), "");
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

TEST(Turbine, may_run_on_diesel_at_its_maximum_and_not_above) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdEdit");
  for (const DieselComparison& c : kComparisons) {
    run.Put({{c.field, "5000.01"}, {c.maximum, "5000"}});
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding(c.tag), c.text);
    EXPECT_EQ(run.At(c.field).back, Back::kFlag);
    run.Set(c.field, "5000");
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding(c.tag), "");
    EXPECT_EQ(run.At(c.field).back, Back::kWindow);
  }
}

TEST(Turbine, of_a_blank_maximum_on_diesel_fails_at_any_positive_value) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdEdit");
  for (const DieselComparison& c : kComparisons) {
    EXPECT_EQ(FindingAt(run, c.field, "0.01"), c.text);
    EXPECT_EQ(run.At(c.field).back, Back::kFlag);
    EXPECT_EQ(run.Finding(run.At(c.maximum).tag), "");
    EXPECT_EQ(FindingAt(run, c.field, "0"), "");
    EXPECT_EQ(run.At(c.field).back, Back::kWindow);
  }
}

TEST(Turbine, loses_a_diesel_comparison_s_finding_when_the_field_turns_blank) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdEdit");
  for (const DieselComparison& c : kComparisons) {
    EXPECT_EQ(FindingAt(run, c.field, "10"), c.text);
    EXPECT_EQ(FindingAt(run, c.field, ""), "");
  }
}

TEST(Turbine, keeps_another_diesel_finding_when_the_field_turns_blank) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdEdit");
  run.Set("txtNGT_MaxHP_Diesel", "30000");
  EXPECT_EQ(FindingAt(run, "txtNGT_OperatingHP_Diesel", "-1"), "Value not in expected range (0 to 30000)");
  EXPECT_EQ(FindingAt(run, "txtNGT_OperatingHP_Diesel", ""), "Value not in expected range (0 to 30000)");
}

TEST(Turbine, may_use_500000_mscf_in_a_month) {
  TestRun run;
  StartMonth(run, "NULL");
  EXPECT_EQ(FindingAt(run, kGasTotal, "500000"), "");
  EXPECT_EQ(FindingAt(run, kGasTotal, "500001"), "Value not in expected range (0 to 500000)");
}

TEST(Turbine, may_use_the_structure_s_natural_gas_and_not_more_of_it_nor_of_diesel) {
  TestRun run;
  StartMonth(run, "100");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_DIE=1,TOT_FUEL_USE_GAS=1");
  for (const char* field : {kGasTotal, kDieselTotal}) {
    EXPECT_EQ(FindingAt(run, field, "100.01"), kOverTotal) << field;
    EXPECT_EQ(run.At(field).back, Back::kFlag);
    EXPECT_EQ(FindingAt(run, field, "100"), "") << field;
    EXPECT_EQ(run.At(field).back, Back::kWindow);
  }
}

TEST(Turbine, is_not_compared_with_a_total_that_rounds_to_none) {
  TestRun run;
  StartMonth(run, "NULL");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_DIE=1,TOT_FUEL_USE_GAS=1");
  for (const char* field : {kGasTotal, kDieselTotal}) {
    for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
      run.s.db.Execute(std::string("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=") + total);
      EXPECT_EQ(FindingAt(run, field, "5000"), "") << field << " " << total;
    }
    run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=0.51");
    EXPECT_EQ(FindingAt(run, field, "5000"), kOverTotal) << field;
  }
}

TEST(Turbine, is_compared_with_the_structure_in_single_precision) {
  TestRun run;
  StartMonth(run, "300000");
  for (const char* field : {kGasTotal, kDieselTotal}) {
    EXPECT_EQ(FindingAt(run, field, "300000.01"), "") << field;
    EXPECT_EQ(FindingAt(run, field, "300000.1"), kOverTotal) << field;
  }
}

TEST(Turbine, has_one_mark_for_the_checks_of_a_total) {
  TestRun run;
  StartMonth(run, "100");
  EXPECT_EQ(FindingAt(run, kGasTotal, ""), kBlankFinding);
  EXPECT_EQ(run.At(kGasTotal).back, Back::kFlag);
  EXPECT_EQ(FindingAt(run, kGasTotal, "500001"), kOverTotal);
  EXPECT_EQ(FindingAt(run, kGasTotal, "-1"), "Value not in expected range (0 to 500000)");
  EXPECT_EQ(run.At(kGasTotal).back, Back::kFlag);
  EXPECT_EQ(FindingAt(run, kGasTotal, "50"), "");
  EXPECT_EQ(run.At(kGasTotal).back, Back::kWindow);
  EXPECT_EQ(FindingAt(run, kDieselTotal, "-1"), "Value not in expected range (0 to 2400000)");
  EXPECT_EQ(run.At(kDieselTotal).back, Back::kFlag);
  EXPECT_EQ(FindingAt(run, kDieselTotal, "50"), "");
  EXPECT_EQ(run.At(kDieselTotal).back, Back::kWindow);
}

TEST(Turbine, needs_a_purpose_and_emission_controls_and_leaves_their_flags_when_they_pass) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Click("cmdEdit");
  run.Click("cmdQC");
  EXPECT_EQ(run.At("cmbNGT_Purpose").back, Back::kFlag);
  EXPECT_EQ(run.At("cmbNGT_ExhaustEmissionControls").back, Back::kFlag);
  run.Put({{"cmbNGT_Purpose", "Other"}, {"cmbNGT_ExhaustEmissionControls", "None"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Engine Purpose") + run.Finding("Exhaust Emission Controls"), "");
  EXPECT_EQ(run.At("cmbNGT_Purpose").back, Back::kFlag);
  EXPECT_EQ(run.At("cmbNGT_ExhaustEmissionControls").back, Back::kFlag);
}

TEST(Turbine, keeps_its_description_and_reads_it_back) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.Keep({{"txtNGT_Mfr", "Acme"},
            {"txtNGT_Model", "T-7"},
            {"txtNGT_MaxHP", "1.5"},
            {"txtNGT_OperatingHP", "2.5"},
            {"txtNGT_MaxRatedFuelUsage", "3.5"},
            {"txtNGT_FuelUsageRate", "4.5"},
            {"txtNGT_FuelHeatingValue", "5.5"},
            {"txtNGT_FuelH2SContent", "6.5"},
            {"txtNGT_MaxHP_Diesel", "7.5"},
            {"txtNGT_OperatingHP_Diesel", "8.5"},
            {"txtNGT_MaxRatedFuelUsage_Diesel", "9.5"},
            {"txtNGT_FuelUsageRate_Diesel", "10.5"},
            {"txtNGT_FuelHeatingValue_Diesel", "11.5"},
            {"txtNGT_FuelSulfurContent_Diesel", "12.5"}});
  const std::string expected = "Acme T-7 1.5 2.5 3.5 4.5 5.5 6.5 7.5 8.5 9.5 10.5 11.5 12.5";
  EXPECT_EQ(NullToEmpty(run.Sql(
                "SELECT MFG||' '||model||' '||MAX_HP||' '||OP_HP||' '||MAX_RATED_FUEL_USE||' '||FUEL_USE_RATE||' '"
                "||FUEL_HEAT_VAL||' '||FUEL_H2S_CONTENT||' '||MAX_HP_DIESEL||' '||OP_HP_DIESEL||' '"
                "||MAX_RATED_FUEL_USE_DIESEL||' '||AVG_FUEL_USAGE_DIESEL||' '||FUEL_HEAT_VAL_DIESEL||' '"
                "||FUEL_SULFUR_CONTENT_DIESEL FROM ED_NGT")),
            expected);
  std::string texts;
  for (const char* field :
       {"Mfr", "Model", "MaxHP", "OperatingHP", "MaxRatedFuelUsage", "FuelUsageRate", "FuelHeatingValue",
        "FuelH2SContent", "MaxHP_Diesel", "OperatingHP_Diesel", "MaxRatedFuelUsage_Diesel", "FuelUsageRate_Diesel",
        "FuelHeatingValue_Diesel", "FuelSulfurContent_Diesel"})
    texts += (texts.empty() ? "" : " ") + run.Text(std::string("txtNGT_") + field);
  EXPECT_EQ(texts, expected);
}

TEST(Turbine, keeps_its_purpose_by_code_and_its_emission_controls_by_text) {
  TestRun run;
  run.StartWith("NGT", "T1");
  for (const auto& [item, code] :
       Values{{"Electricity Generation", "EG"}, {"Product Pressurization", "PP"}, {"Other", "OT"}}) {
    run.Keep({{"cmbNGT_Purpose", item}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT Purpose FROM ED_NGT")), code);
    EXPECT_EQ(run.Text("cmbNGT_Purpose"), item);
  }
  for (const char* item : {"None", "Selective Catalytic Reduction (SCR)"}) {
    run.Keep({{"cmbNGT_ExhaustEmissionControls", item}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT EMISSION_CONTROLS FROM ED_NGT")), item);
    EXPECT_EQ(run.Text("cmbNGT_ExhaustEmissionControls"), item);
  }
}

TEST(Turbine, keeps_its_month_and_reads_it_back) {
  TestRun run;
  run.StartWith("NGT", "T1");
  run.GoTo("NGT", "T1", Mode::kActv);
  run.Keep(
      {{"txtNGT_HrsOperated", "1.5"}, {kGasTotal, "2.5"}, {"txtNGT_HrsOperated_Diesel", "3.5"}, {kDieselTotal, "4.5"}});
  EXPECT_EQ(run.Count("EA_NGT WHERE OP_HR=1.5 AND TOT_FUEL_USE=2.5 AND OP_HR_DIESEL=3.5 AND TOT_FUEL_USE_DIESEL=4.5"),
            1);
  EXPECT_EQ(run.Text("txtNGT_HrsOperated") + " " + run.Text(kGasTotal) + " " + run.Text("txtNGT_HrsOperated_Diesel") +
                " " + run.Text(kDieselTotal),
            "1.5 2.5 3.5 4.5");
}

TEST(Turbine, has_its_captions_tags_and_lists) {
  TestRun run;
  run.StartWith("NGT", "T1");
  const std::vector<std::array<std::string, 3>> fields = {
      {"txtNGT_Mfr", "Manufacturer:", "Manufacturer"},
      {"txtNGT_Model", "Model No.:", "Model No."},
      {"cmbNGT_Purpose", "", "Engine Purpose"},
      {"txtNGT_MaxHP", "Max Rated Horsepower (hp):", "Max Rated Horsepower"},
      {"txtNGT_OperatingHP", "Operating Horsepower (hp):", "Opeating Horsepower"},
      {"txtNGT_MaxRatedFuelUsage", "Max Rated Fuel Usage:", "Max Rated Fuel Usage"},
      {"txtNGT_FuelUsageRate", "Average Fuel Usage:", "Average Fuel Usage"},
      {"txtNGT_FuelHeatingValue", "Fuel Heating Value (Btu/scf):", "Fuel Heating Value"},
      {"txtNGT_FuelH2SContent", "Fuel H2S Content (ppmv):", "Fuel H2S Content"},
      {"cmbNGT_ExhaustEmissionControls", "", "Exhaust Emission Controls"},
      {"txtNGT_MaxHP_Diesel", "", "Max Rated Horsepower (Diesel)"},
      {"txtNGT_OperatingHP_Diesel", "Operating Horsepower (hp):", "Operating Horsepower (Diesel)"},
      {"txtNGT_MaxRatedFuelUsage_Diesel", "Max Rated Fuel Usage:", "Max Rated Fuel Usage (Diesel)"},
      {"txtNGT_FuelUsageRate_Diesel", "", "Average Fuel Usage (Diesel)"},
      {"txtNGT_FuelHeatingValue_Diesel", "Fuel Heating Value (Btu/lb):", "Fuel Heating Value (Diesel)"},
      {"txtNGT_FuelSulfurContent_Diesel", "Fuel Sulfur Content (% by mass):", "Fuel Sulfur Content (Diesel)"},
      {"txtNGT_HrsOperated", "Hours Operated (hrs):", "Hours Operated"},
      {kGasTotal, "Total Fuel Used (Mscf):", "Total Fuel Used"},
      {"txtNGT_HrsOperated_Diesel", "Hours Operated (hrs):", "Hours Operated (Diesel)"},
      {kDieselTotal, "Total Fuel Used (gal):", kDieselTotalTag},
      {"txtNGT_Comments", "Comments:", ""}};
  for (const auto& [control, caption, tag] : fields) {
    EXPECT_EQ(run.At(control).caption, caption);
    EXPECT_EQ(run.At(control).tag, tag);
  }
  EXPECT_EQ(run.At("cmbNGT_Purpose").items, (Names{"Electricity Generation", "Product Pressurization", "Other"}));
  EXPECT_EQ(run.At("cmbNGT_ExhaustEmissionControls").items, (Names{"None", "Selective Catalytic Reduction (SCR)"}));
}

}  // namespace
}  // namespace merlu::test
