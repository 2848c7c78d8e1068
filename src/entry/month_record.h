// entry/ is for typing the figures of a month: on a sheet, in the grid, by a workbook. Here, on a sheet: the values of
// the month before beside the fields, and copying them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "session/session.h"
#include "sheets/spec.h"

namespace merlu {

// The month's record that shows: its form, its monthly fields, and the row that holds them.
struct MonthRecord {
  Form* form = nullptr;
  const SheetSpec* sheet = nullptr;
  std::vector<const FieldSpec*> fields;  // without comments
  std::string table;                     // EA_<type>, or PA_PLATFORM_ACTV
  std::string key_column;
  std::int64_t key = 0;
};
// Nothing for a description, a survey, the operator, and types without months.
std::optional<MonthRecord> ShownMonth(Session& s);

// Sets `was` of the monthly fields: the stored values of the month before, as text.
void ShowMonthBefore(Session& s);

// The blank, open fields of the month that is edited take the values of the month before, as copied ones. Returns how
// many did.
int CopyMonthBefore(Session& s);
// The fields that hold a copied value.
std::vector<Control*> CopiedFields(Session& s);

// What is copied outlasts the save in the companion, until it is confirmed or holds another value: shown again with
// the record, kept with its save, confirmed.
void ShowCopied(Session& s);
void KeepCopiedOfShown(Session& s);
void ForgetCopiedOfShown(Session& s);

// Computes the sums that are left in the fields of the form, as leaving the field does.
void ComputeSums(Form& form);

}  // namespace merlu
