#include "forms/desk.h"

#include <algorithm>
#include <unordered_set>

#include "base/number_entry.h"
#include "base/text.h"
#include "forms/grid_model.h"
#include "forms/list_model.h"

namespace merlu {
namespace {

const Control* Parent(const Form& form, const Control& control) {
  return control.parent.empty() ? nullptr : form.Find(control.parent);
}

bool IsStackedFrame(const Form& form, const Control& control) {
  return control.kind == Kind::kFrame && control.parent.empty() && !form.front.empty();
}

bool IsOnAvailablePage(const Form& form, const Control& control) {
  for (const Control* at = &control; const Control* parent = Parent(form, *at); at = parent)
    if (parent->kind == Kind::kTab && !parent->page_available[static_cast<std::size_t>(at->page)]) return false;
  return true;
}

bool CanBeLocked(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList;
}

}  // namespace

Form* Desk::Find(std::string_view name) const {
  for (const auto& form : forms)
    if (EqualsIgnoringCase(form->name(), name)) return form.get();
  return nullptr;
}

Form& Desk::Own(std::unique_ptr<Form> form) {
  return *forms.emplace_back(std::move(form));
}

void Desk::Show(Form& form) {
  Hide(form);
  form.visible = true;
  const auto is_dock = [](const Form* other) { return !other->dock.empty(); };
  const auto is_dialog = [](const Form* other) { return other->modal; };
  auto above = showing.end();  // a sheet stays below the open dialogs
  if (!form.dock.empty())
    above = std::find_if_not(showing.begin(), showing.end(), is_dock);
  else if (!form.modal)
    above = std::find_if(showing.begin(), showing.end(), is_dialog);
  showing.insert(above, &form);
}

void Desk::Hide(Form& form) {
  form.visible = false;
  std::erase(showing, &form);
}

Form* Desk::Dialog() const {
  const auto found = std::find_if(showing.rbegin(), showing.rend(), [](const Form* form) { return form->modal; });
  return found == showing.rend() ? nullptr : *found;
}

std::vector<Form*> Desk::LookUpOrder(Form* main) const {
  std::vector<Form*> order;
  if (Form* dialog = Dialog()) order.push_back(dialog);
  for (const bool docks : {false, true})
    for (auto at = showing.rbegin(); at != showing.rend(); ++at)
      if (*at != main && !(*at)->modal && (*at)->dock.empty() != docks) order.push_back(*at);
  if (main != nullptr) order.push_back(main);
  return order;
}

int RowCount(const Control& control) {
  if (control.grid != nullptr) return control.grid->RowCount();
  return control.model != nullptr ? control.model->RowCount() : static_cast<int>(control.rows.size());
}

bool IsVisible(const Form& form, const Control& control) {
  for (const Control* at = &control; at != nullptr; at = Parent(form, *at)) {
    if (at != &control && IsStackedFrame(form, *at)) break;
    if (!at->visible) return false;
  }
  return true;
}

bool IsEnabled(const Form& form, const Control& control) {
  for (const Control* at = &control; at != nullptr; at = Parent(form, *at))
    if (!at->enabled) return false;
  return true;
}

bool IsInFront(const Form& form, const Control& control) {
  for (const Control* at = &control; at != nullptr; at = Parent(form, *at))
    if (IsStackedFrame(form, *at)) return at->visible && form.front == at->name;
  return true;
}

std::string WhyNot(const Desk& desk, const Form& form, const Control& control, bool changes) {
  const Form* dialog = desk.Dialog();
  if (!form.visible || (dialog != nullptr && dialog != &form) || !IsInFront(form, control))
    return "is not on the screen";
  if (!IsVisible(form, control)) return "is hidden";
  if (!IsOnAvailablePage(form, control)) return "is not on the screen";
  if (!IsEnabled(form, control)) return "is disabled";
  if (changes && control.locked && CanBeLocked(control.kind)) return "is locked";
  return "";
}

namespace act {

std::string GotFocus(Desk& desk, Form& form, std::string_view name) {
  if (std::string why = WhyNot(desk, form, form.At(name), false); !why.empty()) return why;
  form.Raise(name, Event::kGotFocus);
  return "";
}

std::string LostFocus(Desk& desk, Form& form, std::string_view name) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, false); !why.empty()) return why;
  // a sum that cannot be computed stays as it was typed
  if (control.numeric && !control.locked && IsSum(control.text)) {
    control.text = SumText(control.text).value_or(control.text);
    control.hint = NumberHint(control.text);
  }
  form.Raise(name, Event::kLostFocus);
  return "";
}

std::string Type(Desk& desk, Form& form, std::string_view name, std::string_view text) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, true); !why.empty()) return why;
  if (control.kind == Kind::kMasked)
    control.text = Masked(control.mask, text);
  else
    control.text =
        control.limit > 0 ? FirstCharacters(text, static_cast<std::size_t>(control.limit)) : std::string(text);
  control.touched = true;
  control.copied = false;
  if (control.numeric) control.hint = IsSum(control.text) ? "" : NumberHint(control.text);
  form.Raise(name, Event::kClick);  // as a choice in a list
  return "";
}

std::string Choose(Desk& desk, Form& form, std::string_view name, std::string_view text) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, true); !why.empty()) return why;
  const bool is_item = std::find(control.items.begin(), control.items.end(), text) != control.items.end();
  if (!is_item && !control.free_text) return "has no item \"" + std::string(text) + "\"";
  control.touched = true;
  control.copied = false;
  SelectText(form, name, text);
  return "";
}

