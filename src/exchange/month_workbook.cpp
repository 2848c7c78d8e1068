#include "exchange/month_workbook.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <optional>
#include <utility>

#include "base/fault.h"
#include "base/host.h"
#include "base/numbers.h"
#include "base/text.h"
#include "exchange/foreign_cells.h"
#include "exchange/workbook.h"
#include "exchange/xlsx_book.h"

namespace merlu {
namespace {

// The layout: a line that names the workbook, the names of the fields, their captions, then the records.
// The key of a record and the line of names are hidden.
constexpr const char* kMark = "MERLU-2017 month workbook";
constexpr int kNames = 1, kCaptions = 2, kRecords = 3;
constexpr int kStructure = 0, kEquipment = 1, kKey = 2, kFields = 3;
constexpr int kEach = 2;  // columns of a field: its value, and the month before
constexpr std::size_t kMostHint = 255, kMostTitle = 32;
constexpr double kWidest = 40, kMargin = 2;
constexpr const char* kChoices = "Choices";

// ---- the month, in words that no spreadsheet program takes for a date ----

std::string MonthWords(int year, int month) {
  return "month " + std::to_string(month) + " of " + std::to_string(year);
}

void ReadMonthWords(const std::string& text, ReadSheet& sheet) {
  int month = 0, year = 0;
  if (std::sscanf(text.c_str(), "month %2d of %4d", &month, &year) != 2) return;
  if (MonthWords(year, month) != text) return;
  sheet.year = year;
  sheet.month = month;
}

// ---- writing ----

struct Formats {
  lxw_format *mark, *caption, *grey_caption, *place, *open_number, *open_text, *closed, *before;
};

Formats MakeFormats(lxw_workbook* book) {
  const auto add = [book](int back, int font, bool bold) {
    lxw_format* format = workbook_add_format(book);
    if (bold) format_set_bold(format);
    if (back >= 0) {
      format_set_pattern(format, LXW_PATTERN_SOLID);
      format_set_bg_color(format, static_cast<lxw_color_t>(back));
    }
    if (font >= 0) format_set_font_color(format, static_cast<lxw_color_t>(font));
    return format;
  };
  const auto open = [&](bool text) {
    lxw_format* format = add(-1, -1, false);
    format_set_unlocked(format);
    format_set_border(format, LXW_BORDER_HAIR);
    if (text) format_set_num_format(format, "@");
    return format;
  };
  constexpr int kHead = 0xD9D9D9, kFace = 0xF2F2F2, kGrey = 0x808080;
  const Formats formats = {add(-1, -1, true), add(kHead, -1, true), add(kHead, kGrey, false), add(kFace, -1, false),
                           open(false),       open(true),           add(kHead, -1, false),    add(-1, kGrey, false)};
  for (lxw_format* wrapped : {formats.caption, formats.grey_caption}) {
    format_set_text_wrap(wrapped);
    format_set_align(wrapped, LXW_ALIGN_VERTICAL_TOP);
  }
  format_set_num_format(formats.place, "@");
  return formats;
}

class SheetWriter {
 public:
  SheetWriter(lxw_worksheet* out, const Formats& formats) : out_(out), formats_(formats) {}

  void Write(const MonthBook& book, const BookSheet& sheet) {
    LayOut(sheet);
    Put(0, 0, kMark, formats_.mark);
    Put(0, 1, MonthWords(book.year, book.month), formats_.mark);
    Put(0, 2, book.operator_number, formats_.mark);
    Put(0, 3, sheet.code, formats_.mark);
    PutHeads(sheet);
    for (std::size_t i = 0; i < sheet.rows.size(); ++i) PutRow(kRecords + static_cast<int>(i), sheet, sheet.rows[i]);
  }

 private:
  static lxw_row_t Row(int row) { return static_cast<lxw_row_t>(row); }
  static lxw_col_t Column(int column) { return static_cast<lxw_col_t>(column); }

  // Always as a text: nothing that is stored becomes a formula.
  void Put(int row, int column, const std::string& text, lxw_format* format) {
    if (text.empty())
      CheckXlsx(worksheet_write_blank(out_, Row(row), Column(column), format));
    else
      CheckXlsx(worksheet_write_string(out_, Row(row), Column(column), EscapedForXlsx(text).c_str(), format));
  }

  // A number as a number where that gives the same text back.
  void PutValue(int row, int column, bool numeric, const std::string& text, lxw_format* format) {
    if (numeric && IsNumericText(text) && GeneralNumber(LeadingNumber(text)) == text)
      CheckXlsx(worksheet_write_number(out_, Row(row), Column(column), LeadingNumber(text), format));
    else
      Put(row, column, text, format);
  }

