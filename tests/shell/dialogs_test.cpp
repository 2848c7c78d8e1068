#include "shell/dialogs.h"

#include <gtest/gtest.h>

#include "session/types.h"
#include "shell/main_program.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// A step of a dialog that is refused: the message and the field with the focus, and what mends it.
struct Refusal {
  const char *message, *focus, *field, *value;
};

// Presses OK, expects the refusal, mends it; for each in turn.
void ExpectRefusals(TestRun& run, Form& form, const std::vector<Refusal>& refusals) {
  for (const Refusal& refusal : refusals) {
    form.focus.clear();
    run.Click("cmdOK");
    ASSERT_EQ(run.boxes.size(), 1u) << refusal.message;
    EXPECT_EQ(run.boxes[0].text, refusal.message);
    EXPECT_EQ(run.boxes[0].title, "MERLU-2017");
    EXPECT_EQ(run.boxes[0].icon, Icon::kWarning) << refusal.message;
    EXPECT_EQ(form.focus, refusal.focus) << refusal.message;
    EXPECT_TRUE(form.visible) << refusal.message;
    run.TakeBoxes();
    run.Set(refusal.field, refusal.value);
  }
}

// ---- the operator of a first run ----

class NewUser : public testing::Test {
 protected:
  NewUser() { run.settings["Options/DBloc"] = CopyTemplate(run.folder); }
  // Starts, and works in the dialog.
  void InDialog(std::function<void(Form&)> work) {
    bool worked = false;
    run.dialogs.push_back([&, work](Form& form) {
      ASSERT_EQ(form.name(), "frmNewUser");
      work(form);
      worked = true;
    });
    Main(run.s);
    CloseSplash(run.s);
    EXPECT_TRUE(worked);
  }
  void Fill() {
    run.Put({{"txtUserID", "12345"},
             {"txtUSER_Company", "Blue Water"},
             {"txtUSER_Address1", "1 Quay"},
             {"txtUSER_City", "Port"},
             {"txtUSER_State", "TX"},
             {"txtUSER_Zip", "77001"},
             {"txtUSER_Contact", "A. Person"},
             {"txtUSER_Phone", "5551234567"},
             {"txtUSER_Email", "a@b.example"}});
  }
  std::string StoredText(const std::string& column) {
    return NullToEmpty(run.Sql("SELECT " + column + " FROM CO_COMPANY"));
  }
  TestRun run;
};

TEST_F(NewUser, asks_for_everything_under_its_captions) {
  InDialog([&](Form& form) {
    EXPECT_EQ(form.caption, "New User");
    EXPECT_EQ(form.focus, "txtUserID");
    const std::vector<std::pair<const char*, const char*>> captions = {{"txtUserID", "RIMA Company No*:"},
                                                                       {"txtUSER_InvYr", "Inventory Year*:"},
                                                                       {"txtUSER_Company", "Company Name*:"},
                                                                       {"txtUSER_Address1", "Address 1*:"},
                                                                       {"txtUSER_Address2", "Address 2:"},
                                                                       {"txtUSER_City", "City*:"},
                                                                       {"txtUSER_State", "State*:"},
                                                                       {"txtUSER_Zip", "Zip Code*:"},
                                                                       {"txtUSER_Contact", "Contact Name*:"},
                                                                       {"txtUSER_Phone", "Phone*:"},
                                                                       {"txtUSER_Fax", "Fax:"},
                                                                       {"txtUSER_Email", "Email*:"}};
    for (const auto& [name, caption] : captions) EXPECT_EQ(form.At(name).caption, caption) << name;
    EXPECT_EQ(form.At("txtUSER_InvYr").text, "2017");
    EXPECT_EQ(form.At("txtUSER_Phone").text, "(___) ___ - ____ ext ____");
    EXPECT_EQ(form.At("txtUSER_Fax").text, "(___) ___ - ____");
    Texts labels;
    for (const Control& control : form.controls())
      if (control.kind == Kind::kLabel) labels.push_back(control.text);
    EXPECT_EQ(labels, (Texts{"Please enter your User Information",
                             "Only the owner/lessees can be listed as the Registered User", "(5 characters or less)",
                             "* = Required Information"}));
    EXPECT_EQ(form.At("txtUserID").note, "lblUserIDNote");
    EXPECT_EQ(form.default_button, "cmdOK");
    EXPECT_EQ(form.cancel_button, "cmdCANCEL");
  });
}

