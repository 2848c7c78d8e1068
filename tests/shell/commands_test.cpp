#include "shell/commands.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "shell/last_resort.h"
#include "shell/main_program.h"
#include "shell/program_end.h"
#include "shell/status.h"
#include "shell/tree_find.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// Two flares on one structure, at the operator in activity mode.
class AtTheDesk : public testing::Test {
 protected:
  AtTheDesk() {
    run.StartWith("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FLA", "F2");
    run.ChangeTo(Mode::kActv);
    run.SelectRoot();
    run.TakeBoxes();
  }
  int Node(const std::string& key) { return run.s.tree.Find(key); }
  bool Hidden(const std::string& key) { return run.s.tree.nodes[static_cast<std::size_t>(Node(key))].hidden; }
  TestRun run;
};

TEST_F(AtTheDesk, has_the_commands_of_the_place_whatever_was_pushed_before) {
  run.Select(run.Key("FLA", "F1", 1));
  run.s.main->At("cmdEdit").visible = false;
  run.s.main->At("mnuFile").enabled = false;
  run.s.main->At("cmdSaveExit").visible = true;
  UpdateCommands(run.s);
  EXPECT_TRUE(run.s.main->At("cmdEdit").visible);
  EXPECT_TRUE(run.s.main->At("mnuFile").enabled);
  EXPECT_FALSE(run.s.main->At("cmdSaveExit").visible);
}

TEST_F(AtTheDesk, without_an_inventory_offers_nothing_that_needs_one) {
  const Texts needing = {"mnuFBackups", "mnuFWorkbookMake", "mnuFWorkbookRead", "mnuRNext", "mnuRPrevious",
                         "mnuRHandIn",  "mnuRHistory",      "mnuRFind",         "mnuNGrid", "mnuNCopy",
                         "mnuNConfirm", "mnuNNext",         "mnuNPrevious"};
  EXPECT_TRUE(run.s.main->At("mnuRHandIn").enabled);
  EXPECT_TRUE(run.s.main->At("mnuNGrid").enabled);
  const std::string aside = run.s.path + ".aside";
  CloseDatabase(run.s);
  fs::rename(run.s.path, aside);
  run.answers = {Button::kCancel};
  EXPECT_FALSE(ReopenDatabase(run.s));
  for (const std::string& name : needing) EXPECT_FALSE(run.s.main->At(name).enabled) << name;
  EXPECT_TRUE(run.s.main->At("mnuFileSelectDatabase").enabled);
  fs::rename(aside, run.s.path);
  Main(run.s);
  EXPECT_TRUE(run.s.main->At("mnuRHandIn").enabled);
  EXPECT_TRUE(run.s.main->At("mnuNGrid").enabled);
}

TEST_F(AtTheDesk, tells_an_error_of_the_program_and_keeps_the_edit) {
  run.Select(run.Key("FLA", "F1", 1));
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "7");
  EXPECT_FALSE(Guarded(run.s, "Print Screen", [] { throw std::logic_error("no control x on y"); }));
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_NE(run.boxes[0].text.find("Print Screen"), std::string::npos);
  EXPECT_EQ(run.boxes[0].detail, "no control x on y");
  EXPECT_TRUE(run.s.editing);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "7");
  EXPECT_TRUE(run.s.main->At("cmdSaveExit").visible);
}

TEST_F(AtTheDesk, counts_the_findings_of_the_place_and_those_without_a_comment) {
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_FALSE(run.s.checked);
  run.Click("cmdQC");
  UpdateCommands(run.s);
  EXPECT_EQ(run.s.findings, 2);
  EXPECT_EQ(run.s.unexplained, 2);
  EXPECT_TRUE(run.s.checked);
  run.s.db.Execute("UPDATE QC SET Comments='so' WHERE rowid=(SELECT MIN(rowid) FROM QC)");
  UpdateCommands(run.s);
  EXPECT_EQ(run.s.unexplained, 1);
}

