#include "desktop/access_keys.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

TEST(AccessKeys, are_kept_where_a_caption_has_one) {
  EXPECT_EQ(WithAccessKeys({"E&xit", "&Print"}), (QStringList{"E&xit", "&Print"}));
}

TEST(AccessKeys, are_the_first_letter_of_a_word_that_is_free_and_else_any_letter) {
  EXPECT_EQ(WithAccessKeys({"Open", "Other Way", "&Way"}), (QStringList{"&Open", "O&ther Way", "&Way"}));
  EXPECT_EQ(WithAccessKeys({"Open", "Only One More"}), (QStringList{"&Open", "Only One &More"}));
}

TEST(AccessKeys, that_two_captions_share_stay_with_the_first) {
  EXPECT_EQ(WithAccessKeys({"Ready to &Hand In...", "Change &History...", "&Completeness"}),
            (QStringList{"Ready to &Hand In...", "Ch&ange History...", "&Completeness"}));
}

TEST(AccessKeys, leave_lines_and_captions_without_a_free_letter_alone) {
  EXPECT_EQ(WithAccessKeys({"-", "aa", "AA", "12"}), (QStringList{"-", "&aa", "AA", "12"}));
}

TEST(AccessKeys, tell_a_doubled_mark_from_a_key) {
  EXPECT_TRUE(AccessKey("End && Save").isNull());
  EXPECT_EQ(AccessKey("End && &Save"), QChar('S'));
  EXPECT_TRUE(AccessKey("End &").isNull());
  EXPECT_EQ(WithAccessKeys({"End && Save", "Else"}), (QStringList{"&End && Save", "E&lse"}));
}

}  // namespace
}  // namespace merlu::test
