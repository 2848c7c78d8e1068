// Explaining a finding: the dialog over the selected row of a results list.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// The dialog, made at the first call, with empty fields; its OK is the caller's.
Form& CommentDialog(Session& s);

// True when a finding, and not a summary, is selected in the list.
bool IsQCRowSelected(const Control& list);

// Opens the dialog over the selected finding of the list, or asks for one to be selected.
void EditQCComment(Session& s, Form& form, const std::string& list);

}  // namespace merlu
