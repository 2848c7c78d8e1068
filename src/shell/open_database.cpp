#include "shell/open_database.h"

#include <filesystem>
#include <set>

#include "base/dates.h"
#include "base/host.h"
#include "base/text.h"
#include "history/layout.h"
#include "session/act.h"
#include "session/types.h"
#include "shell/messages.h"
#include "shell/program_end.h"
#include "store/engine.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kInUse = "Database may be in use.  Please close the database.";
constexpr const char* kCannotOpen =
    "Can't open MERLU database.  The database may be in use or may have been moved.  If the database had been in use, "
    "please press Retry. If the database has been moved, please press Cancel.";

// Every table of the file but the two that the start needs first.
std::vector<std::string> OtherTables() {
  std::vector<std::string> tables = {"PD_PLATFORM_DESC", "PA_PLATFORM_ACTV", "ED_EQUIP_DESC", "EA_EQUIP_ACTV", "QC",
                                     "QCInventory"};
  for (const EquipmentType& type : EquipmentTypes())
    if (type.has_activity) tables.push_back("EA_" + std::string(type.code));
  for (const EquipmentType& type : EquipmentTypes()) tables.push_back("ED_" + std::string(type.code));
  return tables;
}

void RequireTables(Session& s, const std::vector<std::string>& others) {
  std::vector<std::string> tables = {"SYS_CONFIG", "CO_COMPANY"};
  tables.insert(tables.end(), others.begin(), others.end());
  std::set<std::string> present;
  s.db.ForEach("SELECT name FROM sqlite_master WHERE type='table'", {},
               [&](const RowView& row) { present.insert(Lower(row.Text(0))); });
  for (const std::string& table : tables)
    if (!present.contains(Lower(table)))
      throw Fault(fault_number::kNoSuchTable, kStoreSource,
                  "The database engine cannot find the input table '" + table + "'.");
}

// A number from 0, which means Null, to the highest possible one, as loops count up to it.
int Within(Cursor& config, const char* column, int highest) {
  const std::int64_t number = ToInteger(config.Field(column));
  if (number >= 0 && number <= highest) return static_cast<int>(number);
  throw Fault(fault_number::kDamaged, kStoreSource,
              std::string("The database file is damaged (") + column + " is " + std::to_string(number) + ").");
}

void OpenConfiguration(Session& s) {
  s.cursors.Open(s.db, "SYS_CONFIG");
  Cursor& config = s.At("SYS_CONFIG");
  if (!config.HasRow()) {
    config.AddNew();
    config.Update();
    return;
  }
  s.year = Within(config, "sys_yr", 9999);
  s.last_month = Within(config, "SYS_MAX_MO", 12);
}

void OpenAll(Session& s) {
  const std::vector<std::string> tables = OtherTables();
  s.save_failed = false;
  if (!s.db.IsOpen()) s.db.Open(s.path);  // it is open after the look for what to repair
  RequireTables(s, tables);
  s.db.RecordChanges(RecordedCompanionTables());
  OpenConfiguration(s);
  s.cursors.Open(s.db, "CO_COMPANY");
  // under one lock instead of one for each table
  s.db.Alone([&] {
    for (const std::string& table : tables) s.cursors.Open(s.db, table);
  });
  s.activity_record = TreeRecord();
  // the first question for the operator is no step of its history
  if (s.At("CO_COMPANY").HasRow()) OpenCompanion(s);
}

// "Opened by anna on quay-7 since 14:02.", as far as the other program's note can be read.
std::string Sentence(const std::string& note, const DateTime& now) {
  const auto first = note.find('\t'), second = note.find('\t', first + 1);
  if (second == std::string::npos) return "";
  const std::string user = note.substr(0, first), machine = note.substr(first + 1, second - first - 1);
  const auto since = ParseDate(note.substr(second + 1));
  std::string text = "Opened";
  if (!user.empty()) text += " by " + user;
  if (!machine.empty()) text += " on " + machine;
  if (since) {
    const bool today = since->year == now.year && since->month == now.month && since->day == now.day;
    text += " since " + (today ? StoredDate(*since).substr(11, 5) : SheetDate(*since));
  }
  return text + ".";
}

