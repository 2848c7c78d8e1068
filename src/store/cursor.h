// The current-row record set over one table: an updatable view of all its rows in their natural order.
//
// The current row is shared state: a field is read from the row that the last move found, so every operation first
// finds its record again. A find by key is one indexed look-up with bound values. If the current row is deleted by
// another statement, its fields still read as before.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/text.h"
#include "store/database.h"
#include "store/value.h"

namespace merlu {

// Columns and the values that they must equal. A Null value matches nothing.
using Criteria = std::vector<std::pair<std::string_view, Value>>;

class Cursor {
 public:
  // Opens the cursor on its first row. kNoSuchTable when the table is missing. `db` outlives the cursor.
  Cursor(Database& db, std::string table);

  const std::string& table() const { return table_; }
  const std::vector<std::string>& columns() const { return columns_; }

  bool HasRow() const { return position_ == Position::kOnRow; }
  // Whether the table has no rows.
  bool IsEmpty();

  void MoveFirst();

  // Moves to the first row that meets the criteria. False without a match: there is no current row then.
  bool FindFirst(const Criteria& criteria);
  // The same with a condition of the caller's own; values are bound to its question marks.
  bool FindFirstWhere(const std::string& condition, const Values& values);

  // Change of the current row, or a new row: Edit or AddNew, then SetField, then Update. A new row does not
  // become current. kDuplicateKey when the key exists; kNoCurrentRow without a row to edit.
  void Edit();
  void AddNew();
  void SetField(std::string_view column, Value value);
  void Update();

  // Reads the table again and moves to its first row.
  void Requery() { MoveFirst(); }

  // Value of a column of the current row. kNoSuchItem for an unknown column, kNoCurrentRow without a row.
  const Value& Field(std::string_view column);

  // The column as the last read left it: enough for a key, which never changes.
  const Value& LastRead(std::string_view column) const;

 private:
  enum class Position { kOnRow, kNowhere, kEmpty };  // the last two without a row; kEmpty: the table had none
  enum class Change { kNone, kEdit, kAdd };

  std::size_t ColumnIndex(std::string_view column) const;
  // Runs a query of all columns with the row's id in front, and takes its first row as the current one.
  bool Load(std::string_view tail, const Values& values);
  bool Fetch(Database::KeptQuery& query, const std::vector<const Value*>& values);
  void Abandon();
  void Refresh();

  Database& db_;
  Database::TableChanges& changes_;
  std::string table_;
  std::string select_;
  std::vector<std::string> columns_;
  std::vector<bool> booleans_;
  std::unordered_map<std::string, std::size_t, TextHash, std::equal_to<>> places_;  // of the columns
  Position position_ = Position::kEmpty;
  std::int64_t row_id_ = 0;
  Values row_;
  std::int64_t seen_changes_ = 0;
  std::vector<std::string> found_by_;  // columns of the last find
  Database::KeptQuery find_, refresh_;
  std::vector<const Value*> bound_;
  Change change_ = Change::kNone;
  std::vector<std::pair<std::size_t, Value>> pending_;
};

}  // namespace merlu
