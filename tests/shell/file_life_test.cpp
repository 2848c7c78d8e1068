#include "shell/file_life.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "store/files.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// ---- opening another database ----

class OtherDatabase : public testing::Test {
 protected:
  OtherDatabase() {
    run.StartWith("FLA", "F1");
    first = run.s.path;
    second = CopyTemplate(run.folder, "second.mdb");
    Raw(second, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME) VALUES ('77','Second')",
                 "INSERT INTO SYS_CONFIG VALUES (2016,2,0)"});
  }
  void ExpectFirst() {
    EXPECT_EQ(run.settings["Options/DBloc"], first);
    EXPECT_EQ(run.s.path, first);
    EXPECT_TRUE(run.s.db.IsOpen());
    EXPECT_EQ(run.s.current.EquipID, "F1");
    EXPECT_TRUE(run.s.desk.Find("frmFLA")->visible);
  }
  TestRun run;
  std::string first, second;
};

TEST_F(OtherDatabase, is_asked_for_among_files_of_its_kind) {
  run.Click("mnuFileSelectDatabase");
  ASSERT_EQ(run.file_questions.size(), 1u);
  const FileQuestion& question = run.file_questions[0];
  EXPECT_EQ(question.kind, FileQuestion::Kind::kOpen);
  EXPECT_EQ(question.title, "MERLU-2017 - Locate Database");
  EXPECT_EQ(question.filter_name, "MERLU Database");
  EXPECT_EQ(question.pattern, "*.MDB");
  EXPECT_EQ(question.extension, ".MDB");
}

TEST_F(OtherDatabase, that_is_not_chosen_changes_nothing) {
  run.files = {""};
  run.Click("mnuFileSelectDatabase");
  ExpectFirst();
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(OtherDatabase, restarts_the_program_on_it_and_is_remembered) {
  run.files = {second};
  run.Click("mnuFileSelectDatabase");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.settings["Options/DBloc"], second);
  EXPECT_EQ(run.s.path, second);
  EXPECT_FALSE(run.s.ended);
  EXPECT_FALSE(run.s.desk.Find("frmFLA")->visible);
  EXPECT_TRUE(run.s.main->visible);
  EXPECT_EQ(run.Text("txtUSER_Company"), "Second");
  EXPECT_EQ(run.s.year, 2016);
  EXPECT_EQ(run.s.mode, Mode::kDesc);
}

TEST_F(OtherDatabase, of_the_version_before_is_refused_and_not_remembered) {
  Raw(second, {"DROP TABLE EA_LOA"});
  const std::string before = FileBytes(second);
  run.files = {second};
  run.Click("mnuFileSelectDatabase");
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text,
            "You are trying to open a previous version of the MERLU database. If you would like to use your "
            "previous MERLU data, you must "
            "request your 2014 files from RIMA, because the MERLU 2017 program structure is slightly "
            "different. Then you will need to "
            "import the data.");
  EXPECT_EQ(run.boxes[0].title, "Data Validation");
  EXPECT_EQ(run.boxes[0].icon, Icon::kWarning);
  EXPECT_EQ(run.boxes[0].buttons, std::vector<Button>{Button::kOK});
  ExpectFirst();
  EXPECT_EQ(FileBytes(second), before);
}

TEST_F(OtherDatabase, of_the_version_before_is_refused_also_when_it_is_read_only) {
  Raw(second, {"DROP TABLE EA_LOA"});
  fs::permissions(second, fs::perms::owner_read);
  run.files = {second};
  run.Click("mnuFileSelectDatabase");
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].title, "Data Validation");
  ExpectFirst();
}

TEST_F(OtherDatabase, opens_also_when_it_cannot_be_remembered) {
  run.settings_fail = true;
  run.files = {second};
  run.Click("mnuFileSelectDatabase");
  EXPECT_EQ(run.TakeBoxes(), Texts{"The settings cannot be written. 75"});
  EXPECT_EQ(run.s.path, second);
  EXPECT_TRUE(run.s.db.IsOpen());
}

TEST_F(OtherDatabase, that_is_no_database_is_remembered_and_fails_at_the_start) {
  const std::string text(3000, 'x');
  std::ofstream(second, std::ios::trunc) << text;
  run.files = {second};
  run.Click("mnuFileSelectDatabase");
  ASSERT_EQ(run.boxes.size(), 2u);
  EXPECT_EQ(run.boxes[1].buttons, (std::vector<Button>{Button::kRetry, Button::kCancel}));
  EXPECT_EQ(run.settings["Options/DBloc"], second);
  EXPECT_FALSE(run.s.db.IsOpen());
  EXPECT_TRUE(run.s.tree.nodes.empty());
  EXPECT_FALSE(run.s.desk.Find("frmFLA")->visible);
  EXPECT_EQ(FileBytes(second), text);
}

