#include "exchange/export_file.h"

#include "base/fault.h"
#include "exchange/compact.h"
#include "exchange/filename_rule.h"
#include "session/types.h"
#include "store/files.h"

namespace merlu {
namespace {

// The copy is worth nothing until it is whole, so nothing is kept for a way back; and what depends on a row
// goes with one statement by table, which is far less work than row by row through the relations.
void PrepareForCutting(Database& copy) {
  copy.Query("PRAGMA journal_mode=MEMORY");
  copy.Execute("PRAGMA synchronous=OFF");
  copy.Execute("PRAGMA foreign_keys=OFF");
}

void DeleteOrphans(Database& copy, const std::string& table, const std::string& key, const std::string& parent) {
  copy.Execute("DELETE FROM " + table + " WHERE " + key + " NOT IN (SELECT " + key + " FROM " + parent + ")");
}

void DeleteTypesMonths(Database& copy) {
  for (const EquipmentType& type : EquipmentTypes())
    if (type.has_activity) DeleteOrphans(copy, "EA_" + std::string(type.code), "EA_ID_AK", "EA_EQUIP_ACTV");
}

}  // namespace

std::vector<ListedStructure> ListStructures(Database& db) {
  std::vector<ListedStructure> structures;
  db.ForEach("SELECT CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name FROM PD_PLATFORM_DESC ORDER BY PD_ID_AK", {},
             [&](const RowView& row) {
               structures.push_back({{std::string(row.Text(0)), std::string(row.Text(1))},
                                     std::string(row.Text(2)),
                                     std::string(row.Text(3)),
                                     std::string(row.Text(4))});
             });
  return structures;
}

bool DeleteOtherMonths(Database& copy, int month, int year) {
  try {
    const Values values = {std::int64_t{month}, std::int64_t{year}};
    PrepareForCutting(copy);
    WriteBatch batch(copy);
    copy.Execute("DELETE FROM EA_EQUIP_ACTV WHERE NOT (EA_MO=? AND EA_YR=?)", values);
    copy.Execute("DELETE FROM PA_PLATFORM_ACTV WHERE NOT (PA_MO=? AND PA_YR=?)", values);
    DeleteTypesMonths(copy);
    batch.Commit();
    return true;
  } catch (const Fault&) {
    return false;
  }
}

void KeepStructures(Database& copy, const std::vector<StructureName>& kept) {
  copy.Execute("CREATE TEMP TABLE kept (complex TEXT COLLATE NOCASE, structure TEXT COLLATE NOCASE)");
  for (const StructureName& name : kept)
    copy.Execute("INSERT INTO temp.kept VALUES (?,?)", {name.complex, name.structure});
  PrepareForCutting(copy);
  WriteBatch batch(copy);
  // a structure whose identifier has a Null part differs from nothing for certain, and stays
  copy.Execute(
      "DELETE FROM PD_PLATFORM_DESC WHERE NOT EXISTS (SELECT 1 FROM temp.kept WHERE "
      "(CMPLX_ID_NUM=kept.complex AND STRUCT_NUM=kept.structure) IS NOT FALSE)");
  DeleteOrphans(copy, "PA_PLATFORM_ACTV", "PD_ID_AK", "PD_PLATFORM_DESC");
  DeleteOrphans(copy, "ED_EQUIP_DESC", "PD_ID_AK", "PD_PLATFORM_DESC");
  for (const EquipmentType& type : EquipmentTypes())
    DeleteOrphans(copy, "ED_" + std::string(type.code), "ED_ID_AK", "ED_EQUIP_DESC");
  DeleteOrphans(copy, "EA_EQUIP_ACTV", "ED_ID_AK", "ED_EQUIP_DESC");
  DeleteTypesMonths(copy);
  batch.Commit();
}

void CompactExport(Session& s, const std::string& file) {
  const std::string temporary = CompactionFile(s);
  // a file that has no room to be compacted keeps everything as it is
  if (FileExists(temporary) && s.platform.FreeBytes("/") >= FileSize(file)) {
    try {
      RemoveFile(temporary);
    } catch (const Fault&) {
      // the compaction tells that it cannot use the path
    }
  }
  CompactDatabaseFile(s, file, temporary);
}

}  // namespace merlu
