// A text with its looks: what a help page is made of, whatever file it comes from and whatever shows it.
// All texts are UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace merlu {

struct TextRun {
  std::string text;  // may hold '\n' for a line break and '\t'
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool code = false;    // set in a fixed pitch
  int half_points = 0;  // size; 0 for the size of the text around
  // A picture in place of the text, which is then its description: a file, or "data:image/png;base64,..." when the
  // document holds the picture itself. Only the program's own documents have pictures.
  std::string picture{};
};

struct Paragraph {
  std::vector<TextRun> runs;
  int heading = 0;                     // 1 is the topmost, 0 is no heading
  int list = 0;                        // depth in a list, 0 outside
  bool numbered = false;               // of a list: its marks are numbers
  bool code = false;                   // preformatted lines, in a fixed pitch
  std::vector<std::string> bookmarks;  // names that a reader can go to
};

struct TableRow {
  std::vector<std::vector<Paragraph>> cells;
  bool header = false;
};

// A paragraph, or a table when there are rows.
struct Block {
  Paragraph paragraph;
  std::vector<TableRow> rows;
  bool IsTable() const { return !rows.empty(); }
};

struct Document {
  std::vector<Block> blocks;
};

std::string PlainText(const Paragraph& paragraph);
// A line for each paragraph and each row of a table, whose cells are parted by tabs.
std::string PlainText(const Document& document);

// ToHtml gives the body, HtmlPage a complete page; bookmarks become anchors. The HTML has no links and loads nothing
// from the network.
std::string ToHtml(const Document& document);
std::string HtmlPage(const Document& document, std::string_view title);

}  // namespace merlu
