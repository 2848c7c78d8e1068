// Making and deleting the rows of equipment and structures.
#pragma once

#include <string>

#include "session/session.h"
#include "session/types.h"

namespace merlu {

// True when the current structure has equipment of that type and ID.
bool EquipmentExists(Session& s, const EquipmentType& type, const std::string& id);

// Adds the rows of a new equipment of the current structure: its descriptions and, but for fugitives, a
// pair of activity rows for each month so far. The session's current keys are those of the new rows; in
// activity mode the activity key is that of the location's month. Faults are passed on.
void NewEquipRows(Session& s, const EquipmentType& type, const std::string& id);

// Deletes the current structure or equipment (by the location's level) with everything below it, and
// withdraws its findings. Faults are passed on.
void DeleteCurrentRecord(Session& s);

}  // namespace merlu
