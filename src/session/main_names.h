// Names of the main form and of its menus, commands and frames that more than one file uses.
#pragma once

namespace merlu::names {

inline constexpr const char* Frame1 = "Frame1";
inline constexpr const char* cmdEdit = "cmdEdit";
inline constexpr const char* cmdEditMode = "cmdEditMode";
inline constexpr const char* cmdQC = "cmdQC";
inline constexpr const char* cmdSTRUCTURE_AddEquip = "cmdSTRUCTURE_AddEquip";
inline constexpr const char* cmdSaveEdits = "cmdSaveEdits";
inline constexpr const char* cmdSaveExit = "cmdSaveExit";
inline constexpr const char* cmdUSER_AddStructure = "cmdUSER_AddStructure";
inline constexpr const char* cmdUSER_AddSurvey = "cmdUSER_AddSurvey";
inline constexpr const char* fraStructure = "fraStructure";
inline constexpr const char* fraSurvey = "fraSurvey";
inline constexpr const char* fraUserInfo = "fraUserInfo";
inline constexpr const char* frmInvQCPrint = "frmInvQCPrint";
inline constexpr const char* frmMain = "frmMain";
inline constexpr const char* lblNoEmissions = "lblNoEmissions";
inline constexpr const char* lvwSURVEY_QCResults = "lvwSURVEY_QCResults";
inline constexpr const char* mnuEDelete = "mnuEDelete";
inline constexpr const char* mnuENewEquipment = "mnuENewEquipment";
inline constexpr const char* mnuENewStructure = "mnuENewStructure";
inline constexpr const char* mnuENewSurvey = "mnuENewSurvey";
inline constexpr const char* mnuERedo = "mnuERedo";
inline constexpr const char* mnuEUndo = "mnuEUndo";
inline constexpr const char* mnuEdit = "mnuEdit";
inline constexpr const char* mnuEditBar = "mnuEditBar";
inline constexpr const char* mnuFBackups = "mnuFBackups";
inline constexpr const char* mnuFExit = "mnuFExit";
inline constexpr const char* mnuFExport = "mnuFExport";
inline constexpr const char* mnuFExportInventory = "mnuFExportInventory";
inline constexpr const char* mnuFQC = "mnuFQC";
inline constexpr const char* mnuFRecentBar = "mnuFRecentBar";
inline constexpr const char* mnuFWorkbookMake = "mnuFWorkbookMake";
inline constexpr const char* mnuFWorkbookRead = "mnuFWorkbookRead";
inline constexpr const char* mnuFile = "mnuFile";
inline constexpr const char* mnuFileCreateNewDB = "mnuFileCreateNewDB";
inline constexpr const char* mnuFileSelectDatabase = "mnuFileSelectDatabase";
inline constexpr const char* mnuHAbout = "mnuHAbout";
inline constexpr const char* mnuHCurrentScreen = "mnuHCurrentScreen";
inline constexpr const char* mnuHOther = "mnuHOther";
inline constexpr const char* mnuHelp = "mnuHelp";
inline constexpr const char* mnuNConfirm = "mnuNConfirm";
inline constexpr const char* mnuNCopy = "mnuNCopy";
inline constexpr const char* mnuNGrid = "mnuNGrid";
inline constexpr const char* mnuNNext = "mnuNNext";
inline constexpr const char* mnuNPrevious = "mnuNPrevious";
inline constexpr const char* mnuRCompleteness = "mnuRCompleteness";
inline constexpr const char* mnuRFind = "mnuRFind";
inline constexpr const char* mnuRFindings = "mnuRFindings";
inline constexpr const char* mnuRHandIn = "mnuRHandIn";
inline constexpr const char* mnuRHistory = "mnuRHistory";
inline constexpr const char* mnuRNext = "mnuRNext";
inline constexpr const char* mnuRPrevious = "mnuRPrevious";
inline constexpr const char* mnuRStrip = "mnuRStrip";
inline constexpr const char* mnuReview = "mnuReview";
inline constexpr const char* mnuSetEditMode = "mnuSetEditMode";
inline constexpr const char* tvwTree = "tvwTree";
inline constexpr const char* txtTREE_Filter = "txtTREE_Filter";

}  // namespace merlu::names
