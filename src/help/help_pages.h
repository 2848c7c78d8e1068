// The pages of the help, one for each screen, made from the screen's tables and its prose.
#pragma once

#include <string>
#include <vector>

#include "base/document.h"
#include "help/prose.h"
#include "sheets/spec.h"

namespace merlu {

// A control of a screen that holds no column: a list of findings, a button, the status.
struct HelpControl {
  std::string name, caption;
  std::vector<std::string> columns = {}, choices = {};  // of a list
};

struct HelpPage {
  std::string title;
  std::string file;   // "FLA help.rtf"
  std::string prose;  // "FLA.md"
  std::vector<std::string> pages;
  std::vector<FieldSpec> fields;  // those that the user sees
  std::vector<Enabling> enablings;
  std::vector<Rule> rules;
  std::vector<HelpControl> controls;
  bool by_mode = true;  // its fields belong to the description or to a month
};

// The operator, the survey, the structure, the sixteen types, and the dialogs and docks that have their own page.
const std::vector<HelpPage>& HelpPages();

// The page as it is read. A field without prose is left without; a test requires some for each.
Document HelpDocument(const HelpPage& page, const Prose& own, const Prose& shared);

}  // namespace merlu
