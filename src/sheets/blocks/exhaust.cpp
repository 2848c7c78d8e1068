#include "sheets/blocks/blocks.h"

namespace merlu {

void AddExhaust(SheetSpec& sheet, const Exhaust& b) {
  const std::string name = "txt" + b.letters + "_ExhaustOutlet";
  sheet.Add(b.page, "Exhaust outlet",
            {
                Number(In::kDesc, name + "Hgt", "Outlet Height (ft above msl):", "Exhaust Outlet Height", "EXH_OUT_HGT",
                       "ft above msl"),
                Number(In::kDesc, name + "InnerDiam", "Outlet Inner Diameter (in):", "Exhaust Outlet Inner Diameter",
                       "EXH_OUT_INNER_DIAM", "in"),
                Number(In::kDesc, name + "ExitVel", "Exit Velocity (ft/s):", "Exhaust Exit Velocity",
                       "EXH_OUT_EXIT_VEL", "ft/s"),
                Number(In::kDesc, b.temperature_control, "Exit Temperature (°F):", "Exhaust Exit Temperature",
                       "EXH_OUT_EXIT_TEMP", "°F"),
                Number(In::kDesc, name + "Angle", "Outlet Orientation (degrees):", "Exhaust Outlet Orientation",
                       "EXH_OUT_ANGLE", "degrees"),
            });
}

std::vector<Rule> ExhaustRules(const Exhaust& b) {
  const std::string name = "txt" + b.letters + "_ExhaustOutlet";
  std::vector<Rule> rules = {
      {1, In::kDesc, name + "Hgt", RequiredRange(b.height.low, b.height.high)},
      {2, In::kDesc, name + "InnerDiam", RequiredRange(b.diameter.low, b.diameter.high)},
      {3, In::kDesc, name + "ExitVel", RequiredRange(b.velocity.low, b.velocity.high)},
      {4, In::kDesc, b.temperature_control, RequiredRange(b.temperature.low, b.temperature.high)},
  };
  if (b.orientation_has_rule)
    rules.push_back({5, In::kDesc, name + "Angle", RequiredRange(b.orientation.low, b.orientation.high)});
  return rules;
}

}  // namespace merlu
