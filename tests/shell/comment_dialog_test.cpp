#include "shell/comment_dialog.h"

#include <gtest/gtest.h>

#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kList = "lvwFLA_QCResults";
constexpr const char* kButton = "cmdFLA_EditQCComment";
constexpr const char* kSelectOne = "Please select an error record to edit.";

// The edit of a flare's month with its findings: hours and volume are blank.
struct Findings {
  Findings() {
    run.StartWith("FLA", "F1");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Click("cmdEdit");
    run.Click("cmdQC");
    run.TakeBoxes();
  }
  // Opens the dialog on a row of the list and does that in it.
  void InDialog(int row, std::function<void(Form&)> act) {
    run.Pick(kList, row);
    run.dialogs.push_back([this, act](Form& form) {
      opened = true;
      act(form);
    });
    run.Click(kButton);
    EXPECT_TRUE(opened);
  }
  void Explain(int row, const std::string& comment) {
    InDialog(row, [&](Form&) {
      run.Set("txtComments", comment);
      run.Click("cmdOK");
    });
  }
  const Texts& Row(int row) { return run.At(kList).rows.at(static_cast<std::size_t>(row)); }
  std::string Comment(const std::string& field) {
    return NullToEmpty(run.s.db.Single("SELECT Comments FROM QC WHERE FieldID=?", {field}));
  }
  TestRun run;
  bool opened = false;
};

TEST(CommentDialog, shows_the_finding_and_lets_only_its_comment_be_changed) {
  Findings findings;
  findings.InDialog(1, [&](Form& dialog) {
    EXPECT_EQ(dialog.name(), "frmQCComment");
    EXPECT_EQ(dialog.caption, "Edit QC Comments");
    EXPECT_EQ(findings.run.Text("txtFieldName"), "Volume Flared, incl. upsets");
    EXPECT_EQ(findings.run.Text("txtErrorDesc"), "Required field left blank");
    EXPECT_EQ(findings.run.Text("txtComments"), "");
    EXPECT_EQ(findings.run.WhyNotSet("txtFieldName"), "is locked");
    EXPECT_EQ(findings.run.WhyNotSet("txtErrorDesc"), "is locked");
    EXPECT_EQ(findings.run.At("txtFieldName").caption, "Field Name:");
    EXPECT_EQ(findings.run.At("txtErrorDesc").caption, "Error Description:");
    EXPECT_EQ(findings.run.At("txtComments").caption, "Comments:");
    EXPECT_EQ(findings.run.At("cmdOK").caption, "OK");
    EXPECT_EQ(findings.run.At("cmdCancel").caption, "Cancel");
  });
}

TEST(CommentDialog, keeps_the_comment_in_the_log_and_in_the_list) {
  Findings findings;
  findings.Explain(1, "meter broken");
  EXPECT_EQ(findings.Comment("Volume Flared, incl. upsets"), "meter broken");
  EXPECT_EQ(findings.Comment("Hours Operated, excl. upsets"), "");
  EXPECT_EQ(findings.Row(1), (Texts{"Volume Flared, incl. upsets", "Required field left blank", "meter broken"}));
  EXPECT_EQ(findings.Row(0)[2], "");
  EXPECT_EQ(findings.run.s.desk.Dialog(), nullptr);
  findings.InDialog(1, [&](Form&) { EXPECT_EQ(findings.run.Text("txtComments"), "meter broken"); });
}

TEST(CommentDialog, changes_nothing_when_it_is_cancelled) {
  Findings findings;
  findings.Explain(0, "first");
  findings.InDialog(0, [&](Form&) {
    findings.run.Set("txtComments", "second");
    findings.run.Click("cmdCancel");
  });
  EXPECT_EQ(findings.Comment("Hours Operated, excl. upsets"), "first");
  EXPECT_EQ(findings.Row(0)[2], "first");
}

TEST(CommentDialog, opens_by_a_double_click_too) {
  Findings findings;
  findings.run.Pick(kList, 0);
  findings.run.dialogs.push_back([&](Form&) {
    findings.run.Set("txtComments", "twice");
    findings.run.Click("cmdOK");
  });
  findings.run.DoubleClick(kList);
  EXPECT_EQ(findings.Comment("Hours Operated, excl. upsets"), "twice");
}

