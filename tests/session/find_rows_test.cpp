#include "session/find_rows.h"

#include <gtest/gtest.h>

#include "base/fault.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Number of the fault that the work ends in, 0 for none.
template <typename Work>
int FaultOf(Work&& work) {
  try {
    work();
  } catch (const Fault& fault) {
    return fault.number;
  }
  return 0;
}

// Two structures of three months with a flare on the second, in activity mode at the flare's second month.
class Records : public testing::Test {
 protected:
  Records() {
    run.StartWithStructure();
    run.AddStructure("1002");
    run.AddEquipment("FLA", "F1");
    run.AddMonth();
    run.AddMonth();
    run.Select(run.Key("FLA", "F1", 2, "1002"));
    run.TakeBoxes();
  }
  using Texts = std::vector<std::string>;

  TestRun run;
  Session& s = run.s;
};

TEST_F(Records, of_the_hierarchy_are_found_and_become_the_current_ones) {
  EXPECT_TRUE(MoveToPDRecord(s, 1));
  EXPECT_EQ(s.PD_ID_AK, 1);
  EXPECT_EQ(NullToEmpty(s.At("PD_PLATFORM_DESC").Field("CMPLX_ID_NUM")), "1001");
  EXPECT_TRUE(MoveToPARecord(s, 1));
  EXPECT_EQ(s.SA_ID_AK, 1);
  EXPECT_EQ(ToInteger(s.At("PA_PLATFORM_ACTV").Field("PA_MO")), 1);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(Records, that_are_missing_are_told_by_kind_and_key_and_leave_the_current_key) {
  const std::int64_t pd = s.PD_ID_AK, sa = s.SA_ID_AK;
  EXPECT_FALSE(MoveToPDRecord(s, 97));
  EXPECT_FALSE(MoveToPARecord(s, 96));
  EXPECT_FALSE(MoveToPAActvRecordByMo(s, 2, 12, 2017));
  EXPECT_EQ(run.TakeBoxes(), (Texts{"Platform Desc ID 97 not found!", "Platform Actv ID 96 not found!",
                                    "Platform Actv ID 2 not found in MoveToPAActvRecordByMo!"}));
  EXPECT_EQ((std::vector{s.PD_ID_AK, s.SA_ID_AK}), (std::vector{pd, sa}));
}

TEST_F(Records, are_found_again_after_a_find_that_failed) {
  EXPECT_FALSE(MoveToPDRecord(s, 97));
  EXPECT_TRUE(MoveToPDRecord(s, 2));
  EXPECT_EQ(NullToEmpty(s.At("PD_PLATFORM_DESC").Field("CMPLX_ID_NUM")), "1002");
}

TEST_F(Records, are_found_from_the_last_row) {
  Cursor& pd = s.At("PD_PLATFORM_DESC");
  ASSERT_TRUE(pd.FindFirst({{"PD_ID_AK", std::int64_t{2}}}));
  EXPECT_TRUE(MoveToPDRecord(s, 1));
  EXPECT_EQ(ToInteger(pd.Field("PD_ID_AK")), 1);
}

TEST_F(Records, of_a_structure_month_are_found_by_structure_month_and_year_together) {
  EXPECT_TRUE(MoveToPAActvRecordByMo(s, 1, 3, 2017));
  EXPECT_EQ(s.SA_ID_AK, ToInteger(run.Sql("SELECT SA_ID_AK FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=1 AND PA_MO=3")));
  EXPECT_TRUE(MoveToPAActvRecordByMo(s, 1, 1, 2017));
  EXPECT_EQ(s.SA_ID_AK, 1);
  EXPECT_TRUE(MoveToPAActvRecordByMo(s, 2, 1, 2017));
  EXPECT_EQ(s.SA_ID_AK, 2);
  EXPECT_FALSE(MoveToPAActvRecordByMo(s, 2, 1, 2016));
  EXPECT_EQ(run.TakeBoxes().size(), 1u);
}

TEST_F(Records, that_are_current_are_found_without_a_move_so_that_a_change_of_them_goes_on) {
  ASSERT_TRUE(MoveToPDRecord(s, 2));
  Cursor& pd = s.At("PD_PLATFORM_DESC");
  pd.Edit();
  pd.SetField("Area", std::string("EC"));
  EXPECT_TRUE(MoveToPDRecord(s, 2));
  pd.Update();
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT Area FROM PD_PLATFORM_DESC WHERE PD_ID_AK=2")), "EC");
}

TEST_F(Records, that_are_current_are_found_while_another_cursor_is_in_a_change) {
  ASSERT_TRUE(MoveToPDRecord(s, 2));
  Cursor& ed = s.At("ED_EQUIP_DESC");
  ed.Edit();
  ed.SetField("ED_MERLU_EQUIP_ID", std::string("F9"));
  EXPECT_TRUE(MoveToPDRecord(s, 2));
  ed.Update();
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC")), "F9");
}

TEST_F(Records, that_a_statement_deleted_are_found_until_their_cursor_is_requeried) {
  ASSERT_TRUE(MoveToPDRecord(s, 2));
  s.db.Execute("DELETE FROM PD_PLATFORM_DESC WHERE PD_ID_AK=2");
  EXPECT_TRUE(MoveToPDRecord(s, 2));
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  s.At("PD_PLATFORM_DESC").Requery();
  EXPECT_FALSE(MoveToPDRecord(s, 2));
  EXPECT_EQ(run.TakeBoxes(), Texts{"Platform Desc ID 2 not found!"});
}

// ---- the rows of an equipment ----

TEST_F(Records, of_an_equipment_s_month_are_brought_into_place_together) {
  for (const char* table : {"EA_EQUIP_ACTV", "EA_FLA"})
    ASSERT_TRUE(s.At(table).FindFirst({{"EA_ID_AK", std::int64_t{3}}}));
  s.ED_ID_AK = s.PD_ID_AK = s.SA_ID_AK = 0;
  s.EA_ID_AK = 2;
  EXPECT_TRUE(FindEquipRecord(s, s.current, "ED_FLA", "EA_FLA"));
  EXPECT_EQ(ToInteger(s.At("EA_EQUIP_ACTV").Field("EA_ID_AK")), 2);
  EXPECT_EQ(ToInteger(s.At("EA_FLA").Field("EA_ID_AK")), 2);
  EXPECT_EQ(ToInteger(s.At("ED_FLA").Field("ED_ID_AK")), 1);
  EXPECT_EQ(s.ED_ID_AK, 1);
  EXPECT_EQ(s.PD_ID_AK, 2);
  EXPECT_EQ(s.SA_ID_AK, ToInteger(run.Sql("SELECT SA_ID_AK FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=2 AND PA_MO=2")));
}

TEST_F(Records, of_an_equipment_are_missing_without_its_month_or_the_type_s_row) {
  s.EA_ID_AK = 99;
  EXPECT_FALSE(FindEquipRecord(s, s.current, "ED_FLA", "EA_FLA"));
  s.EA_ID_AK = 2;
  s.db.Execute("DELETE FROM EA_FLA WHERE EA_ID_AK=2");
  s.At("EA_FLA").Requery();
  EXPECT_FALSE(FindEquipRecord(s, s.current, "ED_FLA", "EA_FLA"));
  s.EA_ID_AK = 3;
  s.db.Execute("DELETE FROM ED_FLA");
  s.At("ED_FLA").Requery();
  EXPECT_FALSE(FindEquipRecord(s, s.current, "ED_FLA", "EA_FLA"));
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(Records, of_an_equipment_s_description_need_no_month) {
  run.ChangeTo(Mode::kDesc);
  s.db.Execute("DELETE FROM EA_EQUIP_ACTV");
  s.At("EA_EQUIP_ACTV").Requery();
  s.PD_ID_AK = 0;
  EXPECT_TRUE(FindEquipRecord(s, s.current, "ED_FLA", "EA_FLA"));
  EXPECT_EQ(s.PD_ID_AK, 2);
}

TEST_F(Records, of_equipment_are_told_to_be_empty_when_there_are_none) {
  run.ChangeTo(Mode::kDesc);
  s.db.Execute("DELETE FROM ED_EQUIP_DESC");
  s.At("ED_EQUIP_DESC").Requery();
  EXPECT_FALSE(FindEquipRecord(s, s.current, "ED_FLA", "EA_FLA"));
  EXPECT_EQ(run.TakeBoxes(), Texts{"EquipDesc is empty"});
}

TEST_F(Records, of_fugitives_are_found_in_activity_mode_without_a_table_of_months) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key("", "", 0, "1002"));
  run.AddEquipment("FUG", "G1");
  run.SelectRoot();
  run.AddMonth();
  s.EA_ID_AK = ToInteger(run.Sql("SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='FUG'"));
  ASSERT_NE(s.EA_ID_AK, 0);
  EXPECT_TRUE(FindEquipRecord(s, s.current, "ED_FUG", ""));
  EXPECT_EQ(s.ED_ID_AK, 2);
}

