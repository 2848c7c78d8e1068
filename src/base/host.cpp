#include "base/host.h"

#include <fcntl.h>
#include <locale.h>
#include <poll.h>
#include <pwd.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace merlu::host {
namespace {

int ErrorOf(int result) {
  return result == 0 ? 0 : errno;
}

int FlagsOf(File::Mode mode) {
  switch (mode) {
    case File::Mode::kRead: return O_RDONLY;
    case File::Mode::kOverwrite: return O_WRONLY | O_CREAT | O_TRUNC;
    case File::Mode::kNew:
    case File::Mode::kNewPrivate: return O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;
    case File::Mode::kExisting: return O_RDWR | O_NOFOLLOW;
    case File::Mode::kRegular: return O_RDWR | O_NONBLOCK;
  }
  return O_RDONLY;
}

struct flock Range(short type, std::int64_t first, std::int64_t count) {
  struct flock range {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  range.l_start = first;
  range.l_len = count;
  return range;
}

}  // namespace

File::File(const std::string& path, Mode mode) {
  if (struct stat about{}; mode == Mode::kRegular && (::stat(path.c_str(), &about) != 0 || !S_ISREG(about.st_mode))) {
    error_ = EINVAL;
    return;
  }
  file_ = ::open(path.c_str(), FlagsOf(mode) | O_CLOEXEC, mode == Mode::kNewPrivate ? 0600 : 0666);
  if (file_ < 0) error_ = errno;
}

File File::Unnamed(const std::string& folder) {
  std::string name = folder + (folder.ends_with('/') ? "" : "/") + ".merluXXXXXX";
  File file;
  file.file_ = ::mkstemp(name.data());
  if (file.file_ < 0)
    file.error_ = errno;
  else
    ::unlink(name.c_str());
  return file;
}

File::File(File&& other) noexcept : file_(std::exchange(other.file_, -1)), error_(other.error_) {}

File& File::operator=(File&& other) noexcept {
  Close();
  file_ = std::exchange(other.file_, -1);
  error_ = other.error_;
  return *this;
}

int File::Close() {
  const int file = std::exchange(file_, -1);
  return file < 0 ? 0 : ErrorOf(::close(file));
}

int File::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file_, bytes.data(), bytes.size());
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    if (written < 0 && errno != EINTR) return errno;
  }
  return 0;
}

int File::Replace(std::string_view bytes) {
  if (::ftruncate(file_, 0) != 0) return errno;
  const ssize_t written = ::pwrite(file_, bytes.data(), bytes.size(), 0);
  if (written != static_cast<ssize_t>(bytes.size())) return written < 0 ? errno : EIO;
  return Sync();
}

std::string File::Read(std::size_t most) const {
  std::string bytes(most, '\0');
  const ssize_t size = ::pread(file_, bytes.data(), bytes.size(), 0);
  bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return bytes;
}

int File::Sync() {
  return ErrorOf(::fsync(file_));
}

int File::Reserve(std::int64_t bytes) {
  return ::posix_fallocate(file_, 0, bytes);
}

void File::TakePermissionsOf(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) == 0) ::fchmod(file_, state.st_mode & 0777U);
}

bool File::HasOneName() const {
  struct stat state {};
  return ::fstat(file_, &state) == 0 && state.st_nlink == 1;
}

bool File::LockAll() {
  return ::flock(file_, LOCK_EX | LOCK_NB) == 0;
}

bool File::LockByte(std::int64_t place) {
  struct flock range = Range(F_WRLCK, place, 1);
  return ::fcntl(file_, F_OFD_SETLK, &range) == 0;
}

std::optional<std::int64_t> File::LockedByOthers(std::int64_t first, std::int64_t count) const {
  struct flock range = Range(F_WRLCK, first, count);
  if (::fcntl(file_, F_OFD_GETLK, &range) != 0 || range.l_type == F_UNLCK) return std::nullopt;
  return range.l_start;
}

void File::UnlockFrom(std::int64_t first) {
  struct flock range = Range(F_UNLCK, first, 0);
  ::fcntl(file_, F_OFD_SETLK, &range);
}

ForeignFile::ForeignFile(std::FILE* file) : descriptor_(::fileno(file)) {
  struct stat state {};
  if (::fstat(descriptor_, &state) != 0) return;
  device_ = state.st_dev;
  number_ = state.st_ino;
}

void ForeignFile::CloseIfLeft() const {
  struct stat now {};
  if (::fstat(descriptor_, &now) == 0 && now.st_dev == device_ && now.st_ino == number_) ::close(descriptor_);
}

int Remove(const std::string& path) {
  return ErrorOf(::unlink(path.c_str()));
}

void RemoveEmptyFolder(const std::string& folder) {
  ::rmdir(folder.c_str());
}

int Rename(const std::string& from, const std::string& to) {
  return ErrorOf(::rename(from.c_str(), to.c_str()));
}

int RenameToFreeName(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // the file system does not support it
  if (::link(from.c_str(), to.c_str()) != 0) return errno;
  ::unlink(from.c_str());
  return 0;
}

bool MayWrite(const std::string& path) {
  return ::access(path.c_str(), W_OK) == 0;
}

int MakePrivateFolder(const std::string& path) {
  return ErrorOf(::mkdir(path.c_str(), 0700));
}

std::optional<std::uint64_t> RandomNumber() {
  std::uint64_t number = 0;
  if (::getrandom(&number, sizeof number, 0) != sizeof number) return std::nullopt;
  return number;
}

DateTime LocalTime() {
  const std::time_t now = ::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

std::string UserName() {
  std::array<char, 4096> memory{};
  struct passwd entry {};
  struct passwd* found = nullptr;
  if (::getpwuid_r(::geteuid(), &entry, memory.data(), memory.size(), &found) != 0 || found == nullptr) return "";
  return found->pw_name;
}

std::string MachineName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::int64_t ProcessNumber() {
  return ::getpid();
}

bool IsRunning(std::int64_t process) {
  return process > 0 && ::kill(static_cast<pid_t>(process), 0) == 0;
}

bool IsOutputTerminal() {
  return ::isatty(STDOUT_FILENO) != 0;
}

bool IsErrorTerminal() {
  return ::isatty(STDERR_FILENO) != 0;
}

bool WaitForInput(int milliseconds) {
  pollfd input = {STDIN_FILENO, POLLIN, 0};
  return ::poll(&input, 1, milliseconds) != 0;
}

PlainNumbers::PlainNumbers() : plain_(::newlocale(LC_ALL_MASK, "C", nullptr)) {
  before_ = ::uselocale(static_cast<locale_t>(plain_));
}

PlainNumbers::~PlainNumbers() {
  ::uselocale(static_cast<locale_t>(before_));
  ::freelocale(static_cast<locale_t>(plain_));
}

}  // namespace merlu::host
