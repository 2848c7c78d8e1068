// Every piece of equipment with its structure, read once: what walks over the months of all equipment looks them up
// here instead of reading them again with each month.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "store/database.h"

namespace merlu {

struct IndexedStructure {
  std::string user, complex, structure;
};

struct IndexedPiece {
  std::string id;
  std::int64_t structure_key = 0;               // that its row names
  const IndexedStructure* structure = nullptr;  // null when there is no such row
};

class EquipmentIndex {
 public:
  explicit EquipmentIndex(Database& db);
  EquipmentIndex(const EquipmentIndex&) = delete;
  EquipmentIndex& operator=(const EquipmentIndex&) = delete;

  // Null for a key without a row.
  const IndexedPiece* Find(std::int64_t ED_ID_AK) const;

 private:
  std::unordered_map<std::int64_t, IndexedStructure> structures_;
  std::unordered_map<std::int64_t, IndexedPiece> pieces_;
};

}  // namespace merlu
