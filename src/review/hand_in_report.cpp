#include "review/hand_in_report.h"

#include <algorithm>

#include "base/text.h"

namespace merlu {
namespace {

std::vector<std::string> OperatorLines(Database& db) {
  std::vector<std::string> lines;
  db.ForEach("SELECT CO_NAME,RIMA_CO_NUM,ADDR1,ADDR2,City,State,Zip,Contact FROM CO_COMPANY ORDER BY rowid LIMIT 1", {},
             [&lines](const RowView& row) {
               const auto add = [&](std::initializer_list<int> columns, const char* between) {
                 std::string line;
                 for (const int column : columns)
                   if (const std::string part = Trim(row.Text(column)); !part.empty())
                     line += (line.empty() ? "" : between) + part;
                 if (!line.empty()) lines.push_back(line);
               };
               lines.push_back(Trim(std::string(row.Text(0)) + ", RIMA company no. " + std::string(row.Text(1))));
               add({2, 3}, ", ");
               add({4, 5, 6}, " ");
               add({7}, "");
             });
  return lines;
}

std::string Year(const Review& review) {
  const std::vector<YearMonth> months = MonthsOf(review);
  return months.empty() ? "" : std::to_string(months.front().year);
}

// Under the heading of its structure: "2017/03 · Combustion Flare: F1", "Description".
std::string RecordText(const Review& review, const ReviewedRecord& record) {
  if (record.gone) return PlaceOf(review, record);
  std::string text = record.month == 0 ? "Description" : MonthText(record.year, record.month);
  if (!record.IsEquipment()) return text;
  const ReviewedPiece& piece = review.pieces[static_cast<std::size_t>(record.piece)];
  return text + " · " + PieceText(piece);
}

}  // namespace

std::string WhenText(const Review& review, int month) {
  for (const YearMonth& each : MonthsOf(review))
    if (each.month == month) return MonthText(each.year, each.month);
  return Trim("Whole year " + Year(review));
}

std::vector<HandInFinding> FindingsOf(const Review& review, int month) {
  std::vector<HandInFinding> found;
  for (const ReviewedRecord& record : review.records)
    if (month == 0 || record.month == 0 || record.month == month)
      for (const ReviewedFinding& finding : record.findings) found.push_back({&record, &finding});
  return found;
}

HandInReport MakeHandInReport(Database& db, const Review& review, const std::vector<HandInRow>& checks, int month) {
  HandInReport report;
  report.title = "Ready to Hand In: " + WhenText(review, month);
  report.operator_lines = OperatorLines(db);
  report.verdict = HandInVerdict(checks);
  report.ready = IsReady(checks);
  for (const HandInRow& row : checks)
    report.checks.push_back({row.state, row.check, std::to_string(row.count), row.what_to_do});
  std::vector<HandInFinding> findings = FindingsOf(review, month);
  const auto rank = [&review](const ReviewedRecord& record) {
    return record.structure < 0 ? static_cast<int>(review.structures.size())
                                : review.structures[static_cast<std::size_t>(record.structure)].rank;
  };
  std::stable_sort(findings.begin(), findings.end(),
                   [&](const auto& a, const auto& b) { return rank(*a.record) < rank(*b.record); });
  int count[3] = {}, last = -2;
  for (const auto& [record, finding] : findings) {
    ++count[static_cast<int>(finding->state)];
    if (record->structure != last || report.structures.empty())
      report.structures.push_back({record->structure < 0
                                       ? "Records that are gone"
                                       : review.structures[static_cast<std::size_t>(record->structure)].text,
                                   {}});
    last = record->structure;
    report.structures.back().findings.push_back({RecordText(review, *record), finding->kind->tag, finding->value,
                                                 finding->kind->expected, finding->kind->text, finding->comment,
                                                 StateText(finding->state)});
  }
  report.counts = std::to_string(findings.size()) + " findings: " + std::to_string(count[0]) + " open, " +
                  std::to_string(count[1]) + " explained, " + std::to_string(count[2]) + " stale";
  return report;
}

}  // namespace merlu
