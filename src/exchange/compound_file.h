// The compound file (version 3) that older office programs keep their documents in: a small file system with
// sectors of 512 bytes. Written here with one stream, which is all that a workbook needs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace merlu {

// Writes a file with the one stream, whose content is the parts one after the other, over an existing file.
// The name has up to 31 ASCII characters. A stream of less than 4096 bytes is filled up with zeros to that
// length. kFileAccess, and then the file stays as far as it got: the directory comes last, so no program takes
// it for a whole one. kOverflow above 2 GB.
void WriteCompoundFile(const std::string& path, std::string_view stream, const std::vector<std::string_view>& parts);

}  // namespace merlu
