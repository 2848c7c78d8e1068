#include "amine.h"

namespace merlu::test {
namespace {

using namespace amine_unit;

// ---- bounds ----

TEST(Amine, is_held_to_the_bounds_of_the_model_inputs) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Set("cmbAmi_UseFlashTank", "Yes");
  TryInEdit(run, kModelBounds, kBlankFinding);
  TryInEdit(run, kFlashBounds, kBlankFinding);
}

TEST(Amine, is_held_to_the_bounds_of_the_efficiencies_that_are_given) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Set("cmbAMI_OtherControlDevice", "Yes");
  TryInEdit(run,
            {{"txtAMI_OtherControlEffSOx", "SOx Efficiency", 0, 99.9},
             {"txtAMI_OtherControlEffNOx", "NOx Efficiency", 0, 99.9},
             {"txtAMI_OtherControlEffCO", "CO Efficiency", 0, 99.9},
             {"txtAMI_OtherControlEffVOC", "VOC Efficiency", 0, 99.9},
             {"txtAMI_OtherControlEffPM10", "PM10 Efficiency", 0, 99.9}},
            "");
  EXPECT_EQ(run.Finding("Other Control Device Descript."), kBlankFinding);
  run.Set("txtAMI_OtherControlDesc", "scrubber");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Other Control Device Descript."), "");
}

TEST(Amine, without_another_control_device_keeps_its_efficiencies_and_raises_nothing) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep({{"cmbAMI_OtherControlDevice", "Yes"},
            {"txtAMI_OtherControlEffCO", "120"},
            {"txtAMI_OtherControlEffVOC", "99.91"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("CO Efficiency"), RangeFinding(0, 99.9));
  EXPECT_EQ(run.Finding("VOC Efficiency"), RangeFinding(0, 99.9));
  run.Keep({{"cmbAMI_OtherControlDevice", "No"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE FieldID LIKE '%Efficiency' OR FieldID LIKE 'Other%'"), 0);
  EXPECT_EQ(StoredText(run, "OTH_CTRL_EFFIC_CO"), "120");
  EXPECT_EQ(StoredText(run, "OTH_CTRL_EFFIC_VOC"), "99.91");
}

// ---- blank records ----

TEST(Amine, blank_in_a_month_lacks_throughput_and_hours) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Processed Throughput", kBlankFinding}, {"Hours Operated", kBlankFinding}}));
}

TEST(Amine, blank_in_its_description_lacks_composition_destination_and_control_equipment) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdQC");
  Found expected;
  for (const Bound& one : kConcentrations) expected.emplace_back(one.tag, kBlankFinding);
  expected.emplace_back(kTotalTag, kTotalFinding);
  expected.emplace_back("Emissions Destination", kBlankFinding);
  expected.emplace_back("Installed Control Equipment", kBlankFinding);
  EXPECT_EQ(run.Findings(), expected);
}

TEST(Amine, blank_with_model_inputs_lacks_those_too_in_their_order) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep(Composition("50", "50"));
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Click("cmdQC");
  Found expected;
  const auto blank = [&](std::initializer_list<const char*> tags) {
    for (const char* tag : tags) expected.emplace_back(tag, kBlankFinding);
  };
  blank({"Amine Type", "Equipped with flash tank?", "Sour gas feed pressure", "Sour gas feed temperature",
         "Number of Absorb trays", "Lean Amine feed pressure", "Lean Amine feed temperature",
         "Lean Amine feed flowrate", "Lean Amine feed amine content", "Lean Amine feed H2S content",
         "Lean Amine feed CO2 content", "Emissions Destination", "Installed Control Equipment"});
  EXPECT_EQ(run.Findings(), expected);
  run.Set("cmbAmi_UseFlashTank", "Yes");
  run.Click("cmdQC");
  expected.clear();
  blank({"Amine Type", "Sour gas feed pressure", "Sour gas feed temperature", "Destination of Flash Gas",
         "Flash Tank Temperature", "Flash Tank  Pressure", "Number of Absorb trays", "Lean Amine feed pressure",
         "Lean Amine feed temperature", "Lean Amine feed flowrate", "Lean Amine feed amine content",
         "Lean Amine feed H2S content", "Lean Amine feed CO2 content", "Emissions Destination",
         "Installed Control Equipment"});
  EXPECT_EQ(run.Findings(), expected);
}

TEST(Amine, routed_to_the_system_lacks_no_outlet_and_no_flare) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("50", "50"));
  run.Put({{kTechnology, "None"}, {kDestination, "Flared Locally"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC"), 7);
  run.Set(kDestination, "Routed to System");
  run.TakeBoxes();
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes(), Texts{"QC completed, no errors found"});
  EXPECT_EQ(run.Count("QC"), 0);
}

// ---- colours ----

TEST(Amine, looks_passed_again_once_a_required_list_is_chosen) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Put({{"cmbAmi_UseFlashTank", "Yes"}, {"cmbAMI_OtherControlDevice", "Yes"}});
  run.Click("cmdQC");
  const Values choices = {{"cmbAMI_AmineType", "DEA"},
                          {"cmbAmi_Disposition", "Vented"},
                          {kTechnology, "None"},
                          {"txtAMI_OtherControlDesc", "scrubber"}};
  for (const auto& [name, text] : choices) EXPECT_EQ(run.At(name).back, Back::kFlag) << name;
  run.Put(choices);
  run.Click("cmdQC");
  for (const auto& [name, text] : choices) EXPECT_EQ(run.At(name).back, Back::kWindow) << name;
}

