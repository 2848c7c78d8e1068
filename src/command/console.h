// Where a command writes, and what it answers.
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "base/fault.h"

namespace merlu {

// Exit statuses, from the best to the gravest.
enum class Status {
  kWell = 0,
  kSomething = 1,   // there is something to settle: findings, differences, what is missing or refused
  kWrongUsage = 2,  // of the command line
  kFile = 3         // a file that could not be read, judged or written
};

// The graver of two.
inline Status Worse(Status one, Status other) {
  return static_cast<int>(one) < static_cast<int>(other) ? other : one;
}

struct Console {
  std::ostream& out;                   // the command's result
  std::ostream& err;                   // what concerns the run
  bool progress = false;               // err is a terminal and out is none: progress can be shown
  std::function<void()> need_fonts{};  // called before the first page is painted
};

// What is wrong with a file that is not the command's own: with the one of --from.
struct FaultOfFile : Fault {
  FaultOfFile(const std::string& of, const Fault& fault) : Fault(fault), file(of) {}
  std::string file;
};

// Does the work on that file; its faults name it.
template <typename Work>
void OnFile(const std::string& file, Work&& work) {
  try {
    work();
  } catch (const Fault& fault) {
    throw FaultOfFile(file, fault);
  }
}

// A line on the run: "merlu check: FILE: why".
void Complain(Console& console, const std::string& command, const std::string& file, const std::string& why);

}  // namespace merlu
