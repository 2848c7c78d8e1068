#include "shell/find_dialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "forms/list_model.h"
#include "shell/things.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// "Kind|What|Where" of the rows that the list shows.
std::vector<std::string> Rows(TestRun& run) {
  const ListModel& model = *run.At("lvwGOT_List").model;
  std::vector<std::string> rows;
  for (int row = 0; row < model.RowCount(); ++row)
    rows.push_back(model.Text(row, 0) + "|" + model.Text(row, 1) + "|" + model.Text(row, 2));
  return rows;
}

class GoToDialog : public testing::Test {
 protected:
  GoToDialog() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("VEN", "V7");
    run.SelectRoot();
  }
  // Opens the dialog, types, and runs the step before OK.
  void Type(const std::string& text, const std::function<void()>& step = {}) {
    run.dialogs.push_back([&, step](Form&) {
      run.Set("txtGOT_Text", text);
      if (step) step();
      run.Click("cmdOK");
    });
    run.Click("mnuRFind");
  }
  std::string FirstFor(const std::string& text) {
    std::string first;
    run.dialogs.push_back([&](Form&) {
      run.Set("txtGOT_Text", text);
      const auto rows = Rows(run);
      first = rows.empty() ? "" : rows.front();
      run.Click("cmdCANCEL");
    });
    run.Click("mnuRFind");
    return first;
  }

  TestRun run;
};

TEST_F(GoToDialog, finds_every_kind_of_thing) {
  EXPECT_EQ(FirstFor("flare f1"), "Equipment|Combustion Flare: F1|GI, 43, A");
  EXPECT_EQ(FirstFor("gi 43"), "Structure|GI, 43, A|");
  EXPECT_EQ(FirstFor("new struct"), "Command|New Structure|Edit");
  EXPECT_EQ(FirstFor("hours operated flare").substr(0, 20), "Field|Hours Operated");
  EXPECT_EQ(FirstFor("user guide"), "Help|User Guide|Help");
  EXPECT_EQ(FirstFor("cold vent 0 to 744").substr(0, 5), "Rule|");
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(FirstFor("survey 2017/01"), "Month|Monthly Survey 2017/01|");
}

TEST_F(GoToDialog, calls_equipment_so_whatever_letters_its_id_has) {
  run.Select(run.Key());
  run.AddEquipment("FLA", "\xC3\x89'1");
  EXPECT_EQ(FirstFor("flare \xC3\xA9'1"), "Equipment|Combustion Flare: \xC3\x89'1|GI, 43, A");
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(FirstFor("flare \xC3\xA9'1"), "Equipment|Combustion Flare: \xC3\x89'1|GI, 43, A · Monthly Survey 2017/01");
}

TEST_F(GoToDialog, puts_a_command_before_the_help_on_it) {
  EXPECT_EQ(FirstFor("backups"), "Command|Backups...|File");
}

TEST_F(GoToDialog, lists_no_two_fields_that_look_alike) {
  std::set<std::string> seen;
  for (const Thing& thing : CollectThings(run.s)) {
    if (thing.kind != ThingKind::kField) continue;
    EXPECT_TRUE(seen.insert(thing.what + "|" + thing.where + "|" + thing.control).second);
    const std::string row = thing.what + "|" + thing.where;
    EXPECT_TRUE(seen.insert(row).second) << row;
  }
  EXPECT_GT(seen.size(), 400u);
  EXPECT_TRUE(std::any_of(seen.begin(), seen.end(), [](const std::string& row) {
    return row.starts_with("Diesel: ") && row.find("Turbine") != std::string::npos;
  })) << "named as in the grid";
}

TEST_F(GoToDialog, finds_what_the_tree_of_the_other_mode_holds) {
  EXPECT_EQ(FirstFor("survey 2017/01"), "Month|Monthly Survey 2017/01|");
  run.Select(run.Key());
  run.AddEquipment("FUG", "U1");
  run.SelectRoot();
  Type("survey 2017/01");
  EXPECT_EQ(run.s.mode, Mode::kActv);
  EXPECT_EQ(run.s.current.Level, level::kSurvey);
  EXPECT_EQ(FirstFor("fugitives u1"), "Equipment|Fugitives: U1|GI, 43, A");
  Type("fugitives u1");
  EXPECT_EQ(run.s.mode, Mode::kDesc);
  EXPECT_EQ(run.s.current.EquipType, "FUG");
  EXPECT_EQ(run.s.current.EquipID, "U1");
}

TEST_F(GoToDialog, finds_comments_and_status_of_every_sheet) {
  EXPECT_EQ(FirstFor("comments cold vent"), "Field|Comments|Cold Vent · General Information");
  EXPECT_EQ(FirstFor("no emissions cold vent"), "Field|No Emissions to Report|Cold Vent · General Information");
  Type("comments cold vent");
  EXPECT_EQ(run.s.mode, Mode::kActv);
  EXPECT_EQ(run.s.desk.Find("frmVEN")->focus, "txtVEN_Comments");
}

