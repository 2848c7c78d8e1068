// The list of findings as the program shows it, by the command line.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "command/check.h"
#include "command/commands.h"
#include "exchange/read_workbook.h"
#include "store/image.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class ListedFindings : public testing::Test {
 protected:
  ListedFindings() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Keep({{"txtFLA_HrsOperated", "745"}});
    run.Click("cmdQC");
    run.TakeBoxes();
  }
  CheckedFile List() { return ListInventory(run.s.path, 1); }
  static int Count(const CheckedFile& file, const std::string& field, const std::string& state) {
    int count = 0;
    for (const CheckedFinding& f : file.findings) count += f.field == field && f.state == state ? 1 : 0;
    return count;
  }
  Status Play(std::vector<std::string> options) {
    std::ostringstream out_stream, err_stream;
    Console console{out_stream, err_stream};
    options.insert(options.begin(), run.s.path);
    const Status status = RunCommand(*FindCommand("findings"), options, console);
    out = out_stream.str() + err_stream.str();
    return status;
  }

  const std::string hours = "Hours Operated, excl. upsets";
  TestRun run;
  std::string out;
};

TEST_F(ListedFindings, hold_what_the_rules_say_against_the_stored_values) {
  EXPECT_EQ(Count(List(), hours, "open"), 1);
  run.s.db.Execute("DELETE FROM QC");
  EXPECT_EQ(Count(List(), hours, "open"), 1) << "a log that was wiped wipes no finding";
}

TEST_F(ListedFindings, name_the_field_by_its_tag_with_its_blanks) {
  run.GoTo("FLA", "F1", Mode::kDesc);
  run.Select(run.Key());
  run.AddEquipment("PNE", "P1");
  const CheckedFile listed = ListInventory(run.s.path, 0), checked = CheckInventory(run.s.path, CheckScope(), 1);
  EXPECT_EQ(Count(listed, "Equipment Model ", "open"), 1);
  EXPECT_EQ(Count(checked, "Equipment Model ", "open"), 1);
}

TEST_F(ListedFindings, hold_what_only_the_log_has_until_a_run_withdraws_it) {
  run.s.db.Execute("UPDATE EA_FLA SET OP_HR=700");
  const CheckedFile file = List();
  EXPECT_EQ(Count(file, hours, "open"), 1);
  run.s.db.Execute("UPDATE QC SET Comments='as metered'");
  EXPECT_EQ(Count(List(), hours, "explained"), 1);
}

TEST_F(ListedFindings, take_the_rule_s_text_where_the_log_has_another_one_under_the_tag) {
  run.s.db.Execute("UPDATE QC SET [Desc]='an older text',Comments='on that' WHERE FieldID LIKE 'Hours%'");
  const CheckedFile file = List();
  EXPECT_EQ(Count(file, hours, "open"), 1);
  EXPECT_EQ(Count(file, hours, "explained"), 0);
}

TEST_F(ListedFindings, are_none_for_what_is_inactive_or_has_no_value_but_for_those_of_the_log) {
  run.s.db.Execute("DELETE FROM QC");
  run.s.db.Execute("UPDATE EA_FLA SET OP_HR=NULL");
  EXPECT_EQ(Count(List(), hours, "open"), 0);
  run.s.db.Execute("UPDATE EA_FLA SET OP_HR=745");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  EXPECT_EQ(Count(List(), hours, "open"), 0);
}

TEST_F(ListedFindings, are_stale_where_the_value_was_changed_after_the_comment) {
  run.answers = {};
  run.dialogs = {[this](Form&) {
    run.Set("txtComments", "as metered");
    run.Click("cmdOK");
  }};
  run.Click("cmdEdit");
  run.Pick("lvwFLA_QCResults", 0);
  run.Click("cmdFLA_EditQCComment");
  run.Click("cmdSaveExit");
  run.TakeBoxes();
  ASSERT_EQ(Count(List(), hours, "explained"), 1);
  CheckScope scope;
  EXPECT_EQ(CheckInventory(run.s.path, scope, 1).explained, 1);
  run.s.db.Execute("UPDATE EA_FLA SET OP_HR=746");
  EXPECT_EQ(Count(List(), hours, "stale"), 1);
  const CheckedFile checked = CheckInventory(run.s.path, scope, 2);
  EXPECT_EQ(Count(checked, hours, "stale"), 1);
  EXPECT_EQ(checked.stale, 1);
  EXPECT_EQ(checked.explained, 0);
  EXPECT_EQ(Play({"--state", "stale"}), Status::kSomething);
  EXPECT_NE(out.find(", 0 explained, 1 stale"), std::string::npos) << out;
  // without what is kept beside it, a comment counts as fresh
  fs::remove(run.s.path + ".history");
  EXPECT_EQ(CheckInventory(run.s.path, scope, 1).explained, 1);
}

TEST_F(ListedFindings, are_listed_by_state_and_written_to_a_workbook) {
  EXPECT_EQ(Play({"--month", "1", "--state", "explained"}), Status::kWell);
  EXPECT_NE(out.find(" 0 findings, 0 open, "), std::string::npos) << out;
  EXPECT_EQ(Play({"--month", "1", "--state", "open"}), Status::kSomething);
  EXPECT_NE(out.find(hours + ": 745: "), std::string::npos) << out;
  const TemporaryFolder elsewhere;
  EXPECT_EQ(Play({"-o", elsewhere.path("findings.xlsx")}), Status::kSomething);
  EXPECT_EQ(out, "");
  EXPECT_GT(fs::file_size(elsewhere.path("findings.xlsx")), 1000U);
  EXPECT_EQ(Play({"-o", elsewhere.path("findings.csv")}), Status::kSomething);
  std::ifstream in(elsewhere.path("findings.csv"));
  std::string head;
  std::getline(in, head);
  EXPECT_EQ(head, "Place,Field,Value,Expected,Error Description,Operator Comment,State\r");
  EXPECT_EQ(Play({"-o", elsewhere.path("findings.xlsx")}), Status::kFile);
}

TEST_F(ListedFindings, are_written_with_a_comment_that_no_cell_takes) {
  run.s.db.Execute("UPDATE QC SET Comments=? WHERE FieldID LIKE 'Hours%'", {std::string(40000, 'x')});
  const TemporaryFolder elsewhere;
  const std::string book = elsewhere.path("findings.xlsx");
  EXPECT_EQ(Play({"--state", "explained", "-o", book}), Status::kWell) << out;
  const ForeignSheet sheet = ReadForeignWorkbook(book).at(0);
  EXPECT_EQ(sheet.Text(1, 1), hours);
  EXPECT_TRUE(sheet.Text(1, 5).ends_with("x ... (cut here, of 40000 characters)"));
  EXPECT_EQ(sheet.Text(1, 6), "explained");
}

}  // namespace
}  // namespace merlu::test