TEST_F(OtherDatabase, of_an_operator_that_is_not_known_asks_for_it) {
  const std::string fresh = CopyTemplate(run.folder, "fresh.mdb");
  run.files = {fresh};
  run.Click("mnuFileSelectDatabase");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Sorry, cannot proceed without User Information - MERLU is shutting down now..."});
  EXPECT_TRUE(run.s.ended);
}

TEST_F(OtherDatabase, cannot_be_chosen_while_editing) {
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotClick("mnuFileSelectDatabase"), "is disabled");
  EXPECT_EQ(run.WhyNotClick("mnuFileCreateNewDB"), "is disabled");
}

TEST_F(OtherDatabase, may_be_the_same_one_again) {
  run.files = {first};
  run.Click("mnuFileSelectDatabase");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.s.path, first);
  EXPECT_EQ(run.s.mode, Mode::kActv);
}

// ---- making an empty one ----

class EmptyDatabase : public testing::Test {
 protected:
  EmptyDatabase() {
    run.Start();
    fs::create_directory(target);
  }
  TestRun run;
  std::string target = run.folder.path("target");
};

TEST_F(EmptyDatabase, is_a_copy_of_the_template_in_the_folder_that_was_chosen) {
  run.files = {target};
  run.Click("mnuFileCreateNewDB");
  EXPECT_EQ(run.folder_prompts, Texts{"Select a Folder for the new MERLU database..."});
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text, "New database successfully created:\n" + target + "/MERLU.mdb");
  EXPECT_EQ(run.boxes[0].title, "MERLU-2017");
  EXPECT_EQ(run.boxes[0].icon, Icon::kInfo);
  EXPECT_EQ(FileBytes(target + "/MERLU.mdb"), FileBytes(TemplatePath()));
}

TEST_F(EmptyDatabase, leaves_the_open_one_open_and_the_setting_alone) {
  const std::string path = run.s.path;
  run.files = {target};
  run.Click("mnuFileCreateNewDB");
  EXPECT_EQ(run.s.path, path);
  EXPECT_EQ(run.settings["Options/DBloc"], path);
  EXPECT_EQ(run.s.current.UserID, "12345");
}

TEST_F(EmptyDatabase, made_twice_in_one_folder_gets_a_number_and_overwrites_nothing) {
  run.files = {target, target + "/", target};
  run.Click("mnuFileCreateNewDB");
  Raw(target + "/MERLU.mdb", {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  const std::string kept = FileBytes(target + "/MERLU.mdb");
  run.Click("mnuFileCreateNewDB");
  run.Click("mnuFileCreateNewDB");
  EXPECT_EQ(run.TakeBoxes(), (Texts{"New database successfully created:\n" + target + "/MERLU.mdb",
                                    "New database successfully created:\n" + target + "/MERLU1.mdb",
                                    "New database successfully created:\n" + target + "/MERLU2.mdb"}));
  EXPECT_EQ(FileBytes(target + "/MERLU.mdb"), kept);
  EXPECT_EQ(FileBytes(target + "/MERLU1.mdb"), FileBytes(TemplatePath()));
}

TEST_F(EmptyDatabase, without_a_folder_is_not_made) {
  run.files = {""};
  run.Click("mnuFileCreateNewDB");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_TRUE(fs::is_empty(target));
}

TEST_F(EmptyDatabase, without_a_template_is_not_made) {
  run.program_folder = run.folder.path("nowhere");
  run.files = {target};
  run.Click("mnuFileCreateNewDB");
  EXPECT_EQ(run.TakeBoxes(), Texts{"File not found: " + run.folder.path("nowhere/mr.dbt") + " 53"});
  EXPECT_TRUE(fs::is_empty(target));
}

TEST_F(EmptyDatabase, where_no_file_can_be_made_tells_why) {
  std::ofstream(target + "/file") << "x";
  run.files = {target + "/file"};
  run.Click("mnuFileCreateNewDB");
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text, "Cannot write the file " + target + "/file/MERLU.mdb: Not a directory. 76");
  EXPECT_EQ(FileBytes(target + "/file"), "x");
}

TEST_F(EmptyDatabase, can_be_opened_and_asks_for_its_operator) {
  run.files = {target};
  run.Click("mnuFileCreateNewDB");
  run.TakeBoxes();
  bool asked = false;
  run.dialogs.push_back([&](Form& form) { asked = form.name() == "frmNewUser"; });
  run.files = {target + "/MERLU.mdb"};
  run.Click("mnuFileSelectDatabase");
  EXPECT_TRUE(asked);
}

}  // namespace
}  // namespace merlu::test
