// What a script does with lists that read their rows from a model, with grids, docks and menus that are checked.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <memory>
#include <sstream>

#include "forms/dialog.h"
#include "forms/small_grid.h"
#include "script/player.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class ScriptTables : public testing::Test {
 protected:
  ScriptTables() {
    rows->Set({{"b", "2"}, {"a", "1"}});
    grid->columns = {{"Structure", "Structure"}, {"txtHours", "Hours (hrs)", true}, {"chkOff", "Off"}};
    grid->columns[2].items = {"off", "on"};
    for (const char* key : {"1001/1", "1002/1"}) grid->rows.emplace_back(key, std::vector<GridCell>(3));
    grid->rows[0].second[0] = {"GI, 43, A", true};
  }

  // Plays the lines on a form with a list and a grid; the replies.
  std::vector<Json> Play(const std::string& lines) {
    std::istringstream in(lines);
    std::ostringstream out;
    PlayOptions options;
    options.settings_file = folder.path("settings.ini");
    Player player(in, out, options);
    Desk& desk = player.session().desk;
    Form& form = desk.Own(std::make_unique<Form>("frmTables", "Tables"));
    AddText(form, "txtPlain", "Plain:");
    AddListView(form, "lvwRows", "", {"Name", "Number"}, rows);
    AddGrid(form, "grdCells", "", grid);
    if (change) change(form);
    form.loaded = true;
    desk.Show(form);
    player.Run();
    std::vector<Json> replies;
    std::istringstream replied(out.str());
    for (std::string line; std::getline(replied, line);) replies.push_back(Json::parse(line));
    return replies;
  }

  TemporaryFolder folder;
  std::shared_ptr<RowsModel> rows = std::make_shared<RowsModel>();
  std::shared_ptr<SmallGrid> grid = std::make_shared<SmallGrid>();
  std::function<void(Form&)> change;
};

TEST_F(ScriptTables, read_the_rows_of_a_model_as_those_of_any_list) {
  const auto replies = Play("pick lvwRows 1 0\nget lvwRows\n");
  const Json& list = replies[1]["control"];
  EXPECT_EQ(list["kind"], "listview");
  EXPECT_EQ(list["columns"].dump(), R"(["Name","Number"])");
  EXPECT_EQ(list["rows"].dump(), R"([["b","2"],["a","1"]])");
  EXPECT_EQ(list["picked"].dump(), "[1,0]");
}

TEST_F(ScriptTables, sort_a_list_by_the_name_of_a_head_or_its_number) {
  const auto replies =
      Play("sort lvwRows Name\nget lvwRows\nsort lvwRows 1\nsort lvwRows 1\nget lvwRows\nsort lvwRows X");
  EXPECT_EQ(replies[1]["control"]["rows"][0][0], "a");
  EXPECT_EQ(replies[4]["control"]["rows"][0][1], "2");
  EXPECT_EQ(replies[5]["error"], "lvwRows has no column X");
}

TEST_F(ScriptTables, do_not_go_to_a_list_whose_choice_is_refused) {
  int visits = 0;
  change = [&visits](Form& form) {
    AddList(form, "cmbChoice", "", {"Yes", "No"});
    form.On("cmbChoice", Event::kGotFocus, [&visits] { ++visits; });
  };
  const auto replies = Play("set cmbChoice Maybe\nget cmbChoice\n");
  EXPECT_EQ(replies[0]["error"], "cmbChoice has no item \"Maybe\"");
  EXPECT_EQ(visits, 0);
  EXPECT_TRUE(Play("set cmbChoice No\n")[0]["ok"].get<bool>());
  EXPECT_EQ(visits, 1);
}

TEST_F(ScriptTables, read_a_grid_without_what_is_at_its_default) {
  grid->rows[1].second[1] = {"745", false, Back::kFlag, "31", true, "12", "Out of range"};
  const Json list = Play("get grdCells\n")[0]["control"];
  EXPECT_EQ(list["kind"], "grid");
  const Json columns = {{{"name", "Structure"}, {"caption", "Structure"}},
                        {{"name", "txtHours"}, {"caption", "Hours (hrs)"}, {"numeric", true}},
                        {{"name", "chkOff"}, {"caption", "Off"}, {"items", {"off", "on"}}}};
  EXPECT_EQ(list["columns"], columns);
  const Json none = Json::object();
  const Json first = {{{"text", "GI, 43, A"}, {"locked", true}}, none, none};
  const Json flagged = {{"text", "745"},  {"back", "flag"}, {"was", "31"},
                        {"copied", true}, {"hint", "12"},   {"finding", "Out of range"}};
  const Json second = {none, flagged, none};
  EXPECT_EQ(list["rows"], Json({{{"key", "1001/1"}, {"cells", first}}, {{"key", "1002/1"}, {"cells", second}}}));
}

TEST_F(ScriptTables, type_into_a_cell_by_number_key_or_name) {
  const auto replies = Play(
      "cell grdCells 0 1 12\ncell grdCells 1002/1 chkoff on\ncell grdCells 0 0 x\n"
      "cell grdCells 7 0 x\ncell grdCells 0 txtOther x\ncell lvwRows 0 0 x\n");
  EXPECT_EQ(grid->Cell(0, 1).text, "12");
  EXPECT_EQ(grid->Cell(1, 2).text, "on");
  EXPECT_EQ(replies[2]["error"], "grdCells row 0 of Structure is locked");
  EXPECT_EQ(replies[3]["error"], "grdCells has no row 7");
  EXPECT_EQ(replies[4]["error"], "grdCells has no column txtOther");
  EXPECT_EQ(replies[5]["error"], "lvwRows is not a grid");
}

