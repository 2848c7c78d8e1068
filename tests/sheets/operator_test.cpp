#include "sheets/operator.h"

#include <gtest/gtest.h>

#include "sheets/build.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kNoPhone = "(___) ___ - ____ ext ____";
constexpr const char* kNoFax = "(___) ___ - ____";
constexpr const char* kFields[] = {"txtUSER_Company", "txtUSER_Address1", "txtUSER_Address2", "txtUSER_City",
                                   "txtUSER_State",   "txtUSER_Zip",      "txtUSER_Contact",  "txtUSER_Phone",
                                   "txtUSER_Fax",     "txtUSER_Email"};

// The operator's sheet in view.
class OperatorSheet : public testing::Test {
 protected:
  OperatorSheet() { run.Start(); }
  std::string StoredText(const std::string& column) {
    return NullToEmpty(run.Sql("SELECT " + column + " FROM CO_COMPANY"));
  }
  // Ends the edit and returns the message and the focused control.
  std::pair<Texts, std::string> End() {
    run.s.main->focus.clear();
    run.Click("cmdSaveExit");
    return {run.TakeBoxes(), run.s.main->focus};
  }
  TestRun run;
};

TEST_F(OperatorSheet, shows_the_operator_s_columns) {
  EXPECT_EQ(run.Text("txtUSER_Company"), "Blue Water");
  EXPECT_EQ(run.Text("txtUSER_Address1"), "1 Quay");
  EXPECT_EQ(run.Text("txtUSER_Address2"), "");
  EXPECT_EQ(run.Text("txtUSER_City"), "Port");
  EXPECT_EQ(run.Text("txtUSER_State"), "TX");
  EXPECT_EQ(run.Text("txtUSER_Zip"), "77001");
  EXPECT_EQ(run.Text("txtUSER_Contact"), "A. Person");
  EXPECT_EQ(run.Text("txtUSER_Phone"), "(555) 123 - 4567 ext ____");
  EXPECT_EQ(run.Text("txtUSER_Fax"), kNoFax);
  EXPECT_EQ(run.Text("txtUSER_Email"), "a@b.example");
}

TEST_F(OperatorSheet, has_no_field_for_the_number_and_the_year) {
  EXPECT_EQ(run.s.main->Find("txtUserID"), nullptr);
  EXPECT_EQ(run.s.main->Find("txtUSER_InvYr"), nullptr);
  EXPECT_EQ(run.At("lblUSER_Heading").text, "MERLU-2017 Registered User");
  EXPECT_EQ(run.At("tabUSER").items, Texts{"General Information"});
  EXPECT_EQ(run.At("cmdUSER_AddStructure").caption, "New Structure");
  EXPECT_EQ(run.At("cmdUSER_AddSurvey").caption, "Add Next Monthly Survey");
}

TEST_F(OperatorSheet, is_read_only_in_view_and_editable_in_an_edit) {
  EXPECT_EQ(run.At("fraUserInfo").caption, "Operator");
  for (const char* field : kFields) {
    EXPECT_TRUE(run.At(field).locked) << field;
    EXPECT_EQ(run.At(field).back, Back::kFace) << field;
  }
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraUserInfo").caption, "Operator - EDIT DATA");
  EXPECT_TRUE(run.At("fraUserInfo").emphasis);
  for (const char* field : kFields) {
    EXPECT_FALSE(run.At(field).locked) << field;
    EXPECT_EQ(run.At(field).back, Back::kWindow) << field;
  }
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.At("fraUserInfo").caption, "Operator");
  EXPECT_FALSE(run.At("fraUserInfo").emphasis);
}

TEST_F(OperatorSheet, offers_the_next_month_in_activity_mode_only) {
  EXPECT_FALSE(run.Visible("cmdUSER_AddSurvey"));
  run.AddStructure("1001");
  run.SelectRoot();
  run.ChangeTo(Mode::kActv);
  EXPECT_TRUE(run.Visible("cmdUSER_AddSurvey"));
  EXPECT_FALSE(run.Visible("cmdUSER_AddStructure"));
}

