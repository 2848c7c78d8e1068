// One control of a logical screen. A plain record: rules, loads and saves work on it, a front end draws it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/document.h"

namespace merlu {

class ListModel;
class GridModel;

enum class Kind {
  kText,
  kMasked,
  kList,
  kCheck,
  kOption,
  kLabel,
  kButton,
  kMenu,
  kListView,
  kTab,
  kFrame,
  kTree,
  kGrid
};

// Background of a field: editable, read-only, or flagged by a failed check.
enum class Back { kWindow, kFace, kFlag };

// What changes while a form is loaded; loading the form anew resets all of it.
struct ControlState {
  std::string caption;  // beside a field, on a button, of a frame, over a list
  std::string text;     // of a field; what a label or a masked box shows

  // Lists and tabs
  std::vector<std::string> items;      // of a list; the page captions of a tab
  int index = -1;                      // chosen item, -1 for none; of a tab the page that shows
  std::vector<bool> page_available{};  // of a tab

  bool checked = false;  // check boxes, option buttons, and menu commands that can be checked
  bool touched = false;  // of a field: the user has changed it since it was loaded
  bool enabled = true;
  bool locked = false;  // shown and copied, not changed
  bool visible = true;
  Back back = Back::kWindow;
  bool emphasis = false;  // of a frame: its title is bold and dark red, as while editing
  std::string tip;        // tool tip, e.g. the control's finding

  // Beside a field
  std::string hint;     // what a save will make of the text
  std::string was;      // the value of the month before
  std::string finding;  // the text of the finding under its tag
  bool copied = false;  // taken over from the month before and not yet confirmed

  std::vector<int> counts{};  // of a tab: the findings on each page; empty while they are not counted

  // List views and grids
  std::vector<std::vector<std::string>> rows;  // of a list view without a model
  std::vector<int> picked;                     // selected rows, counted from 0
  int at_row = -1, at_column = -1;             // the current cell; of a list view only the row
  int sorted_by = -1;                          // column that a click on its head has sorted by
  bool descending = false;

  // Of a rich text box: the text with its looks, and where it is to be read from
  std::shared_ptr<const Document> document{};
  std::string bookmark;
};

// What the control is and its place on the form do not change after it was built.
struct Control : ControlState {
  std::string name;
  Kind kind = Kind::kText;
  std::string tag;         // the field's short human name; the FieldID of its findings
  bool free_text = false;  // the list takes texts that are no item

  // List views and grids
  std::vector<std::string> columns;  // of a list view
  bool many = false;                 // several rows can be picked at once
  std::shared_ptr<ListModel> model;  // of a list view whose rows are read where they are kept
  std::shared_ptr<GridModel> grid;   // of a grid

  bool checkable = false;  // a menu command that is checked while what it shows is there

  // Entry
  int limit = 0;         // most characters that can be typed, 0 for no limit
  std::string mask;      // of a masked box: '#' is a place for a digit
  bool numeric = false;  // holds a number: digits are set to the right
  std::string unit;      // of the number, empty where it has none
  bool lines = false;    // holds several lines of text

  // Place on the form
  std::string parent;  // frame, tab or menu that holds it; empty on the form itself
  int page = 0;        // page of the tab that holds it
  std::string block;   // heading of its group
  std::string label;   // name of the label control that is this field's caption, when it has a name
  std::string beside;  // of a dialog's button: name of the field that it is placed after
  std::string note;    // name of the label control that is placed after the field
};

// Rows of a list view or a grid, from its model where it has one.
int RowCount(const Control& control);

}  // namespace merlu
