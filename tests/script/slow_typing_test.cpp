// A script that is typed by hand, or by another program that waits between its commands; where the focus is.
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

TEST(ScriptFocus, goes_from_a_dock_to_the_field_that_is_typed_into) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  const std::string key = run.Key("", "", 1), path = run.s.path;
  run.s.companion.Close();
  run.s.db.Close();
  run.s.note.Release();
  std::istringstream in("start \"" + path + "\"\nclick mnuRFindings\nselect \"" + key +
                        "\"\nset txtFND_Filter gas\nsession\nclick cmdEdit\nset txtFND_Filter oil\n"
                        "set txtSTRUCTURE_ProdNG 2\nsession\n");
  std::ostringstream out;
  PlayOptions options;
  options.settings_file = run.folder.path("settings.ini");
  Player player(in, out, options);
  player.Run();
  std::vector<std::string> focus;
  std::istringstream replies(out.str());
  for (std::string line; std::getline(replies, line);)
    if (const Json reply = Json::parse(line); reply.contains("focus")) focus.push_back(reply["focus"]);
  EXPECT_EQ(focus, (std::vector<std::string>{"txtFND_Filter", "txtSTRUCTURE_ProdNG"})) << out.str();
}

}  // namespace
}  // namespace merlu::test
