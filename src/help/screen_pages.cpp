#include "help/screen_pages.h"
#include "shell/dialog_names.h"

#include <utility>

namespace merlu {
namespace {

HelpPage Screen(const std::string& title, std::vector<HelpControl> controls) {
  return {.title = title,
          .file = title + " help.rtf",
          .prose = title + ".md",
          .controls = std::move(controls),
          .by_mode = false};
}

}  // namespace

std::vector<HelpPage> ScreenPages() {
  return {
      Screen("Findings",
             {
                 {names::txtFND_Filter, "Filter:"},
                 {names::cmbFND_State, "State:", {}, {"All", "Open", "Explained", "Stale"}},
                 {names::cmbFND_When, "When:", {}, {"All", "Descriptions"}},
                 {names::lvwFND_List,
                  "Findings",
                  {"Place", "Field", "Value", "Expected", "Error Description", "Operator Comment", "State"}},
                 {names::cmdFND_Comment, "Edit QC Comment"},
                 {names::cmdFND_Export, "Export..."},
             }),
      Screen("Completeness",
             {
                 {names::cmbCMP_Show, "Show:", {}, {"Structures"}},
                 {names::grdCMP_Matrix, "Completeness"},
             }),
      Screen("Hand-in",
             {
                 {names::cmbHND_Month, "Month:", {}, {"Whole year"}},
                 {names::lvwHND_Checks, "Checks", {"State", "Check", "Count", "What to do"}},
                 {names::cmdHND_CheckAll, "Check What Was Not"},
                 {names::cmdHND_Report, "Report..."},
                 {names::cmdHND_Export, "Export..."},
             }),
      Screen("Month grid",
             {
                 {names::cmbGRD_View,
                  "Show:",
                  {},
                  {"One month, all equipment of a type", "One piece of equipment, all months"}},
                 {names::cmbGRD_Month, "Month:"},
                 {names::cmbGRD_Type, "Type:"},
                 {names::cmbGRD_Equipment, "Equipment:"},
                 {names::grdGRD, "Month"},
                 {names::cmdGRD_Copy, "Copy Previous Month"},
                 {names::cmdGRD_Confirm, "Confirm Copied"},
                 {names::cmdGRD_Save, "Save"},
                 {names::lvwPST_Plan, "What the paste would do:", {"Row", "Field", "Old", "New", "What happens"}},
             }),
      Screen("Twelve months",
             {
                 {names::lvwSTR_Months,
                  "Twelve Months",
                  {"01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "11", "12"}},
             }),
      Screen("Month workbook",
             {
                 {names::lvwRDP_Plan, "What the workbook changes:", {"Place", "Field", "Old", "New", "What happens"}},
             }),
      Screen("Import preview",
             {
                 {names::lvwPLN_Structures,
                  "Structures:",
                  {"Structure", "What happens", "Equipment", "Months added here", "Months added there"}},
                 {names::lvwPLN_Details, "Details of the structure:"},
             }),
      Screen("History",
             {
                 {names::txtHIS_Filter, "Filter:"},
                 {names::cmbHIS_Show, "Show:", {}, {"All", "This record"}},
                 {names::lvwHIS_Steps, "Steps", {"When", "Who", "What", "Place", "Values", "State"}},
                 {names::lvwHIS_Values, "Values of the step", {"Place", "Field", "Old", "New"}},
                 {names::cmdHIS_Undo, "Undo Back to Here"},
                 {names::cmdHIS_Export, "Export..."},
             }),
      Screen("Interrupted edit",
             {
                 {names::lvwDRF_Fields, "What was typed", {"Field", "Stored", "Entered"}},
                 {names::cmdDRF_Continue, "Continue"},
                 {names::cmdDRF_Later, "Later"},
                 {names::cmdDRF_Discard, "Discard"},
             }),
      Screen("Backups",
             {
                 {names::lvwBAK_List, "Backups", {"When", "Why", "Size", "Months", "Structures", "Equipment"}},
                 {names::cmdBAK_Make, "Back Up Now"},
                 {names::cmdBAK_Restore, "Restore..."},
             }),
      Screen("Go To",
             {
                 {names::txtGOT_Text, "Go to:"},
                 {names::lvwGOT_List, "Found:", {"Kind", "What", "Where"}},
             }),
  };
}

}  // namespace merlu
