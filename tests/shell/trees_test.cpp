#include "shell/trees.h"

#include <gtest/gtest.h>

#include "session/node_keys.h"
#include "session/types.h"
#include "shell/main_program.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

Texts TreeTexts(TestRun& run) {
  Texts texts;
  for (int node : run.s.tree.InOrder()) {
    const TreeNode& at = run.s.tree.nodes[static_cast<std::size_t>(node)];
    texts.push_back(std::string(static_cast<std::size_t>(at.depth) * 2, ' ') + at.text);
  }
  return texts;
}

TreeNode& NodeOf(TestRun& run, const std::string& key) {
  const int node = run.s.tree.Find(key);
  if (node < 0) throw std::runtime_error("no node " + key);
  return run.s.tree.nodes[static_cast<std::size_t>(node)];
}

std::string Selected(TestRun& run) {
  return run.s.tree.selected < 0 ? "" : run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key;
}

// Two structures of two months, with equipment of all sixteen types on the first.
class Trees : public testing::Test {
 protected:
  Trees() {
    run.StartWithStructure();
    for (const EquipmentType& type : EquipmentTypes()) {
      run.Select(run.Key());
      run.AddEquipment(std::string(type.code), "X1");
    }
    run.AddStructure("2", "B", "a");
    run.AddMonth();
    run.TakeBoxes();
  }
  TestRun run;
};

TEST_F(Trees, of_descriptions_hang_structures_and_equipment_sorted_under_the_operator) {
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(
      TreeTexts(run),
      (Texts{"Operator: 12345", "  GI, 43, A", "    Amine Unit: X1", "    Boiler, Heater, or Burner: X1",
             "    Cold Vent: X1", "    Combustion Flare: X1", "    Diesel or Gasoline Engine: X1",
             "    Drilling Equipment: X1", "    Fugitives: X1", "    Glycol Unit: X1", "    Loading Operation: X1",
             "    Losses from Flashing: X1", "    Mud Degassing: X1", "    NG Engine: X1", "    NG Turbine: X1",
             "    Pneumatic Controllers: X1", "    Pneumatic Pump: X1", "    Storage Tank: X1", "  GI, 43, a"}));
}

TEST_F(Trees, of_activity_hang_structures_and_equipment_under_each_month_but_no_fugitives) {
  Texts expected = {"Operator: 12345"};
  for (const char* month : {"  Monthly Survey 2017/01", "  Monthly Survey 2017/02"})
    for (const char* text :
         {month, "    GI, 43, A", "      Amine Unit: X1", "      Boiler, Heater, or Burner: X1", "      Cold Vent: X1",
          "      Combustion Flare: X1", "      Diesel or Gasoline Engine: X1", "      Drilling Equipment: X1",
          "      Glycol Unit: X1", "      Loading Operation: X1", "      Losses from Flashing: X1",
          "      Mud Degassing: X1", "      NG Engine: X1", "      NG Turbine: X1", "      Pneumatic Controllers: X1",
          "      Pneumatic Pump: X1", "      Storage Tank: X1", "    GI, 43, a"})
      expected.push_back(text);
  EXPECT_EQ(TreeTexts(run), expected);
}

TEST_F(Trees, give_one_structure_a_key_of_each_mode) {
  EXPECT_GE(run.s.tree.Find("K12345 12017      2 B"), 0);
  EXPECT_GE(run.s.tree.Find("K12345 22017   1001 1DRI      X1"), 0);
  run.ChangeTo(Mode::kDesc);
  EXPECT_GE(run.s.tree.Find("K12345      2 B"), 0);
  EXPECT_GE(run.s.tree.Find("K12345   1001 1FUG      X1"), 0);
}

TEST_F(Trees, are_numbered_by_type_in_the_order_of_the_build) {
  std::string order;
  for (const TreeNode& node : run.s.tree.nodes)
    if (node.key.size() == kEquipmentMonthKeyLength && node.key.substr(6, 2) == " 1")
      order += node.key.substr(21, 3) + " ";
  EXPECT_EQ(order, "AMI BOI DIE DRI FLA GLY LOA LOS MUD NGE NGT PNE PRE STO VEN ");
  run.ChangeTo(Mode::kDesc);
  order.clear();
  for (const TreeNode& node : run.s.tree.nodes)
    if (node.key.size() == kEquipmentKeyLength) order += node.key.substr(15, 3) + " ";
  EXPECT_EQ(order, "AMI BOI DIE DRI FLA FUG GLY LOA LOS MUD NGE NGT PNE PRE STO VEN ");
}

