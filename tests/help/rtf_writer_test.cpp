#include "help/rtf_writer.h"

#include <gtest/gtest.h>

#include "base/rtf_reader.h"
#include "help/markdown.h"

namespace merlu {
namespace {

TEST(RtfWriter, writes_what_the_reader_reads_back_the_same) {
  const Document written = ReadMarkdown(
      "# Top {1} \\\\ °F\nA **bold** and *slanted* `code` line, € “quoted” \xF0\x9F\x98\x80.\n\n- one\n- two\n  - "
      "deep\n1. first\n\n"
      "## Part\n| A | B |\n| --- | --- |\n| x | y |\n");
  const Document read = ReadRtf(ToRtf(written, "Title"));
  EXPECT_EQ(PlainText(read), PlainText(written));
  EXPECT_EQ(ToHtml(read), ToHtml(written));
}

TEST(RtfWriter, writes_bookmarks_with_their_headings) {
  Document document;
  document.blocks = {{{.runs = {{.text = "Hours"}}, .heading = 4, .bookmarks = {"txtFLA_HrsOperated"}}, {}}};
  const Document read = ReadRtf(ToRtf(document, ""));
  ASSERT_EQ(read.blocks.size(), 1u);
  EXPECT_EQ(read.blocks[0].paragraph.bookmarks, std::vector<std::string>{"txtFLA_HrsOperated"});
  EXPECT_EQ(read.blocks[0].paragraph.heading, 4);
}

TEST(RtfWriter, writes_bytes_of_seven_bits_only) {
  Document document;
  document.blocks = {{{.runs = {{.text = "Пр € ° “x”"}}}, {}}};
  for (const char c : ToRtf(document, "ü")) EXPECT_GE(static_cast<signed char>(c), 0);
}

}  // namespace
}  // namespace merlu
