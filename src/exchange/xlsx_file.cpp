// A workbook as an .xlsx file, by libxlsxwriter.
#include <xlsxwriter.h>

#include <algorithm>

#include "base/host.h"
#include "exchange/workbook.h"
#include "exchange/xlsx_book.h"

namespace merlu {
namespace {

constexpr SheetLimits kLimits = {1048576, 16384};

// The library writes 16 digits, and those of the largest doubles round to what is no number any more.
constexpr double kLargest = 1.797693134862315e308;

struct CellWriter {
  lxw_worksheet* sheet;
  lxw_row_t row;
  lxw_col_t column;
  lxw_format *format, *date_format;

  void operator()(EmptyCell) const {
    if (format != nullptr) CheckXlsx(worksheet_write_blank(sheet, row, column, format));
  }
  void operator()(bool value) const { CheckXlsx(worksheet_write_boolean(sheet, row, column, value, format)); }
  void operator()(double value) const {
    CheckXlsx(worksheet_write_number(sheet, row, column, std::clamp(value, -kLargest, kLargest), format));
  }
  void operator()(SerialDate date) const {
    CheckXlsx(worksheet_write_number(sheet, row, column, date.days, date_format));
  }
  void operator()(const std::string& text) const {
    CheckXlsx(worksheet_write_string(sheet, row, column, EscapedForXlsx(text).c_str(), format));
  }
};

class XlsxFile : public WorkbookFile {
 public:
  explicit XlsxFile(const std::string& path) : book_(path) {
    heading_ = workbook_add_format(book_.get());
    format_set_font_name(heading_, kHeadingFont);
    format_set_bold(heading_);
    format_set_pattern(heading_, LXW_PATTERN_SOLID);
    format_set_bg_color(heading_, kHeadingGrey * 0x010101);
    wrapped_ = workbook_add_format(book_.get());
    format_set_text_wrap(wrapped_);
    format_set_align(wrapped_, LXW_ALIGN_VERTICAL_TOP);
    date_ = workbook_add_format(book_.get());
    format_set_num_format(date_, kDateFormat);
  }

  void Add(const Sheet& sheet) override {
    const host::PlainNumbers numbers;
    CheckFits(sheet, kLimits);
    lxw_worksheet* out = book_.AddSheet(sheet.name);
    for (std::size_t column = 0; column < sheet.widths.size(); ++column) {
      const auto at = static_cast<lxw_col_t>(column);
      CheckXlsx(worksheet_set_column(out, at, at, sheet.widths[column], nullptr));
    }
    if (sheet.frozen_rows > 0) worksheet_freeze_panes(out, static_cast<lxw_row_t>(sheet.frozen_rows), 0);
    if (sheet.filters && sheet.frozen_rows > 0 && !sheet.widths.empty())
      CheckXlsx(worksheet_autofilter(out, static_cast<lxw_row_t>(sheet.frozen_rows - 1), 0,
                                     static_cast<lxw_row_t>(sheet.rows.size() - 1),
                                     static_cast<lxw_col_t>(sheet.widths.size() - 1)));
    for (lxw_row_t row = 0; row < sheet.rows.size(); ++row) PutRow(out, row, sheet);
  }

  void Write() override { book_.Close(); }

 private:
  void PutRow(lxw_worksheet* out, lxw_row_t row, const Sheet& sheet) const {
    const SheetRow& content = sheet.rows[row];
    for (std::size_t column = 0; column < content.cells.size(); ++column) {
      lxw_format* format = column < content.headings ? heading_ : Wraps(sheet, row, column) ? wrapped_ : nullptr;
      std::visit(CellWriter{out, row, static_cast<lxw_col_t>(column), format, date_}, content.cells[column]);
    }
  }

  XlsxBook book_;
  lxw_format* heading_ = nullptr;
  lxw_format* wrapped_ = nullptr;
  lxw_format* date_ = nullptr;
};

}  // namespace

std::unique_ptr<WorkbookFile> NewXlsx(const std::string& path) {
  return std::make_unique<XlsxFile>(path);
}

}  // namespace merlu
