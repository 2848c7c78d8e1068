// Journeys by script: every tests/scripts/*.merlu, and the examples, against their expected replies. A
// script runs in a folder of its own that holds a fresh inventory.mdb; {folder} stands for that folder in
// the replies. With MERLU_UPDATE_EXPECTED set, the expected replies are written instead.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "script/player.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Too long to keep every reply: played to the end instead.
const std::string kYear = "year-of-all-types";

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string Replace(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
    text.replace(at, what.size(), with);
  return text;
}

std::vector<fs::path> Scripts() {
  std::vector<fs::path> scripts;
  for (const char* folder : {"tests/scripts", "examples"})
    for (const auto& entry : fs::directory_iterator(fs::path(MERLU_SOURCE_FOLDER) / folder))
      if (entry.path().extension() == ".merlu" && entry.path().stem() != kYear) scripts.push_back(entry.path());
  std::sort(scripts.begin(), scripts.end());
  return scripts;
}

std::string Play(const fs::path& script, const TemporaryFolder& folder, int& status) {
  CopyTemplate(folder);
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  std::istringstream in(Replace(ReadFile(script), "{folder}", folder.path()));
  std::ostringstream out;
  PlayOptions options;
  options.settings_file = folder.path("settings.ini");
  options.clock = DateTime{2017, 3, 5, 14, 2, 0};
  status = Player(in, out, options).Run();
  fs::current_path(before);
  return Replace(out.str(), folder.path(), "{folder}");
}

class Script : public testing::TestWithParam<fs::path> {};

TEST_P(Script, gets_the_expected_replies) {
  const TemporaryFolder folder;
  int status = 0;
  const std::string replies = Play(GetParam(), folder, status);
  const fs::path expected =
      fs::path(MERLU_SOURCE_FOLDER) / "tests/scripts" / (GetParam().stem().string() + ".expected");
  if (std::getenv("MERLU_UPDATE_EXPECTED") != nullptr) std::ofstream(expected) << replies;
  std::istringstream got(replies), wanted(ReadFile(expected));
  std::string got_line, wanted_line;
  for (int line = 1; std::getline(wanted, wanted_line); ++line) {
    ASSERT_TRUE(std::getline(got, got_line)) << "no reply " << line;
    ASSERT_EQ(got_line, wanted_line) << "reply " << line;
  }
  EXPECT_FALSE(std::getline(got, got_line)) << got_line;
}

TEST(YearScript, over_every_type_is_never_refused_and_ends_clean) {
  const TemporaryFolder folder;
  int status = 1;
  const std::string replies = Play(fs::path(MERLU_SOURCE_FOLDER) / "examples" / (kYear + ".merlu"), folder, status);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(replies.find("QC completed with"), std::string::npos);
  EXPECT_EQ(ToInteger(RawValue(folder.path("inventory.mdb"), "SELECT COUNT(*) FROM QC")), 0);
  EXPECT_EQ(ToInteger(RawValue(folder.path("inventory.mdb"),
                               "SELECT COUNT(*) FROM EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL")),
            15 * 12);
}

INSTANTIATE_TEST_SUITE_P(journeys, Script, testing::ValuesIn(Scripts()), [](const auto& info) {
  std::string name = info.param.stem().string();
  for (char& c : name)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  return name;
});

// ---- around the commands ----

std::string PlayText(const std::string& text, const TemporaryFolder& folder, int& status) {
  std::istringstream in(text);
  std::ostringstream out;
  PlayOptions options;
  options.settings_file = folder.path("settings.ini");
  status = Player(in, out, options).Run();
  return out.str();
}

TEST(ScriptText, may_begin_with_a_byte_order_mark) {
  const TemporaryFolder folder;
  int status = 1;
  const std::string replies = PlayText(
      "\xEF\xBB\xBF"
      "forms\nforms\n",
      folder, status);
  EXPECT_EQ(status, 0) << replies;
}

TEST(ScriptText, whose_answers_cannot_be_written_is_not_played_on) {
  const TemporaryFolder folder;
  CopyTemplate(folder);
  std::istringstream in("start " + folder.path("inventory.mdb") + "\nclock \"2017-03-05 14:02\"\n");
  std::ofstream out("/dev/full");
  PlayOptions options;
  options.settings_file = folder.path("settings.ini");
  EXPECT_EQ(Player(in, out, options).Run(), 1);
}

TEST(ScriptFile, answers_an_open_dialog_with_a_whole_path_that_is_there) {
  const TemporaryFolder folder;
  CopyTemplate(folder, "one.MDB");
  int status = 1;
  const std::string gone = folder.path("gone.mdb");
  std::string replies =
      PlayText("start " + folder.path("nothing.mdb") + "\nfile " + gone + "\nclick mnuFileSelectDatabase\nsession\n",
               folder, status);
  EXPECT_NE(replies.find("no such file: " + gone), std::string::npos) << replies;
  replies = PlayText("answer Cancel\nstart " + folder.path("nothing.mdb") + "\nfile " + folder.path("sub/../one") +
                         "\nclick mnuFileSelectDatabase\nset txtUserID 1\n",
                     folder, status);
  EXPECT_NE(replies.find("\"modal\":\"frmNewUser\""), std::string::npos) << replies;
}

TEST(ScriptFile, of_a_name_that_is_no_text_is_opened_and_remembered) {
  const TemporaryFolder folder;
  const std::string name = "caf\xE9.mdb";
  CopyTemplate(folder, name);
  Raw(folder.path(name), {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  int status = 1;
  PlayText("start " + folder.path(name) + "\n", folder, status);
  EXPECT_EQ(status, 0);
  const std::string replies = PlayText("start\nsession\n", folder, status);
  EXPECT_NE(replies.find("\"UserID\":\"77\""), std::string::npos) << replies;
}

}  // namespace
}  // namespace merlu::test
