#include "command/check.h"
#include "command/commands.h"
#include "command/finding_lines.h"
#include "command/out_file.h"
#include "exchange/list_file.h"
#include "review/findings_model.h"

namespace merlu {
namespace {

void KeepState(CheckedFile& file, const std::string& state) {
  if (state.empty() || state == "all") return;
  std::erase_if(file.findings, [&](const CheckedFinding& f) { return f.state != state; });
  if (state != "open") file.open = 0;
  if (state != "explained") file.explained = 0;
  if (state != "stale") file.stale = 0;
}

ListToWrite ListOf(const CheckedFile& file) {
  return {"Findings", kFindingColumns, static_cast<int>(file.findings.size()), [&file](int row, int column) {
            const CheckedFinding& f = file.findings[static_cast<std::size_t>(row)];
            const std::string* const cells[] = {&f.place, &f.field,   &f.value, &f.expected,
                                                &f.text,  &f.comment, &f.state};
            return *cells[column];
          }};
}

}  // namespace

Status ListFindings(const Request& request, Console& console) {
  const std::string& path = request.words.front();
  CheckedFile file = ListInventory(path, request.Number("--month"));
  for (const std::string& why : file.not_judged) Complain(console, "findings", path, why);
  if (file.lacks_month) Complain(console, "findings", path, "It has no month " + request.Text("--month") + ".");
  KeepState(file, request.Text("--state"));
  if (request.Has("-o")) {
    WriteOut(request, [&](const std::string& to) { WriteListAs(request.Text("-o"), to, ListOf(file)); });
  } else {
    WriteFindingsHead(console, request.Text("--format"));
    WriteFindings(console, request.Text("--format"), path, file);
  }
  if (!file.not_judged.empty()) return Status::kFile;
  return file.lacks_month || file.open > 0 || file.stale > 0 ? Status::kSomething : Status::kWell;
}

}  // namespace merlu
