#include "shell/sheet_acts.h"

#include "base/text.h"
#include "entry/month_record.h"
#include "session/find_rows.h"
#include "session/main_names.h"
#include "session/node_keys.h"
#include "sheets/contract.h"
#include "sheets/sheet_form.h"
#include "sheets/structure_names.h"
#include "sheets/survey.h"
#include "sheets/units.h"
#include "shell/commands.h"
#include "shell/comment_dialog.h"
#include "shell/dialog_names.h"
#include "shell/entry_commands.h"
#include "shell/messages.h"
#include "shell/results.h"

namespace merlu {
namespace {

constexpr const char* kUnreadable = "This record could not be read.";

// The three sheets of the main window are out of sight while an equipment sheet shows.
void PlaceSheet(Session& s) {
  for (const char* frame : {names::fraUserInfo, names::fraSurvey, names::fraStructure})
    s.main->At(frame).visible = !s.current.Is(level::kEquipment);
}

// Whichever equipment sheet showed: an export leaves the session on a survey while one does.
void HideOtherSheets(Session& s) {
  const SheetSpec* current = SheetOf(s.current);
  for (const SheetSpec* sheet : AllSheets())
    if (sheet != current && IsShowing(s, *sheet)) UnloadSheet(s, *sheet);
}

// The record's key, or that of none: what is done next must not go to the record that showed before.
std::int64_t RowKey(const KeyList& list, const std::string& node_key) {
  const std::int64_t* id = list.Find(node_key);
  return id == nullptr ? 0 : *id;
}

void TakeActivityKeys(Session& s, const std::string& key) {
  const std::size_t length = CountCharacters(key);
  if (length == kStructureMonthKeyLength) {
    s.SA_ID_AK = RowKey(s.structure_month_list, key);
  } else if (length == kEquipmentMonthKeyLength) {
    s.EA_ID_AK = RowKey(s.equipment_month_list, key);
    const TreeRecord::Row* row = s.activity_record.FindTag(FirstCharacters(key, kStructureMonthKeyLength));
    s.node_status = row == nullptr ? "" : row->Status;
  }
}

void TakeDescriptionKeys(Session& s, const std::string& key) {
  const std::size_t length = CountCharacters(key);
  if (length == kStructureKeyLength) {
    s.PD_ID_AK = RowKey(s.structure_list, key);
  } else if (length == kEquipmentKeyLength) {
    s.ED_ID_AK = RowKey(s.equipment_list, key);
  }
}

// False for a node that no list knows the record of.
bool HasRecord(const Session& s) {
  if (s.current.Is(level::kStructure)) return (s.InActv() ? s.SA_ID_AK : s.PD_ID_AK) != 0;
  if (s.current.Is(level::kEquipment)) return (s.InActv() ? s.EA_ID_AK : s.ED_ID_AK) != 0;
  return true;
}

void TakeLocation(Session& s, const std::string& key) {
  s.editing = false;
  if (s.InActv()) {
    s.current = ParseNodeKey(key);
    if (s.current.Is(level::kUnknown))
      Tell(s, "Invalid Key len " + std::to_string(CountCharacters(key)) + " in ParseNodeKey with " + key);
    TakeActivityKeys(s, key);
  } else {
    s.current = ParseDescNodeKey(key);
    TakeDescriptionKeys(s, key);
  }
}

}  // namespace

void ClearSheet(Session& s) {
  if (s.current.Is(level::kSurvey)) ClearSurvey(s);
  if (const SheetSpec* sheet = SheetOf(s.current)) ClearFrame(s, *sheet);
  ShowNotices(s);
}

namespace {

// False when the record could not be read, which is shown.
bool LoadRecord(Session& s) {
  const auto require = [&s] { RequireReadable(s); };
  if (s.current.Is(level::kSurvey)) {
    if (!Plainly(s, require)) return false;
    LoadSurveyQCList(s);
    return true;
  }
  const SheetSpec* sheet = SheetOf(s.current);
  if (sheet == nullptr) return true;
  return (sheet->plain_faults ? Plainly(s, require) : OnSheet(s, require)) && LoadFrame(s, *sheet);
}

}  // namespace

void LoadSheet(Session& s) {
  NoticeOthers(s);
  s.unreadable = !LoadRecord(s);
  if (s.unreadable) Tell(s, kUnreadable, Icon::kWarning);
  s.unreadable = s.unreadable || !HasRecord(s);
  if (!s.unreadable) ShowEntryMarks(s);
  ShowNotices(s);
}

bool CanUseRecord(Session& s) {
  if (!s.unreadable) return true;
  if (!HasRecord(s)) {
    Tell(s, kUnreadable, Icon::kWarning);
    return false;
  }
  ClearSheet(s);
  LoadSheet(s);
  LockSheet(s);
  return !s.unreadable;
}

void LockSheet(Session& s) {
  if (s.current.Is(level::kSurvey)) LockSurvey(s);
  if (const SheetSpec* sheet = SheetOf(s.current)) LockFrame(s, *sheet);
}

void UnlockSheet(Session& s) {
  if (s.current.Is(level::kSurvey)) UnlockSurvey(s);
  if (const SheetSpec* sheet = SheetOf(s.current)) UnlockFrame(s, *sheet);
}

void SaveSheet(Session& s, bool after_qc) {
  if (s.unreadable) {
    s.save_failed = true;
    return Tell(s, kUnreadable, Icon::kWarning);
  }
  NoticeOthers(s);
  if (s.current.Is(level::kStructure)) {
    // the tree record is updated before the structure is saved
    TreeRecord::Row* row = s.InActv() ? s.activity_record.FindUid(s.SA_ID_AK) : nullptr;
    if (row != nullptr) row->Status = s.main->At(names::chkSTRUCTURE_Status).checked ? "I" : "A";
  }
  if (const SheetSpec* sheet = SheetOf(s.current)) SaveFrame(s, *sheet, after_qc);
  if (s.current.Is(level::kStructure) && !after_qc && !s.save_failed)
    s.unjudged_structures.emplace(s.mode, s.InActv() ? s.SA_ID_AK : s.PD_ID_AK);
  if (!s.save_failed) Plainly(s, [&] { KeepCopiedOfShown(s); });
  ShowNotices(s);
}

void ShowSheet(Session& s) {
  const SheetSpec* sheet = SheetOf(s.current);
  if (sheet != nullptr && sheet->has_form()) {
    if (Form* dialog = s.desk.Find(names::frmNewEquipment)) s.desk.Hide(*dialog);
    Form& form = SheetForm(s, *sheet);
    form.On(sheet->comment_button(), Event::kClick,
            [&s, &form, list = sheet->list()] { EditQCComment(s, form, list); });
    form.On(sheet->list(), Event::kDoubleClick,
            [&s, &form, list = sheet->list()] { DoubleClickResult(s, form, list); });
    s.desk.Show(form);
    return;
  }
  s.main->front = sheet != nullptr ? sheet->frame() : s.current.Is(level::kSurvey) ? names::fraSurvey : "none";
}

void ClickNode(Session& s, int node) {
  s.tree.selected = node;
  s.tree.ExpandAncestors(node);
  TakeLocation(s, s.tree.nodes[static_cast<std::size_t>(node)].key);
  if (s.current.Is(level::kUser)) s.may_add_month = s.InActv();
  UpdateCommands(s);
  ClearSheet(s);
  LoadSheet(s);
  LockSheet(s);
  PlaceSheet(s);
  ShowSheet(s);
  HideOtherSheets(s);
  s.status_text = s.tree.FullPath(node);
}

}  // namespace merlu
