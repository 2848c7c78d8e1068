#include "session/notices.h"

#include <gtest/gtest.h>

#include "session/limits.h"
#include "shell/messages.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

TEST(Notices, keep_the_order_in_which_they_were_made_and_count_the_faults) {
  Notices notices;
  Note(notices, "one", Icon::kWarning);
  EXPECT_FALSE(NotingFaults(notices, [] { throw Fault(7, "here", "two"); }));
  EXPECT_FALSE(NotingSheetFaults(notices, [] { throw Fault(8, "here", "three"); }));
  EXPECT_TRUE(NotingFaults(notices, [] {}));
  ASSERT_EQ(notices.waiting.size(), 3u);
  EXPECT_EQ(notices.waiting[0].text, "one");
  EXPECT_EQ(notices.waiting[0].icon, Icon::kWarning);
  EXPECT_EQ(notices.waiting[1].text, "two 7");
  EXPECT_EQ(notices.waiting[2].text, "8 three");
  EXPECT_EQ(notices.faults, 2);
}

TEST(Notices, of_a_full_tree_say_what_there_is_room_for) {
  Notices notices;
  NoteFault(notices, Fault(fault_number::kSubscript, kTreeSource, "Subscript out of range"));
  EXPECT_EQ(notices.waiting[0].detail, kLimitsInWords);
}

TEST(Notices, are_shown_once_in_their_order_before_the_next_box) {
  TestRun run;
  Note(run.s.notices, "one");
  Note(run.s.notices, "two", Icon::kWarning);
  Tell(run.s, "three");
  ASSERT_EQ(run.boxes.size(), 3u);
  EXPECT_EQ(run.boxes[0].title, "MERLU-2017");
  EXPECT_EQ(run.boxes[1].icon, Icon::kWarning);
  EXPECT_EQ(run.boxes[2].text, "three");
  EXPECT_TRUE(run.s.notices.waiting.empty());
  run.boxes.clear();
  ShowNotices(run.s);
  EXPECT_TRUE(run.boxes.empty());
}

TEST(Notices, of_rules_are_taken_out_for_who_shows_them_elsewhere) {
  TestRun run;
  Note(run.s.notices, "one");
  run.s.notices.waiting.push_back({"changed", Icon::kNone, "", true});
  Note(run.s.notices, "two");
  EXPECT_EQ(TakeRuleNotices(run.s), Texts{"changed"});
  EXPECT_EQ(run.TakeBoxes(), (Texts{"one", "two"}));
}

}  // namespace
}  // namespace merlu::test
