#include "shell/filename_rule.h"

#include <filesystem>

#include "base/text.h"
#include "session/folders.h"
#include "shell/messages.h"
#include "store/files.h"

namespace merlu {
namespace fs = std::filesystem;
namespace {

constexpr const char* kExtension = ".mdb";

std::string Refuse(Session& s, const std::string& message, const std::string& path = {}) {
  TellOfFile(s, message, path);
  return "";
}

bool HasExtension(const std::string& name) {
  return name.size() >= 4 && Lower(name.substr(name.size() - 4)) == kExtension;
}

// Only a folder and the extension, with either kind of slash, or the extension alone.
bool LacksFilePart(const std::string& name) {
  const std::string lower = Lower(name);
  return lower == kExtension || lower.find("/.mdb") != std::string::npos || lower.find("\\.mdb") != std::string::npos;
}

}  // namespace

std::string DatabaseFileName(Session& s, const std::string& typed) {
  std::string name = Trim(typed);
  if (name.empty()) return Refuse(s, "Please select filename");
  if (name.starts_with('"')) name.erase(0, 1);
  if (name.ends_with('"')) name.pop_back();
  if (!HasExtension(name)) name += kExtension;
  std::error_code error;
  if (LacksFilePart(name) || fs::is_directory(name, error)) return Refuse(s, "Please specify a valid filename", name);
  return name;
}

std::string NewDatabaseFileName(Session& s, const std::string& typed) {
  const std::string name = DatabaseFileName(s, typed);
  if (name.empty()) return "";
  try {
    TargetPath(OwnFilesOf(s), name);
  } catch (const Fault& fault) {
    // that it cannot be written shows when it is
    if (fault.number == fault_number::kBadFileName) return Refuse(s, fault.description, name);
  }
  if (!FileExists(name)) return name;
  constexpr const char* kExists = "FileName already exists.  Do you wish to overwrite?";
  return AskOfFile(s, kExists, name, {Button::kYes, Button::kNo}) == Button::kYes ? name : "";
}

}  // namespace merlu
