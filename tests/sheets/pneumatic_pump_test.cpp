#include <gtest/gtest.h>

#include "pneumatic_pump.h"
#include "shell/qc_command.h"

namespace merlu::test {
namespace {

using namespace pump;

constexpr const char* kAdding = "Adding new Make-Model to lookup.";

// An edit of the first month of a new pump.
struct Month {
  Month() {
    run.StartWith("PNE", "P1");
    run.GoTo("PNE", "P1", Mode::kActv);
    run.Click("cmdEdit");
  }
  std::string Rate(const std::string& hours, const std::string& rate) {
    run.Put({{kHours, hours}, {kRate, rate}});
    run.Click("cmdQC");
    run.TakeBoxes();
    return run.Finding(kRateTag);
  }
  TestRun run;
};

void Explain(TestRun& run, const std::string& comment) {
  run.s.db.Execute("UPDATE QC SET Comments=?", {comment});
}

TEST(PneumaticPump, keeps_the_explained_finding_of_a_blank_rate_at_the_next_run) {
  Month month;
  EXPECT_EQ(month.Rate("5", ""), kBlankFinding);
  Explain(month.run, "meter broken");
  EXPECT_EQ(month.Rate("5", ""), kBlankFinding);
  EXPECT_EQ(NullToEmpty(month.run.Sql("SELECT Comments FROM QC")), "meter broken");
}

TEST(PneumaticPump, keeps_the_explained_finding_of_a_zero_rate_at_the_next_run) {
  Month month;
  EXPECT_EQ(month.Rate("5", "0"), kNotOverZero);
  Explain(month.run, "idle");
  EXPECT_EQ(month.Rate("5", "0"), kNotOverZero);
  EXPECT_EQ(NullToEmpty(month.run.Sql("SELECT Comments FROM QC")), "idle");
}

TEST(PneumaticPump, without_emissions_is_not_looked_at) {
  Month month;
  month.run.Check("chkPNE_Status", true);
  EXPECT_EQ(month.Rate("5", "0"), "");
  EXPECT_EQ(month.run.Count("QC"), 0);
}

TEST(PneumaticPump, without_its_vent_or_flare_is_routed_nearby_when_the_edit_ends) {
  const Values cases = {{"Vented Remotely", "No Vent ID given. Changing Ventilation to Vented Locally"},
                        {"Flared Remotely", "No Flare ID given. Changing Ventilation to Flared Locally"}};
  for (const auto& [destination, text] : cases) {
    TestRun run;
    run.StartWith("PNE", "P1");
    run.Click("cmdEdit");
    run.Put({{kMake, "Generic"}, {kModel, "Piston pump"}, {kDestination, destination}});
    run.Click("cmdSaveExit");
    EXPECT_EQ(run.TakeBoxes(), (std::vector<std::string>{text, "QC completed with 1 errors found"}));
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT EMIS_DEST FROM ED_PNE")), destination[0] == 'V' ? "VL" : "FL");
    EXPECT_EQ(run.Finding(kRemoteTag), kBlankFinding);
  }
}

TEST(PneumaticPump, changes_only_the_text_of_the_destination_when_it_falls_back) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Click("cmdEdit");
  run.Set(kDestination, "Flared Remotely");
  run.s.InSaveQC = true;
  RunQCAndTell(run.s, run.s.current, true);
  EXPECT_EQ(run.Text(kDestination), "Flared Locally");
  EXPECT_EQ(run.At(kDestination).index, 3);
}

TEST(PneumaticPump, without_its_vent_is_asked_for_it_at_the_end_of_a_month_s_edit_and_stays_stored_as_it_was) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Keep({{kDestination, "Vented Remotely"}});
  run.GoTo("PNE", "P1", Mode::kActv);
  run.Click("cmdEdit");
  run.Put({{kHours, "0"}, {kRate, "0"}});
  run.Click("cmdSaveExit");
  EXPECT_EQ(run.TakeBoxes(), (std::vector<std::string>{"No Vent ID given. Changing Ventilation to Vented Locally",
                                                       "QC completed with 1 errors found"}));
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EMIS_DEST FROM ED_PNE")), "VR");
}

