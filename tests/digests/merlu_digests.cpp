// merlu_digests: plays acts over all screens and keeps what each leaves in every row and every control, or plays a
// record's acts again and tells what differs.
//
//   merlu_digests --acts N [--seed S] --record FILE [--fold N]   makes a record; folded: digests alone, each N acts
//   merlu_digests --replay FILE [--chapter C] [--most N]         compares; shows the first difference of N chapters
//   merlu_digests --replay FILE --list OUT                       goes on behind a difference, and lists them all
//   merlu_digests --replay FILE --record OUT [--fold N]          plays the same acts and records them anew
//
// A folded record tells the acts that differ, not how: a whole record of the same acts by the program as it was
// before, and its replay, tell that. With --files FOLDER the files that chapters start from are kept there, and taken
// from there by a replay. Exit status 0 when nothing differs, 1 when something does, 2 for wrong usage.
#include <QGuiApplication>

#include <cstdio>
#include <cstring>
#include <exception>
#include <fstream>
#include <functional>
#include <memory>

#include "digests/chapter.h"
#include "digests/chooser.h"
#include "support/temporary_place.h"

namespace merlu::test {
namespace {

constexpr int kActsInChapter = 100;
constexpr std::size_t kShown = 12;  // items of a difference

struct Options {
  long acts = 0;
  std::uint32_t seed = 1;
  std::string record, replay, files, list;
  int fold = 0;
  int chapter = -1;
  int most = 5;
};

// ---- recording ----

class Recorder : public Teller {
 public:
  using Choose = std::function<std::optional<std::string>(Session&)>;
  Recorder(Choose choose, int fold) : choose_(std::move(choose)), fold_(fold) {}

  std::optional<std::string> Next(Session& s) override {
    std::optional<std::string> act = choose_(s);
    if (act) {
      acts_.emplace_back();
      acts_.back().act = *act;
    }
    return act;
  }

  bool Take(const std::string&, const std::string& reply, const Changes& changes) override {
    RecordedAct& at = acts_.back();
    at.reply = reply;
    at.changes = changes;
    digester_.Take(changes, reply);
    if (acts_.size() % static_cast<std::size_t>(std::max(fold_, 1)) == 0) Digest();
    return true;
  }

  // The program ended by an error of its own.
  void Failed(const std::string& what) { acts_.back().reply = "error: " + what; }

  std::vector<RecordedAct> TakeActs() {
    if (!acts_.empty()) Digest();
    return std::move(acts_);
  }

 private:
  void Digest() {
    acts_.back().has_digests = true;
    acts_.back().digests = digester_.Now();
  }

