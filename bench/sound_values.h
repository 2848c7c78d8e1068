// Values that every rule of a sheet accepts, chosen from the sheet's own tables, and the values with which
// each field would fail. A sheet that gains a field or a rule needs nothing here, unless the rule ties
// several fields together.
#pragma once

#include <string>
#include <vector>

#include "sheets/spec.h"
#include "store/value.h"

namespace merlu {

struct SoundValue {
  std::string column;
  Value value;
  // What a rule finds fault with: blank, below the low bound, above the high one. Empty for a field that no
  // rule of this record reads. A field that may be left blank passes with the first of them.
  std::vector<Value> faults;
};

// The columns of a record's two tables; fields that keep nothing are left out.
struct SoundRecord {
  std::vector<SoundValue> description;
  std::vector<SoundValue> month;
};

// Of ED_<type> and EA_<type>.
SoundRecord SoundEquipment(const SheetSpec& sheet);
// Of PD_PLATFORM_DESC and PA_PLATFORM_ACTV. Throughput and fuel totals are large enough for any equipment.
SoundRecord SoundStructure();

}  // namespace merlu
