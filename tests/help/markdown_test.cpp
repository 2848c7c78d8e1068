#include "help/markdown.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

TEST(Markdown, reads_headings_paragraphs_and_lists_of_two_depths) {
  const Document document = ReadMarkdown("# Top\nOne\nline\n\n- a\n  goes on\n  - deep\n- b\n1. n\n\n## Next\n");
  ASSERT_EQ(document.blocks.size(), 7u);
  EXPECT_EQ(document.blocks[0].paragraph.heading, 1);
  EXPECT_EQ(PlainText(document.blocks[1].paragraph), "One line");
  EXPECT_EQ(PlainText(document.blocks[2].paragraph), "a goes on");
  EXPECT_EQ(document.blocks[3].paragraph.list, 2);
  EXPECT_FALSE(document.blocks[4].paragraph.numbered);
  EXPECT_TRUE(document.blocks[5].paragraph.numbered);
  EXPECT_EQ(document.blocks[6].paragraph.heading, 2);
}

TEST(Markdown, reads_looks_within_a_line) {
  const std::vector<TextRun> runs = ReadMarkdownLine("a **b** *c* `*d*` \\*e\\* [f](g.md)![h](i.png)");
  ASSERT_EQ(runs.size(), 8u);
  EXPECT_TRUE(runs[1].bold);
  EXPECT_TRUE(runs[3].italic);
  EXPECT_TRUE(runs[5].code);
  EXPECT_EQ(runs[5].text, "*d*");
  EXPECT_EQ(runs[6].text, " *e* f");
  EXPECT_EQ(runs[7].text, "h");
  EXPECT_EQ(runs[7].picture, "i.png");
}

TEST(Markdown, leaves_a_picture_out_of_the_plain_text) {
  EXPECT_EQ(PlainText(ReadMarkdown("before ![what it shows](i.png)after")), "before after\n");
}

TEST(Markdown, reads_tables_with_bars_in_their_cells) {
  const Document document = ReadMarkdown("| A | B |\n| --- | --- |\n| a\\|b |  |\n\nend");
  ASSERT_EQ(document.blocks.size(), 2u);
  ASSERT_EQ(document.blocks[0].rows.size(), 2u);
  EXPECT_TRUE(document.blocks[0].rows[0].header);
  EXPECT_EQ(PlainText(document), "A\tB\na|b\t\nend\n");
}

TEST(Markdown, keeps_the_lines_of_fenced_code) {
  const Document document = ReadMarkdown("```\n# no heading\n\n  - no item\n```\nend");
  ASSERT_EQ(document.blocks.size(), 2u);
  EXPECT_TRUE(document.blocks[0].paragraph.code);
  EXPECT_EQ(PlainText(document.blocks[0].paragraph), "# no heading\n\n  - no item");
}

}  // namespace
}  // namespace merlu
