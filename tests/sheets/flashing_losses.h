// Controls and tags of losses from flashing, for their tests.
#pragma once

#include "rules/bounds.h"

namespace merlu::test::flashing {

constexpr const char* kVessel = "cmbLOS_VesselType";
constexpr const char* kDestination = "cmbLOS_GasesVentOrFlare";
constexpr const char* kDownstream = "txtLOS_DSOpPressure";
constexpr const char* kUpstream = "txtLOS_USOpPressure";
constexpr const char* kDownstreamTag = "Op pressure of Vessel";
constexpr const char* kUpstreamTag = "Op Press upstream of Vessel";

}  // namespace merlu::test::flashing
