// merlu_kills: kills the program at random moments of its work and looks at what is left.
//
//   merlu_kills [--kills N] [--seed S] [--only OPERATION,...] [--change N] [--power]
//
// With --change every kill falls before that change of a file, as a problem that was found tells it.
//
// With --power the working file also loses what no sync had brought to the disk, as in a power cut.
//
// Exit status 0 when nothing was lost, 1 when something was, 2 for wrong usage.
#include <signal.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "base/fault.h"
#include "faults/faulty_files.h"
#include "faults/kill_operations.h"
#include "faults/power_cut.h"
#include "history/notes.h"
#include "script/player.h"
#include "support/temporary_place.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// When the child dies in the body of its script: before a change of a file, or after a time. 0: not by that means.
struct Moment {
  long change = 0;
  long microseconds = 0;
  std::uint32_t power_cut = 0;  // seed of what is lost; 0: the power stays on
};

// What an uninterrupted body takes.
struct Cost {
  long changes = 0;
  long microseconds = 0;
};

struct Outcome {
  bool killed = false;
  bool all_ok = true;  // as far as there are answers
  int done = 0;        // the last act that was answered
  std::string complaint;
};

// The program folder of a play is its own: what exports leave beside the program stays apart.
class PlayerInFolder : public Player {
 public:
  PlayerInFolder(std::istream& in, std::ostream& out, const PlayOptions& options, std::string folder)
      : Player(in, out, options), folder_(std::move(folder)) {}
  std::string ProgramFolder() override { return folder_; }
  std::string DataFolder() override { return folder_; }

 private:
  std::string folder_;
};

// Hands out the script line by line and begins the countdown with its body.
class ScriptLines : public std::streambuf {
 public:
  ScriptLines(const KillScript& script, const Moment& moment, std::string database)
      : script_(script), moment_(moment), database_(std::move(database)) {}

  std::chrono::steady_clock::time_point began{};

 protected:
  int_type underflow() override {
    const std::size_t opening = script_.opening.size();
    if (next_ == opening) BeginCountdown();
    if (next_ >= opening + script_.body.size()) return traits_type::eof();
    line_ = (next_ < opening ? script_.opening[next_] : script_.body[next_ - opening]).line + "\n";
    ++next_;
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    return traits_type::to_int_type(line_.front());
  }

 private:
  void BeginCountdown() {
    began = std::chrono::steady_clock::now();
    if (moment_.power_cut != 0) WatchForPowerCut(database_, moment_.power_cut);
    KillBefore(moment_.change > 0 ? moment_.change : std::numeric_limits<long>::max());
    if (moment_.microseconds == 0) return;
    ::signal(SIGALRM, [](int) { ::kill(::getpid(), SIGKILL); });
    const itimerval timer = {{0, 0}, {moment_.microseconds / 1000000, moment_.microseconds % 1000000}};
    ::setitimer(ITIMER_REAL, &timer, nullptr);
  }

  const KillScript& script_;
  const Moment moment_;
  const std::string database_;
  std::size_t next_ = 0;
  std::string line_;
};

std::string AnswersPath(const KillFiles& files) {
  return files.folder + "/answers";
}

std::string CostPath(const KillFiles& files) {
  return files.folder + "/cost";
}

// Plays the script in this process, which ends with it.
[[noreturn]] void PlayAndEnd(const KillFiles& files, const KillScript& script, const Moment& moment) {
  const FaultyFiles faulty;
  int argc = 1;
  char name[] = "merlu";
  char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("XDG_RUNTIME_DIR", files.folder.c_str());
  const QGuiApplication application(argc, argv);
  ScriptLines lines(script, moment, files.work());
  std::istream in(&lines);
  std::ofstream out(AnswersPath(files));
  PlayOptions options;
  options.settings_file = files.folder + "/settings.ini";
  const int status = PlayerInFolder(in, out, options, files.folder).Run();
  const auto took = std::chrono::steady_clock::now() - lines.began;
  std::ofstream(CostPath(files)) << ChangesSoFar() << " "
                                 << std::chrono::duration_cast<std::chrono::microseconds>(took).count();
  ::_exit(status);
}

void ReadAnswers(const KillFiles& files, const KillScript& script, Outcome& outcome) {
  std::vector<KillStep> steps = script.opening;
  steps.insert(steps.end(), script.body.begin(), script.body.end());
  std::ifstream in(AnswersPath(files));
  std::string line;
  // an answer without its line end was cut off
  for (std::size_t i = 0; i < steps.size() && std::getline(in, line) && !in.eof(); ++i) {
    if (line.find("\"ok\":true") == std::string::npos) {
      outcome.all_ok = false;
      outcome.complaint = line;
    } else if (steps[i].act > 0) {
      outcome.done = steps[i].act;
    }
  }
}

