// Reads .xlsx: the parts that cells come from, and no other.
#include <map>
#include <optional>
#include <set>

#include "base/code_pages.h"
#include "exchange/foreign_cells.h"
#include "exchange/xml_reader.h"
#include "exchange/zip_parts.h"

namespace merlu {
namespace {

using Kind = ForeignCell::Kind;

// ---- names ----

struct Relation {
  std::string type, part;
};
using Relations = std::map<std::string, Relation, std::less<>>;  // by id

std::string FolderOfPart(std::string_view part) {
  return std::string(part.substr(0, part.rfind('/') + 1));
}

// A target is relative to the top of the archive, or to the folder of the part that names it.
std::string PartOf(const std::string& folder, std::string_view target) {
  if (target.starts_with('/')) return std::string(target.substr(1));
  std::string part = folder;
  while (target.starts_with("../") || target.starts_with("./")) {
    if (target.starts_with("../") && !part.empty())
      part = FolderOfPart(std::string_view(part).substr(0, part.size() - 1));
    target.remove_prefix(target.find('/') + 1);
  }
  return part + std::string(target);
}

class RelationsReader : public XmlHandler {
 public:
  RelationsReader(std::string folder, Relations& relations) : folder_(std::move(folder)), relations_(relations) {}
  void Start(std::string_view name, const XmlAttributes& attributes) override {
    if (name != "Relationship" || attributes.Get("TargetMode") == "External") return;
    const std::string_view type = attributes.Get("Type");
    relations_[std::string(attributes.Get("Id"))] = {std::string(type.substr(type.rfind('/') + 1)),
                                                     PartOf(folder_, attributes.Get("Target"))};
  }
  void End(std::string_view) override {}
  void Text(std::string_view) override {}

 private:
  std::string folder_;
  Relations& relations_;
};

Relations RelationsOf(const ZipParts& parts, const std::string& part) {
  const std::string folder = FolderOfPart(part), file = folder + "_rels/" + part.substr(folder.size()) + ".rels";
  Relations relations;
  if (!parts.Has(file)) return relations;
  RelationsReader reader(folder, relations);
  ReadXml(parts.Read(file), reader);
  return relations;
}

// "C12"; nothing for what names no cell.
std::optional<std::pair<int, int>> PlaceOf(std::string_view name) {
  constexpr int kMost = 10'000'000;
  std::size_t at = 0;
  int column = 0, row = 0;
  for (; at < name.size() && name[at] >= 'A' && name[at] <= 'Z' && column < kMost; ++at)
    column = column * 26 + (name[at] - 'A' + 1);
  for (; at < name.size() && name[at] >= '0' && name[at] <= '9' && row < kMost; ++at) row = row * 10 + (name[at] - '0');
  if (at != name.size() || column == 0 || row == 0) return std::nullopt;
  return std::pair(row - 1, column - 1);
}

// ---- texts ----

// _xHHHH_ escapes a character that XML forbids.
std::string Unescaped(const std::string& text) {
  constexpr std::size_t kLength = 7;
  if (text.find("_x") == std::string::npos) return text;
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const bool escape = text.compare(at, 2, "_x") == 0 && at + kLength <= text.size() && text[at + 6] == '_' &&
                        text.find_first_not_of("0123456789abcdefABCDEF", at + 2) == at + 6;
    if (escape) {
      AppendUtf8(result, static_cast<char32_t>(std::stoul(text.substr(at + 2, 4), nullptr, 16)));
      at += kLength;
    } else {
      result += text[at++];
    }
  }
  return result;
}

// The texts within <t>, without phonetic ones.
class RichText {
 public:
  void Start(std::string_view name) {
    if (name == "rPh") ++spoken_;
    if (name == "t") in_text_ = spoken_ == 0;
  }
  void End(std::string_view name) {
    if (name == "rPh") --spoken_;
    if (name == "t") in_text_ = false;
  }
  void Text(std::string_view text) {
    if (in_text_) text_ += text;
  }
  std::string Take() { return Unescaped(std::exchange(text_, {})); }

 private:
  std::string text_;
  int spoken_ = 0;
  bool in_text_ = false;
};

class SharedTexts : public XmlHandler {
 public:
  void Start(std::string_view name, const XmlAttributes&) override { text_.Start(name); }
  void End(std::string_view name) override {
    text_.End(name);
    if (name != "si") return;
    if (texts.size() == kMost) TooLargeWorkbook("more than 2,000,000 texts");
    texts.push_back(text_.Take());
  }
  void Text(std::string_view text) override { text_.Text(text); }

  std::vector<std::string> texts;

 private:
  static constexpr std::size_t kMost = 2'000'000;
  RichText text_;
};

// ---- formats: only whether one shows a date ----

class Formats : public XmlHandler {
 public:
  void Start(std::string_view name, const XmlAttributes& attributes) override {
    if (name == "cellXfs") in_cells_ = true;
    if (name == "numFmt") named_[attributes.Number("numFmtId", -1)] = IsDateFormat(attributes.Get("formatCode"));
    if (name == "xf" && in_cells_) formats_.push_back(attributes.Number("numFmtId", 0));
  }
  void End(std::string_view name) override {
    if (name == "cellXfs") in_cells_ = false;
  }
  void Text(std::string_view) override {}

