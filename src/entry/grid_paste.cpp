// A block pasted into the month grid.
#include <algorithm>
#include <map>

#include "base/number_entry.h"
#include "base/numbers.h"
#include "base/text.h"
#include "entry/grid_row.h"
#include "forms/pasted.h"

namespace merlu {

PastePlan MonthGrid::PlanCell(int row, int column, const std::string& text) const {
  const bool in_rows = row < RowCount(), in_columns = column < static_cast<int>(columns_.size());
  PastePlan plan{row, column, "", "", "", text, "outside the grid"};
  if (in_rows) {
    const MonthRow& record = At(row)->stored;
    plan.place = record.structure + (record.id.empty() ? "" : " · " + record.id);
    if (by_month_) plan.place = TextOf(*At(row), 0);
  }
  if (in_columns) plan.field = columns_[static_cast<std::size_t>(column)].caption;
  if (!in_rows || !in_columns) return plan;
  const Row& at = *At(row);
  const GridColumn& head = columns_[static_cast<std::size_t>(column)];
  plan.old_text = TextOf(at, column);
  plan.what.clear();
  if (IsLocked(at, column)) {
    plan.what = "locked";
  } else if (head.numeric) {
    plan.new_text = IsSum(text) ? SumText(text).value_or(text) : PastedNumber(text);
    if (!IsNumericText(plan.new_text)) plan.what = "not a number";
  } else if (!head.items.empty()) {
    const auto item = std::find_if(head.items.begin(), head.items.end(),
                                   [&](const std::string& each) { return EqualsIgnoringCase(each, Trim(text)); });
    if (item != head.items.end())
      plan.new_text = *item;
    else if (!head.free_text)
      plan.what = "no such choice";
  }
  if (!plan.what.empty()) return plan;
  plan.what = plan.new_text == plan.old_text ? "same" : plan.old_text.empty() ? "set" : "changed";
  return plan;
}

std::vector<PastePlan> MonthGrid::Plan(int row, int column, const GridBlock& block) const {
  std::vector<PastePlan> plan;
  for (std::size_t i = 0; i < block.size(); ++i)
    for (std::size_t j = 0; j < block[i].size(); ++j)
      if (!Trim(block[i][j]).empty())
        plan.push_back(PlanCell(row + static_cast<int>(i), column + static_cast<int>(j), block[i][j]));
  return plan;
}

void MonthGrid::Paste(int row, int column, const GridBlock& block) {
  const std::vector<PastePlan> plan = Plan(row, column, block);
  const bool asks = std::any_of(plan.begin(), plan.end(), [](const PastePlan& cell) { return cell.IsAsked(); });
  if (asks && approve && !approve(plan)) return;
  std::map<int, RowPtr> touched;
  for (const PastePlan& cell : plan) {
    // what is pasted over an equal text confirms it, as typing it does
    if (!cell.Applies() && cell.what != "same") continue;
    const RowPtr at = At(cell.row);
    Set(*at, cell.column, cell.new_text, false);
    touched[cell.row] = at;
  }
  for (const auto& [number, changed] : touched) Note(changed);
  if (on_typed && !touched.empty()) on_typed();
}

}  // namespace merlu
