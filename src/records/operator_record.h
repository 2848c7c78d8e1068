// The operator: one row of CO_COMPANY, the root of the tree. Made once by the first-run dialog, afterwards
// edited on the sheet fraUserInfo.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

inline constexpr const char* kPhoneMask = "(###) ### - #### ext ####";
inline constexpr const char* kFaxMask = "(###) ### - ####";

// Puts the fields that the sheet and the first-run dialog share on a form.
void PutOperatorFields(Form& form, const std::string& parent);
// The sheet on the main form.
void PutOperatorSheet(Form& main);

void ClearOperator(Session& s);
// Loads are false when the record could not be read.
bool LoadOperator(Session& s);
void LockOperator(Session& s);
void UnlockOperator(Session& s);
void SaveOperator(Session& s);

// What must be filled before the end of an edit. Tells the first failure, puts the focus on its field, and
// returns false.
bool ValidateOperator(Session& s);
// The checks of the first-run dialog, stricter: the phone and fax numbers must be whole.
bool ValidateNewOperator(Session& s, Form& dialog);

// Adds the operator's row and writes the inventory year, from the first-run dialog. Faults are passed on.
void NewOperatorRow(Session& s, const Form& dialog);

}  // namespace merlu
