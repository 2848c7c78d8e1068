// Names of the dialogs, the docks and their controls that more than one file uses.
#pragma once

namespace merlu::names {

inline constexpr const char* cmbCMP_Show = "cmbCMP_Show";
inline constexpr const char* cmbFND_State = "cmbFND_State";
inline constexpr const char* cmbFND_When = "cmbFND_When";
inline constexpr const char* cmbGRD_Equipment = "cmbGRD_Equipment";
inline constexpr const char* cmbGRD_Month = "cmbGRD_Month";
inline constexpr const char* cmbGRD_Type = "cmbGRD_Type";
inline constexpr const char* cmbGRD_View = "cmbGRD_View";
inline constexpr const char* cmbHIS_Show = "cmbHIS_Show";
inline constexpr const char* cmbHND_Month = "cmbHND_Month";
inline constexpr const char* cmdBAK_Make = "cmdBAK_Make";
inline constexpr const char* cmdBAK_Restore = "cmdBAK_Restore";
inline constexpr const char* cmdDRF_Continue = "cmdDRF_Continue";
inline constexpr const char* cmdDRF_Discard = "cmdDRF_Discard";
inline constexpr const char* cmdDRF_Later = "cmdDRF_Later";
inline constexpr const char* cmdFND_Comment = "cmdFND_Comment";
inline constexpr const char* cmdFND_Export = "cmdFND_Export";
inline constexpr const char* cmdGRD_Confirm = "cmdGRD_Confirm";
inline constexpr const char* cmdGRD_Copy = "cmdGRD_Copy";
inline constexpr const char* cmdGRD_Save = "cmdGRD_Save";
inline constexpr const char* cmdHIS_Export = "cmdHIS_Export";
inline constexpr const char* cmdHIS_Undo = "cmdHIS_Undo";
inline constexpr const char* cmdHND_CheckAll = "cmdHND_CheckAll";
inline constexpr const char* cmdHND_Export = "cmdHND_Export";
inline constexpr const char* cmdHND_Report = "cmdHND_Report";
inline constexpr const char* frmAbout = "frmAbout";
inline constexpr const char* frmBackups = "frmBackups";
inline constexpr const char* frmCompleteness = "frmCompleteness";
inline constexpr const char* frmDraft = "frmDraft";
inline constexpr const char* frmExportInventory = "frmExportInventory";
inline constexpr const char* frmExportStructure = "frmExportStructure";
inline constexpr const char* frmExportSurvey = "frmExportSurvey";
inline constexpr const char* frmFind = "frmFind";
inline constexpr const char* frmFindings = "frmFindings";
inline constexpr const char* frmGrid = "frmGrid";
inline constexpr const char* frmHandIn = "frmHandIn";
inline constexpr const char* frmHistory = "frmHistory";
inline constexpr const char* frmImportPlan = "frmImportPlan";
inline constexpr const char* frmImportStructure = "frmImportStructure";
inline constexpr const char* frmNewEquipment = "frmNewEquipment";
inline constexpr const char* frmNewStructure = "frmNewStructure";
inline constexpr const char* frmNewUser = "frmNewUser";
inline constexpr const char* frmPaste = "frmPaste";
inline constexpr const char* frmReadPlan = "frmReadPlan";
inline constexpr const char* frmStrip = "frmStrip";
inline constexpr const char* grdCMP_Matrix = "grdCMP_Matrix";
inline constexpr const char* grdGRD = "grdGRD";
inline constexpr const char* lblTitle = "lblTitle";
inline constexpr const char* lvwBAK_List = "lvwBAK_List";
inline constexpr const char* lvwDRF_Fields = "lvwDRF_Fields";
inline constexpr const char* lvwFND_List = "lvwFND_List";
inline constexpr const char* lvwGOT_List = "lvwGOT_List";
inline constexpr const char* lvwHIS_Steps = "lvwHIS_Steps";
inline constexpr const char* lvwHIS_Values = "lvwHIS_Values";
inline constexpr const char* lvwHND_Checks = "lvwHND_Checks";
inline constexpr const char* lvwPLN_Details = "lvwPLN_Details";
inline constexpr const char* lvwPLN_Structures = "lvwPLN_Structures";
inline constexpr const char* lvwPST_Plan = "lvwPST_Plan";
inline constexpr const char* lvwRDP_Plan = "lvwRDP_Plan";
inline constexpr const char* lvwSTR_Months = "lvwSTR_Months";
inline constexpr const char* rtfHelp = "rtfHelp";
inline constexpr const char* txtArea = "txtArea";
inline constexpr const char* txtBlock = "txtBlock";
inline constexpr const char* txtComplxID = "txtComplxID";
inline constexpr const char* txtFND_Filter = "txtFND_Filter";
inline constexpr const char* txtGOT_Text = "txtGOT_Text";
inline constexpr const char* txtHIS_Filter = "txtHIS_Filter";
inline constexpr const char* txtName = "txtName";
inline constexpr const char* txtStructID = "txtStructID";

}  // namespace merlu::names
