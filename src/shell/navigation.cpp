#include "shell/navigation.h"

#include "base/text.h"
#include "forms/desk.h"
#include "session/main_names.h"
#include "session/node_keys.h"
#include "sheets/units.h"
#include "shell/edit_modes.h"
#include "shell/messages.h"
#include "shell/sheet_acts.h"
#include "shell/trees.h"

namespace merlu {
namespace {

// Whether both name one record: in description mode month and year count for nothing.
bool IsSameRecord(const QCLocation& a, const QCLocation& b, Mode mode) {
  return a.Level == b.Level && KeyOf(a, mode) == KeyOf(b, mode);
}

bool IsInFrame(const Form& form, const Control& control, const std::string& frame) {
  const Control* at = &control;
  while (at != nullptr && at->name != frame) at = at->parent.empty() ? nullptr : form.Find(at->parent);
  return at != nullptr;
}

bool CanHaveFocus(const Control& control) {
  return control.kind == Kind::kText || control.kind == Kind::kMasked || control.kind == Kind::kList ||
         control.kind == Kind::kCheck || control.kind == Kind::kOption;
}

// By name, or by tag: of two fields with one tag the one that can be seen.
Control* FindField(Form& form, const std::string& frame, const std::string& field) {
  Control* by_name = form.Find(field);
  if (by_name != nullptr && IsInFrame(form, *by_name, frame)) return by_name;
  Control* found = nullptr;
  for (Control& control : form.controls()) {
    if (!CanHaveFocus(control) || !EqualsIgnoringCase(TrimRight(control.tag), TrimRight(field))) continue;
    if (!IsInFrame(form, control, frame)) continue;
    if (found == nullptr || (!IsVisible(form, *found) && IsVisible(form, control))) found = &control;
  }
  return found;
}

void TurnToPageOf(Session& s, Form& form, const Control& field) {
  for (const Control* at = &field; !at->parent.empty();) {
    const Control* parent = form.Find(at->parent);
    if (parent == nullptr) return;
    if (parent->kind == Kind::kTab && parent->index != at->page) act::Page(s.desk, form, parent->name, at->page);
    at = parent;
  }
}

bool ChangeTo(Session& s, Mode mode) {
  if (s.mode == mode) return true;
  (s.InDesc() ? s.last_desc : s.last_actv) = s.current;
  SetMode(s, mode);
  RebuildTree(s);
  return s.mode == mode && !s.ended;
}

}  // namespace

ShowingSheet SheetThatShows(const Session& s) {
  if (s.current.Is(level::kEquipment)) {
    const SheetSpec* sheet = FindSheet(s.current.EquipType);
    Form* form = sheet == nullptr ? nullptr : s.desk.Find(sheet->form());
    if (form != nullptr && form->visible) return {form, sheet->frame()};
    return {};
  }
  if (s.main == nullptr || s.main->Find(s.main->front) == nullptr) return {};
  return {s.main, s.main->front};
}

bool MayMove(Session& s) {
  if (!s.editing) return true;
  Tell(s, "End the edit first.");
  return false;
}

bool GoToNode(Session& s, int node) {
  if (!MayMove(s)) return false;
  ClickNode(s, node);
  return true;
}

bool GoToField(Session& s, const std::string& field) {
  const ShowingSheet sheet = SheetThatShows(s);
  if (sheet.form == nullptr || field.empty()) return false;
  const Control* control = FindField(*sheet.form, sheet.frame, field);
  if (control == nullptr) return false;
  TurnToPageOf(s, *sheet.form, *control);
  LeaveDocks(s);
  sheet.form->focus = control->name;
  return true;
}

void LeaveDocks(Session& s) {
  for (Form* form : s.desk.showing)
    if (!form->dock.empty()) form->focus.clear();
}

void FocusTree(Session& s) {
  for (Form* form : s.desk.showing)
    if (!form->modal) form->focus.clear();
  s.main->focus = names::tvwTree;
}

bool GoTo(Session& s, const QCLocation& place, Mode mode, const std::string& field) {
  const bool here = s.mode == mode && s.tree.selected >= 0 && IsSameRecord(place, s.current, mode);
  if (!here) {
    if (!MayMove(s) || !ChangeTo(s, mode)) return false;
    const int node = s.tree.Find(KeyOf(place, mode));
    if (node < 0) {
      if (s.tree.selected < 0) SelectRoot(s);
      Tell(s, "This record is not in the inventory any more.");
      return false;
    }
    ClickNode(s, node);
  }
  if (!field.empty()) GoToField(s, field);
  return true;
}

}  // namespace merlu
