#include "base/dates.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

const DateTime kMarch{2017, 3, 5, 14, 2, 9};

TEST(StoredDate, writes_year_month_day_and_time_with_all_digits) {
  EXPECT_EQ(StoredDate(kMarch), "2017-03-05 14:02:09");
  EXPECT_EQ(StoredDate({2017, 12, 31, 0, 0, 0}), "2017-12-31 00:00:00");
}

TEST(SheetDate, shows_the_month_in_three_letters_and_the_time_without_seconds) {
  EXPECT_EQ(SheetDate(kMarch), "Mar 05, 2017 14:02");
  EXPECT_EQ(SheetDate({2017, 9, 30, 0, 5, 59}), "Sep 30, 2017 00:05");
}

TEST(ParseDate, reads_back_what_StoredDate_writes) {
  EXPECT_EQ(ParseDate(StoredDate(kMarch)), kMarch);
}

TEST(ParseDate, takes_what_is_left_out_as_zero) {
  EXPECT_EQ(ParseDate("2017-03-05 14:02"), (DateTime{2017, 3, 5, 14, 2, 0}));
  EXPECT_EQ(ParseDate("2017-03-05"), (DateTime{2017, 3, 5, 0, 0, 0}));
}

TEST(ParseDate, knows_the_length_of_every_month) {
  for (int month = 1; month <= 12; ++month) {
    const int days = month == 2 ? 28 : month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
    const auto text = [&](int day) { return StoredDate({2017, month, day, 1, 1, 1}); };
    EXPECT_TRUE(ParseDate(text(days))) << month;
    EXPECT_FALSE(ParseDate(text(days + 1))) << month;
  }
}

TEST(ParseDate, knows_leap_years) {
  EXPECT_TRUE(ParseDate("2016-02-29"));
  EXPECT_TRUE(ParseDate("2000-02-29"));
  EXPECT_FALSE(ParseDate("2017-02-29"));
  EXPECT_FALSE(ParseDate("1900-02-29"));
}

TEST(ParseDate, refuses_what_is_no_date) {
  for (const char* text : {"", "x", "2017", "2017-03", "2017-13-01", "2017-00-01", "2017-03-00", "2017-03-05 24:00",
                           "2017-03-05 14:60", "2017-03-05 14:02:60", "2017-03-05 14:02:09 ", "2017-03-05x",
                           "2017-03-05 14:02 pm", "03/05/2017", "0000-01-01"})
    EXPECT_FALSE(ParseDate(text)) << '"' << text << '"';
}

TEST(MonthName, is_in_full_and_empty_outside_the_year) {
  EXPECT_EQ(MonthName(1), "January");
  EXPECT_EQ(MonthName(12), "December");
  EXPECT_EQ(MonthName(0), "");
  EXPECT_EQ(MonthName(13), "");
}

}  // namespace
}  // namespace merlu
