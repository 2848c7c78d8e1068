#include "shell/completeness_dock.h"

#include <algorithm>

#include "forms/dialog.h"
#include "review/completeness.h"
#include "shell/docks.h"
#include "shell/findings_dock.h"
#include "shell/navigation.h"

namespace merlu {
namespace {

constexpr const char* kForm = "frmCompleteness";
constexpr const char* kShow = "cmbCMP_Show";
constexpr const char* kGrid = "grdCMP_Matrix";
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

// The structures to choose from: texts are made different by their keys where two read the same.
void OfferStructures(Form& dock, const Review& review) {
  Control& show = dock.At(kShow);
  std::vector<std::string> items = {kStructures};
  for (const ReviewedStructure& structure : review.structures) {
    const bool again = std::find(items.begin(), items.end(), structure.text) != items.end();
    items.push_back(again ? structure.text + " (" + structure.complex + "/" + structure.structure + ")"
                          : structure.text);
  }
  if (items == show.items) return;
  show.items = std::move(items);
  const auto found = std::find(show.items.begin(), show.items.end(), show.text);
  show.index = found == show.items.end() ? 0 : static_cast<int>(found - show.items.begin());
  show.text = show.items[static_cast<std::size_t>(show.index)];
}

void Refresh(Session& s, Form& dock, Made& made) {
  const FindingsModel& findings = Findings(s);
  if (made.review == findings.review_number() && made.show == dock.At(kShow).text) return;
  OfferStructures(dock, findings.review());
  made = {findings.review_number(), dock.At(kShow).text};
  CompletenessModel& model = ModelOf(dock);
  model.Set(CompletenessOf(findings.review(), dock.At(kShow).index - 1));
  Control& count = dock.At(kCount);
  count.caption = count.text = model.CountText();
}

void Open(Session& s, Form& dock) {
  const Control& grid = dock.At(kGrid);
  const RecordProgress* cell = ModelOf(dock).At(grid.at_row, grid.at_column);
  if (cell == nullptr || cell->record < 0) return;
  const ReviewedRecord record = Findings(s).review().records[static_cast<std::size_t>(cell->record)];
  GoTo(s, record.location, record.mode);
}

Form& MakeDock(Session& s) {
  Form& dock = s.desk.Own(std::make_unique<Form>(kForm, "Completeness"));
  dock.dock = "mnuRCompleteness";
  AddList(dock, kShow, "Show:", {kStructures});
  AddGrid(dock, kGrid, "Completeness", std::make_shared<CompletenessModel>());
  AddLabel(dock, kCount, "");
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
  Form& dock = CompletenessDock(s);
  ToggleDock(s, dock);
  if (dock.visible) dock.Raise(kCount, kRefreshDock);
}

}  // namespace merlu
