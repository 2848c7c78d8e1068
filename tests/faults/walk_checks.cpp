// What holds between any two acts.
#include "base/text.h"
#include "faults/kill_operations.h"
#include "faults/walker.h"
#include "session/node_keys.h"
#include "session/types.h"
#include "sheets/units.h"

namespace merlu::test {
namespace {

std::string WrongSheet(Session& s) {
  std::vector<std::string> sheets;
  for (const Form* form : s.desk.showing)
    if (form != s.main && !form->modal && form->dock.empty() && form->name() != "frmAbout")
      sheets.push_back(form->name());
  if (!s.current.Is(level::kEquipment)) {
    if (!sheets.empty()) return "the sheet " + sheets.front() + " shows beside that of level " + s.current.Level;
    const char* frame = s.current.Is(level::kUser)        ? "fraUserInfo"
                        : s.current.Is(level::kSurvey)    ? "fraSurvey"
                        : s.current.Is(level::kStructure) ? "fraStructure"
                                                          : "none";
    return s.main->front == frame ? "" : "the frame " + s.main->front + " shows at level " + s.current.Level;
  }
  const SheetSpec* sheet = FindSheet(s.current.EquipType);
  if (sheet == nullptr) return "equipment of type " + s.current.EquipType;
  if (sheets.size() != 1) return std::to_string(sheets.size()) + " sheets show";
  return sheets.front() == sheet->form() ? "" : sheets.front() + " shows for " + s.current.EquipType;
}

const Form* SheetThatShows(const Session& s) {
  for (const Form* form : s.desk.showing)
    if (form != s.main && !form->modal && form->dock.empty() && form->name() != "frmAbout") return form;
  return s.main;
}

std::string WrongEditing(const Session& s) {
  const Form& main = *s.main;
  const auto differs = [&s](bool is) { return is != s.editing; };
  if (differs(!s.tree.enabled)) return "the tree's enabling does not go with the edit";
  for (const char* menu : {"mnuFile", "mnuEdit", "cmdEditMode"})
    if (differs(!main.At(menu).enabled)) return std::string(menu) + " does not go with the edit";
  for (const char* button : {"cmdSaveEdits", "cmdSaveExit", "cmdCANCEL"})
    if (differs(main.At(button).visible)) return std::string(button) + " does not go with the edit";
  if (s.editing && main.At("cmdEdit").visible) return "Edit shows during an edit";
  if (s.editing) return "";
  const Form& sheet = *SheetThatShows(s);
  for (const Control& control : sheet.controls())
    if ((control.kind == Kind::kText || control.kind == Kind::kList) && !control.locked &&
        control.name != "txtTREE_Filter" &&  // finds nodes, and belongs to no record
        WhyNot(s.desk, sheet, control, true).empty())
      return control.name + " can be changed outside an edit";
  return "";
}

std::string WrongKeys(Session& s) {
  for (const TreeNode& node : s.tree.nodes) {
    const std::size_t length = CountCharacters(node.key);
    const KeyList* list = nullptr;
    if (s.InActv())
      list = length == kStructureMonthKeyLength   ? &s.structure_month_list
             : length == kEquipmentMonthKeyLength ? &s.equipment_month_list
                                                  : nullptr;
    else
      list = length == kStructureKeyLength   ? &s.structure_list
             : length == kEquipmentKeyLength ? &s.equipment_list
                                             : nullptr;
    if (list == nullptr) {
      if (node.depth > 0 && !(s.InActv() && length == kSurveyKeyLength))
        return "a node with the key \"" + node.key + "\"";
      continue;
    }
    const std::int64_t* id = list->Find(node.key);
    if (id == nullptr) return "the node \"" + node.key + "\" has no entry in its list";
    const char* sql = list == &s.structure_month_list   ? "SELECT 1 FROM PA_PLATFORM_ACTV WHERE SA_ID_AK=?"
                      : list == &s.equipment_month_list ? "SELECT 1 FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?"
                      : list == &s.structure_list       ? "SELECT 1 FROM PD_PLATFORM_DESC WHERE PD_ID_AK=?"
                                                        : "SELECT 1 FROM ED_EQUIP_DESC WHERE ED_ID_AK=?";
    if (IsNull(s.db.Single(sql, {*id}))) return "the entry of \"" + node.key + "\" has no row";
  }
  return "";
}

std::string WrongFindings(Session& s) {
  const Rows twice = s.db.Query(
      "SELECT CmplxID,StructID,EquipType,EquipID,[Month],[Year],FieldID,COUNT(*) FROM QC GROUP BY UserID,CmplxID,"
      "StructID,EquipType,EquipID,[Month],[Year],[Level],rtrim(FieldID) COLLATE NOCASE HAVING COUNT(*)>1");
  if (!twice.rows.empty()) return "a finding stands twice: " + NullToEmpty(twice.rows[0][6]);
  const Rows orphans = s.db.Query(
      "SELECT CmplxID||' '||StructID||' '||EquipType||' '||EquipID FROM QC WHERE [Level]='EQUIPMENT' AND NOT EXISTS "
      "(SELECT 1 FROM ED_EQUIP_DESC d JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK WHERE "
      "p.CMPLX_ID_NUM=QC.CmplxID AND p.STRUCT_NUM=QC.StructID AND d.ED_EQUIP_TYP=QC.EquipType AND "
      "d.ED_MERLU_EQUIP_ID=QC.EquipID)");
  return orphans.rows.empty() ? "" : "a finding without its equipment: " + NullToEmpty(orphans.rows[0][0]);
}

// The last step taken back and done again leaves every row as it was.
std::string WrongHistory(Session& s) {
  const auto step = NextUndo(s.companion);
  if (!step || s.editing) return "";
  const std::string rows = AllRows(s.db);
  if (const auto row = UndoSteps(s.companion, step->id)) return "no undo of " + step->title.what + ": " + row->table;
  if (const auto row = RedoSteps(s.companion, step->id)) return "no redo of " + step->title.what + ": " + row->table;
  return AllRows(s.db) == rows ? "" : "redo of " + step->title.what + " leaves other rows";
}

}  // namespace

std::string WrongOnScreen(Session& s) {
  if (s.ended || !s.db.IsOpen()) return "";
  if (s.desk.Dialog() != nullptr) return "a dialog is left open";
  if (s.wait.showing) return "the wait screen is left open";
  if (s.tree.nodes.empty()) return "the tree is empty";
  if (s.last_month < 1 || s.last_month > 12) return "month " + std::to_string(s.last_month);
  std::string wrong = WrongSheet(s);
  return wrong.empty() ? WrongEditing(s) : wrong;
}

std::string WrongInFile(Session& s) {
  if (s.ended || !s.db.IsOpen()) return "";
  if (std::string wrong = WhatIsUnsound(s.db); !wrong.empty()) return wrong;
  if (ToInteger(s.db.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG")) != s.last_month) return "the last month differs";
  if (std::string wrong = WrongFindings(s); !wrong.empty()) return wrong;
  if (std::string wrong = WrongKeys(s); !wrong.empty()) return wrong;
  return WrongHistory(s);
}

}  // namespace merlu::test
