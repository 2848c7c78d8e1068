#include <gtest/gtest.h>

#include <array>

#include "turbine.h"

namespace merlu::test {
namespace {

using namespace turbine;

using Names = std::vector<std::string>;

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