TEST_F(NewUser, is_held_to_its_checks_in_their_order) {
  InDialog([&](Form& form) {
    ExpectRefusals(run, form,
                   {{"Please enter your User ID", "txtUserID", "txtUserID", "12345"},
                    {"Please enter your Contact Name", "txtUSER_Contact", "txtUSER_Contact", "C"},
                    {"Please enter your Phone, Fax, or Email", "txtUSER_Phone", "txtUSER_Phone", "555"},
                    {"Not a valid phone number", "txtUSER_Phone", "txtUSER_Fax", "555"},
                    {"Not a valid fax number", "txtUSER_Fax", "txtUSER_Fax", "5551234567"},
                    {"Please enter your Email address", "txtUSER_Email", "txtUSER_Email", "e"},
                    {"Please enter your Company Name", "txtUSER_Company", "txtUSER_Company", "N"},
                    {"Please enter your Address", "txtUSER_Address1", "txtUSER_Address2", "A"},
                    {"Please enter your City", "txtUSER_City", "txtUSER_City", "T"},
                    {"Please enter your State", "txtUSER_State", "txtUSER_State", "S"},
                    {"Please enter your Zip Code", "txtUSER_Zip", "txtUSER_Zip", "Z"}});
    EXPECT_EQ(ToInteger(run.Sql("SELECT COUNT(*) FROM CO_COMPANY")), 0);
    run.Click("cmdOK");
    EXPECT_FALSE(form.visible);
  });
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(StoredText("ADDR2"), "A");
}

TEST_F(NewUser, takes_blanks_for_no_number) {
  InDialog([&](Form&) {
    Fill();
    run.Set("txtUserID", "   ");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please enter your User ID"});
  });
}

TEST_F(NewUser, empties_a_phone_and_a_fax_that_are_not_whole_for_retyping) {
  InDialog([&](Form& form) {
    Fill();
    run.Set("txtUSER_Phone", "555123456");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Not a valid phone number"});
    EXPECT_EQ(form.At("txtUSER_Phone").text, "(___) ___ - ____ ext ____");
    run.Set("txtUSER_Fax", "555123456");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Not a valid fax number"});
    EXPECT_EQ(form.At("txtUSER_Fax").text, "(___) ___ - ____");
  });
}

TEST_F(NewUser, accepts_an_email_alone_and_stores_the_empty_masks) {
  InDialog([&](Form&) {
    Fill();
    run.Set("txtUSER_Phone", "");
    run.Click("cmdOK");
  });
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(StoredText("Phone"), "(___) ___ - ____ ext ____");
  EXPECT_EQ(StoredText("Fax"), "(___) ___ - ____");
}

TEST_F(NewUser, counts_the_digits_of_an_extension_as_any_other) {
  InDialog([&](Form& form) {
    Fill();
    run.Set("txtUSER_Phone", "5551234567");
    run.Click("cmdOK");
    EXPECT_FALSE(form.visible);
  });
  EXPECT_EQ(StoredText("Phone"), "(555) 123 - 4567 ext ____");
}

TEST_F(NewUser, lets_no_sixth_character_of_a_number_in) {
  InDialog([&](Form& form) {
    run.Set("txtUserID", "123456");
    EXPECT_EQ(form.At("txtUserID").text, "12345");
    run.Set("txtUserID", "1");
    EXPECT_EQ(form.At("txtUserID").text, "1");
  });
}

