#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "shell/dialogs.h"
#include "shell/main_program.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kFarewell = "Sorry, cannot proceed without User Information - MERLU is shutting down now...";

// Gives a program of its own to the run: a folder with the template in it.
void MoveProgram(TestRun& run, const std::string& folder) {
  fs::create_directories(folder);
  fs::copy_file(TemplatePath(), folder + "/mr.dbt");
  run.program_folder = folder;
}

bool IsAnInventory(const std::string& path) {
  return !IsNull(RawValue(path, "SELECT 1 FROM sqlite_master WHERE name='EA_LOA'"));
}

// A start that goes as far as the first run's dialog, which is cancelled.
void StartAndCancel(TestRun& run) {
  Main(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{kFarewell});
}

// ---- the path of the database ----

TEST(StartPath, is_the_one_in_the_settings) {
  TestRun run;
  run.Start();
  EXPECT_EQ(run.s.path, run.folder.path("inventory.mdb"));
  EXPECT_EQ(run.s.title, "MERLU-2017");
  EXPECT_EQ(run.s.version, "");
}

TEST(StartPath, of_a_setting_without_a_file_s_name_gets_the_default_name_without_a_separator) {
  TestRun run;
  fs::create_directory(run.folder.path("Data"));
  CopyTemplate(run.folder, "Datamerlu.mdb");
  run.settings["Options/DBloc"] = run.folder.path("Data");
  StartAndCancel(run);
  EXPECT_EQ(run.s.path, run.folder.path("Datamerlu.mdb"));
}

TEST(StartPath, that_ends_in_capitals_is_taken_as_it_stands) {
  TestRun run;
  run.settings["Options/DBloc"] = CopyTemplate(run.folder, "INVENTORY.MDB");
  StartAndCancel(run);
  EXPECT_EQ(run.s.path, run.folder.path("INVENTORY.MDB"));
}

TEST(StartPath, that_is_shorter_than_an_extension_gets_the_default_name_too) {
  TestRun run;
  run.settings["Options/DBloc"] = "x";
  Main(run.s);
  EXPECT_EQ(run.s.path, "xmerlu.mdb");
  EXPECT_FALSE(run.s.db.IsOpen());
}

TEST(StartPath, without_a_setting_is_beside_the_program_where_a_fresh_file_is_laid) {
  TestRun run;
  MoveProgram(run, run.folder.path("program"));
  StartAndCancel(run);
  EXPECT_EQ(run.s.path, run.folder.path("program/merlu.mdb"));
  EXPECT_TRUE(fs::exists(run.s.path));
  EXPECT_TRUE(IsAnInventory(run.s.path));
}

TEST(StartPath, without_a_setting_has_one_separator_behind_the_program_s_folder) {
  TestRun run;
  MoveProgram(run, run.folder.path("program"));
  run.program_folder += "/";
  StartAndCancel(run);
  EXPECT_EQ(run.s.path, run.folder.path("program/merlu.mdb"));
}

TEST(StartPath, without_a_setting_of_an_installed_program_is_with_the_user_s_data) {
  TestRun run;
  MoveProgram(run, run.folder.path("program"));
  run.installed = true;
  run.data_folder = run.folder.path("user/data");
  StartAndCancel(run);
  EXPECT_EQ(run.s.path, run.folder.path("user/data/merlu.mdb"));
  EXPECT_TRUE(IsAnInventory(run.s.path));
  EXPECT_FALSE(fs::exists(run.folder.path("program/merlu.mdb")));
}

TEST(StartPath, without_a_setting_leads_to_the_file_that_lies_there_already) {
  TestRun run;
  MoveProgram(run, run.folder.path("program"));
  CopyTemplate(run.folder, "program/merlu.mdb");
  Raw(run.folder.path("program/merlu.mdb"),
      {"INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME) VALUES ('77','Old')", "INSERT INTO SYS_CONFIG VALUES (2016,5,3)"});
  Main(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.Text("txtUSER_Company"), "Old");
  EXPECT_EQ(run.s.year, 2016);
  EXPECT_EQ(run.s.last_month, 5);
}

TEST(StartPath, is_not_stored_by_a_start) {
  TestRun run;
  MoveProgram(run, run.folder.path("program"));
  StartAndCancel(run);
  EXPECT_EQ(run.settings["Options/DBloc"], "");
}

TEST(StartPath, without_a_template_tells_what_is_missing_and_makes_no_file) {
  TestRun run;
  run.program_folder = run.folder.path("program");
  fs::create_directory(run.program_folder);
  Main(run.s);
  const Texts boxes = run.TakeBoxes();
  ASSERT_FALSE(boxes.empty());
  EXPECT_EQ(boxes.front(), "File not found: " + run.folder.path("program/mr.dbt") + " 53");
  EXPECT_FALSE(fs::exists(run.folder.path("program/merlu.mdb")));
}

