// The words of a command line, held against the table of commands.
#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "command/command_table.h"

namespace merlu {

// Wrong usage, in words.
struct WrongUsage : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Request {
  const CommandSpec* command = nullptr;
  bool help = false;
  std::vector<std::string> words;
  std::map<std::string, std::string, std::less<>> options;  // by name; a flag's value is empty

  bool Has(std::string_view option) const { return options.find(option) != options.end(); }
  // Empty without the option.
  std::string Text(std::string_view option) const;
  // 0 without the option; it was judged to be a number.
  int Number(std::string_view option) const;
};

// Parses the words after the command's name; throws WrongUsage.
Request ReadRequest(const CommandSpec& command, const std::vector<std::string>& words);

// A structure by complex and structure.
struct NamedStructure {
  std::string complex, structure;
};
// "1001/1,1002/A"; throws WrongUsage.
std::vector<NamedStructure> ReadStructures(const std::string& text);

}  // namespace merlu
