// Putting controls on the sheets of the main window.
#pragma once

#include <string>
#include <vector>

#include "forms/form.h"
#include "sheets/spec.h"

namespace merlu {

// Where the next controls are placed.
struct ControlPlace {
  std::string parent;
  int page = 0;
  std::string block;
};

Control& Put(Form& form, Kind kind, const std::string& name, const std::string& caption, const ControlPlace& place);
Control& PutLabel(Form& form, const std::string& name, const std::string& text, const ControlPlace& place);
void PutTab(Form& form, const std::string& name, std::vector<std::string> pages, const ControlPlace& place);
// The field with its labels, on its frame or else the parent.
void PutField(Form& form, const FieldSpec& spec, const std::string& parent);
// A results list with its button: columns First, "Error Description", "Operator Comment".
void PutResults(Form& form, const std::string& list, const std::string& button, const std::string& first_column,
                const ControlPlace& place);

// Read-only or editable, with the matching background.
void SetLocked(Control& field, bool locked);
// The title of a sheet's frame, dark red while editing.
void SetFrameTitle(Form& form, const std::string& frame, const std::string& title, bool editing);
void SetCaption(Form& form, const std::string& label, const std::string& text);

}  // namespace merlu
