#include "review/changed_values.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <unordered_map>

#include "base/text.h"
#include "history/notes.h"
#include "history/steps.h"
#include "session/types.h"

namespace merlu {
namespace {

bool IsTypeTable(const std::string& table, const char* prefix) {
  return table.starts_with(prefix) && FindType(table.substr(3)) != nullptr;
}

bool IsDateOfRun(const std::string& column) {
  return column.ends_with("_QC_DT");
}

// A value as it was first and is last.
struct Course {
  std::string before, after;
};

bool IsStatus(const std::string& column) {
  return EqualsIgnoringCase(column, "EA_STATUS") || EqualsIgnoringCase(column, "status");
}

// A status that was never set counts as active.
StoredValue AsCounted(const std::string& column, const StoredValue& value) {
  if (value.kind != StoredValue::Kind::kNull || !IsStatus(column)) return value;
  return {StoredValue::Kind::kText, 0, 0, "A"};
}

std::string BytesOf(const StoredValue& value) {
  std::string bytes;
  AppendValue(bytes, value);
  return bytes;
}

// The newest hand-in of each month.
using Since = std::map<int, HandIn>;

Since SinceOf(const Companion& companion, int month) {
  Since since;
  for (const HandIn& hand_in : HandIns(companion)) {
    if (month != 0 && hand_in.month != month) continue;
    const auto [newest, first] = since.try_emplace(hand_in.month, hand_in);
    if (!first && hand_in.step >= newest->second.step) newest->second = hand_in;
  }
  return since;
}

// What the act of a step came to since the hand-in.
enum class Came { kToNothing, kDone, kUndone };

Came WhatCameOf(const HistoryStep& step, const HandIn& hand_in) {
  bool was_done = false;
  if (step.id <= hand_in.step)
    was_done = hand_in.undone
                   ? std::find(hand_in.undone->begin(), hand_in.undone->end(), step.id) == hand_in.undone->end()
                   : !step.undone;
  if (was_done == !step.undone) return Came::kToNothing;
  return was_done ? Came::kUndone : Came::kDone;
}

class Changed {
 public:
  Changed(const Companion& companion, const Review& review, Since since)
      : companion_(companion), since_(std::move(since)) {
    for (const ReviewedRecord& record : review.records) {
      if (record.kind == RecordKind::kStructureMonth) structure_months_[record.key] = record.month;
      if (record.kind == RecordKind::kEquipmentMonth) months_[record.key] = record.month;
    }
    for (const auto& [month, hand_in] : since_)
      if (first_ == nullptr || hand_in.step < first_->step) first_ = &hand_in;
  }

  std::int64_t Count() {
    if (since_.empty()) return 0;
    const std::vector<HistoryStep> newest_first = Steps(companion_);
    const std::vector<HistoryStep> oldest_first(newest_first.rbegin(), newest_first.rend());
    // the months of deleted rows are in the steps
    for (const HistoryStep& step : oldest_first)
      if (Counts(step)) Walk(step, [this](const KeptRow& row) { Learn(row); });
    // as undo and redo go: first what was taken back, then what was done
    for (const HistoryStep& step : newest_first)
      if (Counts(step)) Walk(step, [&](const KeptRow& row) { Add(row, step, Came::kUndone); });
    for (const HistoryStep& step : oldest_first)
      if (Counts(step)) Walk(step, [&](const KeptRow& row) { Add(row, step, Came::kDone); });
    return std::count_if(courses_.begin(), courses_.end(),
                         [](const auto& course) { return course.second.before != course.second.after; });
  }

 private:
  bool Counts(const HistoryStep& step) const {
    return std::any_of(since_.begin(), since_.end(),
                       [&](const auto& since) { return WhatCameOf(step, since.second) != Came::kToNothing; });
  }

  template <typename Each>
  void Walk(const HistoryStep& step, Each each) {
    for (const std::string& part : PartsOf(companion_, step.id))
      for (const KeptRow& row : UnpackChanges(part)) each(row);
  }

