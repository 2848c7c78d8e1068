#include "host/program_files.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <filesystem>

#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kTemplate = "mr.dbt";
constexpr const char* kUserFolder = "/MERLU2017";

}  // namespace

ProgramFolders FindProgramFiles(const std::string& executable_folder) {
  const std::string beside = WithSeparator(executable_folder);
  if (FileExists(beside + kTemplate)) return {executable_folder, false};
  const std::string share = std::filesystem::path(beside + MERLU_DATA_FROM_PROGRAM).lexically_normal().string();
  if (FileExists(WithSeparator(share) + kTemplate)) return {share, true};
  return {executable_folder, false};
}

ProgramFolders ProgramFiles() {
  return FindProgramFiles(QCoreApplication::applicationDirPath().toStdString());
}

std::string UserDataFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString() + kUserFolder;
}

}  // namespace merlu
