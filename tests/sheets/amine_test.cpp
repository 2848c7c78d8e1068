#include "amine.h"

namespace merlu::test {
namespace {

using namespace amine_unit;

// ---- what shows, and what is kept ----

TEST(Amine, shows_its_pages_titles_and_first_fields) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_EQ(run.At("tabAMI").items,
            (Texts{"General Info.", "Model Inputs", "Ventilation System", "Control Equipment", "QC Results"}));
  EXPECT_EQ(run.At("tabAMI").page_available, (std::vector<bool>{true, true, true, true, true}));
  EXPECT_EQ(run.At("fraAMI").caption, "Amine Unit");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraAMI").caption, "Amine Unit - EDIT DATA");
  EXPECT_EQ(run.s.desk.Find("frmAMI")->focus, "txtAMI_ConcNGH2S");
  run.Click("cmdCANCEL");
  run.GoTo("AMI", "A1", Mode::kActv);
  EXPECT_EQ(run.At("tabAMI").page_available, (std::vector<bool>{true, false, false, false, true}));
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraAMI").caption, "Amine Unit - EDIT DATA");
  EXPECT_EQ(run.s.desk.Find("frmAMI")->focus, kThroughput);
}

TEST(Amine, remembers_its_page_under_its_own_number) {
  TestRun run;
  run.StartWith("AMI", "A1");
  ASSERT_EQ(act::Page(run.s.desk, *run.s.desk.Find("frmAMI"), "tabAMI", 2), "");
  EXPECT_EQ(run.s.last_page_desc[1], 2);
  run.Select(run.Key());
  run.Select(run.Key("AMI", "A1"));
  EXPECT_EQ(run.At("tabAMI").index, 2);
}

TEST(Amine, shows_every_field_with_its_caption_and_lists_it_under_its_name) {
  TestRun run;
  run.StartWith("AMI", "A1");
  const auto expect = [&](const Field& field) {
    EXPECT_EQ(run.At(field.control).caption, field.caption) << field.control;
    EXPECT_EQ(run.At(field.control).tag, field.tag) << field.control;
  };
  for (const Field& field : kMonth) expect(field);
  for (const Field& field : kDescription) expect(field);
  expect({"txtAMI_Comments", "Comments:", "Comments"});
  expect({kTotal, "Total:", kTotalTag});
  expect({"cmbAMI_VentedToID", "Remote Vent/Flare ID:", "Low Pressure Vent/Flare ID"});
  expect({"zOptAMI_EmisEdit", "Quantity emitted (%)", ""});
  expect({"OptAMI_ModlEdit", "Model inputs", ""});
  EXPECT_EQ(run.At("chkAMI_Status").caption, "No Emissions to Report");
  EXPECT_EQ(run.At("fraAMI2").caption, "Specify emissions by");
  EXPECT_EQ(run.At("txtAMI_ConcNGH2S").block, "Unprocessed Natural Gas Concentrations (% by volume)");
  EXPECT_EQ(run.Text(run.At("cmbAMI_VentedToID").note), "(selected from current structure)");
}

TEST(Amine, holds_the_nine_quantities_emitted_out_of_sight) {
  struct {
    const char *control, *tag;
  } const fields[] = {{"xtAMI_EmittedH2S", "H2S % Emitted"},
                      {"xtAMI_EmittedMethane", "Methane % Emitted"},
                      {"xtAMI_EmittedEthane", "Ethane % Emitted"},
                      {"xtAMI_EmittedC3HC", "C3 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC4HC", "C4 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC5HC", "C5 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC6HC", "C6 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC7HC", "C7 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC8plusHC", "C8+ Hydrocarbon % Emitted"}};
  TestRun run;
  run.StartWith("AMI", "A1");
  const Form& form = *run.s.desk.Find("frmAMI");
  for (const auto& field : fields) {
    const Control* control = form.Find(field.control);
    ASSERT_NE(control, nullptr) << field.control;
    EXPECT_EQ(control->tag, field.tag);
    EXPECT_FALSE(IsVisible(form, *control)) << field.control;
  }
  run.Click("cmdEdit");
  for (const auto& field : fields) EXPECT_FALSE(IsVisible(form, form.At(field.control))) << field.control;
}

TEST(Amine, leaves_the_stored_quantities_emitted_alone) {
  TestRun run;
  run.StartWith("AMI", "A1");
  const Texts columns = {"Emis_H2S",  "Emis_Methane", "Emis_Ethane", "Emis_C3HC",     "Emis_C4HC",
                         "Emis_C5HC", "Emis_C6HC",    "Emis_C7HC",   "Emis_C8plus_HC"};
  for (std::size_t i = 0; i < columns.size(); ++i)
    run.s.db.Execute("UPDATE ED_AMI SET " + columns[i] + "=" + std::to_string(i) + ".5");
  SelectAgain(run);
  run.Keep({{"txtAMI_ConcN2", "3"}});
  for (std::size_t i = 0; i < columns.size(); ++i)
    EXPECT_EQ(StoredText(run, columns[i]), std::to_string(i) + ".5") << columns[i];
}

TEST(Amine, keeps_every_field_of_the_description_in_its_column) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  const std::string temperature = "txtAMI_ExhaustOutletT";
  for (const Field& field : kDescription)
    if (field.control == temperature) run.Put({{kDestination, "Vented Locally"}, {temperature, field.text}});
  for (const Field& field : kDescription)
    if (field.control != temperature) run.Set(field.control, field.text);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  for (const Field& field : kDescription) EXPECT_EQ(StoredText(run, field.column), field.stored) << field.control;
  SelectAgain(run);
  for (const Field& field : kDescription) EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  EXPECT_EQ(StoredText(run, "TOT_GAS_THRUPUT", "EA_AMI"), "");
}