TEST_F(OperatorSheet, stores_every_field_and_null_for_an_empty_one) {
  run.Click("cmdEdit");
  run.Put({{"txtUSER_Company", "Deep Sea"},
           {"txtUSER_Address1", ""},
           {"txtUSER_Address2", "Pier 7"},
           {"txtUSER_City", "Bay"},
           {"txtUSER_State", "LA"},
           {"txtUSER_Zip", "70001"},
           {"txtUSER_Contact", "B. Person"},
           {"txtUSER_Phone", "5559876543 12"},
           {"txtUSER_Fax", "5550001111"},
           {"txtUSER_Email", "b@b.example"}});
  EXPECT_EQ(End().first, Texts{});
  EXPECT_FALSE(run.s.editing);
  EXPECT_EQ(StoredText("CO_NAME"), "Deep Sea");
  EXPECT_TRUE(IsNull(run.Sql("SELECT ADDR1 FROM CO_COMPANY")));
  EXPECT_EQ(StoredText("ADDR2"), "Pier 7");
  EXPECT_EQ(StoredText("City"), "Bay");
  EXPECT_EQ(StoredText("State"), "LA");
  EXPECT_EQ(StoredText("Zip"), "70001");
  EXPECT_EQ(StoredText("Contact"), "B. Person");
  EXPECT_EQ(StoredText("Phone"), "(555) 987 - 6543 ext 12__");
  EXPECT_EQ(StoredText("Fax"), "(555) 000 - 1111");
  EXPECT_EQ(StoredText("Email"), "b@b.example");
}

TEST_F(OperatorSheet, never_changes_the_number_and_the_year) {
  run.Keep({{"txtUSER_Company", "Deep Sea"}});
  EXPECT_EQ(StoredText("RIMA_CO_NUM"), "12345");
  EXPECT_EQ(ToInteger(run.Sql("SELECT sys_yr FROM SYS_CONFIG")), 2017);
}

TEST_F(OperatorSheet, is_held_to_its_required_fields_in_their_order) {
  run.Click("cmdEdit");
  for (const char* field : kFields) run.Set(field, "");
  struct Step {
    const char *message, *focus, *field, *value;
  };
  // each failure is mended, so that the next one shows
  for (const Step& step :
       std::vector<Step>{{"Please enter your Contact Name", "txtUSER_Contact", "txtUSER_Contact", "C"},
                         {"Please enter your Phone, Fax, or Email", "txtUSER_Phone", "txtUSER_Phone", "5"},
                         {"Please enter Email address", "txtUSER_Email", "txtUSER_Email", "e"},
                         {"Please enter your Company Name", "txtUSER_Company", "txtUSER_Company", "N"},
                         {"Please enter your Address", "txtUSER_Address1", "txtUSER_Address2", "A"},
                         {"Please enter your City", "txtUSER_City", "txtUSER_City", "T"},
                         {"Please enter your Zip Code", "txtUSER_Zip", "txtUSER_Zip", "Z"},
                         {"Please enter your State", "txtUSER_State", "txtUSER_State", "S"}}) {
    run.Click("cmdSaveExit");
    ASSERT_EQ(run.boxes.size(), 1u) << step.message;
    EXPECT_EQ(run.boxes[0].text, step.message);
    EXPECT_EQ(run.boxes[0].title, "MERLU-2017");
    EXPECT_EQ(run.boxes[0].icon, Icon::kWarning) << step.message;
    EXPECT_EQ(run.s.main->focus, step.focus) << step.message;
    EXPECT_TRUE(run.s.editing) << step.message;
    EXPECT_TRUE(run.s.save_failed) << step.message;
    run.TakeBoxes();
    run.Set(step.field, step.value);
  }
  EXPECT_EQ(End().first, Texts{});
  EXPECT_FALSE(run.s.editing);
  EXPECT_EQ(StoredText("State"), "S");
}

TEST_F(OperatorSheet, takes_blanks_for_nothing_typed) {
  run.Click("cmdEdit");
  run.Set("txtUSER_City", "   ");
  EXPECT_EQ(End(), (std::pair<Texts, std::string>{{"Please enter your City"}, "txtUSER_City"}));
  EXPECT_EQ(StoredText("City"), "Port");
}

TEST_F(OperatorSheet, accepts_a_phone_of_nine_digits) {
  run.Click("cmdEdit");
  run.Set("txtUSER_Phone", "555123456");
  EXPECT_EQ(End().first, Texts{});
  EXPECT_EQ(StoredText("Phone"), "(555) 123 - 456_ ext ____");
}

