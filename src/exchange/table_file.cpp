#include "exchange/table_file.h"

#include <algorithm>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "exchange/workbook.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr int kWidest = 60;

// A text that a spreadsheet would take for a formula gets an apostrophe in front.
std::string Harmless(const std::string& text) {
  const bool formula = !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
  return formula && !IsNumericText(text) ? "'" + text : text;
}

void WriteWorkbook(const std::vector<std::vector<std::string>>& rows, const std::string& name,
                   const std::string& path) {
  Sheet sheet;
  sheet.name = name;
  sheet.frozen_rows = 1;
  for (const std::vector<std::string>& row : rows) {
    SheetRow& written = sheet.rows.emplace_back();
    if (sheet.rows.size() == 1) written.headings = row.size();
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row[i].empty())
        written.cells.emplace_back(EmptyCell{});
      else
        written.cells.emplace_back(row[i]);
      if (sheet.widths.size() <= i) sheet.widths.push_back(8);
      sheet.widths[i] = std::max(sheet.widths[i], std::min(kWidest, static_cast<int>(TextWidth(row[i])) + 2));
    }
  }
  const std::unique_ptr<WorkbookFile> file = NewXlsx(path);
  file->Add(sheet);
  file->Write();
}

}  // namespace

std::string CsvRow(const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) line += ',';
    const std::string text = Harmless(cells[i]);
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
      line += text;
      continue;
    }
    line += '"';
    for (const char c : text) line.append(c == '"' ? 2 : 1, c);
    line += '"';
  }
  return line + "\r\n";
}

void WriteTable(const std::vector<std::vector<std::string>>& rows, const std::string& sheet, const std::string& name,
                const std::string& path) {
  if (!Lower(name).ends_with(".csv")) return WriteWorkbook(rows, sheet, path);
  std::string text;
  for (const std::vector<std::string>& row : rows) text += CsvRow(row);
  WriteBytes(path, {text});
}

}  // namespace merlu