TEST_F(AtTheDesk, counts_what_the_rules_say_of_stored_values_also_where_no_run_has_been) {
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_EQ(run.s.findings, 0) << "a month without a value has none";
  run.Keep({{"txtFLA_HrsOperated", "900"}});
  UpdateStatus(run.s);
  EXPECT_FALSE(run.s.checked);
  EXPECT_EQ(run.s.findings, 2);
  run.s.db.Execute(
      "INSERT INTO QC (UserID,[Month],[Year],CmplxID,StructID,[Level],EquipType,EquipID,FieldID,[Desc],Comments,"
      "EditMode) VALUES ('12345',1,2017,'1001','1','EQUIPMENT','FLA','F1','Elsewhere','odd','so','ACTV')");
  for (const std::string& key : {run.Key("FLA", "F1", 1), run.Key("", "", 1), std::string("K12345 12017")}) {
    run.Select(key);
    EXPECT_EQ(run.s.findings, 3) << key;
    EXPECT_EQ(run.s.unexplained, 2) << key;
  }
  run.Select(run.Key("FLA", "F2", 1));
  EXPECT_EQ(run.s.findings, 0);
}

TEST_F(AtTheDesk, counts_the_month_of_its_operator) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PROD_OIL=1,PA_QC_DT='2017-01-01 00:00:00'");
  run.s.db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('99')");
  run.s.db.Execute(
      "INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name) "
      "VALUES (500,'99','55','5','AA','1','Q')");
  run.s.db.Execute("INSERT INTO PA_PLATFORM_ACTV (PD_ID_AK,SA_ID_AK,PA_YR,PA_MO,status) VALUES (500,900,2017,1,'A')");
  run.ChangeTo(Mode::kDesc);
  run.ChangeTo(Mode::kActv);
  run.Select("K12345 12017");
  UpdateStatus(run.s);
  EXPECT_EQ(run.s.findings, 6) << "the other figures of its structure";
  EXPECT_TRUE(run.s.checked);
  run.Select("K   99 12017");
  UpdateStatus(run.s);
  EXPECT_EQ(run.s.findings, 0);
  EXPECT_FALSE(run.s.checked);
}

TEST_F(AtTheDesk, counts_the_structure_that_shows_and_not_the_one_before) {
  run.ChangeTo(Mode::kDesc);
  run.AddStructure("77");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("FLA", "F1", 1));
  run.Keep({{"txtFLA_HrsOperated", "900"}});
  run.Select("K12345 12017     77 1");
  UpdateStatus(run.s);
  EXPECT_EQ(run.s.findings, 0);
  run.Select(run.Key("", "", 1));
  UpdateStatus(run.s);
  EXPECT_EQ(run.s.findings, 2);
}

TEST_F(AtTheDesk, knows_whether_a_description_was_checked_since_its_last_save) {
  run.GoTo("FLA", "F1", Mode::kDesc);
  EXPECT_FALSE(run.s.checked);
  run.Click("cmdQC");
  UpdateStatus(run.s);
  EXPECT_TRUE(run.s.checked);
  run.Keep({{"txtFLA_ConcH2S", "5"}});
  UpdateStatus(run.s);
  EXPECT_FALSE(run.s.checked);
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  UpdateStatus(run.s);
  EXPECT_TRUE(run.s.checked) << "the save has run the rules";
}

TEST_F(AtTheDesk, counts_a_description_saved_behind_the_run_of_its_structure_as_unchecked) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.Click("cmdQC");
  run.TakeBoxes();
  run.GoTo("FLA", "F1", Mode::kDesc);
  UpdateStatus(run.s);
  EXPECT_TRUE(run.s.checked);
  run.Keep({{"txtFLA_ConcH2S", "5"}});
  UpdateStatus(run.s);
  EXPECT_FALSE(run.s.checked);
}

TEST_F(AtTheDesk, says_behind_a_save_what_is_found_in_the_values_as_they_are_stored) {
  run.Select(run.Key("FLA", "F1", 1));
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "12"}, {"txtFLA_VolFlared", "about 250"}});
  run.Click("mnuNNext");
  EXPECT_TRUE(run.TakeBoxes().empty());
  EXPECT_EQ(run.s.message, "Flare F1 saved, 1 finding") << "the volume is stored as a blank";
  EXPECT_EQ(run.s.current.EquipID, "F2");
  EXPECT_TRUE(run.s.editing);
}

TEST_F(AtTheDesk, says_what_became_of_the_edit) {
  run.Select(run.Key("FLA", "F1", 1));
  run.Click("cmdEdit");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.s.message, "Saved");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.s.message, "Saved") << "there was nothing to drop";
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "12"}});
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.s.message, "Edit dropped");
  run.Click("cmdEdit");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.s.message, "Edit dropped");
}