Outcome Play(const KillFiles& files, const KillScript& script, const Moment& moment) {
  fs::remove(AnswersPath(files));
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process can be made");
  if (child == 0) PlayAndEnd(files, script, moment);
  int status = 0;
  ::waitpid(child, &status, 0);
  Outcome outcome;
  outcome.killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  ReadAnswers(files, script, outcome);
  if (WIFSIGNALED(status) && !outcome.killed) outcome.complaint = "the program crashed";
  if (outcome.killed || outcome.complaint != "") return outcome;
  if (WEXITSTATUS(status) != 0) outcome.complaint = "the program ended with a failure";
  return outcome;
}

// The script for the file in its present state, and the data for its check.
struct Prepared {
  KillScript script;
  std::string before;
};

Prepared Prepare(const KillOperation& operation, const KillFiles& files) {
  Prepared prepared;
  {
    Database db;
    db.Open(files.work());
    prepared.script = operation.script(files, db);
  }
  Database db;
  db.Open(files.work());
  prepared.before = operation.before(files, db);
  return prepared;
}

// Opening the file takes back what was cut off; then everything must hold.
std::string WhatWentWrong(const KillOperation& operation, const KillFiles& files, const Prepared& prepared, int done) {
  try {
    Database db;
    db.Open(files.work());
    KeepPages(db);
    if (std::string unsound = WhatIsUnsound(db); !unsound.empty()) return unsound;
    return operation.check(files, db, prepared.before, done);
  } catch (const Fault& fault) {
    return fault.description;
  }
}

// Files that a killed writer has left.
bool HasLeftovers(const KillFiles& files) {
  for (const auto& entry : fs::recursive_directory_iterator(files.folder)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with(".merlu-")) return true;
  }
  return false;
}

// What an interrupted edit has left would be asked about at the next start.
void ForgetDrafts(const KillFiles& files) {
  Database db;
  db.Open(files.work());
  Companion companion;
  companion.Open(db, nullptr);
  for (const Draft& draft : Drafts(companion)) ForgetDraft(companion, draft.id);
  companion.Close();
}

// The same operation once more, to its end.
std::string GoOn(const KillOperation& operation, const KillFiles& files) {
  if (!operation.never_opened) ForgetDrafts(files);
  const Prepared prepared = Prepare(operation, files);
  const Outcome outcome = Play(files, prepared.script, {});
  if (!outcome.all_ok || !outcome.complaint.empty()) return "going on: " + outcome.complaint;
  // a journal that was only begun may lie beside the file until the next write
  if (fs::exists(files.work() + "-journal")) return "going on: the journal is left";
  if (HasLeftovers(files)) return "going on: an unfinished file is left";
  const std::string problem = WhatWentWrong(operation, files, prepared, outcome.done);
  return problem.empty() ? "" : "going on: " + problem;
}

struct Tally {
  int kills = 0, journals = 0, leftovers = 0, problems = 0;
};

class Harness {
 public:
  Harness(std::uint32_t seed, long change, bool power) : random_(seed), change_(change), power_(power) {}

  void Kill(const KillOperation& operation) {
    Fixture& fixture = FixtureOf(operation);
    Tally& tally = tallies_[operation.name];
    constexpr int kTries = 20;  // a moment may fall behind the end of the play
    for (int i = 0; i < kTries; ++i) {
      const TemporaryFolder folder;
      const KillFiles files{folder.path()};
      fs::copy(fixture.files.folder, files.folder, fs::copy_options::recursive);
      const Prepared prepared = Prepare(operation, files);
      const Moment moment = Draw(fixture.cost);
      const Outcome outcome = Play(files, prepared.script, moment);
      if (!outcome.killed && outcome.complaint.empty()) continue;
      ++tally.kills;
      if (fs::exists(files.work() + "-journal")) ++tally.journals;
      if (HasLeftovers(files)) ++tally.leftovers;
      std::string problem =
          outcome.killed ? WhatWentWrong(operation, files, prepared, outcome.done) : outcome.complaint;
      if (problem.empty()) problem = GoOn(operation, files);
      if (!problem.empty()) Report(operation, moment, problem, tally);
      return;
    }
    std::printf("%s: no moment fell into its work\n", operation.name);
    ++tally.problems;
  }

