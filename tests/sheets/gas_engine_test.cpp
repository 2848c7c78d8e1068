#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kTotal = "txtNGE_TotalFuelUsed";
const char* const kOverTotal = "Value exceeds N.G. usage for structure";

// FieldIDs of the open findings, in the order of the log.
std::string Fields(TestRun& run) {
  return NullToEmpty(run.Sql("SELECT group_concat(FieldID,'|') FROM (SELECT FieldID FROM QC ORDER BY rowid)"));
}

// Editing the first month of an engine on a structure with that total of natural gas, and of no other fuel.
void StartMonth(TestRun& run, const std::string& total) {
  run.StartWith("NGE", "N1");
  run.GoTo("NGE", "N1", Mode::kActv);
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=" + total);
  run.Click("cmdEdit");
}

// The finding of the month's total at that value.
std::string FindingAt(TestRun& run, const std::string& value) {
  run.Set(kTotal, value);
  run.Click("cmdQC");
  return run.Finding("Total Fuel Used");
}

TEST(GasEngine, misses_these_fields_of_a_blank_description_in_this_order) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.Click("cmdQC");
  EXPECT_EQ(
      Fields(run),
      "Operating Horsepower|Average Fuel Usage|Max Rated Horsepower|Fuel Heating Value|Fuel H2S Content|Engine Burn|"
      "Max Rated Fuel Usage|Exhaust Outlet Height|Exhaust Outlet Inner Diameter|Exhaust Exit Velocity|"
      "Exhaust Exit Temperature|Exhaust Emission Controls");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'DESC'"), 0);
}

TEST(GasEngine, misses_these_fields_of_a_blank_month_in_this_order) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.GoTo("NGE", "N1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(Fields(run), "Hours Operated|Total Fuel Used");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'ACTV'"), 0);
}

TEST(GasEngine, tells_a_missing_stroke_cycle_only_while_the_burn_type_of_the_same_tag_is_missing_too) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.Click("cmdEdit");
  run.Set("cmbNGE_EngineStrokeCycle", "2-Cycle");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Engine Burn"), kBlankFinding);
  EXPECT_EQ(run.At("cmbNGE_EngineBurnType").back, Back::kFlag);
  EXPECT_EQ(run.At("cmbNGE_EngineStrokeCycle").back, Back::kWindow);
  run.Click("cmdCANCEL");
  run.Click("cmdEdit");
  run.Set("cmbNGE_EngineBurnType", "Lean");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Engine Burn"), "");
  EXPECT_EQ(run.At("cmbNGE_EngineBurnType").back, Back::kWindow);
  EXPECT_EQ(run.At("cmbNGE_EngineStrokeCycle").back, Back::kFlag);
}

TEST(GasEngine, loses_four_texts_that_are_no_numbers_to_a_run_and_then_misses_them) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.Click("cmdEdit");
  const Values fields = {{"txtNGE_OperatingHP", "Operating Horsepower"},
                         {"txtNGE_MaxHP", "Max Rated Horsepower"},
                         {"txtNGE_FuelUsageRate", "Average Fuel Usage"},
                         {"txtNGE_MaxRatedFuelUsage", "Max Rated Fuel Usage"}};
  for (const auto& [field, tag] : fields) run.Set(field, "100 hp");
  run.Set("txtNGE_FuelHeatingValue", "900x");
  run.Click("cmdQC");
  for (const auto& [field, tag] : fields) {
    EXPECT_EQ(run.Text(field), "") << field;
    EXPECT_EQ(run.Finding(tag), kBlankFinding) << field;
  }
  EXPECT_EQ(run.Text("txtNGE_FuelHeatingValue"), "900x");
  EXPECT_EQ(run.Finding("Fuel Heating Value"), "");
}

