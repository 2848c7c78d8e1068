#include "exchange/list_file.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "exchange/csv.h"
#include "exchange/workbook.h"
#include "exchange/xlsx_book.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr double kNarrowest = 8, kWidest = 60;

void WriteCsv(const std::string& path, const ListToWrite& list) {
  std::string text = CsvLine(list.columns);
  for (int row = 0; row < list.rows; ++row) {
    std::vector<std::string> cells;
    for (int column = 0; column < static_cast<int>(list.columns.size()); ++column)
      cells.push_back(list.text(row, column));
    text += CsvLine(cells);
  }
  WriteBytes(path, {text});
}

Sheet SheetOf(const ListToWrite& list) {
  Sheet sheet;
  sheet.name = list.name;
  sheet.frozen_rows = 1;
  sheet.filters = true;
  SheetRow head;
  head.headings = list.columns.size();
  std::vector<double> widths(list.columns.size(), kNarrowest);
  const auto widen = [&](std::size_t column, const std::string& text) {
    widths[column] = std::min(kWidest, std::max(widths[column], TextWidth(text)));
  };
  for (std::size_t column = 0; column < list.columns.size(); ++column) {
    head.cells.emplace_back(list.columns[column]);
    widen(column, list.columns[column]);
  }
  sheet.rows.push_back(std::move(head));
  for (int row = 0; row < list.rows; ++row) {
    SheetRow cells;
    for (std::size_t column = 0; column < list.columns.size(); ++column) {
      std::string text = TextForCell(list.text(row, static_cast<int>(column)));
      widen(column, text);
      cells.cells.push_back(text.empty() ? Cell() : Cell(std::move(text)));
    }
    sheet.rows.push_back(std::move(cells));
  }
  for (const double width : widths) sheet.widths.push_back(static_cast<int>(std::ceil(width)));
  return sheet;
}

void WriteWorkbook(const std::string& path, const std::vector<ListToWrite>& lists) {
  const auto file = NewXlsx(path);
  for (const ListToWrite& list : lists) file->Add(SheetOf(list));
  file->Write();
}

}  // namespace

void WriteList(const OwnFiles& own, const std::string& path, const ListToWrite& list) {
  WriteNewFile(own, path, [&](const std::string& unfinished) { WriteListAs(path, unfinished, list); });
}

void WriteListAs(const std::string& name, const std::string& to, const ListToWrite& list) {
  if (Lower(name).ends_with(".csv"))
    WriteCsv(to, list);
  else
    WriteWorkbook(to, {list});
}

void WriteLists(const OwnFiles& own, const std::string& path, const std::vector<ListToWrite>& lists) {
  WriteNewFile(own, path, [&](const std::string& unfinished) { WriteWorkbook(unfinished, lists); });
}

}  // namespace merlu
