// What procedures below the shell have to say to the user: they write it down, in order, and the shell shows it in
// message boxes when they have returned (shell/messages.h).
#pragma once

#include <string>
#include <vector>

#include "base/fault.h"
#include "forms/platform.h"

namespace merlu {

struct Notice {
  std::string text;
  Icon icon = Icon::kNone;
  std::string detail{};  // further information, shown on request
  bool of_rule = false;  // what a rule has changed in the record
};

struct Notices {
  std::vector<Notice> waiting;  // not shown yet
  int faults = 0;               // noted so far: a load that noted one has not read its record
};

void Note(Notices& notices, const std::string& text, Icon icon = Icon::kNone);
// The plain handler: description, a blank, number.
void NoteFault(Notices& notices, const Fault& fault);
// The handler of sheets and of the QC log: number, a blank, description.
void NoteSheetFault(Notices& notices, const Fault& fault);

std::string FaultText(const Fault& fault);
std::string SheetFaultText(const Fault& fault);
// What a fault says beside its text.
std::string FaultDetail(const Fault& fault);

// Runs the work under the plain handler; false when a fault ended it.
template <typename Work>
bool NotingFaults(Notices& notices, Work&& work) {
  try {
    work();
    return true;
  } catch (const Fault& fault) {
    NoteFault(notices, fault);
    return false;
  }
}

// The same under the handler of sheets.
template <typename Work>
bool NotingSheetFaults(Notices& notices, Work&& work) {
  try {
    work();
    return true;
  } catch (const Fault& fault) {
    NoteSheetFault(notices, fault);
    return false;
  }
}

}  // namespace merlu
