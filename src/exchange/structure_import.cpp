#include "exchange/structure_import.h"

#include <algorithm>
#include <string>

#include "exchange/import_file.h"
#include "records/survey_record.h"
#include "session/find_rows.h"
#include "session/types.h"
#include "session/wait.h"

namespace merlu {
namespace {

// The old keys of the chosen rows, each with the one that it gets.
constexpr const char* kStructureKeys = "structure_key";
constexpr const char* kStructureMonthKeys = "structure_month_key";
constexpr const char* kEquipmentKeys = "equipment_key";
constexpr const char* kMonthKeys = "month_key";

// Tables that an earlier version filled on the way, and left filled after a fault.
void EmptyStaging(Database& db) {
  for (const std::string& table : ImportTables())
    if (!IsNull(db.Single("SELECT 1 FROM H_" + table + " LIMIT 1"))) db.Execute("DELETE FROM H_" + table);
}

// ---- keys ----

std::int64_t LastKey(Database& db, const char* column, const char* table) {
  return ToInteger(db.Single(std::string("SELECT MAX(") + column + ") FROM main." + table));
}

std::int64_t NextKey(Database& db, const char* column, const char* table) {
  return KeyAfter(LastKey(db, column, table));
}

void MakeKeyTable(Database& db, const std::string& name) {
  db.Execute("DROP TABLE IF EXISTS temp." + name);
  db.Execute("CREATE TEMP TABLE " + name + " (old INTEGER PRIMARY KEY, new INTEGER)");
}

// Keys from the first one on for those that the query gives, in its order.
void NumberKeys(Database& db, const char* keys, const std::string& query, std::int64_t first) {
  MakeKeyTable(db, keys);
  db.Execute("CREATE TEMP TABLE numbered (number INTEGER PRIMARY KEY, old INTEGER)");
  RequireKeys(first - 1, db.Execute("INSERT INTO temp.numbered (old) " + query));
  db.Execute(std::string("INSERT INTO temp.") + keys + " SELECT old,?+number-1 FROM temp.numbered", {first});
  db.Execute("DROP TABLE temp.numbered");
}

// In the order in which they were chosen.
void NumberStructures(Database& db, const std::vector<StructureName>& chosen) {
  MakeKeyTable(db, kStructureKeys);
  std::int64_t next = NextKey(db, "PD_ID_AK", "PD_PLATFORM_DESC");
  RequireKeys(next - 1, static_cast<std::int64_t>(chosen.size()));
  for (const StructureName& name : chosen) {
    const Value old = db.Single(
        "SELECT PD_ID_AK FROM source.PD_PLATFORM_DESC WHERE CMPLX_ID_NUM=? COLLATE SAME_ID AND STRUCT_NUM=? COLLATE "
        "SAME_ID ORDER BY PD_ID_AK LIMIT 1",
        {name.complex, name.structure});
    if (!IsNull(old)) db.Execute("INSERT OR REPLACE INTO temp.structure_key VALUES (?,?)", {old, next++});
  }
}

// Of the file's rows that belong to a chosen one, in the file's order.
std::string KeysBelow(const char* column, const char* table, const char* parents, const char* parent) {
  return std::string("SELECT f.") + column + " FROM source." + table + " AS f WHERE EXISTS (SELECT 1 FROM temp." +
         parents + " WHERE old=f." + parent + ") ORDER BY f.rowid";
}

void NumberRows(Database& db, const std::vector<StructureName>& chosen) {
  NumberStructures(db, chosen);
  NumberKeys(db, kStructureMonthKeys, KeysBelow("SA_ID_AK", "PA_PLATFORM_ACTV", kStructureKeys, "PD_ID_AK"),
             NextKey(db, "SA_ID_AK", "PA_PLATFORM_ACTV"));
  NumberKeys(db, kEquipmentKeys, KeysBelow("ED_ID_AK", "ED_EQUIP_DESC", kStructureKeys, "PD_ID_AK"),
             NextKey(db, "ED_ID_AK", "ED_EQUIP_DESC"));
  NumberKeys(db, kMonthKeys, KeysBelow("EA_ID_AK", "EA_EQUIP_ACTV", kEquipmentKeys, "ED_ID_AK"),
             NextKey(db, "EA_ID_AK", "EA_EQUIP_ACTV"));
}

// ---- rows ----

// What a row takes over from the inventory and not from the file.
struct Identity {
  Value operator_number, year;
};

Identity ReadIdentity(Database& db) {
  return {db.Single("SELECT RIMA_CO_NUM FROM main.CO_COMPANY ORDER BY rowid LIMIT 1"),
          db.Single("SELECT sys_yr FROM main.SYS_CONFIG")};
}

// The keys that a column is exchanged by; null for one that stays.
const char* KeysOf(const std::string& column) {
  if (column == "PD_ID_AK") return kStructureKeys;
  if (column == "SA_ID_AK") return kStructureMonthKeys;
  if (column == "ED_ID_AK") return kEquipmentKeys;
  return column == "EA_ID_AK" ? kMonthKeys : nullptr;
}

// Columns go by their names.
void TakeRows(Session& s, const std::string& table, const Identity& identity) {
  std::string names, taken, joins;
  Values values;
  for (const std::string& column : s.At(table).columns()) {
    names += (names.empty() ? "\"" : ",\"") + column + "\"";
    taken += taken.empty() ? "" : ",";
    if (const char* keys = KeysOf(column); keys != nullptr) {
      taken += std::string(keys) + ".new";
      joins += std::string(" CROSS JOIN temp.") + keys + " ON " + keys + ".old=f." + column;
    } else if (column == "RIMA_CO_NUM" || column == "PA_YR" || column == "EA_YR") {
      taken += "?";
      values.push_back(column == "RIMA_CO_NUM" ? identity.operator_number : identity.year);
    } else {
      taken += "f.\"" + column + "\"";
    }
  }
  s.db.Execute("INSERT INTO main." + table + " (" + names + ") SELECT " + taken + " FROM source." + table + " AS f" +
                   joins + " ORDER BY f.rowid",
               values);
}

// ---- months ----

// Whether a structure or a piece of equipment is without one of the months. Fugitives have no months.
bool LacksMonths(const ImportPlan& plan, int last) {
  const auto lacks = [last](const PlannedEquipment& piece) {
    return piece.months < last && !EqualsIgnoringCase(piece.type, "FUG");
  };
  return last > plan.last_month ||
         std::any_of(plan.structures.begin(), plan.structures.end(), [&](const auto& planned) {
           return !planned.months_there.empty() ||
                  std::any_of(planned.equipment.begin(), planned.equipment.end(), lacks);
         });
}

// Empty rows for the months that the file lacks, after its own: structure by structure, then equipment by equipment.
// Fugitives get rows only behind the file's last month.
void FillMonths(Database& db, const Value& year, std::int64_t last) {
  const std::string months =
      "WITH RECURSIVE months(month) AS (SELECT 1 WHERE ?>0 UNION ALL SELECT month+1 FROM months WHERE month<?) ";
  const Value file_last = std::int64_t{
      ToInteger(db.Single("SELECT MAX(PA_MO) FROM source.PA_PLATFORM_ACTV WHERE PD_ID_AK IN (SELECT old FROM "
                          "temp.structure_key)"))};
  const std::int64_t last_structure_month = LastKey(db, "SA_ID_AK", "PA_PLATFORM_ACTV");
  int filled =
      db.Execute(months +
                     "INSERT INTO main.PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK,PA_YR,PA_MO) SELECT ?-1+ROW_NUMBER() OVER "
                     "(ORDER BY f.rowid,month),k.new,?,month FROM source.PD_PLATFORM_DESC AS f CROSS JOIN "
                     "temp.structure_key AS k ON k.old=f.PD_ID_AK CROSS JOIN months WHERE (f.PD_ID_AK,month) NOT IN "
                     "(SELECT PD_ID_AK,PA_MO FROM source.PA_PLATFORM_ACTV) ORDER BY f.rowid,month",
                 {last, last, last_structure_month + 1, year});
  RequireKeys(last_structure_month, filled);
  const std::int64_t last_month = LastKey(db, "EA_ID_AK", "EA_EQUIP_ACTV"), first = last_month + 1;
  filled = db.Execute(
      months +
          "INSERT INTO main.EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_YR,EA_MO,EA_EQUIP_TYP) SELECT "
          "?-1+ROW_NUMBER() OVER (ORDER BY f.rowid,month),k.new,?,month,f.ED_EQUIP_TYP FROM "
          "source.ED_EQUIP_DESC AS f CROSS JOIN temp.equipment_key AS k ON k.old=f.ED_ID_AK CROSS JOIN months "
          "WHERE (f.ED_ID_AK,month) NOT IN (SELECT ED_ID_AK,EA_MO FROM source.EA_EQUIP_ACTV) AND "
          "(f.ED_EQUIP_TYP<>'FUG' COLLATE NOCASE OR month>?) ORDER BY f.rowid,month",
      {last, last, first, year, file_last});
  RequireKeys(last_month, filled);
  for (const EquipmentType& type : EquipmentTypes())
    if (type.has_activity)
      db.Execute("INSERT INTO main.EA_" + std::string(type.code) +
                     " (EA_ID_AK) SELECT EA_ID_AK FROM main.EA_EQUIP_ACTV WHERE EA_ID_AK>=? AND EA_EQUIP_TYP=? COLLATE "
                     "NOCASE ORDER BY EA_ID_AK",
                 {first, std::string(type.code)});
}

// The months that the inventory lacks, and everything chosen: all of it or nothing.
void TakeOver(Session& s, const std::vector<StructureName>& chosen, const ImportPlan& plan) {
  const int before = s.last_month;
  CurrentKeys keys(s);
  try {
    AllOrNothing whole(s.db);
    while (s.last_month < plan.last_month) {
      const auto added = AddMonthRows(s);
      if (!added) break;
      MoveToNewMonth(s, *added);
    }
    NumberRows(s.db, chosen);
    const Identity identity = ReadIdentity(s.db);
    const std::vector<std::string>& tables = ImportTables();
    int done = 0;
    for (const std::string& table : tables) {
      ShowProgress(s, "Writing " + table, done++, static_cast<int>(tables.size()));
      TakeRows(s, table, identity);
    }
    const int last = std::max(plan.last_month, s.last_month);
    if (LacksMonths(plan, last)) FillMonths(s.db, identity.year, last);
    whole.Keep();
    keys.Advance();
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
  TakeOver(s, chosen, plan);
  batch.Commit();
  return plan;
}

}  // namespace merlu