TEST_F(GoToDialog, finds_the_fields_and_rules_of_a_structure) {
  EXPECT_EQ(FirstFor("oil production"), "Field|Oil Production (bbl)|Structure · Production");
  EXPECT_EQ(FirstFor("longitude -98 to -81").substr(0, 15), "Rule|Longitude ");
  run.ChangeTo(Mode::kActv);
  Type("water depth");
  EXPECT_EQ(run.s.mode, Mode::kDesc);
  EXPECT_EQ(run.s.current.Level, level::kStructure);
  EXPECT_EQ(run.s.main->focus, "txtSTRUCTURE_WaterDepth");
  Type("oil production");
  EXPECT_EQ(run.s.mode, Mode::kActv);
  EXPECT_EQ(run.s.current.Month, 1);
  EXPECT_EQ(run.s.main->focus, "txtSTRUCTURE_ProdOil");
}

TEST_F(GoToDialog, goes_to_the_best_match) {
  Type("v7");
  EXPECT_EQ(run.s.current.EquipID, "V7");
  EXPECT_TRUE(run.s.desk.Find("frmVEN")->visible);
}

TEST_F(GoToDialog, goes_to_the_row_that_is_picked) {
  Type("combustion flare f1", [&] { run.Pick("lvwGOT_List", 0); });
  EXPECT_EQ(run.s.current.EquipID, "F1");
  run.dialogs.push_back([&](Form&) {
    run.Set("txtGOT_Text", "v7");
    run.DoubleClick("lvwGOT_List");
  });
  run.Click("mnuRFind");
  EXPECT_EQ(run.s.current.EquipID, "V7");
}

TEST_F(GoToDialog, goes_to_a_field_in_its_mode) {
  Type("hours operated, including upsets flare");
  EXPECT_EQ(run.s.mode, Mode::kActv);
  EXPECT_EQ(run.s.current.EquipID, "F1");
  EXPECT_EQ(run.s.desk.Find("frmFLA")->focus, "txtFLA_HrsOperated");
}

TEST_F(GoToDialog, puts_what_is_near_first) {
  run.AddStructure("1002", "1", "B");
  const std::string other = run.Key("", "", 0, "1002");
  for (const char* id : {"F1", "F2"}) {
    run.Select(other);
    run.AddEquipment("FLA", id);
  }
  EXPECT_EQ(FirstFor("flare f1"), "Equipment|Combustion Flare: F1|GI, 43, B");
  run.SelectRoot();
  EXPECT_EQ(FirstFor("flare f1"), "Equipment|Combustion Flare: F1|GI, 43, A");
  EXPECT_NE(FirstFor("hours operated").find("|Amine Unit"), std::string::npos);
  run.Select(run.Key("FLA", "F2", 0, "1002"));
  EXPECT_NE(FirstFor("hours operated").find("|Combustion Flare"), std::string::npos);
  EXPECT_NE(FirstFor("0 to 744").find("|Combustion Flare"), std::string::npos);
  Type("hours operated");
  EXPECT_EQ(run.s.mode, Mode::kActv);
  EXPECT_EQ(run.s.current.CmplxID, "1002");
  EXPECT_EQ(run.s.current.EquipID, "F2") << "a month of the same piece";
}

TEST_F(GoToDialog, leaves_the_focus_in_the_tree_or_in_the_field) {
  run.Click("mnuRFindings");
  run.s.desk.Find("frmFindings")->focus = "txtFND_Filter";
  Type("v7");
  EXPECT_EQ(run.s.current.EquipID, "V7");
  EXPECT_EQ(run.s.desk.Find("frmFindings")->focus, "");
  EXPECT_EQ(run.s.main->focus, "tvwTree");
  Type("comments cold vent");
  EXPECT_EQ(run.s.desk.Find("frmVEN")->focus, "txtVEN_Comments");
}

TEST_F(GoToDialog, gives_a_command_when_it_has_closed) {
  run.dialogs.push_back([&](Form&) {
    run.Set("txtGOT_Text", "about merlu");
    run.Click("cmdOK");
  });
  std::string opened;
  run.dialogs.push_back([&](Form& form) {
    opened = form.name();
    run.s.desk.Hide(form);
  });
  run.Click("mnuRFind");
  EXPECT_EQ(opened, "frmAbout");
  EXPECT_EQ(run.s.desk.Dialog(), nullptr);
}

TEST_F(GoToDialog, offers_what_was_chosen_last_before_anything_is_typed) {
  Type("v7");
  Type("user guide");
  EXPECT_EQ(FirstFor(""), "Help|User Guide|Help");
}

TEST_F(GoToDialog, does_nothing_when_nothing_fits) {
  const QCLocation before = run.s.current;
  run.dialogs.push_back([&](Form& form) {
    run.Set("txtGOT_Text", "zzzzqqqq");
    EXPECT_TRUE(Rows(run).empty());
    run.Click("cmdOK");
    EXPECT_TRUE(form.visible);
    run.Click("cmdCANCEL");
  });
  run.Click("mnuRFind");
  EXPECT_EQ(run.s.current, before);
}

TEST_F(GoToDialog, is_shut_while_a_record_is_edited) {
  run.Select(run.Key("FLA", "F1"));
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotClick("mnuRFind"), "is disabled");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.WhyNotClick("mnuRFind"), "");
}

}  // namespace
}  // namespace merlu::test
