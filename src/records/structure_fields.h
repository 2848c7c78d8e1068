// The fields of the structure's sheet.
#pragma once

#include <vector>

#include "sheets/spec.h"

namespace merlu {

// In the order of the sheet: the description (columns of PD_PLATFORM_DESC), then the month (columns of
// PA_PLATFORM_ACTV). The two IDs are shown and never changed.
const std::vector<FieldSpec>& StructureFields();

}  // namespace merlu
