// Controls and tags of pneumatic controllers, for their tests.
#pragma once

#include "rules/bounds.h"

namespace merlu::test::controllers {

constexpr const char* kService = "cmbPRE_ServiceType";
constexpr const char* kMake = "cmbPRE_Mfr";
constexpr const char* kModel = "cmbPRE_Model";
constexpr const char* kHours = "txtPRE_HrsOperated";
constexpr const char* kRate = "txtPRE_FuelUsageRate";

}  // namespace merlu::test::controllers
