// A database file as it was at one moment, taken into memory without a trace: nothing is written to it or beside
// it, also when another program has it open or was cut in the middle of a write.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace merlu {

struct Image {
  std::shared_ptr<unsigned char> bytes;
  std::size_t size = 0;
};

// The file as its last commit left it. A journal of an interrupted write is rolled back in a private copy of both; a
// write-ahead log is read in there too. kPathNotFound, kInUse while another program keeps writing, kNotADatabase,
// kFileAccess.
Image ReadImage(const std::string& path);

}  // namespace merlu
