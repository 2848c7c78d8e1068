#include "review/hand_in.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "base/fault.h"
#include "history/notes.h"
#include "review/changed_values.h"
#include "review/completeness.h"
#include "session/place.h"
#include "session/types.h"

namespace merlu {
namespace {

constexpr std::int64_t kMonthsOfYear = 12;

template <typename Number>
std::int64_t Sum(const Review& review, int month, Number number) {
  std::int64_t sum = 0;
  for (const ReviewedRecord& record : review.records)
    if (CountsFor(record, month)) sum += number(record);
  return sum;
}

std::set<int> MonthNumbers(const Review& review) {
  std::set<int> months;
  for (const YearMonth& each : MonthsOf(review)) months.insert(each.month);
  return months;
}

std::int64_t StructuresWithoutTheMonth(const Review& review, int month) {
  const std::set<int> months = month != 0 ? std::set<int>{month} : MonthNumbers(review);
  std::set<std::pair<int, int>> there;
  for (const ReviewedRecord& record : review.records)
    if (record.IsStructureMonth() && months.contains(record.month)) there.emplace(record.structure, record.month);
  return static_cast<std::int64_t>(review.structures.size() * months.size() - there.size());
}

// ---- copied values ----

// The months' records by the tables and keys under which copied values are kept.
class MonthRecords {
 public:
  explicit MonthRecords(const Review& review) {
    for (const ReviewedRecord& record : review.records) {
      if (record.kind == RecordKind::kEquipmentMonth) equipment_[record.key] = &record;
      if (record.kind == RecordKind::kStructureMonth) structures_[record.key] = &record;
    }
  }
  const ReviewedRecord* Find(const std::string& table, std::int64_t key) const {
    const auto& records = table == "PA_PLATFORM_ACTV" ? structures_ : equipment_;
    const auto found = records.find(key);
    return found == records.end() ? nullptr : found->second;
  }

 private:
  std::unordered_map<std::int64_t, const ReviewedRecord*> equipment_, structures_;
};

bool IsOfMonths(const std::string& table) {
  return table == "PA_PLATFORM_ACTV" || (table.starts_with("EA_") && FindType(table.substr(3)) != nullptr);
}

std::int64_t Damage(Database& db) {
  std::int64_t count = 0;
  try {
    db.ForEach("PRAGMA main.quick_check", {}, [&](const RowView& row) { count += row.Text(0) != "ok"; });
    db.ForEach("PRAGMA main.foreign_key_check", {}, [&](const RowView&) { ++count; });
  } catch (const Fault&) {
    ++count;  // what cannot even be looked at
  }
  return count;
}

template <typename All>
std::int64_t Size(const All& all) {
  return static_cast<std::int64_t>(all.size());
}

HandInRow Row(const char* check, std::int64_t count, const char* what_to_do, bool stops = true) {
  return {count == 0 ? "ok" : stops ? "stop" : "look", check, count, count == 0 ? "" : what_to_do};
}

bool IsStop(const HandInRow& row) {
  return row.state == "stop";
}

}  // namespace

bool CountsFor(const ReviewedRecord& record, int month) {
  if (record.ReportsNothing()) return false;
  return month == 0 || record.month == 0 || record.month == month;
}

bool IsUnchecked(const ReviewedRecord& record) {
  if (record.gone || record.ReportsNothing() || record.checked || !record.has_values) return false;
  // of the descriptions only the structure's has a date
  return record.kind != RecordKind::kEquipment;
}

bool IsUnfinished(const ReviewedRecord& record) {
  return IsUnchecked(record) || (!record.gone && record.month != 0 && !record.has_values);
}

std::vector<const ReviewedRecord*> CopiedValues(Database& db, const Companion& companion, const Review& review,
                                                int month) {
  std::vector<const ReviewedRecord*> found;
  const std::vector<CopiedRecord> all = AllCopied(companion);
  if (all.empty()) return found;
  const MonthRecords records(review);
  for (const CopiedRecord& copied : all) {
    const ReviewedRecord* record = IsOfMonths(copied.table) ? records.Find(copied.table, copied.key) : nullptr;
    if (record == nullptr || !CountsFor(*record, month)) continue;
    const char* key = record->IsStructureMonth() ? "SA_ID_AK" : "EA_ID_AK";
    try {
      const Value stored = db.Single(
          "SELECT [" + copied.field.column + "] FROM [" + copied.table + "] WHERE " + key + "=?", {copied.key});
      if (NullToEmpty(stored) == copied.field.value) found.push_back(record);
    } catch (const Fault&) {
      // a column that the inventory does not have holds nothing
    }
  }
  return found;
}

std::vector<QCLocation> InterruptedEdits(const Companion& companion, int month, std::int64_t present_draft) {
  std::vector<QCLocation> found;
  for (const Draft& draft : Drafts(companion)) {
    QCLocation at;
    Mode mode = Mode::kNone;
    const bool known = UnpackLocation(draft.at, at, mode);
    const int of_month = known && mode == Mode::kActv ? at.Month : 0;
    if (draft.id != present_draft && (month == 0 || of_month == 0 || of_month == month)) found.push_back(at);
  }
  return found;
}

std::vector<HandInRow> HandInChecks(Database& db, const Companion& companion, const Review& review, int month,
                                    std::int64_t present_draft) {
  const auto months = static_cast<std::int64_t>(MonthNumbers(review).size());
  return {
      Row("Months missing", month == 0 ? std::max<std::int64_t>(kMonthsOfYear - months, 0) : 0, "Add the months."),
      Row("Structures without the month", StructuresWithoutTheMonth(review, month), "Add the structures' months."),
      Row("Records without values, never checked, or changed since", Sum(review, month, IsUnfinished),
          "Fill them in, then Check What Was Not."),
      Row("Findings without an explanation", Sum(review, month, [](const auto& record) { return record.open; }),
          "Correct the values, or explain them."),
      Row("Explanations older than their values", Sum(review, month, [](const auto& record) { return record.stale; }),
          "Read the comments again."),
      Row("Copied values not confirmed", Size(CopiedValues(db, companion, review, month)), "Confirm them."),
      Row("Entries kept from an interrupted edit", Size(InterruptedEdits(companion, month, present_draft)),
          "Go on with the edit, or discard it.", false),
      Row("Pages of the file that are damaged, rows without their parent", Damage(db), "Restore a backup."),
      Row("Values changed since the hand-in", ValuesChangedSinceHandIn(companion, review, month), "Hand in again.",
          false),
  };
}

bool IsReady(const std::vector<HandInRow>& rows) {
  return std::none_of(rows.begin(), rows.end(), IsStop);
}

std::string HandInVerdict(const std::vector<HandInRow>& rows) {
  if (IsReady(rows)) return "Ready to hand in.";
  return "Not ready: " + std::to_string(std::count_if(rows.begin(), rows.end(), IsStop)) + " things to settle.";
}

}  // namespace merlu
