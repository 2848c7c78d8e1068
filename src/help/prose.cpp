#include "help/prose.h"

#include <algorithm>

#include "base/text.h"

namespace merlu {
namespace {

constexpr std::string_view kNameStarts[] = {"*_",  "check ", "unit ", "txt", "cmb", "cbo",
                                            "chk", "Opt",    "zOpt",  "lvw", "grd", "cmd"};

// The name in front of the colon when the line begins an entry; empty otherwise.
std::string EntryName(std::string_view line) {
  const bool named = std::any_of(std::begin(kNameStarts), std::end(kNameStarts),
                                 [&](std::string_view start) { return line.starts_with(start); });
  const std::size_t colon = line.find(": ");
  return named && colon != std::string_view::npos ? std::string(line.substr(0, colon)) : "";
}

}  // namespace

Prose ReadProse(std::string_view text) {
  Prose prose;
  std::string* entry = nullptr;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::string_view line = text.substr(at, end - at);
    at = end + 1;
    if (const std::string name = EntryName(line); !name.empty()) {
      entry = &prose.entries[name];
      *entry = Trim(line.substr(name.size() + 2));
    } else if (Trim(line).empty()) {
      entry = nullptr;
      prose.text += "\n";
    } else if (entry != nullptr) {
      *entry += " " + Trim(line);
    } else {
      prose.text.append(line).append("\n");
    }
  }
  return prose;
}

std::string SharedName(const std::string& control) {
  const std::size_t underscore = control.find('_');
  return underscore == std::string::npos ? "" : "*" + control.substr(underscore);
}

const std::string* FindEntry(const Prose& own, const Prose& shared, const std::string& control,
                             const std::string& behind) {
  const std::string common = SharedName(control) + behind;
  if (const auto found = own.entries.find(control + behind); found != own.entries.end()) return &found->second;
  if (const auto found = own.entries.find(common); found != own.entries.end()) return &found->second;
  const auto found = shared.entries.find(common);
  return found == shared.entries.end() ? nullptr : &found->second;
}

}  // namespace merlu
