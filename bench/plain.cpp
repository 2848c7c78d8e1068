#include "plain.h"

#include <sqlite3.h>

#include <stdexcept>
#include <string_view>
#include <utility>

namespace merlu::bench {
namespace {

[[noreturn]] void Fail(sqlite3* db) {
  throw std::runtime_error(std::string("plain side: ") + sqlite3_errmsg(db));
}

std::size_t ReadColumn(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL: return 1;
    case SQLITE_INTEGER: return static_cast<std::size_t>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT: return static_cast<std::size_t>(sqlite3_column_double(statement, column) + 2000);
    default: {
      const auto* text = sqlite3_column_text(statement, column);
      return static_cast<std::size_t>(sqlite3_column_bytes(statement, column)) + text[0];
    }
  }
}

}  // namespace

PlainFile::PlainFile(const std::string& path) {
  if (sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) Fail(db_);
  Run("PRAGMA foreign_keys=ON");
}

PlainFile::~PlainFile() {
  sqlite3_close(db_);
}

void PlainFile::Run(const char* sql) {
  if (sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(db_);
}

PlainStatement::PlainStatement(PlainFile& file, const std::string& sql) {
  if (sqlite3_prepare_v3(file.db_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement_, nullptr) != SQLITE_OK)
    Fail(file.db_);
}

PlainStatement::~PlainStatement() {
  sqlite3_finalize(statement_);
}

PlainStatement::PlainStatement(PlainStatement&& other) noexcept
    : statement_(std::exchange(other.statement_, nullptr)) {}

PlainStatement& PlainStatement::Bind(int at, std::int64_t value) {
  sqlite3_bind_int64(statement_, at, value);
  return *this;
}

PlainStatement& PlainStatement::BindNumber(int at, double value) {
  sqlite3_bind_double(statement_, at, value);
  return *this;
}

PlainStatement& PlainStatement::Bind(int at, const std::string& value) {
  sqlite3_bind_text(statement_, at, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
  return *this;
}

bool PlainStatement::Step() {
  const int code = sqlite3_step(statement_);
  if (code != SQLITE_ROW && code != SQLITE_DONE) Fail(sqlite3_db_handle(statement_));
  return code == SQLITE_ROW;
}

void PlainStatement::Reset() {
  sqlite3_reset(statement_);
}

void PlainStatement::Execute() {
  Step();
  Reset();
}

std::size_t PlainStatement::ReadAll() {
  std::size_t sum = 0;
  while (Step()) sum += ReadRow();
  Reset();
  return sum;
}

std::size_t PlainStatement::ReadRow() const {
  std::size_t sum = 0;
  const int width = sqlite3_column_count(statement_);
  for (int i = 0; i < width; ++i) sum += ReadColumn(statement_, i);
  return sum;
}

std::int64_t PlainStatement::Integer(int column) const {
  return sqlite3_column_int64(statement_, column);
}

// The row that it stands on, byte for byte.
std::string PlainStatement::Row() const {
  std::string row;
  const int width = sqlite3_column_count(statement_);
  for (int i = 0; i < width; ++i) {
    row += static_cast<char>('0' + sqlite3_column_type(statement_, i));
    row += Text(i);
    row += '\n';
  }
  return row;
}

std::string PlainStatement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return text == nullptr ? std::string() : std::string(text);
}

void RequireSameTables(const std::string& ours, const std::string& plain) {
  PlainFile left(ours), right(plain);
  // the program's start makes a table of its own
  PlainStatement tables(right, "SELECT name FROM sqlite_schema WHERE type='table' AND name NOT LIKE 'sqlite%'");
  while (tables.Step()) {
    const std::string query = "SELECT * FROM [" + tables.Text(0) + "] ORDER BY rowid";
    PlainStatement mine(left, query), other(right, query);
    bool more = true;
    while (more) {
      more = mine.Step();
      if (more != other.Step() || (more && mine.Row() != other.Row()))
        throw std::runtime_error("the two sides do not leave the same rows in " + tables.Text(0));
    }
  }
}

}  // namespace merlu::bench
