// The report on what is handed in, as it is printed.
#pragma once

#include <string>
#include <vector>

#include "base/dates.h"

namespace merlu {

// The report that is signed when a month, or the year, is handed in.
struct HandInReport {
  struct Check {
    std::string state, check, count, what_to_do;
  };
  struct Finding {
    std::string record, field, value, expected, text, comment, state;
  };
  struct Structure {
    std::string name;
    std::vector<Finding> findings;
  };

  std::string title;    // "Ready to Hand In: 2017/03"
  std::string program;  // with its version
  std::vector<std::string> operator_lines;
  DateTime printed;
  std::string verdict;
  bool ready = false;
  std::vector<Check> checks;
  std::string counts;  // of the findings by their state
  std::vector<Structure> structures;
};

}  // namespace merlu
