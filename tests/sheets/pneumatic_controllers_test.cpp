#include <gtest/gtest.h>

#include "pneumatic_controllers.h"

namespace merlu::test {
namespace {

using namespace controllers;

constexpr const char* kAdding = "Adding new Make-Model to lookup.";

using Texts = std::vector<std::string>;

// An edit of the first month of new controllers.
struct Month {
  Month() {
    run.StartWith("PRE", "C1");
    run.GoTo("PRE", "C1", Mode::kActv);
    run.Click("cmdEdit");
  }
  std::string Rate(const std::string& hours, const std::string& rate) {
    run.Put({{kHours, hours}, {kRate, rate}});
    run.Click("cmdQC");
    run.TakeBoxes();
    return run.Finding("Fuel Usage Rate");
  }
  TestRun run;
};

void Reload(TestRun& run) {
  run.Select(run.Key());
  run.Select(run.Key("PRE", "C1"));
}

TEST(PneumaticControllers, without_emissions_are_not_looked_at) {
  Month month;
  month.run.Check("chkPRE_Status", true);
  EXPECT_EQ(month.Rate("5", "0"), "");
  EXPECT_EQ(month.run.Count("QC"), 0);
}

TEST(PneumaticControllers, show_only_two_of_the_four_service_types_that_are_stored) {
  TestRun run;
  run.StartWith("PRE", "C1");
  for (const auto& [stored, shown] : Values{{"PC", "PC"}, {"LC", "LC"}, {"FC", "PC"}, {"Other", "PC"}, {"XY", "PC"}}) {
    run.s.db.Execute("UPDATE ED_PRE SET SERVICE_TYP=?", {stored});
    Reload(run);
    EXPECT_EQ(run.Text(kService), shown) << stored;
  }
  run.s.db.Execute("UPDATE ED_PRE SET SERVICE_TYP=NULL");
  Reload(run);
  EXPECT_EQ(run.Text(kService), "PC");
}

TEST(PneumaticControllers, of_another_service_become_PC_by_a_save_that_touches_nothing) {
  TestRun run;
  run.StartWith("PRE", "C1");
  EXPECT_EQ(run.At(kService).items, (Texts{"PC", "LC", "FC", "Other"}));
  for (const char* service : {"FC", "Other"}) {
    run.Click("cmdEdit");
    run.Set(kService, service);
    run.Click("cmdSaveEdits");
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT SERVICE_TYP FROM ED_PRE")), service);
    EXPECT_EQ(run.Text(kService), "PC");
    run.Click("cmdSaveEdits");
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT SERVICE_TYP FROM ED_PRE")), "PC");
    run.Click("cmdCANCEL");
  }
}

TEST(PneumaticControllers, keep_the_bleed_rate_by_its_text) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.Click("cmdEdit");
  const Texts rates = {"High-bleed (>6 scfh)", "Low-bleed (<6 scfh)", "Intermittent", "Zero-bleed"};
  EXPECT_EQ(run.At("cmbPRE_BleedRate").items, rates);
  for (const std::string& rate : rates) {
    run.Set("cmbPRE_BleedRate", rate);
    run.Click("cmdSaveEdits");
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT BLEED_RATE FROM ED_PRE")), rate);
    EXPECT_EQ(run.Text("cmbPRE_BleedRate"), rate);
  }
}

TEST(PneumaticControllers, choose_makes_by_service_and_models_by_make) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute(
      "INSERT INTO listPRE (ServiceType,Mfr,Model) VALUES ('LC','Brown','B1'),('LC','Brown','B2'),('PC','Adams','A1')");
  run.AddEquipment("PRE", "C1");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At(kMake).items, (Texts{"Generic", "Adams"}));
  run.Set(kMake, "Adams");
  EXPECT_EQ(run.At(kModel).items, Texts{"A1"});
  run.Set(kService, "LC");
  EXPECT_EQ(run.At(kMake).items, (Texts{"Generic", "Brown"}));
  EXPECT_TRUE(run.At(kModel).items.empty());
  EXPECT_EQ(run.Text(kMake), "Adams");
  run.Set(kMake, "Brown");
  EXPECT_EQ(run.At(kModel).items, (Texts{"B1", "B2"}));
}

