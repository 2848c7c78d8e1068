// Reads .ods: the cells of its tables.
#include <algorithm>
#include <limits>

#include "exchange/foreign_cells.h"
#include "exchange/xml_reader.h"
#include "exchange/zip_parts.h"

namespace merlu {
namespace {

using Kind = ForeignCell::Kind;

constexpr int kFar = 1 << 24;  // beyond any sheet

class ContentReader : public XmlHandler {
 public:
  explicit ContentReader(ForeignCells& cells) : cells_(cells) {}

  void Start(std::string_view name, const XmlAttributes& attributes) override {
    // notes at cells, and tables that are no sheet
    if (passed_over_ > 0 || name == "annotation" || name == "tracked-changes" || name == "shapes") {
      ++passed_over_;
      return;
    }
    if (name == "table")
      StartTable(attributes);
    else if (name == "table-row")
      StartRow(attributes);
    else if (name == "table-cell" || name == "covered-table-cell")
      StartCell(attributes);
    else if (name == "p" && in_cell_)
      text_ += paragraphs_++ > 0 ? "\n" : "";
    else if (name == "s" && in_cell_)
      text_.append(static_cast<std::size_t>(std::clamp(attributes.Number("c", 1), 1, 1000)), ' ');
    else if (name == "tab" && in_cell_)
      text_ += '\t';
    else if (name == "line-break" && in_cell_)
      text_ += '\n';
  }

  void End(std::string_view name) override {
    if (passed_over_ > 0) {
      --passed_over_;
      return;
    }
    if (name == "table-cell" || name == "covered-table-cell") EndCell();
    if (name == "table-row") EndRow();
  }

  void Text(std::string_view text) override {
    if (in_cell_ && paragraphs_ > 0 && passed_over_ == 0) text_ += text;
  }

 private:
  struct Cell {
    int column = 0, repeated = 1;
    Kind kind = Kind::kText;
    std::string text;
  };

  void StartTable(const XmlAttributes& attributes) {
    cells_.AddSheet(attributes.Get("name"));
    row_ = 0;
  }

  void StartRow(const XmlAttributes& attributes) {
    row_repeated_ = std::max(1, attributes.Number("number-rows-repeated", 1));
    column_ = 0;
    row_cells_.clear();
  }

  void StartCell(const XmlAttributes& attributes) {
    in_cell_ = true;
    paragraphs_ = 0;
    text_.clear();
    cell_ = {column_, std::clamp(attributes.Number("number-columns-repeated", 1), 1, kFar), Kind::kText, ""};
    column_ = std::min(kFar, column_ + cell_.repeated);
    type_ = attributes.Get("value-type", "office:1.0");
    has_formula_ = !attributes.Get("formula").empty();
    value_ = attributes.Get(type_ == "date"      ? "date-value"
                            : type_ == "time"    ? "time-value"
                            : type_ == "boolean" ? "boolean-value"
                            : type_ == "string"  ? "string-value"
                                                 : "value");
    const int rows = attributes.Number("number-rows-spanned", 1);
    const int columns = attributes.Number("number-columns-spanned", 1);
    if (rows > 1 || columns > 1)
      cells_.Merge(
          {row_, cell_.column, row_ + std::clamp(rows, 1, kFar) - 1, cell_.column + std::clamp(columns, 1, kFar) - 1});
  }

  void EndCell() {
    in_cell_ = false;
    const bool date = type_ == "date" || type_ == "time";
    const bool number = type_ == "float" || type_ == "percentage" || type_ == "currency";
    if (date || number) {
      cell_.kind = date ? Kind::kDate : Kind::kNumber;
      cell_.text = date ? value_ : NumberText(value_);
    } else if (type_ == "boolean") {
      cell_.text = value_ == "true" ? "TRUE" : "FALSE";
    } else {
      cell_.text = value_.empty() ? text_ : value_;
    }
    // an error is shown as a text without being one
    if (has_formula_ && (cell_.text.empty() || (type_.empty() && cell_.text.starts_with('#')))) {
      cell_.kind = Kind::kFormula;
      cell_.text.clear();
    }
    if (!cell_.text.empty() || cell_.kind == Kind::kFormula) row_cells_.push_back(cell_);
  }

  void EndRow() {
    if (row_cells_.empty()) {
      row_ = std::min(kFar, row_ + std::min(row_repeated_, kFar));
      return;
    }
    for (int i = 0; i < row_repeated_; ++i, ++row_)
      for (const Cell& cell : row_cells_)
        for (int j = 0; j < cell.repeated; ++j) cells_.Put(row_, cell.column + j, cell.kind, cell.text);
  }

  ForeignCells& cells_;
  std::vector<Cell> row_cells_;
  Cell cell_;
  std::string type_, value_, text_;
  int row_ = 0, column_ = 0, row_repeated_ = 1, paragraphs_ = 0, passed_over_ = 0;
  bool in_cell_ = false, has_formula_ = false;
};

}  // namespace

std::vector<ForeignSheet> ReadOds(std::string bytes) {
  const ZipParts parts(std::move(bytes));
  ForeignCells cells;
  ContentReader reader(cells);
  ReadXml(parts.Read("content.xml"), reader);
  return cells.Take();
}

}  // namespace merlu
