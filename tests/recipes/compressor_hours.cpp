// A screen and a command that the program does not have, as their author would add them.
#include "command/commands.h"
#include "command/inventory_file.h"
#include "extensions.h"
#include "forms/dialog.h"
#include "session/session.h"
#include "shell/dialog_form.h"
#include "shell/messages.h"

namespace merlu {
namespace {

constexpr const char* kList = "lvwHRS_List";

void Fill(Session& s, Form& form) {
  std::vector<RowsModel::Row> rows;
  s.db.ForEach(
      "SELECT ED_MERLU_EQUIP_ID, OP_HR FROM ED_EQUIP_DESC JOIN EA_EQUIP_ACTV USING (ED_ID_AK) JOIN EA_COM USING "
      "(EA_ID_AK) ORDER BY EA_ID_AK",
      {}, [&](const RowView& row) {
        rows.push_back({NullToEmpty(row.At(0)), NullToEmpty(row.At(1))});
      });
  static_cast<RowsModel&>(*form.At(kList).model).Set(std::move(rows));
}

}  // namespace

void OpenCompressorHours(Session& s) {
  Form& form = DialogForm(s, "frmHours", "Compressor Hours", [](Form& made) {
    AddListView(made, kList, "Hours", {"ID", "Hours"}, std::make_shared<RowsModel>());
    AddButton(made, "cmdClose", "Close");
    made.cancel_button = "cmdClose";
  });
  Fill(s, form);
  form.focus = kList;
  OpenDialog(s, form);
}

Status TellHours(const Request& request, Console& console) {
  Database db;
  OpenUntouched(db, request.words.front());
  console.out << NullToEmpty(db.Single("SELECT TOTAL(OP_HR) FROM EA_COM")) << " hours\n";
  return Status::kWell;
}

}  // namespace merlu
