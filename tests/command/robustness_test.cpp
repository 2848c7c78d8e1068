// The commands on tampered files, on a full disk, killed at any moment, and beside another program.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <future>
#include <map>
#include <sstream>

#include "command/commands.h"
#include "faults/other_program.h"
#include "inventory.h"
#include "support/tampered.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

InventoryPlan Plan() {
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

const std::vector<Line>& Lines() {
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

// An inventory, another one, and a workbook of the first that changes every record.
class Robust : public testing::Test {
 protected:
  Robust() {
    MakeInventory(TemplatePath(), Path("FILE"), Plan());
    MakeInventory(TemplatePath(), Path("OTHER"), Plan());
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
    std::ostringstream out, err;
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

// Each file is used with a third of the commands in turn, each command with a third of the files.
TEST_F(Robust, every_command_lives_with_files_that_were_tampered_with) {
  const std::string sound = FileBytes(Path("FILE"));
  std::size_t turn = 0;
  for (const auto* tamperings : {&Tamperings(), &ForeignTamperings()})
    for (const Tampering& tampering : *tamperings) {
      PutFile(sound);
      Raw(Path("FILE"), tampering.statements);
      const std::string tampered = FileBytes(Path("FILE"));
      for (const Line& line : Lines()) {
        if (line.twice || turn++ % 3 != 0) continue;
        const std::string out = Out(line);
        if (!out.empty()) fs::remove(out);
        SCOPED_TRACE(std::string(tampering.name) + ": " + line.command);
        const Status status = Play(line);
        EXPECT_NE(status, Status::kWrongUsage);
        EXPECT_TRUE(status != Status::kFile || said != "");
        EXPECT_TRUE(line.writes || FileBytes(Path("FILE")) == tampered);
        EXPECT_TRUE(out.empty() || !fs::exists(out) || IsWhole(out));
        const bool something = status == Status::kSomething;  // it may lack the month or the structure
        EXPECT_TRUE(out.empty() || something || fs::exists(out) == (status == Status::kWell)) << said;
        if (line.writes) PutFile(tampered);
      }
    }
}

TEST_F(Robust, another_program_that_commits_all_the_time_loses_nothing_and_takes_nothing) {
  const std::string sound = FileBytes(Path("FILE"));
  for (const Line& line : Lines()) {
    SCOPED_TRACE(line.command);
    PutFile(sound);
    const std::string out = Out(line);
    if (!out.empty()) fs::remove(out);
    Play(line);
    const std::string alone = State();
    PutFile(sound);
    if (!out.empty()) fs::remove(out);
    Raw(Path("FILE"), {"UPDATE PD_PLATFORM_DESC SET LEASE_NUM='0'"});
    OtherProgram other(Path("FILE"));
    other.KeepCommitting("UPDATE PD_PLATFORM_DESC SET LEASE_NUM=LEASE_NUM+1 WHERE CMPLX_ID_NUM='10001'");
    const Status status = Play(line);
    EXPECT_TRUE(other.LetGo()) << "the other program was turned away";
    EXPECT_TRUE(status != Status::kFile || said.find("by another program") != std::string::npos) << said;
    EXPECT_TRUE(status == Status::kFile || !line.writes || State() == alone) << State() << " is not " << alone;
    EXPECT_TRUE(status == Status::kFile || out.empty() || IsWhole(out));
    EXPECT_GT(ToInteger(RawValue(Path("FILE"), "SELECT LEASE_NUM FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='10001'")),
              0);
    EXPECT_EQ(State().substr(0, 3), "ok/");
    EXPECT_EQ(ToInteger(RawValue(Path("FILE"), "SELECT COUNT(*) FROM pragma_foreign_key_check")), 0);
  }
}

// ---- the program itself ----

struct Limits {
  long bytes = -1;            // that a file may have: a write beyond fails
  long microseconds = -1;     // after which the program is killed
  std::string data_folder{};  // where the user's data go
};

// The exit status; -1 when it was killed.
int RunProgram(const std::string& command, const std::vector<std::string>& words, const Limits& limits) {
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

TEST_F(Robust, a_file_that_another_program_holds_is_told_and_left_alone) {
  const std::string sound = FileBytes(Path("FILE"));
  OtherProgram other(Path("FILE"));
  other.Hold();
  // all at once, since each waits for some seconds
  std::vector<std::pair<const char*, std::future<int>>> ends;
  for (const Line& line : Lines())
    ends.emplace_back(line.command, std::async(std::launch::async, [&, words = Words(line)] {
                        return RunProgram(line.command, words, {});
                      }));
  EXPECT_EQ(Play(Lines().front()), Status::kFile);
  EXPECT_NE(said.find("is being written by another program"), std::string::npos) << said;
  for (auto& [command, end] : ends) EXPECT_EQ(end.get(), 3) << command;
  EXPECT_TRUE(other.LetGo());
  EXPECT_EQ(FileBytes(Path("FILE")), sound);
  for (const Line& line : Lines()) EXPECT_TRUE(Out(line).empty() || !fs::exists(Out(line))) << line.command;
}

TEST_F(Robust, a_full_disk_leaves_no_half_file_and_the_inventory_as_it_was) {
  const std::string sound = FileBytes(Path("FILE")), state = State();
  int failed = 0;
  for (const Line& line : Lines()) {
    const std::string out = Out(line);
    if (out.empty() && !line.writes && std::string(line.command) != "backup") continue;
    for (const long bytes : {0L, 8192L, 60000L}) {
      PutFile(sound);
      if (!out.empty()) fs::remove(out);
      SCOPED_TRACE(std::string(line.command) + " " + std::to_string(bytes));
      const int status = RunProgram(line.command, Words(line), {bytes, -1});
      EXPECT_TRUE(out.empty() || fs::exists(out) == (status != 3));
      EXPECT_TRUE(out.empty() || !fs::exists(out) || IsWhole(out));
      if (status == 3) {
        ++failed;
        EXPECT_EQ(State(), state);
        EXPECT_TRUE(line.writes || FileBytes(Path("FILE")) == sound);
        for (const auto& entry : fs::directory_iterator(elsewhere.path()))
          EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << entry.path() << " is left";
      }
    }
  }
  EXPECT_GT(failed, 12);
}

// What writers and readers put down for themselves. A note of a file whose folder is gone is kept, as that may come
// back.
std::vector<std::string> LeftIn(const std::vector<std::string>& folders) {
  std::vector<std::string> left;
  for (const std::string& folder : folders)
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      const std::string name = entry.path().filename().string();
      const bool note = name.ends_with(".note") && fs::exists(fs::path(FileBytes(entry.path().string())).parent_path());
      if (name.starts_with(".merlu") || note) left.push_back(entry.path().string());
    }
  return left;
}

TEST_F(Robust, a_kill_leaves_no_half_file_and_the_inventory_as_before_or_after) {
  const std::string sound = FileBytes(Path("FILE"));
  const TemporaryFolder data;
  const std::vector<std::string> places = {fs::temp_directory_path().string(), data.path()};
  for (const Line& line : Lines()) {
    const std::string out = Out(line);
    if (out.empty() && !line.writes) continue;
    const auto fresh = [&] {
      PutFile(sound);
      if (!out.empty()) fs::remove(out);
    };
    fresh();
    const std::string before = State();
    fresh();
    RunProgram(line.command, Words(line), {});
    const std::string after = State();
    for (long moment = 1; moment <= 5; ++moment) {
      fresh();
      SCOPED_TRACE(line.command);
      RunProgram(line.command, Words(line), {-1, moment * 15000, data.path()});
      EXPECT_TRUE(out.empty() || !fs::exists(out) || IsWhole(out));
      const std::string state = State();
      EXPECT_TRUE(state == before || state == after) << state << " is neither " << before << " nor " << after;
      EXPECT_TRUE(line.writes || FileBytes(Path("FILE")) == sound);
    }
  }
  // the next start of any command removes what was left
  PutFile(sound);
  RunProgram("check", {Path("FILE")}, {-1, -1, data.path()});
  EXPECT_EQ(LeftIn(places), std::vector<std::string>());
}

// Every command with every kind of answer, on files whose names are no text.
TEST_F(Robust, names_that_are_no_text_are_read_and_written_like_any_others) {
  std::vector<Line> lines = Lines();
  for (const char* command : {"check", "findings", "ready", "diff"}) {
    lines.push_back({command, {"FILE", "--format", "json"}});
    lines.push_back({command, {"FILE", "--format", "csv"}});
  }
  for (Line& line : lines)
    if (std::string(line.command) == "diff" && line.words.size() > 2)
      line.words.insert(line.words.begin() + 1, "OTHER");
  lines.push_back({"findings", {"FILE", "-o", "OUT.csv"}});
  const std::string sound = FileBytes(Path("FILE"));
  for (const Line& line : lines) {
    SCOPED_TRACE(std::string(line.command) + " " + line.words.back());
    PutFile(sound);
    if (!Out(line).empty()) fs::remove(Out(line));
    const int plain = RunProgram(line.command, Words(line), {});
    PutFile(sound);
    const std::string state = State();
    std::vector<std::string> words = Words(line);
    std::string out, file;
    for (std::string& word : words) {
      const fs::path path(word);
      if (!path.is_absolute()) continue;
      const std::string odd = (path.parent_path() / ("\xff\xfe" + path.filename().string())).string();
      if (fs::exists(odd)) fs::remove(odd);
      if (word == Out(line))
        out = odd;
      else
        fs::copy_file(word, odd);
      if (word == Path("FILE")) file = odd;
      word = odd;
    }
    EXPECT_EQ(RunProgram(line.command, words, {}), plain);
    EXPECT_EQ(!out.empty() && fs::exists(out), !out.empty() && fs::exists(Out(line)));
    EXPECT_TRUE(out.empty() || !fs::exists(out) || out.ends_with(".csv") || IsWhole(out));
    EXPECT_EQ(State(), state) << "the plain name was written";
    EXPECT_TRUE(!line.writes || FileBytes(file) != sound);
  }
}

TEST_F(Robust, a_killed_writer_s_file_is_removed_by_the_next_command) {
  const TemporaryFolder data;
  const std::string notes = data.path("MERLU2017/unfinished"), part = elsewhere.path(".merlu-0123456789abcdef.tmp");
  fs::create_directories(notes);
  std::ofstream(notes + "/0123456789abcdef.note") << part;
  std::ofstream(part) << "half";
  EXPECT_EQ(RunProgram("backup", {Path("FILE")}, {-1, -1, data.path()}), 0);
  EXPECT_FALSE(fs::exists(part));
  EXPECT_FALSE(fs::exists(notes));
}

}  // namespace
}  // namespace merlu::test
