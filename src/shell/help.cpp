#include "shell/help.h"

#include <algorithm>
#include <fstream>
#include <memory>

#include "base/rtf_reader.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "session/main_names.h"
#include "session/types.h"
#include "sheets/structure_names.h"
#include "shell/dialog_names.h"
#include "shell/messages.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr std::string_view kRetiredType = "PUM";
constexpr std::string_view kGridPage = "Month grid help.rtf";

// Where the help speaks of a dialog: without a control, of all of it.
struct DialogHelp {
  std::string_view dialog, control, file, bookmark;
};

constexpr DialogHelp kDialogHelp[] = {
    {names::frmNewUser, "", help_page::kOperator, "The_operator_s_screen"},
    {names::frmNewStructure, "", help_page::kStructure, ""},
    {names::frmNewStructure, names::txtComplxID, help_page::kStructure, names::txtSTRUCTURE_CmplxID},
    {names::frmNewStructure, names::txtStructID, help_page::kStructure, names::txtSTRUCTURE_StructID},
    {names::frmNewStructure, names::txtArea, help_page::kStructure, names::txtSTRUCTURE_Area},
    {names::frmNewStructure, names::txtBlock, help_page::kStructure, names::txtSTRUCTURE_Block},
    {names::frmNewStructure, names::txtName, help_page::kStructure, names::txtSTRUCTURE_Name},
    {names::frmNewEquipment, "", help_page::kStructure, names::cmdSTRUCTURE_AddEquip},
    {names::frmQCComment, "", help_page::kOperator, "Quality_rules"},
    {names::frmExportSurvey, "", help_page::kOperator, "Handing_in"},
    {names::frmExportInventory, "", help_page::kOperator, "Handing_in"},
    {names::frmExportStructure, "", help_page::kOperator, "Moving_structures"},
    {names::frmImportStructure, "", help_page::kOperator, "Moving_structures"},
    {names::frmFindings, "", "Findings help.rtf", ""},
    {names::frmCompleteness, "", "Completeness help.rtf", ""},
    {names::frmHandIn, "", "Hand-in help.rtf", ""},
    {names::frmGrid, "", kGridPage, ""},
    {names::frmPaste, "", kGridPage, "Pasting"},
    {names::frmStrip, "", "Twelve months help.rtf", ""},
    {names::frmReadPlan, "", "Month workbook help.rtf", ""},
    {names::frmImportPlan, "", "Import preview help.rtf", ""},
    {names::frmHistory, "", "History help.rtf", ""},
    {names::frmDraft, "", "Interrupted edit help.rtf", ""},
    {names::frmBackups, "", "Backups help.rtf", ""},
    {names::frmFind, "", "Go To help.rtf", ""},
};

// No more of it than is read as help.
std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Fault(fault_number::kFileNotFound, "MERLU help", "Cannot read " + path + ".");
  std::string text(static_cast<std::size_t>(std::min<std::uint64_t>(FileSize(path), RtfLimits().bytes)), '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(in.gcount()));
  return text;
}

Form& HelpForm(Session& s) {
  Form* found = s.desk.Find("frmHelp");
  if (found == nullptr) {
    found = &s.desk.Own(std::make_unique<Form>("frmHelp", "MERLU Help"));
    Form& form = *found;
    Control& text = AddText(form, names::rtfHelp, "");
    text.lines = text.locked = true;
    AddButton(form, names::cmdClose, "Close");
    form.default_button = form.cancel_button = names::cmdClose;
    form.On(names::cmdClose, Event::kClick, [&s, &form] { s.desk.Hide(form); });
    form.KeepDesign();
  }
  found->RestoreDesign();
  return *found;
}

void TellMissing(Session& s, const std::string& path) {
  Tell(s, "Help file not found in " + path);
}

std::string BesideProgram(Session& s, const std::string& file) {
  return WithSeparator(s.host.ProgramFolder()) + file;
}

}  // namespace

std::string HelpFile(std::string_view level, std::string_view type) {
  if (level == level::kUser) return help_page::kOperator;
  if (level == level::kSurvey) return help_page::kSurvey;
  if (level == level::kStructure) return help_page::kStructure;
  const bool known = type == kRetiredType || FindType(type) != nullptr;
  return level == level::kEquipment && known ? std::string(type) + " help.rtf" : "";
}

void ShowHelp(Session& s, const std::string& file, const std::string& bookmark) {
  const std::string path = BesideProgram(s, file);
  auto document = std::make_shared<Document>();
  try {
    *document = ReadRtf(ReadFile(path));
  } catch (const Fault&) {
    return TellMissing(s, path);
  }
  Form& form = HelpForm(s);
  Control& text = form.At(names::rtfHelp);
  text.text = PlainText(*document);
  text.document = std::move(document);
  text.bookmark = bookmark;
  OpenDialog(s, form);
}

void ShowCurrentHelp(Session& s, const std::string& control) {
  const std::string file = HelpFile(s.current.Level, s.current.EquipType);
  if (!file.empty()) ShowHelp(s, file, control);
}

void ShowDialogHelp(Session& s, const std::string& dialog, const std::string& control) {
  const DialogHelp* found = nullptr;
  for (const DialogHelp& row : kDialogHelp)
    if (row.dialog == dialog && (row.control.empty() || row.control == control)) found = &row;
  if (found == nullptr) return;
  // the operator's fields have the same names there as on their own screen
  const bool same = found->control.empty() && (found->bookmark.empty() || control.starts_with("txtUSER_"));
  ShowHelp(s, std::string(found->file), same ? control : std::string(found->bookmark));
}

std::vector<std::string> ScreenHelpFiles() {
  std::vector<std::string> files;
  for (const DialogHelp& row : kDialogHelp)
    if (row.bookmark.empty() && row.file != help_page::kStructure && row.file != help_page::kOperator)
      files.emplace_back(row.file);
  return files;
}

void OpenHelpDocument(Session& s, const std::string& file) {
  const std::string path = BesideProgram(s, file);
  if (!FileExists(path)) return TellMissing(s, path);
  s.ui.OpenDocument(path);
}

}  // namespace merlu
