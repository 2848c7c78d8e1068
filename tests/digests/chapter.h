// One chapter of a recorded run: a start on a file of its own, and some acts.
#pragma once

#include <optional>
#include <string>

#include "digests/record.h"
#include "support/test_run.h"

namespace merlu::test {

// Gives a chapter its next act, and receives the result.
class Teller {
 public:
  virtual ~Teller() = default;
  // The next command; nothing at the chapter's end. The session is as the last act left it.
  virtual std::optional<std::string> Next(Session& s) = 0;
  // What the last act answered and changed; false ends the chapter.
  virtual bool Take(const std::string& act, const std::string& reply, const Changes& changes) = 0;
};

// Plays a chapter. The files that it starts from are made from the seed and its number; in a folder for them, when
// one is named, they are kept, and taken from there the next time.
void PlayChapter(std::uint32_t seed, int number, const std::string& kept_files, Teller& teller);

// The equipment type that a chapter is most about.
std::string TypeOfChapter(int number);

}  // namespace merlu::test
