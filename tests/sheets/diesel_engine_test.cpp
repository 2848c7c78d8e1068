#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kFuel = "cmbDIE_FuelType";

// In the first month of an engine on that fuel.
void StartMonth(TestRun& run, const std::string& fuel) {
  run.StartWith("DIE", "D1");
  run.Keep({{kFuel, fuel}});
  run.GoTo("DIE", "D1", Mode::kActv);
  run.Click("cmdEdit");
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
