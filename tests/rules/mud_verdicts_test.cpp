#include <gtest/gtest.h>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

TEST(MudDegassing, may_take_31_days_of_february_and_neither_0_nor_32) {
  for (const int month : {1, 2}) {
    SheetRecord record("MUD", Mode::kActv, {}, month);
    for (const auto& [days, finding] : Values{{"0", "Value not in expected range (1 to 31)"},
                                              {"31", ""},
                                              {"32", "Value not in expected range (1 to 31)"},
                                              {"", "Required field left blank"}}) {
      record.Set("txtMUD_DaysPerMonth", days);
      record.Run();
      EXPECT_EQ(record.Finding("Days per Month"), finding) << month << ": " << days;
    }
  }
}

}  // namespace
}  // namespace merlu::test
