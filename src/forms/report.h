// The annual QA summary as it is printed.
#pragma once

#include <string>
#include <vector>

#include "base/dates.h"

namespace merlu {

struct ReportLine {
  std::string where;  // equipment in words; empty above equipment
  std::string item;   // what was looked at
  std::string finding;
};

// Findings of one place: a heading, and its lines.
struct ReportSection {
  std::string heading;  // "March 2017", "Operator"
  std::string place;    // structure in words; empty for the operator
  std::vector<ReportLine> lines;
};

struct InventoryReport {
  std::string title;
  std::vector<std::string> operator_lines;  // name and number, address, contact
  std::string year;
  DateTime printed;
  std::string summary;
  int findings = 0;
  std::vector<ReportSection> sections;
};

}  // namespace merlu
