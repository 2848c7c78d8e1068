// The sheet of the operator, on the main form, and the fields that the first-run dialog shares with it.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sheets/spec.h"

namespace merlu {

inline constexpr const char* kPhoneMask = "(###) ### - #### ext ####";
inline constexpr const char* kFaxMask = "(###) ### - ####";

const SheetSpec& OperatorSheet();
void PutOperatorSheet(Form& main);
// The fields on the first-run dialog; a star marks what is required.
void PutNewOperatorFields(Form& dialog);

// A requirement that is not met, and the field that it is about.
struct Unmet {
  std::string message, field;
};
// What must be filled before the end of an edit: the first failure.
std::optional<Unmet> UnmetOfOperator(const Form& form);
// Those of the first-run dialog, stricter: the phone and fax numbers must be whole.
std::optional<Unmet> UnmetOfNewOperator(const Form& dialog);

// What the first-run dialog holds.
struct NewOperator {
  std::string number;
  int year = 0;                                             // of the inventory
  std::vector<std::pair<std::string, std::string>> values;  // column and text
};
NewOperator ReadNewOperator(const Form& dialog);

}  // namespace merlu
