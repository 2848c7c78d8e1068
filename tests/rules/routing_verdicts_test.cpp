// The rules of destination and remote vent or flare, on every sheet that has them.
#include <gtest/gtest.h>

#include "sheets/routing.h"

namespace merlu::test {
namespace {

using namespace routing;

class RoutingVerdicts : public testing::TestWithParam<Sheet> {
 protected:
  const Sheet& sheet() const { return GetParam(); }
  void Go(const std::string& destination) {
    record.Set(sheet().destination(), destination);
    record.Run();
  }
  Mark MarkOfRemote() const { return record.MarkOf(sheet().sent_to()); }
  SheetRecord record{GetParam().type, Mode::kDesc};
};

TEST_P(RoutingVerdicts, ask_for_a_destination_where_the_sheet_does) {
  record.Run();
  EXPECT_EQ(record.Finding(sheet().destination_tag), sheet().required ? kBlankFinding : "");
  EXPECT_EQ(record.MarkOf(sheet().destination()), sheet().required ? Mark::kFlag : Mark::kPlain);
  Go("Vented Locally");
  EXPECT_EQ(record.Finding(sheet().destination_tag), "");
  EXPECT_EQ(record.MarkOf(sheet().destination()), Mark::kPlain);
}

TEST_P(RoutingVerdicts, ask_for_the_remote_one_and_withdraw_that_for_any_other_destination) {
  Texts others = {"Vented Locally", "Flared Locally"};
  if (sheet().to_system) others.push_back("Routed to System");
  for (const auto& [remote, id] : Values{{"Vented Remotely", "Vent: V2"}, {"Flared Remotely", "Flare: F2"}}) {
    record.Set(sheet().sent_to(), "");
    for (const std::string& other : others) {
      Go(remote);
      EXPECT_EQ(record.Finding(kRemoteTag), kBlankFinding) << remote;
      EXPECT_EQ(MarkOfRemote(), Mark::kFlag) << remote;
      Go(other);
      EXPECT_EQ(record.Finding(kRemoteTag), "") << other;
    }
    Go(remote);
    record.Set(sheet().sent_to(), id);
    record.Run();
    EXPECT_EQ(record.Finding(kRemoteTag), "") << remote;
  }
}

TEST_P(RoutingVerdicts, pass_the_remote_one_once_it_is_given) {
  Go("Vented Remotely");
  ASSERT_EQ(MarkOfRemote(), Mark::kFlag);
  record.Set(sheet().sent_to(), "Vent: V1");
  record.Run();
  EXPECT_EQ(MarkOfRemote(), Mark::kPlain);
}

INSTANTIATE_TEST_SUITE_P(Sheets, RoutingVerdicts, testing::ValuesIn(kSheets), NameOf);

}  // namespace
}  // namespace merlu::test
