// Controls and tags of a loading operation, for its tests.
#pragma once

#include "rules/bounds.h"

namespace merlu::test::loading {

constexpr const char* kVolume = "txtLOA_VolLoaded";
constexpr const char* kDestination = "cmbLOA_GasesVentOrFlare";
constexpr const char* kTechnology = "cmbLOA_ControlTechnology";
constexpr const char* kCondenser = "Vapor Recovery and/or Condenser (VR/C)";
constexpr const char* kDevice = "cmbLOA_OtherControlDevice";

}  // namespace merlu::test::loading
