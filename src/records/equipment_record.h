// The rows of equipment and structures: adding a piece of equipment, deleting either. Keys and places are arguments;
// the session's own are not touched. Faults are passed on, and nothing of the record is left, or lost, then.
#pragma once

#include <cstdint>
#include <string>

#include "records/record_keys.h"
#include "session/session.h"
#include "session/types.h"

namespace merlu {

// True when the structure has equipment of that type and ID, without regard to case.
bool EquipmentExists(Database& db, std::int64_t PD_ID_AK, const EquipmentType& type, const std::string& id);

// Adds the rows of a new equipment of the structure: its descriptions and, for a type with activity, a pair of activity
// rows for each month so far. The returned activity key is that of `month`, of the last month when it is 0; it is 0
// without activity.
RecordKeys NewEquipRows(Session& s, std::int64_t PD_ID_AK, int month, const EquipmentType& type, const std::string& id);

// Delete the record with everything below it, and withdraw its findings; `at` is its place.
void DeleteStructure(Session& s, std::int64_t PD_ID_AK, const QCLocation& at);
void DeleteEquipment(Session& s, std::int64_t ED_ID_AK, const QCLocation& at);

}  // namespace merlu
