#include "qc_run/run_record.h"

#include <gtest/gtest.h>

#include "shell/qc_command.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

TEST(RecordRun, withdraws_the_rate_of_a_pump_that_did_not_run) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.GoTo("PNE", "P1", Mode::kActv);
  const auto findings = [&](const std::string& hours, const std::string& rate) {
    run.Keep({{"txtPNE_HrsOperated", hours}, {"txtPNE_FuelUsageRate", rate}});
    run.Click("cmdQC");
    run.TakeBoxes();
    return run.Finding("Fuel Usage Rate (SCF/hr)");
  };
  EXPECT_EQ(findings("5", "0"), "Value should be greater than 0");
  EXPECT_EQ(findings("", "0"), "");
  EXPECT_EQ(findings("5", "0"), "Value should be greater than 0");
  EXPECT_EQ(findings("0", "0"), "");
  EXPECT_EQ(findings("", ""), "Required field left blank");
}

TEST(RecordRun, of_a_structure_s_save_changes_no_destination_of_its_equipment) {
  TestRun run;
  run.StartWith("GLY", "G1");
  run.s.db.Execute("UPDATE ED_GLY SET EMIS_DEST='FR'");
  run.Select(run.Key("", ""));
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  for (const std::string& box : run.TakeBoxes()) EXPECT_EQ(box.find("No Flare ID"), std::string::npos) << box;
  EXPECT_EQ(run.Finding("Low Pressure Vent/Flare ID"), "Required field left blank");
  EXPECT_EQ(run.Count("QC WHERE FieldID LIKE 'Ventilation%'"), 0) << "of a destination that it does not have";
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EMIS_DEST FROM ED_GLY")), "FR");
}

TEST(RecordRun, of_a_save_leaves_no_date_on_equipment_that_became_inactive) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "5"}, {"txtFLA_VolFlared", "5"}});
  run.Click("cmdSaveExit");
  EXPECT_FALSE(IsNull(run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV")));
  run.Click("cmdEdit");
  run.Check("chkFLA_Status", true);
  run.Click("cmdSaveExit");
  run.TakeBoxes();
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EA_STATUS FROM EA_EQUIP_ACTV")), "I");
  EXPECT_TRUE(IsNull(run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV")));
}

TEST(RecordRun, of_a_survey_in_description_mode_judges_each_structure_by_its_own_record) {
  TestRun run;
  run.StartWithStructure();
  run.AddStructure("1002", "1", "B");
  run.AddMonth();
  run.ChangeTo(Mode::kDesc);
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET LEASE_NUM='G1' WHERE CMPLX_ID_NUM='1001'");
  const QCLocation survey{level::kSurvey, "12345", 1, 2017, "", "", "", ""};
  RunQCAndTell(run.s, survey, true);
  EXPECT_EQ(run.Count("QC WHERE FieldID='Lease Number' AND CmplxID='1001'"), 0);
  EXPECT_EQ(run.Count("QC WHERE FieldID='Lease Number' AND CmplxID='1002'"), 1);
  EXPECT_EQ(run.Count("QC WHERE Month<>0 OR Year<>0"), 0);
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC WHERE PD_QC_DT IS NOT NULL"), 2);
}

}  // namespace
}  // namespace merlu::test
