#include "session/find_rows.h"

#include <limits>
#include <string>

#include "base/fault.h"
#include "base/text.h"
#include "session/notices.h"
#include "session/types.h"
#include "store/engine.h"

namespace merlu {
namespace {

bool StandsOn(Cursor& cursor, std::string_view column, std::int64_t id) {
  return cursor.HasRow() && ToInteger(cursor.LastRead(column)) == id;
}

// Moves the cursor to the row with that key, unless it is there already.
bool Bring(Session& s, std::string_view table, std::string_view column, std::int64_t id) {
  Cursor& cursor = s.At(table);
  return StandsOn(cursor, column, id) || cursor.FindFirst({{column, id}});
}

bool MoveTo(Session& s, std::string_view table, std::string_view column, std::int64_t id, std::int64_t& current,
            const char* what) {
  bool found = false;
  NotingFaults(s.notices, [&] {
    found = Bring(s, table, column, id);
    if (found)
      current = id;
    else
      Note(s.notices, std::string(what) + " ID " + std::to_string(id) + " not found!");
  });
  return found;
}

constexpr std::int64_t kLastKey = std::numeric_limits<std::int32_t>::max();

// Maximum plus 1, and 1 in an empty table.
std::int64_t Next(Session& s, std::string_view sql) {
  return KeyAfter(ToInteger(s.db.Single(sql)));
}

}  // namespace

CurrentKeys::CurrentKeys(Session& s)
    : s_(s), PD_ID_AK_(s.PD_ID_AK), SA_ID_AK_(s.SA_ID_AK), ED_ID_AK_(s.ED_ID_AK), EA_ID_AK_(s.EA_ID_AK) {}

CurrentKeys::~CurrentKeys() {
  if (done_) return;
  s_.PD_ID_AK = PD_ID_AK_;
  s_.SA_ID_AK = SA_ID_AK_;
  s_.ED_ID_AK = ED_ID_AK_;
  s_.EA_ID_AK = EA_ID_AK_;
}

void RequireReadable(Session& s) {
  if (s.db.IsOpen()) s.db.Single("SELECT COUNT(*) FROM SYS_CONFIG");
}

void ReadMonths(Session& s) {
  Cursor& config = s.At("SYS_CONFIG");
  config.MoveFirst();
  s.year = static_cast<int>(ToInteger(config.Field("sys_yr")));
  s.last_month = static_cast<int>(ToInteger(config.Field("SYS_MAX_MO")));
}

std::int64_t KeyAfter(std::int64_t highest) {
  RequireKeys(highest, 1);
  return highest + 1;
}

void RequireKeys(std::int64_t last_used, std::int64_t count) {
  if (last_used > kLastKey - count)
    throw Fault(fault_number::kSubscript, kStoreSource, "There is no free key left in the database.");
}

bool MoveToPDRecord(Session& s, std::int64_t id) {
  return MoveTo(s, "PD_PLATFORM_DESC", "PD_ID_AK", id, s.PD_ID_AK, "Platform Desc");
}

bool MoveToPARecord(Session& s, std::int64_t id) {
  return MoveTo(s, "PA_PLATFORM_ACTV", "SA_ID_AK", id, s.SA_ID_AK, "Platform Actv");
}

bool MoveToPAActvRecordByMo(Session& s, std::int64_t id, int month, int year) {
  bool found = false;
  NotingFaults(s.notices, [&] {
    Cursor& pa = s.At("PA_PLATFORM_ACTV");
    found = (StandsOn(pa, "PD_ID_AK", id) && ToInteger(pa.LastRead("PA_MO")) == month &&
             ToInteger(pa.LastRead("PA_YR")) == year) ||
            pa.FindFirst({{"PD_ID_AK", id}, {"PA_MO", std::int64_t{month}}, {"PA_YR", std::int64_t{year}}});
    if (found)
      s.SA_ID_AK = ToInteger(pa.Field("SA_ID_AK"));
    else
      Note(s.notices, "Platform Actv ID " + std::to_string(id) + " not found in MoveToPAActvRecordByMo!");
  });
  return found;
}

void MoveToNewMonth(Session& s, std::int64_t id) {
  if (s.PD_ID_AK == 0 || id == 0) return;
  MoveToPDRecord(s, s.PD_ID_AK);
  MoveToPARecord(s, id);
}

bool FindEquipRecord(Session& s, const QCLocation& location, std::string_view ed_table, std::string_view ea_table) {
  if (s.InActv()) {
    if (!Bring(s, "EA_EQUIP_ACTV", "EA_ID_AK", s.EA_ID_AK)) return false;
    if (!ea_table.empty() && !Bring(s, ea_table, "EA_ID_AK", s.EA_ID_AK)) return false;
    s.ED_ID_AK = ToInteger(s.At("EA_EQUIP_ACTV").Field("ED_ID_AK"));
  }
  Cursor& ed = s.At("ED_EQUIP_DESC");
  if (!StandsOn(ed, "ED_ID_AK", s.ED_ID_AK) && ed.IsEmpty()) Note(s.notices, "EquipDesc is empty");
  if (!Bring(s, "ED_EQUIP_DESC", "ED_ID_AK", s.ED_ID_AK)) return false;
  if (!Bring(s, ed_table, "ED_ID_AK", s.ED_ID_AK)) return false;
  const std::int64_t structure = ToInteger(ed.Field("PD_ID_AK"));
  if (!MoveToPDRecord(s, structure)) return false;
  if (s.InActv() && !ea_table.empty()) return MoveToPAActvRecordByMo(s, structure, location.Month, location.Year);
  return true;
}

void NoticeOthers(Session& s) {
  const std::int64_t before = s.db.ChangeCount();
  s.db.NoticeOthers();
  if (s.db.ChangeCount() == before || !s.cursors.IsOpen()) return;
  const QCLocation& at = s.current;
  try {
    for (const char* table : {"PD_PLATFORM_DESC", "PA_PLATFORM_ACTV", "ED_EQUIP_DESC", "EA_EQUIP_ACTV"})
      s.At(table).Requery();
    const EquipmentType* type = FindType(Trim(at.EquipType));
    if (type == nullptr) return;
    s.At("ED_" + std::string(type->code)).Requery();
    if (type->has_activity) s.At("EA_" + std::string(type->code)).Requery();
  } catch (const Fault&) {
    // the look-up that follows meets the same failure and reports it
  }
}

bool FindStructureRecord(Session& s) {
  if (s.InActv()) {
    if (!Bring(s, "PA_PLATFORM_ACTV", "SA_ID_AK", s.SA_ID_AK)) return false;
    s.PD_ID_AK = ToInteger(s.At("PA_PLATFORM_ACTV").Field("PD_ID_AK"));
  }
  return Bring(s, "PD_PLATFORM_DESC", "PD_ID_AK", s.PD_ID_AK);
}

bool FindOperatorRecord(Session& s) {
  return s.At("CO_COMPANY").FindFirst({{"RIMA_CO_NUM", Trim(s.current.UserID)}});
}

std::int64_t NextPDId(Session& s) {
  return Next(s, "SELECT MAX(PD_ID_AK) AS PD from PD_PLATFORM_DESC;");
}
std::int64_t NextSAId(Session& s) {
  return Next(s, "SELECT MAX(SA_ID_AK) AS PA from PA_PLATFORM_ACTV;");
}
std::int64_t NextEDId(Session& s) {
  return Next(s, "SELECT MAX(ED_ID_AK) AS ED from ED_EQUIP_DESC;");
}
std::int64_t MaxEAId(Session& s) {
  return ToInteger(s.db.Single("SELECT MAX(EA_ID_AK) AS EA from EA_EQUIP_ACTV;"));
}
std::int64_t NextEAId(Session& s) {
  return Next(s, "SELECT MAX(EA_ID_AK) AS EA from EA_EQUIP_ACTV;");
}

}  // namespace merlu
