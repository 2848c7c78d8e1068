#include "exchange/description_sheets.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "session/types.h"

namespace merlu {
namespace {

constexpr int kHeadRows = 6;  // the last of them with the names of the fields
constexpr double kNarrowest = 8, kWidest = 60;
constexpr double kMargin = 1.5;
constexpr double kBold = 1.1;  // times the width of the same text in the plain font
constexpr int kProgressEvery = 500;

struct Column {
  std::string name;
  bool is_date;
};

std::vector<Column> ReadColumns(Database& db, std::string_view table) {
  std::vector<Column> columns;
  db.ForEach("SELECT name,type FROM pragma_table_info(?) ORDER BY cid", {std::string(table)}, [&](const RowView& row) {
    columns.push_back({std::string(row.Text(0)), EqualsIgnoringCase(row.Text(1), "DATETIME")});
  });
  return columns;
}

Cell TextCell(std::string_view text) {
  if (text.empty()) return EmptyCell();
  return ValidUtf8(text);
}

struct CellMaker {
  bool is_date;

  Cell operator()(Null) const { return EmptyCell(); }
  Cell operator()(bool value) const { return value; }
  Cell operator()(std::int64_t value) const { return static_cast<double>(value); }
  // cells know no infinite number
  Cell operator()(double value) const { return std::isfinite(value) ? Cell(value) : TextCell(GeneralNumber(value)); }
  Cell operator()(const std::string& value) const {
    if (is_date)
      if (const auto date = ParseDate(value))
        if (const auto serial = ToSerial(*date)) return *serial;
    return TextCell(value);
  }
};

// ---- widths ----

struct CellWidth {
  double operator()(EmptyCell) const { return 0; }
  double operator()(bool value) const { return TextWidth(value ? "TRUE" : "FALSE"); }
  double operator()(double value) const { return TextWidth(GeneralNumber(value)); }
  double operator()(SerialDate) const { return TextWidth(kDateFormat); }
  double operator()(const std::string& text) const { return TextWidth(text); }
};

// As wide as the longest value or name. The title and the note do not count: they run on over the empty cells at
// their right.
void FitColumns(Sheet& sheet, std::size_t records) {
  std::vector<double> widths(sheet.widths.size(), kNarrowest);
  for (std::size_t row = 1; row < kHeadRows + records; ++row) {
    const SheetRow& content = sheet.rows[row];
    for (std::size_t column = 0; column < content.cells.size(); ++column) {
      const double width = std::visit(CellWidth(), content.cells[column]) * (column < content.headings ? kBold : 1);
      widths[column] = std::max(widths[column], width + kMargin);
    }
  }
  for (std::size_t column = 0; column < widths.size(); ++column)
    sheet.widths[column] = static_cast<int>(std::ceil(std::min(widths[column], kWidest)));
}

// ---- the layout ----

SheetRow Labelled(const char* label, Cell value) {
  return {{std::string(label), std::move(value)}, 1};
}

void PutHead(Sheet& sheet, const ExportedTable& table, const std::vector<Column>& columns, std::size_t records) {
  SheetRow title, names;
  title.cells.resize(sheet.widths.size());
  title.cells[0] = std::string("MERLU Database Export");
  for (const Column& column : columns) names.cells.push_back(TextCell(column.name));
  title.headings = title.cells.size();
  names.headings = names.cells.size();
  sheet.rows[0] = std::move(title);
  sheet.rows[1] = Labelled("Table Name =", TextCell(table.name));
  sheet.rows[2] = Labelled("Table Description =", TextCell(table.description));
  sheet.rows[3] = Labelled("No. Records =", static_cast<double>(records));
  sheet.rows[5] = std::move(names);
}

}  // namespace

const std::vector<ExportedTable>& ExportedTables() {
  static const std::vector<ExportedTable> tables = [] {
    std::vector<ExportedTable> all = {{"CO_COMPANY", "MERLU RIMA Company/Owner", ""},
                                      {"PD_PLATFORM_DESC", "Platform/Structure Descriptions (static)",
                                       "This table is the master list of Platforms(structures). "
                                       "PD_ID_AK is the link to the Master Equipment List in "
                                       "PD_EQUIP_DESC."},
                                      {"ED_EQUIP_DESC", "Equipment Descriptions (static)",
                                       "This table is the master list of equipment. PD_ID_AK is "
                                       "the link to the Platform Description.  ED_ID_AK is the link "
                                       "to the equipment-specific table (ED_***)."}};
    for (const EquipmentType* type : TypesBy(&EquipmentType::in_workbook))
      all.push_back({"ED_" + std::string(type->code), "", ""});
    return all;
  }();
  return tables;
}

Sheet ReadSheet(Database& db, const ExportedTable& table, const std::function<void()>& each_record) {
  Sheet sheet;
  sheet.name = table.name;
  sheet.frozen_rows = kHeadRows;
  sheet.rows.resize(kHeadRows);
  const std::vector<Column> columns = ReadColumns(db, table.name);
  const std::string select = "SELECT * FROM [" + sheet.name + "] ORDER BY rowid";
  const int records = db.ForEach(select, {}, [&](const RowView& row) {
    sheet.rows.emplace_back().wraps = true;
    std::vector<Cell>& cells = sheet.rows.back().cells;
    cells.reserve(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
      cells.push_back(std::visit(CellMaker{columns[i].is_date}, row.At(static_cast<int>(i))));
    each_record();
  });
  sheet.widths.resize(std::max<std::size_t>(columns.size(), 2));  // the head takes two
  PutHead(sheet, table, columns, static_cast<std::size_t>(records));
  FitColumns(sheet, static_cast<std::size_t>(records));
  if (!table.note.empty()) {
    sheet.rows.emplace_back();
    sheet.rows.push_back({{TextCell(table.note)}});
  }
  return sheet;
}

void ExportDescriptions(Database& db, WorkbookFile& file, const ExportProgress& progress) {
  int total = 0, done = 0;
  for (const ExportedTable& table : ExportedTables())
    total += static_cast<int>(ToInteger(db.Single("SELECT COUNT(*) FROM [" + table.name + "]")));
  for (const ExportedTable& table : ExportedTables()) {
    progress(table.name, done, total);
    file.Add(ReadSheet(db, table, [&] {
      if (++done % kProgressEvery == 0) progress(table.name, done, total);
    }));
  }
  file.Write();
}

}  // namespace merlu
