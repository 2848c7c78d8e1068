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

// "GI, 43, A (complex 1001, structure 1)"; the ids alone for a structure that is gone.
std::string StructureInWords(const RowView& row) {
  const std::string ids = "complex " + std::string(row.Text(1)) + ", structure " + std::string(row.Text(2));
  const std::string name =
      Joined({std::string(row.Text(9)), std::string(row.Text(10)), std::string(row.Text(11))}, ", ");
  return name.empty() ? ids : name + " (" + ids + ")";
}

std::string Heading(const RowView& row) {
  if (row.Text(0) == "USER") return "Operator";
  const std::string kind = row.Text(0) == "STRUCTURE" ? "Structures" : "Equipment";
  return kind + ", " + MonthName(static_cast<int>(row.Integer(3))) + " " + std::to_string(row.Integer(4));
}

void AddLine(InventoryReport& report, const RowView& row) {
  const std::string heading = Heading(row);
  const std::string place = row.Text(0) == "USER" ? "" : StructureInWords(row);
  if (report.sections.empty() || report.sections.back().heading != heading || report.sections.back().place != place)
    report.sections.push_back({heading, place, {}});
  const std::string where =
      row.Text(0) == "EQUIPMENT" ? TreeTypeName(row.Text(5)) + ": " + std::string(row.Text(6)) : "";
  const std::string item = row.Text(7) == "STRUCTURE" ? "Equipment" : std::string(row.Text(7));
  report.sections.back().lines.push_back({where, item, std::string(row.Text(8))});
  ++report.findings;
}

}  // namespace

InventoryReport ReadInventoryReport(Session& s) {
  InventoryReport report;
  report.title = "Annual Inventory QA Summary";
  report.operator_lines = OperatorLines(s);
  report.year = std::to_string(s.year);
  report.printed = s.platform.Now();
  report.summary =
      NullToEmpty(s.db.Single("SELECT [Desc] FROM QCInventory WHERE [Level]='ZSUMMARY' AND FieldDesc='AA'"));
  s.db.ForEach(
      "SELECT "
      "q.[Level],q.CmplxID,q.StructID,q.[Month],q.[Year],q.EquipType,q.EquipID,q.FieldDesc,q.[Desc],p.Area,p.Block,p."
      "Name "
      "FROM QCInventory q LEFT JOIN PD_PLATFORM_DESC p ON p.CMPLX_ID_NUM=q.CmplxID AND p.STRUCT_NUM=q.StructID AND "
      "p.RIMA_CO_NUM=q.UserID WHERE q.[Level]<>'ZSUMMARY' "
      "ORDER BY CASE q.[Level] WHEN 'USER' THEN 0 WHEN 'STRUCTURE' THEN 1 ELSE 2 "
      "END,q.CmplxID,q.StructID,q.[Year],q.[Month],"
      "q.EquipType,q.EquipID,q.FieldDesc,q.rowid",
      {}, [&](const RowView& row) { AddLine(report, row); });
  return report;
}

}  // namespace merlu
