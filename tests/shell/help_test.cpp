// The help as the shell shows it: the file, its texts, and the message without it.
#include "shell/help.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>

#include "base/text.h"
#include "session/types.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class HelpTest : public testing::Test {
 protected:
  HelpTest() {
    run.Start();
    run.program_folder = help.path();
  }
  void Put(const std::string& file, const std::string& text) const { std::ofstream(help.path(file)) << text; }
  // Plain text of what the next help shows.
  void Expect(std::string& text) {
    run.dialogs.push_back([&](Form& form) {
      text = form.name() + ": " + form.At("rtfHelp").text;
      bookmark = form.At("rtfHelp").bookmark;
      act::Click(run.s.desk, form, "cmdClose");
    });
  }
  TemporaryFolder help;
  TestRun run;
  std::string bookmark;
};

TEST_F(HelpTest, shows_the_plain_text_of_a_file_and_hands_its_looks_to_the_window) {
  Put("MUD help.rtf", "{\\rtf1 {\\b Mud}\\par text\\par}");
  run.dialogs.push_back([&](Form& form) {
    EXPECT_EQ(form.caption, "MERLU Help");
    const Control& text = form.At("rtfHelp");
    EXPECT_EQ(text.text, "Mud\ntext\n");
    EXPECT_TRUE(text.locked);
    ASSERT_NE(text.document, nullptr);
    EXPECT_TRUE(text.document->blocks[0].paragraph.runs[0].bold);
    EXPECT_EQ(form.At("cmdClose").caption, "Close");
    EXPECT_EQ(act::Click(run.s.desk, form, "cmdClose"), "");
    EXPECT_FALSE(form.visible);
  });
  ShowHelp(run.s, "MUD help.rtf");
  EXPECT_TRUE(run.dialogs.empty());
  EXPECT_TRUE(run.boxes.empty());
}

TEST_F(HelpTest, tells_the_path_of_a_file_that_is_missing_and_nothing_else) {
  ShowHelp(run.s, "FLA help.rtf");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Help file not found in " + help.path("FLA help.rtf")});
  EXPECT_EQ(run.s.desk.Dialog(), nullptr);
}

TEST_F(HelpTest, tells_the_same_of_a_file_that_is_no_help) {
  Put("FLA help.rtf", "not rich text");
  Put("VEN help.rtf", "");
  fs::create_directory(help.path("STO help.rtf"));
  for (const char* file : {"FLA help.rtf", "VEN help.rtf", "STO help.rtf"}) {
    ShowHelp(run.s, file);
    EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Help file not found in " + help.path(file)});
  }
}

TEST_F(HelpTest, knows_a_file_for_every_screen_and_for_the_retired_type) {
  EXPECT_EQ(HelpFile("USER", ""), "User help.rtf");
  EXPECT_EQ(HelpFile("SURVEY", ""), "Survey help.rtf");
  EXPECT_EQ(HelpFile("STRUCTURE", ""), "Structure help.rtf");
  for (const EquipmentType& type : EquipmentTypes())
    EXPECT_EQ(HelpFile("EQUIPMENT", type.code), std::string(type.code) + " help.rtf");
  EXPECT_EQ(HelpFile("EQUIPMENT", "PUM"), "PUM help.rtf");
  EXPECT_EQ(HelpFile("EQUIPMENT", "JAC"), "");
  EXPECT_EQ(HelpFile("UNKNOWN", ""), "");
}

TEST_F(HelpTest, of_the_current_screen_follows_the_location) {
  Put("User help.rtf", "{\\rtf1 operator\\par}");
  Put("DRI help.rtf", "{\\rtf1 drilling\\par}");
  std::string text;
  Expect(text);
  run.Click("mnuHCurrentScreen");
  EXPECT_EQ(text, "frmHelp: operator\n");
  run.AddStructure("1001");
  run.AddEquipment("DRI", "D1");
  Expect(text);
  run.Click("mnuHCurrentScreen");
  EXPECT_EQ(text, "frmHelp: drilling\n");
}

TEST_F(HelpTest, of_a_location_with_the_retired_type_is_told_as_missing) {
  run.s.current.Level = level::kEquipment;
  run.s.current.EquipType = "PUM";
  ShowCurrentHelp(run.s, "");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Help file not found in " + help.path("PUM help.rtf")});
  run.s.current.Level = level::kUnknown;
  ShowCurrentHelp(run.s, "");
  EXPECT_TRUE(run.TakeBoxes().empty());
}

TEST_F(HelpTest, opens_at_a_control_also_in_the_middle_of_an_edit) {
  Put("User help.rtf", "{\\rtf1 {\\*\\bkmkstart txtUSER_City}City\\par}");
  run.Click("cmdEdit");
  std::string text;
  Expect(text);
  ShowCurrentHelp(run.s, "txtUSER_City");
  EXPECT_EQ(text, "frmHelp: City\n");
  EXPECT_EQ(bookmark, "txtUSER_City");
  EXPECT_TRUE(run.s.editing);
}

