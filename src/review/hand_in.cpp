#include "review/hand_in.h"

#include <algorithm>
#include <set>

#include "history/notes.h"
#include "review/completeness.h"

namespace merlu {
namespace {

constexpr int kMonthsOfYear = 12;

bool Counts(const ReviewedRecord& record, int month) {
  return record.structure >= 0 && (month == 0 || record.location.Month == 0 || record.location.Month == month);
}

template <typename Number>
std::int64_t Sum(const Review& review, int month, Number number) {
  std::int64_t sum = 0;
  for (const ReviewedRecord& record : review.records)
    if (Counts(record, month)) sum += number(record);
  return sum;
}

std::set<int> MonthsOf(const Review& review) {
  std::set<int> months;
  for (const ReviewedRecord& record : review.records)
    if (record.structure >= 0 && record.location.Month != 0) months.insert(record.location.Month);
  return months;
}

std::int64_t StructuresWithoutTheMonth(const Review& review, int month) {
  const std::set<int> months = month != 0 ? std::set<int>{month} : MonthsOf(review);
  std::set<std::pair<int, int>> there;
  for (const ReviewedRecord& record : review.records)
    if (record.location.Is(level::kStructure) && months.contains(record.location.Month))
      there.emplace(record.structure, record.location.Month);
  return static_cast<std::int64_t>(review.structures.size() * months.size() - there.size());
}

// Copied values that are still as they were copied.
std::int64_t Copied(Database& db, const Companion& companion, int month) {
  std::int64_t count = 0;
  for (const CopiedRecord& copied : AllCopied(companion)) {
    const bool structure = copied.table == "PA_PLATFORM_ACTV";
    const std::string master = structure ? "PA_PLATFORM_ACTV" : "EA_EQUIP_ACTV";
    const std::string key = structure ? "SA_ID_AK" : "EA_ID_AK", column = structure ? "PA_MO" : "EA_MO";
    const Value of = db.Single("SELECT " + column + " FROM " + master + " WHERE " + key + "=?", {copied.key});
    if (IsNull(of) || (month != 0 && ToInteger(of) != month)) continue;
    const Value stored =
        db.Single("SELECT [" + copied.field.column + "] FROM [" + copied.table + "] WHERE " + key + "=?", {copied.key});
    if (NullToEmpty(stored) == copied.field.value) ++count;
  }
  return count;
}

std::int64_t Damage(Database& db) {
  std::int64_t count = 0;
  db.ForEach("PRAGMA quick_check", {}, [&](const RowView& row) { count += row.Text(0) != "ok"; });
  db.ForEach("PRAGMA foreign_key_check", {}, [&](const RowView&) { ++count; });
  return count;
}

// Values that the steps since the hand-in have written; none without one.
std::int64_t ChangedSinceHandIn(const Companion& companion, int month) {
  std::int64_t since = -1;
  for (const HandIn& hand_in : HandIns(companion))
    if (month == 0 || hand_in.month == month) since = std::max(since, hand_in.step);
  if (since < 0) return 0;
  std::int64_t values = 0;
  for (const HistoryStep& step : Steps(companion))
    if (step.id > since && !step.undone) values += step.values;
  return values;
}

HandInRow Row(const char* check, std::int64_t count, const char* what_to_do, bool stops = true) {
  return {count == 0 ? "ok" : stops ? "stop" : "look", check, count, count == 0 ? "" : what_to_do};
}

}  // namespace

bool IsUnchecked(const ReviewedRecord& record) {
  if (record.inactive || record.structure_inactive || record.checked || !record.has_values) return false;
  // of the descriptions only the structure's has a date
  return record.location.Month != 0 || record.location.Is(level::kStructure);
}

std::vector<HandInRow> HandInChecks(Database& db, const Companion& companion, const Review& review, int month) {
  const auto months = static_cast<std::int64_t>(MonthsOf(review).size());
  const std::int64_t unfinished = Sum(review, month, [](const ReviewedRecord& record) {
    return IsUnchecked(record) || (record.location.Month != 0 && StateOf(record) == RecordState::kEmpty);
  });
  std::vector<HandInRow> rows = {
      Row("Months missing", month == 0 ? kMonthsOfYear - months : 0, "Add the months."),
      Row("Structures without the month", StructuresWithoutTheMonth(review, month), "Add the structures' months."),
      Row("Records without values, never checked, or changed since", unfinished,
          "Fill them in, then Check What Was Not."),
      Row("Findings without an explanation", Sum(review, month, [](const auto& record) { return record.open; }),
          "Correct the values, or explain them."),
      Row("Explanations older than their values", Sum(review, month, [](const auto& record) { return record.stale; }),
          "Read the comments again."),
      Row("Copied values not confirmed", Copied(db, companion, month), "Confirm them."),
      Row("Entries kept from an interrupted edit", static_cast<std::int64_t>(Drafts(companion).size()),
          "Go on with the edit, or discard it.", false),
      Row("Pages of the file that are damaged, rows without their parent", Damage(db), "Restore a backup."),
  };
  rows.push_back(
      Row("Values changed since the hand-in", ChangedSinceHandIn(companion, month), "Hand in again.", false));
  return rows;
}

std::string HandInVerdict(const std::vector<HandInRow>& rows) {
  const auto stops = std::count_if(rows.begin(), rows.end(), [](const HandInRow& row) { return row.state == "stop"; });
  return stops == 0 ? "Ready to hand in." : "Not ready: " + std::to_string(stops) + " things to settle.";
}

}  // namespace merlu
