#include "exchange/export_file.h"

#include "base/fault.h"
#include "exchange/compact.h"
#include "exchange/filename_rule.h"
#include "store/files.h"

namespace merlu {

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
    WriteBatch batch(copy);
    copy.Execute("DELETE FROM EA_EQUIP_ACTV WHERE NOT (EA_MO=? AND EA_YR=?)", values);
    copy.Execute("DELETE FROM PA_PLATFORM_ACTV WHERE NOT (PA_MO=? AND PA_YR=?)", values);
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
  WriteBatch batch(copy);
  // a structure whose identifier has a Null part differs from nothing for certain, and stays
  copy.Execute(
      "DELETE FROM PD_PLATFORM_DESC WHERE NOT EXISTS (SELECT 1 FROM temp.kept WHERE "
      "(CMPLX_ID_NUM=kept.complex AND STRUCT_NUM=kept.structure) IS NOT FALSE)");
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
