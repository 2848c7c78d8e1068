#include "qc_run/run_qc.h"

#include <utility>

#include "qc/qc_log.h"
#include "qc_run/run_record.h"
#include "qc_run/walks.h"
#include "records/structure_record.h"
#include "records/survey_record.h"
#include "session/messages.h"
#include "sheets/contract.h"
#include "sheets/units.h"

namespace merlu {
namespace {

const SheetSpec* SheetAt(const QCLocation& location) {
  return location.Is(level::kEquipment) ? FindSheet(location.EquipType) : nullptr;
}

void Run(Session& s, QCLocation& location, std::vector<std::string>* messages) {
  if (location.Is(level::kSurvey))
    RunSurveyQC(s, location);
  else if (location.Is(level::kStructure))
    RunStructureQC(s, location);
  else if (const SheetSpec* sheet = SheetAt(location))
    RunSheetQC(s, *sheet, location, messages);
}

// The list of the sheet that the run was started on.
void LoadList(Session& s, const QCLocation& location) {
  if (location.Is(level::kSurvey)) LoadSurveyQCList(s);
  if (location.Is(level::kStructure)) LoadStructureQCList(s);
  if (const SheetSpec* sheet = SheetAt(location)) LoadQCList(s, *sheet);
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

void TellResult(Session& s, int count, bool silent) {
  if (s.StructureInactive || s.EquipmentInactive) {
    const std::string what = s.StructureInactive ? "Structure" : "Equipment";
    if (!silent) Tell(s, "QC skipped for inactive " + what, Icon::kInfo);
    return;
  }
  if (count == 0 && !silent) Tell(s, "QC completed, no errors found", Icon::kInfo);
  if (count > 0) Tell(s, "QC completed with " + std::to_string(count) + " errors found", Icon::kInfo);
}

void TellRunFault(Session& s, const Fault& fault) {
  if (fault.number == fault_number::kNotSet)
    return TellUnder(s, "Data Validation", "There is no data to QC", Icon::kWarning);
  TellUnder(s, "Application Error", std::to_string(fault.number) + ": " + fault.description, Icon::kStop);
}

}  // namespace

namespace {

enum class Boxes { kAll, kOfFindings, kNone };

std::int16_t RunAndShow(Session& s, QCLocation location, Boxes boxes, std::vector<std::string>* messages = nullptr) {
  const QCLocation saved = location;
  int count = 0;
  try {
    const Busy busy(s);
    ShowWait(s, "MERLU", "Running QC ...");
    s.platform.Paint();
    s.EquipmentInactive = s.StructureInactive = s.record_checked = false;
    s.db.NoticeOthers();
    if (location.Is(level::kUser)) {
      HideWait(s);
      return 0;
    }
    if (!s.db.IsOpen()) throw Fault(fault_number::kNotSet, "MERLU QC", "No inventory is open.");
    {
      WriteBatch batch(s.db);
      Run(s, location, messages);
      s.current = saved;
      LoadList(s, saved);
      count = CountQCErrors(s, Counted(s, saved));
      batch.Commit();
    }
    HideWait(s);
  } catch (const Fault& fault) {
    HideWait(s);
    TellRunFault(s, fault);
    return 0;
  }
  WithdrawByResult(s, saved, count);
  if (boxes != Boxes::kNone) TellResult(s, count, boxes == Boxes::kOfFindings);
  return static_cast<std::int16_t>(count);
}

}  // namespace

std::int16_t RunQC(Session& s, QCLocation location, bool silent) {
  return RunAndShow(s, std::move(location), silent ? Boxes::kOfFindings : Boxes::kAll);
}

std::int16_t RunQCWithoutBox(Session& s, QCLocation location, std::vector<std::string>& messages) {
  return RunAndShow(s, std::move(location), Boxes::kNone, &messages);
}

int RunQCAmongMany(Session& s, const SheetSpec* sheet, const QCLocation& at, TypedView& typed) {
  s.EquipmentInactive = s.StructureInactive = s.record_checked = false;
  if (sheet == nullptr)
    RunTypedStructureQC(s, at, typed);
  else
    RunTypedEquipment(s, *sheet, at, typed);
  s.current = at;
  if (typed.untouched) return 0;
  const int count = CountQCErrors(s, at);
  WithdrawByResult(s, at, count);
  return s.EquipmentInactive || s.StructureInactive ? CountQCErrors(s, at) : count;
}

}  // namespace merlu
