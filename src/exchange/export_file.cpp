#include "exchange/export_file.h"

#include "session/types.h"
#include "store/files.h"

namespace merlu {
namespace {

// A month's rows are few of a year's: they are saved and inserted again, which is less work than deleting the others.
void KeepRows(Database& copy, const std::string& table, const std::string& condition, const Values& values = {}) {
  AllOrNothing whole(copy);
  copy.Execute("CREATE TEMP TABLE kept_rows AS SELECT * FROM main." + table + " WHERE " + condition + " ORDER BY rowid",
               values);
  copy.Execute("DELETE FROM main." + table);
  copy.Execute("INSERT INTO main." + table + " SELECT * FROM temp.kept_rows ORDER BY rowid");
  copy.Execute("DROP TABLE temp.kept_rows");
  whole.Keep();
}

void DeleteOrphans(Database& copy, const std::string& table, const std::string& key, const std::string& parent) {
  copy.Execute("DELETE FROM " + table + " WHERE " + key + " NOT IN (SELECT " + key + " FROM " + parent + ")");
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

void DeleteOtherMonths(Database& copy, int month, int year) {
  const Values values = {std::int64_t{month}, std::int64_t{year}};
  WriteBatch batch(copy);
  // a month that is Null differs from nothing for certain, and stays
  KeepRows(copy, "EA_EQUIP_ACTV", "(EA_MO<>? OR EA_YR<>?) IS NOT TRUE", values);
  KeepRows(copy, "PA_PLATFORM_ACTV", "(PA_MO<>? OR PA_YR<>?) IS NOT TRUE", values);
  // the keys of a month lie together: their range is read, and the sign keeps the engine from seeking each key instead
  for (const EquipmentType& type : EquipmentTypes())
    if (type.has_activity)
      KeepRows(copy, "EA_" + std::string(type.code),
               "EA_ID_AK BETWEEN (SELECT MIN(EA_ID_AK) FROM main.EA_EQUIP_ACTV) AND (SELECT MAX(EA_ID_AK) FROM "
               "main.EA_EQUIP_ACTV) AND +EA_ID_AK IN (SELECT EA_ID_AK FROM main.EA_EQUIP_ACTV)");
  batch.Commit();
}

void KeepStructures(Database& copy, const std::vector<StructureName>& kept) {
  copy.Execute("CREATE TEMP TABLE kept (complex TEXT COLLATE SAME_ID, structure TEXT COLLATE SAME_ID)");
  for (const StructureName& name : kept)
    copy.Execute("INSERT INTO temp.kept VALUES (?,?)", {name.complex, name.structure});
  WriteBatch batch(copy);
  // a structure whose identifier has a Null part differs from nothing for certain, and stays
  copy.Execute(
      "DELETE FROM PD_PLATFORM_DESC WHERE NOT EXISTS (SELECT 1 FROM temp.kept WHERE "
      "(kept.complex=CMPLX_ID_NUM AND kept.structure=STRUCT_NUM) IS NOT FALSE)");
  DeleteOrphans(copy, "PA_PLATFORM_ACTV", "PD_ID_AK", "PD_PLATFORM_DESC");
  DeleteOrphans(copy, "ED_EQUIP_DESC", "PD_ID_AK", "PD_PLATFORM_DESC");
  for (const EquipmentType& type : EquipmentTypes())
    DeleteOrphans(copy, "ED_" + std::string(type.code), "ED_ID_AK", "ED_EQUIP_DESC");
  DeleteOrphans(copy, "EA_EQUIP_ACTV", "ED_ID_AK", "ED_EQUIP_DESC");
  for (const EquipmentType& type : EquipmentTypes())
    if (type.has_activity) DeleteOrphans(copy, "EA_" + std::string(type.code), "EA_ID_AK", "EA_EQUIP_ACTV");
  batch.Commit();
}

Compaction FillExport(const OwnFiles& own, Database& working, const std::string& path, std::uint64_t free_bytes,
                      const std::function<void(Database& copy)>& cut) {
  if (!cut) {
    working.CopyTo(path);
    CheckPages(path);
    return Compaction::kDone;
  }
  // rows that depend on others are deleted by one statement a table, which is far less work than row by row through
  // the relations
  Database copy;
  copy.OpenCopyOf(working);
  copy.Execute("PRAGMA foreign_keys=OFF");
  copy.Query("PRAGMA temp_store=MEMORY");
  cut(copy);
  const Compaction compaction = WriteCompact(own, copy, path, free_bytes);
  if (compaction == Compaction::kDone) return compaction;
  copy.CopyTo(path);
  CheckPages(path);
  return compaction;
}

Compaction WriteExport(const OwnFiles& own, Database& working, const std::string& target, std::uint64_t free_bytes,
                       const std::function<void(Database& copy)>& cut) {
  Compaction compaction = Compaction::kDone;
  WriteNewFile(own, target,
               [&](const std::string& path) { compaction = FillExport(own, working, path, free_bytes, cut); });
  return compaction;
}

}  // namespace merlu
