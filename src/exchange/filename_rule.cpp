#include "exchange/filename_rule.h"

#include <filesystem>

#include "base/text.h"
#include "session/folders.h"
#include "session/messages.h"
#include "store/files.h"

namespace merlu {
namespace fs = std::filesystem;
namespace {

constexpr const char* kExtension = ".mdb";

std::string Refuse(Session& s, const char* message) {
  Tell(s, message);
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

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  if (fs::equivalent(a, b, error)) return true;
  return fs::absolute(a, error).lexically_normal() == fs::absolute(b, error).lexically_normal();
}

}  // namespace

std::string DatabaseFileName(Session& s, const std::string& typed) {
  std::string name = Trim(typed);
  if (name.empty()) return Refuse(s, "Please select filename");
  if (name.starts_with('"')) name.erase(0, 1);
  if (name.ends_with('"')) name.pop_back();
  if (!HasExtension(name)) name += kExtension;
  std::error_code error;
  if (LacksFilePart(name) || fs::is_directory(name, error)) return Refuse(s, "Please specify a valid filename");
  return name;
}

std::string NewDatabaseFileName(Session& s, const std::string& typed) {
  const std::string name = DatabaseFileName(s, typed);
  if (name.empty()) return "";
  if (IsSameFile(name, s.path))
    return Refuse(s, "This is the database that you are working with. Please choose another filename.");
  if (IsSameFile(name, CompactionFile(s)))
    return Refuse(s, "The program needs this file for itself. Please choose another filename.");
  if (!FileExists(name)) return name;
  if (AskUser(s, "FileName already exists.  Do you wish to overwrite?", {Button::kYes, Button::kNo}) != Button::kYes)
    return "";
  return Plainly(s, [&] { RemoveFile(name); }) ? name : "";
}

std::string CompactionFile(Session& s) {
  return OwnFilesFolder(s) + "ZTEMPZ.MDB";
}

}  // namespace merlu
