#include "shell/edit_cycle.h"

#include <functional>
#include <utility>

#include "entry/month_record.h"
#include "entry/shown_findings.h"
#include "session/act.h"
#include "sheets/operator.h"
#include "shell/commands.h"
#include "shell/draft.h"
#include "shell/messages.h"
#include "shell/navigation.h"
#include "shell/qc_command.h"
#include "shell/sheet_acts.h"
#include "shell/status.h"
#include "shell/trees.h"

namespace merlu {
namespace {

constexpr const char* kSaved = "Saved";

void SetEditing(Session& s, bool editing) {
  s.editing = editing;
  UpdateCommands(s);
}

void EndEdit(Session& s) {
  SetEditing(s, false);
  LockSheet(s);
}

// The focused field's text counts as if the field had been left.
void LeaveFields(Session& s) {
  for (Form* form : s.desk.showing) ComputeSums(*form);
}

// A save, with the look-up list that has grown during the edit.
class SavingAct {
 public:
  explicit SavingAct(Session& s) : act_((s.companion.ContinueWith(std::exchange(s.edit_step, 0)), s), "Save") {
    s.save_failed = !act_.MayWrite();
  }

 private:
  Act act_;
};

// The draft of the edit is removed in the commit that stores it.
void SaveForGood(Session& s, bool after_qc) {
  s.companion.ForgetDraftWithBatch(s.draft.id);
  SaveSheet(s, after_qc);
  s.companion.ForgetDraftWithBatch(0);
  if (!s.save_failed) EndDraft(s);
}

}  // namespace

void BeginEdit(Session& s) {
  if (!CanUseRecord(s)) return;
  SetEditing(s, true);
  LeaveDocks(s);
  UnlockSheet(s);
  BeginDraft(s);
}

void SaveEdits(Session& s) {
  const SavingAct act(s);
  LeaveFields(s);
  if (!s.save_failed) s.save_failed = !MindOthers(s);
  if (s.save_failed) return;
  SaveForGood(s, false);
  if (s.save_failed) return;
  ClearSheet(s);
  LoadSheet(s);
  Say(s, kSaved);
  if (s.unreadable) return EndEdit(s);  // it is saved, and cannot be shown
  BeginEdit(s);
}

namespace {

// A message names what the operator's record lacks, and its field gets the focus.
bool IsOperatorComplete(Session& s) {
  const auto unmet = s.current.Is(level::kUser) ? UnmetOfOperator(*s.main) : std::nullopt;
  if (!unmet) return true;
  Tell(s, unmet->message, Icon::kWarning);
  s.main->focus = unmet->field;
  return false;
}

void SaveAndEnd(Session& s, const std::function<void(Session&, const QCLocation&)>& run) {
  const SavingAct act(s);
  if (s.save_failed) return;
  LeaveFields(s);
  s.save_failed = !MindOthers(s) || !IsOperatorComplete(s);
  if (s.save_failed) return;
  const QCLocation here = s.current;
  s.InSaveQC = true;
  run(s, here);
  s.InSaveQC = false;
  s.current = here;  // a run that ended with a fault has moved the location; the save belongs to this record
  SaveForGood(s, s.record_checked);
  if (s.save_failed) return;
  SaveTreeExpansion(s);
  SelectRoot(s);
  const QCLocation root = s.current;
  s.current = here;
  if (!ReselectLocation(s)) {
    LockSheet(s);  // a survey has no node among the descriptions
    s.current = root;
  }
  RestoreTreeExpansion(s);
  EndEdit(s);
  Say(s, kSaved);
}

}  // namespace

void SaveExit(Session& s) {
  SaveAndEnd(s, [](Session& at, const QCLocation& location) { RunQCAndTell(at, location, true); });
}

std::vector<std::string> SaveExitWithoutBox(Session& s) {
  std::vector<std::string> messages;
  SaveAndEnd(s, [&](Session& at, const QCLocation& location) { messages = RunQCWithoutBox(at, location); });
  return messages;
}

void CancelEdit(Session& s) {
  s.edit_step = 0;
  const bool typed = HasTyped(s);
  EndDraft(s);
  ClearSheet(s);
  LoadSheet(s);
  EndEdit(s);
  // nothing of what was saved is lost
  if (typed || s.message != kSaved) Say(s, "Edit dropped");
}

void RunQCHere(Session& s) {
  LeaveFields(s);
  if (!CanUseRecord(s)) return;
  const Act act(s, "QC Run");
  if (!act.MayWrite()) return;
  const QCLocation here = s.current;
  if (!RunQCAndTell(s, here, false).fault) Say(s, "QC was run");
  // a run that ended with a fault has moved the location; the next edit is of the sheet that is shown
  s.current = here;
  ShowFieldFindingsOfRun(s);
}

}  // namespace merlu
