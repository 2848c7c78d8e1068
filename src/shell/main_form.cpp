#include "shell/main_form.h"

#include <string_view>

#include "qc/comment_dialog.h"
#include "records/build.h"
#include "records/operator_record.h"
#include "records/structure_record.h"
#include "records/survey_record.h"
#include "shell/annual_summary.h"
#include "shell/backup_dialog.h"
#include "shell/completeness_dock.h"
#include "shell/dialogs.h"
#include "shell/docks.h"
#include "shell/edit_cycle.h"
#include "shell/edit_modes.h"
#include "shell/entry_commands.h"
#include "shell/exchange_dialogs.h"
#include "shell/file_life.h"
#include "shell/find_dialog.h"
#include "shell/findings_dock.h"
#include "shell/grid_dialog.h"
#include "shell/hand_in_dialog.h"
#include "shell/help.h"
#include "shell/history_dialog.h"
#include "shell/main_program.h"
#include "shell/month_book_dialog.h"
#include "shell/print_screen.h"
#include "shell/recent_files.h"
#include "shell/results.h"
#include "shell/spreadsheet.h"
#include "shell/strip_dock.h"
#include "shell/tree_find.h"
#include "shell/undo.h"

namespace merlu {
namespace {

using Command = void (*)(Session&);

struct MenuCommand {
  const char* name;
  const char* caption;  // "-" is a separator
  const char* parent;
  Command run;                 // null for a menu or a separator
  const char* file = nullptr;  // beside the program, that the command shows as help or hands to the system
  bool checkable = false;      // checked while what it shows is there
};

void HelpHere(Session& s) {
  ShowCurrentHelp(s, "");
}

constexpr MenuCommand kMenus[] = {
    {"mnuFile", "&File", "", nullptr},
    {"mnuFileSelectDatabase", "Open a different MERLU database", "mnuFile", LocateDatabase},
    {"mnuFileCreateNewDB", "Create New MERLU Database", "mnuFile", CreateNewDatabase},
    {"mnuFBar1", "-", "mnuFile", nullptr},
    {"mnuFExport", "Export MERLU-2017 &Monthly Survey", "mnuFile", ExportSurvey},
    {"mnuFExportInventory", "Export MERLU-2017 &Inventory Database", "mnuFile", ExportInventory},
    {"mnuSExport", "Export Struct/Equip Desc to &Spreadsheet", "mnuFile", ExportSpreadsheet},
    {"frmInvQCPrint", "&Export Annual Inventory QA Summary Form", "mnuFile", ExportAnnualSummary},
    {"mnuFBar2", "-", "mnuFile", nullptr},
    {"mnuEStructB", "Import MERLU-2017 Structure Data", "mnuFile", ImportStructuresFrom},
    {"mnuEStructS", "Export MERLU-2017 Structure Data", "mnuFile", ExportStructures},
    {"mnuFBar3", "-", "mnuFile", nullptr},
    {"PrintScrn", "Print Screen", "mnuFile", PrintScreen},
    {"mnuFBar4", "-", "mnuFile", nullptr},
    {"mnuFRecent1", "", "mnuFile", nullptr},
    {"mnuFRecent2", "", "mnuFile", nullptr},
    {"mnuFRecent3", "", "mnuFile", nullptr},
    {"mnuFRecent4", "", "mnuFile", nullptr},
    {"mnuFRecent5", "", "mnuFile", nullptr},
    {"mnuFRecentBar", "-", "mnuFile", nullptr},
    {"mnuFExit", "E&xit", "mnuFile", ExitProgram},
    {"mnuFBackups", "&Backups...", "mnuFile", OpenBackups},
    {"mnuFWorkbookMake", "Make Month &Workbook...", "mnuFile", MakeWorkbookOfMonth},
    {"mnuFWorkbookRead", "Read Month W&orkbook...", "mnuFile", ReadWorkbookOfMonth},
    {"mnuEdit", "&Edit", "", nullptr},
    {"mnuSetEditMode", "Change to Activity Edit Mode", "mnuEdit", ChangeEditMode},
    {"mnuEBar1", "-", "mnuEdit", nullptr},
    {"mnuENewSurvey", "Add Next Monthly Survey", "mnuEdit", AddNextMonth},
    {"mnuENewStructure", "New Structure", "mnuEdit", OpenNewStructure},
    {"mnuENewEquipment", "New Equipment", "mnuEdit", OpenNewEquipment},
    {"mnuEditBar", "-", "mnuEdit", nullptr},
    {"mnuEDelete", "Delete", "mnuEdit", DeleteCurrent},
    {"mnuEUndo", "Undo", "mnuEdit", UndoLast},
    {"mnuERedo", "Redo", "mnuEdit", RedoLast},
    {"mnuQC", "&QC", "", nullptr},
    {"mnuFQC", "&QC MERLU-2017 Monthly Survey", "mnuQC", RunQCHere},
    {"mnuReview", "&Review", "", nullptr},
    {"mnuRFindings", "&Findings", "mnuReview", ToggleFindings, nullptr, true},
    {"mnuRNext", "Next Finding", "mnuReview", NextFinding},
    {"mnuRPrevious", "Previous Finding", "mnuReview", PreviousFinding},
    {"mnuRCompleteness", "&Completeness", "mnuReview", ToggleCompleteness, nullptr, true},
    {"mnuRStrip", "&Twelve Months", "mnuReview", ToggleStrip, nullptr, true},
    {"mnuRHandIn", "Ready to &Hand In...", "mnuReview", OpenHandIn},
    {"mnuRHistory", "Change &History...", "mnuReview", OpenHistory},
    {"mnuRFind", "&Go To...", "mnuReview", OpenGoTo},
    {"mnuEntry", "E&ntry", "", nullptr},
    {"mnuNGrid", "Month &Grid...", "mnuEntry", OpenMonthGrid},
    {"mnuNCopy", "&Copy Previous Month", "mnuEntry", CopyPreviousMonth},
    {"mnuNConfirm", "C&onfirm Copied Values", "mnuEntry", ConfirmCopiedValues},
    {"mnuNNext", "Save and &Next", "mnuEntry", SaveAndNext},
    {"mnuNPrevious", "Save and &Previous", "mnuEntry", SaveAndPrevious},
    {"mnuHelp", "&Help", "", nullptr},
    {"mnuHCurrentScreen", "Current &Screen", "mnuHelp", HelpHere},
    {"mnuHOther", "&Other Screens", "mnuHelp", nullptr},
    {"mnuHOUser", "&Operator", "mnuHOther", nullptr, "User help.rtf"},
    {"mnuHOSurvey", "&Survey", "mnuHOther", nullptr, "Survey help.rtf"},
    {"mnuHOStructure", "S&tructure", "mnuHOther", nullptr, "Structure help.rtf"},
    {"mnuHOBar1", "-", "mnuHOther", nullptr},
    {"mnuHOAMI", "&Amine Unit", "mnuHOther", nullptr, "AMI help.rtf"},
    {"mnuHOBOI", "&Boiler/Heater/Burner", "mnuHOther", nullptr, "BOI help.rtf"},
    {"mnuHOVEN", "Cold &Vent", "mnuHOther", nullptr, "VEN help.rtf"},
    {"mnuHOFLA", "Combustion &Flare", "mnuHOther", nullptr, "FLA help.rtf"},
    {"mnuHODIE", "&Diesel or Gasoline Engine", "mnuHOther", nullptr, "DIE help.rtf"},
    {"mnuHOJAC", "D&rilling Equipment", "mnuHOther", nullptr, "DRI help.rtf"},
    {"mnuHOFUG", "Fu&gitives", "mnuHOther", nullptr, "FUG help.rtf"},
    {"mnuHOGLY", "Gl&ycol Dehydrator", "mnuHOther", nullptr, "GLY help.rtf"},
    {"mnuHOLOA", "&Loading Operations", "mnuHOther", nullptr, "LOA help.rtf"},
    {"mnuHOLOS", "Losses from Flas&hing", "mnuHOther", nullptr, "LOS help.rtf"},
    {"mnuHOMUD", "&Mud Degassing", "mnuHOther", nullptr, "MUD help.rtf"},
    {"mnuHONGE", "&Natural Gas Engine", "mnuHOther", nullptr, "NGE help.rtf"},
    {"mnuHONGT", "Natural Gas, Diesel, or Dual-Fuel T&urbine", "mnuHOther", nullptr, "NGT help.rtf"},
    {"mnuHOPRE", "Pneumatic &Controllers", "mnuHOther", nullptr, "PRE help.rtf"},
    {"mnuHOPNE", "&Pneumatic Pumps", "mnuHOther", nullptr, "PNE help.rtf"},
    {"mnuHOSTO", "Storage Tan&k", "mnuHOther", nullptr, "STO help.rtf"},
    {"mnuHBar1", "-", "mnuHelp", nullptr},
    {"mnuHLINK1", "User &Guide", "mnuHelp", nullptr, "User guide.html"},
    {"mnuHLINK2", "Quality &Rules", "mnuHelp", nullptr, "Quality rules.html"},
    {"mnuHLink3", "S&cripting", "mnuHelp", nullptr, "Scripting.html"},
    {"mnuHBar2", "-", "mnuHelp", nullptr},
    {"mnuHAbout", "About MERLU-2017", "mnuHelp", OpenAbout},
};

struct ButtonCommand {
  const char* name;
  const char* caption;
  bool visible;
  Command run;
};

void PressQC(Session& s) {
  if (!s.tree.nodes.empty()) RunQCHere(s);
}

constexpr ButtonCommand kButtons[] = {
    {"cmdEditMode", "Program Mode", true, PressEditMode}, {"cmdQC", "Run QC", false, PressQC},
    {"cmdCANCEL", "Cancel", false, CancelEdit},           {"cmdSaveEdits", "Save", false, SaveEdits},
    {"cmdSaveExit", "End Edit && Save", false, SaveExit}, {"cmdEdit", "Edit Data", false, BeginEdit},
};

struct SheetCommand {
  const char* name;
  Command run;
};

constexpr SheetCommand kSheetButtons[] = {
    {"cmdUSER_AddStructure", OpenNewStructure},
    {"cmdUSER_AddSurvey", AddNextMonth},
    {"cmdSTRUCTURE_AddEquip", OpenNewEquipment},
};

// A page of help shows in the program, any other document in what the system has for it.
void OpenFile(Session& s, const std::string& file) {
  if (file.ends_with(".rtf"))
    ShowHelp(s, file);
  else
    OpenHelpDocument(s, file);
}

void PutMenus(Session& s, Form& main) {
  for (const MenuCommand& menu : kMenus) {
    Put(main, Kind::kMenu, menu.name, menu.caption, {menu.parent}).checkable = menu.checkable;
    if (menu.run != nullptr) main.On(menu.name, Event::kClick, [&s, run = menu.run] { run(s); });
    if (menu.file != nullptr) main.On(menu.name, Event::kClick, [&s, file = menu.file] { OpenFile(s, file); });
  }
}

void PutRecentFiles(Session& s, Form& main) {
  for (int number = 1; number <= kRecentFiles; ++number) {
    main.At(RecentCommand(number)).visible = false;
    main.On(RecentCommand(number), Event::kClick, [&s, number] { OpenRecentFile(s, number); });
  }
  main.At("mnuFRecentBar").visible = false;
}

void PutFindLine(Session& s, Form& main) {
  Put(main, Kind::kText, "txtTREE_Filter", "Find:", {});
  main.On("txtTREE_Filter", Event::kLostFocus, [&s] { FilterTree(s); });
}

void PutButtons(Session& s, Form& main) {
  for (const ButtonCommand& button : kButtons) {
    Put(main, Kind::kButton, button.name, button.caption, {}).visible = button.visible;
    main.On(button.name, Event::kClick, [&s, run = button.run] { run(s); });
  }
}

void ConnectSheets(Session& s, Form& main) {
  for (const SheetCommand& button : kSheetButtons)
    main.On(button.name, Event::kClick, [&s, run = button.run] { run(s); });
  for (const std::string sheet : {"SURVEY", "STRUCTURE"}) {
    const std::string list = "lvw" + sheet + "_QCResults";
    const auto comment = [&s, &main, list] { EditQCComment(s, main, list); };
    main.On("cmd" + sheet + "_EditQCComment", Event::kClick, comment);
    main.On(list, Event::kDoubleClick, [&s, &main, list] { DoubleClickResult(s, main, list); });
  }
}

}  // namespace

void MakeMainForm(Session& s) {
  if (s.main == nullptr) {
    Form& main = s.desk.Own(std::make_unique<Form>("frmMain", "RIMA Pelagic Field Reporting Suite (MERLU-2017)"));
    s.main = &main;
    PutMenus(s, main);
    PutRecentFiles(s, main);
    PutFindLine(s, main);
    Put(main, Kind::kTree, "tvwTree", "", {});
    PutOperatorSheet(main);
    PutSurveySheet(main);
    PutStructureSheet(s, main);
    PutButtons(s, main);
    ConnectSheets(s, main);
    for (const char* frame : {"fraUserInfo", "fraSurvey", "fraStructure"}) main.At(frame).visible = false;
    main.KeepDesign();
  }
  s.main->RestoreDesign();
  CheckDockCommands(s);
  s.main->caption = "RIMA Pelagic Field Reporting Suite (MERLU-2017)";
  s.main->front = "none";
  s.main->loaded = true;
}

}  // namespace merlu
