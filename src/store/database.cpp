#include "store/database.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <set>
#include <utility>

#include "base/fault.h"
#include "base/text.h"
#include "store/engine.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kSource = kStoreSource;
constexpr int kBusyMilliseconds = 250;  // long enough for a backup's glance at the file, too short to annoy

constexpr std::size_t kMostStatements = 512;

// Makes room among kept statements: those that have not run since the last time go, or all that do not run now.
template <typename Cache>
void ForgetIdle(Cache& cache) {
  const std::size_t most = cache.size() / 2;
  for (const bool all : {false, true}) {
    std::erase_if(cache, [all](const auto& kept) {
      sqlite3_stmt* statement = kept.second.get();
      const bool ran = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_RUN, 1) > 0;
      return (all || !ran) && !sqlite3_stmt_busy(statement);
    });
    if (cache.size() <= most) return;
  }
}

bool IsBoolean(sqlite3_stmt* statement, int column) {
  const char* type = sqlite3_column_decltype(statement, column);
  return type != nullptr && EqualsIgnoringCase(type, "BOOLEAN");
}

// Lets reading statements pass, nothing else.
int ReadersOnly(void*, int action, const char* first, const char* second, const char*, const char*) {
  static const std::set<std::string> kReadingPragmas = {"table_info",      "table_xinfo",      "index_list",
                                                        "index_info",      "foreign_key_list", "foreign_key_check",
                                                        "integrity_check", "quick_check"};
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_RECURSIVE: return SQLITE_OK;
    case SQLITE_FUNCTION:
      return second != nullptr && EqualsIgnoringCase(second, "load_extension") ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_PRAGMA: return first != nullptr && kReadingPragmas.contains(Lower(first)) ? SQLITE_OK : SQLITE_DENY;
    default: return SQLITE_DENY;
  }
}

// By its first word; what follows a WITH may change rows too.
bool ChangesRows(std::string_view sql) {
  constexpr std::string_view kBlanks = " \t\r\n(";
  sql.remove_prefix(std::min(sql.find_first_not_of(kBlanks), sql.size()));
  const std::string_view word = sql.substr(0, sql.find_first_of(kBlanks));
  for (const std::string_view changing : {"INSERT", "UPDATE", "DELETE", "REPLACE", "WITH"})
    if (EqualsIgnoringCase(word, changing)) return true;
  return false;
}

}  // namespace

int RowView::size() const {
  return sqlite3_column_count(statement_);
}
RowView::ColumnType RowView::TypeOf(int c) const {
  switch (sqlite3_column_type(statement_, c)) {
    case SQLITE_NULL: return ColumnType::kNull;
    case SQLITE_INTEGER: return ColumnType::kInteger;
    case SQLITE_FLOAT: return ColumnType::kReal;
    case SQLITE_TEXT: return ColumnType::kText;
    default: return ColumnType::kBlob;
  }
}

bool RowView::IsNull(int c) const {
  return sqlite3_column_type(statement_, c) == SQLITE_NULL;
}
std::int64_t RowView::Integer(int c) const {
  return sqlite3_column_int64(statement_, c);
}
double RowView::Number(int c) const {
  return sqlite3_column_double(statement_, c);
}

std::string_view RowView::Text(int c) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, c));
  return text == nullptr ? std::string_view()
                         : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, c)));
}

Value RowView::At(int c) const {
  switch (sqlite3_column_type(statement_, c)) {
    case SQLITE_NULL: return Null{};
    case SQLITE_INTEGER:
      if (IsBoolean(statement_, c)) return Integer(c) != 0;
      return Integer(c);
    case SQLITE_FLOAT: return Number(c);
    default: return std::string(Text(c));
  }
}

