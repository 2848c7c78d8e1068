#include "shell/findings_dock.h"

#include <algorithm>

#include "base/text.h"
#include "exchange/list_file.h"
#include "forms/dialog.h"
#include "history/notes.h"
#include "qc/comment_dialog.h"
#include "qc/comment_key.h"
#include "review/comments.h"
#include "session/folders.h"
#include "session/messages.h"
#include "shell/docks.h"
#include "shell/navigation.h"

namespace merlu {
namespace {

constexpr const char* kForm = "frmFindings";
constexpr const char* kFilter = "txtFND_Filter";
constexpr const char* kState = "cmbFND_State";
constexpr const char* kWhen = "cmbFND_When";
constexpr const char* kList = "lvwFND_List";
constexpr const char* kCount = "lblFND_Count";

FindingsModel& ModelOf(Form& dock) {
  return static_cast<FindingsModel&>(*dock.At(kList).model);
}

// The months that the inventory has, behind "All" and "Descriptions".
void OfferMonths(Form& dock, const Review& review) {
  Control& when = dock.At(kWhen);
  std::vector<std::string> items = {"All", "Descriptions"};
  for (const ReviewedRecord& record : review.records)
    if (const QCLocation& l = record.location; l.Month != 0 && items.back() != MonthText(l.Year, l.Month))
      items.push_back(MonthText(l.Year, l.Month));
  if (items == when.items) return;
  when.items = std::move(items);
  const auto found = std::find(when.items.begin(), when.items.end(), when.text);
  when.index = found == when.items.end() ? 0 : static_cast<int>(found - when.items.begin());
  when.text = when.items[static_cast<std::size_t>(when.index)];
}

void Refresh(Form& dock) {
  FindingsModel& model = ModelOf(dock);
  if (!model.Refresh()) return;
  OfferMonths(dock, model.review());
  dock.At(kList).picked.clear();
  Control& count = dock.At(kCount);
  count.caption = count.text = model.CountText();
}

// ---- going to a finding ----

void GoToFinding(Session& s, const Review& review, const ReviewedFinding& finding) {
  const ReviewedRecord& record = review.records[static_cast<std::size_t>(finding.record)];
  const QCLocation location = record.location;
  const Mode mode = record.mode;
  const std::string field = finding.control.empty() ? finding.tag : finding.control;
  GoTo(s, location, mode, field);
}

bool IsAt(const Session& s, const ReviewedRecord& record) {
  const QCLocation& l = record.location;
  return s.mode == record.mode && s.current.Level == l.Level && s.current.Month == l.Month &&
         Trim(s.current.CmplxID) == Trim(l.CmplxID) && Trim(s.current.StructID) == Trim(l.StructID) &&
         (!l.Is(level::kEquipment) ||
          (s.current.EquipType == l.EquipType && Trim(s.current.EquipID) == Trim(l.EquipID)));
}

std::string FocusOfSheet(const Session& s) {
  const ShowingSheet sheet = SheetThatShows(s);
  return sheet.form == nullptr ? "" : sheet.form->focus;
}

// Place in the order of what is walked through where the user stands: on the finding of the field in hand, else in
// front of the record's first; -1 when the place has none.
struct Standing {
  int on = -1, first_of_record = -1;
};

Standing WhereTheUserStands(const Session& s, const FindingsModel& model, const std::vector<int>& order) {
  Standing standing;
  const std::string focus = FocusOfSheet(s);
  for (std::size_t i = 0; i < order.size(); ++i) {
    const ReviewedFinding& finding = model.review().findings[static_cast<std::size_t>(order[i])];
    if (!IsAt(s, model.review().records[static_cast<std::size_t>(finding.record)])) continue;
    if (standing.first_of_record < 0) standing.first_of_record = static_cast<int>(i);
    if (!focus.empty() && EqualsIgnoringCase(finding.control, focus)) standing.on = static_cast<int>(i);
  }
  return standing;
}

void Step(Session& s, int by) {
  Form& dock = FindingsDock(s);
  FindingsModel& model = Findings(s);
  // with the dock, its rows; without it, all of them
  std::vector<int> order;
  const int count = dock.visible ? model.RowCount() : static_cast<int>(model.review().findings.size());
  for (int i = 0; i < count; ++i) order.push_back(dock.visible ? model.Origin(i) : i);
  if (order.empty()) return Tell(s, "There are no findings.", Icon::kInfo);
  const Standing standing = WhereTheUserStands(s, model, order);
  int next = 0;
  if (standing.on >= 0)
    next = standing.on + by;
  else if (standing.first_of_record >= 0)
    next = standing.first_of_record + (by < 0 ? -1 : 0);
  else if (by < 0)
    next = count - 1;
  next = (next + count) % count;
  if (dock.visible) {
    dock.At(kList).picked = {next};
    dock.At(kList).at_row = next;
  }
  const ReviewedFinding finding =
      model.review().findings[static_cast<std::size_t>(order[static_cast<std::size_t>(next)])];
  GoToFinding(s, model.review(), finding);
}

// ---- explaining ----

std::vector<FindingToExplain> Picked(Form& dock) {
  FindingsModel& model = ModelOf(dock);
  std::vector<FindingToExplain> picked;
  for (const int row : dock.At(kList).picked) {
    if (row < 0 || row >= model.RowCount()) continue;
    const ReviewedFinding& finding = model.At(row);
    const ReviewedRecord& record = model.review().records[static_cast<std::size_t>(finding.record)];
    picked.push_back({record.location, record.mode, finding});
  }
  return picked;
}

// Of one finding its comment, or one that it had before it was wiped; of several none.
std::string OfferedComment(Session& s, const std::vector<FindingToExplain>& picked) {
  if (picked.size() > 1) return "";
  const FindingToExplain& one = picked.front();
  if (!Trim(one.finding.comment).empty()) return one.finding.comment;
  const auto known = CommentOf(s.companion, CommentKey(one.location, one.finding.tag, one.finding.text));
  return known ? known->comment : "";
}

void EditComment(Session& s, Form& dock) {
  Refresh(dock);
  const std::vector<FindingToExplain> picked = Picked(dock);
  if (picked.empty()) return Tell(s, "Please select an error record to edit.");
  Form& dialog = CommentDialog(s);
  const bool one = picked.size() == 1;
  dialog.At("txtFieldName").text =
      one ? picked.front().finding.tag : std::to_string(picked.size()) + " findings take this comment";
  dialog.At("txtErrorDesc").text = one ? picked.front().finding.text : "";
  dialog.At("txtComments").text = OfferedComment(s, picked);
  dialog.On("cmdOK", Event::kClick, [&s, &dialog, &picked] {
    if (ExplainFindings(s, picked, dialog.At("txtComments").text)) s.desk.Hide(dialog);
  });
  ShowDialog(s.desk, s.platform, dialog);
  dialog.On("cmdOK", Event::kClick, nullptr);
  Refresh(dock);
}

void Export(Session& s, Form& dock) {
  Refresh(dock);
  const FindingsModel& model = ModelOf(dock);
  const std::string path = s.platform.AskFile({FileQuestion::Kind::kSave,
                                               "Export Findings",
                                               "Excel Workbook (*.xlsx)",
                                               "*.xlsx",
                                               ".xlsx",
                                               {{"Comma-Separated Values (*.csv)", "*.csv", ".csv"}}});
  if (path.empty()) return;
  const bool done = OnSheet(s, [&] {
    WriteList(OwnFilesOf(s), path, {"Findings", kFindingColumns, model.RowCount(), [&](int row, int column) {
                                      return model.Text(row, column);
                                    }});
  });
  if (done) Tell(s, "Done.");
}

Form& MakeDock(Session& s) {
  Form& dock = s.desk.Own(std::make_unique<Form>(kForm, "Findings"));
  dock.dock = "mnuRFindings";
  AddText(dock, kFilter, "Filter:");
  AddList(dock, kState, "State:", {"All", "Open", "Explained", "Stale"});
  AddList(dock, kWhen, "When:", {"All", "Descriptions"});
  const auto text = [&dock](const char* control) { return dock.At(control).text; };
  AddListView(dock, kList, "Findings", kFindingColumns,
              std::make_shared<FindingsModel>(
                  FindingsModel::Source{[&s]() -> Database* { return s.db.IsOpen() ? &s.db : nullptr; },
                                        [&s]() -> const Companion& { return s.companion; },
                                        [text] {
                                          return FindingFilter{text(kFilter), text(kState), text(kWhen)};
                                        }}));
  dock.At(kList).many = true;
  AddLabel(dock, kCount, "");
  AddButton(dock, "cmdFND_Comment", "Edit QC Comment");
  AddButton(dock, "cmdFND_Export", "Export...");
  for (const char* list : {kState, kWhen}) {
    dock.At(list).index = 0;
    dock.At(list).text = "All";
  }
  dock.KeepDesign();
  dock.On(kCount, kRefreshDock, [&dock] { Refresh(dock); });
  dock.On("cmdFND_Comment", Event::kClick, [&s, &dock] { EditComment(s, dock); });
  dock.On("cmdFND_Export", Event::kClick, [&s, &dock] { Export(s, dock); });
  dock.On(kList, Event::kDoubleClick, [&s, &dock] {
    Refresh(dock);
    const FindingsModel& model = ModelOf(dock);
    const std::vector<int>& picked = dock.At(kList).picked;
    if (picked.empty() || picked.front() >= model.RowCount()) return;
    const ReviewedFinding finding = model.At(picked.front());
    GoToFinding(s, model.review(), finding);
  });
  return dock;
}

}  // namespace

Form& FindingsDock(Session& s) {
  Form* found = s.desk.Find(kForm);
  return found != nullptr ? *found : MakeDock(s);
}

FindingsModel& Findings(Session& s) {
  Form& dock = FindingsDock(s);
  Refresh(dock);
  return ModelOf(dock);
}

void ToggleFindings(Session& s) {
  Form& dock = FindingsDock(s);
  ToggleDock(s, dock);
  if (dock.visible) Refresh(dock);
}

void ShowFindings(Session& s, const FindingFilter& filter) {
  Form& dock = FindingsDock(s);
  dock.At(kFilter).text = filter.words;
  dock.At(kState).text = filter.state;
  dock.At(kWhen).text = filter.when;
  if (!dock.visible) ToggleDock(s, dock);
  Refresh(dock);
}

void NextFinding(Session& s) {
  Step(s, 1);
}

void PreviousFinding(Session& s) {
  Step(s, -1);
}

}  // namespace merlu