TEST_F(ScriptTables, a_column_whose_name_is_a_number_goes_by_its_name) {
  grid->columns[1].name = "02";
  const auto replies = Play("cell grdCells 0 02 5\ncell grdCells 0 2 on\ncell grdCells 0 3 5\n");
  EXPECT_EQ(grid->Cell(0, 1).text, "5");
  EXPECT_EQ(grid->Cell(0, 2).text, "on");
  EXPECT_EQ(replies[2]["error"], "grdCells has no column 3");
}

TEST_F(ScriptTables, paste_a_block_with_its_escapes) {
  // in quotes a backslash may be doubled, as in every word
  Play(R"(paste grdCells 1001/1 txtHours "1\ton\n2\\t3"
paste grdCells 0 1 4\n\\n
paste grdCells 0 1 "5\\t6\\n7\\\\n8"
)");
  ASSERT_EQ(grid->pasted.size(), 3U);
  EXPECT_EQ(grid->pasted[0], (GridBlock{{"1", "on"}, {"2", "3"}}));
  EXPECT_EQ(grid->pasted[1], (GridBlock{{"4"}, {"\\n"}}));
  EXPECT_EQ(grid->pasted[2], (GridBlock{{"5", "6"}, {"7\\n8"}}));
}

TEST_F(ScriptTables, pick_and_double_click_rows_and_cells) {
  int clicks = 0;
  change = [&](Form& form) {
    form.On("grdCells", Event::kDoubleClick, [&] { ++clicks; });
    form.On("lvwRows", Event::kDoubleClick, [&] { ++clicks; });
  };
  const auto replies = Play(
      "pick grdCells 1002/1\nget grdCells\ndblclick grdCells 1002/1 txtHours\ndblclick lvwRows 1\n"
      "dblclick lvwRows\ndblclick lvwRows 0 1\ndblclick lvwRows 2\n");
  EXPECT_EQ(replies[1]["control"]["picked"].dump(), "[1]");
  EXPECT_EQ(clicks, 3);
  EXPECT_EQ(replies[5]["error"], "lvwRows is not a grid");
  EXPECT_EQ(replies[6]["error"], "lvwRows has no row 2");
}

TEST_F(ScriptTables, read_what_a_field_says_beside_its_text_when_it_says_something) {
  change = [](Form& form) {
    Control& field = form.At("txtPlain");
    field.hint = "Will be saved as 12";
    field.was = "11";
    field.finding = "Out of range";
    field.copied = true;
  };
  const Json said = Play("get txtPlain\n")[0]["control"];
  EXPECT_EQ(said["hint"], "Will be saved as 12");
  EXPECT_EQ(said["was"], "11");
  EXPECT_EQ(said["finding"], "Out of range");
  EXPECT_EQ(said["copied"], true);
  change = nullptr;
  const Json silent = Play("get txtPlain\n")[0]["control"];
  for (const char* member : {"hint", "was", "finding", "copied"}) EXPECT_FALSE(silent.contains(member)) << member;
}

TEST_F(ScriptTables, read_the_findings_on_each_page_of_a_tab) {
  change = [](Form& form) {
    Control tab;
    tab.kind = Kind::kTab;
    tab.name = "tabPages";
    tab.items = {"One", "Two"};
    form.Add(tab).counts = {2, 0};
  };
  EXPECT_EQ(Play("get tabPages\n")[0]["control"]["counts"].dump(), "[2,0]");
}

TEST_F(ScriptTables, report_no_focus_on_what_cannot_be_seen) {
  change = [](Form& form) { form.focus = "txtPlain"; };
  EXPECT_EQ(Play("session\n")[0]["focus"], "txtPlain");
  change = [](Form& form) {
    form.focus = "txtPlain";
    form.At("txtPlain").visible = false;
  };
  EXPECT_EQ(Play("session\n")[0]["focus"], "");
}

TEST(ScriptJson, tells_the_detail_of_a_box_and_hidden_nodes) {
  Box box;
  box.text = "In use.";
  EXPECT_FALSE(BoxJson(box, Button::kOK).contains("detail"));
  box.detail = "Opened by anna.";
  EXPECT_EQ(BoxJson(box, Button::kOK)["detail"], "Opened by anna.");
  Tree tree;
  tree.Add("", "1", "one");
  tree.Add("", "2", "two");
  tree.nodes[1].hidden = true;
  const Json nodes = TreeJson(tree);
  EXPECT_FALSE(nodes[0].contains("hidden"));
  EXPECT_EQ(nodes[1]["hidden"], true);
}

TEST(ScriptLeave, answers_and_ends_the_process_without_ending_the_edit) {
  const TemporaryFolder folder;
  const auto leave = [&] {
    std::istringstream in("forms\nleave\nforms\n");
    std::ofstream out(folder.path("replies"));
    PlayOptions options;
    options.settings_file = folder.path("settings.ini");
    Player(in, out, options).Run();
  };
  EXPECT_EXIT(leave(), testing::ExitedWithCode(0), "");
  std::ifstream replies(folder.path("replies"));
  std::vector<std::string> lines;
  for (std::string line; std::getline(replies, line);) lines.push_back(line);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(Json::parse(lines[1])["cmd"], "leave");
}

}  // namespace
}  // namespace merlu::test
