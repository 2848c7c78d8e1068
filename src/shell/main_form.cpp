#include "shell/main_form.h"

#include <string_view>

#include "forms/dialog_buttons.h"
#include "session/main_names.h"
#include "sheets/build.h"
#include "sheets/operator.h"
#include "sheets/structure.h"
#include "sheets/survey.h"
#include "shell/annual_summary.h"
#include "shell/backup_dialog.h"
#include "shell/comment_dialog.h"
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
  Command run;                 // as a menu opens, of a menu; null for most, and for a separator
  const char* file = nullptr;  // beside the program; the command shows it as help or opens it
  bool checkable = false;      // checked while what it shows is there
};

void HelpHere(Session& s) {
  ShowCurrentHelp(s, "");
}

constexpr MenuCommand kMenus[] = {
    {names::mnuFile, "&File", "", ShowRecentFiles},
    {names::mnuFileSelectDatabase, "Open a different MERLU database", names::mnuFile, LocateDatabase},
    {names::mnuFileCreateNewDB, "Create New MERLU Database", names::mnuFile, CreateNewDatabase},
    {"mnuFBar1", "-", names::mnuFile, nullptr},
    {names::mnuFExport, "Export MERLU-2017 &Monthly Survey", names::mnuFile, ExportSurvey},
    {names::mnuFExportInventory, "Export MERLU-2017 &Inventory Database", names::mnuFile, ExportInventory},
    {"mnuSExport", "Export Struct/Equip Desc to &Spreadsheet", names::mnuFile, ExportSpreadsheet},
    {names::frmInvQCPrint, "&Export Annual Inventory QA Summary Form", names::mnuFile, ExportAnnualSummary},
    {"mnuFBar2", "-", names::mnuFile, nullptr},
    {"mnuEStructB", "Import MERLU-2017 Structure Data", names::mnuFile, ImportStructuresFrom},
    {"mnuEStructS", "Export MERLU-2017 Structure Data", names::mnuFile, ExportStructures},
    {"mnuFBar3", "-", names::mnuFile, nullptr},
    {"PrintScrn", "Print Screen", names::mnuFile, PrintScreen},
    {"mnuFBar4", "-", names::mnuFile, nullptr},
    {"mnuFRecent1", "", names::mnuFile, nullptr},
    {"mnuFRecent2", "", names::mnuFile, nullptr},
    {"mnuFRecent3", "", names::mnuFile, nullptr},
    {"mnuFRecent4", "", names::mnuFile, nullptr},
    {"mnuFRecent5", "", names::mnuFile, nullptr},
    {names::mnuFRecentBar, "-", names::mnuFile, nullptr},
    {names::mnuFExit, "E&xit", names::mnuFile, ExitProgram},
    {names::mnuFBackups, "&Backups...", names::mnuFile, OpenBackups},
    {names::mnuFWorkbookMake, "Make Month &Workbook...", names::mnuFile, MakeWorkbookOfMonth},
    {names::mnuFWorkbookRead, "Read Month W&orkbook...", names::mnuFile, ReadWorkbookOfMonth},
    {names::mnuEdit, "&Edit", "", nullptr},
    {names::mnuSetEditMode, "Change to Activity Edit Mode", names::mnuEdit, ChangeEditMode},
    {"mnuEBar1", "-", names::mnuEdit, nullptr},
    {names::mnuENewSurvey, "Add Next Monthly Survey", names::mnuEdit, AddNextMonth},
    {names::mnuENewStructure, "New Structure", names::mnuEdit, OpenNewStructure},
    {names::mnuENewEquipment, "New Equipment", names::mnuEdit, OpenNewEquipment},
    {names::mnuEditBar, "-", names::mnuEdit, nullptr},
    {names::mnuEDelete, "Delete", names::mnuEdit, DeleteCurrent},
    {names::mnuEUndo, "Undo", names::mnuEdit, UndoLast},
    {names::mnuERedo, "Redo", names::mnuEdit, RedoLast},
    {"mnuQC", "&QC", "", nullptr},
    {names::mnuFQC, "&QC MERLU-2017 Monthly Survey", "mnuQC", RunQCHere},
    {names::mnuReview, "&Review", "", nullptr},
    {names::mnuRFindings, "&Findings", names::mnuReview, ToggleFindings, nullptr, true},
    {names::mnuRNext, "Next Finding", names::mnuReview, NextFinding},
    {names::mnuRPrevious, "Previous Finding", names::mnuReview, PreviousFinding},
    {names::mnuRCompleteness, "&Completeness", names::mnuReview, ToggleCompleteness, nullptr, true},
    {names::mnuRStrip, "&Twelve Months", names::mnuReview, ToggleStrip, nullptr, true},
    {names::mnuRHandIn, "Ready to &Hand In...", names::mnuReview, OpenHandIn},
    {names::mnuRHistory, "Change &History...", names::mnuReview, OpenHistory},
    {names::mnuRFind, "&Go To...", names::mnuReview, OpenGoTo},
    {"mnuEntry", "E&ntry", "", nullptr},
    {names::mnuNGrid, "Month &Grid...", "mnuEntry", OpenMonthGrid},
    {names::mnuNCopy, "&Copy Previous Month", "mnuEntry", CopyPreviousMonth},
    {names::mnuNConfirm, "C&onfirm Copied Values", "mnuEntry", ConfirmCopiedValues},
    {names::mnuNNext, "Save and &Next", "mnuEntry", SaveAndNext},
    {names::mnuNPrevious, "Save and &Previous", "mnuEntry", SaveAndPrevious},
    {names::mnuHelp, "&Help", "", nullptr},
    {names::mnuHCurrentScreen, "Current &Screen", names::mnuHelp, HelpHere},
    {names::mnuHOther, "&Other Screens", names::mnuHelp, nullptr},
    {"mnuHOUser", "&Operator", names::mnuHOther, nullptr, help_page::kOperator},
    {"mnuHOSurvey", "&Survey", names::mnuHOther, nullptr, help_page::kSurvey},
    {"mnuHOStructure", "S&tructure", names::mnuHOther, nullptr, help_page::kStructure},
    {"mnuHOBar1", "-", names::mnuHOther, nullptr},
    {"mnuHOAMI", "&Amine Unit", names::mnuHOther, nullptr, "AMI help.rtf"},
    {"mnuHOBOI", "&Boiler/Heater/Burner", names::mnuHOther, nullptr, "BOI help.rtf"},
    {"mnuHOVEN", "Cold &Vent", names::mnuHOther, nullptr, "VEN help.rtf"},
    {"mnuHOFLA", "Combustion &Flare", names::mnuHOther, nullptr, "FLA help.rtf"},
    {"mnuHODIE", "&Diesel or Gasoline Engine", names::mnuHOther, nullptr, "DIE help.rtf"},
    {"mnuHOJAC", "D&rilling Equipment", names::mnuHOther, nullptr, "DRI help.rtf"},
    {"mnuHOFUG", "Fu&gitives", names::mnuHOther, nullptr, "FUG help.rtf"},
    {"mnuHOGLY", "Gl&ycol Dehydrator", names::mnuHOther, nullptr, "GLY help.rtf"},
    {"mnuHOLOA", "&Loading Operations", names::mnuHOther, nullptr, "LOA help.rtf"},
    {"mnuHOLOS", "Losses from Flas&hing", names::mnuHOther, nullptr, "LOS help.rtf"},
    {"mnuHOMUD", "&Mud Degassing", names::mnuHOther, nullptr, "MUD help.rtf"},
    {"mnuHONGE", "&Natural Gas Engine", names::mnuHOther, nullptr, "NGE help.rtf"},
    {"mnuHONGT", "Natural Gas, Diesel, or Dual-Fuel T&urbine", names::mnuHOther, nullptr, "NGT help.rtf"},
    {"mnuHOPRE", "Pneumatic &Controllers", names::mnuHOther, nullptr, "PRE help.rtf"},
    {"mnuHOPNE", "&Pneumatic Pumps", names::mnuHOther, nullptr, "PNE help.rtf"},
    {"mnuHOSTO", "Storage Tan&k", names::mnuHOther, nullptr, "STO help.rtf"},
    {"mnuHBar1", "-", names::mnuHelp, nullptr},
    {"mnuHLINK1", "User &Guide", names::mnuHelp, nullptr, help_page::kGuide},
    {"mnuHLINK2", "Quality &Rules", names::mnuHelp, nullptr, help_page::kRules},
    {"mnuHLink3", "S&cripting", names::mnuHelp, nullptr, help_page::kScripting},
    {"mnuHBar2", "-", names::mnuHelp, nullptr},
    {names::mnuHAbout, "About MERLU-2017", names::mnuHelp, OpenAbout},
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
    {names::cmdEditMode, "Program Mode", true, PressEditMode}, {names::cmdQC, "Run QC", false, PressQC},
    {names::cmdCANCEL, "Cancel", false, CancelEdit},           {names::cmdSaveEdits, "Save", false, SaveEdits},
    {names::cmdSaveExit, "End Edit && Save", false, SaveExit}, {names::cmdEdit, "Edit Data", false, BeginEdit},
};