TEST(CommentDialog, asks_for_a_finding_when_none_is_selected) {
  Findings findings;
  findings.run.dialogs.push_back([](Form&) { ADD_FAILURE() << "a dialog opened"; });
  findings.run.Click(kButton);
  EXPECT_EQ(findings.run.TakeBoxes(), Texts{kSelectOne});
  findings.run.DoubleClick(kList);
  EXPECT_EQ(findings.run.TakeBoxes(), Texts{kSelectOne});
  EXPECT_EQ(findings.run.dialogs.size(), 1u);
}

TEST(CommentDialog, asks_for_a_finding_of_an_empty_list) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Click("cmdEdit");
  EXPECT_TRUE(run.At(kList).rows.empty());
  run.Click(kButton);
  EXPECT_EQ(run.TakeBoxes(), Texts{kSelectOne});
}

TEST(CommentDialog, asks_for_a_finding_when_a_summary_is_selected) {
  Findings findings;
  TestRun& run = findings.run;
  run.Click("cmdCANCEL");
  run.Select(run.Key("", "", 1));
  run.Click("cmdEdit");
  const auto& rows = run.At("lvwSTRUCTURE_QCResults").rows;
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0], (Texts{"Combustion Flare: F1", "2 errors found", "n/a"}));
  run.Pick("lvwSTRUCTURE_QCResults", 0);
  EXPECT_FALSE(IsQCRowSelected(run.At("lvwSTRUCTURE_QCResults")));
  run.Click("cmdSTRUCTURE_EditQCComment");
  EXPECT_EQ(run.TakeBoxes(), Texts{kSelectOne});
}

TEST(CommentDialog, takes_a_finding_that_is_explained_by_the_mark_of_a_summary_for_one) {
  Findings findings;
  findings.Explain(0, "n/a");
  findings.run.Click(kButton);
  EXPECT_EQ(findings.run.TakeBoxes(), Texts{kSelectOne});
}

TEST(CommentDialog, opens_an_absent_comment_as_an_empty_one_and_stores_it_so) {
  Findings findings;
  findings.run.s.db.Execute("UPDATE QC SET Comments=NULL");
  findings.InDialog(0, [&](Form&) {
    EXPECT_EQ(findings.run.Text("txtComments"), "");
    findings.run.Click("cmdOK");
  });
  EXPECT_EQ(findings.run.Count("QC WHERE FieldID='Hours Operated, excl. upsets' AND Comments=''"), 1);
  EXPECT_EQ(findings.run.Count("QC WHERE Comments IS NULL"), 1);
}

TEST(CommentDialog, opens_empty_for_a_finding_that_is_gone) {
  Findings findings;
  findings.run.s.db.Execute("DELETE FROM QC WHERE FieldID LIKE 'Hours%'");
  findings.InDialog(0, [&](Form&) {
    EXPECT_EQ(findings.run.TakeBoxes(), Texts{"QC Error record was not found"});
    EXPECT_EQ(findings.run.Text("txtFieldName"), "Hours Operated, excl. upsets");
    EXPECT_EQ(findings.run.Text("txtErrorDesc"), "");
    EXPECT_EQ(findings.run.Text("txtComments"), "");
  });
}

TEST(CommentDialog, explains_no_other_finding_in_place_of_one_that_is_gone) {
  Findings findings;
  findings.run.s.db.Execute("DELETE FROM QC WHERE FieldID LIKE 'Hours%'");
  findings.InDialog(0, [&](Form&) {
    findings.run.TakeBoxes();
    findings.run.Set("txtComments", "lost");
    findings.run.Click("cmdOK");
  });
  EXPECT_EQ(findings.run.TakeBoxes(), Texts{"QC Error record was not found"});
  EXPECT_EQ(findings.run.Count("QC WHERE Comments<>''"), 0);
  EXPECT_EQ(findings.Row(0)[2], "");
}

TEST(CommentDialog, explains_a_finding_that_outlives_the_next_run) {
  Findings findings;
  findings.Explain(0, "meter broken");
  findings.run.Click("cmdQC");
  EXPECT_EQ(findings.Row(0)[2], "meter broken");
}

TEST(CommentDialog, explains_a_text_and_not_whatever_is_found_of_the_field_later) {
  Findings findings;
  findings.run.Set("txtFLA_HrsOperated", "745");
  findings.run.Click("cmdQC");
  const std::string hours = "Hours Operated, excl. upsets";
  ASSERT_EQ(findings.Row(1)[0], hours);
  findings.Explain(1, "leap month");
  findings.run.Set("txtFLA_HrsOperated", "");
  findings.run.Click("cmdQC");
  EXPECT_EQ(findings.Row(1), (Texts{hours, "Required field left blank", ""}));
  EXPECT_EQ(findings.Comment(hours), "");
}

