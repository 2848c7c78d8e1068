// One act of the user that writes: everything that is written as long as it lives is one step of the history.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

class Act {
 public:
  // `what` is what Undo calls it: "Save". It belongs to the place where the user stands.
  Act(Session& s, const std::string& what);
  // To a place of its own, where redo leads to.
  Act(Session& s, const std::string& what, const std::string& place, const QCLocation& to);
  ~Act();
  Act(const Act&) = delete;
  Act& operator=(const Act&) = delete;

 private:
  Session& s_;
};

// Has the companion take part in what is written to the open file.
void OpenCompanion(Session& s);

}  // namespace merlu
