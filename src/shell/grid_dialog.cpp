#include "shell/grid_dialog.h"

#include <algorithm>
#include <map>
#include <set>

#include "base/text.h"
#include "entry/month_grid.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "session/node_keys.h"
#include "session/types.h"
#include "sheets/units.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/messages.h"
#include "shell/sheet_acts.h"
#include "shell/status.h"

namespace merlu {
namespace {

constexpr const char* kByMonth = "One month, all equipment of a type";
constexpr const char* kByRecord = "One piece of equipment, all months";
constexpr const char* kStructures = "Structure";
constexpr const char* kCell = "lblGRD_Cell";

// The values behind the items of the dialog's lists, and the grid that these select.
struct Open {
  Session& s;
  Form& form;
  std::shared_ptr<MonthGrid> grid;
  std::vector<const SheetSpec*> types;                            // by item, the structures first
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

// A summary of the paste: "5 cells: 3 set, 1 changed, 1 not a number".
std::string CountOf(const std::vector<PastePlan>& plan) {
  std::string text = Count(static_cast<int>(plan.size()), "cell");
  for (const char* what : {"set", "changed", "same", "not a number", "no such choice", "locked", "outside the grid"}) {
    const auto count =
        std::count_if(plan.begin(), plan.end(), [&](const PastePlan& cell) { return cell.what == what; });
    if (count > 0) text += (text.find(':') == std::string::npos ? ": " : ", ") + std::to_string(count) + " " + what;
  }
  return text;
}

Form& PasteForm(Session& s) {
  return DialogForm(s, names::frmPaste, "Paste", [](Form& made) {
    AddListView(made, names::lvwPST_Plan, "What the paste would do:", {"Row", "Field", "Old", "New", "What happens"},
                std::make_shared<RowsModel>());
    AddLabel(made, "lblPST_Count", "");
    AddButton(made, names::cmdOK, "Paste");
    AddButton(made, names::cmdCANCEL, "Cancel");
    made.default_button = names::cmdOK;
    made.cancel_button = names::cmdCANCEL;
  });
}

bool Approve(Session& s, const std::vector<PastePlan>& plan) {
  bool approved = false;
  Form& form = PasteForm(s);
  std::vector<RowsModel::Row> rows;
  for (const PastePlan& cell : plan) rows.push_back({cell.place, cell.field, cell.old_text, cell.new_text, cell.what});
  auto model = std::make_shared<RowsModel>();
  model->Set(std::move(rows));
  form.At(names::lvwPST_Plan).model = model;
  form.At("lblPST_Count").text = form.At("lblPST_Count").caption = CountOf(plan);
  form.On(names::cmdOK, Event::kClick, [&] {
    approved = true;
    s.desk.Hide(form);
  });
  OpenDialog(s, form);
  form.On(names::cmdOK, Event::kClick, [] {});
  return approved;
}

// ---- the grid ----

// A structure or a piece of equipment that has months, as the second view chooses it.
struct Piece {
  std::string structure, number, type, id;  // number: complex and structure
  const SheetSpec* sheet = nullptr;
  std::int64_t key = 0;
  std::string order{};  // as in the tree, which is sorted by text
};

// A structure comes before its equipment.
std::string OrderOf(const Piece& piece) {
  std::string order;
  for (const std::string& part : {Lower(piece.structure), piece.number, Lower(piece.type), Lower(piece.id)}) {
    order += part;
    order += '\0';
  }
  return order;
}

std::vector<Piece> ReadPieces(Database& db) {
  std::vector<Piece> pieces;
  const std::string structure =
      "ifnull(p.Area,'')||', '||ifnull(p.Block,'')||', '||ifnull(p.Name,''),"
      "ifnull(p.CMPLX_ID_NUM,'')||' '||ifnull(p.STRUCT_NUM,'')";
  db.ForEach("SELECT p.PD_ID_AK," + structure + " FROM PD_PLATFORM_DESC p", {}, [&](const RowView& row) {
    pieces.push_back({std::string(row.Text(1)), std::string(row.Text(2)), "", "", &StructureSheet(), row.Integer(0)});
  });
  db.ForEach("SELECT d.ED_ID_AK," + structure +
                 ",d.ED_EQUIP_TYP,ifnull(d.ED_MERLU_EQUIP_ID,'') FROM ED_EQUIP_DESC d JOIN PD_PLATFORM_DESC p ON "
                 "p.PD_ID_AK=d.PD_ID_AK",
             {}, [&](const RowView& row) {
               const SheetSpec* sheet = FindSheet(row.Text(3));
               if (sheet == nullptr || !sheet->has_activity) return;
               pieces.push_back({std::string(row.Text(1)), std::string(row.Text(2)), TreeTypeName(sheet->type),
                                 std::string(row.Text(4)), sheet, row.Integer(0)});
             });
  for (Piece& piece : pieces) piece.order = OrderOf(piece);
  std::sort(pieces.begin(), pieces.end(), [](const Piece& a, const Piece& b) { return a.order < b.order; });
  return pieces;
}

// Structures of the same name are distinguished by their numbers.
std::string ItemOf(const Piece& piece, const std::map<std::string, std::set<std::string>>& numbers) {
  std::string text = piece.structure;
  if (numbers.at(piece.structure).size() > 1) text += " (" + piece.number + ")";
  if (piece.sheet != &StructureSheet()) text += " · " + piece.type + ": " + piece.id;
  return text;
}

void FillPieces(Open& open) {
  const std::vector<Piece> pieces = ReadPieces(open.s.db);
  std::map<std::string, std::set<std::string>> numbers;
  for (const Piece& piece : pieces) numbers[piece.structure].insert(piece.number);
  std::vector<std::string>& items = open.form.At(names::cmbGRD_Equipment).items;
  items.clear();
  for (const Piece& piece : pieces) {
    open.pieces.emplace_back(piece.sheet, piece.key);
    items.push_back(ItemOf(piece, numbers));
  }
}

void FillLists(Open& open) {
  Session& s = open.s;
  Form& form = open.form;
  Control& months = form.At(names::cmbGRD_Month);
  months.items.clear();
  for (int month = 1; month <= s.last_month; ++month) months.items.push_back(MonthItem(s, month));
  Control& types = form.At(names::cmbGRD_Type);
  types.items = {kStructures};
  open.types = {&StructureSheet()};
  for (const SheetSpec* sheet : AllSheets()) {
    if (!sheet->has_activity) continue;
    if (IsNull(s.db.Single("SELECT 1 FROM ED_EQUIP_DESC WHERE ED_EQUIP_TYP=? LIMIT 1", {sheet->type}))) continue;
    types.items.push_back(TreeTypeName(sheet->type));
    open.types.push_back(sheet);
  }
  FillPieces(open);
}

bool IsInGrid(const Open& open, const Control& cells) {
  return cells.at_row >= 0 && cells.at_row < open.grid->RowCount() && cells.at_column >= 0 &&
         cells.at_column < static_cast<int>(open.grid->Columns().size());
}

// The row and the field of the cell, which may have scrolled out of sight: "GI, 43, A · F1 · Hours Operated (hrs)".
void ShowCellName(Open& open) {
  const Control& cells = open.form.At(names::grdGRD);
  std::string name;
  if (IsInGrid(open, cells)) {
    for (int column = 0; column < open.grid->FixedColumns(); ++column)
      if (const std::string part = open.grid->Cell(cells.at_row, column).text; !part.empty()) name += part + " · ";
    name += open.grid->Columns()[static_cast<std::size_t>(cells.at_column)].caption;
  }
  open.form.At(kCell).text = open.form.At(kCell).caption = name;
}

void ShowView(Open& open) {
  Form& form = open.form;
  const bool by_record = form.At(names::cmbGRD_View).text == kByRecord;
  for (const char* name : {names::cmbGRD_Month, names::cmbGRD_Type}) form.At(name).visible = !by_record;
  form.At(names::cmbGRD_Equipment).visible = by_record;
  OnSheet(open.s, [&] {
    if (by_record) {
      const int at = form.At(names::cmbGRD_Equipment).index;
      if (at < 0) return;
      open.grid->ShowRecord(open.pieces[static_cast<std::size_t>(at)].first,
                            open.pieces[static_cast<std::size_t>(at)].second);
    } else {
      const int type = form.At(names::cmbGRD_Type).index;
      if (type < 0 || form.At(names::cmbGRD_Month).index < 0) return;
      open.grid->ShowMonth(open.types[static_cast<std::size_t>(type)], form.At(names::cmbGRD_Month).index + 1);
    }
    form.At(names::grdGRD).picked.clear();
  });
  ShowCellName(open);
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
  choose(names::cmbGRD_View, 0);
  choose(names::cmbGRD_Month, at.Month > 0 ? at.Month - 1 : open.s.last_month - 1);
  int type = at.Is(level::kStructure) ? 0 : 1;
  int piece = 0;
  for (std::size_t i = 0; i < open.types.size(); ++i)
    if (at.Is(level::kEquipment) && open.types[i]->type == at.EquipType) type = static_cast<int>(i);
  for (std::size_t i = 0; i < open.pieces.size(); ++i) {
    const auto& [sheet, key] = open.pieces[i];
    const bool structure = sheet == &StructureSheet();
    const bool shown = at.Is(level::kEquipment) ? !structure && key == open.s.ED_ID_AK
                                                : at.Is(level::kStructure) && structure && key == open.s.PD_ID_AK;
    if (shown) piece = static_cast<int>(i);
  }
  choose(names::cmbGRD_Type, type);
  choose(names::cmbGRD_Equipment, piece);
}

void ShowCellMessage(Open& open) {
  ShowCellName(open);
  const Control& grid = open.form.At(names::grdGRD);
  if (!IsInGrid(open, grid)) return;
  const GridCell cell = open.grid->Cell(grid.at_row, grid.at_column);
  Say(open.form, !cell.finding.empty() ? cell.finding : cell.hint);
}

// The first open cell of the record that the tree shows, or of the first row.
void StandOnRecord(Open& open) {
  Control& cells = open.form.At(names::grdGRD);
  const int shown = open.grid->FindRow(KeyOf(open.s.current, Mode::kActv));
  const GridPlace first =
      NextOpenCell(*open.grid, {std::max(shown, 0), open.grid->FixedColumns() - 1}, GridStep::kRight);
  open.form.focus = names::grdGRD;
  if (first.row < 0 || first.row >= open.grid->RowCount() || first.column < open.grid->FixedColumns()) return;
  cells.at_row = first.row;
  cells.at_column = first.column;
  ShowCellMessage(open);
}

bool Save(Open& open) {
  GridSaved saved;
  const std::string before = open.s.message;
  const bool done = OnSheet(open.s, [&] { saved = open.grid->Save(); });
  if (!done) return false;
  if (!saved.refused.empty()) {
    Say(open.form, saved.refused);
    return false;
  }
  std::string text = Count(saved.records, "record") + " saved, " + Count(saved.findings, "finding");
  for (const std::string& message : saved.messages) text += ". " + message;
  Say(open.s, text + NewsSince(open.s, before));
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

void Connect(Open& open) {
  Form& form = open.form;
  for (const char* list : {names::cmbGRD_View, names::cmbGRD_Month, names::cmbGRD_Type, names::cmbGRD_Equipment})
    form.On(list, Event::kClick, [&open] { ShowView(open); });
  form.On(names::grdGRD, Event::kMoved, [&open] { ShowCellMessage(open); });
  form.On(names::cmdGRD_Copy, Event::kClick, [&open] {
    Say(open.form, Count(open.grid->CopyBefore(open.form.At(names::grdGRD).picked), "value") + " copied");
    open.form.focus = names::grdGRD;
  });
  form.On(names::cmdGRD_Confirm, Event::kClick, [&open] {
    OnSheet(open.s, [&] {
      Say(open.form, Count(open.grid->Confirm(open.form.At(names::grdGRD).picked), "value") + " confirmed");
    });
    open.form.focus = names::grdGRD;
  });
  form.On(names::cmdGRD_Save, Event::kClick, [&open] { Save(open); });
  form.On(names::cmdCANCEL, Event::kClick, [&open] { Close(open); });
}

Form& GridForm(Session& s) {
  return DialogForm(s, names::frmGrid, "Month Grid", [](Form& form) {
    AddList(form, names::cmbGRD_View, "Show:", {kByMonth, kByRecord});
    AddList(form, names::cmbGRD_Month, "Month:", {});
    AddList(form, names::cmbGRD_Type, "Type:", {});
    AddList(form, names::cmbGRD_Equipment, "Equipment:", {});
    AddGrid(form, names::grdGRD, "Month", nullptr).many = true;
    AddLabel(form, kCell, "");
    AddLabel(form, "lblGRD_Message", "");
    AddButton(form, names::cmdGRD_Copy, "Copy Previous Month");
    AddButton(form, names::cmdGRD_Confirm, "Confirm Copied");
    AddButton(form, names::cmdGRD_Save, "Save");
    AddButton(form, names::cmdCANCEL, "Close");
    form.cancel_button = names::cmdCANCEL;
  });
}

}  // namespace

void MakeGridDialogs(Session& s) {
  GridForm(s);
  PasteForm(s);
}

void OpenMonthGrid(Session& s) {
  if (s.editing || !s.InActv()) return;
  Open open{s, GridForm(s), std::make_shared<MonthGrid>(s), {}, {}};
  open.form.At(names::grdGRD).grid = open.grid;
  open.grid->approve = [&open](const std::vector<PastePlan>& plan) {
    const bool approved = Approve(open.s, plan);
    open.form.focus = names::grdGRD;
    return approved;
  };
  open.grid->on_typed = [&open] { ShowCellMessage(open); };
  FillLists(open);
  ChooseWhatShows(open);
  ShowView(open);
  StandOnRecord(open);
  Connect(open);
  OpenDialog(s, open.form);
  for (const char* name : {names::cmbGRD_View, names::cmbGRD_Month, names::cmbGRD_Type, names::cmbGRD_Equipment,
                           names::cmdGRD_Copy, names::cmdGRD_Confirm, names::cmdGRD_Save, names::cmdCANCEL})
    open.form.On(name, Event::kClick, [] {});
  open.form.On(names::grdGRD, Event::kMoved, [] {});
  open.form.At(names::grdGRD).grid = nullptr;
  // the record that shows may have been saved in the grid
  ClearSheet(s);
  LoadSheet(s);
  LockSheet(s);
}

}  // namespace merlu
