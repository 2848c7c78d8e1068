// The file that a command writes: whole under its name, or not there.
#pragma once

#include <functional>
#include <string>

#include "command/command_line.h"

namespace merlu {

// Has `write` make the file of -o. kFileAccess for one that exists without --force; a folder, a device, the inventory
// itself and what belongs to it are refused, under any name or link. What was there stays after a fault.
void WriteOut(const Request& request, const std::function<void(const std::string& path)>& write);

}  // namespace merlu
