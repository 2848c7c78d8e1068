// A list of texts as a file: a workbook of one sheet, or comma-separated text.
#pragma once

#include <string>
#include <vector>

namespace merlu {

// The first row is the head. The extension of `name` decides the format; the file is written to `path`. No text is
// written as a formula. One that is longer than a cell of a workbook takes is cut and says so.
void WriteTable(const std::vector<std::vector<std::string>>& rows, const std::string& sheet, const std::string& name,
                const std::string& path);

}  // namespace merlu
