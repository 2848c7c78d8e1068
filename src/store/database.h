// store/ keeps an inventory in one SQLite file. Here, a connection to it: statements are prepared once and kept, and
// values are bound, never put into the text. One thread uses a connection. Every failure is a Fault whose number is one
// of fault_number.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "base/text.h"
#include "store/changes.h"
#include "store/image.h"
#include "store/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace merlu {

// The current row of a running query; valid only during the callback that receives it.
class RowView {
 public:
  explicit RowView(sqlite3_stmt* statement) : statement_(statement) {}
  enum class ColumnType { kNull, kInteger, kReal, kText, kBlob };

  int size() const;
  ColumnType TypeOf(int column) const;
  bool IsNull(int column) const;
  std::int64_t Integer(int column) const;
  double Number(int column) const;
  std::string_view Text(int column) const;  // empty for Null
  // A column declared BOOLEAN gives a yes/no.
  Value At(int column) const;
  // The same into a value that is there, for a column whose declaration is known.
  void Read(int column, bool is_boolean, Value& value) const;

 private:
  sqlite3_stmt* statement_;
};

struct Rows {
  std::vector<std::string> columns;
  std::vector<Values> rows;
};

// What takes part in every batch of a connection that records: a second file in the same commit.
class BatchPartner {
 public:
  virtual ~BatchPartner() = default;
  // Before the outermost batch begins.
  virtual void Begin() = 0;
  // Before it is committed: writes what belongs to these changes into the same batch.
  virtual void Write(const Changes& changes) = 0;
  // A batch that could not begin, or not be committed: leaves, so that the inventory is written alone. False when it
  // took no part.
  virtual bool StepAside(const Fault& why) = 0;
};

// The collation by which two IDs are the same: without regard to the case of any letter. The files' own one
// knows ASCII letters only, and their indexes are ordered by it.
inline constexpr const char* kSameId = "SAME_ID";

class Database {
 public:
  Database() = default;
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // Opens an existing file for reading and writing, with foreign keys on. The file must be a database, not read-only,
  // and not locked by another process (kPathNotFound, kNotADatabase, kReadOnly, kInUse). Triggers in the file do not
  // run. Nothing is written, except that a file with a write-ahead log is switched back to the rollback journal; kInUse
  // when another program prevents that.
  void Open(const std::string& path);
  // Opens a file of unknown origin for reading only, under the engine's defensive settings: its schema may
  // run nothing, and values over a million bytes are faults. The same faults as Open.
  void OpenReadOnly(const std::string& path);
  // The same for a private copy of the file, made through the engine: what happens to the file, or to its name, after
  // that does not matter.
  void OpenPrivateCopy(const std::string& path);
  // Opens a file that was read into memory, with the restrictions of OpenReadOnly. Writes to a private copy are
  // discarded with it.
  enum class Use { kRead, kPrivateCopy };
  void OpenImage(const Image& image, Use use);
  // Never fails. A batch that is still open is committed.
  void Close();
  bool IsOpen() const { return db_ != nullptr; }
  const std::string& path() const { return path_; }

  // Runs a statement; returns the number of rows it changed.
  int Execute(std::string_view sql, const Values& values = {});
  // The same with values as they are stored, blobs included.
  int ExecuteStored(std::string_view sql, const std::vector<StoredValue>& values);
  // Runs a query and keeps all rows.
  Rows Query(std::string_view sql, const Values& values = {});
  // Runs a query and calls `each` with every row; returns the number of rows.
  int ForEach(std::string_view sql, const Values& values, const std::function<void(const RowView&)>& each);
  // First column of the first row, Null without rows.
  Value Single(std::string_view sql, const Values& values = {});

  // As Query, for a statement from outside: one statement that only reads, anything else is refused.
  Rows ReadOnlyQuery(const std::string& sql);

  bool HasTable(std::string_view name);

  // Opens a private copy of what is committed in the other database, in memory. Its writes are discarded with it.
  void OpenCopyOf(Database& other);
  // Copies what is committed into an empty file, which is not fsynced. The file may be in use meanwhile.
  void CopyTo(const std::string& path);

  // Grows with every row that a statement of this connection changes, when changes are taken back, and when
  // NoticeOthers finds something.
  std::int64_t ChangeCount() const;
  // Looks whether another program has changed the file since the last look. Never fails.
  void NoticeOthers();

  // What a reader of one table compares to learn whether its rows can have changed: as ChangeCount, without the
  // rows of other tables that ExecuteOn has changed.
  class TableChanges {
   public:
    explicit TableChanges(const Database& db) : db_(db) {}
    std::int64_t Count() const { return db_.ChangeCount() - db_.single_rows_ + own_; }

   private:
    friend class Database;
    const Database& db_;
    std::int64_t own_ = 0;
  };
  // Of the table of that name; lives as long as this.
  TableChanges& ChangesOf(const std::string& table);
  // As Execute, for a statement that inserts into the table, or updates it.
  int ExecuteOn(TableChanges& table, std::string_view sql, const Values& values);

