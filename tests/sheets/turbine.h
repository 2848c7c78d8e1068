// Controls and tags of a turbine, for its tests.
#pragma once

#include "rules/bounds.h"

namespace merlu::test::turbine {

constexpr const char* kGasTotal = "txtNGT_TotalFuelUsed";
constexpr const char* kDieselTotal = "txtNGT_TotalFuelUsed_Diesel";
constexpr const char* kDieselTotalTag = "Diesel Total Fuel Used (Diesel)";

}  // namespace merlu::test::turbine