void RowView::Read(int c, bool is_boolean, Value& value) const {
  switch (sqlite3_column_type(statement_, c)) {
    case SQLITE_NULL: value = Null{}; return;
    case SQLITE_INTEGER:
      if (is_boolean)
        value = Integer(c) != 0;
      else
        value = Integer(c);
      return;
    case SQLITE_FLOAT: value = Number(c); return;
    default:
      if (auto* text = std::get_if<std::string>(&value))
        text->assign(Text(c));
      else
        value.emplace<std::string>(Text(c));
  }
}

// A statement between its first step and its reset. A cached statement that is already running (a query
// inside a query) is prepared once more for the inner use.
class Database::Running {
 public:
  template <typename V>
  Running(Database& db, std::string_view sql, const std::vector<V>& values)
      : Running(db, db.Prepare(sql), sql, values) {}
  // `kept` is the statement of that text.
  template <typename V>
  Running(Database& db, const Statement& kept, std::string_view sql, const std::vector<V>& values)
      : db_(db), statement_(kept.get()) {
    if (sqlite3_stmt_busy(statement_)) {
      if (sqlite3_prepare_v2(db.db_, sql.data(), static_cast<int>(sql.size()), &statement_, nullptr) != SQLITE_OK)
        FailIn(db, sql);
      own_.reset(statement_);
    }
    for (std::size_t i = 0; i < values.size(); ++i)
      if (Bind(static_cast<int>(i) + 1, values[i]) != SQLITE_OK) FailBinding();
  }
  ~Running() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

  bool Step() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    FailIn(db_, sqlite3_sql(statement_));
  }
  // Of a statement that failed, or could not be prepared.
  [[noreturn]] static void FailIn(const Database& db, std::string_view sql) {
    const int code = sqlite3_extended_errcode(db.db_);
    if (code == SQLITE_ERROR) ThrowMisunderstood(db.db_, sql, sqlite3_errmsg(db.db_));
    db.Fail(code);
  }
  RowView row() const { return RowView(statement_); }
  sqlite3_stmt* statement() const { return statement_; }

 private:
  int Bind(int at, const Value* value) { return Bind(at, *value); }
  int Bind(int at, const Value& value) {
    if (const auto* b = std::get_if<bool>(&value)) return sqlite3_bind_int(statement_, at, *b ? 1 : 0);
    if (const auto* i = std::get_if<std::int64_t>(&value)) return sqlite3_bind_int64(statement_, at, *i);
    if (const auto* d = std::get_if<double>(&value)) return sqlite3_bind_double(statement_, at, *d);
    if (const auto* s = std::get_if<std::string>(&value))
      return sqlite3_bind_text64(statement_, at, s->data(), s->size(), SQLITE_STATIC, SQLITE_UTF8);
    return sqlite3_bind_null(statement_, at);
  }
  // The destructor does not run when the constructor fails, so the statement is reset here.
  [[noreturn]] void FailBinding() {
    const int code = sqlite3_extended_errcode(db_.db_);
    sqlite3_clear_bindings(statement_);
    db_.Fail(code);
  }

  int Bind(int at, const StoredValue& value) {
    using Kind = StoredValue::Kind;
    const auto size = static_cast<sqlite3_uint64>(value.bytes.size());
    // an empty text is no Null
    const char* bytes = value.bytes.data() == nullptr ? "" : value.bytes.data();
    switch (value.kind) {
      case Kind::kNull: break;
      case Kind::kInteger: return sqlite3_bind_int64(statement_, at, value.integer);
      case Kind::kReal: return sqlite3_bind_double(statement_, at, value.real);
      case Kind::kText: return sqlite3_bind_text64(statement_, at, bytes, size, SQLITE_STATIC, SQLITE_UTF8);
      case Kind::kBlob: return sqlite3_bind_blob64(statement_, at, bytes, size, SQLITE_STATIC);
    }
    return sqlite3_bind_null(statement_, at);
  }

  Database& db_;
  sqlite3_stmt* statement_ = nullptr;
  std::unique_ptr<sqlite3_stmt, Finalizer> own_;
};

void Database::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

Database::~Database() {
  Close();
}

