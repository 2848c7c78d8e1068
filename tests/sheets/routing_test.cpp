// Where emissions go, once for each sheet that asks: the destinations and their codes, the list of remote
// vents and flares, what each destination turns on and off, and what a save does about a missing one.
#include "routing.h"

namespace merlu::test {
namespace {

using namespace routing;

// ---- destinations and their codes ----

TEST_P(Routing, offers_its_destinations_in_their_order) {
  StartOnSheet();
  Texts expected = {"Vented Locally", "Flared Locally", "Vented Remotely", "Flared Remotely"};
  if (sheet().to_system) expected.push_back("Routed to System");
  EXPECT_EQ(Destination().items, expected);
  EXPECT_EQ(Destination().text, "");
  EXPECT_EQ(Destination().index, -1);
}

TEST_P(Routing, keeps_each_destination_as_its_code_and_shows_it_again) {
  StartOnSheet();
  Values codes = {
      {"Vented Locally", "VL"}, {"Flared Locally", "FL"}, {"Vented Remotely", "VR"}, {"Flared Remotely", "FR"}};
  if (sheet().to_system) codes.emplace_back("Routed to System", "RS");
  int index = 0;
  for (const auto& [text, code] : codes) {
    run.Keep({{sheet().destination(), text}});
    EXPECT_EQ(StoredText("EMIS_DEST"), code);
    Again();
    EXPECT_EQ(Destination().text, text);
    EXPECT_EQ(Destination().index, index++);
  }
}

TEST_P(Routing, shows_nothing_for_a_code_that_its_list_lacks_and_leaves_the_code_alone) {
  StartOnSheet();
  const Texts strangers = sheet().to_system ? Texts{"XX"} : Texts{"XX", "RS"};
  for (const std::string& code : strangers) {
    run.s.db.Execute("UPDATE ED_" + sheet().type + " SET EMIS_DEST='" + code + "'");
    Again();
    EXPECT_EQ(Destination().text, "") << code;
    EXPECT_EQ(Destination().index, -1) << code;
    run.Keep({});
    EXPECT_EQ(StoredText("EMIS_DEST"), code);
  }
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

// ---- the list of remote vents and flares ----

TEST_P(Routing, lists_the_vents_of_its_structure_for_a_remote_vent_and_the_flares_for_a_remote_flare) {
  StartAmongVentsAndFlares();
  run.Click("cmdEdit");
  EXPECT_EQ(SentTo().items, Texts{});
  Go("Vented Remotely");
  EXPECT_EQ(SentTo().items, (Texts{"Vent: V1", "Vent: V2"}));
  Go("Flared Remotely");
  EXPECT_EQ(SentTo().items, (Texts{"Flare: F1", "Flare: F2"}));
  Go("Vented Locally");
  EXPECT_EQ(SentTo().items, Texts{});
  Go("Flared Remotely");
  Go("Flared Locally");
  EXPECT_EQ(SentTo().items, Texts{});
}

TEST_P(Routing, lists_a_vent_that_reports_no_emissions_too) {
  StartAmongVentsAndFlares();
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I'");
  Again();
  run.Click("cmdEdit");
  Go("Vented Remotely");
  EXPECT_EQ(SentTo().items, (Texts{"Vent: V1", "Vent: V2"}));
}

TEST_P(Routing, offers_nothing_on_a_structure_without_vents_and_flares) {
  StartOnSheet();
  run.Click("cmdEdit");
  for (const char* remote : {"Vented Remotely", "Flared Remotely"}) {
    Go(remote);
    EXPECT_EQ(SentTo().items, Texts{}) << remote;
    EXPECT_EQ(SentTo().text, "") << remote;
    EXPECT_EQ(SentTo().index, -1) << remote;
  }
}

TEST_P(Routing, keeps_the_remote_one_as_its_type_and_identifier_and_shows_it_again) {
  StartAmongVentsAndFlares();
  struct {
    const char *destination, *item, *stored;
  } const cases[] = {{"Vented Remotely", "Vent: V2", "VENV2"},
                     {"Flared Remotely", "Flare: F2", "FLAF2"},
                     {"Vented Remotely", "Vent: V1", "VENV1"},
                     {"Flared Remotely", "Flare: F1", "FLAF1"}};
  for (const auto& one : cases) {
    run.Keep({{sheet().destination(), one.destination}, {sheet().sent_to(), one.item}});
    EXPECT_EQ(StoredText("SENT_TO_ID"), one.stored);
    Again();
    EXPECT_EQ(SentTo().text, one.item);
    EXPECT_EQ(SentTo().index, std::string(one.item).back() == '1' ? 0 : 1);
    EXPECT_EQ(SentTo().items.size(), 2U);
  }
}

TEST_P(Routing, keeps_apart_a_vent_whose_identifier_reads_like_a_flare) {
  StartOnSheet();
  for (const auto& [type, id] : Values{{"VEN", "Flare: 1"}, {"FLA", "Vent: 1"}}) {
    run.Select(run.Key());
    run.AddEquipment(type, id);
  }
  run.Select(run.Key(sheet().type, "X1"));
  run.Keep({{sheet().destination(), "Vented Remotely"}, {sheet().sent_to(), "Vent: Flare: 1"}});
  EXPECT_EQ(StoredText("SENT_TO_ID"), "VENFlare: 1");
  EXPECT_EQ(SentTo().text, "Vent: Flare: 1");
  run.Keep({{sheet().destination(), "Flared Remotely"}, {sheet().sent_to(), "Flare: Vent: 1"}});
  EXPECT_EQ(StoredText("SENT_TO_ID"), "FLAVent: 1");
  EXPECT_EQ(SentTo().text, "Flare: Vent: 1");
}

TEST_P(Routing, shows_the_remote_one_in_a_month_and_keeps_it_through_the_month_s_save) {
  StartAmongVentsAndFlares();
  run.Keep({{sheet().destination(), "Flared Remotely"}, {sheet().sent_to(), "Flare: F2"}});
  run.GoTo(sheet().type, "X1", Mode::kActv);
  EXPECT_EQ(Destination().text, "Flared Remotely");
  EXPECT_EQ(SentTo().text, "Flare: F2");
  run.Keep({});
  EXPECT_EQ(StoredText("EMIS_DEST"), "FR");
  EXPECT_EQ(StoredText("SENT_TO_ID"), "FLAF2");
}

TEST_P(Routing, stores_no_remote_one_for_a_local_destination) {
  StartAmongVentsAndFlares();
  for (const char* local : {"Vented Locally", "Flared Locally"}) {
    run.Keep({{sheet().destination(), "Vented Remotely"}, {sheet().sent_to(), "Vent: V1"}});
    ASSERT_EQ(StoredText("SENT_TO_ID"), "VENV1");
    run.Keep({{sheet().destination(), local}});
    EXPECT_TRUE(IsNull(run.Sql("SELECT SENT_TO_ID FROM ED_" + sheet().type))) << local;
  }
}

TEST_P(Routing, loses_its_remote_one_when_the_destination_changes_from_vent_to_flare) {
  StartAmongVentsAndFlares();
  run.Click("cmdEdit");
  run.Put({{sheet().destination(), "Vented Remotely"},
           {sheet().sent_to(), "Vent: V1"},
           {sheet().destination(), "Flared Remotely"}});
  EXPECT_EQ(SentTo().text, "");
  EXPECT_EQ(SentTo().index, -1);
  run.Put({{sheet().sent_to(), "Flare: F1"}, {sheet().destination(), "Vented Remotely"}});
  EXPECT_EQ(SentTo().text, "");
  EXPECT_EQ(SentTo().index, -1);
}

TEST_P(Routing, chosen_again_keeps_the_vent_and_loses_the_flare) {
  StartAmongVentsAndFlares();
  run.Click("cmdEdit");
  run.Put({{sheet().destination(), "Vented Remotely"},
           {sheet().sent_to(), "Vent: V2"},
           {sheet().destination(), "Vented Remotely"}});
  EXPECT_EQ(SentTo().text, "Vent: V2");
  EXPECT_EQ(SentTo().index, 1);
  run.Put({{sheet().destination(), "Flared Remotely"},
           {sheet().sent_to(), "Flare: F2"},
           {sheet().destination(), "Flared Remotely"}});
  EXPECT_EQ(SentTo().text, "");
  EXPECT_EQ(SentTo().index, -1);
  EXPECT_EQ(SentTo().items, (Texts{"Flare: F1", "Flare: F2"}));
}

TEST_P(Routing, shows_no_remote_one_after_its_identifier_was_changed) {
  StartAmongVentsAndFlares();
  struct {
    const char *destination, *item, *id, *stored;
  } const cases[] = {{"Flared Remotely", "Flare: F1", "F1", "FLAF1"}, {"Vented Remotely", "Vent: V1", "V1", "VENV1"}};
  for (const auto& one : cases) {
    run.Keep({{sheet().destination(), one.destination}, {sheet().sent_to(), one.item}});
    run.s.db.Execute("UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID='NEW' WHERE ED_MERLU_EQUIP_ID='" +
                     std::string(one.id) + "'");
    Again();
    EXPECT_EQ(Destination().text, one.destination);
    EXPECT_EQ(SentTo().text, "") << one.destination;
    EXPECT_EQ(SentTo().index, -1) << one.destination;
    EXPECT_EQ(SentTo().items.size(), 2U) << one.destination;
    EXPECT_EQ(StoredText("SENT_TO_ID"), one.stored);
    run.Keep({});
    EXPECT_EQ(StoredText("SENT_TO_ID"), "") << one.destination;
    run.s.db.Execute("UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID='OLD' WHERE ED_MERLU_EQUIP_ID='NEW'");
  }
}

// ---- what a destination turns on and off ----

void ExpectEnabled(const Control& field, bool on, const std::string& destination) {
  EXPECT_EQ(field.enabled, on) << field.name << " with \"" << destination << "\"";
  EXPECT_EQ(field.back, on ? Back::kWindow : Back::kFace) << field.name << " with \"" << destination << "\"";
}

void ExpectUnlocked(const Control& field, bool on, const std::string& destination) {
  EXPECT_EQ(field.locked, !on) << field.name << " with \"" << destination << "\"";
}

TEST_P(RoutingThatDisables, turns_each_field_on_and_off_by_the_destination) {
  struct Row {
    const char* destination;
    bool sent_to, outlets, temperature, flares;
  };
  const Row nothing = {"", false, false, false, false};
  const std::vector<Row> rows = {
      {"Vented Locally", false, true, true, false},   {"Flared Remotely", true, false, false, false},
      {"Flared Locally", false, true, false, true},   {"Vented Remotely", true, false, false, false},
      {"Flared Locally", false, true, false, true},   {"Vented Locally", false, true, true, false},
      {"Vented Remotely", true, false, false, false}, {"Flared Remotely", true, false, false, false},
      {"Vented Locally", false, true, true, false}};
  StartOnSheet();
  run.Click("cmdEdit");
  const auto expect = [&](const Row& row) {
    ExpectEnabled(SentTo(), row.sent_to, row.destination);
    for (const std::string& name : sheet().Outlets()) ExpectEnabled(run.At(name), row.outlets, row.destination);
    ExpectEnabled(run.At(sheet().temperature), row.temperature, row.destination);
    for (const std::string& name : sheet().Flares()) ExpectEnabled(run.At(name), row.flares, row.destination);
    ExpectEnabled(Destination(), true, row.destination);
  };
  expect(nothing);
  for (const Row& row : rows) {
    Go(row.destination);
    expect(row);
  }
  // opened with the destination, it looks the same as clicked to it
  for (const Row& row : rows) {
    run.Click("cmdCANCEL");
    run.Keep({{sheet().destination(), row.destination}});
    run.Click("cmdEdit");
    expect(row);
  }
}

TEST_P(RoutingThatLocks, locks_and_unlocks_each_field_by_the_destination) {
  struct Row {
    const char* destination;
    bool sent_to, outlets;
  };
  const std::vector<Row> rows = {
      {"Vented Locally", false, true},    {"Flared Remotely", true, false}, {"Flared Locally", false, true},
      {"Routed to System", false, false}, {"Vented Remotely", true, false}, {"Routed to System", false, false},
      {"Vented Locally", false, true},    {"Vented Remotely", true, false}, {"Flared Locally", false, true}};
  StartOnSheet();
  run.Click("cmdEdit");
  const auto expect = [&](const Row& row) {
    EXPECT_EQ(SentTo().enabled, row.sent_to) << row.destination;
    ExpectUnlocked(SentTo(), row.sent_to, row.destination);
    std::vector<std::string> outlets = sheet().Outlets();
    outlets.push_back(sheet().temperature);
    for (const std::string& name : outlets) {
      ExpectUnlocked(run.At(name), row.outlets, row.destination);
      EXPECT_TRUE(run.At(name).enabled) << name << " with \"" << row.destination << "\"";
    }
    EXPECT_TRUE(Destination().enabled) << row.destination;
    ExpectUnlocked(Destination(), true, row.destination);
  };
  expect({"", false, true});
  for (const Row& row : rows) {
    Go(row.destination);
    expect(row);
  }
  for (const Row& row : rows) {
    run.Click("cmdCANCEL");
    run.Keep({{sheet().destination(), row.destination}});
    run.Click("cmdEdit");
    expect(row);
  }
}

TEST_P(Routing, keeps_the_texts_of_fields_that_a_destination_turns_off) {
  StartOnSheet();
  run.Click("cmdEdit");
  int number = 0;
  Values typed;
  const auto type = [&](const std::string& name) {
    typed.emplace_back(name, std::to_string(++number) + ".5");
    run.Put({typed.back()});
  };
  Go("Vented Locally");
  for (const std::string& name : sheet().Outlets()) type(name);
  type(sheet().temperature);
  Go("Flared Locally");
  for (const std::string& name : sheet().Flares()) type(name);
  for (const char* destination :
       {"Vented Remotely", "Flared Remotely", "Vented Locally", "Flared Locally", "Flared Remotely"}) {
    Go(destination);
    for (const auto& [name, text] : typed) EXPECT_EQ(run.Text(name), text) << name << " with \"" << destination << "\"";
  }
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  Again();
  for (const auto& [name, text] : typed) EXPECT_EQ(run.Text(name), text) << name << " after the save";
}

TEST_P(Routing, is_read_only_in_view_whatever_the_destination) {
  StartAmongVentsAndFlares();
  run.Keep({{sheet().destination(), "Vented Remotely"}, {sheet().sent_to(), "Vent: V1"}});
  std::vector<std::string> fields = sheet().Numbers();
  fields.insert(fields.end(), {sheet().destination(), sheet().sent_to()});
  for (const std::string& name : fields) {
    EXPECT_TRUE(run.At(name).locked) << name;
    EXPECT_EQ(run.At(name).back, Back::kFace) << name;
  }
}

// ---- lists that one procedure serves ----

TEST_P(RoutingThatDisables, repaints_what_control_equipment_and_the_other_device_turn_on) {
  StartOnSheet();
  const std::string& type = sheet().type;
  run.Click("cmdEdit");
  run.Put({{"cmb" + type + "_ControlTechnology", "Vapor Recovery and/or Condenser (VR/C)"},
           {"cmb" + type + "_OtherControlDevice", "Yes"}});
  run.Click("cmdQC");
  ASSERT_EQ(run.At(sheet().Box("OtherControlDesc")).back, Back::kFlag);
  const bool condenser_has_rule = type != "STO";
  EXPECT_EQ(run.At(sheet().Box("CondenserT")).back, condenser_has_rule ? Back::kFlag : Back::kWindow);
  Go("Vented Locally");
  EXPECT_EQ(run.At(sheet().Box("CondenserT")).back, Back::kWindow);
  // the amine unit's other device has a procedure of its own
  EXPECT_EQ(run.At(sheet().Box("OtherControlDesc")).back, type == "AMI" ? Back::kFlag : Back::kWindow);
}

TEST_P(RoutingThatDisables, is_repainted_by_a_choice_of_control_equipment) {
  StartOnSheet();
  run.Click("cmdEdit");
  Go("Vented Locally");
  run.Click("cmdQC");
  ASSERT_EQ(run.At(sheet().Box("ExhaustOutletHgt")).back, Back::kFlag);
  run.Set("cmb" + sheet().type + "_ControlTechnology", "None");
  EXPECT_EQ(run.At(sheet().Box("ExhaustOutletHgt")).back, Back::kWindow);
}

TEST_P(RoutingThatDisables, repaints_its_own_list_on_the_tank_when_the_destination_is_not_remote) {
  StartOnSheet();
  run.Click("cmdEdit");
  run.Click("cmdQC");
  ASSERT_EQ(Destination().back == Back::kFlag, sheet().required);
  if (!sheet().required) return;
  Go("Vented Remotely");
  EXPECT_EQ(Destination().back, Back::kFlag);
  Go("Flared Locally");
  EXPECT_EQ(Destination().back, sheet().type == "STO" ? Back::kWindow : Back::kFlag);
}

TEST_P(RoutingThatDisables, frees_the_remote_list_in_a_month_on_loading_alone) {
  StartOnSheet();
  run.Keep({{sheet().destination(), "Vented Remotely"}});
  run.GoTo(sheet().type, "X1", Mode::kActv);
  EXPECT_TRUE(SentTo().locked);
  run.Click("cmdEdit");
  EXPECT_EQ(SentTo().locked, sheet().type != "LOA");
  run.Click("cmdCANCEL");
  EXPECT_TRUE(SentTo().locked);
}

std::vector<Sheet> SheetsThat(TurnsOff how) {
  std::vector<Sheet> found;
  for (const Sheet& sheet : kSheets)
    if (sheet.turns_off == how) found.push_back(sheet);
  return found;
}

INSTANTIATE_TEST_SUITE_P(Sheets, Routing, testing::ValuesIn(kSheets), NameOf);
INSTANTIATE_TEST_SUITE_P(Sheets, RoutingThatDisables, testing::ValuesIn(SheetsThat(TurnsOff::kByDisabling)), NameOf);
INSTANTIATE_TEST_SUITE_P(Sheets, RoutingThatLocks, testing::ValuesIn(SheetsThat(TurnsOff::kByLocking)), NameOf);

}  // namespace
}  // namespace merlu::test
