// An .xlsx file that libxlsxwriter writes, and the checks that the library leaves to its caller.
#pragma once

#include <xlsxwriter.h>

#include <string>
#include <string_view>
#include <vector>

namespace merlu {

// The text as the format requires it: a text that looks like an escape is escaped, as are characters that XML forbids.
std::string EscapedForXlsx(std::string_view text);

// Whether a cell returns the text unchanged: it is a text, and short enough.
bool FitsCell(const std::string& text);
// The text as a cell of a list takes it: bytes that are no text are replaced, and one that is too long is cut and says
// so in its last words. For what is only read: a file that is read back must not hold a shortened text.
std::string TextForCell(std::string_view text);

// Throws for what the library answers.
void CheckXlsx(lxw_error error);

// The rows of a sheet are written to the disk as they come, so they are put in order.
class XlsxBook {
 public:
  // Temporary files lie in the file's folder.
  explicit XlsxBook(const std::string& path);
  ~XlsxBook();
  XlsxBook(const XlsxBook&) = delete;
  XlsxBook& operator=(const XlsxBook&) = delete;

  lxw_workbook* get() { return workbook_; }
  lxw_worksheet* AddSheet(const std::string& name);
  // Once, at the end. The faults of FailFile.
  void Close();

 private:
  void SeeRoom() const;

  std::string path_, folder_;
  std::vector<lxw_worksheet*> sheets_;
  lxw_workbook* workbook_ = nullptr;
};

}  // namespace merlu