void Database::Fail(int code) const {
  if (code == SQLITE_READONLY_DBMOVED)
    throw Fault(fault_number::kPathNotFound, kSource, "The database file has been moved or deleted.");
  const bool no_journal = (code & 0xFF) == SQLITE_CANTOPEN && !path_.empty() && !CanWriteFolder(FolderOf(path_));
  if (code == SQLITE_READONLY_DIRECTORY || no_journal)
    throw Fault(fault_number::kReadOnly, kSource, "The folder of the database cannot be written to.");
  // an open that fails has prepared nothing yet
  if (db_ != nullptr && !cache_.empty()) ThrowFailedDisk(code, sqlite3_system_errno(db_));
  FailWith(code, db_ != nullptr ? sqlite3_errmsg(db_) : sqlite3_errstr(code));
}

void Database::OpenWith(const std::string& path, int flags) {
  Close();
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error))
    throw Fault(fault_number::kPathNotFound, kSource, "Could not find file '" + path + "'.");
  const bool writes = (flags & SQLITE_OPEN_READWRITE) != 0;
  try {
    // an absolute path is never taken for an address
    OpenFile(std::filesystem::absolute(path, error).string(), flags);
    if (writes && (sqlite3_db_readonly(db_, "main") == 1 || IsMarkedReadOnly(path))) Fail(SQLITE_READONLY);
    if (!writes) Distrust(db_);
    const auto taken_back = [](void* self) {
      auto& db = *static_cast<Database*>(self);
      ++db.unseen_changes_;
      db.recorder_.BackTo(0);
    };
    sqlite3_rollback_hook(db_, taken_back, this);
    Execute("PRAGMA foreign_keys=ON");
    // a journal that reappears after a power cut would roll back what was reported as saved
    Execute("PRAGMA synchronous=EXTRA");
    Query("SELECT COUNT(*) FROM sqlite_master");  // reads the header: a foreign or a locked file shows here
    if (writes) LeaveWriteAheadLog();
    data_version_ = ToInteger(Single("PRAGMA data_version"));
  } catch (const Fault& fault) {
    Close();
    if (fault.number == fault_number::kInUseTable) throw Fault(fault_number::kInUse, kSource, fault.description);
    throw;
  }
  path_ = path;
}

// Everything that looks at an inventory expects the one file. What a log holds comes into it.
void Database::LeaveWriteAheadLog() {
  if (NullToEmpty(Single("PRAGMA journal_mode")) != "wal") return;
  try {
    Query("PRAGMA journal_mode=DELETE");
  } catch (const Fault& fault) {
    if (fault.number != fault_number::kInUseTable) throw;
    throw Fault(fault_number::kInUse, kSource,
                "Another program has the database open and keeps what it writes in a file beside it.");
  }
}

// Opens a connection, with nothing read yet. A name that is empty is a private file.
void Database::OpenFile(const std::string& name, int flags) {
  const int code = sqlite3_open_v2(name.c_str(), &db_,
                                   flags | SQLITE_OPEN_URI | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code != SQLITE_OK) Fail(code);
  AddIdCollation(db_);
  RunNothingOfTheFile(db_);
  sqlite3_busy_timeout(db_, kBusyMilliseconds);
}

void Database::Open(const std::string& path) {
  OpenWith(path, SQLITE_OPEN_READWRITE);
}

void Database::OpenReadOnly(const std::string& path) {
  OpenWith(path, SQLITE_OPEN_READONLY);
}

void Database::OpenPrivateCopy(const std::string& path) {
  OpenImage(ReadImage(path), Use::kRead);
  path_ = path;
}

void Database::OpenCopyOf(Database& other) {
  Close();
  path_.clear();
  try {
    OpenFile(":memory:", SQLITE_OPEN_READWRITE);  // files attached to it are none in memory
    other.CopyPages(db_, "main");
  } catch (const Fault&) {
    Close();
    throw;
  }
}