TEST(PneumaticControllers, skip_a_repeated_value_only_behind_its_like) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute(
      "INSERT INTO listPRE (ServiceType,Mfr,Model) VALUES "
      "('PC','Adams','A1'),('PC','Adams','A1'),('PC','Generic','G9')");
  run.AddEquipment("PRE", "C1");
  EXPECT_EQ(run.At(kMake).items, (Texts{"Generic", "Adams", "Generic"}));
  run.Click("cmdEdit");
  run.Set(kMake, "Adams");
  EXPECT_EQ(run.At(kModel).items, Texts{"A1"});
}

TEST(PneumaticControllers, show_the_stored_make_and_model_also_when_no_list_knows_them) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.s.db.Execute("UPDATE ED_PRE SET SERVICE_TYP='LC',MFG='Home made',model='One-off'");
  Reload(run);
  EXPECT_EQ(run.Text(kMake), "Home made");
  EXPECT_EQ(run.Text(kModel), "One-off");
  EXPECT_EQ(run.At(kMake).items, Texts{"Generic"});
  EXPECT_TRUE(run.At(kModel).items.empty());
  run.s.db.Execute("UPDATE ED_PRE SET MFG='Generic',model='Relay controller'");
  Reload(run);
  EXPECT_EQ(run.At(kMake).index, 0);
  EXPECT_EQ(run.At(kModel).items, (Texts{"Pilot controller", "Relay controller"}));
  EXPECT_EQ(run.At(kModel).index, 1);
}

TEST(PneumaticControllers, keep_what_is_typed_when_the_look_up_is_empty) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("DELETE FROM listPRE");
  run.AddEquipment("PRE", "C1");
  run.Click("cmdEdit");
  run.Set(kMake, "Brown");
  EXPECT_EQ(run.Text(kMake), "Brown");
  EXPECT_TRUE(run.At(kMake).items.empty());
  run.Set(kService, "LC");
  EXPECT_EQ(run.Text(kMake), "Brown");
  EXPECT_TRUE(run.At(kMake).items.empty());
}

TEST(PneumaticControllers, of_a_new_make_and_model_are_added_to_the_look_up_once) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.Click("cmdEdit");
  run.Set(kService, "LC");
  run.Set(kMake, "Brown");
  EXPECT_TRUE(run.TakeBoxes().empty());
  run.Set(kModel, "B1");
  EXPECT_EQ(run.TakeBoxes(), Texts{kAdding});
  EXPECT_EQ(run.Count("listPRE WHERE ServiceType='LC' AND Mfr='Brown' AND Model='B1'"), 1);
  run.Set(kMake, "Brown");
  run.Set(kModel, "b1");
  EXPECT_TRUE(run.TakeBoxes().empty());
  EXPECT_EQ(run.Count("listPRE"), 9);
}

TEST(PneumaticControllers, known_for_one_service_are_new_for_another) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.s.db.Execute("INSERT INTO listPRE (ServiceType,Mfr,Model) VALUES ('LC','Brown','B1')");
  run.Click("cmdEdit");
  run.Put({{kMake, "Brown"}, {kModel, "B1"}});
  EXPECT_EQ(run.TakeBoxes(), Texts{kAdding});
  EXPECT_EQ(run.Count("listPRE WHERE ServiceType='PC' AND Mfr='Brown' AND Model='B1'"), 1);
}

TEST(PneumaticControllers, stay_in_the_look_up_when_the_edit_is_dropped) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.Click("cmdEdit");
  run.Put({{kMake, "Brown"}, {kModel, "B1"}});
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.Count("listPRE WHERE Mfr='Brown'"), 1);
  EXPECT_EQ(run.Text(kMake), "");
  EXPECT_EQ(run.At(kMake).items, (Texts{"Generic", "Brown"}));
}

