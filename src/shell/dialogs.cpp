#include "shell/dialogs.h"

#include <array>
#include <cstdio>

#include "base/text.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "history/backups.h"
#include "records/equipment_record.h"
#include "records/operator_record.h"
#include "records/structure_record.h"
#include "records/survey_record.h"
#include "rules/checks.h"
#include "session/act.h"
#include "session/find_rows.h"
#include "session/limits.h"
#include "session/node_keys.h"
#include "session/place.h"
#include "sheets/operator.h"
#include "sheets/operator_names.h"
#include "shell/backup_dialog.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/draft.h"
#include "shell/file_life.h"
#include "shell/history_dialog.h"
#include "shell/messages.h"
#include "shell/program_end.h"
#include "shell/sheet_acts.h"
#include "shell/status.h"
#include "shell/trees.h"

namespace merlu {
namespace {

constexpr int kComplexLimit = 7, kStructureLimit = 2, kEquipmentLimit = 8, kOperatorLimit = 5;

constexpr const char* kAllMonths = "All 12 months have already been added to this inventory.";

void Preset(Form& form, const char* name, const std::string& text) {
  Control& control = form.At(name);
  control.text = text;
  control.locked = true;
  control.back = Back::kFace;
}

// ---- the first run ----

// A number that is not whole is cleared, so that it can be typed again.
void TellUnmet(Session& s, Form& dialog, const Unmet& unmet) {
  Tell(s, unmet.message, Icon::kWarning);
  dialog.focus = unmet.field;
  Control& field = dialog.At(unmet.field);
  if (field.kind == Kind::kMasked && HasTooFewDigits(field.text)) field.text = Masked(field.mask, "");
}

Form& NewUserDialog(Session& s) {
  return DialogForm(s, names::frmNewUser, "New User", [&s](Form& form) {
    AddLabel(form, "lblHeading", "Please enter your User Information");
    AddLabel(form, "lblNote", "Only the owner/lessees can be listed as the Registered User");
    AddText(form, names::txtUserID, "RIMA Company No*:", kOperatorLimit).note = "lblUserIDNote";
    AddLabel(form, "lblUserIDNote", "(5 characters or less)");
    AddText(form, names::txtUSER_InvYr, "Inventory Year*:").text = "2017";
    PutNewOperatorFields(form);
    AddLabel(form, "lblLegend", "* = Required Information");
    AddButton(form, "cmdOpenExisting", "Open Existing Inventory...");
    AddDialogButtons(form, names::cmdOK, names::cmdCANCEL);
    form.On("cmdOpenExisting", Event::kClick, [&s, &form] {
      s.open_other = ChooseDatabase(s);
      if (s.open_other) s.desk.Hide(form);
    });
    form.On(names::cmdOK, Event::kClick, [&s, &form] {
      if (const auto unmet = UnmetOfNewOperator(form)) return TellUnmet(s, form, *unmet);
      if (!Plainly(s, [&] { NewOperatorRow(s, ReadNewOperator(form)); })) return;
      s.save_failed = false;
      s.desk.Hide(form);
    });
  });
}

// ---- a new structure ----

struct Needed {
  const char* control;
  const char* message;
};

constexpr std::array<Needed, 5> kStructureFields = {{
    {names::txtComplxID, "Please supply a valid RIMA Complex ID (7 chars)"},
    {names::txtStructID, "Please supply a valid RIMA Structure ID (2 chars)"},
    {names::txtArea, "Please supply a valid Area"},
    {names::txtBlock, "Please supply a valid Block"},
    {names::txtName, "Please supply a valid Name"},
}};

void Refuse(Session& s, Form& form, const char* control, const char* message) {
  Tell(s, message, Icon::kWarning);
  form.focus = control;
}

void ShowNewStructure(Session& s, const NewStructure& structure) {
  const std::string& user = s.current.UserID;
  const std::string key =
      s.InActv() ? StructureMonthKey(user, s.current.Month, s.current.Year, structure.complex, structure.structure)
                 : StructureKey(user, structure.complex, structure.structure);
  const std::string parent = s.InActv() ? SurveyKey(user, s.current.Month, s.current.Year) : UserKey(user);
  if (s.InDesc()) s.structure_list.Add(key, s.PD_ID_AK);
  if (s.InActv()) s.structure_month_list.Add(key, s.SA_ID_AK);
  AddAndSelect(s, parent, key, StructureText(structure.area, structure.block, structure.name));
}

QCLocation StructureAt(Session& s, const NewStructure& structure) {
  QCLocation at = s.current;
  at.Level = level::kStructure;
  at.CmplxID = structure.complex;
  at.StructID = structure.structure;
  return at;
}

// Looks and adds in one batch, so that no other program adds the same one in between. False for one that exists.
bool AddStructure(Session& s, const NewStructure& structure) {
  const std::string name = StructureText(structure.area, structure.block, structure.name);
  const Act act(s, "New Structure", JoinPlace(0, 0, name, ""), StructureAt(s, structure));
  WriteBatch batch(s.db);
  if (StructureExists(s.db, structure.complex, structure.structure)) return false;
  RequireRoomForStructure(s);
  const RecordKeys keys = NewStructureRows(s, s.current.UserID, structure);
  batch.Commit();
  s.PD_ID_AK = keys.PD_ID_AK;
  if (keys.SA_ID_AK != 0) s.SA_ID_AK = keys.SA_ID_AK;
  Say(s, name + " added");
  return true;
}

void MakeStructure(Session& s, Form& form) {
  for (const Needed& field : kStructureFields)
    if (Trim(form.At(field.control).text).empty()) return Refuse(s, form, field.control, field.message);
  const NewStructure structure{Trim(form.At(names::txtComplxID).text), Trim(form.At(names::txtStructID).text),
                               form.At(names::txtArea).text, form.At(names::txtBlock).text,
                               form.At(names::txtName).text};
  if (!BackUpOnceADay(s)) return;
  Plainly(s, [&] {
    CurrentKeys keys(s);  // what shows keeps its record until the new node shows
    if (!AddStructure(s, structure)) {
      Refuse(s, form, names::txtStructID,
             "This Complex/Structure ID already exists. Please enter unique Complex/Structure ID.");
      form.At(names::txtStructID).text.clear();
      return;
    }
    s.desk.Hide(form);
    ShowNewStructure(s, structure);
    keys.Advance();
  });
}

// ---- new equipment ----

void ShowNewEquipment(Session& s, const EquipmentType& type, const std::string& id) {
  if (s.InActv() && !type.has_activity) return;  // no place in the tree of activity
  QCLocation at = s.current;
  at.Level = level::kStructure;
  const std::string parent = KeyOf(at, s.mode);
  const std::string key = parent + EquipmentSuffix(type.code, id);
  if (s.InActv())
    s.equipment_month_list.Add(key, s.EA_ID_AK);
  else
    s.equipment_list.Add(key, s.ED_ID_AK);
  AddAndSelect(s, parent, key, std::string(type.tree_name) + ": " + id);
}

QCLocation EquipmentAt(Session& s, const EquipmentType& type, const std::string& id) {
  QCLocation at = s.current;
  at.Level = level::kEquipment;
  at.EquipType = type.code;
  at.EquipID = id;
  return at;
}

// The new piece's description: it comes with all its months.
std::string EquipmentPlace(Session& s, const EquipmentType& type, const std::string& id) {
  QCLocation at = EquipmentAt(s, type, id);
  at.Month = at.Year = 0;
  return PlaceText(s.db, at);
}

bool AddEquipment(Session& s, const EquipmentType& type, const std::string& id) {
  const Act act(s, "New Equipment", EquipmentPlace(s, type, id), EquipmentAt(s, type, id));
  WriteBatch batch(s.db);
  if (EquipmentExists(s.db, s.PD_ID_AK, type, id)) return false;
  InventorySize size = SizeOf(s.db, s.last_month);
  ++size.equipment;
  if (type.has_activity) ++size.equipment_with_months;
  RequireRoom(size);
  const RecordKeys keys = NewEquipRows(s, s.PD_ID_AK, s.InActv() ? s.current.Month : 0, type, id);
  batch.Commit();
  s.ED_ID_AK = keys.ED_ID_AK;
  if (keys.EA_ID_AK != 0) s.EA_ID_AK = keys.EA_ID_AK;
  Say(s, std::string(type.tree_name) + ": " + id + " added");
  return true;
}

void MakeEquipment(Session& s, Form& form) {
  const std::string id = Trim(form.At("txtEquipID").text);
  if (id.empty()) return Refuse(s, form, "txtEquipID", "Please supply a valid Equipment ID (8 chars max)");
  const EquipmentType* type = FindTypeByName(form.At("cmbEquipType").text);
  if (type == nullptr) return Refuse(s, form, "cmbEquipType", "Please select an Equipment Type");
  if (!BackUpOnceADay(s)) return;
  try {
    CurrentKeys keys(s);
    if (!AddEquipment(s, *type, id))
      return Refuse(s, form, "txtEquipID", "This Equipment ID already exists. Please enter a unique ID.");
    s.desk.Hide(form);
    ShowNewEquipment(s, *type, id);
    keys.Advance();
  } catch (const Fault& fault) {
    if (fault.number == fault_number::kDuplicateKey)
      return Refuse(s, form, "txtEquipID", "Please supply a unique Equipment ID");
    TellFault(s, fault);
  }
}

std::vector<std::string> TypeNames() {
  std::vector<std::string> names;
  for (const EquipmentType& type : EquipmentTypes()) names.emplace_back(type.dialog_name);
  return names;
}

Form& NewStructureDialog(Session& s) {
  return DialogForm(s, names::frmNewStructure, "New Structure", [&s](Form& form) {
    AddText(form, names::txtUserID, "RIMA Company No:");
    AddText(form, names::txtComplxID, "RIMA Complex ID (5 chars):", kComplexLimit);
    AddText(form, names::txtStructID, "RIMA Structure ID (2 chars):", kStructureLimit);
    AddText(form, names::txtArea, "Area:");
    AddText(form, names::txtBlock, "Block:");
    AddText(form, names::txtName, "Name:");
    AddDialogButtons(form, names::cmdOK, names::cmdCANCEL);
    form.On(names::cmdOK, Event::kClick, [&s, &form] { MakeStructure(s, form); });
  });
}

Form& NewEquipmentDialog(Session& s) {
  return DialogForm(s, names::frmNewEquipment, "New Equipment", [&s](Form& form) {
    AddText(form, names::txtUserID, "RIMA Company No:");
    AddText(form, names::txtComplxID, "RIMA Complex ID:");
    AddText(form, names::txtStructID, "RIMA Structure ID:");
    AddText(form, "txtEquipID", "Equipment ID (8 chars max):", kEquipmentLimit);
    AddList(form, "cmbEquipType", "Equipment Type:", TypeNames());
    AddDialogButtons(form, names::cmdOK, names::cmdCANCEL);
    form.On(names::cmdOK, Event::kClick, [&s, &form] { MakeEquipment(s, form); });
  });
}

Form& AboutForm(Session& s) {
  Form& form = DialogForm(s, names::frmAbout, "About MERLU-2017", [&s](Form& about) {
    AddLabel(about, names::lblTitle, s.title);
    AddLabel(about, "lblDescription", "RIMA Pelagic Field Reporting Suite");
    AddLabel(about, "lblVersion", "Version 1.0.5 November 2016 Update");
    AddLabel(about, "Label1", "Windows XP/Vista/7/8/10");
    AddButton(about, names::cmdOK, "OK");
    about.default_button = about.cancel_button = names::cmdOK;
  });
  return form;
}

}  // namespace

void MakeDialogs(Session& s) {
  for (Form& (*make)(Session&) :
       {NewUserDialog, NewStructureDialog, NewEquipmentDialog, AboutForm, HistoryDialog, DraftDialog, BackupDialog})
    make(s);
}

namespace {

std::string Counted(std::int64_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

// The node to be deleted, and the number of records that are deleted with it.
std::string WhatGoes(Session& s) {
  std::string text = s.tree.FullPath(s.tree.selected);
  Plainly(s, [&] {
    const bool structure = s.current.Is(level::kStructure);
    const Values key = {structure ? s.PD_ID_AK : s.ED_ID_AK};
    const auto count = [&](const std::string& from) {
      return ToInteger(s.db.Single("SELECT COUNT(*) FROM " + from, key));
    };
    const std::string pieces = structure ? "(SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE PD_ID_AK=?)" : "(?)";
    std::string goes;
    if (structure)
      goes = Counted(count("ED_EQUIP_DESC WHERE PD_ID_AK=?"), "piece of equipment", "pieces of equipment") + ", " +
             Counted(count("PA_PLATFORM_ACTV WHERE PD_ID_AK=?"), "month", "months") + " of the structure, ";
    goes += Counted(count("EA_EQUIP_ACTV WHERE ED_ID_AK IN " + pieces), "month", "months") + " of equipment";
    text += "\nThis takes along: " + goes + ".";
  });
  return text;
}

std::vector<std::int64_t> MonthsOf(Session& s, std::int64_t PD_ID_AK) {
  std::vector<std::int64_t> months;
  s.db.ForEach("SELECT SA_ID_AK FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=?", {PD_ID_AK},
               [&](const RowView& row) { months.push_back(row.Integer(0)); });
  return months;
}

}  // namespace

bool ShowNewOperator(Session& s, const char* farewell) {
  Form& form = NewUserDialog(s);
  form.focus = names::txtUserID;
  s.save_failed = true;  // until OK has written the operator
  OpenDialog(s, form);
  if (s.save_failed) {
    if (!s.open_other) Tell(s, farewell);
    EndProgram(s);
    return false;
  }
  Cursor& company = s.At("CO_COMPANY");
  company.MoveFirst();
  company.Edit();
  company.SetField("ProgramVersion", s.version);
  company.Update();
  return true;
}

void OpenNewStructure(Session& s) {
  Form& form = NewStructureDialog(s);
  Preset(form, names::txtUserID, s.current.UserID);
  form.focus = names::txtComplxID;
  OpenDialog(s, form);
}

void OpenNewEquipment(Session& s) {
  if (!CanUseRecord(s)) return;
  Form& form = NewEquipmentDialog(s);
  Preset(form, names::txtUserID, s.current.UserID);
  Preset(form, names::txtComplxID, s.current.CmplxID);
  Preset(form, names::txtStructID, s.current.StructID);
  form.focus = "txtEquipID";
  OpenDialog(s, form);
}

void DeleteCurrent(Session& s) {
  const bool structure = s.current.Is(level::kStructure);
  if ((!structure && !s.current.Is(level::kEquipment)) || !CanUseRecord(s)) return;
  const char* question = structure ? "Are you sure you wish to delete this structure and all of its equipment data?"
                                   : "Are you sure you wish to delete this equipment data?";
  const Box box{question, s.title, Icon::kQuestion, {Button::kOK, Button::kCancel}, 1, WhatGoes(s)};
  if (Ask(s, box) != Button::kOK) return;
  if (structure && !BackUpOrAsk(s, backup_reason::kDeletion)) return;
  const std::string what = s.tree.nodes[static_cast<std::size_t>(s.tree.selected)].text;
  const Act act(s, "Deletion");
  if (!act.MayWrite()) return;
  const bool deleted = Plainly(s, [&] {
    const std::vector<std::int64_t> months = structure ? MonthsOf(s, s.PD_ID_AK) : std::vector<std::int64_t>();
    if (structure)
      DeleteStructure(s, s.PD_ID_AK, s.current);
    else
      DeleteEquipment(s, s.ED_ID_AK, s.current);
    for (const std::int64_t month : months) s.activity_record.Remove(month);
  });
  if (!deleted) return;
  RefreshDescTree(s);
  Say(s, what + " deleted");
}

void AddNextMonth(Session& s) {
  const Act act(s, "New Month", JoinPlace(s.last_month + 1, s.year, "", ""), s.current);
  if (!act.MayWrite()) return;
  Plainly(s, [&] {
    if (s.At("CO_COMPANY").IsEmpty()) return Tell(s, "Please Add Platform/Equipment Descriptions first.");
    if (s.last_month == 12) return Tell(s, kAllMonths);
    std::optional<std::int64_t> added;
    {
      const Busy busy(s);
      added = AddMonthRows(s);
    }
    if (!added) return Tell(s, kAllMonths);
    MoveToNewMonth(s, *added);
    std::array<char, 48> text;
    std::snprintf(text.data(), text.size(), "Monthly Survey: %d/%02d", s.year, s.last_month);
    const std::string& user = s.current.UserID;
    AddAndSelect(s, UserKey(user), SurveyKey(user, s.last_month, s.year), text.data());
    Say(s, std::string(text.data()) + " added");
    Tell(s, "Survey Month added to Activity Database");
    RefreshTree(s);
  });
}

void OpenAbout(Session& s) {
  OpenDialog(s, AboutForm(s));
}

void ShowSplash(Session& s) {
  s.desk.Show(AboutForm(s));
  s.ui.Paint();
}

void CloseSplash(Session& s) {
  Form* splash = s.desk.Find(names::frmAbout);
  if (splash != nullptr && splash->visible && !splash->modal) s.desk.Hide(*splash);
}

}  // namespace merlu
