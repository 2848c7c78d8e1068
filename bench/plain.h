// SQLite itself, with prepared statements and nothing in between, as a good engineer would use it: what the benchmarks
// measure against. It reads the columns that are needed, moves rows in sets where it can, and takes no mutex.
// Failures throw std::runtime_error.
#pragma once

#include <cstdint>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace merlu::bench {

class PlainFile {
 public:
  // Foreign keys are on, as in the program: the same rows are held to the same relations.
  explicit PlainFile(const std::string& path);
  ~PlainFile();
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;

  void Run(const char* sql);

 private:
  friend class PlainStatement;
  sqlite3* db_ = nullptr;
};

class PlainStatement {
 public:
  PlainStatement(PlainFile& file, const std::string& sql);
  ~PlainStatement();
  PlainStatement(PlainStatement&& other) noexcept;
  PlainStatement(const PlainStatement&) = delete;
  PlainStatement& operator=(const PlainStatement&) = delete;

  // Values of the question marks, counted from 1. A text must outlive the step.
  PlainStatement& Bind(int at, std::int64_t value);
  PlainStatement& BindNumber(int at, double value);
  PlainStatement& Bind(int at, const std::string& value);

  bool Step();
  void Reset();
  // A statement without rows, from its first step to its reset.
  void Execute();
  // Every row with every column; the result depends on all of them, so that none is left unread.
  std::size_t ReadAll();
  // The columns of the current row.
  std::size_t ReadRow() const;
  std::int64_t Integer(int column) const;
  std::string Text(int column) const;
  std::string Row() const;

 private:
  sqlite3_stmt* statement_ = nullptr;
};

// Both files hold the same rows in the same order in every table: what is compared has led to the same end.
void RequireSameTables(const std::string& ours, const std::string& plain);

}  // namespace merlu::bench
