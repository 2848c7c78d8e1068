#include "exchange/structure_import.h"

#include <algorithm>
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

void EmptyStaging(Database& db) {
  for (const std::string& table : ImportTables()) db.Execute("DELETE FROM H_" + table);
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

std::string Joined(const std::vector<std::string>& columns, const std::string& table) {
  std::string list;
  for (const std::string& column : columns) list += (list.empty() ? "" : ",") + table + "\"" + column + "\"";
  return list;
}

// Stages the file's rows whose key stands among the keys, in the file's order. Columns go by their names.
void Stage(Session& s, const std::string& table, const char* keys, const std::string& column) {
  const std::vector<std::string>& columns = s.At(table).columns();
  s.db.Execute("INSERT INTO main.H_" + table + " (" + Joined(columns, "") + ") SELECT " + Joined(columns, "f.") +
               " FROM source." + table + " AS f WHERE EXISTS (SELECT 1 FROM temp." + keys + " WHERE old=f." + column +
               ") ORDER BY f.rowid");
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
      Stage(s, table, kStructureKeys, "PD_ID_AK");
    else if (i < 20)
      Stage(s, table, kEquipmentKeys, "ED_ID_AK");
    else
      Stage(s, table, kMonthKeys, "EA_ID_AK");
    if (i == 2) RankKeys(s.db, kEquipmentKeys, table, "ED_ID_AK");
    if (i == 3) RankKeys(s.db, kMonthKeys, table, "EA_ID_AK");
  }
}

// ---- months ----

// Empty rows for the months that staged structures lack: structure by structure, then equipment by equipment. A new
// row of equipment is known by a negative key until it moves. Fugitives, which have no months, get rows only behind the
// file's last month.
void FillMonths(Session& s, int last) {
  Database& db = s.db;
  const Value staged_last = std::int64_t{ToInteger(db.Single("SELECT MAX(PA_MO) FROM H_PA_PLATFORM_ACTV"))};
  const std::string months =
      "WITH RECURSIVE months(month) AS (SELECT 1 WHERE ?>0 UNION ALL SELECT month+1 FROM months WHERE month<?) ";
  const Value year = std::int64_t{s.year}, upto = std::int64_t{last};
  db.Execute(months +
                 "INSERT INTO H_PA_PLATFORM_ACTV (PD_ID_AK,PA_YR,PA_MO) SELECT p.PD_ID_AK,?,month FROM "
                 "H_PD_PLATFORM_DESC AS p CROSS JOIN months WHERE (p.PD_ID_AK,month) NOT IN (SELECT PD_ID_AK,PA_MO "
                 "FROM H_PA_PLATFORM_ACTV) ORDER BY p.rowid,month",
             {upto, upto, year});
  const Value staged = db.Single("SELECT COUNT(*) FROM temp.month_key");
  db.Execute(months +
                 "INSERT INTO H_EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_YR,EA_MO,EA_EQUIP_TYP) SELECT "
                 "-(?+ROW_NUMBER() OVER (ORDER BY e.rowid,month)),e.ED_ID_AK,?,month,e.ED_EQUIP_TYP FROM "
                 "H_ED_EQUIP_DESC AS e CROSS JOIN months WHERE (e.ED_ID_AK,month) NOT IN (SELECT ED_ID_AK,EA_MO FROM "
                 "H_EA_EQUIP_ACTV) AND (e.ED_EQUIP_TYP<>'FUG' OR month>?) ORDER BY e.rowid,month",
             {upto, upto, staged, year, staged_last});
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
  const Value operator_number = s.db.Single("SELECT RIMA_CO_NUM FROM CO_COMPANY ORDER BY rowid LIMIT 1");
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
  const NextKeys next = {NextKey(db, "PD_ID_AK", "PD_PLATFORM_DESC"), NextKey(db, "SA_ID_AK", "PA_PLATFORM_ACTV"),
                         NextKey(db, "ED_ID_AK", "ED_EQUIP_DESC"), NextKey(db, "EA_ID_AK", "EA_EQUIP_ACTV")};
  const std::vector<std::string>& tables = ImportTables();
  const int total = static_cast<int>(tables.size()) * 2;
  int done = static_cast<int>(tables.size());
  for (const std::string& table : tables) {
    Progress(s, "Writing " + table, done++, total);
    const std::vector<std::string>& columns = s.At(table).columns();
    const Renumbered row = Renumber(columns, next);
    db.Execute("INSERT INTO main." + table + " (" + Joined(columns, "") + ") SELECT " + row.columns + " FROM main.H_" +
                   table + " AS h" + row.joins + " ORDER BY h.rowid",
               row.values);
  }
}

// The months that the inventory lacks, and everything staged: all of it or nothing.
void TakeOver(Session& s, const ImportPlan& plan) {
  const int before = s.last_month;
  try {
    AllOrNothing whole(s.db);
    while (s.last_month < plan.last_month && AddMonthRows(s)) {
    }
    FillMonths(s, std::max(plan.last_month, s.last_month));
    AdoptIdentity(s);
    MoveRows(s);
    whole.Keep();
  } catch (const Fault&) {
    s.last_month = before;
    throw;
  }
}

}  // namespace

ImportPlan ImportStructures(Session& s, Database& file, const std::vector<StructureName>& chosen, Import how) {
  if (how == Import::kPlan) return PlanImport(s.db, file, chosen);
  {
    WriteBatch batch(s.db);
    EmptyStaging(s.db);
    batch.Commit();
  }
  ImportPlan plan = PlanImport(s.db, file, chosen);
  if (!plan.adds) return plan;
  const Database::Attached source(s.db, file, "source");
  WriteBatch batch(s.db);
  StageStructures(s, chosen);
  TakeOver(s, plan);
  EmptyStaging(s.db);
  batch.Commit();
  return plan;
}

}  // namespace merlu
