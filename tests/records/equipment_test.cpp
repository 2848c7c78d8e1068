#include "records/equipment_record.h"

#include <gtest/gtest.h>

#include "records/structure_record.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// ---- new equipment ----

TEST(NewEquipment, of_every_type_gets_its_rows_its_node_and_its_sheet) {
  TestRun run;
  run.StartWithStructure();
  std::int64_t id = 0;
  for (const EquipmentType& type : EquipmentTypes()) {
    const std::string code(type.code);
    SCOPED_TRACE(code);
    run.Select(run.Key());
    run.AddEquipment(code, "X1");
    EXPECT_EQ(run.s.ED_ID_AK, ++id);
    const Rows row = run.s.db.Query(
        "SELECT PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID,ED_QC_DT FROM ED_EQUIP_DESC WHERE ED_ID_AK=?", {id});
    ASSERT_EQ(row.rows.size(), 1u);
    EXPECT_EQ(row.rows[0], (Values{std::int64_t{1}, code, std::string("X1"), Null{}}));
    EXPECT_EQ(ToInteger(run.Sql("SELECT ED_ID_AK FROM ED_" + code)), id);
    EXPECT_EQ(run.s.current.Level, "EQUIPMENT");
    EXPECT_EQ(run.s.current.EquipType, code);
    EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key, run.Key(code, "X1"));
    EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].text, TreeTypeName(code) + ": X1");
    EXPECT_TRUE(run.s.desk.Find(FindSheet(code)->form())->visible);
    EXPECT_EQ(run.TakeBoxes(), Texts{});
  }
}

TEST(NewEquipment, gets_a_pair_of_activity_rows_for_each_of_seven_months) {
  TestRun run;
  run.StartWithStructure();
  for (int month = 2; month <= 7; ++month) run.AddMonth();
  run.ChangeTo(Mode::kDesc);
  std::int64_t rows = 0;
  for (const EquipmentType& type : EquipmentTypes()) {
    const std::string code(type.code);
    SCOPED_TRACE(code);
    run.Select(run.Key());
    run.AddEquipment(code, "X1");
    if (!type.has_activity) continue;
    rows += 7;
    EXPECT_EQ(run.Count("EA_EQUIP_ACTV"), rows);
    EXPECT_EQ(run.Count("EA_" + code), 7);
    EXPECT_EQ(
        run.Count("EA_EQUIP_ACTV a JOIN EA_" + code + " t ON t.EA_ID_AK=a.EA_ID_AK JOIN ED_" + code +
                  " d ON d.ED_ID_AK=a.ED_ID_AK WHERE EA_YR=2017 AND EA_EQUIP_TYP='" + code + "' AND EA_STATUS IS NULL"),
        7);
    EXPECT_EQ(ToInteger(run.Sql("SELECT MAX(EA_MO)*100+MIN(EA_MO)*10+COUNT(DISTINCT EA_MO) FROM "
                                "EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='" +
                                code + "'")),
              717);
  }
}

TEST(NewEquipment, returns_its_keys_and_leaves_those_of_the_session) {
  TestRun run;
  run.StartWithStructure();
  run.AddMonth();
  run.AddMonth();
  run.s.PD_ID_AK = 71, run.s.SA_ID_AK = 72, run.s.ED_ID_AK = 73, run.s.EA_ID_AK = 74;
  const RecordKeys second = NewEquipRows(run.s, 1, 2, *FindType("FLA"), "F1");
  EXPECT_EQ(second.PD_ID_AK, 1);
  EXPECT_EQ(second.ED_ID_AK, 1);
  EXPECT_EQ(second.EA_ID_AK, 2);
  EXPECT_EQ(NewEquipRows(run.s, 1, 0, *FindType("FLA"), "F2").EA_ID_AK, 6) << "the last month's";
  EXPECT_EQ(NewEquipRows(run.s, 1, 0, *FindType("FUG"), "G1").EA_ID_AK, 0) << "no activity";
  EXPECT_EQ(run.s.PD_ID_AK, 71);
  EXPECT_EQ(run.s.SA_ID_AK, 72);
  EXPECT_EQ(run.s.ED_ID_AK, 73);
  EXPECT_EQ(run.s.EA_ID_AK, 74);
}

