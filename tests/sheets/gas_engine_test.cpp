#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kTotal = "txtNGE_TotalFuelUsed";

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

}  // namespace
}  // namespace merlu::test