TEST_F(NewUser, writes_the_operator_the_year_and_the_first_month) {
  InDialog([&](Form&) {
    Fill();
    run.Set("txtUSER_InvYr", "2014");
    run.Click("cmdOK");
  });
  const Rows row =
      run.s.db.Query("SELECT RIMA_CO_NUM,CO_NAME,ADDR1,ADDR2,City,State,Zip,Contact,Phone,Email FROM CO_COMPANY");
  ASSERT_EQ(row.rows.size(), 1u);
  EXPECT_EQ(row.rows[0], (Values{std::string("12345"), std::string("Blue Water"), std::string("1 Quay"), Null{},
                                 std::string("Port"), std::string("TX"), std::string("77001"), std::string("A. Person"),
                                 std::string("(555) 123 - 4567 ext ____"), std::string("a@b.example")}));
  EXPECT_EQ(ToInteger(run.Sql("SELECT sys_yr FROM SYS_CONFIG")), 2014);
  EXPECT_EQ(ToInteger(run.Sql("SELECT SYS_MAX_MO FROM SYS_CONFIG")), 1);
  EXPECT_EQ(run.s.year, 2014);
  EXPECT_EQ(run.s.last_month, 1);
  EXPECT_FALSE(run.s.save_failed);
}

TEST_F(NewUser, refuses_a_year_that_no_key_can_hold) {
  InDialog([&](Form& form) {
    Fill();
    for (const char* year : {"", "17", "20171", "201x", "-201"}) {
      run.Set("txtUSER_InvYr", year);
      run.Click("cmdOK");
      EXPECT_EQ(run.TakeBoxes().size(), 1u) << year;
      EXPECT_EQ(form.focus, "txtUSER_InvYr") << year;
      EXPECT_TRUE(form.visible) << year;
    }
  });
}

TEST_F(NewUser, that_cannot_be_stored_stays_open_and_tells_why) {
  InDialog([&](Form& form) {
    run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE INSERT ON CO_COMPANY BEGIN SELECT RAISE(ABORT,'no'); END");
    Fill();
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"no 3146"});
    EXPECT_TRUE(form.visible);
  });
  EXPECT_TRUE(run.s.ended);
}

TEST_F(NewUser, is_blank_again_at_the_next_start) {
  InDialog([&](Form&) { Fill(); });
  EXPECT_TRUE(run.s.ended);
  InDialog([&](Form& form) { EXPECT_EQ(form.At("txtUSER_Company").text, ""); });
}

// ---- a new structure ----

class NewStructureDialog : public testing::Test {
 protected:
  NewStructureDialog() { run.Start(); }
  void InDialog(std::function<void(Form&)> work, const std::string& opener = "cmdUSER_AddStructure") {
    bool worked = false;
    run.dialogs.push_back([&, work](Form& form) {
      ASSERT_EQ(form.name(), "frmNewStructure");
      work(form);
      worked = true;
    });
    run.Click(opener);
    EXPECT_TRUE(worked);
  }
  void Fill(const std::string& complex = "1001", const std::string& structure = "A") {
    run.Put({{"txtComplxID", complex},
             {"txtStructID", structure},
             {"txtArea", "GI"},
             {"txtBlock", "43"},
             {"txtName", "N"}});
  }
  TestRun run;
};

TEST_F(NewStructureDialog, asks_for_the_ids_and_the_three_parts_of_the_name) {
  InDialog([&](Form& form) {
    EXPECT_EQ(form.caption, "New Structure");
    EXPECT_EQ(form.At("txtUserID").caption, "RIMA Company No:");
    EXPECT_EQ(form.At("txtUserID").text, "12345");
    EXPECT_EQ(run.WhyNotSet("txtUserID"), "is locked");
    EXPECT_EQ(form.At("txtComplxID").caption, "RIMA Complex ID (5 chars):");
    EXPECT_EQ(form.At("txtStructID").caption, "RIMA Structure ID (2 chars):");
    EXPECT_EQ(form.At("txtArea").caption, "Area:");
    EXPECT_EQ(form.At("txtBlock").caption, "Block:");
    EXPECT_EQ(form.At("txtName").caption, "Name:");
  });
}

