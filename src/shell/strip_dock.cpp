#include "shell/strip_dock.h"

#include "entry/month_record.h"
#include "entry/strip.h"
#include "forms/dialog.h"
#include "shell/docks.h"

namespace merlu {
namespace {

constexpr const char* kForm = "frmStrip";
constexpr const char* kField = "lblSTR_Field";
constexpr const char* kMonths = "lvwSTR_Months";
constexpr const char* kAdvice = "lblSTR_Advice";

Form& StripForm(Session& s) {
  if (Form* found = s.desk.Find(kForm)) return *found;
  Form& form = s.desk.Own(std::make_unique<Form>(kForm, "Twelve Months"));
  form.dock = "mnuRStrip";
  AddLabel(form, kField, "");
  AddListView(form, kMonths, "Twelve Months", {"01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "11", "12"});
  AddLabel(form, kAdvice, "");
  form.KeepDesign();
  return form;
}

void SetText(Form& form, const char* label, const std::string& text) {
  form.At(label).text = form.At(label).caption = text;
}

}  // namespace

void ShowStrip(Session& s) {
  Form* form = s.desk.Find(kForm);
  if (form == nullptr || !form->visible) return;
  // the label remembers which field it names
  const std::string& name = form->At(kField).bookmark;
  const std::optional<MonthRecord> record = ShownMonth(s);
  const Control* field = record && !name.empty() ? record->form->Find(name) : nullptr;
  const Strip strip = field == nullptr ? Strip() : StripOf(s, *field);
  SetText(*form, kField, strip.caption);
  SetText(*form, kAdvice, strip.advice);
  form->At(kMonths).rows = {{strip.months.begin(), strip.months.end()}};
}

void FollowFocus(Session& s) {
  const std::optional<MonthRecord> record = ShownMonth(s);
  if (!record) return ShowStrip(s);
  for (const FieldSpec* field : record->fields) {
    const std::string name = field->control;
    if (!record->form->Handles(name, Event::kGotFocus))
      record->form->On(name, Event::kGotFocus, [&s, name] {
        if (Form* form = s.desk.Find(kForm)) form->At(kField).bookmark = name;
        ShowStrip(s);
      });
    if (!record->form->Handles(name, Event::kLostFocus))
      record->form->On(name, Event::kLostFocus, [&s] { ShowStrip(s); });
  }
  ShowStrip(s);
}

void ToggleStrip(Session& s) {
  ToggleDock(s, StripForm(s));
  FollowFocus(s);
}

}  // namespace merlu
