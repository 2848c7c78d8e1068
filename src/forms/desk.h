// The forms of a run, and which of them show; and the acts of a user on them. An act passes the same gates
// whether it comes from a window or from a script: what is hidden, disabled, locked, covered by a dialog
// or not showing refuses it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"

namespace merlu {

struct Desk {
  std::vector<std::unique_ptr<Form>> forms;  // every form that was ever made
  std::vector<Form*> showing;                // bottom first

  // The form of that name, made or not shown included; null when there is none.
  Form* Find(std::string_view name) const;
  Form& Own(std::unique_ptr<Form> form);
  // Shows a form on top of the others; a dock is put below them all.
  void Show(Form& form);
  void Hide(Form& form);
  // The open dialog on top; null without one.
  Form* Dialog() const;
  // The order in which a name is looked up on the screen: the open dialog, the sheet, the forms beside it, the
  // main form.
  std::vector<Form*> LookUpOrder(Form* main) const;
};

// Why the user cannot act on the control ("is hidden", "is disabled", "is locked", "is not on the screen"); empty when
// the act is allowed. `changes`: the act changes the control instead of only using it.
std::string WhyNot(const Desk& desk, const Form& form, const Control& control, bool changes);

// Own flag, and that of the frames around it. The three sheets of the main window lie on top of one
// another and do not count.
bool IsVisible(const Form& form, const Control& control);
bool IsEnabled(const Form& form, const Control& control);
// False for a control in a frame that is covered by another one or not visible.
bool IsInFront(const Form& form, const Control& control);

// Acts of a user. Each returns why it was refused, or empty text when it was done.
namespace act {

std::string GotFocus(Desk& desk, Form& form, std::string_view control);
std::string LostFocus(Desk& desk, Form& form, std::string_view control);
// Replaces the text by what the limit or the mask lets through.
std::string Type(Desk& desk, Form& form, std::string_view control, std::string_view text);
// Chooses an item by its text; in a list that takes free text, types it.
std::string Choose(Desk& desk, Form& form, std::string_view control, std::string_view text);
std::string Check(Desk& desk, Form& form, std::string_view control, bool on);
std::string Page(Desk& desk, Form& form, std::string_view control, int page);
std::string Click(Desk& desk, Form& form, std::string_view control);
// On the row, and in a grid on the cell, that are picked by it; on what is picked without one.
std::string DoubleClick(Desk& desk, Form& form, std::string_view control, int row = -1, int column = -1);
std::string Pick(Desk& desk, Form& form, std::string_view control, const std::vector<int>& rows);
// The head of a list's column: sorts by it, and the other way round at the next click.
std::string Sort(Desk& desk, Form& form, std::string_view control, int column);
// Makes a cell of a grid the current one.
std::string GoToCell(Desk& desk, Form& form, std::string_view control, int row, int column);
// Types into a cell and leaves it.
std::string TypeCell(Desk& desk, Form& form, std::string_view control, int row, int column, std::string_view text);
// Pastes a block of cells: tabs part columns, line ends rows.
std::string Paste(Desk& desk, Form& form, std::string_view control, int row, int column, std::string_view text);

}  // namespace act

}  // namespace merlu
