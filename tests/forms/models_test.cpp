#include <gtest/gtest.h>

#include "forms/grid_model.h"
#include "forms/list_model.h"
#include "forms/small_grid.h"

namespace merlu {
namespace {

std::vector<std::string> Column(const ListModel& model, int column) {
  std::vector<std::string> texts;
  for (int row = 0; row < model.RowCount(); ++row) texts.push_back(model.Text(row, column));
  return texts;
}

using Texts = std::vector<std::string>;

TEST(RowsModel, shows_its_rows_in_the_order_of_their_setting) {
  RowsModel model;
  const std::uint64_t before = model.Revision();
  model.Set({{"b", "2"}, {"a"}});
  EXPECT_GT(model.Revision(), before);
  EXPECT_EQ(Column(model, 0), (Texts{"b", "a"}));
  EXPECT_EQ(Column(model, 1), (Texts{"2", ""}));
}

TEST(RowsModel, sorts_numbers_by_value_before_texts_without_regard_to_case) {
  RowsModel model;
  model.Set({{"nan"}, {"b"}, {"10"}, {""}, {"A"}, {"9.5"}, {"-1"}, {"a"}});
  model.Sort(0, false);
  EXPECT_EQ(Column(model, 0), (Texts{"-1", "9.5", "10", "", "A", "a", "b", "nan"}));
  model.Sort(0, true);
  EXPECT_EQ(Column(model, 0), (Texts{"nan", "b", "A", "a", "", "10", "9.5", "-1"}));
}

TEST(RowsModel, tells_where_a_sorted_row_came_from) {
  RowsModel model;
  model.Set({{"c"}, {"a"}, {"b"}});
  const std::uint64_t before = model.Revision();
  model.Sort(0, false);
  EXPECT_GT(model.Revision(), before);
  EXPECT_EQ(model.Origin(0), 1U);
  EXPECT_EQ(model.At(2), (Texts{"c"}));
  model.Set({{"z"}});
  EXPECT_EQ(Column(model, 0), (Texts{"z"}));
}

TEST(CellsOf, parts_a_block_at_tabs_and_line_ends) {
  EXPECT_EQ(CellsOf("1\t2\n3\t4"), (GridBlock{{"1", "2"}, {"3", "4"}}));
  EXPECT_EQ(CellsOf("1\t2\r\n3\t4\r\n"), (GridBlock{{"1", "2"}, {"3", "4"}}));
  EXPECT_EQ(CellsOf("1\r2"), (GridBlock{{"1"}, {"2"}}));
  EXPECT_EQ(CellsOf("1\n"), (GridBlock{{"1"}}));
  EXPECT_EQ(CellsOf("\t1\n\n2"), (GridBlock{{"", "1"}, {""}, {"2"}}));
  EXPECT_EQ(CellsOf(""), (GridBlock{{""}}));
}

TEST(CellsOf, takes_a_cell_in_quotes_as_a_spreadsheet_writes_it) {
  EXPECT_EQ(CellsOf("\"a\nb\"\t\"say \"\"so\"\"\"\nc"), (GridBlock{{"a\nb", "say \"so\""}, {"c"}}));
}

TEST(CellsOf, leaves_other_quotes_as_they_are) {
  EXPECT_EQ(CellsOf("\"a\" b\t\"c"), (GridBlock{{"\"a\" b", "\"c"}}));
  EXPECT_EQ(CellsOf("5\" pipe"), (GridBlock{{"5\" pipe"}}));
}

// . is open, # is locked
test::SmallGrid Grid(const Texts& rows) {
  test::SmallGrid grid;
  for (std::size_t column = 0; column < rows.front().size(); ++column)
    grid.columns.push_back({std::string(1, static_cast<char>('a' + column)), ""});
  for (std::size_t row = 0; row < rows.size(); ++row) {
    auto& cells = grid.rows.emplace_back("r" + std::to_string(row), std::vector<GridCell>{}).second;
    for (const char mark : rows[row]) cells.emplace_back().locked = mark == '#';
  }
  return grid;
}

std::pair<int, int> Next(const GridModel& grid, int row, int column, GridStep step) {
  const GridPlace place = NextOpenCell(grid, {row, column}, step);
  return {place.row, place.column};
}

TEST(NextOpenCell, goes_down_the_column_past_what_is_locked) {
  const auto grid = Grid({"..", "#.", "#.", ".."});
  EXPECT_EQ(Next(grid, 0, 0, GridStep::kDown), std::pair(3, 0));
  EXPECT_EQ(Next(grid, 3, 0, GridStep::kUp), std::pair(0, 0));
  EXPECT_EQ(Next(grid, 3, 1, GridStep::kDown), std::pair(3, 1));
}

TEST(NextOpenCell, goes_along_the_row_and_on_to_the_next_one) {
  const auto grid = Grid({".#.", "##.", "..#"});
  EXPECT_EQ(Next(grid, 0, 0, GridStep::kRight), std::pair(0, 2));
  EXPECT_EQ(Next(grid, 0, 2, GridStep::kRight), std::pair(1, 2));
  EXPECT_EQ(Next(grid, 1, 2, GridStep::kRight), std::pair(2, 0));
  EXPECT_EQ(Next(grid, 2, 1, GridStep::kRight), std::pair(2, 1));
  EXPECT_EQ(Next(grid, 2, 0, GridStep::kLeft), std::pair(1, 2));
  EXPECT_EQ(Next(grid, 0, 0, GridStep::kLeft), std::pair(0, 0));
}

TEST(GridModel, finds_rows_by_key_and_columns_by_name) {
  const auto grid = Grid({"..", ".."});
  EXPECT_EQ(grid.FindRow("r1"), 1);
  EXPECT_EQ(grid.FindRow("r2"), -1);
  EXPECT_EQ(grid.FindColumn("B"), 1);
  EXPECT_EQ(grid.FindColumn("c"), -1);
}

}  // namespace
}  // namespace merlu
