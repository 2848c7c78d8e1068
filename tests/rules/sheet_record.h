// A record of a sheet as its rules judge it, with the findings that were raised on it: no form, no file, no program
// start.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "rules/judge.h"

namespace merlu::test {

using Values = std::vector<std::pair<std::string, std::string>>;

class SheetRecord {
 public:
  // Of equipment of that type; an empty one is a structure.
  SheetRecord(const std::string& type, Mode mode, const Values& values = {}, int month = 1);

  // Another mode: its findings are others, and no field is marked.
  void GoTo(Mode mode);

  void Set(const std::string& control, const std::string& text);
  void Put(const Values& values);
  void Check(const std::string& control, bool on = true);
  // A column of PA_PLATFORM_ACTV in the record's month; "NULL" for none.
  void SetTotal(const std::string& column, const std::string& total);
  // Each run begins with no finding: as for a type whose runs drop those that nobody explained.
  void ForgetBeforeEachRun() { forgets_ = true; }

  // Judges the record, puts what the rules change into it, and updates its findings.
  void Run();
  void Forget() { Log().clear(); }
  // A finding of an earlier run.
  void Leave(const std::string& tag, const std::string& text) { Log().emplace_back(tag, text); }

  // The tag's finding; empty without one.
  std::string Finding(const std::string& tag) const { return Finding(tag, mode_); }
  std::string Finding(const std::string& tag, Mode mode) const;
  // Tags and texts, in the order in which they were raised.
  const Values& Findings() const { return Log(); }
  // Tags alone: "Hours Operated|Total Fuel Used".
  std::string Fields() const;
  bool FindsOnlyBlanks() const;
  // How many findings have a tag that begins with the text.
  int CountOf(const std::string& beginning) const;

  const std::string& Text(const std::string& control) const { return view_.Text(control); }
  const std::string& TagOf(const std::string& control) const;
  // How the runs left the field; kPlain before the first.
  Mark MarkOf(const std::string& control) const;

 private:
  Values& Log() { return logs_[mode_ == Mode::kActv ? 1 : 0]; }
  const Values& Log() const { return logs_[mode_ == Mode::kActv ? 1 : 0]; }
  void Play(const Verdict& verdict);

  const RuleSet* rules_;
  Mode mode_;
  int month_;
  RecordView view_;
  Context context_;
  std::vector<Mark> marks_;
  std::array<Values, 2> logs_;  // of the description, of the month
  bool forgets_ = false;
};

inline const char* const kBlankFinding = "Required field left blank";

}  // namespace merlu::test
