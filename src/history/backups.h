// Whole copies of an inventory, in the folder "<inventory> backups" beside it, under the time and the reason:
// "2017-03-05 140207 before import.mdb". A backup is sound or is not there.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/dates.h"
#include "store/database.h"
#include "store/new_file.h"

namespace merlu {

namespace backup_reason {
inline constexpr const char* kImport = "before import";
inline constexpr const char* kDeletion = "before deletion";
inline constexpr const char* kRestore = "before restore";
inline constexpr const char* kDay = "first change of the day";
inline constexpr const char* kByHand = "by hand";
}  // namespace backup_reason

struct Backup {
  std::string path;
  DateTime when;
  std::string why;
  std::int64_t written = 0;  // the file's modification time, to order those of the same second
  int number = 1;            // after the reason in the name
};

std::string BackupFolder(const std::string& inventory);
// Newest first. Files with other names are no backups.
std::vector<Backup> Backups(const std::string& inventory);

// Copies what is committed, outside a batch, and deletes the backups that are outdated, never the new one. Returns its
// path. A fault when the copy cannot be made; `free_bytes` is the room on the disk.
std::string MakeBackup(Database& db, const OwnFiles& own, const DateTime& now, const std::string& why,
                       std::uint64_t free_bytes);

// Of these, newest first, the ones that go: kept are the last 10, the newest of each of the last 7 days and of each of
// the last 12 months.
std::vector<Backup> Outdated(const std::vector<Backup>& backups, const DateTime& now);

// Replaces the rows of every table by those of the backup, in one commit. Older steps cannot be undone after that.
struct StepTitle;
class Companion;
void RestoreBackup(Database& db, Companion& companion, const std::string& path, const StepTitle& title);

}  // namespace merlu
