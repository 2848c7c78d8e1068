// The commands on one inventory, in this process and as the program itself.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "command/commands.h"
#include "inventory.h"
#include "support/test_run.h"

namespace merlu::test {

inline InventoryPlan RobustPlan() {
  InventoryPlan plan;
  plan.structures = 1;
  plan.equipment = 16;
  plan.months = 1;
  plan.fault_share = 0.2;
  return plan;
}

struct Line {
  const char* command;
  std::vector<std::string> words;  // FILE, OTHER, OUT and SHEET stand for files
  bool writes = false;             // into FILE
  bool twice = false;              // another line does nearly the same
};

inline const std::vector<Line>& Lines() {
  static const std::vector<Line> all = {
      {"check", {"FILE"}},
      {"check", {"FILE", "--format", "csv", "--jobs", "2"}, false, true},
      {"findings", {"FILE", "--format", "json"}, false, true},
      {"findings", {"FILE", "-o", "OUT.xlsx"}},
      {"ready", {"FILE"}, false, true},
      {"ready", {"FILE", "-o", "OUT.pdf"}},
      {"report", {"FILE", "-o", "OUT.pdf"}},
      {"export", {"FILE", "--month", "1", "-o", "OUT.mdb"}},
      {"export", {"FILE", "--inventory", "-o", "OUT.mdb"}, false, true},
      {"export", {"FILE", "--structures", "10001/1", "-o", "OUT.mdb"}, false, true},
      {"import", {"OTHER", "--from", "FILE", "--dry-run"}},
      {"import", {"FILE", "--from", "OTHER"}, true},
      {"workbook", {"FILE", "--month", "1", "-o", "OUT.xlsx"}},
      {"read", {"FILE", "--from", "SHEET", "--dry-run"}, false, true},
      {"read", {"FILE", "--from", "SHEET"}, true},
      {"diff", {"FILE", "OTHER"}},
      {"backup", {"FILE"}},
  };
  return all;
}

// Takes everything that is written to it.
class Nowhere : public std::streambuf {
  int_type overflow(int_type letter) override { return traits_type::not_eof(letter); }
  std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

// An inventory, another one, and a workbook of the first that changes every record.
class Robust : public testing::Test {
 protected:
  Robust() {
    MakeInventory(TemplatePath(), Path("FILE"), RobustPlan());
    MakeInventory(TemplatePath(), Path("OTHER"), RobustPlan());
    Raw(Path("OTHER"), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X'||CMPLX_ID_NUM"});
    const std::string copy = folder.path("changed.mdb");
    fs::copy_file(Path("FILE"), copy);
    Raw(copy, {"UPDATE EA_FLA SET OP_HR=77", "UPDATE EA_EQUIP_ACTV SET EA_COMNT_TXT='from the field'"});
    Play({"workbook", {copy, "--month", "1", "-o", Path("SHEET")}});
    fs::remove(copy);
  }
  std::string Path(const std::string& name) const {
    if (name == "FILE") return folder.path("inventory.mdb");
    if (name == "OTHER") return elsewhere.path("other.mdb");
    if (name == "SHEET") return elsewhere.path("sheet.xlsx");
    return name.starts_with("OUT.") ? elsewhere.path("out." + name.substr(4)) : name;
  }
  std::vector<std::string> Words(const Line& line) const {
    std::vector<std::string> words;
    for (const std::string& word : line.words) words.push_back(Path(word));
    return words;
  }
  // Empty for a command without one.
  std::string Out(const Line& line) const {
    for (const std::string& word : line.words)
      if (word.starts_with("OUT.")) return Path(word);
    return "";
  }
  Status Play(const Line& line) {
    Nowhere nowhere;
    std::ostream out(&nowhere);
    std::ostringstream err;
    Console console{out, err};
    const Status status = RunCommand(*FindCommand(line.command), Words(line), console);
    said = err.str();
    return status;
  }
  // The inventory anew, and nothing beside it.
  void PutFile(const std::string& bytes) const {
    for (const auto& entry : fs::directory_iterator(folder.path())) fs::remove_all(entry.path());
    std::ofstream(Path("FILE"), std::ios::binary) << bytes;
  }
  // A whole file of its kind.
  static bool IsWhole(const std::string& path) {
    const std::string bytes = FileBytes(path);
    if (path.ends_with(".pdf")) return bytes.starts_with("%PDF-") && bytes.find("%%EOF") != std::string::npos;
    if (path.ends_with(".xlsx")) return bytes.starts_with("PK") && bytes.find("PK\x05\x06") != std::string::npos;
    return NullToEmpty(RawValue(path, "PRAGMA integrity_check")) == "ok";
  }
  // The inventory as it is to a reader: what a hot journal holds is taken back first.
  std::string State() const {
    std::string state;
    Database db;
    db.Open(Path("FILE"));
    state += NullToEmpty(db.Single("PRAGMA integrity_check")) + "/";
    for (const char* table : {"PD_PLATFORM_DESC", "EA_EQUIP_ACTV"})
      state += std::to_string(ToInteger(db.Single(std::string("SELECT COUNT(*) FROM ") + table))) + "/";
    return state + std::to_string(
                       ToInteger(db.Single("SELECT COUNT(*) FROM EA_EQUIP_ACTV WHERE EA_COMNT_TXT='from the field'")));
  }

  TemporaryFolder folder, elsewhere;
  std::string said;
};

// ---- the program itself ----

struct Limits {
  long bytes = -1;            // that a file may have: a write beyond fails
  long microseconds = -1;     // after which the program is killed
  std::string data_folder{};  // where the user's data go
};

// The exit status; -1 when it was killed.
inline int RunProgram(const std::string& command, const std::vector<std::string>& words, const Limits& limits) {
  std::vector<std::string> all = {MERLU_BUILD_FOLDER "/merlu", command};
  all.insert(all.end(), words.begin(), words.end());
  std::vector<char*> arguments;
  for (std::string& word : all) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    if (!limits.data_folder.empty()) ::setenv("XDG_DATA_HOME", limits.data_folder.c_str(), 1);
    const int null = ::open("/dev/null", O_RDWR);
    ::dup2(null, 1);
    ::dup2(null, 2);
    if (limits.bytes >= 0) {
      ::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{static_cast<rlim_t>(limits.bytes), static_cast<rlim_t>(limits.bytes)};
      ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
  }
  if (limits.microseconds >= 0) {
    ::usleep(static_cast<useconds_t>(limits.microseconds));
    ::kill(child, SIGKILL);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace merlu::test
