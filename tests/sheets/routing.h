// The sheets that ask where emissions go, for their tests.
#pragma once

#include <gtest/gtest.h>
#include <algorithm>
#include <ostream>

#include "rules/bounds.h"

namespace merlu::test::routing {

enum class TurnsOff { kByDisabling, kByLocking };
enum class Falls { kNot, kText, kTextAndIndex };

// What differs from sheet to sheet.
struct Sheet {
  std::string type;
  bool to_system;
  TurnsOff turns_off;
  bool has_flare;
  std::string temperature;
  std::string destination_tag;
  bool required;     // a blank destination is a finding
  bool local_rules;  // a local destination asks for an outlet height
  Falls falls;
  bool in_walk;  // a run over the structure comes to it

  std::string Box(const std::string& field) const { return "txt" + type + "_" + field; }
  std::string destination() const { return "cmb" + type + "_GasesVentOrFlare"; }
  std::string sent_to() const { return "cmb" + type + "_VentedToID"; }
  std::vector<std::string> Outlets() const {
    return {Box("ExhaustOutletHgt"), Box("ExhaustOutletInnerDiam"), Box("ExhaustOutletExitVel"),
            Box("ExhaustOutletAngle")};
  }
  std::vector<std::string> Flares() const {
    if (!has_flare) return {};
    return {Box("FlareFeedRate"), Box("FlareCombustionT"), Box("FlareEfficiency")};
  }
  std::vector<std::string> Numbers() const {
    std::vector<std::string> all = Outlets();
    all.push_back(temperature);
    for (const std::string& flare : Flares()) all.push_back(flare);
    return all;
  }
};

const Sheet kSheets[] = {
    {"AMI", true, TurnsOff::kByDisabling, true, "txtAMI_ExhaustOutletT", "Emissions Destination", true, true,
     Falls::kTextAndIndex, true},
    {"GLY", false, TurnsOff::kByDisabling, true, "txtGLY_ExhaustOutletExitT", "Emissions Destination", true, true,
     Falls::kTextAndIndex, true},
    {"STO", false, TurnsOff::kByDisabling, true, "txtSTO_ExhaustOutletExitT", "Emissions Destination", true, true,
     Falls::kText, true},
    {"LOA", false, TurnsOff::kByDisabling, true, "txtLOA_ExhaustOutletExitT", "Gases Vented/Flared?", false, true,
     Falls::kNot, true},
    {"LOS", true, TurnsOff::kByLocking, false, "txtLOS_ExhaustOutletExitT", "Emissions Destination", true, true,
     Falls::kTextAndIndex, false},
    {"PNE", true, TurnsOff::kByLocking, false, "txtPNE_ExhaustOutletExitT", "Vents to Atm", false, false, Falls::kText,
     false},
};

inline void PrintTo(const Sheet& sheet, std::ostream* out) {
  *out << sheet.type;
}

constexpr const char* kRemoteTag = "Low Pressure Vent/Flare ID";
constexpr const char* kNoVent = "No Vent ID given. Changing Ventilation to Vented Locally";
constexpr const char* kNoFlare = "No Flare ID given. Changing Ventilation to Flared Locally";

class Routing : public testing::TestWithParam<Sheet> {
 protected:
  const Sheet& sheet() const { return GetParam(); }

  void StartOnSheet() { run.StartWith(sheet().type, "X1"); }
  // Vents V1 and V2 and flares F1 and F2 on the structure, V9 and F9 on another one; then the sheet.
  void StartAmongVentsAndFlares() {
    StartOnSheet();
    for (const auto& [type, id] : Values{{"VEN", "V1"}, {"FLA", "F1"}, {"VEN", "V2"}, {"FLA", "F2"}}) {
      run.Select(run.Key());
      run.AddEquipment(type, id);
    }
    run.AddStructure("2002");
    for (const auto& [type, id] : Values{{"VEN", "V9"}, {"FLA", "F9"}}) {
      run.Select(run.Key("", "", 0, "2002"));
      run.AddEquipment(type, id);
    }
    run.Select(run.Key(sheet().type, "X1"));
  }
  void Again() {
    run.Select(run.Key());
    run.Select(run.Key(sheet().type, "X1"));
  }
  void Go(const std::string& destination) { run.Set(sheet().destination(), destination); }
  Control& Destination() { return run.At(sheet().destination()); }
  Control& SentTo() { return run.At(sheet().sent_to()); }
  std::string StoredText(const std::string& column) {
    return NullToEmpty(run.Sql("SELECT " + column + " FROM ED_" + sheet().type));
  }
  std::string RemoteFinding() { return run.Finding(kRemoteTag, "EquipID='X1'"); }

  TestRun run;
};

class RoutingThatDisables : public Routing {};
class RoutingThatLocks : public Routing {};

using Texts = std::vector<std::string>;

inline std::string NameOf(const testing::TestParamInfo<Sheet>& one) {
  return one.param.type;
}

}  // namespace merlu::test::routing
