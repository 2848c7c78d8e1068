#include "forms/desk.h"

#include <gtest/gtest.h>

#include "forms/dialog.h"
#include "forms/small_grid.h"
#include "support/test_run.h"

namespace merlu {
namespace {

// A window with two sheets that lie on top of one another, a tab of two pages, and fields of every kind.
class Window : public testing::Test {
 protected:
  Window() {
    Add(Kind::kFrame, "fraA");
    Add(Kind::kFrame, "fraB");
    Control& tab = Add(Kind::kTab, "tabA", "fraA");
    tab.items = {"General Information", "QC Results"};
    tab.page_available = {true, true};
    tab.index = 0;
    Add(Kind::kFrame, "fraGroup", "tabA");
    Add(Kind::kText, "txtName", "fraGroup").limit = 3;
    Control& phone = Add(Kind::kMasked, "txtPhone", "tabA");
    phone.mask = "(###) ### - ####";
    Add(Kind::kList, "cmbFuel", "tabA").items = {"Gas", "Diesel"};
    Add(Kind::kCheck, "chkStatus", "tabA");
    Add(Kind::kOption, "optYes", "tabA");
    Add(Kind::kOption, "optNo", "tabA");
    Add(Kind::kOption, "optElsewhere", "fraB");
    Add(Kind::kButton, "cmdRun", "");
    Add(Kind::kLabel, "lblText", "");
    Control& list = Add(Kind::kListView, "lvwResults", "tabA");
    list.page = 1;
    list.rows = {{"a", "b", "c"}, {"d", "e", "f"}};
    window.front = "fraA";
    window.loaded = true;
    desk.Show(window);
  }

  Control& Add(Kind kind, const std::string& name, const std::string& parent = "") {
    Control control;
    control.kind = kind;
    control.name = name;
    control.parent = parent;
    return window.Add(control);
  }
  std::string Why(const std::string& name, bool changes = true) {
    return WhyNot(desk, window, window.At(name), changes);
  }
  void Count(const std::string& name, Event event, int& count) {
    window.On(name, event, [&count] { ++count; });
  }