  Choose choose_;
  const int fold_;
  Digester digester_{nullptr};
  std::vector<RecordedAct> acts_;
};

std::vector<RecordedAct> RecordChapter(const Options& options, std::uint32_t seed, int number,
                                       const Recorder::Choose& choose) {
  Recorder recorder(choose, options.fold);
  try {
    PlayChapter(seed, number, options.files, recorder);
  } catch (const std::exception& failure) {
    recorder.Failed(failure.what());
  }
  return recorder.TakeActs();
}

void PrintUse(const Record& record) {
  std::map<std::string, long> verbs, tables;
  long acts = 0, refused = 0;
  for (const RecordedChapter& chapter : record.chapters)
    for (const RecordedAct& act : chapter.acts) {
      ++acts;
      if (act.reply.starts_with("refused")) ++refused;
      const bool press = act.act.starts_with("click ");
      ++verbs[press ? act.act : act.act.substr(0, act.act.find(' '))];
      std::set<std::string> touched;
      for (const auto& [name, text] : act.changes.changed)
        if (name.starts_with("row.")) touched.insert(name.substr(4, name.find('#') - 4));
      for (const std::string& table : touched) ++tables[table];
    }
  std::printf("%ld acts, %ld refused, %zu controls\n", acts, refused, record.controls.size());
  for (const auto& [verb, count] : verbs)
    if (count >= acts / 500) std::printf("  %6ld %s\n", count, verb.c_str());
  for (const auto& [table, count] : tables) std::printf("  %s %ld", table.c_str(), count);
  std::printf("\n");
}

int MakeRecord(const Options& options) {
  Record record;
  record.seed = options.seed;
  record.whole = options.fold == 0;
  std::optional<Record> acts;
  if (!options.replay.empty()) {
    acts = ReadRecord(options.replay);
    record.seed = acts->seed;
  }
  const long chapters =
      acts ? static_cast<long>(acts->chapters.size()) : (options.acts + kActsInChapter - 1) / kActsInChapter;
  for (int i = 0; i < chapters; ++i) {
    RecordedChapter chapter;
    chapter.number = acts ? acts->chapters[static_cast<std::size_t>(i)].number : i;
    Chooser chooser(record.seed * 1000003U + static_cast<std::uint32_t>(i), TypeOfChapter(i));
    std::size_t at = 0;
    const auto choose = [&](Session& s) -> std::optional<std::string> {
      const std::size_t now = at++;
      if (!acts) return now < kActsInChapter ? std::optional(chooser.Next(s)) : std::nullopt;
      const auto& list = acts->chapters[static_cast<std::size_t>(i)].acts;
      return now < list.size() ? std::optional(list[now].act) : std::nullopt;
    };
    chapter.acts = RecordChapter(options, record.seed, chapter.number, choose);
    for (const RecordedAct& act : chapter.acts)
      for (const auto& [name, text] : act.changes.changed)
        if (IsControl(name)) record.controls.insert(name);
    record.chapters.push_back(std::move(chapter));
  }
  WriteRecord(record, options.record);
  PrintUse(record);
  return 0;
}

// ---- comparing ----

class Comparer : public Teller {
 public:
  // With a list, it gets every item that begins to differ, or differs otherwise, in a line, and the chapter goes on.
  Comparer(const Record& record, const RecordedChapter& chapter, std::ostream* list)
      : record_(record), chapter_(chapter), digester_(&record.controls), list_(list) {}

  std::optional<std::string> Next(Session&) override {
    if (at_ == chapter_.acts.size()) return std::nullopt;
    return chapter_.acts[at_].act;
  }

  bool Take(const std::string&, const std::string& reply, const Changes& changes) override {
    const RecordedAct& act = chapter_.acts[at_++];
    digester_.Take(changes, reply);
    if (record_.whole) {
      Follow(now_, changes);
      Follow(expected_, act.changes);
      CompareItems(act, reply);
    }
    if (difference_.empty() && act.has_digests) CompareDigests(act);
    return difference_.empty() || list_ != nullptr;
  }

  void Failed(const std::string& what) {
    const RecordedAct& act = chapter_.acts[std::min(at_, chapter_.acts.size() - 1)];
    if (act.reply != "error: " + what) difference_ = "    the program ended by an error: " + what + "\n";
    ++at_;
  }

  bool Differs() const { return !difference_.empty(); }
  // In words, with the acts that led there.
  std::string Told() const {
    std::string text = "chapter " + std::to_string(chapter_.number) + ", act " + std::to_string(at_) + ":\n";
    for (std::size_t i = at_ > 8 ? at_ - 8 : 0; i < at_ && i < chapter_.acts.size(); ++i)
      text += "    " + chapter_.acts[i].act + "\n";
    return text + difference_;
  }

 private:
  static void Follow(Items& items, const Changes& changes) {
    for (const auto& [name, text] : changes.changed) items[name] = text;
    for (const std::string& name : changes.gone) items.erase(name);
  }

  void CompareItems(const RecordedAct& act, const std::string& reply) {
    if (reply != act.reply && list_ != nullptr) List("reply", act.reply, reply);
    if (reply != act.reply && list_ == nullptr) Differ("reply", act.reply, reply);
    std::size_t differing = 0;
    const auto compare = [&](const std::string& name) {
      if (IsControl(name) && !record_.controls.contains(name)) return;
      const auto old = expected_.find(name), now = now_.find(name);
      const std::string none = "(not there)";
      const std::string& before = old == expected_.end() ? none : old->second;
      const std::string& after = now == now_.end() ? none : now->second;
      if (before == after) {
        listed_.erase(name);
      } else if (list_ != nullptr) {
        if (std::exchange(listed_[name], {before, after}) != std::pair(before, after)) List(name, before, after);
      } else if (++differing <= kShown) {
        Differ(name, before, after);
      }
    };
    std::set<std::string> names;
    for (const auto& [name, text] : expected_) names.insert(name);
    for (const auto& [name, text] : now_) names.insert(name);
    for (const std::string& name : names) compare(name);
    if (differing > kShown) difference_ += "    and " + std::to_string(differing - kShown) + " more\n";
  }

