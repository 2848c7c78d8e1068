// What every sheet does, given its table: of an equipment type, the structure, the operator. For a type <TYP> these are
// its Clear<TYP>Frame, Load<TYP>Frame and so on; where a sheet deviates, its own file says so.
//
// The controls hold an edit until it is saved; there is no private copy and no dirty flag. Each operation begins by
// finding the record again, since the cursors are shared.
#pragma once

#include "sheets/spec.h"

namespace merlu {

// A load is no act of the user: a click that it raises enables, empties and refills nothing.
class NotEditing {
 public:
  explicit NotEditing(Session& s) : s_(s), was_(s.editing) { s_.editing = false; }
  ~NotEditing() { s_.editing = was_; }
  NotEditing(const NotEditing&) = delete;
  NotEditing& operator=(const NotEditing&) = delete;

 private:
  Session& s_;
  bool was_;
};

// Blanks every field and shapes the sheet for the session's mode.
void ClearFrame(Session& s, const SheetSpec& sheet);
// Brings the rows of the current record into place.
bool FindRecord(Session& s, const SheetSpec& sheet, const QCLocation& location);
// Copies the record to the controls and fills the QC list; notes when it is missing. False when the record could not be
// read; a list that cannot be filled only notes its fault.
bool LoadFrame(Session& s, const SheetSpec& sheet);
// Makes the sheet read-only.
void LockFrame(Session& s, const SheetSpec& sheet);
// Makes the fields of the session's mode editable.
void UnlockFrame(Session& s, const SheetSpec& sheet);
// Writes the fields of the session's mode. Sets the session's save_failed when that fails. A save that is not part of a
// QC run empties an equipment month's date of last QC, since the record then needs a new run.
void SaveFrame(Session& s, const SheetSpec& sheet, bool after_qc);
// Fills the list of findings and the date label, where the sheet has them.
void LoadQCList(Session& s, const SheetSpec& sheet);
// The text of a date label, and of one without a date.
inline constexpr const char* kNoQCDate = "Date of Last QC:          ";
std::string QCDateText(const Value& date);

}  // namespace merlu
