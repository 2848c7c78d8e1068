// The rules of the blocks of fields that several sheets share.
#include <gtest/gtest.h>

#include "sheets/blocks.h"

namespace merlu::test {
namespace {

using namespace blocks;

constexpr auto kNameByType = [](const auto& info) { return info.param.type; };

// ---- the exhaust outlet ----

class ExhaustOutletRules : public testing::TestWithParam<ExhaustCase> {
 protected:
  const ExhaustCase& block() const { return GetParam(); }
};

TEST_P(ExhaustOutletRules, hold_it_to_the_bounds_of_its_type) {
  const ExhaustCase& b = block();
  BoundCase bounds{
      .type = b.type,
      .mode = Mode::kDesc,
      .required = {{b.Named("Hgt"), "Exhaust Outlet Height", -30, b.height},
                   {b.Named("InnerDiam"), "Exhaust Outlet Inner Diameter", b.diameter_low, b.diameter},
                   {b.Named("ExitVel"), "Exhaust Exit Velocity", 0, b.velocity},
                   {b.Named(b.temperature), "Exhaust Exit Temperature", b.temperature_low, b.temperature_high}}};
  if (b.has_orientation_rule) bounds.required.push_back({b.Named("Angle"), "Exhaust Outlet Orientation", 0, 180});
  TryBounds(bounds);
}

TEST_P(ExhaustOutletRules, do_not_look_at_it_in_a_month) {
  SheetRecord record(block().type, Mode::kActv);
  record.Run();
  EXPECT_FALSE(record.Findings().empty());
  EXPECT_EQ(record.CountOf("Exhaust"), 0);
}

INSTANTIATE_TEST_SUITE_P(Sheets, ExhaustOutletRules, testing::ValuesIn(kExhausts), kNameByType);

TEST(GasEngine, takes_any_orientation_of_its_outlet_and_none) {
  SheetRecord record("NGE", Mode::kDesc);
  for (const char* orientation : {"999", "-1", ""}) {
    record.Set("txtNGE_ExhaustOutletAngle", orientation);
    record.Run();
    EXPECT_EQ(record.Finding("Exhaust Outlet Orientation"), "");
    EXPECT_EQ(record.MarkOf("txtNGE_ExhaustOutletAngle"), Mark::kPlain);
  }
  EXPECT_EQ(record.Finding("Exhaust Outlet Height"), kBlankFinding);
}

// ---- another control device ----

class OtherControlDeviceRules : public testing::TestWithParam<DeviceCase> {
 protected:
  const DeviceCase& block() const { return GetParam(); }
  // How many findings of its description and its efficiencies there are.
  std::size_t FindingsOfIt() const {
    std::size_t count = record.Finding(block().description_tag).empty() ? 0 : 1;
    for (const auto& [tag, text] : record.Findings()) count += tag.ends_with("Control Efficiency") ? 1U : 0U;
    return count;
  }
  SheetRecord record{GetParam().type, Mode::kDesc};
};

TEST_P(OtherControlDeviceRules, hold_its_efficiencies_to_0_to_99_9_percent_or_none) {
  BoundCase bounds{.type = block().type,
                   .mode = Mode::kDesc,
                   .base = {{block().Device(), "Yes"}, {block().Description(), "scrubber"}}};
  for (const std::string& gas : block().gases)
    bounds.if_filled.push_back({block().Efficiency(gas), gas + " Control Efficiency", 0, 99.9});
  TryBounds(bounds);
}

TEST_P(OtherControlDeviceRules, need_a_description_and_no_efficiency_of_one_that_is_there) {
  record.Set(block().Device(), "Yes");
  record.Run();
  EXPECT_EQ(record.Finding(block().description_tag), kBlankFinding);
  EXPECT_EQ(record.MarkOf(block().Description()), Mark::kFlag);
  for (const std::string& gas : block().gases) {
    EXPECT_EQ(record.Finding(gas + " Control Efficiency"), "");
    EXPECT_EQ(record.MarkOf(block().Efficiency(gas)), Mark::kPlain);
  }
  record.Set(block().Description(), "scrubber");
  record.Run();
  EXPECT_EQ(record.Finding(block().description_tag), "");
}

TEST_P(OtherControlDeviceRules, ask_nothing_of_one_that_is_not_there) {
  record.Run();
  EXPECT_FALSE(record.Findings().empty());
  EXPECT_EQ(FindingsOfIt(), 0U);
  EXPECT_EQ(record.CountOf("Other Control"), 0);
}

TEST_P(OtherControlDeviceRules, withdraw_the_findings_of_one_that_goes) {
  record.Set(block().Device(), "Yes");
  for (const std::string& gas : block().gases) record.Set(block().Efficiency(gas), "100");
  record.Run();
  EXPECT_EQ(FindingsOfIt(), block().gases.size() + 1);
  record.Set(block().Device(), "No");
  record.Run();
  EXPECT_EQ(FindingsOfIt(), 0U);
  EXPECT_FALSE(record.Findings().empty());
}

TEST_P(OtherControlDeviceRules, leave_the_colour_of_a_field_that_passes_again) {
  record.Set(block().Device(), "Yes");
  const std::string gas = block().gases.front();
  record.Set(block().Efficiency(gas), "100");
  record.Run();
  EXPECT_EQ(record.MarkOf(block().Efficiency(gas)), Mark::kFlag);
  EXPECT_EQ(record.MarkOf(block().Description()), Mark::kFlag);
  record.Put({{block().Efficiency(gas), "50"}, {block().Description(), "scrubber"}});
  record.Run();
  EXPECT_EQ(record.Finding(gas + " Control Efficiency") + record.Finding(block().description_tag), "");
  EXPECT_EQ(record.MarkOf(block().Efficiency(gas)), Mark::kFlag);
  EXPECT_EQ(record.MarkOf(block().Description()), Mark::kFlag);
}

INSTANTIATE_TEST_SUITE_P(Sheets, OtherControlDeviceRules, testing::ValuesIn(kDevices), kNameByType);

}  // namespace
}  // namespace merlu::test
