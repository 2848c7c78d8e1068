// The check primitives of the rule tables. They read the text of a field as it stands on the screen, write
// or withdraw the finding under the field's tag, and colour the field. A check returns true when the value
// FAILED.
#pragma once

#include <string>
#include <string_view>

#include "forms/control.h"
#include "session/session.h"

namespace merlu {

// True when the trimmed text is not empty.
bool IsFilled(const Control& field);
// True when the text holds fewer than 10 digits.
bool HasTooFewDigits(std::string_view text);

// Sets the field's background: flagged when failed, otherwise editable or read-only by the session's edit.
void MarkField(Session& s, bool failed, Control& field);

// Blank: "Required field left blank".
bool CheckRequired(Session& s, QCLocation& location, Control& field);
// The leading number outside low to high, both inclusive: "Value not in expected range (0 to 744)".
bool CheckRange(Session& s, QCLocation& location, Control& field, double low, double high);
// CheckRequired; when filled, CheckRange; then MarkField.
bool CheckRequiredRange(Session& s, QCLocation& location, Control& field, double low, double high);
// CheckRequired, then MarkField.
bool CheckRequiredMarked(Session& s, QCLocation& location, Control& field);
// Blank, or under the minimum in single precision: "Value under minimum of 0". Marks nothing.
bool CheckMin(Session& s, QCLocation& location, Control& field, float minimum);

// Adds or withdraws the finding with that text on the field's tag.
void Judge(Session& s, QCLocation& location, Control& field, bool failed, const std::string& text);

std::string RangeText(double low, double high);
std::string MinText(float minimum);

}  // namespace merlu
