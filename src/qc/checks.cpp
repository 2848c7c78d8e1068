#include "qc/checks.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "qc/qc_log.h"

namespace merlu {
namespace {

bool IsOutside(const Control& field, double low, double high) {
  const double number = LeadingNumber(field.text);
  return number > high || number < low;
}

}  // namespace

bool IsFilled(const Control& field) {
  return field.text.find_first_not_of(' ') != std::string::npos;
}

bool HasTooFewDigits(std::string_view text) {
  return std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }) < 10;
}

std::string RangeText(double low, double high) {
  return "Value not in expected range (" + GeneralNumber(low) + " to " + GeneralNumber(high) + ")";
}

std::string MinText(float minimum) {
  return "Value under minimum of " + GeneralNumber(minimum);
}

void Judge(Session& s, QCLocation& location, Control& field, bool failed, const std::string& text) {
  if (failed) {
    field.tip = text;
    AddQCError(s, location, field.tag, text);
  } else {
    ClearQCError(s, location, field.tag, text);
  }
}

void MarkField(Session& s, bool failed, Control& field) {
  field.back = failed ? Back::kFlag : s.editing ? Back::kWindow : Back::kFace;
}

bool CheckRequired(Session& s, QCLocation& location, Control& field) {
  const bool failed = !IsFilled(field);
  Judge(s, location, field, failed, finding::kBlank);
  return failed;
}

bool CheckRange(Session& s, QCLocation& location, Control& field, double low, double high) {
  const bool failed = IsOutside(field, low, high);
  if (failed || HasFindings(s, location)) Judge(s, location, field, failed, RangeText(low, high));
  return failed;
}

bool CheckRequiredRange(Session& s, QCLocation& location, Control& field, double low, double high) {
  const bool filled = IsFilled(field);
  const bool out_of_range = filled && IsOutside(field, low, high);
  const bool failed = !filled || out_of_range;
  if (!filled) {
    Judge(s, location, field, true, finding::kBlank);
  } else if (out_of_range) {
    ClearQCError(s, location, field.tag, finding::kBlank);
    Judge(s, location, field, true, RangeText(low, high));
  } else if (HasFindings(s, location)) {
    ClearQCErrors(s, location, field.tag, {finding::kBlank, RangeText(low, high)});
  }
  MarkField(s, failed, field);
  return failed;
}

bool CheckRequiredMarked(Session& s, QCLocation& location, Control& field) {
  const bool failed = CheckRequired(s, location, field);
  MarkField(s, failed, field);
  return failed;
}

bool CheckMin(Session& s, QCLocation& location, Control& field, float minimum) {
  if (CheckRequired(s, location, field)) return true;
  const bool failed = static_cast<float>(LeadingNumber(field.text)) < minimum;
  if (failed || HasFindings(s, location)) Judge(s, location, field, failed, MinText(minimum));
  return failed;
}

}  // namespace merlu
