#include "base/rtf_reader.h"

#include <gtest/gtest.h>

#include "base/code_pages.h"
#include "base/fault.h"
#include "base/text.h"
#include "support/rtf_samples.h"

namespace merlu::test {
namespace {

Document Read(const std::string& body) {
  return ReadRtf("{\\rtf1\\ansi\\ansicpg1252\\uc1 " + body + "}");
}

std::string Plain(const std::string& body) {
  return PlainText(Read(body));
}

const Paragraph& At(const Document& document, std::size_t block) {
  EXPECT_LT(block, document.blocks.size());
  return document.blocks.at(block).paragraph;
}

TEST(RtfReader, keeps_bold_italic_and_underline_where_they_stand) {
  const Document document = Read("plain {\\b bold {\\i both}} \\ul line\\ulnone  end\\par");
  const std::vector<TextRun>& runs = At(document, 0).runs;
  ASSERT_EQ(runs.size(), 6u);
  EXPECT_EQ(runs[1].text, "bold ");
  EXPECT_TRUE(runs[1].bold);
  EXPECT_FALSE(runs[1].italic);
  EXPECT_EQ(runs[2].text, "both");
  EXPECT_TRUE(runs[2].bold && runs[2].italic);
  EXPECT_EQ(runs[4].text, "line");
  EXPECT_TRUE(runs[4].underline);
  EXPECT_FALSE(runs[5].underline);
  EXPECT_EQ(PlainText(document), "plain bold both line end\n");
}

TEST(RtfReader, reads_bytes_by_the_code_page_of_the_document_and_of_the_font) {
  EXPECT_EQ(Plain("25\\'b0 \\'80\\par"), "25° €\n");
  EXPECT_EQ(PlainText(ReadRtf("{\\rtf1\\ansi\\ansicpg1251 \\'cf\\'f0\\par}")), "Пр\n");
  EXPECT_EQ(PlainText(ReadRtf("{\\rtf1\\ansi\\ansicpg1250 \\'b3\\'f3d\\'9f\\par}")), "łódź\n");
  EXPECT_EQ(PlainText(ReadRtf("{\\rtf1\\ansi\\ansicpg65001 caf\xC3\xA9\\par}")), "café\n");
  EXPECT_EQ(Plain("{\\fonttbl{\\f0 A;}{\\f1\\fcharset204 B;}}\\f1\\'cf{\\f0\\'cf}\\par"), "ПÏ\n");
}

TEST(RtfReader, takes_unicode_and_leaves_its_stand_ins) {
  EXPECT_EQ(Plain("\\u8364?5 \\u8364\\'80 6\\par"), "€5 € 6\n");
  EXPECT_EQ(Plain("{\\uc2\\u1055??x}\\u1056?\\par"), "ПxР\n");
  EXPECT_EQ(Plain("\\uc0\\u8364 y\\par"), "€y\n");
  EXPECT_EQ(Plain("\\u-10179?\\u-8704?\\par"), "\xF0\x9F\x98\x80\n");
  EXPECT_EQ(Plain("\\u-10179?alone\\par"), "alone\n");
}

TEST(RtfReader, knows_the_special_characters) {
  EXPECT_EQ(Plain("a\\tab b\\line c\\~d\\emdash e\\lquote f\\rquote\\par"),
            "a\tb\nc\xC2\xA0"
            "d—e‘f’\n");
  EXPECT_EQ(Plain("\\{x\\} \\\\ co\\-op\\_er\\par"),
            "{x} \\ coop\xE2\x80\x91"
            "er\n");
}

TEST(RtfReader, passes_over_pictures_properties_and_what_it_does_not_know) {
  EXPECT_EQ(Plain("a{\\pict\\wmetafile8 0102}{\\info{\\title T}}{\\*\\unheard of {text}}{\\header top}b\\par"), "ab\n");
  EXPECT_EQ(Plain("a{\\object{\\*\\objdata 01}{\\result x}}b\\par"), "ab\n");
  EXPECT_EQ(Plain("a\\bin5 {{{{{b\\par"), "ab\n");
  EXPECT_EQ(Plain("{\\v hidden}seen\\par"), "seen\n");
}

TEST(RtfReader, shows_the_text_of_a_link) {
  EXPECT_EQ(Plain("see {\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt {\\ul here}}}.\\par"), "see here.\n");
  EXPECT_EQ(Plain("{\\field{\\fldinst PAGE}{\\fldrslt 4}}\\par"), "4\n");
}

TEST(RtfReader, makes_headings_of_outline_levels_and_of_styles_so_named) {
  const Document document = Read(
      "{\\stylesheet{\\s0 Normal;}{\\s2 heading 2;}}\\pard\\outlinelevel0 Top\\par\\pard\\s2 Under\\par\\pard "
      "text\\par");
  EXPECT_EQ(At(document, 0).heading, 1);
  EXPECT_EQ(At(document, 1).heading, 2);
  EXPECT_EQ(At(document, 2).heading, 0);
}

TEST(RtfReader, makes_headings_of_larger_lines_only_without_any_other) {
  const std::string body(200, 'x');
  const Document sized = Read("\\fs40\\b Title\\par\\fs30 Part\\par\\b0\\fs22 " + body + "\\par");
  EXPECT_EQ(At(sized, 0).heading, 1);
  EXPECT_EQ(At(sized, 1).heading, 2);
  EXPECT_EQ(At(sized, 2).heading, 0);
  EXPECT_EQ(At(sized, 2).runs[0].half_points, 0) << "the body has the size of the reader";
  const Document outlined =
      Read("\\pard\\outlinelevel0\\fs40\\b T\\par\\pard\\fs30 Part\\par\\b0\\fs22 " + body + "\\par");
  EXPECT_EQ(At(outlined, 1).heading, 0);
}

TEST(RtfReader, makes_lists_of_marks_and_of_typed_bullets) {
  const Document document = Read(
      "{\\pntext\\'95\\tab}one\\par{\\listtext 1.\\tab}\\ilvl1 two\\par\\pard\\bullet\\tab three\\par\\pard none\\par");
  EXPECT_EQ(At(document, 0).list, 1);
  EXPECT_FALSE(At(document, 0).numbered);
  EXPECT_EQ(At(document, 1).list, 2);
  EXPECT_TRUE(At(document, 1).numbered);
  EXPECT_EQ(At(document, 2).list, 1);
  EXPECT_EQ(PlainText(At(document, 2)), "three");
  EXPECT_EQ(At(document, 3).list, 0);
}

TEST(RtfReader, reads_tables_with_their_heading_rows) {
  const Document document = Read(
      "\\trowd\\trhdr\\cellx1\\cellx2\\pard\\intbl A\\cell B\\cell\\row\\trowd\\cellx1\\pard\\intbl {\\b c}\\par "
      "d\\cell e\\cell\\row\\pard after\\par");
  ASSERT_EQ(document.blocks.size(), 2u);
  const std::vector<TableRow>& rows = document.blocks[0].rows;
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_TRUE(rows[0].header);
  EXPECT_FALSE(rows[1].header);
  ASSERT_EQ(rows[1].cells.size(), 2u);
  EXPECT_EQ(rows[1].cells[0].size(), 2u);
  EXPECT_TRUE(rows[1].cells[0][0].runs[0].bold);
  EXPECT_EQ(PlainText(document), "A\tB\nc d\te\nafter\n");
}

TEST(RtfReader, remembers_bookmarks_and_moves_those_of_empty_lines_on) {
  const Document document = Read("{\\*\\bkmkstart top}{\\*\\bkmkend top}\\par{\\*\\bkmkstart here}text\\par");
  ASSERT_EQ(document.blocks.size(), 1u);
  EXPECT_EQ(At(document, 0).bookmarks, (std::vector<std::string>{"top", "here"}));
}

TEST(RtfReader, refuses_what_is_no_rich_text) {
  EXPECT_THROW(ReadRtf("hello"), Fault);
  EXPECT_THROW(ReadRtf(""), Fault);
  EXPECT_THROW(ReadRtf("{\\html}"), Fault);
}

TEST(RtfReader, gives_what_could_be_read_of_a_broken_file) {
  EXPECT_EQ(PlainText(ReadRtf("{\\rtf1 cut of")), "cut of\n");
  EXPECT_EQ(PlainText(ReadRtf("{\\rtf1 a}}}} b\\par")), "a b\n");
  EXPECT_EQ(PlainText(ReadRtf("{\\rtf1 a\\'")), "a?\n");
  EXPECT_EQ(PlainText(ReadRtf("{\\rtf1 a\\'z1\\")), "a?z1\n");
  EXPECT_EQ(Plain("\\trowd\\intbl open\\cell rest"), "open\nrest\n");
  EXPECT_EQ(Plain("\\b999999999999 x\\fs-99999999999 y\\u99999999999999?z\\bin-5 w\\par").back(), '\n');
}

TEST(RtfReader, passes_over_groups_that_lie_too_deep) {
  std::string deep = "{\\rtf1 before ";
  for (int i = 0; i < 100000; ++i) deep += "{x";
  deep += std::string(100000, '}') + "after\\par}";
  const std::string text = PlainText(ReadRtf(deep));
  EXPECT_TRUE(text.starts_with("before xxx"));
  EXPECT_TRUE(text.ends_with("xafter\n"));
  EXPECT_LT(text.size(), 1000u);
}

TEST(RtfReader, ends_reading_at_its_limits) {
  std::string many = "{\\rtf1 ";
  for (int i = 0; i < 5000; ++i) many += "a\\par ";
  RtfLimits limits;
  limits.parts = 100;
  EXPECT_LE(ReadRtf(many, limits).blocks.size(), 100u);
  limits = RtfLimits();
  limits.bytes = 100;
  EXPECT_LT(PlainText(ReadRtf(many, limits)).size(), 100u);
}

// ---- files of other writers ----

TEST(RtfReader, reads_the_plain_editors_dialect) {
  const Document document = ReadRtf(kPlainEditor);
  EXPECT_EQ(PlainText(document), "Vent help\nGas leaves at 25° slowly.\n• first\n• second one\ndone\n");
  EXPECT_EQ(At(document, 0).heading, 1);
}

TEST(RtfReader, reads_the_large_word_processors_dialect) {
  const Document document = ReadRtf(kWordProcessor);
  EXPECT_EQ(
      PlainText(document),
      "Flow „and“ heat\nłódź See the guide. \n• Item one\n• Numbered\nField\tRule\nHours\t0 to 744\nat most\nafter\n");
  EXPECT_EQ(At(document, 0).heading, 1);
  EXPECT_EQ(At(document, 0).bookmarks, std::vector<std::string>{"_Toc1"});
  EXPECT_EQ(At(document, 3).list, 2);
  EXPECT_TRUE(At(document, 3).numbered);
  ASSERT_TRUE(document.blocks[4].IsTable());
  EXPECT_TRUE(document.blocks[4].rows[0].header);
  EXPECT_FALSE(document.blocks[4].rows[1].header);
}

TEST(RtfReader, reads_the_office_suites_dialect) {
  const Document document = ReadRtf(kOfficeSuite);
  EXPECT_EQ(PlainText(document), "Glycol\nПривет, пр\na\tb\nend\n");
  EXPECT_EQ(At(document, 0).heading, 1);
}

TEST(RtfReader, reads_the_other_desktops_dialect) {
  const Document document = ReadRtf(kOtherDesktop);
  EXPECT_EQ(PlainText(document), "Storage\nDome éclair\ncode\n• typed bullet\n");
  EXPECT_EQ(At(document, 0).heading, 1);
  EXPECT_TRUE(At(document, 2).runs[0].code);
  EXPECT_EQ(At(document, 3).list, 1);
}

// ---- malformed files ----

// A small generator whose numbers are the same on every machine.
struct Dice {
  std::uint32_t state;
  std::uint32_t Roll(std::size_t sides) {
    state ^= state << 13U;
    state ^= state >> 17U;
    state ^= state << 5U;
    return static_cast<std::uint32_t>(state % sides);
  }
};

std::string Mutated(std::string text, const std::vector<std::string>& others, Dice& dice) {
  const char* kMarks[] = {"{",       "}",   "\\par ", "\\cell ",      "\\row ", "\\intbl ", "\\u55357?",
                          "\\bin9 ", "\\'", "\\*",    "{\\listtext ", "\\pard", "\\trowd"};
  for (std::uint32_t changes = 1 + dice.Roll(6); changes > 0; --changes) {
    const std::size_t at = dice.Roll(text.size());
    switch (dice.Roll(5)) {
      case 0: text[at] = static_cast<char>(dice.Roll(256)); break;
      case 1: text.erase(at, dice.Roll(40)); break;
      case 2: text.insert(at, kMarks[dice.Roll(std::size(kMarks))]); break;
      case 3: text.insert(at, text.substr(dice.Roll(text.size()), dice.Roll(60))); break;
      default: {
        const std::string& other = others[dice.Roll(others.size())];
        text.insert(at, other.substr(dice.Roll(other.size()), dice.Roll(80)));
      }
    }
    if (text.empty()) text = "{";
  }
  return "{\\rtf1" + text;
}

TEST(RtfReader, reads_thousands_of_broken_files_within_their_bounds) {
  const std::vector<std::string> seeds = RtfSamples();
  Dice dice{2017};
  RtfLimits limits;
  limits.depth = 40;
  limits.parts = 2000;
  std::size_t read = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string text = Mutated(seeds[dice.Roll(seeds.size())], seeds, dice);
    const Document document = ReadRtf(text, limits);
    const std::string plain = PlainText(document);
    ASSERT_EQ(plain, ValidUtf8(plain)) << "round " << round;
    ASSERT_LE(document.blocks.size(), limits.parts) << "round " << round;
    ASSERT_LE(plain.size(), 3 * text.size() + 10 * limits.parts) << "round " << round;
    ASSERT_LE(ToHtml(document).size(), 200 * (text.size() + 100)) << "round " << round;
    if (!plain.empty()) ++read;
  }
  EXPECT_GT(read, 10000u) << "the mutations must leave something to read";
}

}  // namespace
}  // namespace merlu::test
