#include "shell/grid_dialog.h"

#include <algorithm>

#include "entry/month_grid.h"
#include "forms/dialog.h"
#include "session/messages.h"
#include "session/types.h"
#include "sheets/units.h"
#include "shell/dialog_form.h"
#include "shell/entry_commands.h"
#include "shell/routing.h"

namespace merlu {
namespace {

constexpr const char* kByMonth = "One month, all equipment of a type";
constexpr const char* kByRecord = "One piece of equipment, all months";
constexpr const char* kStructures = "Structure";

// What the lists of the dialog stand for, and the grid that they choose for.
struct Open {
  Session& s;
  Form& form;
  std::shared_ptr<MonthGrid> grid;
  std::vector<const SheetSpec*> types;                            // by item, null for the structures
  std::vector<std::pair<const SheetSpec*, std::int64_t>> pieces;  // by item: the type and the key
};

std::string Count(int count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void Say(Form& form, const std::string& text) {
  form.At("lblGRD_Message").text = form.At("lblGRD_Message").caption = text;
}

std::string MonthItem(const Session& s, int month) {
  return std::to_string(s.year) + (month < 10 ? "/0" : "/") + std::to_string(month);
}

// ---- the plan of a paste ----

bool Approve(Session& s, const std::vector<PastePlan>& plan) {
  bool approved = false;
  Form& form = DialogForm(s, "frmPaste", "Paste", [](Form& made) {
    AddListView(made, "lvwPST_Plan", "What the paste would do:", {"Row", "Field", "Old", "New", "What happens"});
    AddButton(made, "cmdOK", "Paste");
    AddButton(made, "cmdCANCEL", "Cancel");
    made.default_button = "cmdOK";
    made.cancel_button = "cmdCANCEL";
  });
  for (const PastePlan& cell : plan)
    form.At("lvwPST_Plan").rows.push_back({cell.place, cell.field, cell.old_text, cell.new_text, cell.what});
  form.On("cmdOK", Event::kClick, [&] {
    approved = true;
    s.desk.Hide(form);
  });
  ShowDialog(s.desk, s.platform, form);
  form.On("cmdOK", Event::kClick, [] {});
  return approved;
}

// ---- the grid ----

void FillLists(Open& open) {
  Session& s = open.s;
  Form& form = open.form;
  Control& months = form.At("cmbGRD_Month");
  months.items.clear();
  for (int month = 1; month <= s.last_month; ++month) months.items.push_back(MonthItem(s, month));
  Control& types = form.At("cmbGRD_Type");
  types.items = {kStructures};
  open.types = {nullptr};
  for (const SheetSpec* sheet : AllSheets()) {
    if (!sheet->has_activity) continue;
    if (IsNull(s.db.Single("SELECT 1 FROM ED_EQUIP_DESC WHERE ED_EQUIP_TYP=? LIMIT 1", {sheet->type}))) continue;
    types.items.push_back(TreeTypeName(sheet->type));
    open.types.push_back(sheet);
  }
  Control& pieces = form.At("cmbGRD_Equipment");
  pieces.items.clear();
  s.db.ForEach(
      "SELECT PD_ID_AK,ifnull(Area,'')||', '||ifnull(Block,'')||', '||ifnull(Name,'') FROM PD_PLATFORM_DESC ORDER BY "
      "PD_ID_AK",
      {}, [&](const RowView& row) {
        open.pieces.emplace_back(nullptr, row.Integer(0));
        pieces.items.emplace_back(row.Text(1));
      });
  s.db.ForEach(
      "SELECT d.ED_ID_AK,d.ED_EQUIP_TYP,ifnull(p.Area,'')||', '||ifnull(p.Block,'')||', '||ifnull(p.Name,''),"
      "ifnull(d.ED_MERLU_EQUIP_ID,'') FROM ED_EQUIP_DESC d JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK ORDER BY "
      "p.PD_ID_AK,d.ED_EQUIP_TYP,d.ED_MERLU_EQUIP_ID",
      {}, [&](const RowView& row) {
        const SheetSpec* sheet = FindSheet(row.Text(1));
        if (sheet == nullptr || !sheet->has_activity) return;
        open.pieces.emplace_back(sheet, row.Integer(0));
        pieces.items.push_back(std::string(row.Text(2)) + " · " + TreeTypeName(sheet->type) + ": " +
                               std::string(row.Text(3)));
      });
}

void ShowView(Open& open) {
  Form& form = open.form;
  const bool by_record = form.At("cmbGRD_View").text == kByRecord;
  for (const char* name : {"cmbGRD_Month", "cmbGRD_Type"}) form.At(name).visible = !by_record;
  form.At("cmbGRD_Equipment").visible = by_record;
  OnSheet(open.s, [&] {
    if (by_record) {
      const int at = form.At("cmbGRD_Equipment").index;
      if (at < 0) return;
      open.grid->ShowRecord(open.pieces[static_cast<std::size_t>(at)].first,
                            open.pieces[static_cast<std::size_t>(at)].second);
    } else {
      const int type = form.At("cmbGRD_Type").index;
      if (type < 0) return;
      open.grid->ShowMonth(open.types[static_cast<std::size_t>(type)], form.At("cmbGRD_Month").index + 1);
    }
    form.At("grdGRD").picked.clear();
  });
}

// What the tree shows: its month, its type, its piece.
void ChooseWhatShows(Open& open) {
  const QCLocation& at = open.s.current;
  Form& form = open.form;
  const auto choose = [&](const char* list, int index) {
    Control& control = form.At(list);
    if (control.items.empty()) return;
    control.index = std::clamp(index, 0, static_cast<int>(control.items.size()) - 1);
    control.text = control.items[static_cast<std::size_t>(control.index)];
  };
  choose("cmbGRD_View", 0);
  choose("cmbGRD_Month", at.Month > 0 ? at.Month - 1 : open.s.last_month - 1);
  int type = at.Is(level::kStructure) ? 0 : 1;
  int piece = 0;
  for (std::size_t i = 0; i < open.types.size(); ++i)
    if (at.Is(level::kEquipment) && open.types[i] != nullptr && open.types[i]->type == at.EquipType)
      type = static_cast<int>(i);
  for (std::size_t i = 0; i < open.pieces.size(); ++i) {
    const auto& [sheet, key] = open.pieces[i];
    const bool shown = at.Is(level::kEquipment) ? sheet != nullptr && key == open.s.ED_ID_AK
                                                : sheet == nullptr && key == open.s.PD_ID_AK;
    if (shown) piece = static_cast<int>(i);
  }
  choose("cmbGRD_Type", type);
  choose("cmbGRD_Equipment", piece);
}

bool Save(Open& open) {
  GridSaved saved;
  const bool done = OnSheet(open.s, [&] { saved = open.grid->Save(); });
  if (!done) return false;
  if (!saved.refused.empty()) {
    Say(open.form, saved.refused);
    return false;
  }
  std::string text = Count(saved.records, "record") + " saved, " + Count(saved.findings, "finding");
  for (const std::string& told : saved.told) text += ". " + told;
  open.s.message = text;
  ShowView(open);
  Say(open.form, text);
  return true;
}

void Close(Open& open) {
  const int changed = open.grid->ChangedRecords();
  if (changed > 0) {
    const Button answer = AskUser(open.s, "Save the changes of " + Count(changed, "record") + "?",
                                  {Button::kYes, Button::kNo, Button::kCancel});
    if (answer == Button::kCancel || (answer == Button::kYes && !Save(open))) return;
  }
  open.s.desk.Hide(open.form);
}

void ShowCellMessage(Open& open) {
  const Control& grid = open.form.At("grdGRD");
  if (grid.at_row < 0 || grid.at_column < 0 || grid.at_row >= open.grid->RowCount()) return;
  const GridCell cell = open.grid->Cell(grid.at_row, grid.at_column);
  Say(open.form, !cell.finding.empty() ? cell.finding : cell.hint);
}

void Connect(Open& open) {
  Form& form = open.form;
  for (const char* list : {"cmbGRD_View", "cmbGRD_Month", "cmbGRD_Type", "cmbGRD_Equipment"})
    form.On(list, Event::kClick, [&open] { ShowView(open); });
  form.On("grdGRD", Event::kMoved, [&open] { ShowCellMessage(open); });
  form.On("cmdGRD_Copy", Event::kClick, [&open] {
    Say(open.form, Count(open.grid->CopyBefore(open.form.At("grdGRD").picked), "value") + " copied");
  });
  form.On("cmdGRD_Confirm", Event::kClick, [&open] {
    OnSheet(open.s,
            [&] { Say(open.form, Count(open.grid->Confirm(open.form.At("grdGRD").picked), "value") + " confirmed"); });
  });
  form.On("cmdGRD_Save", Event::kClick, [&open] { Save(open); });
  form.On("cmdCANCEL", Event::kClick, [&open] { Close(open); });
}

Form& GridForm(Session& s) {
  return DialogForm(s, "frmGrid", "Month Grid", [](Form& form) {
    AddList(form, "cmbGRD_View", "Show:", {kByMonth, kByRecord});
    AddList(form, "cmbGRD_Month", "Month:", {});
    AddList(form, "cmbGRD_Type", "Type:", {});
    AddList(form, "cmbGRD_Equipment", "Equipment:", {});
    AddGrid(form, "grdGRD", "Month", nullptr).many = true;
    AddLabel(form, "lblGRD_Message", "");
    AddButton(form, "cmdGRD_Copy", "Copy Previous Month");
    AddButton(form, "cmdGRD_Confirm", "Confirm Copied");
    AddButton(form, "cmdGRD_Save", "Save");
    AddButton(form, "cmdCANCEL", "Close");
    form.cancel_button = "cmdCANCEL";
  });
}

}  // namespace

void MakeGridDialogs(Session& s) {
  GridForm(s);
}

void OpenMonthGrid(Session& s) {
  if (s.editing || !s.InActv()) return;
  Open open{s, GridForm(s), std::make_shared<MonthGrid>(s), {}, {}};
  open.form.At("grdGRD").grid = open.grid;
  open.grid->approve = [&s](const std::vector<PastePlan>& plan) { return Approve(s, plan); };
  open.grid->on_typed = [&open] { ShowCellMessage(open); };
  FillLists(open);
  ChooseWhatShows(open);
  ShowView(open);
  Connect(open);
  ShowDialog(s.desk, s.platform, open.form);
  for (const char* name : {"cmbGRD_View", "cmbGRD_Month", "cmbGRD_Type", "cmbGRD_Equipment", "cmdGRD_Copy",
                           "cmdGRD_Confirm", "cmdGRD_Save", "cmdCANCEL"})
    open.form.On(name, Event::kClick, [] {});
  open.form.On("grdGRD", Event::kMoved, [] {});
  open.form.At("grdGRD").grid = nullptr;
  // the record that shows may have been saved in the grid
  ClearSheet(s);
  LoadSheet(s);
  LockSheet(s);
}

}  // namespace merlu
