// A workbook as an .xlsx file, by libxlsxwriter.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>

#include "base/fault.h"
#include "base/plain_numbers.h"
#include "exchange/workbook.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr SheetLimits kLimits = {1048576, 16384};
constexpr const char* kSource = "MERLU spreadsheet";

// The library writes 16 digits, and those of the largest doubles round to what is no number any more.
constexpr double kLargest = 1.797693134862315e308;

// What the parts of a workbook take that are not its rows.
constexpr long kSmallParts = 1 << 20;

void Check(lxw_error error) {
  if (error != LXW_NO_ERROR) throw Fault(fault_number::kOther, kSource, lxw_strerror(error));
}

// Whether the folder's disk takes so many bytes more: 0, or the system's number of the error.
int TryRoom(const std::string& folder, long bytes) {
  std::string name = folder + "/.merluXXXXXX";
  const int file = ::mkstemp(name.data());
  if (file < 0) return errno;
  ::unlink(name.c_str());
  const int error = ::posix_fallocate(file, 0, bytes);
  ::close(file);
  return error;
}

// Whether the text begins with an escape as the format has them: _x0041_
bool IsEscape(std::string_view text) {
  return text.size() >= 7 && text.starts_with("_x") && text[6] == '_' &&
         std::all_of(text.begin() + 2, text.begin() + 6, [](unsigned char c) { return std::isxdigit(c) != 0; });
}

// The text as the format wants it where the library leaves that to its caller: what only looks like an escape
// is escaped, and so are the letters that XML does not know.
std::string Escaped(std::string_view text) {
  std::string result;
  for (; !text.empty(); text.remove_prefix(1)) {
    if (text.starts_with("\uFFFE") || text.starts_with("\uFFFF")) {
      result += text[2] == '\xBE' ? "_xFFFE_" : "_xFFFF_";
      text.remove_prefix(2);
      continue;
    }
    if (IsEscape(text)) result += "_x005F";
    if (text[0] == '\0')
      result += "_x0000_";
    else
      result += text[0];
  }
  return result;
}

struct CellWriter {
  lxw_worksheet* sheet;
  lxw_row_t row;
  lxw_col_t column;
  lxw_format *format, *date_format;

  void operator()(EmptyCell) const {
    if (format != nullptr) Check(worksheet_write_blank(sheet, row, column, format));
  }
  void operator()(bool value) const { Check(worksheet_write_boolean(sheet, row, column, value, format)); }
  void operator()(double value) const {
    Check(worksheet_write_number(sheet, row, column, std::clamp(value, -kLargest, kLargest), format));
  }
  void operator()(SerialDate date) const { Check(worksheet_write_number(sheet, row, column, date.days, date_format)); }
  void operator()(const std::string& text) const {
    Check(worksheet_write_string(sheet, row, column, Escaped(text).c_str(), format));
  }
};

// A file of rows in the library's hands. A close that fails leaves open those that it did not come to.
class OpenFile {
 public:
  explicit OpenFile(int file) : file_(file) { ::fstat(file, &state_); }
  void CloseIfLeft() const {
    struct stat now {};
    if (::fstat(file_, &now) == 0 && now.st_dev == state_.st_dev && now.st_ino == state_.st_ino) ::close(file_);
  }

 private:
  int file_;
  struct stat state_ {};
};

