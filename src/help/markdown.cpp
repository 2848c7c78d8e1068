#include "help/markdown.h"

#include <algorithm>
#include <optional>

#include "base/text.h"

namespace merlu {
namespace {

// "[text](target)" or "![text](target)" at the place: its text, and where it ends.
struct Link {
  std::string_view text, target;
  std::size_t end = 0;
  bool picture = false;
};

std::optional<Link> LinkAt(std::string_view line, std::size_t at) {
  Link link;
  link.picture = line[at] == '!';
  const std::size_t open = link.picture ? at + 1 : at;
  if (open >= line.size() || line[open] != '[') return std::nullopt;
  const std::size_t middle = line.find("](", open);
  const std::size_t close = middle == std::string_view::npos ? middle : line.find(')', middle);
  if (close == std::string_view::npos) return std::nullopt;
  link.text = line.substr(open + 1, middle - open - 1);
  link.target = line.substr(middle + 2, close - middle - 2);
  link.end = close + 1;
  return link;
}

class Line {
 public:
  explicit Line(std::string_view line) : line_(line) {}

  std::vector<TextRun> Read() {
    while (at_ < line_.size()) Take();
    End();
    return std::move(runs_);
  }

 private:
  bool Sees(std::string_view mark) const { return line_.substr(at_).starts_with(mark); }

  void Take() {
    if (line_[at_] == '\\' && at_ + 1 < line_.size() &&
        std::string_view("\\`*_|[]#-").find(line_[at_ + 1]) != std::string_view::npos) {
      now_.text += line_[at_ + 1];
      at_ += 2;
    } else if (Sees("`")) {
      Toggle(now_.code, 1);
    } else if (!now_.code && Sees("**")) {
      Toggle(now_.bold, 2);
    } else if (!now_.code && Sees("*")) {
      Toggle(now_.italic, 1);
    } else if (const auto link = now_.code ? std::nullopt : LinkAt(line_, at_)) {
      Take(*link);
    } else {
      now_.text += line_[at_++];
    }
  }

  void Take(const Link& link) {
    if (link.picture) {
      End();
      runs_.push_back({.text = std::string(link.text), .picture = std::string(link.target)});
    } else {
      now_.text += link.text;
    }
    at_ = link.end;
  }

  void Toggle(bool& looks, std::size_t length) {
    const bool on = !looks;
    End();
    looks = on;
    at_ += length;
  }

  void End() {
    if (!now_.text.empty()) runs_.push_back(now_);
    now_.text.clear();
  }

  std::string_view line_;
  std::size_t at_ = 0;
  TextRun now_;
  std::vector<TextRun> runs_;
};

std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells(1);
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == '|')
      cells.back() += line[++i];
    else if (line[i] == '|')
      cells.emplace_back();
    else
      cells.back() += line[i];
  }
  if (Trim(cells.back()).empty()) cells.pop_back();
  return cells;
}

bool IsRule(const std::string& line) {
  return line.find_first_not_of("|-: ") == std::string::npos;
}

// "- " or "1. " after the indent: where the item's text begins; 0 for no item.
std::size_t ItemText(const std::string& line) {
  const std::size_t start = line.find_first_not_of(' ');
  if (start == std::string::npos) return 0;
  if (line.compare(start, 2, "- ") == 0) return start + 2;
  const std::size_t digits = line.find_first_not_of("0123456789", start);
  return digits != std::string::npos && digits > start && line.compare(digits, 2, ". ") == 0 ? digits + 2 : 0;
}

class Page {
 public:
  Document Read(std::string_view text) {
    for (std::size_t at = 0; at <= text.size();) {
      const std::size_t end = std::min(text.find('\n', at), text.size());
      Take(std::string(text.substr(at, end - at)));
      at = end + 1;
    }
    End();
    return std::move(document_);
  }

 private:
  void Take(const std::string& line) {
    if (line.starts_with("```")) {
      End();
      in_code_ = !in_code_;
      now_.code = in_code_;
      return;
    }
    if (in_code_) {
      text_ += (text_.empty() ? "" : "\n") + line;
      return;
    }
    const std::string trimmed = Trim(line);
    if (trimmed.empty()) return End();
    if (trimmed.starts_with('|')) return TakeRow(trimmed);
    if (!rows_.empty()) End();
    if (trimmed.starts_with('#')) return TakeHeading(trimmed);
    if (const std::size_t item = ItemText(line); item > 0) return TakeItem(line, item);
    text_ += (text_.empty() ? "" : " ") + trimmed;
  }

  void TakeHeading(const std::string& line) {
    End();
    const std::size_t text = line.find_first_not_of('#');
    now_.heading = static_cast<int>(std::min(text, line.size()));
    text_ = text == std::string::npos ? "" : Trim(line.substr(text));
    End();
  }

  void TakeItem(const std::string& line, std::size_t item) {
    End();
    const std::size_t indent = line.find_first_not_of(' ');
    now_.list = indent >= 2 ? 2 : 1;
    now_.numbered = line[indent] != '-';
    text_ = Trim(line.substr(item));
  }

  void TakeRow(const std::string& line) {
    if (rows_.empty()) End();
    if (IsRule(line)) {
      if (!rows_.empty()) rows_.back().header = true;
      return;
    }
    TableRow row;
    for (const std::string& cell : CellsOf(line)) {
      Paragraph paragraph;
      paragraph.runs = ReadMarkdownLine(Trim(cell));
      row.cells.push_back({paragraph});
    }
    rows_.push_back(std::move(row));
  }

  void End() {
    if (!text_.empty()) {
      if (now_.code)
        now_.runs = {{.text = text_, .code = true}};
      else
        now_.runs = ReadMarkdownLine(text_);
      if (!now_.runs.empty()) document_.blocks.push_back({now_, {}});
    }
    if (!rows_.empty()) document_.blocks.push_back({Paragraph(), std::move(rows_)});
    rows_.clear();
    text_.clear();
    now_ = Paragraph();
  }

  bool in_code_ = false;
  std::string text_;
  Paragraph now_;
  std::vector<TableRow> rows_;
  Document document_;
};

}  // namespace

std::vector<TextRun> ReadMarkdownLine(std::string_view line) {
  return Line(line).Read();
}

Document ReadMarkdown(std::string_view text) {
  return Page().Read(text);
}

}  // namespace merlu