TEST(PneumaticPump, chooses_among_the_vents_or_the_flares_of_its_structure) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Select(run.Key());
  run.AddEquipment("FLA", "F1");
  run.Select(run.Key());
  run.AddEquipment("PNE", "P1");
  run.AddStructure("1002", "1", "B");
  run.AddEquipment("VEN", "V2");
  run.Select(run.Key("PNE", "P1"));
  run.Click("cmdEdit");
  run.Set(kDestination, "Vented Remotely");
  EXPECT_EQ(run.At(kRemote).items, std::vector<std::string>{"Vent: V1"});
  run.Set(kDestination, "Flared Remotely");
  EXPECT_EQ(run.At(kRemote).items, std::vector<std::string>{"Flare: F1"});
  run.Set(kRemote, "Flare: F1");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT SENT_TO_ID FROM ED_PNE")), "FLAF1");
  EXPECT_EQ(run.Text(kRemote), "Flare: F1");
}

TEST(PneumaticPump, locks_what_its_destination_has_no_use_for) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Select(run.Key());
  run.AddEquipment("PNE", "P1");
  run.Click("cmdEdit");
  const auto outlets_are = [&](bool locked, const std::string& destination) {
    for (const std::string& outlet : kOutlets) {
      EXPECT_EQ(run.At(outlet).locked, locked) << outlet << " " << destination;
      EXPECT_TRUE(run.At(outlet).enabled) << outlet << " " << destination;
    }
  };
  const auto remote_is = [&](bool on, const std::string& destination) {
    EXPECT_EQ(run.At(kRemote).enabled, on) << destination;
    EXPECT_EQ(run.At(kRemote).locked, !on) << destination;
  };
  outlets_are(false, "nothing chosen");
  remote_is(false, "nothing chosen");
  run.Set("txtPNE_ExhaustOutletHgt", "77");
  for (const char* destination : {"Vented Remotely", "Flared Remotely"}) {
    run.Set(kDestination, destination);
    outlets_are(true, destination);
    remote_is(true, destination);
  }
  run.Set(kDestination, "Vented Remotely");
  run.Set(kRemote, "Vent: V1");
  run.Set(kDestination, "Routed to System");
  outlets_are(true, "Routed to System");
  remote_is(false, "Routed to System");
  EXPECT_EQ(run.Text(kRemote), "");
  EXPECT_EQ(run.At(kRemote).index, -1);
  for (const char* destination : {"Vented Locally", "Flared Locally"}) {
    run.Set(kDestination, destination);
    outlets_are(false, destination);
    remote_is(false, destination);
  }
  EXPECT_EQ(run.Text("txtPNE_ExhaustOutletHgt"), "77");
}

TEST(PneumaticPump, applies_its_destination_when_the_edit_of_a_stored_one_begins) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Keep({{kDestination, "Routed to System"}});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EMIS_DEST FROM ED_PNE")), "RS");
  EXPECT_EQ(run.At(kDestination).index, 4);
  run.Click("cmdEdit");
  for (const std::string& outlet : kOutlets) EXPECT_EQ(run.WhyNotSet(outlet), "is locked") << outlet;
  EXPECT_EQ(run.WhyNotSet(kRemote), "is disabled");
}

TEST(PneumaticPump, reads_its_makes_from_the_look_up_table_and_skips_repeats_that_follow_each_other) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute(
      "INSERT INTO listPNE (Mfr,Model) VALUES ('Brown','B1'),('Brown','B2'),('Adams','A1'),('Brown','B3')");
  run.AddEquipment("PNE", "P1");
  EXPECT_EQ(run.At(kMake).items, (std::vector<std::string>{"Generic", "Brown", "Adams", "Brown"}));
}

TEST(PneumaticPump, reads_the_models_of_the_make_that_is_chosen) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("INSERT INTO listPNE (Mfr,Model) VALUES ('Brown','B1'),('Brown','B2')");
  run.AddEquipment("PNE", "P1");
  run.Click("cmdEdit");
  run.Set(kMake, "Brown");
  EXPECT_EQ(run.At(kModel).items, (std::vector<std::string>{"B1", "B2"}));
  run.Set(kMake, "Generic");
  EXPECT_EQ(run.At(kModel).items, (std::vector<std::string>{"Diaphragm pump", "Piston pump", "Plunger pump"}));
}