TEST(PneumaticControllers, without_a_service_type_add_no_row) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.Click("cmdEdit");
  SelectItem(*run.s.desk.Find("frmPRE"), kService, -1);
  run.Put({{kMake, "Brown"}, {kModel, "B1"}});
  EXPECT_TRUE(run.TakeBoxes().empty());
  EXPECT_EQ(run.Count("listPRE"), 8);
}

TEST(PneumaticControllers, tell_of_an_apostrophe_in_a_model_and_add_no_row) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.Click("cmdEdit");
  run.Put({{kMake, "Brown"}, {kModel, "3' long"}});
  const Texts boxes = run.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes.front().substr(0, 5), "3075 ") << boxes.front();
  EXPECT_EQ(run.Count("listPRE"), 8);
}

TEST(PneumaticControllers, of_a_stored_make_with_an_apostrophe_load_with_a_told_fault) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.s.db.Execute("UPDATE ED_PRE SET MFG='O''Brien',model='B1',QTY=4");
  Reload(run);
  const Texts boxes = run.TakeBoxes();
  ASSERT_FALSE(boxes.empty());
  EXPECT_EQ(boxes.front().substr(0, 5), "3075 ") << boxes.front();
  EXPECT_EQ(run.Text(kMake), "O'Brien");
  EXPECT_EQ(run.Text(kModel), "B1");
  EXPECT_EQ(run.Text("txtPRE_Quantity"), "4");
}

TEST(PneumaticControllers, keep_the_outlet_that_no_page_shows_through_a_save) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.s.db.Execute(
      "UPDATE ED_PRE SET "
      "EXH_OUT_HGT=1.5,EXH_OUT_INNER_DIAM=2.5,EXH_OUT_EXIT_VEL=3.5,EXH_OUT_EXIT_TEMP=4.5,EXH_OUT_ANGLE=5.5,"
      "SENT_TO_ID='VENV1'");
  Reload(run);
  EXPECT_EQ(run.Text("txtPRE_ExhaustOutletExitT"), "4.5");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet("txtPRE_ExhaustOutletExitT"), "is hidden");
  run.Set("txtPRE_Quantity", "2");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.Count("ED_PRE WHERE QTY=2 AND EXH_OUT_HGT=1.5 AND EXH_OUT_INNER_DIAM=2.5 AND EXH_OUT_EXIT_VEL=3.5 AND "
                      "EXH_OUT_EXIT_TEMP=4.5 AND EXH_OUT_ANGLE=5.5 AND SENT_TO_ID='VENV1'"),
            1);
}

TEST(PneumaticControllers, save_the_outlet_from_the_fields_that_no_page_shows) {
  TestRun run;
  run.StartWith("PRE", "C1");
  run.Click("cmdEdit");
  run.At("txtPRE_ExhaustOutletHgt").text = "12";
  run.Click("cmdSaveEdits");
  EXPECT_EQ(ToNumber(run.Sql("SELECT EXH_OUT_HGT FROM ED_PRE")), 12);
}

TEST(PneumaticControllers, wear_their_titles_captions_and_the_tag_of_an_engine) {
  TestRun run;
  run.StartWith("PRE", "C1");
  EXPECT_EQ(run.At("fraPRE").caption, "Pneumatic Controllers");
  EXPECT_EQ(run.At("tabPRE").items, (Texts{"General Information", "QC Results"}));
  EXPECT_EQ(run.At("txtPRE_EquipElev").tag, "Engine Elevation");
  EXPECT_EQ(run.At(kRate).caption, " Fuel Gas Usage Rate (SCF/hr):");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraPRE").caption, "Pneumatic Controllers - EDIT DATA");
}

}  // namespace
}  // namespace merlu::test
