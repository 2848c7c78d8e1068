// What connections to SQLite do, heard from outside the program.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <string_view>
#include <utility>

namespace merlu::test {

// Hears the SQL of every connection that is opened while it lives: of each statement that begins, or for each row that
// is read. One at a time.
class HeardSql {
 public:
  enum class Of { kStatements, kRows };
  using Hear = std::function<void(std::string_view sql)>;

  HeardSql(Of of, Hear hear) {
    Ear() = {of == Of::kStatements ? unsigned{SQLITE_TRACE_STMT} : unsigned{SQLITE_TRACE_ROW}, std::move(hear)};
    sqlite3_auto_extension(Entry());
  }
  ~HeardSql() {
    sqlite3_cancel_auto_extension(Entry());
    Ear().second = nullptr;
  }
  HeardSql(const HeardSql&) = delete;
  HeardSql& operator=(const HeardSql&) = delete;

 private:
  using Extension = void (*)();
  static Extension Entry() { return reinterpret_cast<Extension>(&Attach); }
  static int Attach(sqlite3* db, const char**, const void*) {
    return sqlite3_trace_v2(db, Ear().first, &Pass, nullptr);
  }
  static int Pass(unsigned, void*, void* statement, void*) {
    const char* sql = sqlite3_sql(static_cast<sqlite3_stmt*>(statement));
    if (sql != nullptr && Ear().second) Ear().second(sql);
    return 0;
  }
  static std::pair<unsigned, Hear>& Ear() {
    static std::pair<unsigned, Hear> ear;
    return ear;
  }
};

}  // namespace merlu::test
