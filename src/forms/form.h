// A logical screen: a list of controls, and the handlers of the user's acts on them.
//
// A loaded form holds its controls' state; a visible form is drawn by the front end. A hidden form needs no window, so
// rules can run on it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/text.h"
#include "forms/control.h"

namespace merlu {

// kMoved: another cell of a grid, or row of a list view, became the current one. kSorted: the head of a column was
// clicked.
enum class Event { kClick, kDoubleClick, kGotFocus, kLostFocus, kMoved, kSorted };

class Form {
 public:
  Form(std::string name, std::string title) : name_(std::move(name)), caption(std::move(title)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }

  // Adds a control while the form is built; names are unique on a form, without regard to case.
  Control& Add(Control control);

  // The control of that name, without regard to case; a programming error when there is none.
  Control& At(std::string_view name);
  const Control& At(std::string_view name) const;
  Control* Find(std::string_view name);
  const Control* Find(std::string_view name) const;

  std::vector<Control>& controls() { return controls_; }
  const std::vector<Control>& controls() const { return controls_; }

  void On(std::string_view control, Event event, std::function<void()> handler);
  // Runs the handler of the event; does nothing when there is none.
  void Raise(std::string_view control, Event event);
  bool Handles(std::string_view control, Event event) const;

  // Design state: stored when the form is complete, restored when it is loaded anew.
  void KeepDesign() { design_.assign(controls_.begin(), controls_.end()); }
  void RestoreDesign();

 private:
  std::string name_;
  std::vector<Control> controls_;
  std::vector<ControlState> design_;
  using Places = std::unordered_map<std::string, std::size_t, TextHash, std::equal_to<>>;
  Places by_name_, by_lower_name_;
  std::map<std::pair<std::string, Event>, std::function<void()>> handlers_;

 public:
  std::string caption;         // title of its window
  bool loaded = false;         // its controls hold state
  bool visible = false;        // it is drawn
  bool modal = false;          // shown as a dialog: everything else is covered
  std::string dock;            // of a form beside the sheet: the menu command that shows and hides it
  std::string front;           // of frames that lie on top of one another: the one in front
  std::string focus;           // control to be focused; the front end clears it when it has done so
  std::string default_button;  // Enter presses it
  std::string cancel_button;   // Escape and the window's own close press it
};

// Selection of a list's item by code; raises its click as a user's choice does. -1 selects nothing and
// raises nothing. An index that the list lacks selects nothing.
void SelectItem(Form& form, std::string_view list, int index);
// Selects the item that equals the text; without one, nothing is selected, or, in a list that takes free
// text, the text is set as it is.
void SelectText(Form& form, std::string_view list, std::string_view text);

// The text of a masked box: the digits of `text` in the mask's places, "_" in the places left over. The 1 of a country
// code before a complete number is dropped. Digits after an "x" or a "#" go to the extension, where the mask has one.
std::string Masked(std::string_view mask, std::string_view text);
// True for a text that a masked box can hold: the mask with a digit or "_" in each place.
bool FitsMask(std::string_view mask, std::string_view text);

}  // namespace merlu
