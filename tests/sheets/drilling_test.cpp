#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

const char* const kOverTotal = "Value exceeds total fuel used for structure";

struct Fuel {
  const char* control;
  const char* tag;
  const char* column;
};

constexpr Fuel kFuels[] = {{"txtJAC_DieselUsage", "Total Diesel Fuel Usage", "TOT_FUEL_USE_DIE"},
                           {"txtJAC_GasolineUsage", "Total Gasoline Fuel Usage", "TOT_FUEL_USE_GAS"},
                           {"txtJAC_NGUsage", "Total Natural Gas Usage", "TOT_FUEL_USE_NG"}};

// Editing the first month of a rig.
void StartMonth(TestRun& run) {
  run.StartWith("DRI", "R1");
  run.GoTo("DRI", "R1", Mode::kActv);
  run.Click("cmdEdit");
}

void SetTotal(TestRun& run, const Fuel& fuel, const std::string& total) {
  run.s.db.Execute(std::string("UPDATE PA_PLATFORM_ACTV SET ") + fuel.column + "=" + total);
}

// The fuel's finding at that value.
std::string FindingAt(TestRun& run, const Fuel& fuel, const std::string& value) {
  run.Set(fuel.control, value);
  run.Click("cmdQC");
  return run.Finding(fuel.tag);
}

TEST(DrillingEquipment, is_kept_under_the_code_dri) {
  TestRun run;
  run.StartWith("DRI", "R1");
  EXPECT_EQ(run.Count("ED_EQUIP_DESC WHERE ED_EQUIP_TYP='DRI' AND ED_MERLU_EQUIP_ID='R1'"), 1);
  EXPECT_EQ(run.Count("ED_DRI"), 1);
  EXPECT_EQ(run.Count("EA_DRI"), 1);
  EXPECT_EQ(run.s.current.EquipType, "DRI");
  run.Click("cmdQC");
  EXPECT_GT(run.Count("QC WHERE EquipType='DRI'"), 0);
  EXPECT_EQ(run.Count("QC WHERE EquipType<>'DRI'"), 0);
  EXPECT_EQ(run.s.desk.showing.back()->name(), "frmJAC");
}

TEST(DrillingEquipment, misses_these_fields_of_a_blank_month_in_this_order_and_no_rig_name) {
  TestRun run;
  StartMonth(run);
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Values{{"Hours Operated", kBlankFinding},
                                    {"Total Diesel Fuel Usage", kBlankFinding},
                                    {"Total Gasoline Fuel Usage", kBlankFinding},
                                    {"Total Natural Gas Usage", kBlankFinding}}));
}

TEST(DrillingEquipment, misses_these_fields_of_a_blank_description_in_this_order) {
  TestRun run;
  run.StartWith("DRI", "R1");
  run.Click("cmdEdit");
  run.Set("cmbJAC_OtherControlDevice", "Yes");
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Values{{"Exhaust Outlet Height", kBlankFinding},
                                    {"Exhaust Outlet Inner Diameter", kBlankFinding},
                                    {"Exhaust Exit Velocity", kBlankFinding},
                                    {"Exhaust Exit Temperature", kBlankFinding},
                                    {"Exhaust Outlet Orientation", kBlankFinding},
                                    {"Other Control Equipment Descript.", kBlankFinding}}));
}

TEST(DrillingEquipment, needs_every_fuel_of_every_month_and_zero_will_do) {
  TestRun run;
  StartMonth(run);
  for (const Fuel& fuel : kFuels) {
    EXPECT_EQ(FindingAt(run, fuel, ""), kBlankFinding);
    EXPECT_EQ(run.At(fuel.control).back, Back::kFlag);
    EXPECT_EQ(FindingAt(run, fuel, "0"), "");
    EXPECT_EQ(run.At(fuel.control).back, Back::kWindow);
  }
}

TEST(DrillingEquipment, may_use_any_amount_of_a_fuel_that_the_structure_has_no_total_of) {
  TestRun run;
  StartMonth(run);
  for (const Fuel& fuel : kFuels) {
    for (const Fuel& other : kFuels) SetTotal(run, other, "1");
    for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
      SetTotal(run, fuel, total);
      EXPECT_EQ(FindingAt(run, fuel, "1E9"), "") << fuel.column << " " << total;
      EXPECT_EQ(FindingAt(run, fuel, "-5"), "") << fuel.column << " " << total;
    }
    SetTotal(run, fuel, "0.51");
    EXPECT_EQ(FindingAt(run, fuel, "1E9"), kOverTotal);
  }
}

