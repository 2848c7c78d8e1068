#include "base/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace merlu {
namespace {

TEST(LeadingNumber, reads_as_far_as_the_characters_make_a_number) {
  EXPECT_EQ(LeadingNumber("744"), 744);
  EXPECT_EQ(LeadingNumber("  12abc"), 12);
  EXPECT_EQ(LeadingNumber("1,200"), 1);
  EXPECT_EQ(LeadingNumber("-0.5 to 3"), -0.5);
  EXPECT_EQ(LeadingNumber("+.5"), 0.5);
  EXPECT_EQ(LeadingNumber("1e2x"), 100);
  EXPECT_EQ(LeadingNumber("1e"), 1);
  EXPECT_EQ(LeadingNumber("1e+"), 1);
  EXPECT_EQ(LeadingNumber("3."), 3);
}

TEST(LeadingNumber, is_zero_without_a_number) {
  for (const char* text : {"", "   ", "abc", "-", ".", "-.", "e5", "- 5"}) EXPECT_EQ(LeadingNumber(text), 0) << text;
}

TEST(LeadingNumber, of_more_than_a_double_holds_is_the_largest_one) {
  EXPECT_GT(LeadingNumber("1e999"), 1e308);
  EXPECT_LT(LeadingNumber("-1e999"), -1e308);
  EXPECT_EQ(LeadingNumber("1e-999"), 0);
}

TEST(LeadingNumber, of_less_than_a_double_holds_is_zero_however_it_is_written) {
  const std::string zeros(400, '0');
  EXPECT_EQ(LeadingNumber("0." + zeros + "1"), 0);
  EXPECT_EQ(LeadingNumber("-0." + zeros + "1"), 0);
  EXPECT_EQ(LeadingNumber("12e-500"), 0);
  EXPECT_EQ(LeadingNumber("0." + zeros + "1e-5"), 0);
  EXPECT_GT(LeadingNumber("1" + zeros), 1e308);
  EXPECT_GT(LeadingNumber("1" + zeros + ".5"), 1e308);
  EXPECT_TRUE(IsNumericText("0." + zeros + "1"));
  EXPECT_FALSE(IsNumericText("1" + zeros));
}

TEST(IsNumericText, accepts_what_a_spreadsheet_user_calls_a_number) {
  for (const char* text : {"0", " 5 ", "-5", "+5", "1,200", "1,234,567.5", "0.25", ".5", "5.", "1e2", "1.5E-3", "\t7"})
    EXPECT_TRUE(IsNumericText(text)) << text;
}

TEST(IsNumericText, refuses_everything_else) {
  for (const char* text : {"", " ", "abc", "12abc", "1 2", ",5", "5,", "1,,2", "1.5,2", "1e5,0", "--5", "5-", ".", "1e",
                           "1e999", "0x10", "nan", "inf"})
    EXPECT_FALSE(IsNumericText(text)) << text;
}

TEST(GeneralNumber, prints_the_shortest_form_of_15_digits) {
  EXPECT_EQ(GeneralNumber(0.0), "0");
  EXPECT_EQ(GeneralNumber(-0.0), "0");
  EXPECT_EQ(GeneralNumber(744.0), "744");
  EXPECT_EQ(GeneralNumber(99.8), "99.8");
  EXPECT_EQ(GeneralNumber(0.1 + 0.2), "0.3");
  EXPECT_EQ(GeneralNumber(1000000000000.0), "1000000000000");
  EXPECT_EQ(GeneralNumber(1e15), "1E+15");
  EXPECT_EQ(GeneralNumber(-0.01), "-0.01");
  EXPECT_EQ(GeneralNumber(0.00001), "1E-05");
}

TEST(GeneralNumber, prints_single_precision_with_7_digits) {
  EXPECT_EQ(GeneralNumber(0.0f), "0");
  EXPECT_EQ(GeneralNumber(99.8f), "99.8");
  EXPECT_EQ(GeneralNumber(16777216.0f), "1.677722E+07");
}

TEST(RoundHalfToEven, goes_to_the_even_neighbour) {
  EXPECT_EQ(RoundHalfToEven(0.5), 0);
  EXPECT_EQ(RoundHalfToEven(0.6), 1);
  EXPECT_EQ(RoundHalfToEven(1.5), 2);
  EXPECT_EQ(RoundHalfToEven(2.5), 2);
  EXPECT_EQ(RoundHalfToEven(-0.5), 0);
}

TEST(Numbers, are_written_as_fifteen_digits_say_them) {
  std::uint64_t seed = 11;
  for (int i = 0; i < 200000; ++i) {
    seed = seed * 6364136223846793005u + 1442695040888963407u;
    const int decimals = static_cast<int>(seed % 17);
    const double scaled =
        static_cast<double>(static_cast<std::int64_t>(seed) >> (seed % 53)) / std::pow(10.0, decimals);
    std::array<char, 40> expected{};
    std::snprintf(expected.data(), expected.size(), "%.15g", scaled);
    for (char& c : expected)
      if (c == 'e') c = 'E';
    ASSERT_EQ(GeneralNumber(scaled), expected.data());
  }
}

}  // namespace
}  // namespace merlu
