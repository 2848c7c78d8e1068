#include "session/notices.h"

#include "session/limits.h"

namespace merlu {

void Note(Notices& notices, const std::string& text, Icon icon) {
  notices.waiting.push_back({text, icon});
}

void NoteFault(Notices& notices, const Fault& fault) {
  ++notices.faults;
  notices.waiting.push_back({FaultText(fault), Icon::kNone, FaultDetail(fault)});
}

void NoteSheetFault(Notices& notices, const Fault& fault) {
  ++notices.faults;
  Note(notices, SheetFaultText(fault));
}

std::string FaultText(const Fault& fault) {
  return fault.description + " " + std::to_string(fault.number);
}

std::string SheetFaultText(const Fault& fault) {
  return std::to_string(fault.number) + " " + fault.description;
}

std::string FaultDetail(const Fault& fault) {
  return fault.number == fault_number::kSubscript && fault.source == kTreeSource ? kLimitsInWords : "";
}

}  // namespace merlu
