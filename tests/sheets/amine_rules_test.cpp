#include "amine.h"

namespace merlu::test {
namespace {

using namespace amine_unit;

TEST(Amine, without_another_control_device_keeps_its_efficiencies_and_raises_nothing) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep({{"cmbAMI_OtherControlDevice", "Yes"},
            {"txtAMI_OtherControlEffCO", "120"},
            {"txtAMI_OtherControlEffVOC", "99.91"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("CO Efficiency"), RangeFinding(0, 99.9));
  EXPECT_EQ(run.Finding("VOC Efficiency"), RangeFinding(0, 99.9));
  run.Keep({{"cmbAMI_OtherControlDevice", "No"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE FieldID LIKE '%Efficiency' OR FieldID LIKE 'Other%'"), 0);
  EXPECT_EQ(StoredText(run, "OTH_CTRL_EFFIC_CO"), "120");
  EXPECT_EQ(StoredText(run, "OTH_CTRL_EFFIC_VOC"), "99.91");
}

// ---- the total of the composition ----

TEST(Amine, counts_letters_in_the_composition_as_nothing_and_stores_nothing_for_them) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("trace", "99.9"));
  run.Set("txtAMI_ConcN2", "5 or so");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("H2S Concentration"), "");
  EXPECT_EQ(run.Finding("N2 Concentration"), "");
  EXPECT_EQ(run.Text(kTotal), "99.9");
  EXPECT_EQ(run.Finding(kTotalTag), "");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsStoredNull(run, "Conc_NGH2S"));
  EXPECT_TRUE(IsStoredNull(run, "CONC_N2"));
  EXPECT_EQ(StoredText(run, "Conc_Methane"), "99.9");
  EXPECT_EQ(run.Text("txtAMI_ConcNGH2S"), "");
}

TEST(Amine, stores_the_total_of_the_last_run_and_not_of_the_save) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("60", "40"));
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  EXPECT_EQ(run.Text(kTotal), "");
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "100");
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "UNG_CONC_TOTAL"), "100");
  run.Set("txtAMI_ConcMethane", "30");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "Conc_Methane"), "30");
  EXPECT_EQ(StoredText(run, "UNG_CONC_TOTAL"), "100");
  EXPECT_EQ(run.Text(kTotal), "100");
  run.Click("cmdSaveExit");
  EXPECT_EQ(StoredText(run, "UNG_CONC_TOTAL"), "90");
  EXPECT_EQ(run.Text(kTotal), "90");
}

TEST(Amine, shows_the_total_of_a_run_in_view_without_storing_it) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep(Composition("60", "40"));
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "100");
  EXPECT_EQ(run.At(kTotal).back, Back::kFace);
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  SelectAgain(run);
  EXPECT_EQ(run.Text(kTotal), "");
}

TEST(Amine, never_lets_the_total_be_typed) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
  EXPECT_EQ(run.At(kTotal).back, Back::kFace);
  run.Click("cmdCANCEL");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
}

TEST(Amine, shows_its_description_unchanged_while_a_month_is_edited) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.s.db.Execute(
      "UPDATE ED_AMI SET EMIS_DEST='RS',EXH_OUT_HGT=4,CTRL_TECH='NONE',CONDENSER_TEMP=50,SRU_RECOVERY_EFFIC=60");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const auto& [field, text] : {std::pair{"txtAMI_ExhaustOutletHgt", "4"}, std::pair{"txtAMI_CondenserT", "50"},
                                    std::pair{"txtAMI_SRURecoveryEff", "60"}}) {
    EXPECT_EQ(run.Text(field), text) << field;
    EXPECT_TRUE(run.At(field).enabled && run.At(field).locked) << field;
    EXPECT_EQ(run.At(field).back, Back::kFace) << field;
  }
}

// ---- findings that a run takes away ----

// Amine units A1 and A2, each with findings of month 1; those of A2's throughput and A1's hours explained.
void StartWithTwo(TestRun& run, const std::string& type, const std::string& throughput_tag) {
  run.StartWith(type, "A1");
  run.Select(run.Key());
  run.AddEquipment(type, "A2");
  run.GoTo(type, "A1", Mode::kActv);
  run.Click("cmdQC");
  run.GoTo(type, "A2", Mode::kActv);
  run.s.db.Execute("UPDATE QC SET Comments='meter broken' WHERE EquipID='A1'");
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='meter broken' WHERE EquipID='A2' AND FieldID='" + throughput_tag + "'");
}

TEST(Amine, checked_withdraws_the_unexplained_findings_of_the_other_units) {
  TestRun run;
  StartWithTwo(run, "AMI", "Processed Throughput");
  ASSERT_EQ(run.Count("QC WHERE EquipID='A2'"), 2);
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings("EquipID='A2'"), (Found{{"Processed Throughput", kBlankFinding}}));
  EXPECT_EQ(run.Count("QC WHERE EquipID='A1' AND Comments='meter broken'"), 2)
      << "its own explained findings still hold";
}

TEST(Amine, checked_leaves_the_other_units_findings_of_the_other_mode_and_of_other_months) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Select(run.Key());
  run.AddEquipment("AMI", "A2");
  run.Click("cmdQC");
  const auto described = run.Count("QC WHERE EditMode='DESC' AND EquipID='A2'");
  EXPECT_EQ(described, 15);
  run.AddMonth();
  run.GoTo("AMI", "A2", Mode::kActv, 2);
  run.Click("cmdQC");
  run.GoTo("AMI", "A1", Mode::kActv, 1);
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE EditMode='DESC' AND EquipID='A2'"), described);
  EXPECT_EQ(run.Count("QC WHERE EditMode='ACTV' AND EquipID='A2' AND [Month]=2"), 2);
}

TEST(Amine, checked_with_its_structure_leaves_the_unexplained_findings_of_the_last_unit_only) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Select(run.Key());
  run.AddEquipment("AMI", "A2");
  run.Select(run.Key());
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE EquipID='A1'"), 0);
  EXPECT_EQ(run.Count("QC WHERE EquipID='A2'"), 15);
}

TEST(Amine, inactive_withdraws_explained_findings_of_all_units_where_a_dehydrator_keeps_them) {
  struct {
    const char *type, *tag;
    int left;
  } const cases[] = {{"AMI", "Processed Throughput", 0}, {"GLY", "Processed Throughput", 1}};
  for (const auto& one : cases) {
    TestRun run;
    StartWithTwo(run, one.type, one.tag);
    run.GoTo(one.type, "A1", Mode::kActv);
    run.Click("cmdEdit");
    run.Check(std::string("chk") + one.type + "_Status", true);
    run.TakeBoxes();
    run.Click("cmdQC");
    EXPECT_EQ(run.TakeBoxes(), Texts{"QC skipped for inactive Equipment"}) << one.type;
    EXPECT_EQ(run.Count("QC WHERE EquipID='A1'"), 0) << one.type;
    EXPECT_EQ(run.Count("QC WHERE EquipID='A2'"), one.left) << one.type;
  }
}

}  // namespace
}  // namespace merlu::test
