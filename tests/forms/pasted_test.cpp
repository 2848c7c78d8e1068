#include "forms/pasted.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

TEST(PastedNumber, comes_without_what_stands_around_its_digits) {
  for (const auto& [pasted, typed] : std::vector<std::pair<const char*, const char*>>{{"1200", "1200"},
                                                                                      {" 1200 ", "1200"},
                                                                                      {"1,200", "1200"},
                                                                                      {"1 200", "1200"},
                                                                                      {"1\xC2\xA0"
                                                                                       "200",
                                                                                       "1200"},
                                                                                      {"1\xE2\x80\xAF"
                                                                                       "234\xE2\x80\xAF"
                                                                                       "567.5",
                                                                                       "1234567.5"},
                                                                                      {"12,000.5", "12000.5"},
                                                                                      {"\xE2\x88\x92"
                                                                                       "5",
                                                                                       "-5"},
                                                                                      {"60 mi", "60"},
                                                                                      {"60mi", "60"},
                                                                                      {"1,200 Mscf", "1200"},
                                                                                      {"98 %", "98"},
                                                                                      {"1832 \xC2\xB0"
                                                                                       "F",
                                                                                       "1832"},
                                                                                      {"1e3", "1e3"},
                                                                                      {"2.5E-3 ft", "2.5E-3"},
                                                                                      {".5", ".5"},
                                                                                      {"5 e", "5"},
                                                                                      {"20Mscf/day", "20"},
                                                                                      {"35 ft3", "35"},
                                                                                      {"12\"", "12"}})
    EXPECT_EQ(PastedNumber(pasted), typed) << pasted;
}

TEST(PastedNumber, is_left_alone_when_it_is_none_or_more_than_one) {
  for (const char* text : {"",      "abc",        "12,5", "1,2,3",    "1,20",         "1287,002",  "1234 567", "12 50",
                           "1.2.3", "2017/03/01", "-",    "5-6",      "F-104",        "5;6",       "1_200",    "1|2",
                           "0x10",  "1d3",        "1e+",  "12 to 14", "5 hrs 30 min", "12 (est.)", "7 = 7"})
    EXPECT_EQ(PastedNumber(text), text);
}

TEST(PastedCells, are_those_of_a_row_and_of_numbers_those_of_a_column) {
  using Cells = std::vector<std::string>;
  EXPECT_EQ(PastedCells("1\t2\t3\n", true), (Cells{"1", "2", "3"}));
  EXPECT_EQ(PastedCells("1\r\n2\r\n", true), (Cells{"1", "2"}));
  EXPECT_EQ(PastedCells("1\t\t3", true), (Cells{"1", "", "3"}));
  EXPECT_EQ(PastedCells("one\ntwo", false), (Cells{"one\ntwo"}));
  EXPECT_EQ(PastedCells("", true), (Cells{""}));
}

}  // namespace
}  // namespace merlu
