#include <gtest/gtest.h>

#include "base/numbers.h"
#include "qc/apply.h"
#include "rules/bounds.h"
#include "sheets/record_rows.h"
#include "sheets/structure.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kTotal = "txtSTRUCTURE_SalesGasTotal";
constexpr const char* kTotalTag = "Sales Gas Total";
constexpr const char* kNoEquipment = "Equipment records are missing for platform";

struct Gas {
  const char* control;
  const char* column;
};
constexpr Gas kGases[] = {
    {"txtSTRUCTURE_SalesGasH2SContent", "SalesGasH2SContent"},
    {"txtSTRUCTURE_SalesGasO2Content", "SalesGasO2Content"},
    {"txtSTRUCTURE_SalesGasCO2Content", "SalesGasCO2Content"},
    {"txtSTRUCTURE_SalesGasN2Content", "SalesGasN2Content"},
    {"txtSTRUCTURE_SalesGasC1Content", "SalesGasC1Content"},
    {"txtSTRUCTURE_SalesGasC2Content", "SalesGasC2Content"},
    {"txtSTRUCTURE_SalesGasC3Content", "SalesGasC3Content"},
    {"txtSTRUCTURE_SalesGasiC4Content", "SalesGasiC4Content"},
    {"txtSTRUCTURE_SalesGasnC4Content", "SalesGasnC4Content"},
    {"txtSTRUCTURE_SalesGasiC5Content", "SalesGasiC5Content"},
    {"txtSTRUCTURE_SalesGasnC5Content", "SalesGasnC5Content"},
    {"txtSTRUCTURE_SalesGasC6Content", "SalesGasC6Content"},
    {"txtSTRUCTURE_SalesGasC7Content", "SalesGasC7Content"},
    {"txtSTRUCTURE_SalesGasC8Content", "SalesGasC8PlusContent"},
};

// The edit of a structure's description or of its first month; it has one piece of equipment, which no
// structure run checks.
struct Sheet {
  explicit Sheet(Mode mode) {
    run.StartWith("MUD", "M1");
    run.ChangeTo(mode);
    run.Select(run.Key("", "", mode == Mode::kActv ? 1 : 0));
    run.Click("cmdEdit");
  }
  std::string Finding(const std::string& tag) {
    run.Click("cmdQC");
    run.TakeBoxes();
    return run.Finding(tag);
  }
  void HoldsTo(const std::vector<Bound>& bounds) {
    for (const Bound& bound : bounds) {
      const std::string range = RangeFinding(bound.low, bound.high);
      for (const auto& [value, finding] : Values{{GeneralNumber(bound.low), ""},
                                                 {GeneralNumber(bound.high), ""},
                                                 {GeneralNumber(bound.low - 0.1), range},
                                                 {GeneralNumber(bound.high + 0.1), range},
                                                 {"", kBlankFinding},
                                                 {GeneralNumber(bound.low), ""}}) {
        run.Set(bound.control, value);
        EXPECT_EQ(Finding(bound.tag), finding) << bound.control << " \"" << value << "\"";
        EXPECT_EQ(run.At(bound.control).back, finding.empty() ? Back::kWindow : Back::kFlag)
            << bound.control << " \"" << value << "\"";
      }
    }
  }
  TestRun run;
};

TEST(StructureRules, of_a_description_name_what_is_blank_in_their_order) {
  Sheet sheet(Mode::kDesc);
  sheet.run.Put({{"txtSTRUCTURE_Area", ""}, {"txtSTRUCTURE_Block", " "}, {"txtSTRUCTURE_Name", ""}});
  sheet.run.Click("cmdQC");
  Values expected;
  for (const char* tag :
       {"Area", "Block", "Name", "Lease Number", "Longitude", "Latitude", "Distance to Shore", "Water Depth"})
    expected.emplace_back(tag, kBlankFinding);
  EXPECT_EQ(sheet.run.Findings(), expected);
  EXPECT_EQ(sheet.run.Count("QC WHERE Level='STRUCTURE' AND Month=0 AND Year=0 AND EditMode='DESC'"), 8);
}