TEST_F(Trees, keep_the_row_keys_of_their_structures_and_equipment_beside_them) {
  EXPECT_EQ(run.s.structure_month_list.size(), 4u);
  EXPECT_EQ(run.s.equipment_month_list.size(), 30u);
  const std::int64_t* row = run.s.equipment_month_list.Find(run.Key("VEN", "X1", 2));
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(*row, ToInteger(run.Sql("SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='VEN' AND EA_MO=2")));
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.s.structure_list.size(), 2u);
  EXPECT_EQ(run.s.equipment_list.size(), 16u);
  run.SelectRoot();
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(run.s.structure_month_list.size(), 4u);
  EXPECT_EQ(run.s.equipment_month_list.size(), 30u);
}

TEST_F(Trees, leave_the_keys_of_the_last_row_that_they_were_built_from) {
  RefreshTree(run.s);
  const std::string last = "(SELECT MAX(EA_ID_AK) FROM EA_VEN)";
  EXPECT_EQ(run.s.EA_ID_AK, ToInteger(run.Sql("SELECT " + last)));
  EXPECT_EQ(run.s.ED_ID_AK, ToInteger(run.Sql("SELECT ED_ID_AK FROM EA_EQUIP_ACTV WHERE EA_ID_AK=" + last)));
  EXPECT_EQ(run.s.PD_ID_AK, ToInteger(run.Sql("SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='1001'")));
  run.s.ED_ID_AK = run.s.PD_ID_AK = 0;
  RefreshDescTree(run.s);
  EXPECT_EQ(run.s.ED_ID_AK, ToInteger(run.Sql("SELECT MAX(ED_ID_AK) FROM ED_VEN")));
  EXPECT_EQ(run.s.PD_ID_AK, ToInteger(run.Sql("SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='1001'")));
}

TEST_F(Trees, open_at_their_root_and_select_it) {
  RefreshTree(run.s);
  EXPECT_TRUE(run.s.tree.nodes[0].expanded);
  EXPECT_FALSE(run.s.tree.nodes[1].expanded);
  EXPECT_EQ(Selected(run), "K12345");
  EXPECT_EQ(run.s.current.Level, "USER");
  EXPECT_EQ(run.s.status_text, "Operator: 12345");
}

TEST_F(Trees, sort_twelve_months_by_their_two_digits) {
  for (int month = 3; month <= 12; ++month) run.AddMonth();
  Texts months;
  for (const std::string& text : TreeTexts(run))
    if (text.starts_with("  Monthly")) months.push_back(text.substr(text.size() - 2));
  EXPECT_EQ(months, (Texts{"01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "11", "12"}));
}

// ---- the tree record ----

TEST_F(Trees, remember_the_status_of_each_structure_month) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I' WHERE PD_ID_AK=1 AND PA_MO=2");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status=NULL WHERE PD_ID_AK=2 AND PA_MO=2");
  run.Start();
  EXPECT_EQ(run.s.activity_record.FindTag(run.Key("", "", 1))->Status, "A");
  EXPECT_EQ(run.s.activity_record.FindTag(run.Key("", "", 2))->Status, "I");
  EXPECT_EQ(run.s.activity_record.FindTag(run.Key("", "", 2, "2", "B"))->Status, "");
  const std::int64_t id = ToInteger(run.Sql("SELECT SA_ID_AK FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=1 AND PA_MO=2"));
  EXPECT_EQ(run.s.activity_record.FindUid(id)->TreeTag, run.Key("", "", 2));
}

TEST_F(Trees, let_the_older_status_win_until_the_next_start) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  RefreshTree(run.s);
  EXPECT_EQ(run.s.activity_record.FindTag(run.Key("", "", 1))->Status, "A");
  run.Start();
  EXPECT_EQ(run.s.activity_record.FindTag(run.Key("", "", 1))->Status, "I");
}

TEST_F(Trees, take_the_status_that_a_structure_is_saved_with) {
  run.Select(run.Key("", "", 1));
  run.Click("cmdEdit");
  run.Check("chkSTRUCTURE_Status", true);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.s.activity_record.FindTag(run.Key("", "", 1))->Status, "I");
  EXPECT_EQ(run.s.activity_record.FindTag(run.Key("", "", 2))->Status, "A");
}

