#include "records/equipment_record.h"

#include "qc/qc_log.h"
#include "session/records.h"

namespace merlu {
namespace {

void NewActivityRow(Session& s, const EquipmentType& type, int month) {
  const std::int64_t key = NextEAId(s);
  Cursor& master = s.At("EA_EQUIP_ACTV");
  master.AddNew();
  master.SetField("ED_ID_AK", s.ED_ID_AK);
  master.SetField("EA_EQUIP_TYP", std::string(type.code));
  master.SetField("EA_ID_AK", key);
  master.SetField("EA_YR", std::int64_t{s.year});
  master.SetField("EA_MO", std::int64_t{month});
  master.Update();
  Cursor& row = s.At("EA_" + std::string(type.code));
  row.AddNew();
  row.SetField("EA_ID_AK", key);
  row.Update();
  if (!s.InActv() || month <= s.current.Month) s.EA_ID_AK = key;
}

void RequeryAll(Session& s, bool structures) {
  if (structures)
    for (const char* table : {"PD_PLATFORM_DESC", "PA_PLATFORM_ACTV", "ED_EQUIP_DESC", "EA_EQUIP_ACTV"})
      s.At(table).Requery();
  for (const EquipmentType& type : EquipmentTypes()) {
    s.At("ED_" + std::string(type.code)).Requery();
    if (type.has_activity) s.At("EA_" + std::string(type.code)).Requery();
  }
}

}  // namespace

bool EquipmentExists(Session& s, const EquipmentType& type, const std::string& id) {
  return !IsNull(
      s.db.Single("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC WHERE PD_ID_AK=? AND ED_EQUIP_TYP=? AND "
                  "ED_MERLU_EQUIP_ID=? COLLATE SAME_ID",
                  {s.PD_ID_AK, std::string(type.code), id}));
}

void NewEquipRows(Session& s, const EquipmentType& type, const std::string& id) {
  WriteBatch batch(s.db);
  ReadMonths(s);
  CurrentKeys keys(s);
  AllOrNothing whole(s.db);
  if (type.has_activity) RequireKeys(MaxEAId(s), s.last_month);
  s.ED_ID_AK = NextEDId(s);
  Cursor& master = s.At("ED_EQUIP_DESC");
  master.AddNew();
  master.SetField("PD_ID_AK", s.PD_ID_AK);
  master.SetField("ED_ID_AK", s.ED_ID_AK);
  master.SetField("ED_EQUIP_TYP", std::string(type.code));
  master.SetField("ED_MERLU_EQUIP_ID", id);
  master.Update();
  Cursor& row = s.At("ED_" + std::string(type.code));
  row.AddNew();
  row.SetField("ED_ID_AK", s.ED_ID_AK);
  row.Update();
  if (type.has_activity)
    for (int month = 1; month <= s.last_month; ++month) NewActivityRow(s, type, month);
  whole.Keep();
  batch.Commit();
  keys.Advance();
}

void DeleteCurrentRecord(Session& s) {
  WriteBatch batch(s.db);
  const bool structure = s.current.Is(level::kStructure);
  if (structure)
    DelQCRecordsForStructure(s, s.current);
  else
    DelQCRecordsForEquip(s, s.current);
  DelQCRecordsForLocAndBelowAnyMode(s, s.current);
  s.At("QC").Requery();
  if (structure)
    s.db.Execute("DELETE FROM [PD_PLATFORM_DESC] WHERE [PD_ID_AK]=?", {s.PD_ID_AK});
  else
    s.db.Execute("DELETE FROM [ED_EQUIP_DESC] WHERE [ED_ID_AK]=?", {s.ED_ID_AK});
  RequeryAll(s, structure);
  batch.Commit();
}

}  // namespace merlu