TEST(Amine, keeps_every_field_of_a_month_in_its_column) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const Field& field : kMonth) run.Set(field.control, field.text);
  run.Set("txtAMI_Comments", "a dry month");
  run.Check("chkAMI_Status", true);
  run.Click("cmdSaveEdits");
  for (const Field& field : kMonth) {
    EXPECT_EQ(StoredText(run, field.column, "EA_AMI"), field.stored) << field.control;
    EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  }
  EXPECT_EQ(StoredText(run, "EA_COMNT_TXT", "EA_EQUIP_ACTV"), "a dry month");
  EXPECT_EQ(StoredText(run, "EA_STATUS", "EA_EQUIP_ACTV"), "I");
  run.Check("chkAMI_Status", false);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "EA_STATUS", "EA_EQUIP_ACTV"), "A");
}

TEST(Amine, keeps_each_item_of_its_lists_as_its_code_or_its_text) {
  struct {
    const char *list, *column;
    Values items;
  } const lists[] = {
      {kTechnology,
       "CTRL_TECH",
       {{"None", "NONE"}, {kRecovery, "VR/C"}, {"Sulfur Recovery (SR)", "SR"}, {"SR + VR/C", "SRVC"}}},
      {"cmbAmi_Disposition", "Disposition", {{"Vented", "VL"}, {"Flared", "FL"}, {"Routed to System", "RS"}}},
      {"cmbAMI_AmineType",
       "AMINE_TYP",
       {{"MEA", "MEA"}, {"DEA", "DEA"}, {"TEA", "TEA"}, {"MDEA", "MDEA"}, {"GDA", "GDA"}}},
      {"cmbAmi_UseFlashTank", "FLASHTANK_FLG", {{"Yes", "True"}, {"No", "False"}}},
      {"cmbAMI_OtherControlDevice", "OTH_CTRL_DEVICE", {{"Yes", "True"}, {"No", "False"}}},
  };
  TestRun run;
  run.StartWith("AMI", "A1");
  for (const auto& list : lists) {
    EXPECT_TRUE(IsStoredNull(run, list.column)) << list.column;
    Texts items;
    for (const auto& [item, code] : list.items) {
      run.Keep({{list.list, item}});
      EXPECT_EQ(StoredText(run, list.column), code) << item;
      SelectAgain(run);
      EXPECT_EQ(run.Text(list.list), item);
      EXPECT_EQ(run.At(list.list).index, static_cast<int>(items.size())) << item;
      items.push_back(item);
    }
    EXPECT_EQ(run.At(list.list).items, items);
  }
}

TEST(Amine, shows_no_choice_for_a_code_that_no_item_has) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.s.db.Execute("UPDATE ED_AMI SET CTRL_TECH='CND', Disposition='VR', AMINE_TYP='XEA'");
  SelectAgain(run);
  for (const char* list : {kTechnology, "cmbAmi_Disposition", "cmbAMI_AmineType"}) {
    EXPECT_EQ(run.Text(list), "") << list;
    EXPECT_EQ(run.At(list).index, -1) << list;
  }
}