// ---- after a change of mode ----

TEST_F(Trees, stand_where_the_user_stood_after_a_change_of_mode_and_back) {
  run.Select(run.Key("FLA", "X1", 2));
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(Selected(run), run.Key("FLA", "X1"));
  run.Select(run.Key("VEN", "X1"));
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(Selected(run), run.Key("VEN", "X1", 2));
  run.Select(run.Key("", "", 1));
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(Selected(run), run.Key());
  EXPECT_FALSE(run.s.mode_changed_to_desc);
  EXPECT_FALSE(run.s.mode_changed_to_actv);
}

TEST_F(Trees, go_to_the_root_when_no_month_was_ever_left) {
  run.Start();
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key("FLA", "X1"));
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(Selected(run), "K12345");
}

TEST_F(Trees, go_to_the_root_from_the_root) {
  run.Select(run.Key("FLA", "X1", 2));
  run.ChangeTo(Mode::kDesc);
  run.SelectRoot();
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(Selected(run), "K12345");
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(Selected(run), "K12345");
}

TEST_F(Trees, of_descriptions_select_nothing_after_a_survey_and_leave_its_sheet) {
  run.Select("K12345 22017");
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.s.tree.selected, -1);
  EXPECT_EQ(run.s.current.Level, "SURVEY");
  EXPECT_EQ(run.s.main->front, "fraSurvey");
  EXPECT_EQ(run.TreeKeys().size(), 19u);
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(Selected(run), "K12345 22017");
}

TEST_F(Trees, of_activity_tell_a_node_that_is_gone_under_error_and_reload_no_sheet) {
  run.Select(run.Key("FLA", "X1", 2));
  run.ChangeTo(Mode::kDesc);
  run.s.db.Execute("DELETE FROM EA_FLA");
  run.s.status_text = "as it was";
  run.ChangeTo(Mode::kActv);
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].title, "Error");
  EXPECT_FALSE(run.boxes[0].text.empty());
  EXPECT_EQ(run.s.status_text, "as it was");
  EXPECT_TRUE(run.s.mode_changed_to_actv);
}

TEST_F(Trees, of_descriptions_stop_silently_at_a_node_that_is_gone) {
  run.Select(run.Key("FLA", "X1", 2));
  run.s.db.Execute("DELETE FROM ED_FLA");
  run.s.status_text = "as it was";
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.s.status_text, "as it was");
  EXPECT_TRUE(run.s.mode_changed_to_desc);
  EXPECT_EQ(run.s.tree.Find(run.Key("FLA", "X1")), -1);
}

// ---- files with odd rows ----

TEST_F(Trees, of_activity_tell_two_structures_of_one_key) {
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='1001',STRUCT_NUM='1'");
  RefreshTree(run.s);
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].title, "Error");
}

