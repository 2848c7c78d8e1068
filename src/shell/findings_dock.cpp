#include "shell/findings_dock.h"

#include <algorithm>

#include "exchange/list_file.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "history/notes.h"
#include "qc/comment_key.h"
#include "review/comments.h"
#include "session/folders.h"
#include "session/main_names.h"
#include "sheets/contract.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "shell/comment_dialog.h"
#include "shell/dialog_names.h"
#include "shell/docks.h"
#include "shell/messages.h"
#include "shell/navigation.h"
#include "shell/proposed_name.h"
#include "shell/status.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kForm = names::frmFindings;
constexpr const char* kFilter = names::txtFND_Filter;
constexpr const char* kState = names::cmbFND_State;
constexpr const char* kWhen = names::cmbFND_When;
constexpr const char* kList = names::lvwFND_List;
constexpr const char* kCount = "lblFND_Count";

FindingsModel& ModelOf(Form& dock) {
  return static_cast<FindingsModel&>(*dock.At(kList).model);
}

// The months of the inventory, after "All" and "Descriptions".
void OfferMonths(Form& dock, const Review& review) {
  Control& when = dock.At(kWhen);
  std::vector<std::string> items = {"All", "Descriptions"};
  for (const YearMonth& each : MonthsOf(review)) items.push_back(MonthText(each.year, each.month));
  if (items == when.items) return;
  when.items = std::move(items);
  const auto found = std::find(when.items.begin(), when.items.end(), when.text);
  when.index = found == when.items.end() ? 0 : static_cast<int>(found - when.items.begin());
  when.text = when.items[static_cast<std::size_t>(when.index)];
}

void Refresh(Form& dock) {
  FindingsModel& model = ModelOf(dock);
  Control& list = dock.At(kList);
  std::vector<FindingName> picked;
  for (const int row : list.picked)
    if (row >= 0 && row < model.RowCount()) picked.push_back(model.NameAt(row));
  if (!model.Refresh()) return;
  if (model.live().unreadable().empty()) OfferMonths(dock, model.review());
  // a month that went with its rows is no filter any more
  model.Refresh();
  list.picked = model.RowsOf(picked);
  Control& count = dock.At(kCount);
  count.caption = count.text = model.CountText();
}

// ---- going to a finding ----

const ReviewedFinding& At(const Review& review, FindingPlace at) {
  return review.records[static_cast<std::size_t>(at.record)].findings[static_cast<std::size_t>(at.number)];
}

bool GoToFinding(Session& s, const Review& review, FindingPlace at) {
  const ReviewedRecord& record = review.records[static_cast<std::size_t>(at.record)];
  const FindingKind& kind = *At(review, at).kind;
  // by value: going there may change the review
  const QCLocation location = LocationOf(review, record);
  const Mode mode = ModeOf(record);
  const std::string field = kind.control.empty() ? kind.tag : kind.control;
  return GoTo(s, location, mode, field);
}

// What is walked through: the rows of the dock, or without it all findings.
std::vector<FindingPlace> OrderOf(const FindingsModel& model, bool shown) {
  std::vector<FindingPlace> order;
  for (int row = 0; shown && row < model.RowCount(); ++row) order.push_back(model.PlaceAt(row));
  const std::vector<ReviewedRecord>& records = model.review().records;
  for (std::size_t i = 0; !shown && i < records.size(); ++i)
    for (std::size_t number = 0; number < records[i].findings.size(); ++number)
      order.push_back({static_cast<int>(i), static_cast<int>(number)});
  return order;
}

// Place in the order of the finding at the user's place; without one, between which two it would be.
struct Standing {
  int on = -1;
  int next = 0;
};

