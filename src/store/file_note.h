// The note on an inventory that a program has it open, and who does. It is held as locks on the file itself, far behind
// its last page: nothing is written, reading and writing the file go on as ever, and the note is gone with the
// program, however that ends.
#pragma once

#include <optional>
#include <string>

namespace merlu {

class FileNote {
 public:
  FileNote() = default;
  ~FileNote();
  FileNote(const FileNote&) = delete;
  FileNote& operator=(const FileNote&) = delete;

  // Puts the note on the file. When another program's note is on it: false, and `holder` is that note's text, as far
  // as it can be read. A file that cannot be opened or locked gets no note; opening it tells why.
  bool Take(const std::string& path, const std::string& text, std::string& holder);
  // Never fails.
  void Release();

 private:
  int file_ = -1;
};

// Name of the user who runs the program, and of the machine; empty when the system does not say.
std::string UserName();
std::string MachineName();

}  // namespace merlu