TEST(CommentDialog, explains_a_finding_of_a_structure) {
  TestRun run;
  run.StartWithStructure();
  run.Click("cmdEdit");
  run.Click("cmdQC");
  run.TakeBoxes();
  run.Pick("lvwSTRUCTURE_QCResults", 0);
  run.dialogs.push_back([&](Form&) {
    EXPECT_EQ(run.Text("txtFieldName"), "Lease Number");
    run.Set("txtComments", "not leased");
    run.Click("cmdOK");
  });
  run.Click("cmdSTRUCTURE_EditQCComment");
  EXPECT_EQ(run.At("lvwSTRUCTURE_QCResults").rows[0][2], "not leased");
  EXPECT_EQ(run.Count("QC WHERE Comments='not leased' AND Level='STRUCTURE'"), 1);
}

TEST(CommentDialog, explains_a_finding_of_a_survey) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute(
      "INSERT INTO QC (UserID,Month,Year,Level,CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode) "
      "VALUES ('12345',1,2017,'SURVEY','NA','NA','NA','NA','Sum','Too big','','ACTV')");
  run.ChangeTo(Mode::kActv);
  run.Select("K12345 12017");
  run.Click("cmdEdit");
  run.Pick("lvwSURVEY_QCResults", 0);
  run.dialogs.push_back([&](Form&) {
    EXPECT_EQ(run.Text("txtErrorDesc"), "Too big");
    run.Set("txtComments", "two wells more");
    run.Click("cmdOK");
  });
  run.Click("cmdSURVEY_EditQCComment");
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT Comments FROM QC")), "two wells more");
  EXPECT_EQ(run.At("lvwSURVEY_QCResults").rows[0][2], "two wells more");
}

TEST(CommentDialog, has_its_button_only_while_the_sheet_is_edited) {
  Findings findings;
  EXPECT_EQ(findings.run.WhyNotClick(kButton), "");
  findings.run.Click("cmdCANCEL");
  EXPECT_EQ(findings.run.WhyNotClick(kButton), "is disabled");
  EXPECT_EQ(findings.run.At(kButton).caption, "Edit QC Comment");
}

TEST(CommentDialog, on_a_finding_that_is_gone_writes_into_no_other_one) {
  Findings findings;
  Raw(findings.run.s.path, {"DELETE FROM QC WHERE FieldID='Hours Operated, excl. upsets'"});
  findings.InDialog(0, [&](Form& dialog) {
    EXPECT_EQ(findings.run.TakeBoxes(), Texts{"QC Error record was not found"});
    findings.run.Set("txtComments", "for another one");
    findings.run.Click("cmdOK");
    EXPECT_EQ(findings.run.TakeBoxes(), Texts{"QC Error record was not found"});
    EXPECT_TRUE(dialog.visible);
    findings.run.Click("cmdCancel");
  });
  EXPECT_EQ(findings.run.Count("QC WHERE Comments<>''"), 0);
}

TEST(CommentDialog, of_the_last_finding_that_is_gone_leaves_another_record_s_alone) {
  Findings findings;
  findings.run.s.db.Execute("INSERT INTO QC (UserID,FieldID,Comments) VALUES ('12345','another','kept')");
  Raw(findings.run.s.path, {"DELETE FROM QC WHERE FieldID<>'another'"});
  findings.InDialog(0, [&](Form&) {
    findings.run.Set("txtComments", "lost");
    findings.run.Click("cmdOK");
    findings.run.Click("cmdCancel");
  });
  EXPECT_EQ(findings.Comment("another"), "kept");
}

TEST(CommentDialog, tells_at_ok_that_its_finding_has_gone_meanwhile) {
  Findings findings;
  findings.InDialog(1, [&](Form&) {
    Raw(findings.run.s.path, {"DELETE FROM QC WHERE FieldID='Volume Flared, incl. upsets'"});
    findings.run.Set("txtComments", "late");
    findings.run.Click("cmdOK");
    EXPECT_EQ(findings.run.TakeBoxes(), Texts{"QC Error record was not found"});
    findings.run.Click("cmdCancel");
  });
  EXPECT_EQ(findings.run.Count("QC WHERE Comments='late'"), 0);
}

}  // namespace
}  // namespace merlu::test
