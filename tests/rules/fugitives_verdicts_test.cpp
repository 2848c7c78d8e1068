#include <gtest/gtest.h>

#include "sheets/fugitives.h"

namespace merlu::test {
namespace {

using namespace fugitives;

// A record that no rule finds fault with.
struct Sheet {
  // Judges the record and gives the finding of the field.
  std::string Finding(const std::string& tag) {
    record.Run();
    return record.Finding(tag);
  }
  SheetRecord record{"FUG", Mode::kDesc, Sound()};
};

TEST(Fugitives, stand_from_10_to_350_feet_above_the_sea) {
  Sheet sheet;
  for (const auto& [elevation, finding] :
       Values{{"9", RangeFinding(10, 350)}, {"10", ""}, {"350", ""}, {"351", RangeFinding(10, 350)}}) {
    sheet.record.Set("txtFUG_EquipElev", elevation);
    EXPECT_EQ(sheet.Finding("Equipment Elevation"), finding) << elevation;
  }
}

TEST(Fugitives, demand_each_count_and_accept_none_below_zero) {
  Sheet sheet;
  for (const Component& component : kComponents) {
    sheet.record.Set(component.control, "");
    EXPECT_EQ(sheet.Finding(component.tag), kBlankFinding) << component.control;
    EXPECT_EQ(sheet.record.MarkOf(component.control), Mark::kFlag) << component.control;
    sheet.record.Set(component.control, "-1");
    EXPECT_EQ(sheet.Finding(component.tag), "Value under minimum of 0") << component.control;
    EXPECT_EQ(sheet.record.MarkOf(component.control), Mark::kFlag) << component.control;
    sheet.record.Set(component.control, "0");
    EXPECT_EQ(sheet.Finding(component.tag), "") << component.control;
    EXPECT_EQ(sheet.record.MarkOf(component.control), Mark::kPlain) << component.control;
  }
}

TEST(Fugitives, match_their_facility_size_by_the_sum_of_all_components) {
  struct Case {
    const char* size;
    const char* total;
    bool matches;
  };
  Sheet sheet;
  for (const Case& c :
       {Case{kSmall, "0", true}, Case{kSmall, "1000", true}, Case{kSmall, "1001", false}, Case{kMedium, "999", false},
        Case{kMedium, "1000", true}, Case{kMedium, "10000", true}, Case{kMedium, "10001", false},
        Case{kLarge, "9999", false}, Case{kLarge, "10000", true}, Case{kLarge, "10001", true}}) {
    sheet.record.Put({{kSize, c.size}, {"txtFUG_Valves", c.total}});
    EXPECT_EQ(sheet.Finding("Facility Size"), c.matches ? "" : kNoMatch) << c.size << " with " << c.total;
  }
}

TEST(Fugitives, count_each_of_the_eighteen_kinds_into_the_sum) {
  Sheet sheet;
  for (const Component& component : kComponents) {
    sheet.record.Set(component.control, "1001");
    EXPECT_EQ(sheet.Finding("Facility Size"), kNoMatch) << component.control;
    sheet.record.Set(component.control, "0");
    EXPECT_EQ(sheet.Finding("Facility Size"), "") << component.control;
  }
}

TEST(Fugitives, add_nothing_for_a_blank_count) {
  Sheet sheet;
  sheet.record.Put({{"txtFUG_Valves", "1000"}, {"txtFUG_Drains", ""}});
  EXPECT_EQ(sheet.Finding("Facility Size"), "");
  EXPECT_EQ(sheet.record.Finding("No. Drains"), kBlankFinding);
}

TEST(Fugitives, lower_the_sum_by_a_negative_count) {
  Sheet sheet;
  sheet.record.Put({{"txtFUG_Valves", "1001"}, {"txtFUG_Drains", "-1"}});
  EXPECT_EQ(sheet.Finding("Facility Size"), "");
  EXPECT_EQ(sheet.record.Finding("No. Drains"), "Value under minimum of 0");
}

TEST(Fugitives, read_a_count_only_as_far_as_its_thousands_comma) {
  Sheet sheet;
  sheet.record.Set("txtFUG_Valves", "1,200");
  EXPECT_EQ(sheet.Finding("Facility Size"), "");
  sheet.record.Set(kSize, kMedium);
  EXPECT_EQ(sheet.Finding("Facility Size"), kNoMatch);
}

TEST(Fugitives, keep_the_sum_in_single_precision) {
  Sheet sheet;
  sheet.record.Set("txtFUG_Valves", "1000.00001");
  EXPECT_EQ(sheet.Finding("Facility Size"), "");
  sheet.record.Set("txtFUG_Valves", "1000.001");
  EXPECT_EQ(sheet.Finding("Facility Size"), kNoMatch);
}

TEST(Fugitives, without_a_facility_size_are_found_blank_and_not_mismatched) {
  SheetRecord record("FUG", Mode::kDesc);
  record.Set("txtFUG_Valves", "20000");
  record.Run();
  EXPECT_EQ(record.Finding("Facility Size"), kBlankFinding);
}

TEST(Fugitives, whose_size_is_put_right_are_no_longer_marked) {
  Sheet sheet;
  sheet.record.Set("txtFUG_Valves", "1001");
  EXPECT_EQ(sheet.Finding("Facility Size"), kNoMatch);
  EXPECT_EQ(sheet.record.MarkOf(kSize), Mark::kFlag);
  sheet.record.Set(kSize, kMedium);
  EXPECT_EQ(sheet.Finding("Facility Size"), "");
  EXPECT_EQ(sheet.record.MarkOf(kSize), Mark::kPlain);
}

TEST(Fugitives, lose_the_mark_of_a_list_that_was_blank_at_the_run_before) {
  SheetRecord record("FUG", Mode::kDesc);
  record.Set(kInspected, "Yes");
  record.Run();
  const Values lists = {
      {"cmbFUG_StreamType", "Gas"}, {"cmbFUG_CountType", "Actual"}, {kMethod, "Vapor Analyzer"}, {kMonths, "6"}};
  for (const auto& [list, value] : lists) EXPECT_EQ(record.MarkOf(list), Mark::kFlag) << list;
  record.Put(lists);
  record.Run();
  for (const auto& [list, value] : lists) EXPECT_EQ(record.MarkOf(list), Mark::kPlain) << list;
}

TEST(Fugitives, under_inspection_need_months_and_method) {
  Sheet sheet;
  sheet.record.Set(kInspected, "Yes");
  EXPECT_EQ(sheet.Finding("Months Between Inspections"), kBlankFinding);
  EXPECT_EQ(sheet.record.Finding("Method of Inspection"), kBlankFinding);
  sheet.record.Put({{kMonths, "6"}, {kMethod, "Visual Inspection"}});
  EXPECT_EQ(sheet.Finding("Months Between Inspections"), "");
  EXPECT_EQ(sheet.record.Finding("Method of Inspection"), "");
}

TEST(Fugitives, taken_out_of_inspection_keep_a_finding_of_another_text) {
  Sheet sheet;
  for (const std::string field : {"Months Between Inspections", "Method of Inspection"}) {
    sheet.record.Leave(field, "Seldom enough");
    EXPECT_EQ(sheet.Finding(field), "Seldom enough");
  }
}

TEST(Fugitives, with_months_that_are_no_number_are_found_without_months) {
  Sheet sheet;
  sheet.record.Put({{kInspected, "Yes"}, {kMonths, "abc"}});
  EXPECT_EQ(sheet.Finding("Months Between Inspections"), kBlankFinding);
  EXPECT_EQ(sheet.record.Text(kMonths), "");
}

TEST(Fugitives, add_the_seals_of_compressors_up_first) {
  SheetRecord record("FUG", Mode::kDesc);
  record.Put({{"cmbFUG_FacilitySize", "Small (<=1000 components)"},
              {"txtFUG_CentCompWetSeals", "2000"},
              {"txtFUG_Valves", "1e20"},
              {"txtFUG_PumpSeals", "-1e20"}});
  record.Run();
  EXPECT_EQ(record.Finding("Facility Size"), "") << "2000 is lost beside 1E+20, which the pump seals take away again";
  record.Put({{"txtFUG_Valves", "0"}, {"txtFUG_PumpSeals", "0"}});
  record.Run();
  EXPECT_EQ(record.Finding("Facility Size"), "Facility Size doesn't match inventory");
}

}  // namespace
}  // namespace merlu::test
