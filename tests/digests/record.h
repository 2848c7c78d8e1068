// A record of acts and of what each left: whole, or folded into digests.
//
//   A <act>                  what was done, a command of a script
//   R <reply>                whether it was done, and the boxes
//   + <item> <tab> <text>    an item that changed        (whole records only)
//   - <item>                 an item that is gone        (whole records only)
//   = <digests>              of screens, rows, place and reply behind the act (folded: of the acts since the last one)
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "digests/observer.h"

namespace merlu::test {

// Of screens, rows, place and replies: which kind differs is seen without the texts.
using Digests = std::array<std::uint32_t, 4>;
inline constexpr const char* kDigestNames[] = {"a control", "a row", "the place or the tree", "the reply"};

// Kept up to date change by change. Items that the record does not know do not count.
class Digester {
 public:
  // Null: every item counts.
  explicit Digester(const std::set<std::string>* known_controls) : known_(known_controls) {}
  void Take(const Changes& changes, const std::string& reply);
  Digests Now() const;

 private:
  std::map<std::string, std::uint64_t> items_;
  std::array<std::uint64_t, 4> sums_{};
  const std::set<std::string>* known_;
};

struct RecordedAct {
  std::string act, reply;
  Changes changes;
  bool has_digests = false;
  Digests digests{};
};

struct RecordedChapter {
  int number = 0;
  std::vector<RecordedAct> acts;
};

struct Record {
  std::uint32_t seed = 1;
  bool whole = true;
  std::set<std::string> controls;  // every "form.control" that was seen
  std::vector<RecordedChapter> chapters;
};

// std::runtime_error when the file cannot be read or written, or is no record.
Record ReadRecord(const std::string& path);
void WriteRecord(const Record& record, const std::string& path);

bool IsControl(const std::string& item);

}  // namespace merlu::test