TEST_F(Trees, of_activity_tell_a_row_of_a_type_whose_description_is_missing_and_go_on) {
  run.s.db.Execute("PRAGMA foreign_keys=OFF");
  run.s.db.Execute("DELETE FROM ED_EQUIP_DESC WHERE ED_EQUIP_TYP='AMI'");
  run.TakeBoxes();
  RefreshTree(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equip Desc ID 1 not found!\nRows that have no place in the tree: 2."});
  EXPECT_EQ(run.s.tree.Find(run.Key("AMI", "X1", 1)), -1);
  EXPECT_GE(run.s.tree.Find(run.Key("VEN", "X1", 1)), 0);
}

TEST_F(Trees, ask_for_an_operator_who_is_gone_and_end_without_one) {
  run.s.db.Execute("DELETE FROM CO_COMPANY");
  bool asked = false;
  run.dialogs.push_back([&](Form& form) { asked = form.name() == "frmNewUser"; });
  RefreshTree(run.s);
  EXPECT_TRUE(asked);
  EXPECT_EQ(run.TakeBoxes(), Texts{"Sorry, cannot proceed without User Information - TARNE is shutting down now..."});
  EXPECT_TRUE(run.s.ended);
}

TEST_F(Trees, have_a_root_for_each_operator) {
  run.s.db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('7')");
  RefreshTree(run.s);
  const Texts texts = TreeTexts(run);
  EXPECT_EQ(texts.front(), "Operator: 12345");
  EXPECT_EQ(Texts(texts.end() - 3, texts.end()),
            (Texts{"Operator: 7", "  Monthly Survey 2017/01", "  Monthly Survey 2017/02"}));
  EXPECT_EQ(Selected(run), "K12345");
}

TEST(TreeOfAnOperator, with_a_long_number_is_keyed_by_its_last_five_characters) {
  TestRun run;
  run.Start();
  run.s.db.Execute("UPDATE CO_COMPANY SET RIMA_CO_NUM='1234567'");
  RefreshDescTree(run.s);
  EXPECT_EQ(run.TreeKeys(), Texts{"K34567"});
  EXPECT_EQ(TreeTexts(run), Texts{"Operator: 1234567"});
  EXPECT_EQ(run.TakeBoxes(), (Texts{"User record not found", "record not found"}));
}

TEST(TreeOfAnOperator, with_a_short_number_is_keyed_behind_blanks) {
  TestRun run;
  const std::string path = CopyTemplate(run.folder);
  Raw(path, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME) VALUES ('7','Small')"});
  run.Start(path);
  EXPECT_EQ(run.TreeKeys(), Texts{"K    7"});
  EXPECT_EQ(run.s.current.UserID, "7");
  EXPECT_EQ(run.Text("txtUSER_Company"), "Small");
}

TEST(TreeOfOddIds, stands_on_the_row_of_an_id_with_letters_beyond_ascii) {
  TestRun run;
  run.StartWith("FLA", "É1");
  run.Keep({{"txtFLA_ConcH2S", "11"}});
  run.Select(run.Key());
  run.AddEquipment("FLA", "F2");
  run.Keep({{"txtFLA_ConcH2S", "22"}});
  run.Select(run.Key("FLA", "É1"));
  EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "11");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("FLA", "F2", 1));
  run.Select(run.Key("FLA", "É1", 1));
  EXPECT_EQ(run.s.EA_ID_AK,
            ToInteger(run.Sql("SELECT EA_ID_AK FROM EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK "
                              "WHERE ED_MERLU_EQUIP_ID='É1'")));
}

TEST(TreeOfOddIds, stands_on_the_row_of_a_structure_with_letters_beyond_ascii) {
  TestRun run;
  run.Start();
  run.AddStructure("Ä1", "1", "First");
  run.AddStructure("B1", "1", "Second");
  run.Select(run.Key("", "", 0, "Ä1"));
  EXPECT_EQ(run.Text("txtSTRUCTURE_Name"), "First");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1, "B1"));
  run.Select(run.Key("", "", 1, "Ä1"));
  EXPECT_EQ(run.Text("txtSTRUCTURE_CmplxID"), "Ä1");
}

TEST(TreeOfOddIds, with_an_id_too_long_for_its_field_is_of_no_level) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='12345678'");
  run.ChangeTo(Mode::kActv);
  const std::string key = "K12345 1201712345678 1";
  run.Select(key);
  EXPECT_EQ(run.s.current.Level, "UNKNOWN");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Invalid Key len 22 in ParseNodeKey with " + key});
}

TEST(TreeOfOddIds, of_descriptions_is_of_no_level_without_a_word_and_blank) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='12345678'");
  RefreshDescTree(run.s);
  run.Select("K1234512345678 1");
  EXPECT_EQ(run.s.current.Level, "UNKNOWN");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  for (const char* frame : {"fraUserInfo", "fraSurvey", "fraStructure"}) EXPECT_NE(run.s.main->front, frame);
  EXPECT_EQ(run.s.desk.showing, std::vector<Form*>{run.s.main});
}

TEST(TreeOfOddIds, offers_no_edit_of_a_node_of_no_level) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='12345678'");
  RefreshDescTree(run.s);
  run.Select("K1234512345678 1");
  const std::int64_t changes = run.s.db.ChangeCount();
  for (const char* button : {"cmdEdit", "cmdSaveEdits", "cmdCANCEL", "cmdSaveExit"})
    EXPECT_FALSE(run.WhyNotClick(button).empty()) << button;
  EXPECT_FALSE(run.s.editing);
  EXPECT_EQ(run.s.db.ChangeCount(), changes);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

// ---- tree records and keys that come back ----

