#include "base/rtf_tidy.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string_view>

#include "base/text.h"

namespace merlu {
namespace {

constexpr int kUsualSize = 24;  // half points of a text that names no size
constexpr int kLarger = 4;      // half points over the body's size that make a bold line a heading
constexpr int kMuchLarger = 8;  // the same for a line that is not bold
constexpr std::size_t kLongestHeading = 120;
constexpr int kHeadingLevels = 3;
constexpr std::string_view kBullets[] = {"•", "·", "▪", "◦", "–\t"};

int SizeOf(const TextRun& run) {
  return run.half_points > 0 ? run.half_points : kUsualSize;
}

void ForEachParagraph(Document& document, const std::function<void(Paragraph&)>& visit) {
  for (Block& block : document.blocks) {
    if (!block.IsTable()) visit(block.paragraph);
    for (TableRow& row : block.rows)
      for (auto& cell : row.cells)
        for (Paragraph& paragraph : cell) visit(paragraph);
  }
}

// The size that most of the text has.
int BodySize(Document& document) {
  std::map<int, std::size_t> letters;
  ForEachParagraph(document, [&](Paragraph& paragraph) {
    for (const TextRun& run : paragraph.runs) letters[SizeOf(run)] += run.text.size();
  });
  const auto most = std::max_element(letters.begin(), letters.end(),
                                     [](const auto& a, const auto& b) { return a.second < b.second; });
  return most == letters.end() ? kUsualSize : most->first;
}

// The size of a line that is set as a heading is; 0 for any other.
int HeadingSize(const Paragraph& paragraph, int body) {
  if (paragraph.list > 0 || paragraph.runs.empty()) return 0;
  int least = SizeOf(paragraph.runs.front());
  bool bold = true;
  std::size_t length = 0;
  for (const TextRun& run : paragraph.runs) {
    length += run.text.size();
    if (Trim(run.text).empty()) continue;
    least = std::min(least, SizeOf(run));
    bold = bold && run.bold;
  }
  const bool larger = least >= body + (bold ? kLarger : kMuchLarger);
  return larger && length <= kLongestHeading ? least : 0;
}

bool HasHeadings(const Document& document) {
  return std::any_of(document.blocks.begin(), document.blocks.end(),
                     [](const Block& block) { return !block.IsTable() && block.paragraph.heading > 0; });
}

void FindHeadingsBySize(Document& document, int body) {
  std::set<int, std::greater<>> sizes;
  for (const Block& block : document.blocks)
    if (const int size = block.IsTable() ? 0 : HeadingSize(block.paragraph, body); size > 0) sizes.insert(size);
  for (Block& block : document.blocks) {
    const int size = block.IsTable() ? 0 : HeadingSize(block.paragraph, body);
    if (size == 0) continue;
    const auto rank = std::distance(sizes.begin(), sizes.find(size));
    block.paragraph.heading = static_cast<int>(std::min<std::ptrdiff_t>(rank + 1, kHeadingLevels));
  }
}

void TakeTypedBullet(Paragraph& paragraph) {
  if (paragraph.runs.empty() || paragraph.heading > 0) return;
  std::string& text = paragraph.runs.front().text;
  for (const std::string_view bullet : kBullets) {
    if (!text.starts_with(bullet)) continue;
    const std::size_t next = text.find_first_not_of(" \t", bullet.size());
    if (next == bullet.size() && !bullet.ends_with('\t')) return;  // a word that begins with it
    text.erase(0, std::min(next, text.size()));
    paragraph.list = std::max(paragraph.list, 1);
    return;
  }
}

// A heading row is one without its bold face.
void PlainHeaders(Document& document) {
  for (Block& block : document.blocks)
    for (TableRow& row : block.rows)
      for (auto& cell : row.cells)
        for (Paragraph& paragraph : cell)
          for (TextRun& run : paragraph.runs) run.bold = run.bold && !row.header;
}

bool IsEmpty(const Paragraph& paragraph) {
  return std::all_of(paragraph.runs.begin(), paragraph.runs.end(),
                     [](const TextRun& run) { return run.text.find_first_not_of(" \t\n") == std::string::npos; });
}

// Removes empty paragraphs; their bookmarks move to the next one that is kept.
void DropEmptyParagraphs(Document& document) {
  std::vector<Block> kept;
  std::vector<std::string> bookmarks;
  for (Block& block : document.blocks) {
    std::vector<std::string>& own = block.paragraph.bookmarks;
    if (!block.IsTable() && IsEmpty(block.paragraph)) {
      bookmarks.insert(bookmarks.end(), own.begin(), own.end());
      continue;
    }
    if (!block.IsTable()) {
      own.insert(own.begin(), bookmarks.begin(), bookmarks.end());
      bookmarks.clear();
    }
    kept.push_back(std::move(block));
  }
  document.blocks = std::move(kept);
}

}  // namespace

void TidyDocument(Document& document) {
  const int body = BodySize(document);
  if (!HasHeadings(document)) FindHeadingsBySize(document, body);
  ForEachParagraph(document, [body](Paragraph& paragraph) {
    for (TextRun& run : paragraph.runs) {
      if (paragraph.heading > 0 || SizeOf(run) == body) run.half_points = 0;
      if (paragraph.heading > 0) run.bold = false;  // it is one without that
    }
    TakeTypedBullet(paragraph);
  });
  PlainHeaders(document);
  DropEmptyParagraphs(document);
}

}  // namespace merlu
