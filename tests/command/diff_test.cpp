#include "command/diff.h"

#include <gtest/gtest.h>

#include <sstream>

#include "command/commands.h"
#include "command/inventory_file.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Two files with one structure, a flare and a vent, and a month.
class Differences : public testing::Test {
 protected:
  Differences() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.AddStructure("1002", "1", "B");
    a = run.s.path;
    CloseAll();
    b = run.folder.path("b.mdb");
    fs::copy_file(a, b);
  }
  void CloseAll() {
    run.s.cursors.Close();
    run.s.db.Close();
  }
  // "place|table|column|a|b" of each difference.
  std::vector<std::string> Find() {
    Database first, second;
    OpenUntouched(first, a);
    OpenUntouched(second, b);
    std::vector<std::string> lines;
    for (const Difference& one : CompareInventories(first, second))
      lines.push_back(one.place + "|" + one.table + "|" + one.column + "|" + NullToEmpty(one.a) + "|" +
                      NullToEmpty(one.b));
    return lines;
  }
  using Lines = std::vector<std::string>;

  TestRun run;
  std::string a, b;
};

TEST_F(Differences, are_none_between_a_file_and_its_copy) {
  EXPECT_EQ(Find(), Lines{});
}

TEST_F(Differences, go_by_places_and_not_by_keys) {
  Raw(b,
      {"PRAGMA foreign_keys=OFF", "UPDATE PD_PLATFORM_DESC SET PD_ID_AK=PD_ID_AK+100",
       "UPDATE PA_PLATFORM_ACTV SET PD_ID_AK=PD_ID_AK+100,SA_ID_AK=SA_ID_AK+7",
       "UPDATE ED_EQUIP_DESC SET PD_ID_AK=PD_ID_AK+100,ED_ID_AK=ED_ID_AK+50", "UPDATE ED_FLA SET ED_ID_AK=ED_ID_AK+50",
       "UPDATE EA_EQUIP_ACTV SET ED_ID_AK=ED_ID_AK+50,EA_ID_AK=EA_ID_AK+9", "UPDATE EA_FLA SET EA_ID_AK=EA_ID_AK+9"});
  EXPECT_EQ(Find(), Lines{});
}

TEST_F(Differences, name_place_table_column_and_both_values) {
  Raw(b, {"UPDATE EA_FLA SET OP_HR=745", "UPDATE PD_PLATFORM_DESC SET Block='44' WHERE CMPLX_ID_NUM='1001'"});
  EXPECT_EQ(Find(), (Lines{"GI, 43, A|PD_PLATFORM_DESC|Block|43|44",
                           "2017/01 · GI, 43, A · Combustion Flare: F1|EA_FLA|OP_HR||745"}));
}

TEST_F(Differences, tell_a_blank_text_from_none_but_not_two_kinds_of_a_number) {
  Raw(a, {"UPDATE EA_FLA SET OP_HR=5"});
  Raw(b, {"UPDATE EA_FLA SET OP_HR=5.0", "UPDATE EA_EQUIP_ACTV SET EA_COMNT_TXT=''"});
  EXPECT_EQ(Find(), (Lines{"2017/01 · GI, 43, A · Combustion Flare: F1|EA_EQUIP_ACTV|EA_COMNT_TXT||"}));
}

TEST_F(Differences, name_a_record_that_one_file_lacks_without_what_belongs_to_it) {
  Raw(b, {"PRAGMA foreign_keys=ON", "DELETE FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='1001'"});
  EXPECT_EQ(Find(), (Lines{"GI, 43, A|PD_PLATFORM_DESC||True|False"}));
  std::swap(a, b);
  EXPECT_EQ(Find(), (Lines{"GI, 43, A|PD_PLATFORM_DESC||False|True"}));
}

TEST_F(Differences, name_a_month_that_one_file_lacks) {
  Raw(b,
      {"DELETE FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=(SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='1001')",
       "DELETE FROM EA_EQUIP_ACTV"});
  EXPECT_EQ(Find(), (Lines{"2017/01 · GI, 43, A|PA_PLATFORM_ACTV||True|False"}));
}

TEST_F(Differences, pair_the_ids_of_both_files_without_regard_to_case_and_blanks) {
  Raw(b, {"UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID='f1 '"});
  EXPECT_EQ(Find(), (Lines{"GI, 43, A · Combustion Flare: F1|ED_EQUIP_DESC|ED_MERLU_EQUIP_ID|F1|f1 "}));
}

TEST_F(Differences, cover_findings_with_their_comments) {
  const std::string finding =
      "INSERT INTO QC VALUES('12345',1,2017,'EQUIPMENT','1001','1','FLA','F1','Hours','Too many','%','ACTV')";
  const auto with = [&](const std::string& comment) {
    std::string sql = finding;
    return sql.replace(sql.find('%'), 1, comment);
  };
  Raw(a, {with("one"), with("two")});
  Raw(b, {with("one"), with("other")});
  EXPECT_EQ(Find(), (Lines{"2017/01 · GI, 43, A · Combustion Flare: F1 · Finding: Hours|QC|Comments|two|other"}));
  Raw(b, {"DELETE FROM QC"});
  EXPECT_EQ(Find().size(), 2U);
}

TEST_F(Differences, are_written_as_text_and_as_json_with_a_status) {
  const auto play = [&](const std::vector<std::string>& words, std::string& text) {
    std::ostringstream out, err;
    Console console{out, err};
    const Status status = RunCommand(*FindCommand("diff"), words, console);
    text = out.str() + err.str();
    return status;
  };
  std::string text;
  EXPECT_EQ(play({a, b}, text), Status::kWell);
  EXPECT_EQ(text, "");
  Raw(b, {"UPDATE EA_FLA SET OP_HR=745.5"});
  EXPECT_EQ(play({a, b}, text), Status::kSomething);
  EXPECT_EQ(text, "2017/01 · GI, 43, A · Combustion Flare: F1: EA_FLA.OP_HR: (blank) -> 745.5\n");
  EXPECT_EQ(play({a, b, "--format", "json"}, text), Status::kSomething);
  EXPECT_EQ(text,
            "{\"place\":\"2017/01 · GI, 43, A · Combustion Flare: F1\",\"table\":\"EA_FLA\",\"column\":\"OP_HR\","
            "\"a\":null,\"b\":745.5}\n");
  EXPECT_EQ(play({a, run.folder.path("missing.mdb")}, text), Status::kFile);
  EXPECT_EQ(play({a}, text), Status::kWrongUsage);
  EXPECT_EQ(text, "merlu diff: it takes A B\nusage: merlu diff A B [--format text|json]\n");
}

}  // namespace
}  // namespace merlu::test
