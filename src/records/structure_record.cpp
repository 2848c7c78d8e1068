#include "records/structure_record.h"

#include "session/find_rows.h"

namespace merlu {

bool StructureExists(Database& db, const std::string& complex, const std::string& structure) {
  return !IsNull(
      db.Single("SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE STRUCT_NUM=? COLLATE SAME_ID AND CMPLX_ID_NUM=? COLLATE "
                "SAME_ID",
                {structure, complex}));
}

RecordKeys NewStructureRows(Session& s, const std::string& user, const NewStructure& structure) {
  WriteBatch batch(s.db);
  ReadMonths(s);
  AllOrNothing whole(s.db);
  RecordKeys keys{.PD_ID_AK = NextPDId(s)};
  Cursor& description = s.At("PD_PLATFORM_DESC");
  description.AddNew();
  description.SetField("PD_ID_AK", keys.PD_ID_AK);
  description.SetField("RIMA_CO_NUM", user);
  description.SetField("CMPLX_ID_NUM", structure.complex);
  description.SetField("STRUCT_NUM", structure.structure);
  description.SetField("Area", structure.area);
  description.SetField("Block", structure.block);
  description.SetField("Name", structure.name);
  description.Update();
  description.FindFirst({{"PD_ID_AK", keys.PD_ID_AK}});

  std::int64_t key = NextSAId(s);
  RequireKeys(key - 1, s.last_month);
  Cursor& activity = s.At("PA_PLATFORM_ACTV");
  for (int month = 1; month <= s.last_month; ++month, ++key) {
    activity.AddNew();
    activity.SetField("PD_ID_AK", keys.PD_ID_AK);
    activity.SetField("SA_ID_AK", key);
    activity.SetField("PA_YR", std::int64_t{s.year});
    activity.SetField("PA_MO", std::int64_t{month});
    activity.SetField("status", std::string("A"));
    activity.Update();
    keys.SA_ID_AK = key;
  }
  whole.Keep();
  batch.Commit();
  return keys;
}

}  // namespace merlu