TEST_F(Records, of_a_structure_are_found_by_its_month_in_activity_mode_and_by_its_key_in_description_mode) {
  s.SA_ID_AK = 1;
  s.PD_ID_AK = 2;
  EXPECT_TRUE(FindStructureRecord(s));
  EXPECT_EQ(s.PD_ID_AK, 1);
  s.SA_ID_AK = 99;
  EXPECT_FALSE(FindStructureRecord(s));
  s.mode = Mode::kDesc;
  s.PD_ID_AK = 2;
  EXPECT_TRUE(FindStructureRecord(s));
  EXPECT_EQ(ToInteger(s.At("PD_PLATFORM_DESC").Field("PD_ID_AK")), 2);
  s.PD_ID_AK = 99;
  EXPECT_FALSE(FindStructureRecord(s));
}

TEST_F(Records, of_the_operator_are_found_by_the_trimmed_number_of_the_location) {
  s.current.UserID = " 12345 ";
  EXPECT_TRUE(FindOperatorRecord(s));
  s.current.UserID = "99999";
  EXPECT_FALSE(FindOperatorRecord(s));
}

// ---- keys of new rows ----

TEST_F(Records, get_the_highest_key_in_use_plus_one) {
  s.db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (41)");
  s.db.Execute("INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK) VALUES (51,41)");
  s.db.Execute("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK) VALUES (61,41)");
  s.db.Execute("INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK) VALUES (71,61)");
  EXPECT_EQ(NextPDId(s), 42);
  EXPECT_EQ(NextSAId(s), 52);
  EXPECT_EQ(NextEDId(s), 62);
  EXPECT_EQ(MaxEAId(s), 71);
  EXPECT_EQ(NextEAId(s), 72);
}

