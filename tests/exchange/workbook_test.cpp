#include "exchange/workbook.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace merlu {
namespace {

TEST(SerialDate, counts_days_as_spreadsheet_programs_do) {
  EXPECT_EQ(ToSerial({1900, 3, 1})->days, 61);
  EXPECT_EQ(ToSerial({1970, 1, 1})->days, 25569);
  EXPECT_EQ(ToSerial({2017, 3, 5})->days, 42799);
  EXPECT_EQ(ToSerial({9999, 12, 31})->days, 2958465);
}

TEST(SerialDate, has_the_time_of_day_as_a_fraction) {
  EXPECT_EQ(ToSerial({2017, 3, 5, 12, 0, 0})->days, 42799.5);
  EXPECT_DOUBLE_EQ(ToSerial({2017, 3, 5, 23, 59, 59})->days, 42799 + 86399 / 86400.0);
}

TEST(SerialDate, is_none_for_days_on_which_the_programs_do_not_agree) {
  EXPECT_FALSE(ToSerial({1900, 2, 28, 23, 59, 59}));
  EXPECT_FALSE(ToSerial({1, 1, 1}));
}

TEST(TextWidth, is_wider_for_capitals_and_east_asian_letters_and_that_of_the_longest_line) {
  EXPECT_EQ(TextWidth(""), 0);
  EXPECT_EQ(TextWidth("1234"), 4);
  EXPECT_GT(TextWidth("ABCD"), TextWidth("abcd"));
  EXPECT_EQ(TextWidth("中文"), 4);
  EXPECT_EQ(TextWidth("😀"), 2);
  EXPECT_EQ(TextWidth("жжж"), 3);
  EXPECT_EQ(TextWidth("12\n12345\n1"), 5);
}

Sheet WithText(const std::string& text) {
  return {"ED_AMI", {{}, {{EmptyCell(), text}}}, {}, 0};
}

std::string WhyNot(const Sheet& sheet, const SheetLimits& limits) {
  try {
    CheckFits(sheet, limits);
    return "";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number, fault_number::kOverflow);
    return fault.description;
  }
}

TEST(CheckFits, lets_a_sheet_pass_that_fills_the_format) {
  EXPECT_EQ(WhyNot(WithText("x"), {2, 2}), "");
}

TEST(CheckFits, refuses_rows_and_columns_beyond_the_format) {
  EXPECT_EQ(WhyNot(WithText("x"), {1, 2}), "The table ED_AMI has too many records: 2 rows, the file takes 1.");
  EXPECT_EQ(WhyNot(WithText("x"), {2, 1}), "The table ED_AMI has too many fields: 2 columns, the file takes 1.");
}

TEST(CheckFits, counts_letters_of_a_text_as_the_formats_do) {
  std::string wide, pairs;
  for (int i = 0; i < 32767; ++i) wide += "ж";
  for (int i = 0; i < 16384; ++i) pairs += "😀";
  EXPECT_EQ(WhyNot(WithText(wide), {2, 2}), "");
  EXPECT_EQ(WhyNot(WithText(wide + "x"), {2, 2}),
            "The table ED_AMI has a text of 32768 characters, a cell takes 32767.");
  EXPECT_EQ(WhyNot(WithText(pairs), {2, 2}), "The table ED_AMI has a text of 32768 characters, a cell takes 32767.");
}

TEST(Xls, refuses_more_rows_than_the_format_has) {
  Sheet sheet{"ED_AMI", {}, {}, 0};
  sheet.rows.resize(65536);
  EXPECT_NO_THROW(NewXls("unused")->Add(sheet));
  sheet.rows.emplace_back();
  EXPECT_THROW(NewXls("unused")->Add(sheet), Fault);
}

}  // namespace
}  // namespace merlu
