#include "qc_run/walks.h"

#include <algorithm>
#include <array>
#include <set>
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
  bool checked;  // has a date of last QC
};

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

std::vector<EquipmentRow> EquipmentOf(Session& s, const QCLocation& l, const std::string& type, bool months) {
  std::string sql = "SELECT d.ED_MERLU_EQUIP_ID,d.ED_ID_AK,d.PD_ID_AK";
  sql += months ? ",a.EA_ID_AK,a.EA_STATUS,a.EA_QC_DT FROM EA_" + type +
                      " t JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK "
                      "JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK "
                : ",0,NULL,NULL FROM ED_EQUIP_DESC d ";
  sql += "JOIN ED_" + type +
         " e ON e.ED_ID_AK=d.ED_ID_AK JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK "
         "WHERE p.RIMA_CO_NUM=? AND p.CMPLX_ID_NUM=? AND p.STRUCT_NUM=?";
  Values values = {Trim(l.UserID), l.CmplxID, l.StructID};
  // the type leads the index of a structure's equipment
  sql += " AND d.ED_EQUIP_TYP='" + type + "'";
  if (months) {
    sql += " AND a.EA_MO=? AND a.EA_YR=?";
    values.insert(values.end(), {std::int64_t{l.Month}, std::int64_t{l.Year}});
  }
  std::vector<EquipmentRow> rows;
  s.db.ForEach(sql, values, [&](const RowView& row) {
    rows.push_back({std::string(row.Text(0)), std::string(row.Text(4)), row.Integer(1), row.Integer(3), row.Integer(2),
                    !row.IsNull(5)});
  });
  // so few rows are put in order sooner here than by the store
  std::sort(rows.begin(), rows.end(), [months](const EquipmentRow& a, const EquipmentRow& b) {
    return months ? a.EA_ID_AK < b.EA_ID_AK : a.ED_ID_AK < b.ED_ID_AK;
  });
  return rows;
}

// The types that the structure has at all: the others need no walk.
std::set<std::string> TypesOn(Session& s, const QCLocation& l) {
  std::set<std::string> types;
  s.db.ForEach(
      "SELECT DISTINCT d.ED_EQUIP_TYP FROM ED_EQUIP_DESC d JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK "
      "WHERE p.RIMA_CO_NUM=? AND p.CMPLX_ID_NUM=? AND p.STRUCT_NUM=?",
      {Trim(l.UserID), l.CmplxID, l.StructID}, [&](const RowView& row) { types.emplace(row.Text(0)); });
  return types;
}

// Brings the cursors to the equipment; false when it does not run.
bool Position(Session& s, const QCLocation& location, const EquipmentRow& row, bool months) {
  if (months)
    MoveToEARecord(s, row.EA_ID_AK);
  else
    s.ED_ID_AK = row.ED_ID_AK;
  MoveToEDRecord(s, row.ED_ID_AK);
  MoveToPDRecord(s, row.PD_ID_AK);
  if (!months) return s.InDesc();
  MoveToPAActvRecordByMo(s, row.PD_ID_AK, location.Month, location.Year);
  return row.status != "I" && !row.checked;
}

void StampStructure(Session& s) {
  if (!FindStructureRecord(s)) return;
  Cursor& row = s.At(s.InActv() ? "PA_PLATFORM_ACTV" : "PD_PLATFORM_DESC");
  row.Edit();
  row.SetField(s.InActv() ? "PA_QC_DT" : "PD_QC_DT", StoredDate(s.platform.Now()));
  row.Update();
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
    LoadStructure(s);
  }
  if (s.main->At("chkSTRUCTURE_Status").checked) {
    DelQCRecordsForLocAndBelow(s, location);
    s.StructureInactive = true;
    return;
  }
  RunRules(s, *s.main, location, StructureRules());
  int done = 0;
  const std::set<std::string> present = TypesOn(s, location);
  for (std::string_view type : kWalkedTypes) {
    if (!from_above) Progress(s, TreeTypeName(type), done++, static_cast<int>(kWalkedTypes.size()));
    if (present.contains(std::string(type))) WalkEquipmentQC(s, location, type);
  }
  location.Level = level::kStructure;
  StampStructure(s);
}

void WalkEquipmentQC(Session& s, QCLocation& location, std::string_view type) {
  Cursor& month = s.At("PA_PLATFORM_ACTV");
  if (s.InActv() && month.HasRow() && NullToEmpty(month.Field("status")) == "I") return;
  const std::int64_t ea = s.EA_ID_AK, ed = s.ED_ID_AK, sa = s.SA_ID_AK, pd = s.PD_ID_AK;
  location.Level = level::kEquipment;
  const SheetSpec* sheet = FindSheet(type);
  const bool months = s.InActv() && FindType(type)->has_activity;
  const std::vector<EquipmentRow> rows = EquipmentOf(s, location, std::string(type), months);
  if (rows.empty() || (months && rows.front().status == "I")) return;
  for (const EquipmentRow& row : rows) {
    location.EquipType = type;
    location.EquipID = row.id;
    if (Position(s, location, row, months)) RunSheetQC(s, *sheet, location);
  }
  s.EA_ID_AK = ea;
  s.ED_ID_AK = ed;
  s.SA_ID_AK = sa;
  s.PD_ID_AK = pd;
}

}  // namespace merlu