// Runs the work in a process without the superuser's rights and in a folder of its own; 0 when it
// returned true.
int AsNobody(const std::function<bool()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(3);
    bool done = false;
    try {
      done = work();
    } catch (const std::exception&) {
      _exit(2);
    }
    _exit(done ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(StartPath, without_a_setting_is_with_the_user_s_data_when_nothing_can_be_written_beside_the_program) {
  TestRun run;
  MoveProgram(run, run.folder.path("program"));
  const auto readable = fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec;
  fs::permissions(run.folder.path("program"), readable);
  fs::permissions(run.folder.path("program/mr.dbt"), fs::perms::owner_read | fs::perms::others_read);
  fs::permissions(run.folder.path(), fs::perms::all);
  EXPECT_EQ(AsNobody([&] {
              run.data_folder = run.folder.path("home/data");
              Main(run.s);
              return run.s.path == run.folder.path("home/data/merlu.mdb") && IsAnInventory(run.s.path) &&
                     run.TakeBoxes() == Texts{kFarewell} && !fs::exists(run.folder.path("program/merlu.mdb"));
            }),
            0);
  fs::permissions(run.folder.path("program"), fs::perms::owner_all);
}

// ---- what a start shows ----

TEST(Start, of_a_fresh_file_asks_for_the_operator_before_the_main_window_shows) {
  TestRun run;
  run.settings["Options/DBloc"] = CopyTemplate(run.folder);
  bool first = false;
  run.dialogs.push_back([&](Form& form) {
    first = form.name() == "frmNewUser" && run.s.desk.showing == std::vector<Form*>{&form} && !run.s.main->visible;
  });
  Main(run.s);
  EXPECT_TRUE(first);
}

TEST(Start, whose_first_run_is_cancelled_ends_the_program) {
  TestRun run;
  run.settings["Options/DBloc"] = CopyTemplate(run.folder);
  StartAndCancel(run);
  EXPECT_TRUE(run.s.ended);
  EXPECT_TRUE(run.s.save_failed);
  EXPECT_FALSE(run.s.db.IsOpen());
  EXPECT_TRUE(run.s.desk.showing.empty());
  EXPECT_EQ(ToInteger(RawValue(run.folder.path("inventory.mdb"), "SELECT COUNT(*) FROM CO_COMPANY")), 0);
}

TEST(Start, after_a_cancelled_first_run_asks_again) {
  TestRun run;
  run.settings["Options/DBloc"] = CopyTemplate(run.folder);
  StartAndCancel(run);
  run.Start();
  EXPECT_FALSE(run.s.ended);
  EXPECT_FALSE(run.s.save_failed);
  EXPECT_EQ(run.s.current.Level, "USER");
}

TEST(Start, of_a_first_run_goes_to_the_operator_s_sheet_in_description_mode) {
  TestRun run;
  run.Start();
  EXPECT_EQ(run.s.mode, Mode::kDesc);
  EXPECT_EQ(run.s.current.Level, "USER");
  EXPECT_EQ(run.s.current.UserID, "12345");
  EXPECT_EQ(run.s.main->front, "fraUserInfo");
  EXPECT_EQ(run.s.status_text, "Operator: 12345");
  EXPECT_EQ(run.s.tree.selected, 0);
  EXPECT_EQ(run.s.main->focus, "tvwTree");
  EXPECT_TRUE(run.At("txtUSER_Company").locked);
  EXPECT_EQ(run.WhyNotClick("cmdEdit"), "");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST(Start, of_a_later_run_goes_to_the_operator_s_sheet_in_activity_mode) {
  TestRun run;
  run.StartWithStructure();
  run.Start();
  EXPECT_EQ(run.s.mode, Mode::kActv);
  EXPECT_EQ(run.s.current.Level, "USER");
  EXPECT_EQ(run.s.main->front, "fraUserInfo");
  EXPECT_EQ(run.TreeKeys(), (Texts{"K12345", "K12345 12017", run.Key("", "", 1)}));
  EXPECT_TRUE(run.s.tree.nodes[0].expanded);
}

TEST(Start, lays_a_splash_over_the_main_window_that_goes_by_itself) {
  TestRun run;
  run.settings["Options/DBloc"] = CopyTemplate(run.folder);
  Raw(run.folder.path("inventory.mdb"), {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  Main(run.s);
  ASSERT_EQ(run.s.desk.showing.size(), 2u);
  EXPECT_EQ(run.s.desk.showing[0], run.s.main);
  EXPECT_EQ(run.s.desk.showing[1]->name(), "frmAbout");
  EXPECT_EQ(run.s.desk.Dialog(), nullptr);
  EXPECT_EQ(run.paints, 1);
  EXPECT_EQ(run.At("lblTitle").text, "MERLU-2017");
  EXPECT_EQ(run.At("lblVersion").text, "Version 1.0.5 November 2016 Update");
  EXPECT_EQ(run.At("Label1").text, "Windows XP/Vista/7/8/10");
  CloseSplash(run.s);
  EXPECT_EQ(run.s.desk.showing, std::vector<Form*>{run.s.main});
}

TEST(Start, whose_splash_is_clicked_shows_the_main_window_alone) {
  TestRun run;
  run.settings["Options/DBloc"] = CopyTemplate(run.folder);
  Raw(run.folder.path("inventory.mdb"), {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  Main(run.s);
  run.Click("cmdOK");
  EXPECT_EQ(run.s.desk.showing, std::vector<Form*>{run.s.main});
}

TEST(Start, of_a_file_without_a_configuration_adds_a_blank_row_and_counts_from_zero) {
  TestRun run;
  const std::string path = CopyTemplate(run.folder);
  Raw(path, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')"});
  run.Start(path);
  EXPECT_EQ(run.s.year, 0);
  EXPECT_EQ(run.s.last_month, 0);
  const Rows rows = run.s.db.Query("SELECT * FROM SYS_CONFIG");
  EXPECT_EQ(rows.rows, (std::vector<Values>{{Null{}, Null{}, Null{}}}));
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST(Start, adds_no_second_row_to_the_configuration) {
  TestRun run;
  run.Start();
  run.Start();
  EXPECT_EQ(run.Count("SYS_CONFIG"), 1);
}

TEST(Start, writes_the_program_s_version_text_beside_the_operator) {
  TestRun run;
  run.Start();
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT ProgramVersion FROM CO_COMPANY")), run.s.version);
}

TEST(Start, on_a_second_file_forgets_the_first_one_s_places_and_keeps_its_row_keys) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  const std::int64_t pd = run.s.PD_ID_AK;
  ASSERT_NE(pd, 0);
  const std::string second = CopyTemplate(run.folder, "second.mdb");
  Raw(second, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('77')", "INSERT INTO SYS_CONFIG VALUES (2016,2,0)"});
  ASSERT_TRUE(CloseMainWindow(run.s));
  run.Start(second);
  EXPECT_EQ(run.s.year, 2016);
  EXPECT_EQ(run.s.current.UserID, "77");
  EXPECT_EQ(run.s.last_actv.Level, "");
  EXPECT_EQ(run.s.last_desc.Level, "");
  EXPECT_EQ(run.s.PD_ID_AK, pd);
  EXPECT_EQ(run.s.desk.showing, std::vector<Form*>{run.s.main});
  EXPECT_EQ(run.TreeKeys(), Texts{"K   77"});
}

TEST(Start, on_a_tree_that_cannot_be_built_to_its_end_stands_on_its_root_all_the_same) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PA_MO=7");  // a month that the inventory does not have
  run.Start();
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].title, "Error");
  EXPECT_EQ(run.s.tree.selected, 0);
  EXPECT_EQ(run.s.status_text, "Operator: 12345");
}

// ---- the end ----

TEST(EndOfTheProgram, is_refused_while_editing_and_leaves_the_edit_as_it_was) {
  TestRun run;
  run.Start();
  run.Click("cmdEdit");
  run.Set("txtUSER_Company", "half typed");
  EXPECT_FALSE(CloseMainWindow(run.s));
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes[0].text, "Sorry, you may not end the program while in edit mode.");
  EXPECT_EQ(run.boxes[0].icon, Icon::kWarning);
  EXPECT_TRUE(run.s.editing);
  EXPECT_FALSE(run.s.ended);
  EXPECT_EQ(run.Text("txtUSER_Company"), "half typed");
  EXPECT_EQ(run.WhyNotClick("mnuFExit"), "is disabled");
}

TEST(EndOfTheProgram, comes_with_the_closing_of_the_main_window) {
  TestRun run;
  run.StartWith("FLA", "F1");
  EXPECT_TRUE(CloseMainWindow(run.s));
  EXPECT_TRUE(run.s.ended);
  EXPECT_TRUE(run.s.desk.showing.empty());
  EXPECT_FALSE(run.s.db.IsOpen());
  EXPECT_FALSE(run.s.cursors.IsOpen());
  EXPECT_TRUE(
      std::none_of(run.s.desk.forms.begin(), run.s.desk.forms.end(), [](const auto& form) { return form->loaded; }));
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST(EndOfTheProgram, comes_with_its_command) {
  TestRun run;
  run.Start();
  run.Click("mnuFExit");
  EXPECT_TRUE(run.s.ended);
}

TEST(EndOfTheProgram, leaves_the_file_to_others) {
  TestRun run;
  run.Start();
  CloseMainWindow(run.s);
  Raw(run.folder.path("inventory.mdb"), {"BEGIN EXCLUSIVE", "UPDATE CO_COMPANY SET City='x'", "COMMIT"});
  EXPECT_EQ(NullToEmpty(RawValue(run.folder.path("inventory.mdb"), "SELECT City FROM CO_COMPANY")), "x");
}

}  // namespace
}  // namespace merlu::test
