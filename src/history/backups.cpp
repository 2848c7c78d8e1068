#include "history/backups.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <set>
#include <tuple>

#include "history/companion.h"
#include "history/layout.h"
#include "store/files.h"

namespace merlu {
namespace fs = std::filesystem;
namespace {

constexpr const char* kSource = "MERLU backup";
constexpr std::size_t kTimeLength = 17;  // "2017-03-05 140207"
constexpr const char* kExtension = ".mdb";

std::string TimeInName(const DateTime& t) {
  std::array<char, 96> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d%02d%02d", t.year, t.month, t.day, t.hour, t.minute,
                t.second);
  return text.data();
}

// The number of a second one of that second is no part of the reason.
void TakeNumber(Backup& backup) {
  const std::size_t blank = backup.why.find_last_of(' ');
  if (blank == std::string::npos || blank + 1 == backup.why.size()) return;
  const std::string number = backup.why.substr(blank + 1);
  if (number.size() > 6 || number.find_first_not_of("0123456789") != std::string::npos) return;
  backup.number = std::stoi(number);
  backup.why.resize(blank);
}

// Of a file of ours; false for any other.
bool ReadName(const std::string& name, Backup& backup) {
  if (name.size() < kTimeLength + 2 + 4 || !name.ends_with(kExtension) || name[kTimeLength] != ' ') return false;
  const std::string time = name.substr(0, kTimeLength);
  const auto date = ParseDate(time.substr(0, 13) + ":" + time.substr(13, 2) + ":" + time.substr(15, 2));
  if (!date || TimeInName(*date) != time) return false;
  backup.when = *date;
  backup.why = name.substr(kTimeLength + 1, name.size() - kTimeLength - 5);
  TakeNumber(backup);
  return true;
}

std::string FreeName(const std::string& folder, const DateTime& now, const std::string& why) {
  const std::string stem = WithSeparator(folder) + TimeInName(now) + " " + why;
  std::string path = stem + kExtension;
  for (int count = 2; FileExists(path); ++count) path = stem + " " + std::to_string(count) + kExtension;
  return path;
}

std::chrono::sys_days DayOf(const DateTime& t) {
  return std::chrono::year{t.year} / t.month / t.day;
}

void RequireSound(const std::string& path) {
  Database copy;
  copy.Open(path);
  if (const std::string found = NullToEmpty(copy.Single("PRAGMA quick_check(1)")); found != "ok")
    throw Fault(fault_number::kDamaged, kSource, "The database file is damaged (" + found + ").");
}

std::string CopyIntoFreeName(Database& db, const OwnFiles& own, const std::string& folder, const DateTime& now,
                             const std::string& why) {
  constexpr int kMostTries = 20;
  for (int tries = 1;; ++tries) {
    const std::string name = FreeName(folder, now, why);
    try {
      MakeFile(own, name, [&](const std::string& path) {
        db.CopyTo(path);
        RequireSound(path);
      });
      return name;
    } catch (const Fault&) {
      const bool is_taken = FileExists(name);  // by another program, meanwhile
      if (!is_taken || tries == kMostTries) throw;
    }
  }
}

}  // namespace

std::string BackupFolder(const std::string& inventory) {
  return inventory + " backups";
}

std::vector<Backup> Backups(const std::string& inventory) {
  std::vector<Backup> backups;
  std::error_code error;
  for (fs::directory_iterator at(BackupFolder(inventory), error), end; !error && at != end; at.increment(error)) {
    Backup backup{.path = at->path().string()};
    std::error_code ignored;
    backup.written = at->last_write_time(ignored).time_since_epoch().count();
    if (at->is_regular_file(ignored) && ReadName(at->path().filename().string(), backup))
      backups.push_back(std::move(backup));
  }
  std::sort(backups.begin(), backups.end(), [](const Backup& a, const Backup& b) {
    const std::string first = TimeInName(a.when), second = TimeInName(b.when);
    return std::tie(first, a.written, a.number) > std::tie(second, b.written, b.number);
  });
  return backups;
}

std::vector<Backup> Outdated(const std::vector<Backup>& backups, const DateTime& now) {
  constexpr std::size_t kLast = 10;
  constexpr int kDays = 7, kMonths = 12;
  std::set<long> days;
  std::set<int> months;
  std::vector<Backup> outdated;
  for (std::size_t i = 0; i < backups.size(); ++i) {
    const DateTime& t = backups[i].when;
    const long day = (DayOf(now) - DayOf(t)).count();
    const int month = (now.year - t.year) * 12 + now.month - t.month;
    const bool of_day = day < kDays && days.insert(day).second;
    const bool of_month = month < kMonths && months.insert(month).second;
    if (i >= kLast && !of_day && !of_month) outdated.push_back(backups[i]);
  }
  return outdated;
}

std::string MakeBackup(Database& db, const OwnFiles& own, const DateTime& now, const std::string& why,
                       std::uint64_t free_bytes) {
  const std::string inventory = db.path(), folder = BackupFolder(inventory);
  if (free_bytes < FileSize(inventory))
    throw Fault(fault_number::kDiskFull, kSource, "There is not enough room on the disk for a backup.");
  std::error_code error;
  fs::create_directory(folder, error);  // that alone: not the folder of a disk that was taken out
  if (error == std::errc::no_such_file_or_directory)
    throw Fault(fault_number::kPathNotFound, kSource, "The database file has been moved or deleted.");
  if (error) FailFile(folder, error.value());
  const std::string made = CopyIntoFreeName(db, own, folder, now, why);
  // after the clock was set back the others are newer by their names
  for (const Backup& backup : Outdated(Backups(inventory), now))
    if (backup.path != made) fs::remove(backup.path, error);
  return made;
}

void RestoreBackup(Database& db, Companion& companion, const std::string& path, const StepTitle& title) {
  RequireSound(path);
  Database backup;
  backup.OpenReadOnly(path);
  for (const RecordedTable& table : *db.recorder().tables())
    if (!table.IsAttached() && !backup.HasTable(table.name))
      throw Fault(fault_number::kNotADatabase, kSource,
                  "The backup is no inventory: it has no table " + table.name + ".");
  const Database::Attached source(db, backup, "source");
  const WithoutRelations loose(db);
  companion.Pause();
  try {
    WriteBatch batch(db);
    AllOrNothing whole(db);
    for (const RecordedTable& table : *db.recorder().tables()) {
      if (table.IsAttached()) continue;
      std::string columns;
      for (std::size_t i = 0; i < table.columns.size(); ++i)
        if (static_cast<int>(i) != table.key) columns += ",[" + table.columns[i] + "]";
      db.Execute("DELETE FROM main.[" + table.name + "]");
      db.Execute("INSERT INTO main.[" + table.name + "] (rowid" + columns + ") SELECT rowid" + columns +
                 " FROM source.[" + table.name + "] ORDER BY rowid");
    }
    if (companion.IsAttached()) {
      db.Execute("UPDATE history.step SET state=3 WHERE state=1");
      db.Execute(
          "INSERT INTO history.step (made_at,who,what,place,stood_at,stands_at,shown,bytes,state) VALUES "
          "(?,?,?,?,?,?,0,0,?)",
          {title.when, title.who, title.what, title.place, title.from, title.to, std::int64_t{step_state::kEndsUndo}});
    }
    whole.Keep();
    batch.Commit();
  } catch (const Fault&) {
    companion.Resume();
    throw;
  }
  companion.Resume();
}

}  // namespace merlu
