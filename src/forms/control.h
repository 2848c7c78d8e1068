// One control of a logical screen. A plain record: rules, loads and saves work on it, a front end draws it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/document.h"

namespace merlu {

enum class Kind { kText, kMasked, kList, kCheck, kOption, kLabel, kButton, kMenu, kListView, kTab, kFrame, kTree };

// Background of a field: editable, read-only, or flagged by a failed check.
enum class Back { kWindow, kFace, kFlag };

// What changes while a form is loaded: put back as a whole when it is loaded anew.
struct ControlState {
  std::string caption;  // beside a field, on a button, of a frame, over a list
  std::string text;     // of a field; what a label or a masked box shows

  // Lists and tabs
  std::vector<std::string> items;      // of a list; the page captions of a tab
  int index = -1;                      // chosen item, -1 for none; of a tab the page that shows
  std::vector<bool> page_available{};  // of a tab

  bool checked = false;  // check boxes and option buttons
  bool enabled = true;
  bool locked = false;  // shown and copied, not changed
  bool visible = true;
  Back back = Back::kWindow;
  bool emphasis = false;  // of a frame: its title stands bold and dark red, as while editing
  std::string tip;        // what the front end tells when the control is pointed at, e.g. its finding

  // List views
  std::vector<std::vector<std::string>> rows;
  std::vector<int> picked;  // selected rows, counted from 0

  // Of a rich text box: the text with its looks, and where it is to be read from
  std::shared_ptr<const Document> document{};
  std::string bookmark;
};

// What it is and where it stands stays as it was built.
struct Control : ControlState {
  std::string name;
  Kind kind = Kind::kText;
  std::string tag;         // the field's short human name; the FieldID of its findings
  bool free_text = false;  // the list takes texts that are no item

  // List views
  std::vector<std::string> columns;
  bool many = false;  // several rows can be picked at once

  // Entry
  int limit = 0;         // most characters that can be typed, 0 for no limit
  std::string mask;      // of a masked box: '#' is a place for a digit
  bool numeric = false;  // holds a number: digits are set to the right
  bool lines = false;    // holds several lines of text

  // Where it stands
  std::string parent;  // frame, tab or menu that holds it; empty on the form itself
  int page = 0;        // page of the tab that holds it
  std::string block;   // heading of the group that it stands in
  std::string label;   // name of the label control that is this field's caption, when it has a name
  std::string beside;  // of a dialog's button: name of the field that it stands behind
  std::string note;    // name of a label control that stands behind the field
};

}  // namespace merlu
