// Rules that several sheets share, tried on a record of one of them.
#pragma once

#include <string>
#include <vector>

#include "rules/bounds.h"

namespace merlu::test {

// A blank record is found to miss exactly these fields, in this order: "Hours Operated|Total Fuel Used".
void ExpectMissing(const std::string& type, Mode mode, const std::string& fields);

// Fields that apply with one choice of a list and not with the other.
struct ListCase {
  const char *list, *with, *without;
  std::vector<std::string> tags;
};
// Those of a destination: which fields of outlet and flare apply to gas that is vented or flared locally, and none to a
// remote one. `combustion` begins the tags of the flare's temperature and efficiency.
std::vector<ListCase> CasesOfDestination(const char* list, const char* remote, const std::string& combustion);
// With the choice the blank fields are found; without it the findings are withdrawn.
void ExpectWithdrawnWithoutTheChoice(const std::string& type, const std::vector<ListCase>& cases);

// A month's value that may not exceed what its structure passes.
struct TotalRule {
  const char* column;         // of PA_PLATFORM_ACTV: the structure's total
  const char *control, *tag;  // of the value
  const char* finding;
  int most;  // the value's own upper bound, which is tried where the total is kept
  struct {
    const char *total, *same, *more;  // two values around a total, of which single precision tells only one from it
  } single;
};
void ExpectNoMoreThanTheStructure(const std::string& type, const TotalRule& rule);

// Fields that are flagged while they are blank are no longer flagged once they hold these values. `setting` makes them
// required.
void ExpectPassedOnceFilled(const std::string& type, const Values& setting, const Values& fields);

}  // namespace merlu::test