TEST(FirstRecords, get_key_one_and_the_highest_month_of_none_is_zero) {
  TestRun run;
  run.Start();
  EXPECT_EQ(NextPDId(run.s), 1);
  EXPECT_EQ(NextSAId(run.s), 1);
  EXPECT_EQ(NextEDId(run.s), 1);
  EXPECT_EQ(MaxEAId(run.s), 0);
  EXPECT_EQ(NextEAId(run.s), 1);
}

TEST(FirstRecords, cannot_be_asked_for_without_a_database) {
  TestRun run;
  EXPECT_EQ(FaultOf([&] { NextPDId(run.s); }), 91);
  EXPECT_EQ(FaultOf([&] { MaxEAId(run.s); }), 91);
  EXPECT_FALSE(MoveToPDRecord(run.s, 1));
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"No inventory is open. 91"});
}

TEST(FirstRecords, whose_keys_cannot_be_read_are_not_written) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("ALTER TABLE PA_PLATFORM_ACTV RENAME TO gone");
  EXPECT_EQ(FaultOf([&] { NextSAId(run.s); }), 3078);
  run.AddStructure("1002");
  const auto boxes = run.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_TRUE(boxes[0].ends_with(" 3078")) << boxes[0];
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
}

TEST(Keys, that_would_run_out_in_the_middle_of_a_month_add_nothing_of_it) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Select(run.Key());
  run.AddEquipment("VEN", "V1");
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_ID_AK=2147483646 WHERE EA_EQUIP_TYP='VEN'");
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  const std::int64_t months = run.Count("PA_PLATFORM_ACTV");
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"There is no free key left in the database. 9"});
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), months);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV"), 2);
  EXPECT_EQ(ToInteger(run.Sql("SELECT SYS_MAX_MO FROM SYS_CONFIG")), 1);
}

TEST(Keys, that_would_run_out_add_no_equipment_without_all_of_its_months) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.s.db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=2");
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_ID_AK=2147483646");
  run.Select(run.Key());
  run.AddEquipment("VEN", "V1");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"There is no free key left in the database. 9"});
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), 1);
  EXPECT_EQ(run.Count("ED_VEN"), 0);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV"), 1);
}

