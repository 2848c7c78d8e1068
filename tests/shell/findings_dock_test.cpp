#include "shell/findings_dock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>

#include "exchange/read_workbook.h"
#include "forms/dialog.h"
#include "shell/docks.h"
#include "shell/status.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// A flare in two months: its first has hours that no month has and no volume, the second nothing at all.
class FindingsDockOf : public testing::Test {
 protected:
  void SetUp() override {
    run.StartWith("FLA", "F1");
    run.AddMonth();
    run.GoTo("FLA", "F1", Mode::kActv, 1);
    run.Keep({{"txtFLA_HrsOperated", "800"}});
    run.Click("mnuRFindings");
    run.Set("cmbFND_When", "2017/01");
  }
  void TearDown() override { EXPECT_TRUE(run.TakeBoxes().empty()); }
  Form& Dock() { return FindingsDock(run.s); }
  FindingsModel& Rows() { return Findings(run.s); }
  Texts Column(int column) {
    Texts texts;
    FindingsModel& rows = Rows();
    for (int row = 0; row < rows.RowCount(); ++row) texts.push_back(rows.Text(row, column));
    return texts;
  }
  int RowOf(const std::string& field) {
    const Texts fields = Column(1);
    return static_cast<int>(std::find(fields.begin(), fields.end(), field) - fields.begin());
  }
  static constexpr const char* kHours = "Hours Operated, excl. upsets";
  static constexpr const char* kVolume = "Volume Flared, incl. upsets";
  TestRun run;
};

TEST_F(FindingsDockOf, shows_what_the_rules_say_now_although_nothing_was_run) {
  EXPECT_EQ(run.Count("QC"), 0);
  EXPECT_EQ(Column(1), (Texts{kHours, kVolume})) << "the structure's month has no value, and says nothing";
  const int hours = RowOf(kHours);
  EXPECT_EQ(Rows().Text(hours, 0), "2017/01 · GI, 43, A · Combustion Flare: F1");
  EXPECT_EQ(Rows().Text(hours, 2), "800");
  EXPECT_EQ(Rows().Text(hours, 3), "0 to 744");
  EXPECT_EQ(Rows().Text(hours, 4), "Value not in expected range (0 to 744)");
  EXPECT_EQ(Rows().Text(hours, 6), "open");
  EXPECT_EQ(Rows().Text(RowOf(kVolume), 3), "0 to 20000") << "also where the field is blank";
  EXPECT_EQ(run.Count("QC"), 0) << "nothing is written";
}

TEST_F(FindingsDockOf, is_never_older_than_the_last_act) {
  run.Keep({{"txtFLA_HrsOperated", "700"}});
  EXPECT_EQ(Column(1), (Texts{kVolume}));
  RefreshDocks(run.s);
  EXPECT_NE(Dock().At("lblFND_Count").text.find("1 of "), std::string::npos) << Dock().At("lblFND_Count").text;
}

TEST_F(FindingsDockOf, says_nothing_of_an_inactive_record_but_what_the_log_holds) {
  run.Click("cmdQC");
  run.TakeBoxes();
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I'");
  EXPECT_EQ(Column(1), (Texts{kHours, kVolume})) << "rows of the log stand until a run withdraws them";
  run.s.db.Execute("DELETE FROM QC");
  EXPECT_EQ(Column(1), Texts{});
}

TEST_F(FindingsDockOf, filters_without_regard_to_the_case_of_any_letter) {
  run.Click("cmdQC");
  run.TakeBoxes();
  run.s.db.Execute("UPDATE QC SET Comments='\u00C9cole Stra\u00DFe \u03A9' WHERE FieldID LIKE 'Hours%'");
  for (const char* words : {"\u00E9cole", "\u00C9COLE stra\u00DFe", "\u03C9", "hours"}) {
    run.Set("txtFND_Filter", words);
    EXPECT_EQ(Column(1), (Texts{kHours})) << words;
  }
  run.Set("txtFND_Filter", "e\u0301cole");
  EXPECT_EQ(Column(1), Texts{}) << "other characters";
}

TEST_F(FindingsDockOf, takes_a_comment_of_blanks_and_lines_for_none) {
  run.Click("cmdQC");
  run.TakeBoxes();
  run.s.db.Execute("UPDATE QC SET Comments=' '||char(9)||char(10)||char(13)");
  EXPECT_EQ(Column(6), (Texts{"open", "open"}));
  UpdateStatus(run.s);
  EXPECT_EQ(run.s.unexplained, 2);
}

