#include <gtest/gtest.h>

#include "sheets/pneumatic_pump.h"

namespace merlu::test {
namespace {

using namespace pump;

// The first month of a pump.
struct Month {
  std::string Rate(const std::string& hours, const std::string& rate) {
    record.Put({{kHours, hours}, {kRate, rate}});
    record.Run();
    return record.Finding(kRateTag);
  }
  SheetRecord record{"PNE", Mode::kActv};
};

TEST(PneumaticPump, cannot_run_for_745_hours) {
  Month month;
  month.Rate("745", "5");
  EXPECT_EQ(month.record.Finding("Hours per day operated"), "Value not in expected range (0 to 744)");
}

TEST(PneumaticPump, needs_make_and_model_and_nothing_else_of_its_description) {
  SheetRecord record("PNE", Mode::kDesc);
  record.Run();
  EXPECT_EQ(record.Findings(),
            (Values{{"Equipment Manufacturer", kBlankFinding}, {"Equipment Model ", kBlankFinding}}));
}

TEST(PneumaticPump, loses_the_marks_of_what_was_blank_at_the_run_before) {
  SheetRecord record("PNE", Mode::kDesc);
  record.Set(kDestination, "Vented Remotely");
  record.Run();
  const Values lists = {{kMake, "Generic"}, {kModel, "Piston pump"}, {kRemote, "Vent: V1"}};
  for (const auto& [list, value] : lists) EXPECT_EQ(record.MarkOf(list), Mark::kFlag) << list;
  record.Put(lists);
  record.Run();
  for (const auto& [list, value] : lists) EXPECT_EQ(record.MarkOf(list), Mark::kPlain) << list;
}

TEST(PneumaticPump, puts_no_bounds_to_its_outlet) {
  SheetRecord record("PNE", Mode::kDesc);
  record.Put({{kMake, "Generic"}, {kModel, "Piston pump"}, {kDestination, "Vented Locally"}});
  for (const std::string& outlet : kOutlets) record.Set(outlet, "-99999");
  record.Run();
  EXPECT_EQ(record.Findings(), Values());
}

TEST(PneumaticPump, that_runs_needs_a_rate_over_zero) {
  Month month;
  EXPECT_EQ(month.Rate("5", "0"), kNotOverZero);
  EXPECT_EQ(month.Rate("5", "0.1"), "");
  EXPECT_EQ(month.record.MarkOf(kRate), Mark::kPlain);
  EXPECT_EQ(month.Rate("0.5", "-1"), kNotOverZero);
  EXPECT_EQ(month.Rate("5", "none"), kNotOverZero);
}

TEST(PneumaticPump, that_stands_still_may_have_a_rate_of_zero) {
  Month month;
  EXPECT_EQ(month.Rate("0", "0"), "");
  EXPECT_EQ(month.Rate("", "0"), "");
}

TEST(PneumaticPump, lacks_a_blank_rate_with_and_without_hours) {
  for (const char* hours : {"", "0", "5"}) {
    Month month;
    EXPECT_EQ(month.Rate(hours, ""), kBlankFinding) << "hours " << hours;
    EXPECT_EQ(month.record.MarkOf(kRate), Mark::kFlag) << "hours " << hours;
  }
}

TEST(PneumaticPump, routed_far_away_needs_its_vent_or_flare_in_both_modes) {
  SheetRecord record("PNE", Mode::kDesc);
  for (const char* remote : {"Vented Remotely", "Flared Remotely"})
    for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
      record.Set(kDestination, remote);
      record.GoTo(mode);
      record.Forget();
      record.Run();
      EXPECT_EQ(record.Finding(kRemoteTag), kBlankFinding) << remote;
      EXPECT_EQ(record.MarkOf(kRemote), Mark::kFlag) << remote;
    }
}

TEST(PneumaticPump, routed_nearby_loses_any_finding_of_its_vent_in_both_modes) {
  SheetRecord record("PNE", Mode::kDesc);
  for (const char* nearby : {"Vented Locally", "Flared Locally", "Routed to System"})
    for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
      record.Set(kDestination, nearby);
      record.GoTo(mode);
      record.Leave(kRemoteTag, "Of another text");
      record.Run();
      EXPECT_EQ(record.Finding(kRemoteTag), "") << nearby;
    }
}

TEST(PneumaticPump, without_its_vent_stays_as_it_is_in_any_other_run) {
  SheetRecord record("PNE", Mode::kDesc);
  record.Put({{kMake, "Generic"}, {kModel, "Piston pump"}, {kDestination, "Vented Remotely"}});
  record.Run();
  EXPECT_EQ(record.Findings().size(), 1U);
  EXPECT_EQ(record.Text(kDestination), "Vented Remotely");
}

}  // namespace
}  // namespace merlu::test
