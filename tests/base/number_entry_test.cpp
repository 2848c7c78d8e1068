#include "base/number_entry.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

TEST(NumberHint, tells_what_a_save_makes_of_the_text) {
  EXPECT_EQ(NumberHint("12,5"), "Will be saved as 12");
  EXPECT_EQ(NumberHint("12,000.5"), "Will be saved as 12");
  EXPECT_EQ(NumberHint("1,200"), "Will be saved as 1");
  EXPECT_EQ(NumberHint("abc"), "Not a number: will be saved blank");
  EXPECT_EQ(NumberHint("60 mi"), "Not a number: will be saved blank");
  EXPECT_EQ(NumberHint("\u22125"), "Not a number: will be saved blank");
  EXPECT_EQ(NumberHint("=1+"), "Not a number: will be saved blank");
  for (const char* same : {"", " ", "5", "5.0", "1e3", "-5", " 744 ", "0.10"}) EXPECT_EQ(NumberHint(same), "") << same;
}

TEST(Sum, is_computed) {
  EXPECT_EQ(SumText("=12*31"), "372");
  EXPECT_EQ(SumText(" = 1 + 2 * 3"), "7");
  EXPECT_EQ(SumText("=(1+2)*3"), "9");
  EXPECT_EQ(SumText("=10/4-0.5"), "2");
  EXPECT_EQ(SumText("=-(2+3)"), "-5");
  EXPECT_EQ(SumText("=2--3"), "5");
  EXPECT_EQ(SumText("=8-3-2"), "3");
  EXPECT_EQ(SumText("=16/4/2"), "2");
  EXPECT_EQ(SumText("=5\u22122"), "3");
}

TEST(Sum, that_is_none_has_no_text) {
  for (const char* none : {"=", "=1+", "=1/0", "=(1", "=1)", "=a", "12*31", "=1,200", "=1..2", "=2 3", "=1e3"})
    EXPECT_EQ(SumText(none), std::nullopt) << none;
  EXPECT_EQ(SumText("=" + std::string(100000, '(') + "1"), std::nullopt);
  EXPECT_TRUE(IsSum("=1+"));
  EXPECT_FALSE(IsSum("1=1"));
}

}  // namespace
}  // namespace merlu
