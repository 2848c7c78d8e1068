#include "qc_run/run_qc.h"

#include "qc/qc_log.h"
#include "qc_run/run_record.h"
#include "qc_run/walks.h"
#include "session/find_rows.h"
#include "sheets/contract.h"
#include "sheets/structure.h"
#include "sheets/survey.h"
#include "sheets/units.h"

namespace merlu {
namespace {

void Run(Session& s, QCLocation& location) {
  if (location.Is(level::kSurvey))
    RunSurveyQC(s, location);
  else if (location.Is(level::kStructure))
    RunStructureQC(s, location);
  else if (const SheetSpec* sheet = SheetOf(location))
    RunSheetQC(s, *sheet, location);
}

// The list of the sheet that the run was started on.
void LoadList(Session& s, const QCLocation& location) {
  if (location.Is(level::kSurvey)) LoadSurveyQCList(s);
  if (const SheetSpec* sheet = SheetOf(location)) LoadQCList(s, *sheet);
}

// Findings of descriptions have no month.
QCLocation Counted(const Session& s, QCLocation location) {
  if (s.InDesc()) location.Month = location.Year = 0;
  return location;
}

// What the result takes out of the log: findings of what is inactive; and a clean run of a record in one month wipes
// its findings of the mode in all other months too.
void WithdrawByResult(Session& s, const QCLocation& location, int count) {
  if (s.StructureInactive) return DelQCRecordsForStructMode(s, location);
  if (s.EquipmentInactive) return DelQCRecordsForEquipMode(s, location);
  if (count == 0 && location.Is(level::kStructure)) DelQCRecordsForStructMode(s, location);
  if (count == 0 && location.Is(level::kEquipment)) DelQCRecordsForEquipMode(s, location);
}

QCResult ResultOf(const Session& s, int count) {
  if (s.StructureInactive) return {QCResult::End::kInactiveStructure, count};
  if (s.EquipmentInactive) return {QCResult::End::kInactiveEquipment, count};
  return {QCResult::End::kChecked, count};
}

}  // namespace

QCResult RunQC(Session& s, QCLocation location) {
  const QCLocation saved = location;
  int count = 0;
  try {
    s.EquipmentInactive = s.StructureInactive = s.record_checked = false;
    NoticeOthers(s);
    if (location.Is(level::kUser)) return {QCResult::End::kNothingToCheck};
    if (!s.db.IsOpen()) throw Fault(fault_number::kNotSet, "MERLU QC", "No inventory is open.");
    WriteBatch batch(s.db);
    Run(s, location);
    s.current = saved;
    LoadList(s, saved);
    count = CountQCErrors(s, Counted(s, saved));
    batch.Commit();
  } catch (const Fault& fault) {
    return {QCResult::End::kFault, 0, fault};
  }
  WithdrawByResult(s, saved, count);
  return ResultOf(s, count);
}

int RunQCAmongMany(Session& s, const SheetSpec& sheet, const QCLocation& at, TypedView& typed) {
  s.EquipmentInactive = s.StructureInactive = s.record_checked = false;
  if (&sheet == &StructureSheet())
    RunTypedStructureQC(s, at, typed);
  else
    RunTypedEquipment(s, sheet, at, typed);
  s.current = at;
  if (typed.findings) return *typed.findings;
  const int count = CountQCErrors(s, at);
  WithdrawByResult(s, at, count);
  return s.EquipmentInactive || s.StructureInactive ? CountQCErrors(s, at) : count;
}

}  // namespace merlu