TEST(TreeRecords, of_a_structure_go_with_it) {
  TestRun run;
  run.StartWithStructure();
  run.AddStructure("1002");
  run.AddEquipment("FLA", "F1");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1, "1002"));
  run.Click("cmdEdit");
  run.Check("chkSTRUCTURE_Status", true);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key("", "", 0, "1002"));
  run.answers = {Button::kOK};
  run.Click("mnuEDelete");
  run.TakeBoxes();
  run.AddStructure("1002");
  run.AddEquipment("FLA", "F1");
  EXPECT_EQ(ToInteger(run.Sql("SELECT MAX(SA_ID_AK) FROM PA_PLATFORM_ACTV")), 2) << "the key comes back";
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("FLA", "F1", 1, "1002"));
  EXPECT_EQ(run.s.node_status, "A");
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "");
}

// ---- a database that is opened again ----

TEST_F(Trees, stay_at_their_node_when_the_database_is_opened_again) {
  run.Select(run.Key("FLA", "X1", 2));
  EXPECT_TRUE(ReopenDatabase(run.s));
  EXPECT_EQ(Selected(run), run.Key("FLA", "X1", 2));
  EXPECT_NE(run.s.activity_record.FindTag(run.Key("", "", 2)), nullptr);
  EXPECT_TRUE(NodeOf(run, run.Key("", "", 2)).expanded);
}

TEST_F(Trees, are_emptied_when_the_database_could_not_be_opened_again) {
  run.Select(run.Key("FLA", "X1", 2));
  const std::string aside = run.s.path + ".aside";
  CloseDatabase(run.s);
  fs::rename(run.s.path, aside);
  run.answers = {Button::kCancel};
  EXPECT_FALSE(ReopenDatabase(run.s));
  EXPECT_TRUE(run.s.tree.nodes.empty());
  EXPECT_EQ(run.s.mode, Mode::kNone);
  EXPECT_EQ(run.s.main->front, "none");
  EXPECT_FALSE(run.s.desk.Find("frmFLA")->visible);
  EXPECT_TRUE(run.s.main->visible);
  EXPECT_EQ(run.s.current, QCLocation());
  run.TakeBoxes();
  fs::rename(aside, run.s.path);
  run.files = {run.s.path};
  run.Click("mnuFileSelectDatabase");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_FALSE(run.s.tree.nodes.empty());
}

// ---- expansion ----

TEST_F(Trees, put_back_what_was_open) {
  NodeOf(run, "K12345 22017").expanded = true;
  SaveTreeExpansion(run.s);
  NodeOf(run, "K12345 22017").expanded = false;
  NodeOf(run, "K12345 12017").expanded = true;
  const std::uint64_t expansion = run.s.tree.expansion;
  RestoreTreeExpansion(run.s);
  EXPECT_TRUE(NodeOf(run, "K12345 22017").expanded);
  EXPECT_FALSE(NodeOf(run, "K12345 12017").expanded);
  EXPECT_GT(run.s.tree.expansion, expansion);
}

TEST_F(Trees, open_what_leads_to_the_location_and_click_it) {
  run.Select(run.Key("FLA", "X1", 2));
  const QCLocation here = run.s.current;
  SelectRoot(run.s);
  for (TreeNode& node : run.s.tree.nodes) node.expanded = false;
  run.s.current = here;
  ReselectLocation(run.s);
  EXPECT_EQ(Selected(run), run.Key("FLA", "X1", 2));
  EXPECT_TRUE(NodeOf(run, "K12345").expanded);
  EXPECT_TRUE(NodeOf(run, "K12345 22017").expanded);
  EXPECT_TRUE(NodeOf(run, run.Key("", "", 2)).expanded);
  EXPECT_FALSE(NodeOf(run, "K12345 12017").expanded);
  EXPECT_FALSE(NodeOf(run, run.Key("", "", 1)).expanded);
}

TEST_F(Trees, stay_as_they_are_for_a_location_that_is_gone) {
  const std::string selected = Selected(run);
  run.s.current = {"EQUIPMENT", "12345", 2, 2017, "1001", "1", "FLA", "gone"};
  ReselectLocation(run.s);
  EXPECT_EQ(Selected(run), selected);
}

TEST_F(Trees, without_a_node_have_no_root_to_select) {
  run.s.tree.Clear();
  SelectRoot(run.s);
  EXPECT_EQ(run.s.tree.selected, -1);
}

}  // namespace
}  // namespace merlu::test
