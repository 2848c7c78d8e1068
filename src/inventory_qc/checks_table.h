// What the annual pass looks at, one line a check.
#pragma once

#include <string_view>
#include <vector>

namespace merlu {

enum class InventoryCheck {
  kRequired,   // the column is not Null
  kNothing,    // the column may be anything
  kDevice,     // a control device and its efficiencies agree
  kSalesGas,   // the composition adds up to exactly 100
  kComponents  // the components are not all 0
};

// When a line applies, on the same row as the column.
enum class Applies {
  kAlways,
  kWithoutModelInputs,  // MODELINPUTS_FLG is 0
  kWithModelInputs,     // MODELINPUTS_FLG is not 0, and not Null
  kWithoutPilotAnswer,  // CTRL_FLA_PILOT_FLG is Null
  kTankHasHeight,       // an upright cylinder, or any rectangular tank
  kTankIsCylindrical,
  kTankIsRectangular,
  kTankStandsRectangular,
  kRoofIsFixed
};

struct InventoryRow {
  std::string_view pass;      // type code, or "USER", "STRUCTURE"
  std::string_view field_id;  // stored in the finding
  std::string_view column;    // looked at; empty for a sum
  std::string_view table;
  std::string_view field_desc;  // stored in the finding, misspellings and all
  InventoryCheck check = InventoryCheck::kRequired;
  Applies applies = Applies::kAlways;
};

// In pass order and, within a pass, in the order of checking.
const std::vector<InventoryRow>& InventoryChecks();

}  // namespace merlu
