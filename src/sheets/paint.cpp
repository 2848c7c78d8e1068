#include "sheets/paint.h"

#include "session/notices.h"

namespace merlu {
namespace {

void Show(Session& s, Form& form, const std::string& control, const FieldChange& change) {
  if (!change.message.empty()) s.notices.waiting.push_back({change.message, Icon::kNone, "", true});
  if (change.item >= 0)
    SelectItem(form, control, change.item);
  else
    form.At(control).text = change.text;
}

Back BackOf(const Session& s, Mark mark) {
  if (mark == Mark::kFlag) return Back::kFlag;
  return mark == Mark::kPlain && s.editing ? Back::kWindow : Back::kFace;
}

void Paint(Session& s, Form& form, const RecordFields& fields, const Verdict& verdict) {
  Control& field = form.At(fields[verdict.field].control);
  if (verdict.log == Verdict::Log::kRaise && verdict.as_tip) field.tip = verdict.text;
  if (verdict.mark != Mark::kUntouched) field.back = BackOf(s, verdict.mark);
}

}  // namespace

void PaintVerdicts(Session& s, Form& form, const RecordFields& fields, const Verdicts& verdicts) {
  auto fault = verdicts.faults.begin();
  for (std::size_t number = 0; number <= verdicts.all.size(); ++number) {
    for (; fault != verdicts.faults.end() && fault->before == number; ++fault) NoteSheetFault(s.notices, fault->fault);
    if (number == verdicts.all.size()) continue;
    const Verdict& verdict = verdicts.all[number];
    Paint(s, form, fields, verdict);
    if (verdict.change < 0) continue;
    const FieldChange& change = verdicts.changes[static_cast<std::size_t>(verdict.change)];
    Show(s, form, fields[change.field].control, change);
  }
}

void NoteFaults(Session& s, const Verdicts& verdicts) {
  for (const GroupFault& fault : verdicts.faults) NoteSheetFault(s.notices, fault.fault);
}

}  // namespace merlu
