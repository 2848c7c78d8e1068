#include "exchange/structure_import.h"

#include <string>

#include "exchange/import_file.h"
#include "records/survey_record.h"
#include "session/messages.h"
#include "session/records.h"
#include "session/types.h"

namespace merlu {
namespace {

// The old keys of staged rows and their ranks: a row's new key is the next free key plus its rank. The
// working tables may still grow while rows are staged, so the next free key is read last.
constexpr const char* kStructureKeys = "structure_key";
constexpr const char* kEquipmentKeys = "equipment_key";
constexpr const char* kMonthKeys = "month_key";

// ---- refusals ----

void EmptyStaging(Database& db) {
  for (const std::string& table : ImportTables()) db.Execute("DELETE FROM H_" + table);
}

bool IsSameYear(Session& s, Database& file) {
  constexpr const char* kYear = "SELECT sys_yr FROM SYS_CONFIG";
  const std::string theirs = NullToEmpty(file.Single(kYear)), ours = NullToEmpty(s.db.Single(kYear));
  if (theirs == ours) return true;
  Tell(s, "Inventory Year of Import File (" + theirs + ") does not match your database (" + ours + ").");
  return false;
}

bool IsNew(Session& s, const std::vector<StructureName>& chosen) {
  for (const StructureName& name : chosen) {
    const Value hit = s.db.Single(
        "SELECT 1 FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM=? COLLATE SAME_ID "
        "AND STRUCT_NUM=? COLLATE SAME_ID",
        {name.complex, name.structure});
    if (IsNull(hit)) continue;
    Tell(s, "RIMA Structure ID already exists in database - import cancelled.");
    return false;
  }
  return true;
}

// ---- staging ----

void MakeKeyTable(Database& db, const std::string& name) {
  db.Execute("DROP TABLE IF EXISTS temp." + name);
  db.Execute("CREATE TEMP TABLE " + name + " (old INTEGER PRIMARY KEY, rank INTEGER)");
}

// The keys of a staged table in its order.
void RankKeys(Database& db, const char* keys, const std::string& table, const std::string& column) {
  MakeKeyTable(db, keys);
  db.Execute(std::string("INSERT INTO temp.") + keys + " SELECT " + column +
             ",ROW_NUMBER() OVER (ORDER BY rowid)-1 FROM main.H_" + table + " ORDER BY rowid");
}

// Stages the file's rows whose key stands among the keys, in the file's order.
void Stage(Database& db, const std::string& table, const char* keys, const std::string& column) {
  db.Execute("INSERT INTO main.H_" + table + " SELECT f.* FROM source." + table +
             " AS f WHERE EXISTS (SELECT 1 FROM temp." + keys + " WHERE old=f." + column + ") ORDER BY f.rowid");
}

void RankStructures(Database& db, const std::vector<StructureName>& chosen) {
  MakeKeyTable(db, kStructureKeys);
  std::int64_t rank = 0;
  for (const StructureName& name : chosen) {
    const Value old = db.Single(
        "SELECT PD_ID_AK FROM source.PD_PLATFORM_DESC WHERE CMPLX_ID_NUM=? COLLATE SAME_ID AND STRUCT_NUM=? COLLATE "
        "SAME_ID ORDER BY PD_ID_AK LIMIT 1",
        {name.complex, name.structure});
    if (!IsNull(old)) db.Execute("INSERT OR REPLACE INTO temp.structure_key VALUES (?,?)", {old, rank++});
  }
}

void StageStructures(Session& s, const std::vector<StructureName>& chosen) {
  RankStructures(s.db, chosen);
  const std::vector<std::string>& tables = ImportTables();
  const int total = static_cast<int>(tables.size()) * 2;
  for (std::size_t i = 0; i < tables.size(); ++i) {
    const std::string& table = tables[i];
    Progress(s, "Reading " + table, static_cast<int>(i), total);
    if (i < 3)
      Stage(s.db, table, kStructureKeys, "PD_ID_AK");
    else if (i < 20)
      Stage(s.db, table, kEquipmentKeys, "ED_ID_AK");
    else
      Stage(s.db, table, kMonthKeys, "EA_ID_AK");
    if (i == 2) RankKeys(s.db, kEquipmentKeys, table, "ED_ID_AK");
    if (i == 3) RankKeys(s.db, kMonthKeys, table, "EA_ID_AK");
  }
}

// ---- months ----

int LastStagedMonth(Database& db) {
  return static_cast<int>(ToInteger(db.Single("SELECT MAX(PA_MO) FROM H_PA_PLATFORM_ACTV")));
}

void AddMissingMonths(Session& s, int last) {
  if (last <= s.last_month) return;
  Tell(s, std::to_string(last) + " months in import file. Adding months to inventory");
  while (s.last_month < last) AddMonthRows(s);
}

// Empty rows for the months that the inventory has and the file lacks: structure by structure, then equipment
// by equipment. A new row of equipment is known by a negative key until it moves.
void ExtendMonths(Session& s, int last) {
  if (last >= s.last_month) return;
  Database& db = s.db;
  const std::string months = "WITH RECURSIVE months(month) AS (SELECT " + std::to_string(last + 1) +
                             " UNION ALL SELECT month+1 FROM months WHERE month<" + std::to_string(s.last_month) + ") ";
  const Value year = std::int64_t{s.year};
  db.Execute(months +
                 "INSERT INTO H_PA_PLATFORM_ACTV (PD_ID_AK,PA_YR,PA_MO) SELECT p.PD_ID_AK,?,month FROM "
                 "H_PD_PLATFORM_DESC AS p CROSS JOIN months ORDER BY p.rowid,month",
             {year});
  const Value staged = db.Single("SELECT COUNT(*) FROM temp.month_key");
  db.Execute(months +
                 "INSERT INTO H_EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_YR,EA_MO,EA_EQUIP_TYP) SELECT "
                 "-(?+ROW_NUMBER() OVER (ORDER BY e.rowid,month)),e.ED_ID_AK,?,month,e.ED_EQUIP_TYP FROM "
                 "H_ED_EQUIP_DESC AS e CROSS JOIN months ORDER BY e.rowid,month",
             {staged, year});
  db.Execute("INSERT INTO temp.month_key SELECT EA_ID_AK,-EA_ID_AK-1 FROM H_EA_EQUIP_ACTV WHERE EA_ID_AK<0");
  for (const EquipmentType& type : EquipmentTypes()) {
    if (!type.has_activity) continue;
    const std::string code(type.code);
    db.Execute("INSERT INTO H_EA_" + code +
                   " (EA_ID_AK) SELECT EA_ID_AK FROM H_EA_EQUIP_ACTV WHERE EA_ID_AK<0 AND EA_EQUIP_TYP=? COLLATE "
                   "NOCASE ORDER BY rowid",
               {code});
  }
}

// ---- moving ----

void AdoptIdentity(Session& s) {
  const Value operator_number = s.db.Single("SELECT RIMA_CO_NUM FROM CO_COMPANY");
  const Value year = s.db.Single("SELECT sys_yr FROM SYS_CONFIG");
  s.db.Execute("UPDATE H_PD_PLATFORM_DESC SET RIMA_CO_NUM=?", {operator_number});
  s.db.Execute("UPDATE H_PA_PLATFORM_ACTV SET PA_YR=?", {year});
  s.db.Execute("UPDATE H_EA_EQUIP_ACTV SET EA_YR=?", {year});
}

struct NextKeys {
  std::int64_t structure, structure_month, equipment, month;
};

std::int64_t NextKey(Database& db, const char* column, const char* table) {
  return KeyAfter(ToInteger(db.Single(std::string("SELECT MAX(") + column + ") FROM " + table)));
}

// The staged row with its new keys, and what the statement takes them from.
struct Renumbered {
  std::string columns, joins;
  Values values;
};

Renumbered Renumber(const std::vector<std::string>& columns, const NextKeys& next) {
  Renumbered row;
  const auto take = [&row](const char* keys, const char* name, const std::string& column, std::int64_t first) {
    row.columns += std::string("?+") + name + ".rank";
    row.joins += std::string(" CROSS JOIN temp.") + keys + " AS " + name + " ON " + name + ".old=h." + column;
    row.values.emplace_back(first);
  };
  for (const std::string& column : columns) {
    if (!row.columns.empty()) row.columns += ",";
    if (column == "PD_ID_AK") {
      take(kStructureKeys, "s", column, next.structure);
    } else if (column == "ED_ID_AK") {
      take(kEquipmentKeys, "e", column, next.equipment);
    } else if (column == "EA_ID_AK") {
      take(kMonthKeys, "m", column, next.month);
    } else if (column == "SA_ID_AK") {
      row.columns += "?+ROW_NUMBER() OVER (ORDER BY h.rowid)-1";
      row.values.emplace_back(next.structure_month);
    } else {
      row.columns += "h.\"" + column + "\"";
    }
  }
  return row;
}

void MoveRows(Session& s) {
  Database& db = s.db;
  AllOrNothing whole(db);  // a structure without all of its months could be neither used nor imported again
  const NextKeys next = {NextKey(db, "PD_ID_AK", "PD_PLATFORM_DESC"), NextKey(db, "SA_ID_AK", "PA_PLATFORM_ACTV"),
                         NextKey(db, "ED_ID_AK", "ED_EQUIP_DESC"), NextKey(db, "EA_ID_AK", "EA_EQUIP_ACTV")};
  const std::vector<std::string>& tables = ImportTables();
  const int total = static_cast<int>(tables.size()) * 2;
  int done = static_cast<int>(tables.size());
  for (const std::string& table : tables) {
    Progress(s, "Writing " + table, done++, total);
    const Renumbered row = Renumber(s.At(table).columns(), next);
    db.Execute("INSERT INTO main." + table + " SELECT " + row.columns + " FROM main.H_" + table + " AS h" + row.joins +
                   " ORDER BY h.rowid",
               row.values);
  }
  whole.Keep();
}

}  // namespace

bool ImportStructures(Session& s, Database& file, const std::vector<StructureName>& chosen) {
  {
    WriteBatch batch(s.db);
    EmptyStaging(s.db);
    batch.Commit();
  }
  if (!IsSameYear(s, file) || !IsNew(s, chosen)) return false;
  CheckImportFile(file, s.db);
  const Database::Attached source(s.db, file, "source");
  WriteBatch batch(s.db);
  StageStructures(s, chosen);
  const int last = LastStagedMonth(s.db);
  AddMissingMonths(s, last);
  ExtendMonths(s, last);
  AdoptIdentity(s);
  MoveRows(s);
  EmptyStaging(s.db);
  batch.Commit();
  return true;
}

}  // namespace merlu
