// Rows that a batch changed, as bytes before and after. Two rows are equal when their bytes are.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text.h"
#include "store/value.h"

struct sqlite3;
struct sqlite3_value;

namespace merlu {

// One value of a row as it is stored; texts and blobs point into the row's bytes.
struct StoredValue {
  enum class Kind : std::uint8_t { kNull, kInteger, kReal, kText, kBlob };
  Kind kind = Kind::kNull;
  std::int64_t integer = 0;
  double real = 0;
  std::string_view bytes{};

  bool operator==(const StoredValue&) const = default;
};

// A real that is a whole number is written as an integer; the column's type converts it back.
void AppendValue(std::string& row, const StoredValue& value);
void AppendValue(std::string& row, sqlite3_value* value);
// Takes the next value off the front; false at the end, or where the bytes are no row.
bool TakeValue(std::string_view& row, StoredValue& value);
// The row's values. A fault (kDamaged) when the bytes are no row.
std::vector<StoredValue> RowValues(std::string_view row);
// The same with a blob as a text.
Value ToValue(const StoredValue& value);

// Whole numbers of any size in few bytes.
void AppendNumber(std::string& bytes, std::uint64_t number);
bool TakeNumber(std::string_view& bytes, std::uint64_t& number);

// A table that changes are recorded of.
struct RecordedTable {
  std::string name;  // of a table in an attached file with its schema in front: "history.copied"
  std::vector<std::string> columns;
  int key = -1;  // index of the column that is the row number itself, if there is one

  bool IsAttached() const { return name.find('.') != std::string::npos; }
  // For a statement.
  std::string Quoted() const;
};

struct RowChange {
  std::uint16_t table = 0;  // index into the recorded tables
  std::int64_t rowid = 0;
  std::string_view before, after;  // empty: there was, or is, no such row

  bool Added() const { return before.empty(); }
  bool Removed() const { return after.empty(); }
};

// The net changes of a batch: each row once, with its first and last state, and not at all when these are equal.
struct Changes {
  std::shared_ptr<const std::vector<RecordedTable>> tables;
  std::vector<RowChange> rows;
  bool all = false;                          // anything may have changed: another program wrote, or a backup came back
  std::unique_ptr<const std::string> bytes;  // that the rows point into

  bool empty() const { return rows.empty() && !all; }
  const RecordedTable& TableOf(const RowChange& row) const { return (*tables)[row.table]; }
};

// Keeps every row that a connection changes, cascades included, until it is asked what they came to. Rows are named
// by table and row number, since some tables have no key. The staging tables of the import (H_...) are left out: they
// are empty before and after.
class ChangeRecorder {
 public:
  ChangeRecorder() = default;
  ~ChangeRecorder() { Stop(); }
  ChangeRecorder(const ChangeRecorder&) = delete;
  ChangeRecorder& operator=(const ChangeRecorder&) = delete;

  void Start(sqlite3* db, std::vector<RecordedTable> tables);
  void Stop();
  bool IsOn() const { return db_ != nullptr; }
  const std::shared_ptr<const std::vector<RecordedTable>>& tables() const { return tables_; }

  // A position in the record, and back to it after a rollback.
  std::size_t Mark() const { return entries_.size(); }
  void BackTo(std::size_t mark);
  bool IsEmpty() const { return entries_.empty(); }
  // What was recorded since the start or the last Take.
  Changes Take();

 private:
  struct Entry {
    std::uint16_t table;
    std::int64_t rowid;
    std::size_t at;  // of its bytes: the row before, then the row after
    std::uint32_t before, after;
  };
  static void Changing(void* self, sqlite3* db, int act, const char* schema, const char* table, long long from,
                       long long to);
  void Add(int act, std::uint16_t table, std::int64_t from, std::int64_t to);
  std::uint32_t AppendRow(int (*read)(sqlite3*, int, sqlite3_value**), int columns);

  sqlite3* db_ = nullptr;
  std::shared_ptr<const std::vector<RecordedTable>> tables_;
  std::unordered_map<std::string, std::uint16_t, TextHash, std::equal_to<>> by_name_;
  std::vector<Entry> entries_;
  std::string bytes_;
};

}  // namespace merlu
