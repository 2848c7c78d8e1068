#include "base/rtf_reader.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/code_pages.h"
#include "base/fault.h"
#include "base/rtf_tidy.h"
#include "base/rtf_tokens.h"
#include "base/text.h"

namespace merlu {
namespace {

constexpr int kDeepestList = 9, kLowestHeading = 6, kUtf8Page = 65001, kMostCells = 64;
constexpr std::size_t kLongestName = 200;

// The destination of a group's text.
enum class Goes { kText, kNowhere, kFonts, kStyles, kListMark, kBookmark };

struct Looks {
  bool bold = false, italic = false, underline = false, hidden = false;
  int half_points = 0;
  int font = -1;
};

struct ParagraphState {
  int outline = -1;  // level of a heading, from 0
  int style = -1;
  int list_level = 0;
  bool in_table = false;
};

struct GroupState {
  Goes goes = Goes::kText;
  Looks looks;
  ParagraphState paragraph;
  int fallback = 1;  // characters that replace one of Unicode
  bool starts = true;
  bool ignorable = false;
};

struct SpecialCharacter {
  std::string_view word;
  char32_t character;
};
constexpr SpecialCharacter kSpecial[] = {
    {"tab", '\t'},       {"line", '\n'},      {"lbr", '\n'},         {"emdash", 0x2014},    {"endash", 0x2013},
    {"lquote", 0x2018},  {"rquote", 0x2019},  {"ldblquote", 0x201C}, {"rdblquote", 0x201D}, {"bullet", 0x2022},
    {"emspace", 0x2003}, {"enspace", 0x2002}, {"qmspace", 0x2005},   {"zwj", 0x200D},       {"zwnj", 0x200C},
};

// Groups whose text is none of the page's.
const std::set<std::string_view>& Unread() {
  static const std::set<std::string_view> words = {"colortbl",     "info",
                                                   "pict",         "object",
                                                   "header",       "headerl",
                                                   "headerr",      "headerf",
                                                   "footer",       "footerl",
                                                   "footerr",      "footerf",
                                                   "footnote",     "fldinst",
                                                   "filetbl",      "listtable",
                                                   "revtbl",       "nonshppict",
                                                   "private",      "template",
                                                   "xe",           "tc",
                                                   "tcn",          "rxe",
                                                   "bkmkend",      "atnid",
                                                   "atnauthor",    "atnref",
                                                   "annotation",   "objdata",
                                                   "objclass",     "datafield",
                                                   "nonesttables", "listoverridetable",
                                                   "themedata",    "colorschememapping",
                                                   "ftnsep",       "ftnsepc",
                                                   "aftnsep"};
  return words;
}

int CodePageOf(int charset, int document) {
  switch (charset) {
    case 0: return 1252;
    case 77: return 10000;
    case 161: return 1253;
    case 162: return 1254;
    case 204: return 1251;
    case 238: return 1250;
    case 254: return 437;
    case 255: return 850;
    default: return document;
  }
}

class Reader {
 public:
  Reader(std::string_view text, const RtfLimits& limits) : tokens_(text), limits_(limits) {}

  Document Read() {
    while (parts_ < limits_.parts) {
      const RtfToken token = tokens_.Next();
      if (token.kind == RtfToken::Kind::kEnd) break;
      Take(token);
    }
    EndLastParagraph();
    EndTable();
    return std::move(document_);
  }

 private:
  GroupState& Now() { return groups_.back(); }

  void Take(const RtfToken& token) {
    switch (token.kind) {
      case RtfToken::Kind::kOpen: return Open();
      case RtfToken::Kind::kClose: return Close();
      case RtfToken::Kind::kWord: return TakeWord(token);
      case RtfToken::Kind::kSymbol: return TakeSymbol(token.byte);
      default: return TakeByte(token.byte);
    }
  }

  void Open() {
    skip_ = 0;
    high_surrogate_ = 0;
    if (too_deep_ > 0 || groups_.size() >= limits_.depth) {
      ++too_deep_;
      return;
    }
    groups_.push_back(Now());
    Now().starts = true;
    Now().ignorable = false;
  }

