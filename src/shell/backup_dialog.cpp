#include "shell/backup_dialog.h"

#include <cmath>

#include "base/host.h"
#include "base/numbers.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "history/backups.h"
#include "session/act.h"
#include "session/place.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/messages.h"
#include "shell/undo.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kList = names::lvwBAK_List;

std::string Count(Database& db, const char* sql) {
  return std::to_string(ToInteger(db.Single(sql)));
}

// "12 KB", "1.5 MB": a file of any size has at least 1 KB.
std::string SizeText(std::uint64_t bytes) {
  constexpr double kStep = 1024, kTenth = 10;
  double size = std::ceil(static_cast<double>(bytes) / kStep);
  if (size < kStep) return GeneralNumber(size) + " KB";
  const char* unit = " MB";
  size = static_cast<double>(bytes) / kStep / kStep;
  if (size >= kStep) {
    unit = " GB";
    size /= kStep;
  }
  return GeneralNumber(std::round(size * kTenth) / kTenth) + unit;
}

// What a backup holds; blanks where it cannot be read.
RowsModel::Row RowOf(const Backup& backup) {
  RowsModel::Row row = {StoredDate(backup.when), backup.why, SizeText(FileSize(backup.path)), "", "", ""};
  try {
    Database db;
    db.OpenReadOnly(backup.path);
    row[3] = Count(db, "SELECT SYS_MAX_MO FROM SYS_CONFIG ORDER BY rowid LIMIT 1");
    row[4] = Count(db, "SELECT COUNT(*) FROM PD_PLATFORM_DESC");
    row[5] = Count(db, "SELECT COUNT(*) FROM ED_EQUIP_DESC");
  } catch (const Fault&) {
    // it shows without its counts
  }
  return row;
}

RowsModel& ModelOf(Form& form) {
  return static_cast<RowsModel&>(*form.At(kList).model);
}

void Fill(Session& s, Form& form) {
  std::vector<RowsModel::Row> rows;
  for (const Backup& backup : Backups(s.path)) rows.push_back(RowOf(backup));
  ModelOf(form).Set(std::move(rows));
  form.At(kList).picked.clear();
}

void Make(Session& s, Form& form) {
  const Busy busy(s);
  if (Plainly(s, [&] { BackUp(s, backup_reason::kByHand); })) s.message = "Backup made";
  Fill(s, form);
}

StepTitle RestoreTitle(Session& s, const Backup& backup) {
  StepTitle title;
  title.when = StoredDate(s.host.Now());
  title.who = host::UserName();
  title.what = "Backup restored";
  title.place = "Backup of " + StoredDate(backup.when);
  title.from = title.to = PackLocation(s.current, s.mode);
  return title;
}

void Restore(Session& s, Form& form) {
  const std::vector<int>& picked = form.At(kList).picked;
  const std::vector<Backup> backups = Backups(s.path);
  if (picked.empty()) return Tell(s, "Please select a backup.");
  const std::size_t at = ModelOf(form).Origin(picked.front());
  if (at >= backups.size()) return Fill(s, form);
  const Backup backup = backups[at];
  const std::string question =
      "Restore the backup of " + StoredDate(backup.when) +
      "?\n\nEverything that was changed since will be as it was then. What is there now is backed "
      "up first.";
  if (AskUser(s, question, {Button::kYes, Button::kNo}) != Button::kYes) return;
  if (!BackUpOrAsk(s, backup_reason::kRestore)) return Fill(s, form);
  const Busy busy(s);
  if (Plainly(s, [&] { RestoreBackup(s.db, s.companion, backup.path, RestoreTitle(s, backup)); })) {
    s.message = "Backup restored";
    ShowPlaceAgain(s, PackLocation(s.current, s.mode));
    ShowUndoCommands(s);
  }
  Fill(s, form);
}

}  // namespace

Form& BackupDialog(Session& s) {
  return DialogForm(s, names::frmBackups, "Backups", [&s](Form& form) {
    AddListView(form, kList, "Backups", {"When", "Why", "Size", "Months", "Structures", "Equipment"},
                std::make_shared<RowsModel>())
        .many = false;
    AddButton(form, names::cmdBAK_Make, "Back Up Now");
    AddButton(form, names::cmdBAK_Restore, "Restore...");
    AddButton(form, names::cmdClose, "Close");
    form.cancel_button = names::cmdClose;
    form.On(names::cmdBAK_Make, Event::kClick, [&s, &form] { Make(s, form); });
    form.On(names::cmdBAK_Restore, Event::kClick, [&s, &form] { Restore(s, form); });
  });
}

void OpenBackups(Session& s) {
  Form& form = BackupDialog(s);
  Fill(s, form);
  form.focus = kList;
  OpenDialog(s, form);
}

}  // namespace merlu