TEST(NewStructure, returns_its_keys_and_leaves_those_of_the_session) {
  TestRun run;
  run.StartWithStructure();
  run.AddMonth();
  run.s.PD_ID_AK = 71, run.s.SA_ID_AK = 72;
  const RecordKeys keys = NewStructureRows(run.s, "12345", {"1002", "1", "GI", "44", "B"});
  EXPECT_EQ(keys.PD_ID_AK, 2);
  EXPECT_EQ(keys.SA_ID_AK, ToInteger(run.Sql("SELECT SA_ID_AK FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=2 AND PA_MO=2")));
  EXPECT_EQ(ToInteger(run.s.At("PD_PLATFORM_DESC").Field("PD_ID_AK")), 2);
  EXPECT_EQ(run.s.PD_ID_AK, 71);
  EXPECT_EQ(run.s.SA_ID_AK, 72);
}

TEST(NewEquipment, of_fugitives_has_no_month_and_no_node_of_activity) {
  TestRun run;
  run.StartWith("FUG", "G1");
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV"), 0);
  run.SelectRoot();
  run.ChangeTo(Mode::kActv);
  for (const std::string& key : run.TreeKeys()) EXPECT_LE(key.size(), 21u) << key;
}

TEST(NewEquipment, may_share_its_id_with_another_type_and_with_another_structure) {
  TestRun run;
  run.StartWith("FLA", "X1");
  run.Select(run.Key());
  run.AddEquipment("VEN", "X1");
  run.AddStructure("1002");
  run.AddEquipment("FLA", "X1");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.Count("ED_EQUIP_DESC WHERE ED_MERLU_EQUIP_ID='X1'"), 3);
}

TEST(NewEquipment, of_activity_mode_stands_on_the_month_of_its_node) {
  TestRun run;
  run.StartWithStructure();
  run.AddMonth();
  run.AddMonth();
  run.Select(run.Key("", "", 2));
  run.AddEquipment("FLA", "F1");
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key, run.Key("FLA", "F1", 2));
  run.Keep({{"txtFLA_HrsOperated", "5"}});
  EXPECT_EQ(
      ToInteger(run.Sql("SELECT EA_MO FROM EA_EQUIP_ACTV a JOIN EA_FLA f ON f.EA_ID_AK=a.EA_ID_AK WHERE OP_HR=5")), 2);
  EXPECT_EQ(run.Count("EA_FLA WHERE OP_HR IS NULL"), 2);
}

TEST(NewEquipment, is_added_to_the_current_structure_from_a_node_of_its_equipment) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.AddStructure("1002");
  run.ChangeTo(Mode::kActv);
  run.ChangeTo(Mode::kDesc);  // a first run shows the menu's command only then
  run.Select(run.Key("FLA", "F1"));
  run.dialogs.push_back([&](Form&) {
    run.Set("txtEquipID", "F2");
    run.Set("cmbEquipType", "Combustion Flare");
    run.Click("cmdOK");
  });
  run.Click("mnuENewEquipment");
  EXPECT_EQ(ToInteger(run.Sql("SELECT PD_ID_AK FROM ED_EQUIP_DESC WHERE ED_MERLU_EQUIP_ID='F2'")), 1);
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key, run.Key("FLA", "F2"));
}

TEST(NewEquipment, takes_a_key_again_that_a_deletion_has_freed_with_a_fresh_record) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Keep({{"txtFLA_ConcH2S", "7"}});
  run.answers = {Button::kOK};
  run.Click("mnuEDelete");
  run.Select(run.Key());
  run.AddEquipment("FLA", "F2");
  EXPECT_EQ(run.s.ED_ID_AK, 1);
  EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "");
  run.Keep({{"txtFLA_ConcH2S", "8"}});
  EXPECT_EQ(ToInteger(run.Sql("SELECT CONC_H2S FROM ED_FLA")), 8);
  EXPECT_EQ(run.TakeBoxes(), Texts{"Are you sure you wish to delete this equipment data?"});
}

