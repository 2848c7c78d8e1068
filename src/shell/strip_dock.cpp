#include "shell/strip_dock.h"

#include <algorithm>

#include "entry/month_record.h"
#include "entry/strip.h"
#include "forms/dialog.h"
#include "session/main_names.h"
#include "session/node_keys.h"
#include "shell/docks.h"
#include "shell/navigation.h"

namespace merlu {
namespace {

using namespace strip_dock;

void SetText(Form& form, const char* label, const std::string& text) {
  form.At(label).text = form.At(label).caption = text;
}

// The field that has, or last had, the focus; before any had it, the one that an edit begins with.
const Control* FieldInHand(Form& form, const MonthRecord& record) {
  const auto is_monthly = [&](const std::string& name) {
    return std::any_of(record.fields.begin(), record.fields.end(),
                       [&](const FieldSpec* field) { return field->control == name; });
  };
  // the labels hold the field that is shown, and the one that requested the focus last
  std::string &name = form.At(kField).bookmark, &asked = form.At(kAdvice).bookmark;
  if (asked != record.form->focus) {
    asked = record.form->focus;
    if (is_monthly(asked)) name = asked;
  }
  if (is_monthly(name)) return record.form->Find(name);
  return record.fields.empty() ? nullptr : record.form->Find(record.fields.front()->control);
}

void ShowStrip(Session& s, Form& form) {
  const std::optional<MonthRecord> record = s.unreadable ? std::nullopt : ShownMonth(s);
  const Control* field = record ? FieldInHand(form, *record) : nullptr;
  const Strip strip = field == nullptr ? Strip() : StripOf(s, *field);
  SetText(form, kField, strip.caption);
  SetText(form, kAdvice, strip.advice);
  SetText(form, kLeast, strip.least);
  SetText(form, kMost, strip.most);
  form.At(kMonths).rows = {{strip.months.begin(), strip.months.end()}};
  form.At(kMonths).at_column = strip.present - 1;
}

// The same record in the month of the bar.
void GoToBar(Session& s, Form& form) {
  QCLocation place = s.current;
  place.Month = form.At(kMonths).at_column + 1;
  const std::string field = form.At(kField).bookmark;
  if (place.Month < 1 || !ShownMonth(s)) return;
  if (s.tree.Find(KeyOf(place, Mode::kActv)) >= 0)
    GoTo(s, place, Mode::kActv, field);
  else
    s.message = "This month is not in the inventory yet";
  ShowStrip(s, form);
}

Form& StripForm(Session& s) {
  if (Form* found = s.desk.Find(kForm)) return *found;
  Form& form = s.desk.Own(std::make_unique<Form>(kForm, "Twelve Months"));
  form.dock = names::mnuRStrip;
  AddLabel(form, kField, "");
  AddListView(form, kMonths, "Twelve Months", {"01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "11", "12"});
  AddLabel(form, kAdvice, "");
  for (const char* bound : {kLeast, kMost}) {
    AddLabel(form, bound, "");
    form.At(bound).visible = false;  // a line across the bars
  }
  form.KeepDesign();
  form.On(kField, kRefreshDock, [&s, &form] { ShowStrip(s, form); });
  form.On(kMonths, Event::kDoubleClick, [&s, &form] { GoToBar(s, form); });
  return form;
}

}  // namespace

void MakeStrip(Session& s) {
  StripForm(s);
}

void FollowFocus(Session& s) {
  const std::optional<MonthRecord> record = ShownMonth(s);
  if (!record) return;
  for (const FieldSpec* field : record->fields) {
    const std::string name = field->control;
    if (record->form->Handles(name, Event::kGotFocus)) continue;
    record->form->On(name, Event::kGotFocus, [&s, name] {
      if (Form* form = s.desk.Find(kForm)) form->At(kField).bookmark = name;
    });
  }
}

void ToggleStrip(Session& s) {
  Form& form = StripForm(s);
  ToggleDock(s, form);
  FollowFocus(s);
  if (form.visible) ShowStrip(s, form);
}

}  // namespace merlu