TEST(Amine, shows_the_composition_in_a_month_and_does_not_let_it_be_typed) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_FALSE(run.Visible(kThroughput));
  EXPECT_FALSE(run.Visible(kHours));
  EXPECT_FALSE(run.Visible("txtAMI_Comments"));
  run.Keep(Composition("40", "59.9"));
  run.GoTo("AMI", "A1", Mode::kActv);
  EXPECT_TRUE(run.Visible(kThroughput));
  EXPECT_TRUE(run.Visible(kHours));
  EXPECT_TRUE(run.Visible("txtAMI_Comments"));
  run.Click("cmdEdit");
  EXPECT_TRUE(run.Visible("chkAMI_Status"));
  EXPECT_EQ(run.Text("txtAMI_ConcNGH2S"), "40");
  EXPECT_EQ(run.Text("txtAMI_ConcMethane"), "59.9");
  for (const Bound& one : kConcentrations) {
    EXPECT_TRUE(run.Visible(one.control)) << one.control;
    EXPECT_EQ(run.WhyNotSet(one.control), "is locked") << one.control;
  }
  EXPECT_EQ(run.WhyNotSet(kThroughput), "");
  EXPECT_EQ(run.WhyNotSet(kHours), "");
}

// ---- model inputs ----

TEST(Amine, shows_neither_option_without_model_inputs_and_stores_that_there_are_none) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_FALSE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_FALSE(run.At("zOptAMI_EmisEdit").checked);
  run.Keep({});
  EXPECT_EQ(StoredText(run, "MODELINPUTS_FLG"), "False");
  SelectAgain(run);
  EXPECT_FALSE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_FALSE(run.At("zOptAMI_EmisEdit").checked);
  run.Click("cmdQC");
  for (const Bound& bound : kModelBounds) EXPECT_EQ(run.Finding(bound.tag), "") << bound.control;
  for (const char* tag : {"Amine Type", "Equipped with flash tank?", "Destination of Flash Gas"})
    EXPECT_EQ(run.Finding(tag), "") << tag;
}

TEST(Amine, stores_that_there_are_model_inputs_and_shows_it_again) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "MODELINPUTS_FLG"), "True");
  EXPECT_TRUE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_FALSE(run.At("zOptAMI_EmisEdit").checked);
  run.Click("zOptAMI_EmisEdit");
  EXPECT_FALSE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_TRUE(run.At("zOptAMI_EmisEdit").checked);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "MODELINPUTS_FLG"), "False");
  EXPECT_FALSE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_FALSE(run.At("zOptAMI_EmisEdit").checked);
}

TEST(Amine, unlocks_the_model_inputs_for_an_edit_whatever_option_is_set) {
  TestRun run;
  run.StartWith("AMI", "A1");
  const auto expect = [&](bool editable, const char* when) {
    for (const char* name : kModelFields) {
      EXPECT_EQ(run.At(name).locked, !editable) << name << " " << when;
      EXPECT_TRUE(run.At(name).enabled) << name << " " << when;
      EXPECT_EQ(run.At(name).back, editable ? Back::kWindow : Back::kFace) << name << " " << when;
    }
  };
  expect(false, "in view");
  run.Click("cmdEdit");
  expect(true, "with neither option");
  run.Click("zOptAMI_EmisEdit");
  expect(true, "with quantity emitted");
  run.Click("OptAMI_ModlEdit");
  expect(true, "with model inputs");
  run.Set("cmbAmi_UseFlashTank", "No");
  expect(true, "without a flash tank");
  run.Click("cmdCANCEL");
  expect(false, "in view again");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const char* name : kModelFields) EXPECT_TRUE(run.At(name).locked) << name << " in a month";
}

TEST(Amine, looks_editable_again_when_model_inputs_are_clicked) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Click("cmdQC");
  ASSERT_EQ(run.At("txtAMI_Nbr").back, Back::kFlag);
  run.Click("OptAMI_ModlEdit");
  for (const char* name : kModelFields) EXPECT_EQ(run.At(name).back, Back::kWindow) << name;
}

TEST(Amine, keeps_the_model_inputs_when_quantity_emitted_is_chosen) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep({{"txtAMI_Nbr", "20"}, {"txtAMI_SourTemp", "90"}, {"cmbAMI_AmineType", "MDEA"}});
  run.Click("cmdEdit");
  run.Click("zOptAMI_EmisEdit");
  EXPECT_EQ(run.Text("txtAMI_Nbr"), "20");
  EXPECT_EQ(run.Text("txtAMI_SourTemp"), "90");
  EXPECT_EQ(run.Text("cmbAMI_AmineType"), "MDEA");
  run.Set("txtAMI_Nbr", "21");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "NUM"), "21");
  EXPECT_EQ(StoredText(run, "Sour_Temp"), "90");
  EXPECT_EQ(StoredText(run, "AMINE_TYP"), "MDEA");
}

