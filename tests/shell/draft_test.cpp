// What was typed in an edit that was interrupted, offered at the next start.
#include <gtest/gtest.h>

#include "forms/list_model.h"
#include "history/notes.h"
#include "shell/draft.h"
#include "shell/main_program.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class InterruptedEdit : public testing::Test {
 protected:
  static std::string Cell(const Control& list, int row, int column) { return list.model->Text(row, column); }

  TestRun run;
};

TEST_F(InterruptedEdit, is_offered_beside_what_another_program_has_stored_since) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "100"}, {"txtFLA_VolFlared", "7"}});
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "200");
  run.Set("txtFLA_Comments", "a word");
  KeepDraftOfEdit(run.s, When::kAtOnce);
  const std::string undisturbed = "An edit was interrupted before it was saved:";
  const auto offered = [&](const std::string& stored, bool changed) {
    EndProgram(run.s);
    run.dialogs.push_back([&, stored, changed](Form& form) {
      EXPECT_EQ(form.At("lblDRF_Note").caption == undisturbed, !changed);
      const Control& fields = form.At("lvwDRF_Fields");
      ASSERT_EQ(fields.model->RowCount(), 2);
      EXPECT_EQ(Cell(fields, 0, 1), stored);
      EXPECT_EQ(Cell(fields, 0, 2), "200");
      EXPECT_EQ(Cell(fields, 1, 0), "Comments");
      EXPECT_EQ(Cell(fields, 1, 1), "");
    });
    Main(run.s);
  };
  offered("100", false);
  Raw(run.s.path, {"UPDATE EA_FLA SET OP_HR=77,VOL_FLARED=8"});
  offered("77", true);
  EndProgram(run.s);
  run.dialogs.push_back([&](Form&) { run.Click("cmdDRF_Continue"); });
  Main(run.s);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "200");
  EXPECT_EQ(run.Text("txtFLA_VolFlared"), "8");
}

TEST_F(InterruptedEdit, of_the_structure_shows_what_is_stored) {
  run.StartWithStructure();
  run.Keep({{"txtSTRUCTURE_WaterDepth", "220"}});
  run.Click("cmdEdit");
  run.Set("txtSTRUCTURE_WaterDepth", "300");
  run.Set("cmbMinorSourceExempt", "No");
  KeepDraftOfEdit(run.s, When::kAtOnce);
  EndProgram(run.s);
  Raw(run.s.path, {"UPDATE PD_PLATFORM_DESC SET MINOR_SOURCE_EXEMPT='Yes'"});
  run.dialogs.push_back([&](Form& form) {
    const Control& fields = form.At("lvwDRF_Fields");
    ASSERT_EQ(fields.model->RowCount(), 2);
    EXPECT_EQ(Cell(fields, 0, 1), "220");
    EXPECT_EQ(Cell(fields, 1, 1), "Yes");
    EXPECT_EQ(Cell(fields, 1, 2), "No");
  });
  Main(run.s);
}

TEST_F(InterruptedEdit, is_offered_after_a_cut) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "100");
  KeepDraftOfEdit(run.s, When::kAtOnce);
  ASSERT_EQ(Drafts(run.s.companion).size(), 1u);
  EndProgram(run.s);  // without a message during the edit
  run.dialogs.push_back([&](Form& form) {
    EXPECT_EQ(form.name(), "frmDraft");
    EXPECT_EQ(form.At("lblDRF_Place").text, "2017/01 · GI, 43, A · Combustion Flare: F1");
    const Control& fields = form.At("lvwDRF_Fields");
    ASSERT_EQ(fields.model->RowCount(), 1);
    EXPECT_EQ(Cell(fields, 0, 1), "");
    EXPECT_EQ(Cell(fields, 0, 2), "100");
    run.Click("cmdDRF_Continue");
  });
  Main(run.s);
  EXPECT_TRUE(run.s.editing);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "100");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(Drafts(run.s.companion).empty());
  EXPECT_EQ(ToInteger(run.Sql("SELECT OP_HR FROM EA_FLA")), 100);
}

TEST_F(InterruptedEdit, comes_back_into_fields_that_a_later_choice_disabled) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kDesc);
  run.Click("cmdEdit");
  run.Set("cmbFLA_OtherControlDevice", "Yes");
  run.Set("txtFLA_OtherControlEffSOx", "77");
  run.Set("cmbFLA_OtherControlDevice", "No");
  KeepDraftOfEdit(run.s, When::kAtOnce);
  EndProgram(run.s);
  run.dialogs.push_back([&](Form&) { run.Click("cmdDRF_Continue"); });
  Main(run.s);
  EXPECT_EQ(run.Text("cmbFLA_OtherControlDevice"), "No");
  EXPECT_EQ(run.Text("txtFLA_OtherControlEffSOx"), "77");
  EXPECT_FALSE(run.At("txtFLA_OtherControlEffSOx").enabled);
}

TEST_F(InterruptedEdit, of_what_cannot_be_edited_any_more_waits) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "100");
  KeepDraftOfEdit(run.s, When::kAtOnce);
  EndProgram(run.s);
  Raw(run.s.path, {"UPDATE PA_PLATFORM_ACTV SET status='I'"});
  run.dialogs.push_back([&](Form&) { run.Click("cmdDRF_Continue"); });
  Main(run.s);
  EXPECT_FALSE(run.s.editing);
  EXPECT_EQ(run.TakeBoxes().back(),
            "This record cannot be edited while its structure reports no emissions for the month.");
  EXPECT_EQ(Drafts(run.s.companion).size(), 1u);
}

TEST_F(InterruptedEdit, that_was_cancelled_leaves_nothing) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "100");
  KeepDraftOfEdit(run.s, When::kAtOnce);
  run.Click("cmdCANCEL");
  EXPECT_TRUE(Drafts(run.s.companion).empty());
}

}  // namespace
}  // namespace merlu::test
