#include <gtest/gtest.h>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

const char* const kOverTotal = "Value exceeds total fuel used for structure";

struct Fuel {
  const char* control;
  const char* tag;
  const char* column;
};

constexpr Fuel kFuels[] = {{"txtJAC_DieselUsage", "Total Diesel Fuel Usage", "TOT_FUEL_USE_DIE"},
                           {"txtJAC_GasolineUsage", "Total Gasoline Fuel Usage", "TOT_FUEL_USE_GAS"},
                           {"txtJAC_NGUsage", "Total Natural Gas Usage", "TOT_FUEL_USE_NG"}};

// The fuel's finding at that value.
std::string FindingAt(SheetRecord& record, const Fuel& fuel, const std::string& value) {
  record.Set(fuel.control, value);
  record.Run();
  return record.Finding(fuel.tag);
}

TEST(DrillingEquipment, misses_these_fields_of_a_blank_month_in_this_order_and_no_rig_name) {
  SheetRecord record("DRI", Mode::kActv);
  record.Run();
  EXPECT_EQ(record.Findings(), (Values{{"Hours Operated", kBlankFinding},
                                       {"Total Diesel Fuel Usage", kBlankFinding},
                                       {"Total Gasoline Fuel Usage", kBlankFinding},
                                       {"Total Natural Gas Usage", kBlankFinding}}));
}

TEST(DrillingEquipment, misses_these_fields_of_a_blank_description_in_this_order) {
  SheetRecord record("DRI", Mode::kDesc);
  record.Set("cmbJAC_OtherControlDevice", "Yes");
  record.Run();
  EXPECT_EQ(record.Findings(), (Values{{"Exhaust Outlet Height", kBlankFinding},
                                       {"Exhaust Outlet Inner Diameter", kBlankFinding},
                                       {"Exhaust Exit Velocity", kBlankFinding},
                                       {"Exhaust Exit Temperature", kBlankFinding},
                                       {"Exhaust Outlet Orientation", kBlankFinding},
                                       {"Other Control Equipment Descript.", kBlankFinding}}));
}

TEST(DrillingEquipment, needs_every_fuel_of_every_month_and_zero_will_do) {
  SheetRecord record("DRI", Mode::kActv);
  for (const Fuel& fuel : kFuels) {
    EXPECT_EQ(FindingAt(record, fuel, ""), kBlankFinding);
    EXPECT_EQ(record.MarkOf(fuel.control), Mark::kFlag);
    EXPECT_EQ(FindingAt(record, fuel, "0"), "");
    EXPECT_EQ(record.MarkOf(fuel.control), Mark::kPlain);
  }
}

TEST(DrillingEquipment, may_use_any_amount_of_a_fuel_that_the_structure_has_no_total_of) {
  SheetRecord record("DRI", Mode::kActv);
  for (const Fuel& fuel : kFuels) {
    for (const Fuel& other : kFuels) record.SetTotal(other.column, "1");
    for (const char* total : {"NULL", "0", "0.4", "0.5"}) {
      record.SetTotal(fuel.column, total);
      EXPECT_EQ(FindingAt(record, fuel, "1E9"), "") << fuel.column << " " << total;
      EXPECT_EQ(FindingAt(record, fuel, "-5"), "") << fuel.column << " " << total;
    }
    record.SetTotal(fuel.column, "0.51");
    EXPECT_EQ(FindingAt(record, fuel, "1E9"), kOverTotal);
  }
}

TEST(DrillingEquipment, may_use_the_structure_s_total_of_a_fuel_and_not_more) {
  SheetRecord record("DRI", Mode::kActv);
  for (const Fuel& fuel : kFuels) {
    for (const Fuel& other : kFuels) record.SetTotal(other.column, "1");
    record.SetTotal(fuel.column, "100");
    EXPECT_EQ(FindingAt(record, fuel, "100.01"), kOverTotal) << fuel.column;
    EXPECT_EQ(record.MarkOf(fuel.control), Mark::kFlag);
    EXPECT_EQ(FindingAt(record, fuel, "100"), "") << fuel.column;
    EXPECT_EQ(record.MarkOf(fuel.control), Mark::kPlain);
  }
}

TEST(DrillingEquipment, is_compared_with_the_structure_in_single_precision) {
  SheetRecord record("DRI", Mode::kActv);
  for (const Fuel& fuel : kFuels) {
    record.SetTotal(fuel.column, "16777216");
    EXPECT_EQ(FindingAt(record, fuel, "16777217"), "");
    EXPECT_EQ(FindingAt(record, fuel, "16777218"), kOverTotal);
  }
}

}  // namespace
}  // namespace merlu::test
