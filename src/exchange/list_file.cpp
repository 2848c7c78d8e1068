#include "exchange/list_file.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "base/fault.h"
#include "base/text.h"
#include "exchange/csv.h"
#include "exchange/workbook.h"

namespace merlu {
namespace {

constexpr double kNarrowest = 8, kWidest = 60;

void WriteCsv(const std::string& path, const ListToWrite& list) {
  std::ofstream out(path, std::ios::binary);
  const auto line = [&](const std::function<std::string(int)>& text) {
    for (int column = 0; column < static_cast<int>(list.columns.size()); ++column)
      out << (column == 0 ? "" : ",") << CsvField(text(column));
    out << "\r\n";
  };
  line([&](int column) { return list.columns[static_cast<std::size_t>(column)]; });
  for (int row = 0; row < list.rows; ++row) line([&](int column) { return list.text(row, column); });
  out.flush();
  if (!out) throw Fault(fault_number::kDiskFull, "MERLU files", "The list could not be written.");
}

void WriteWorkbook(const std::string& path, const ListToWrite& list) {
  Sheet sheet;
  sheet.name = list.name;
  sheet.frozen_rows = 1;
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
      std::string text = list.text(row, static_cast<int>(column));
      widen(column, text);
      cells.cells.push_back(text.empty() ? Cell() : Cell(std::move(text)));
    }
    sheet.rows.push_back(std::move(cells));
  }
  for (const double width : widths) sheet.widths.push_back(static_cast<int>(std::ceil(width)));
  const auto file = NewXlsx(path);
  file->Add(sheet);
  file->Write();
}

}  // namespace

void WriteList(const OwnFiles& own, const std::string& path, const ListToWrite& list) {
  WriteNewFile(own, path, [&](const std::string& unfinished) {
    if (Lower(path).ends_with(".csv"))
      WriteCsv(unfinished, list);
    else
      WriteWorkbook(unfinished, list);
  });
}

}  // namespace merlu
