#include "shell/recent_files.h"

#include <algorithm>
#include <filesystem>

#include "session/main_names.h"
#include "shell/file_life.h"
#include "shell/messages.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kSection = "Recent";

std::vector<std::string> RecentPaths(Session& s) {
  std::vector<std::string> paths;
  for (int number = 1; number <= kRecentFiles; ++number)
    if (std::string path = s.host.Setting(kSection, std::to_string(number)); !path.empty()) paths.push_back(path);
  return paths;
}

std::vector<std::string> StillThere(Session& s) {
  std::vector<std::string> paths = RecentPaths(s);
  std::erase_if(paths, [](const std::string& path) { return !FileExists(path); });
  return paths;
}

// A caption in which every "&" is a plain one.
std::string WithoutAccessKeys(const std::string& text) {
  std::string caption;
  for (const char c : text) caption.append(c == '&' ? 2 : 1, c);
  return caption;
}

}  // namespace

std::string RecentCommand(int number) {
  return "mnuFRecent" + std::to_string(number);
}

void RememberFile(Session& s) {
  std::error_code error;
  const std::string path = std::filesystem::absolute(s.path, error).lexically_normal().string();
  std::vector<std::string> paths = RecentPaths(s);
  std::erase(paths, path);
  paths.insert(paths.begin(), path);
  Plainly(s, [&] {
    for (std::size_t i = 0; i < paths.size() && i < kRecentFiles; ++i)
      s.host.StoreSetting(kSection, std::to_string(i + 1), paths[i]);
  });
}

void ShowRecentFiles(Session& s) {
  const std::vector<std::string> paths = StillThere(s);
  for (int number = 1; number <= kRecentFiles; ++number) {
    Control& command = s.main->At(RecentCommand(number));
    const std::size_t at = static_cast<std::size_t>(number - 1);
    command.visible = at < paths.size();
    command.bookmark = command.visible ? paths[at] : "";
    const std::filesystem::path path(command.bookmark);
    command.caption =
        command.visible ? WithoutAccessKeys(path.filename().string() + " - " + path.parent_path().string()) : "";
  }
  s.main->At(names::mnuFRecentBar).visible = !paths.empty();
}

void OpenRecentFile(Session& s, int number) {
  // the one that the command shows, even if others have been removed from the list since
  const std::string path = s.main->At(RecentCommand(number)).bookmark;
  if (FileExists(path)) return OpenDatabaseFile(s, path);
  ShowRecentFiles(s);
  Tell(s, "This inventory is not there any more:\n" + path, Icon::kWarning);
}

}  // namespace merlu
