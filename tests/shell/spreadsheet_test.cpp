#include "shell/spreadsheet.h"

#include <gtest/gtest.h>

#include <fstream>

#include "store/files.h"
#include "support/read_back.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr const char* kAbout =
    "Please note, this function writes a workbook that can be opened with Microsoft Excel or any other spreadsheet "
    "program. None needs to be installed on this computer in order for this function to work.";

class Spreadsheet : public testing::Test {
 protected:
  // Presses the menu, answers the dialog; the texts of the boxes after the first one.
  std::vector<std::string> ExportTo(const std::string& path) {
    run.TakeBoxes();
    run.files = {path};
    run.Click("mnuSExport");
    std::vector<std::string> texts = run.TakeBoxes();
    EXPECT_EQ(texts.front(), kAbout);
    texts.erase(texts.begin());
    return texts;
  }
  void ExpectWhole(const std::string& path) {
    const Finished check = CheckWorkbook(run.s.path, path);
    EXPECT_EQ(check.status, 0) << check.output;
  }
  std::string path(const char* name) const { return run.folder.path(name); }

  TestRun run;
};

TEST_F(Spreadsheet, tells_what_it_does_and_asks_for_the_file) {
  run.Start();
  run.TakeBoxes();
  run.Click("mnuSExport");
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text, kAbout);
  EXPECT_EQ(run.boxes[0].title, "Spreadsheet Export");
  EXPECT_EQ(run.boxes[0].icon, Icon::kInfo);
  ASSERT_EQ(run.file_questions.size(), 1u);
  const FileQuestion& question = run.file_questions[0];
  EXPECT_EQ(question.kind, FileQuestion::Kind::kSave);
  EXPECT_EQ(question.title, "Save to Excel File");
  EXPECT_EQ(question.filter_name, "Excel File (*.xls)");
  EXPECT_EQ(question.pattern, "*.xls");
  EXPECT_EQ(question.extension, ".xls");
  ASSERT_EQ(question.others.size(), 1u);
  EXPECT_EQ(question.others[0].extension, ".xlsx");
}

TEST_F(Spreadsheet, is_offered_in_both_modes_and_not_during_an_edit) {
  run.StartWith("FLA", "F1");
  EXPECT_EQ(run.WhyNotClick("mnuSExport"), "");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotClick("mnuSExport"), "is disabled");
  run.Click("cmdCANCEL");
  run.AddMonth();
  EXPECT_EQ(run.WhyNotClick("mnuSExport"), "");
  EXPECT_EQ(ExportTo(path("actv.xls")), std::vector<std::string>{"Done."});
  ExpectWhole(path("actv.xls"));
}

TEST_F(Spreadsheet, of_an_inventory_without_structures_is_written) {
  run.Start();
  EXPECT_EQ(ExportTo(path("out.xls")), std::vector<std::string>{"Done."});
  ExpectWhole(path("out.xls"));
}

TEST_F(Spreadsheet, holds_what_was_typed) {
  run.StartWith("FLA", "007");
  run.Select(run.Key());
  run.AddEquipment("VEN", "V 1");
  EXPECT_EQ(ExportTo(path("out.xls")), std::vector<std::string>{"Done."});
  EXPECT_EQ(ExportTo(path("out.XLSX")), std::vector<std::string>{"Done."});
  ExpectWhole(path("out.xls"));
  ExpectWhole(path("out.XLSX"));
}

TEST_F(Spreadsheet, changes_nothing_of_the_inventory) {
  run.StartWith("FLA", "F1");
  const std::int64_t changes = run.s.db.ChangeCount();
  const QCLocation here = run.s.current;
  ExportTo(path("out.xls"));
  EXPECT_EQ(run.s.db.ChangeCount(), changes);
  EXPECT_EQ(run.s.current.EquipID, here.EquipID);
  EXPECT_TRUE(run.Visible("txtFLA_ConcH2S"));
}

TEST_F(Spreadsheet, shows_the_table_in_work_and_takes_the_wait_screen_away) {
  run.StartWith("FLA", "F1");
  run.wait_texts.clear();
  ExportTo(path("out.xls"));
  for (const char* text : {"Exporting CO_COMPANY", "Exporting ED_FLA", "Exporting ED_VEN"})
    EXPECT_NE(std::find(run.wait_texts.begin(), run.wait_texts.end(), text), run.wait_texts.end()) << text;
  EXPECT_FALSE(run.s.wait.showing);
}

TEST_F(Spreadsheet, without_a_name_is_not_written) {
  run.Start();
  EXPECT_TRUE(ExportTo("").empty());
  EXPECT_FALSE(run.s.wait.showing);
}

TEST_F(Spreadsheet, gets_the_extension_that_its_name_lacks) {
  run.Start();
  EXPECT_EQ(ExportTo(path("out")), std::vector<std::string>{"Done."});
  EXPECT_TRUE(FileExists(path("out.xls")));
  EXPECT_EQ(ExportTo(path("Inventory 1.5")), std::vector<std::string>{"Done."});
  EXPECT_TRUE(FileExists(path("Inventory 1.5.xls")));
}

TEST_F(Spreadsheet, replaces_a_file_that_is_there) {
  run.Start();
  std::ofstream(path("out.xls")) << "an older file";
  EXPECT_EQ(ExportTo(path("out.xls")), std::vector<std::string>{"Done."});
  ExpectWhole(path("out.xls"));
}

TEST_F(Spreadsheet, asks_before_it_replaces_a_file_whose_name_nobody_typed) {
  run.Start();
  std::ofstream(path("report.v2.xls")) << "kept";
  run.answers = {Button::kNo};
  EXPECT_EQ(ExportTo(path("report.v2")),
            std::vector<std::string>{path("report.v2.xls") + " already exists.\nDo you want to replace it?"});
  EXPECT_EQ(FileSize(path("report.v2.xls")), 4u);
  run.answers = {Button::kYes};
  EXPECT_EQ(ExportTo(path("report.v2")).back(), "Done.");
  ExpectWhole(path("report.v2.xls"));
}

TEST_F(Spreadsheet, into_a_folder_that_is_not_there_is_told) {
  run.Start();
  for (const char* name : {"none/out.xls", "none/out.xlsx"})
    EXPECT_EQ(ExportTo(path(name)),
              std::vector<std::string>{"76 Cannot write the file " + path(name) + ": No such file or directory."});
  EXPECT_FALSE(run.s.wait.showing);
}

TEST_F(Spreadsheet, over_a_folder_is_told_and_leaves_it) {
  run.Start();
  fs::create_directory(path("folder.xls"));
  EXPECT_EQ(ExportTo(path("folder.xls")),
            std::vector<std::string>{"52 Cannot write the file " + path("folder.xls") + ": it is a folder."});
  EXPECT_TRUE(fs::is_directory(path("folder.xls")));
}

TEST_F(Spreadsheet, that_a_fault_of_the_data_ends_is_told_and_leaves_the_older_file) {
  run.StartWithStructure();
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET MINOR_SOURCE_EXEMPT_WHAT=?", {std::string(40000, 'x')});
  std::ofstream(path("out.xls")) << "an older file";
  EXPECT_EQ(
      ExportTo(path("out.xls")),
      std::vector<std::string>{"6 The table PD_PLATFORM_DESC has a text of 40000 characters, a cell takes 32767."});
  EXPECT_EQ(FileSize(path("out.xls")), 13u);
  EXPECT_FALSE(run.s.wait.showing);
}

}  // namespace
}  // namespace merlu::test
