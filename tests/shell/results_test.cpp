// The rows of a sheet's results lead to what they speak of.
#include "shell/results.h"

#include <gtest/gtest.h>

#include "qc/qc_list.h"
#include "shell/navigation.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr const char *kFlareList = "lvwFLA_QCResults", *kStructureList = "lvwSTRUCTURE_QCResults",
                     *kSurveyList = "lvwSURVEY_QCResults";

// A flare whose month was checked: both its volumes are missing.
class Results : public testing::Test {
 protected:
  Results() {
    run.StartWith("FLA", "F1");
    run.AddStructure("1002", "1", "A");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Click("cmdQC");
    run.TakeBoxes();
  }
  void Open(const std::string& list, int row) { OpenResult(run.s, *SheetThatShows(run.s).form, list, row); }
  TestRun run;
};

TEST_F(Results, lead_in_view_from_a_finding_to_its_field) {
  run.Pick(kFlareList, 1);
  run.DoubleClick(kFlareList);
  EXPECT_EQ(SheetThatShows(run.s).form->focus, "txtFLA_VolFlared");
  EXPECT_FALSE(run.s.editing);
  EXPECT_EQ(run.boxes.size(), 0u);
}

TEST_F(Results, open_while_editing_the_comment_of_a_finding) {
  run.Click("cmdEdit");
  run.Pick(kFlareList, 1);
  std::string shown;
  run.dialogs.push_back([&](Form& form) { shown = form.At("txtFieldName").text; });
  run.DoubleClick(kFlareList);
  EXPECT_EQ(shown, run.At(kFlareList).rows[1].front());
}

TEST_F(Results, lead_from_a_structure_to_its_equipment) {
  run.Select(run.Key("", "", 1));
  ASSERT_EQ(run.At(kStructureList).rows.back().back(), kSummaryMark);
  Open(kStructureList, static_cast<int>(run.At(kStructureList).rows.size()) - 1);
  EXPECT_EQ(run.s.current.EquipID, "F1");
  EXPECT_EQ(run.s.current.Month, 1);
}

TEST_F(Results, lead_from_a_month_to_the_structure_also_when_two_have_one_name) {
  run.s.db.Execute(
      "INSERT INTO QC (UserID,[Month],[Year],CmplxID,StructID,[Level],EquipType,EquipID,FieldID,[Desc],EditMode) "
      "VALUES "
      "('12345',1,2017,'1002','1','STRUCTURE','NA','NA','Oil Production','odd','ACTV')");
  run.Select("K12345 12017");
  const auto& rows = run.At(kSurveyList).rows;
  ASSERT_EQ(rows.size(), 2u);
  ASSERT_EQ(rows[0].front(), rows[1].front());
  EXPECT_FALSE(run.At(kSurveyList).enabled) << "the list itself stays shut in view";
  Open(kSurveyList, 1);
  EXPECT_EQ(run.s.current.CmplxID, "1002");
  run.Select("K12345 12017");
  Open(kSurveyList, 0);
  EXPECT_EQ(run.s.current.CmplxID, "1001");
  EXPECT_TRUE(run.s.current.Is(level::kStructure));
}

TEST_F(Results, lead_nowhere_from_a_row_that_is_not_there) {
  for (const int row : {-1, 99}) Open(kFlareList, row);
  EXPECT_EQ(run.s.current.EquipID, "F1");
  run.Pick(kFlareList, std::vector<int>{});
  run.DoubleClick(kFlareList);
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Please select an error record to edit."});
}

}  // namespace
}  // namespace merlu::test
