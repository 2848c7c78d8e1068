#include "shell/hand_in_dialog.h"

#include <algorithm>

#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "qc_run/check_unchecked.h"
#include "review/hand_in.h"
#include "shell/completeness_dock.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/exchange_dialogs.h"
#include "shell/findings_dock.h"
#include "shell/hand_in_files.h"
#include "shell/messages.h"
#include "shell/navigation.h"
#include "shell/proposed_name.h"
#include "shell/sheet_acts.h"
#include "shell/status.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kForm = names::frmHandIn;
constexpr const char* kMonth = names::cmbHND_Month;
constexpr const char* kList = names::lvwHND_Checks;
constexpr const char* kVerdict = "lblHND_Verdict";
constexpr const char* kWholeYear = "Whole year";

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
  for (const YearMonth& each : MonthsOf(review)) month.items.push_back(MonthText(each.year, each.month));
}

std::vector<HandInRow> ChecksOf(Session& s, const Form& dialog) {
  return HandInChecks(s.db, s.companion, Findings(s).review(), MonthOf(dialog), s.draft.id);
}

void Fill(Session& s, Form& dialog) {
  OnSheet(s, [&] {
    const Busy busy(s);
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
  if (!MayMove(s)) return;  // what is typed is not stored yet
  CheckedRecords checked;
  const std::string before = s.message;
  const bool done = OnSheet(s, [&] {
    const Busy busy(s);
    s.progress.AllowStop();
    ShowWait(s, "Check What Was Not", "Checking ...");
    try {
      checked = CheckUnchecked(s, MonthOf(dialog));
    } catch (const Fault&) {
      HideWait(s);
      throw;
    }
    HideWait(s);
  });
  if (done)
    Say(s, std::to_string(checked.done) + (checked.done == 1 ? " record checked" : " records checked") +
               (checked.stopped ? " of " + std::to_string(checked.of) + ", stopped" : "") + NewsSince(s, before));
  // the sheet behind the dialog shows dates and findings
  if (checked.done > 0 && s.tree.selected >= 0) ClickNode(s, s.tree.selected);
  Fill(s, dialog);
}

// ---- the records of a row ----

bool HasFindings(const Review& review, int month, FindingState state) {
  return std::any_of(review.records.begin(), review.records.end(), [&](const ReviewedRecord& record) {
    return record.month == month && !record.ReportsNothing() &&
           (state == FindingState::kOpen ? record.open : record.stale) > 0;
  });
}

void ShowRecords(Session& s, Form& dialog) {
  const std::vector<int>& picked = dialog.At(kList).picked;
  if (picked.empty()) return;
  const auto check = static_cast<HandInCheck>(RowsOf(dialog).Origin(picked.front()));
  const int month = MonthOf(dialog);
  const std::string month_text = dialog.At(kMonth).text;
  s.desk.Hide(dialog);
  const auto findings = [&](const char* text, FindingState state) {
    // those of the descriptions, which a month counts too, where the month has none
    const bool in_month = month == 0 || HasFindings(Findings(s).review(), month, state);
    ShowFindings(s, {"", text, month == 0 ? "All" : in_month ? month_text : "Descriptions"});
  };
  if (check == HandInCheck::kUnexplained) return findings("Open", FindingState::kOpen);
  if (check == HandInCheck::kStale) return findings("Stale", FindingState::kStale);
  if (check == HandInCheck::kUnfinished) {
    if (ShowCompleteness(s, month, {RecordState::kEmpty, RecordState::kUnchecked})) return;
    // they stand behind others of their structures
    const Review& review = Findings(s).review();
    const auto found = std::find_if(review.records.begin(), review.records.end(), [&](const ReviewedRecord& record) {
      return CountsFor(record, month) && IsUnfinished(record);
    });
    if (found != review.records.end()) ShowCompletenessOf(s, LocationOf(review, *found));
    return;
  }
  if (check == HandInCheck::kMonthsMissing || check == HandInCheck::kStructuresWithoutMonth) {
    ShowCompleteness(s, month, {RecordState::kMissing});
    return;
  }
  if (check == HandInCheck::kCopied) {
    const Review& review = Findings(s).review();
    const auto copied = CopiedValues(s.db, s.companion, review, month);
    if (!copied.empty()) return ShowCompletenessOf(s, LocationOf(review, *copied.front()));
  }
  if (check == HandInCheck::kDrafts) {
    const auto edits = InterruptedEdits(s.companion, month, s.draft.id);
    if (!edits.empty()) return ShowCompletenessOf(s, edits.front());
  }
  ShowCompleteness(s, month, {});
}

// ---- files ----

void Report(Session& s, Form& dialog) {
  const std::string path = AskFile(s, {FileQuestion::Kind::kSave,
                                       "Save Report as...",
                                       "PDF (*.pdf)",
                                       "*.pdf",
                                       ".pdf",
                                       {{"Excel Workbook (*.xlsx)", "*.xlsx", ".xlsx"}},
                                       true,
                                       ProposedName(s, MonthOf(dialog), "Hand-In")});
  if (path.empty()) return;
  const bool done = OnSheet(
      s,
      [&] {
        const Busy busy(s);
        WriteHandIn(s, Findings(s).review(), ChecksOf(s, dialog), MonthOf(dialog), path);
      },
      path);
  if (!done) return;
  Say(s, "Report saved as " + FileName(path));
  TellOfFile(s, "Done.", path);
}

void Export(Session& s, Form& dialog) {
  if (!MayMove(s)) return;  // an export opens the file anew
  const int month = MonthOf(dialog);
  s.desk.Hide(dialog);
  ExportSurveyOf(s, month);
}

Form& MakeDialog(Session& s) {
  return DialogForm(s, kForm, "Ready to Hand In", [&s](Form& dialog) {
    AddList(dialog, kMonth, "Month:", {kWholeYear});
    AddListView(dialog, kList, "Checks", {"State", "Check", "Count", "What to do"}, std::make_shared<RowsModel>());
    AddLabel(dialog, kVerdict, "");
    AddButton(dialog, names::cmdHND_CheckAll, "Check What Was Not");
    AddButton(dialog, names::cmdHND_Report, "Report...");
    AddButton(dialog, names::cmdHND_Export, "Export...");
    AddButton(dialog, names::cmdClose, "Close");
    dialog.cancel_button = names::cmdClose;
    dialog.On(kMonth, Event::kClick, [&s, &dialog] { Fill(s, dialog); });
    dialog.On(kList, Event::kDoubleClick, [&s, &dialog] { ShowRecords(s, dialog); });
    dialog.On(names::cmdHND_CheckAll, Event::kClick, [&s, &dialog] { CheckAll(s, dialog); });
    dialog.On(names::cmdHND_Report, Event::kClick, [&s, &dialog] { Report(s, dialog); });
    dialog.On(names::cmdHND_Export, Event::kClick, [&s, &dialog] { Export(s, dialog); });
  });
}

}  // namespace

void MakeHandInDialog(Session& s) {
  MakeDialog(s);
}

void OpenHandIn(Session& s) {
  Form& dialog = MakeDialog(s);
  s.db.NoticeOthers();
  OfferMonths(dialog, Findings(s).review());
  dialog.At(kMonth).index = 0;
  dialog.At(kMonth).text = kWholeYear;
  Fill(s, dialog);
  OpenDialog(s, dialog);
}

}  // namespace merlu
