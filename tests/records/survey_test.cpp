#include "records/survey_record.h"

#include <gtest/gtest.h>

#include "session/find_rows.h"
#include "session/types.h"
#include "shell/dialogs.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

std::vector<std::int64_t> Keys(TestRun& run, const std::string& sql) {
  std::vector<std::int64_t> keys;
  run.s.db.ForEach(sql, {}, [&](const RowView& row) { keys.push_back(row.Integer(0)); });
  return keys;
}

TEST(NextMonth, adds_an_active_row_for_every_structure_with_nothing_else_in_it) {
  TestRun run;
  run.StartWithStructure();
  run.AddStructure("1002");
  run.s.db.Execute(
      "UPDATE PA_PLATFORM_ACTV SET "
      "status='I',PROD_OIL=5,THRU_NG=6,TOT_FUEL_USE_NG=7,COMNT_TXT='x',PA_QC_DT='2017-01-01'");
  run.AddMonth();
  const Rows rows = run.s.db.Query(
      "SELECT "
      "PD_ID_AK,PA_YR,status,PROD_OIL,PROD_NG,THRU_OIL,THRU_NG,TOT_FUEL_USE_NG,TOT_FUEL_USE_GAS,TOT_FUEL_USE_"
      "DIE,COMNT_TXT,PA_QC_DT "
      "FROM PA_PLATFORM_ACTV WHERE PA_MO=2 ORDER BY SA_ID_AK");
  ASSERT_EQ(rows.rows.size(), 2u);
  for (std::int64_t id : {1, 2}) {
    Values expected(12);
    expected[0] = id;
    expected[1] = std::int64_t{2017};
    expected[2] = std::string("A");
    EXPECT_EQ(rows.rows[static_cast<std::size_t>(id) - 1], expected);
  }
}

TEST(NextMonth, gives_the_first_structure_month_of_a_file_key_two) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("DELETE FROM PA_PLATFORM_ACTV");
  EXPECT_EQ(NextSAId(run.s), 1);
  run.s.SA_ID_AK = run.s.PD_ID_AK = 0;
  AddMonthRows(run.s);
  EXPECT_EQ(Keys(run, "SELECT SA_ID_AK FROM PA_PLATFORM_ACTV"), std::vector<std::int64_t>{2});
}

TEST(NextMonth, leaves_one_key_of_structure_months_unused_at_every_run_and_none_of_equipment_months) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.AddStructure("1002");
  run.AddMonth();
  run.AddMonth();
  EXPECT_EQ(Keys(run, "SELECT SA_ID_AK FROM PA_PLATFORM_ACTV ORDER BY 1"),
            (std::vector<std::int64_t>{1, 2, 4, 5, 7, 8}));
  EXPECT_EQ(Keys(run, "SELECT PA_MO FROM PA_PLATFORM_ACTV ORDER BY SA_ID_AK"),
            (std::vector<std::int64_t>{1, 1, 2, 2, 3, 3}));
  EXPECT_EQ(Keys(run, "SELECT EA_ID_AK FROM EA_FLA ORDER BY 1"), (std::vector<std::int64_t>{1, 2, 3}));
}

TEST(NextMonth, adds_a_pair_of_rows_for_every_equipment_of_every_type_and_for_fugitives_the_first_alone) {
  TestRun run;
  run.StartWithStructure();
  for (const EquipmentType& type : EquipmentTypes()) {
    run.Select(run.Key());
    run.AddEquipment(std::string(type.code), "X1");
  }
  run.SelectRoot();
  run.AddMonth();
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_MO=2 AND EA_YR=2017"), 16);
  EXPECT_EQ(
      run.Count("EA_EQUIP_ACTV WHERE EA_MO=2 AND EA_STATUS IS NULL AND EA_QC_DT IS NULL AND EA_COMNT_TXT IS NULL"), 16);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK AND "
                      "d.ED_EQUIP_TYP=a.EA_EQUIP_TYP WHERE EA_MO=2"),
            16);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='FUG'"), 1);
  for (const EquipmentType& type : EquipmentTypes()) {
    if (!type.has_activity) continue;
    const std::string code(type.code);
    EXPECT_EQ(run.Count("EA_" + code + " t JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK WHERE a.EA_EQUIP_TYP='" +
                        code + "'"),
              2)
        << code;
    EXPECT_EQ(run.Count("EA_" + code), 2) << code;
  }
}

