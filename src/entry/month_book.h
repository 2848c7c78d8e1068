// The month workbook of an inventory: filling one, and planning what a workbook that was filled in would change.
#pragma once

#include <string>
#include <vector>

#include "entry/month_grid.h"
#include "exchange/month_workbook.h"

namespace merlu {

MonthBook MakeMonthBook(Session& s, int month);

// What happens to one cell of a workbook that is read back.
struct BookChange {
  std::string place, field, control, old_text, new_text;
  std::string what;  // "set", "changed", "same", or why it is refused
  bool Applies() const { return what == "set" || what == "changed"; }
  bool IsRefused() const { return !Applies() && what != "same"; }
};

// Puts the cells into the grid, whose save stores them, and returns every cell that holds something, in the order of
// the sheets.
std::vector<BookChange> PlanMonthBook(Session& s, const std::vector<ReadSheet>& sheets, MonthGrid& grid);

}  // namespace merlu
