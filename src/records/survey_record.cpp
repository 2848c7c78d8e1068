#include "records/survey_record.h"

#include "session/find_rows.h"
#include "session/limits.h"
#include "session/types.h"

namespace merlu {
namespace {

std::int64_t RowsOf(Session& s, const char* table) {
  return ToInteger(s.db.Single(std::string("SELECT COUNT(*) FROM ") + table));
}

// A row of the month for every structure; the first key stays unused. Returns the last key.
std::int64_t AddStructureMonths(Session& s, int month) {
  const std::int64_t key = NextSAId(s);
  RequireKeys(key, RowsOf(s, "PD_PLATFORM_DESC"));
  const int added = s.db.Execute(
      "INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK,PA_MO,PA_YR,status) "
      "SELECT ?+ROW_NUMBER() OVER (ORDER BY PD_ID_AK),PD_ID_AK,?,?,'A' FROM PD_PLATFORM_DESC ORDER BY PD_ID_AK",
      {key, std::int64_t{month}, std::int64_t{s.year}});
  return added > 0 ? key + added : 0;
}

// The same for every equipment, with the row of its type. Without any activity so far nothing is added.
void AddEquipmentMonths(Session& s, int month) {
  const std::int64_t key = MaxEAId(s);
  if (key == 0) return;
  RequireKeys(key, RowsOf(s, "ED_EQUIP_DESC"));
  s.db.Execute(
      "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_YR,EA_MO,EA_EQUIP_TYP) "
      "SELECT ?+ROW_NUMBER() OVER (ORDER BY ED_ID_AK),ED_ID_AK,?,?,ED_EQUIP_TYP FROM ED_EQUIP_DESC ORDER BY ED_ID_AK",
      {key, std::int64_t{s.year}, std::int64_t{month}});
  for (const EquipmentType& type : EquipmentTypes()) {
    if (!type.has_activity) continue;
    s.db.Execute(
        "INSERT INTO EA_" + std::string(type.code) +
            " (EA_ID_AK) SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_ID_AK>? AND EA_EQUIP_TYP=? ORDER BY EA_ID_AK",
        {key, std::string(type.code)});
  }
}

}  // namespace

std::optional<std::int64_t> AddMonthRows(Session& s) {
  WriteBatch batch(s.db);
  ReadMonths(s);
  if (s.last_month >= 12) return std::nullopt;
  RequireRoom(SizeOf(s.db, s.last_month + 1));
  AllOrNothing whole(s.db);  // the tree cannot be built over a part of a month
  const int month = s.last_month + 1;
  const std::int64_t last_key = AddStructureMonths(s, month);
  AddEquipmentMonths(s, month);
  Cursor& config = s.At("SYS_CONFIG");
  config.Edit();
  config.SetField("SYS_MAX_MO", std::int64_t{month});
  config.Update();
  whole.Keep();
  batch.Commit();
  s.last_month = month;
  return last_key;
}

}  // namespace merlu
