#include "shell/edit_cycle.h"

#include <gtest/gtest.h>

#include "shell/sheet_acts.h"
#include "shell/trees.h"
#include "support/pauses.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// A flare of two months, in activity mode at its first.
class Edit : public testing::Test {
 protected:
  Edit() {
    run.StartWith("FLA", "F1");
    run.SelectRoot();
    run.AddMonth();
    run.Select(run.Key("FLA", "F1", 1));
    run.TakeBoxes();
  }
  void ExpectBrowsing() {
    Form& main = *run.s.main;
    EXPECT_FALSE(run.s.editing);
    EXPECT_TRUE(run.s.tree.enabled);
    for (const char* name : {"mnuFile", "mnuEdit", "tvwTree", "cmdEditMode"})
      EXPECT_TRUE(main.At(name).enabled) << name;
    EXPECT_TRUE(main.At("cmdEdit").visible);
    for (const char* name : {"cmdSaveExit", "cmdSaveEdits", "cmdCANCEL"}) EXPECT_FALSE(main.At(name).visible) << name;
  }
  void ExpectEditing() {
    Form& main = *run.s.main;
    EXPECT_TRUE(run.s.editing);
    EXPECT_FALSE(run.s.tree.enabled);
    for (const char* name : {"mnuFile", "mnuEdit", "tvwTree", "cmdEditMode"})
      EXPECT_FALSE(main.At(name).enabled) << name;
    EXPECT_FALSE(main.At("cmdEdit").visible);
    for (const char* name : {"cmdSaveExit", "cmdSaveEdits", "cmdCANCEL"}) EXPECT_TRUE(main.At(name).visible) << name;
  }
  Value StoredNow(const std::string& column) { return run.Sql("SELECT " + column + " FROM EA_FLA WHERE EA_ID_AK=1"); }
  Value Date(int month = 1) {
    return run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV WHERE EA_MO=" + std::to_string(month));
  }
  TestRun run;
};

TEST_F(Edit, has_buttons_of_its_own) {
  EXPECT_EQ(run.At("cmdEdit").caption, "Edit Data");
  EXPECT_EQ(run.At("cmdSaveEdits").caption, "Save");
  EXPECT_EQ(run.At("cmdSaveExit").caption, "End Edit && Save");
  EXPECT_EQ(run.At("cmdCANCEL").caption, "Cancel");
  EXPECT_EQ(run.At("cmdQC").caption, "Run QC");
}

TEST_F(Edit, shuts_every_way_out_but_its_own_buttons) {
  ExpectBrowsing();
  run.Click("cmdEdit");
  ExpectEditing();
  for (const char* name : {"mnuFExit", "mnuSetEditMode", "mnuENewSurvey", "mnuFileSelectDatabase", "cmdEditMode"})
    EXPECT_EQ(run.WhyNotClick(name), "is disabled") << name;
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "is hidden");
}

TEST_F(Edit, is_refused_on_fields_until_it_begins) {
  EXPECT_EQ(run.WhyNotSet("txtFLA_HrsOperated"), "is locked");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet("txtFLA_HrsOperated"), "");
  EXPECT_EQ(run.WhyNotSet("txtFLA_ConcH2S"), "is locked");
}

TEST_F(Edit, that_is_cancelled_leaves_the_store_as_it_was) {
  run.Keep({{"txtFLA_HrsOperated", "5"}});
  const std::int64_t changes = run.s.db.ChangeCount();
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "6");
  run.Click("cmdCANCEL");
  ExpectBrowsing();
  EXPECT_EQ(run.s.db.ChangeCount(), changes);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "5");
  EXPECT_EQ(run.WhyNotSet("txtFLA_HrsOperated"), "is locked");
}

TEST_F(Edit, that_is_saved_goes_on_with_what_was_stored) {
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "1,200"}, {"txtFLA_VolFlared", "lots"}});
  run.Click("cmdSaveEdits");
  ExpectEditing();
  EXPECT_EQ(ToNumber(StoredNow("OP_HR")), 1);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "1");
  EXPECT_EQ(run.Text("txtFLA_VolFlared"), "");
  EXPECT_EQ(run.WhyNotSet("txtFLA_HrsOperated"), "");
  EXPECT_EQ(run.At("fraFLA").caption, "Flare - EDIT DATA");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(Edit, that_is_cancelled_after_a_save_shows_what_was_saved) {
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "5");
  run.Click("cmdSaveEdits");
  run.Set("txtFLA_HrsOperated", "6");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "5");
  EXPECT_EQ(ToNumber(StoredNow("OP_HR")), 5);
}

