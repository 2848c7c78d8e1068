#include "sheets/contract.h"

#include "base/dates.h"
#include "qc/qc_list.h"
#include "session/main_names.h"
#include "session/notices.h"
#include "session/records.h"
#include "sheets/blocks/blocks.h"
#include "sheets/conversions.h"
#include "sheets/sheet_form.h"

namespace merlu {
namespace {

constexpr const char* kNoDate = "Date of Last QC:          ";

bool IsMonthly(const FieldSpec& field) {
  return field.mode == In::kActv;
}

void SetLabel(Form& form, const std::string& label, const std::string& text) {
  form.At(label).caption = form.At(label).text = text;
}

void ShowMonthlyBlock(Form& form, const SheetSpec& sheet, bool show) {
  for (const FieldSpec& field : sheet.fields) {
    if (!IsMonthly(field)) continue;
    for (const std::string& name : {field.control, field.label, field.note_label})
      if (!name.empty()) form.At(name).visible = show;
  }
  if (!sheet.has_activity) return;
  for (const std::string& name : {sheet.comments(), sheet.comments_label(), sheet.status_box()})
    form.At(name).visible = show;
}

void SetTitle(Form& form, const SheetSpec& sheet, const std::string& title, bool editing) {
  form.At(sheet.frame()).caption = form.caption = title;
  form.At(sheet.frame()).emphasis = editing;
}

// The lists of the description come before the month, the texts after it.
void LoadDescription(Session& s, Form& form, const SheetSpec& sheet, bool lists) {
  Cursor& row = s.At(sheet.ed_table());
  for (const FieldSpec& field : sheet.fields) {
    if (IsMonthly(field) || (field.kind == Kind::kList) != lists || field.column.empty() || !field.loads) continue;
    if (field.stored == Stored::kDestination) LoadVentFlareList(s, form, sheet.destination, sheet.sent_to);
    ShowField(form, field, row.Field(field.column));
  }
}

void LoadMonth(Session& s, Form& form, const SheetSpec& sheet) {
  Cursor& master = s.At("EA_EQUIP_ACTV");
  const std::string status = NullToEmpty(master.Field("EA_STATUS"));
  form.At(sheet.status_box()).checked = status == "I";
  form.At(names::lblNoEmissions).visible = status == "I";
  form.At(sheet.comments()).text = NullToEmpty(master.Field("EA_COMNT_TXT"));
  Cursor& row = s.At(sheet.ea_table());
  for (const FieldSpec& field : sheet.fields)
    if (IsMonthly(field) && field.shown_when.holds(form)) ShowField(form, field, row.Field(field.column));
  if (!IsNull(master.Field("EA_QC_DT"))) SetLabel(form, sheet.date_label(), QCDateText(master.Field("EA_QC_DT")));
}

void Unlock(Control& field) {
  if (field.kind == Kind::kOption) field.enabled = true;
  field.locked = false;
  field.back = Back::kWindow;
}

void SaveMasterRow(Session& s, Form& form, const SheetSpec& sheet, bool after_qc) {
  Cursor& master = s.At("EA_EQUIP_ACTV");
  const bool inactive = form.At(sheet.status_box()).checked;
  master.Edit();
  master.SetField("EA_COMNT_TXT", FieldText(form.At(sheet.comments()).text));
  master.SetField("EA_STATUS", std::string(inactive ? "I" : "A"));
  if (!after_qc) master.SetField("EA_QC_DT", Null{});
  master.Update();
  form.At(names::lblNoEmissions).visible = inactive;
}

// Null for a column that the record has no use for.
void StoreOrDrop(Cursor& row, const FieldSpec& field, const Form& form) {
  if (!field.kept_when.holds(form))
    row.SetField(field.column, Null{});
  else
    StoreField(row, field, form.At(field.control));
}

void SaveTypeRow(Session& s, Form& form, const SheetSpec& sheet) {
  Cursor& row = s.At(sheet.ea_table());
  row.Edit();
  for (const FieldSpec& field : sheet.fields)
    if (IsMonthly(field)) StoreField(row, field, form.At(field.control));
  row.Update();
}

void SaveMonth(Session& s, Form& form, const SheetSpec& sheet, bool after_qc) {
  if (sheet.month_row_first) SaveTypeRow(s, form, sheet);
  SaveMasterRow(s, form, sheet, after_qc);
  if (!sheet.month_row_first) SaveTypeRow(s, form, sheet);
}

void SaveDescription(Session& s, Form& form, const SheetSpec& sheet) {
  Cursor& row = s.At(sheet.ed_table());
  row.Edit();
  for (const FieldSpec& field : sheet.fields)
    if (!IsMonthly(field) && !field.column.empty()) StoreOrDrop(row, field, form);
  row.Update();
}

// Read-only, with nothing marked or disabled: resets what an earlier edit or run left.
void LockField(Control& field) {
  field.enabled = field.kind != Kind::kOption;
  field.locked = true;
  field.back = Back::kFace;
}

bool IsField(const Control& control) {
  return control.kind == Kind::kText || control.kind == Kind::kList || control.kind == Kind::kOption;
}

// Fills the form from the current record; false, with the sheet's message, when there is none.
bool ShowRecord(Session& s, Form& form, const SheetSpec& sheet) {
  const NotEditing load(s);
  if (!FindRecord(s, sheet, s.current)) {
    Note(s.notices, sheet.not_found_on_load);
    return false;
  }
  LoadDescription(s, form, sheet, true);
  if (s.InActv()) LoadMonth(s, form, sheet);
  LoadDescription(s, form, sheet, false);
  if (sheet.after_load) sheet.after_load(s, form);
  return true;
}

}  // namespace

std::string QCDateText(const Value& date) {
  const auto parsed = ParseDate(NullToEmpty(date));
  return "Date of Last QC: " + (parsed ? SheetDate(*parsed) : NullToEmpty(date));
}

void ClearFrame(Session& s, const SheetSpec& sheet) {
  Form& form = SheetForm(s, sheet);
  for (Control& control : form.controls()) {
    if (control.kind == Kind::kText || control.kind == Kind::kList) {
      control.text.clear();
      control.index = -1;
      control.tip.clear();
      control.touched = control.copied = false;
      control.hint.clear();
      control.was.clear();
      control.enabled = true;
    }
    control.checked = false;
  }
  form.At(names::lblNoEmissions).visible = false;
  SetLabel(form, sheet.date_label(), kNoDate);
  ShowMonthlyBlock(form, sheet, s.InActv());
  auto& available = form.At(sheet.tab()).page_available;
  for (std::size_t page = 1; page + 1 < available.size(); ++page) available[page] = !s.InActv();
  const std::string& title = s.InActv() ? sheet.cleared_title_actv : sheet.cleared_title_desc;
  if (!title.empty()) SetTitle(form, sheet, title, form.At(sheet.frame()).emphasis);
  if (sheet.after_clear) sheet.after_clear(s, form);
}

bool FindRecord(Session& s, const SheetSpec& sheet, const QCLocation& location) {
  return FindEquipRecord(s, location, sheet.ed_table(), sheet.ea_table());
}

bool LoadFrame(Session& s, const SheetSpec& sheet) {
  Form& form = SheetForm(s, sheet);
  const int faults = s.notices.faults;
  bool found = false;
  NotingSheetFaults(s.notices, [&] { found = ShowRecord(s, form, sheet); });
  const bool read = s.notices.faults == faults;
  if (!read || !found) return read;
  const PageMemory& memory = s.InActv() ? s.last_page_actv : s.last_page_desc;
  form.At(sheet.tab()).index = memory.at(static_cast<std::size_t>(sheet.number));
  if (s.node_status == "I" && s.InActv()) form.At(names::lblNoEmissions).visible = true;
  LoadQCList(s, sheet);
  return true;
}

void LockFrame(Session& s, const SheetSpec& sheet) {
  Form& form = SheetForm(s, sheet);
  form.At(sheet.comment_button()).enabled = false;
  SetTitle(form, sheet, sheet.title, false);
  for (Control& control : form.controls()) {
    if (control.kind == Kind::kOption) control.enabled = false;
    if (control.kind != Kind::kText && control.kind != Kind::kList) continue;
    control.locked = true;
    control.back = Back::kFace;
  }
  if (sheet.has_activity) form.At(names::Frame1).visible = false;
  form.At(sheet.list()).back = Back::kFace;
}

void UnlockFrame(Session& s, const SheetSpec& sheet) {
  Form& form = SheetForm(s, sheet);
  form.At(sheet.comment_button()).enabled = true;
  form.At(sheet.list()).back = Back::kWindow;
  if (s.InActv()) form.At(names::Frame1).visible = true;
  for (Control& control : form.controls())
    if (IsField(control)) LockField(control);
  if (s.InActv() || sheet.comments_unlock_in_desc || !sheet.has_activity) Unlock(form.At(sheet.comments()));
  for (const FieldSpec& field : sheet.fields)
    if (IsMonthly(field) == s.InActv() && field.stored != Stored::kComputed) Unlock(form.At(field.control));
  SetTitle(form, sheet, sheet.edit_title, true);
  ApplyEnablings(s, form, sheet, Enabling::At::kUnlock);
  form.focus = s.InActv() ? sheet.focus_actv : sheet.focus_desc;
}

void SaveFrame(Session& s, const SheetSpec& sheet, bool after_qc) {
  const bool done = NotingSheetFaults(s.notices, [&] {
    Form& form = SheetForm(s, sheet);
    WriteBatch batch(s.db);
    if (!FindRecord(s, sheet, s.current)) {
      Note(s.notices, sheet.not_found_on_save);
      s.save_failed = true;
      return;
    }
    if (s.InActv())
      SaveMonth(s, form, sheet, after_qc);
    else
      SaveDescription(s, form, sheet);
    batch.Commit();
    if (s.InDesc() && !after_qc) s.checked_descriptions[s.ED_ID_AK] = false;
  });
  if (!done) s.save_failed = true;
}

void LoadQCList(Session& s, const SheetSpec& sheet) {
  NotingSheetFaults(s.notices, [&] {
    Form& form = SheetForm(s, sheet);
    FillWithFindings(s, form.At(sheet.list()), FindingsOfEquipment(s.current, sheet.type));
    if (!FindRecord(s, sheet, s.current)) return;
    const Value& date = s.InActv() ? s.At("EA_EQUIP_ACTV").Field("EA_QC_DT") : s.At("ED_EQUIP_DESC").Field("ED_QC_DT");
    if (!IsNull(date)) SetLabel(form, sheet.date_label(), QCDateText(date));
  });
}

}  // namespace merlu
