// What drawing costs: the store is asked after acts, not while the window is drawn.
#include <sqlite3.h>

#include "desktop/acts.h"
#include "driver.h"

namespace merlu::test {
namespace {

long statements_run = 0;

int CountStatement(unsigned, void*, void*, void*) {
  ++statements_run;
  return 0;
}

int TraceNewConnection(sqlite3* db, char**, const void*) {
  return sqlite3_trace_v2(db, SQLITE_TRACE_STMT, CountStatement, nullptr);
}

// Counts the statements of every connection that is opened while it lives.
class CountsStatements {
 public:
  CountsStatements() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(TraceNewConnection)); }
  ~CountsStatements() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(TraceNewConnection)); }
  CountsStatements(const CountsStatements&) = delete;
  CountsStatements& operator=(const CountsStatements&) = delete;
};

TEST(Drawing, asks_the_store_nothing_while_somebody_types) {
  const CountsStatements counts;
  TestRun run;
  run.StartWith("FLA", "X1");
  run.s.db.Close();
  const std::string path = run.folder.path("copy.mdb");  // the run holds its own
  fs::copy_file(run.s.path, path);
  Driver driver(path);
  driver.Start();
  driver.Select("K12345 12017   1001 1FLA      X1");
  driver.Click("cmdEdit");
  driver.Type("txtFLA_HrsOperated", "1");
  ASSERT_GT(statements_run, 0);
  statements_run = 0;
  driver.Type("txtFLA_HrsOperated", "123456");
  driver.app->acts().Redraw();
  driver.Settle();
  EXPECT_EQ(statements_run, 0);
  EXPECT_EQ(driver.Text("txtFLA_HrsOperated"), "123456");
}

}  // namespace
}  // namespace merlu::test
