#include "script/words.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

using Words = std::vector<std::string>;

TEST(SplitWords, separates_at_blanks_of_any_number) {
  EXPECT_EQ(SplitWords("set  txtName\tA"), (Words{"set", "txtName", "A"}));
  EXPECT_EQ(SplitWords("  tree \r"), (Words{"tree"}));
}

TEST(SplitWords, gives_no_word_for_an_empty_line) {
  EXPECT_EQ(SplitWords(""), Words{});
  EXPECT_EQ(SplitWords(" \t "), Words{});
}

TEST(SplitWords, keeps_blanks_inside_double_quotes) {
  EXPECT_EQ(SplitWords(R"(select "K12345   1001 1")"), (Words{"select", "K12345   1001 1"}));
  EXPECT_EQ(SplitWords(R"(set txtName " A ")"), (Words{"set", "txtName", " A "}));
}

TEST(SplitWords, takes_an_empty_pair_of_quotes_as_an_empty_word) {
  EXPECT_EQ(SplitWords(R"(file "")"), (Words{"file", ""}));
  EXPECT_EQ(SplitWords(R"("" "")"), (Words{"", ""}));
}

TEST(SplitWords, reads_an_escaped_quote_and_an_escaped_backslash_inside_quotes) {
  EXPECT_EQ(SplitWords(R"("a\"b" "c\\d")"), (Words{"a\"b", "c\\d"}));
  EXPECT_EQ(SplitWords(R"("end\\")"), (Words{"end\\"}));
}

TEST(SplitWords, leaves_any_other_backslash_as_it_stands) {
  EXPECT_EQ(SplitWords(R"(C:\data\x.mdb)"), (Words{R"(C:\data\x.mdb)"}));
  EXPECT_EQ(SplitWords(R"("C:\new")"), (Words{R"(C:\new)"}));
}

TEST(SplitWords, takes_a_quote_in_the_middle_of_a_word_as_a_character) {
  EXPECT_EQ(SplitWords(R"(6"x4")"), (Words{R"(6"x4")"}));
}

TEST(SplitWords, refuses_a_quote_that_is_not_closed) {
  EXPECT_FALSE(SplitWords(R"(set txtName "A)"));
  EXPECT_FALSE(SplitWords(R"("a\")"));
  EXPECT_FALSE(SplitWords("\""));
}

TEST(SplitWords, refuses_a_word_that_goes_on_behind_its_closing_quote) {
  EXPECT_FALSE(SplitWords(R"(set "a"b c)"));
}

TEST(SplitWords, leaves_bytes_beyond_ascii_alone) {
  EXPECT_EQ(SplitWords("set x Ä€"), (Words{"set", "x", "Ä€"}));
}

}  // namespace
}  // namespace merlu
