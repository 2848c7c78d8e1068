// The groups of fields that several sheets share. Each is told once; what differs by sheet (captions, tags,
// columns, bounds) is data of the sheet. All are fields of the description.
#pragma once

#include <string>
#include <vector>

#include "sheets/rules.h"
#include "sheets/spec.h"

namespace merlu {

// Another control device: whether there is one, what it is, and its efficiencies in percent.
struct OtherControl {
  std::string letters;
  int page = 1;
  std::string device_tag = "Other Control Device?";
  std::string description_tag = "Other Control Device Descript.";
  std::string description_label;  // name of the description's caption, when it has one
  std::vector<std::string> efficiencies = {"SOx", "NOx", "CO", "VOC", "PM10"};
  std::string efficiency_tag = " Control Efficiency";  // behind the pollutant's name
};
// Fields, enabling, and the rule group Check<letters>OtherControl, which comes last in a run.
void AddOtherControl(SheetSpec& sheet, const OtherControl& block);

// A stack: outlet elevation (ft above msl), inner diameter (in), exit velocity (ft/s), exit temperature
// (degrees F), orientation (degrees).
struct Stack {
  std::string letters;
  std::string temperature_control;
  std::string temperature_caption;
  std::string velocity_tag, temperature_tag;
};
void AddStack(SheetSpec& sheet, int page, const Stack& block);

// An exhaust outlet: height (ft above msl), inner diameter (in), exit velocity (ft/s), exit temperature
// (degrees F), orientation (degrees).
struct Bounds {
  double low, high;
};
struct Exhaust {
  std::string letters;
  int page = 1;
  std::string temperature_control;
  Bounds height, diameter, velocity, temperature;
  bool orientation_has_rule = true;
  Bounds orientation{0, 180};
};
void AddExhaust(SheetSpec& sheet, const Exhaust& block);
// Its rules; the type adds the group Check<letters>Exhaust with what follows them.
std::vector<Rule> ExhaustRules(const Exhaust& block);

}  // namespace merlu
