// How findings are written: as text, JSON or CSV.
#pragma once

#include <string>

#include "command/check.h"
#include "command/console.h"

namespace merlu {

// Once, before the first file.
void WriteFindingsHead(Console& console, const std::string& format);
// A line a finding, and but in CSV a line for the file.
void WriteFindings(Console& console, const std::string& format, const std::string& path, const CheckedFile& file);

}  // namespace merlu
