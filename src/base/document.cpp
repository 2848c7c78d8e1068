#include "base/document.h"

#include <algorithm>

namespace merlu {
namespace {

constexpr int kLowestHeading = 6;

std::string Escape(std::string_view text) {
  std::string escaped;
  for (char c : text) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      case '\n': escaped += "<br>"; break;
      case '\t': escaped += "&nbsp;&nbsp; "; break;
      default: escaped += c;
    }
  }
  return escaped;
}

std::string RunHtml(const TextRun& run, bool sized) {
  if (!run.picture.empty())
    return run.picture.starts_with("data:image/")
               ? "<img src=\"" + Escape(run.picture) + "\" alt=\"" + Escape(run.text) + "\">"
               : "";
  std::string html = Escape(run.text), behind;
  const auto wrap = [&](const std::string& open, const std::string& close) {
    html.insert(0, open);
    html += close;
  };
  if (run.code) wrap("<code>", "</code>");
  if (run.underline) wrap("<u>", "</u>");
  if (run.italic) wrap("<i>", "</i>");
  if (run.bold) wrap("<b>", "</b>");
  if (sized && run.half_points > 0)
    wrap("<span style=\"font-size:" + std::to_string(run.half_points / 2) + (run.half_points % 2 == 1 ? ".5" : "") +
             "pt\">",
         "</span>");
  return html;
}

std::string Inner(const Paragraph& paragraph) {
  std::string html;
  for (const std::string& name : paragraph.bookmarks) {
    const std::string safe = Escape(name);
    html.append("<a name=\"").append(safe).append("\"></a>");
  }
  // a heading's size is the reader's own
  for (const TextRun& run : paragraph.runs) html += RunHtml(run, paragraph.heading == 0);
  return html;
}

std::string InnerOfCode(const Paragraph& paragraph) {
  std::string html;
  for (const TextRun& run : paragraph.runs) html += run.text;
  std::string escaped;
  for (char c : html) escaped += c == '\n' ? "\n" : Escape(std::string_view(&c, 1));
  return escaped;
}

std::string ParagraphHtml(const Paragraph& paragraph) {
  if (paragraph.code) return "<pre>" + InnerOfCode(paragraph) + "</pre>\n";
  const std::string tag =
      paragraph.heading > 0 ? "h" + std::to_string(std::min(paragraph.heading, kLowestHeading)) : "p";
  return "<" + tag + ">" + Inner(paragraph) + "</" + tag + ">\n";
}

std::string TableHtml(const std::vector<TableRow>& rows) {
  std::string html = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"5\" width=\"100%\">\n";
  for (const TableRow& row : rows) {
    const std::string tag = row.header ? "th" : "td";
    html += "<tr>";
    for (const auto& cell : row.cells) {
      html += "<" + tag + ">";
      for (std::size_t i = 0; i < cell.size(); ++i) html += (i == 0 ? "" : "<br>") + Inner(cell[i]);
      html += "</" + tag + ">";
    }
    html += "</tr>\n";
  }
  return html + "</table>\n";
}

// Opens and closes lists, so that each item is at its depth.
class Lists {
 public:
  void Go(std::string& html, int depth, bool numbered) {
    while (static_cast<int>(open_.size()) > depth) Close(html);
    if (depth > 0 && static_cast<int>(open_.size()) == depth && open_.back() != numbered) Close(html);
    while (static_cast<int>(open_.size()) < depth) {
      html += numbered ? "<ol>\n" : "<ul>\n";
      open_.push_back(numbered);
    }
  }

 private:
  void Close(std::string& html) {
    html += open_.back() ? "</ol>\n" : "</ul>\n";
    open_.pop_back();
  }
  std::vector<bool> open_;
};

constexpr const char* kPageStyle =
    "body{font:16px/1.5 sans-serif;max-width:52rem;margin:2rem auto;padding:0 1rem;color:#222;background:#fff}"
    "h1,h2,h3{line-height:1.25}h2{margin-top:2em;border-bottom:1px solid #ccc}"
    "table{border-collapse:collapse;font-size:90%}th,td{border:1px solid #ccc;text-align:left;vertical-align:top}"
    "img{max-width:100%;border:1px solid #ccc}"
    "pre{background:#f3f3f3;padding:.7em;overflow:auto}"
    "@media(prefers-color-scheme:dark){body{color:#ddd;background:#1e1e20}pre{background:#2b2b2e}"
    "h2,th,td{border-color:#555}}";

}  // namespace

std::string PlainText(const Paragraph& paragraph) {
  std::string text;
  for (const TextRun& run : paragraph.runs)
    if (run.picture.empty()) text += run.text;
  return text;
}

std::string PlainText(const Document& document) {
  std::string text;
  for (const Block& block : document.blocks) {
    if (!block.IsTable()) {
      if (block.paragraph.list > 0) text += "• ";
      text += PlainText(block.paragraph) + "\n";
    }
    for (const TableRow& row : block.rows) {
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (i > 0) text += '\t';
        for (std::size_t p = 0; p < row.cells[i].size(); ++p) text += (p == 0 ? "" : " ") + PlainText(row.cells[i][p]);
      }
      text += '\n';
    }
  }
  return text;
}

std::string ToHtml(const Document& document) {
  std::string html;
  Lists lists;
  for (const Block& block : document.blocks) {
    const Paragraph& paragraph = block.paragraph;
    lists.Go(html, block.IsTable() ? 0 : paragraph.list, paragraph.numbered);
    if (block.IsTable())
      html += TableHtml(block.rows);
    else if (paragraph.list > 0)
      html += "<li>" + Inner(paragraph) + "</li>\n";
    else
      html += ParagraphHtml(paragraph);
  }
  lists.Go(html, 0, false);
  return html;
}

std::string HtmlPage(const Document& document, std::string_view title) {
  return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
         "<meta name=\"viewport\" content=\"width=device-width\"><title>" +
         Escape(title) + "</title><style>" + kPageStyle + "</style></head><body>\n" + ToHtml(document) +
         "</body></html>\n";
}

}  // namespace merlu
