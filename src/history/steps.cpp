#include "history/steps.h"

#include <algorithm>
#include <array>

#include "base/fault.h"

namespace merlu {
namespace {

constexpr std::string_view kMark = "MH1";

[[noreturn]] void Damaged() {
  throw Fault(fault_number::kDamaged, "MERLU history", "A step of the history is damaged.");
}

class CheckNumber {
 public:
  void Add(std::string_view bytes) {
    for (const char c : bytes) {
      number_ ^= static_cast<unsigned char>(c);
      number_ *= 1099511628211ULL;
    }
  }
  std::uint64_t number() const { return number_; }

 private:
  std::uint64_t number_ = 14695981039346656037ULL;
};

// The next value of a row with its bytes.
bool TakeWithBytes(std::string_view& row, StoredValue& value, std::string_view& bytes) {
  const std::string_view from = row;
  if (!TakeValue(row, value)) return false;
  bytes = from.substr(0, from.size() - row.size());
  return true;
}

// The bytes alone, which is quicker; false at the end, or where they are no row.
bool TakeBytes(std::string_view& row, std::string_view& bytes) {
  if (row.empty() || static_cast<unsigned char>(row.front()) > static_cast<unsigned char>(StoredValue::Kind::kBlob))
    return false;
  const auto kind = static_cast<StoredValue::Kind>(row.front());
  const bool whole = kind == StoredValue::Kind::kInteger;
  std::size_t size = 1;
  if (kind == StoredValue::Kind::kReal) {
    size += sizeof(double);
  } else if (kind != StoredValue::Kind::kNull) {
    std::string_view rest = row.substr(1);
    std::uint64_t number = 0;
    if (!TakeNumber(rest, number) || (!whole && number > rest.size())) return false;
    size = row.size() - rest.size() + (whole ? 0 : static_cast<std::size_t>(number));
  }
  if (size > row.size()) return false;
  bytes = row.substr(0, size);
  row.remove_prefix(size);
  return true;
}

void AppendText(std::string& bytes, std::string_view text) {
  AppendNumber(bytes, text.size());
  bytes.append(text);
}

bool IsFinding(std::string_view table) {
  return table == "QC";
}

// Which columns of a table hold what the user knows as values.
std::vector<bool> ShownColumns(const RecordedTable& table) {
  std::vector<bool> shown;
  for (const std::string& column : table.columns) shown.push_back(IsShownColumn(table.name, column));
  return shown;
}

std::int64_t CountFilled(const std::vector<bool>& shown, std::string_view row) {
  std::int64_t count = 0;
  std::string_view bytes;
  for (std::size_t column = 0; TakeBytes(row, bytes) && column < shown.size(); ++column)
    if (bytes.front() != static_cast<char>(StoredValue::Kind::kNull) && shown[column]) ++count;
  return count;
}

// Returns how many of the columns that are shown have changed. `values` is a room that many rows share.
std::int64_t AppendChanged(std::string& bytes, std::string_view before, std::string_view after,
                           const std::vector<bool>& shown, std::string& values) {
  CheckNumber others;
  values.clear();
  std::uint64_t count = 0;
  std::int64_t changed = 0;
  std::string_view old_bytes, new_bytes;
  for (std::uint64_t column = 0;; ++column) {
    const bool more = TakeBytes(before, old_bytes);
    if (more && after.starts_with(old_bytes)) {  // no value begins with another one's bytes
      after.remove_prefix(old_bytes.size());
      others.Add(old_bytes);
      continue;
    }
    if (more != TakeBytes(after, new_bytes)) Damaged();
    if (!more) break;
    AppendNumber(values, column);
    values.append(old_bytes).append(new_bytes);
    ++count;
    if (column < shown.size() && shown[column]) ++changed;
  }
  AppendNumber(bytes, others.number());
  AppendNumber(bytes, count);
  bytes += values;
  return changed;
}

std::uint64_t Number(std::string_view& bytes) {
  std::uint64_t number = 0;
  if (!TakeNumber(bytes, number)) Damaged();
  return number;
}

std::string_view Text(std::string_view& bytes) {
  const std::uint64_t size = Number(bytes);
  if (size > bytes.size()) Damaged();
  const std::string_view text = bytes.substr(0, static_cast<std::size_t>(size));
  bytes.remove_prefix(text.size());
  return text;
}

void TakeChanged(std::string_view& bytes, KeptRow& row) {
  row.others = Number(bytes);
  for (std::uint64_t count = Number(bytes); count > 0; --count) {
    KeptValue value;
    value.column = static_cast<std::size_t>(Number(bytes));
    if (!row.values.empty() && value.column <= row.values.back().column) Damaged();
    if (!TakeValue(bytes, value.before) || !TakeValue(bytes, value.after)) Damaged();
    row.values.push_back(value);
  }
}

}  // namespace

PackedChanges PackChanges(const Changes& changes) {
  PackedChanges packed{std::string(kMark)};
  std::string& bytes = packed.bytes;
  if (changes.bytes) bytes.reserve(changes.bytes->size());
  // the tables that occur, by their number in here
  std::vector<std::uint64_t> numbers(changes.tables->size());
  std::vector<const RecordedTable*> tables;
  std::vector<std::vector<bool>> shown;
  std::string changed;
  for (const RowChange& row : changes.rows) {
    if (numbers[row.table] != 0) continue;
    tables.push_back(&changes.TableOf(row));
    shown.push_back(ShownColumns(*tables.back()));
    numbers[row.table] = tables.size();
  }
  AppendNumber(bytes, tables.size());
  for (const RecordedTable* table : tables) AppendText(bytes, table->name);
  for (const RowChange& row : changes.rows) {
    const auto number = static_cast<std::size_t>(numbers[row.table] - 1);
    AppendNumber(bytes, number);
    StoredValue rowid{.kind = StoredValue::Kind::kInteger, .integer = row.rowid};
    AppendValue(bytes, rowid);
    const auto kind = row.Added()     ? KeptRow::Kind::kAdded
                      : row.Removed() ? KeptRow::Kind::kRemoved
                                      : KeptRow::Kind::kChanged;
    bytes += static_cast<char>(kind);
    std::int64_t values = 0;
    if (kind == KeptRow::Kind::kChanged) {
      values = AppendChanged(bytes, row.before, row.after, shown[number], changed);
    } else {
      const std::string_view whole = row.Added() ? row.after : row.before;
      AppendText(bytes, whole);
      values = CountFilled(shown[number], whole);
    }
    packed.shown += IsFinding(tables[number]->name) ? 1 : values;  // a finding counts once
  }
  return packed;
}

std::vector<KeptRow> UnpackChanges(std::string_view bytes) {
  if (!bytes.starts_with(kMark)) Damaged();
  bytes.remove_prefix(kMark.size());
  std::vector<std::string> tables;
  for (std::uint64_t count = Number(bytes); count > 0; --count) tables.emplace_back(Text(bytes));
  std::vector<KeptRow> rows;
  while (!bytes.empty()) {
    KeptRow row;
    const std::uint64_t table = Number(bytes);
    StoredValue rowid;
    if (table >= tables.size() || !TakeValue(bytes, rowid) || rowid.kind != StoredValue::Kind::kInteger ||
        bytes.empty() || static_cast<unsigned char>(bytes.front()) > 2)
      Damaged();
    row.table = tables[static_cast<std::size_t>(table)];
    row.rowid = rowid.integer;
    row.kind = static_cast<KeptRow::Kind>(bytes.front());
    bytes.remove_prefix(1);
    if (row.kind == KeptRow::Kind::kChanged)
      TakeChanged(bytes, row);
    else
      row.row = Text(bytes);
    rows.push_back(std::move(row));
  }
  return rows;
}

bool IsShownColumn(std::string_view table, std::string_view column) {
  static constexpr std::array<std::string_view, 8> kKeys = {"PD_ID_AK", "SA_ID_AK", "ED_ID_AK", "EA_ID_AK",
                                                            "PA_MO",    "PA_YR",    "EA_MO",    "EA_YR"};
  // the companion's own rows belong to the step but are no values of the inventory
  if (table.starts_with("history.")) return false;
  if (column == "EA_EQUIP_TYP" || column == "ED_EQUIP_TYP") return false;
  return std::find(kKeys.begin(), kKeys.end(), column) == kKeys.end();
}

bool OtherSide(const KeptRow& kept, std::string_view row, bool backwards, std::string& other) {
  other.clear();
  const bool goes = kept.kind == (backwards ? KeptRow::Kind::kAdded : KeptRow::Kind::kRemoved);
  if (kept.kind != KeptRow::Kind::kChanged) {
    if (!goes) other = kept.row;
    return row == (goes ? kept.row : std::string_view());
  }
  if (row.empty()) return false;
  CheckNumber others;
  auto next = kept.values.begin();
  StoredValue value;
  std::string_view bytes;
  for (std::size_t column = 0; TakeWithBytes(row, value, bytes); ++column) {
    if (next == kept.values.end() || next->column != column) {
      others.Add(bytes);
      other.append(bytes);
      continue;
    }
    if (value != (backwards ? next->after : next->before)) return false;
    AppendValue(other, backwards ? next->before : next->after);
    ++next;
  }
  return next == kept.values.end() && others.number() == kept.others;
}

}  // namespace merlu
