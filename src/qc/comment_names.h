// Names of the comment dialog and its controls.
#pragma once

namespace merlu::names {

inline constexpr const char* frmQCComment = "frmQCComment";
inline constexpr const char* txtComments = "txtComments";
inline constexpr const char* txtErrorDesc = "txtErrorDesc";
inline constexpr const char* txtFieldName = "txtFieldName";

}  // namespace merlu::names
