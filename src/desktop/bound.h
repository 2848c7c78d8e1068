// The widgets of one control, and what they show of it. Drawing only: nothing here acts on the control.
#pragma once

#include <QLabel>
#include <QWidget>

#include "forms/form.h"

namespace merlu {

// The widgets of one control; all of them belong to their parents.
struct Bound {
  const Control* control = nullptr;
  QWidget* widget = nullptr;
  QLabel* caption = nullptr;  // beside it
  QLabel* mark = nullptr;     // at its end, when it has a finding
  QLabel* was = nullptr;      // after the field: the month before
  QLabel* remark = nullptr;   // below it: what a save makes of the text
  QWidget* row = nullptr;     // that holds field, mark and note
  Control shown;              // the state that the widgets show
  bool drawn = false;
};

// Whether a field of that kind holds a text: a line, a masked box, a list.
bool IsSelectable(Kind kind);

// Shows the control's present state. True when a field appeared or went, or a row became higher or lower, so that its
// place must be laid out anew.
bool Draw(const Form& form, Bound& bound);

}  // namespace merlu
