#include "shell/open_database.h"

#include <filesystem>

#include "base/dates.h"
#include "base/text.h"
#include "history/layout.h"
#include "session/act.h"
#include "session/messages.h"
#include "session/types.h"
#include "shell/program_end.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kFarewell = "Sorry, cannot proceed without User Information - MERLU is shutting down now...";
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

void RequireTables(Session& s, const std::vector<std::string>& tables) {
  for (const std::string& table : tables)
    if (!s.db.HasTable(table))
      throw Fault(fault_number::kNoSuchTable, "MERLU store",
                  "The database engine cannot find the input table '" + table + "'.");
}

// A number from 0, which stands for Null, to the highest that there can be: it is counted up to.
int Within(Cursor& config, const char* column, int highest) {
  const std::int64_t number = ToInteger(config.Field(column));
  if (number >= 0 && number <= highest) return static_cast<int>(number);
  throw Fault(fault_number::kDamaged, "MERLU store",
              std::string("The database file is damaged (") + column + " is " + std::to_string(number) + ").");
}

void OpenConfiguration(Session& s) {
  s.cursors.Open(s.db, "SYS_CONFIG");
  Cursor& config = s.At("SYS_CONFIG");
  if (config.EOF_()) {
    config.AddNew();
    config.Update();
    return;
  }
  s.year = Within(config, "sys_yr", 9999);
  s.last_month = Within(config, "SYS_MAX_MO", 12);
}

// False when the first run was cancelled.
bool OpenAll(Session& s) {
  const std::vector<std::string> tables = OtherTables();
  s.save_failed = false;
  s.db.Open(s.path);
  RequireTables(s, {"SYS_CONFIG", "CO_COMPANY"});
  RequireTables(s, tables);
  s.db.RecordChanges(RecordedCompanionTables());
  OpenConfiguration(s);
  s.cursors.Open(s.db, "CO_COMPANY");
  if (s.At("CO_COMPANY").EOF_() && !ShowNewOperator(s, kFarewell)) return false;
  for (const std::string& table : tables) s.cursors.Open(s.db, table);
  s.activity_record = TreeRecord();
  OpenCompanion(s);
  return true;
}

// "Opened by anna on quay-7 since 14:02.", as far as the other program's note tells it.
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

// Puts this run's note on the file. When another run's is on it, a Fault, and `holder` says whose.
void TakeNote(Session& s, std::string& holder) {
  const DateTime now = s.platform.Now();
  std::string found;
  holder.clear();
  if (s.note.Take(s.path, UserName() + "\t" + MachineName() + "\t" + StoredDate(now), found)) return;
  holder = Sentence(found, now);
  throw Fault(fault_number::kInUse, "MERLU store", "The database is open in another run of this program.");
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

// True when the user wants to try again.
bool TellOpenFault(Session& s, const Fault& fault, const std::string& holder) {
  const bool in_use = fault.number == fault_number::kInUse || fault.number == fault_number::kInUseTable;
  const std::string text = std::string(in_use ? kInUse : kCannotOpen) + "\n\nError # " + std::to_string(fault.number) +
                           " was generated by " + fault.source + "\n\n" + fault.description;
  return s.platform.Ask({text, s.title, Icon::kWarning, {Button::kRetry, Button::kCancel}, holder}) == Button::kRetry;
}

void Ignoring(Database& db, const char* sql) {
  try {
    db.Execute(sql);
  } catch (const Fault&) {
    // each statement of the repair runs whether or not the one before it succeeded
  }
}

}  // namespace

bool OpenDatabaseAndCursors(Session& s) {
  std::string holder;
  for (bool first = true;; first = false) {
    try {
      TakeNote(s, holder);
      if (first) RepairOnFirstOpen(s);
      if (!OpenAll(s)) return false;
      TellReadOnlyFolder(s);
      return true;
    } catch (const Fault& fault) {
      CloseDatabase(s);
      if (!TellOpenFault(s, fault, holder)) return false;
    }
  }
}

void RepairOnFirstOpen(Session& s) {
  bool repaired = true;
  Plainly(s, [&] { repaired = TableExists(s.path, "QC_XREF"); });
  if (repaired) return;
  try {
    Database db;
    db.Open(s.path);
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
    // the open that follows tells what is wrong with the file
  }
}

}  // namespace merlu
