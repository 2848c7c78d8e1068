// What another file brought and a field has no form for is shown as it is stored, and outlasts a save of
// something else.
#include <gtest/gtest.h>

#include <string>

#include "support/test_run.h"

namespace merlu::test {
namespace {

struct Kept {
  const char* type;
  const char* table;
  const char* column;
  const char* control;
  const char* other;  // a field that is changed
  const char* item;   // of the list, to choose; nothing for a text box
};

constexpr Kept kKept[] = {
    {"FLA", "EA_FLA", "PILOT_INCLUDED_IN_VOLUME", "cmbFLA_PilotIncludedInVolume", "txtFLA_HrsOperated", "No"},
    {"NGE", "ED_NGE", "EMISSION_CONTROLS", "cmbNGE_ExhaustEmissionControls", "txtNGE_ExhaustOutletHgt", nullptr},
    {"NGT", "ED_NGT", "EMISSION_CONTROLS", "cmbNGT_ExhaustEmissionControls", "txtNGT_ExhaustOutletHgt", nullptr},
    {"FUG", "ED_FUG", "COUNT_TYPE", "cmbFUG_CountType", "txtFUG_Valves", "Default"},
    {"FUG", "ED_FUG", "IS_LDAR_IN_PLACE", "cmbFUG_IsLDARInPlace", "txtFUG_Valves", "Yes"},
    {"PRE", "ED_PRE", "BLEED_RATE", "cmbPRE_BleedRate", "txtPRE_Quantity", "Intermittent"},
    {"STO", "ED_STO", "IS_EQUIPPED_WITH_FLASH_TANK", "cboEquippedWithFlashTank", "txtSTO_BreatherVentPressure", "No"},
    {"FLA", "EA_FLA", "OP_HR", "txtFLA_HrsOperated", "txtFLA_VolFlared", nullptr},
    {"FLA", "ED_FLA", "OTH_CTRL_DEVICE", "cmbFLA_OtherControlDevice", "txtFLA_ConcH2S", "No"},
};

class KeptValue : public testing::TestWithParam<Kept> {
 protected:
  Value StoredNow() { return run.Sql(std::string("SELECT ") + GetParam().column + " FROM " + GetParam().table); }
  void Show(const Value& value) {
    const Kept& kept = GetParam();
    run.StartWith(kept.type, "X1");
    run.s.db.Execute(std::string("UPDATE ") + kept.table + " SET " + kept.column + "=?", {value});
    const bool monthly = std::string(kept.table).starts_with("EA_");
    if (monthly && std::string(kept.column) == "PILOT_INCLUDED_IN_VOLUME")
      run.s.db.Execute("UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=1");
    run.GoTo(kept.type, "X1", monthly ? Mode::kActv : Mode::kDesc);
  }
  TestRun run;
};

TEST_P(KeptValue, that_is_an_empty_text_is_blank_and_is_stored_as_Null) {
  Show(std::string());
  EXPECT_EQ(run.Text(GetParam().control), "");
  run.Keep({{GetParam().other, "5"}});
  EXPECT_EQ(StoredNow(), Value(Null{}));
}

TEST_P(KeptValue, shows_as_it_is_stored_and_outlasts_a_save_of_something_else) {
  const Kept& kept = GetParam();
  const Value brought = std::string("as they call it, 12");
  Show(brought);
  EXPECT_EQ(run.Text(kept.control), "as they call it, 12");
  EXPECT_EQ(run.At(kept.control).index, -1);
  run.Click("cmdEdit");
  run.Set(kept.other, "5");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredNow(), brought);
  EXPECT_EQ(run.Text(kept.control), "as they call it, 12");
  run.Click("cmdSaveExit");
  EXPECT_EQ(StoredNow(), brought);
  if (kept.item == nullptr) return;
  run.Click("cmdEdit");
  run.Set(kept.control, kept.item);
  run.Click("cmdSaveEdits");
  EXPECT_NE(StoredNow(), brought);
  EXPECT_EQ(run.Text(kept.control), kept.item);
}

std::string NameOf(const testing::TestParamInfo<Kept>& info) {
  return std::string(info.param.table) + "_" + info.param.column;
}

INSTANTIATE_TEST_SUITE_P(, KeptValue, testing::ValuesIn(kKept), NameOf);

TEST(KeptValues, of_a_number_are_kept_to_their_last_digit_and_a_cleared_text_is_gone) {
  TestRun run;
  run.StartWith("FLA", "F1");
  const Value exact = 0.1 + 0.2;
  run.s.db.Execute("UPDATE ED_FLA SET CONC_H2S=?,FLA_EFFIC='about 90'", {exact});
  run.GoTo("FLA", "F1", Mode::kDesc);
  run.Keep({{"txtFLA_StackAngle", "90"}});
  EXPECT_EQ(run.Sql("SELECT CONC_H2S FROM ED_FLA"), exact);
  EXPECT_EQ(run.Sql("SELECT FLA_EFFIC FROM ED_FLA"), Value(std::string("about 90")));
  run.Keep({{"txtFLA_FlareEfficiency", ""}, {"txtFLA_ConcH2S", "abc"}});
  EXPECT_EQ(run.Sql("SELECT FLA_EFFIC FROM ED_FLA"), Value(Null{}));
  EXPECT_EQ(run.Sql("SELECT CONC_H2S FROM ED_FLA"), Value(Null{}));
}

// An LDAR program other than "Yes" empties its two fields.
struct InspectionRun {
  InspectionRun(const char* ldar, const char* months, const char* method) {
    run.StartWith("FUG", "X1");
    run.s.db.Execute("UPDATE ED_FUG SET IS_LDAR_IN_PLACE=?,NBR_MONTHS_BETWEEN_INSPECTIONS=?,INSPECTION_METHOD=?",
                     {std::string(ldar), std::string(months), std::string(method)});
    run.GoTo("FUG", "X1", Mode::kDesc);
  }
  std::string StoredText() {
    return NullToEmpty(
        run.Sql("SELECT ifnull(NBR_MONTHS_BETWEEN_INSPECTIONS,'-')||'|'||ifnull(INSPECTION_METHOD,'-') "
                "FROM ED_FUG"));
  }
  TestRun run;
};

TEST(Inspection, that_its_fields_cannot_show_keeps_its_columns) {
  for (const char* ldar : {"No", "planned", "Yes"}) {
    SCOPED_TRACE(ldar);
    InspectionRun at(ldar, "twice a year", "by drone");
    TestRun& run = at.run;
    EXPECT_EQ(run.Text("cmbFUG_MethodOfInspection"), "by drone");
    EXPECT_EQ(run.Text("txtFUG_MonthsBetweenInspections"), "twice a year");
    run.Keep({{"txtFUG_Valves", "3"}});
    EXPECT_EQ(at.StoredText(), "twice a year|by drone");
    run.Click("cmdEdit");
    run.Click("cmdSaveExit");
    EXPECT_EQ(at.StoredText(), "twice a year|by drone");
  }
}

TEST(Inspection, that_was_seen_to_be_emptied_is_stored_as_Null) {
  InspectionRun at("No", "6", "Vapor Analyzer");
  at.run.Keep({{"txtFUG_Valves", "3"}});
  EXPECT_EQ(at.StoredText(), "-|-");
}

TEST(KeptValues, of_a_structure_are_items_without_regard_to_case_and_kept_as_they_are) {
  TestRun run;
  run.StartWithStructure();
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET MINOR_SOURCE_EXEMPT='YES',MINOR_SOURCE_EXEMPT_WHAT='caisson'");
  const auto look = [&] {
    run.SelectRoot();
    run.ChangeTo(Mode::kDesc);
    run.SelectRoot();
    run.Select(run.Key());
  };
  look();
  EXPECT_EQ(run.Text("cmbMinorSourceExempt"), "Yes");
  EXPECT_EQ(run.At("cmbMinorSourceExemptWhat").index, 0);
  run.Keep({{"txtSTRUCTURE_WaterDepth", "30"}});
  EXPECT_EQ(run.Sql("SELECT MINOR_SOURCE_EXEMPT||MINOR_SOURCE_EXEMPT_WHAT FROM PD_PLATFORM_DESC"),
            Value(std::string("YEScaisson")));
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET MINOR_SOURCE_EXEMPT='no',MINOR_SOURCE_EXEMPT_WHAT='a barge'");
  look();
  EXPECT_EQ(run.Text("cmbMinorSourceExemptWhat"), "a barge");
  run.Keep({{"txtSTRUCTURE_WaterDepth", "31"}});
  EXPECT_EQ(run.Sql("SELECT MINOR_SOURCE_EXEMPT||MINOR_SOURCE_EXEMPT_WHAT FROM PD_PLATFORM_DESC"),
            Value(std::string("noa barge")));
  run.Keep({{"cmbMinorSourceExempt", "Yes"}, {"cmbMinorSourceExemptWhat", "Caisson"}});
  run.Keep({{"cmbMinorSourceExempt", "No"}});
  EXPECT_EQ(run.Sql("SELECT MINOR_SOURCE_EXEMPT FROM PD_PLATFORM_DESC"), Value(std::string("No")));
  EXPECT_EQ(run.Sql("SELECT MINOR_SOURCE_EXEMPT_WHAT FROM PD_PLATFORM_DESC"), Value(Null{}));
}

TEST(KeptValues, of_an_operator_are_numbers_of_any_form_until_they_are_typed_anew) {
  for (const char* number : {"+1 (800) 555-1234", "800-555-1234 x12345", "call the office"}) {
    SCOPED_TRACE(number);
    TestRun run;
    run.StartWithStructure();
    run.s.db.Execute("UPDATE CO_COMPANY SET Phone=?,Fax=?", {std::string(number), std::string(number)});
    run.SelectRoot();
    EXPECT_EQ(run.Text("txtUSER_Phone"), number);
    EXPECT_EQ(run.Text("txtUSER_Fax"), number);
    run.Click("cmdEdit");
    run.Set("txtUSER_City", "Houma");
    run.Click("cmdSaveExit");
    EXPECT_EQ(run.Sql("SELECT Phone FROM CO_COMPANY"), Value(std::string(number)));
    EXPECT_EQ(run.Sql("SELECT Fax FROM CO_COMPANY"), Value(std::string(number)));
    run.Click("cmdEdit");
    run.Set("txtUSER_Phone", "+1 (713) 555-0199 x12");
    run.Set("txtUSER_Fax", "+1 (713) 555-0199 x12");
    EXPECT_EQ(run.Text("txtUSER_Phone"), "(713) 555 - 0199 ext 12__");
    EXPECT_EQ(run.Text("txtUSER_Fax"), "(713) 555 - 0199");
    run.Click("cmdCANCEL");
    EXPECT_EQ(run.Text("txtUSER_Phone"), number);
  }
}

}  // namespace
}  // namespace merlu::test
