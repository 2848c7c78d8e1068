// The help, the manual page and the completion, made from the table of commands.
#pragma once

#include <string>

#include "command/command_table.h"

namespace merlu {

// The lines of `merlu --help` about the commands.
std::string CommandList();
// What `merlu COMMAND --help` prints.
std::string CommandHelp(const CommandSpec& command);
// The same in the manual page's own language: the lines of its synopsis, and its section of commands.
std::string ManualSynopsis();
std::string ManualCommands();
// The completion for bash, as a script that is sourced.
std::string BashCompletion();

}  // namespace merlu