TEST(StructureRules, of_a_description_require_its_texts) {
  Sheet sheet(Mode::kDesc);
  for (const auto& [field, tag] : Values{{"txtSTRUCTURE_Area", "Area"},
                                         {"txtSTRUCTURE_Block", "Block"},
                                         {"txtSTRUCTURE_Name", "Name"},
                                         {"txtSTRUCTURE_LeaseNo", "Lease Number"},
                                         {"txtSTRUCTURE_WaterDepth", "Water Depth"}}) {
    sheet.run.Set(field, "");
    EXPECT_EQ(sheet.Finding(tag), kBlankFinding) << field;
    EXPECT_EQ(sheet.run.At(field).back, Back::kFlag) << field;
    sheet.run.Set(field, "x");
    EXPECT_EQ(sheet.Finding(tag), "") << field;
    EXPECT_EQ(sheet.run.At(field).back, Back::kWindow) << field;
  }
}

TEST(StructureRules, of_a_description_hold_its_place_to_the_gulf) {
  Sheet(Mode::kDesc)
      .HoldsTo({{"txtSTRUCTURE_Lon", "Longitude", -98, -81},
                {"txtSTRUCTURE_Lat", "Latitude", 23, 31},
                {"txtSTRUCTURE_DistShore", "Distance to Shore", 0, 500}});
}

TEST(StructureRules, of_a_description_want_west_longitude_negative) {
  Sheet sheet(Mode::kDesc);
  for (const auto& [longitude, finding] :
       Values{{"-81", ""}, {"-80.9", RangeFinding(-98, -81)}, {"90", RangeFinding(-98, -81)}, {"-90", ""}}) {
    sheet.run.Set("txtSTRUCTURE_Lon", longitude);
    EXPECT_EQ(sheet.Finding("Longitude"), finding) << longitude;
  }
}

TEST(StructureRules, of_a_description_put_no_bounds_to_the_depth_of_the_water) {
  Sheet sheet(Mode::kDesc);
  sheet.run.Set("txtSTRUCTURE_WaterDepth", "-1000000");
  EXPECT_EQ(sheet.Finding("Water Depth"), "");
}

TEST(StructureRules, ask_what_is_exempt_only_of_an_exempt_minor_source) {
  Sheet sheet(Mode::kDesc);
  const char* const what = "cmbMinorSourceExemptWhat";
  const char* const tag = "Minor Source Exempt What";
  EXPECT_EQ(sheet.Finding(tag), "");
  sheet.run.Set("cmbMinorSourceExempt", "Yes");
  EXPECT_EQ(sheet.Finding(tag), kBlankFinding);
  EXPECT_EQ(sheet.run.At(what).back, Back::kFlag);
  sheet.run.Set("cmbMinorSourceExempt", "No");
  EXPECT_EQ(sheet.Finding(tag), kBlankFinding) << "the older finding stays until the field is filled";
  EXPECT_EQ(sheet.run.At(what).back, Back::kWindow);
  sheet.run.Put({{"cmbMinorSourceExempt", "Yes"}, {what, "Caisson"}});
  EXPECT_EQ(sheet.Finding(tag), "");
}

TEST(StructureRules, of_a_month_hold_production_throughput_and_fuel_to_their_bounds) {
  Sheet(Mode::kActv)
      .HoldsTo({{"txtSTRUCTURE_ProdOil", "Oil Production", 0, 5000000},
                {"txtSTRUCTURE_ProdNG", "Natural Gas Production", 0, 20000},
                {"txtSTRUCTURE_ThruOil", "Oil Throughput", 0, 5000000},
                {"txtSTRUCTURE_ThruNG", "Natural Gas Throughput", 0, 20000},
                {"txtSTRUCTURE_TotalFuelUsageNG", "Total Fuel Usage, Natural Gas", 0, 1000000000000},
                {"txtSTRUCTURE_TotalFuelUsageGasoline", "Total Fuel Usage, Gasoline", 0, 10000},
                {"txtSTRUCTURE_TotalFuelUsageDiesel", "Total Fuel Usage, Diesel", 0, 10000000}});
}

