#include <gtest/gtest.h>

#include "base/numbers.h"
#include "sheets/amine.h"

namespace merlu::test {
namespace {

using namespace amine_unit;

TEST(Amine, is_held_to_the_bounds_of_the_model_inputs) {
  for (const std::vector<Bound>& bounds : {kModelBounds, kFlashBounds})
    TryBounds({.type = "AMI",
               .mode = Mode::kDesc,
               .base = {{"cmbAmi_UseFlashTank", "Yes"}},
               .required = bounds,
               .checked = {"OptAMI_ModlEdit"}});
}

TEST(Amine, is_held_to_the_bounds_of_the_efficiencies_that_are_given) {
  // a run drops the findings of the runs before that nobody explained
  TryBounds({.type = "AMI",
             .mode = Mode::kDesc,
             .base = {{"cmbAMI_OtherControlDevice", "Yes"}},
             .if_filled = {{"txtAMI_OtherControlEffSOx", "SOx Efficiency", 0, 99.9},
                           {"txtAMI_OtherControlEffNOx", "NOx Efficiency", 0, 99.9},
                           {"txtAMI_OtherControlEffCO", "CO Efficiency", 0, 99.9},
                           {"txtAMI_OtherControlEffVOC", "VOC Efficiency", 0, 99.9},
                           {"txtAMI_OtherControlEffPM10", "PM10 Efficiency", 0, 99.9}},
             .forgets = true});
  SheetRecord record("AMI", Mode::kDesc, {{"cmbAMI_OtherControlDevice", "Yes"}});
  record.Run();
  EXPECT_EQ(record.Finding("Other Control Device Descript."), kBlankFinding);
  record.Set("txtAMI_OtherControlDesc", "scrubber");
  record.Run();
  EXPECT_EQ(record.Finding("Other Control Device Descript."), "");
}

TEST(Amine, blank_in_a_month_lacks_throughput_and_hours) {
  SheetRecord record("AMI", Mode::kActv);
  record.Run();
  EXPECT_EQ(record.Findings(), (Found{{"Processed Throughput", kBlankFinding}, {"Hours Operated", kBlankFinding}}));
}

TEST(Amine, blank_in_its_description_lacks_composition_destination_and_control_equipment) {
  SheetRecord record("AMI", Mode::kDesc);
  record.Run();
  Found expected;
  for (const Bound& one : kConcentrations) expected.emplace_back(one.tag, kBlankFinding);
  expected.emplace_back(kTotalTag, kTotalFinding);
  expected.emplace_back("Emissions Destination", kBlankFinding);
  expected.emplace_back("Installed Control Equipment", kBlankFinding);
  EXPECT_EQ(record.Findings(), expected);
}

TEST(Amine, blank_with_model_inputs_lacks_those_too_in_their_order) {
  SheetRecord record("AMI", Mode::kDesc);
  record.Put(Composition("50", "50"));
  record.Check("OptAMI_ModlEdit");
  record.Run();
  Found expected;
  const auto blank = [&](std::initializer_list<const char*> tags) {
    for (const char* tag : tags) expected.emplace_back(tag, kBlankFinding);
  };
  blank({"Amine Type", "Equipped with flash tank?", "Sour gas feed pressure", "Sour gas feed temperature",
         "Number of Absorb trays", "Lean Amine feed pressure", "Lean Amine feed temperature",
         "Lean Amine feed flowrate", "Lean Amine feed amine content", "Lean Amine feed H2S content",
         "Lean Amine feed CO2 content", "Emissions Destination", "Installed Control Equipment"});
  EXPECT_EQ(record.Findings(), expected);
  record.Set("cmbAmi_UseFlashTank", "Yes");
  record.Forget();
  record.Run();
  expected.clear();
  blank({"Amine Type", "Sour gas feed pressure", "Sour gas feed temperature", "Destination of Flash Gas",
         "Flash Tank Temperature", "Flash Tank  Pressure", "Number of Absorb trays", "Lean Amine feed pressure",
         "Lean Amine feed temperature", "Lean Amine feed flowrate", "Lean Amine feed amine content",
         "Lean Amine feed H2S content", "Lean Amine feed CO2 content", "Emissions Destination",
         "Installed Control Equipment"});
  EXPECT_EQ(record.Findings(), expected);
}

TEST(Amine, routed_to_the_system_lacks_no_outlet_and_no_flare) {
  SheetRecord record("AMI", Mode::kDesc);
  record.Put(Composition("50", "50"));
  record.Put({{kTechnology, "None"}, {kDestination, "Flared Locally"}});
  record.Run();
  EXPECT_EQ(record.Findings().size(), 7U);
  record.Set(kDestination, "Routed to System");
  record.Run();
  EXPECT_EQ(record.Findings(), Found());
}

TEST(Amine, looks_passed_again_once_a_required_list_is_chosen) {
  SheetRecord record("AMI", Mode::kDesc);
  record.Check("OptAMI_ModlEdit");
  record.Put({{"cmbAmi_UseFlashTank", "Yes"}, {"cmbAMI_OtherControlDevice", "Yes"}});
  record.Run();
  const Values choices = {{"cmbAMI_AmineType", "DEA"},
                          {"cmbAmi_Disposition", "Vented"},
                          {kTechnology, "None"},
                          {"txtAMI_OtherControlDesc", "scrubber"}};
  for (const auto& [name, text] : choices) EXPECT_EQ(record.MarkOf(name), Mark::kFlag) << name;
  record.Put(choices);
  record.Run();
  for (const auto& [name, text] : choices) EXPECT_EQ(record.MarkOf(name), Mark::kPlain) << name;
}

TEST(Amine, leaves_the_colour_of_an_efficiency_that_is_blank) {
  SheetRecord record("AMI", Mode::kDesc);
  record.Put({{"cmbAMI_OtherControlDevice", "Yes"},
              {"txtAMI_OtherControlEffSOx", "100"},
              {"txtAMI_OtherControlEffNOx", "100"}});
  record.Run();
  EXPECT_EQ(record.MarkOf("txtAMI_OtherControlEffSOx"), Mark::kFlag);
  record.Forget();
  record.Put({{"txtAMI_OtherControlEffSOx", ""}, {"txtAMI_OtherControlEffNOx", "99.9"}});
  record.Run();
  EXPECT_EQ(record.MarkOf("txtAMI_OtherControlEffSOx"), Mark::kFlag);
  EXPECT_EQ(record.MarkOf("txtAMI_OtherControlEffNOx"), Mark::kPlain);
  EXPECT_EQ(record.Finding("SOx Efficiency"), "");
}

TEST(Amine, accepts_a_composition_of_99_8_to_100_and_no_other) {
  SheetRecord record("AMI", Mode::kDesc);
  struct {
    const char *first, *second, *total;
    bool passes;
  } const cases[] = {{"49.9", "49.9", "99.8", true},   {"50", "50", "100", true},    {"49.9", "49.89", "99.79", false},
                     {"50.01", "50", "100.01", false}, {"50", "49.9", "99.9", true}, {"0", "0", "0", false}};
  for (const auto& one : cases) {
    record.Put(Composition(one.first, one.second));
    record.Run();
    EXPECT_EQ(record.Text(kTotal), one.total);
    EXPECT_EQ(record.Finding(kTotalTag), one.passes ? "" : kTotalFinding) << one.total;
    EXPECT_EQ(record.MarkOf(kTotal), one.passes ? Mark::kFace : Mark::kFlag) << one.total;
  }
}

TEST(Amine, adds_up_all_twelve_concentrations) {
  SheetRecord record("AMI", Mode::kDesc);
  double number = 0.5, sum = 0;
  for (const Bound& one : kConcentrations) {
    record.Set(one.control, GeneralNumber(number));
    sum += number;
    number *= 2;
    record.Run();
    EXPECT_EQ(record.Text(kTotal), GeneralNumber(sum)) << one.control;
  }
}

TEST(Amine, prints_the_total_as_a_plain_number) {
  SheetRecord record("AMI", Mode::kDesc);
  record.Put(Composition("0.1", "0.2"));
  record.Run();
  EXPECT_EQ(record.Text(kTotal), "0.3");
}

TEST(Amine, may_not_process_more_than_its_structure) {
  struct {
    const char *total, *throughput;
    bool exceeds;
  } const cases[] = {{"NULL", "10", false}, {"0", "10", false},   {"0.4", "10", false}, {"0.6", "10", true},
                     {"10", "10", false},   {"10", "10.5", true}, {"10", "9.5", false}, {"0.6", "0.5", false}};
  SheetRecord record("AMI", Mode::kActv);
  record.Set(kHours, "100");
  for (const auto& one : cases) {
    record.SetTotal("THRU_NG", one.total);
    record.Set(kThroughput, one.throughput);
    record.Run();
    EXPECT_EQ(record.Finding("Processed Throughput"), one.exceeds ? kExceeds : "")
        << one.throughput << " of " << one.total;
  }
}

TEST(Amine, compares_its_throughput_in_full_precision) {
  SheetRecord record("AMI", Mode::kActv);
  record.SetTotal("THRU_NG", "100");
  record.Put({{kHours, "10"}, {kThroughput, "100.000001"}});
  record.Run();
  EXPECT_EQ(record.Finding("Processed Throughput"), kExceeds);
}

TEST(Amine, has_one_finding_on_a_throughput_that_is_out_of_range_and_over_the_structure_s) {
  SheetRecord record("AMI", Mode::kActv);
  record.SetTotal("THRU_NG", "100");
  record.Put({{kHours, "100"}, {kThroughput, "15501"}});
  record.Run();
  EXPECT_EQ(record.Findings(), (Found{{"Processed Throughput", kExceeds}}));
  record.SetTotal("THRU_NG", "20000");
  record.Run();
  EXPECT_EQ(record.Findings(), (Found{{"Processed Throughput", RangeFinding(0, 15500)}}));
  record.Set(kThroughput, "");
  record.Run();
  EXPECT_EQ(record.Findings(), (Found{{"Processed Throughput", kBlankFinding}}));
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
  SheetRecord record("AMI", Mode::kActv);
  for (const auto& one : cases) {
    record.Put({{kThroughput, one.throughput}, {kHours, one.hours}});
    record.Run();
    EXPECT_EQ(record.Finding("Hours Operated"), one.finding) << one.throughput << " in " << one.hours;
    EXPECT_EQ(record.MarkOf(kHours), *one.finding == '\0' ? Mark::kPlain : Mark::kFlag)
        << one.throughput << " in " << one.hours;
  }
}

TEST(Amine, withdraws_the_findings_of_equipment_that_is_not_installed) {
  SheetRecord record("AMI", Mode::kDesc);
  record.Set(kTechnology, "SR + VR/C");
  record.Run();
  const auto findings = [&] {
    return Texts{record.Finding("Condenser Temperature"), record.Finding("Condenser Pressure"),
                 record.Finding("Sulfur Recovery Efficiency")};
  };
  EXPECT_EQ(findings(), (Texts{kBlankFinding, kBlankFinding, kBlankFinding}));
  record.Set(kTechnology, kRecovery);
  record.Run();
  EXPECT_EQ(findings(), (Texts{kBlankFinding, kBlankFinding, ""}));
  record.Set(kTechnology, "Sulfur Recovery (SR)");
  record.Run();
  EXPECT_EQ(findings(), (Texts{"", "", kBlankFinding}));
  record.Set(kTechnology, "None");
  record.Run();
  EXPECT_EQ(findings(), (Texts{"", "", ""}));
}

}  // namespace
}  // namespace merlu::test
