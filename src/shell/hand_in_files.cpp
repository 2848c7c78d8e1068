#include "shell/hand_in_files.h"

#include "base/text.h"
#include "exchange/list_file.h"
#include "review/findings_model.h"
#include "review/hand_in_report.h"
#include "session/folders.h"
#include "session/program_name.h"

namespace merlu {
namespace {

void WriteWorkbook(Session& s, const Review& review, const std::vector<HandInRow>& checks, int month,
                   const std::string& path) {
  const std::vector<HandInFinding> findings = FindingsOf(review, month);
  const ListToWrite found{"Findings", kFindingColumns, static_cast<int>(findings.size()), [&](int row, int column) {
                            const HandInFinding& at = findings[static_cast<std::size_t>(row)];
                            return FindingText(review, *at.record, *at.finding, column);
                          }};
  const std::vector<std::vector<std::string>> about = {
      {"", HandInVerdict(checks), "", ""},
      {"", WhenText(review, month), "", ""},
      {"", "Date: " + SheetDate(s.host.Now()) + ", " + ProgramName(), "", ""},
  };
  const int rows = static_cast<int>(checks.size() + about.size());
  const ListToWrite state{
      "Hand-in", {"State", "Check", "Count", "What to do"}, rows, [&](int row, int column) -> std::string {
        if (row >= static_cast<int>(checks.size()))
          return about[static_cast<std::size_t>(row) - checks.size()][static_cast<std::size_t>(column)];
        const HandInRow& at = checks[static_cast<std::size_t>(row)];
        const std::string cells[] = {at.state, at.check, std::to_string(at.count), at.what_to_do};
        return cells[column];
      }};
  WriteLists(OwnFilesOf(s), path, {found, state});
}

}  // namespace

void WriteHandIn(Session& s, const Review& review, const std::vector<HandInRow>& checks, int month,
                 const std::string& path) {
  if (Lower(path).ends_with(".xlsx")) return WriteWorkbook(s, review, checks, month, path);
  HandInReport report = MakeHandInReport(s.db, review, checks, month);
  report.printed = s.host.Now();
  report.program = ProgramName();
  WriteNewFile(OwnFilesOf(s), path,
               [&](const std::string& unfinished) { s.host.WriteHandInReport(report, unfinished); });
}

}  // namespace merlu