  void Close() {
    skip_ = 0;
    high_surrogate_ = 0;
    if (too_deep_ > 0) {
      --too_deep_;
      return;
    }
    const Goes left = Now().goes;
    if (groups_.size() == 1) return;  // a brace too many
    const GroupState inner = Now();
    groups_.pop_back();
    if (left == Goes::kBookmark && Now().goes != Goes::kBookmark) EndBookmark();
    if (left == Goes::kStyles) EndStyle(inner.paragraph);
  }

  // ---- characters ----

  void TakeByte(char c) {
    if (too_deep_ > 0 || SkipsOne()) return;
    Now().starts = false;
    const auto byte = static_cast<unsigned char>(c);
    const int page = CodePage();
    if (byte >= 0x80 && page == kUtf8Page)
      Raw(c);
    else
      Put(Decode(page, byte));
  }

  int CodePage() const {
    const auto found = fonts_.find(groups_.back().looks.font);
    return found == fonts_.end() ? code_page_ : CodePageOf(found->second, code_page_);
  }

  bool SkipsOne() {
    if (skip_ <= 0) return false;
    --skip_;
    return true;
  }

  void Put(char32_t character) {
    if (character < ' ' && character != '\t' && character != '\n') return;
    std::string text;
    AppendUtf8(text, character);
    for (char c : text) Raw(c);
  }

  void Raw(char c) {
    switch (Now().goes) {
      case Goes::kNowhere: return;
      case Goes::kFonts: return;
      case Goes::kBookmark:
      case Goes::kStyles:
        if (name_.size() < kLongestName) name_ += c;
        return;
      case Goes::kListMark:
        if (mark_.size() < kLongestName) mark_ += c;
        has_mark_ = true;
        return;
      case Goes::kText:
        if (!Now().looks.hidden) Run().text += c;
        return;
    }
  }

  // The run that the next character belongs to.
  TextRun& Run() {
    const Looks& looks = Now().looks;
    std::vector<TextRun>& runs = paragraph_.runs;
    const bool fixed = fixed_fonts_.contains(looks.font);
    const auto same = [&](const TextRun& run) {
      return run.bold == looks.bold && run.italic == looks.italic && run.underline == looks.underline &&
             run.half_points == looks.half_points && run.code == fixed;
    };
    if (runs.empty() || !same(runs.back())) {
      ++parts_;
      runs.push_back({"", looks.bold, looks.italic, looks.underline, fixed, looks.half_points});
    }
    return runs.back();
  }

  void TakeUnicode(int number) {
    const auto unit = static_cast<char32_t>(static_cast<unsigned>(number) & 0xFFFFU);
    skip_ = Now().fallback;
    const char32_t high = high_surrogate_;
    high_surrogate_ = 0;
    if (unit >= 0xD800 && unit < 0xDC00)
      high_surrogate_ = unit;
    else if (unit >= 0xDC00 && unit < 0xE000 && high != 0)
      Put(0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00));
    else
      Put(unit);
  }

  // ---- control words ----

  void TakeSymbol(char symbol) {
    if (too_deep_ > 0) return;
    if (symbol == '*') {
      Now().ignorable = true;
      return;
    }
    if (SkipsOne()) return;
    switch (symbol) {
      case '\\':
      case '{':
      case '}': return Put(static_cast<char32_t>(symbol));
      case '~': return Put(0xA0);
      case '_': return Put(0x2011);
      case '\n':
      case '\r': return EndParagraph();
      case '\t': return Put('\t');
      default: return;
    }
  }

  void TakeWord(const RtfToken& token) {
    if (token.word == "bin") return tokens_.Skip(static_cast<std::size_t>(std::max(token.number, 0)));
    if (too_deep_ > 0 || SkipsOne()) return;
    const bool starts = Now().starts;
    Now().starts = false;
    if (starts && StartsGroup(token)) return;
    if (Now().goes == Goes::kNowhere) return;
    if (token.word == "u") return TakeUnicode(token.number);
    for (const SpecialCharacter& special : kSpecial)
      if (token.word == special.word) return Put(special.character);
    if (TakeSetting(token) || TakeLooks(token) || TakeParagraph(token)) return;
    if (Now().goes == Goes::kText) TakeTable(token);
  }

