// The groups of fields that several sheets share, each defined once; what differs by sheet (captions, tags, columns,
// bounds) is data of the sheet. All are fields of the description.
#pragma once

#include <string>
#include <vector>

#include "rules/checks.h"
#include "sheets/spec.h"

namespace merlu {

// Another control device: whether there is one, its description, and its efficiencies in percent.
struct OtherControl {
  std::string letters;
  int page = 1;
  std::string device_tag = "Other Control Device?";
  std::string description_tag = "Other Control Device Descript.";
  std::string description_label;  // name of the description's caption, when it has one
  std::vector<std::string> efficiencies = {"SOx", "NOx", "CO", "VOC", "PM10"};
  std::string efficiency_tag = " Control Efficiency";  // after the pollutant's name
  In mode = In::kBoth;                                 // in which the device's list turns the other fields on and off
  int first_order = 1;                                 // of its rules in the group
  bool marks_passes = false;                           // an efficiency that passes is marked too
};
// Fields, enabling, and the rule group Check<letters>OtherControl, which comes last in a run.
void AddOtherControl(SheetSpec& sheet, const OtherControl& block);

// A stack: outlet elevation (ft above msl), inner diameter (in), exit velocity (ft/s), exit temperature
// (degrees F), orientation (degrees).
struct Stack {
  std::string letters;
  std::string temperature_control;
  std::string temperature_caption;
  std::string velocity_tag, temperature_tag;
};
void AddStack(SheetSpec& sheet, int page, const Stack& block);

// An exhaust outlet: height (ft above msl), inner diameter (in), exit velocity (ft/s), exit temperature
// (degrees F), orientation (degrees).
struct Bounds {
  double low, high;
};
struct Exhaust {
  std::string letters;
  int page = 1;
  std::string temperature_control;
  Bounds height, diameter, velocity, temperature;
  bool orientation_has_rule = true;
  Bounds orientation{0, 180};
};
void AddExhaust(SheetSpec& sheet, const Exhaust& block);
// Its rules; the type adds the group Check<letters>Exhaust with what follows them.
std::vector<Rule> ExhaustRules(const Exhaust& block);

// What is installed against emissions, with a condenser's temperature (degrees F) and pressure (psia).
struct ControlTechnology {
  std::string letters;
  int page = 1;
  std::vector<Item> items;
  std::vector<std::string> with_condenser;  // items that mean a condenser
  Enabling::Empties empties = Enabling::Empties::kNever;
  In mode = In::kBoth;
};
void AddControlTechnology(SheetSpec& sheet, const ControlTechnology& block);

// Where the emissions go: vented or flared, here or at another vent or flare of the structure; with the
// outlet's five fields and, for most types, the three of a local flare (feed rate in scf/hr, combustion
// temperature in degrees F, efficiency in percent).
struct Routing {
  enum class Kind {
    kByEnabled,  // what does not apply is disabled
    kByLocked    // what does not apply is read-only, in description mode
  };
  std::string letters;
  int page = 1;
  Kind kind = Kind::kByEnabled;
  bool to_system = false;  // the list offers "Routed to System"
  bool has_flare = true;
  std::string destination_caption = "Emissions Destination";
  std::string destination_tag = "Emissions Destination";
  std::string outlet_tag = "Ventilation";  // in front of the five outlet tags
  std::vector<std::string> outlet_tags;    // the five themselves, where they are not made from outlet_tag
  std::string temperature_control;         // txt<letters>_ExhaustOutletExitT when empty
  std::string temperature_column = "EXH_OUT_EXIT_TEMP";
  std::vector<std::string> flare_tags = {"Flare Feed Rate", "Flare Combustion Temperature", "Combustion Efficiency"};
  std::string note_label, note;  // after the remote vent or flare
  // A destination that is not remote clears the choice of the remote vent or flare and is itself enabled.
  bool drops_remote = false;
  bool unlocks_remote = false;  // a remote destination also unlocks that list
  In mode = In::kBoth;
};
void AddRouting(SheetSpec& sheet, const Routing& block);

// For lists that one procedure serves: a click on any of them applies the rows of all of them.
void ApplyTogether(SheetSpec& sheet, const std::vector<std::string>& lists);

// What the list of remote vents or flares offers for a destination: a type, and the words in front of its IDs.
// Empty for one that is not remote.
struct DestinationList {
  std::string_view type, prefix;
};
DestinationList DestinationsFor(const std::string& destination);

// Conditions on the list of destinations.
Condition Remote(const std::string& destination);
Condition Local(const std::string& destination);
Condition VentedLocally(const std::string& destination);
Condition FlaredLocally(const std::string& destination);

// The remote vent or flare is required. In the QC run of a save a missing one turns the destination into the
// local one, with a box.
enum class Fallback { kNone, kText, kTextAndIndex };
CheckSpec RequiredRemoteID(const std::string& destination, Fallback fallback);

// Fills the list of the remote vents or flares of the structure for the destination chosen. The text that
// the list showed is chosen again for a vent, and not for a flare.
void LoadVentFlareList(Session& s, Form& form, const std::string& destination, const std::string& sent_to);

}  // namespace merlu