// The history names the record that was explained, whatever the sheet shows.
TEST_F(FindingsDockOf, tells_the_history_which_records_were_explained) {
  const auto explain = [&](const std::vector<int>& rows) {
    Rows();
    run.Pick("lvwFND_List", rows);
    run.dialogs.push_back([&](Form&) {
      run.Set("txtComments", "Upset");
      run.Click("cmdOK");
    });
    run.Click("cmdFND_Comment");
    return Steps(run.s.companion).front().title;
  };
  run.SelectRoot();
  run.Set("cmbFND_When", "2017/01");
  const StepTitle one = explain({0});
  EXPECT_EQ(one.what, "Comment");
  EXPECT_EQ(one.place, "2017/01 · GI, 43, A · Combustion Flare: F1");
  EXPECT_EQ(explain({0, 1}).place, "2017/01 · GI, 43, A · Combustion Flare: F1") << "one record";
  run.Set("cmbFND_When", "All");
  std::set<std::string> places;
  const Texts column = Column(0);
  std::vector<int> all;
  for (std::size_t row = 0; row < column.size(); ++row) {
    places.insert(column[row]);
    all.push_back(static_cast<int>(row));
  }
  ASSERT_GT(places.size(), 1u);
  EXPECT_EQ(explain(all).place, column.front() + " and " + std::to_string(places.size() - 1) + " more");
}

TEST_F(FindingsDockOf, is_walked_through_from_the_row_that_is_picked) {
  Rows();
  run.SelectRoot();
  run.Pick("lvwFND_List", {0});
  run.Click("mnuRNext");
  EXPECT_EQ(Dock().At("lvwFND_List").picked, (std::vector<int>{1}));
  EXPECT_EQ(run.s.desk.Find("frmFLA")->focus, "txtFLA_VolFlared");
  run.Click("mnuRPrevious");
  EXPECT_EQ(run.s.desk.Find("frmFLA")->focus, "txtFLA_HrsOperated");
  run.Pick("lvwFND_List", {1});
  run.GoTo("FLA", "F1", Mode::kActv, 2);
  run.GoTo("FLA", "F1", Mode::kActv, 1);
  run.Click("mnuRNext");
  EXPECT_EQ(run.s.desk.Find("frmFLA")->focus, "txtFLA_HrsOperated") << "where the user has gone since";
}

TEST_F(FindingsDockOf, is_walked_through_from_a_row_that_is_picked_after_a_filter) {
  run.Set("cmbFND_When", "All");
  RefreshDocks(run.s);
  run.Pick("lvwFND_List", {0});
  ASSERT_FALSE(Rows().Text(0, 0).starts_with("2017/01"));
  run.Set("txtFND_Filter", "2017/01");
  RefreshDocks(run.s);
  ASSERT_TRUE(Dock().At("lvwFND_List").picked.empty());
  run.Pick("lvwFND_List", {0});
  run.Click("mnuRNext");
  EXPECT_EQ(Dock().At("lvwFND_List").picked, (std::vector<int>{1}));
}

TEST_F(FindingsDockOf, keeps_the_structures_of_an_operator_together) {
  run.s.db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('99')");
  run.s.db.Execute(
      "INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name) "
      "VALUES (500,'99','55','5','AA','1','Q')");
  run.Set("cmbFND_When", "Descriptions");
  const Texts places = Column(0);
  ASSERT_FALSE(places.empty());
  EXPECT_EQ(places.front(), "GI, 43, A");
  EXPECT_EQ(places.back(), "AA, 1, Q");
}

TEST_F(FindingsDockOf, knows_the_field_of_a_logged_finding_where_two_have_its_tag) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.AddEquipment("BOI", "B1");
  run.s.db.Execute("UPDATE ED_BOI SET FUEL_TYP='D'");
  run.GoTo("BOI", "B1", Mode::kActv, 2);
  run.Click("cmdQC");
  run.TakeBoxes();
  run.Set("cmbFND_When", "2017/02");
  ASSERT_EQ(Column(1), (Texts{"Hours Operated", "Average Fuel Usage", "Total Fuel Used"})) << "as the month's fields";
  EXPECT_EQ(Rows().Text(1, 3), "0 to 20000");
}

TEST_F(FindingsDockOf, filters_by_words_state_and_month) {
  run.Set("txtFND_Filter", "HOURS flare");
  EXPECT_EQ(Column(1), (Texts{kHours}));
  run.Set("txtFND_Filter", "");
  run.Set("cmbFND_State", "Explained");
  EXPECT_EQ(Column(1), Texts{});
  run.Set("cmbFND_State", "All");
  run.Set("cmbFND_When", "Descriptions");
  for (const std::string& place : Column(0)) EXPECT_EQ(place.find("2017/"), std::string::npos) << place;
  EXPECT_FALSE(Column(0).empty());
  EXPECT_EQ(Dock().At("cmbFND_When").items, (Texts{"All", "Descriptions", "2017/01", "2017/02"}));
}

