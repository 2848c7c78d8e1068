// Drawing runs no SQL: the store is read after acts, not while the window is drawn.
#include "desktop/acts.h"
#include "desktop/model_list.h"
#include "driver.h"
#include "support/heard_sql.h"

namespace merlu::test {
namespace {

TEST(Drawing, asks_the_store_nothing_while_somebody_types) {
  long statements_run = 0;
  const HeardSql heard(HeardSql::Of::kStatements, [&](std::string_view) { ++statements_run; });
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

TEST(Drawing, asks_the_store_nothing_for_docks_and_the_history) {
  long statements_run = 0;
  const HeardSql heard(HeardSql::Of::kStatements, [&](std::string_view) { ++statements_run; });
  TestRun run;
  run.StartWith("FLA", "X1");
  run.AddMonth();
  run.GoTo("FLA", "X1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "745"}, {"txtFLA_Comments", "upset"}});
  const std::string path = run.folder.path("copy.mdb");
  run.s.db.Close();
  for (const char* file : {"", ".history"}) fs::copy_file(run.s.path + file, path + file);
  Driver driver(path);
  driver.Start();
  for (const char* dock : {"mnuRFindings", "mnuRCompleteness", "mnuRStrip"}) driver.Command(dock);
  driver.Select("K12345 12017   1001 1FLA      X1");
  ASSERT_GT(statements_run, 0);
  statements_run = 0;
  driver.app->acts().Redraw();
  driver.app->window()->grab();
  EXPECT_EQ(statements_run, 0) << "the docks";

  int values = 0;
  driver.OnNextModal([&](QWidget* dialog) {
    auto* list = driver.Find<ModelList>("lvwHIS_Steps");
    list->setCurrentIndex(list->model()->index(0, 0));
    driver.Settle();
    statements_run = 0;
    driver.app->acts().Redraw();
    dialog->grab();
    EXPECT_EQ(statements_run, 0) << "the history";
    values = driver.Find<ModelList>("lvwHIS_Values")->model()->rowCount();
    driver.Click("cmdClose");
  });
  driver.Command("mnuRHistory");
  EXPECT_GT(values, 0) << "a step has values";
  EXPECT_TRUE(driver.AllModalsCame());
}

}  // namespace
}  // namespace merlu::test
