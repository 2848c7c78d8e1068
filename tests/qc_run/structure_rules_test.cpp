#include <gtest/gtest.h>

#include "qc/apply.h"
#include "rules/bounds.h"
#include "sheets/record_rows.h"
#include "sheets/structure.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kTotal = "txtSTRUCTURE_SalesGasTotal";
constexpr const char* kNoEquipment = "Equipment records are missing for platform";

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
  TestRun run;
};

TEST(StructureRules, of_a_description_name_what_is_blank_in_their_order) {
  Sheet sheet(Mode::kDesc);
  sheet.run.Put({{"txtSTRUCTURE_Area", ""}, {"txtSTRUCTURE_Block", " "}, {"txtSTRUCTURE_Name", ""}});
  sheet.run.Click("cmdQC");
  EXPECT_EQ(sheet.run.TakeBoxes(), Texts{"QC completed with 8 errors found"});
  Values expected;
  for (const char* tag :
       {"Area", "Block", "Name", "Lease Number", "Longitude", "Latitude", "Distance to Shore", "Water Depth"})
    expected.emplace_back(tag, kBlankFinding);
  EXPECT_EQ(sheet.run.Findings(), expected);
  EXPECT_EQ(sheet.run.Count("QC WHERE Level='STRUCTURE' AND Month=0 AND Year=0 AND EditMode='DESC'"), 8);
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

TEST(SalesGas, cannot_have_its_total_typed) {
  Sheet sheet(Mode::kDesc);
  EXPECT_EQ(sheet.run.WhyNotSet(kTotal), "is locked");
  EXPECT_EQ(sheet.run.WhyNotSet("txtSTRUCTURE_SalesGasC1Content"), "");
}

TEST(RetiredFinding, of_the_equipment_sum_goes_away_in_a_month_though_it_is_explained) {
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
