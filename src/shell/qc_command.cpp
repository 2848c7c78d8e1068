#include "shell/qc_command.h"

#include "shell/messages.h"

namespace merlu {
namespace {

using End = QCResult::End;

QCResult RunBehindWait(Session& s, const QCLocation& location) {
  const Busy busy(s);
  ShowWait(s, "MERLU", "Running QC ...");
  s.ui.Paint();
  const QCResult result = RunQC(s, location);
  HideWait(s);
  return result;
}

void TellRunFault(Session& s, const Fault& fault) {
  if (fault.number == fault_number::kNotSet)
    return TellUnder(s, "Data Validation", "There is no data to QC", Icon::kWarning);
  TellUnder(s, "Application Error", std::to_string(fault.number) + ": " + fault.description, Icon::kStop);
}

// "" for a result that nothing is said about.
std::string ResultText(const QCResult& result, bool silent) {
  if (result.end == End::kChecked && result.count > 0)
    return "QC completed with " + std::to_string(result.count) + " errors found";
  if (silent) return "";
  switch (result.end) {
    case End::kChecked: return "QC completed, no errors found";
    case End::kInactiveStructure: return "QC skipped for inactive Structure";
    case End::kInactiveEquipment: return "QC skipped for inactive Equipment";
    default: return "";
  }
}

}  // namespace

QCResult RunQCAndTell(Session& s, const QCLocation& location, bool silent) {
  const QCResult result = RunBehindWait(s, location);
  if (result.fault)
    TellRunFault(s, *result.fault);
  else if (const std::string text = ResultText(result, silent); !text.empty())
    Tell(s, text, Icon::kInfo);
  ShowNotices(s);
  return result;
}

std::vector<std::string> RunQCWithoutBox(Session& s, const QCLocation& location) {
  const QCResult result = RunBehindWait(s, location);
  std::vector<std::string> changed = TakeRuleNotices(s);
  if (result.fault) TellRunFault(s, *result.fault);
  ShowNotices(s);
  return changed;
}

}  // namespace merlu
