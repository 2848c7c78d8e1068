#include "exchange/read_workbook.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/code_pages.h"
#include "base/fault.h"
#include "base/text.h"
#include "exchange/csv.h"
#include "exchange/foreign_cells.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr std::uint64_t kMostBytes = 64U << 20U;

std::string ReadAll(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error))
    throw Fault(fault_number::kFileNotFound, "MERLU workbook", "The file " + path + " cannot be found.");
  std::ifstream in(path, std::ios::binary);
  if (!in) FailFile(path, errno);
  if (FileSize(path) > kMostBytes) TooLargeWorkbook("more than 64 MB");
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

// A text that is no UTF-8 counts as one of Windows.
std::string DecodedText(const std::string& bytes) {
  if (bytes.find('\0') != std::string::npos) NoWorkbook();
  if (IsUtf8(bytes)) return bytes;
  std::string text;
  for (const char byte : bytes) AppendUtf8(text, Decode(1252, static_cast<unsigned char>(byte)));
  return text;
}

std::vector<ForeignSheet> ReadCsv(const std::string& bytes) {
  ForeignCells cells;
  cells.AddSheet("");
  int row = 0;
  const std::string text = DecodedText(bytes);
  const std::vector<std::vector<std::string>> rows = ParseCsv(text);
  const bool commas = HasDecimalCommas(text, rows);
  for (const std::vector<std::string>& fields : rows) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const bool decimals = commas && IsDecimalComma(fields[i]);
      cells.Put(row, static_cast<int>(i), decimals ? ForeignCell::Kind::kDecimalComma : ForeignCell::Kind::kText,
                fields[i]);
    }
    ++row;
  }
  return cells.Take();
}

}  // namespace

const std::string& ForeignSheet::Text(int row, int column) const {
  static const std::string kNone;
  const auto before = [](const ForeignCell& cell, const std::pair<int, int>& at) {
    return std::pair(cell.row, cell.column) < at;
  };
  const auto found = std::lower_bound(cells.begin(), cells.end(), std::pair(row, column), before);
  return found == cells.end() || found->row != row || found->column != column ? kNone : found->text;
}

std::vector<ForeignSheet> ReadForeignWorkbook(const std::string& path) {
  const std::string name = Lower(path);
  if (name.ends_with(".xlsx")) return ReadXlsx(ReadAll(path));
  if (name.ends_with(".ods")) return ReadOds(ReadAll(path));
  return ReadCsv(ReadAll(path));
}

}  // namespace merlu
