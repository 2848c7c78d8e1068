// The one way in which figures that were not typed on a sheet get into the store: as End Edit & Save on the record's
// own sheet would have left them. Records are judged as they are typed, from their rows; no form is made.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entry/month_rows.h"
#include "qc/qc_log.h"
#include "qc_run/run_record.h"

namespace merlu {

// A month's record and what is typed into it: texts by control, and the box of its status.
struct TypedRecord {
  const SheetSpec* sheet = nullptr;
  QCLocation at;
  RecordKeys keys;
  bool structure_inactive = false;
  std::vector<std::pair<std::string_view, std::string>> texts;  // by control
  std::optional<bool> no_emissions;
};

struct SavedRecord {
  int findings = 0;
  std::vector<std::string> messages;  // that its sheet would have shown in boxes
  Values values;                      // the month's fields as they are stored now
};

// Saves many records in the caller's batch. Its destructor puts the session's location back. Faults are passed on: the
// caller's batch rolls back what was written.
class RecordSaver {
 public:
  explicit RecordSaver(Session& s);
  ~RecordSaver();
  RecordSaver(const RecordSaver&) = delete;
  RecordSaver& operator=(const RecordSaver&) = delete;

  // `stored`: the record as it is stored now, with its context.
  SavedRecord Save(const TypedRecord& record, const MonthRow& stored, const Context& context);
  // There are many of them: the log is read once.
  void ExpectMany() { known_.emplace(s_.db); }
  // Before the commit: dates the records of which nothing else has changed in their master rows.
  void StoreDates();
  // After the commit: the tree knows the statuses that were saved.
  void Committed();

 private:
  void StandAt(const TypedRecord& record);
  Values Store(const TypedRecord& record, const MonthRow& stored, const TypedView& typed,
               const std::vector<bool>& touched);

  Session& s_;
  QCLocation at_;
  RecordKeys keys_;
  std::string status_;
  bool editing_, failed_;
  Value now_;  // the present time as a stored date
  std::optional<EquipmentWithFindings> known_;
  const Context* context_ = nullptr;  // of the record before; `saving_` is a copy with `saving` set
  Context saving_;
  std::optional<TypedView> typed_;
  std::vector<std::int64_t> dated_;                      // months of equipment that StoreDates dates
  bool propagated_ = false;                              // the equipment of all structures has their statuses
  std::vector<std::pair<std::int64_t, bool>> statuses_;  // of the structures' months that were saved
};

}  // namespace merlu