TEST(StructureRules, of_a_month_name_what_is_blank_in_their_order) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdQC");
  Values expected;
  for (const char* tag : {"Oil Production", "Natural Gas Production", "Oil Throughput", "Natural Gas Throughput",
                          "Total Fuel Usage, Natural Gas", "Total Fuel Usage, Gasoline", "Total Fuel Usage, Diesel"})
    expected.emplace_back(tag, kBlankFinding);
  expected.emplace_back("Platform", kNoEquipment);
  EXPECT_EQ(run.Findings(), expected);
  EXPECT_EQ(run.Count("QC WHERE Level='STRUCTURE' AND Month=1 AND Year=2017 AND EditMode='ACTV'"), 8);
}

TEST(StructureRules, miss_the_equipment_of_a_month_until_there_is_some) {
  TestRun run;
  run.StartWithStructure();
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Platform"), "") << "a description needs none";
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Platform"), kNoEquipment);
  run.ChangeTo(Mode::kDesc);
  run.AddEquipment("MUD", "M1");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Platform"), "");
}

TEST(StructureRules, miss_no_equipment_of_a_structure_without_emissions) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdEdit");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Platform"), kNoEquipment);
  run.Check("chkSTRUCTURE_Status", true);
  QCLocation location = run.s.current;
  const RuleSet& rules = RulesOf(StructureSheet());
  ApplyVerdicts(run.s, location, Judge(rules, run.s.mode, ViewOfForm(rules.fields(), *run.s.main), {}));
  EXPECT_EQ(run.Finding("Platform"), "");
}

TEST(StructureRules, are_not_reached_by_an_inactive_structure) {
  Sheet sheet(Mode::kActv);
  sheet.run.Check("chkSTRUCTURE_Status", true);
  sheet.run.Click("cmdQC");
  EXPECT_EQ(sheet.run.Count("QC"), 0);
  EXPECT_EQ(sheet.run.At("txtSTRUCTURE_ProdOil").back, Back::kWindow);
}

TEST(SalesGas, may_sum_up_to_99_8_or_100_and_nothing_outside) {
  Sheet sheet(Mode::kDesc);
  struct Case {
    const char* c1;
    const char* c2;
    const char* total;
    bool passes;
  };
  for (const Case& c :
       {Case{"90", "9.8", "99.8", true}, Case{"60.5", "39.5", "100", true}, Case{"90", "10.01", "100.01", false},
        Case{"90", "9.79", "99.79", false}, Case{"99.9", "", "99.9", true}}) {
    sheet.run.Put({{"txtSTRUCTURE_SalesGasC1Content", c.c1}, {"txtSTRUCTURE_SalesGasC2Content", c.c2}});
    EXPECT_EQ(sheet.Finding(kTotalTag), c.passes ? "" : RangeFinding(99.8, 100)) << c.total;
    EXPECT_EQ(sheet.run.Text(kTotal), c.total);
    EXPECT_EQ(sheet.run.At(kTotal).back, c.passes ? Back::kFace : Back::kFlag) << c.total;
  }
}

TEST(SalesGas, sums_up_each_of_its_fourteen_parts) {
  Sheet sheet(Mode::kDesc);
  for (const Gas& gas : kGases) {
    sheet.run.Set(gas.control, "100");
    EXPECT_EQ(sheet.Finding(kTotalTag), "") << gas.control;
    EXPECT_EQ(sheet.run.Text(kTotal), "100") << gas.control;
    sheet.run.Set(gas.control, "0");
    EXPECT_EQ(sheet.Finding(kTotalTag), RangeFinding(99.8, 100)) << gas.control;
  }
}

