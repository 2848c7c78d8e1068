#include "command/command_line.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "command/command_texts.h"
#include "command/commands.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

Status Nothing(const Request&, Console&) {
  return Status::kWell;
}

// A command with every kind of option.
const CommandSpec& Sample() {
  static const CommandSpec sample = {"sample",
                                     "FILE...",
                                     1,
                                     3,
                                     "does nothing",
                                     "Does nothing at all.",
                                     {{"--month", ValueKind::kMonth, "M", "a month", 1, true},
                                      {"--all", ValueKind::kNone, "", "everything", 1, true},
                                      {"--format", ValueKind::kChoice, "", "how", 0, false, {"text", "json"}},
                                      {"--jobs", ValueKind::kCount, "N", "how many"},
                                      {"--structures", ValueKind::kText, "LIST", "which"},
                                      {"-o", ValueKind::kPdf, "OUT.pdf", "where"}},
                                     Nothing};
  return sample;
}

Request Read(const std::vector<std::string>& words) {
  return ReadRequest(Sample(), words);
}

std::string Wrong(const std::vector<std::string>& words) {
  try {
    Read(words);
  } catch (const WrongUsage& wrong) {
    return wrong.what();
  }
  return "";
}

TEST(CommandLine, reads_words_and_options_in_any_order) {
  const Request request = Read({"a.mdb", "--month", "3", "b.mdb", "-o", "x.pdf", "--format=json"});
  EXPECT_EQ(request.words, (std::vector<std::string>{"a.mdb", "b.mdb"}));
  EXPECT_EQ(request.Number("--month"), 3);
  EXPECT_EQ(request.Text("-o"), "x.pdf");
  EXPECT_EQ(request.Text("--format"), "json");
  EXPECT_FALSE(request.Has("--all"));
}

TEST(CommandLine, takes_everything_behind_two_hyphens_for_words) {
  const Request request = Read({"--all", "--", "--month", "-"});
  EXPECT_EQ(request.words, (std::vector<std::string>{"--month", "-"}));
  EXPECT_TRUE(request.Has("--all"));
}

TEST(CommandLine, asks_for_help_before_anything_else_is_judged) {
  EXPECT_TRUE(Read({"--help"}).help);
  EXPECT_TRUE(Read({"a", "-h"}).help);
}

TEST(CommandLine, tells_what_is_wrong) {
  EXPECT_EQ(Wrong({"a", "--all", "--other"}), "unknown option --other");
  EXPECT_EQ(Wrong({"a", "--all", "--month", "3"}), "--month and --all exclude one another");
  EXPECT_EQ(Wrong({"a"}), "--month or --all is needed");
  EXPECT_EQ(Wrong({"--all"}), "it takes FILE...");
  EXPECT_EQ(Wrong({"a", "b", "c", "d", "--all"}), "it takes FILE...");
  EXPECT_EQ(Wrong({"", "--all"}), "a file has a name");
  EXPECT_EQ(Wrong({"a", "--all", "--all"}), "--all is given twice");
  EXPECT_EQ(Wrong({"a", "--all=1"}), "--all takes no value");
  EXPECT_EQ(Wrong({"a", "--all", "-o"}), "-o takes a value");
  EXPECT_EQ(Wrong({"a", "--all", "-o", ""}), "-o takes a value");
  for (const char* month : {"0", "13", "", "x", "3x", "-1", "1.5"})
    EXPECT_EQ(Wrong({"a", "--month", month}), "--month takes a month, 1 to 12") << month;
  EXPECT_EQ(Wrong({"a", "--all", "--jobs", "0"}), "--jobs takes a number, 1 to 1024");
  EXPECT_EQ(Wrong({"a", "--all", "--format", "xml"}), "--format text|json: not xml");
}

TEST(CommandLine, reads_structures_by_complex_and_structure) {
  const auto structures = ReadStructures("1001/1, 1002/A");
  ASSERT_EQ(structures.size(), 2U);
  EXPECT_EQ(structures[1].complex, "1002");
  EXPECT_EQ(structures[1].structure, "A");
  for (const char* wrong : {"1001", "1001/", "/1", "1001/1,", ""})
    EXPECT_THROW(ReadStructures(wrong), WrongUsage) << wrong;
}

TEST(CommandTexts, write_a_synopsis_from_the_table) {
  EXPECT_EQ(Synopsis(Sample()),
            "merlu sample FILE... (--month M|--all) [--format text|json] [--jobs N] [--structures LIST] [-o OUT.pdf]");
}

TEST(CommandTexts, tell_every_command_and_option_everywhere) {
  const std::string list = CommandList(), manual = ManualCommands(), completion = BashCompletion();
  for (const CommandSpec& command : Commands()) {
    EXPECT_NE(list.find(command.what), std::string::npos) << command.name;
    EXPECT_NE(manual.find(".SS merlu " + std::string(command.name)), std::string::npos) << command.name;
    EXPECT_NE(completion.find("    " + std::string(command.name) + ") words="), std::string::npos) << command.name;
    const std::string help = CommandHelp(command);
    EXPECT_EQ(help.rfind("usage: " + Synopsis(command) + "\n", 0), 0U);
    for (const CommandOption& option : command.options) {
      EXPECT_NE(help.find("  " + OptionText(option) + " "), std::string::npos) << option.name;
      EXPECT_NE(Synopsis(command).find(option.name), std::string::npos) << option.name;
    }
  }
}

