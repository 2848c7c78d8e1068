// Database files with bytes changed at random. The same files at every run.
#include <gtest/gtest.h>

#include <random>

#include "faults/mutated_file.h"

namespace merlu::test {
namespace {

class DamagedFile : public testing::Test {
 protected:
  // Half of the changes fall on the first pages, which hold the header and the schema.
  std::vector<std::uint8_t> Changes() {
    std::vector<std::uint8_t> changes(8 * (1 + random_() % 6));
    for (std::uint8_t& byte : changes) byte = static_cast<std::uint8_t>(random_());
    for (std::size_t at = 0; at < changes.size(); at += 8) {
      if (random_() % 2 == 0) changes[at] %= 12;
      if (random_() % 2 == 0) changes[at + 1] = 0;
    }
    return changes;
  }

  MutatedFile file_;
  std::mt19937 random_{20170305};
};

TEST_F(DamagedFile, AsTheWorkingFileIsRefusedOrLivedWith) {
  for (int i = 0; i < 60; ++i) {
    file_.Mutate(Changes());
    file_.UseAsWorkingFile();
  }
}

TEST_F(DamagedFile, ThatIsImportedNeverHarmsTheWorkingFile) {
  for (int i = 0; i < 100; ++i) {
    file_.Mutate(Changes());
    EXPECT_TRUE(file_.ImportLeavesASoundFile()) << "file " << i;
  }
}

}  // namespace
}  // namespace merlu::test
