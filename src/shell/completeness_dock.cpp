#include "shell/completeness_dock.h"

#include <algorithm>
#include <set>

#include "base/text.h"
#include "forms/dialog.h"
#include "review/completeness.h"
#include "session/main_names.h"
#include "shell/dialog_names.h"
#include "shell/docks.h"
#include "shell/findings_dock.h"
#include "shell/navigation.h"

namespace merlu {
namespace {

constexpr const char* kForm = names::frmCompleteness;
constexpr const char* kShow = names::cmbCMP_Show;
constexpr const char* kGrid = names::grdCMP_Matrix;
constexpr const char* kCount = "lblCMP_Count";
constexpr const char* kStructures = "Structures";

// What the matrix was made from.
struct Made {
  std::uint64_t review = 0;
  std::string show;
};

CompletenessModel& ModelOf(Form& dock) {
  return static_cast<CompletenessModel&>(*dock.At(kGrid).grid);
}

// The structures in the order of the tree.
std::vector<int> InOrder(const Review& review) {
  std::vector<int> order(review.structures.size());
  for (std::size_t i = 0; i < order.size(); ++i)
    order[static_cast<std::size_t>(review.structures[i].rank)] = static_cast<int>(i);
  return order;
}

// The structure of that place in the tree; -1 for all of them.
int StructureAt(const Review& review, int place) {
  return place < 0 ? -1 : InOrder(review)[static_cast<std::size_t>(place)];
}

// The structures to choose from: equal texts are distinguished by their keys.
void OfferStructures(Form& dock, const Review& review) {
  Control& show = dock.At(kShow);
  std::vector<std::string> items = {kStructures};
  std::set<std::string> texts;
  for (const int i : InOrder(review)) {
    const ReviewedStructure& structure = review.structures[static_cast<std::size_t>(i)];
    const std::string key = " (" + Trim(structure.complex) + "/" + Trim(structure.structure) + ")";
    items.push_back(texts.insert(structure.text).second ? structure.text : structure.text + key);
  }
  if (items == show.items) return;
  show.items = std::move(items);
  const auto found = std::find(show.items.begin(), show.items.end(), show.text);
  show.index = found == show.items.end() ? 0 : static_cast<int>(found - show.items.begin());
  show.text = show.items[static_cast<std::size_t>(show.index)];
}

// The rows are other ones.
void PickNone(Control& grid) {
  grid.picked.clear();
  grid.at_row = grid.at_column = -1;
}

void Refresh(Session& s, Form& dock, Made& made) {
  const LiveReview& live = Findings(s).live();
  if (made.review == live.revision() && made.show == dock.At(kShow).text) return;
  OfferStructures(dock, live.review());
  if (made.show != dock.At(kShow).text) PickNone(dock.At(kGrid));
  made = {live.revision(), dock.At(kShow).text};
  CompletenessModel& model = ModelOf(dock);
  model.Set(CompletenessOf(live.review(), StructureAt(live.review(), dock.At(kShow).index - 1)));
  Control& count = dock.At(kCount);
  count.caption = count.text =
      live.unreadable().empty() ? model.CountText() : "The records cannot be read: " + live.unreadable();
}

void Open(Session& s, Form& dock) {
  const Control& grid = dock.At(kGrid);
  const RecordProgress* cell = ModelOf(dock).At(grid.at_row, grid.at_column);
  if (cell == nullptr || cell->record < 0) return;
  const Review& review = Findings(s).review();
  const ReviewedRecord& record = review.records[static_cast<std::size_t>(cell->record)];
  const QCLocation location = LocationOf(review, record);
  GoTo(s, location, ModeOf(record));
}

// The dock with all structures.
Form& ShowStructures(Session& s) {
  Form& dock = CompletenessDock(s);
  dock.At(kShow).index = 0;
  dock.At(kShow).text = kStructures;
  if (!dock.visible) ToggleDock(s, dock);
  dock.Raise(kCount, kRefreshDock);
  return dock;
}

// The matrix of the equipment of a structure.
void ChooseStructure(Form& dock, const Review& review, const std::string& key) {
  Control& show = dock.At(kShow);
  for (const ReviewedStructure& structure : review.structures)
    if (Trim(structure.complex) + "/" + Trim(structure.structure) == key) show.index = structure.rank + 1;
  show.text = show.items[static_cast<std::size_t>(show.index)];
  dock.Raise(kCount, kRefreshDock);
}

void PickCell(Form& dock, int row, int column) {
  Control& grid = dock.At(kGrid);
  grid.picked = {row};
  grid.at_row = row;
  grid.at_column = column;
}

Form& MakeDock(Session& s) {
  Form& dock = s.desk.Own(std::make_unique<Form>(kForm, "Completeness"));
  dock.dock = names::mnuRCompleteness;
  AddList(dock, kShow, "Show:", {kStructures});
  AddGrid(dock, kGrid, "Completeness", std::make_shared<CompletenessModel>());
  AddLabel(dock, kCount, kNotReadYet);
  dock.At(kShow).index = 0;
  dock.At(kShow).text = kStructures;
  dock.KeepDesign();
  dock.On(kCount, kRefreshDock, [&s, &dock, made = std::make_shared<Made>()] { Refresh(s, dock, *made); });
  dock.On(kGrid, Event::kDoubleClick, [&s, &dock] {
    dock.Raise(kCount, kRefreshDock);
    Open(s, dock);
  });
  return dock;
}

}  // namespace

Form& CompletenessDock(Session& s) {
  Form* found = s.desk.Find(kForm);
  return found != nullptr ? *found : MakeDock(s);
}

void ToggleCompleteness(Session& s) {
  ToggleDock(s, CompletenessDock(s));
}

bool ShowCompleteness(Session& s, int month, const std::vector<RecordState>& states) {
  Form& dock = ShowStructures(s);
  const CompletenessModel& model = ModelOf(dock);
  for (int row = 0; row < model.RowCount(); ++row)
    for (int column = 1; model.At(row, column) != nullptr; ++column) {
      const RecordState state = model.At(row, column)->state;
      // the descriptions come before the months
      if (month != 0 && column > 1 && column != month + 1) continue;
      if (std::find(states.begin(), states.end(), state) == states.end()) continue;
      PickCell(dock, row, column);
      return true;
    }
  return false;
}

void ShowCompletenessOf(Session& s, const QCLocation& record) {
  Form& dock = ShowStructures(s);
  std::string key = Trim(record.CmplxID) + "/" + Trim(record.StructID);
  if (record.Is(level::kEquipment)) {
    ChooseStructure(dock, Findings(s).review(), key);
    key = Trim(record.EquipType) + "/" + Trim(record.EquipID);
  }
  const int row = ModelOf(dock).FindRow(key);
  if (row >= 0) PickCell(dock, row, record.Month + 1);
}

}  // namespace merlu