// Puts this run's note on the file. A Fault when another run's is on it; `holder` gets whose.
void TakeNote(Session& s, std::string& holder) {
  const DateTime now = s.host.Now();
  std::string found;
  holder.clear();
  if (s.note.Take(s.path, host::UserName() + "\t" + host::MachineName() + "\t" + StoredDate(now), found)) return;
  holder = Sentence(found, now);
  throw Fault(fault_number::kInUse, kStoreSource, "The database is open in another run of this program.");
}

// A journal cannot be made in such a folder, so that every save would fail.
void TellReadOnlyFolder(Session& s) {
  const std::string folder = std::filesystem::path(s.path).parent_path().string();
  if (CanWriteFolder(folder.empty() ? "." : folder)) return;
  Tell(s,
       "The folder of the inventory cannot be written to:\n" + folder +
           "\nThe inventory can be looked at, but nothing can be saved.",
       Icon::kWarning);
}

// True when the user chooses to try again.
bool TellOpenFault(Session& s, const Fault& fault, const std::string& holder) {
  const bool in_use = fault.number == fault_number::kInUse || fault.number == fault_number::kInUseTable;
  const std::string text = std::string(in_use ? kInUse : kCannotOpen) + "\n\nError # " + std::to_string(fault.number) +
                           " was generated by " + fault.source + "\n\n" + fault.description;
  return Ask(s,
             {text, s.title, Icon::kWarning, {Button::kRetry, Button::kCancel}, 0, holder.empty() ? s.path : holder}) ==
         Button::kRetry;
}

// After a backup has failed.
bool ContinuesWithoutBackup(Session& s, const Fault& fault) {
  TellOfFile(s, "No backup could be made: " + fault.description, s.path, Icon::kWarning);
  return AskUser(s, "Go on without a backup?", {Button::kYes, Button::kNo}, Icon::kWarning) == Button::kYes;
}

void Ignoring(Database& db, const char* sql) {
  try {
    db.Execute(sql);
  } catch (const Fault&) {
    // each statement of the repair runs whether or not the one before it succeeded
  }
}

// The connection stays open, unless the file could not be opened.
void RepairThrough(Session& s, Database& db) {
  bool repaired = true;
  Plainly(
      s,
      [&] {
        db.Open(s.path);
        repaired = db.HasTable("QC_XREF");
      },
      s.path);
  if (repaired) return;
  try {
    for (const char* table : {"QC", "PD_PLATFORM_DESC", "ED_EQUIP_DESC", "SYS_CONFIG", "CO_COMPANY"})
      if (!db.HasTable(table)) return;
    const WriteBatch batch(db);
    Ignoring(db, "CREATE TABLE QC_XREF (StructID TEXT COLLATE NOCASE, EquipID TEXT COLLATE NOCASE)");
    Ignoring(db, "CREATE INDEX StructID ON QC_XREF (StructID)");
    Ignoring(db, "CREATE INDEX EquipID ON QC_XREF (EquipID)");
    Ignoring(db,
             "INSERT INTO QC_XREF (StructID,EquipID) SELECT DISTINCT PD_PLATFORM_DESC.STRUCT_NUM, "
             "ED_EQUIP_DESC.ED_MERLU_EQUIP_ID FROM PD_PLATFORM_DESC, ED_EQUIP_DESC "
             "WHERE PD_PLATFORM_DESC.PD_ID_AK = ED_EQUIP_DESC.PD_ID_AK");
    Ignoring(db,
             "DELETE FROM QC WHERE NOT EXISTS (SELECT 1 FROM QC_XREF WHERE QC_XREF.StructID = QC.StructID AND "
             "QC_XREF.EquipID = QC.EquipID)");
    Ignoring(db, "DELETE FROM QC WHERE [Desc]='Value exceeded by equipment sum'");
  } catch (const Fault&) {
    // the open that follows reports the failure
  }
}

}  // namespace

bool OpenDatabaseAndCursors(Session& s, bool repair) {
  s.continues_without_backup = [&s](const Fault& fault) { return ContinuesWithoutBackup(s, fault); };
  std::string holder;
  for (bool first = repair;; first = false) {
    try {
      TakeNote(s, holder);
      if (first) RepairThrough(s, s.db);
      OpenAll(s);
      TellReadOnlyFolder(s);
      return true;
    } catch (const Fault& fault) {
      CloseDatabase(s);
      if (!TellOpenFault(s, fault, holder)) return false;
    }
  }
}

void RepairOnFirstOpen(Session& s) {
  Database db;
  RepairThrough(s, db);
}

}  // namespace merlu