TEST(Amine, leaves_the_colour_of_an_efficiency_that_is_blank) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put({{"cmbAMI_OtherControlDevice", "Yes"},
           {"txtAMI_OtherControlEffSOx", "100"},
           {"txtAMI_OtherControlEffNOx", "100"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.At("txtAMI_OtherControlEffSOx").back, Back::kFlag);
  run.Put({{"txtAMI_OtherControlEffSOx", ""}, {"txtAMI_OtherControlEffNOx", "99.9"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.At("txtAMI_OtherControlEffSOx").back, Back::kFlag);
  EXPECT_EQ(run.At("txtAMI_OtherControlEffNOx").back, Back::kWindow);
  EXPECT_EQ(run.Finding("SOx Efficiency"), "");
}

// ---- the total of the composition ----

TEST(Amine, accepts_a_composition_of_99_8_to_100_and_no_other) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  struct {
    const char *first, *second, *total;
    bool passes;
  } const cases[] = {{"49.9", "49.9", "99.8", true},   {"50", "50", "100", true},    {"49.9", "49.89", "99.79", false},
                     {"50.01", "50", "100.01", false}, {"50", "49.9", "99.9", true}, {"0", "0", "0", false}};
  for (const auto& one : cases) {
    run.Put(Composition(one.first, one.second));
    run.Click("cmdQC");
    EXPECT_EQ(run.Text(kTotal), one.total);
    EXPECT_EQ(run.Finding(kTotalTag), one.passes ? "" : kTotalFinding) << one.total;
    EXPECT_EQ(run.At(kTotal).back, one.passes ? Back::kFace : Back::kFlag) << one.total;
  }
}

TEST(Amine, adds_up_all_twelve_concentrations) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  double number = 0.5, sum = 0;
  for (const Bound& one : kConcentrations) {
    run.Set(one.control, GeneralNumber(number));
    sum += number;
    number *= 2;
    run.Click("cmdQC");
    EXPECT_EQ(run.Text(kTotal), GeneralNumber(sum)) << one.control;
  }
}

TEST(Amine, prints_the_total_as_a_plain_number) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("0.1", "0.2"));
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "0.3");
}

TEST(Amine, counts_letters_in_the_composition_as_nothing_and_stores_nothing_for_them) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("trace", "99.9"));
  run.Set("txtAMI_ConcN2", "5 or so");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("H2S Concentration"), "");
  EXPECT_EQ(run.Finding("N2 Concentration"), "");
  EXPECT_EQ(run.Text(kTotal), "99.9");
  EXPECT_EQ(run.Finding(kTotalTag), "");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsStoredNull(run, "Conc_NGH2S"));
  EXPECT_TRUE(IsStoredNull(run, "CONC_N2"));
  EXPECT_EQ(StoredText(run, "Conc_Methane"), "99.9");
  EXPECT_EQ(run.Text("txtAMI_ConcNGH2S"), "");
}