  const RecordedTable* TableOf(const std::string& name) const {
    for (const RecordedTable& table : *companion_.db()->recorder().tables())
      if (table.name == name) return &table;
    return nullptr;
  }

  void Learn(const KeptRow& row) {
    const bool equipment = row.table == "EA_EQUIP_ACTV";
    if (row.row.empty() || (!equipment && row.table != "PA_PLATFORM_ACTV")) return;
    const RecordedTable* table = TableOf(row.table);
    if (table == nullptr) return;
    const std::vector<StoredValue> values = RowValues(row.row);
    for (std::size_t i = 0; i < values.size() && i < table->columns.size(); ++i)
      if (table->columns[i] == (equipment ? "EA_MO" : "PA_MO"))
        (equipment ? months_ : structure_months_).try_emplace(row.rowid, static_cast<int>(values[i].integer));
  }

  // 0 for a description; none for what is neither.
  std::optional<int> MonthOf(const KeptRow& row) const {
    const bool description =
        row.table == "PD_PLATFORM_DESC" || row.table == "ED_EQUIP_DESC" || IsTypeTable(row.table, "ED_");
    if (description) return 0;
    const bool structure = row.table == "PA_PLATFORM_ACTV";
    if (!structure && row.table != "EA_EQUIP_ACTV" && !IsTypeTable(row.table, "EA_")) return std::nullopt;
    const auto& months = structure ? structure_months_ : months_;
    const auto found = months.find(row.rowid);
    return found == months.end() ? std::nullopt : std::optional(found->second);
  }

  // The hand-in that the row's values went with; null when none did. Descriptions went with the first.
  const HandIn* HandInOf(const KeptRow& row) const {
    const std::optional<int> month = MonthOf(row);
    if (!month) return nullptr;
    if (*month == 0) return first_;
    const auto found = since_.find(*month);
    return found == since_.end() ? nullptr : &found->second;
  }

  // Goes on with the values of a row of a step that has come to that.
  void Add(const KeptRow& row, const HistoryStep& step, Came came) {
    const HandIn* hand_in = HandInOf(row);
    if (hand_in == nullptr || WhatCameOf(step, *hand_in) != came) return;
    const RecordedTable* table = TableOf(row.table);
    if (table == nullptr) return;
    const auto add = [&](std::size_t column, const StoredValue& before, const StoredValue& after) {
      if (column >= table->columns.size() || !IsShownColumn(table->name, table->columns[column])) return;
      if (IsDateOfRun(table->columns[column])) return;
      const auto [course, fresh] = courses_.try_emplace({row.table, row.rowid, column});
      const std::string& name = table->columns[column];
      if (fresh) course->second.before = BytesOf(AsCounted(name, came == Came::kDone ? before : after));
      course->second.after = BytesOf(AsCounted(name, came == Came::kDone ? after : before));
    };
    if (row.kind == KeptRow::Kind::kChanged) {
      for (const KeptValue& value : row.values) add(value.column, value.before, value.after);
      return;
    }
    const bool added = row.kind == KeptRow::Kind::kAdded;
    const std::vector<StoredValue> values = RowValues(row.row);
    for (std::size_t column = 0; column < values.size(); ++column)
      add(column, added ? StoredValue() : values[column], added ? values[column] : StoredValue());
  }

  const Companion& companion_;
  const Since since_;
  const HandIn* first_ = nullptr;
  std::unordered_map<std::int64_t, int> months_, structure_months_;
  std::map<std::tuple<std::string, std::int64_t, std::size_t>, Course> courses_;
};

}  // namespace

std::int64_t ValuesChangedSinceHandIn(const Companion& companion, const Review& review, int month) {
  if (companion.db() == nullptr || companion.db()->recorder().tables() == nullptr) return 0;
  return Changed(companion, review, SinceOf(companion, month)).Count();
}

}  // namespace merlu