TEST(DrillingEquipment, may_use_the_structure_s_total_of_a_fuel_and_not_more) {
  TestRun run;
  StartMonth(run);
  for (const Fuel& fuel : kFuels) {
    for (const Fuel& other : kFuels) SetTotal(run, other, "1");
    SetTotal(run, fuel, "100");
    EXPECT_EQ(FindingAt(run, fuel, "100.01"), kOverTotal) << fuel.column;
    EXPECT_EQ(run.At(fuel.control).back, Back::kFlag);
    EXPECT_EQ(FindingAt(run, fuel, "100"), "") << fuel.column;
    EXPECT_EQ(run.At(fuel.control).back, Back::kWindow);
  }
}

TEST(DrillingEquipment, is_compared_with_the_structure_in_single_precision) {
  TestRun run;
  StartMonth(run);
  for (const Fuel& fuel : kFuels) {
    SetTotal(run, fuel, "16777216");
    EXPECT_EQ(FindingAt(run, fuel, "16777217"), "");
    EXPECT_EQ(FindingAt(run, fuel, "16777218"), kOverTotal);
  }
}

TEST(DrillingEquipment, keeps_a_rig_name_per_month) {
  TestRun run;
  run.StartWith("DRI", "R1");
  run.AddMonth();
  run.GoTo("DRI", "R1", Mode::kActv, 1);
  run.Keep({{"txtJAC_DrillingEquipment", "Ocean Star"}});
  run.GoTo("DRI", "R1", Mode::kActv, 2);
  EXPECT_EQ(run.Text("txtJAC_DrillingEquipment"), "");
  run.Keep({{"txtJAC_DrillingEquipment", "North Wind"}});
  run.GoTo("DRI", "R1", Mode::kActv, 1);
  EXPECT_EQ(run.Text("txtJAC_DrillingEquipment"), "Ocean Star");
  EXPECT_EQ(
      NullToEmpty(run.Sql("SELECT group_concat(DRILLING_EQUIPMENT,'|') FROM (SELECT * FROM EA_DRI ORDER BY EA_ID_AK)")),
      "Ocean Star|North Wind");
}

TEST(DrillingEquipment, keeps_its_month_and_reads_it_back) {
  TestRun run;
  run.StartWith("DRI", "R1");
  run.GoTo("DRI", "R1", Mode::kActv);
  run.Keep({{"txtJAC_HrsOperated", "1.5"},
            {"txtJAC_DieselUsage", "2.5"},
            {"txtJAC_GasolineUsage", "3.5"},
            {"txtJAC_NGUsage", "4.5"}});
  EXPECT_EQ(run.Count("EA_DRI WHERE OP_HR=1.5 AND DIESEL_USE=2.5 AND GASOLINE_USE=3.5 AND NG_USE=4.5 AND "
                      "DRILLING_EQUIPMENT IS NULL"),
            1);
  EXPECT_EQ(run.Text("txtJAC_HrsOperated") + " " + run.Text("txtJAC_DieselUsage") + " " +
                run.Text("txtJAC_GasolineUsage") + " " + run.Text("txtJAC_NGUsage"),
            "1.5 2.5 3.5 4.5");
}

TEST(DrillingEquipment, opens_its_five_fields_of_a_month_for_an_edit) {
  TestRun run;
  StartMonth(run);
  for (const char* field : {"txtJAC_HrsOperated", "txtJAC_DieselUsage", "txtJAC_GasolineUsage", "txtJAC_NGUsage",
                            "txtJAC_DrillingEquipment", "txtJAC_Comments"}) {
    EXPECT_EQ(run.WhyNotSet(field), "") << field;
    EXPECT_EQ(run.At(field).back, Back::kWindow) << field;
  }
  EXPECT_TRUE(run.Visible("Frame1"));
}

TEST(DrillingEquipment, has_its_captions_and_tags) {
  TestRun run;
  run.StartWith("DRI", "R1");
  const std::vector<std::array<std::string, 3>> fields = {
      {"txtJAC_HrsOperated", "Hours Operated (hrs):", "Hours Operated"},
      {"txtJAC_DieselUsage", "Total Diesel Fuel Usage (gal):", "Total Diesel Fuel Usage"},
      {"txtJAC_GasolineUsage", "Total Gasoline Fuel Usage (gal):", "Total Gasoline Fuel Usage"},
      {"txtJAC_NGUsage", "Total Natural Gas Usage (Mscf):", "Total Natural Gas Usage"},
      {"txtJAC_DrillingEquipment", "Mobile Platform Drilling Rig Name:", "Drilling Equipment"},
      {"txtJAC_Comments", "Comments:", ""}};
  for (const auto& [control, caption, tag] : fields) {
    EXPECT_EQ(run.At(control).caption, caption);
    EXPECT_EQ(run.At(control).tag, tag);
  }
  EXPECT_EQ(run.Text("lblJAC_DrillingRigIfApplicable"), "(if applicable)");
}

}  // namespace
}  // namespace merlu::test
