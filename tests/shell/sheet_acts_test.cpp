#include "shell/sheet_acts.h"

#include <gtest/gtest.h>

#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// A structure of two months with two flares, a vent and fugitives, in activity mode.
class NodeClick : public testing::Test {
 protected:
  NodeClick() {
    run.StartWithStructure();
    for (const auto& [type, id] : {std::pair{"FLA", "F1"}, {"FLA", "F2"}, {"VEN", "V1"}, {"FUG", "G1"}}) {
      run.Select(run.Key());
      run.AddEquipment(type, id);
    }
    run.SelectRoot();
    run.AddMonth();
  }
  Texts Showing() {
    Texts names;
    for (const Form* form : run.s.desk.showing) names.push_back(form->name());
    return names;
  }
  bool Loaded(const std::string& form) {
    const Form* found = run.s.desk.Find(form);
    return found != nullptr && found->loaded;
  }
  TestRun run;
};

TEST_F(NodeClick, takes_the_location_and_the_row_from_the_key_of_the_node) {
  run.Select(run.Key("FLA", "F2", 2));
  EXPECT_EQ(run.s.current.Level, "EQUIPMENT");
  EXPECT_EQ(run.s.current.UserID, "12345");
  EXPECT_EQ(run.s.current.Month, 2);
  EXPECT_EQ(run.s.current.Year, 2017);
  EXPECT_EQ(run.s.current.CmplxID, "1001");
  EXPECT_EQ(run.s.current.StructID, "1");
  EXPECT_EQ(run.s.current.EquipType, "FLA");
  EXPECT_EQ(run.s.current.EquipID, "F2");
  EXPECT_EQ(run.s.EA_ID_AK, ToInteger(run.Sql("SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE ED_ID_AK=2 AND EA_MO=2")));
  EXPECT_EQ(run.s.ED_ID_AK, 2);
  run.Select(run.Key("", "", 1));
  EXPECT_EQ(run.s.SA_ID_AK, 1);
}

TEST_F(NodeClick, has_neither_month_nor_year_in_description_mode) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key("FLA", "F2"));
  EXPECT_EQ(run.s.current.Month, 0);
  EXPECT_EQ(run.s.current.Year, 0);
  EXPECT_EQ(run.s.ED_ID_AK, 2);
  run.Select(run.Key());
  EXPECT_EQ(run.s.PD_ID_AK, 1);
}

TEST_F(NodeClick, brings_the_frame_of_the_level_to_the_front) {
  run.SelectRoot();
  EXPECT_EQ(run.s.main->front, "fraUserInfo");
  run.Select("K12345 12017");
  EXPECT_EQ(run.s.main->front, "fraSurvey");
  run.Select(run.Key("", "", 1));
  EXPECT_EQ(run.s.main->front, "fraStructure");
  EXPECT_EQ(Showing(), Texts{"frmMain"});
}

TEST_F(NodeClick, lays_the_sheet_of_equipment_over_the_window_and_hides_the_frames_behind_it) {
  run.Select(run.Key("", "", 1));
  EXPECT_EQ(run.WhyNotClick("cmdSTRUCTURE_AddEquip"), "");
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_EQ(Showing(), (Texts{"frmMain", "frmFLA"}));
  for (const char* frame : {"fraUserInfo", "fraSurvey", "fraStructure"})
    EXPECT_FALSE(run.s.main->At(frame).visible) << frame;
  EXPECT_EQ(run.WhyNotClick("cmdSTRUCTURE_AddEquip"), "is not on the screen");
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "");
  run.Select(run.Key("", "", 1));
  EXPECT_EQ(Showing(), Texts{"frmMain"});
  EXPECT_TRUE(run.s.main->At("fraStructure").visible);
  EXPECT_FALSE(Loaded("frmFLA"));
}