TEST_F(OperatorSheet, saved_without_ending_the_edit_is_held_to_nothing) {
  run.Click("cmdEdit");
  for (const char* field : kFields) run.Set(field, "");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_TRUE(run.s.editing);
  EXPECT_TRUE(IsNull(run.Sql("SELECT CO_NAME FROM CO_COMPANY")));
  EXPECT_EQ(StoredText("Phone"), kNoPhone);
  EXPECT_EQ(StoredText("Fax"), kNoFax);
}

TEST_F(OperatorSheet, keeps_a_text_as_it_stands_with_its_blanks) {
  run.Keep({{"txtUSER_Company", "  Deep 'Sea'  "}});
  EXPECT_EQ(StoredText("CO_NAME"), "  Deep 'Sea'  ");
  EXPECT_EQ(run.Text("txtUSER_Company"), "  Deep 'Sea'  ");
}

TEST_F(OperatorSheet, of_an_operator_that_is_gone_says_so_and_shows_nothing) {
  run.s.db.Execute("UPDATE CO_COMPANY SET RIMA_CO_NUM='99999'");
  run.SelectRoot();
  EXPECT_EQ(run.TakeBoxes(), (Texts{"User record not found", "record not found"}));
  EXPECT_EQ(run.Text("txtUSER_Company"), "");
  EXPECT_EQ(run.Text("txtUSER_Phone"), kNoPhone);
  EXPECT_EQ(run.Text("txtUSER_Fax"), kNoFax);
}

TEST_F(OperatorSheet, that_cannot_be_saved_tells_the_fault_and_stays_in_the_edit) {
  run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE UPDATE ON CO_COMPANY BEGIN SELECT RAISE(ABORT,'no room'); END");
  run.Click("cmdEdit");
  run.Set("txtUSER_Company", "Deep Sea");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"no room 3146"});
  EXPECT_TRUE(run.s.editing);
  EXPECT_EQ(run.Text("txtUSER_Company"), "Deep Sea");
  run.Click("cmdSaveExit");
  EXPECT_EQ(run.TakeBoxes(), Texts{"no room 3146"});
  EXPECT_TRUE(run.s.editing);
}

// A first-run dialog, filled, without a program or a file.
class NewOperatorFields : public testing::Test {
 protected:
  NewOperatorFields() {
    for (const char* name : {"txtUserID", "txtUSER_InvYr"}) Put(form, Kind::kText, name, "", {});
    PutNewOperatorFields(form);
    for (const char* name : kFields)
      if (form.At(name).kind == Kind::kText) form.At(name).text = "x";
    form.At("txtUserID").text = " 12345 ";
    form.At("txtUSER_InvYr").text = "2017";
    form.At("txtUSER_Phone").text = Masked(kPhoneMask, "5551234567");
  }
  std::pair<std::string, std::string> UnmetWith(const std::string& name, const std::string& text) {
    form.At(name).text = text;
    const auto unmet = UnmetOfNewOperator(form);
    return unmet ? std::pair(unmet->message, unmet->field) : std::pair<std::string, std::string>();
  }
  Form form{"frmNewUser", ""};
};

TEST_F(NewOperatorFields, that_are_filled_want_nothing_and_are_read_as_they_are) {
  EXPECT_FALSE(UnmetOfNewOperator(form).has_value());
  const NewOperator made = ReadNewOperator(form);
  EXPECT_EQ(made.number, "12345");
  EXPECT_EQ(made.year, 2017);
  ASSERT_EQ(made.values.size(), std::size(kFields));
  EXPECT_EQ(made.values.front(), (std::pair<std::string, std::string>{"CO_NAME", "x"}));
}

TEST_F(NewOperatorFields, want_a_whole_number_and_a_year_of_four_digits) {
  using Pair = std::pair<std::string, std::string>;
  EXPECT_EQ(UnmetWith("txtUSER_InvYr", "17"),
            (Pair{"Please enter the Inventory Year with four digits", "txtUSER_InvYr"}));
  EXPECT_EQ(UnmetWith("txtUSER_Fax", Masked(kFaxMask, "555")), (Pair{"Not a valid fax number", "txtUSER_Fax"}));
  EXPECT_EQ(UnmetWith("txtUSER_Phone", Masked(kPhoneMask, "555")), (Pair{"Not a valid phone number", "txtUSER_Phone"}));
  EXPECT_EQ(UnmetWith("txtUserID", " "), (Pair{"Please enter your User ID", "txtUserID"}));
}

}  // namespace
}  // namespace merlu::test
