// The cells of a grid, read by row and column where they are kept, and changed there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace merlu {

struct GridColumn {
  std::string name;
  std::string caption;
  bool numeric = false;
  std::vector<std::string> items{};  // a choice; empty for a text
  bool free_text = false;            // the choice takes texts that are no item
  int limit = 0;                     // most characters that can be typed, 0 for no limit
  std::string unit{};                // of the numbers, empty where they have none
};

// The meaning of a cell beside its text; front ends derive colours from it.
enum class Tone { kPlain, kGood, kLook, kStop, kQuiet };

struct GridCell {
  std::string text;
  bool locked = false;
  Back back = Back::kWindow;
  std::string was{};      // the month before
  bool copied = false;    // taken over and not yet confirmed
  std::string hint{};     // what a save will make of the text
  std::string finding{};  // text of its finding
  Tone tone = Tone::kPlain;
};

using GridBlock = std::vector<std::vector<std::string>>;  // rows of cells

class GridModel {
 public:
  virtual ~GridModel() = default;
  virtual const std::vector<GridColumn>& Columns() const = 0;
  virtual int RowCount() const = 0;
  virtual std::string RowKey(int row) const = 0;
  // First columns that stay in view while the others scroll.
  virtual int FixedColumns() const { return 0; }
  virtual GridCell Cell(int row, int column) const = 0;
  // Grows with every change of cells, and with every change of rows or columns.
  virtual std::uint64_t Revision() const = 0;
  virtual std::uint64_t Shape() const = 0;
  // The text was typed into an open cell, which is left.
  virtual void SetCell(int row, int column, const std::string& text) = 0;
  // Pastes a block with its first cell at that place; the model decides what happens to each cell.
  virtual void Paste(int row, int column, const GridBlock& block) = 0;
  // The row of that key, -1 without one.
  virtual int FindRow(std::string_view key) const;
  // The column of that name, without regard to case, -1 without one.
  int FindColumn(std::string_view name) const;
};

// The cells of a text that was copied from a spreadsheet: tabs part columns, line ends rows, a cell in double
// quotes may hold both. The end of the last line makes no row.
GridBlock CellsOf(std::string_view text);

enum class GridStep { kDown, kUp, kRight, kLeft };

struct GridPlace {
  int row = -1, column = -1;
};

// The next open cell from there: Enter moves down the column, Tab along the row and on to the next one. The same place
// when there is none.
GridPlace NextOpenCell(const GridModel& grid, GridPlace from, GridStep step);

}  // namespace merlu
