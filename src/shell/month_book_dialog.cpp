#include "shell/month_book_dialog.h"

#include <algorithm>

#include "entry/month_book.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "session/act.h"
#include "session/folders.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/messages.h"
#include "shell/proposed_name.h"
#include "shell/sheet_acts.h"
#include "shell/status.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kPlan = names::lvwRDP_Plan;
constexpr const char* kCount = "lblRDP_Count";

std::string Count(std::ptrdiff_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

Form& Dialog(Session& s) {
  return DialogForm(s, names::frmReadPlan, "Read Month Workbook", [](Form& form) {
    AddListView(form, kPlan, "What the workbook changes:", {"Place", "Field", "Old", "New", "What happens"},
                std::make_shared<RowsModel>());
    AddLabel(form, kCount, "");
    AddButton(form, names::cmdOK, "Apply");
    AddButton(form, names::cmdCANCEL, "Cancel");
    form.default_button = names::cmdOK;
    form.cancel_button = names::cmdCANCEL;
  });
}

std::string CountText(const std::vector<BookChange>& changes) {
  const auto applied = std::count_if(changes.begin(), changes.end(), [](const BookChange& c) { return c.Applies(); });
  const auto refused = std::count_if(changes.begin(), changes.end(), [](const BookChange& c) { return c.IsRefused(); });
  return Count(applied, "value") + " to store, " + std::to_string(refused) + " refused, " +
         std::to_string(static_cast<std::ptrdiff_t>(changes.size()) - applied - refused) + " as stored";
}

// False, after a message, when nothing was stored.
bool Apply(Session& s, MonthGrid& grid) {
  GridSaved saved;
  const std::string before = s.message;
  const bool done = OnSheet(s, [&] {
    const Busy busy(s);
    const Act act(s, "Month Workbook", grid.PlaceOfChanges(), s.current);
    if (act.MayWrite()) saved = grid.Save();
  });
  if (!saved.refused.empty()) Tell(s, saved.refused, Icon::kWarning);
  if (!done || saved.records == 0) return false;
  std::string text = Count(saved.records, "record") + " saved, " + Count(saved.findings, "finding");
  for (const std::string& message : saved.messages) text += ". " + message;
  Say(s, text + NewsSince(s, before));
  return true;
}

void ShowPlan(Session& s, MonthGrid& grid, const std::vector<BookChange>& changes) {
  Form& form = Dialog(s);
  // what changes and what is refused comes before what stays as it is
  std::vector<BookChange> ordered = changes;
  std::stable_partition(ordered.begin(), ordered.end(),
                        [](const BookChange& change) { return change.Applies() || change.IsRefused(); });
  std::vector<RowsModel::Row> rows;
  for (const BookChange& change : ordered)
    rows.push_back({change.place, change.field, change.old_text, change.new_text, change.what});
  static_cast<RowsModel&>(*form.At(kPlan).model).Set(std::move(rows));
  form.At(kCount).caption = form.At(kCount).text = CountText(changes);
  form.At(names::cmdOK).enabled = grid.ChangedRecords() > 0;
  form.On(names::cmdOK, Event::kClick, [&s, &form, &grid] {
    if (Apply(s, grid)) s.desk.Hide(form);
  });
  OpenDialog(s, form);
  form.On(names::cmdOK, Event::kClick, [] {});
  static_cast<RowsModel&>(*form.At(kPlan).model).Set({});
  // the record that shows may have been saved
  ClearSheet(s);
  LoadSheet(s);
  LockSheet(s);
}

}  // namespace

void MakeReadPlanDialog(Session& s) {
  Dialog(s);
}

void MakeWorkbookOfMonth(Session& s) {
  if (s.editing || !s.InActv()) return;
  const int month = s.current.Month > 0 ? s.current.Month : s.last_month;
  if (month < 1) return Tell(s, "There is no month yet.");
  const std::string path = AskFile(s, {FileQuestion::Kind::kSave,
                                       "Make Month Workbook",
                                       "Excel Workbook (*.xlsx)",
                                       "*.xlsx",
                                       ".xlsx",
                                       {},
                                       true,
                                       ProposedName(s, month, "Workbook")});
  if (path.empty()) return;
  const bool done = OnSheet(
      s,
      [&] {
        const Busy busy(s);
        const MonthBook book = MakeMonthBook(s, month);
        WriteNewFile(OwnFilesOf(s), path, [&](const std::string& unfinished) { WriteMonthBook(book, unfinished); });
      },
      path);
  if (!done) return;
  Say(s, "Month workbook saved as " + FileName(path));
  TellOfFile(s, "Done.", path);
}

void ReadWorkbookOfMonth(Session& s) {
  if (s.editing || !s.InActv()) return;
  const std::string path = AskFile(s, {FileQuestion::Kind::kOpen,
                                       "Read Month Workbook",
                                       "Excel Workbook (*.xlsx)",
                                       "*.xlsx",
                                       ".xlsx",
                                       {{"OpenDocument Spreadsheet (*.ods)", "*.ods", ".ods"},
                                        {"Comma-separated values (*.csv)", "*.csv", ".csv"}}});
  if (path.empty()) return;
  MonthGrid grid(s);
  std::vector<BookChange> changes;
  const bool done = OnSheet(
      s,
      [&] {
        const Busy busy(s);
        s.db.NoticeOthers();
        changes = PlanMonthBook(s, ReadMonthBook(path), grid);
      },
      path);
  if (done) ShowPlan(s, grid, changes);
}

}  // namespace merlu
