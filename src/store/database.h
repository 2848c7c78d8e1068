// One open SQLite file. Statements are prepared once and kept; values are bound, never put into the text.
// One thread uses a connection. Every failure is a Fault whose number is one of fault_number.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text.h"
#include "store/image.h"
#include "store/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace merlu {

// The row that a running query stands on; valid during the call that hands it out.
class RowView {
 public:
  explicit RowView(sqlite3_stmt* statement) : statement_(statement) {}
  enum class Stored { kNull, kInteger, kReal, kText, kBlob };

  int size() const;
  Stored StoredAs(int column) const;
  bool IsNull(int column) const;
  std::int64_t Integer(int column) const;
  double Number(int column) const;
  std::string_view Text(int column) const;  // empty for Null
  // A column declared BOOLEAN gives a yes/no.
  Value At(int column) const;

 private:
  sqlite3_stmt* statement_;
};

struct Rows {
  std::vector<std::string> columns;
  std::vector<Values> rows;
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

  // Opens an existing file for reading and writing, with foreign keys on. The file must be a database,
  // not read-only, and not locked by another process (kPathNotFound, kNotADatabase, kReadOnly, kInUse).
  // Triggers that the file holds do not run. Nothing is written, but a file with a write-ahead log goes back to the
  // rollback journal; one that another program keeps so is refused (kInUse).
  void Open(const std::string& path);
  // Opens a file of unknown origin for reading only, under the engine's defensive settings: its schema may
  // run nothing, and values over a million bytes are faults. The same faults as Open.
  void OpenReadOnly(const std::string& path);
  // Opens a file that was taken into memory, with the same distrust as OpenReadOnly. What is written to a private copy
  // is gone with it.
  enum class Use { kRead, kPrivateCopy };
  void OpenImage(const Image& image, Use use);
  // Never fails. A batch that is still open is committed.
  void Close();
  bool IsOpen() const { return db_ != nullptr; }
  const std::string& path() const { return path_; }

  // Runs a statement; returns the number of rows it changed.
  int Execute(std::string_view sql, const Values& values = {});
  // Runs a query and keeps all rows.
  Rows Query(std::string_view sql, const Values& values = {});
  // Runs a query and hands each row to `each`; returns the number of rows.
  int ForEach(std::string_view sql, const Values& values, const std::function<void(const RowView&)>& each);
  // First column of the first row, Null without rows.
  Value Single(std::string_view sql, const Values& values = {});

  // As Query, for a statement from outside: one statement that only reads, anything else is refused.
  Rows ReadOnlyQuery(const std::string& sql);

  bool HasTable(std::string_view name);

  // Copies what is committed into an empty file, which is not fsynced. The file may be in use meanwhile.
  void CopyTo(const std::string& path);

  // Grows with every row that a statement of this connection changes, when changes are taken back, and when
  // NoticeOthers finds something.
  std::int64_t ChangeCount() const;
  // Looks whether another program has changed the file since the last look. Never fails.
  void NoticeOthers();

  // What a reader of one table compares to learn whether its rows can have changed: as ChangeCount, without the
  // single rows of other tables that ExecuteOn has changed.
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

  // What another connection has open, as a schema of this one: its pages are copied into a private file, which goes
  // with this. No batch may be open.
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
  sqlite3_stmt* Prepare(std::string_view sql);
  [[noreturn]] void Fail(int code) const;

  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  using Cache = std::unordered_map<std::string, std::unique_ptr<sqlite3_stmt, Finalizer>, TextHash, std::equal_to<>>;

  sqlite3* db_ = nullptr;
  std::string path_;
  Image image_;  // that an image in memory is read from
  Cache cache_;
  int batches_ = 0;
  std::int64_t unseen_changes_ = 0;  // what the engine does not count: changes taken back, and those of others
  std::int64_t data_version_ = 0;
  std::int64_t single_rows_ = 0;  // changed by ExecuteOn, all tables together
  std::unordered_map<std::string, TableChanges> tables_;
};

// Many writes, one commit. The outermost batch begins and commits; it commits when it goes out of scope
// also after a fault, so that work half done stays and a power cut leaves the file whole.
class WriteBatch {
 public:
  // kInUseTable when another process holds the file.
  explicit WriteBatch(Database& db);
  ~WriteBatch();
  WriteBatch(const WriteBatch&) = delete;
  WriteBatch& operator=(const WriteBatch&) = delete;

  // Commits now, so that a failing commit can be told. Without a call the destructor commits silently.
  void Commit();

 private:
  Database& db_;
  bool open_ = true;
};

// Writes of a batch that stand or fall together: rows of which a part alone would leave the file without sense.
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
  bool open_ = true;
};

}  // namespace merlu
