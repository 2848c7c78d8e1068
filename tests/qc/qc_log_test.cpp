#include "qc/qc_log.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/findings.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Found = std::vector<std::pair<std::string, std::string>>;
using Texts = std::vector<std::string>;

// A structure with a flare, in the first month; the location of the flare.
struct Log {
  Log() {
    run.StartWith("FLA", "F1");
    run.GoTo("FLA", "F1", Mode::kActv);
    flare = run.s.current;
    structure = flare;
    structure.Level = level::kStructure;
    structure.EquipType = structure.EquipID = "";
    survey = structure;
    survey.Level = level::kSurvey;
    survey.CmplxID = survey.StructID = "";
  }
  Session& s() { return run.s; }
  // Makes the location the current one, and records a finding there.
  void Add(QCLocation location, const std::string& field, const std::string& text = "Wrong") {
    run.s.current = location;
    AddFinding(run.s, location, field, text);
  }
  void Explain(const std::string& field, const std::string& comment) {
    run.s.db.Execute("UPDATE QC SET Comments=? WHERE FieldID=?", {comment, field});
  }
  Texts Fields(const std::string& condition = "1") {
    Texts fields;
    for (const auto& [field, text] : run.Findings(condition)) fields.push_back(field);
    return fields;
  }
  TestRun run;
  QCLocation flare, structure, survey;
};

QCLocation With(QCLocation location, const std::string& type, const std::string& id, int month = 1) {
  location.EquipType = type;
  location.EquipID = id;
  location.Month = month;
  return location;
}

TEST(QcLog, keeps_the_row_and_the_comment_of_a_field_that_fails_again_with_the_same_text) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  log.Explain("Hours", "leap month");
  log.Add(log.flare, "Hours", "Too many");
  EXPECT_EQ(log.run.Findings(), (Found{{"Hours", "Too many"}}));
  EXPECT_EQ(NullToEmpty(log.run.Sql("SELECT Comments FROM QC")), "leap month");
}

TEST(QcLog, keeps_one_row_and_drops_the_comment_of_a_field_that_fails_with_another_text) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  log.Explain("Hours", "leap month");
  log.Add(log.flare, "Hours", "Too few");
  EXPECT_EQ(log.run.Findings(), (Found{{"Hours", "Too few"}}));
  EXPECT_EQ(log.run.Count("QC WHERE Comments=''"), 1);
}

TEST(QcLog, stores_where_and_in_which_mode_a_finding_was_made) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  EXPECT_EQ(
      log.run.Count("QC WHERE UserID='12345' AND Month=1 AND Year=2017 AND Level='EQUIPMENT' AND CmplxID='1001' AND "
                    "StructID='1' AND EquipType='FLA' AND EquipID='F1' AND FieldID='Hours' AND [Desc]='Too many' AND "
                    "Comments='' AND EditMode='ACTV'"),
      1);
}

TEST(QcLog, stores_identifiers_without_the_blanks_around_them) {
  Log log;
  QCLocation padded = log.flare;
  padded.UserID = " 12345 ";
  padded.CmplxID = "   1001";
  padded.StructID = " 1";
  padded.EquipID = "F1  ";
  log.Add(padded, "Hours");
  EXPECT_EQ(log.run.Count("QC WHERE UserID='12345' AND CmplxID='1001' AND StructID='1' AND EquipID='F1'"), 1);
  EXPECT_TRUE(FindQCRecord(log.s(), padded, "Hours"));
}

TEST(QcLog, names_nothing_below_the_structure_of_a_structure_s_finding) {
  Log log;
  log.Add(With(log.structure, "FLA", "F1"), "Area");
  EXPECT_EQ(log.run.Count("QC WHERE Level='STRUCTURE' AND CmplxID='1001' AND StructID='1' AND EquipType='NA' "
                          "AND EquipID='NA'"),
            1);
}

TEST(QcLog, names_nothing_below_the_month_of_a_survey_s_finding) {
  Log log;
  log.Add(With(log.survey, "FLA", "F1"), "Sum");
  EXPECT_EQ(log.run.Count(
                "QC WHERE Level='SURVEY' AND CmplxID='NA' AND StructID='NA' AND EquipType='NA' AND EquipID='NA' AND "
                "Month=1"),
            1);
}

