#include "qc/qc_list.h"

#include "base/text.h"
#include "session/types.h"

namespace merlu {
namespace {

const char* const kMonth = "UserID=? AND [Month]=? AND [Year]=?";

Values MonthOf(const QCLocation& l) {
  return {Trim(l.UserID), std::int64_t{l.Month}, std::int64_t{l.Year}};
}

void AddSummary(Control& list, const std::string& what, std::int64_t count) {
  if (count > 0) list.rows.push_back({what, std::to_string(count) + " errors found", kSummaryMark});
}

}  // namespace

FindingQuery FindingsOfEquipment(const QCLocation& l, const std::string& type) {
  Values values = MonthOf(l);
  values.insert(values.end(), {Trim(l.CmplxID), Trim(l.StructID), type, Trim(l.EquipID)});
  return {std::string(kMonth) + " AND CmplxID=? AND StructID=? AND EquipType=? AND EquipID=?", values};
}

FindingQuery FindingsOfStructure(const QCLocation& l) {
  Values values = MonthOf(l);
  values.insert(values.end(), {Trim(l.CmplxID), Trim(l.StructID), std::string(level::kStructure)});
  return {std::string(kMonth) + " AND CmplxID=? AND StructID=? AND [Level]=?", values};
}

FindingQuery FindingsOfSurvey(const QCLocation& l) {
  Values values = MonthOf(l);
  values.emplace_back(std::string(level::kSurvey));
  return {std::string(kMonth) + " AND [Level]=?", values};
}

void FillWithFindings(Session& s, Control& list, const FindingQuery& query) {
  list.rows.clear();
  list.picked.clear();
  s.db.ForEach("SELECT FieldID,[Desc],Comments FROM QC WHERE " + query.condition + " ORDER BY rowid", query.values,
               [&](const RowView& row) {
                 list.rows.push_back({std::string(row.Text(0)), std::string(row.Text(1)), std::string(row.Text(2))});
               });
}

void AddEquipmentSummary(Session& s, Control& list, const QCLocation& l) {
  Values values = MonthOf(l);
  values.insert(values.end(), {Trim(l.CmplxID), Trim(l.StructID)});
  s.db.ForEach(std::string("SELECT EquipType,EquipID,COUNT(FieldID) FROM QC WHERE ") + kMonth +
                   " AND CmplxID=? AND StructID=? AND [Level]='EQUIPMENT' GROUP BY EquipType,EquipID",
               values, [&](const RowView& row) {
                 AddSummary(list, TreeTypeName(row.Text(0)) + ": " + std::string(row.Text(1)), row.Integer(2));
               });
}

void AddStructureSummary(Session& s, Control& list, const QCLocation& l) {
  s.db.ForEach(
      "SELECT p.Area,p.Block,p.Name,COUNT(q.FieldID) FROM QC q, PD_PLATFORM_DESC p WHERE p.CMPLX_ID_NUM=q.CmplxID AND "
      "q.StructID=p.STRUCT_NUM AND q.[Level]<>'SURVEY' AND q.UserID=? AND p.RIMA_CO_NUM=q.UserID "
      "GROUP BY q.CmplxID,q.StructID,p.Area,p.Block,p.Name",
      {Trim(l.UserID)}, [&](const RowView& row) {
        AddSummary(list,
                   "Structure: " + std::string(row.Text(0)) + ", " + std::string(row.Text(1)) + ", " +
                       std::string(row.Text(2)),
                   row.Integer(3));
      });
}

}  // namespace merlu