TEST(Amine, without_a_flash_tank_lacks_nothing_of_one) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Set("cmbAmi_UseFlashTank", "Yes");
  run.Click("cmdQC");
  ASSERT_EQ(run.Finding("Flash Tank Temperature"), kBlankFinding);
  ASSERT_EQ(run.At("txtAMI_FlashTemp").back, Back::kFlag);
  run.Set("cmbAmi_UseFlashTank", "No");
  run.Click("cmdQC");
  for (const char* tag : {"Destination of Flash Gas", "Flash Tank Temperature", "Flash Tank  Pressure"})
    EXPECT_EQ(run.Finding(tag), "") << tag;
  for (const char* name : {"cmbAmi_Disposition", "txtAMI_FlashTemp", "txtAMI_FlashPress"}) {
    EXPECT_EQ(run.At(name).back, Back::kWindow) << name;
    EXPECT_EQ(run.WhyNotSet(name), "") << name;
  }
}

TEST(Amine, without_a_flash_tank_keeps_the_findings_that_were_explained) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Set("cmbAmi_UseFlashTank", "Yes");
  run.Click("cmdQC");
  run.s.db.Execute(
      "UPDATE QC SET Comments='being fitted' WHERE FieldID IN ('Flash Tank Temperature','Number of Absorb trays')");
  run.Set("cmbAmi_UseFlashTank", "No");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Flash Tank Temperature"), kBlankFinding);
  EXPECT_EQ(run.Finding("Flash Tank  Pressure"), "");
  // without model inputs their rules do not run, and an explained finding remains
  run.Click("zOptAMI_EmisEdit");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Flash Tank Temperature"), kBlankFinding);
  EXPECT_EQ(run.Finding("Number of Absorb trays"), kBlankFinding);
  EXPECT_EQ(run.Finding("Amine Type"), "");
  EXPECT_EQ(run.At("txtAMI_Nbr").back, Back::kFlag) << "not even the mark is taken away";
  EXPECT_EQ(run.Count("QC WHERE Comments='being fitted'"), 2);
}

// Findings of fields that one choice of the list asks for, and another does not: explained ones go, too.
void ExpectExplainedWithdrawn(const char* list, const char* with, const char* without, const Texts& tags) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Set(list, with);
  run.Click("cmdQC");
  for (const std::string& tag : tags) EXPECT_EQ(run.Finding(tag), kBlankFinding) << tag;
  run.s.db.Execute("UPDATE QC SET Comments='being fitted'");
  run.Set(list, without);
  run.Click("cmdQC");
  for (const std::string& tag : tags) EXPECT_EQ(run.Finding(tag), "") << tag;
}

TEST(Amine, withdraws_an_explained_outlet_finding_when_the_destination_asks_for_none) {
  ExpectExplainedWithdrawn(
      kDestination, "Flared Locally", "Flared Remotely",
      {"Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
       "Ventilation Outlet Orientation", "Flare Feed Rate", "Flare Combustion Temperature", "Combustion Efficiency"});
}

TEST(Amine, withdraws_explained_findings_of_equipment_that_is_not_installed) {
  ExpectExplainedWithdrawn(kTechnology, "SR + VR/C", "None",
                           {"Condenser Temperature", "Condenser Pressure", "Sulfur Recovery Efficiency"});
}

// ---- control equipment and destination on the screen ----

TEST(Amine, turns_condenser_and_sulfur_recovery_on_and_off_by_the_control_equipment) {
  struct Row {
    const char* item;
    bool condenser, recovery;
  };
  const Row rows[] = {{"None", false, false},
                      {"SR + VR/C", true, true},
                      {kRecovery, true, false},
                      {"Sulfur Recovery (SR)", false, true},
                      {kRecovery, true, false},
                      {"SR + VR/C", true, true},
                      {"Sulfur Recovery (SR)", false, true},
                      {"None", false, false}};
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  const auto expect = [&](const Row& row) {
    for (const char* name : {"txtAMI_CondenserT", "txtAMI_CondenserP"}) {
      EXPECT_EQ(run.At(name).enabled, row.condenser) << name << " " << row.item;
      EXPECT_EQ(run.At(name).back, row.condenser ? Back::kWindow : Back::kFace) << name << " " << row.item;
    }
    EXPECT_EQ(run.At("txtAMI_SRURecoveryEff").enabled, row.recovery) << row.item;
    EXPECT_EQ(run.At("txtAMI_SRURecoveryEff").back, row.recovery ? Back::kWindow : Back::kFace) << row.item;
  };
  expect({"", false, false});
  for (const Row& row : rows) {
    run.Set(kTechnology, "SR + VR/C");
    run.Put({{"txtAMI_CondenserT", "40"}, {"txtAMI_CondenserP", "14"}, {"txtAMI_SRURecoveryEff", "95"}});
    run.Set(kTechnology, row.item);
    expect(row);
    EXPECT_EQ(run.Text("txtAMI_CondenserT"), row.condenser ? "40" : "") << row.item;
    EXPECT_EQ(run.Text("txtAMI_CondenserP"), row.condenser ? "14" : "") << row.item;
    EXPECT_EQ(run.Text("txtAMI_SRURecoveryEff"), row.recovery ? "95" : "") << row.item;
  }
}