TEST_F(Edit, that_ends_runs_qc_on_the_values_of_the_screen_saves_and_goes_back_to_view) {
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "745"}, {"txtFLA_VolFlared", "5"}});
  run.Click("cmdSaveExit");
  ExpectBrowsing();
  EXPECT_EQ(run.TakeBoxes(), Texts{"QC completed with 1 errors found"});
  EXPECT_EQ(run.Finding("Hours Operated, excl. upsets"), "Value not in expected range (0 to 744)");
  EXPECT_EQ(ToNumber(StoredNow("OP_HR")), 745);
  EXPECT_FALSE(run.s.InSaveQC);
  EXPECT_FALSE(run.s.save_failed);
  EXPECT_EQ(run.At("fraFLA").caption, "Combustion Flare");
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows.size(), 1u);
  EXPECT_EQ(run.WhyNotSet("txtFLA_HrsOperated"), "is locked");
}

TEST_F(Edit, that_ends_without_findings_says_nothing) {
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "700"}, {"txtFLA_VolFlared", "5"}});
  run.Click("cmdSaveExit");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(Edit, that_ends_stands_where_it_began_with_the_tree_as_open_as_before) {
  for (TreeNode& node : run.s.tree.nodes) node.expanded = false;
  run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.Find("K12345 22017"))].expanded = true;
  std::vector<bool> before;
  for (const TreeNode& node : run.s.tree.nodes) before.push_back(node.expanded);
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key, run.Key("FLA", "F1", 1));
  EXPECT_EQ(run.s.current.EquipID, "F1");
  EXPECT_EQ(run.s.current.Month, 1);
  EXPECT_EQ(run.s.EA_ID_AK, 1);
  std::vector<bool> after;
  for (const TreeNode& node : run.s.tree.nodes) after.push_back(node.expanded);
  EXPECT_EQ(after, before);
}

TEST_F(Edit, that_ends_at_a_survey_among_the_descriptions_stands_on_the_operator_that_shows) {
  run.Select("K12345 22017");
  run.ChangeTo(Mode::kDesc);
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  EXPECT_EQ(run.s.main->front, "fraUserInfo");
  EXPECT_EQ(run.s.current.Level, level::kUser);
  EXPECT_EQ(run.At("fraSurvey").caption, "Survey");
  EXPECT_FALSE(run.At("fraSurvey").emphasis);
  ExpectBrowsing();
}

TEST_F(Edit, that_ends_shows_the_command_for_a_new_month_or_a_new_structure) {
  run.s.main->At("mnuENewSurvey").visible = false;
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  EXPECT_TRUE(run.s.main->At("mnuENewSurvey").visible);
  run.ChangeTo(Mode::kDesc);
  run.s.main->At("mnuENewStructure").visible = false;
  run.Click("cmdEdit");
  run.Click("cmdCANCEL");
  EXPECT_TRUE(run.s.main->At("mnuENewStructure").visible);
}

TEST_F(Edit, that_is_saved_without_a_run_empties_the_date_of_the_last_one) {
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_QC_DT='2017-01-01 00:00:00'");
  run.Click("cmdEdit");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsNull(Date(1)));
  EXPECT_EQ(NullToEmpty(Date(2)), "2017-01-01 00:00:00");
}

TEST_F(Edit, that_ends_keeps_the_date_that_its_own_run_wrote) {
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  EXPECT_EQ(NullToEmpty(Date()), "2017-03-05 14:02:00");
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC: Mar 05, 2017 14:02");
}

TEST_F(Edit, of_a_description_leaves_every_date_alone) {
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_QC_DT='2017-01-01 00:00:00'");
  run.ChangeTo(Mode::kDesc);
  run.Keep({{"txtFLA_ConcH2S", "1"}});
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  EXPECT_EQ(NullToEmpty(Date(1)), "2017-01-01 00:00:00");
  EXPECT_EQ(run.Count("ED_EQUIP_DESC WHERE ED_QC_DT IS NOT NULL"), 0);
}

