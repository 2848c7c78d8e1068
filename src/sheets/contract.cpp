#include "sheets/contract.h"

#include "base/dates.h"
#include "qc/qc_list.h"
#include "session/find_rows.h"
#include "session/main_names.h"
#include "session/notices.h"
#include "sheets/blocks/blocks.h"
#include "sheets/build.h"
#include "sheets/conversions.h"
#include "sheets/sheet_form.h"

namespace merlu {
namespace {

bool IsMonthly(const FieldSpec& field) {
  return field.mode == In::kActv;
}

bool IsInMode(const Session& s, const FieldSpec& field) {
  return field.mode == In::kBoth || IsMonthly(field) == s.InActv();
}

// The user never changes what a rule computes, nor what is shown and not stored.
bool IsFixed(const FieldSpec& field) {
  return field.stored == Stored::kComputed || (field.stored == Stored::kNone && !field.column.empty());
}

// The controls of the sheet: all of its own form, its fields on the main form.
template <typename Work>
void ForEachControl(Form& form, const SheetSpec& sheet, Work&& work) {
  if (sheet.has_form()) {
    for (Control& control : form.controls()) work(control);
    return;
  }
  for (const FieldSpec& field : sheet.fields) work(form.At(field.control));
  if (sheet.has_activity) work(form.At(sheet.status_box()));
}

// A fault is noted as the sheet's faults are; false then.
template <typename Work>
bool Noting(Session& s, const SheetSpec& sheet, Work&& work) {
  return sheet.plain_faults ? NotingFaults(s.notices, work) : NotingSheetFaults(s.notices, work);
}

void ShowMonthlyBlock(Form& form, const SheetSpec& sheet, bool show) {
  if (!sheet.month_frame.empty()) {
    form.At(sheet.description_frame).visible = !show;
    form.At(sheet.month_frame).visible = show;
    return;
  }
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
  SetFrameTitle(form, sheet.frame(), title, editing);
  if (sheet.has_form()) form.caption = title;
}

void SetResultsOpen(Form& form, const SheetSpec& sheet, bool open) {
  if (!sheet.has_findings) return;
  form.At(sheet.comment_button()).enabled = open;
  form.At(sheet.list()).back = open ? Back::kWindow : Back::kFace;
}

// The lists of the description come before the month, the texts after it.
void LoadDescription(Session& s, Form& form, const SheetSpec& sheet, bool lists) {
  Cursor& row = s.At(sheet.tables().description);
  for (const FieldSpec& field : sheet.fields) {
    if (IsMonthly(field) || (field.kind == Kind::kList) != lists || field.column.empty() || !field.loads) continue;
    if (field.stored == Stored::kDestination) LoadVentFlareList(s, form, sheet.destination, sheet.sent_to);
    ShowField(form, field, row.Field(field.column));
  }
}

void LoadMonth(Session& s, Form& form, const SheetSpec& sheet) {
  const RecordTables tables = sheet.tables();
  Cursor& master = s.At(tables.master);
  const bool inactive = NullToEmpty(master.Field(tables.status)) == "I";
  form.At(sheet.status_box()).checked = inactive;
  form.At(names::lblNoEmissions).visible = inactive;
  if (!tables.comments.empty()) form.At(sheet.comments()).text = NullToEmpty(master.Field(tables.comments));
  Cursor& row = s.At(tables.month);
  for (const FieldSpec& field : sheet.fields)
    if (IsMonthly(field) && field.shown_when.holds(form)) ShowField(form, field, row.Field(field.column));
  const Value date = master.Field(tables.month_date);
  if (!IsNull(date)) SetCaption(form, sheet.date_label(), QCDateText(date));
}

void Unlock(Control& field) {
  if (field.kind == Kind::kOption) field.enabled = true;
  field.locked = false;
  field.back = Back::kWindow;
}

void StoreMaster(Session& s, Form& form, const SheetSpec& sheet, bool after_qc) {
  const RecordTables tables = sheet.tables();
  Cursor& master = s.At(tables.master);
  const bool inactive = form.At(sheet.status_box()).checked;
  if (!tables.comments.empty()) master.SetField(tables.comments, FieldText(form.At(sheet.comments()).text));
  master.SetField(tables.status, std::string(inactive ? "I" : "A"));
  // only its run writes a structure's date
  if (!after_qc && sheet.has_form()) master.SetField(tables.month_date, Null{});
}

void StoreMonth(Session& s, Form& form, const SheetSpec& sheet) {
  Cursor& row = s.At(sheet.tables().month);
  for (const FieldSpec& field : sheet.fields)
    if (IsMonthly(field)) StoreField(row, field, form.At(field.control));
}

template <typename Work>
void Change(Cursor& row, Work&& work) {
  row.Edit();
  work();
  row.Update();
}

// Null for a column that the record has no use for.
void StoreOrDrop(Cursor& row, const FieldSpec& field, const Form& form) {
  if (!field.kept_when.holds(form))
    row.SetField(field.column, Null{});
  else
    StoreField(row, field, form.At(field.control));
}

void SaveMonth(Session& s, Form& form, const SheetSpec& sheet, bool after_qc) {
  const RecordTables tables = sheet.tables();
  const auto month = [&] { StoreMonth(s, form, sheet); };
  const auto master = [&] { StoreMaster(s, form, sheet, after_qc); };
  if (tables.master == tables.month) {  // one row is both
    Change(s.At(tables.month), [&] {
      month();
      master();
    });
  } else {
    if (sheet.month_row_first) Change(s.At(tables.month), month);
    Change(s.At(tables.master), master);
    if (!sheet.month_row_first) Change(s.At(tables.month), month);
  }
  form.At(names::lblNoEmissions).visible = form.At(sheet.status_box()).checked;
}

void SaveDescription(Session& s, Form& form, const SheetSpec& sheet) {
  Cursor& row = s.At(sheet.tables().description);
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

bool IsEntry(const Control& control) {
  return control.kind == Kind::kText || control.kind == Kind::kList || control.kind == Kind::kMasked;
}

bool IsField(const Control& control) {
  return control.kind == Kind::kOption || IsEntry(control);
}

// Fills the form from the current record; false, with the sheet's message, when there is none.
bool ShowRecord(Session& s, Form& form, const SheetSpec& sheet) {
  const NotEditing load(s);
  if (!FindRecord(s, sheet, s.current)) {
    Note(s.notices, sheet.not_found_on_load);
    return false;
  }
  LoadDescription(s, form, sheet, true);
  if (s.InActv() && !sheet.tables().month.empty()) LoadMonth(s, form, sheet);
  LoadDescription(s, form, sheet, false);
  if (sheet.after_load) sheet.after_load(s, form);
  return true;
}

}  // namespace

std::string QCDateText(const Value& date) {
  const auto parsed = ParseDate(NullToEmpty(date));
  return "Date of Last QC: " + (parsed ? SheetDate(*parsed) : NullToEmpty(date));
}

namespace {

void Clear(Control& control) {
  control.checked = false;
  if (!IsEntry(control)) return;
  control.text = control.kind == Kind::kMasked ? Masked(control.mask, "") : "";
  control.index = -1;
  control.tip.clear();
  control.touched = control.copied = false;
  control.hint.clear();
  control.was.clear();
  control.enabled = true;
}

}  // namespace

void ClearFrame(Session& s, const SheetSpec& sheet) {
  Form& form = SheetForm(s, sheet);
  ForEachControl(form, sheet, Clear);
  if (sheet.has_findings) {
    form.At(names::lblNoEmissions).visible = false;
    SetCaption(form, sheet.date_label(), kNoQCDate);
  }
  ShowMonthlyBlock(form, sheet, s.InActv());
  auto& available = form.At(sheet.tab()).page_available;
  for (std::size_t page = 1; page + 1 < available.size(); ++page) available[page] = !s.InActv();
  const std::string& title = s.InActv() ? sheet.cleared_title_actv : sheet.cleared_title_desc;
  if (!title.empty()) SetTitle(form, sheet, title, form.At(sheet.frame()).emphasis);
  if (sheet.after_clear) sheet.after_clear(s, form);
}

bool FindRecord(Session& s, const SheetSpec& sheet, const QCLocation& location) {
  if (sheet.level == level::kUser) return FindOperatorRecord(s);
  if (sheet.level == level::kStructure) return FindStructureRecord(s);
  return FindEquipRecord(s, location, sheet.ed_table(), sheet.ea_table());
}

bool LoadFrame(Session& s, const SheetSpec& sheet) {
  Form& form = SheetForm(s, sheet);
  const int faults = s.notices.faults;
  bool found = false;
  Noting(s, sheet, [&] { found = ShowRecord(s, form, sheet); });
  const bool read = s.notices.faults == faults;
  if (!read || !found) return read;
  if (sheet.has_form()) {
    const PageMemory& memory = s.InActv() ? s.last_page_actv : s.last_page_desc;
    form.At(sheet.tab()).index = memory.at(static_cast<std::size_t>(sheet.number));
    if (s.node_status == "I" && s.InActv()) form.At(names::lblNoEmissions).visible = true;
  }
  LoadQCList(s, sheet);
  return true;
}

void LockFrame(Session& s, const SheetSpec& sheet) {
  Form& form = SheetForm(s, sheet);
  SetResultsOpen(form, sheet, false);
  SetTitle(form, sheet, sheet.title, false);
  ForEachControl(form, sheet, [](Control& control) {
    if (control.kind == Kind::kOption) control.enabled = false;
    if (IsEntry(control)) SetLocked(control, true);
  });
  if (sheet.has_activity) form.At(names::Frame1).visible = false;
  if (sheet.after_lock) sheet.after_lock(s, form);
}

void UnlockFrame(Session& s, const SheetSpec& sheet) {
  Form& form = SheetForm(s, sheet);
  SetResultsOpen(form, sheet, true);
  if (s.InActv() && sheet.has_activity) form.At(names::Frame1).visible = true;
  ForEachControl(form, sheet, [](Control& control) {
    if (IsField(control)) LockField(control);
  });
  if (sheet.has_form() && (s.InActv() || sheet.comments_unlock_in_desc || !sheet.has_activity))
    Unlock(form.At(sheet.comments()));
  for (const FieldSpec& field : sheet.fields)
    if (IsInMode(s, field) && !IsFixed(field)) Unlock(form.At(field.control));
  SetTitle(form, sheet, sheet.edit_title, true);
  ApplyEnablings(s, form, sheet, Enabling::At::kUnlock);
  if (sheet.after_unlock) sheet.after_unlock(s, form);
  form.focus = s.InActv() ? sheet.focus_actv : sheet.focus_desc;
}

void SaveFrame(Session& s, const SheetSpec& sheet, bool after_qc) {
  const bool done = Noting(s, sheet, [&] {
    Form& form = SheetForm(s, sheet);
    WriteBatch batch(s.db);
    if (!FindRecord(s, sheet, s.current)) {
      Note(s.notices, sheet.not_found_on_save);
      s.save_failed = true;
      return;
    }
    if (s.InActv() && !sheet.tables().month.empty())
      SaveMonth(s, form, sheet, after_qc);
    else
      SaveDescription(s, form, sheet);
    if (sheet.after_save) sheet.after_save(s, form);
    batch.Commit();
    if (s.InDesc() && !after_qc && sheet.has_form()) s.checked_descriptions[s.ED_ID_AK] = false;
  });
  if (!done) s.save_failed = true;
}

void LoadQCList(Session& s, const SheetSpec& sheet) {
  if (!sheet.has_findings) return;
  NotingSheetFaults(s.notices, [&] {
    Form& form = SheetForm(s, sheet);
    Control& list = form.At(sheet.list());
    if (sheet.level == level::kStructure) {
      FillWithFindings(s, list, FindingsOfStructure(s.current));
      AddEquipmentSummary(s, list, s.current);
    } else {
      FillWithFindings(s, list, FindingsOfEquipment(s.current, sheet.type));
    }
    if (!FindRecord(s, sheet, s.current)) return;
    const RecordTables tables = sheet.tables();
    const Value& date =
        s.InActv() ? s.At(tables.master).Field(tables.month_date) : s.At(tables.dated).Field(tables.description_date);
    if (!IsNull(date)) SetCaption(form, sheet.date_label(), QCDateText(date));
  });
}

}  // namespace merlu