TEST_F(FindingsDockOf, takes_one_comment_for_several_findings_and_writes_the_rows_that_the_log_lacks) {
  Rows();
  run.Pick("lvwFND_List", {0, 1});
  run.dialogs.push_back([&](Form&) {
    EXPECT_EQ(run.Text("txtComments"), "");
    EXPECT_NE(run.Text("txtFieldName").find("2 "), std::string::npos);
    run.Set("txtComments", "Flare test");
    run.Click("cmdOK");
  });
  run.Click("cmdFND_Comment");
  EXPECT_EQ(run.Count("QC WHERE Comments='Flare test' AND Level='EQUIPMENT' AND EquipID='F1' AND Month=1 AND "
                      "EditMode='ACTV'"),
            2);
  EXPECT_EQ(Column(6), (Texts{"explained", "explained"}));
  run.Click("cmdQC");
  run.TakeBoxes();
  EXPECT_EQ(Column(5), (Texts{"Flare test", "Flare test"})) << "a run finds the rows as it would have written them";
}

TEST_F(FindingsDockOf, calls_a_comment_stale_whose_value_has_changed_since) {
  Rows();
  run.Pick("lvwFND_List", {RowOf(kHours)});
  run.dialogs.push_back([&](Form&) {
    run.Set("txtComments", "Two shifts");
    run.Click("cmdOK");
  });
  run.Click("cmdFND_Comment");
  EXPECT_EQ(Rows().Text(RowOf(kHours), 6), "explained");
  run.Keep({{"txtFLA_HrsOperated", "900"}});
  EXPECT_EQ(Rows().Text(RowOf(kHours), 5), "Two shifts");
  EXPECT_EQ(Rows().Text(RowOf(kHours), 6), "stale");
  run.Keep({{"txtFLA_HrsOperated", "800"}});
  EXPECT_EQ(Rows().Text(RowOf(kHours), 6), "explained");
}

TEST_F(FindingsDockOf, leads_to_the_record_and_its_field) {
  run.SelectRoot();
  Rows();
  run.Pick("lvwFND_List", {RowOf(kVolume)});
  run.DoubleClick("lvwFND_List");
  EXPECT_EQ(run.s.current.EquipID, "F1");
  EXPECT_EQ(run.s.desk.Find("frmFLA")->focus, "txtFLA_VolFlared");
}

TEST_F(FindingsDockOf, is_walked_through_with_one_key) {
  run.SelectRoot();
  run.Click("mnuRNext");
  EXPECT_EQ(run.s.desk.Find("frmFLA")->focus, "txtFLA_HrsOperated");
  run.Click("mnuRNext");
  EXPECT_EQ(run.s.desk.Find("frmFLA")->focus, "txtFLA_VolFlared");
  run.Click("mnuRPrevious");
  EXPECT_EQ(run.s.desk.Find("frmFLA")->focus, "txtFLA_HrsOperated");
}

TEST_F(FindingsDockOf, is_walked_through_without_showing) {
  run.Click("mnuRFindings");
  run.SelectRoot();
  run.Click("mnuRNext");
  EXPECT_TRUE(run.s.current.Is(level::kStructure)) << "descriptions come first";
  EXPECT_TRUE(run.s.InDesc());
}

TEST_F(FindingsDockOf, leads_to_no_other_record_in_the_middle_of_an_edit) {
  run.GoTo("FLA", "F1", Mode::kActv, 2);
  run.Click("cmdEdit");
  run.Click("mnuRNext");
  EXPECT_EQ(run.TakeBoxes(), (Texts{"End the edit first."}));
  run.Click("cmdCANCEL");
}

TEST_F(FindingsDockOf, goes_out_as_values_with_commas) {
  const std::string path = run.folder.path("findings.csv");
  run.files.push_back(path);
  run.Click("cmdFND_Export");
  EXPECT_EQ(run.TakeBoxes(), (Texts{"Done."}));
  std::ifstream in(path);
  std::string head, first;
  std::getline(in, head);
  std::getline(in, first);
  EXPECT_EQ(head, "Place,Field,Value,Expected,Error Description,Operator Comment,State\r");
  EXPECT_EQ(first,
            "\"2017/01 · GI, 43, A · Combustion Flare: F1\",\"Hours Operated, excl. upsets\",800,0 to 744,Value not in "
            "expected range (0 to 744),,open\r");
}