std::string Check(Desk& desk, Form& form, std::string_view name, bool on) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, true); !why.empty()) return why;
  if (control.checked == on) return "";
  control.checked = on;
  form.Raise(name, Event::kClick);
  return "";
}

std::string Page(Desk& desk, Form& form, std::string_view name, int page) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, false); !why.empty()) return why;
  if (page < 0 || page >= static_cast<int>(control.items.size())) return "has no page " + std::to_string(page);
  if (!control.page_available[static_cast<std::size_t>(page)])
    return "page \"" + control.items[static_cast<std::size_t>(page)] + "\" is disabled";
  control.index = page;
  form.Raise(name, Event::kClick);
  return "";
}

std::string Click(Desk& desk, Form& form, std::string_view name) {
  Control& control = form.At(name);
  if (control.kind == Kind::kCheck) return Check(desk, form, name, !control.checked);
  if (control.kind != Kind::kButton && control.kind != Kind::kMenu && control.kind != Kind::kOption)
    return "cannot be clicked";
  if (std::string why = WhyNot(desk, form, control, true); !why.empty()) return why;
  if (control.kind == Kind::kOption) {
    for (Control& other : form.controls())
      if (other.kind == Kind::kOption && other.parent == control.parent) other.checked = false;
    control.checked = true;
  }
  form.Raise(name, Event::kClick);
  return "";
}

// Why the row, or the cell, is none of the control's; empty when it is.
std::string WhyNoCell(const Control& control, int row, int column) {
  if (row < 0 || row >= RowCount(control)) return "has no row " + std::to_string(row);
  const bool grid = control.grid != nullptr;
  const int columns = static_cast<int>(grid ? control.grid->Columns().size() : control.columns.size());
  if ((grid && column < 0) || column >= columns) return "has no column " + std::to_string(column);
  return "";
}

// A row of a list view that is picked again may be another one by now: the list was filled anew.
void MoveTo(Form& form, Control& control, int row, int column) {
  if (control.grid != nullptr && control.at_row == row && control.at_column == column) return;
  control.at_row = row;
  control.at_column = column;
  form.Raise(control.name, Event::kMoved);
}

std::string DoubleClick(Desk& desk, Form& form, std::string_view name, int row, int column) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, false); !why.empty()) return why;
  if (row >= 0) {
    // of a list view the row alone, or a cell of it
    const int cell = control.grid != nullptr ? std::max(column, 0) : column;
    if (std::string why = WhyNoCell(control, row, cell); !why.empty()) return why;
    control.picked = {row};
    MoveTo(form, control, row, cell);
  }
  form.Raise(name, Event::kDoubleClick);
  return "";
}

std::string Pick(Desk& desk, Form& form, std::string_view name, const std::vector<int>& rows) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, false); !why.empty()) return why;
  if (rows.size() > 1 && !control.many) return "takes one row at a time";
  for (int row : rows)
    if (row < 0 || row >= RowCount(control)) return "has no row " + std::to_string(row);
  control.picked.clear();
  std::unordered_set<int> seen;
  for (int row : rows)
    if (seen.insert(row).second) control.picked.push_back(row);
  if (control.grid == nullptr) MoveTo(form, control, rows.empty() ? -1 : rows.back(), -1);
  return "";
}

std::string Sort(Desk& desk, Form& form, std::string_view name, int column) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, false); !why.empty()) return why;
  if (control.model == nullptr || !control.model->CanSort()) return "cannot be sorted";
  if (column < 0 || column >= static_cast<int>(control.columns.size()))
    return "has no column " + std::to_string(column);
  control.descending = control.sorted_by == column && !control.descending;
  control.sorted_by = column;
  control.model->Sort(column, control.descending);
  control.picked.clear();
  control.at_row = -1;
  form.Raise(name, Event::kSorted);
  return "";
}

std::string GoToCell(Desk& desk, Form& form, std::string_view name, int row, int column) {
  Control& control = form.At(name);
  if (std::string why = WhyNot(desk, form, control, false); !why.empty()) return why;
  if (control.grid == nullptr) return "is not a grid";
  if (std::string why = WhyNoCell(control, row, column); !why.empty()) return why;
  MoveTo(form, control, row, column);
  return "";
}

std::string TypeCell(Desk& desk, Form& form, std::string_view name, int row, int column, std::string_view text) {
  if (std::string why = GoToCell(desk, form, name, row, column); !why.empty()) return why;
  Control& control = form.At(name);
  const GridColumn& head = control.grid->Columns()[static_cast<std::size_t>(column)];
  if (control.grid->Cell(row, column).locked) return "row " + std::to_string(row) + " of " + head.name + " is locked";
  const bool is_item = std::find(head.items.begin(), head.items.end(), text) != head.items.end();
  if (!head.items.empty() && !is_item && !head.free_text) return "has no item \"" + std::string(text) + "\"";
  control.grid->SetCell(
      row, column, head.limit > 0 ? FirstCharacters(text, static_cast<std::size_t>(head.limit)) : std::string(text));
  return "";
}

std::string Paste(Desk& desk, Form& form, std::string_view name, int row, int column, std::string_view text) {
  if (std::string why = GoToCell(desk, form, name, row, column); !why.empty()) return why;
  form.At(name).grid->Paste(row, column, CellsOf(text));
  return "";
}

}  // namespace act

}  // namespace merlu