TEST_F(HelpTest, menu_has_a_command_for_every_sheet_by_its_letters_and_name) {
  std::map<std::string, std::string> wanted = {
      {"mnuHOUser", "User help.rtf"}, {"mnuHOSurvey", "Survey help.rtf"}, {"mnuHOStructure", "Structure help.rtf"}};
  for (const SheetSpec* sheet : AllSheets()) {
    wanted["mnuHO" + sheet->letters] = sheet->type + " help.rtf";
    std::string caption = run.s.main->At("mnuHO" + sheet->letters).caption;
    std::erase(caption, '&');
    EXPECT_EQ(caption, sheet->title);
  }
  EXPECT_EQ(run.s.main->Find("mnuHODRI"), nullptr);
  for (const auto& [menu, file] : wanted) {
    run.Click(menu);
    EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Help file not found in " + help.path(file)}) << menu;
  }
}

TEST_F(HelpTest, menu_opens_the_documents_beside_the_program) {
  const std::map<std::string, std::string> links = {
      {"mnuHLINK1", "User guide.html"}, {"mnuHLINK2", "Quality rules.html"}, {"mnuHLink3", "Scripting.html"}};
  for (const auto& [menu, file] : links) {
    run.Click(menu);
    EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Help file not found in " + help.path(file)});
    Put(file, "<p>");
    run.Click(menu);
    EXPECT_TRUE(run.TakeBoxes().empty());
    ASSERT_FALSE(run.opened.empty());
    EXPECT_EQ(run.opened.back(), help.path(file));
  }
}

TEST_F(HelpTest, of_a_dialog_opens_where_the_page_speaks_of_it) {
  run.program_folder = MERLU_BUILD_FOLDER;
  const auto place = [&](const char* dialog, const char* control) {
    std::string words;
    run.dialogs.push_back([&](Form& form) {
      const Control& text = form.At("rtfHelp");
      for (const Block& block : text.document->blocks)
        for (const std::string& name : block.paragraph.bookmarks)
          if (name == text.bookmark) words = PlainText(block.paragraph);
      if (text.bookmark.empty()) words = PlainText(text.document->blocks[0].paragraph);
      act::Click(run.s.desk, form, "cmdClose");
    });
    ShowDialogHelp(run.s, dialog, control);
    EXPECT_TRUE(run.dialogs.empty()) << dialog;
    run.dialogs.clear();
    return words;
  };
  EXPECT_EQ(place("frmNewUser", "txtUserID"), "The operator's screen");
  EXPECT_EQ(place("frmNewUser", "txtUSER_City"), "City");
  EXPECT_EQ(place("frmNewStructure", ""), "Structure");
  EXPECT_EQ(place("frmNewStructure", "txtComplxID"), "RIMA Complex ID");
  EXPECT_EQ(place("frmNewStructure", "txtStructID"), "RIMA Structure ID");
  EXPECT_EQ(place("frmNewStructure", "txtArea"), "Area");
  EXPECT_EQ(place("frmNewStructure", "txtBlock"), "Block");
  EXPECT_EQ(place("frmNewStructure", "txtName"), "Name");
  EXPECT_EQ(place("frmNewEquipment", "cmbEquipType"), "New Equipment");
  EXPECT_EQ(place("frmQCComment", "txtComments"), "Quality rules");
  EXPECT_EQ(place("frmExportSurvey", "lvwSurveys"), "Handing in");
  EXPECT_EQ(place("frmExportInventory", ""), "Handing in");
  EXPECT_EQ(place("frmExportStructure", ""), "Moving structures");
  EXPECT_EQ(place("frmImportStructure", "cmdLoad"), "Moving structures");
}

TEST_F(HelpTest, is_not_there_for_the_about_box) {
  ShowDialogHelp(run.s, "frmAbout", "cmdOK");
  EXPECT_TRUE(run.boxes.empty());
  EXPECT_EQ(run.s.desk.Dialog(), nullptr);
}

TEST_F(HelpTest, menus_give_each_command_a_letter_of_its_own) {
  std::map<std::string, std::set<char>> letters;
  for (const Control& control : run.s.main->controls()) {
    if (control.kind != Kind::kMenu || !control.name.starts_with("mnuH")) continue;
    const std::size_t at = control.caption.find('&');
    if (at == std::string::npos) continue;
    const char letter = Lower(control.caption.substr(at + 1, 1))[0];
    EXPECT_TRUE(letters[control.parent].insert(letter).second) << control.name;
  }
  EXPECT_EQ(letters["mnuHOther"].size(), 19u);
}

}  // namespace
}  // namespace merlu::test
