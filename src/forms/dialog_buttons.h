// Names of the buttons that most dialogs have.
#pragma once

namespace merlu::names {

inline constexpr const char* cmdCANCEL = "cmdCANCEL";
inline constexpr const char* cmdClose = "cmdClose";
inline constexpr const char* cmdOK = "cmdOK";

}  // namespace merlu::names
