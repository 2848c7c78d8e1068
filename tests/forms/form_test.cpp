#include "forms/form.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "forms/dialog.h"

namespace merlu {
namespace {

constexpr const char* kPhone = "(###) ### - #### ext ####";
constexpr const char* kFax = "(###) ### - ####";

TEST(Masked, without_digits_shows_a_line_in_every_place) {
  EXPECT_EQ(Masked(kPhone, ""), "(___) ___ - ____ ext ____");
  EXPECT_EQ(Masked(kFax, "no digit"), "(___) ___ - ____");
}

TEST(Masked, fills_the_places_from_the_left_with_the_digits_of_the_text) {
  EXPECT_EQ(Masked(kFax, "5551234567"), "(555) 123 - 4567");
  EXPECT_EQ(Masked(kFax, "555-123"), "(555) 123 - ____");
  EXPECT_EQ(Masked(kPhone, "5551234567 x 89"), "(555) 123 - 4567 ext 89__");
}

TEST(Masked, drops_the_digits_that_find_no_place) {
  EXPECT_EQ(Masked(kFax, "55512345678901"), "(555) 123 - 4567");
}

TEST(Masked, leaves_out_the_country_of_a_whole_number_and_finds_its_extension) {
  EXPECT_EQ(Masked(kPhone, "+1 (713) 555-0199 x12"), "(713) 555 - 0199 ext 12__");
  EXPECT_EQ(Masked(kPhone, "1-713-555-0199 ext. 12345"), "(713) 555 - 0199 ext 1234");
  EXPECT_EQ(Masked(kPhone, "555-1234 x12"), "(555) 123 - 4___ ext 12__");
  EXPECT_EQ(Masked(kPhone, "(180) 055 - 5123 ext 4___"), "(180) 055 - 5123 ext 4___");
  EXPECT_EQ(Masked(kFax, "+1 (713) 555-0199 x12"), "(713) 555 - 0199");
  EXPECT_EQ(Masked(kFax, "17135550199"), "(713) 555 - 0199");
}

TEST(Masked, holds_only_texts_of_its_form) {
  EXPECT_TRUE(FitsMask(kFax, "(713) 555 - 01__"));
  EXPECT_FALSE(FitsMask(kFax, "713-555-0199"));
  EXPECT_FALSE(FitsMask(kPhone, "(713) 555 - 0199"));
  EXPECT_FALSE(FitsMask(kFax, ""));
}

TEST(Masked, reads_its_own_text_back_unchanged) {
  const std::string shown = Masked(kPhone, "55512345678901");
  EXPECT_EQ(Masked(kPhone, shown), shown);
}

TEST(Form, finds_a_control_without_regard_to_case) {
  Form form("frmX", "X");
  AddText(form, "txtName", "Name:");
  EXPECT_EQ(form.Find("TXTNAME"), &form.At("txtName"));
  EXPECT_EQ(form.Find("txtOther"), nullptr);
  EXPECT_THROW(form.At("txtOther"), std::logic_error);
}

TEST(Form, refuses_two_controls_whose_names_differ_in_case_only) {
  Form form("frmX", "X");
  AddText(form, "txtName", "Name:");
  EXPECT_THROW(AddText(form, "TxtNAME", "Name:"), std::logic_error);
}

TEST(Form, makes_every_page_of_a_new_tab_available_and_shows_the_first) {
  Form form("frmX", "X");
  Control tab;
  tab.kind = Kind::kTab;
  tab.name = "tabX";
  tab.items = {"General Information", "QC Results"};
  form.Add(tab);
  EXPECT_EQ(form.At("tabX").page_available, (std::vector<bool>{true, true}));
  EXPECT_EQ(form.At("tabX").index, 0);
}

TEST(Form, runs_the_handler_of_the_event_that_is_raised_and_no_other) {
  Form form("frmX", "X");
  AddButton(form, "cmdOK", "OK");
  AddButton(form, "cmdCANCEL", "Cancel");
  int clicks = 0, doubles = 0;
  form.On("CMDOK", Event::kClick, [&] { ++clicks; });
  form.On("cmdOK", Event::kDoubleClick, [&] { ++doubles; });
  form.Raise("cmdok", Event::kClick);
  form.Raise("cmdCANCEL", Event::kClick);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(doubles, 0);
  EXPECT_TRUE(form.Handles("cmdOK", Event::kClick));
  EXPECT_FALSE(form.Handles("cmdCANCEL", Event::kClick));
}

TEST(Form, replaces_a_handler_by_a_later_one) {
  Form form("frmX", "X");
  AddButton(form, "cmdOK", "OK");
  int first = 0, second = 0;
  form.On("cmdOK", Event::kClick, [&] { ++first; });
  form.On("cmdOK", Event::kClick, [&] { ++second; });
  form.Raise("cmdOK", Event::kClick);
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
}

TEST(Form, puts_back_its_design_state_and_forgets_the_focus) {
  Form form("frmX", "X");
  AddText(form, "txtName", "Name:").text = "preset";
  form.KeepDesign();
  form.At("txtName").text = "typed";
  form.At("txtName").locked = true;
  form.focus = "txtName";
  form.RestoreDesign();
  EXPECT_EQ(form.At("txtName").text, "preset");
  EXPECT_FALSE(form.At("txtName").locked);
  EXPECT_EQ(form.focus, "");
}

class ListForm : public testing::Test {
 protected:
  ListForm() {
    AddList(form, "cmbFuel", "Fuel:", {"Gas", "Diesel"});
    form.On("cmbFuel", Event::kClick, [this] { ++clicks; });
  }
  Form form{"frmX", "X"};
  int clicks = 0;
};

TEST_F(ListForm, raises_the_click_when_code_selects_an_item) {
  SelectItem(form, "cmbFuel", 1);
  EXPECT_EQ(form.At("cmbFuel").text, "Diesel");
  EXPECT_EQ(form.At("cmbFuel").index, 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListForm, selects_nothing_and_raises_nothing_for_an_index_that_it_lacks) {
  SelectItem(form, "cmbFuel", 0);
  for (int index : {-1, 2, 99}) {
    SelectItem(form, "cmbFuel", index);
    EXPECT_EQ(form.At("cmbFuel").text, "") << index;
    EXPECT_EQ(form.At("cmbFuel").index, -1) << index;
  }
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListForm, selects_the_item_that_equals_the_text_letter_by_letter) {
  SelectText(form, "cmbFuel", "Diesel");
  EXPECT_EQ(form.At("cmbFuel").index, 1);
  SelectText(form, "cmbFuel", "diesel");
  EXPECT_EQ(form.At("cmbFuel").index, -1);
  EXPECT_EQ(form.At("cmbFuel").text, "");
}

TEST_F(ListForm, keeps_a_free_text_that_is_no_item_when_the_list_takes_one) {
  form.At("cmbFuel").free_text = true;
  SelectText(form, "cmbFuel", "Steam");
  EXPECT_EQ(form.At("cmbFuel").text, "Steam");
  EXPECT_EQ(form.At("cmbFuel").index, -1);
  EXPECT_EQ(clicks, 0);
}

}  // namespace
}  // namespace merlu
