#include "exchange/csv.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

using Rows = std::vector<std::vector<std::string>>;

TEST(Csv, quotes_what_must_be_and_disarms_formulas) {
  EXPECT_EQ(CsvField("plain"), "plain");
  EXPECT_EQ(CsvField("a,b"), "\"a,b\"");
  EXPECT_EQ(CsvField("say \"so\""), "\"say \"\"so\"\"\"");
  EXPECT_EQ(CsvField("two\nlines"), "\"two\nlines\"");
  EXPECT_EQ(CsvField("=1+1"), "'=1+1");
  EXPECT_EQ(CsvField("@SUM(A1)"), "'@SUM(A1)");
  EXPECT_EQ(CsvField("+cmd|' /C calc'!A0"), "'+cmd|' /C calc'!A0");
  EXPECT_EQ(CsvField("-12.5"), "-12.5");
  EXPECT_EQ(CsvField("+3"), "+3");
  EXPECT_EQ(CsvField("-"), "'-");
  EXPECT_EQ(CsvField("-inf"), "'-inf");
  EXPECT_EQ(CsvField("=1,2"), "\"'=1,2\"");
  EXPECT_EQ(CsvLine({"", "a", ""}), ",a,\r\n");
}

TEST(Csv, is_read_as_it_was_written) {
  const Rows rows = {{"a,b", "say \"so\"", ""}, {"two\r\nlines", "", "x"}};
  std::string text;
  for (const auto& row : rows) text += CsvLine(row);
  EXPECT_EQ(ParseCsv(text), rows);
}

TEST(Csv, of_other_programs_is_read_too) {
  EXPECT_EQ(ParseCsv("\xEF\xBB\xBF"
                     "a;b\n1,5;2"),
            (Rows{{"a", "b"}, {"1,5", "2"}}));
  EXPECT_EQ(ParseCsv("a\tb\r1\t2\r"), (Rows{{"a", "b"}, {"1", "2"}}));
  EXPECT_EQ(ParseCsv(""), Rows{});
  EXPECT_EQ(ParseCsv("a\n\n\"open"), (Rows{{"a"}, {""}, {"open"}}));
}

TEST(Csv, tells_a_comma_before_decimals_from_one_between_thousands) {
  for (const char* text : {"1,5", "-1287,002", "+12,25"}) EXPECT_TRUE(IsDecimalComma(text)) << text;
  for (const char* text : {"", "15", "1.5", "1,", ",5", "1,2,3", "a,5", "1,5 ft", "1.234,5"})
    EXPECT_FALSE(IsDecimalComma(text)) << text;
  const auto has = [](const std::string& text) { return HasDecimalCommas(text, ParseCsv(text)); };
  EXPECT_TRUE(has("a;b\n1,234;5\n"));
  EXPECT_TRUE(has("a\tb\n1,5\t1,234\n"));
  EXPECT_TRUE(has("a,b\n\"1287,002\",1\n"));
  EXPECT_FALSE(has("a,b\n\"1,234\",1\n"));
  EXPECT_FALSE(has("a,b\n\"1,5\",1.5\n"));
  EXPECT_FALSE(has(""));
}

}  // namespace
}  // namespace merlu::test
