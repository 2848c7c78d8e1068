#include "help/rtf_writer.h"

#include <algorithm>
#include <array>

namespace merlu {
namespace {

constexpr int kBodySize = 21;  // half points
constexpr std::array<int, 4> kHeadingSizes = {40, 30, 25, 22};
constexpr int kTableWidth = 9600;  // twips, between the margins of a page
constexpr int kIndent = 360;

std::string Number(int number) {
  return std::to_string(number);
}

// The character at the place of a valid UTF-8 text; advances the place.
char32_t NextCharacter(const std::string& text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at++]);
  if (lead < 0x80) return lead;
  const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  char32_t character = lead & (0x3FU >> static_cast<unsigned>(more));
  for (int i = 0; i < more && at < text.size(); ++i)
    character = (character << 6U) | (static_cast<unsigned char>(text[at++]) & 0x3FU);
  return character;
}

std::string Unit(char32_t unit) {
  const int number = unit > 0x7FFF ? static_cast<int>(unit) - 0x10000 : static_cast<int>(unit);
  return "\\u" + Number(number) + "?";
}

std::string Escape(const std::string& text) {
  std::string escaped;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = NextCharacter(text, at);
    if (c == '\\' || c == '{' || c == '}')
      escaped.append("\\").append(1, static_cast<char>(c));
    else if (c == '\n')
      escaped += "\\line ";
    else if (c == '\t')
      escaped += "\\tab ";
    else if (c < 0x80)
      escaped += static_cast<char>(c);
    else if (c < 0x10000)
      escaped += Unit(c);
    else
      escaped += Unit(0xD800 + ((c - 0x10000) >> 10U)) + Unit(0xDC00 + ((c - 0x10000) & 0x3FFU));
  }
  return escaped;
}

std::string RunText(const TextRun& run) {
  std::string looks;
  if (run.bold) looks += "\\b";
  if (run.italic) looks += "\\i";
  if (run.underline) looks += "\\ul";
  if (run.code) looks += "\\f1";
  if (run.half_points > 0) looks += "\\fs" + Number(run.half_points);
  const std::string text = Escape(run.text);
  return looks.empty() ? text : "{" + looks + " " + text + "}";
}

std::string Inner(const Paragraph& paragraph) {
  std::string text;
  for (const std::string& name : paragraph.bookmarks)
    text += "{\\*\\bkmkstart " + Escape(name) + "}{\\*\\bkmkend " + Escape(name) + "}";
  for (const TextRun& run : paragraph.runs) text += RunText(run);
  return text;
}

std::string ParagraphText(const Paragraph& paragraph) {
  const std::string inner = Inner(paragraph);
  if (paragraph.heading > 0) {
    const int level = std::min(paragraph.heading, static_cast<int>(kHeadingSizes.size()));
    return "\\pard\\plain\\s" + Number(level) + "\\outlinelevel" + Number(level - 1) + "\\sb" +
           Number(360 - 60 * level) + "\\sa80\\keepn\\f0\\b\\fs" +
           Number(kHeadingSizes[static_cast<std::size_t>(level - 1)]) + " " + inner + "\\par\n";
  }
  const std::string body = "\\f0\\fs" + Number(kBodySize);
  if (paragraph.list > 0) {
    const std::string mark = paragraph.numbered ? "1." : "\\'95";
    return "\\pard\\plain" + body + "{\\pntext" + mark + "\\tab}{\\*\\pn" +
           (paragraph.numbered ? "\\pnlvlbody\\pndec\\pnstart1{\\pntxta.}" : "\\pnlvlblt\\pnf0{\\pntxtb\\'95}") +
           "}\\ilvl" + Number(paragraph.list - 1) + "\\fi-" + Number(kIndent) + "\\li" +
           Number(kIndent * paragraph.list) + "\\sa40 " + inner + "\\par\n";
  }
  return "\\pard\\plain\\sa120" + body + " " + inner + "\\par\n";
}

// Columns share the width by the length of their longest cells, within reason.
std::vector<int> ColumnEnds(const std::vector<TableRow>& rows) {
  std::vector<std::size_t> weights;
  for (const TableRow& row : rows)
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      if (i >= weights.size()) weights.push_back(8);
      for (const Paragraph& paragraph : row.cells[i])
        weights[i] = std::max(weights[i], std::min<std::size_t>(PlainText(paragraph).size(), 40));
    }
  std::size_t total = 0;
  for (const std::size_t weight : weights) total += weight;
  std::vector<int> ends;
  std::size_t sum = 0;
  for (const std::size_t weight : weights) {
    sum += weight;
    ends.push_back(static_cast<int>(sum * kTableWidth / total));
  }
  return ends;
}

std::string TableText(const std::vector<TableRow>& rows) {
  const std::vector<int> ends = ColumnEnds(rows);
  std::string text;
  for (const TableRow& row : rows) {
    text += "\\trowd\\trgaph80";
    if (row.header) text += "\\trhdr";
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      for (const char* side : {"t", "l", "b", "r"}) text += std::string("\\clbrdr") + side + "\\brdrs\\brdrw5";
      text += "\\cellx" + Number(ends[i]);
    }
    text += "\n";
    for (const auto& cell : row.cells) {
      text += "\\pard\\plain\\intbl\\f0\\fs" + Number(kBodySize) + " ";
      if (row.header) text += "{\\b ";
      for (std::size_t p = 0; p < cell.size(); ++p) text += (p == 0 ? "" : "\\line ") + Inner(cell[p]);
      text += row.header ? "}\\cell\n" : "\\cell\n";
    }
    text += "\\row\n";
  }
  return text + "\\pard\\plain\\sa60\\par\n";
}

}  // namespace

std::string ToRtf(const Document& document, const std::string& title) {
  std::string text =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\fmodern\\fcharset0 "
      "Courier "
      "New;}}\n{\\stylesheet{\\s0 Normal;}";
  for (std::size_t level = 0; level < kHeadingSizes.size(); ++level)
    text += "{\\s" + std::to_string(level + 1) + "\\outlinelevel" + std::to_string(level) + "\\b\\fs" +
            Number(kHeadingSizes[level]) + " heading " + std::to_string(level + 1) + ";}";
  text += "}\n{\\info{\\title " + Escape(title) + "}}\n\\paperw12240\\paperh15840\\margl1300\\margr1300\n";
  for (const Block& block : document.blocks)
    text += block.IsTable() ? TableText(block.rows) : ParagraphText(block.paragraph);
  return text + "}\n";
}

}  // namespace merlu
