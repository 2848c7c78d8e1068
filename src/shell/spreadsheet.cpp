#include "shell/spreadsheet.h"

#include "base/text.h"
#include "exchange/description_sheets.h"
#include "session/folders.h"
#include "shell/messages.h"
#include "shell/proposed_name.h"
#include "shell/status.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kTitle = "Spreadsheet Export";
constexpr const char* kAbout =
    "Please note, this function writes a workbook that can be opened with Microsoft Excel or any other spreadsheet "
    "program. None needs to be installed on this computer in order for this function to work.";

bool IsXlsx(const std::string& path) {
  return Lower(path).ends_with(".xlsx");
}

// Empty when the user cancels, or does not want to overwrite the file.
std::string AskPath(Session& s) {
  std::string path = AskFile(s, {FileQuestion::Kind::kSave,
                                 "Save to Excel File",
                                 "Excel File (*.xls)",
                                 "*.xls",
                                 ".xls",
                                 {{"Excel Workbook (*.xlsx)", "*.xlsx", ".xlsx"}},
                                 true,
                                 ProposedName(s, 0, "Descriptions")});
  if (path.empty() || IsXlsx(path) || Lower(path).ends_with(".xls")) return path;
  path += ".xls";
  // the dialog has asked about the file whose name was typed, not about this one
  if (!FileExists(path)) return path;
  const Button answer =
      AskUser(s, path + " already exists.\nDo you want to replace it?", {Button::kYes, Button::kNo}, Icon::kWarning);
  return answer == Button::kYes ? path : "";
}

void WriteDescriptions(Session& s, const std::string& path) {
  WriteNewFile(OwnFilesOf(s), path, [&](const std::string& unfinished) {
    const auto file = IsXlsx(path) ? NewXlsx(unfinished) : NewXls(unfinished);
    ExportDescriptions(s.db, *file, [&s](std::string_view table, int done, int total) {
      ShowProgress(s, "Exporting " + std::string(table), done, total);
    });
  });
}

}  // namespace

void ExportSpreadsheet(Session& s) {
  Ask(s, {kAbout, kTitle, Icon::kInfo, {Button::kOK}, 0, "", "SpreadsheetAbout"});
  const std::string path = AskPath(s);
  if (path.empty()) return;
  const bool done = OnSheet(
      s,
      [&] {
        const Busy busy(s);
        ShowWait(s, kTitle, "Please Wait...");
        try {
          WriteDescriptions(s, path);
        } catch (const Fault&) {
          HideWait(s);
          throw;
        }
        HideWait(s);
      },
      path);
  if (!done) return;
  Say(s, "Descriptions exported to " + FileName(path));
  TellOfFile(s, "Done.", path);
}

}  // namespace merlu
