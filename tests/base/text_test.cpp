#include "base/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace merlu {
namespace {

TEST(Trim, takes_the_blanks_at_both_ends_and_leaves_those_inside) {
  EXPECT_EQ(Trim("  GI  43 "), "GI  43");
  EXPECT_EQ(Trim("A"), "A");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("    "), "");
}

TEST(Trim, leaves_a_tab_and_a_line_break_where_they_are) {
  EXPECT_EQ(Trim("\tA\n"), "\tA\n");
}

TEST(TrimRight, leaves_the_blanks_in_front) {
  EXPECT_EQ(TrimRight("  A  "), "  A");
  EXPECT_EQ(TrimRight("   "), "");
}

std::string Padded(std::string_view text, std::size_t width) {
  std::string padded = "|";
  AppendPadded(padded, text, width);
  return padded.substr(1);
}

TEST(AppendPadded, puts_blanks_in_front_up_to_the_width) {
  EXPECT_EQ(Padded("1", 2), " 1");
  EXPECT_EQ(Padded("", 3), "   ");
  EXPECT_EQ(Padded("12", 2), "12");
}

TEST(AppendPadded, leaves_a_text_that_is_longer_than_the_width) {
  EXPECT_EQ(Padded("12345", 2), "12345");
}

TEST(AppendPadded, counts_characters_and_not_bytes) {
  EXPECT_EQ(Padded("Ä1", 4), "  Ä1");
}

TEST(Upper, folds_ascii_letters_only) {
  EXPECT_EQ(Upper("yes, ä ß 9"), "YES, ä ß 9");
  EXPECT_EQ(Lower("YES, Ä 9"), "yes, Ä 9");
}

TEST(EqualsIgnoringCase, folds_ascii_letters_only) {
  EXPECT_TRUE(EqualsIgnoringCase("STATUS", "status"));
  EXPECT_FALSE(EqualsIgnoringCase("STATUS", "statu"));
  EXPECT_FALSE(EqualsIgnoringCase("Ä", "ä"));
  EXPECT_TRUE(EqualsIgnoringCase("", ""));
}

TEST(LessIgnoringCase, orders_without_regard_to_case_and_breaks_ties_by_bytes) {
  std::vector<std::string> texts = {"b", "a", "C", "A", "B", "c"};
  std::sort(texts.begin(), texts.end(), LessIgnoringCase);
  EXPECT_EQ(texts, (std::vector<std::string>{"A", "a", "B", "b", "C", "c"}));
  EXPECT_FALSE(LessIgnoringCase("a", "a"));
  EXPECT_TRUE(LessIgnoringCase("a", "ab"));
}

TEST(LessIgnoringCase, places_what_is_not_ascii_behind_the_letters) {
  EXPECT_TRUE(LessIgnoringCase("z", "Ä"));
  EXPECT_FALSE(LessIgnoringCase("Ä", "z"));
}

TEST(Characters, are_counted_and_cut_whole) {
  EXPECT_EQ(CountCharacters("aäb€"), 4u);
  EXPECT_EQ(FirstCharacters("aäb€", 2), "aä");
  EXPECT_EQ(LastCharacters("aäb€", 2), "b€");
  EXPECT_EQ(FirstCharacters("ab", 5), "ab");
  EXPECT_EQ(LastCharacters("ab", 5), "ab");
  EXPECT_EQ(FirstCharacters("ab", 0), "");
  EXPECT_EQ(LastCharacters("ab", 0), "");
}

TEST(ValidUtf8, keeps_texts_and_replaces_bytes_that_are_none) {
  EXPECT_EQ(ValidUtf8("aéж中😀"), "aéж中😀");
  EXPECT_EQ(ValidUtf8("A\xFF"
                      "B"),
            "A\uFFFDB");
  EXPECT_EQ(ValidUtf8("\xC3"), "\uFFFD");
  EXPECT_EQ(ValidUtf8("\xC0\x80"), "\uFFFD\uFFFD");                      // a longer form than needed
  EXPECT_EQ(ValidUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");            // half of a pair
  EXPECT_EQ(ValidUtf8("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");  // beyond the last character
}

TEST(ToUtf16, writes_pairs_for_what_lies_beyond_the_first_plane) {
  EXPECT_EQ(ToUtf16("aé中"), u"aé中");
  EXPECT_EQ(ToUtf16("😀"), u"\xD83D\xDE00");
  EXPECT_EQ(ToUtf16("\xF4\x8F\xBF\xBF"), u"\xDBFF\xDFFF");
  EXPECT_EQ(ToUtf16("a\x80z"), u"a\uFFFDz");
}

}  // namespace
}  // namespace merlu