// The walk goes on behind the finding that it came to last, or that was picked since, as long as the user has not gone
// to another record; also when the finding itself is gone.
Standing WhereTheUserStands(Session& s, const FindingsModel& model, const std::vector<FindingPlace>& order) {
  Standing standing;
  QCLocation here = s.current;
  if (s.InDesc()) here.Month = here.Year = 0;
  const Walk& walk = model.walk;
  const int walked = model.live().Find(walk.to.kind, walk.to.key);
  int record = model.live().Find(here);
  // a row of the log without a record leaves the user where he was
  const bool goes_on = walk.from == here && (walk.picked || walked == record || walk.to.kind == RecordKind::kGone);
  if (goes_on && walked >= 0) record = walked;
  if (record < 0) return standing;
  const auto is_behind = [&](FindingPlace each) {
    if (each.record != record) return each.record > record;
    return goes_on && At(model.review(), each).kind->field > walk.field;
  };
  for (std::size_t i = 0; i < order.size(); ++i) {
    const bool same = goes_on && order[i].record == record && At(model.review(), order[i]).kind->tag == walk.to.tag;
    if (same) standing.on = static_cast<int>(i);
  }
  const auto next = std::find_if(order.begin(), order.end(), [&](FindingPlace each) {
    return is_behind(each) || (!goes_on && each.record == record);
  });
  standing.next = static_cast<int>(next - order.begin());
  return standing;
}

void Remember(Session& s, FindingsModel& model, const FindingName& name, int field, bool picked = false) {
  model.walk = {name, field, s.current, picked};
  if (s.InDesc()) model.walk.from.Month = model.walk.from.Year = 0;
}

void Step(Session& s, int by) {
  Form& dock = FindingsDock(s);
  FindingsModel& model = Findings(s);
  const bool shown = dock.visible;
  const std::vector<FindingPlace> order = OrderOf(model, shown);
  if (!model.live().unreadable().empty()) return Tell(s, model.CountText(), Icon::kWarning);
  if (order.empty()) return Tell(s, "There are no findings.", Icon::kInfo);
  const Standing standing = WhereTheUserStands(s, model, order);
  const int count = static_cast<int>(order.size());
  int next = standing.on >= 0 ? standing.on + by : by > 0 ? standing.next : standing.next - 1;
  next = (next + count) % count;
  const FindingPlace at = order[static_cast<std::size_t>(next)];
  const ReviewedRecord& record = model.review().records[static_cast<std::size_t>(at.record)];
  const FindingName name{record.kind, record.key, At(model.review(), at).kind->tag};
  const int field = At(model.review(), at).kind->field;
  const bool gone = record.gone != nullptr;
  if (!GoToFinding(s, model.review(), at) && !gone) return;
  Remember(s, model, name, field);
  if (!shown) return;
  Refresh(dock);
  dock.At(kList).picked = model.RowsOf({name});
  if (!dock.At(kList).picked.empty()) dock.At(kList).at_row = dock.At(kList).picked.front();
}

// ---- explaining ----

std::vector<FindingToExplain> Picked(Form& dock) {
  FindingsModel& model = ModelOf(dock);
  std::vector<FindingToExplain> picked;
  for (const int row : dock.At(kList).picked) {
    if (row < 0 || row >= model.RowCount()) continue;
    const ReviewedFinding& finding = model.At(row);
    const ReviewedRecord& record = model.RecordAt(row);
    picked.push_back({LocationOf(model.review(), record), ModeOf(record), finding.kind->tag, finding.kind->text,
                      finding.value, finding.row, finding.comment});
  }
  return picked;
}

// Of one finding its comment, or one that it had before it was wiped; of several none.
std::string OfferedComment(Session& s, const std::vector<FindingToExplain>& picked) {
  if (picked.size() > 1) return "";
  const FindingToExplain& one = picked.front();
  if (Explains(one.comment)) return one.comment;
  const auto known = CommentOf(s.companion, CommentKey(one.location, one.tag, one.text));
  return known ? known->comment : "";
}

// The results of the sheet that shows hold comments too.
void ShowCommentsOfSheet(Session& s) {
  const ShowingSheet sheet = SheetThatShows(s);
  if (sheet.form == nullptr) return;
  if (const SheetSpec* spec = s.current.Is(level::kEquipment) ? FindSheet(s.current.EquipType) : nullptr)
    LoadQCList(s, *spec);
  else if (s.current.Is(level::kStructure))
    LoadQCList(s, StructureSheet());
}