TEST_F(NodeClick, unloads_the_sheet_of_another_type_and_keeps_that_of_the_same) {
  run.Select(run.Key("FLA", "F1", 1));
  run.Select(run.Key("FLA", "F2", 1));
  EXPECT_EQ(Showing(), (Texts{"frmMain", "frmFLA"}));
  EXPECT_TRUE(Loaded("frmFLA"));
  run.Select(run.Key("VEN", "V1", 1));
  EXPECT_EQ(Showing(), (Texts{"frmMain", "frmVEN"}));
  EXPECT_FALSE(Loaded("frmFLA"));
}

TEST_F(NodeClick, keeps_what_only_the_form_remembers_from_one_flare_to_the_next) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key("FLA", "F1"));
  Form& sheet = *run.s.desk.Find("frmFLA");
  sheet.At("lblFLA_QCResults").text = "kept";
  run.Select(run.Key("FLA", "F2"));
  EXPECT_EQ(sheet.At("lblFLA_QCResults").text, "kept");
  run.Select(run.Key("VEN", "V1"));
  run.Select(run.Key("FLA", "F1"));
  EXPECT_EQ(sheet.At("lblFLA_QCResults").text, "QC Results");
}

TEST_F(NodeClick, of_every_type_leads_to_its_form_in_view) {
  TestRun all;
  all.StartWithStructure();
  for (const SheetSpec* sheet : AllSheets()) {
    SCOPED_TRACE(sheet->type);
    all.Select(all.Key());
    all.AddEquipment(sheet->type, "X1");
    all.Select(all.Key());
    all.Select(all.Key(sheet->type, "X1"));
    ASSERT_EQ(all.s.desk.showing.size(), 2u);
    EXPECT_EQ(all.s.desk.showing.back()->name(), "frm" + (sheet->type == "DRI" ? std::string("JAC") : sheet->type));
    EXPECT_EQ(all.s.desk.showing.back()->At(sheet->frame()).caption, sheet->title);
    EXPECT_EQ(all.TakeBoxes(), Texts{});
  }
}

TEST_F(NodeClick, tells_the_way_to_the_node_in_the_status_bar) {
  run.Select(run.Key("FLA", "F1", 2));
  EXPECT_EQ(run.s.status_text, "Operator: 12345 › Monthly Survey 2017/02 › GI, 43, A › Combustion Flare: F1");
}

// ---- commands by level and mode ----

struct Commands {
  const char* place;
  std::string key;
  Mode mode;
  bool qc, new_structure, new_equipment, remove;
};

TEST_F(NodeClick, enables_the_commands_of_each_level_and_mode) {
  const std::vector<Commands> table = {
      {"operator", "K12345", Mode::kActv, false, false, false, false},
      {"survey", "K12345 12017", Mode::kActv, true, true, false, false},
      {"structure", run.Key("", "", 1), Mode::kActv, true, true, true, false},
      {"equipment", run.Key("FLA", "F1", 1), Mode::kActv, true, false, true, false},
      {"operator", "K12345", Mode::kDesc, false, true, false, false},
      {"structure", run.Key(), Mode::kDesc, true, true, true, true},
      {"equipment", run.Key("FLA", "F1"), Mode::kDesc, true, true, true, true},
  };
  Form& main = *run.s.main;
  for (const Commands& row : table) {
    SCOPED_TRACE(std::string(row.place) + (row.mode == Mode::kActv ? " of activity" : " of description"));
    run.ChangeTo(row.mode);
    run.Select(row.key);
    EXPECT_TRUE(main.At("cmdEdit").enabled && main.At("cmdEdit").visible);
    EXPECT_EQ(main.At("cmdQC").visible, row.qc);
    EXPECT_EQ(main.At("mnuFQC").enabled, row.qc);
    EXPECT_EQ(main.At("mnuENewStructure").enabled, row.new_structure);
    EXPECT_EQ(main.At("mnuENewEquipment").enabled, row.new_equipment);
    EXPECT_EQ(main.At("mnuEDelete").enabled, row.remove);
    EXPECT_EQ(main.At("mnuEditBar").enabled, row.remove);
  }
}

