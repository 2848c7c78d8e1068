// What a typed name of a database file becomes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/text.h"
#include "quiet_platform.h"
#include "shell/filename_rule.h"
#include "workplace.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace merlu;
  static const test::Workplace place;
  static const bool there = ::chdir(place.path().c_str()) == 0;
  if (!there) return 0;
  QuietPlatform platform;
  Session s(platform, platform, platform);
  s.path = place.path("inventory.mdb");
  std::string typed(reinterpret_cast<const char*>(data), size);
  for (char& c : typed)
    if (c == '/') c = '_';
  for (const std::string& name : {DatabaseFileName(s, typed), NewDatabaseFileName(s, typed)}) {
    if (name.empty()) continue;
    if (name.size() <= 4 || Lower(name.substr(name.size() - 4)) != ".mdb") std::abort();
  }
  if (!NewDatabaseFileName(s, s.path).empty()) std::abort();
  return 0;
}