void Database::CopyTo(const std::string& path) {
  sqlite3* copy = nullptr;
  std::error_code error;
  int code = sqlite3_open_v2(std::filesystem::absolute(path, error).c_str(), &copy,
                             SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> owner(copy, sqlite3_close_v2);
  if (code != SQLITE_OK) FailWith(code, sqlite3_errstr(code));
  sqlite3_exec(copy, "PRAGMA synchronous=OFF; PRAGMA journal_mode=OFF", nullptr, nullptr, nullptr);
  CopyPages(copy, "main");
  // a copy of a file with a write-ahead log would ask for one too
  if (NullToEmpty(Single("PRAGMA journal_mode")) == "delete") return;
  code = sqlite3_exec(copy, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) FailWith(code, sqlite3_errmsg(copy));
}

void Database::CopyPages(sqlite3* to, const std::string& schema) {
  // the beginning of a read waits for a lock, which the copy itself would not
  const bool begins = sqlite3_get_autocommit(db_) != 0;
  if (begins) Execute("BEGIN");
  int code = SQLITE_OK;
  try {
    Query("SELECT COUNT(*) FROM sqlite_master");
    sqlite3_backup* backup = sqlite3_backup_init(to, schema.c_str(), db_, "main");
    if (backup != nullptr) sqlite3_backup_step(backup, -1);
    code = backup != nullptr ? sqlite3_backup_finish(backup) : sqlite3_extended_errcode(to);
  } catch (const Fault&) {
    if (begins) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
  if (begins) Execute("COMMIT");
  if (code != SQLITE_OK) FailWith(code, sqlite3_errmsg(to));
}

void Database::OpenImage(const Image& image, Use use) {
  Close();
  path_.clear();
  const bool writes = use == Use::kPrivateCopy;
  int code = sqlite3_open_v2(":memory:", &db_,
                             SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX,
                             nullptr);
  try {
    if (code != SQLITE_OK) Fail(code);
    const auto size = static_cast<sqlite3_int64>(image.size);
    unsigned char* bytes = image.bytes.get();
    unsigned flags = SQLITE_DESERIALIZE_READONLY;
    if (writes) {
      bytes = static_cast<unsigned char*>(sqlite3_malloc64(image.size));
      if (bytes == nullptr) throw std::bad_alloc();
      std::memcpy(bytes, image.bytes.get(), image.size);
      flags = SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE;
    } else {
      image_ = image;
    }
    code = sqlite3_deserialize(db_, "main", bytes, size, size, flags);
    if (code != SQLITE_OK) Fail(code);
    AddIdCollation(db_);
    RunNothingOfTheFile(db_);
    Distrust(db_);
    if (writes) Execute("PRAGMA query_only=OFF");
    const auto count = [](void* unseen) { ++*static_cast<std::int64_t*>(unseen); };
    sqlite3_rollback_hook(db_, count, &unseen_changes_);
    Execute("PRAGMA foreign_keys=ON");
    Query("SELECT COUNT(*) FROM sqlite_master");
    data_version_ = ToInteger(Single("PRAGMA data_version"));
  } catch (...) {
    Close();
    throw;
  }
}

Database::Attached::Attached(Database& db, Database& other, std::string schema) : db_(db), schema_(std::move(schema)) {
  db.Execute("ATTACH DATABASE '' AS " + schema_);
  try {
    other.CopyPages(db.db_, schema_);
  } catch (const Fault&) {
    sqlite3_exec(db.db_, ("DETACH DATABASE " + schema_).c_str(), nullptr, nullptr, nullptr);
    throw;
  }
}

Database::Attached::~Attached() {
  try {
    db_.cache_.clear();  // a statement that reads the file would keep it
    db_.Execute("DETACH DATABASE " + schema_);
  } catch (const Fault&) {
    // the connection's end detaches it
  }
}

void Database::Close() {
  if (db_ == nullptr) return;
  try {
    if (!sqlite3_get_autocommit(db_)) EndBatch();
  } catch (const Fault&) {
    // there is nobody to report it to
  }
  cache_.clear();  // last: a statement that is left keeps the connection, and its lock, alive
  recorder_.Stop();
  sqlite3_close_v2(db_);
  db_ = nullptr;
  image_ = {};
  batches_ = 0;
}

bool Database::IsReadOnly(const char* schema) const {
  const char* file = sqlite3_db_filename(db_, schema);
  return sqlite3_db_readonly(db_, schema) == 1 || (file != nullptr && IsMarkedReadOnly(file));
}

const Database::Statement& Database::Prepare(std::string_view sql) {
  if (db_ == nullptr) throw Fault(fault_number::kNotSet, kSource, "No inventory is open.");
  if (const auto found = cache_.find(sql); found != cache_.end()) return found->second;
  if (cache_.size() >= kMostStatements) ForgetIdle(cache_);
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(db_, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement,
                         nullptr) != SQLITE_OK)
    Running::FailIn(*this, sql);
  return cache_.emplace(std::string(sql), Statement(statement, Finalizer())).first->second;
}

bool Database::FirstRow(KeptQuery& query, const std::vector<const Value*>& values, const std::vector<bool>& booleans,
                        std::int64_t& rowid, Values& row) {
  Statement statement = query.statement.lock();
  if (statement == nullptr) query.statement = statement = Prepare(query.sql);
  Running run(*this, statement, query.sql, values);
  if (!run.Step()) return false;
  rowid = run.row().Integer(0);
  row.resize(booleans.size());
  for (std::size_t i = 0; i < row.size(); ++i) run.row().Read(static_cast<int>(i) + 1, booleans[i], row[i]);
  return true;
}

std::vector<bool> Database::BooleansOf(std::string_view sql) {
  sqlite3_stmt* statement = Prepare(sql).get();
  std::vector<bool> booleans;
  for (int c = 0; c < sqlite3_column_count(statement); ++c) booleans.push_back(IsBoolean(statement, c));
  return booleans;
}

template <typename V>
int Database::Run(std::string_view sql, const std::vector<V>& values) {
  const std::size_t mark = recorder_.Mark();
  try {
    Running run(*this, sql, values);
    while (run.Step()) {
    }
  } catch (const Fault&) {
    recorder_.BackTo(mark);  // the engine takes back what the statement did
    throw;
  }
  return sqlite3_changes(db_);
}

int Database::Execute(std::string_view sql, const Values& values) {
  if (!recorder_.IsOn() || !sqlite3_get_autocommit(db_) || !ChangesRows(sql)) return Run(sql, values);
  WriteBatch batch(*this);  // what is recorded is written in a batch
  const int changed = Run(sql, values);
  batch.Commit();
  return changed;
}

int Database::ExecuteStored(std::string_view sql, const std::vector<StoredValue>& values) {
  return Run(sql, values);
}

int Database::ForEach(std::string_view sql, const Values& values, const std::function<void(const RowView&)>& each) {
  Running run(*this, sql, values);
  int count = 0;
  for (; run.Step(); ++count) each(run.row());
  return count;
}

Rows Database::Query(std::string_view sql, const Values& values) {
  Running run(*this, sql, values);
  Rows result;
  const int width = sqlite3_column_count(run.statement());
  for (int c = 0; c < width; ++c) result.columns.emplace_back(sqlite3_column_name(run.statement(), c));
  while (run.Step()) {
    Values row;
    row.reserve(static_cast<std::size_t>(width));
    for (int c = 0; c < width; ++c) row.push_back(run.row().At(c));
    result.rows.push_back(std::move(row));
  }
  return result;
}

Value Database::Single(std::string_view sql, const Values& values) {
  Running run(*this, sql, values);
  return run.Step() ? run.row().At(0) : Value();
}

Rows Database::ReadOnlyQuery(const std::string& sql) {
  if (db_ == nullptr) throw Fault(fault_number::kNotSet, kSource, "No inventory is open.");
  // the text's own preparation is judged; a cached statement would not be
  sqlite3_set_authorizer(db_, ReadersOnly, nullptr);
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  const int code = sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, &tail);
  const std::string message = code == SQLITE_OK ? "" : sqlite3_errmsg(db_);
  sqlite3_set_authorizer(db_, nullptr, nullptr);
  const std::unique_ptr<sqlite3_stmt, Finalizer> owner(statement);
  if (code == SQLITE_AUTH) throw Fault(fault_number::kReadOnly, kSource, "Only statements that read are allowed.");
  if (code == SQLITE_ERROR) ThrowMisunderstood(db_, sql, message);
  if (code != SQLITE_OK) throw Fault(FaultNumber(code), kSource, message);
  if (statement == nullptr || !sqlite3_stmt_readonly(statement) ||
      std::string_view(tail).find_first_not_of(" \t\r\n;") != std::string_view::npos)
    throw Fault(fault_number::kReadOnly, kSource, "Only one statement that reads is allowed.");
  Rows result;
  const int width = sqlite3_column_count(statement);
  for (int c = 0; c < width; ++c) result.columns.emplace_back(sqlite3_column_name(statement, c));
  int step = 0;
  while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
    Values& row = result.rows.emplace_back();
    for (int c = 0; c < width; ++c) row.push_back(RowView(statement).At(c));
  }
  if (step != SQLITE_DONE) Fail(sqlite3_extended_errcode(db_));
  return result;
}

