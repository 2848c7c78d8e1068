// A record's view from its stored rows: what a load of its sheet would show. No form is made, and nothing but the
// row is read, so many records can be viewed in one query, on any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "rules/judge.h"
#include "sheets/spec.h"

namespace merlu {

// The rules of the structure's sheet or of a type's, with their fields looked up.
const RuleSet& RulesOf(const SheetSpec& sheet);
// The fields that the rules of a sheet can refer to: its own, and the box of the month's status.
std::vector<RecordField> RecordFieldsOf(const SheetSpec& sheet);

enum class Wanted { kAllFields, kWhatRulesRead };

// Makes views from a query's rows: gives the columns to select, and puts a row's values into a view as the sheet
// shows them. The fields of the other mode stay blank in a description; a month shows both.
class RowReader {
 public:
  RowReader(const std::vector<FieldSpec>& fields, const RuleSet& rules, Mode mode, Wanted wanted);

  // ",d.[COL],..." with the description's table under the first name, the month's under the second.
  std::string Columns(const std::string& description, const std::string& month) const;
  int size() const { return static_cast<int>(cells_.size()); }
  // Fills the view from the row's columns from `first` on. The context's vents and flares are those of the structure.
  void Show(const RowView& row, int first, const Context& context, RecordView& view) const;

 private:
  struct Cell {
    const FieldSpec* field;
    int index;
    Test shown_when;
  };
  void ShowCell(const RowView& row, int column, const Cell& cell, const Context& context, RecordView& view) const;

  std::vector<Cell> cells_;
  int destination_ = -1;  // index of the list that a remote vent or flare depends on
};

// Whether any of the month's columns is not Null, as an expression of the month's table under that name.
std::string HasValues(const std::vector<FieldSpec>& fields, const std::string& month);

}  // namespace merlu