TEST(NextMonth, adds_no_equipment_row_while_the_file_s_only_equipment_is_fugitives) {
  TestRun run;
  run.StartWith("FUG", "G1");
  run.SelectRoot();
  run.AddMonth();
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV"), 0);
  EXPECT_EQ(run.s.last_month, 2);
}

TEST(NextMonth, gives_equipment_a_row_that_has_none_for_the_months_before) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Select(run.Key());
  run.AddEquipment("VEN", "V1");
  run.s.db.Execute("DELETE FROM EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='VEN'");
  run.SelectRoot();
  run.AddMonth();
  EXPECT_EQ(Keys(run, "SELECT EA_MO FROM EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='VEN'"), std::vector<std::int64_t>{2});
}

TEST(NextMonth, numbers_equipment_in_the_order_of_its_own_keys) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Select(run.Key());
  run.AddEquipment("FLA", "F1");
  run.SelectRoot();
  run.AddMonth();
  EXPECT_EQ(Keys(run, "SELECT ED_ID_AK FROM EA_EQUIP_ACTV ORDER BY EA_ID_AK"), (std::vector<std::int64_t>{1, 2, 1, 2}));
  EXPECT_EQ(Keys(run, "SELECT EA_ID_AK FROM EA_FLA ORDER BY 1"), (std::vector<std::int64_t>{2, 4}));
}

TEST(NextMonth, raises_the_highest_month_in_the_file_and_in_the_run) {
  TestRun run;
  run.StartWithStructure();
  for (int month = 2; month <= 12; ++month) {
    run.AddMonth();
    EXPECT_EQ(run.s.last_month, month);
    EXPECT_EQ(ToInteger(run.Sql("SELECT SYS_MAX_MO FROM SYS_CONFIG")), month);
  }
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), 12);
}

TEST(NextMonth, of_a_full_year_is_refused_and_adds_nothing) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.s.db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=12");
  run.s.last_month = 12;
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), Texts{"All 12 months have already been added to this inventory."});
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), 1);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV"), 1);
  EXPECT_EQ(run.s.last_month, 12);
}

TEST(NextMonth, needs_an_operator) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  run.s.db.Execute("DELETE FROM CO_COMPANY");
  AddNextMonth(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{"Please Add Platform/Equipment Descriptions first."});
  EXPECT_EQ(run.s.last_month, 1);
}

TEST(NextMonth, says_that_it_was_added_and_goes_to_the_root_of_a_new_tree) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Survey Month added to Activity Database"});
  EXPECT_EQ(run.s.current.Level, "USER");
  EXPECT_EQ(run.TreeKeys(), (Texts{"K12345", "K12345 12017", run.Key("", "", 1), run.Key("FLA", "F1", 1),
                                   "K12345 22017", run.Key("", "", 2), run.Key("FLA", "F1", 2)}));
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.Find("K12345 22017"))].text, "Monthly Survey 2017/02");
}

TEST(NextMonth, is_added_from_the_menu_too) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  run.Click("mnuENewSurvey");
  EXPECT_EQ(run.s.last_month, 2);
}

TEST(NextMonth, leaves_the_cursors_on_the_current_structure_and_on_the_last_month_added) {
  TestRun run;
  run.StartWithStructure();
  run.AddStructure("1002");
  run.s.PD_ID_AK = 1;
  const auto added = AddMonthRows(run.s);
  ASSERT_EQ(added, 5);
  MoveToNewMonth(run.s, *added);
  EXPECT_EQ(run.s.PD_ID_AK, 1);
  EXPECT_EQ(run.s.SA_ID_AK, 5);
  EXPECT_EQ(ToInteger(run.s.At("PD_PLATFORM_DESC").Field("PD_ID_AK")), 1);
  EXPECT_EQ(ToInteger(run.s.At("PA_PLATFORM_ACTV").Field("SA_ID_AK")), 5);
}

