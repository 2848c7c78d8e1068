// The commands of the command line. Each takes its request and answers with its exit status; a Fault that it lets
// pass is a file that could not be read or written.
#pragma once

#include <string>
#include <vector>

#include "command/command_line.h"
#include "command/console.h"

namespace merlu {

// `words` are those after the command's name. Needs an application with fonts where a PDF is written.
Status RunCommand(const CommandSpec& command, const std::vector<std::string>& words, Console& console);

Status CheckFiles(const Request& request, Console& console);
Status ListFindings(const Request& request, Console& console);
Status ExportPart(const Request& request, Console& console);
Status BackUpFile(const Request& request, Console& console);
Status TellReadiness(const Request& request, Console& console);
Status ImportInto(const Request& request, Console& console);
Status WriteSummary(const Request& request, Console& console);
Status WriteWorkbook(const Request& request, Console& console);
Status ReadWorkbook(const Request& request, Console& console);
Status ListDifferences(const Request& request, Console& console);

}  // namespace merlu
