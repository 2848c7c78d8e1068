// Controls and tags of a pneumatic pump, for its tests.
#pragma once

#include "rules/bounds.h"

namespace merlu::test::pump {

constexpr const char* kMake = "cmbPNE_Mfr";
constexpr const char* kModel = "cmbPNE_Model";
constexpr const char* kHours = "txtPNE_HrsOperated";
constexpr const char* kRate = "txtPNE_FuelUsageRate";
constexpr const char* kDestination = "cmbPNE_GasesVentOrFlare";
constexpr const char* kRemote = "cmbPNE_VentedToID";
constexpr const char* kRateTag = "Fuel Usage Rate (SCF/hr)";
constexpr const char* kRemoteTag = "Low Pressure Vent/Flare ID";
constexpr const char* kNotOverZero = "Value should be greater than 0";
const std::vector<std::string> kOutlets = {"txtPNE_ExhaustOutletHgt", "txtPNE_ExhaustOutletInnerDiam",
                                           "txtPNE_ExhaustOutletExitVel", "txtPNE_ExhaustOutletExitT",
                                           "txtPNE_ExhaustOutletAngle"};

}  // namespace merlu::test::pump