class XlsxFile : public WorkbookFile {
 public:
  explicit XlsxFile(const std::string& path) : path_(path), folder_(FolderOf(path)) {
    lxw_workbook_options options = {};
    options.tmpdir = folder_.data();
    options.constant_memory = LXW_TRUE;  // rows go to the disk as they come
    workbook_ = workbook_new_opt(path.c_str(), &options);
    if (workbook_ == nullptr) FailFile(path, errno);
    heading_ = workbook_add_format(workbook_);
    format_set_font_name(heading_, kHeadingFont);
    format_set_bold(heading_);
    format_set_pattern(heading_, LXW_PATTERN_SOLID);
    format_set_bg_color(heading_, kHeadingGrey * 0x010101);
    wrapped_ = workbook_add_format(workbook_);
    format_set_text_wrap(wrapped_);
    format_set_align(wrapped_, LXW_ALIGN_VERTICAL_TOP);
    date_ = workbook_add_format(workbook_);
    format_set_num_format(date_, kDateFormat);
  }
  ~XlsxFile() override {
    if (workbook_ == nullptr) return;
    // the library forgets the rows of a workbook that was not closed
    for (const lxw_worksheet* sheet : sheets_) std::fclose(sheet->optimize_tmpfile);
    lxw_workbook_free(workbook_);
  }
  XlsxFile(const XlsxFile&) = delete;
  XlsxFile& operator=(const XlsxFile&) = delete;

  void Add(const Sheet& sheet) override {
    const PlainNumbers numbers;
    CheckFits(sheet, kLimits);
    lxw_worksheet* out = workbook_add_worksheet(workbook_, sheet.name.c_str());
    if (out == nullptr) FailFile(path_, errno);
    sheets_.push_back(out);
    for (std::size_t column = 0; column < sheet.widths.size(); ++column) {
      const auto at = static_cast<lxw_col_t>(column);
      Check(worksheet_set_column(out, at, at, sheet.widths[column], nullptr));
    }
    if (sheet.frozen_rows > 0) worksheet_freeze_panes(out, static_cast<lxw_row_t>(sheet.frozen_rows), 0);
    for (lxw_row_t row = 0; row < sheet.rows.size(); ++row) PutRow(out, row, sheet);
  }

  void Write() override {
    const PlainNumbers numbers;
    SeeRoom();
    std::vector<OpenFile> rows;
    for (const lxw_worksheet* sheet : sheets_) rows.emplace_back(::fileno(sheet->optimize_tmpfile));
    errno = 0;
    const lxw_error error = workbook_close(workbook_);
    const int system = errno;
    workbook_ = nullptr;  // closing frees it
    if (error == LXW_NO_ERROR) return;
    for (const OpenFile& file : rows) file.CloseIfLeft();
    if (system != 0) FailFile(path_, system);
    throw Fault(fault_number::kOther, kSource, lxw_strerror(error));
  }

 private:
  // The library does not look whether its temporary files take what it writes, and would make a workbook of torn
  // sheets. So the rows written so far are looked at, and room is tried for a second copy of them and the file.
  void SeeRoom() const {
    long bytes = 0;
    for (const lxw_worksheet* sheet : sheets_) {
      std::FILE* rows = sheet->optimize_tmpfile;
      if (std::fflush(rows) != 0 || std::ferror(rows) != 0) FailFile(path_, errno);
      bytes += std::ftell(rows);
    }
    if (const int error = TryRoom(folder_, 2 * bytes + kSmallParts)) FailFile(path_, error);
  }

  void PutRow(lxw_worksheet* out, lxw_row_t row, const Sheet& sheet) const {
    const SheetRow& content = sheet.rows[row];
    for (std::size_t column = 0; column < content.cells.size(); ++column) {
      lxw_format* format = column < content.headings ? heading_ : Wraps(sheet, row, column) ? wrapped_ : nullptr;
      std::visit(CellWriter{out, row, static_cast<lxw_col_t>(column), format, date_}, content.cells[column]);
    }
  }

  std::string path_, folder_;  // temporary files lie in the file's folder
  std::vector<lxw_worksheet*> sheets_;
  lxw_workbook* workbook_ = nullptr;
  lxw_format* heading_ = nullptr;
  lxw_format* wrapped_ = nullptr;
  lxw_format* date_ = nullptr;
};

}  // namespace

std::unique_ptr<WorkbookFile> NewXlsx(const std::string& path) {
  return std::make_unique<XlsxFile>(path);
}

}  // namespace merlu
