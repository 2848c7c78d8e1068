#include "qc/comment_dialog.h"

#include "forms/dialog.h"
#include "qc/qc_list.h"
#include "qc/qc_log.h"
#include "session/act.h"
#include "session/messages.h"

namespace merlu {
namespace {

constexpr std::size_t kCommentColumn = 2;

Form& MakeDialog(Session& s) {
  Form& form = s.desk.Own(std::make_unique<Form>("frmQCComment", "Edit QC Comments"));
  AddText(form, "txtFieldName", "Field Name:").locked = true;
  AddText(form, "txtErrorDesc", "Error Description:").locked = true;
  AddText(form, "txtComments", "Comments:").lines = true;
  for (const char* name : {"txtFieldName", "txtErrorDesc"}) form.At(name).back = Back::kFace;
  AddDialogButtons(form, "cmdOK", "cmdCancel");
  form.focus = "txtComments";
  form.KeepDesign();
  form.On("cmdCancel", Event::kClick, [&s, &form] { s.desk.Hide(form); });
  return form;
}

void FillDialog(Session& s, Form& dialog, const std::string& field_id) {
  dialog.At("txtFieldName").text = field_id;
  QCLocation location = s.current;
  if (!FindQCRecord(s, location, field_id)) return Tell(s, "QC Error record was not found");
  dialog.At("txtComments").text = NullToEmpty(s.At("QC").Field("Comments"));
  dialog.At("txtErrorDesc").text = NullToEmpty(s.At("QC").Field("Desc"));
}

void Keep(Session& s, Form& dialog, std::vector<std::string>& row) {
  const std::string& comment = dialog.At("txtComments").text;
  const Act act(s, "Comment");
  const bool kept = OnSheet(s, [&] {
    Cursor& qc = s.At("QC");
    qc.Edit();
    qc.SetField("Comments", comment);
    qc.Update();
  });
  if (!kept) return;
  row[kCommentColumn] = comment;
  s.desk.Hide(dialog);
}

}  // namespace

bool IsQCRowSelected(const Control& list) {
  return !list.picked.empty() &&
         list.rows[static_cast<std::size_t>(list.picked.front())][kCommentColumn] != kSummaryMark;
}

void EditQCComment(Session& s, Form& form, const std::string& name) {
  Control& list = form.At(name);
  if (!IsQCRowSelected(list)) return Tell(s, "Please select an error record to edit.");
  s.db.NoticeOthers();
  std::vector<std::string>& row = list.rows[static_cast<std::size_t>(list.picked.front())];
  Form* found = s.desk.Find("frmQCComment");
  Form& dialog = found != nullptr ? *found : MakeDialog(s);
  dialog.RestoreDesign();
  dialog.focus = "txtComments";
  dialog.On("cmdOK", Event::kClick, [&s, &dialog, &row] { Keep(s, dialog, row); });
  FillDialog(s, dialog, row.front());
  ShowDialog(s.desk, s.platform, dialog);
}

}  // namespace merlu