// ---- deletion ----

// Two structures of two months with equipment of several types, and findings on all of it.
class Deletion : public testing::Test {
 protected:
  Deletion() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FLA", "F2");
    run.Select(run.Key());
    run.AddEquipment("VEN", "F1");
    run.Select(run.Key());
    run.AddEquipment("FUG", "G1");
    run.AddStructure("1002");
    run.AddEquipment("FLA", "F1");
    run.SelectRoot();
    run.AddMonth();
    run.ChangeTo(Mode::kDesc);
    for (const char* structure : {"1001", "1002"}) {
      AddFinding(1, structure, "STRUCTURE", "NA", "NA", "ACTV");
      AddFinding(0, structure, "STRUCTURE", "NA", "NA", "DESC");
      for (int month : {0, 1, 2}) AddFinding(month, structure, "EQUIPMENT", "FLA", "F1", month == 0 ? "DESC" : "ACTV");
    }
    for (int month : {0, 1}) AddFinding(month, "1001", "EQUIPMENT", "FLA", "F2", month == 0 ? "DESC" : "ACTV");
    AddFinding(0, "1001", "EQUIPMENT", "VEN", "F1", "DESC");
    AddFinding(0, "1001", "EQUIPMENT", "FUG", "G1", "DESC");
  }
  void AddFinding(int month, const std::string& complex, const char* level, const char* type, const char* id,
                  const char* mode) {
    run.s.db.Execute(
        "INSERT INTO QC "
        "(UserID,Month,Year,Level,CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode) "
        "VALUES ('12345',?,?,?,?,'1',?,?,'field','text','explained',?)",
        {std::int64_t{month}, std::int64_t{month == 0 ? 0 : 2017}, std::string(level), complex, std::string(type),
         std::string(id), std::string(mode)});
  }
  void Delete(const std::string& key, Button answer = Button::kOK) {
    run.Select(key);
    run.TakeBoxes();
    run.answers = {answer};
    run.Click("mnuEDelete");
  }
  // Every row of every table.
  std::vector<std::vector<Values>> Everything() {
    std::vector<std::vector<Values>> all;
    run.s.db.ForEach("SELECT name FROM sqlite_master WHERE type='table' ORDER BY name", {}, [&](const RowView& row) {
      all.push_back(run.s.db.Query("SELECT * FROM [" + std::string(row.Text(0)) + "]").rows);
    });
    return all;
  }
  TestRun run;
};

TEST_F(Deletion, asks_one_question_with_ok_and_cancel) {
  Delete(run.Key("FLA", "F1"), Button::kCancel);
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text, "Are you sure you wish to delete this equipment data?");
  EXPECT_EQ(run.boxes[0].buttons, (std::vector<Button>{Button::kOK, Button::kCancel}));
  Delete(run.Key(), Button::kCancel);
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text, "Are you sure you wish to delete this structure and all of its equipment data?");
}

TEST_F(Deletion, that_is_cancelled_keeps_everything) {
  const auto before = Everything();
  const Texts tree = run.TreeKeys();
  Delete(run.Key("FLA", "F1"), Button::kCancel);
  Delete(run.Key(), Button::kCancel);
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(run.TreeKeys(), tree);
  EXPECT_EQ(run.s.current.Level, "STRUCTURE");
}