void EditComment(Session& s, Form& dock) {
  s.db.NoticeOthers();
  Refresh(dock);
  const std::vector<FindingToExplain> picked = Picked(dock);
  if (picked.empty()) return Tell(s, "Please select an error record to edit.");
  Form& dialog = CommentDialog(s);
  const bool one = picked.size() == 1;
  dialog.At(names::txtFieldName).text =
      one ? picked.front().tag : std::to_string(picked.size()) + " findings take this comment";
  dialog.At(names::txtErrorDesc).text = one ? picked.front().text : "";
  dialog.At(names::txtComments).text = OfferedComment(s, picked);
  dialog.On(names::cmdOK, Event::kClick, [&s, &dialog, &picked] {
    bool done = false;
    OnSheet(s, [&] { done = ExplainFindings(s, picked, dialog.At(names::txtComments).text); });
    if (!done) return;
    s.desk.Hide(dialog);
    ShowCommentsOfSheet(s);
  });
  OpenDialog(s, dialog);
  dialog.On(names::cmdOK, Event::kClick, nullptr);
  Refresh(dock);
}

void Export(Session& s, Form& dock) {
  Refresh(dock);
  const FindingsModel& model = ModelOf(dock);
  const std::string path = AskFile(s, {FileQuestion::Kind::kSave,
                                       "Export Findings",
                                       "Excel Workbook (*.xlsx)",
                                       "*.xlsx",
                                       ".xlsx",
                                       {{"Comma-Separated Values (*.csv)", "*.csv", ".csv"}},
                                       true,
                                       ProposedName(s, 0, "Findings")});
  if (path.empty()) return;
  const bool done = OnSheet(
      s,
      [&] {
        const Busy busy(s);
        WriteList(OwnFilesOf(s), path, {"Findings", kFindingColumns, model.RowCount(), [&](int row, int column) {
                                          return model.Text(row, column);
                                        }});
      },
      path);
  if (!done) return;
  Say(s, "Findings exported to " + FileName(path));
  TellOfFile(s, "Done.", path);
}

Form& MakeDock(Session& s) {
  Form& dock = s.desk.Own(std::make_unique<Form>(kForm, "Findings"));
  dock.dock = names::mnuRFindings;
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
  AddLabel(dock, kCount, kNotReadYet);
  AddButton(dock, names::cmdFND_Comment, "Edit QC Comment");
  AddButton(dock, names::cmdFND_Export, "Export...");
  for (const char* list : {kState, kWhen}) {
    dock.At(list).index = 0;
    dock.At(list).text = "All";
  }
  dock.KeepDesign();
  dock.On(kCount, kRefreshDock, [&dock] { Refresh(dock); });
  dock.On(names::cmdFND_Comment, Event::kClick, [&s, &dock] { EditComment(s, dock); });
  dock.On(names::cmdFND_Export, Event::kClick, [&s, &dock] { Export(s, dock); });
  dock.On(kList, Event::kMoved, [&s, &dock] {
    FindingsModel& model = ModelOf(dock);
    const std::vector<int>& picked = dock.At(kList).picked;
    if (picked.size() != 1 || picked.front() < 0 || picked.front() >= model.RowCount()) return;
    Remember(s, model, model.NameAt(picked.front()), model.At(picked.front()).kind->field, true);
  });
  dock.On(kList, Event::kDoubleClick, [&s, &dock] {
    Refresh(dock);
    FindingsModel& model = ModelOf(dock);
    const std::vector<int>& picked = dock.At(kList).picked;
    if (picked.empty() || picked.front() >= model.RowCount()) return;
    const FindingName name = model.NameAt(picked.front());
    const int field = model.At(picked.front()).kind->field;
    if (!GoToFinding(s, model.review(), model.PlaceAt(picked.front()))) return;
    Remember(s, model, name, field);
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
  ToggleDock(s, FindingsDock(s));
}

void ShowFindings(Session& s, const FindingFilter& filter) {
  Form& dock = FindingsDock(s);
  dock.At(kFilter).text = filter.words;
  const auto choose = [&dock](const char* list, const std::string& text) {
    Control& control = dock.At(list);
    const auto found = std::find(control.items.begin(), control.items.end(), text);
    control.index = found == control.items.end() ? 0 : static_cast<int>(found - control.items.begin());
    control.text = control.items[static_cast<std::size_t>(control.index)];
  };
  Refresh(dock);  // it offers the months
  choose(kState, filter.state);
  choose(kWhen, filter.when);
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
