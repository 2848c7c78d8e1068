// The tables of fields and rules in words for the people who fill the sheets.
#pragma once

#include <string>
#include <vector>

#include "sheets/spec.h"

namespace merlu {

// What a reader knows a field by: its caption, or its name in findings where it has none; the control's own
// name when it is no field.
std::string CaptionOf(const std::vector<FieldSpec>& fields, const std::string& control);

// A condition refers to fields by their control names. For readers these become the captions, which are put between the
// two marks.
struct CaptionMarks {
  std::string open, close;
  bool typeset = false;  // bare captions, and quotes in pairs
};
std::string ConditionText(const std::vector<FieldSpec>& fields, std::string words, const CaptionMarks& marks);

// What a check demands: "required, 0 to 744".
std::string DemandText(const CheckSpec& check);

// Of two sets of fields under separate headings the second one is named by the words that its heading adds: "Diesel" of
// "Monthly activity, diesel". Empty for the first set.
std::string SetOf(const FieldSpec& field, const std::string& first_block);

// Without blanks around it and the mark after it.
std::string BareCaption(const std::string& caption);

}  // namespace merlu
