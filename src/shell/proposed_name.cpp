#include "shell/proposed_name.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/text.h"

namespace merlu {

std::string ProposedName(const Session& s, int month, const std::string& what) {
  std::array<char, 32> date{};
  if (month > 0)
    std::snprintf(date.data(), date.size(), "%04d-%02d", s.year, month);
  else
    std::snprintf(date.data(), date.size(), "%04d", s.year);
  std::string name = Trim(s.current.UserID);
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '/' || c == '\\' || c == ':'; }, '-');
  return (name.empty() ? "" : name + " ") + date.data() + " " + what;
}

}  // namespace merlu
