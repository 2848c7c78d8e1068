#include "shell/file_life.h"

#include "shell/main_program.h"
#include "shell/messages.h"
#include "shell/program_end.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kPreviousVersion =
    "You are trying to open a previous version of the MERLU database. If you would like to use your previous MERLU "
    "data, you must request your 2014 files from RIMA, because the MERLU 2017 program structure is slightly "
    "different. Then you will need to import the data.";

}  // namespace

bool TakeDatabase(Session& s, const std::string& path) {
  if (!IsCurrentDatabase(path)) {
    Ask(s, {kPreviousVersion, "Data Validation", Icon::kWarning, {Button::kOK}, 0, path});
    return false;
  }
  // this run opens the file also when the next one will not find it
  KeepSetting(s, kSettingSection, kSettingPath, path);
  return true;
}

bool ChooseDatabase(Session& s) {
  const std::string path =
      AskFile(s, {FileQuestion::Kind::kOpen, "MERLU-2017 - Locate Database", "MERLU Database", "*.MDB", ".MDB"});
  return !path.empty() && TakeDatabase(s, path);
}

void LocateDatabase(Session& s) {
  if (!ChooseDatabase(s)) return;
  EndProgram(s);
  Main(s);
}

void OpenDatabaseFile(Session& s, const std::string& path) {
  if (!TakeDatabase(s, path)) return;
  EndProgram(s);
  Main(s);
}

void CreateNewDatabase(Session& s) {
  const std::string folder = AskFolder(s, "Select a Folder for the new MERLU database...");
  if (folder.empty()) return;
  Plainly(
      s,
      [&] {
        const std::string path = NextFreeFileName(WithSeparator(folder) + "MERLU.mdb");
        CopyDatabase(WithSeparator(s.host.ProgramFolder()) + "mr.dbt", path);
        Tell(s, "New database successfully created:\n" + path, Icon::kInfo);
      },
      folder);
}

}  // namespace merlu
