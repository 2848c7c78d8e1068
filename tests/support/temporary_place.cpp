#include "support/temporary_place.h"

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace merlu::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPrefix = "merlu-tests-";
constexpr const char* kRuntime = "run";  // Qt's runtime folder, the user's alone
constexpr int kDigits = 7;               // as a process number has: names are as long in every run

struct Place {
  fs::path path;
  pid_t owner = 0;
};

Place& Own() {
  static Place place;
  return place;
}

fs::path FastFolder() {
  constexpr const char* kInMemory = "/dev/shm";
  constexpr std::uintmax_t kRoom = 512 << 20;
  std::error_code error;
  const auto space = fs::space(kInMemory, error);
  const bool fast =
      ::getenv("TMPDIR") == nullptr && !error && space.available >= kRoom && ::access(kInMemory, W_OK | X_OK) == 0;
  return fast ? kInMemory : fs::temp_directory_path();
}

// Whether the name is that of a program that is not running any more.
bool IsLeft(const std::string& name) {
  if (!name.starts_with(kPrefix)) return false;
  const int process = std::atoi(name.c_str() + std::char_traits<char>::length(kPrefix));
  return process > 0 && ::kill(process, 0) != 0 && errno == ESRCH;
}

void RemoveLeft(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    std::error_code ignored;
    if (IsLeft(at->path().filename().string())) fs::remove_all(at->path(), ignored);
  }
}

// Children end with a copy of it.
void Clear() {
  if (::getpid() != Own().owner) return;
  std::string left;
  std::error_code error;
  fs::remove_all(Own().path / kRuntime, error);
  for (const auto& entry : fs::directory_iterator(Own().path, error)) left += " " + entry.path().filename().string();
  fs::remove_all(Own().path, error);
  if (left.empty()) return;
  std::cout.flush();
  std::fflush(stdout);
  std::cerr << "left among the temporary files:" << left << std::endl;
  ::_exit(1);
}

}  // namespace

void UseTemporaryPlace() {
  const fs::path folder = FastFolder();
  RemoveLeft(folder);
  std::array<char, kDigits + 1> digits{};
  std::snprintf(digits.data(), digits.size(), "%0*d", kDigits, static_cast<int>(::getpid()));
  std::string path = (folder / (kPrefix + std::string(digits.data()) + "-XXXXXX")).string();
  if (::mkdtemp(path.data()) == nullptr) throw std::runtime_error("no temporary folder");
  ::chmod(path.c_str(), 0711);  // tests that go on as another user find their files
  Own() = {path, ::getpid()};
  ::setenv("TMPDIR", path.c_str(), 1);
  // Qt would make one among the temporary files
  const fs::path runtime = fs::path(path) / kRuntime;
  if (::mkdir(runtime.c_str(), 0700) == 0) ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 0);
  std::atexit(Clear);
}

}  // namespace merlu::test
