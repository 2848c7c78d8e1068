// The commands on tampered files, on a full disk, killed at any moment, and beside another program.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>

#include "command/robust.h"
#include "faults/other_program.h"
#include "support/pauses.h"
#include "support/tampered.h"

namespace merlu::test {
namespace {

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

TEST_F(Robust, a_file_that_another_program_holds_is_told_and_left_alone) {
  const std::string sound = FileBytes(Path("FILE"));
  OtherProgram other(Path("FILE"));
  other.Hold();
  for (const Line& line : Lines()) {
    SCOPED_TRACE(line.command);
    const WithoutPauses counted;
    EXPECT_EQ(Play(line), Status::kFile);
    EXPECT_NE(said.find("by another program"), std::string::npos) << said;
    EXPECT_GE(counted.milliseconds(), 250);
  }
  const WithoutPauses without_pauses;
  EXPECT_EQ(Play(Lines().front()), Status::kFile);
  EXPECT_NE(said.find("is being written by another program"), std::string::npos) << said;
  EXPECT_TRUE(other.LetGo());
  EXPECT_EQ(FileBytes(Path("FILE")), sound);
  for (const Line& line : Lines()) EXPECT_TRUE(Out(line).empty() || !fs::exists(Out(line))) << line.command;
}

// ---- the program itself ----

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
    const auto begin = std::chrono::steady_clock::now();
    RunProgram(line.command, Words(line), {});
    const std::chrono::duration<double, std::micro> whole = std::chrono::steady_clock::now() - begin;
    const std::string after = State();
    for (int moment = 1; moment <= 5; ++moment) {
      fresh();
      SCOPED_TRACE(line.command);
      RunProgram(line.command, Words(line), {-1, static_cast<long>(whole.count() * moment / 6), data.path()});
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
    const int plain = static_cast<int>(Play(line));
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
