// The file that a command writes: whole under its name, or not there.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "command/command_line.h"
#include "store/new_file.h"

namespace merlu {

// The files that the command must not write over: the inventory and what belongs to it.
OwnFiles OwnFilesOf(const Request& request);
// Has `write` make the file of -o. kFileAccess for a file that exists without --force, also when another program makes
// it meanwhile; a folder, a device, the inventory itself and what belongs to it are refused, under any name or link.
// What was there stays after a fault.
void WriteOut(const Request& request, const std::function<void(const std::string& path)>& write);
// Free bytes of the file system where that file is written.
std::uint64_t FreeBytesFor(const std::string& path);

}  // namespace merlu
