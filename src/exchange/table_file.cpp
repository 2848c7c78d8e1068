#include "exchange/table_file.h"

#include <algorithm>

#include "base/text.h"
#include "exchange/csv.h"
#include "exchange/workbook.h"
#include "exchange/xlsx_book.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr int kWidest = 60;

void WriteWorkbook(const std::vector<std::vector<std::string>>& rows, const std::string& name,
                   const std::string& path) {
  Sheet sheet;
  sheet.name = name;
  sheet.frozen_rows = 1;
  for (const std::vector<std::string>& row : rows) {
    SheetRow& written = sheet.rows.emplace_back();
    if (sheet.rows.size() == 1) written.headings = row.size();
    for (std::size_t i = 0; i < row.size(); ++i) {
      std::string text = TextForCell(row[i]);
      if (sheet.widths.size() <= i) sheet.widths.push_back(8);
      sheet.widths[i] = std::max(sheet.widths[i], std::min(kWidest, static_cast<int>(TextWidth(text)) + 2));
      written.cells.push_back(text.empty() ? Cell() : Cell(std::move(text)));
    }
  }
  const std::unique_ptr<WorkbookFile> file = NewXlsx(path);
  file->Add(sheet);
  file->Write();
}

}  // namespace

void WriteTable(const std::vector<std::vector<std::string>>& rows, const std::string& sheet, const std::string& name,
                const std::string& path) {
  if (!Lower(name).ends_with(".csv")) return WriteWorkbook(rows, sheet, path);
  std::string text;
  for (const std::vector<std::string>& row : rows) text += CsvLine(row);
  WriteBytes(path, {text});
}

}  // namespace merlu
