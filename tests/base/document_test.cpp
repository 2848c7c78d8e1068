#include "base/document.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

Block Text(const std::string& text) {
  return {{.runs = {{.text = text}}}, {}};
}

TEST(Document, is_shown_as_html_with_nothing_of_its_text_taken_for_marks) {
  Document document;
  document.blocks = {Text("<script>a&b</script> \"q\"")};
  document.blocks[0].paragraph.bookmarks = {"a\"><b>"};
  EXPECT_EQ(ToHtml(document),
            "<p><a name=\"a&quot;&gt;&lt;b&gt;\"></a>&lt;script&gt;a&amp;b&lt;/script&gt; &quot;q&quot;</p>\n");
}

TEST(Document, nests_lists_by_their_depth_and_closes_them) {
  Document document;
  document.blocks = {Text("one"), Text("deep"), Text("two"), Text("after")};
  document.blocks[0].paragraph.list = document.blocks[2].paragraph.list = 1;
  document.blocks[1].paragraph.list = 2;
  document.blocks[1].paragraph.numbered = true;
  EXPECT_EQ(ToHtml(document), "<ul>\n<li>one</li>\n<ol>\n<li>deep</li>\n</ol>\n<li>two</li>\n</ul>\n<p>after</p>\n");
}

TEST(Document, gives_a_line_to_each_paragraph_and_each_row_of_a_table) {
  Document document;
  Block table;
  table.rows = {{{{Text("a").paragraph}, {Text("b").paragraph}}, true}, {{{Text("c").paragraph}}}};
  document.blocks = {Text("before"), table};
  EXPECT_EQ(PlainText(document), "before\na\tb\nc\n");
  const std::string html = ToHtml(document);
  EXPECT_NE(html.find("<th>a</th><th>b</th>"), std::string::npos);
  EXPECT_NE(html.find("<td>c</td>"), std::string::npos);
}

TEST(Document, keeps_code_as_it_stands) {
  Document document;
  document.blocks = {Text("a <b\n  c")};
  document.blocks[0].paragraph.code = true;
  EXPECT_EQ(ToHtml(document), "<pre>a &lt;b\n  c</pre>\n");
}

TEST(Document, makes_a_page_that_fetches_nothing) {
  const std::string page = HtmlPage({}, "A < B");
  EXPECT_NE(page.find("<title>A &lt; B</title>"), std::string::npos);
  for (const char* fetched : {"src=", "href=", "url(", "@import"}) EXPECT_EQ(page.find(fetched), std::string::npos);
}

}  // namespace
}  // namespace merlu