TEST_F(FindingsDockOf, stands_in_the_order_of_the_tree) {
  run.ChangeTo(Mode::kDesc);
  for (const char* name : {"C", "B"}) run.AddStructure(std::string("2") + name, "1", name);
  run.Select(run.Key());
  run.AddEquipment("AMI", "Z9");
  run.Select(run.Key());
  run.AddEquipment("AMI", "a1");
  run.Set("cmbFND_When", "Descriptions");
  Texts places;
  for (const std::string& place : Column(0))
    if (places.empty() || places.back() != place) places.push_back(place);
  Texts nodes;
  for (const int node : run.s.tree.InOrder()) {
    const TreeNode& at = run.s.tree.nodes[static_cast<std::size_t>(node)];
    if (at.parent < 0) continue;
    const TreeNode& above = run.s.tree.nodes[static_cast<std::size_t>(at.parent)];
    nodes.push_back(above.parent < 0 ? at.text : above.text + " · " + at.text);
  }
  std::erase_if(nodes,
                [&](const std::string& node) { return std::find(places.begin(), places.end(), node) == places.end(); });
  EXPECT_EQ(places, nodes);
  EXPECT_GT(places.size(), 5u);
}

TEST_F(FindingsDockOf, offers_a_comment_that_a_clean_run_of_another_month_has_wiped) {
  Rows();
  run.Pick("lvwFND_List", {RowOf(kHours)});
  run.dialogs.push_back([&](Form&) {
    run.Set("txtComments", "Two shifts");
    run.Click("cmdOK");
  });
  run.Click("cmdFND_Comment");
  run.s.db.Execute("DELETE FROM QC");
  EXPECT_EQ(Rows().Text(RowOf(kHours), 6), "open");
  run.Pick("lvwFND_List", {RowOf(kHours)});
  run.dialogs.push_back([&](Form&) { EXPECT_EQ(run.Text("txtComments"), "Two shifts"); });
  run.Click("cmdFND_Comment");
}

TEST_F(FindingsDockOf, knows_what_a_comment_of_the_sheet_was_written_upon) {
  run.Click("cmdQC");
  run.TakeBoxes();
  run.Click("cmdEdit");
  run.Pick("lvwFLA_QCResults", 0);
  run.dialogs.push_back([&](Form&) {
    run.Set("txtComments", "Two shifts");
    run.Click("cmdOK");
  });
  run.Click("cmdFLA_EditQCComment");
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  run.TakeBoxes();
  const std::string field = Column(1)[0];
  EXPECT_EQ(Rows().Text(0, 6), "explained") << field;
  run.Keep({{"txtFLA_HrsOperated", "900"}});
  EXPECT_EQ(Rows().Text(RowOf(kHours), 6), field == kHours ? "stale" : "open");
}

TEST_F(FindingsDockOf, takes_a_comment_back_with_what_it_was_written_upon) {
  const auto comment = [&](const std::string& text) {
    Rows();
    run.Pick("lvwFND_List", {RowOf(kHours)});
    run.dialogs.push_back([&run = run, text](Form&) {
      run.Set("txtComments", text);
      run.Click("cmdOK");
    });
    run.Click("cmdFND_Comment");
  };
  comment("Two shifts");
  run.Keep({{"txtFLA_HrsOperated", "900"}});
  EXPECT_EQ(Rows().Text(RowOf(kHours), 6), "stale");
  comment("Two shifts");
  EXPECT_EQ(Rows().Text(RowOf(kHours), 6), "explained") << "the same words, written again";
  run.Click("mnuEUndo");
  EXPECT_EQ(Rows().Text(RowOf(kHours), 6), "stale");
  EXPECT_TRUE(run.TakeBoxes().empty());
}

TEST_F(FindingsDockOf, keeps_what_is_picked_when_it_is_made_anew) {
  Rows();
  const int row = RowOf(kVolume);
  run.Pick("lvwFND_List", {row});
  run.Keep({{"txtFLA_HrsOperated", "700"}});
  RefreshDocks(run.s);
  ASSERT_EQ(Dock().At("lvwFND_List").picked.size(), 1u);
  EXPECT_EQ(Rows().Text(Dock().At("lvwFND_List").picked.front(), 1), kVolume);
}

TEST_F(FindingsDockOf, passes_a_row_of_the_log_whose_record_is_gone) {
  run.s.db.Execute("INSERT INTO QC VALUES ('12345',1,2017,'EQUIPMENT','7777','1','FLA','F9','Hours','Gone','','ACTV')");
  run.GoTo("FLA", "F1", Mode::kActv, 1);
  Texts seen;
  for (int key = 0; key < 4; ++key) {
    run.Click("mnuRNext");
    seen.push_back(Rows().Text(Dock().At("lvwFND_List").picked.front(), 1));
    for (const std::string& box : run.TakeBoxes()) EXPECT_EQ(box, "This record is not in the inventory any more.");
  }
  EXPECT_EQ(seen, (Texts{kHours, kVolume, "Hours", kHours}));
}