TEST(SalesGas, counts_a_part_that_is_no_number_as_nothing) {
  Sheet sheet(Mode::kDesc);
  sheet.run.Put({{"txtSTRUCTURE_SalesGasC1Content", "100"}, {"txtSTRUCTURE_SalesGasN2Content", "5 or so"}});
  EXPECT_EQ(sheet.Finding(kTotalTag), "");
  EXPECT_EQ(sheet.run.Text(kTotal), "100");
  sheet.run.Set("txtSTRUCTURE_SalesGasC1Content", "none");
  EXPECT_EQ(sheet.Finding(kTotalTag), RangeFinding(99.8, 100));
  EXPECT_EQ(sheet.run.Text(kTotal), "0");
}

TEST(SalesGas, that_is_not_reported_gets_no_finding_and_keeps_its_total) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET SALES_GAS_TOTAL=42,SalesGasC1Content=NULL");
  run.SelectRoot();
  run.Select(run.Key());
  run.Click("cmdEdit");
  run.Set("txtSTRUCTURE_SalesGasC3Content", "   ");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding(kTotalTag), "");
  EXPECT_EQ(run.Text(kTotal), "42");
}

TEST(SalesGas, is_not_summed_up_in_a_month) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET SALES_GAS_TOTAL=42,SalesGasC1Content=10");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "42");
  EXPECT_EQ(run.Finding(kTotalTag), "");
}

TEST(SalesGas, cannot_have_its_total_typed) {
  Sheet sheet(Mode::kDesc);
  EXPECT_EQ(sheet.run.WhyNotSet(kTotal), "is locked");
  EXPECT_EQ(sheet.run.WhyNotSet("txtSTRUCTURE_SalesGasC1Content"), "");
}

TEST(RetiredFinding, of_the_equipment_sum_goes_away_in_a_month) {
  const Texts tags = {"Total Fuel Usage, Diesel", "Total Fuel Usage, Gasoline", "Total Fuel Usage, Natural Gas"};
  TestRun run;
  run.StartWith("MUD", "M1");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=1,TOT_FUEL_USE_GAS=1,TOT_FUEL_USE_DIE=1");
  for (const std::string& tag : tags)
    run.s.db.Execute(
        "INSERT INTO QC (UserID,Month,Year,Level,CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode) "
        "VALUES ('12345',1,2017,'STRUCTURE','1001','1','NA','NA',?,'Value exceeded by equipment sum','known','ACTV')",
        {tag});
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdQC");
  for (const std::string& tag : tags) EXPECT_EQ(run.Finding(tag), "") << tag;
}

TEST(RetiredFinding, leaves_other_findings_of_the_fuel_totals) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Total Fuel Usage, Diesel"), kBlankFinding);
}

// ---- the operator ----

struct Operator {
  Operator() {
    run.Start();
    run.SelectRoot();
    run.Click("cmdEdit");
  }
  TestRun run;
};

TEST(OperatorRules, stop_the_end_of_an_edit_at_the_first_thing_that_is_missing) {
  struct Case {
    Values blank;
    const char* message;
    const char* focus;
  };
  // each case blanks one thing more than the one after it, so the first message shows which rule comes first
  const std::vector<Case> cases = {
      {{{"txtUSER_Contact", "  "}}, "Please enter your Contact Name", "txtUSER_Contact"},
      {{{"txtUSER_Phone", ""}, {"txtUSER_Fax", ""}, {"txtUSER_Email", ""}},
       "Please enter your Phone, Fax, or Email",
       "txtUSER_Phone"},
      {{{"txtUSER_Email", ""}, {"txtUSER_Phone", "555123456"}}, "Please enter Email address", "txtUSER_Email"},
      {{{"txtUSER_Company", " "}}, "Please enter your Company Name", "txtUSER_Company"},
      {{{"txtUSER_Address1", ""}, {"txtUSER_Address2", ""}}, "Please enter your Address", "txtUSER_Address1"},
      {{{"txtUSER_City", ""}}, "Please enter your City", "txtUSER_City"},
      {{{"txtUSER_Zip", ""}}, "Please enter your Zip Code", "txtUSER_Zip"},
      {{{"txtUSER_State", ""}}, "Please enter your State", "txtUSER_State"}};
  for (std::size_t first = 0; first < cases.size(); ++first) {
    Operator op;
    for (std::size_t i = cases.size(); i-- > first;) op.run.Put(cases[i].blank);
    op.run.Click("cmdSaveExit");
    ASSERT_EQ(op.run.boxes.size(), 1u) << cases[first].message;
    EXPECT_EQ(op.run.boxes.front().text, cases[first].message);
    EXPECT_EQ(op.run.boxes.front().icon, Icon::kWarning);
    EXPECT_EQ(op.run.s.main->focus, cases[first].focus);
    EXPECT_TRUE(op.run.s.editing);
    EXPECT_EQ(NullToEmpty(op.run.Sql("SELECT State FROM CO_COMPANY")), "TX");
  }
}

