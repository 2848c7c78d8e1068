#include "command/check.h"
#include "command/commands.h"
#include "command/finding_lines.h"
#include "command/out_file.h"
#include "exchange/workbook.h"
#include "exchange/xlsx_book.h"

namespace merlu {
namespace {

void KeepState(CheckedFile& file, const std::string& state) {
  if (state.empty() || state == "all") return;
  std::erase_if(file.findings, [&](const CheckedFinding& f) { return f.state != state; });
  if (state != "open") file.open = 0;
  if (state != "explained") file.explained = 0;
  if (state != "stale") file.stale = 0;
}

Cell TextCell(const std::string& text) {
  return text.empty() ? Cell(EmptyCell()) : Cell(TextForCell(text));
}

// The columns of the list of findings.
Sheet SheetOf(const CheckedFile& file) {
  Sheet sheet;
  sheet.name = "Findings";
  sheet.frozen_rows = 1;
  sheet.filters = true;
  sheet.widths = {44, 28, 14, 16, 60, 40, 10};
  SheetRow head;
  for (const char* text : {"Place", "Field", "Value", "Expected", "Error Description", "Operator Comment", "State"})
    head.cells.emplace_back(std::string(text));
  head.headings = head.cells.size();
  sheet.rows.push_back(head);
  for (const CheckedFinding& f : file.findings) {
    SheetRow& row = sheet.rows.emplace_back();
    for (const std::string& text : {f.place, f.field, f.value, f.expected, f.text, f.comment, f.state})
      row.cells.push_back(TextCell(text));
  }
  return sheet;
}

}  // namespace

Status ListFindings(const Request& request, Console& console) {
  const std::string& path = request.words.front();
  CheckedFile file = ListInventory(path, request.Number("--month"));
  for (const std::string& why : file.not_judged) Complain(console, "findings", path, why);
  if (file.lacks_month) Complain(console, "findings", path, "It has no month " + request.Text("--month") + ".");
  KeepState(file, request.Text("--state"));
  if (request.Has("-o")) {
    WriteOut(request, [&](const std::string& to) {
      const auto workbook = NewXlsx(to);
      workbook->Add(SheetOf(file));
      workbook->Write();
    });
  } else {
    WriteFindingsHead(console, request.Text("--format"));
    WriteFindings(console, request.Text("--format"), path, file);
  }
  if (!file.not_judged.empty()) return Status::kFile;
  return file.lacks_month || file.open > 0 || file.stale > 0 ? Status::kSomething : Status::kWell;
}

}  // namespace merlu
