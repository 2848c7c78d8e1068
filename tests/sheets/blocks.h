// The blocks of fields that several sheets share, by sheet, for their tests.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "rules/bounds.h"

namespace merlu::test::blocks {

using Names = std::vector<std::string>;

// The exhaust outlet.
struct ExhaustCase {
  std::string type, letters, temperature;  // temperature: last part of its control's name
  double height, diameter_low, diameter, velocity, temperature_low, temperature_high;
  bool has_orientation_rule = true;

  std::string Named(const std::string& rest) const { return "txt" + letters + "_ExhaustOutlet" + rest; }
};

inline void PrintTo(const ExhaustCase& c, std::ostream* out) {
  *out << c.type;
}

const ExhaustCase kExhausts[] = {{"BOI", "BOI", "T", 100, 2, 42, 1100, 300, 1100},
                                 {"DIE", "DIE", "ExitT", 300, 1, 48, 1100, 300, 1100},
                                 {"DRI", "JAC", "ExitT", 100, 2, 42, 350, 300, 1100},
                                 {"NGE", "NGE", "ExitT", 300, 1, 48, 1100, 250, 1100, false},
                                 {"NGT", "NGT", "ExitT", 300, 1, 96, 1100, 350, 1500}};

// Another control device.
struct DeviceCase {
  std::string type, letters;
  int page;
  std::string device_tag, description_tag, description_label;
  Names gases = {"SOx", "NOx", "CO", "VOC", "PM10"};

  std::string Device() const { return "cmb" + letters + "_OtherControlDevice"; }
  std::string Description() const { return "txt" + letters + "_OtherControlDesc"; }
  std::string Efficiency(const std::string& gas) const { return "txt" + letters + "_OtherControlEff" + gas; }
};

inline void PrintTo(const DeviceCase& c, std::ostream* out) {
  *out << c.type;
}

const char* const kUsualDevice = "Other Control Device?";
const char* const kUsualDescription = "Other Control Device Descript.";

const DeviceCase kDevices[] = {
    {"BOI", "BOI", 2, "Other Control Device", "Other Control Device Descrip.", "lblBOI_OtherConstrolDesc"},
    {"DIE", "DIE", 2, kUsualDevice, kUsualDescription, ""},
    {"DRI", "JAC", 2, kUsualDevice, "Other Control Equipment Descript.", ""},
    {"FLA", "FLA", 1, kUsualDevice, kUsualDescription, "lblFLA_OtherConstrolDesc"},
    {"NGE", "NGE", 2, kUsualDevice, kUsualDescription, ""},
    {"NGT", "NGT", 2, kUsualDevice, kUsualDescription, ""},
    {"VEN", "VEN", 1, kUsualDevice, kUsualDescription, "lblVEN_OtherControlDesc", {"VOC"}}};

}  // namespace merlu::test::blocks
