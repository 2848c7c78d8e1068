// What a sheet of an equipment type is made of, as tables: its fields, what enables what, and its rules.
// sheets/contract gives the sheet its behaviour from these tables; the catalogue and the rule reference
// are printed from them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/form.h"
#include "rules/rule.h"
#include "session/session.h"

namespace merlu {

// How a field is kept in its column.
enum class Stored {
  kNumber,       // the leading number of a numeric text, Null for any other text
  kText,         // the text unchanged, Null when empty
  kYesNo,        // a list of "Yes" and "No" as a yes/no, Null without a choice
  kCode,         // a list's item as its code; without a choice the column stays as it was
  kItemText,     // a list's item as its text, Null without a choice
  kDestination,  // "Vent: " or "Flare: " and an ID, as VEN or FLA and the ID
  kComputed,     // a number that a rule computes
  kNone          // nothing; with a column it is shown and never stored
};

struct Item {
  std::string text;
  std::string code;
};

struct FieldSpec {
  In mode = In::kDesc;
  Kind kind = Kind::kText;
  std::string control;
  std::string caption;
  std::string tag;
  std::string column;  // of ED_<type> in kDesc, of EA_<type> in kActv
  Stored stored = Stored::kNone;
  std::vector<Item> items;
  std::string unit;              // of a number: "hrs"; a caption that shows it has it in brackets
  std::string label;             // name of the caption's control, when it has one
  int page = 0;                  // kOffPage: on no page, so that the user never sees it
  std::string block;             // heading on the page
  std::string frame;             // frame on the page that holds it, if any
  std::string note_label, note;  // a label after the field, and its text
  bool free_text = false;        // a list that takes texts that are no item
  bool shows_unlisted = false;   // a stored text that is no item of the list shows, and a save keeps it
  bool any_case = false;         // a stored text is an item of the list without regard to case
  bool loads = true;             // false: a load leaves the field as the clear did
  bool loads_last = false;       // the sheet's after_load shows the column, after all others
  int known_items = -1;          // items that a load knows, from the first on; -1 for all
  int fallback = -1;             // item that a load selects for any other value, Null included
  std::string destination;       // of a remote vent or flare: the list whose choice it belongs to
  Condition kept_when;           // a save stores Null while it does not hold
  Condition shown_when;          // a load leaves a monthly field blank while it does not hold
  std::string mask;              // of a masked field; a stored text that does not fit it shows as it is
};

inline constexpr int kOffPage = -1;

// Makers of fields, one a line in a type's table.
FieldSpec Number(In mode, std::string control, std::string caption, std::string tag, std::string column,
                 std::string unit = "");
FieldSpec Text(In mode, std::string control, std::string caption, std::string tag, std::string column);
FieldSpec YesNo(In mode, std::string control, std::string caption, std::string tag, std::string column);
FieldSpec Coded(In mode, std::string control, std::string caption, std::string tag, std::string column,
                std::vector<Item> items);
FieldSpec ItemText(In mode, std::string control, std::string caption, std::string tag, std::string column,
                   std::vector<std::string> items);
// The same, where a stored text that is no item shows and is kept.
FieldSpec OpenItemText(In mode, std::string control, std::string caption, std::string tag, std::string column,
                       std::vector<std::string> items);

// Fields that are on while a condition holds, and off otherwise. Off is disabled with the read-only background, on is
// enabled with the editable one. Texts are kept unless `empties` is set.
struct Enabling {
  enum class At { kUnlock, kClick, kBoth };            // when it applies: as an edit begins, at a click on its lists
  enum class Does { kEnable, kLock, kEnableAndLock };  // kLock: off is read-only and stays enabled
  enum class Empties { kNever, kAtClick, kAlways };    // when fields that turn off lose their texts
  At at = At::kBoth;
  In mode = In::kBoth;
  std::vector<std::string> lists;  // whose click applies the row
  Condition when;
  std::vector<std::string> fields;
  Does does = Does::kEnable;
  Empties empties = Empties::kNever;
  bool keeps_colour = false;  // off leaves the background alone
  bool only_off = false;      // what would be on stays as it is
  bool only_on = false;       // what would be off stays as it is
  bool in_view_too = false;   // a click acts also while the sheet is not edited
};

// Where a sheet's record is stored: its own columns, and those that every record of the kind has. Empty for what the
// kind does not have.
struct RecordTables {
  std::string description, month;
  std::string dated, description_date;               // the description's row with its date of last QC
  std::string master, status, comments, month_date;  // the month's row with its status
};

struct SheetSpec {
  std::string level = level::kEquipment;  // of the location of its records
  std::string type;                       // EquipmentType code
  int number = 0;                         // type number
  std::string letters;                    // of the names of the form and its controls
  std::string frame_name;                 // where the frame is not called by the letters
  std::string title;                      // of the frame in view
  std::string edit_title;                 // of the frame while editing
  // Of the frame when cleared, by mode; empty leaves the title alone
  std::string cleared_title_actv, cleared_title_desc;
  std::vector<std::string> pages;
  std::string comments_caption = "Comments";
  std::string comments_tag;
  bool comments_unlock_in_desc = false;
  std::vector<FieldSpec> fields;
  std::vector<Enabling> enablings;
  std::vector<RuleGroup> rules;  // in the order in which a run calls them
  std::string focus_actv, focus_desc;
  bool has_activity = true;                    // false: no months, no status, no activity table
  bool has_findings = true;                    // false: no list of findings, and no date of last QC
  std::string description_frame, month_frame;  // of the fields of a mode, where a frame shows or hides them
  std::string destination;                     // routing: the list of destinations ...
  std::string sent_to;                         // ... and that of the remote vent or flare
  std::string keeps_sent_to_for;               // destination whose choice leaves that list as it was
  std::string not_found_on_load = "Equipment record not found";
  std::string not_found_on_save = "Equipment record not found";
  bool plain_faults = false;             // faults are shown by the plain handler
  bool month_row_first = false;          // a save writes the type's row before the master row
  bool inactive_takes_comments = false;  // a run over an inactive record withdraws explained findings too
  std::vector<Control> extra;            // further controls, with their parents
  // Deviations of the type, run at the end of the step that they are named after
  using Step = std::function<void(Session&, Form&)>;
  Step after_clear, after_load, after_lock, after_unlock;
  Step after_save;  // before the commit
  Step connect;     // additional event handlers
  std::function<void(Session&, QCLocation&)> before_rules;

  std::string form() const { return "frm" + letters; }
  std::string frame() const { return frame_name.empty() ? "fra" + letters : frame_name; }
  std::string tab() const { return "tab" + letters; }
  std::string list() const { return "lvw" + letters + "_QCResults"; }
  std::string date_label() const { return "lbl" + letters + "_QCDate"; }
  std::string comment_button() const { return "cmd" + letters + "_EditQCComment"; }
  std::string status_box() const { return "chk" + letters + "_Status"; }
  std::string comments() const { return "txt" + letters + "_Comments"; }
  std::string comments_label() const { return "lbl" + letters + "_Comments"; }
  std::string ed_table() const { return "ED_" + type; }
  // Empty for a type without activity.
  std::string ea_table() const { return has_activity ? "EA_" + type : ""; }
  RecordTables tables() const;
  // A form of its own; the sheets of operator and structure are on the main form.
  bool has_form() const { return level == level::kEquipment; }

  bool RefillsFor(const std::string& chosen) const { return chosen.empty() || chosen != keeps_sent_to_for; }

  // Adds fields under a heading of a page.
  void Add(int page, const std::string& block, std::vector<FieldSpec> more);
  void Add(std::vector<Enabling> more);
};

}  // namespace merlu