TEST_F(NewStructureDialog, is_held_to_its_checks_in_their_order) {
  InDialog([&](Form& form) {
    ExpectRefusals(run, form,
                   {{"Please supply a valid RIMA Complex ID (7 chars)", "txtComplxID", "txtComplxID", "1001"},
                    {"Please supply a valid RIMA Structure ID (2 chars)", "txtStructID", "txtStructID", "A"},
                    {"Please supply a valid Area", "txtArea", "txtArea", "GI"},
                    {"Please supply a valid Block", "txtBlock", "txtBlock", "43"},
                    {"Please supply a valid Name", "txtName", "txtName", "N"}});
    run.Click("cmdOK");
    EXPECT_FALSE(form.visible);
  });
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
}

TEST_F(NewStructureDialog, lets_seven_characters_of_a_complex_in_and_two_of_a_structure) {
  InDialog([&](Form& form) {
    run.Put({{"txtComplxID", "12345678"}, {"txtStructID", "123"}});
    EXPECT_EQ(form.At("txtComplxID").text, "1234567");
    EXPECT_EQ(form.At("txtStructID").text, "12");
  });
}

TEST_F(NewStructureDialog, refuses_a_pair_of_ids_that_exists_in_any_case_and_empties_the_id) {
  run.AddStructure("ab1", "x");
  run.SelectRoot();
  InDialog([&](Form& form) {
    Fill("AB1", "X");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(),
              Texts{"This Complex/Structure ID already exists. Please enter unique Complex/Structure ID."});
    EXPECT_TRUE(form.visible);
    EXPECT_EQ(form.At("txtStructID").text, "");
    EXPECT_EQ(form.At("txtComplxID").text, "AB1");
    run.Set("txtStructID", "Y");
    run.Click("cmdOK");
    EXPECT_FALSE(form.visible);
  });
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 2);
}

TEST_F(NewStructureDialog, takes_an_apostrophe_for_data) {
  InDialog([&](Form&) {
    Fill("O'B", "'");
    run.Click("cmdOK");
  });
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.Text("txtSTRUCTURE_CmplxID"), "O'B");
}

TEST_F(NewStructureDialog, adds_nothing_when_it_is_cancelled) {
  InDialog([&](Form&) {
    Fill();
    run.Click("cmdCANCEL");
  });
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 0);
  EXPECT_EQ(run.s.current.Level, "USER");
}

TEST_F(NewStructureDialog, selects_the_new_node_among_its_sorted_neighbours) {
  for (const char* name : {"B", "C", "A"}) run.AddStructure(std::string("1") + name, "1", name);
  EXPECT_EQ(run.TreeKeys(),
            (Texts{"K12345", run.Key("", "", 0, "1A"), run.Key("", "", 0, "1B"), run.Key("", "", 0, "1C")}));
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].text, "GI, 43, A");
  EXPECT_EQ(run.s.current.CmplxID, "1A");
  EXPECT_EQ(run.Text("txtSTRUCTURE_Name"), "A");
  EXPECT_EQ(run.s.message, "GI, 43, A added");
}

TEST_F(NewStructureDialog, can_be_opened_from_the_menu) {
  InDialog(
      [&](Form& form) {
        Fill();
        run.Click("cmdOK");
        EXPECT_FALSE(form.visible);
      },
      "mnuENewStructure");
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
}

TEST_F(NewStructureDialog, is_blank_at_every_opening) {
  InDialog([&](Form&) { Fill(); });
  InDialog([&](Form& form) {
    for (const char* name : {"txtComplxID", "txtStructID", "txtArea", "txtBlock", "txtName"})
      EXPECT_EQ(form.At(name).text, "") << name;
  });
}

TEST_F(NewStructureDialog, covers_the_main_window) {
  InDialog([&](Form&) {
    EXPECT_EQ(WhyNot(run.s.desk, *run.s.main, run.s.main->At("cmdEdit"), true), "is not on the screen");
    EXPECT_EQ(WhyNot(run.s.desk, *run.s.main, run.s.main->At("tvwTree"), true), "is not on the screen");
  });
}

