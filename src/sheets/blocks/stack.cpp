#include "sheets/blocks/blocks.h"

namespace merlu {

void AddStack(SheetSpec& sheet, int page, const Stack& b) {
  const std::string name = "txt" + b.letters + "_Stack";
  sheet.Add(
      page, "Stack",
      {
          Number(In::kDesc, name + "OutletElev", "Stack Outlet Elevation (ft msl):", "Stack Outlet Elevation",
                 "STK_OUT_ELEV", "ft msl"),
          Number(In::kDesc, name + "InnerDiam", "Stack Inner Diameter (in):", "Stack Inner Diameter", "STK_INNER_DIAM",
                 "in"),
          Number(In::kDesc, name + "ExitVel", "Avg. Exit Velocity (ft/s), excl. upsets:", b.velocity_tag,
                 "STK_EXIT_VEL", "ft/s"),
          Number(In::kDesc, b.temperature_control, b.temperature_caption, b.temperature_tag, "STK_EXIT_TEMP", "°F"),
          Number(In::kDesc, name + "Angle", "Stack Orientation (degrees):", "Stack Orientation", "STK_ANGLE",
                 "degrees"),
      });
}

}  // namespace merlu
