// Controls and tags of a glycol dehydrator, for its tests.
#pragma once

#include "rules/bounds.h"

namespace merlu::test::glycol {

constexpr const char* kThroughput = "txtGLY_TotalGasThru";
constexpr const char* kDestination = "cmbGLY_GasesVentOrFlare";
constexpr const char* kTechnology = "cmbGLY_ControlTechnology";
constexpr const char* kCondenser = "Vapor Recovery and/or Condenser (VR/C)";
constexpr const char* kFlashTank = "cmbGLY_UseFlashTank";
constexpr const char* kStripping = "cmbGLY_StrippingGas";
constexpr const char* kDevice = "cmbGLY_OtherControlDevice";

}  // namespace merlu::test::glycol
