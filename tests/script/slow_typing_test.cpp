// A script that is typed by hand, or by another program that waits between its commands.
#include <gtest/gtest.h>

#include <sstream>

#include "history/notes.h"
#include "script/player.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

TEST(ScriptTypedSlowly, keeps_what_was_typed_last_while_it_waits) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  const std::string key = run.Key("FLA", "F1", 1), path = run.s.path;
  run.s.companion.Close();
  run.s.db.Close();
  run.s.note.Release();
  std::istringstream in("start \"" + path + "\"\nselect \"" + key +
                        "\"\nclick cmdEdit\nset txtFLA_HrsOperated 1\nset txtFLA_VolFlared 2\nsession\n");
  std::ostringstream out;
  PlayOptions options;
  options.settings_file = run.folder.path("settings.ini");
  int waits = 0;
  options.wait = [&waits](int) { return ++waits < 0; };
  Player player(in, out, options);
  player.Run();
  EXPECT_NE(out.str().find("\"n\":6"), std::string::npos) << out.str();
  EXPECT_EQ(waits, 1);
  const std::vector<Draft> drafts = Drafts(player.session().companion);
  ASSERT_EQ(drafts.size(), 1u);
  ASSERT_EQ(drafts[0].fields.size(), 2u);
  EXPECT_EQ(drafts[0].fields[1].entered, "2");
}

}  // namespace
}  // namespace merlu::test
