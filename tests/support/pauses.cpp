#include "support/pauses.h"

#include <sqlite3.h>

#include <stdexcept>

namespace merlu::test {
namespace {

sqlite3_vfs* engines_own = nullptr;
std::atomic<WithoutPauses*> without = nullptr;

int Sleep(sqlite3_vfs*, int microseconds) {
  WithoutPauses* now = without;
  if (now == nullptr) return engines_own->xSleep(engines_own, microseconds);
  now->Pause(microseconds);
  return microseconds;
}

}  // namespace

// The engine's file layer with other pauses.
void WatchPauses() {
  static sqlite3_vfs watched;
  if (engines_own == nullptr) {
    engines_own = sqlite3_vfs_find(nullptr);
    if (engines_own == nullptr) throw std::runtime_error("no file layer");
    watched = *engines_own;
    watched.zName = "watched-pauses";
    watched.xSleep = Sleep;
  }
  if (sqlite3_vfs_register(&watched, 1) != SQLITE_OK) throw std::runtime_error("no file layer of the tests");
}

WithoutPauses::WithoutPauses(std::function<void(int milliseconds)> instead) : instead_(std::move(instead)) {
  if (engines_own == nullptr || without.exchange(this) != nullptr) throw std::logic_error("pauses are not watched");
}

WithoutPauses::~WithoutPauses() {
  without = nullptr;
}

void WithoutPauses::Pause(int microseconds) {
  if (instead_) instead_(milliseconds());
  microseconds_ += microseconds;
}

}  // namespace merlu::test