  void Differ(const std::string& name, const std::string& before, const std::string& after) {
    difference_ += "  " + name + "\n    was " + Escaped(before) + "\n    is  " + Escaped(after) + "\n";
  }

  // Chapter, act and its number, item, what it was, what it is.
  void List(const std::string& name, const std::string& before, const std::string& after) {
    difference_ = "listed";
    *list_ << chapter_.number << '\t' << at_ << '\t' << chapter_.acts[at_ - 1].act << '\t' << name << '\t'
           << Escaped(before) << '\t' << Escaped(after) << '\n';
  }

  void CompareDigests(const RecordedAct& act) {
    const Digests now = digester_.Now();
    for (std::size_t i = 0; i < now.size(); ++i)
      if (now[i] != act.digests[i]) difference_ += std::string("    ") + kDigestNames[i] + " differs\n";
  }

  const Record& record_;
  const RecordedChapter& chapter_;
  Digester digester_;
  Items expected_, now_;
  std::size_t at_ = 0;
  std::string difference_;
  std::ostream* list_;
  std::map<std::string, std::pair<std::string, std::string>> listed_;  // what differs at present, as it was listed
};

int Replay(const Options& options) {
  const Record record = ReadRecord(options.replay);
  int played = 0, differing = 0;
  long acts = 0;
  std::ofstream list(options.list, std::ios::binary);
  for (const RecordedChapter& chapter : record.chapters) {
    if (options.chapter >= 0 && chapter.number != options.chapter) continue;
    Comparer comparer(record, chapter, options.list.empty() ? nullptr : &list);
    try {
      PlayChapter(record.seed, chapter.number, options.files, comparer);
    } catch (const std::exception& failure) {
      comparer.Failed(failure.what());
    }
    ++played;
    acts += static_cast<long>(chapter.acts.size());
    if (comparer.Differs() && ++differing <= options.most && options.list.empty())
      std::printf("%s\n", comparer.Told().c_str());
  }
  std::printf("%ld acts in %d chapters: %s\n", acts, played,
              differing == 0 ? "nothing differs" : (std::to_string(differing) + " chapters differ").c_str());
  return differing == 0 && played > 0 ? 0 : 1;
}

bool ReadOptions(int count, char** words, Options& options) {
  if (count % 2 == 0) return false;
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string option = words[i], value = words[i + 1];
    const int number = std::atoi(value.c_str());
    if (option == "--acts")
      options.acts = number;
    else if (option == "--seed")
      options.seed = static_cast<std::uint32_t>(number);
    else if (option == "--record")
      options.record = fs::absolute(value).string();
    else if (option == "--replay")
      options.replay = fs::absolute(value).string();
    else if (option == "--files")
      options.files = fs::absolute(value).string();
    else if (option == "--list")
      options.list = fs::absolute(value).string();
    else if (option == "--fold")
      options.fold = number;
    else if (option == "--chapter")
      options.chapter = number;
    else if (option == "--most")
      options.most = number;
    else
      return false;
  }
  return !options.replay.empty() || (options.acts > 0 && !options.record.empty());
}

}  // namespace
}  // namespace merlu::test

int main(int count, char** words) {
  using namespace merlu::test;
  Options options;
  if (!ReadOptions(count, words, options)) {
    std::fputs(
        "usage: merlu_digests --acts N [--seed S] --record FILE [--fold N]\n"
        "       merlu_digests --replay FILE [--chapter C] [--most N]\n"
        "       merlu_digests --replay FILE --list OUT\n"
        "       merlu_digests --replay FILE --record OUT [--fold N]\n"
        "each also with [--files FOLDER]\n",
        stderr);
    return 2;
  }
  UseTemporaryPlace();
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const QGuiApplication application(count, words);
  try {
    return options.record.empty() ? Replay(options) : MakeRecord(options);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 2;
  }
}
