#include "qc_run/run_record.h"

#include <algorithm>

#include "base/dates.h"
#include "qc/apply.h"
#include "qc/qc_log.h"
#include "session/find_rows.h"
#include "session/notices.h"
#include "sheets/contract.h"
#include "sheets/paint.h"
#include "sheets/record_rows.h"
#include "sheets/sheet_form.h"
#include "sheets/structure.h"

namespace merlu {
namespace {

RecordKeys CurrentRecord(const Session& s) {
  return {s.PD_ID_AK, s.SA_ID_AK, s.ED_ID_AK, s.EA_ID_AK};
}

// What a run does over equipment that reports nothing.
void PassOver(Session& s, const SheetSpec& sheet, const QCLocation& location) {
  sheet.inactive_takes_comments ? DelQCRecordsForLocAndBelowAll(s, location) : DelQCRecordsForLocAndBelow(s, location);
  s.EquipmentInactive = true;
  s.record_checked = false;
}

Value DateOf(Session& s, const Verdicts& verdicts) {
  s.record_checked = verdicts.faults.empty();
  return s.record_checked ? Value(StoredDate(s.host.Now())) : Value(Null{});
}

// A description of equipment has no date of last QC.
void NoteDescription(Session& s, std::int64_t ED_ID_AK) {
  if (s.InDesc() && s.record_checked) s.checked_descriptions[ED_ID_AK] = true;
}

void RunOnSheet(Session& s, const SheetSpec& sheet, QCLocation& location) {
  Form& form = SheetForm(s, sheet);
  if (sheet.has_activity && form.At(sheet.status_box()).checked) return PassOver(s, sheet, location);
  if (sheet.before_rules) sheet.before_rules(s, location);
  Context context = ContextOf(s.db, s.mode, CurrentRecord(s));
  context.saving = s.InSaveQC;
  const RuleSet& rules = RulesOf(sheet);
  const Verdicts verdicts = Judge(rules, s.mode, ViewOfForm(rules.fields(), form), context);
  ApplyVerdicts(s, location, verdicts);
  PaintVerdicts(s, form, rules.fields(), verdicts);
  const Value date = DateOf(s, verdicts);
  NoteDescription(s, s.ED_ID_AK);
  if (!FindRecord(s, sheet, location) || !s.InActv() || !sheet.has_activity) return;
  Cursor& master = s.At("EA_EQUIP_ACTV");
  master.Edit();
  master.SetField("EA_QC_DT", date);
  master.Update();
}

}  // namespace

void RunSheetQC(Session& s, const SheetSpec& sheet, QCLocation& location) {
  s.current = location;
  if (IsShowing(s, sheet)) return RunOnSheet(s, sheet, location);
  // what could not be read is not judged
  NotingSheetFaults(s.notices, [&] {
    const bool found = JudgeRecord(s.db, sheet, s.mode, CurrentRecord(s),
                                   [&](const JudgedRecord& record) { RunJudged(s, location, record); });
    if (!found) Note(s.notices, sheet.not_found_on_load);
  });
}

namespace {

// A structure is dated in both modes, without its equipment.
void RunJudgedStructure(Session& s, const QCLocation& location, const JudgedRecord& record) {
  ApplyVerdicts(s, location, *record.verdicts);
  NoteFaults(s, *record.verdicts);
  const Value date = DateOf(s, *record.verdicts);
  s.unjudged_structures.erase({s.mode, s.InActv() ? record.keys.SA_ID_AK : record.keys.PD_ID_AK});
  if (s.InActv())
    s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PA_QC_DT=? WHERE SA_ID_AK=?", {date, record.keys.SA_ID_AK});
  else
    s.db.Execute("UPDATE PD_PLATFORM_DESC SET PD_QC_DT=? WHERE PD_ID_AK=?", {date, record.keys.PD_ID_AK});
}

}  // namespace

int DateEquipment(Session& s, std::vector<std::int64_t> keys, const Value& date) {
  std::sort(keys.begin(), keys.end());
  int dated = 0;
  for (auto first = keys.begin(), next = first; first != keys.end(); first = next) {
    // those of one month mostly follow each other
    while (++next != keys.end() && *next == *(next - 1) + 1) {
    }
    dated += s.db.ExecuteOn(s.db.ChangesOf("EA_EQUIP_ACTV"),
                            "UPDATE EA_EQUIP_ACTV SET EA_QC_DT=? WHERE EA_ID_AK BETWEEN ? AND ?",
                            {date, *first, *(next - 1)});
  }
  return dated;
}

void RunJudged(Session& s, const QCLocation& at, const JudgedRecord& record, StructureWalk* walk) {
  if (record.IsOfStructure()) return RunJudgedStructure(s, at, record);
  const SheetSpec& sheet = *record.sheet;
  QCLocation location = at;
  if (sheet.has_activity && record.inactive) return PassOver(s, sheet, location);
  const int faults = s.notices.faults;
  if (sheet.before_rules) sheet.before_rules(s, location);
  // what runs before the rules may have written
  ApplyVerdicts(s, location, *record.verdicts, walk == nullptr || sheet.before_rules ? nullptr : &walk->known);
  // a failed write may have taken back the findings of those before
  if (walk != nullptr && s.notices.faults != faults) walk->checked.clear();
  NoteFaults(s, *record.verdicts);
  s.record_checked = record.verdicts->faults.empty();
  NoteDescription(s, record.keys.ED_ID_AK);
  if (!s.InActv() || !sheet.has_activity) return;
  if (walk != nullptr && s.record_checked)
    walk->checked.push_back(record.keys.EA_ID_AK);
  else
    DateEquipment(s, {record.keys.EA_ID_AK}, DateOf(s, *record.verdicts));
}

namespace {

// A run that met a fault somewhere is none for a record that is saved among many.
void RequireNoFaults(const Verdicts& verdicts) {
  if (!verdicts.faults.empty()) throw Fault(verdicts.faults.front().fault);
}

void TakeMessages(const Verdicts& verdicts, std::vector<std::string>& messages) {
  for (const FieldChange& change : verdicts.changes)
    if (!change.message.empty()) messages.push_back(change.message);
}

// Brings the log to what was judged; false, with StructureInactive, for a structure that reports nothing.
bool ApplyToStructure(Session& s, const QCLocation& location, bool inactive, const Verdicts& verdicts) {
  s.StructureInactive = inactive;
  if (inactive) {
    s.record_checked = false;
    DelQCRecordsForLocAndBelow(s, location);
    return false;
  }
  ApplyVerdicts(s, location, verdicts);
  s.record_checked = verdicts.faults.empty();
  return true;
}

}  // namespace

void RunTypedEquipment(Session& s, const SheetSpec& sheet, QCLocation location, TypedView& typed) {
  s.current = location;
  if (sheet.has_activity && typed.inactive) return PassOver(s, sheet, location);
  if (sheet.before_rules) sheet.before_rules(s, location);
  Verdicts& verdicts = typed.verdicts;
  Judge(RulesOf(sheet), s.mode, typed.view, *typed.context, verdicts);
  RequireNoFaults(verdicts);
  TakeMessages(verdicts, typed.messages);
  s.record_checked = true;
  const bool raises = std::any_of(verdicts.all.begin(), verdicts.all.end(),
                                  [](const Verdict& verdict) { return verdict.log == Verdict::Log::kRaise; });
  if (typed.known == nullptr || sheet.before_rules || typed.known->Has(location)) {
    ApplyVerdicts(s, location, verdicts);
  } else {
    typed.findings = raises ? RaiseFirst(s, location, verdicts) : 0;
    if (*typed.findings > 0) typed.known->Add(location);
  }
}

bool RunTypedStructureRules(Session& s, const QCLocation& location, TypedView& typed) {
  const Context context = ContextOf(s.db, s.mode, CurrentRecord(s));
  Verdicts verdicts;
  Judge(RulesOf(StructureSheet()), s.mode, typed.view, context, verdicts);
  RequireNoFaults(verdicts);
  return ApplyToStructure(s, location, typed.inactive, verdicts);
}

bool RunStructureRules(Session& s, const QCLocation& location) {
  const SheetSpec& sheet = StructureSheet();
  Form& form = SheetForm(s, sheet);
  const RuleSet& rules = RulesOf(sheet);
  const Context context = ContextOf(s.db, s.mode, CurrentRecord(s));
  const Verdicts verdicts = Judge(rules, s.mode, ViewOfForm(rules.fields(), form), context);
  const bool active = ApplyToStructure(s, location, form.At(sheet.status_box()).checked, verdicts);
  if (active) PaintVerdicts(s, form, rules.fields(), verdicts);
  return active;
}

bool RunStoredStructureRules(Session& s, const QCLocation& location, Contexts& contexts, RecordJudge& judge) {
  bool found = false, active = true;
  const bool read = NotingFaults(s.notices, [&] {
    judge.JudgeRows(s.db, contexts, s.PD_ID_AK, s.InActv() ? s.SA_ID_AK : s.PD_ID_AK, [&](const JudgedRecord& record) {
      found = true;
      active = ApplyToStructure(s, location, record.inactive, *record.verdicts);
      if (active) NoteFaults(s, *record.verdicts);
    });
  });
  if (read && !found) Note(s.notices, "Structure record not found");
  return found && active;
}

void StampStructure(Session& s, bool checked) {
  if (!FindStructureRecord(s)) return;
  Cursor& row = s.At(s.InActv() ? "PA_PLATFORM_ACTV" : "PD_PLATFORM_DESC");
  row.Edit();
  row.SetField(s.InActv() ? "PA_QC_DT" : "PD_QC_DT", checked ? Value(StoredDate(s.host.Now())) : Value(Null{}));
  row.Update();
  s.unjudged_structures.erase({s.mode, s.InActv() ? s.SA_ID_AK : s.PD_ID_AK});
}

}  // namespace merlu
