// The one way in which figures that were not typed on a sheet get into the store: as End Edit & Save on the record's
// own sheet would have left them.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "records/judge_records.h"
#include "session/session.h"
#include "sheets/spec.h"

namespace merlu {

// A month's record and what is typed into it: texts by control, and the box of its status.
struct TypedRecord {
  const SheetSpec* sheet = nullptr;  // null for a structure
  QCLocation at;
  RecordKeys keys;
  bool structure_inactive = false;
  std::vector<std::pair<std::string, std::string>> texts;  // by control
  std::optional<bool> no_emissions;
};

// Runs the record's rules over what was typed and stores it; returns the number of its findings. A fault is passed on;
// the caller's batch takes back what was written. The session stands where it stood, afterwards too.
int SaveTyped(Session& s, const TypedRecord& record);

}  // namespace merlu