// ---- new equipment ----

class NewEquipmentDialog : public testing::Test {
 protected:
  NewEquipmentDialog() { run.StartWithStructure(); }
  void InDialog(std::function<void(Form&)> work) {
    bool worked = false;
    run.dialogs.push_back([&, work](Form& form) {
      ASSERT_EQ(form.name(), "frmNewEquipment");
      work(form);
      worked = true;
    });
    run.Click("cmdSTRUCTURE_AddEquip");
    EXPECT_TRUE(worked);
  }
  void Fill(const std::string& id, const std::string& type) { run.Put({{"txtEquipID", id}, {"cmbEquipType", type}}); }
  TestRun run;
};

TEST_F(NewEquipmentDialog, shows_where_the_equipment_goes_and_asks_for_id_and_type) {
  InDialog([&](Form& form) {
    EXPECT_EQ(form.caption, "New Equipment");
    const std::vector<std::array<const char*, 3>> fixed = {{"txtUserID", "RIMA Company No:", "12345"},
                                                           {"txtComplxID", "RIMA Complex ID:", "1001"},
                                                           {"txtStructID", "RIMA Structure ID:", "1"}};
    for (const auto& [name, caption, text] : fixed) {
      EXPECT_EQ(form.At(name).caption, caption);
      EXPECT_EQ(form.At(name).text, text);
      EXPECT_EQ(run.WhyNotSet(name), "is locked") << name;
    }
    EXPECT_EQ(form.At("txtEquipID").caption, "Equipment ID (8 chars max):");
    EXPECT_EQ(form.At("cmbEquipType").caption, "Equipment Type:");
    EXPECT_EQ(
        form.At("cmbEquipType").items,
        (Texts{"Amine Unit", "Boiler, Heater, or Burner", "Cold Vent", "Combustion Flare", "Diesel or Gasoline Engine",
               "Drilling Equipment", "Fugitives", "Glycol Unit", "Loading Operation", "Losses from Flashing",
               "Mud Degassing", "Natural Gas Engine", "Natural Gas, Diesel, or Dual-Fuel Turbine", "Pneumatic Pump",
               "Pneumatic Controllers", "Storage Tank"}));
  });
}

TEST_F(NewEquipmentDialog, needs_an_id_and_a_type) {
  InDialog([&](Form& form) {
    ExpectRefusals(run, form,
                   {{"Please supply a valid Equipment ID (8 chars max)", "txtEquipID", "txtEquipID", "   "},
                    {"Please supply a valid Equipment ID (8 chars max)", "txtEquipID", "txtEquipID", "F1"},
                    {"Please select an Equipment Type", "cmbEquipType", "cmbEquipType", "Combustion Flare"}});
    run.Click("cmdOK");
    EXPECT_FALSE(form.visible);
  });
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), 1);
}

TEST_F(NewEquipmentDialog, lets_eight_characters_of_an_id_in) {
  InDialog([&](Form& form) {
    run.Set("txtEquipID", "123456789");
    EXPECT_EQ(form.At("txtEquipID").text, "12345678");
  });
}

TEST_F(NewEquipmentDialog, stores_the_id_without_the_blanks_around_it) {
  InDialog([&](Form&) {
    Fill("  F1 ", "Combustion Flare");
    run.Click("cmdOK");
  });
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC")), "F1");
  EXPECT_EQ(run.s.current.EquipID, "F1");
}

TEST_F(NewEquipmentDialog, refuses_an_id_that_the_type_has_on_the_structure_in_any_case) {
  run.AddEquipment("FLA", "f1");
  run.Select(run.Key());
  InDialog([&](Form& form) {
    Fill("F1", "Combustion Flare");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"This Equipment ID already exists. Please enter a unique ID."});
    EXPECT_TRUE(form.visible);
    run.Set("cmbEquipType", "Cold Vent");
    run.Click("cmdOK");
    EXPECT_FALSE(form.visible);
  });
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), 2);
}

