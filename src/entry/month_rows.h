// The months' records of a type, or of the structures, as their sheets show them: read in one query, no form made.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "records/judge_records.h"
#include "session/session.h"
#include "sheets/spec.h"

namespace merlu {

// What the months of a type, or of the structures, are made of.
struct MonthKind {
  const SheetSpec* sheet = nullptr;
  const RuleSet* rules = nullptr;
  std::vector<const FieldSpec*> fields;  // in the order of the sheet, without the comments
  std::vector<int> indexes;              // of the fields in the record's view
  int status_index = -1;
  std::string table;                 // EA_<type>, or PA_PLATFORM_ACTV
  std::string status_box, comments;  // controls: "No Emissions to Report", and the comments
};
const MonthKind& MonthKindOf(const SheetSpec* sheet);
inline const std::vector<const FieldSpec*>& MonthFields(const SheetSpec* sheet) {
  return MonthKindOf(sheet).fields;
}

// A month's record as it is stored.
struct MonthRow {
  explicit MonthRow(const RecordView& shown) : view(shown) {}
  const SheetSpec* sheet = nullptr;
  const MonthKind* kind = nullptr;
  RecordKeys keys;
  QCLocation at;
  std::string structure, id;  // as texts; no id for a structure
  bool inactive = false, structure_inactive = false;
  Values row;        // as stored: status, comments, then its fields
  RecordView view;   // what its sheet shows
  std::string node;  // key of its node in the tree

  const Value& FieldValue(std::size_t field) const { return row[field + 2]; }
  std::string Comments() const { return NullToEmpty(row[1]); }
  bool IsOfStructure() const { return sheet == &StructureSheet(); }
  std::int64_t key() const { return IsOfStructure() ? keys.SA_ID_AK : keys.EA_ID_AK; }
  std::int64_t owner() const { return IsOfStructure() ? keys.PD_ID_AK : keys.ED_ID_AK; }
  // "2017/03 · GI, 43, A · Combustion Flare: F1"
  std::string PlaceText() const;
};

// The records of a month (0 for all), of one structure (0 for all), or one by its key.
struct MonthScope {
  int month = 0;
  std::int64_t PD_ID_AK = 0;
  std::int64_t key = 0;
};
void ReadMonthRows(Database& db, Contexts& contexts, const SheetSpec* sheet, const MonthScope& scope,
                   const std::function<void(MonthRow)>& each);

// Whether each of the month's fields is closed on the sheet while the record is edited: locked, disabled or hidden.
std::vector<bool> LockedFields(const SheetSpec* sheet, const RecordView& view);

}  // namespace merlu
