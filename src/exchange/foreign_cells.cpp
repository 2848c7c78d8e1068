#include "exchange/foreign_cells.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "base/fault.h"
#include "base/numbers.h"
#include "base/text.h"

namespace merlu {
namespace {

constexpr const char* kSource = "MERLU workbook";
constexpr int kMostRows = 200'000, kMostColumns = 500;
constexpr std::size_t kMostSheets = 200, kMostCells = 2'000'000, kMostMerged = 10'000, kMostBytes = 256U << 20U;

}  // namespace

void NoWorkbook(const std::string& why) {
  throw Fault(fault_number::kNotADatabase, kSource,
              "The file is not a workbook" + (why.empty() ? "" : ": " + why) + ".");
}

void TooLargeWorkbook(const std::string& what) {
  throw Fault(fault_number::kOverflow, kSource, "The workbook is too large: " + what + ".");
}

void ForeignCells::AddSheet(std::string_view name) {
  if (sheets_.size() == kMostSheets) TooLargeWorkbook("more than 200 sheets");
  sheets_.push_back({std::string(name), {}, {}});
}

void ForeignCells::Put(int row, int column, ForeignCell::Kind kind, std::string_view text) {
  if (sheets_.empty()) return;  // it stands outside of all sheets
  if (row < 0 || column < 0 || (text.empty() && kind != ForeignCell::Kind::kFormula)) return;
  if (row >= kMostRows) TooLargeWorkbook("more than 200,000 rows");
  if (column >= kMostColumns) TooLargeWorkbook("more than 500 columns");
  if (++cells_ > kMostCells) TooLargeWorkbook("more than 2,000,000 cells");
  bytes_ += text.size();
  if (bytes_ > kMostBytes) TooLargeWorkbook("more than 256 MB of texts");
  sheets_.back().cells.push_back({row, column, kind, ValidUtf8(text)});
}

void ForeignCells::Merge(const ForeignRange& range) {
  if (sheets_.empty()) return;
  if (++merged_ > kMostMerged) TooLargeWorkbook("more than 10,000 merged cells");
  sheets_.back().merged.push_back(range);
}

std::vector<ForeignSheet> ForeignCells::Take() {
  const auto place = [](const ForeignCell& cell) { return std::pair(cell.row, cell.column); };
  const auto before = [&](const ForeignCell& a, const ForeignCell& b) { return place(a) < place(b); };
  const auto same = [&](const ForeignCell& a, const ForeignCell& b) { return place(a) == place(b); };
  for (ForeignSheet& sheet : sheets_) {
    std::vector<ForeignCell>& cells = sheet.cells;
    if (!std::is_sorted(cells.begin(), cells.end(), before)) std::stable_sort(cells.begin(), cells.end(), before);
    cells.erase(cells.begin(), std::unique(cells.rbegin(), cells.rend(), same).base());
  }
  return std::move(sheets_);
}

std::string NumberText(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) return std::string(text);
  return GeneralNumber(number);
}

bool IsDateFormat(std::string_view code) {
  char until = 0;
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (until != 0)
      until = c == until ? '\0' : until;
    else if (c == '"')
      until = '"';
    else if (c == '[')
      until = ']';
    else if (c == '\\' || c == '_' || c == '*')
      ++i;
    else if (std::string_view("dmyhsDMYHS").find(c) != std::string_view::npos)
      return true;
  }
  return false;
}

}  // namespace merlu
