#include "help/screen_pages.h"

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
                 {"txtFND_Filter", "Filter:"},
                 {"cmbFND_State", "State:", {}, {"All", "Open", "Explained", "Stale"}},
                 {"cmbFND_When", "When:", {}, {"All", "Descriptions"}},
                 {"lvwFND_List",
                  "Findings",
                  {"Place", "Field", "Value", "Expected", "Error Description", "Operator Comment", "State"}},
                 {"cmdFND_Comment", "Edit QC Comment"},
                 {"cmdFND_Export", "Export..."},
             }),
      Screen("Completeness",
             {
                 {"cmbCMP_Show", "Show:", {}, {"Structures"}},
                 {"grdCMP_Matrix", "Completeness"},
             }),
      Screen("Hand-in",
             {
                 {"cmbHND_Month", "Month:", {}, {"Whole year"}},
                 {"lvwHND_Checks", "Checks", {"State", "Check", "Count", "What to do"}},
                 {"cmdHND_CheckAll", "Check What Was Not"},
                 {"cmdHND_Report", "Report..."},
                 {"cmdHND_Export", "Export..."},
             }),
      Screen("Month grid",
             {
                 {"cmbGRD_View",
                  "Show:",
                  {},
                  {"One month, all equipment of a type", "One piece of equipment, all months"}},
                 {"cmbGRD_Month", "Month:"},
                 {"cmbGRD_Type", "Type:"},
                 {"cmbGRD_Equipment", "Equipment:"},
                 {"grdGRD", "Month"},
                 {"cmdGRD_Copy", "Copy Previous Month"},
                 {"cmdGRD_Confirm", "Confirm Copied"},
                 {"cmdGRD_Save", "Save"},
                 {"lvwPST_Plan", "What the paste would do:", {"Row", "Field", "Old", "New", "What happens"}},
             }),
      Screen("Twelve months",
             {
                 {"lvwSTR_Months",
                  "Twelve Months",
                  {"01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "11", "12"}},
             }),
      Screen("Month workbook",
             {
                 {"lvwRDP_Plan", "What the workbook changes:", {"Place", "Field", "Old", "New", "What happens"}},
             }),
      Screen("Import preview",
             {
                 {"lvwPLN_Structures",
                  "Structures:",
                  {"Structure", "What happens", "Equipment", "Months added here", "Months added there"}},
                 {"lvwPLN_Details", "Details of the structure:"},
             }),
      Screen("History",
             {
                 {"txtHIS_Filter", "Filter:"},
                 {"cmbHIS_Show", "Show:", {}, {"All", "This record"}},
                 {"lvwHIS_Steps", "Steps", {"When", "Who", "What", "Place", "Values", "State"}},
                 {"lvwHIS_Values", "Values of the step", {"Place", "Field", "Old", "New"}},
                 {"cmdHIS_Undo", "Undo Back to Here"},
                 {"cmdHIS_Export", "Export..."},
             }),
      Screen("Interrupted edit",
             {
                 {"lvwDRF_Fields", "What was typed", {"Field", "Stored", "Entered"}},
                 {"cmdDRF_Continue", "Continue"},
                 {"cmdDRF_Later", "Later"},
                 {"cmdDRF_Discard", "Discard"},
             }),
      Screen("Backups",
             {
                 {"lvwBAK_List", "Backups", {"When", "Why", "Size", "Months", "Structures", "Equipment"}},
                 {"cmdBAK_Make", "Back Up Now"},
                 {"cmdBAK_Restore", "Restore..."},
             }),
      Screen("Go To",
             {
                 {"txtGOT_Text", "Go to:"},
                 {"lvwGOT_List", "Found:", {"Kind", "What", "Where"}},
             }),
  };
}

}  // namespace merlu