TEST(OperatorRules, take_blanks_for_a_way_to_reach_somebody_and_for_an_address_but_not_for_an_email) {
  Operator op;
  op.run.Put({{"txtUSER_Phone", ""},
              {"txtUSER_Fax", ""},
              {"txtUSER_Email", " "},
              {"txtUSER_Address1", " "},
              {"txtUSER_Address2", ""}});
  op.run.Click("cmdSaveExit");
  EXPECT_EQ(op.run.TakeBoxes(), std::vector<std::string>{"Please enter Email address"});
  op.run.Put({{"txtUSER_Email", "a@b.example"}});
  op.run.Click("cmdSaveExit");
  EXPECT_EQ(op.run.TakeBoxes(), std::vector<std::string>{});
  EXPECT_EQ(NullToEmpty(op.run.Sql("SELECT ADDR1 FROM CO_COMPANY")), " ");
}

TEST(OperatorRules, are_content_with_one_line_of_address_and_a_phone_of_nine_digits) {
  Operator op;
  op.run.Put({{"txtUSER_Address1", ""}, {"txtUSER_Address2", "Pier 2"}, {"txtUSER_Phone", "555123456"}});
  op.run.Click("cmdSaveExit");
  EXPECT_TRUE(op.run.TakeBoxes().empty());
  EXPECT_FALSE(op.run.s.editing);
  EXPECT_EQ(NullToEmpty(op.run.Sql("SELECT ADDR2 FROM CO_COMPANY")), "Pier 2");
}

TEST(OperatorRules, write_no_finding_and_do_not_hold_up_a_save_in_the_middle_of_the_edit) {
  Operator op;
  op.run.Set("txtUSER_Contact", "");
  op.run.Click("cmdSaveExit");
  EXPECT_EQ(op.run.Count("QC"), 0);
  op.run.TakeBoxes();
  op.run.Click("cmdSaveEdits");
  EXPECT_TRUE(op.run.TakeBoxes().empty());
  EXPECT_TRUE(IsNull(op.run.Sql("SELECT Contact FROM CO_COMPANY")));
}

TEST(OperatorRules, of_a_new_operator_want_whole_numbers_and_an_email) {
  TestRun run;
  run.dialogs.push_back([&](Form&) {
    run.Put({{"txtUserID", "12345"},
             {"txtUSER_Company", "Blue Water"},
             {"txtUSER_Address1", "1 Quay"},
             {"txtUSER_City", "Port"},
             {"txtUSER_State", "TX"},
             {"txtUSER_Zip", "77001"},
             {"txtUSER_Contact", "A. Person"},
             {"txtUSER_Phone", "555123456"},
             {"txtUSER_Fax", "555123456"}});
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Not a valid phone number"});
    EXPECT_EQ(run.Text("txtUSER_Phone"), "(___) ___ - ____ ext ____");
    run.Set("txtUSER_Phone", "5551234567");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Not a valid fax number"});
    EXPECT_EQ(run.Text("txtUSER_Fax"), "(___) ___ - ____");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please enter your Email address"});
    run.Set("txtUSER_Email", "a@b.example");
    run.Click("cmdOK");
  });
  run.Start(CopyTemplate(run.folder));
  EXPECT_EQ(run.Count("CO_COMPANY WHERE RIMA_CO_NUM='12345' AND Email='a@b.example'"), 1);
}

}  // namespace
}  // namespace merlu::test
