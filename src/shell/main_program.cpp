#include "shell/main_program.h"

#include <utility>

#include "base/text.h"
#include "session/act.h"
#include "session/folders.h"
#include "session/main_names.h"
#include "shell/commands.h"
#include "shell/dialogs.h"
#include "shell/docks.h"
#include "shell/draft.h"
#include "shell/edit_modes.h"
#include "shell/main_form.h"
#include "shell/messages.h"
#include "shell/open_database.h"
#include "shell/program_end.h"
#include "shell/recent_files.h"
#include "shell/sheet_acts.h"
#include "shell/trees.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kFarewell = "Sorry, cannot proceed without User Information - MERLU is shutting down now...";

// Where the database lies when no setting names one. A first start finds a fresh copy of the template.
std::string DefaultPath(Session& s) {
  std::string path = OwnFilesFolder(s) + "merlu.mdb";
  if (!FileExists(path)) Plainly(s, [&] { CopyDatabase(WithSeparator(s.host.ProgramFolder()) + "mr.dbt", path); });
  return path;
}

std::string PathFromSettings(Session& s) {
  std::string path = s.host.Setting(kSettingSection, kSettingPath);
  if (path.empty()) return DefaultPath(s);
  // a value that names no database file gets the default name, with no separator
  if (path.size() < 4 || Lower(path.substr(path.size() - 4)) != ".mdb") path += "merlu.mdb";
  return path;
}

void ResetRun(Session& s) {
  s.version.clear();
  s.mode = Mode::kNone;
  s.message.clear();
  s.notices = {};
  s.unbacked_day.clear();
  s.began_empty = false;
  s.may_add_month = true;
  s.status_changes = -1;
  s.checked_descriptions.clear();
  s.unjudged_structures.clear();
  s.ended = s.editing = s.unreadable = s.save_failed = s.InSaveQC = false;
  s.year = s.last_month = 0;
  s.current = s.last_desc = s.last_actv = QCLocation();
  s.mode_changed_to_actv = s.mode_changed_to_desc = false;
  s.node_status.clear();
  s.status_text.clear();
  s.tree.Clear();
  s.tree.enabled = true;
}

// Asks for the operator of a file that has none yet; false when it was not given.
bool HasOperator(Session& s) {
  if (s.At("CO_COMPANY").HasRow()) return true;
  if (!ShowNewOperator(s, kFarewell)) return false;
  OpenCompanion(s);
  return true;
}

void UnloadForms(Session& s, const Form* kept) {
  for (Form* form : std::vector<Form*>(s.desk.showing.rbegin(), s.desk.showing.rend())) {
    if (form == kept) continue;
    s.desk.Hide(*form);
    form->loaded = false;
  }
}

// What a start whose open was cancelled shows: the main window, and nothing in it.
void ShowNoDatabase(Session& s) {
  UnloadForms(s, s.main);
  ResetRun(s);
  MakeMainForm(s);
  UpdateCommands(s);
}

void LoadMainForm(Session& s) {
  if (s.InActv())
    RefreshTree(s);
  else
    RefreshDescTree(s);
  if (s.ended || s.tree.nodes.empty()) return;
  if (s.tree.selected < 0) SelectRoot(s);  // a tree that broke off has selected nothing
  UpdateCommands(s);
  LockSheet(s);
}

}  // namespace

void Main(Session& s) {
  ResetRun(s);
  s.path = PathFromSettings(s);
  RemoveUnfinishedFiles(OwnFilesOf(s).notes);
  MakeMainForm(s);
  s.save_failed = false;
  if (OpenDatabaseAndCursors(s)) {
    const bool known = Plainly(s, [&] { HasOperator(s); });
    if (std::exchange(s.open_other, false)) return Main(s);
    if (s.ended) return;
    if (known)
      Plainly(s, [&] { SetStartMode(s); });
    else
      CloseDatabase(s);
    ShowNotices(s);
    RememberFile(s);
  }
  ShowRecentFiles(s);
  LoadMainForm(s);
  if (s.ended) return;
  s.desk.Show(*s.main);
  for (Form* form : std::vector<Form*>(s.desk.showing))
    if (form != s.main) s.desk.Show(*form);  // a sheet lies over the main window
  ReopenDocks(s);
  s.main->focus = names::tvwTree;
  ShowUndoCommands(s);
  ShowSplash(s);
  OfferDrafts(s);
}

void CloseDatabase(Session& s) {
  s.cursors.Close();
  s.companion.Close();
  s.db.Close();
  s.note.Release();
}

bool ReopenDatabase(Session& s) {
  CloseDatabase(s);
  if (OpenDatabaseAndCursors(s, false)) {
    if (s.mode != Mode::kNone) RebuildTree(s);
    return true;
  }
  if (!s.ended) ShowNoDatabase(s);
  return false;
}

void EndProgram(Session& s) {
  UnloadForms(s, nullptr);
  CloseDatabase(s);
  s.tree.Clear();
  s.ended = true;
}

bool CloseMainWindow(Session& s) {
  if (s.editing) {
    Tell(s, "Sorry, you may not end the program while in edit mode.", Icon::kWarning);
    return false;
  }
  EndProgram(s);
  return true;
}

void ExitProgram(Session& s) {
  CloseMainWindow(s);
}

}  // namespace merlu
