#include "help/prose.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

TEST(Prose, parts_entries_from_the_text_around_them) {
  const Prose prose = ReadProse("# Top\nA note: text.\n\ntxtFLA_A: one\ntwo\ntxtFLA_A!: do\n\nafter\n");
  EXPECT_EQ(prose.entries.at("txtFLA_A"), "one two");
  EXPECT_EQ(prose.entries.at("txtFLA_A!"), "do");
  EXPECT_EQ(prose.entries.size(), 2u);
  EXPECT_EQ(prose.text, "# Top\nA note: text.\n\n\nafter\n");
}

TEST(Prose, of_a_control_is_looked_up_by_its_name_then_by_what_sheets_share) {
  const Prose own = ReadProse("txtFLA_A: own\n*_B: own to the sheet\n");
  const Prose shared = ReadProse("*_A: shared\n*_B: shared\n*_C: shared\n*_A!: advice\n");
  EXPECT_EQ(*FindEntry(own, shared, "txtFLA_A", ""), "own");
  EXPECT_EQ(*FindEntry(own, shared, "txtFLA_B", ""), "own to the sheet");
  EXPECT_EQ(*FindEntry(own, shared, "txtFLA_C", ""), "shared");
  EXPECT_EQ(*FindEntry(own, shared, "txtFLA_A", "!"), "advice");
  EXPECT_EQ(FindEntry(own, shared, "txtFLA_D", ""), nullptr);
  EXPECT_EQ(FindEntry(own, shared, "cboPlain", ""), nullptr);
}

}  // namespace
}  // namespace merlu
