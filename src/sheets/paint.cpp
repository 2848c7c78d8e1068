#include "sheets/paint.h"

#include "session/messages.h"

namespace merlu {
namespace {

using Messages = std::vector<std::string>;

void Change(Session& s, Form& form, const std::string& control, const Verdict& verdict, Messages* messages) {
  if (!verdict.message.empty()) messages == nullptr ? Tell(s, verdict.message) : messages->push_back(verdict.message);
  if (verdict.item >= 0)
    SelectItem(form, control, verdict.item);
  else
    form.At(control).text = verdict.becomes;
}

Back BackOf(const Session& s, Mark mark) {
  if (mark == Mark::kFlag) return Back::kFlag;
  return mark == Mark::kPlain && s.editing ? Back::kWindow : Back::kFace;
}

void Paint(Session& s, Form& form, const RecordFields& fields, const Verdict& verdict, Messages* messages) {
  Control& field = form.At(fields[verdict.field].control);
  if (verdict.log == Verdict::Log::kRaise && verdict.as_tip) field.tip = verdict.text;
  if (verdict.mark != Mark::kUntouched) field.back = BackOf(s, verdict.mark);
  if (verdict.changed >= 0) Change(s, form, fields[verdict.changed].control, verdict, messages);
}

}  // namespace

void PaintVerdicts(Session& s, Form& form, const RecordFields& fields, const Verdicts& verdicts, Messages* messages) {
  auto fault = verdicts.faults.begin();
  for (std::size_t number = 0; number <= verdicts.all.size(); ++number) {
    for (; fault != verdicts.faults.end() && fault->before == number; ++fault) TellFaultNumberFirst(s, fault->fault);
    if (number < verdicts.all.size()) Paint(s, form, fields, verdicts.all[number], messages);
  }
}

void TellFaults(Session& s, const Verdicts& verdicts) {
  for (const GroupFault& fault : verdicts.faults) TellFaultNumberFirst(s, fault.fault);
}

}  // namespace merlu
