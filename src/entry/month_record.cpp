#include "entry/month_record.h"

#include "base/number_entry.h"
#include "base/text.h"
#include "entry/month_rows.h"
#include "history/notes.h"
#include "session/notices.h"
#include "sheets/conversions.h"
#include "sheets/sheet_form.h"
#include "sheets/structure.h"
#include "sheets/units.h"

namespace merlu {
namespace {

MonthRecord RecordOf(Form& form, const SheetSpec* sheet) {
  MonthRecord record;
  record.form = &form;
  record.sheet = sheet;
  record.fields = MonthFields(sheet);
  record.table = MonthKindOf(sheet).table;
  return record;
}

// The row of the month before; no values without one.
Values MonthBefore(Session& s, const MonthRecord& record) {
  std::string columns;
  for (const FieldSpec* field : record.fields) columns += (columns.empty() ? "t.[" : ",t.[") + field->column + "]";
  if (columns.empty() || s.current.Month <= 1) return {};
  const Values values = {record.key, std::int64_t{s.current.Year}, std::int64_t{s.current.Month - 1}};
  const bool structure = record.table == "PA_PLATFORM_ACTV";
  const std::string sql =
      structure ? "SELECT " + columns +
                      " FROM PA_PLATFORM_ACTV t WHERE t.PD_ID_AK=(SELECT PD_ID_AK FROM PA_PLATFORM_ACTV WHERE "
                      "SA_ID_AK=?) AND t.PA_YR=? AND t.PA_MO=? ORDER BY t.SA_ID_AK LIMIT 1"
                : "SELECT " + columns + " FROM EA_EQUIP_ACTV a JOIN " + record.table +
                      " t ON t.EA_ID_AK=a.EA_ID_AK WHERE a.ED_ID_AK=(SELECT ED_ID_AK FROM EA_EQUIP_ACTV WHERE "
                      "EA_ID_AK=?) AND a.EA_YR=? AND a.EA_MO=? ORDER BY a.EA_ID_AK LIMIT 1";
  const Rows rows = s.db.Query(sql, values);
  return rows.rows.empty() ? Values() : rows.rows.front();
}

// The record's values as they are stored, as texts by the order of its fields.
std::vector<std::string> StoredTexts(Session& s, const MonthRecord& record) {
  std::string columns;
  for (const FieldSpec* field : record.fields) columns += (columns.empty() ? "[" : ",[") + field->column + "]";
  const Rows rows =
      s.db.Query("SELECT " + columns + " FROM " + record.table + " WHERE " + record.key_column + "=?", {record.key});
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < record.fields.size() && !rows.rows.empty(); ++i)
    texts.push_back(NullToEmpty(rows.rows.front()[i]));
  return texts;
}

bool IsOpen(const Control& control) {
  return control.enabled && control.visible && !control.locked;
}

// Sets the field as if the user had typed the value. False for a list that lacks it.
bool TakeOver(Form& form, Control& control) {
  if (control.kind == Kind::kList) {
    SelectText(form, control.name, control.was);
    if (control.text != control.was) return false;
  } else {
    control.text = control.was;
    control.hint = control.numeric ? NumberHint(control.text) : "";
  }
  control.touched = control.copied = true;
  return true;
}

}  // namespace

std::optional<MonthRecord> ShownMonth(Session& s) {
  if (!s.InActv()) return std::nullopt;
  const bool structure = s.current.Is(level::kStructure);
  const SheetSpec* sheet = structure                         ? &StructureSheet()
                           : s.current.Is(level::kEquipment) ? FindSheet(s.current.EquipType)
                                                             : nullptr;
  if (sheet == nullptr || !sheet->has_activity) return std::nullopt;
  MonthRecord record = RecordOf(SheetForm(s, *sheet), sheet);
  record.key_column = structure ? "SA_ID_AK" : "EA_ID_AK";
  record.key = structure ? s.SA_ID_AK : s.EA_ID_AK;
  return record;
}

void ShowMonthBefore(Session& s) {
  NotingSheetFaults(s.notices, [&] {
    const std::optional<MonthRecord> record = ShownMonth(s);
    if (!record) return;
    const Values before = MonthBefore(s, *record);
    for (std::size_t i = 0; i < record->fields.size(); ++i) {
      const FieldSpec& field = *record->fields[i];
      record->form->At(field.control).was = before.empty() ? "" : ShownText(field, before[i]);
    }
  });
}

int CopyMonthBefore(Session& s) {
  const std::optional<MonthRecord> record = s.editing ? ShownMonth(s) : std::nullopt;
  if (!record) return 0;
  int copied = 0;
  for (const FieldSpec* field : record->fields) {
    Control& control = record->form->At(field->control);
    if (!control.text.empty() || control.was.empty() || !IsOpen(control)) continue;
    if (TakeOver(*record->form, control)) ++copied;
  }
  return copied;
}

std::vector<Control*> CopiedFields(Session& s) {
  std::vector<Control*> copied;
  const std::optional<MonthRecord> record = ShownMonth(s);
  if (!record) return copied;
  for (const FieldSpec* field : record->fields)
    if (Control& control = record->form->At(field->control); control.copied) copied.push_back(&control);
  return copied;
}

void ShowCopied(Session& s) {
  NotingSheetFaults(s.notices, [&] {
    const std::optional<MonthRecord> record = ShownMonth(s);
    if (!record) return;
    const std::vector<CopiedField> kept = CopiedOf(s.companion, record->table, record->key);
    if (kept.empty()) return;
    const std::vector<std::string> stored = StoredTexts(s, *record);
    for (std::size_t i = 0; i < stored.size(); ++i)
      for (const CopiedField& copied : kept)
        if (EqualsIgnoringCase(copied.column, record->fields[i]->column) && copied.value == stored[i])
          record->form->At(record->fields[i]->control).copied = true;
  });
}

void KeepCopiedOfShown(Session& s) {
  const std::optional<MonthRecord> record = ShownMonth(s);
  if (!record) return;
  std::vector<CopiedField> kept;
  const bool any = !CopiedFields(s).empty();
  const std::vector<std::string> stored = any ? StoredTexts(s, *record) : std::vector<std::string>();
  for (std::size_t i = 0; i < stored.size(); ++i)
    if (record->form->At(record->fields[i]->control).copied) kept.push_back({record->fields[i]->column, stored[i]});
  if (kept.empty() && CopiedOf(s.companion, record->table, record->key).empty()) return;
  WriteBatch batch(s.db);
  KeepCopied(s.companion, record->table, record->key, kept);
  batch.Commit();
}

void ForgetCopiedOfShown(Session& s) {
  const std::optional<MonthRecord> record = ShownMonth(s);
  if (!record || CopiedOf(s.companion, record->table, record->key).empty()) return;
  WriteBatch batch(s.db);
  KeepCopied(s.companion, record->table, record->key, {});
  batch.Commit();
}

void ComputeSums(Form& form) {
  for (Control& control : form.controls()) {
    if (!control.numeric || control.locked || !IsSum(control.text)) continue;
    control.text = SumText(control.text).value_or(control.text);
    control.hint = NumberHint(control.text);
  }
}

}  // namespace merlu
