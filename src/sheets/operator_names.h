// Names of controls of the operator's sheet, and of the dialog for a new operator, that more than one file uses.
#pragma once

namespace merlu::names {

inline constexpr const char* txtUSER_InvYr = "txtUSER_InvYr";
inline constexpr const char* txtUserID = "txtUserID";

}  // namespace merlu::names