TEST(QcLog, writes_not_applicable_into_the_location_that_it_was_given) {
  Log log;
  log.s().current = log.survey;
  QCLocation location = log.flare;
  EXPECT_FALSE(FindQCRecord(log.s(), location, "Sum"));
  EXPECT_EQ(location.CmplxID, "NA");
  EXPECT_EQ(location.StructID, "NA");
  EXPECT_EQ(location.EquipType, "NA");
  EXPECT_EQ(location.EquipID, "NA");
}

TEST(QcLog, takes_level_month_and_year_of_a_new_finding_from_where_the_user_stands) {
  Log log;
  log.s().current = log.structure;
  log.s().current.Month = 2;
  log.s().current.Year = 2018;
  QCLocation elsewhere = log.flare;
  AddFinding(log.s(), elsewhere, "Hours", "Too many");
  EXPECT_EQ(log.run.Count("QC WHERE Month=2 AND Year=2018 AND Level='STRUCTURE' AND CmplxID='1001'"), 1);
}

TEST(QcLog, keeps_one_finding_of_a_field_whatever_the_mode) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  log.s().mode = Mode::kDesc;
  log.Add(log.flare, "Hours", "Too few");
  EXPECT_EQ(log.run.Findings(), (Found{{"Hours", "Too few"}}));
  EXPECT_EQ(NullToEmpty(log.run.Sql("SELECT EditMode FROM QC")), "ACTV");
}

TEST(QcLog, tells_apart_fields_equipment_types_months_structures_and_levels) {
  Log log;
  log.Add(log.flare, "Hours");
  log.Add(log.flare, "Volume");
  log.Add(With(log.flare, "FLA", "F2"), "Hours");
  log.Add(With(log.flare, "VEN", "F1"), "Hours");
  log.Add(With(log.flare, "FLA", "F1", 2), "Hours");
  QCLocation other = log.flare;
  other.StructID = "2";
  log.Add(other, "Hours");
  other = log.flare;
  other.CmplxID = "1002";
  log.Add(other, "Hours");
  other = log.flare;
  other.UserID = "54321";
  log.Add(other, "Hours");
  log.Add(log.structure, "Hours");
  log.Add(log.survey, "Hours");
  EXPECT_EQ(log.run.Count("QC"), 10);
}

TEST(QcLog, finds_a_finding_whatever_blanks_its_field_ends_in) {
  Log log;
  log.Add(log.flare, "Model ", "Blank");
  log.Explain("Model ", "unknown");
  log.Add(log.flare, "Model", "Blank");
  EXPECT_EQ(log.run.Count("QC"), 1);
  EXPECT_EQ(NullToEmpty(log.run.Sql("SELECT Comments FROM QC")), "unknown");
  WithdrawFinding(log.s(), log.flare, "Model   ", "Blank");
  EXPECT_EQ(log.run.Count("QC"), 0);
}

TEST(QcLog, leaves_its_cursor_on_the_finding_that_it_found) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  log.Add(log.flare, "Volume", "Too big");
  ASSERT_TRUE(FindQCRecord(log.s(), log.flare, "Volume"));
  EXPECT_EQ(NullToEmpty(log.s().At("QC").Field("Desc")), "Too big");
  EXPECT_FALSE(FindQCRecord(log.s(), log.flare, "Pilot"));
}

TEST(QcLog, withdraws_a_finding_only_by_its_own_text) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  WithdrawFinding(log.s(), log.flare, "Hours", "Too few");
  EXPECT_EQ(log.run.Findings(), (Found{{"Hours", "Too many"}}));
  WithdrawFinding(log.s(), log.flare, "Hours", "Too many");
  EXPECT_EQ(log.run.Count("QC"), 0);
}

TEST(QcLog, withdraws_the_finding_of_a_field_that_no_longer_applies_whatever_its_text) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  log.Add(log.flare, "Volume", "Too big");
  WithdrawField(log.s(), log.flare, "Hours");
  EXPECT_EQ(log.run.Findings(), (Found{{"Volume", "Too big"}}));
}

