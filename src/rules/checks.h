// The checks that rule tables are written with. A check judges its field's text as the sheet shows it, raises or
// withdraws the finding under the field's tag, and marks the field.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rules/judge.h"

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
// A check of the sheet's own, which looks at the fields of `reads` besides its own.
CheckSpec Own(const std::string& name, const std::string& text, std::vector<std::string> reads,
              std::function<void(Judging&)> run);
// Makes the check only while the condition holds; otherwise it neither raises nor withdraws. Can refer to kTheField.
CheckSpec LooksWhen(const Condition& condition, CheckSpec check);
// The check, whose run asks Judging::MayFail: while the condition does not hold the value passes.
CheckSpec FailsWhen(const Condition& condition, CheckSpec check);
// The check when the structure's month is found; nothing otherwise.
CheckSpec WithMonth(CheckSpec check);
// The check while the condition holds; while it does not, the field only looks passed and its finding stays.
CheckSpec PassedUnless(const Condition& condition, CheckSpec check);

// Fails with `text` when the field's number is over the total of the structure's month, both in single precision,
// and that total, rounded to a whole number, is not 0. Nothing when the structure's month cannot be found.
CheckSpec WithinStructureTotal(const std::string& text, Total total);
// The same with the total that a list's text chooses; with another text, none.
CheckSpec WithinStructureTotal(const std::string& text, const std::string& list,
                               std::vector<std::pair<std::string, Total>> totals);
// Required, within low to high, and within the total of the structure's month; one mark for all three.
CheckSpec RequiredRangeWithinTotal(double low, double high, Total total, const std::string& text);
// The same without the requirement: nothing while blank.
CheckSpec RangeWithinTotalIfFilled(double low, double high, Total total, const std::string& text);

// The acts that checks are made of, for those of a sheet's own. Each returns true when the value failed.
bool JudgeRequired(Judging& judging);
bool JudgeRange(Judging& judging, double low, double high, const std::string& range_text);
bool JudgeRequiredRange(Judging& judging, double low, double high, const std::string& range_text);

bool IsFilled(std::string_view text);
// True when the text holds fewer than 10 digits.
bool HasTooFewDigits(std::string_view text);

std::string RangeText(double low, double high);
std::string MinText(float minimum);

}  // namespace merlu
