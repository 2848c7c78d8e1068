#include "entry/month_grid.h"

#include <algorithm>

#include "base/number_entry.h"
#include "base/text.h"
#include "entry/grid_row.h"
#include "history/notes.h"
#include "session/node_keys.h"
#include "sheets/conversions.h"
#include "sheets/wording.h"

namespace merlu {
namespace {

std::string Bare(std::string caption) {
  while (!caption.empty() && (caption.back() == ':' || caption.back() == ' ' || caption.back() == ';'))
    caption.pop_back();
  return Trim(caption);
}

std::string MonthText(const QCLocation& at) {
  return std::to_string(at.Year) + (at.Month < 10 ? "/0" : "/") + std::to_string(at.Month);
}

}  // namespace

std::string MonthGrid::RowKey(int row) const {
  return At(row)->stored.node;
}

int MonthGrid::FindRow(std::string_view key) const {
  const auto found = by_key_.find(key);
  return found == by_key_.end() ? -1 : found->second;
}

int MonthGrid::FieldAt(int column) const {
  const int field = column - heads_;
  return field >= 0 && field < static_cast<int>(indexes_.size()) ? field : -1;
}

void MonthGrid::MakeColumns() {
  columns_.clear();
  indexes_ = MonthKindOf(sheet_).indexes;
  heads_ = by_month_ ? 1 : 2;
  if (by_month_) {
    columns_.push_back({"Month", "Month"});
  } else {
    columns_.push_back({"Structure", "Structure"});
    columns_.push_back({"Equipment", "Equipment"});
  }
  const std::vector<const FieldSpec*>& fields = MonthFields(sheet_);
  for (const FieldSpec* field : fields) {
    GridColumn column{field->control, Bare(field->caption)};
    if (const std::string set = SetOf(*field, fields.front()->block); !set.empty())
      column.caption = set + ": " + column.caption;
    const auto same = [&](const GridColumn& other) { return EqualsIgnoringCase(other.caption, column.caption); };
    if (column.caption.empty() || std::any_of(columns_.begin(), columns_.end(), same))
      column.caption = Trim(column.caption + " (" + field->tag + ")");
    column.numeric = field->stored == Stored::kNumber || field->stored == Stored::kComputed;
    column.unit = field->unit;
    for (const Item& item : field->items) column.items.push_back(item.text);
    column.free_text = field->free_text;
    columns_.push_back(std::move(column));
  }
  columns_.push_back({MonthKindOf(sheet_).status_box, "No Emissions to Report"});
  columns_.back().items = {"off", "on"};
  columns_.push_back({MonthKindOf(sheet_).comments, "Comments"});
}

// ---- what shows ----

void MonthGrid::ShowMonth(const SheetSpec* sheet, int month) {
  Show(sheet, {.month = month}, 0, false);
}

void MonthGrid::ShowRecord(const SheetSpec* sheet, std::int64_t key) {
  const Value structure = sheet == &StructureSheet()
                              ? Value(key)
                              : s_.db.Single("SELECT PD_ID_AK FROM ED_EQUIP_DESC WHERE ED_ID_AK=?", {key});
  Show(sheet, {.PD_ID_AK = ToInteger(structure)}, key, true);
}

void MonthGrid::Show(const SheetSpec* sheet, const MonthScope& scope, std::int64_t only, bool by_month) {
  std::vector<RowPtr> rows;
  s_.db.NoticeOthers();
  const std::int64_t read_at = s_.db.ChangeCount();
  auto contexts = std::make_shared<Contexts>(s_.db, scope.PD_ID_AK);
  ReadMonthRows(s_.db, *contexts, sheet, scope, [&](MonthRow read) {
    if (only != 0 && read.owner() != only) return;
    rows.push_back(std::make_shared<Row>(std::move(read)));
    rows.back()->contexts = contexts;
    rows.back()->read_at = read_at;
  });
  std::map<std::int64_t, std::vector<CopiedField>> copied;
  for (CopiedRecord& record : AllCopied(s_.companion))
    if (EqualsIgnoringCase(record.table, MonthKindOf(sheet).table))
      copied[record.key].push_back(std::move(record.field));
  for (const RowPtr& row : rows)
    for (const CopiedField& field : copied.empty() ? std::vector<CopiedField>() : copied[row->stored.key()])
      for (std::size_t i = 0; i < row->fields().size(); ++i)
        if (EqualsIgnoringCase(field.column, row->fields()[i]->column) &&
            NullToEmpty(row->stored.FieldValue(i)) == field.value)
          row->kept[i] = row->copied[i] = true;
  ReadBefore(rows, sheet, scope.month);
  // what can fail has been read
  by_month_ = by_month;
  sheet_ = sheet;
  rows_ = std::move(rows);
  MakeColumns();
  std::vector<int> rank(s_.tree.nodes.size());
  int at = 0;
  for (int node : s_.tree.InOrder()) rank[static_cast<std::size_t>(node)] = at++;
  std::vector<std::pair<int, RowPtr>> order;
  for (const RowPtr& row : rows_) {
    const int node = s_.tree.Find(row->stored.node);
    const auto typed = changed_.find(row->stored.node);
    order.emplace_back(node < 0 ? at : rank[static_cast<std::size_t>(node)],
                       typed == changed_.end() ? row : typed->second);
  }
  std::stable_sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  rows_.clear();
  by_key_.clear();
  for (auto& [place, row] : order) {
    by_key_.emplace(row->stored.node, static_cast<int>(rows_.size()));
    rows_.push_back(std::move(row));
  }
  ++shape_;
  ++revision_;
}

// The month before: of rows that are to show, or read for the one month that is.
void MonthGrid::ReadBefore(const std::vector<RowPtr>& rows, const SheetSpec* sheet, int month) {
  std::map<std::pair<std::int64_t, int>, std::vector<std::string>> before;
  const auto take = [&](const MonthRow& row) {
    std::vector<std::string> texts;
    const std::vector<const FieldSpec*>& fields = MonthFields(row.sheet);
    for (std::size_t i = 0; i < fields.size(); ++i) texts.push_back(ShownText(*fields[i], row.FieldValue(i)));
    before.emplace(std::pair(row.owner(), row.at.Month), std::move(texts));
  };
  if (month == 0)
    for (const RowPtr& row : rows) take(row->stored);
  else if (month > 1 && !rows.empty())
    ReadMonthRows(s_.db, *rows.front()->contexts, sheet, {.month = month - 1}, take);
  for (const RowPtr& row : rows)
    if (const auto found = before.find({row->stored.owner(), row->stored.at.Month - 1}); found != before.end())
      row->before = found->second;
}

std::string MonthGrid::TextOf(const Row& row, int column) const {
  if (column < heads_ && by_month_) return MonthText(row.stored.at);
  if (column < heads_) return column == 0 ? row.stored.structure : row.stored.id;
  if (column == StatusColumn()) return row.inactive ? "on" : "off";
  if (column == CommentsColumn()) return row.comments;
  return row.view.Text(indexes_[static_cast<std::size_t>(FieldAt(column))]);
}

bool MonthGrid::IsLocked(const Row& row, int column) const {
  if (column < heads_ || row.stored.structure_inactive) return true;
  const int field = FieldAt(column);
  return field >= 0 && row.Locked()[static_cast<std::size_t>(field)];
}

GridCell MonthGrid::Cell(int row_number, int column) const {
  const Row& row = *At(row_number);
  GridCell cell;
  cell.text = TextOf(row, column);
  cell.locked = IsLocked(row, column);
  if (const int field = FieldAt(column); field >= 0) {
    const auto at = static_cast<std::size_t>(field);
    cell.was = row.before[at];
    cell.copied = row.copied[at];
    const bool numeric = columns_[static_cast<std::size_t>(column)].numeric;
    if (numeric && cell.text != row.shown[at]) cell.hint = NumberHint(cell.text);
    if (const auto found = row.Findings().find(row.fields()[at]->control); found != row.Findings().end())
      cell.finding = found->second;
    if (row.clash[at])
      cell.finding = "Another program has stored " + (row.shown[at].empty() ? "a blank" : row.shown[at]);
  }
  if (column == 0 && !row.problem.empty()) cell.finding = row.problem;
  cell.back = !cell.finding.empty() ? Back::kFlag : cell.locked ? Back::kFace : Back::kWindow;
  return cell;
}

// ---- typing ----

void MonthGrid::Set(Row& row, int column, const std::string& text, bool copied) {
  row.problem.clear();
  const int field = FieldAt(column);
  if (column == StatusColumn()) {
    row.inactive = text == "on";
    row.view.SetChecked(MonthKindOf(sheet_).status_index, row.inactive);
  } else if (column == CommentsColumn()) {
    row.comments = text;
  } else if (field >= 0) {
    const bool sum = columns_[static_cast<std::size_t>(column)].numeric && IsSum(text);
    row.view.SetText(indexes_[static_cast<std::size_t>(field)], sum ? SumText(text).value_or(text) : text);
    row.copied[static_cast<std::size_t>(field)] = copied;
    row.clash[static_cast<std::size_t>(field)] = false;
  }
  row.Unjudge();
}

void MonthGrid::Note(const RowPtr& row) {
  if (row->IsChanged())
    changed_[row->stored.node] = row;
  else
    changed_.erase(row->stored.node);
  ++revision_;
}

void MonthGrid::SetCell(int row, int column, const std::string& text) {
  const RowPtr changed = At(row);
  if (IsLocked(*changed, column)) return;
  Set(*changed, column, text, false);
  Note(changed);
  if (on_typed) on_typed();
}

// The rows, or all without any.
std::vector<int> MonthGrid::Picked(const std::vector<int>& rows) const {
  std::vector<int> picked = rows;
  if (picked.empty())
    for (int row = 0; row < RowCount(); ++row) picked.push_back(row);
  std::sort(picked.begin(), picked.end());
  return picked;
}

// What the grid shows there, saved or not.
std::string MonthGrid::Before(const Row& row, int field) const {
  const auto at = static_cast<std::size_t>(field);
  if (changed_.empty()) return row.before[at];
  QCLocation month = row.stored.at;
  --month.Month;
  const auto typed = changed_.find(KeyOf(month, Mode::kActv));
  return typed == changed_.end() ? row.before[at] : typed->second->view.Text(indexes_[at]);
}

int MonthGrid::CopyBefore(const std::vector<int>& picked) {
  int copied = 0;
  for (const int number : Picked(picked)) {
    const RowPtr row = At(number);
    bool any = false;
    for (int field = 0; field < static_cast<int>(indexes_.size()); ++field) {
      const int column = heads_ + field;
      if (IsLocked(*row, column) || !TextOf(*row, column).empty()) continue;
      const std::string before = Before(*row, field);
      const GridColumn& head = columns_[static_cast<std::size_t>(column)];
      const bool is_choice = !head.items.empty() && !head.free_text;
      if (before.empty() || (is_choice && std::find(head.items.begin(), head.items.end(), before) == head.items.end()))
        continue;
      Set(*row, column, before, true);
      any = true;
      ++copied;
    }
    if (any) Note(row);
  }
  return copied;
}

}  // namespace merlu