TEST_F(Edit, can_run_qc_without_saving) {
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "745");
  EXPECT_EQ(run.WhyNotClick("cmdQC"), "");
  run.Click("cmdQC");
  ExpectEditing();
  EXPECT_EQ(run.Finding("Hours Operated, excl. upsets"), "Value not in expected range (0 to 744)");
  EXPECT_EQ(run.At("txtFLA_HrsOperated").back, Back::kFlag);
  EXPECT_TRUE(IsNull(StoredNow("OP_HR")));
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "745");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "");
}

TEST_F(Edit, says_that_qc_was_run_only_when_it_was) {
  run.Click("cmdQC");
  EXPECT_EQ(run.s.message, "QC was run");
  run.s.message.clear();
  run.s.db.Execute("DROP TABLE QC");
  run.TakeBoxes();
  run.Click("cmdQC");
  EXPECT_FALSE(run.TakeBoxes().empty());
  EXPECT_EQ(run.s.message, "");
}

class EditOfDeleted : public Edit, public testing::WithParamInterface<const char*> {};

TEST_P(EditOfDeleted, record_says_so_once_and_stays_open) {
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "5");
  Raw(run.s.path, {"DELETE FROM EA_FLA", "DELETE FROM EA_EQUIP_ACTV"});
  run.Click(GetParam());
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equipment record not found"});
  ExpectEditing();
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "5");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "");
}

INSTANTIATE_TEST_SUITE_P(Saves, EditOfDeleted, testing::Values("cmdSaveEdits", "cmdSaveExit", "mnuNNext"));

TEST_F(Edit, whose_record_is_gone_cannot_be_saved_and_stays_open) {
  run.Click("cmdEdit");
  run.s.db.Execute("DELETE FROM EA_EQUIP_ACTV");
  run.s.At("EA_EQUIP_ACTV").Requery();
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equipment record not found"});
  EXPECT_TRUE(run.s.save_failed);
  ExpectEditing();
  run.Set("txtFLA_HrsOperated", "5");
  run.Click("cmdSaveExit");
  ExpectEditing();
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "5");
}

TEST_F(Edit, that_could_not_be_saved_can_be_saved_when_the_reason_is_gone) {
  run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE UPDATE ON EA_FLA BEGIN SELECT RAISE(ABORT,'no'); END");
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "5");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"3146 no"});
  ExpectEditing();
  run.s.db.Execute("DROP TRIGGER stop");
  run.Click("cmdSaveEdits");
  EXPECT_FALSE(run.s.save_failed);
  EXPECT_EQ(ToNumber(StoredNow("OP_HR")), 5);
}

TEST_F(Edit, on_a_survey_is_saved_by_reloading_its_sheet) {
  run.Select("K12345 12017");
  run.Click("cmdEdit");
  const std::int64_t changes = run.s.db.ChangeCount();
  run.Click("cmdSaveEdits");
  ExpectEditing();
  EXPECT_EQ(run.s.db.ChangeCount(), changes);
  EXPECT_EQ(run.At("fraSurvey").caption, "Survey - EDIT DATA");
}

TEST_F(Edit, on_a_survey_ends_with_a_run_over_its_structures) {
  run.Select("K12345 12017");
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  ExpectBrowsing();
  EXPECT_GT(run.Count("QC WHERE EditMode='ACTV' AND Month=1"), 0);
  EXPECT_EQ(run.s.current.Level, "SURVEY");
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key, "K12345 12017");
}

TEST_F(Edit, on_the_operator_ends_without_a_run) {
  run.SelectRoot();
  run.Click("cmdEdit");
  run.Set("txtUSER_City", "Bay");
  run.Click("cmdSaveExit");
  ExpectBrowsing();
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.Text("txtUSER_City"), "Bay");
  EXPECT_EQ(run.Count("QC"), 0);
}