TEST_F(FindingsDockOf, shows_a_row_of_the_log_with_other_blanks_in_its_key_as_no_record_s) {
  run.Click("cmdQC");
  run.TakeBoxes();
  run.s.db.Execute("UPDATE QC SET EquipID='F1  ',Comments='so' WHERE FieldID LIKE 'Hours%'");
  run.GoTo("FLA", "F1", Mode::kActv, 2);
  run.GoTo("FLA", "F1", Mode::kActv, 1);
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows.size(), 1U) << "the sheet and the next run do not find it";
  EXPECT_EQ(run.s.findings, 2);
  EXPECT_EQ(run.s.unexplained, 2);
  const int hours = RowOf(kHours);
  EXPECT_EQ(Rows().Text(hours, 6), "open") << "nor does its comment explain the record's own finding";
  EXPECT_EQ(Rows().RowCount(), 3);
  int of_none = 0;
  for (int row = 0; row < Rows().RowCount(); ++row)
    if (Rows().RecordAt(row).gone) {
      ++of_none;
      EXPECT_EQ(Rows().Text(row, 5), "so");
      EXPECT_EQ(Rows().Text(row, 0), "2017/01 · 1001/1 · Combustion Flare: F1");
    }
  EXPECT_EQ(of_none, 1);
}

TEST_F(FindingsDockOf, exports_a_workbook_that_reads_back_as_the_list) {
  run.Click("cmdQC");
  run.TakeBoxes();
  run.s.db.Execute("UPDATE QC SET Comments='=1+1, \"so\"' WHERE FieldID LIKE 'Hours%'");
  run.Set("cmbFND_When", "All");
  FindingsModel& rows = Rows();
  ASSERT_GT(rows.RowCount(), 5);
  for (const char* name : {"findings.xlsx", "findings.csv"}) {
    run.files = {run.folder.path(name)};
    run.Click("cmdFND_Export");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Done."});
    const ForeignSheet sheet = ReadForeignWorkbook(run.folder.path(name)).at(0);
    const bool csv = std::string(name).ends_with(".csv");
    // what begins like a formula is none there
    const auto written = [csv](const std::string& text) {
      return csv && text.find_first_of("=+-@") == 0 ? "'" + text : text;
    };
    for (int column = 0; column < static_cast<int>(kFindingColumns.size()); ++column) {
      EXPECT_EQ(sheet.Text(0, column), kFindingColumns[static_cast<std::size_t>(column)]);
      for (int row = 0; row < rows.RowCount(); ++row)
        EXPECT_EQ(sheet.Text(row + 1, column), written(rows.Text(row, column))) << name << " " << row;
    }
    EXPECT_TRUE(sheet.cells.empty() || sheet.cells.back().row == rows.RowCount());
  }
}

TEST_F(FindingsDockOf, tells_the_session_what_the_place_has) {
  EXPECT_EQ(run.s.findings, 2) << "judged, nothing was run";
  EXPECT_EQ(run.s.unexplained, 2);
  EXPECT_FALSE(run.s.checked);
  Rows();
  run.Pick("lvwFND_List", {0});
  run.dialogs.push_back([&](Form&) {
    run.Set("txtComments", "Known");
    run.Click("cmdOK");
  });
  run.Click("cmdFND_Comment");
  run.Select(run.Key("FLA", "F1", 1));
  UpdateStatus(run.s);
  EXPECT_EQ(run.s.findings, 2);
  EXPECT_EQ(run.s.unexplained, 1);
  run.Select(run.Key("", "", 1));
  UpdateStatus(run.s);
  EXPECT_EQ(run.s.findings, 2) << "the structure with its equipment";
}

TEST_F(FindingsDockOf, says_when_the_file_cannot_be_read) {
  run.s.db.Execute("ALTER TABLE EA_FLA RENAME TO EA_FLA_AWAY");
  run.s.db.TellAllChanged();
  EXPECT_EQ(Rows().RowCount(), 0);
  EXPECT_NE(Dock().At("lblFND_Count").text.find("The findings cannot be read: "), std::string::npos);
  run.s.db.Execute("ALTER TABLE EA_FLA_AWAY RENAME TO EA_FLA");
  EXPECT_EQ(Rows().RowCount(), 2);
}

}  // namespace
}  // namespace merlu::test
