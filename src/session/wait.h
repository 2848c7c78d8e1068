// What shows while the program works.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// Busy pointer for as long as it lives.
class Busy {
 public:
  explicit Busy(Session& s) : s_(s) { s_.progress.SetBusy(true); }
  ~Busy() { s_.progress.SetBusy(false); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  Session& s_;
};

// The wait screen: shown, updated with progress, and hidden at the end. It is painted at most a few times a second, so
// frequent calls of ShowProgress are cheap; it is at `done` of `total` steps, or the total is 0 while it is unknown.
// For work that ends before it could be read it is not shown at all.
void ShowWait(Session& s, const std::string& title, const std::string& text);
void ShowProgress(Session& s, const std::string& text, int done, int total);
void HideWait(Session& s);

}  // namespace merlu
