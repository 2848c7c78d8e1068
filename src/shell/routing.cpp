#include "shell/routing.h"

#include "base/text.h"
#include "entry/month_record.h"
#include "records/operator_record.h"
#include "records/structure_names.h"
#include "records/structure_record.h"
#include "records/survey_record.h"
#include "session/main_names.h"
#include "session/node_keys.h"
#include "session/records.h"
#include "sheets/contract.h"
#include "sheets/sheet_form.h"
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

const SheetSpec* SheetAt(const QCLocation& location) {
  return location.Is(level::kEquipment) ? FindSheet(location.EquipType) : nullptr;
}

struct LevelSheet {
  const char* level;
  const char* frame;
  void (*clear)(Session&);
  bool (*load)(Session&);
  void (*lock)(Session&);
  void (*unlock)(Session&);
};

constexpr LevelSheet kLevels[] = {
    {level::kUser, names::fraUserInfo, ClearOperator, LoadOperator, LockOperator, UnlockOperator},
    {level::kSurvey, names::fraSurvey, ClearSurvey, LoadSurvey, LockSurvey, UnlockSurvey},
    {level::kStructure, names::fraStructure, ClearStructure, LoadStructure, LockStructure, UnlockStructure},
};

const LevelSheet* LevelAt(const QCLocation& location) {
  for (const LevelSheet& row : kLevels)
    if (location.Is(row.level)) return &row;
  return nullptr;
}

// The three sheets of the main window are out of sight while an equipment sheet shows.
void PlaceSheet(Session& s) {
  for (const LevelSheet& row : kLevels) s.main->At(row.frame).visible = !s.current.Is(level::kEquipment);
}

// Whichever equipment sheet showed: an export leaves the session on a survey while one does.
void HideOtherSheets(Session& s) {
  const SheetSpec* current = SheetAt(s.current);
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
  if (const LevelSheet* at = LevelAt(s.current)) at->clear(s);
  if (const SheetSpec* sheet = SheetAt(s.current)) ClearFrame(s, *sheet);
  ShowNotices(s);
}

namespace {

// False when the record could not be read, which is shown.
bool LoadRecord(Session& s) {
  const auto require = [&s] { RequireReadable(s); };
  if (const SheetSpec* sheet = SheetAt(s.current)) return OnSheet(s, require) && LoadFrame(s, *sheet);
  const LevelSheet* at = LevelAt(s.current);
  return at == nullptr || (Plainly(s, require) && at->load(s));
}

}  // namespace

void LoadSheet(Session& s) {
  s.db.NoticeOthers();
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
  if (const LevelSheet* at = LevelAt(s.current)) at->lock(s);
  if (const SheetSpec* sheet = SheetAt(s.current)) LockFrame(s, *sheet);
}

void UnlockSheet(Session& s) {
  if (const LevelSheet* at = LevelAt(s.current)) at->unlock(s);
  if (const SheetSpec* sheet = SheetAt(s.current)) UnlockFrame(s, *sheet);
}

void SaveSheet(Session& s, bool after_qc) {
  if (s.unreadable) {
    s.save_failed = true;
    return Tell(s, kUnreadable, Icon::kWarning);
  }
  s.db.NoticeOthers();
  if (s.current.Is(level::kUser)) SaveOperator(s);
  if (s.current.Is(level::kStructure)) {
    // the tree record is updated before the structure is saved
    TreeRecord::Row* row = s.InActv() ? s.activity_record.FindUid(s.SA_ID_AK) : nullptr;
    if (row != nullptr) row->Status = s.main->At(names::chkSTRUCTURE_Status).checked ? "I" : "A";
    SaveStructure(s);
    if (!after_qc && !s.save_failed) s.unjudged_structures.emplace(s.mode, s.InActv() ? s.SA_ID_AK : s.PD_ID_AK);
  }
  if (const SheetSpec* sheet = SheetAt(s.current)) SaveFrame(s, *sheet, after_qc);
  if (!s.save_failed) Plainly(s, [&] { KeepCopiedOfShown(s); });
  ShowNotices(s);
}

void ShowSheet(Session& s) {
  if (const SheetSpec* sheet = SheetAt(s.current)) {
    if (Form* dialog = s.desk.Find(names::frmNewEquipment)) s.desk.Hide(*dialog);
    Form& form = SheetForm(s, *sheet);
    form.On(sheet->comment_button(), Event::kClick,
            [&s, &form, list = sheet->list()] { EditQCComment(s, form, list); });
    form.On(sheet->list(), Event::kDoubleClick,
            [&s, &form, list = sheet->list()] { DoubleClickResult(s, form, list); });
    s.desk.Show(form);
    return;
  }
  const LevelSheet* at = LevelAt(s.current);
  s.main->front = at == nullptr ? "none" : at->frame;
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
