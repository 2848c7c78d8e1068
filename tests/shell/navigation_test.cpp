#include "shell/navigation.h"

#include <gtest/gtest.h>

#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// Two flares of two months, at the operator in activity mode.
class Going : public testing::Test {
 protected:
  Going() {
    run.StartWith("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FLA", "F2");
    run.SelectRoot();
    run.AddMonth();
    run.TakeBoxes();
  }
  static QCLocation Month(const std::string& id, int month) {
    return {"EQUIPMENT", "12345", month, 2017, "1001", "1", "FLA", id};
  }
  std::string Selected() {
    return run.s.tree.selected < 0 ? "" : run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key;
  }
  TestRun run;
};

TEST_F(Going, to_a_record_selects_its_node_and_opens_what_leads_to_it) {
  EXPECT_TRUE(GoTo(run.s, Month("F2", 2), Mode::kActv));
  EXPECT_EQ(Selected(), run.Key("FLA", "F2", 2));
  EXPECT_EQ(run.s.current, Month("F2", 2));
  EXPECT_TRUE(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.Find(run.Key("", "", 2)))].expanded);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(Going, to_a_record_of_the_other_mode_changes_the_mode) {
  run.Select(run.Key("FLA", "F1", 2));
  EXPECT_TRUE(GoTo(run.s, {"EQUIPMENT", "12345", 0, 0, "1001", "1", "FLA", "F2"}, Mode::kDesc));
  EXPECT_EQ(run.s.mode, Mode::kDesc);
  EXPECT_EQ(Selected(), run.Key("FLA", "F2"));
  EXPECT_EQ(run.s.last_actv, Month("F1", 2));
  EXPECT_TRUE(GoTo(run.s, Month("F1", 1), Mode::kActv));
  EXPECT_EQ(Selected(), run.Key("FLA", "F1", 1));
}

TEST_F(Going, to_a_field_turns_to_its_page_and_asks_for_the_focus) {
  const QCLocation place{"EQUIPMENT", "12345", 0, 0, "1001", "1", "FLA", "F1"};
  EXPECT_TRUE(GoTo(run.s, place, Mode::kDesc, "cmbFLA_FlareSmoke"));
  const ShowingSheet sheet = SheetThatShows(run.s);
  ASSERT_NE(sheet.form, nullptr);
  EXPECT_EQ(sheet.form->focus, "cmbFLA_FlareSmoke");
  const Control& field = sheet.form->At("cmbFLA_FlareSmoke");
  EXPECT_EQ(sheet.form->At("tabFLA").index, field.page);
}

TEST_F(Going, to_a_field_by_its_tag_finds_the_control) {
  EXPECT_TRUE(GoTo(run.s, Month("F1", 1), Mode::kActv, "Hours Operated, excl. upsets"));
  EXPECT_EQ(SheetThatShows(run.s).form->focus, "txtFLA_HrsOperated");
}

TEST_F(Going, to_a_field_takes_the_focus_from_a_dock) {
  run.Click("mnuRFindings");
  Form& dock = *run.s.desk.Find("frmFindings");
  dock.focus = "txtFND_Filter";
  const QCLocation structure{"STRUCTURE", "12345", 1, 2017, "1001", "1", "", ""};
  EXPECT_TRUE(GoTo(run.s, structure, Mode::kActv, "txtSTRUCTURE_ProdOil"));
  EXPECT_EQ(run.s.main->focus, "txtSTRUCTURE_ProdOil");
  EXPECT_EQ(dock.focus, "");
  dock.focus = "txtFND_Filter";
  run.Click("cmdEdit");
  EXPECT_EQ(dock.focus, "") << "an edit begins in its first field";
}

TEST_F(Going, in_the_middle_of_an_edit_stays_with_the_record) {
  run.Select(run.Key("FLA", "F1", 1));
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "7");
  EXPECT_FALSE(GoTo(run.s, Month("F2", 1), Mode::kActv));
  EXPECT_EQ(run.TakeBoxes(), Texts{"End the edit first."});
  EXPECT_FALSE(GoToNode(run.s, 0));
  EXPECT_EQ(run.TakeBoxes(), Texts{"End the edit first."});
  EXPECT_TRUE(GoTo(run.s, Month("F1", 1), Mode::kActv, "txtFLA_VolFlared"));
  EXPECT_EQ(SheetThatShows(run.s).form->focus, "txtFLA_VolFlared");
  EXPECT_TRUE(run.s.editing);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "7");
}

TEST_F(Going, to_a_record_that_is_gone_is_told) {
  EXPECT_FALSE(GoTo(run.s, Month("F9", 1), Mode::kActv));
  EXPECT_EQ(run.TakeBoxes(), Texts{"This record is not in the inventory any more."});
  EXPECT_GE(run.s.tree.selected, 0);
}

}  // namespace
}  // namespace merlu::test
