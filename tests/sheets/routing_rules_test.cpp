#include "routing.h"

namespace merlu::test {
namespace {

using namespace routing;

class RoutingRules : public Routing {};

TEST_P(RoutingRules, without_the_remote_one_changes_the_destination_in_the_save_s_own_run_only) {
  struct {
    const char *remote, *code, *box, *local, *local_code;
  } const cases[] = {{"Vented Remotely", "VR", kNoVent, "Vented Locally", "VL"},
                     {"Flared Remotely", "FR", kNoFlare, "Flared Locally", "FL"}};
  for (const auto& one : cases) {
    TestRun fresh;
    fresh.StartWith(sheet().type, "X1");
    fresh.Click("cmdEdit");
    fresh.Set(sheet().destination(), one.remote);
    fresh.TakeBoxes();
    fresh.Click("cmdQC");
    EXPECT_EQ(fresh.TakeBoxes().size(), 1U) << "the count alone";
    EXPECT_EQ(fresh.Text(sheet().destination()), one.remote);
    fresh.Click("cmdSaveEdits");
    EXPECT_EQ(fresh.TakeBoxes(), Texts{});
    EXPECT_EQ(NullToEmpty(fresh.Sql("SELECT EMIS_DEST FROM ED_" + sheet().type)), one.code);
    fresh.Click("cmdSaveExit");
    const Texts boxes = fresh.TakeBoxes();
    const bool falls = sheet().falls != Falls::kNot;
    ASSERT_EQ(boxes.size(), falls ? 2U : 1U);
    EXPECT_EQ(boxes.front() == one.box, falls);
    EXPECT_EQ(NullToEmpty(fresh.Sql("SELECT EMIS_DEST FROM ED_" + sheet().type)), falls ? one.local_code : one.code);
    EXPECT_EQ(fresh.Text(sheet().destination()), falls ? one.local : one.remote);
    // the finding stands until the next run, which sees the new destination
    EXPECT_EQ(fresh.Finding(kRemoteTag), kBlankFinding);
    EXPECT_EQ(fresh.Count("QC WHERE FieldID LIKE '%Outlet Height' AND [Desc]='Required field left blank'"),
              falls && sheet().local_rules ? 1 : 0)
        << "the rest of the rules run on the new destination";
    fresh.Click("cmdQC");
    EXPECT_EQ(fresh.Finding(kRemoteTag), falls ? "" : kBlankFinding);
  }
}

TEST_P(RoutingRules, given_its_remote_one_is_saved_without_a_box_of_its_own) {
  StartAmongVentsAndFlares();
  run.Click("cmdEdit");
  run.Put({{sheet().destination(), "Flared Remotely"}, {sheet().sent_to(), "Flare: F1"}});
  run.Click("cmdSaveExit");
  for (const std::string& box : run.TakeBoxes()) EXPECT_EQ(box.substr(0, 17), "QC completed with");
  EXPECT_EQ(StoredText("EMIS_DEST"), "FR");
  EXPECT_EQ(StoredText("SENT_TO_ID"), "FLAF1");
}

TEST_P(RoutingRules, falls_back_in_its_text_and_where_its_sheet_does_so_in_its_index) {
  StartOnSheet();
  run.Click("cmdEdit");
  struct {
    const char *remote, *local;
    int remote_index, local_index;
  } const cases[] = {{"Vented Remotely", "Vented Locally", 2, 0}, {"Flared Remotely", "Flared Locally", 3, 1}};
  run.s.InSaveQC = true;  // as during the save, with the sheet left standing
  for (const auto& one : cases) {
    Go(one.remote);
    ASSERT_EQ(Destination().index, one.remote_index);
    run.Click("cmdQC");
    EXPECT_EQ(Destination().text, sheet().falls == Falls::kNot ? one.remote : one.local);
    EXPECT_EQ(Destination().index, sheet().falls == Falls::kTextAndIndex ? one.local_index : one.remote_index);
  }
}

TEST_P(RoutingRules, is_left_alone_by_a_run_over_the_structure) {
  StartOnSheet();
  run.Keep({{sheet().destination(), "Vented Remotely"}});
  run.Select(run.Key());
  run.TakeBoxes();
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes().size(), 1U) << "the count alone";
  EXPECT_EQ(RemoteFinding(), sheet().in_walk ? kBlankFinding : "");
  EXPECT_EQ(StoredText("EMIS_DEST"), "VR");
}

TEST_P(RoutingRules, in_a_month_never_stores_another_destination) {
  StartOnSheet();
  run.Keep({{sheet().destination(), "Vented Remotely"}});
  run.GoTo(sheet().type, "X1", Mode::kActv);
  run.Click("cmdEdit");
  run.TakeBoxes();
  run.Click("cmdSaveExit");
  const Texts boxes = run.TakeBoxes();
  // the pump's rule of the remote one runs in the month too
  const bool pump = sheet().type == "PNE";
  EXPECT_EQ(std::count(boxes.begin(), boxes.end(), kNoVent), pump ? 1 : 0);
  EXPECT_EQ(run.Finding(kRemoteTag, "EditMode='ACTV'"), pump ? kBlankFinding : "");
  EXPECT_EQ(StoredText("EMIS_DEST"), "VR");
  EXPECT_EQ(Destination().text, "Vented Remotely");
}

INSTANTIATE_TEST_SUITE_P(Sheets, RoutingRules, testing::ValuesIn(kSheets), NameOf);

}  // namespace
}  // namespace merlu::test
