// How much the trees have room for, and the texts about an inventory that is too large.
#pragma once

#include <cstdint>
#include <string>

#include "store/database.h"

namespace merlu {

inline constexpr std::int64_t kMostStructures = 1001, kMostStructureMonths = 12001, kMostEquipment = 40001;
inline constexpr std::int64_t kMostEquipmentMonths = 39999;  // one more ends the program

inline constexpr const char* kTreeSource = "MERLU tree";  // of the faults that say so

// All the limits in words, and what to do about a file beyond them.
extern const char* const kLimitsInWords;

struct InventorySize {
  std::int64_t structures = 0, equipment = 0;
  std::int64_t equipment_with_months = 0;
  int months = 0;
};

// With so many months.
InventorySize SizeOf(Database& db, int months);
// What there would be too much of, in words; empty when the trees have room.
std::string WhyTooLarge(const InventorySize& size);
// A Fault (kSubscript) with those words.
void RequireRoom(const InventorySize& size);

}  // namespace merlu
