#include "qc/qc_list.h"

#include "base/text.h"
#include "session/types.h"

namespace merlu {
namespace {

const char* const kMonth = "UserID=? AND [Month]=? AND [Year]=?";

Values MonthOf(const QCLocation& l) {
  return {Trim(l.UserID), std::int64_t{l.Month}, std::int64_t{l.Year}};
}

void AddRows(Control& list, const std::vector<SummaryRow>& summary) {
  for (const SummaryRow& row : summary)
    list.rows.push_back({row.text, std::to_string(row.count) + " errors found", kSummaryMark});
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

std::vector<SummaryRow> EquipmentSummary(Session& s, const QCLocation& l) {
  std::vector<SummaryRow> rows;
  Values values = MonthOf(l);
  values.insert(values.end(), {Trim(l.CmplxID), Trim(l.StructID)});
  s.db.ForEach(std::string("SELECT EquipType,EquipID,COUNT(FieldID) FROM QC WHERE ") + kMonth +
                   " AND CmplxID=? AND StructID=? AND [Level]='EQUIPMENT' GROUP BY EquipType,EquipID",
               values, [&](const RowView& row) {
                 if (row.Integer(2) == 0) return;
                 QCLocation at = l;
                 at.Level = level::kEquipment;
                 at.EquipType = row.Text(0);
                 at.EquipID = row.Text(1);
                 rows.push_back({TreeTypeName(row.Text(0)) + ": " + at.EquipID, row.Integer(2), at});
               });
  return rows;
}

std::vector<SummaryRow> StructureSummary(Session& s, const QCLocation& l) {
  std::vector<SummaryRow> rows;
  s.db.ForEach(
      "SELECT p.Area,p.Block,p.Name,COUNT(q.FieldID),q.CmplxID,q.StructID FROM QC q, PD_PLATFORM_DESC p WHERE "
      "p.CMPLX_ID_NUM=q.CmplxID AND q.StructID=p.STRUCT_NUM AND q.[Level]<>'SURVEY' AND q.UserID=? AND "
      "p.RIMA_CO_NUM=q.UserID GROUP BY q.CmplxID,q.StructID,p.Area,p.Block,p.Name",
      {Trim(l.UserID)}, [&](const RowView& row) {
        if (row.Integer(3) == 0) return;
        QCLocation at = l;
        at.Level = level::kStructure;
        at.CmplxID = row.Text(4);
        at.StructID = row.Text(5);
        rows.push_back({"Structure: " + std::string(row.Text(0)) + ", " + std::string(row.Text(1)) + ", " +
                            std::string(row.Text(2)),
                        row.Integer(3), at});
      });
  return rows;
}

void AddEquipmentSummary(Session& s, Control& list, const QCLocation& l) {
  AddRows(list, EquipmentSummary(s, l));
}

void AddStructureSummary(Session& s, Control& list, const QCLocation& l) {
  AddRows(list, StructureSummary(s, l));
}

}  // namespace merlu
