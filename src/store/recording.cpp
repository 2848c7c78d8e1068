// The recording part of a connection: batches with a partner, notification of listeners, restoring of rows.
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "base/fault.h"
#include "store/database.h"
#include "store/engine.h"

namespace merlu {
namespace {

// What a row needs to be written by its number: the key column that is the row number is left out.
struct RowStatements {
  std::vector<std::size_t> columns;  // that are written
  std::string insert, update, remove;
};

RowStatements StatementsOf(const RecordedTable& table) {
  RowStatements statements;
  std::string names, marks, sets;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const std::string& column = table.columns[i];
    if (static_cast<int>(i) == table.key) continue;
    statements.columns.push_back(i);
    names += ",[" + column + "]";
    marks += ",?";
    sets += (sets.empty() ? "[" : ",[") + column + "]=?";
  }
  statements.insert = "INSERT INTO " + table.Quoted() + " (rowid" + names + ") VALUES (?" + marks + ")";
  // a table of nothing but its key has nothing to change
  statements.update = sets.empty() ? "" : "UPDATE " + table.Quoted() + " SET " + sets + " WHERE rowid=?";
  statements.remove = "DELETE FROM " + table.Quoted() + " WHERE rowid=?";
  return statements;
}

class RowWriter {
 public:
  RowWriter(Database& db, const Changes& changes) : db_(db), changes_(changes), statements_(changes.tables->size()) {}

  void Remove(const RowChange& row) { Expect(db_.ExecuteStored(Of(row).remove, {Number(row)})); }
  void Insert(const RowChange& row, std::string_view bytes) {
    std::vector<StoredValue> values = Written(row, bytes);
    values.insert(values.begin(), Number(row));
    Expect(db_.ExecuteStored(Of(row).insert, values));
  }
  void Update(const RowChange& row, std::string_view bytes) {
    if (Of(row).update.empty()) return;
    std::vector<StoredValue> values = Written(row, bytes);
    values.push_back(Number(row));
    Expect(db_.ExecuteStored(Of(row).update, values));
  }

 private:
  static StoredValue Number(const RowChange& row) {
    return {.kind = StoredValue::Kind::kInteger, .integer = row.rowid};
  }
  const RowStatements& Of(const RowChange& row) {
    RowStatements& statements = statements_[row.table];
    if (statements.remove.empty()) statements = StatementsOf(changes_.TableOf(row));
    return statements;
  }
  std::vector<StoredValue> Written(const RowChange& row, std::string_view bytes) {
    const std::vector<StoredValue> stored = RowValues(bytes);
    const RowStatements& statements = Of(row);
    if (stored.size() != changes_.TableOf(row).columns.size())
      throw Fault(fault_number::kDamaged, kStoreSource, "A recorded row has another layout.");
    std::vector<StoredValue> values;
    values.reserve(statements.columns.size() + 1);
    for (const std::size_t column : statements.columns) values.push_back(stored[column]);
    return values;
  }
  static void Expect(int changed) {
    if (changed != 1) throw Fault(fault_number::kRecordDeleted, kStoreSource, "Record is deleted.");
  }

  Database& db_;
  const Changes& changes_;
  std::vector<RowStatements> statements_;
};

}  // namespace

void ApplyChanges(Database& db, const Changes& changes) {
  RowWriter writer(db, changes);
  for (const RowChange& row : changes.rows)
    if (row.Removed()) writer.Remove(row);
  for (const RowChange& row : changes.rows)
    if (!row.Removed() && !row.Added()) writer.Update(row, row.after);
  for (const RowChange& row : changes.rows)
    if (row.Added()) writer.Insert(row, row.after);
}

WithoutRelations::WithoutRelations(Database& db) : db_(db) {
  db_.Execute("PRAGMA foreign_keys=OFF");
}

WithoutRelations::~WithoutRelations() {
  try {
    if (db_.IsOpen()) db_.Execute("PRAGMA foreign_keys=ON");
  } catch (const Fault&) {
    // the connection cannot be used any more; the next statement meets the same failure
  }
}