TEST(Amine, turns_the_other_device_s_fields_on_with_the_device_and_keeps_their_texts) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  const Values texts = {{"txtAMI_OtherControlDesc", "scrubber"}, {"txtAMI_OtherControlEffSOx", "1"},
                        {"txtAMI_OtherControlEffNOx", "2"},      {"txtAMI_OtherControlEffCO", "3"},
                        {"txtAMI_OtherControlEffVOC", "4"},      {"txtAMI_OtherControlEffPM10", "5"}};
  const auto expect = [&](bool on, const char* device) {
    for (const auto& [name, text] : texts) {
      EXPECT_EQ(run.At(name).enabled, on) << name << " " << device;
      EXPECT_EQ(run.At(name).back, on ? Back::kWindow : Back::kFace) << name << " " << device;
    }
  };
  expect(false, "");
  run.Set("cmbAMI_OtherControlDevice", "Yes");
  expect(true, "Yes");
  run.Put(texts);
  run.Set("cmbAMI_OtherControlDevice", "No");
  expect(false, "No");
  for (const auto& [name, text] : texts) EXPECT_EQ(run.Text(name), text) << name;
}

TEST(Amine, routed_to_the_system_empties_outlet_and_flare_at_once_and_for_good) {
  TestRun run;
  run.StartWith("AMI", "A1");
  for (const auto& [type, id] : Values{{"FLA", "F1"}}) {
    run.Select(run.Key());
    run.AddEquipment(type, id);
  }
  run.Select(run.Key("AMI", "A1"));
  run.Click("cmdEdit");
  run.Put({{kDestination, "Vented Locally"},
           {"txtAMI_ExhaustOutletHgt", "10"},
           {"txtAMI_ExhaustOutletInnerDiam", "4"},
           {"txtAMI_ExhaustOutletExitVel", "50"},
           {"txtAMI_ExhaustOutletT", "100"},
           {"txtAMI_ExhaustOutletAngle", "90"},
           {kDestination, "Flared Locally"},
           {"txtAMI_FlareFeedRate", "100"},
           {"txtAMI_FlareCombustionT", "1500"},
           {"txtAMI_FlareEfficiency", "98"},
           {kDestination, "Flared Remotely"},
           {"cmbAMI_VentedToID", "Flare: F1"}});
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "EXH_OUT_TEMP"), "100");
  run.Set(kDestination, "Routed to System");
  const auto expect_empty = [&](const char* when) {
    for (const char* name : kOutletFields) EXPECT_EQ(run.Text(name), "") << name << " " << when;
    EXPECT_EQ(run.Text("cmbAMI_VentedToID"), "") << when;
    EXPECT_EQ(run.At("cmbAMI_VentedToID").index, -1) << when;
  };
  expect_empty("at once");
  for (const char* name : kOutletFields) {
    EXPECT_FALSE(run.At(name).enabled) << name;
    EXPECT_EQ(run.At(name).back, Back::kFace) << name;
  }
  EXPECT_FALSE(run.At("cmbAMI_VentedToID").enabled);
  EXPECT_EQ(run.At("cmbAMI_VentedToID").items, Texts{"Flare: F1"}) << "the list is not filled again";
  run.Click("cmdSaveEdits");
  expect_empty("after the save");
  for (const char* column : {"EXH_OUT_HGT", "EXH_OUT_INNER_DIAM", "EXH_OUT_EXIT_VEL", "EXH_OUT_TEMP", "EXH_OUT_ANGLE",
                             "FLA_FEED_RATE", "FLA_COMBUST_TEMP", "FLA_EFFIC", "SENT_TO_ID"})
    EXPECT_TRUE(IsStoredNull(run, column)) << column;
  EXPECT_EQ(StoredText(run, "EMIS_DEST"), "RS");
}

}  // namespace
}  // namespace merlu::test