  Desk desk;
  Form& window = desk.Own(std::make_unique<Form>("frmWindow", "Window"));
};

TEST_F(Window, lets_a_user_act_on_what_shows_and_is_enabled) {
  for (const char* name : {"txtName", "txtPhone", "cmbFuel", "chkStatus", "optYes", "cmdRun", "lvwResults", "tabA"})
    EXPECT_EQ(Why(name), "") << name;
}

TEST_F(Window, refuses_everything_while_it_is_not_showing) {
  desk.Hide(window);
  EXPECT_FALSE(window.visible);
  for (const char* name : {"txtName", "cmdRun", "tabA"}) EXPECT_EQ(Why(name), "is not on the screen") << name;
}

TEST_F(Window, refuses_everything_under_a_dialog_and_nothing_when_it_is_gone) {
  Form& dialog = desk.Own(std::make_unique<Form>("frmDialog", "Dialog"));
  AddButton(dialog, "cmdOK", "OK");
  dialog.modal = true;
  desk.Show(dialog);
  EXPECT_EQ(desk.Dialog(), &dialog);
  EXPECT_EQ(Why("cmdRun"), "is not on the screen");
  EXPECT_EQ(WhyNot(desk, dialog, dialog.At("cmdOK"), true), "");
  desk.Hide(dialog);
  EXPECT_EQ(desk.Dialog(), nullptr);
  EXPECT_EQ(Why("cmdRun"), "");
}

TEST_F(Window, refuses_what_stands_on_the_sheet_behind) {
  EXPECT_EQ(Why("optElsewhere"), "is not on the screen");
  window.front = "fraB";
  EXPECT_EQ(Why("optElsewhere"), "");
  EXPECT_EQ(Why("txtName"), "is not on the screen");
}

TEST_F(Window, refuses_the_front_sheet_s_fields_while_the_sheets_are_out_of_sight) {
  window.At("fraA").visible = false;
  EXPECT_EQ(Why("txtName"), "is not on the screen");
  EXPECT_EQ(Why("cmdRun"), "");
}

TEST_F(Window, tells_a_hidden_control_and_one_in_a_hidden_frame) {
  window.At("cmdRun").visible = false;
  EXPECT_EQ(Why("cmdRun"), "is hidden");
  window.At("fraGroup").visible = false;
  EXPECT_EQ(Why("txtName"), "is hidden");
  EXPECT_FALSE(IsVisible(window, window.At("txtName")));
  EXPECT_TRUE(window.At("txtName").visible);
}

TEST_F(Window, tells_a_disabled_control_and_one_in_a_disabled_frame) {
  window.At("cmdRun").enabled = false;
  EXPECT_EQ(Why("cmdRun"), "is disabled");
  window.At("fraGroup").enabled = false;
  EXPECT_EQ(Why("txtName"), "is disabled");
  EXPECT_FALSE(IsEnabled(window, window.At("txtName")));
}

TEST_F(Window, refuses_what_stands_on_a_page_that_is_not_available) {
  EXPECT_EQ(Why("lvwResults"), "");
  window.At("tabA").page_available = {true, false};
  EXPECT_EQ(Why("lvwResults"), "is not on the screen");
  EXPECT_EQ(Why("txtName"), "");
}

TEST_F(Window, holds_a_lock_against_changes_of_fields_only) {
  for (const char* name : {"txtName", "txtPhone", "cmbFuel"}) {
    window.At(name).locked = true;
    EXPECT_EQ(Why(name), "is locked") << name;
    EXPECT_EQ(Why(name, false), "") << name;
  }
  window.At("cmdRun").locked = window.At("chkStatus").locked = true;
  EXPECT_EQ(Why("cmdRun"), "");
  EXPECT_EQ(Why("chkStatus"), "");
}

TEST_F(Window, replaces_a_text_by_what_its_limit_lets_through) {
  EXPECT_EQ(act::Type(desk, window, "txtName", "abcdef"), "");
  EXPECT_EQ(window.At("txtName").text, "abc");
  EXPECT_EQ(act::Type(desk, window, "txtName", "ÄÖÜß"), "");
  EXPECT_EQ(window.At("txtName").text, "ÄÖÜ");
  window.At("txtName").limit = 0;
  EXPECT_EQ(act::Type(desk, window, "txtName", "abcdef"), "");
  EXPECT_EQ(window.At("txtName").text, "abcdef");
}

TEST_F(Window, puts_the_typed_digits_into_the_places_of_the_mask) {
  EXPECT_EQ(act::Type(desk, window, "txtPhone", "(55) 5"), "");
  EXPECT_EQ(window.At("txtPhone").text, "(555) ___ - ____");
}

TEST_F(Window, keeps_the_text_of_a_field_that_refuses) {
  window.At("txtName").text = "old";
  window.At("txtName").locked = true;
  EXPECT_EQ(act::Type(desk, window, "txtName", "new"), "is locked");
  EXPECT_EQ(window.At("txtName").text, "old");
}

TEST_F(Window, takes_only_items_of_a_list_unless_it_takes_free_texts) {
  int clicks = 0;
  Count("cmbFuel", Event::kClick, clicks);
  EXPECT_EQ(act::Choose(desk, window, "cmbFuel", "Diesel"), "");
  EXPECT_EQ(act::Choose(desk, window, "cmbFuel", "Steam"), "has no item \"Steam\"");
  EXPECT_EQ(window.At("cmbFuel").text, "Diesel");
  EXPECT_EQ(clicks, 1);
  window.At("cmbFuel").free_text = true;
  EXPECT_EQ(act::Choose(desk, window, "cmbFuel", "Steam"), "");
  EXPECT_EQ(window.At("cmbFuel").text, "Steam");
}

TEST_F(Window, raises_the_click_of_a_check_box_only_when_it_changes) {
  int clicks = 0;
  Count("chkStatus", Event::kClick, clicks);
  EXPECT_EQ(act::Check(desk, window, "chkStatus", false), "");
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(act::Check(desk, window, "chkStatus", true), "");
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(act::Click(desk, window, "chkStatus"), "");
  EXPECT_FALSE(window.At("chkStatus").checked);
  EXPECT_EQ(clicks, 2);
}

TEST_F(Window, turns_off_the_other_options_of_the_same_frame) {
  window.At("optNo").checked = window.At("optElsewhere").checked = true;
  EXPECT_EQ(act::Click(desk, window, "optYes"), "");
  EXPECT_TRUE(window.At("optYes").checked);
  EXPECT_FALSE(window.At("optNo").checked);
  EXPECT_TRUE(window.At("optElsewhere").checked);
}

TEST_F(Window, clicks_buttons_and_refuses_to_click_fields_and_labels) {
  int clicks = 0;
  Count("cmdRun", Event::kClick, clicks);
  EXPECT_EQ(act::Click(desk, window, "cmdRun"), "");
  EXPECT_EQ(clicks, 1);
  for (const char* name : {"txtName", "cmbFuel", "lblText", "fraA"})
    EXPECT_EQ(act::Click(desk, window, name), "cannot be clicked") << name;
  window.At("cmdRun").enabled = false;
  EXPECT_EQ(act::Click(desk, window, "cmdRun"), "is disabled");
  EXPECT_EQ(clicks, 1);
}

TEST_F(Window, turns_to_a_page_that_is_available_and_tells_the_others_by_name) {
  int clicks = 0;
  Count("tabA", Event::kClick, clicks);
  EXPECT_EQ(act::Page(desk, window, "tabA", 1), "");
  EXPECT_EQ(window.At("tabA").index, 1);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(act::Page(desk, window, "tabA", 2), "has no page 2");
  EXPECT_EQ(act::Page(desk, window, "tabA", -1), "has no page -1");
  window.At("tabA").page_available = {false, true};
  EXPECT_EQ(act::Page(desk, window, "tabA", 0), "page \"General Information\" is disabled");
  EXPECT_EQ(window.At("tabA").index, 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(Window, picks_rows_that_exist_and_none_at_all) {
  EXPECT_EQ(act::Pick(desk, window, "lvwResults", {1}), "");
  EXPECT_EQ(window.At("lvwResults").picked, std::vector<int>{1});
  EXPECT_EQ(act::Pick(desk, window, "lvwResults", {2}), "has no row 2");
  EXPECT_EQ(act::Pick(desk, window, "lvwResults", {-1}), "has no row -1");
  EXPECT_EQ(window.At("lvwResults").picked, std::vector<int>{1});
  EXPECT_EQ(act::Pick(desk, window, "lvwResults", {}), "");
  EXPECT_TRUE(window.At("lvwResults").picked.empty());
}

TEST_F(Window, picks_several_rows_only_where_several_can_be_chosen_and_none_twice) {
  EXPECT_EQ(act::Pick(desk, window, "lvwResults", {0, 1}), "takes one row at a time");
  EXPECT_TRUE(window.At("lvwResults").picked.empty());
  window.At("lvwResults").many = true;
  EXPECT_EQ(act::Pick(desk, window, "lvwResults", {1, 0, 1}), "");
  EXPECT_EQ(window.At("lvwResults").picked, (std::vector<int>{1, 0}));
}

TEST_F(Window, raises_focus_events_of_a_field_that_is_locked_but_not_of_one_that_is_disabled) {
  int got = 0, lost = 0;
  Count("txtName", Event::kGotFocus, got);
  Count("txtName", Event::kLostFocus, lost);
  window.At("txtName").locked = true;
  EXPECT_EQ(act::GotFocus(desk, window, "txtName"), "");
  EXPECT_EQ(act::LostFocus(desk, window, "txtName"), "");
  window.At("txtName").enabled = false;
  EXPECT_EQ(act::GotFocus(desk, window, "txtName"), "is disabled");
  EXPECT_EQ(act::LostFocus(desk, window, "txtName"), "is disabled");
  EXPECT_EQ(got, 1);
  EXPECT_EQ(lost, 1);
}

TEST_F(Window, raises_the_double_click_of_a_list) {
  int doubles = 0;
  Count("lvwResults", Event::kDoubleClick, doubles);
  EXPECT_EQ(act::DoubleClick(desk, window, "lvwResults"), "");
  window.At("lvwResults").enabled = false;
  EXPECT_EQ(act::DoubleClick(desk, window, "lvwResults"), "is disabled");
  EXPECT_EQ(doubles, 1);
}

TEST(Desk, shows_a_form_on_top_and_once) {
  Desk desk;
  Form& a = desk.Own(std::make_unique<Form>("frmA", "A"));
  Form& b = desk.Own(std::make_unique<Form>("frmB", "B"));
  desk.Show(a);
  desk.Show(b);
  desk.Show(a);
  EXPECT_EQ(desk.showing, (std::vector<Form*>{&b, &a}));
  desk.Hide(b);
  desk.Hide(b);
  EXPECT_EQ(desk.showing, std::vector<Form*>{&a});
}

TEST(Desk, shows_a_sheet_below_the_open_dialogs) {
  Desk desk;
  const auto make = [&](const char* name) -> Form& { return desk.Own(std::make_unique<Form>(name, name)); };
  Form &main = make("frmMain"), &dialog = make("frmDialog"), &question = make("frmQuestion"), &sheet = make("frmSheet");
  dialog.modal = question.modal = true;
  for (Form* form : {&main, &dialog, &question, &sheet}) desk.Show(*form);
  EXPECT_EQ(desk.showing, (std::vector<Form*>{&main, &sheet, &dialog, &question}));
  EXPECT_EQ(desk.Dialog(), &question);
}

TEST(Desk, finds_forms_that_do_not_show) {
  Desk desk;
  Form& a = desk.Own(std::make_unique<Form>("frmA", "A"));
  EXPECT_EQ(desk.Find("FRMa"), &a);
  EXPECT_EQ(desk.Find("frmB"), nullptr);
}

// A list that reads its rows from a model, and a grid, beside one another.
class Tables : public testing::Test {
 protected:
  Tables() {
    rows->Set({{"b", "2"}, {"a", "1"}, {"c", "3"}});
    grid->columns = {{"Structure", "Structure"}, {"txtHours", "Hours", true}, {"chkOff", "Off"}};
    grid->columns[1].limit = 4;
    grid->columns[2].items = {"off", "on"};
    for (const char* key : {"k1", "k2"}) grid->rows.emplace_back(key, std::vector<GridCell>(3));
    for (auto& row : grid->rows) row.second[0].locked = true;
    AddListView(form, "lvwRows", "", {"Name", "Number"}, rows);
    AddListView(form, "lvwPlain", "", {"Name"}).rows = {{"x"}};
    AddGrid(form, "grdCells", "", grid);
    form.loaded = true;
    desk.Show(form);
  }
  Control& At(const std::string& name) { return form.At(name); }

  Desk desk;
  Form& form = desk.Own(std::make_unique<Form>("frmTables", "Tables"));
  std::shared_ptr<RowsModel> rows = std::make_shared<RowsModel>();
  std::shared_ptr<test::SmallGrid> grid = std::make_shared<test::SmallGrid>();
};

TEST_F(Tables, count_the_rows_of_the_model) {
  EXPECT_EQ(RowCount(At("lvwRows")), 3);
  EXPECT_EQ(RowCount(At("lvwPlain")), 1);
  EXPECT_EQ(RowCount(At("grdCells")), 2);
}

TEST_F(Tables, pick_several_rows_that_the_model_has) {
  EXPECT_EQ(act::Pick(desk, form, "lvwRows", {2, 0, 2}), "");
  EXPECT_EQ(At("lvwRows").picked, (std::vector<int>{2, 0}));
  EXPECT_EQ(act::Pick(desk, form, "lvwRows", {3}), "has no row 3");
  EXPECT_EQ(act::Pick(desk, form, "grdCells", {0, 1}), "");
  EXPECT_EQ(act::Pick(desk, form, "grdCells", {2}), "has no row 2");
}

TEST_F(Tables, sort_by_a_head_and_the_other_way_round_at_the_next_click) {
  At("lvwRows").picked = {1};
  EXPECT_EQ(act::Sort(desk, form, "lvwRows", 0), "");
  EXPECT_EQ(rows->Text(0, 0), "a");
  EXPECT_TRUE(At("lvwRows").picked.empty());
  EXPECT_EQ(act::Sort(desk, form, "lvwRows", 0), "");
  EXPECT_EQ(rows->Text(0, 0), "c");
  EXPECT_EQ(act::Sort(desk, form, "lvwRows", 1), "");
  EXPECT_EQ(rows->Text(0, 1), "1");
  EXPECT_EQ(act::Sort(desk, form, "lvwRows", 2), "has no column 2");
  EXPECT_EQ(act::Sort(desk, form, "lvwPlain", 0), "cannot be sorted");
}

TEST_F(Tables, double_click_the_row_or_the_cell_that_is_named) {
  int clicks = 0;
  form.On("lvwRows", Event::kDoubleClick, [&] { ++clicks; });
  form.On("grdCells", Event::kDoubleClick, [&] { ++clicks; });
  EXPECT_EQ(act::DoubleClick(desk, form, "lvwRows", 1), "");
  EXPECT_EQ(At("lvwRows").picked, (std::vector<int>{1}));
  EXPECT_EQ(act::DoubleClick(desk, form, "grdCells", 1, 2), "");
  EXPECT_EQ(At("grdCells").at_row, 1);
  EXPECT_EQ(At("grdCells").at_column, 2);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(act::DoubleClick(desk, form, "grdCells", 1, 3), "has no column 3");
  EXPECT_EQ(act::DoubleClick(desk, form, "lvwRows", 3), "has no row 3");
  EXPECT_EQ(clicks, 2);
}

TEST_F(Tables, type_into_open_cells_what_their_column_takes) {
  EXPECT_EQ(act::TypeCell(desk, form, "grdCells", 0, 1, "12345"), "");
  EXPECT_EQ(grid->Cell(0, 1).text, "1234");
  EXPECT_EQ(act::TypeCell(desk, form, "grdCells", 0, 0, "x"), "row 0 of Structure is locked");
  EXPECT_EQ(act::TypeCell(desk, form, "grdCells", 1, 2, "ON"), "has no item \"ON\"");
  EXPECT_EQ(act::TypeCell(desk, form, "grdCells", 1, 2, "on"), "");
  EXPECT_EQ(grid->Cell(1, 2).text, "on");
  EXPECT_EQ(act::TypeCell(desk, form, "lvwRows", 0, 0, "x"), "is not a grid");
}

TEST_F(Tables, hear_when_another_cell_is_in_hand) {
  int moves = 0;
  form.On("grdCells", Event::kMoved, [&] { ++moves; });
  EXPECT_EQ(act::GoToCell(desk, form, "grdCells", 0, 1), "");
  EXPECT_EQ(act::GoToCell(desk, form, "grdCells", 0, 1), "");
  EXPECT_EQ(moves, 1);
  EXPECT_EQ(act::GoToCell(desk, form, "grdCells", 0, 2), "");
  EXPECT_EQ(moves, 2);
}

TEST_F(Tables, hear_every_pick_of_a_row_and_of_none) {
  std::vector<std::vector<int>> heard;
  form.On("lvwRows", Event::kMoved, [&] { heard.push_back(At("lvwRows").picked); });
  EXPECT_EQ(act::Pick(desk, form, "lvwRows", {1}), "");
  rows->Set({{"d", "4"}, {"e", "5"}});
  At("lvwRows").picked.clear();
  EXPECT_EQ(act::Pick(desk, form, "lvwRows", {1}), "");
  EXPECT_EQ(act::Pick(desk, form, "lvwRows", {}), "");
  At("lvwRows").picked = {0};  // as a dialog opens
  EXPECT_EQ(act::Pick(desk, form, "lvwRows", {}), "");
  EXPECT_EQ(heard, (std::vector<std::vector<int>>{{1}, {1}, {}, {}}));
}

TEST_F(Tables, paste_a_block_at_a_cell) {
  EXPECT_EQ(act::Paste(desk, form, "grdCells", 0, 1, "1\ton\n2"), "");
  ASSERT_EQ(grid->pasted.size(), 1U);
  EXPECT_EQ(grid->pasted[0], (GridBlock{{"1", "on"}, {"2"}}));
  EXPECT_EQ(grid->pasted_at.column, 1);
  form.At("grdCells").enabled = false;
  EXPECT_EQ(act::Paste(desk, form, "grdCells", 0, 1, "1"), "is disabled");
  EXPECT_EQ(grid->pasted.size(), 1U);
}

TEST(Desk, looks_names_up_in_the_dialog_the_sheet_the_docks_and_the_main_form) {
  Desk desk;
  const auto make = [&](const char* name) -> Form& { return desk.Own(std::make_unique<Form>(name, name)); };
  Form &main = make("frmMain"), &sheet = make("frmSheet"), &dock = make("frmDock"), &dialog = make("frmDialog");
  dock.dock = "mnuDock";
  dialog.modal = true;
  for (Form* form : {&main, &sheet, &dialog, &dock}) desk.Show(*form);
  EXPECT_EQ(desk.showing, (std::vector<Form*>{&dock, &main, &sheet, &dialog}));
  EXPECT_EQ(desk.LookUpOrder(&main), (std::vector<Form*>{&dialog, &sheet, &dock, &main}));
  desk.Hide(dialog);
  desk.Hide(sheet);
  EXPECT_EQ(desk.LookUpOrder(&main), (std::vector<Form*>{&dock, &main}));
}

}  // namespace
}  // namespace merlu
