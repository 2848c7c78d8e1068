// One act of the user that writes: everything that is written as long as it lives is one step of the history.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

class Act {
 public:
  // `what` is the caption of its undo: "Save". The step belongs to the user's present place.
  Act(Session& s, const std::string& what);
  // The same at another place, where redo leads to.
  Act(Session& s, const std::string& what, const std::string& place, const QCLocation& to);
  ~Act();
  // False when the backup before it failed and the user does not want to continue without. Nothing must be written
  // then.
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
// The same before an act. When it fails the user is asked whether to continue; false: no.
bool BackUpOrAsk(Session& s, const std::string& why);
// Before the first write of a day. Asks nothing when another program holds the file, as the write itself reports that.
bool BackUpOnceADay(Session& s);

// Has the companion take part in what is written to the open file.
void OpenCompanion(Session& s);

}  // namespace merlu
