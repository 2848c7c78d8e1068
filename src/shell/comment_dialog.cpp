#include "shell/comment_dialog.h"

#include "base/text.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "history/notes.h"
#include "qc/comment_key.h"
#include "qc/qc_list.h"
#include "qc/qc_log.h"
#include "session/act.h"
#include "shell/dialog_names.h"
#include "shell/messages.h"

namespace merlu {
namespace {

constexpr std::size_t kFieldColumn = 0, kCommentColumn = 2;
constexpr const char* kNotFound = "QC Error record was not found";

Form& MakeDialog(Session& s) {
  Form& form = s.desk.Own(std::make_unique<Form>(names::frmQCComment, "Edit QC Comments"));
  AddText(form, names::txtFieldName, "Field Name:").locked = true;
  AddText(form, names::txtErrorDesc, "Error Description:").locked = true;
  AddText(form, names::txtComments, "Comments:").lines = true;
  for (const char* name : {names::txtFieldName, names::txtErrorDesc}) form.At(name).back = Back::kFace;
  AddDialogButtons(form, names::cmdOK, "cmdCancel");
  form.focus = names::txtComments;
  form.KeepDesign();
  form.On("cmdCancel", Event::kClick, [&s, &form] { s.desk.Hide(form); });
  return form;
}

// False when the log cannot be read: OK would store the empty field over the comment.
bool FillDialog(Session& s, Form& dialog, const std::string& field_id) {
  dialog.At(names::txtFieldName).text = field_id;
  QCLocation location = s.current;
  const int faults = s.notices.faults;
  const bool found = FindQCRecord(s, location, field_id);
  if (s.notices.faults != faults) return false;
  if (found) {
    dialog.At(names::txtComments).text = NullToEmpty(s.At("QC").Field("Comments"));
    dialog.At(names::txtErrorDesc).text = NullToEmpty(s.At("QC").Field("Desc"));
  } else {
    Tell(s, kNotFound);
  }
  return true;
}

// Finds the row again: another program may have taken it meanwhile.
bool StoreComment(Session& s, const std::string& field_id, const std::string& comment, const std::string& value) {
  bool found = false;
  const Act act(s, "Comment");
  if (!act.MayWrite()) return false;
  const bool done = OnSheet(s, [&] {
    WriteBatch batch(s.db);
    s.db.NoticeOthers();
    QCLocation location = s.current;
    found = FindQCRecord(s, location, field_id);
    if (!found) return;
    Cursor& qc = s.At("QC");
    qc.Edit();
    const std::string text = NullToEmpty(qc.Field("Desc"));
    qc.SetField("Comments", comment);
    qc.Update();
    KeepComment(s.companion, CommentKey(location, field_id, text), {comment, value});
    batch.Commit();
  });
  if (done && !found) Tell(s, kNotFound);
  return done && found;
}

// What the field shows that the finding is kept under: of fields with one tag the one that has the finding, or else can
// be seen.
std::string ValueOf(const Form& form, const std::string& tag) {
  const Control* found = nullptr;
  const auto weight = [&form](const Control& control) {
    return (control.back == Back::kFlag ? 4 : 0) + (control.finding.empty() ? 0 : 2) +
           (IsVisible(form, control) ? 1 : 0);
  };
  for (const Control& control : form.controls()) {
    if (control.tag.empty() || !EqualsIgnoringCase(TrimRight(control.tag), TrimRight(tag))) continue;
    if (found == nullptr || weight(control) > weight(*found)) found = &control;
  }
  return found == nullptr ? "" : found->text;
}

void Keep(Session& s, Form& dialog, const Form& form, Control& list) {
  const std::string& field_id = dialog.At(names::txtFieldName).text;
  const std::string& comment = dialog.At(names::txtComments).text;
  if (!StoreComment(s, field_id, comment, ValueOf(form, field_id))) return;
  if (IsQCRowSelected(list)) {
    std::vector<std::string>& row = list.rows[static_cast<std::size_t>(list.picked.front())];
    if (row[kFieldColumn] == field_id) row[kCommentColumn] = comment;
  }
  s.desk.Hide(dialog);
}

}  // namespace

Form& CommentDialog(Session& s) {
  Form* found = s.desk.Find(names::frmQCComment);
  Form& dialog = found != nullptr ? *found : MakeDialog(s);
  dialog.RestoreDesign();
  dialog.focus = names::txtComments;
  return dialog;
}

bool IsQCRowSelected(const Control& list) {
  return !list.picked.empty() &&
         list.rows[static_cast<std::size_t>(list.picked.front())][kCommentColumn] != kSummaryMark;
}

void EditQCComment(Session& s, Form& form, const std::string& name) {
  Control& list = form.At(name);
  if (!IsQCRowSelected(list)) return Tell(s, "Please select an error record to edit.");
  s.db.NoticeOthers();
  const std::string field_id = list.rows[static_cast<std::size_t>(list.picked.front())][kFieldColumn];
  Form& dialog = CommentDialog(s);
  // the form of the list outlives the dialog, its rows need not
  dialog.On(names::cmdOK, Event::kClick, [&s, &dialog, &form, name] { Keep(s, dialog, form, form.At(name)); });
  if (FillDialog(s, dialog, field_id)) OpenDialog(s, dialog);
  dialog.On(names::cmdOK, Event::kClick, nullptr);
}

}  // namespace merlu