// Every act that adds rows, with each of the four keys at its end or one before it.
TEST(Keys, at_their_end_are_told_by_every_act_and_nothing_is_added) {
  const std::vector<std::pair<std::string, std::string>> keys = {{"PD_ID_AK", "PD_PLATFORM_DESC"},
                                                                 {"SA_ID_AK", "PA_PLATFORM_ACTV"},
                                                                 {"ED_ID_AK", "ED_EQUIP_DESC"},
                                                                 {"EA_ID_AK", "EA_EQUIP_ACTV"}};
  struct Adding {
    const char* name;
    std::string tables;  // that it adds two rows to, of those above
    std::function<void(TestRun& run)> act;
  };
  const std::vector<Adding> acts = {
      {"structure", "PA_PLATFORM_ACTV", [](TestRun& run) { run.AddStructure("1003"); }},
      {"equipment", "EA_EQUIP_ACTV", [](TestRun& run) { run.Select(run.Key()), run.AddEquipment("FLA", "F9"); }},
      {"month", "PA_PLATFORM_ACTV EA_EQUIP_ACTV",
       [](TestRun& run) { run.ChangeTo(Mode::kActv), run.SelectRoot(), run.Click("cmdUSER_AddSurvey"); }},
      {"import", "PD_PLATFORM_DESC PA_PLATFORM_ACTV ED_EQUIP_DESC EA_EQUIP_ACTV",
       [](TestRun& run) {
         run.dialogs.push_back([&run](Form&) {
           run.Set("txtImportFilename", run.folder.path("other.mdb"));
           run.Click("cmdLoad");
           run.Pick("lvwStructures", std::vector<int>{0, 1});
           run.Click("cmdImport");
         });
         run.Click("mnuEStructB");
       }},
  };
  TestRun first;
  first.StartWith("FLA", "F1");
  first.Select(first.Key());
  first.AddEquipment("VEN", "V1");
  first.AddStructure("1002");
  first.s.db.Close();
  for (const Adding& adding : acts)
    for (const auto& [key, table] : keys)
      for (const std::int64_t last : {2147483647, 2147483646}) {
        const bool one_is_enough = last == 2147483646 && adding.tables.find(table) == std::string::npos;
        const bool none_is_needed =
            std::string(adding.name) == "month" && !table.starts_with("PA_") && !table.starts_with("EA_");
        const bool of_equipment = table.starts_with("E"), no_equipment = std::string(adding.name) == "structure";
        const bool of_structure = table.starts_with("P"), no_structure = std::string(adding.name) == "equipment";
        if (one_is_enough || none_is_needed || (of_equipment && no_equipment) || (of_structure && no_structure))
          continue;
        SCOPED_TRACE(std::string(adding.name) + ", " + key + " at " + std::to_string(last));
        TestRun run;
        fs::copy_file(first.s.path, run.folder.path("inventory.mdb"));
        run.Start();
        run.ChangeTo(Mode::kDesc);
        run.s.db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=2");
        run.s.db.Execute("UPDATE " + table + " SET " + key + "=" + std::to_string(last) + " WHERE " + key +
                         "=(SELECT MAX(" + key + ") FROM " + table + ")");
        fs::copy_file(run.s.path, run.folder.path("other.mdb"));
        Raw(run.folder.path("other.mdb"), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X'||CMPLX_ID_NUM"});
        run.TakeBoxes();
        const auto counts = [&] {
          std::string text;
          for (const auto& [ignored, counted] : keys) text += std::to_string(run.Count(counted)) + " ";
          return text + std::to_string(ToInteger(run.Sql("SELECT SYS_MAX_MO FROM SYS_CONFIG")));
        };
        const std::string before = counts();
        adding.act(run);
        const std::vector<std::string> boxes = run.TakeBoxes();
        ASSERT_FALSE(boxes.empty());
        EXPECT_NE(boxes[0].find("There is no free key left in the database."), std::string::npos) << boxes[0];
        EXPECT_EQ(counts(), before);
      }
}

// ---- what another program has added meanwhile ----

TEST(Months, are_added_behind_the_one_that_another_program_has_added) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  Raw(run.s.path, {"UPDATE SYS_CONFIG SET SYS_MAX_MO=2",
                   "INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK,PA_MO,PA_YR,status) VALUES (90,1,2,2017,'A')",
                   "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_MO,EA_YR,EA_EQUIP_TYP) VALUES (90,1,2,2017,'FLA')",
                   "INSERT INTO EA_FLA (EA_ID_AK) VALUES (90)"});
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Survey Month added to Activity Database"});
  EXPECT_EQ(run.s.last_month, 3);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV WHERE PA_MO=2"), 1);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV WHERE PA_MO=3"), 1);
  EXPECT_GE(run.s.tree.Find(run.Key("FLA", "F1", 3)), 0);
}

TEST(Months, of_a_whole_year_by_another_program_leave_none_to_add) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  Raw(run.s.path, {"UPDATE SYS_CONFIG SET SYS_MAX_MO=12"});
  const std::int64_t rows = run.Count("PA_PLATFORM_ACTV");
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"All 12 months have already been added to this inventory."});
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), rows);
}

TEST(AddedStructures, get_the_months_that_another_program_has_added) {
  TestRun run;
  run.StartWithStructure();
  Raw(run.s.path, {"UPDATE SYS_CONFIG SET SYS_MAX_MO=4"});
  run.AddStructure("1002");
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV WHERE PD_ID_AK=2"), 4);
  run.AddEquipment("FLA", "F1");
  EXPECT_EQ(run.Count("EA_FLA"), 4);
}

}  // namespace
}  // namespace merlu::test