TEST(PneumaticPump, shows_the_stored_make_and_model_with_the_models_of_that_make) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Keep({{kMake, "Generic"}, {kModel, "Plunger pump"}});
  run.Select(run.Key());
  run.Select(run.Key("PNE", "P1"));
  EXPECT_EQ(run.Text(kMake), "Generic");
  EXPECT_EQ(run.At(kMake).index, 0);
  EXPECT_EQ(run.Text(kModel), "Plunger pump");
  EXPECT_EQ(run.At(kModel).index, 2);
}

TEST(PneumaticPump, keeps_a_stored_make_that_no_list_knows) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.s.db.Execute("UPDATE ED_PNE SET MFG='Home made',model='One-off'");
  run.Select(run.Key());
  run.Select(run.Key("PNE", "P1"));
  EXPECT_EQ(run.Text(kMake), "Home made");
  EXPECT_EQ(run.Text(kModel), "One-off");
  EXPECT_TRUE(run.At(kModel).items.empty());
  run.Keep({});
  EXPECT_EQ(run.Count("ED_PNE WHERE MFG='Home made' AND model='One-off'"), 1);
}

TEST(PneumaticPump, adds_a_pair_that_is_new_once_and_even_when_the_edit_is_dropped) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Click("cmdEdit");
  run.Set(kMake, "Brown");
  EXPECT_EQ(run.Count("listPNE"), 3);
  run.Set(kModel, "B1");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{kAdding});
  EXPECT_EQ(run.Count("listPNE WHERE Mfr='Brown' AND Model='B1'"), 1);
  run.Set(kModel, "B1");
  run.Set(kMake, "brown");
  EXPECT_TRUE(run.TakeBoxes().empty());
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.Count("listPNE"), 4);
  EXPECT_TRUE(IsNull(run.Sql("SELECT MFG FROM ED_PNE")));
}

TEST(PneumaticPump, adds_a_model_that_its_make_did_not_have_when_the_make_is_left) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Click("cmdEdit");
  run.Set(kModel, "Piston pump");
  EXPECT_TRUE(run.TakeBoxes().empty());
  run.Set(kMake, "Brown");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{kAdding});
  EXPECT_EQ(run.Count("listPNE WHERE Mfr='Brown' AND Model='Piston pump'"), 1);
}

TEST(PneumaticPump, tells_of_an_apostrophe_in_a_make_and_adds_no_row) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Click("cmdEdit");
  run.Set(kModel, "B1");
  run.Set(kMake, "O'Brien");
  const std::vector<std::string> boxes = run.TakeBoxes();
  ASSERT_FALSE(boxes.empty());
  for (const std::string& box : boxes) EXPECT_EQ(box.substr(0, 5), "3075 ") << box;
  EXPECT_EQ(run.Count("listPNE"), 3);
  EXPECT_EQ(run.Text(kMake), "O'Brien");
}

TEST(PneumaticPump, tells_where_its_record_is_missing) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Click("cmdEdit");
  run.s.db.Execute("DELETE FROM ED_PNE");
  run.s.At("ED_PNE").Requery();
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Equipment record not found in SavePNEFrame"});
  EXPECT_TRUE(run.s.editing);
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"Equipment record not found in LoadPNEFrame"});
}

TEST(PneumaticPump, stores_every_destination_by_its_code) {
  TestRun run;
  run.StartWith("PNE", "P1");
  run.Click("cmdEdit");
  for (const auto& [item, code] : Values{{"Vented Locally", "VL"},
                                         {"Flared Locally", "FL"},
                                         {"Vented Remotely", "VR"},
                                         {"Flared Remotely", "FR"},
                                         {"Routed to System", "RS"}}) {
    run.Set(kDestination, item);
    run.Click("cmdSaveEdits");
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT EMIS_DEST FROM ED_PNE")), code);
    EXPECT_EQ(run.Text(kDestination), item);
  }
}

TEST(PneumaticPump, wears_its_titles_and_pages) {
  TestRun run;
  run.StartWith("PNE", "P1");
  EXPECT_EQ(run.At("fraPNE").caption, "Pneumatic Pumps");
  EXPECT_EQ(run.At("tabPNE").items,
            (std::vector<std::string>{"General Information", "Ventilation System", "QC Results"}));
  EXPECT_EQ(run.At(kHours).caption, "Hours Operated (hrs):");
  EXPECT_EQ(run.At(kHours).tag, "Hours per day operated");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraPNE").caption, "Pneumatic Pumps - EDIT DATA");
}

}  // namespace
}  // namespace merlu::test
