#include "sheets/blocks/blocks.h"

namespace merlu {

void AddControlTechnology(SheetSpec& sheet, const ControlTechnology& b) {
  const std::string list = "cmb" + b.letters + "_ControlTechnology";
  const std::string temperature = "txt" + b.letters + "_CondenserT";
  const std::string pressure = "txt" + b.letters + "_CondenserP";
  sheet.Add(
      b.page, "Control technology",
      {
          Coded(In::kDesc, list, "Installed Control Equipment:", "Installed Control Equipment", "CTRL_TECH", b.items),
          Number(In::kDesc, temperature, "Condenser Temperature (°F):", "Condenser Temperature", "CONDENSER_TEMP",
                 "°F"),
          Number(In::kDesc, pressure, "Condenser Pressure (psia):", "Condenser Pressure", "CONDENSER_PRES", "psia"),
      });
  sheet.Add({{.mode = b.mode,
              .lists = {list},
              .when = Reads(list, b.with_condenser),
              .fields = {temperature, pressure},
              .empties = b.empties}});
}

}  // namespace merlu
