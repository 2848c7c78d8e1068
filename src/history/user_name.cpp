#include "history/user_name.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace merlu {

std::string UserName() {
  std::array<char, 4096> room{};
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found) == 0 && found != nullptr) return found->pw_name;
  const char* name = std::getenv("USER");
  return name == nullptr ? "" : name;
}

}  // namespace merlu
