// The state of one run, in plain records. Made in main, so that a test can hold two. Nothing here decides
// anything: procedures of the units take the session first.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/text.h"
#include "forms/desk.h"
#include "forms/platform.h"
#include "history/companion.h"
#include "history/notes.h"
#include "session/location.h"
#include "session/notices.h"
#include "session/tree.h"
#include "store/cursor.h"
#include "store/database.h"
#include "store/file_note.h"

namespace merlu {

class Ui;

// The long-lived cursors, one per table, open as long as the database is.
class Cursors {
 public:
  // kNotSet when the cursor was never opened.
  Cursor& At(std::string_view table);
  bool IsOpen() const { return !by_table_.empty(); }
  void Open(Database& db, std::string_view table);
  void Close() { by_table_.clear(); }

 private:
  std::unordered_map<std::string, std::unique_ptr<Cursor>, TextHash, std::equal_to<>> by_table_;
};

inline constexpr std::size_t kPageMemorySize = 19;  // type numbers 0 to 18
using PageMemory = std::array<std::uint8_t, kPageMemorySize>;

struct Session {
  Session(Host& machine, Progress& display, Ui& front_end) : host(machine), progress(display), ui(front_end) {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Host& host;
  Progress& progress;
  Ui& ui;  // for the shell, which alone can use it (shell/ui.h)
  Desk desk;
  Form* main = nullptr;  // frmMain, with the sheets of operator, survey and structure
  WaitScreen wait;

  // The run
  std::string title = "MERLU-2017";  // of every message box
  std::string version;               // program version text
  Notices notices;                   // for the user, not shown yet
  std::string path;                  // of the database file
  Mode mode = Mode::kNone;
  bool ended = false;         // the program has ended
  bool open_other = false;    // another inventory was chosen at the first question for the operator
  bool began_empty = false;   // at the start there was no structure: nothing to hand out
  bool may_add_month = true;  // of the operator that was selected last

  // The open file
  Database db;
  FileNote note;             // that this run has the file open
  Companion companion;       // what is kept beside the file
  std::string unbacked_day;  // date on which the user chose to continue without a backup
  // After a backup has failed: whether to continue without. The shell asks the user; without it the answer is no.
  std::function<bool(const Fault&)> continues_without_backup;
  Database exchange;  // a second file: what an export writes, or an import reads
  Cursors cursors;
  int year = 0;        // sys_yr
  int last_month = 0;  // SYS_MAX_MO

  // The user's place
  QCLocation current, last_desc, last_actv;
  std::int64_t PD_ID_AK = 0, SA_ID_AK = 0, ED_ID_AK = 0, EA_ID_AK = 0;  // rows of the hierarchy cursors
  std::string node_status;            // of the selected structure month: "A", "I" or empty
  std::string status_text;            // what the status bar shows: the path of the selected node
  std::string message;                // the status bar's message on the last act: "Saved", "Edit dropped"
  int findings = 0, unexplained = 0;  // of the place, as it shows them
  QCLocation status_of{};             // what these three were last counted for
  std::int64_t status_changes = -1;
  bool checked = true;  // false where no run has been since the last save
  // Whether a description of equipment (ED_ID_AK) was judged since its last save, for those that were judged or saved
  // since the start: descriptions have no date of last QC.
  std::map<std::int64_t, bool> checked_descriptions;
  // Structures (PD_ID_AK) and their months (SA_ID_AK) that no run has judged since their last save: a save leaves them
  // the date of last QC.
  std::set<std::pair<Mode, std::int64_t>> unjudged_structures;

  // The edit
  bool editing = false;
  bool unreadable = false;     // the record that shows could not be read: no edit, no save, no run
  Draft draft;                 // what is kept of the edit in case it is interrupted
  std::int64_t edit_step = 0;  // step in which this edit added to a look-up list: the save continues that step
  bool save_failed = false;    // a save or the first-run dialog was not completed
  bool InSaveQC = false;       // the QC run is the one that the save began
  bool EquipmentInactive = false;
  bool StructureInactive = false;
  bool record_checked = false;                    // the last run judged the whole record that it was started at
  PageMemory last_page_desc{}, last_page_actv{};  // by type number

  // The tree
  Tree tree;
  bool mode_changed_to_actv = false;
  bool mode_changed_to_desc = false;
  KeyList structure_list{1001};          // PD_ID_AK, description mode
  KeyList equipment_list{40001};         // ED_ID_AK, description mode
  KeyList structure_month_list{12001};   // SA_ID_AK, activity mode
  KeyList equipment_month_list{480001};  // EA_ID_AK, activity mode
  TreeRecord activity_record;
  std::vector<bool> tree_expansion;  // kept by SaveTreeExpansion

  bool InDesc() const { return mode == Mode::kDesc; }
  bool InActv() const { return mode == Mode::kActv; }
  Cursor& At(std::string_view table) { return cursors.At(table); }
};

}  // namespace merlu