TEST(Amine, stores_the_total_of_the_last_run_and_not_of_the_save) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("60", "40"));
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  EXPECT_EQ(run.Text(kTotal), "");
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "100");
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "UNG_CONC_TOTAL"), "100");
  run.Set("txtAMI_ConcMethane", "30");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "Conc_Methane"), "30");
  EXPECT_EQ(StoredText(run, "UNG_CONC_TOTAL"), "100");
  EXPECT_EQ(run.Text(kTotal), "100");
  run.Click("cmdSaveExit");
  EXPECT_EQ(StoredText(run, "UNG_CONC_TOTAL"), "90");
  EXPECT_EQ(run.Text(kTotal), "90");
}

TEST(Amine, shows_the_total_of_a_run_in_view_without_storing_it) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep(Composition("60", "40"));
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "100");
  EXPECT_EQ(run.At(kTotal).back, Back::kFace);
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  SelectAgain(run);
  EXPECT_EQ(run.Text(kTotal), "");
}

TEST(Amine, never_lets_the_total_be_typed) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
  EXPECT_EQ(run.At(kTotal).back, Back::kFace);
  run.Click("cmdCANCEL");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
}

// ---- the structure's throughput, and hours ----

TEST(Amine, may_not_process_more_than_its_structure) {
  struct {
    const char *total, *throughput;
    bool exceeds;
  } const cases[] = {{"NULL", "10", false}, {"0", "10", false},   {"0.4", "10", false}, {"0.6", "10", true},
                     {"10", "10", false},   {"10", "10.5", true}, {"10", "9.5", false}, {"0.6", "0.5", false}};
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  run.Set(kHours, "100");
  for (const auto& one : cases) {
    run.s.db.Execute(std::string("UPDATE PA_PLATFORM_ACTV SET THRU_NG=") + one.total);
    run.Set(kThroughput, one.throughput);
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Processed Throughput"), one.exceeds ? kExceeds : "")
        << one.throughput << " of " << one.total;
  }
}

TEST(Amine, compares_its_throughput_in_full_precision) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET THRU_NG=100");
  run.Put({{kHours, "10"}, {kThroughput, "100.000001"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Processed Throughput"), kExceeds);
}

TEST(Amine, shows_its_description_unchanged_while_a_month_is_edited) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.s.db.Execute(
      "UPDATE ED_AMI SET EMIS_DEST='RS',EXH_OUT_HGT=4,CTRL_TECH='NONE',CONDENSER_TEMP=50,SRU_RECOVERY_EFFIC=60");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const auto& [field, text] : {std::pair{"txtAMI_ExhaustOutletHgt", "4"}, std::pair{"txtAMI_CondenserT", "50"},
                                    std::pair{"txtAMI_SRURecoveryEff", "60"}}) {
    EXPECT_EQ(run.Text(field), text) << field;
    EXPECT_TRUE(run.At(field).enabled && run.At(field).locked) << field;
    EXPECT_EQ(run.At(field).back, Back::kFace) << field;
  }
}

