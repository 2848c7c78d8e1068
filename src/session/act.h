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
  // No: there was no backup to be had, and the user does not want to go on without. Nothing is to be written then.
  bool MayWrite() const { return may_write_; }
  Act(const Act&) = delete;
  Act& operator=(const Act&) = delete;

 private:
  Session& s_;
  bool may_write_ = true;
};

// Captions of undo and redo, and whether there is anything to undo or redo.
void ShowUndoCommands(Session& s);

// Makes a backup of the open file; faults are thrown.
void BackUp(Session& s, const std::string& why);
// The same before an act. One that cannot be made is told, and the user is asked whether to go on; false: no.
bool BackUpOrAsk(Session& s, const std::string& why);
// Before the first write of a day. A file that another program holds is no matter for a question: the write tells it.
bool BackUpOnceADay(Session& s);

// Has the companion take part in what is written to the open file.
void OpenCompanion(Session& s);

}  // namespace merlu
