#include "shell/draft.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "base/host.h"
#include "base/text.h"
#include "forms/dialog.h"
#include "history/notes.h"
#include "records/judge_records.h"
#include "session/main_names.h"
#include "session/place.h"
#include "sheets/contract.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/edit_cycle.h"
#include "shell/messages.h"
#include "shell/navigation.h"
#include "shell/sheet_acts.h"

namespace merlu {
namespace {

constexpr std::int64_t kPauseMilliseconds = 1000;
constexpr const char* kInterrupted = "An edit was interrupted before it was saved:";
constexpr const char* kInterruptedAndChanged =
    "An edit was interrupted before it was saved, and the record was changed since:";

std::int64_t Milliseconds() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::string OwnName() {
  return host::MachineName() + " " + std::to_string(host::ProcessNumber());
}

// A program on this machine that still runs keeps its own draft.
bool IsAnothersAlive(const std::string& owner) {
  const std::string machine = host::MachineName() + " ";
  if (!owner.starts_with(machine) || owner == OwnName()) return false;
  std::int64_t process = 0;
  const auto [end, error] = std::from_chars(owner.data() + machine.size(), owner.data() + owner.size(), process);
  return error == std::errc() && end == owner.data() + owner.size() && host::IsRunning(process);
}

bool TakesText(const Control& control) {
  switch (control.kind) {
    case Kind::kText:
    case Kind::kMasked:
    case Kind::kList: return !control.locked;
    case Kind::kCheck:
    case Kind::kOption: return true;
    default: return false;
  }
}

std::string TextOf(const Control& control) {
  if (control.kind == Kind::kCheck || control.kind == Kind::kOption) return control.checked ? "on" : "off";
  return control.text;
}

bool IsOnSheet(const Form& form, const Control& control, const std::string& frame) {
  const Control* at = &control;
  while (at != nullptr && at->name != frame) at = at->parent.empty() ? nullptr : form.Find(at->parent);
  return at != nullptr;
}

std::string Caption(const Control& control) {
  std::string caption = control.caption.empty() ? control.tag : control.caption;
  while (!caption.empty() && std::string_view(":; ").find(caption.back()) != std::string_view::npos) caption.pop_back();
  return caption;
}

// ---- what is stored by now ----

std::int64_t Key(Database& db, const char* sql, const Values& values) {
  return ToInteger(db.Single(sql, values));
}

RecordKeys KeysOf(Database& db, const QCLocation& at) {
  const std::int64_t month = at.Month, year = at.Year;
  RecordKeys keys;
  keys.PD_ID_AK = Key(db, "SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM=? AND STRUCT_NUM=? ORDER BY rowid",
                      {Trim(at.CmplxID), Trim(at.StructID)});
  keys.SA_ID_AK =
      Key(db, "SELECT SA_ID_AK FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=? AND PA_YR=? AND PA_MO=? ORDER BY rowid",
          {keys.PD_ID_AK, year, month});
  if (!at.Is(level::kEquipment)) return keys;
  keys.ED_ID_AK = Key(
      db,
      "SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE PD_ID_AK=? AND ED_EQUIP_TYP=? AND ED_MERLU_EQUIP_ID=? ORDER BY rowid",
      {keys.PD_ID_AK, Trim(at.EquipType), Trim(at.EquipID)});
  keys.EA_ID_AK = Key(db, "SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE ED_ID_AK=? AND EA_YR=? AND EA_MO=? ORDER BY rowid",
                      {keys.ED_ID_AK, year, month});
  return keys;
}

// Puts what the record holds now in the place of what the edit began with. True when another program has changed a
// field of the draft. The operator's sheet has no rows to view: it is compared when it is loaded.
bool ReadStored(Session& s, Draft& draft) {
  QCLocation at;
  Mode mode = s.mode;
  if (!UnpackLocation(draft.at, at, mode)) return false;
  const bool equipment = at.Is(level::kEquipment);
  if (!equipment && !at.Is(level::kStructure)) return false;
  const SheetSpec* sheet = equipment ? FindSheet(at.EquipType) : &StructureSheet();
  if (sheet == nullptr) return false;
  bool changed = false;
  const std::vector<FieldSpec>& specs = sheet->fields;
  JudgeRecord(s.db, *sheet, mode, KeysOf(s.db, at), [&](const JudgedRecord& record) {
    for (DraftField& field : draft.fields) {
      const auto spec = std::find_if(specs.begin(), specs.end(),
                                     [&](const FieldSpec& each) { return each.control == field.control; });
      const int place = record.view->fields().Find(field.control);
      const bool is_text = spec != specs.end() && spec->kind != Kind::kCheck && spec->kind != Kind::kOption;
      if (!is_text || !spec->loads || place < 0 || record.view->Text(place) == field.stored) continue;
      field.stored = record.view->Text(place);
      changed = true;
    }
  });
  return changed;
}

// The fields that differ from what was loaded.
Draft Changed(const Draft& draft) {
  Draft changed = draft;
  std::erase_if(changed.fields, [](const DraftField& field) { return field.stored == field.entered; });
  return changed;
}

// Other programs' commits change it.
std::int64_t FileVersion(Session& s) {
  return ToInteger(s.db.Single("PRAGMA main.data_version"));
}

void PutIn(Session& s, Form& form, const DraftField& field) {
  Control* control = form.Find(field.control);
  if (control == nullptr) return;
  switch (control->kind) {
    case Kind::kCheck:
    case Kind::kOption: act::Check(s.desk, form, field.control, field.entered == "on"); return;
    case Kind::kList: act::Choose(s.desk, form, field.control, field.entered); return;
    default: act::Type(s.desk, form, field.control, field.entered); return;
  }
}

// What is disabled now took its text before the edit that disabled it.
void PutBack(Form& form, const DraftField& field) {
  Control* control = form.Find(field.control);
  if (control == nullptr || (control->enabled && !control->locked)) return;
  if (control->kind == Kind::kCheck || control->kind == Kind::kOption) {
    control->checked = field.entered == "on";
    return;
  }
  control->text = field.entered;
  if (control->kind != Kind::kList) return;
  const auto item = std::find(control->items.begin(), control->items.end(), field.entered);
  control->index = item == control->items.end() ? -1 : static_cast<int>(item - control->items.begin());
}

void Continue(Session& s, const Draft& draft) {
  QCLocation at;
  Mode mode = s.mode;
  if (!UnpackLocation(draft.at, at, mode) || !GoTo(s, at, mode)) return;
  if (const Control& edit = s.main->At(names::cmdEdit); !edit.visible || !edit.enabled) {
    Tell(s, "This record cannot be edited while its structure reports no emissions for the month.");
    return;
  }
  BeginEdit(s);
  const ShowingSheet sheet = SheetThatShows(s);
  if (!s.editing || sheet.form == nullptr) return;
  for (const DraftField& field : draft.fields) PutIn(s, *sheet.form, field);
  for (const DraftField& field : draft.fields) PutBack(*sheet.form, field);
  s.draft.id = draft.id;
  KeepDraftOfEdit(s, When::kAtOnce);
}

enum class Answer { kLater, kContinue, kDiscard };

Answer Ask(Session& s, Draft draft) {
  Form& form = DraftDialog(s);
  bool changed = false;
  Plainly(s, [&] { changed = ReadStored(s, draft); });
  form.At("lblDRF_Note").caption = form.At("lblDRF_Note").text = changed ? kInterruptedAndChanged : kInterrupted;
  form.At("lblDRF_Place").caption = form.At("lblDRF_Place").text = draft.place;
  std::vector<RowsModel::Row> rows;
  for (const DraftField& field : draft.fields) rows.push_back({field.caption, field.stored, field.entered});
  static_cast<RowsModel&>(*form.At(names::lvwDRF_Fields).model).Set(std::move(rows));
  Answer answer = Answer::kLater;
  const auto answering = [&](const char* button, Answer meant) {
    form.On(button, Event::kClick, [&s, &form, &answer, meant] {
      answer = meant;
      s.desk.Hide(form);
    });
  };
  answering(names::cmdDRF_Continue, Answer::kContinue);
  answering(names::cmdDRF_Discard, Answer::kDiscard);
  OpenDialog(s, form);
  for (const char* button : {names::cmdDRF_Continue, names::cmdDRF_Discard}) form.On(button, Event::kClick, nullptr);
  return answer;
}

}  // namespace

Form& DraftDialog(Session& s) {
  return DialogForm(s, names::frmDraft, "Interrupted Edit", [](Form& form) {
    AddLabel(form, "lblDRF_Note", kInterrupted);
    AddLabel(form, "lblDRF_Place", "");
    AddListView(form, names::lvwDRF_Fields, "What was typed", {"Field", "Stored", "Entered"},
                std::make_shared<RowsModel>());
    AddButton(form, names::cmdDRF_Continue, "Continue");
    AddButton(form, names::cmdDRF_Later, "Later");
    AddButton(form, names::cmdDRF_Discard, "Discard");
    form.default_button = names::cmdDRF_Continue;
    form.cancel_button = names::cmdDRF_Later;
  });
}

void BeginDraft(Session& s) {
  const std::int64_t id = s.draft.id;
  s.draft = Draft();
  s.draft.id = id;
  const ShowingSheet sheet = SheetThatShows(s);
  if (sheet.form == nullptr || !s.db.IsOpen()) return;
  s.draft.owner = OwnName();
  s.draft.at = PackLocation(s.current, s.mode);
  Plainly(s, [&] {
    s.draft.file_version = FileVersion(s);
    s.draft.place = PlaceText(s.db, s.current);
  });
  for (const Control& control : sheet.form->controls())
    if (TakesText(control) && IsOnSheet(*sheet.form, control, sheet.frame))
      s.draft.fields.push_back({control.name, Caption(control), TextOf(control), TextOf(control)});
}

void KeepDraftOfEdit(Session& s, When when) {
  if (!s.editing || s.draft.fields.empty() || s.db.InBatch()) return;
  const ShowingSheet sheet = SheetThatShows(s);
  if (sheet.form == nullptr) return;
  bool changed = s.draft.behind;
  for (DraftField& field : s.draft.fields)
    if (const Control* control = sheet.form->Find(field.control);
        control != nullptr && TextOf(*control) != field.entered) {
      field.entered = TextOf(*control);
      changed = true;
    }
  if (!changed) return;
  const std::int64_t now = Milliseconds();
  s.draft.behind = when == When::kInTime && now - s.draft.kept_at < kPauseMilliseconds;
  if (s.draft.behind) return;
  s.draft.kept_at = now;
  Draft kept = Changed(s.draft);
  s.draft.behind = !KeepDraft(s.companion, kept);
  s.draft.id = kept.id;
}

bool HasTyped(Session& s) {
  const ShowingSheet sheet = SheetThatShows(s);
  return sheet.form != nullptr &&
         std::any_of(s.draft.fields.begin(), s.draft.fields.end(), [&](const DraftField& field) {
           const Control* control = sheet.form->Find(field.control);
           return control != nullptr && TextOf(*control) != field.stored;
         });
}

void EndDraft(Session& s) {
  ForgetDraft(s.companion, s.draft.id);
  s.draft = Draft();
}

namespace {

// What the fields would be if the record were loaded now; empty when it cannot be or is gone, which is shown. The sheet
// stays as it is.
std::vector<std::string> LoadedNow(Session& s, Form& form) {
  const std::vector<ControlState> typed(form.controls().begin(), form.controls().end());
  const std::string focus = form.focus;
  ClearSheet(s);
  LoadSheet(s);
  std::vector<std::string> texts;
  const SheetSpec* sheet = SheetOf(s.current);
  if (!s.unreadable && sheet != nullptr && FindRecord(s, *sheet, s.current)) {
    UnlockSheet(s);
    for (const DraftField& field : s.draft.fields) texts.push_back(TextOf(form.At(field.control)));
  }
  s.unreadable = false;
  for (std::size_t i = 0; i < typed.size(); ++i) static_cast<ControlState&>(form.controls()[i]) = typed[i];
  form.focus = focus;
  return texts;
}

std::string Shown(const std::string& text) {
  return text.empty() ? "blank" : text;
}

}  // namespace

bool MindOthers(Session& s) {
  const ShowingSheet sheet = SheetThatShows(s);
  if (sheet.form == nullptr || s.draft.fields.empty()) return true;
  std::int64_t version = 0;
  const auto read_version = [&] { version = FileVersion(s); };
  // a file that is held is reported as the save of the record would report it
  const bool is_equipment = s.current.Is(level::kEquipment);
  if (!(is_equipment ? OnSheet(s, read_version) : Plainly(s, read_version))) return false;
  if (version == s.draft.file_version) return true;
  const std::vector<std::string> now = LoadedNow(s, *sheet.form);
  if (now.empty()) return false;
  std::string kept, both;
  for (std::size_t i = 0; i < now.size(); ++i) {
    const DraftField& field = s.draft.fields[i];
    const std::string typed = TextOf(sheet.form->At(field.control));
    if (now[i] == field.stored || now[i] == typed) continue;
    if (typed == field.stored) {
      PutIn(s, *sheet.form, {field.control, field.caption, field.stored, now[i]});
      kept += "\n" + field.caption + ": " + Shown(now[i]);
    } else {
      both += "\n" + field.caption + ": " + Shown(now[i]) + " there, " + Shown(typed) + " here";
    }
  }
  if (!both.empty() &&
      AskUser(
          s, "Another program has changed this record since the edit began:\n" + both + "\n\nSave what was typed here?",
          {Button::kYes, Button::kNo}) != Button::kYes)
    return false;
  if (!kept.empty())
    Tell(s, "Another program has changed this record since the edit began. What it stored was kept:\n" + kept,
         Icon::kInfo);
  return true;
}

void OfferDrafts(Session& s) {
  Plainly(s, [&] {
    for (const Draft& draft : Drafts(s.companion)) {
      if (IsAnothersAlive(draft.owner)) continue;
      const Answer answer = Ask(s, draft);
      if (answer == Answer::kDiscard) ForgetDraft(s.companion, draft.id);
      if (answer == Answer::kContinue) return Continue(s, draft);
    }
  });
}

}  // namespace merlu