TEST_F(AtTheDesk, hides_the_nodes_that_lack_a_word_and_keeps_it_so_when_the_tree_is_built_anew) {
  run.Set("txtTREE_Filter", "flare f2");
  EXPECT_TRUE(Hidden(run.Key("FLA", "F1", 1)));
  EXPECT_FALSE(Hidden(run.Key("FLA", "F2", 1)));
  EXPECT_FALSE(Hidden(run.Key("", "", 1)));
  run.ChangeTo(Mode::kDesc);
  EXPECT_TRUE(Hidden(run.Key("FLA", "F1")));
  run.Set("txtTREE_Filter", "");
  EXPECT_FALSE(Hidden(run.Key("FLA", "F1")));
}

TEST_F(AtTheDesk, says_what_a_deletion_takes_along_and_has_cancel_under_enter) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.answers = {Button::kCancel};
  run.Click("mnuEDelete");
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].buttons.at(run.boxes[0].preset), Button::kCancel);
  EXPECT_NE(run.boxes[0].detail.find("GI, 43, A"), std::string::npos);
  EXPECT_NE(run.boxes[0].detail.find("2 pieces of equipment"), std::string::npos);
}

TEST_F(AtTheDesk, offers_the_inventories_opened_last_that_are_still_there) {
  const std::string first = run.s.path, second = CopyTemplate(run.folder, "second.mdb");
  Raw(second, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  run.Start(second);
  EXPECT_TRUE(run.s.main->At("mnuFRecent1").caption.starts_with("second.mdb - "));
  EXPECT_TRUE(run.s.main->At("mnuFRecent2").caption.starts_with("inventory.mdb - "));
  EXPECT_FALSE(run.s.main->At("mnuFRecent3").visible);
  run.Click("mnuFRecent2");
  EXPECT_EQ(run.s.path, first);
  fs::remove(second);
  run.TakeBoxes();
  run.Click("mnuFRecent2");
  EXPECT_EQ(run.TakeBoxes(), (Texts{"This inventory is not there any more:\n" + second}));
  EXPECT_EQ(run.s.path, first) << "no other one than the command names";
  EXPECT_FALSE(run.s.main->At("mnuFRecent2").visible);
  run.Start(first);
  EXPECT_FALSE(run.s.main->At("mnuFRecent2").visible);
}

TEST_F(AtTheDesk, looks_which_of_the_inventories_opened_last_are_there_as_the_menu_opens) {
  const std::string first = run.s.path, second = CopyTemplate(run.folder, "second.mdb");
  Raw(second, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  run.Start(second);
  fs::rename(first, run.folder.path("elsewhere.mdb"));
  run.Click("mnuFile");
  EXPECT_TRUE(run.s.main->At("mnuFRecent1").caption.starts_with("second.mdb - "));
  EXPECT_FALSE(run.s.main->At("mnuFRecent2").visible);
  fs::rename(run.folder.path("elsewhere.mdb"), first);
  run.Click("mnuFile");
  EXPECT_TRUE(run.s.main->At("mnuFRecent2").caption.starts_with("inventory.mdb - "));
}

TEST_F(AtTheDesk, shows_an_ampersand_of_a_name_among_the_inventories_opened_last) {
  const std::string path = CopyTemplate(run.folder, "Bed & Board.mdb");
  Raw(path, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  run.Start(path);
  EXPECT_TRUE(run.s.main->At("mnuFRecent1").caption.starts_with("Bed && Board.mdb - "));
  run.Click("mnuFRecent1");
  EXPECT_EQ(run.s.path, path);
}

TEST(FirstQuestion, leads_to_an_inventory_that_is_there) {
  TestRun run;
  const std::string fresh = CopyTemplate(run.folder, "fresh.mdb"), other = CopyTemplate(run.folder, "other.mdb");
  Raw(other, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  run.files = {other};
  run.dialogs.push_back([&run](Form&) { run.Click("cmdOpenExisting"); });
  run.Start(fresh);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.s.path, other);
  EXPECT_EQ(run.s.current.UserID, "77");
  EXPECT_EQ(ToInteger(RawValue(fresh, "SELECT COUNT(*) FROM CO_COMPANY")), 0);
}

}  // namespace
}  // namespace merlu::test
