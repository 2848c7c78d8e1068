// The captions of controls as windows show them and as screen readers read them aloud.
#pragma once

#include <QString>

#include <string>

#include "forms/control.h"

namespace merlu {

// The control's caption as a label shows it ('&&' is one '&'); the tag and a colon for a field without a caption.
QString LabelText(const Control& control);
// Keeps the unit that the caption shows in brackets on one line, which otherwise breaks at its blanks, slashes and
// hyphens; without a unit a choice such as (Y/N).
QString WithWholeUnit(QString caption, const std::string& unit);
// The plain text of such a caption.
QString WithoutJoints(QString caption);
// The caption as it is read aloud, without the marks of access keys.
QString SpokenCaption(const Control& control);

}  // namespace merlu
