// The pages of the dialogs and docks cover all of their controls, and no others.
#include "help/screen_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "shell/backup_dialog.h"
#include "shell/completeness_dock.h"
#include "shell/draft.h"
#include "shell/find_dialog.h"
#include "shell/findings_dock.h"
#include "shell/hand_in_dialog.h"
#include "shell/help.h"
#include "shell/history_dialog.h"
#include "shell/import_plan_dialog.h"
#include "shell/month_book_dialog.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

bool IsTold(const Control& control) {
  static const std::set<std::string> usual = {"cmdOK", "cmdCANCEL", "cmdClose"};
  return control.kind != Kind::kLabel && !usual.contains(control.name);
}

// Each form with the page that it has.
class ScreenHelp : public testing::Test {
 protected:
  ScreenHelp() {
    run.StartWith("FLA", "F1");
    run.ChangeTo(Mode::kActv);
    Form& draft = DraftDialog(run.s);
    MakeImportPlanDialog(run.s);
    MakeReadPlanDialog(run.s);
    const auto close = [](Form& form) { form.Raise(form.cancel_button, Event::kClick); };
    run.dialogs = {close, close, close};
    OpenHandIn(run.s);
    run.Click("mnuNGrid");
    OpenGoTo(run.s);
    forms = {{"Findings", {&FindingsDock(run.s)}},
             {"Completeness", {&CompletenessDock(run.s)}},
             {"Hand-in", {run.s.desk.Find("frmHandIn")}},
             {"Month grid", {run.s.desk.Find("frmGrid")}},
             {"Month workbook", {run.s.desk.Find("frmReadPlan")}},
             {"Import preview", {run.s.desk.Find("frmImportPlan")}},
             {"History", {&HistoryDialog(run.s)}},
             {"Interrupted edit", {&draft}},
             {"Backups", {&BackupDialog(run.s)}},
             {"Go To", {run.s.desk.Find("frmFind")}}};
    run.Click("mnuRStrip");
    forms["Twelve months"] = {run.s.desk.Find("frmStrip")};
  }

  TestRun run;
  std::map<std::string, std::vector<const Form*>> forms;
};

TEST_F(ScreenHelp, speaks_of_every_control_with_its_caption_columns_and_choices) {
  for (const HelpPage& page : ScreenPages()) {
    ASSERT_TRUE(forms.contains(page.title)) << page.title;
    for (const Form* form : forms.at(page.title)) {
      ASSERT_NE(form, nullptr) << page.title;
      for (const Control& control : form->controls()) {
        if (!IsTold(control)) continue;
        const auto told = std::find_if(page.controls.begin(), page.controls.end(),
                                       [&](const HelpControl& one) { return one.name == control.name; });
        ASSERT_NE(told, page.controls.end()) << control.name;
        EXPECT_EQ(told->caption, control.caption) << control.name;
        EXPECT_EQ(told->columns, control.columns) << control.name;
        for (const std::string& choice : told->choices)
          EXPECT_NE(std::find(control.items.begin(), control.items.end(), choice), control.items.end()) << choice;
      }
    }
  }
}

TEST_F(ScreenHelp, has_no_control_that_no_form_has) {
  for (const HelpPage& page : ScreenPages())
    for (const HelpControl& told : page.controls) {
      if (told.name.starts_with("lvwPST_")) continue;  // its form is made when a paste is planned
      const auto& of = forms.at(page.title);
      EXPECT_TRUE(std::any_of(of.begin(), of.end(), [&](const Form* form) { return form->Find(told.name); }))
          << told.name;
    }
}

TEST_F(ScreenHelp, is_opened_by_each_of_the_screens) {
  std::set<std::string> files;
  for (const std::string& file : ScreenHelpFiles()) files.insert(file);
  for (const HelpPage& page : ScreenPages()) EXPECT_TRUE(files.contains(page.file)) << page.file;
  EXPECT_EQ(files.size(), ScreenPages().size());
  run.program_folder = MERLU_BUILD_FOLDER;
  for (const auto& [title, of] : forms) {
    std::string bookmark, text;
    run.dialogs.push_back([&](Form& form) {
      bookmark = form.At("rtfHelp").bookmark;
      text = form.At("rtfHelp").text;
      act::Click(run.s.desk, form, "cmdClose");
    });
    const auto& controls = of.front()->controls();
    const auto first = std::find_if(controls.begin(), controls.end(), IsTold);
    ASSERT_NE(first, controls.end());
    ShowDialogHelp(run.s, of.front()->name(), first->name);
    EXPECT_EQ(bookmark, first->name) << title;
    EXPECT_GT(text.size(), 300u) << title;
  }
}

}  // namespace
}  // namespace merlu::test
