// The program itself on a file that another program holds, with the seconds that it waits.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <string>
#include <utility>
#include <vector>

#include "command/robust.h"
#include "faults/other_program.h"

namespace merlu::test {
namespace {

class HeldCommands : public Robust {};

TEST_F(HeldCommands, tell_it_after_five_seconds_and_leave_the_file_alone) {
  const std::string sound = FileBytes(Path("FILE"));
  OtherProgram other(Path("FILE"));
  other.Hold();
  const auto begin = std::chrono::steady_clock::now();
  // all at once, since each waits for some seconds
  std::vector<std::pair<const char*, std::future<int>>> ends;
  for (const Line& line : Lines())
    ends.emplace_back(line.command, std::async(std::launch::async, [&, words = Words(line)] {
                        return RunProgram(line.command, words, {});
                      }));
  for (auto& [command, end] : ends) EXPECT_EQ(end.get(), 3) << command;
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_TRUE(other.LetGo());
  EXPECT_EQ(FileBytes(Path("FILE")), sound);
  for (const Line& line : Lines()) EXPECT_TRUE(Out(line).empty() || !fs::exists(Out(line))) << line.command;
}

}  // namespace
}  // namespace merlu::test
