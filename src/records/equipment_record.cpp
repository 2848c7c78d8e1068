#include "records/equipment_record.h"

#include "qc/qc_log.h"
#include "session/find_rows.h"

namespace merlu {
namespace {

// Returns its key.
std::int64_t NewActivityRow(Session& s, std::int64_t ED_ID_AK, const EquipmentType& type, int month) {
  const std::int64_t key = NextEAId(s);
  Cursor& master = s.At("EA_EQUIP_ACTV");
  master.AddNew();
  master.SetField("ED_ID_AK", ED_ID_AK);
  master.SetField("EA_EQUIP_TYP", std::string(type.code));
  master.SetField("EA_ID_AK", key);
  master.SetField("EA_YR", std::int64_t{s.year});
  master.SetField("EA_MO", std::int64_t{month});
  master.Update();
  Cursor& row = s.At("EA_" + std::string(type.code));
  row.AddNew();
  row.SetField("EA_ID_AK", key);
  row.Update();
  return key;
}

void RequeryTypes(Session& s) {
  for (const EquipmentType& type : EquipmentTypes()) {
    s.At("ED_" + std::string(type.code)).Requery();
    if (type.has_activity) s.At("EA_" + std::string(type.code)).Requery();
  }
}

}  // namespace

bool EquipmentExists(Database& db, std::int64_t PD_ID_AK, const EquipmentType& type, const std::string& id) {
  return !IsNull(
      db.Single("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC WHERE PD_ID_AK=? AND ED_EQUIP_TYP=? AND "
                "ED_MERLU_EQUIP_ID=? COLLATE SAME_ID",
                {PD_ID_AK, std::string(type.code), id}));
}

RecordKeys NewEquipRows(Session& s, std::int64_t PD_ID_AK, int month, const EquipmentType& type,
                        const std::string& id) {
  WriteBatch batch(s.db);
  ReadMonths(s);
  AllOrNothing whole(s.db);
  if (type.has_activity) RequireKeys(MaxEAId(s), s.last_month);
  RecordKeys keys{.PD_ID_AK = PD_ID_AK, .ED_ID_AK = NextEDId(s)};
  Cursor& master = s.At("ED_EQUIP_DESC");
  master.AddNew();
  master.SetField("PD_ID_AK", keys.PD_ID_AK);
  master.SetField("ED_ID_AK", keys.ED_ID_AK);
  master.SetField("ED_EQUIP_TYP", std::string(type.code));
  master.SetField("ED_MERLU_EQUIP_ID", id);
  master.Update();
  Cursor& row = s.At("ED_" + std::string(type.code));
  row.AddNew();
  row.SetField("ED_ID_AK", keys.ED_ID_AK);
  row.Update();
  for (int added = 1; type.has_activity && added <= s.last_month; ++added) {
    const std::int64_t key = NewActivityRow(s, keys.ED_ID_AK, type, added);
    if (month == 0 || added <= month) keys.EA_ID_AK = key;
  }
  whole.Keep();
  batch.Commit();
  return keys;
}

void DeleteStructure(Session& s, std::int64_t PD_ID_AK, const QCLocation& at) {
  WriteBatch batch(s.db);
  DelQCRecordsForStructure(s, at);
  DelQCRecordsForLocAndBelowAnyMode(s, at);
  s.At("QC").Requery();
  s.db.Execute("DELETE FROM [PD_PLATFORM_DESC] WHERE [PD_ID_AK]=?", {PD_ID_AK});
  for (const char* table : {"PD_PLATFORM_DESC", "PA_PLATFORM_ACTV", "ED_EQUIP_DESC", "EA_EQUIP_ACTV"})
    s.At(table).Requery();
  RequeryTypes(s);
  batch.Commit();
}

void DeleteEquipment(Session& s, std::int64_t ED_ID_AK, const QCLocation& at) {
  WriteBatch batch(s.db);
  DelQCRecordsForEquip(s, at);
  DelQCRecordsForLocAndBelowAnyMode(s, at);
  s.At("QC").Requery();
  s.db.Execute("DELETE FROM [ED_EQUIP_DESC] WHERE [ED_ID_AK]=?", {ED_ID_AK});
  RequeryTypes(s);
  batch.Commit();
}

}  // namespace merlu