// Several verdicts of one run over the flare.
Verdicts Said(const std::vector<std::pair<Verdict::Log, std::string>>& said) {
  Verdicts verdicts;
  for (const auto& [log, text] : said) {
    Verdict& verdict = verdicts.all.emplace_back();
    verdict.tag = "Hours";
    verdict.log = log;
    verdict.text = text;
  }
  return verdicts;
}

TEST(QcLog, takes_a_finding_that_was_withdrawn_and_raised_again_in_one_run_for_a_new_one) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  log.Explain("Hours", "leap month");
  log.Add(log.flare, "Volume", "Too big");
  using Says = Verdict::Log;
  ApplyVerdicts(log.s(), log.flare, Said({{Says::kWithdrawAny, ""}, {Says::kRaise, "Too many"}}));
  EXPECT_EQ(log.run.Findings(), (Found{{"Volume", "Too big"}, {"Hours", "Too many"}}));
  EXPECT_EQ(log.run.Count("QC WHERE Comments<>''"), 0);
}

TEST(QcLog, drops_the_comment_of_a_text_that_another_took_the_place_of_in_the_middle_of_a_run) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  log.Explain("Hours", "leap month");
  using Says = Verdict::Log;
  ApplyVerdicts(log.s(), log.flare, Said({{Says::kRaise, "Too few"}, {Says::kRaise, "Too many"}}));
  EXPECT_EQ(log.run.Findings(), (Found{{"Hours", "Too many"}}));
  EXPECT_EQ(log.run.Count("QC WHERE Comments<>''"), 0);
}

TEST(QcLog, is_not_written_by_a_run_that_says_what_it_holds) {
  Log log;
  log.Add(log.flare, "Hours", "Too many");
  log.Explain("Hours", "leap month");
  const std::int64_t changes = log.s().db.ChangeCount();
  using Says = Verdict::Log;
  ApplyVerdicts(log.s(), log.flare,
                Said({{Says::kWithdraw, "Too few"}, {Says::kRaise, "Too many"}, {Says::kWithdraw, "Too odd"}}));
  EXPECT_EQ(log.s().db.ChangeCount(), changes);
  EXPECT_EQ(NullToEmpty(log.run.Sql("SELECT Comments FROM QC")), "leap month");
}

// Findings of two flares and a vent in two months and both modes, one of them explained, and of the structure.
struct FullLog : Log {
  FullLog() {
    Add(flare, "uncommented");
    Add(flare, "commented");
    Explain("commented", "known");
    Add(With(flare, "FLA", "F2"), "other flare");
    Add(With(flare, "VEN", "V1"), "vent");
    Add(With(flare, "FLA", "F1", 2), "February");
    QCLocation far = flare;
    far.StructID = "2";
    Add(far, "other structure");
    Add(structure, "structure");
    QCLocation later = structure;
    later.Month = 2;
    Add(later, "structure in February");
    Add(survey, "survey");
    run.s.mode = Mode::kDesc;
    Add(flare, "other mode");
    Add(structure, "structure in the other mode");
    run.s.mode = Mode::kActv;
    all = Fields();
  }
  // The fields that went.
  Texts Gone() {
    const Texts left = Fields();
    Texts gone;
    for (const std::string& field : all)
      if (std::find(left.begin(), left.end(), field) == left.end()) gone.push_back(field);
    return gone;
  }
  Texts all;
};

TEST(QcLog, passes_over_an_equipment_with_all_of_its_type_but_spares_what_is_explained) {
  FullLog log;
  EXPECT_TRUE(DelQCRecordsForLocAndBelow(log.s(), log.flare));
  EXPECT_EQ(log.Gone(), (Texts{"uncommented", "other flare"}));
}

TEST(QcLog, passes_over_a_structure_with_its_equipment_of_the_month) {
  FullLog log;
  EXPECT_TRUE(DelQCRecordsForLocAndBelow(log.s(), log.structure));
  EXPECT_EQ(log.Gone(), (Texts{"uncommented", "other flare", "vent", "structure"}));
}

