// A tampered history: it may be refused, but never damages the inventory.
#include "faults/hostile_companion.h"

#include <gtest/gtest.h>

#include <random>

namespace merlu::test {
namespace {

std::vector<std::uint8_t> Changes(std::mt19937& random) {
  std::vector<std::uint8_t> changes(8 * (1 + random() % 6));
  for (std::uint8_t& byte : changes) byte = static_cast<std::uint8_t>(random() % 256);
  return changes;
}

TEST(HostileHistory, with_changed_bytes_leaves_the_inventory_sound) {
  HostileCompanion companion;
  std::mt19937 random(1);
  for (int i = 0; i < 20; ++i) {
    companion.ChangeBytes(Changes(random));
    ASSERT_TRUE(companion.UseLeavesASoundFile()) << i;
  }
}

TEST(HostileHistory, with_changed_steps_leaves_the_inventory_sound) {
  HostileCompanion companion;
  std::mt19937 random(2);
  for (int i = 0; i < 20; ++i) {
    companion.ChangeStep(Changes(random));
    ASSERT_TRUE(companion.UseLeavesASoundFile()) << i;
  }
}

TEST(HostileHistory, that_is_only_read_leaves_the_inventory_sound) {
  HostileCompanion companion;
  std::mt19937 random(3);
  for (int i = 0; i < 200; ++i) {
    i % 2 == 0 ? companion.ChangeBytes(Changes(random)) : companion.ChangeStep(Changes(random));
    ASSERT_TRUE(companion.ReadingLeavesASoundFile()) << i;
  }
}

TEST(HostileHistory, with_drafts_of_nothing_is_lived_with) {
  HostileCompanion companion;
  const std::string b = "\x1f";
  const std::string flare = "ACTV" + b + "EQUIPMENT" + b + "01234" + b + "1" + b + "2017" + b + "10001" + b + "1" + b;
  for (const std::string& at :
       {std::string(), std::string("ACTV"), std::string(100000, '\x1f'), flare + "XXX" + b + "F",
        flare + "FLA" + b + "?", "DESC" + b + "USER" + b + "01234" + b + "-5" + b + "99999999999" + b + b + b + b,
        "ACTV" + b + "SURVEY" + b + b + "13" + b + "2017" + b + b + b + b})
    for (const char* control : {"txtFLA_HrsOperated", "mnuFExit", "tvwTree", "no such control", ""}) {
      companion.PutDraft(at, control, std::string(3000, '9'));
      ASSERT_TRUE(companion.UseLeavesASoundFile()) << at << " " << control;
    }
}

}  // namespace
}  // namespace merlu::test
