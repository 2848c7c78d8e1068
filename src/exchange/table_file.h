// A list of texts as a file: a workbook of one sheet, or comma-separated text.
#pragma once

#include <string>
#include <vector>

namespace merlu {

// The first row is the head. The kind goes by the extension of `name`; the file is made at `path`. No text becomes a
// formula.
void WriteTable(const std::vector<std::vector<std::string>>& rows, const std::string& sheet, const std::string& name,
                const std::string& path);

}  // namespace merlu
