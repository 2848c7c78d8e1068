#include "shell/history_dialog.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>

#include "base/case_folding.h"
#include "exchange/table_file.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "history/notes.h"
#include "session/folders.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/history_values.h"
#include "shell/messages.h"
#include "shell/proposed_name.h"
#include "shell/undo.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char *kFilter = names::txtHIS_Filter, *kShow = names::cmbHIS_Show, *kSteps = names::lvwHIS_Steps;
constexpr const char *kValues = names::lvwHIS_Values, *kUndo = names::cmdHIS_Undo, *kExport = names::cmdHIS_Export;
constexpr const char *kAll = "All", *kThisRecord = "This record";

using Row = RowsModel::Row;

RowsModel& ModelOf(Form& form, const char* list) {
  return static_cast<RowsModel&>(*form.At(list).model);
}

std::string SinceText(const HandIn& hand_in) {
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "Since the hand-in of %04d/%02d", hand_in.year, hand_in.month);
  return text.data();
}

// Each word must occur in some column, without regard to case.
bool Passes(const Row& row, const std::string& filter) {
  std::string all;
  for (const std::string& cell : row) all += FoldedText(cell) + "\n";
  std::string word;
  for (const char c : FoldedText(filter) + " ") {
    if (c != ' ') {
      word += c;
      continue;
    }
    if (all.find(word) == std::string::npos) return false;
    word.clear();
  }
  return true;
}

Row RowOf(const HistoryStep& step) {
  return {step.title.when,
          step.title.who,
          step.title.what,
          step.title.place,
          std::to_string(step.values),
          step.undone ? "undone" : ""};
}

// What the choice of steps lets through.
class Choice {
 public:
  Choice(Session& s, const std::string& text) : s_(s), this_record_(text == kThisRecord) {
    for (const HandIn& hand_in : HandIns(s.companion))
      if (SinceText(hand_in) == text) since_ = hand_in;
  }
  bool Takes(const HistoryStep& step) const {
    return IsSince(step) && (!this_record_ || StepTouches(s_, step.id, s_.current, s_.mode));
  }

 private:
  // Newer than the hand-in, or undone or redone after it.
  bool IsSince(const HistoryStep& step) const {
    if (!since_ || step.id > since_->step) return true;
    if (!since_->undone) return false;
    const std::vector<std::int64_t>& undone = *since_->undone;
    return step.undone == (std::find(undone.begin(), undone.end(), step.id) == undone.end());
  }

  Session& s_;
  bool this_record_;
  std::optional<HandIn> since_;
};

// The steps that show, in the order of the list as it was filled.
std::vector<HistoryStep> ShownSteps(Session& s, Form& form) {
  const Choice choice(s, form.At(kShow).text);
  std::vector<HistoryStep> shown;
  for (HistoryStep& step : Steps(s.companion))
    if (Passes(RowOf(step), form.At(kFilter).text) && choice.Takes(step)) shown.push_back(std::move(step));
  return shown;
}

std::optional<HistoryStep> PickedStep(Session& s, Form& form) {
  const Control& list = form.At(kSteps);
  if (list.picked.empty()) return std::nullopt;
  const std::vector<HistoryStep> steps = ShownSteps(s, form);
  const std::size_t at = ModelOf(form, kSteps).Origin(list.picked.front());
  return at < steps.size() ? std::optional(steps[at]) : std::nullopt;
}

void FillValues(Session& s, Form& form) {
  StepValues& values = static_cast<StepValues&>(*form.At(kValues).model);
  values.Show(std::nullopt);
  Plainly(s, [&] {
    if (const auto step = PickedStep(s, form)) values.Show(step->id);
  });
  form.At(kValues).picked.clear();
}

void FillSteps(Session& s, Form& form) {
  std::vector<Row> rows;
  Plainly(s, [&] {
    for (const HistoryStep& step : ShownSteps(s, form)) rows.push_back(RowOf(step));
  });
  ModelOf(form, kSteps).Set(std::move(rows));
  form.At(kSteps).picked.clear();
  FillValues(s, form);
}