TEST(GasEngine, may_run_at_its_maximum_and_not_above) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.Click("cmdEdit");
  run.Put({{"txtNGE_OperatingHP", "100.01"},
           {"txtNGE_MaxHP", "100"},
           {"txtNGE_FuelUsageRate", "3000.01"},
           {"txtNGE_MaxRatedFuelUsage", "3000"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Operating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(run.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
  EXPECT_EQ(run.At("txtNGE_OperatingHP").back, Back::kFlag);
  EXPECT_EQ(run.At("txtNGE_FuelUsageRate").back, Back::kFlag);
  run.Put({{"txtNGE_OperatingHP", "100"}, {"txtNGE_FuelUsageRate", "3000"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Operating Horsepower") + run.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(run.At("txtNGE_OperatingHP").back, Back::kWindow);
  EXPECT_EQ(run.At("txtNGE_FuelUsageRate").back, Back::kWindow);
}

TEST(GasEngine, of_a_blank_maximum_neither_gets_nor_loses_a_comparison_s_finding) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.Click("cmdEdit");
  run.Put({{"txtNGE_OperatingHP", "200"}, {"txtNGE_FuelUsageRate", "4000"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Operating Horsepower") + run.Finding("Average Fuel Usage"), "");
  EXPECT_EQ(run.Finding("Max Rated Horsepower"), kBlankFinding);
  run.Put({{"txtNGE_MaxHP", "100"}, {"txtNGE_MaxRatedFuelUsage", "3000"}});
  run.Click("cmdQC");
  run.Put({{"txtNGE_MaxHP", ""}, {"txtNGE_MaxRatedFuelUsage", ""}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Operating Horsepower"), "Operating Horsepower exceeds Max Rated Horsepower");
  EXPECT_EQ(run.Finding("Average Fuel Usage"), "Average Fuel Usage exceeds Max Rated Fuel Usage");
}

TEST(GasEngine, may_use_the_structure_s_natural_gas_and_not_more) {
  TestRun run;
  StartMonth(run, "100");
  EXPECT_EQ(FindingAt(run, "100.01"), kOverTotal);
  EXPECT_EQ(run.At(kTotal).back, Back::kFlag);
  EXPECT_EQ(FindingAt(run, "100"), "");
  EXPECT_EQ(run.At(kTotal).back, Back::kWindow);
}

TEST(GasEngine, is_not_compared_with_a_total_that_rounds_to_none) {
  TestRun run;
  StartMonth(run, "NULL");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_GAS=1,TOT_FUEL_USE_DIE=1");
  for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
    run.s.db.Execute(std::string("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=") + total);
    EXPECT_EQ(FindingAt(run, "5000"), "") << total;
  }
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=0.51");
  EXPECT_EQ(FindingAt(run, "5000"), kOverTotal);
}

TEST(GasEngine, is_compared_with_the_structure_in_single_precision) {
  TestRun run;
  StartMonth(run, "100000");
  EXPECT_EQ(FindingAt(run, "100000.003"), "");
  EXPECT_EQ(FindingAt(run, "100000.01"), kOverTotal);
}

TEST(GasEngine, has_one_mark_for_the_three_checks_of_its_total) {
  TestRun run;
  StartMonth(run, "100");
  EXPECT_EQ(FindingAt(run, ""), kBlankFinding);
  EXPECT_EQ(run.At(kTotal).back, Back::kFlag);
  EXPECT_EQ(FindingAt(run, "120001"), kOverTotal);
  EXPECT_EQ(run.At(kTotal).back, Back::kFlag);
  EXPECT_EQ(FindingAt(run, "-1"), "Value not in expected range (0 to 120000)");
  EXPECT_EQ(run.At(kTotal).back, Back::kFlag);
  EXPECT_EQ(FindingAt(run, "50"), "");
  EXPECT_EQ(run.At(kTotal).back, Back::kWindow);
}

TEST(GasEngine, needs_its_emission_controls_and_leaves_their_flag_when_they_pass) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.Click("cmdEdit");
  run.Click("cmdQC");
  EXPECT_EQ(run.At("cmbNGE_ExhaustEmissionControls").back, Back::kFlag);
  run.Set("cmbNGE_ExhaustEmissionControls", "None");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Exhaust Emission Controls"), "");
  EXPECT_EQ(run.At("cmbNGE_ExhaustEmissionControls").back, Back::kFlag);
}

TEST(GasEngine, keeps_its_description_and_reads_it_back) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.Keep({{"txtNGE_Mfr", "Acme"},
            {"txtNGE_Model", " 12-B "},
            {"txtNGE_MaxHP", "1.5"},
            {"txtNGE_OperatingHP", "2.5"},
            {"txtNGE_MaxRatedFuelUsage", "3.5"},
            {"txtNGE_FuelUsageRate", "4.5"},
            {"txtNGE_FuelHeatingValue", "5.5"},
            {"txtNGE_FuelH2SContent", "6.5"}});
  EXPECT_EQ(NullToEmpty(run.Sql(
                "SELECT MFG||'|'||model||'|'||MAX_HP||' '||OP_HP||' '||MAX_RATED_FUEL_USE||' '||FUEL_USE_RATE||' '"
                "||FUEL_HEAT_VAL||' '||FUEL_H2S_CONTENT FROM ED_NGE")),
            "Acme| 12-B |1.5 2.5 3.5 4.5 5.5 6.5");
  std::string texts;
  for (const char* field : {"Mfr", "Model", "MaxHP", "OperatingHP", "MaxRatedFuelUsage", "FuelUsageRate",
                            "FuelHeatingValue", "FuelH2SContent"})
    texts += run.Text(std::string("txtNGE_") + field) + "|";
  EXPECT_EQ(texts, "Acme| 12-B |1.5|2.5|3.5|4.5|5.5|6.5|");
}

TEST(GasEngine, keeps_its_burn_and_stroke_by_code_and_its_emission_controls_by_text) {
  TestRun run;
  run.StartWith("NGE", "N1");
  for (const auto& [item, code] : Values{{"Lean", "L"}, {"Clean", "C"}, {"Rich", "R"}}) {
    run.Keep({{"cmbNGE_EngineBurnType", item}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT ENGINE_BURN_TYP FROM ED_NGE")), code);
    EXPECT_EQ(run.Text("cmbNGE_EngineBurnType"), item);
  }
  for (const auto& [item, code] : Values{{"2-Cycle", "2"}, {"4-Cycle", "4"}}) {
    run.Keep({{"cmbNGE_EngineStrokeCycle", item}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT ENGINE_STROKE_CYCLE FROM ED_NGE")), code);
    EXPECT_EQ(run.Text("cmbNGE_EngineStrokeCycle"), item);
  }
  run.Keep({});
  EXPECT_TRUE(IsNull(run.Sql("SELECT EMISSION_CONTROLS FROM ED_NGE")));
  for (const char* item : {"None", "Selective Catalytic Reduction (SCR)"}) {
    run.Keep({{"cmbNGE_ExhaustEmissionControls", item}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT EMISSION_CONTROLS FROM ED_NGE")), item);
    EXPECT_EQ(run.Text("cmbNGE_ExhaustEmissionControls"), item);
  }
}

TEST(GasEngine, keeps_its_month_and_reads_it_back) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.GoTo("NGE", "N1", Mode::kActv);
  run.Keep({{"txtNGE_HrsOperated", "1.5"}, {kTotal, "2.5"}});
  EXPECT_EQ(run.Count("EA_NGE WHERE OP_HR=1.5 AND TOT_FUEL_USE=2.5"), 1);
  EXPECT_EQ(run.Text("txtNGE_HrsOperated") + " " + run.Text(kTotal), "1.5 2.5");
}

TEST(GasEngine, has_its_captions_tags_and_lists) {
  TestRun run;
  run.StartWith("NGE", "N1");
  const std::vector<std::array<std::string, 3>> fields = {
      {"txtNGE_Mfr", "Manufacturer:", "Manufacturer"},
      {"txtNGE_Model", "Model No.:", "Model No."},
      {"cmbNGE_EngineStrokeCycle", "", "Engine Burn"},
      {"cmbNGE_EngineBurnType", "", "Engine Burn"},
      {"txtNGE_MaxHP", "Max Rated Horsepower (hp):", "Max Rated Horsepower"},
      {"txtNGE_OperatingHP", "Operating Horsepower (hp):", "Operating Horsepower"},
      {"txtNGE_MaxRatedFuelUsage", "Max Rated Fuel Usage (Btu/hp-hr):", "Max Rated Fuel Usage"},
      {"txtNGE_FuelUsageRate", "Average Fuel Usage (Btu/hp-hr):", "Average Fuel Usage"},
      {"txtNGE_FuelHeatingValue", "Fuel Heating Value (Btu/scf):", "Fuel Heating Value"},
      {"txtNGE_FuelH2SContent", "Fuel H2S Content (ppmv):", "Fuel H2S Content"},
      {"cmbNGE_ExhaustEmissionControls", "", "Exhaust Emission Controls"},
      {"txtNGE_HrsOperated", "Hours Operated (hrs):", "Hours Operated"},
      {kTotal, "Total Fuel Used (Mscf):", "Total Fuel Used"},
      {"txtNGE_Comments", "Comments:", ""}};
  for (const auto& [control, caption, tag] : fields) {
    EXPECT_EQ(run.At(control).caption, caption);
    EXPECT_EQ(run.At(control).tag, tag);
  }
  EXPECT_EQ(run.At("cmbNGE_EngineBurnType").items, (Names{"Lean", "Clean", "Rich"}));
  EXPECT_EQ(run.At("cmbNGE_EngineStrokeCycle").items, (Names{"2-Cycle", "4-Cycle"}));
  EXPECT_EQ(run.At("cmbNGE_ExhaustEmissionControls").items, (Names{"None", "Selective Catalytic Reduction (SCR)"}));
}

TEST(GasEngine, compares_numbers_with_thousands_commas_as_wholes) {
  for (const auto& [operating, maximum, finding] : std::vector<std::array<std::string, 3>>{
           {"1,500", "1000", "Operating Horsepower exceeds Max Rated Horsepower"}, {"900", "1,000", ""}}) {
    TestRun run;
    run.StartWith("NGE", "N1");
    run.Click("cmdEdit");
    run.Put({{"txtNGE_OperatingHP", operating}, {"txtNGE_MaxHP", maximum}});
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Operating Horsepower"), finding) << operating << " against " << maximum;
  }
}

}  // namespace
}  // namespace merlu::test
