#include <gtest/gtest.h>

#include <array>

#include "support/test_run.h"

namespace merlu::test {
namespace {

// Editing the first month of a rig.
void StartMonth(TestRun& run) {
  run.StartWith("DRI", "R1");
  run.GoTo("DRI", "R1", Mode::kActv);
  run.Click("cmdEdit");
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
