// What rules ask that lies outside the record.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "base/fault.h"

namespace merlu {

// What a structure's month adds up, and its column of PA_PLATFORM_ACTV.
enum class Total { kNone, kThroughputOil, kThroughputGas, kFuelGas, kFuelGasoline, kFuelDiesel };
inline constexpr std::size_t kTotals = 6;
inline constexpr std::array<const char*, kTotals> kTotalColumns = {
    "", "THRU_OIL", "THRU_NG", "TOT_FUEL_USE_NG", "TOT_FUEL_USE_GAS", "TOT_FUEL_USE_DIE"};
inline const char* ColumnOf(Total total) {
  return kTotalColumns[static_cast<std::size_t>(total)];
}

struct Context {
  int year = 0, month = 0;  // of the record; month 0 for a description

  // The structure's month
  bool month_found = false;
  std::array<double, kTotals> totals{};  // by Total; 0 where the column is Null

  // The structure
  bool has_equipment = false;
  std::vector<std::string> vents, flares;  // IDs, in the order of their keys

  std::shared_ptr<const Fault> unreadable;  // the fault that reading all this met: a rule that needs it ends its group

  bool saving = false;  // the record is being saved: a remote destination without an ID falls back to the local one
};

}  // namespace merlu
