#include "base/fuzzy.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

int Fit(const char* typed, const char* name, const char* place = "") {
  return FuzzyWords(typed).Fit(FuzzyText(name), FuzzyText(place));
}

TEST(Fuzzy, takes_letters_in_their_order_without_regard_to_case) {
  EXPECT_GT(Fit("cfl", "Combustion Flare: F1"), 0);
  EXPECT_GT(Fit("FLARE", "Combustion Flare: F1"), 0);
  EXPECT_EQ(Fit("lfc", "Combustion Flare"), 0);
  EXPECT_EQ(Fit("flarex", "Combustion Flare"), 0);
  EXPECT_EQ(Fit("zz", "Storage Tank: Z1"), 0);
}

TEST(Fuzzy, prefers_letters_together_to_scattered_ones) {
  EXPECT_GT(Fit("tank", "Storage Tank: 1"), Fit("tank", "Total gas throughput, inlet of skid"));
  EXPECT_GT(Fit("abc", "xxabcxx"), Fit("abc", "axbxc"));
  EXPECT_GT(Fit("abc", "zabzc"), Fit("abc", "zazzzbzzzc"));
}

TEST(Fuzzy, prefers_the_beginning_of_the_text_then_of_a_word) {
  EXPECT_GT(Fit("flare", "Flare: F1"), Fit("flare", "Combustion Flare: F1"));
  EXPECT_GT(Fit("f1", "Combustion Flare: F1"), Fit("f1", "Combustion Flare: AF1"));
  EXPECT_GT(Fit("f1", "Flare: F1"), Fit("f1", "Flare: F12"));
}

TEST(Fuzzy, prefers_a_whole_word_to_the_beginning_of_one) {
  EXPECT_GT(Fit("f 1", "Combustion Flare: F 1"), Fit("f 1", "Fuel H2S Content (ppmv): required, 0 to 10000"));
  EXPECT_GT(Fit("oil", "Throughput of oil"), Fit("oil", "Throughput oilfield"));
}

TEST(Fuzzy, wants_every_word_and_looks_at_the_place_too) {
  EXPECT_GT(Fit("f1 1001", "Flare: F1", "1001/1"), 0);
  EXPECT_EQ(Fit("f1 1002", "Flare: F1", "1001/1"), 0);
  EXPECT_GT(Fit("flare", "Flare: F1", "x"), Fit("flare", "x", "Flare: F1"));
}

TEST(Fuzzy, of_nothing_typed_fits_nothing) {
  EXPECT_TRUE(FuzzyWords("").empty());
  EXPECT_TRUE(FuzzyWords("  ").empty());
}

TEST(Fuzzy, finds_letters_beyond_ascii) {
  EXPECT_GT(Fit("\xC3\xA9", "caf\xC3\xA9"), 0);
}

}  // namespace
}  // namespace merlu
