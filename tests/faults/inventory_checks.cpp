#include "faults/inventory_checks.h"

#include <cstdint>
#include <map>

#include "session/types.h"

namespace merlu::test {
namespace {

std::int64_t Count(Database& db, const std::string& what) {
  return ToInteger(db.Single("SELECT COUNT(*) FROM " + what));
}

// The number of rows of each type of equipment.
std::map<std::string, std::int64_t> CountsOfTypes(Database& db, const std::string& table, const std::string& type) {
  std::map<std::string, std::int64_t> counts;
  db.ForEach("SELECT upper(" + type + "),COUNT(*) FROM " + table + " GROUP BY 1", {},
             [&](const RowView& row) { counts[std::string(row.Text(0))] = row.Integer(1); });
  return counts;
}

}  // namespace

void KeepPages(Database& db) {
  db.Execute("PRAGMA cache_size=-65536");  // KB
}

std::string AllRows(Database& db) {
  std::string all;
  const Rows tables = db.Query(
      "SELECT name FROM sqlite_schema WHERE type='table' AND name NOT LIKE 'H\\_%' ESCAPE '\\' AND name<>'QC_XREF' "
      "ORDER BY name");
  for (const Values& table : tables.rows) {
    const std::string name = NullToEmpty(table[0]);
    std::string columns;
    db.ForEach("SELECT name FROM pragma_table_info(?)", {name},
               [&](const RowView& row) { columns += "||','||quote([" + std::string(row.Text(0)) + "])"; });
    db.ForEach("SELECT rowid" + columns + " FROM [" + name + "] ORDER BY rowid", {},
               [&](const RowView& row) { all += name + ": " + std::string(row.Text(0)) + "\n"; });
  }
  return all;
}

std::string WhatIsUnsound(Database& db) {
  if (const std::string state = NullToEmpty(db.Single("PRAGMA integrity_check")); state != "ok") return state;
  if (!db.Query("PRAGMA foreign_key_check").rows.empty()) return "a reference has no row";
  const std::int64_t months = ToInteger(db.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG"));
  if (Count(db, "PA_PLATFORM_ACTV") != months * Count(db, "PD_PLATFORM_DESC")) return "a structure lacks a month";
  auto pieces = CountsOfTypes(db, "ED_EQUIP_DESC", "ED_EQUIP_TYP");
  auto piece_months = CountsOfTypes(db, "EA_EQUIP_ACTV", "EA_EQUIP_TYP");
  for (const EquipmentType& type : EquipmentTypes()) {
    const std::string code(type.code);
    const std::int64_t equipment = pieces[code];
    if (Count(db, "ED_" + code) != equipment) return "equipment without a row in ED_" + code;
    if (!type.has_activity) continue;
    if (piece_months[code] != months * equipment) return "equipment of type " + code + " lacks a month";
    if (Count(db, "EA_" + code) != months * equipment) return "a month lacks its row in EA_" + code;
  }
  return "";
}

}  // namespace merlu::test
