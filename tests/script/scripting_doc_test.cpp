// The examples of the document on scripting are one script that can be played.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

#include "script/player.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

std::string Examples() {
  std::ifstream in(std::string(MERLU_SOURCE_FOLDER) + "/docs/scripting.md");
  std::string script, line;
  bool inside = false;
  while (std::getline(in, line)) {
    if (line.starts_with("```"))
      inside = line == "```merlu";
    else if (inside)
      script += line + "\n";
  }
  return script;
}

TEST(ScriptingDocument, has_examples_that_can_all_be_done) {
  const TemporaryFolder folder;
  CopyTemplate(folder);
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  std::istringstream in(Examples());
  std::ostringstream out;
  PlayOptions options;
  options.settings_file = folder.path("settings.ini");
  const int status = Player(in, out, options).Run();
  fs::current_path(before);
  EXPECT_EQ(status, 0) << out.str();
  EXPECT_TRUE(fs::exists(folder.path("summary.pdf")));
  EXPECT_TRUE(fs::exists(folder.path("descriptions.xlsx")));
  EXPECT_TRUE(fs::exists(folder.path("ready.pdf")));
}

TEST(ScriptingDocument, has_an_example_of_every_command) {
  std::set<std::string> commands;
  std::istringstream in(Examples());
  for (std::string line; std::getline(in, line);) commands.insert(line.substr(0, line.find(' ')));
  const std::set<std::string> all = {"start", "answer",  "file", "tree",  "select", "click", "dblclick",
                                     "set",   "pick",    "sort", "cell",  "paste",  "get",   "controls",
                                     "forms", "session", "sql",  "clock", "close"};
  EXPECT_EQ(commands, all);
}

}  // namespace
}  // namespace merlu::test