  void PutHeads(const BookSheet& sheet) {
    const auto put = [&](int row, lxw_format* place, lxw_format* value, lxw_format* before, bool names) {
      Put(row, kStructure, "Structure", place);
      Put(row, kEquipment, "Equipment", place);
      Put(row, kKey, "Key", place);
      for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
        const int at = kFields + static_cast<int>(i) * kEach;
        Put(row, at, names ? sheet.columns[i].name : sheet.columns[i].caption, value);
        Put(row, at + 1, names ? "" : "month before", before);
      }
    };
    lxw_row_col_options hidden = {};
    hidden.hidden = LXW_TRUE;
    CheckXlsx(worksheet_set_row_opt(out_, kNames, LXW_DEF_ROW_HEIGHT, nullptr, &hidden));
    put(kNames, formats_.before, formats_.before, formats_.before, true);
    CheckXlsx(worksheet_set_row(out_, kCaptions, 45, nullptr));
    put(kCaptions, formats_.caption, formats_.caption, formats_.grey_caption, false);
  }

  void PutRow(int at, const BookSheet& sheet, const BookRow& row) {
    Put(at, kStructure, TextForCell(row.structure), formats_.place);
    Put(at, kEquipment, TextForCell(row.equipment), formats_.place);
    Put(at, kKey, TextForCell(row.key), formats_.place);
    for (std::size_t i = 0; i < sheet.columns.size() && i < row.cells.size(); ++i) {
      const bool numeric = sheet.columns[i].numeric, fits = FitsCell(row.cells[i].text);
      const BookCell& cell = row.cells[i];
      const int column = kFields + static_cast<int>(i) * kEach;
      lxw_format* open = numeric ? formats_.open_number : formats_.open_text;
      PutValue(at, column, numeric, fits ? cell.text : "", cell.locked || !fits ? formats_.closed : open);
      if (!cell.was.empty() && FitsCell(cell.was)) PutValue(at, column + 1, numeric, cell.was, formats_.before);
    }
  }

  void LayOut(const BookSheet& sheet) {
    const int last_row = kRecords + std::max(1, static_cast<int>(sheet.rows.size())) - 1;
    const int last_column = kFields + static_cast<int>(sheet.columns.size()) * kEach - 1;
    double structure = 12, equipment = 12;
    for (const BookRow& row : sheet.rows) {
      structure = std::max(structure, TextWidth(row.structure) + kMargin);
      equipment = std::max(equipment, TextWidth(row.equipment) + kMargin);
    }
    lxw_row_col_options hidden = {};
    hidden.hidden = LXW_TRUE;
    const auto width = [&](int column, double digits, lxw_row_col_options* options) {
      CheckXlsx(worksheet_set_column_opt(out_, Column(column), Column(column), digits, nullptr, options));
    };
    width(kStructure, std::min(structure, kWidest), nullptr);
    width(kEquipment, std::min(equipment, kWidest), nullptr);
    width(kKey, 10, &hidden);
    for (int column = kFields; column <= last_column; ++column)
      width(column, (column - kFields) % kEach == 0 ? 14 : 11, nullptr);
    worksheet_freeze_panes(out_, kRecords, kFields);
    worksheet_set_landscape(out_);
    worksheet_set_paper(out_, 9);
    worksheet_repeat_rows(out_, 0, kCaptions);
    worksheet_print_area(out_, 0, 0, Row(last_row), Column(last_column));
    worksheet_fit_to_pages(out_, 1, 0);
    lxw_protection may = {};
    may.format_columns = may.format_rows = LXW_TRUE;
    worksheet_protect(out_, nullptr, &may);
  }

  lxw_worksheet* out_;
  const Formats& formats_;
};

// The lists that cells choose from, on a separate sheet: items may contain commas, and be long.
class Choices {
 public:
  explicit Choices(const MonthBook& book) {
    for (const BookSheet& sheet : book.sheets)
      for (const BookColumn& column : sheet.columns)
        if (!column.items.empty()) columns_.emplace(column.items, static_cast<int>(columns_.size()));
  }

  void Write(XlsxBook& book) const {
    if (columns_.empty()) return;
    lxw_worksheet* out = book.AddSheet(kChoices);
    std::vector<const std::vector<std::string>*> lists(columns_.size());
    std::size_t longest = 0;
    for (const auto& [items, column] : columns_) {
      lists[static_cast<std::size_t>(column)] = &items;
      longest = std::max(longest, items.size());
    }
    for (std::size_t row = 0; row < longest; ++row)
      for (std::size_t column = 0; column < lists.size(); ++column)
        if (row < lists[column]->size())
          CheckXlsx(worksheet_write_string(out, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                           EscapedForXlsx((*lists[column])[row]).c_str(), nullptr));
    worksheet_protect(out, nullptr, nullptr);
    worksheet_hide(out);
  }

  // "=Choices!$A$1:$A$5"
  std::string RangeOf(const std::vector<std::string>& items) const {
    std::string letters;
    for (int column = columns_.at(items) + 1; column > 0; column = (column - 1) / 26)
      letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % 26));
    return std::string("=") + kChoices + "!$" + letters + "$1:$" + letters + "$" + std::to_string(items.size());
  }

 private:
  std::map<std::vector<std::string>, int> columns_;
};