TEST_F(NewEquipmentDialog, asks_for_another_id_when_a_key_exists_already) {
  run.s.db.Execute("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK,ED_EQUIP_TYP) VALUES (1,1,'VEN')");
  run.s.db.Execute("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK,ED_EQUIP_TYP) VALUES (9,1,'VEN')");
  run.s.db.Execute("INSERT INTO ED_FLA (ED_ID_AK) VALUES (9)");
  run.s.db.Execute("PRAGMA foreign_keys=OFF");
  run.s.db.Execute("INSERT INTO ED_FLA (ED_ID_AK) VALUES (10)");
  InDialog([&](Form& form) {
    Fill("F1", "Combustion Flare");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please supply a unique Equipment ID"});
    EXPECT_TRUE(form.visible);
  });
  EXPECT_EQ(run.Count("ED_EQUIP_DESC WHERE ED_MERLU_EQUIP_ID='F1'"), 0);
}

TEST_F(NewEquipmentDialog, tells_any_other_fault_with_its_number) {
  run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE INSERT ON ED_FLA BEGIN SELECT RAISE(ABORT,'no'); END");
  InDialog([&](Form& form) {
    Fill("F1", "Combustion Flare");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"no 3146"});
    EXPECT_TRUE(form.visible);
  });
  EXPECT_EQ(ToInteger(RawValue(run.s.path, "SELECT COUNT(*) FROM ED_EQUIP_DESC")), 0);  // whole, or not at all
}

TEST_F(NewEquipmentDialog, adds_nothing_when_it_is_cancelled) {
  InDialog([&](Form&) {
    Fill("F1", "Combustion Flare");
    run.Click("cmdCANCEL");
  });
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), 0);
  EXPECT_EQ(run.s.current.Level, "STRUCTURE");
}

TEST_F(NewEquipmentDialog, names_engines_and_turbines_in_the_tree_by_their_short_names) {
  run.AddEquipment("NGE", "E1");
  EXPECT_EQ(run.s.status_text, "Operator: 12345 › GI, 43, A › NG Engine: E1");
  run.Select(run.Key());
  run.AddEquipment("NGT", "T1");
  EXPECT_EQ(run.s.status_text, "Operator: 12345 › GI, 43, A › NG Turbine: T1");
}

TEST_F(NewEquipmentDialog, adds_fugitives_in_activity_mode_without_a_node) {
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  const Texts tree = run.TreeKeys();
  run.AddEquipment("FUG", "G1");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.TreeKeys(), tree);
  EXPECT_EQ(run.s.current.Level, "STRUCTURE");
  EXPECT_EQ(run.Count("ED_FUG"), 1);
  EXPECT_EQ(run.s.message, "Fugitives: G1 added");
}

// ---- about ----

TEST(About, tells_title_and_version_and_closes_with_ok) {
  TestRun run;
  run.Start();
  bool shown = false;
  run.dialogs.push_back([&](Form& form) {
    shown = true;
    EXPECT_EQ(form.name(), "frmAbout");
    EXPECT_TRUE(form.modal);
    EXPECT_EQ(form.At("lblTitle").text, "MERLU-2017");
    EXPECT_EQ(form.At("lblVersion").text, "Version 1.0.5 November 2016 Update");
    EXPECT_EQ(form.At("Label1").text, "Windows XP/Vista/7/8/10");
    run.Click("cmdOK");
    EXPECT_FALSE(form.visible);
  });
  run.Click("mnuHAbout");
  EXPECT_TRUE(shown);
  EXPECT_EQ(run.s.desk.showing, std::vector<Form*>{run.s.main});
}

TEST(DeleteCommand, asks_nothing_where_there_is_nothing_to_delete) {
  TestRun run;
  run.StartWithStructure();
  run.SelectRoot();
  DeleteCurrent(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
}

}  // namespace
}  // namespace merlu::test
