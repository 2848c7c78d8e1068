// What the program asks of the operating system beyond standard C++: files by descriptor, locks, names of user and
// machine, processes, the terminal. The only file with POSIX calls; another system needs another host.cpp.
//
// Paths are bytes in the file system's own encoding. Functions that return int return 0, or the system's error number
// (errno); nothing here throws.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "base/dates.h"

namespace merlu::host {

// An open file, closed by its destructor. Not inherited by child processes.
class File {
 public:
  enum class Mode {
    kRead,        // also a folder
    kOverwrite,   // made when missing, emptied otherwise
    kNew,         // made; an existing file or link is an error (EEXIST)
    kNewPrivate,  // the same, for this user only
    kExisting,    // for reading and writing; no link
    kRegular,     // the same through links, but no folder, device or pipe
  };

  File() = default;
  File(const std::string& path, Mode mode);
  // A file without a name in the folder.
  static File Unnamed(const std::string& folder);
  ~File() { Close(); }
  File(File&& other) noexcept;
  File& operator=(File&& other) noexcept;

  bool IsOpen() const { return file_ >= 0; }
  int error() const { return error_; }  // why it is not open

  int Close();
  int Write(std::string_view bytes);
  // Replaces the contents and fsyncs them.
  int Replace(std::string_view bytes);
  // The first `most` bytes; empty when they cannot be read.
  std::string Read(std::size_t most) const;
  int Sync();
  // Reserves room on the disk.
  int Reserve(std::int64_t bytes);
  // Takes over the permissions of another file, if that exists.
  void TakePermissionsOf(const std::string& path);
  // Whether the file still has exactly one name.
  bool HasOneName() const;

  // Locks the whole file against LockAll of other programs; false when one of them holds it.
  bool LockAll();

  // Locks on single bytes, which may be beyond the end. They belong to this File and do not affect reading or writing.
  bool LockByte(std::int64_t place);
  // The first byte of the range that somebody else has locked; none where the file system knows no locks.
  std::optional<std::int64_t> LockedByOthers(std::int64_t first, std::int64_t count) const;
  // Unlocks every byte from `first` on, also where a child process has inherited the file.
  void UnlockFrom(std::int64_t first);

 private:
  int file_ = -1;
  int error_ = 0;
};

// A file that a library has open and may fail to close.
class ForeignFile {
 public:
  explicit ForeignFile(std::FILE* file);
  // Closes its descriptor if that still refers to the same file.
  void CloseIfLeft() const;

 private:
  int descriptor_;
  std::uint64_t device_ = 0, number_ = 0;
};

int Remove(const std::string& path);
// Removes a folder if it is empty.
void RemoveEmptyFolder(const std::string& folder);
// Renames over an existing file.
int Rename(const std::string& from, const std::string& to);
// Renames unless the new name is taken (EEXIST).
int RenameToFreeName(const std::string& from, const std::string& to);
// Whether the permissions let this user write the file.
bool MayWrite(const std::string& path);

// Makes a folder for this user only; an existing name is an error (EEXIST).
int MakePrivateFolder(const std::string& path);

// A random number, none when the system has no source of them.
std::optional<std::uint64_t> RandomNumber();

DateTime LocalTime();

// The name of this user, and of this machine; empty when the system knows none.
std::string UserName();
std::string MachineName();

std::int64_t ProcessNumber();
// Whether a process of that number is running on this machine and may be signalled by this user.
bool IsRunning(std::int64_t process);

bool IsOutputTerminal();
bool IsErrorTerminal();
// Waits until standard input has something to read or has ended; false after the time.
bool WaitForInput(int milliseconds);

// Numbers of this thread have a decimal point, whatever the user's locale, as long as this lives: for libraries that
// write files with printf.
class PlainNumbers {
 public:
  PlainNumbers();
  ~PlainNumbers();
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
  void *plain_, *before_;
};

}  // namespace merlu::host
