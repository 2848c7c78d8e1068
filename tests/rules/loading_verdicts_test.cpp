#include <gtest/gtest.h>

#include "base/numbers.h"
#include "rules/same_rules.h"
#include "sheets/loading.h"

namespace merlu::test {
namespace {

using namespace loading;

using Texts = std::vector<std::string>;

constexpr const char* kDestinationTag = "Gases Vented/Flared?";
constexpr const char* kExceeds = "Value exceeds crude oil throughput for structure";

// The numbers of the description that a month is checked for too.
const Bound kStanding[] = {{"txtLOA_EquipElev", "Average Elevation", 10, 350},
                           {"txtLOA_ReidVP", "Product Reid Vapor Pressure", 0.1, 20},
                           {"txtLOA_TankVaporWeightPercentVOC", "Avg. % by Weight VOCs", 0, 100},
                           {"txtLOA_TankVOCMolWeight", "Avg. Molecular Weight of VOCs", 16, 254}};

TEST(Loading, is_held_in_a_month_to_the_bounds_of_its_description_too) {
  SheetRecord record("LOA", Mode::kActv);
  const auto attempt = [&](const char* what, auto value, auto expected) {
    for (const Bound& bound : kStanding) record.Set(bound.control, value(bound));
    record.Run();
    for (const Bound& bound : kStanding)
      EXPECT_EQ(record.Finding(bound.tag), expected(bound)) << bound.control << " " << what;
  };
  const auto none = [](const Bound&) { return std::string(); };
  const auto range = [](const Bound& bound) { return RangeFinding(bound.low, bound.high); };
  attempt("blank", none, [](const Bound&) { return std::string(kBlankFinding); });
  attempt(
      "at the low bound", [](const Bound& b) { return GeneralNumber(b.low); }, none);
  attempt(
      "below", [](const Bound& b) { return GeneralNumber(b.low - 0.01); }, range);
  attempt(
      "at the high bound", [](const Bound& b) { return GeneralNumber(b.high); }, none);
  attempt(
      "above", [](const Bound& b) { return GeneralNumber(b.high + 0.01); }, range);
}

TEST(Loading, blank_in_a_month_lacks_its_description_as_well) {
  SheetRecord record("LOA", Mode::kActv);
  record.Run();
  Values expected;
  for (const char* tag : {"Volume Loaded", "Average Elevation", "Storage Tank Paint Color",
                          "Storage Tank Paint Condition", "Bulk Liquid Temperature", "Product Reid Vapor Pressure",
                          "Avg. % by Weight VOCs", "Avg. Molecular Weight of VOCs"})
    expected.emplace_back(tag, kBlankFinding);
  EXPECT_EQ(record.Findings(), expected);
}

TEST(Loading, blank_in_its_description_lacks_these_in_their_order_and_no_destination) {
  SheetRecord record("LOA", Mode::kDesc);
  const auto findings = [&](const Texts& more) {
    record.Forget();
    record.Run();
    Values expected;
    for (const char* tag : {"Average Elevation", "Storage Tank Paint Color", "Storage Tank Paint Condition",
                            "Product Reid Vapor Pressure", "Avg. % by Weight VOCs", "Avg. Molecular Weight of VOCs"})
      expected.emplace_back(tag, kBlankFinding);
    for (const std::string& tag : more) expected.emplace_back(tag, kBlankFinding);
    EXPECT_EQ(record.Findings(), expected);
  };
  findings({"Installed Control Equipment"});
  record.Put({{kDestination, "Vented Locally"}, {kTechnology, kCondenser}, {kDevice, "Yes"}});
  findings({"Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Exit Temperature", "Ventilation Outlet Orientation", "Condenser Temperature",
            "Condenser Pressure", "Other Control Equipment Descript."});
  record.Put({{kDestination, "Flared Locally"}, {kTechnology, "None"}, {kDevice, "No"}});
  findings({"Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Outlet Orientation", "Flare Feed Rate", "Flare Combustion Temperature",
            "Flare Combustion Efficiency"});
  record.Set(kDestination, "Vented Remotely");
  findings({"Low Pressure Vent/Flare ID"});
}

TEST(Loading, withdraws_what_stands_on_its_destination_unless_that_is_local) {
  SheetRecord record("LOA", Mode::kDesc);
  const auto leave_finding = [&] {
    record.Forget();
    record.Run();
    EXPECT_EQ(record.Finding(kDestinationTag), "");
    record.Leave(kDestinationTag, "as in an old run");
    record.Run();
    return record.Finding(kDestinationTag);
  };
  EXPECT_EQ(leave_finding(), "") << "blank";
  for (const char* local : {"Vented Locally", "Flared Locally"}) {
    record.Put({{kDestination, local}});
    EXPECT_EQ(leave_finding(), "as in an old run") << local;
  }
  for (const char* remote : {"Vented Remotely", "Flared Remotely"}) {
    record.Put({{kDestination, remote}});
    EXPECT_EQ(leave_finding(), "") << remote;
  }
}

TEST(Loading, withdraws_the_findings_of_fields_that_no_longer_apply) {
  const std::vector<ListCase> cases = {
      {kTechnology, kCondenser, "None", {"Condenser Temperature", "Condenser Pressure"}},
      {kDevice, "Yes", "No", {"Other Control Equipment Descript."}},
  };
  ExpectWithdrawnWithoutTheChoice("LOA", cases);
  ExpectWithdrawnWithoutTheChoice("LOA", CasesOfDestination(kDestination, "Flared Remotely", "Flare Combustion"));
}

TEST(Loading, may_not_load_more_than_its_structure_passes) {
  ExpectNoMoreThanTheStructure(
      "LOA", {"THRU_OIL", kVolume, "Volume Loaded", kExceeds, 5000000, {"4000000", "4000000.1", "4000000.5"}});
}

TEST(Loading, looks_passed_again_once_a_required_field_is_filled) {
  const Values fields = {{"cmbLOA_TankPaintColor", "Grey/Light"},
                         {"cmbLOA_TankPaintCondition", "Good"},
                         {kTechnology, "None"},
                         {"txtLOA_OtherControlDesc", "scrubber"}};
  ExpectPassedOnceFilled("LOA", {{kDevice, "Yes"}}, fields);
}

}  // namespace
}  // namespace merlu::test
