// Findings put into the log, and withdrawn, without a rule.
#pragma once

#include <string>

#include "qc/apply.h"

namespace merlu::test {

inline void Say(Session& s, const QCLocation& location, const std::string& field, const std::string& text,
                Verdict::Log log) {
  Verdicts verdicts;
  Verdict& verdict = verdicts.all.emplace_back();
  verdict.tag = field;
  verdict.text = text;
  verdict.log = log;
  ApplyVerdicts(s, location, verdicts);
}

inline void AddFinding(Session& s, const QCLocation& location, const std::string& field, const std::string& text) {
  Say(s, location, field, text, Verdict::Log::kRaise);
}

inline void WithdrawFinding(Session& s, const QCLocation& location, const std::string& field, const std::string& text) {
  Say(s, location, field, text, Verdict::Log::kWithdraw);
}

inline void WithdrawField(Session& s, const QCLocation& location, const std::string& field) {
  Say(s, location, field, "", Verdict::Log::kWithdrawAny);
}

}  // namespace merlu::test
