#include "base/text.h"
#include "inventory_qc/inventory_run.h"
#include "session/types.h"

namespace merlu {
namespace {

std::string Joined(const std::vector<std::string>& parts, const char* between) {
  std::string text;
  for (const std::string& part : parts) {
    if (Trim(part).empty()) continue;
    text += (text.empty() ? "" : between) + Trim(part);
  }
  return text;
}

std::vector<std::string> OperatorLines(Session& s) {
  const Rows rows = s.db.Query(
      "SELECT RIMA_CO_NUM,CO_NAME,ADDR1,ADDR2,City,State,Zip,Contact,Phone,Fax,Email FROM CO_COMPANY ORDER BY rowid "
      "LIMIT 1");
  if (rows.rows.empty()) return {};
  std::vector<std::string> of;
  for (const Value& value : rows.rows.front()) of.push_back(NullToEmpty(value));
  std::vector<std::string> lines = {Joined({of[1], "RIMA company no. " + of[0]}, ", "), Joined({of[2], of[3]}, ", "),
                                    Joined({of[4], Joined({of[5], of[6]}, " ")}, ", "),
                                    Joined({of[7], of[8], of[10]}, " · ")};
  std::erase_if(lines, [](const std::string& line) { return line.empty(); });
  return lines;
}

// "GI, 43, A (complex 1001, structure 1)", with a question mark for a blank part; the IDs alone for a deleted
// structure.
std::string StructureInWords(const RowView& row) {
  const std::string ids = "complex " + std::string(row.Text(1)) + ", structure " + std::string(row.Text(2));
  if (row.IsNull(12)) return ids;
  std::string name;
  for (const int part : {9, 10, 11}) {
    const std::string text = Trim(row.Text(part));
    name += (name.empty() ? "" : ", ") + (text.empty() ? "?" : text);
  }
  return name + " (" + ids + ")";
}

std::string Heading(const RowView& row) {
  if (row.Text(0) == "USER") return "Operator";
  const std::string kind = row.Text(0) == "STRUCTURE" ? "Structures" : "Equipment";
  return kind + ", " + MonthName(static_cast<int>(row.Integer(3))) + " " + std::to_string(row.Integer(4));
}

// Where there are several operators, a place names its own.
void AddLine(InventoryReport& report, const RowView& row, bool several_operators) {
  const std::string heading = Heading(row), company = "RIMA company no. " + std::string(row.Text(13));
  std::string place = row.Text(0) == "USER" ? "" : StructureInWords(row);
  if (several_operators) place += (place.empty() ? "" : ", ") + company;
  if (report.sections.empty() || report.sections.back().heading != heading || report.sections.back().place != place)
    report.sections.push_back({heading, place, {}});
  const std::string where =
      row.Text(0) == "EQUIPMENT" ? TreeTypeName(row.Text(5)) + ": " + std::string(row.Text(6)) : "";
  report.sections.back().lines.push_back({where, std::string(row.Text(7)), std::string(row.Text(8))});
  ++report.findings;
}

// The stored summary, unless the run was incomplete: then it says so, and never that nothing is missing.
std::string SummaryOf(const std::string& stored, const InventoryRun& run, int findings) {
  std::string reservation, names;
  if (!run.had_records) reservation = "There was nothing to look at: no active month and no equipment.";
  for (const std::string& pass : run.broken) names += (names.empty() ? "" : ", ") + pass;
  if (!names.empty())
    reservation = Joined({reservation, "This run is not complete. An error ended: " + names + "."}, " ");
  if (reservation.empty()) return stored;
  return findings == 0 ? reservation : stored + " " + reservation;
}

}  // namespace

InventoryReport ReadInventoryReport(Session& s, const InventoryRun& run) {
  InventoryReport report;
  report.title = "Annual Inventory QA Summary";
  report.operator_lines = OperatorLines(s);
  report.year = std::to_string(s.year);
  report.printed = s.host.Now();
  const bool several_operators =
      ToInteger(s.db.Single("SELECT COUNT(DISTINCT UserID) FROM QCInventory WHERE [Level]<>'ZSUMMARY'")) > 1;
  // of structures with the same pair of IDs, the first
  s.db.ForEach(
      "SELECT q.[Level],q.CmplxID,q.StructID,q.[Month],q.[Year],q.EquipType,q.EquipID,q.FieldDesc,q.[Desc],p.Area,"
      "p.Block,p.Name,p.PD_ID_AK,q.UserID FROM QCInventory q LEFT JOIN (SELECT MIN(PD_ID_AK) AS PD_ID_AK,RIMA_CO_NUM,"
      "CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name FROM PD_PLATFORM_DESC GROUP BY RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM) p "
      "ON p.CMPLX_ID_NUM=q.CmplxID AND p.STRUCT_NUM=q.StructID AND p.RIMA_CO_NUM=q.UserID WHERE q.[Level]<>'ZSUMMARY' "
      "ORDER BY CASE q.[Level] WHEN 'USER' THEN 0 WHEN 'STRUCTURE' THEN 1 ELSE 2 "
      "END,q.UserID,q.CmplxID,q.StructID,q.[Year],q.[Month],q.EquipType,q.EquipID,q.FieldDesc,q.rowid",
      {}, [&](const RowView& row) { AddLine(report, row, several_operators); });
  const Value stored = s.db.Single("SELECT [Desc] FROM QCInventory WHERE [Level]='ZSUMMARY' AND FieldDesc='AA'");
  report.summary = SummaryOf(NullToEmpty(stored), run, report.findings);
  return report;
}

}  // namespace merlu
