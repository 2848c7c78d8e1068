#include "sheets/paint.h"

#include "session/notices.h"

namespace merlu {
namespace {

void Change(Session& s, Form& form, const std::string& control, const Verdict& verdict) {
  if (!verdict.message.empty()) s.notices.waiting.push_back({verdict.message, Icon::kNone, "", true});
  if (verdict.item >= 0)
    SelectItem(form, control, verdict.item);
  else
    form.At(control).text = verdict.becomes;
}

Back BackOf(const Session& s, Mark mark) {
  if (mark == Mark::kFlag) return Back::kFlag;
  return mark == Mark::kPlain && s.editing ? Back::kWindow : Back::kFace;
}

void Paint(Session& s, Form& form, const RecordFields& fields, const Verdict& verdict) {
  Control& field = form.At(fields[verdict.field].control);
  if (verdict.log == Verdict::Log::kRaise && verdict.as_tip) field.tip = verdict.text;
  if (verdict.mark != Mark::kUntouched) field.back = BackOf(s, verdict.mark);
  if (verdict.changed >= 0) Change(s, form, fields[verdict.changed].control, verdict);
}

}  // namespace

void PaintVerdicts(Session& s, Form& form, const RecordFields& fields, const Verdicts& verdicts) {
  auto fault = verdicts.faults.begin();
  for (std::size_t number = 0; number <= verdicts.all.size(); ++number) {
    for (; fault != verdicts.faults.end() && fault->before == number; ++fault) NoteSheetFault(s.notices, fault->fault);
    if (number < verdicts.all.size()) Paint(s, form, fields, verdicts.all[number]);
  }
}

void NoteFaults(Session& s, const Verdicts& verdicts) {
  for (const GroupFault& fault : verdicts.faults) NoteSheetFault(s.notices, fault.fault);
}

}  // namespace merlu