  // A destination word; an ignorable group with an unknown one is skipped.
  bool StartsGroup(const RtfToken& token) {
    const std::string_view word = token.word;
    GroupState& now = Now();
    if (now.goes == Goes::kNowhere) return true;
    const auto becomes = [&](Goes goes) {
      now.goes = goes;
      name_.clear();
      return true;
    };
    if (word == "fonttbl") return becomes(Goes::kFonts);
    if (word == "stylesheet") return becomes(Goes::kStyles);
    if (word == "bkmkstart") return becomes(Goes::kBookmark);
    if (word == "pntext" || word == "listtext") {
      mark_.clear();
      has_mark_ = true;
      return becomes(Goes::kListMark);
    }
    if (word == "pn") {  // how the older writers set a list
      has_mark_ = true;
      return becomes(Goes::kNowhere);
    }
    if (Unread().contains(word)) return becomes(Goes::kNowhere);
    if (now.ignorable && now.goes == Goes::kStyles && (word == "cs" || word == "ts")) return becomes(Goes::kNowhere);
    if (now.ignorable) return becomes(Goes::kNowhere);
    return false;
  }

  bool TakeSetting(const RtfToken& token) {
    const std::string_view word = token.word;
    if (word == "uc")
      Now().fallback = std::clamp(token.number, 0, 16);
    else if (word == "ansicpg")
      code_page_ = token.number;
    else if (word == "mac")
      code_page_ = 10000;
    else if (word == "pc")
      code_page_ = 437;
    else if (word == "pca")
      code_page_ = 850;
    else if (word == "fcharset" && Now().goes == Goes::kFonts)
      fonts_[Now().looks.font] = token.number;
    else if (word == "fmodern" && Now().goes == Goes::kFonts)
      fixed_fonts_.insert(Now().looks.font);
    else
      return false;
    return true;
  }

  bool TakeLooks(const RtfToken& token) {
    const std::string_view word = token.word;
    Looks& looks = Now().looks;
    const bool on = !token.has_number || token.number != 0;
    if (word == "b")
      looks.bold = on;
    else if (word == "i")
      looks.italic = on;
    else if (word == "v")
      looks.hidden = on;
    else if (word == "ulnone")
      looks.underline = false;
    else if (word == "ul" || word == "uld" || word == "uldb" || word == "ulw" || word == "uldash" || word == "ulth" ||
             word == "ulwave")
      looks.underline = on;
    else if (word == "fs")
      looks.half_points = std::clamp(token.number, 2, 400);
    else if (word == "f")
      looks.font = token.number;
    else if (word == "plain")
      looks = Looks{.font = default_font_};
    else if (word == "deff")
      default_font_ = looks.font = token.number;
    else
      return false;
    return true;
  }

  bool TakeParagraph(const RtfToken& token) {
    const std::string_view word = token.word;
    ParagraphState& state = Now().paragraph;
    if (word == "pard") {
      state = ParagraphState();
      has_mark_ = has_mark_ && !mark_.empty();  // the mark may come before the paragraph's settings
    } else if (word == "s") {
      state.style = token.number;
    } else if (word == "outlinelevel") {
      state.outline = token.number;
    } else if (word == "ilvl") {
      state.list_level = std::clamp(token.number, 0, kDeepestList - 1);
    } else if (word == "intbl") {
      state.in_table = true;
    } else if (word == "par" || word == "sect" || word == "page" || word == "nestrow") {
      if (Now().goes == Goes::kText) EndParagraph();
    } else {
      return false;
    }
    return true;
  }

  void TakeTable(const RtfToken& token) {
    const std::string_view word = token.word;
    if (word == "trowd")
      row_header_ = false;
    else if (word == "trhdr")
      row_header_ = true;
    else if (word == "cell")
      EndCell();
    else if (word == "nestcell")
      Put('\t');
    else if (word == "row")
      EndRow();
  }

