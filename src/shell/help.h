// The help: one rich text file for each screen, beside the program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace merlu {

// The pages of the levels above the equipment; a type's page is its code and " help.rtf".
namespace help_page {
inline constexpr const char* kOperator = "User help.rtf";
inline constexpr const char* kSurvey = "Survey help.rtf";
inline constexpr const char* kStructure = "Structure help.rtf";
// Documents for the system's reader.
inline constexpr const char* kGuide = "User guide.html";
inline constexpr const char* kRules = "Quality rules.html";
inline constexpr const char* kScripting = "Scripting.html";
}  // namespace help_page

// Name of the file for a level and, at equipment, a type; empty when there is none. It also knows the type PUM,
// which no record uses any more.
std::string HelpFile(std::string_view level, std::string_view type);

// Shows a file of the program's folder in the help dialog, scrolled to the bookmark if it has it. A message says when
// it cannot be read.
void ShowHelp(Session& s, const std::string& file, const std::string& bookmark = "");

// Help for the screen of the current location, at the control of that name.
void ShowCurrentHelp(Session& s, const std::string& control);

// The files of the dialogs and docks that have their own help page.
std::vector<std::string> ScreenHelpFiles();

// Shows the help for an open dialog, or a dock, at the control of that name: its own page, or one made from the labels
// of its fields.
void ShowDialogHelp(Session& s, const std::string& dialog, const std::string& control);

// Hands a document that lies beside the program to the system to open.
void OpenHelpDocument(Session& s, const std::string& file);

}  // namespace merlu
