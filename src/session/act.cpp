#include "session/act.h"

#include <algorithm>

#include "base/host.h"
#include "history/backups.h"
#include "session/folders.h"
#include "session/main_names.h"
#include "session/place.h"
#include "store/files.h"

namespace merlu {
namespace {

StepTitle TitleOf(Session& s, const std::string& what) {
  StepTitle title;
  title.when = StoredDate(s.host.Now());
  title.who = host::UserName();
  title.what = what;
  title.from = title.to = PackLocation(s.current, s.mode);
  return title;
}

// Empty while the file cannot be read: the act itself shows why.
std::string ReadablePlace(Session& s) {
  try {
    return s.db.IsOpen() ? PlaceText(s.db, s.current) : "";
  } catch (const Fault&) {
    return "";
  }
}

}  // namespace

Act::Act(Session& s, const std::string& what) : s_(s) {
  StepTitle title;
  if (!s.companion.InStep()) {
    may_write_ = BackUpOnceADay(s);
    title = TitleOf(s, what);
    title.place = ReadablePlace(s);
  }
  s.companion.BeginStep(std::move(title));
}

Act::Act(Session& s, const std::string& what, const std::string& place, const QCLocation& to) : s_(s) {
  if (!s.companion.InStep()) may_write_ = BackUpOnceADay(s);
  StepTitle title = TitleOf(s, what);
  title.place = place;
  title.to = PackLocation(to, s.mode);
  s.companion.BeginStep(std::move(title));
}

Act::~Act() {
  s_.companion.EndStep();
  if (s_.companion.InStep()) return;
  ShowUndoCommands(s_);
  if (const std::string news = s_.companion.TakeNews(); !news.empty()) s_.message = news;
}

namespace {

void ShowCommand(Session& s, const char* name, const char* word, const std::optional<HistoryStep>& step) {
  Control* command = s.main->Find(name);
  if (command == nullptr) return;
  command->caption = step ? std::string(word) + " " + step->title.what : word;
  command->enabled = step.has_value();
}

}  // namespace

void ShowUndoCommands(Session& s) {
  if (s.main == nullptr) return;
  std::optional<HistoryStep> undo, redo;
  try {
    undo = NextUndo(s.companion);
    redo = NextRedo(s.companion);
  } catch (const Fault&) {
    // a companion that cannot be read now offers nothing
  }
  ShowCommand(s, names::mnuEUndo, "Undo", undo);
  ShowCommand(s, names::mnuERedo, "Redo", redo);
}

void OpenCompanion(Session& s) {
  s.companion.Open(s.db, [&s] { return TitleOf(s, "Change"); });
  if (const std::string news = s.companion.TakeNews(); !news.empty()) s.message = news;
}

namespace {

std::string Today(Session& s) {
  return StoredDate(s.host.Now()).substr(0, 10);
}

}  // namespace

void BackUp(Session& s, const std::string& why) {
  MakeBackup(s.db, OwnFilesOf(s), s.host.Now(), why, s.host.FreeBytes(FolderOf(s.path)));
}

namespace {

bool GoesOnWithout(Session& s, const Fault& fault) {
  if (!s.continues_without_backup || !s.continues_without_backup(fault)) return false;
  s.unbacked_day = Today(s);  // nor is a backup needed before the first write of the day
  return true;
}

// The write that the backup is made for will meet the same lock, or miss the same file, and report it.
bool IsMetByTheWrite(const Fault& fault) {
  return fault.number == fault_number::kInUse || fault.number == fault_number::kInUseTable ||
         fault.number == fault_number::kPathNotFound;
}

}  // namespace

bool BackUpOrAsk(Session& s, const std::string& why) {
  if (!s.db.IsOpen() || s.db.InBatch()) return true;
  try {
    BackUp(s, why);
    return true;
  } catch (const Fault& fault) {
    return GoesOnWithout(s, fault);
  }
}

bool BackUpOnceADay(Session& s) {
  if (!s.db.IsOpen() || s.db.InBatch()) return true;
  const std::string today = Today(s);
  if (s.unbacked_day == today) return true;
  const std::vector<Backup> backups = Backups(s.path);
  const bool made = std::any_of(backups.begin(), backups.end(),
                                [&](const Backup& backup) { return StoredDate(backup.when).substr(0, 10) == today; });
  if (made) return true;
  try {
    BackUp(s, backup_reason::kDay);
  } catch (const Fault& fault) {
    if (IsMetByTheWrite(fault)) return true;  // the backup is then made before the next write
    if (!GoesOnWithout(s, fault)) return false;
  }
  s.unbacked_day = today;
  return true;
}

}  // namespace merlu