TEST_F(Edit, on_a_structure_ends_with_its_findings_listed) {
  run.Select(run.Key("", "", 1));
  run.Click("cmdEdit");
  run.Set("txtSTRUCTURE_ProdOil", "-1");
  run.Click("cmdSaveExit");
  ExpectBrowsing();
  EXPECT_EQ(run.Finding("Oil Production"), "Value not in expected range (0 to 5000000)");
  EXPECT_EQ(ToNumber(run.Sql("SELECT PROD_OIL FROM PA_PLATFORM_ACTV WHERE PA_MO=1")), -1);
  EXPECT_FALSE(run.At("lvwSTRUCTURE_QCResults").rows.empty());
  EXPECT_EQ(run.s.current.Level, "STRUCTURE");
}

TEST_F(Edit, is_over_when_another_node_is_selected) {
  run.Click("cmdEdit");
  run.s.tree.enabled = true;
  run.Select(run.Key("FLA", "F1", 2));
  EXPECT_FALSE(run.s.editing);
}

// ---- a record that cannot be read ----

constexpr const char* kUnreadable = "This record could not be read.";

// Holds the file as another program does, as long as it lives. Nobody waits for its end.
class Hold {
 public:
  explicit Hold(TestRun& run) {
    other_.Open(run.s.path);
    other_.Execute("BEGIN EXCLUSIVE");
  }

 private:
  Database other_;
  WithoutPauses without_pauses_;
};

TEST_F(Edit, does_not_begin_on_a_record_that_could_not_be_read) {
  run.Keep({{"txtFLA_HrsOperated", "700"}});
  run.TakeBoxes();
  {
    const Hold hold(run);
    run.Select(run.Key("FLA", "F1", 1));
    EXPECT_EQ(run.TakeBoxes().back(), kUnreadable);
    run.Click("cmdEdit");
    EXPECT_EQ(run.TakeBoxes().back(), kUnreadable);
    ExpectBrowsing();
  }
  EXPECT_EQ(ToNumber(StoredNow("OP_HR")), 700);
}

TEST_F(Edit, reads_the_record_again_when_it_begins) {
  run.Keep({{"txtFLA_HrsOperated", "700"}});
  {
    const Hold hold(run);
    run.Select(run.Key("FLA", "F1", 1));
  }
  run.TakeBoxes();
  run.Click("cmdEdit");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  ExpectEditing();
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "700");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(ToNumber(StoredNow("OP_HR")), 700);
}

TEST_F(Edit, of_every_level_does_not_begin_while_it_cannot_be_read) {
  for (const std::string& key : {std::string("K12345"), run.Key("", "", 1), run.Key("FLA", "F1", 1)}) {
    const Hold hold(run);
    run.Select(key);
    run.Click("cmdEdit");
    EXPECT_EQ(run.TakeBoxes().back(), kUnreadable) << key;
    ExpectBrowsing();
  }
}

TEST_F(Edit, of_a_record_that_could_not_be_read_is_neither_saved_nor_judged) {
  run.Keep({{"txtFLA_HrsOperated", "700"}});
  {
    const Hold hold(run);
    run.Select(run.Key("FLA", "F1", 1));
    run.TakeBoxes();
    run.Click("cmdQC");
    EXPECT_EQ(run.TakeBoxes().back(), kUnreadable);
  }
  EXPECT_EQ(run.Count("QC"), 0);
  EXPECT_TRUE(IsNull(Date()));
  SaveSheet(run.s, false);
  EXPECT_TRUE(run.s.save_failed);
  EXPECT_EQ(ToNumber(StoredNow("OP_HR")), 700);
}

TEST_F(Edit, that_was_cancelled_into_a_record_that_cannot_be_read_has_ended) {
  run.Keep({{"txtFLA_HrsOperated", "700"}});
  run.Click("cmdEdit");
  {
    const Hold hold(run);
    run.Click("cmdCANCEL");
    EXPECT_EQ(run.TakeBoxes().back(), kUnreadable);
    ExpectBrowsing();
  }
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "700");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(Edit, of_a_node_without_a_record_is_refused) {
  run.s.equipment_month_list.Reset();
  run.Select(run.Key("FLA", "F1", 1));
  run.TakeBoxes();
  run.Click("cmdEdit");
  EXPECT_EQ(run.TakeBoxes(), Texts{kUnreadable});
  ExpectBrowsing();
}

}  // namespace
}  // namespace merlu::test