TEST(Amine, has_one_finding_on_a_throughput_that_is_out_of_range_and_over_the_structure_s) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET THRU_NG=100");
  run.Put({{kHours, "100"}, {kThroughput, "15501"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Processed Throughput", kExceeds}}));
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET THRU_NG=20000");
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Processed Throughput", RangeFinding(0, 15500)}}));
  run.Set(kThroughput, "");
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Processed Throughput", kBlankFinding}}));
}

TEST(Amine, may_not_run_no_hours_while_it_processes_gas) {
  struct {
    const char *throughput, *hours, *finding;
  } const cases[] = {{"5", "0", kZeroHours},
                     {"5", "0.5", ""},
                     {"0", "0", ""},
                     {"", "0", ""},
                     {"-1", "0", ""},
                     {"5", "none", kZeroHours},
                     {"5", "-1", "Value not in expected range (0 to 744)"},
                     {"5", "", kBlankFinding},
                     {"5", "745", "Value not in expected range (0 to 744)"},
                     {"0.001", "0", kZeroHours}};
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const auto& one : cases) {
    run.Put({{kThroughput, one.throughput}, {kHours, one.hours}});
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Hours Operated"), one.finding) << one.throughput << " in " << one.hours;
    EXPECT_EQ(run.At(kHours).back, *one.finding == '\0' ? Back::kWindow : Back::kFlag)
        << one.throughput << " in " << one.hours;
  }
}

// ---- findings that a run takes away ----

// Amine units A1 and A2, each with findings of month 1; those of A2's throughput and A1's hours explained.
void StartWithTwo(TestRun& run, const std::string& type, const std::string& throughput_tag) {
  run.StartWith(type, "A1");
  run.Select(run.Key());
  run.AddEquipment(type, "A2");
  run.GoTo(type, "A1", Mode::kActv);
  run.Click("cmdQC");
  run.GoTo(type, "A2", Mode::kActv);
  run.s.db.Execute("UPDATE QC SET Comments='meter broken' WHERE EquipID='A1'");
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='meter broken' WHERE EquipID='A2' AND FieldID='" + throughput_tag + "'");
}

TEST(Amine, checked_withdraws_the_unexplained_findings_of_the_other_units) {
  TestRun run;
  StartWithTwo(run, "AMI", "Processed Throughput");
  ASSERT_EQ(run.Count("QC WHERE EquipID='A2'"), 2);
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings("EquipID='A2'"), (Found{{"Processed Throughput", kBlankFinding}}));
  EXPECT_EQ(run.Count("QC WHERE EquipID='A1' AND Comments='meter broken'"), 2)
      << "its own explained findings still hold";
}

TEST(Amine, checked_leaves_the_other_units_findings_of_the_other_mode_and_of_other_months) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Select(run.Key());
  run.AddEquipment("AMI", "A2");
  run.Click("cmdQC");
  const auto described = run.Count("QC WHERE EditMode='DESC' AND EquipID='A2'");
  EXPECT_EQ(described, 15);
  run.AddMonth();
  run.GoTo("AMI", "A2", Mode::kActv, 2);
  run.Click("cmdQC");
  run.GoTo("AMI", "A1", Mode::kActv, 1);
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE EditMode='DESC' AND EquipID='A2'"), described);
  EXPECT_EQ(run.Count("QC WHERE EditMode='ACTV' AND EquipID='A2' AND [Month]=2"), 2);
}

TEST(Amine, checked_with_its_structure_leaves_the_unexplained_findings_of_the_last_unit_only) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Select(run.Key());
  run.AddEquipment("AMI", "A2");
  run.Select(run.Key());
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE EquipID='A1'"), 0);
  EXPECT_EQ(run.Count("QC WHERE EquipID='A2'"), 15);
}

TEST(Amine, inactive_withdraws_explained_findings_of_all_units_where_a_dehydrator_keeps_them) {
  struct {
    const char *type, *tag;
    int left;
  } const cases[] = {{"AMI", "Processed Throughput", 0}, {"GLY", "Processed Throughput", 1}};
  for (const auto& one : cases) {
    TestRun run;
    StartWithTwo(run, one.type, one.tag);
    run.GoTo(one.type, "A1", Mode::kActv);
    run.Click("cmdEdit");
    run.Check(std::string("chk") + one.type + "_Status", true);
    run.TakeBoxes();
    run.Click("cmdQC");
    EXPECT_EQ(run.TakeBoxes(), Texts{"QC skipped for inactive Equipment"}) << one.type;
    EXPECT_EQ(run.Count("QC WHERE EquipID='A1'"), 0) << one.type;
    EXPECT_EQ(run.Count("QC WHERE EquipID='A2'"), one.left) << one.type;
  }
}

}  // namespace
}  // namespace merlu::test
