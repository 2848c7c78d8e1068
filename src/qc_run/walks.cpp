#include "qc_run/walks.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/dates.h"
#include "base/text.h"
#include "qc/qc_log.h"
#include "records/structure_record.h"
#include "session/messages.h"
#include "session/node_keys.h"
#include "session/records.h"
#include "session/types.h"
#include "sheets/contract.h"
#include "sheets/rules.h"
#include "sheets/units.h"

namespace merlu {
namespace {

// The types that a structure's walk takes, in its order. The others are checked by an equipment run only.
constexpr std::array<std::string_view, 12> kWalkedTypes = {"DIE", "AMI", "BOI", "FLA", "FUG", "GLY",
                                                           "DRI", "LOA", "NGE", "NGT", "STO", "VEN"};

struct StructureRow {
  std::string complex, structure;
};

struct EquipmentRow {
  std::string id, status;
  std::int64_t ED_ID_AK, EA_ID_AK, PD_ID_AK;
  bool has_month, checked;  // a row of the month; in it, a date of last QC
};

using EquipmentByType = std::map<std::string, std::vector<EquipmentRow>, std::less<>>;

std::vector<StructureRow> ActiveStructures(Session& s, const QCLocation& l) {
  std::vector<StructureRow> rows;
  s.db.ForEach(
      "SELECT p.CMPLX_ID_NUM,p.STRUCT_NUM FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK "
      "WHERE p.RIMA_CO_NUM=? AND a.PA_MO=? AND a.PA_YR=? AND (a.status IS NULL OR a.status='A') ORDER BY a.SA_ID_AK",
      {Trim(l.UserID), std::int64_t{l.Month}, std::int64_t{l.Year}}, [&](const RowView& row) {
        rows.push_back({std::string(row.Text(0)), std::string(row.Text(1))});
      });
  return rows;
}

// All equipment of the structure in one read: by type, and in the order of the keys of what the mode checks.
EquipmentByType EquipmentOn(Session& s, const QCLocation& l) {
  const bool months = s.InActv();
  std::string sql = "SELECT d.ED_EQUIP_TYP,d.ED_MERLU_EQUIP_ID,d.ED_ID_AK,d.PD_ID_AK";
  sql += months ? ",a.EA_ID_AK,a.EA_STATUS,a.EA_QC_DT" : ",NULL,NULL,NULL";
  sql += " FROM PD_PLATFORM_DESC p JOIN ED_EQUIP_DESC d ON d.PD_ID_AK=p.PD_ID_AK";
  Values values;
  if (months) {
    sql += " LEFT JOIN EA_EQUIP_ACTV a ON a.ED_ID_AK=d.ED_ID_AK AND a.EA_MO=? AND a.EA_YR=?";
    values = {std::int64_t{l.Month}, std::int64_t{l.Year}};
  }
  sql += " WHERE p.RIMA_CO_NUM=? AND p.CMPLX_ID_NUM=? AND p.STRUCT_NUM=?";
  values.insert(values.end(), {Trim(l.UserID), l.CmplxID, l.StructID});
  EquipmentByType equipment;
  s.db.ForEach(sql, values, [&](const RowView& row) {
    equipment[std::string(row.Text(0))].push_back({std::string(row.Text(1)), std::string(row.Text(5)), row.Integer(2),
                                                   row.Integer(4), row.Integer(3), !row.IsNull(4), !row.IsNull(6)});
  });
  for (auto& [type, rows] : equipment)
    std::sort(rows.begin(), rows.end(), [](const EquipmentRow& a, const EquipmentRow& b) {
      return std::tie(a.EA_ID_AK, a.ED_ID_AK) < std::tie(b.EA_ID_AK, b.ED_ID_AK);
    });
  return equipment;
}

// Brings the cursors to the equipment; false when it does not run.
bool Position(Session& s, const QCLocation& location, const EquipmentRow& row, bool months) {
  if (months && !MoveToEARecord(s, row.EA_ID_AK)) return false;
  if (!MoveToEDRecord(s, row.ED_ID_AK) || !MoveToPDRecord(s, row.PD_ID_AK)) return false;
  if (!months) return s.InDesc();
  if (!MoveToPAActvRecordByMo(s, row.PD_ID_AK, location.Month, location.Year)) return false;
  return row.status != "I" && !row.checked;
}

void StampStructure(Session& s) {
  if (!FindStructureRecord(s)) return;
  Cursor& row = s.At(s.InActv() ? "PA_PLATFORM_ACTV" : "PD_PLATFORM_DESC");
  row.Edit();
  row.SetField(s.InActv() ? "PA_QC_DT" : "PD_QC_DT", StoredDate(s.platform.Now()));
  row.Update();
}

// The equipment runner for those rows, which are of one type.
void Walk(Session& s, QCLocation& location, std::string_view type, const std::vector<EquipmentRow>& rows) {
  Cursor& month = s.At("PA_PLATFORM_ACTV");
  if (s.InActv() && month.HasRow() && NullToEmpty(month.Field("status")) == "I") return;
  const std::int64_t ea = s.EA_ID_AK, ed = s.ED_ID_AK, sa = s.SA_ID_AK, pd = s.PD_ID_AK;
  location.Level = level::kEquipment;
  const SheetSpec* sheet = FindSheet(type);
  const bool months = s.InActv() && sheet->has_activity;
  bool first = true;
  for (const EquipmentRow& row : rows) {
    // what lacks a row of its type, or of the month, is not of the walk
    if (months && !row.has_month) continue;
    if (!HasTypeRows(s, sheet->ed_table(), row.ED_ID_AK, months ? sheet->ea_table() : "", row.EA_ID_AK)) continue;
    if (std::exchange(first, false) && months && row.status == "I") break;
    location.EquipType = type;
    location.EquipID = row.id;
    if (Position(s, location, row, months)) RunSheetQC(s, *sheet, location);
  }
  s.EA_ID_AK = ea;
  s.ED_ID_AK = ed;
  s.SA_ID_AK = sa;
  s.PD_ID_AK = pd;
}

}  // namespace

void RunSurveyQC(Session& s, QCLocation& location) {
  const QCLocation started_at = location;
  s.current = location;
  location.Level = level::kStructure;
  location.EquipType = location.EquipID = "NA";
  const std::vector<StructureRow> rows = ActiveStructures(s, location);
  int done = 0;
  for (const StructureRow& row : rows) {
    location.CmplxID = row.complex;
    location.StructID = row.structure;
    Progress(s, "Structure " + row.complex + " " + row.structure, done++, static_cast<int>(rows.size()));
    const std::string key =
        StructureMonthKey(location.UserID, location.Month, location.Year, row.complex, row.structure);
    if (const std::int64_t* id = s.structure_month_list.Find(key)) s.SA_ID_AK = *id;
    RunStructureQC(s, location, started_at);
  }
}

void RunStructureQC(Session& s, QCLocation& location, const QCLocation& started_at) {
  s.current = location;
  const bool from_above = started_at.Level != level::kStructure;
  if (from_above) {
    ClearStructure(s);
    const int told = s.faults_told;
    LoadStructure(s);
    if (s.faults_told != told) return;  // what could not be read is not judged
  }
  if (s.main->At("chkSTRUCTURE_Status").checked) {
    DelQCRecordsForLocAndBelow(s, location);
    s.StructureInactive = true;
    return;
  }
  RunRules(s, *s.main, location, StructureRules());
  int done = 0;
  const EquipmentByType equipment = EquipmentOn(s, location);
  for (std::string_view type : kWalkedTypes) {
    if (!from_above) Progress(s, TreeTypeName(type), done++, static_cast<int>(kWalkedTypes.size()));
    if (const auto found = equipment.find(type); found != equipment.end()) Walk(s, location, type, found->second);
  }
  location.Level = level::kStructure;
  StampStructure(s);
}

void WalkEquipmentQC(Session& s, QCLocation& location, std::string_view type) {
  const EquipmentByType equipment = EquipmentOn(s, location);
  if (const auto found = equipment.find(type); found != equipment.end()) Walk(s, location, type, found->second);
}

}  // namespace merlu