TEST(NextMonth, that_fails_half_way_tells_it_and_leaves_nothing_of_it) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE INSERT ON EA_EQUIP_ACTV BEGIN SELECT RAISE(ABORT,'no'); END");
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), Texts{"no 3146"});
  EXPECT_EQ(ToInteger(RawValue(run.s.path, "SELECT COUNT(*) FROM PA_PLATFORM_ACTV")), 1);
  EXPECT_EQ(ToInteger(RawValue(run.s.path, "SELECT SYS_MAX_MO FROM SYS_CONFIG")), 1);
  EXPECT_EQ(run.s.last_month, 1);
  run.s.db.Execute("DROP TRIGGER stop");
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Survey Month added to Activity Database"});
  EXPECT_EQ(ToInteger(RawValue(run.s.path, "SELECT COUNT(*) FROM PA_PLATFORM_ACTV")), 2);
}

TEST(NextMonth, follows_the_months_of_a_structure_that_came_later) {
  TestRun run;
  run.StartWithStructure();
  run.AddMonth();
  run.ChangeTo(Mode::kDesc);
  run.AddStructure("1002");
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV WHERE PD_ID_AK=2"), 2);
  run.SelectRoot();
  run.AddMonth();
  EXPECT_EQ(Keys(run, "SELECT PA_MO FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=2 ORDER BY SA_ID_AK"),
            (std::vector<std::int64_t>{1, 2, 3}));
}

// ---- the sheet ----

class SurveySheet : public testing::Test {
 protected:
  SurveySheet() {
    run.StartWithStructure();
    run.ChangeTo(Mode::kActv);
    run.Select("K12345 12017");
  }
  TestRun run;
};

TEST_F(SurveySheet, is_grey_in_view) {
  EXPECT_EQ(run.At("fraSurvey").caption, "Survey");
  EXPECT_FALSE(run.At("fraSurvey").emphasis);
  for (const char* list : {"lvwSURVEY_QCResults", "lvwSURVEY_Relationships"}) {
    EXPECT_FALSE(run.At(list).enabled) << list;
    EXPECT_EQ(run.At(list).back, Back::kFace) << list;
  }
  EXPECT_FALSE(run.At("cmdSURVEY_EditQCComment").enabled);
}

TEST_F(SurveySheet, opens_its_lists_in_an_edit) {
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraSurvey").caption, "Survey - EDIT DATA");
  EXPECT_TRUE(run.At("fraSurvey").emphasis);
  for (const char* list : {"lvwSURVEY_QCResults", "lvwSURVEY_Relationships"}) {
    EXPECT_TRUE(run.At(list).enabled) << list;
    EXPECT_EQ(run.At(list).back, Back::kWindow) << list;
  }
  EXPECT_TRUE(run.At("cmdSURVEY_EditQCComment").enabled);
  EXPECT_TRUE(run.At("cmdEditRelationship").enabled);
}

TEST_F(SurveySheet, offers_no_relationship_while_there_are_no_structures) {
  run.At("lvwSURVEY_Relationships").rows = {{"No structures yet"}};
  run.Click("cmdEdit");
  EXPECT_FALSE(run.At("cmdEditRelationship").enabled);
}

TEST_F(SurveySheet, counts_the_findings_of_each_structure) {
  run.s.db.Execute(
      "INSERT INTO QC VALUES ('12345',1,2017,'STRUCTURE','1001','1','NA','NA','a','d','','ACTV'),"
      "('12345',3,2017,'EQUIPMENT','1001','1','FLA','F1','a','d','','ACTV')");
  run.SelectRoot();
  run.Select("K12345 12017");
  EXPECT_EQ(run.At("lvwSURVEY_QCResults").rows,
            (std::vector<Texts>{{"Structure: GI, 43, A", "2 errors found", "n/a"}}));
}

TEST_F(SurveySheet, is_only_reloaded_by_a_save) {
  run.Click("cmdEdit");
  const std::int64_t changes = run.s.db.ChangeCount();
  run.At("lvwSURVEY_QCResults").rows = {{"stale", "", ""}};
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.s.db.ChangeCount(), changes);
  EXPECT_TRUE(run.At("lvwSURVEY_QCResults").rows.empty());
  EXPECT_TRUE(run.s.editing);
}

}  // namespace
}  // namespace merlu::test
