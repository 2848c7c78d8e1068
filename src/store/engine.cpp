#include "store/engine.h"

#include <sqlite3.h>

#include <cerrno>
#include <system_error>

#include "base/fault.h"
#include "base/text.h"
#include "store/database.h"
#include "store/named_tables.h"

namespace merlu {
namespace {

constexpr const char* kSource = kStoreSource;
constexpr int kLongestForeignValue = 64'000'000;  // also of a row that is sorted

std::string Described(int number, const std::string& message) {
  switch (number) {
    case fault_number::kInUseTable: return "The database is locked by another program.";
    case fault_number::kNotADatabase: return "The file is not a MERLU database.";
    case fault_number::kDamaged: return "The database file is damaged (" + message + ").";
    case fault_number::kDiskFullStore: return "There is not enough room on the disk for the database.";
    case fault_number::kReadOnly: return "The database file is read-only.";
    case fault_number::kOverflow: return "A record of the file is too large to be read.";
    default: return message;
  }
}

int CompareAsIds(void*, int a_size, const void* a, int b_size, const void* b) {
  return CompareIds({static_cast<const char*>(a), static_cast<std::size_t>(a_size)},
                    {static_cast<const char*>(b), static_cast<std::size_t>(b_size)});
}

}  // namespace

int FaultNumber(int extended) {
  switch (extended) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID: return fault_number::kDuplicateKey;
    case SQLITE_CONSTRAINT_FOREIGNKEY: return fault_number::kReference;
    default: break;
  }
  switch (extended & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return fault_number::kInUseTable;
    case SQLITE_NOTADB: return fault_number::kNotADatabase;
    case SQLITE_CORRUPT: return fault_number::kDamaged;
    case SQLITE_FULL: return fault_number::kDiskFullStore;
    case SQLITE_READONLY: return fault_number::kReadOnly;
    case SQLITE_CANTOPEN: return fault_number::kPathNotFound;
    case SQLITE_TOOBIG: return fault_number::kOverflow;
    default: break;
  }
  return fault_number::kOther;
}

void FailWith(int code, const std::string& message) {
  const int number = FaultNumber(code);
  throw Fault(number, kSource, Described(number, message));
}

void ThrowFailedDisk(int code, int system) {
  const int kind = code & 0xFF;
  if ((kind != SQLITE_IOERR && kind != SQLITE_CANTOPEN) || system == 0) return;
  const std::string why = " (" + std::generic_category().message(system) + ").";
  if (system == ENOSPC || system == EDQUOT)
    throw Fault(fault_number::kDiskFullStore, kSource, "There is not enough room on the disk for the database.");
  const bool is_protected = system == EPERM || system == EACCES || system == EROFS;
  const char* what = kind == SQLITE_CANTOPEN ? (is_protected ? "The folder of the database cannot be written to"
                                                             : "The journal of the database could not be opened")
                     : is_protected          ? "The database file cannot be written to"
                                             : "The database file could not be read or written";
  throw Fault(is_protected ? fault_number::kReadOnly : fault_number::kOther, kSource, what + why);
}

void ThrowMisunderstood(sqlite3* db, std::string_view sql, const std::string& message) {
  if (LacksNamedTable(db, sql)) throw Fault(fault_number::kNoSuchTable, kSource, message);
  const bool no_column = message.starts_with("no such column");
  throw Fault(no_column ? fault_number::kNoSuchItem : fault_number::kOther, kSource, message);
}

void CountNoMemory() {
  sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

void RunNothingOfTheFile(sqlite3* db) {
  for (int switched_off : {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_TRIGGER})
    sqlite3_db_config(db, switched_off, 0, nullptr);
}

void Distrust(sqlite3* db) {
  sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_limit(db, SQLITE_LIMIT_LENGTH, kLongestForeignValue);
  sqlite3_exec(db, "PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; PRAGMA query_only=ON", nullptr, nullptr, nullptr);
}

void AddIdCollation(sqlite3* db) {
  sqlite3_create_collation_v2(db, kSameId, SQLITE_UTF8, nullptr, CompareAsIds, nullptr);
}

}  // namespace merlu
