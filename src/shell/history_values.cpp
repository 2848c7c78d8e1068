#include "shell/history_values.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>

#include "base/fault.h"
#include "base/text.h"
#include "sheets/conversions.h"
#include "sheets/structure.h"
#include "sheets/units.h"

namespace merlu {
namespace {

constexpr int kPreparedAtOnce = 1000;  // rows that a view may measure for its columns

std::string TextOf(const StoredValue& value) {
  return NullToEmpty(ToValue(value));
}

// ---- what a column is called, and how its values show ----

const FieldSpec* FieldAt(const std::string& table, const std::string& column) {
  static const std::map<std::pair<std::string, std::string>, const FieldSpec*> fields = [] {
    std::map<std::pair<std::string, std::string>, const FieldSpec*> all;
    const auto add = [&all](const FieldSpec& field, const std::string& desc, const std::string& actv) {
      if (!field.column.empty()) all.try_emplace({field.mode == In::kActv ? actv : desc, field.column}, &field);
    };
    for (const SheetSpec* sheet : AllSheets())
      for (const FieldSpec& field : sheet->fields) add(field, sheet->ed_table(), sheet->ea_table());
    for (const FieldSpec& field : StructureSheet().fields) add(field, "PD_PLATFORM_DESC", "PA_PLATFORM_ACTV");
    return all;
  }();
  const auto found = fields.find({table, column});
  return found == fields.end() ? nullptr : found->second;
}

struct OtherColumn {
  const char *column, *name;
};

constexpr std::array<OtherColumn, 23> kOtherColumns = {{
    {"EA_STATUS", "Status"},
    {"status", "Status"},
    {"EA_COMNT_TXT", "Comments"},
    {"COMNT_TXT", "Comments"},
    {"EA_QC_DT", "Date of Last QC"},
    {"ED_QC_DT", "Date of Last QC"},
    {"PA_QC_DT", "Date of Last QC"},
    {"PD_QC_DT", "Date of Last QC"},
    {"ED_MERLU_EQUIP_ID", "Equipment ID"},
    {"CMPLX_ID_NUM", "RIMA Complex ID"},
    {"STRUCT_NUM", "RIMA Structure ID"},
    {"RIMA_CO_NUM", "RIMA Company No"},
    {"CO_NAME", "Company Name"},
    {"ADDR1", "Address 1"},
    {"ADDR2", "Address 2"},
    {"City", "City"},
    {"State", "State"},
    {"Zip", "Zip Code"},
    {"Contact", "Contact Name"},
    {"Phone", "Phone"},
    {"Fax", "Fax"},
    {"sys_yr", "Inventory Year"},
    {"SYS_MAX_MO", "Last Month"},
}};

std::string FieldName(const std::string& table, const std::string& column) {
  if (const FieldSpec* field = FieldAt(table, column)) {
    if (!field->tag.empty()) return TrimRight(field->tag);
    std::string caption = field->caption;
    while (!caption.empty() && (caption.back() == ':' || caption.back() == ' ')) caption.pop_back();
    if (!caption.empty()) return caption;
  }
  for (const OtherColumn& other : kOtherColumns)
    if (column == other.column) return other.name;
  return column;
}

std::string ShownValue(const std::string& table, const std::string& column, const StoredValue& value) {
  const std::string text = TextOf(value);
  const FieldSpec* field = FieldAt(table, column);
  if (field == nullptr || value.kind == StoredValue::Kind::kNull) return text;
  switch (field->stored) {
    case Stored::kYesNo: return ToNumber(ToValue(value)) != 0 ? "Yes" : "No";
    case Stored::kDestination: return DestinationItem(text).empty() ? text : DestinationItem(text);
    case Stored::kCode:
      for (const Item& item : field->items)
        if (item.code == text) return item.text;
      return text;
    default: return text;
  }
}

// ---- rows of a step as values ----

// Hands out the values of a row that the user sees: column, before, after.
template <typename Each>
void ForEachShown(const RecordedTable& table, const KeptRow& row, Each&& each) {
  const auto shown = [&table](std::size_t column) {
    return column < table.columns.size() && IsShownColumn(table.name, table.columns[column]);
  };
  if (row.kind == KeptRow::Kind::kChanged) {
    for (const KeptValue& value : row.values)
      if (shown(value.column)) each(value.column, value.before, value.after);
    return;
  }
  const bool added = row.kind == KeptRow::Kind::kAdded;
  const StoredValue none;
  StoredValue value;
  std::string_view bytes = row.row;
  for (std::size_t column = 0; TakeValue(bytes, value); ++column)
    if (value.kind != StoredValue::Kind::kNull && shown(column))
      each(column, added ? none : value, added ? value : none);
}

int CountShown(const RecordedTable& table, const KeptRow& row) {
  if (table.IsAttached()) return 0;
  if (table.name == "QC") return 1;  // a finding is one value
  int count = 0;
  ForEachShown(table, row, [&count](std::size_t, const StoredValue&, const StoredValue&) { ++count; });
  return count;
}

// A finding that came or went by its text, one that was explained by its comment, also when its row came with the
// comment. The field says which of them it is, as its own values stand in the same list.
void TellFinding(const RecordedTable& table, const KeptRow& row, ShownChange& change) {
  const auto column = [&table](const char* name) {
    return static_cast<std::size_t>(std::find(table.columns.begin(), table.columns.end(), name) -
                                    table.columns.begin());
  };
  const char* what = " (finding)";
  if (row.kind == KeptRow::Kind::kChanged) {
    for (const KeptValue& value : row.values)
      if (value.column == column("Comments") || (value.column == column("Desc") && change.after.empty())) {
        change.before = TextOf(value.before);
        change.after = TextOf(value.after);
        if (value.column == column("Comments")) what = " (comment)";
      }
    change.field += what;
    return;
  }
  const bool added = row.kind == KeptRow::Kind::kAdded;
  const std::vector<StoredValue> values = RowValues(row.row);
  const auto text = [&](const char* name) {
    return values.size() > column(name) ? TextOf(values[column(name)]) : std::string();
  };
  const std::string comment = added ? text("Comments") : "";
  (added ? change.after : change.before) = Trim(comment).empty() ? text("Desc") : comment;
  change.field += Trim(comment).empty() ? what : " (comment)";
}

}  // namespace

void StepValues::Show(std::optional<std::int64_t> step) {
  parts_.clear();
  rows_.clear();
  ends_.clear();
  order_.clear();
  changes_.clear();
  finder_.reset();
  ++revision_;
  if (!step) return;
  finder_.emplace(s_, *step);
  parts_ = PartsOf(s_.companion, *step);
  for (const std::string& part : parts_)
    for (KeptRow& row : UnpackChanges(part)) {
      const RecordedTable* table = RecordedTableNamed(s_.db, row.table);
      const int count = table == nullptr ? 0 : CountShown(*table, row);
      if (count == 0) continue;
      ends_.push_back(RowCount() + count);
      rows_.push_back(std::move(row));
    }
  Prepare(0, kPreparedAtOnce);
}

void StepValues::Prepare(int first, int count) {
  const int end = std::min(RowCount(), first + count);
  try {
    for (int row = std::max(0, first); row < end; ++row) At(row);  // the finder keeps what it has found
  } catch (const Fault&) {
    // the rows are shown blank
  }
}

std::vector<ShownChange> StepValues::ChangesOf(const KeptRow& row) const {
  const RecordedTable& table = *RecordedTableNamed(s_.db, row.table);
  const std::string place = finder_->PlaceOf(row.table, row.rowid);
  std::vector<ShownChange> changes;
  if (table.name == "QC") {
    changes.push_back({place, finder_->FieldOf(row.rowid), "", ""});
    TellFinding(table, row, changes.back());
    return changes;
  }
  ForEachShown(table, row, [&](std::size_t column, const StoredValue& before, const StoredValue& after) {
    const std::string& name = table.columns[column];
    changes.push_back({place, FieldName(table.name, name), ShownValue(table.name, name, before),
                       ShownValue(table.name, name, after)});
  });
  return changes;
}

ShownChange StepValues::Change(int value) const {
  const auto found = std::upper_bound(ends_.begin(), ends_.end(), value);
  const auto at = static_cast<std::size_t>(found - ends_.begin());
  if (changes_.empty() || made_ != at) {
    changes_ = ChangesOf(rows_[at]);
    made_ = at;
  }
  const int first = at == 0 ? 0 : ends_[at - 1];
  return changes_.at(static_cast<std::size_t>(value - first));
}

ShownChange StepValues::At(int row) const {
  if (row < 0 || row >= RowCount()) return {};
  return Change(order_.empty() ? row : order_[static_cast<std::size_t>(row)]);
}

std::string StepValues::Text(int row, int column) const {
  try {
    ShownChange change = At(row);
    std::string* const texts[] = {&change.place, &change.field, &change.before, &change.after};
    return column >= 0 && column < 4 ? std::move(*texts[column]) : "";
  } catch (const Fault&) {
    return "";  // a cell that is painted shows no box
  }
}

void StepValues::Sort(int column, bool descending) {
  order_.clear();
  std::vector<SortKey> keys;
  keys.reserve(static_cast<std::size_t>(RowCount()));
  for (int row = 0; row < RowCount(); ++row) keys.emplace_back(Text(row, column));
  std::vector<int> order(keys.size());
  std::iota(order.begin(), order.end(), 0);
  const auto key = [&keys](int row) -> const SortKey& { return keys[static_cast<std::size_t>(row)]; };
  std::stable_sort(order.begin(), order.end(),
                   [&](int a, int b) { return descending ? key(b) < key(a) : key(a) < key(b); });
  order_ = std::move(order);
  ++revision_;
}

}  // namespace merlu