TEST(CommandTexts, tell_in_the_manual_what_is_needed_and_what_is_one_of_several) {
  const std::string manual = ManualCommands();
  EXPECT_NE(manual.find("everything; one of these is needed.\n"), std::string::npos);
  EXPECT_NE(manual.find("the file that is written; needed.\n"), std::string::npos);
  EXPECT_EQ(manual.find("everything; needed."), std::string::npos);
}

TEST(CommandTexts, keep_the_lines_of_help_short) {
  for (const CommandSpec& command : Commands()) {
    std::istringstream lines(CommandHelp(command));
    std::string line;
    std::getline(lines, line);  // the synopsis is one line
    while (std::getline(lines, line)) EXPECT_LE(line.size(), 100U) << line;
  }
}

// What bash offers for the last of the words.
std::set<std::string> Offered(const TemporaryFolder& folder, const std::string& words) {
  std::ofstream(folder.path("completion")) << BashCompletion();
  std::ofstream(folder.path("ask"))
      << "cd '" << folder.path() << "' && . ./completion\nCOMP_WORDS=(" << words
      << ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_merlu\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n";
  FILE* bash = popen(("bash '" + folder.path("ask") + "'").c_str(), "r");
  std::string text;
  for (int c = fgetc(bash); c != EOF; c = fgetc(bash)) text += static_cast<char>(c);
  EXPECT_EQ(pclose(bash), 0);
  std::set<std::string> offered;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);)
    if (!line.empty()) offered.insert(line);
  return offered;
}

TEST(BashCompletion, offers_commands_options_choices_and_files) {
  const TemporaryFolder folder;
  for (const char* file : {"one.mdb", "two.MDB", "other.txt"}) std::ofstream(folder.path(file)) << "x";
  EXPECT_TRUE(Offered(folder, "merlu di").contains("diff"));
  EXPECT_EQ(Offered(folder, "merlu diff --f"), (std::set<std::string>{"--format"}));
  EXPECT_EQ(Offered(folder, "merlu diff --format ''"), (std::set<std::string>{"text", "json"}));
  EXPECT_EQ(Offered(folder, "merlu diff ''"), (std::set<std::string>{"one.mdb", "two.MDB"}));
  EXPECT_TRUE(Offered(folder, "merlu script ''").contains("other.txt"));
  EXPECT_TRUE(Offered(folder, "merlu script --settings ''").contains("other.txt"));
  EXPECT_TRUE(Offered(folder, "merlu --settings ''").contains("other.txt"));
  EXPECT_TRUE(Offered(folder, "merlu script --clock ''").empty());
  EXPECT_TRUE(Offered(folder, "merlu catalogue ''").empty());
  EXPECT_EQ(Offered(folder, "merlu catalogue -"), (std::set<std::string>{"--help"}));
}

TEST(CommandLine, names_the_file_that_cannot_be_read) {
  const TemporaryFolder folder;
  const std::string text = folder.path("text.mdb"), to = folder.path("to");
  std::ofstream(text) << "no inventory";
  TestRun good;
  good.StartWithStructure();
  CloseDatabase(good.s);
  const std::string sound = good.s.path;
  const auto complaint = [](const std::string& command, const std::vector<std::string>& words) {
    std::ostringstream out, err;
    Console console{out, err};
    EXPECT_EQ(RunCommand(*FindCommand(command), words, console), Status::kFile) << command;
    EXPECT_EQ(out.str(), "") << command;
    return err.str();
  };
  const std::map<std::string, std::vector<std::string>> commands = {{"check", {}},
                                                                    {"findings", {}},
                                                                    {"ready", {}},
                                                                    {"report", {"-o", to + ".pdf"}},
                                                                    {"export", {"--inventory", "-o", to + ".mdb"}},
                                                                    {"import", {"--from", sound}},
                                                                    {"workbook", {"--month", "1", "-o", to + ".xlsx"}},
                                                                    {"diff", {sound}},
                                                                    {"backup", {}}};
  for (const auto& [command, options] : commands) {
    std::vector<std::string> words = options;
    words.insert(words.begin(), text);
    const std::string begin = "merlu " + command + ": " + text + ": ";
    EXPECT_EQ(complaint(command, words).substr(0, begin.size()), begin);
  }
  for (const std::string command : {"import", "read"}) {
    const std::string begin = "merlu " + command + ": " + text + ": ";
    EXPECT_EQ(complaint(command, {sound, "--from", text}).substr(0, begin.size()), begin);
  }
}

}  // namespace
}  // namespace merlu::test
