#include "exchange/xlsx_book.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>

#include "base/fault.h"
#include "base/host.h"
#include "base/text.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kSource = "MERLU spreadsheet";

constexpr std::size_t kMostOfCell = 32767;  // characters as the file counts them, and as the library does

// What the parts of a workbook take that are not its rows.
constexpr long kSmallParts = 1 << 20;

// Whether the folder's disk takes so many bytes more: 0, or the system's error number.
int TryRoom(const std::string& folder, long bytes) {
  host::File file = host::File::Unnamed(folder);
  return file.IsOpen() ? file.Reserve(bytes) : file.error();
}

// Whether the text begins with an escape as the format has them: _x0041_
bool IsEscape(std::string_view text) {
  return text.size() >= 7 && text.starts_with("_x") && text[6] == '_' &&
         std::all_of(text.begin() + 2, text.begin() + 6, [](unsigned char c) { return std::isxdigit(c) != 0; });
}

}  // namespace

std::string EscapedForXlsx(std::string_view text) {
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

bool FitsCell(const std::string& text) {
  // a unit of UTF-16 takes three bytes at most
  return text.size() <= 3 * kMostOfCell && IsUtf8(text) && ToUtf16(text).size() <= kMostOfCell &&
         CountCharacters(EscapedForXlsx(text)) <= kMostOfCell;
}

std::string TextForCell(std::string_view text) {
  std::string whole = ValidUtf8(text);
  if (FitsCell(whole)) return whole;
  const std::string words = " ... (cut here, of " + std::to_string(CountCharacters(whole)) + " characters)";
  std::size_t characters = kMostOfCell - words.size();
  std::string part = FirstCharacters(whole, characters) + words;
  while (!FitsCell(part)) part = FirstCharacters(whole, characters /= 2) + words;
  return part;
}

void CheckXlsx(lxw_error error) {
  if (error != LXW_NO_ERROR) throw Fault(fault_number::kOther, kSource, lxw_strerror(error));
}

XlsxBook::XlsxBook(const std::string& path) : path_(path), folder_(FolderOf(path)) {
  lxw_workbook_options options = {};
  options.tmpdir = folder_.data();
  options.constant_memory = LXW_TRUE;
  workbook_ = workbook_new_opt(path.c_str(), &options);
  if (workbook_ == nullptr) FailFile(path, errno);
}

XlsxBook::~XlsxBook() {
  if (workbook_ == nullptr) return;
  // the library forgets the rows of a workbook that was not closed
  for (const lxw_worksheet* sheet : sheets_) std::fclose(sheet->optimize_tmpfile);
  lxw_workbook_free(workbook_);
}

lxw_worksheet* XlsxBook::AddSheet(const std::string& name) {
  lxw_worksheet* sheet = workbook_add_worksheet(workbook_, name.c_str());
  if (sheet == nullptr) FailFile(path_, errno);
  sheets_.push_back(sheet);
  return sheet;
}

void XlsxBook::Close() {
  const host::PlainNumbers numbers;
  SeeRoom();
  // a close that fails leaves open the files that it did not come to
  std::vector<host::ForeignFile> rows;
  for (const lxw_worksheet* sheet : sheets_) rows.emplace_back(sheet->optimize_tmpfile);
  errno = 0;
  const lxw_error error = workbook_close(workbook_);
  const int system = errno;
  workbook_ = nullptr;  // closing frees it
  if (error == LXW_NO_ERROR) return;
  for (const host::ForeignFile& file : rows) file.CloseIfLeft();
  if (system != 0) FailFile(path_, system);
  throw Fault(fault_number::kOther, kSource, lxw_strerror(error));
}

// The library does not look whether its temporary files take what it writes, and would make a workbook of torn
// sheets. So the rows written so far are looked at, and room is tried for a second copy of them and the file.
void XlsxBook::SeeRoom() const {
  long bytes = 0;
  for (const lxw_worksheet* sheet : sheets_) {
    std::FILE* rows = sheet->optimize_tmpfile;
    if (std::fflush(rows) != 0 || std::ferror(rows) != 0) FailFile(path_, errno);
    bytes += std::ftell(rows);
  }
  if (const int error = TryRoom(folder_, 2 * bytes + kSmallParts)) FailFile(path_, error);
}

}  // namespace merlu