struct SheetCommand {
  const char* name;
  Command run;
};

constexpr SheetCommand kSheetButtons[] = {
    {names::cmdUSER_AddStructure, OpenNewStructure},
    {names::cmdUSER_AddSurvey, AddNextMonth},
    {names::cmdSTRUCTURE_AddEquip, OpenNewEquipment},
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
  main.At(names::mnuFRecentBar).visible = false;
}

void PutFindLine(Session& s, Form& main) {
  Put(main, Kind::kText, names::txtTREE_Filter, "Find:", {});
  main.On(names::txtTREE_Filter, Event::kLostFocus, [&s] { FilterTree(s); });
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
    Form& main = s.desk.Own(std::make_unique<Form>(names::frmMain, "RIMA Pelagic Field Reporting Suite (MERLU-2017)"));
    s.main = &main;
    PutMenus(s, main);
    PutRecentFiles(s, main);
    PutFindLine(s, main);
    Put(main, Kind::kTree, names::tvwTree, "", {});
    PutOperatorSheet(main);
    PutSurveySheet(main);
    PutStructureSheet(s, main);
    PutButtons(s, main);
    ConnectSheets(s, main);
    for (const char* frame : {names::fraUserInfo, names::fraSurvey, names::fraStructure})
      main.At(frame).visible = false;
    main.KeepDesign();
  }
  s.main->RestoreDesign();
  CheckDockCommands(s);
  s.main->caption = "RIMA Pelagic Field Reporting Suite (MERLU-2017)";
  s.main->front = "none";
  s.main->loaded = true;
}

}  // namespace merlu