bool Database::HasTable(std::string_view name) {
  return !IsNull(
      Single("SELECT 1 FROM sqlite_master WHERE type='table' AND name=? COLLATE NOCASE", {std::string(name)}));
}

std::int64_t Database::ChangeCount() const {
  return db_ == nullptr ? 0 : sqlite3_total_changes64(db_) + unseen_changes_;
}

void Database::NoticeOthers() {
  if (db_ == nullptr) return;
  try {
    const std::int64_t version = ToInteger(Single("PRAGMA data_version"));
    if (std::exchange(data_version_, version) == version) return;
    ++unseen_changes_;
    TellAllChanged();
  } catch (const Fault&) {
    // the next statement meets the same failure and reports it
  }
}

Database::TableChanges& Database::ChangesOf(const std::string& table) {
  return tables_.try_emplace(Lower(table), *this).first->second;
}

int Database::ExecuteOn(TableChanges& table, std::string_view sql, const Values& values) {
  const std::int64_t before = ChangeCount();
  const int changed = Execute(sql, values);
  // these rows and nothing besides: no key was changed that rows of other tables follow
  if (ChangeCount() == before + changed) table.own_ += changed, single_rows_ += changed;
  return changed;
}

WriteBatch::WriteBatch(Database& db) : db_(db) {
  if (db_.batches_ == 0) db_.BeginBatch();
  ++db_.batches_;
}

void WriteBatch::Commit() {
  if (!open_) return;
  open_ = false;
  if (--db_.batches_ == 0) db_.EndBatch();
}

WriteBatch::~WriteBatch() {
  try {
    if (db_.IsOpen()) Commit();
  } catch (const Fault&) {
    // the caller is already on its way out with the fault that matters
  }
}

AllOrNothing::AllOrNothing(Database& db) : db_(db), mark_(db.recorder_.Mark()) {
  db_.Execute("SAVEPOINT all_or_nothing");
}

void AllOrNothing::Keep() {
  open_ = false;
  db_.Execute("RELEASE all_or_nothing");
}

AllOrNothing::~AllOrNothing() {
  // the engine has rolled everything back when it ended the batch itself
  if (!open_ || !db_.IsOpen() || sqlite3_get_autocommit(db_.db_)) return;
  sqlite3_exec(db_.db_, "ROLLBACK TO all_or_nothing; RELEASE all_or_nothing", nullptr, nullptr, nullptr);
  db_.recorder_.BackTo(mark_);
  ++db_.unseen_changes_;
}

}  // namespace merlu