TEST_F(Deletion, of_equipment_takes_its_rows_of_all_months_and_no_others) {
  Delete(run.Key("FLA", "F1"));
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), 4);
  EXPECT_EQ(run.Count("ED_EQUIP_DESC WHERE PD_ID_AK=1 AND ED_EQUIP_TYP='FLA' AND ED_MERLU_EQUIP_ID='F1'"), 0);
  EXPECT_EQ(run.Count("ED_FLA"), 2);
  EXPECT_EQ(run.Count("EA_FLA"), 4);
  EXPECT_EQ(run.Count("EA_VEN"), 2);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV"), 7);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), 4);
  EXPECT_EQ(run.TakeBoxes().size(), 1u);
}

TEST_F(Deletion, of_equipment_takes_its_findings_of_all_months_and_both_modes) {
  Delete(run.Key("FLA", "F1"));
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1001' AND EquipType='FLA' AND EquipID='F1'"), 0);
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1001' AND EquipType='VEN' AND EquipID='F1'"), 1);
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1001' AND Level='STRUCTURE'"), 2);
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1002'"), 5);
}

TEST_F(Deletion, of_equipment_takes_the_descriptions_findings_of_its_whole_type_on_the_structure) {
  Delete(run.Key("FLA", "F1"));
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1001' AND EquipID='F2' AND EditMode='DESC'"), 0);
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1001' AND EquipID='F2' AND EditMode='ACTV'"), 1);
}

TEST_F(Deletion, of_a_structure_takes_everything_below_it_and_nothing_of_another) {
  Delete(run.Key());
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), 2);
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), 1);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV"), 2);
  EXPECT_EQ(run.Count("ED_FLA"), 1);
  EXPECT_EQ(run.Count("EA_FLA"), 2);
  for (const char* table : {"ED_VEN", "EA_VEN", "ED_FUG"}) EXPECT_EQ(run.Count(table), 0) << table;
}

TEST_F(Deletion, of_a_structure_takes_its_findings_and_those_of_its_equipment_in_all_months_and_both_modes) {
  Delete(run.Key());
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1001'"), 0);
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1002'"), 5);
}

TEST_F(Deletion, rebuilds_the_tree_of_descriptions_and_goes_to_its_root) {
  Delete(run.Key());
  EXPECT_EQ(run.TreeKeys(), (Texts{"K12345", run.Key("", "", 0, "1002"), run.Key("FLA", "F1", 0, "1002")}));
  EXPECT_EQ(run.s.current.Level, "USER");
  EXPECT_EQ(run.s.main->front, "fraUserInfo");
}

TEST_F(Deletion, leaves_a_run_in_which_the_rest_can_be_worked_on) {
  Delete(run.Key("FLA", "F1"));
  Delete(run.Key());
  run.TakeBoxes();
  run.Select(run.Key("FLA", "F1", 0, "1002"));
  run.Keep({{"txtFLA_ConcH2S", "9"}});
  EXPECT_EQ(ToInteger(run.Sql("SELECT CONC_H2S FROM ED_FLA")), 9);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(Deletion, that_fails_has_withdrawn_the_findings_already) {
  run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE DELETE ON ED_EQUIP_DESC BEGIN SELECT RAISE(ABORT,'no'); END");
  Delete(run.Key("FLA", "F1"));
  EXPECT_EQ(run.TakeBoxes(), (Texts{"Are you sure you wish to delete this equipment data?", "no 3146"}));
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), 5);
  EXPECT_EQ(run.Count("QC WHERE CmplxID='1001' AND EquipType='FLA' AND EquipID='F1'"), 0);
  EXPECT_GE(run.s.tree.Find(run.Key("FLA", "F1")), 0);
}

TEST_F(Deletion, is_offered_for_structures_and_equipment_in_description_mode_only) {
  run.SelectRoot();
  EXPECT_EQ(run.WhyNotClick("mnuEDelete"), "is disabled");
  run.Select(run.Key());
  EXPECT_EQ(run.WhyNotClick("mnuEDelete"), "");
  run.Select(run.Key("VEN", "F1"));
  EXPECT_EQ(run.WhyNotClick("mnuEDelete"), "");
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(run.WhyNotClick("mnuEDelete"), "is hidden");
}

}  // namespace
}  // namespace merlu::test
