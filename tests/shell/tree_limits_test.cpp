// How much the trees hold, and what is refused because they could not show it.
#include <gtest/gtest.h>

#include "session/node_keys.h"
#include "session/types.h"
#include "shell/main_program.h"
#include "shell/program_end.h"
#include "shell/trees.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// ---- how much a tree holds ----

class LargeTree : public testing::Test {
 protected:
  // A file with one structure of one month and that many flares on it.
  void Lay(int flares) {
    const std::string path = CopyTemplate(run.folder);
    const std::string numbers =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" + std::to_string(flares) + ") ";
    Raw(path,
        {"BEGIN", "INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('12345')", "INSERT INTO SYS_CONFIG VALUES (2017,1,0)",
         "INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM) VALUES "
         "(1,'12345','1001','1')",
         "INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK,PA_MO,PA_YR,status) VALUES (1,1,1,2017,'A')",
         numbers + "INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID) "
                   "SELECT i,1,'FLA',i FROM n",
         "INSERT INTO ED_FLA (ED_ID_AK) SELECT ED_ID_AK FROM ED_EQUIP_DESC",
         "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_MO,EA_YR,EA_EQUIP_TYP) SELECT "
         "ED_ID_AK,ED_ID_AK,1,2017,'FLA' FROM ED_EQUIP_DESC",
         "INSERT INTO EA_FLA (EA_ID_AK) SELECT EA_ID_AK FROM EA_EQUIP_ACTV", "COMMIT"});
    run.Start(path);
  }
  TestRun run;
};

TEST_F(LargeTree, holds_39_999_equipment_months) {
  Lay(39999);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_FALSE(run.s.ended);
  EXPECT_EQ(run.s.equipment_month_list.size(), 39999u);
  run.Select(run.Key("FLA", "39999", 1));
  EXPECT_EQ(run.s.EA_ID_AK, 39999);
}

TEST_F(LargeTree, ends_the_program_at_40_000_equipment_months) {
  Lay(40000);
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text,
            "An internal array is not large enough for your structures. Please contact Technical Support.");
  EXPECT_EQ(run.boxes[0].title, "Program shutting down");
  EXPECT_EQ(run.boxes[0].icon, Icon::kStop);
  EXPECT_TRUE(run.s.ended);
  EXPECT_TRUE(run.s.desk.showing.empty());
  EXPECT_FALSE(run.s.db.IsOpen());
  // what it has room for, and what to do
  EXPECT_NE(run.boxes.at(0).detail.find("39,999 equipment months"), std::string::npos);
  EXPECT_NE(run.boxes.at(0).detail.find("merlu export"), std::string::npos);
}

TEST_F(LargeTree, refuses_a_month_and_a_piece_that_it_could_not_show) {
  Lay(20000);
  run.Click("cmdUSER_AddSurvey");
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text, "The inventory would have 40,000 equipment months, the program has room for 39,999. 9");
  EXPECT_NE(run.boxes[0].detail, "");
  EXPECT_EQ(run.Count("EA_FLA"), 20000);
  EXPECT_EQ(run.s.last_month, 1);
  run.s.db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=2");  // as if each had two of them
  run.s.last_month = 2;
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.TakeBoxes();
  run.AddEquipment("FLA", "new");
  EXPECT_EQ(run.TakeBoxes(),
            Texts{"The inventory would have 40,002 equipment months, the program has room for 39,999. 9"});
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), 20000);
}

TEST_F(LargeTree, ends_the_program_at_the_40_000th_although_more_would_follow) {
  Lay(40002);
  EXPECT_EQ(run.boxes.size(), 1u);
  EXPECT_TRUE(run.s.ended);
}

TEST_F(LargeTree, of_descriptions_holds_more_than_40_000) {
  Lay(39000);
  run.ChangeTo(Mode::kDesc);
  WriteBatch batch(run.s.db);
  for (int id = 39001; id <= 40001; ++id) {
    run.s.db.Execute(
        "INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID) VALUES (?,1,'FLA',?)",
        {std::int64_t{id}, std::to_string(id)});
    run.s.db.Execute("INSERT INTO ED_FLA (ED_ID_AK) VALUES (?)", {std::int64_t{id}});
  }
  batch.Commit();
  RefreshDescTree(run.s);
  EXPECT_EQ(run.s.equipment_list.size(), 40001u);
  EXPECT_FALSE(run.s.ended);
  ASSERT_GE(run.s.tree.selected, 0);
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key, "K12345");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

// ---- how many structures a list holds ----

// A file of so many structures and months, opened.
void StartWithStructures(TestRun& run, int structures, int months) {
  const std::string path = CopyTemplate(run.folder);
  const auto up_to = [](const char* name, int last) {
    return std::string(name) + "(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM " + name + " WHERE i<" +
           std::to_string(last) + ")";
  };
  Raw(path, {"BEGIN", "INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('12345')",
             "INSERT INTO SYS_CONFIG VALUES (2017," + std::to_string(months) + ",0)",
             "WITH RECURSIVE " + up_to("n", structures) +
                 " INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM) "
                 "SELECT i,'12345',i,'1' FROM n",
             "WITH RECURSIVE " + up_to("m", months) +
                 " INSERT INTO PA_PLATFORM_ACTV (PD_ID_AK,PA_MO,PA_YR,status) "
                 "SELECT PD_ID_AK,m.i,2017,'A' FROM PD_PLATFORM_DESC, m",
             "COMMIT"});
  run.Start(path);
}

TEST(ListOfStructures, holds_1_001_and_tells_the_next_one) {
  TestRun run;
  StartWithStructures(run, 1001, 1);
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.s.structure_list.size(), 1001u);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  run.AddStructure("new");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Subscript out of range 9"});
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1001);
  EXPECT_EQ(run.s.tree.selected, 0);
  EXPECT_EQ(run.s.tree.Find(run.Key("", "", 0, "new")), -1);
}

TEST(ListOfStructures, of_more_than_1_001_is_told_and_ends_the_tree_of_descriptions_there) {
  TestRun run;
  StartWithStructures(run, 1002, 1);
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.TakeBoxes(), Texts{"Subscript out of range 9"});
  EXPECT_EQ(run.s.structure_list.size(), 1001u);
  EXPECT_EQ(run.s.tree.nodes.size(), 1002u);
  EXPECT_EQ(run.s.tree.selected, 0);
}

TEST(ListOfStructures, refuses_a_month_that_it_could_not_show) {
  TestRun run;
  StartWithStructures(run, 1001, 11);
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(),
            Texts{"The inventory would have 12,012 structure months, the program has room for 12,001. 9"});
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), 11011);
}

TEST(ListOfStructures, of_more_than_12_001_months_is_an_error_of_the_tree_of_activity) {
  TestRun run;
  StartWithStructures(run, 1001, 12);
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].title, "Error");
  EXPECT_EQ(run.boxes[0].text, "Subscript out of range");
  EXPECT_NE(run.boxes[0].detail.find("12,001 structure months"), std::string::npos);
  EXPECT_EQ(run.s.structure_month_list.size(), 12001u);
}

}  // namespace
}  // namespace merlu::test
