#include <gtest/gtest.h>

#include "sheets/flashing_losses.h"

namespace merlu::test {
namespace {

using namespace flashing;

using Texts = std::vector<std::string>;

TEST(FlashingLosses, of_50_psig_suit_a_separator_and_a_heater_and_no_tank) {
  SheetRecord record("LOS", Mode::kActv);
  const std::pair<const char*, const char*> vessels[] = {{"Separator", ""},
                                                         {"Heater Treater", ""},
                                                         {"Other", ""},
                                                         {"Surge Tank", "Value not in expected range (0 to 40)"},
                                                         {"Storage Tank", "Value not in expected range (0 to 0.25)"}};
  for (const auto& [vessel, finding] : vessels) {
    record.Set(kVessel, vessel);
    record.Forget();
    record.Put({{kDownstream, "50"}, {kUpstream, "50"}});
    record.Run();
    EXPECT_EQ(record.Finding(kDownstreamTag), finding) << vessel;
    EXPECT_EQ(record.Finding(kUpstreamTag), finding) << vessel;
  }
}

TEST(FlashingLosses, blank_in_a_month_lacks_its_pressures_only_with_a_vessel) {
  SheetRecord record("LOS", Mode::kActv);
  for (const std::string vessel : {"", "Surge Tank", "Kettle"}) {
    record.Set(kVessel, vessel);
    record.Forget();
    record.Run();
    Values expected = {{"Oil/Condensate Throughput", kBlankFinding},
                       {"Op temp of Vessel", kBlankFinding},
                       {"Op Temp upstream of Vessel", kBlankFinding}};
    if (vessel == "Surge Tank") {
      expected.emplace_back(kDownstreamTag, kBlankFinding);
      expected.emplace_back(kUpstreamTag, kBlankFinding);
    }
    EXPECT_EQ(record.Findings(), expected) << vessel;
  }
}

TEST(FlashingLosses, without_a_vessel_passes_any_pressure_and_keeps_what_was_found) {
  SheetRecord record("LOS", Mode::kActv);
  record.Put({{kDownstream, "99999"}, {kUpstream, "-5"}});
  record.Run();
  EXPECT_EQ(record.Finding(kDownstreamTag), "");
  EXPECT_EQ(record.Finding(kUpstreamTag), "");
  EXPECT_EQ(record.MarkOf(kDownstream), Mark::kPlain);
  record.Set(kVessel, "Surge Tank");
  record.Put({{kDownstream, "41"}, {kUpstream, "40"}});
  record.Run();
  EXPECT_EQ(record.Finding(kDownstreamTag), RangeFinding(0, 40));
  record.Set(kVessel, "");
  record.Run();
  EXPECT_EQ(record.Finding(kDownstreamTag), RangeFinding(0, 40)) << "no rule looks at it any more";
}

TEST(FlashingLosses, asks_nothing_of_the_flash_per_barrel) {
  SheetRecord record("LOS", Mode::kActv, {{kVessel, "Separator"}});
  for (const char* text : {"", "-1", "1e9"}) {
    record.Set("txtLOS_SCFperBarrel", text);
    record.Run();
    EXPECT_EQ(record.Finding("SCF per bbl Flash"), "") << text;
  }
}

TEST(FlashingLosses, blank_in_its_description_lacks_these_in_their_order) {
  SheetRecord record("LOS", Mode::kDesc);
  const auto findings = [&](const Texts& more) {
    record.Forget();
    record.Run();
    Values expected = {{"Type of Vessel", kBlankFinding}, {"API gravity", kBlankFinding}};
    for (const std::string& tag : more) expected.emplace_back(tag, kBlankFinding);
    EXPECT_EQ(record.Findings(), expected);
  };
  const Texts outlet = {"Outlet Height", "Outlet Diameter", "Exhaust Exit Velocity", "Exhaust Exit Temperature",
                        "Exhaust Outlet Orientation"};
  findings({"Emissions Destination"});
  record.Set(kDestination, "Vented Locally");
  findings(outlet);
  record.Set(kDestination, "Flared Locally");
  findings(outlet);
  record.Set(kDestination, "Flared Remotely");
  findings({"Low Pressure Vent/Flare ID"});
  record.Set(kDestination, "Routed to System");
  findings({});
}

TEST(FlashingLosses, keeps_the_outlet_s_findings_when_the_destination_stops_being_local) {
  SheetRecord record("LOS", Mode::kDesc);
  for (const char* other : {"Vented Remotely", "Flared Remotely", "Routed to System"}) {
    record.Set(kDestination, "Vented Locally");
    record.Set("txtLOS_ExhaustOutletHgt", "20");
    record.Run();
    EXPECT_EQ(record.Finding("Outlet Height"), RangeFinding(30, 100));
    record.Set(kDestination, other);
    record.Run();
    EXPECT_EQ(record.Finding("Outlet Height"), RangeFinding(30, 100)) << other;
    EXPECT_EQ(record.Finding("Exhaust Exit Temperature"), kBlankFinding) << other;
  }
  // the next local run looks again
  record.Put({{kDestination, "Flared Locally"}, {"txtLOS_ExhaustOutletHgt", "30"}});
  record.Run();
  EXPECT_EQ(record.Finding("Outlet Height"), "");
}

TEST(FlashingLosses, of_an_outlet_at_20_feet_fail_where_an_amine_unit_passes) {
  struct {
    const char *type, *height, *tag, *finding;
  } const cases[] = {{"LOS", "txtLOS_ExhaustOutletHgt", "Outlet Height", "Value not in expected range (30 to 100)"},
                     {"AMI", "txtAMI_ExhaustOutletHgt", "Ventilation Outlet Height", ""}};
  for (const auto& one : cases) {
    SheetRecord record(one.type, Mode::kDesc);
    record.Put({{std::string("cmb") + one.type + "_GasesVentOrFlare", "Vented Locally"}, {one.height, "20"}});
    record.Run();
    EXPECT_EQ(record.Finding(one.tag), one.finding) << one.type;
  }
}

TEST(FlashingLosses, look_at_no_outlet_in_a_month) {
  SheetRecord record("LOS", Mode::kDesc);
  record.Put({{kDestination, "Vented Locally"}});
  record.Run();
  EXPECT_EQ(record.CountOf("Outlet") + record.CountOf("Exhaust"), 5);
  record.GoTo(Mode::kActv);
  record.Run();
  EXPECT_EQ(record.CountOf("Outlet") + record.CountOf("Exhaust") + record.CountOf("Emissions"), 0);
  EXPECT_EQ(record.Findings().size(), 3U);
}

TEST(FlashingLosses, look_passed_again_once_the_vessel_is_chosen) {
  SheetRecord record("LOS", Mode::kDesc);
  record.Run();
  EXPECT_EQ(record.MarkOf(kVessel), Mark::kFlag);
  record.Set(kVessel, "Other");
  record.Run();
  EXPECT_EQ(record.MarkOf(kVessel), Mark::kPlain);
}

}  // namespace
}  // namespace merlu::test