void FillChoices(Session& s, Form& form) {
  Control& show = form.At(kShow);
  show.items = {kAll, kThisRecord};
  for (const HandIn& hand_in : HandIns(s.companion)) show.items.push_back(SinceText(hand_in));
  show.text = kAll;
  show.index = 0;
}

// Whether a backup was restored since the step.
bool IsBehindRestore(Session& s, const HistoryStep& step) {
  for (const HistoryStep& newer : Steps(s.companion))
    if (newer.id >= step.id && newer.ends_undo) return true;
  return false;
}

void UndoPicked(Session& s, Form& form) {
  const auto step = PickedStep(s, form);
  if (!step) return Tell(s, "Please select a step.");
  if (step->undone) return Tell(s, "This step is undone already.");
  if (IsBehindRestore(s, *step)) return Tell(s, "This cannot be undone: a backup was restored.");
  UndoBackTo(s, *step);
  FillSteps(s, form);
}

void ExportShown(Session& s, Form& form) {
  const std::string path = AskFile(s, {FileQuestion::Kind::kSave,
                                       "Export Change History",
                                       "Workbook",
                                       "*.xlsx",
                                       ".xlsx",
                                       {{"Comma-separated text", "*.csv", ".csv"}},
                                       true,
                                       ProposedName(s, 0, "History")});
  if (path.empty()) return;
  Plainly(
      s,
      [&] {
        std::vector<Row> rows = {{"When", "Who", "What", "Place", "Field", "Old", "New", "State"}};
        for (const HistoryStep& step : ShownSteps(s, form)) {
          const Row head = RowOf(step);
          StepValues values(s);
          values.Show(step.id);
          for (int row = 0; row < values.RowCount(); ++row) {
            const ShownChange change = values.At(row);
            rows.push_back(
                {head[0], head[1], head[2], change.place, change.field, change.before, change.after, head[5]});
          }
          if (values.RowCount() == 0) rows.push_back({head[0], head[1], head[2], head[3], "", "", "", head[5]});
        }
        WriteNewFile(OwnFilesOf(s), path, [&](const std::string& file) { WriteTable(rows, "History", path, file); });
        s.message = "History exported to " + FileName(path);
      },
      path);
}

}  // namespace

Form& HistoryDialog(Session& s) {
  return DialogForm(s, names::frmHistory, "Change History", [&s](Form& form) {
    AddText(form, kFilter, "Filter:");
    AddList(form, kShow, "Show:", {kAll, kThisRecord});
    AddListView(form, kSteps, "Steps", {"When", "Who", "What", "Place", "Values", "State"},
                std::make_shared<RowsModel>())
        .many = false;
    AddListView(form, kValues, "Values of the step", {"Place", "Field", "Old", "New"}, std::make_shared<StepValues>(s));
    AddButton(form, kUndo, "Undo Back to Here");
    AddButton(form, kExport, "Export...");
    AddButton(form, names::cmdClose, "Close");
    form.cancel_button = names::cmdClose;
    form.On(kFilter, Event::kLostFocus, [&s, &form] { FillSteps(s, form); });
    form.On(kShow, Event::kClick, [&s, &form] { FillSteps(s, form); });
    form.On(kSteps, Event::kMoved, [&s, &form] { FillValues(s, form); });
    form.On(kUndo, Event::kClick, [&s, &form] { UndoPicked(s, form); });
    form.On(kExport, Event::kClick, [&s, &form] { ExportShown(s, form); });
  });
}

void OpenHistory(Session& s) {
  Form& form = HistoryDialog(s);
  FillChoices(s, form);
  FillSteps(s, form);
  if (form.At(kSteps).model->RowCount() > 0) {
    form.At(kSteps).picked = {0};
    FillValues(s, form);
  }
  form.focus = kSteps;
  OpenDialog(s, form);
  static_cast<StepValues&>(*form.At(kValues).model).Show(std::nullopt);
}

}  // namespace merlu