TEST_F(NodeClick, leaves_the_command_for_a_new_month_as_it_was_below_the_operator) {
  Form& main = *run.s.main;
  run.SelectRoot();
  EXPECT_TRUE(main.At("mnuENewSurvey").enabled);
  for (bool enabled : {true, false})
    for (const std::string& key : {std::string("K12345 12017"), run.Key("", "", 1), run.Key("FLA", "F1", 1)}) {
      run.s.may_add_month = enabled;
      run.Select(key);
      EXPECT_EQ(main.At("mnuENewSurvey").enabled, enabled) << key;
    }
  run.ChangeTo(Mode::kDesc);
  run.SelectRoot();
  EXPECT_FALSE(main.At("mnuENewSurvey").enabled);
}

TEST_F(NodeClick, offers_new_equipment_on_a_structure_s_sheet_in_both_modes) {
  run.Select(run.Key("", "", 1));
  EXPECT_EQ(run.WhyNotClick("cmdSTRUCTURE_AddEquip"), "");
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.WhyNotClick("cmdSTRUCTURE_AddEquip"), "");
}

// ---- the month's status ----

TEST_F(NodeClick, hides_the_edit_of_equipment_whose_structure_is_inactive_for_the_month) {
  run.Select(run.Key("", "", 2));
  run.Click("cmdEdit");
  run.Check("chkSTRUCTURE_Status", true);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  run.Select(run.Key("FLA", "F1", 2));
  EXPECT_EQ(run.s.node_status, "I");
  EXPECT_FALSE(run.s.main->At("cmdEdit").visible);
  EXPECT_FALSE(run.s.main->At("cmdEdit").enabled);
  EXPECT_TRUE(run.Visible("lblNoEmissions"));
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_EQ(run.s.node_status, "A");
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "");
  EXPECT_FALSE(run.Visible("lblNoEmissions"));
}

TEST_F(NodeClick, lets_the_structure_itself_be_edited_in_a_month_in_which_it_is_inactive) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  run.Start();
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "is hidden");
  run.Select(run.Key("", "", 1));
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "");
}

TEST_F(NodeClick, lets_descriptions_be_edited_whatever_the_month_s_status) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  run.Start();
  run.Select(run.Key("FLA", "F1", 1));
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.s.current.EquipID, "F1");
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "");
}

TEST_F(NodeClick, takes_a_month_without_a_status_for_an_active_one) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status=NULL");
  run.Start();
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_EQ(run.s.node_status, "");
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "");
}

TEST_F(NodeClick, keeps_the_status_of_the_last_equipment_when_a_structure_is_selected) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I' WHERE PA_MO=2");
  run.Start();
  run.Select(run.Key("FLA", "F1", 2));
  run.Select(run.Key("", "", 1));
  EXPECT_EQ(run.s.node_status, "I");
}

// ---- saves by level ----

TEST_F(NodeClick, saves_nothing_on_a_survey) {
  run.Select("K12345 12017");
  const std::int64_t changes = run.s.db.ChangeCount();
  SaveSheet(run.s, false);
  EXPECT_EQ(run.s.db.ChangeCount(), changes);
  EXPECT_FALSE(run.s.save_failed);
}

TEST_F(NodeClick, runs_qc_from_the_button_only_while_the_tree_has_nodes) {
  run.Select(run.Key("FLA", "F1", 1));
  run.s.tree.Clear();
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  run.Click("mnuFQC");
  EXPECT_EQ(run.TakeBoxes().size(), 1u);
}

TEST_F(NodeClick, asks_for_a_row_before_a_comment_is_edited) {
  for (const auto& [key, sheet] : {std::pair{std::string("K12345 12017"), "SURVEY"},
                                   {run.Key("", "", 1), "STRUCTURE"},
                                   {run.Key("FLA", "F1", 1), "FLA"}}) {
    run.Select(key);
    run.Click("cmdEdit");
    run.Click(std::string("cmd") + sheet + "_EditQCComment");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please select an error record to edit."}) << sheet;
    run.Click("cmdCANCEL");
  }
}

}  // namespace
}  // namespace merlu::test
