// The pauses that the program makes while it waits for a file that another one holds. A test of what comes after the
// wait does not make them: they are counted instead, whatever the machine is busy with.
#pragma once

#include <atomic>
#include <functional>
#include <utility>

namespace merlu::test {

// Before the first file is opened, and again when the engine was started anew, which brings its own file layer back.
void WatchPauses();

// No pause is made by this process, or by one that it forks, as long as the object lives.
class WithoutPauses {
 public:
  // `instead` is called at each pause with the milliseconds of those before.
  explicit WithoutPauses(std::function<void(int milliseconds)> instead = {});
  ~WithoutPauses();
  WithoutPauses(const WithoutPauses&) = delete;
  WithoutPauses& operator=(const WithoutPauses&) = delete;

  // That would have been waited so far.
  int milliseconds() const { return microseconds_ / 1000; }
  void Pause(int microseconds);

 private:
  std::function<void(int milliseconds)> instead_;
  std::atomic<int> microseconds_ = 0;
};

}  // namespace merlu::test