// The choices of a list, and what a field takes as a hint. What a cell refuses is refused when the workbook is read.
void Validate(lxw_worksheet* out, const BookSheet& sheet, const Choices& choices) {
  const auto last = static_cast<lxw_row_t>(kRecords + std::max(1, static_cast<int>(sheet.rows.size())) - 1);
  for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
    const BookColumn& field = sheet.columns[i];
    if (field.items.empty() && field.hint.empty()) continue;
    std::string title = FirstCharacters(field.caption, kMostTitle), hint = FirstCharacters(field.hint, kMostHint);
    std::string range = field.items.empty() ? "" : choices.RangeOf(field.items);
    lxw_data_validation rule = {};
    rule.validate = LXW_VALIDATION_TYPE_ANY;
    if (!range.empty()) {
      rule.validate = LXW_VALIDATION_TYPE_LIST_FORMULA;
      rule.value_formula = range.data();
      rule.error_type = field.free_text ? LXW_VALIDATION_ERROR_TYPE_INFORMATION : LXW_VALIDATION_ERROR_TYPE_STOP;
    }
    if (!hint.empty()) {
      rule.input_title = title.data();
      rule.input_message = hint.data();
    }
    const auto at = static_cast<lxw_col_t>(kFields + static_cast<int>(i) * kEach);
    CheckXlsx(worksheet_data_validation_range(out, kRecords, at, last, at, &rule));
  }
}

// ---- reading ----

// Merged cells that cover more than one value set none of them.
class Merged {
 public:
  explicit Merged(const ForeignSheet& sheet) {
    for (const ForeignRange& range : sheet.merged)
      if (range.last_row > range.row || FieldOf(range.column) != FieldOf(range.last_column)) ranges_.push_back(range);
    std::sort(ranges_.begin(), ranges_.end(),
              [](const ForeignRange& a, const ForeignRange& b) { return a.row < b.row; });
    if (ranges_.size() > kMost) TooLargeWorkbook("more than 300 merged cells of several values");
  }
  bool Holds(int row, int column) const {
    return std::any_of(ranges_.begin(), ranges_.end(), [&](const ForeignRange& range) {
      return row >= range.row && row <= range.last_row && column >= range.column && column <= range.last_column;
    });
  }

 private:
  static constexpr std::size_t kMost = 300;
  static int FieldOf(int column) { return (column - kFields) / kEach; }
  std::vector<ForeignRange> ranges_;
};

ReadSheet ReadOne(const ForeignSheet& sheet) {
  ReadSheet read;
  ReadMonthWords(Trim(sheet.Text(0, 1)), read);
  read.operator_number = Trim(sheet.Text(0, 2));
  read.code = Trim(sheet.Text(0, 3));
  const Merged merged(sheet);
  std::map<int, std::string> names;  // by column, wherever it has been moved to
  int row = -1;
  for (const ForeignCell& cell : sheet.cells) {
    if (cell.row == kNames && cell.column >= kFields && !Trim(cell.text).empty()) names[cell.column] = Trim(cell.text);
    if (cell.row < kRecords) continue;
    // cells come row by row; a row without a key is no record's, which the plan tells
    if (std::exchange(row, cell.row) != cell.row)
      read.records.push_back({sheet.Text(row, kKey), sheet.Text(row, kStructure), sheet.Text(row, kEquipment), {}});
    const auto name = names.find(cell.column);
    if (name == names.end()) continue;
    if (cell.kind != ForeignCell::Kind::kFormula && Trim(cell.text).empty()) continue;
    read.records.back().fields.push_back(
        {name->second, cell.text, cell.kind, merged.Holds(cell.row, cell.column), sheet.Text(kCaptions, cell.column)});
  }
  return read;
}

}  // namespace

void WriteMonthBook(const MonthBook& book, const std::string& path) {
  const host::PlainNumbers numbers;
  XlsxBook file(path);
  const Formats formats = MakeFormats(file.get());
  const Choices choices(book);
  for (const BookSheet& sheet : book.sheets) {
    lxw_worksheet* out = file.AddSheet(sheet.title);
    SheetWriter(out, formats).Write(book, sheet);
    Validate(out, sheet, choices);
  }
  choices.Write(file);
  file.Close();
}

std::vector<ReadSheet> ReadMonthBook(const std::string& path) {
  std::vector<ReadSheet> found;
  for (const ForeignSheet& sheet : ReadForeignWorkbook(path))
    if (Trim(sheet.Text(0, 0)) == kMark) found.push_back(ReadOne(sheet));
  if (found.empty())
    throw Fault(fault_number::kNotADatabase, "MERLU workbook", "The file holds no sheet of a month workbook.");
  return found;
}

}  // namespace merlu