TEST(QcLog, removes_nothing_below_a_survey) {
  FullLog log;
  EXPECT_TRUE(DelQCRecordsForLocAndBelow(log.s(), log.survey));
  EXPECT_TRUE(DelQCRecordsForLocAndBelowAll(log.s(), log.survey));
  EXPECT_TRUE(DelQCRecordsForLocAndBelowAnyMode(log.s(), log.survey));
  EXPECT_EQ(log.Gone(), Texts{});
}

TEST(QcLog, removes_explained_findings_too_when_told_all) {
  FullLog log;
  EXPECT_TRUE(DelQCRecordsForLocAndBelowAll(log.s(), log.flare));
  EXPECT_EQ(log.Gone(), (Texts{"uncommented", "commented", "other flare"}));
  EXPECT_TRUE(DelQCRecordsForLocAndBelowAll(log.s(), log.structure));
  EXPECT_EQ(log.Gone(), (Texts{"uncommented", "commented", "other flare", "vent", "structure"}));
}

TEST(QcLog, removes_the_findings_of_both_modes_when_told_any) {
  FullLog log;
  EXPECT_TRUE(DelQCRecordsForLocAndBelowAnyMode(log.s(), log.flare));
  EXPECT_EQ(log.Gone(), (Texts{"uncommented", "commented", "other flare", "other mode"}));
  EXPECT_TRUE(DelQCRecordsForLocAndBelowAnyMode(log.s(), log.structure));
  EXPECT_EQ(log.Gone(), (Texts{"uncommented", "commented", "other flare", "vent", "structure", "other mode",
                               "structure in the other mode"}));
}

TEST(QcLog, removes_one_equipment_s_findings_of_the_mode_in_every_month) {
  FullLog log;
  DelQCRecordsForEquipMode(log.s(), log.flare);
  EXPECT_EQ(log.Gone(), (Texts{"uncommented", "commented", "February"}));
}

TEST(QcLog, removes_one_equipment_s_findings_in_every_month_and_mode) {
  FullLog log;
  DelQCRecordsForEquip(log.s(), log.flare);
  EXPECT_EQ(log.Gone(), (Texts{"uncommented", "commented", "February", "other mode"}));
}

TEST(QcLog, removes_a_structure_s_own_findings_of_the_mode_in_every_month) {
  FullLog log;
  DelQCRecordsForStructMode(log.s(), log.structure);
  EXPECT_EQ(log.Gone(), (Texts{"structure", "structure in February"}));
}

TEST(QcLog, removes_everything_of_a_structure_that_is_deleted) {
  FullLog log;
  DelQCRecordsForStructure(log.s(), log.structure);
  EXPECT_EQ(log.Fields(), (Texts{"other structure", "survey"}));
}

TEST(QcLog, counts_a_month_a_structure_with_its_equipment_or_one_equipment_in_both_modes) {
  FullLog log;
  EXPECT_EQ(CountQCErrors(log.s(), log.survey), 9);
  EXPECT_EQ(CountQCErrors(log.s(), log.structure), 7);
  EXPECT_EQ(CountQCErrors(log.s(), log.flare), 3);
  EXPECT_EQ(CountQCErrors(log.s(), With(log.flare, "FLA", "F1", 2)), 1);
  QCLocation user = log.survey;
  user.Level = level::kUser;
  EXPECT_EQ(CountQCErrors(log.s(), user), 0);
}

TEST(QcLog, tells_its_faults_with_the_number_first_and_lets_the_run_go_on) {
  Log log;
  log.Add(log.flare, "Hours");
  log.s().db.Execute("DROP TABLE QC");
  QCLocation location = log.flare;
  AddFinding(log.s(), location, "Volume", "Too big");
  WithdrawField(log.s(), location, "Volume");
  DelQCRecordsForEquip(log.s(), location);
  EXPECT_FALSE(FindQCRecord(log.s(), location, "Volume"));
  const Texts boxes = log.run.TakeBoxes();
  ASSERT_EQ(boxes.size(), 4u);
  for (const std::string& box : boxes) EXPECT_EQ(box.substr(0, 5), "3078 ") << box;
}

}  // namespace
}  // namespace merlu::test
