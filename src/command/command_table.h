// The commands of the command line, each with its words and options: what is parsed, the help, the manual page and
// the completion all come from here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace merlu {

// What a value of an option, or a word of a command, must be; the completion offers what fits.
enum class ValueKind { kNone, kMonth, kCount, kChoice, kInventory, kNewInventory, kPdf, kWorkbook, kSheetFile, kText };

struct CommandOption {
  const char* name;  // "--month", "-o"
  ValueKind kind = ValueKind::kNone;
  const char* value = "";  // placeholder of its value in the help: "M"
  const char* what = "";   // one line
  int group = 0;           // options with the same number exclude one another
  bool needed = false;     // the option, or one of its group
  std::vector<const char*> choices{};
};

struct Console;
struct Request;
enum class Status;

struct CommandSpec {
  const char* name;
  const char* words;  // "FILE...", "A B"
  int least, most;    // so many words
  const char* what;   // one line
  const char* text;   // what it does, for its help and the manual page
  std::vector<CommandOption> options;
  Status (*run)(const Request&, Console&);
};

const std::vector<CommandSpec>& Commands();
// Null without one.
const CommandSpec* FindCommand(std::string_view name);

// "merlu ready FILE [--month M] [--format text|json] ..."
std::string Synopsis(const CommandSpec& command);
// An option as the synopsis and the list of options print it: "--format text|json".
std::string OptionText(const CommandOption& option);

}  // namespace merlu
