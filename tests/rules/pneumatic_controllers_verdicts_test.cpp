#include <gtest/gtest.h>

#include "sheets/pneumatic_controllers.h"

namespace merlu::test {
namespace {

using namespace controllers;

constexpr const char* kNotOverZero = "Required value should be greater than 0";

// The first month of controllers.
struct Month {
  std::string Rate(const std::string& hours, const std::string& rate) {
    record.Put({{kHours, hours}, {kRate, rate}});
    record.Run();
    return record.Finding("Fuel Usage Rate");
  }
  SheetRecord record{"PRE", Mode::kActv, {{kService, "PC"}}};
};

TEST(PneumaticControllers, need_make_model_bleed_rate_and_quantity) {
  SheetRecord record("PRE", Mode::kDesc, {{kService, "PC"}});
  record.Run();
  EXPECT_EQ(record.Findings(), (Values{{"Equipment Manufacturer", kBlankFinding},
                                       {"Equipment Model", kBlankFinding},
                                       {"Bleed Rate", kBlankFinding},
                                       {"Number of Units", kBlankFinding}}));
  record.Put({{kMake, "Generic"},
              {kModel, "Pilot controller"},
              {"cmbPRE_BleedRate", "Zero-bleed"},
              {"txtPRE_Quantity", "-3"},
              {"txtPRE_EquipElev", "-99999"}});
  record.Run();
  EXPECT_EQ(record.Findings(), Values());
}

TEST(PneumaticControllers, need_a_service_type) {
  SheetRecord record("PRE", Mode::kDesc);
  record.Run();
  EXPECT_EQ(record.Finding("Service Type"), kBlankFinding);
  record.Set(kService, "LC");
  record.Run();
  EXPECT_EQ(record.Finding("Service Type"), "");
}

TEST(PneumaticControllers, lose_the_marks_of_what_was_blank_at_the_run_before) {
  SheetRecord record("PRE", Mode::kDesc);
  record.Run();
  const Values values = {
      {kMake, "Generic"}, {kModel, "Pilot controller"}, {"cmbPRE_BleedRate", "Zero-bleed"}, {"txtPRE_Quantity", "3"}};
  for (const auto& [field, value] : values) EXPECT_EQ(record.MarkOf(field), Mark::kFlag) << field;
  record.Put(values);
  record.Run();
  for (const auto& [field, value] : values) EXPECT_EQ(record.MarkOf(field), Mark::kPlain) << field;
}

TEST(PneumaticControllers, that_run_need_a_rate_over_zero) {
  Month month;
  EXPECT_EQ(month.Rate("5", "0"), kNotOverZero);
  EXPECT_EQ(month.record.MarkOf(kRate), Mark::kFlag);
  EXPECT_EQ(month.Rate("5", ""), kNotOverZero);
  EXPECT_EQ(month.Rate("5", "-1"), kNotOverZero);
  EXPECT_EQ(month.Rate("5", "0.1"), "");
  EXPECT_EQ(month.record.MarkOf(kRate), Mark::kPlain);
}

TEST(PneumaticControllers, that_stand_still_lose_the_finding_of_their_rate) {
  for (const char* hours : {"0", "", "-2"}) {
    Month month;
    EXPECT_EQ(month.Rate("5", ""), kNotOverZero);
    EXPECT_EQ(month.Rate(hours, ""), "") << "hours " << hours;
    EXPECT_EQ(month.record.MarkOf(kRate), Mark::kPlain) << "hours " << hours;
  }
}

TEST(PneumaticControllers, hold_nobody_to_the_hours_of_a_month) {
  Month month;
  for (const char* hours : {"", "99999", "-1"}) {
    month.Rate(hours, "5");
    EXPECT_EQ(month.record.Findings(), Values()) << "hours " << hours;
  }
}

}  // namespace
}  // namespace merlu::test
