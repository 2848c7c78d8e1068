#include <new>

#include "base/fault.h"
#include "command/command_texts.h"
#include "command/commands.h"
#include "command/quiet.h"
#include "session/folders.h"

namespace merlu {
namespace {

Status Run(const Request& request, Console& console) {
  const std::string name = request.command->name;
  const std::string own = request.words.size() == 1 ? request.words.front() : "";
  try {
    Quiet quiet;
    RemoveUnfinishedFiles(NotesFolder(quiet));
    return request.command->run(request, console);
  } catch (const FaultOfFile& fault) {
    Complain(console, name, fault.file, fault.description);
  } catch (const Fault& fault) {
    Complain(console, name, own, fault.description);
  } catch (const std::bad_alloc&) {
    Complain(console, name, own, "There is not enough memory.");
  }
  return Status::kFile;
}

}  // namespace

Status RunCommand(const CommandSpec& command, const std::vector<std::string>& words, Console& console) {
  try {
    const Request request = ReadRequest(command, words);
    if (request.help) console.out << CommandHelp(command);
    const Status status = request.help ? Status::kWell : Run(request, console);
    console.out.flush();
    if (console.out) return status;
    Complain(console, command.name, "", "The answer could not be written.");
    return Status::kFile;
  } catch (const WrongUsage& wrong) {
    console.err << "merlu " << command.name << ": " << wrong.what() << "\nusage: " << Synopsis(command) << "\n";
    return Status::kWrongUsage;
  }
}

}  // namespace merlu