void Database::RecordChanges(std::vector<RecordedTable> more) {
  std::vector<RecordedTable> tables;
  bool has_wide_key = false;  // of several columns, none of which is the row number
  ForEach(
      "SELECT t.name,c.name,c.pk,c.type FROM pragma_table_list AS t "
      "JOIN pragma_table_info(t.name,'main') AS c WHERE t.schema='main' AND t.type='table' AND t.wr=0 AND "
      "t.name NOT LIKE 'sqlite\\_%' ESCAPE '\\' AND t.name NOT LIKE 'H\\_%' ESCAPE '\\' ORDER BY t.name,c.cid",
      {}, [&](const RowView& row) {
        if (tables.empty() || tables.back().name != row.Text(0)) {
          tables.push_back({std::string(row.Text(0)), {}, -1});
          has_wide_key = false;
        }
        RecordedTable& table = tables.back();
        const std::int64_t place = row.Integer(2);  // in the primary key, from 1
        has_wide_key = has_wide_key || place > 1;
        if (has_wide_key)
          table.key = -1;
        else if (place == 1 && EqualsIgnoringCase(row.Text(3), "INTEGER"))
          table.key = static_cast<int>(table.columns.size());
        table.columns.emplace_back(row.Text(1));
      });
  tables.insert(tables.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
  recorder_.Start(db_, std::move(tables));
}

void Database::Listen(Listener listener) {
  listeners_.push_back(std::move(listener));
}

void Database::Tell(const Changes& changes) {
  if (changes.empty()) return;
  for (const Listener& listener : std::vector(listeners_)) listener(changes);
}

void Database::TellAllChanged() {
  Changes changes;
  changes.tables = recorder_.tables();
  changes.all = true;
  Tell(changes);
}

void Database::Attach(const std::string& path, const std::string& schema) {
  std::error_code error;
  Execute("ATTACH DATABASE ? AS " + schema, {std::filesystem::absolute(path, error).string()});
}

void Database::Detach(const std::string& schema) {
  cache_.clear();  // a statement that reads the file would keep it
  Execute("DETACH DATABASE " + schema);
}

void Database::Alone(const std::function<void()>& work) {
  if (batches_ > 0) return work();
  Execute("BEGIN");
  try {
    work();
    Execute("COMMIT");
  } catch (const Fault&) {
    if (!sqlite3_get_autocommit(db_)) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

std::int64_t Database::FileChangeCounter() const {
  sqlite3_file* file = nullptr;
  unsigned char bytes[4] = {};
  // bytes 24 to 27 of the header; read through the engine's own handle, since closing another one would end its locks
  if (sqlite3_file_control(db_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || file == nullptr ||
      file->pMethods == nullptr || file->pMethods->xRead(file, bytes, sizeof bytes, 24) != SQLITE_OK)
    return -1;
  std::int64_t counter = 0;
  for (const unsigned char byte : bytes) counter = counter * 256 + byte;
  return counter;
}

void Database::BeginBatch() {
  if (partner_ != nullptr) partner_->Begin();
  try {
    Execute("BEGIN IMMEDIATE");
  } catch (const Fault& fault) {
    // the partner's file may be the one that another program holds
    if (partner_ == nullptr || !partner_->StepAside(fault)) throw;
    Execute("BEGIN IMMEDIATE");
  }
}

void Database::EndBatch() {
  Changes changes = recorder_.Take();
  // the engine itself ends a batch when the disk fails; nothing is left to commit then
  if (sqlite3_get_autocommit(db_)) return;
  try {
    if (partner_ != nullptr) partner_->Write(changes);
    Execute("COMMIT");
  } catch (const Fault& fault) {
    if (!sqlite3_get_autocommit(db_)) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    if (partner_ == nullptr || !partner_->StepAside(fault)) throw;
    WriteAlone(changes);
  }
  Tell(changes);
}

// The batch once more, row for row, without the partner that kept it from being committed.
void Database::WriteAlone(Changes& changes) {
  std::erase_if(changes.rows, [&](const RowChange& row) { return changes.TableOf(row).IsAttached(); });
  const WithoutRelations loose(*this);
  Execute("BEGIN IMMEDIATE");
  ++batches_;
  try {
    ApplyChanges(*this, changes);
    --batches_;
    Execute("COMMIT");
  } catch (const Fault&) {
    batches_ = 0;
    sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    recorder_.BackTo(0);
    throw;
  }
  recorder_.BackTo(0);
}

}  // namespace merlu
