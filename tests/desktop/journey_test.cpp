// The first month, through the real windows.
#include <QTreeWidget>

#include "driver.h"

namespace merlu::test {
namespace {

TEST(Journey, goes_from_an_empty_file_to_a_clean_second_month) {
  Driver driver;
  driver.FillNewOperator();
  driver.Start();
  ASSERT_TRUE(driver.app->window()->isVisible());
  EXPECT_EQ(driver.app->window()->windowTitle(),
            "RIMA Pelagic Field Reporting Suite (MERLU-2017) - Description Edit Mode");
  EXPECT_EQ(NullToEmpty(driver.Sql("SELECT Phone FROM CO_COMPANY")), "(555) 123 - 4567 ext ____");

  driver.OnNextModal([&](QWidget*) {
    for (const auto& [name, text] : std::vector<std::pair<const char*, const char*>>{
             {"txtComplxID", "1001"}, {"txtStructID", "1"}, {"txtArea", "GI"}, {"txtBlock", "43"}, {"txtName", "A"}})
      driver.Type(name, text);
    driver.Click("cmdOK");
  });
  driver.Click("cmdUSER_AddStructure");
  driver.OnNextModal([&](QWidget*) {
    driver.Type("txtEquipID", "F1");
    driver.Choose("cmbEquipType", "Combustion Flare");
    driver.Click("cmdOK");
  });
  driver.Click("cmdSTRUCTURE_AddEquip");
  EXPECT_EQ(driver.app->session().current.EquipID, "F1");
  EXPECT_TRUE(driver.Widget("txtFLA_ConcH2S")->isVisible());

  driver.Click("cmdEditMode");
  driver.Select("K12345");
  driver.OnNextBox();
  driver.Click("cmdUSER_AddSurvey");
  ASSERT_TRUE(driver.AllModalsCame());
  EXPECT_EQ(driver.texts.back(), "Survey Month added to Activity Database");

  driver.Select("K12345 22017   1001 1FLA      F1");
  driver.Click("cmdEdit");
  EXPECT_TRUE(driver.Widget("txtFLA_HrsOperated")->hasFocus());
  driver.Type("txtFLA_HrsOperated", "745");
  driver.Type("txtFLA_VolFlared", "1200");
  driver.OnNextBox();
  driver.Click("cmdSaveExit");
  EXPECT_EQ(driver.texts.back(), "QC completed with 1 errors found");
  EXPECT_EQ(ToNumber(driver.Sql("SELECT OP_HR FROM EA_FLA WHERE EA_ID_AK=2")), 745);
  auto* tabs = driver.Find<QTabWidget>("tabFLA");
  EXPECT_EQ(tabs->tabText(2), "QC Results (1, 1 open)");

  driver.Click("cmdEdit");
  tabs->setCurrentIndex(2);
  driver.Settle();
  auto* list = driver.Find<QTreeWidget>("lvwFLA_QCResults");
  ASSERT_EQ(list->topLevelItemCount(), 1);
  EXPECT_EQ(list->topLevelItem(0)->text(1), "Value not in expected range (0 to 744)");
  list->topLevelItem(0)->setSelected(true);
  driver.OnNextModal([&](QWidget* dialog) {
    EXPECT_EQ(dialog->objectName(), "frmQCComment");
    EXPECT_EQ(driver.Text("txtFieldName"), "Hours Operated, excl. upsets");
    EXPECT_TRUE(driver.Widget("txtComments")->hasFocus());
    driver.Type("txtComments", "The meter ran on.");
    driver.Click("cmdOK");
  });
  driver.Click("cmdFLA_EditQCComment");
  EXPECT_EQ(list->topLevelItem(0)->text(2), "The meter ran on.");
  EXPECT_EQ(NullToEmpty(driver.Sql("SELECT Comments FROM QC")), "The meter ran on.");

  tabs->setCurrentIndex(0);
  driver.Type("txtFLA_HrsOperated", "672");
  driver.Click("cmdSaveExit");
  EXPECT_EQ(ToInteger(driver.Sql("SELECT COUNT(*) FROM QC")), 0);
  EXPECT_EQ(driver.Find<QTabWidget>("tabFLA")->tabText(2), "QC Results");
  driver.OnNextBox();
  driver.Click("cmdQC");
  EXPECT_EQ(driver.texts.back(), "QC completed, no errors found");
  EXPECT_TRUE(driver.AllModalsCame());
}

TEST(Journey, that_is_cancelled_at_the_first_run_ends_the_program) {
  Driver driver;
  driver.OnNextModal([&](QWidget* dialog) {
    driver.OnNextBox();
    dialog->close();
  });
  driver.Start();
  EXPECT_TRUE(driver.app->session().ended);
  EXPECT_EQ(driver.app->window(), nullptr);
  EXPECT_EQ(driver.texts.back(), "Sorry, cannot proceed without User Information - MERLU is shutting down now...");
}

}  // namespace
}  // namespace merlu::test
