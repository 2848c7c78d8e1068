// Another program on the same inventory: a process with a connection of its own.
#pragma once

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace merlu::test {

class OtherProgram {
 public:
  explicit OtherProgram(std::string path) : path_(std::move(path)) {}
  ~OtherProgram() { LetGo(); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  // In one commit; false when it could not.
  bool Commit(const std::string& sql) const {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(Run(Opened(), InOneCommit(sql)) ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  // Begins to write, or what else `how` says, and goes on until LetGo.
  void Hold(const std::string& how = "BEGIN EXCLUSIVE") {
    Begin([this, &how](const auto& begun, int end) {
      if (!Run(Opened(), how)) return false;
      begun();
      char byte = 0;
      return ::read(end, &byte, 1) >= 0;
    });
  }
  // Commits `sql` again and again until LetGo. The first commit is in the file when it returns.
  void KeepCommitting(const std::string& sql) {
    Begin([this, &sql](const auto& begun, int end) {
      sqlite3* db = Opened();
      bool well = Run(db, InOneCommit(sql));
      begun();
      ::fcntl(end, F_SETFL, O_NONBLOCK);
      for (char byte = 0; well && ::read(end, &byte, 1) < 0; ::usleep(1000)) well = Run(db, InOneCommit(sql));
      return well;
    });
  }
  // Whether all that it had begun went well.
  bool LetGo() {
    if (child_ <= 0) return true;
    ::close(end_);
    int status = 0;
    ::waitpid(child_, &status, 0);
    child_ = 0;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

 private:
  static std::string InOneCommit(const std::string& sql) {
    return "PRAGMA foreign_keys=ON; BEGIN IMMEDIATE;" + sql + ";COMMIT";
  }
  static bool Run(sqlite3* db, const std::string& sql) {
    return sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  // Lives as long as the process.
  sqlite3* Opened() const {
    sqlite3* db = nullptr;
    sqlite3_open(path_.c_str(), &db);
    sqlite3_busy_timeout(db, 5000);
    return db;
  }
  // `work` calls its first argument when the other side may go on, and ends when the second one is at its end.
  template <typename Work>
  void Begin(const Work& work) {
    int begun[2], end[2];
    if (::pipe(begun) != 0 || ::pipe(end) != 0) throw std::runtime_error("no pipe");
    child_ = ::fork();
    if (child_ == 0) {
      ::close(end[1]);
      const auto go_on = [&] {
        if (::write(begun[1], "x", 1) != 1) ::_exit(1);
      };
      ::_exit(work(go_on, end[0]) ? 0 : 1);
    }
    ::close(begun[1]), ::close(end[0]);
    char byte = 0;
    if (::read(begun[0], &byte, 1) != 1) throw std::runtime_error("the other program has not begun");
    ::close(begun[0]);
    end_ = end[1];
  }

  std::string path_;
  pid_t child_ = 0;
  int end_ = -1;
};

}  // namespace merlu::test
