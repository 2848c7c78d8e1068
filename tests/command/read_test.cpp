// merlu workbook and merlu read.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "command/commands.h"
#include "entry/month_book.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Files = std::map<std::string, std::string>;

class ReadCommand : public testing::Test {
 protected:
  ReadCommand() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Keep({{"txtFLA_HrsOperated", "700"}});
    book = MakeMonthBook(run.s, 1);
    CloseDatabase(run.s);
  }
  Status Play(const std::string& command, std::vector<std::string> options) {
    std::ostringstream out_stream, err_stream;
    Console console{out_stream, err_stream};
    options.insert(options.begin(), run.s.path);
    const Status status = RunCommand(*FindCommand(command), options, console);
    out = out_stream.str();
    err = err_stream.str();
    return status;
  }
  std::string FilledIn(const std::string& hours) {
    book.sheets.back().rows[0].cells[0].text = hours;
    WriteMonthBook(book, elsewhere.path("filled.xlsx"));
    return elsewhere.path("filled.xlsx");
  }
  Files Folder() const {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(run.folder.path())) {
      std::ifstream in(entry.path(), std::ios::binary);
      files[entry.path()] = entry.is_regular_file()
                                ? std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>())
                                : "";
    }
    return files;
  }
  // The lines of what is not as it is stored.
  std::string Changes() const {
    std::istringstream in(out);
    std::string changes;
    for (std::string line; std::getline(in, line);)
      if (line.find("\"action\":\"same\"") == std::string::npos) changes += line + "\n";
    return changes;
  }
  Value Hours() const { return RawValue(run.s.path, "SELECT OP_HR FROM EA_FLA"); }

  TestRun run;
  TemporaryFolder elsewhere;
  MonthBook book;
  std::string out, err;
};

TEST_F(ReadCommand, takes_a_workbook_that_was_filled_in) {
  const Files before = Folder();
  const std::string file = elsewhere.path("month.xlsx");
  EXPECT_EQ(Play("workbook", {"--month", "1", "-o", file}), Status::kWell) << err;
  EXPECT_EQ(Folder(), before);
  EXPECT_EQ(Play("workbook", {"--month", "1", "-o", file}), Status::kFile);
  EXPECT_EQ(Play("workbook", {"--month", "1", "-o", file, "--force"}), Status::kWell);
  EXPECT_EQ(Play("workbook", {"--month", "2", "-o", file, "--force"}), Status::kSomething);
  EXPECT_NE(err.find("It has no month 2."), std::string::npos) << err;
  EXPECT_EQ(Play("read", {"--from", file}), Status::kWell) << err;
  EXPECT_EQ(Changes(), "");
}

TEST_F(ReadCommand, tells_beforehand_what_it_would_store) {
  const Files before = Folder();
  EXPECT_EQ(Play("read", {"--from", FilledIn("710"), "--dry-run"}), Status::kWell) << err;
  EXPECT_EQ(Changes(),
            "{\"place\":\"2017/01 · GI, 43, A · Combustion Flare: F1\",\"field\":\"Hours Operated (hrs), including "
            "upsets\",\"control\":\"txtFLA_HrsOperated\",\"old\":\"700\",\"new\":\"710\",\"action\":\"changed\"}\n");
  EXPECT_EQ(Folder(), before);
}

TEST_F(ReadCommand, stores_one_step) {
  EXPECT_EQ(Play("read", {"--from", FilledIn("710")}), Status::kWell) << err;
  EXPECT_EQ(Hours(), Value(710.0));
  run.Start(run.s.path);
  EXPECT_EQ(run.At("mnuEUndo").caption, "Undo Month Workbook");
  run.Click("mnuEUndo");
  EXPECT_EQ(Hours(), Value(700.0));
}

TEST_F(ReadCommand, stores_what_can_be_and_tells_what_cannot) {
  for (BookRow& row : book.sheets.front().rows) row.cells[0].text = "much";
  EXPECT_EQ(Play("read", {"--from", FilledIn("710")}), Status::kSomething);
  EXPECT_NE(out.find("\"new\":\"much\",\"action\":\"not a number\"}"), std::string::npos) << out;
  EXPECT_EQ(Hours(), Value(710.0));
}

TEST_F(ReadCommand, needs_the_file_for_itself) {
  const std::string file = FilledIn("710");
  TestRun window;
  window.Start(run.s.path);
  EXPECT_EQ(Play("read", {"--from", file}), Status::kFile);
  const std::string why =
      "merlu read: " + run.s.path + ": The database is open in another run of this program. Opened by ";
  EXPECT_EQ(err.substr(0, why.size()), why);
  EXPECT_EQ(Play("read", {"--from", file, "--dry-run"}), Status::kWell) << err;
  EXPECT_EQ(Play("workbook", {"--month", "1", "-o", elsewhere.path("m.xlsx")}), Status::kWell) << err;
  EXPECT_EQ(Hours(), Value(700.0));
}

TEST_F(ReadCommand, tells_what_stands_in_a_row_without_a_key) {
  const std::string file = elsewhere.path("sheet.csv");
  std::ofstream(file) << "MERLU-2017 month workbook,month 1 of 2017,12345,FLA\n"
                         "Structure,Equipment,Key,txtFLA_HrsOperated\n"
                         "Structure,Equipment,Key,Hours\n"
                         "\"GI, 43, A\",F1,K12345 12017   1001 1FLA      F1,701\n"
                         "\"GI, 43, A\",F9,,702\n";
  EXPECT_EQ(Play("read", {"--from", file}), Status::kSomething) << err;
  EXPECT_NE(Changes().find("\"place\":\"2017/01 · GI, 43, A · Combustion Flare: F9\",\"field\":\"Hours\","
                           "\"control\":\"txtFLA_HrsOperated\",\"old\":\"\",\"new\":\"702\","
                           "\"action\":\"no such record\""),
            std::string::npos)
      << out;
  EXPECT_EQ(Hours(), Value(701.0));
}

TEST_F(ReadCommand, finds_a_field_in_whatever_column_it_was_moved_to) {
  const std::string file = elsewhere.path("sheet.csv");
  std::ofstream(file) << "MERLU-2017 month workbook,month 1 of 2017,12345,FLA,\n"
                         "Structure,Equipment,Key,,txtFLA_HrsOperated\n"
                         "Structure,Equipment,Key,,Hours\n"
                         "renamed,F1,K12345 12017   1001 1FLA      F1,,702\n";
  EXPECT_EQ(Play("read", {"--from", file}), Status::kWell) << err;
  EXPECT_EQ(Hours(), Value(702.0));
  EXPECT_NE(out.find("\"place\":\"2017/01 · GI, 43, A · Combustion Flare: F1\""), std::string::npos)
      << "the place is the record's, not what the file calls it: " << out;
}

TEST_F(ReadCommand, tells_what_is_no_workbook) {
  const Files before = Folder();
  const std::string file = elsewhere.path("text.xlsx");
  std::ofstream(file) << "no workbook";
  EXPECT_EQ(Play("read", {"--from", file}), Status::kFile);
  EXPECT_EQ(err, "merlu read: " + file + ": The file is not a workbook.\n");
  EXPECT_EQ(Play("read", {"--from", elsewhere.path("none.csv")}), Status::kFile);
  EXPECT_EQ(Folder(), before);
  EXPECT_EQ(Play("read", {}), Status::kWrongUsage);
}

}  // namespace
}  // namespace merlu::test