  // From here on the rows that a batch changes are recorded, those of further tables in an attached file included.
  // Ends with the connection.
  void RecordChanges(std::vector<RecordedTable> more = {});
  const ChangeRecorder& recorder() const { return recorder_; }
  // Called with the rows of every batch that was committed, in the order in which the listeners came, until the
  // connection is destroyed.
  using Listener = std::function<void(const Changes&)>;
  void Listen(Listener listener);
  // Reports to the listeners that any row may have changed.
  void TellAllChanged();
  // The partner outlives the connection; null for none.
  void SetPartner(BatchPartner* partner) { partner_ = partner; }
  bool InBatch() const { return batches_ > 0; }

  // Another file that is written together with this one, outside a batch only; a missing one is made.
  void Attach(const std::string& path, const std::string& schema);
  void Detach(const std::string& schema);
  // Writes to the other file alone in one commit, so that the inventory stays free for other programs; inside a batch
  // it is part of that.
  void Alone(const std::function<void()>& work);
  bool IsReadOnly(const char* schema) const;
  // Grows with every commit of any program; -1 when it cannot be read.
  std::int64_t FileChangeCounter() const;

  // Attaches another connection's database to this one as a schema: its pages are copied into a private file, which is
  // removed with this object. No batch may be open.
  class Attached {
   public:
    Attached(Database& db, Database& other, std::string schema);
    ~Attached();
    Attached(const Attached&) = delete;
    Attached& operator=(const Attached&) = delete;

   private:
    Database& db_;
    std::string schema_;
  };

 private:
  friend class Cursor;
  friend class WriteBatch;
  friend class AllOrNothing;
  class Running;  // a prepared statement in use

  void OpenWith(const std::string& path, int flags);
  void OpenFile(const std::string& name, int flags);
  void LeaveWriteAheadLog();
  void CopyPages(sqlite3* to, const std::string& schema);
  void BeginBatch();
  void EndBatch();
  void WriteAlone(Changes& changes);
  void Tell(const Changes& changes);
  template <typename V>
  int Run(std::string_view sql, const std::vector<V>& values);
  using Statement = std::shared_ptr<sqlite3_stmt>;
  const Statement& Prepare(std::string_view sql);
  [[noreturn]] void Fail(int code) const;

  // A query that its owner runs repeatedly. Its statement is dropped with the connection, or when the cache is full.
  struct KeptQuery {
    std::string sql;
    std::weak_ptr<sqlite3_stmt> statement;
  };
  // Of "SELECT rowid,* ...": the first row, into a row of the table's width; false without one. `booleans` are the
  // columns that hold a yes/no.
  bool FirstRow(KeptQuery& query, const std::vector<const Value*>& values, const std::vector<bool>& booleans,
                std::int64_t& rowid, Values& row);
  // Which columns of the query are declared BOOLEAN.
  std::vector<bool> BooleansOf(std::string_view sql);

  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  using Cache = std::unordered_map<std::string, Statement, TextHash, std::equal_to<>>;

  sqlite3* db_ = nullptr;
  std::string path_;
  Image image_;  // that an image in memory is read from
  Cache cache_;
  int batches_ = 0;
  std::int64_t unseen_changes_ = 0;  // what the engine does not count: changes taken back, and those of others
  std::int64_t data_version_ = 0;
  std::int64_t single_rows_ = 0;  // changed by ExecuteOn, all tables together
  std::unordered_map<std::string, TableChanges> tables_;
  ChangeRecorder recorder_;
  BatchPartner* partner_ = nullptr;
  std::vector<Listener> listeners_;
};

// Many writes, one commit. The outermost batch begins and commits. It also commits when its scope is left by a fault,
// so that completed parts of the work stay; a power cut leaves the file consistent.
class WriteBatch {
 public:
  // kInUseTable when another process holds the file.
  explicit WriteBatch(Database& db);
  ~WriteBatch();
  WriteBatch(const WriteBatch&) = delete;
  WriteBatch& operator=(const WriteBatch&) = delete;

  // Commits now, so that a failure can be reported. Without a call the destructor commits and ignores failures.
  void Commit();

 private:
  Database& db_;
  bool open_ = true;
};

// Writes of a batch that are kept or rolled back together: rows of which a part alone would be inconsistent.
class AllOrNothing {
 public:
  explicit AllOrNothing(Database& db);
  // Takes the writes back unless they were kept.
  ~AllOrNothing();
  AllOrNothing(const AllOrNothing&) = delete;
  AllOrNothing& operator=(const AllOrNothing&) = delete;

  void Keep();

 private:
  Database& db_;
  std::size_t mark_;
  bool open_ = true;
};

// Brings the rows to their state after the changes: deletions first, then updates, then insertions. Runs in a batch
// with foreign keys off.
void ApplyChanges(Database& db, const Changes& changes);

// Foreign keys are off as long as this lives; outside a batch only.
class WithoutRelations {
 public:
  explicit WithoutRelations(Database& db);
  ~WithoutRelations();
  WithoutRelations(const WithoutRelations&) = delete;
  WithoutRelations& operator=(const WithoutRelations&) = delete;

 private:
  Database& db_;
};

}  // namespace merlu