  void PrintProgress(int of) const {
    int kills = 0, problems = 0;
    for (const auto& [name, tally] : tallies_) kills += tally.kills, problems += tally.problems;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - began_);
    std::fprintf(stderr, "%d of %d kills, %d problems, %lld s\n", kills, of, problems,
                 static_cast<long long>(seconds.count()));
  }

  // True when nothing was lost.
  bool PrintTable() const {
    std::printf("%-22s %6s %9s %10s %9s\n", "operation", "kills", "journals", "leftovers", "problems");
    Tally sum;
    for (const KillOperation& operation : KillOperations()) {
      const auto found = tallies_.find(operation.name);
      if (found == tallies_.end()) continue;
      const Tally& row = found->second;
      std::printf("%-22s %6d %9d %10d %9d\n", operation.name, row.kills, row.journals, row.leftovers, row.problems);
      sum = {sum.kills + row.kills, sum.journals + row.journals, sum.leftovers + row.leftovers,
             sum.problems + row.problems};
    }
    std::printf("%-22s %6d %9d %10d %9d\n", "all", sum.kills, sum.journals, sum.leftovers, sum.problems);
    return sum.problems == 0;
  }

 private:
  struct Fixture {
    TemporaryFolder folder;
    KillFiles files{folder.path()};
    Cost cost;
  };

  Fixture& FixtureOf(const KillOperation& operation) {
    std::unique_ptr<Fixture>& fixture = fixtures_[operation.name];
    if (fixture) return *fixture;
    fixture = std::make_unique<Fixture>();
    operation.make(fixture->files);
    if (!operation.never_opened) Play(fixture->files, {{{"start \"" + fixture->files.work() + "\""}}, {}}, {});
    const TemporaryFolder trial;
    const KillFiles files{trial.path()};
    fs::copy(fixture->files.folder, files.folder, fs::copy_options::recursive);
    const Prepared prepared = Prepare(operation, files);
    const Outcome outcome = Play(files, prepared.script, {});
    std::string problem = outcome.complaint;
    if (problem.empty()) problem = WhatWentWrong(operation, files, prepared, outcome.done);
    if (!problem.empty()) throw std::runtime_error(std::string(operation.name) + " without a kill: " + problem);
    std::ifstream(CostPath(files)) >> fixture->cost.changes >> fixture->cost.microseconds;
    return *fixture;
  }

  // Half of the kills fall between two changes of a file, half anywhere in time; power cuts between changes.
  Moment Draw(const Cost& cost) {
    const auto upto = [this](long most) { return std::uniform_int_distribution<long>(1, std::max(most, 1L))(random_); };
    if (change_ > 0) return {change_, 0, power_ ? static_cast<std::uint32_t>(random_() | 1U) : 0};
    if (power_) return {upto(cost.changes), 0, static_cast<std::uint32_t>(random_() | 1U)};
    if (random_() % 2 == 0) return {upto(cost.changes), 0};
    return {0, upto(cost.microseconds)};
  }

  static void Report(const KillOperation& operation, const Moment& moment, const std::string& problem, Tally& tally) {
    ++tally.problems;
    std::printf("%s, change %ld, %ld us, power cut %u: %s\n", operation.name, moment.change, moment.microseconds,
                moment.power_cut, problem.c_str());
    std::fflush(stdout);
  }

  const std::chrono::steady_clock::time_point began_ = std::chrono::steady_clock::now();
  std::mt19937 random_;
  const long change_;
  const bool power_;
  std::map<std::string, std::unique_ptr<Fixture>> fixtures_;
  std::map<std::string, Tally> tallies_;
};

struct Options {
  int kills = 100;
  std::uint32_t seed = 1;
  std::set<std::string> only;
  long change = 0;
  bool power = false;
};

bool Read(int count, char** words, Options& options) {
  for (int i = 1; i < count; i += 2) {
    const std::string word = words[i];
    if (word == "--power") {
      options.power = true;
      --i;
      continue;
    }
    if (i + 1 == count) return false;
    if (word == "--kills") {
      options.kills = std::atoi(words[i + 1]);
    } else if (word == "--seed") {
      options.seed = static_cast<std::uint32_t>(std::atoi(words[i + 1]));
    } else if (word == "--change") {
      options.change = std::atol(words[i + 1]);
    } else if (word == "--only") {
      std::istringstream names(words[i + 1]);
      for (std::string name; std::getline(names, name, ',');) options.only.insert(name);
    } else {
      return false;
    }
  }
  return options.kills > 0;
}

std::vector<const KillOperation*> Chosen(const std::set<std::string>& only) {
  std::vector<const KillOperation*> chosen;
  for (const KillOperation& operation : KillOperations())
    if (only.empty() ? !operation.takes_long : only.contains(operation.name)) chosen.push_back(&operation);
  return chosen;
}

}  // namespace
}  // namespace merlu::test

int main(int count, char** words) {
  using namespace merlu::test;
  Options options;
  if (!Read(count, words, options) || Chosen(options.only).empty()) {
    std::cerr << "usage: merlu_kills [--kills N] [--seed S] [--only OPERATION,...] [--change N] [--power]\n";
    return 2;
  }
  // a process that dies loses nothing that it has written: no disk is needed, and waiting for one takes time
  UseTemporaryPlace();
  try {
    Harness harness(options.seed, options.change, options.power);
    const auto chosen = Chosen(options.only);
    for (int i = 0; i < options.kills; ++i) {
      harness.Kill(*chosen[static_cast<std::size_t>(i) % chosen.size()]);
      if ((i + 1) % 50 == 0) harness.PrintProgress(options.kills);
    }
    return harness.PrintTable() ? 0 : 1;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return 1;
  }
}