  bool IsDate(int format) const {
    if (format < 0 || format >= static_cast<int>(formats_.size())) return false;
    const int number = formats_[static_cast<std::size_t>(format)];
    const auto named = named_.find(number);
    if (named != named_.end()) return named->second;
    // those that every workbook has without naming them
    return (number >= 14 && number <= 22) || (number >= 27 && number <= 36) || (number >= 45 && number <= 47) ||
           (number >= 50 && number <= 58);
  }

 private:
  std::map<int, bool> named_;
  std::vector<int> formats_;
  bool in_cells_ = false;
};

// ---- sheets ----

class SheetReader : public XmlHandler {
 public:
  SheetReader(const std::vector<std::string>& texts, const Formats& formats, ForeignCells& cells)
      : texts_(texts), formats_(formats), cells_(cells) {}

  void Start(std::string_view name, const XmlAttributes& attributes) override {
    if (name == "row") {
      row_ = attributes.Number("r", row_ + 2) - 1;
      column_ = -1;
    } else if (name == "c") {
      StartCell(attributes);
    } else if (name == "f") {
      has_formula_ = true;
    } else if (name == "v") {
      in_value_ = true;
    } else if (name == "mergeCell") {
      Merge(attributes.Get("ref"));
    }
    if (in_cell_) rich_.Start(name);
  }
  void End(std::string_view name) override {
    rich_.End(name);
    if (name == "v") in_value_ = false;
    if (name == "c") EndCell();
  }
  void Text(std::string_view text) override {
    if (in_value_) value_ += text;
    if (in_cell_) rich_.Text(text);
  }

 private:
  void StartCell(const XmlAttributes& attributes) {
    ++column_;
    if (const auto place = PlaceOf(attributes.Get("r"))) {
      row_ = place->first;
      column_ = place->second;
    }
    type_ = attributes.Get("t");
    format_ = attributes.Number("s", 0);
    value_.clear();
    has_formula_ = false;
    in_cell_ = true;
  }

  void EndCell() {
    in_cell_ = false;
    const std::string inline_text = rich_.Take();
    if (has_formula_ && (type_ == "e" || (value_.empty() && inline_text.empty())))
      return cells_.Put(row_, column_, Kind::kFormula, "");
    if (type_ == "inlineStr") return cells_.Put(row_, column_, Kind::kText, inline_text);
    if (type_ == "s") return PutShared();
    if (type_ == "b") return cells_.Put(row_, column_, Kind::kText, value_ == "0" ? "FALSE" : "TRUE");
    if (type_ == "d") return cells_.Put(row_, column_, Kind::kDate, value_);
    if (type_ == "str" || type_ == "e") return cells_.Put(row_, column_, Kind::kText, Unescaped(value_));
    cells_.Put(row_, column_, formats_.IsDate(format_) ? Kind::kDate : Kind::kNumber, NumberText(value_));
  }

  void PutShared() {
    if (value_.empty() || value_.find_first_not_of("0123456789") != std::string::npos || value_.size() > 9) return;
    const std::size_t at = std::stoul(value_);
    if (at < texts_.size()) cells_.Put(row_, column_, Kind::kText, texts_[at]);
  }

  void Merge(std::string_view name) {
    const auto colon = name.find(':');
    if (colon == std::string_view::npos) return;
    const auto first = PlaceOf(name.substr(0, colon)), last = PlaceOf(name.substr(colon + 1));
    if (first && last) cells_.Merge({first->first, first->second, last->first, last->second});
  }

  const std::vector<std::string>& texts_;
  const Formats& formats_;
  ForeignCells& cells_;
  RichText rich_;
  std::string type_, value_;
  int row_ = -1, column_ = -1, format_ = 0;
  bool in_cell_ = false, in_value_ = false, has_formula_ = false;
};

class SheetNames : public XmlHandler {
 public:
  void Start(std::string_view name, const XmlAttributes& attributes) override {
    if (name == "sheet")
      sheets.emplace_back(std::string(attributes.Get("name")), std::string(attributes.Get("id", "relationships")));
  }
  void End(std::string_view) override {}
  void Text(std::string_view) override {}

  std::vector<std::pair<std::string, std::string>> sheets;  // with their relations
};

std::string WorkbookPart(const ZipParts& parts) {
  for (const auto& [id, relation] : RelationsOf(parts, ""))
    if (relation.type == "officeDocument") return relation.part;
  return "xl/workbook.xml";
}

}  // namespace

std::vector<ForeignSheet> ReadXlsx(std::string bytes) {
  const ZipParts parts(std::move(bytes));
  const std::string workbook = WorkbookPart(parts);
  const Relations relations = RelationsOf(parts, workbook);
  SharedTexts texts;
  Formats formats;
  SheetNames names;
  ReadXml(parts.Read(workbook), names);
  for (const auto& [id, relation] : relations) {
    if (relation.type == "sharedStrings" && parts.Has(relation.part)) ReadXml(parts.Read(relation.part), texts);
    if (relation.type == "styles" && parts.Has(relation.part)) ReadXml(parts.Read(relation.part), formats);
  }
  ForeignCells cells;
  std::set<std::string> read;  // a part is one sheet
  for (const auto& [name, id] : names.sheets) {
    const auto found = relations.find(id);
    if (found == relations.end() || found->second.type != "worksheet") continue;
    if (!read.insert(found->second.part).second) continue;
    cells.AddSheet(name);
    SheetReader reader(texts.texts, formats, cells);
    ReadXml(parts.Read(found->second.part), reader);
  }
  return cells.Take();
}

}  // namespace merlu
