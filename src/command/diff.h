// In what two inventories differ, record by record by their places; keys do not matter.
#pragma once

#include <string>
#include <vector>

#include "store/database.h"

namespace merlu {

struct Difference {
  std::string place;
  std::string table;
  std::string column;  // empty for a record that only one of them has
  Value a, b;          // of such a record: true where it is
};

// Descriptions before the months; within them by structure, equipment and table. What belongs to a record that only
// one of them has is not listed beside it.
std::vector<Difference> CompareInventories(Database& a, Database& b);

}  // namespace merlu
