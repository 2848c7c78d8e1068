#include "shell/hand_in_dialog.h"

#include "base/text.h"
#include "exchange/list_file.h"
#include "forms/dialog.h"
#include "forms/report.h"
#include "inventory_qc/inventory_run.h"
#include "qc_run/check_unchecked.h"
#include "review/hand_in.h"
#include "session/folders.h"
#include "session/messages.h"
#include "session/types.h"
#include "shell/completeness_dock.h"
#include "shell/exchange_dialogs.h"
#include "shell/findings_dock.h"
#include "shell/navigation.h"

namespace merlu {
namespace {

constexpr const char* kForm = "frmHandIn";
constexpr const char* kMonth = "cmbHND_Month";
constexpr const char* kList = "lvwHND_Checks";
constexpr const char* kVerdict = "lblHND_Verdict";
constexpr const char* kWholeYear = "Whole year";
constexpr int kFindingsRow = 3, kStaleRow = 4;

RowsModel& RowsOf(Form& dialog) {
  return static_cast<RowsModel&>(*dialog.At(kList).model);
}

// 0 for the whole year.
int MonthOf(const Form& dialog) {
  const std::string& text = dialog.At(kMonth).text;
  const auto slash = text.find('/');
  return slash == std::string::npos ? 0 : std::stoi(text.substr(slash + 1));
}

void OfferMonths(Form& dialog, const Review& review) {
  Control& month = dialog.At(kMonth);
  month.items = {kWholeYear};
  for (const ReviewedRecord& record : review.records)
    if (const QCLocation& l = record.location; l.Month != 0 && month.items.back() != MonthText(l.Year, l.Month))
      month.items.push_back(MonthText(l.Year, l.Month));
}

std::vector<HandInRow> ChecksOf(Session& s, const Form& dialog) {
  return HandInChecks(s.db, s.companion, Findings(s).review(), MonthOf(dialog));
}

void Fill(Session& s, Form& dialog) {
  OnSheet(s, [&] {
    const std::vector<HandInRow> checks = ChecksOf(s, dialog);
    std::vector<RowsModel::Row> rows;
    for (const HandInRow& check : checks)
      rows.push_back({check.state, check.check, std::to_string(check.count), check.what_to_do});
    RowsOf(dialog).Set(std::move(rows));
    dialog.At(kList).picked.clear();
    Control& verdict = dialog.At(kVerdict);
    verdict.caption = verdict.text = HandInVerdict(checks);
  });
}

void CheckAll(Session& s, Form& dialog) {
  OnSheet(s, [&] {
    const Busy busy(s);
    ShowWait(s, "MERLU", "Checking ...");
    try {
      CheckUnchecked(s, MonthOf(dialog));
    } catch (const Fault&) {
      HideWait(s);
      throw;
    }
    HideWait(s);
  });
  Fill(s, dialog);
}

// The records behind a row, in the findings or in the matrix.
void ShowRecords(Session& s, Form& dialog) {
  const std::vector<int>& picked = dialog.At(kList).picked;
  if (picked.empty()) return;
  const auto row = static_cast<int>(RowsOf(dialog).Origin(picked.front()));
  const int month = MonthOf(dialog);
  s.desk.Hide(dialog);
  if (row == kFindingsRow || row == kStaleRow)
    ShowFindings(s, {"", row == kFindingsRow ? "Open" : "Stale", month == 0 ? "All" : dialog.At(kMonth).text});
  else if (!CompletenessDock(s).visible)
    ToggleCompleteness(s);
}

// ---- the report ----

bool IsInReport(const ReviewedRecord& record, int month) {
  return month == 0 || record.location.Month == 0 || record.location.Month == month;
}

InventoryReport ReportOf(Session& s, const Form& dialog) {
  const int month = MonthOf(dialog);
  const Review& review = Findings(s).review();
  InventoryReport report = ReadInventoryReport(s);
  report.title = "Ready to Hand In: " + dialog.At(kMonth).text + ", MERLU-2017 " + s.version;
  report.sections.clear();
  report.findings = 0;
  report.summary = HandInVerdict(ChecksOf(s, dialog));
  for (const HandInRow& row : ChecksOf(s, dialog))
    report.summary += "\n" + row.state + ": " + row.check + ": " + std::to_string(row.count);
  int last = -1;
  for (const ReviewedFinding& finding : review.findings) {
    const ReviewedRecord& record = review.records[static_cast<std::size_t>(finding.record)];
    if (!IsInReport(record, month)) continue;
    const QCLocation& l = record.location;
    if (last < 0 || record.structure != review.records[static_cast<std::size_t>(last)].structure ||
        l.Month != review.records[static_cast<std::size_t>(last)].location.Month)
      report.sections.push_back(
          {l.Month == 0 ? "Descriptions" : MonthText(l.Year, l.Month),
           record.structure < 0 ? "" : review.structures[static_cast<std::size_t>(record.structure)].text,
           {}});
    last = finding.record;
    std::string text = finding.text;
    if (!finding.expected.empty()) text += " (expected " + finding.expected + ")";
    text += "; " + std::string(StateText(finding.state));
    if (!finding.comment.empty()) text += ": " + finding.comment;
    report.sections.back().lines.push_back(
        {l.Is(level::kEquipment) ? TreeTypeName(l.EquipType) + ": " + Trim(l.EquipID) : "",
         finding.tag + (finding.value.empty() ? "" : " = " + finding.value), text});
    ++report.findings;
  }
  return report;
}

void WriteFindings(Session& s, const Form& dialog, const std::string& path) {
  const int month = MonthOf(dialog);
  const Review& review = Findings(s).review();
  std::vector<const ReviewedFinding*> shown;
  for (const ReviewedFinding& finding : review.findings)
    if (IsInReport(review.records[static_cast<std::size_t>(finding.record)], month)) shown.push_back(&finding);
  WriteList(OwnFilesOf(s), path, {"Hand-in", kFindingColumns, static_cast<int>(shown.size()), [&](int row, int column) {
                                    const ReviewedFinding& f = *shown[static_cast<std::size_t>(row)];
                                    const std::string columns[] = {
                                        PlaceOf(review, review.records[static_cast<std::size_t>(f.record)]),
                                        f.tag,
                                        f.value,
                                        f.expected,
                                        f.text,
                                        f.comment,
                                        StateText(f.state)};
                                    return columns[column];
                                  }});
}

void Report(Session& s, Form& dialog) {
  const std::string path = s.platform.AskFile({FileQuestion::Kind::kSave,
                                               "Save Report as...",
                                               "PDF (*.pdf)",
                                               "*.pdf",
                                               ".pdf",
                                               {{"Excel Workbook (*.xlsx)", "*.xlsx", ".xlsx"}}});
  if (path.empty()) return;
  const bool done = OnSheet(s, [&] {
    const Busy busy(s);
    if (Lower(path).ends_with(".xlsx")) return WriteFindings(s, dialog, path);
    WriteNewFile(OwnFilesOf(s), path, [&](const std::string& unfinished) {
      s.platform.WriteReport(ReportOf(s, dialog), unfinished, [](int, int) {});
    });
  });
  if (done) Tell(s, "Done.");
}

Form& MakeDialog(Session& s) {
  Form& dialog = s.desk.Own(std::make_unique<Form>(kForm, "Ready to Hand In"));
  AddList(dialog, kMonth, "Month:", {kWholeYear});
  AddListView(dialog, kList, "Checks", {"State", "Check", "Count", "What to do"}, std::make_shared<RowsModel>());
  AddLabel(dialog, kVerdict, "");
  AddButton(dialog, "cmdHND_CheckAll", "Check What Was Not");
  AddButton(dialog, "cmdHND_Report", "Report...");
  AddButton(dialog, "cmdHND_Export", "Export...");
  AddButton(dialog, "cmdClose", "Close");
  dialog.cancel_button = "cmdClose";
  dialog.KeepDesign();
  dialog.On(kMonth, Event::kClick, [&s, &dialog] { Fill(s, dialog); });
  dialog.On(kList, Event::kDoubleClick, [&s, &dialog] { ShowRecords(s, dialog); });
  dialog.On("cmdHND_CheckAll", Event::kClick, [&s, &dialog] { CheckAll(s, dialog); });
  dialog.On("cmdHND_Report", Event::kClick, [&s, &dialog] { Report(s, dialog); });
  dialog.On("cmdHND_Export", Event::kClick, [&s, &dialog] {
    if (!MayMove(s)) return;  // an export opens the file anew
    s.desk.Hide(dialog);
    ExportSurvey(s);
  });
  dialog.On("cmdClose", Event::kClick, [&s, &dialog] { s.desk.Hide(dialog); });
  return dialog;
}

}  // namespace

void OpenHandIn(Session& s) {
  Form* found = s.desk.Find(kForm);
  Form& dialog = found != nullptr ? *found : MakeDialog(s);
  dialog.RestoreDesign();
  OfferMonths(dialog, Findings(s).review());
  dialog.At(kMonth).index = 0;
  dialog.At(kMonth).text = kWholeYear;
  Fill(s, dialog);
  ShowDialog(s.desk, s.platform, dialog);
}

}  // namespace merlu
