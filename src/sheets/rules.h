// The checks and conditions that rule tables are written with, and their run.
#pragma once

#include <string>
#include <vector>

#include "sheets/spec.h"

namespace merlu {

// Required and within low to high, both inclusive; marks the field either way.
CheckSpec RequiredRange(double low, double high);
// Required; marks the field on failure, and either way or leaves its colour otherwise.
enum class Marks { kFailure, kEither };
CheckSpec Required(Marks marks = Marks::kFailure);
// Required; marks the field either way.
CheckSpec RequiredMarked();
// Nothing while blank; otherwise within low to high, marked on failure only.
CheckSpec RangeIfFilled(double low, double high);
// Nothing while blank; otherwise as RequiredRange.
CheckSpec RequiredRangeIfFilled(double low, double high);
// Nothing while blank; otherwise within low to high, marked either way.
CheckSpec RangeIfFilledMarked(double low, double high);
// Required and not under the minimum, in single precision; marks the field either way.
CheckSpec AtLeast(float minimum);
// Checks nothing: the rule only withdraws when its condition is false.
CheckSpec OnlyWithdraws();
// A text that is no number is emptied on the sheet.
CheckSpec EmptyUnlessNumeric();
// Fails with `text` when the field is strictly greater than the other one; nothing while either is blank.
CheckSpec NotOver(const std::string& other, const std::string& text);
// The check, which tests a condition by itself, told with the condition's words.
CheckSpec When(const std::string& words, CheckSpec check);
// A check of the sheet's own.
CheckSpec Own(const std::string& name, const std::string& text, std::function<void(RuleRun&)> run);

// Fails with `text` when the field's number is over the column of the structure's month, both in single
// precision, and that column, rounded to a whole number, is not 0. A Null column, or none (`column` gives
// an empty name), counts as 0. Nothing when the structure's rows cannot be found.
CheckSpec WithinStructureTotal(const std::string& text, std::function<std::string(const Form&)> column);
// Required, within low to high, and within the column of the structure's month; one mark for all three.
CheckSpec RequiredRangeWithinTotal(double low, double high, const std::string& column, const std::string& text);
// The same without the requirement: nothing while blank.
CheckSpec RangeWithinTotalIfFilled(double low, double high, const std::string& column, const std::string& text);
// The comparison alone; true when the value is over the total. Nothing is written.
bool ExceedsStructureTotal(Session& s, const std::string& column, const std::string& text);

// True while the list reads one of the texts.
Condition Reads(const std::string& list, std::vector<std::string> texts);
Condition ReadsNone(const std::string& list, std::vector<std::string> texts);
Condition Both(const Condition& a, const Condition& b);
Condition Either(const Condition& a, const Condition& b);

// Runs the groups in order: the rules of the session's mode whose condition holds; a rule whose condition is
// false withdraws its field's finding, unless it says otherwise.
void RunRules(Session& s, Form& form, QCLocation& location, const std::vector<RuleGroup>& groups);

}  // namespace merlu
