#include "shell/ui.h"

#include <gtest/gtest.h>

#include "forms/dialog.h"
#include "shell/messages.h"
#include "support/test_run.h"

namespace merlu {
namespace {

TEST(OpenDialog, covers_everything_until_it_returns_and_leaves_nothing_behind) {
  test::TestRun run;
  Form& dialog = run.s.desk.Own(std::make_unique<Form>("frmAsk", "Ask"));
  AddDialogButtons(dialog, "cmdOK", "cmdCANCEL");
  bool covered = false;
  run.dialogs.push_back(
      [&](Form& form) { covered = run.s.desk.Dialog() == &form && form.visible && form.loaded && form.modal; });
  OpenDialog(run.s, dialog);
  EXPECT_TRUE(covered);
  EXPECT_FALSE(dialog.visible);
  EXPECT_FALSE(dialog.modal);
  EXPECT_FALSE(dialog.loaded);
  EXPECT_EQ(dialog.default_button, "cmdOK");
  EXPECT_EQ(dialog.cancel_button, "cmdCANCEL");
}

TEST(LeastChange, prefers_cancel_then_no_then_the_first_button) {
  EXPECT_EQ(LeastChange({"", "", Icon::kNone, {Button::kRetry, Button::kCancel}}), Button::kCancel);
  EXPECT_EQ(LeastChange({"", "", Icon::kNone, {Button::kYes, Button::kNo}}), Button::kNo);
  EXPECT_EQ(LeastChange({"", "", Icon::kNone, {Button::kOK}}), Button::kOK);
}

TEST(ButtonName, is_the_word_on_the_button) {
  EXPECT_EQ(ButtonName(Button::kOK), "OK");
  EXPECT_EQ(ButtonName(Button::kCancel), "Cancel");
  EXPECT_EQ(ButtonName(Button::kYes), "Yes");
  EXPECT_EQ(ButtonName(Button::kNo), "No");
  EXPECT_EQ(ButtonName(Button::kRetry), "Retry");
}

}  // namespace
}  // namespace merlu
