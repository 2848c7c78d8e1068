#include "command/commands.h"
#include "command/out_file.h"
#include "command/quiet_session.h"
#include "entry/month_book.h"

namespace merlu {

Status WriteWorkbook(const Request& request, Console& console) {
  const std::string& file = request.words.front();
  const int month = request.Number("--month");
  QuietSession session;
  session.OpenCopy(file);
  const MonthBook book = MakeMonthBook(session.s, month);
  if (book.sheets.empty()) {
    Complain(console, "workbook", file, "It has no month " + request.Text("--month") + ".");
    return Status::kSomething;
  }
  WriteOut(request, [&](const std::string& path) { WriteMonthBook(book, path); });
  return Status::kWell;
}

}  // namespace merlu