  // ---- parts of the page ----

  int HeadingOf(const ParagraphState& state) const {
    int outline = state.outline;
    if (outline < 0)
      if (const auto style = headings_.find(state.style); style != headings_.end()) outline = style->second;
    return outline >= 0 && outline < kLowestHeading ? outline + 1 : 0;
  }

  Paragraph TakeParagraphHere() {
    const ParagraphState& state = Now().paragraph;
    Paragraph taken = std::move(paragraph_);
    paragraph_ = Paragraph();
    ++parts_;
    taken.heading = HeadingOf(state);
    if (has_mark_ && taken.heading == 0) {
      taken.list = state.list_level + 1;
      taken.numbered = mark_.find_first_of("0123456789.)") != std::string::npos;
    }
    has_mark_ = false;
    mark_.clear();
    for (TextRun& run : taken.runs) run.text = ValidUtf8(run.text);
    return taken;
  }

  void EndParagraph() {
    if (Now().paragraph.in_table) {
      if (cell_.size() < limits_.parts) cell_.push_back(TakeParagraphHere());
      return;
    }
    EndTable();
    document_.blocks.push_back({TakeParagraphHere(), {}});
  }

  void EndLastParagraph() {
    if (!paragraph_.runs.empty()) EndParagraph();
  }

  void EndCell() {
    cell_.push_back(TakeParagraphHere());
    if (row_.cells.size() < kMostCells) row_.cells.push_back(std::move(cell_));
    cell_.clear();
  }

  void EndRow() {
    ++parts_;
    row_.header = row_header_;
    if (!row_.cells.empty()) table_.push_back(std::move(row_));
    row_ = TableRow();
  }

  // Cells without the end of a row are kept as paragraphs.
  void EndTable() {
    if (!table_.empty()) document_.blocks.push_back({Paragraph(), std::move(table_)});
    table_.clear();
    for (auto& cell : row_.cells)
      for (Paragraph& paragraph : cell) document_.blocks.push_back({std::move(paragraph), {}});
    row_ = TableRow();
    for (Paragraph& paragraph : cell_) document_.blocks.push_back({std::move(paragraph), {}});
    cell_.clear();
  }

  void EndBookmark() {
    ++parts_;
    if (!name_.empty()) paragraph_.bookmarks.push_back(ValidUtf8(name_));
    name_.clear();
  }

  // A style is a heading by its outline level, or by its name.
  void EndStyle(const ParagraphState& state) {
    const std::string name = Lower(name_);
    name_.clear();
    int outline = state.outline;
    if (const auto at = name.find("heading "); outline < 0 && at != std::string::npos && at + 8 < name.size())
      outline = name[at + 8] - '1';
    if (outline >= 0 && outline < kLowestHeading) headings_[std::max(state.style, 0)] = outline;
    ++parts_;
  }

  RtfTokens tokens_;
  const RtfLimits& limits_;
  std::vector<GroupState> groups_{GroupState{}};
  std::size_t too_deep_ = 0, parts_ = 0;
  int code_page_ = 1252, default_font_ = -1, skip_ = 0;
  char32_t high_surrogate_ = 0;
  std::map<int, int> fonts_;  // number and character set
  std::set<int> fixed_fonts_;
  std::map<int, int> headings_;  // style and outline level
  std::string name_, mark_;      // of a bookmark or style; in front of an item
  bool has_mark_ = false, row_header_ = false;
  Paragraph paragraph_;
  std::vector<Paragraph> cell_;
  TableRow row_;
  std::vector<TableRow> table_;
  Document document_;
};

}  // namespace

Document ReadRtf(std::string_view text, const RtfLimits& limits) {
  if (!text.starts_with("{\\rtf")) throw Fault(fault_number::kOther, "MERLU help", "This is not a rich text file.");
  Document document = Reader(text.substr(0, limits.bytes), limits).Read();
  TidyDocument(document);
  return document;
}

}  // namespace merlu
