// records/ makes, deletes and judges the rows of operator, structures, months and equipment, by their keys. It knows no
// control.
#pragma once

#include <cstdint>

namespace merlu {

// The keys of a record on each of its levels, 0 for a level that it does not reach: a structure (PD_ID_AK) and its
// month (SA_ID_AK), a piece of equipment (ED_ID_AK) and its month (EA_ID_AK). A description has no month keys.
struct RecordKeys {
  std::int64_t PD_ID_AK = 0, SA_ID_AK = 0, ED_ID_AK = 0, EA_ID_AK = 0;
};

}  // namespace merlu
