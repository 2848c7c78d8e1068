// What one structure holds in two inventories, compared by place, never by key.
#pragma once

#include <cstdint>
#include <vector>

#include "exchange/import_plan.h"

namespace merlu {

// Of the structure with the key `here` in the working database and `there` in the file.
std::vector<ImportDifference> FindDifferences(Database& working, std::int64_t here, Database& file, std::int64_t there);

}  // namespace merlu
