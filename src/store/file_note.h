// The note on an inventory that a program has it open, and which. It consists of locks on the file itself, far beyond
// its last page: nothing is written, reading and writing the file are not affected, and the system drops the note when
// the program ends in whatever way.
#pragma once

#include <string>

#include "base/host.h"

namespace merlu {

class FileNote {
 public:
  FileNote() = default;
  ~FileNote() { Release(); }
  FileNote(const FileNote&) = delete;
  FileNote& operator=(const FileNote&) = delete;

  // Puts the note on the file. If another program's note is on it: false, and `holder` is that note's text, as far as
  // it can be read. A file that cannot be opened or locked gets no note; opening the database reports why.
  bool Take(const std::string& path, const std::string& text, std::string& holder);
  // Never fails.
  void Release();

 private:
  host::File file_;
};

}  // namespace merlu
