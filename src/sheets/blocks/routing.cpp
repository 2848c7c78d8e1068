#include <algorithm>

#include "session/notices.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr const char* kVentedLocally = "Vented Locally";
constexpr const char* kFlaredLocally = "Flared Locally";
constexpr const char* kVentedRemotely = "Vented Remotely";
constexpr const char* kFlaredRemotely = "Flared Remotely";
constexpr const char* kToSystem = "Routed to System";

// The three-letter type of a destination, and the words in front of its ID on the screen.
struct DestinationKind {
  const char* remote;
  const char* type;
  const char* prefix;
};
constexpr DestinationKind kKinds[] = {{kVentedRemotely, "VEN", "Vent: "}, {kFlaredRemotely, "FLA", "Flare: "}};

std::vector<Item> Destinations(const Routing& b) {
  std::vector<Item> items = {
      {kVentedLocally, "VL"}, {kFlaredLocally, "FL"}, {kVentedRemotely, "VR"}, {kFlaredRemotely, "FR"}};
  if (b.to_system) items.push_back({kToSystem, "RS"});
  return items;
}

std::vector<std::string> OutletTags(const Routing& b) {
  if (!b.outlet_tags.empty()) return b.outlet_tags;
  return {b.outlet_tag + " Outlet Height", b.outlet_tag + " Outlet Inner Diameter", b.outlet_tag + " Exit Velocity",
          b.outlet_tag + " Exit Temperature", b.outlet_tag + " Outlet Orientation"};
}

struct Names {
  explicit Names(const Routing& b)
      : destination("cmb" + b.letters + "_GasesVentOrFlare"),
        sent_to("cmb" + b.letters + "_VentedToID"),
        outlet("txt" + b.letters + "_ExhaustOutlet"),
        temperature(b.temperature_control.empty() ? outlet + "ExitT" : b.temperature_control),
        flare("txt" + b.letters + "_Flare") {}
  std::vector<std::string> Outlets() const {
    return {outlet + "Hgt", outlet + "InnerDiam", outlet + "ExitVel", outlet + "Angle"};
  }
  std::vector<std::string> Flares() const { return {flare + "FeedRate", flare + "CombustionT", flare + "Efficiency"}; }
  std::string destination, sent_to, outlet, temperature, flare;
};

void AddFields(SheetSpec& sheet, const Routing& b, const Names& name) {
  FieldSpec sent_to =
      Coded(In::kDesc, name.sent_to, "Remote Vent/Flare ID:", "Low Pressure Vent/Flare ID", "SENT_TO_ID", {});
  sent_to.stored = Stored::kDestination;
  sent_to.destination = name.destination;
  sent_to.note_label = b.note_label;
  sent_to.note = b.note;
  sheet.Add(b.page, "Emissions destination",
            {Coded(In::kDesc, name.destination, b.destination_caption, b.destination_tag, "EMIS_DEST", Destinations(b)),
             sent_to});
  const std::vector<std::string> tags = OutletTags(b);
  sheet.Add(
      b.page, "Outlet",
      {Number(In::kDesc, name.outlet + "Hgt", "Outlet Height (ft above msl):", tags[0], "EXH_OUT_HGT", "ft above msl"),
       Number(In::kDesc, name.outlet + "InnerDiam", "Outlet Inner Diameter (in):", tags[1], "EXH_OUT_INNER_DIAM", "in"),
       Number(In::kDesc, name.outlet + "ExitVel", "Exit Velocity (ft/s):", tags[2], "EXH_OUT_EXIT_VEL", "ft/s"),
       Number(In::kDesc, name.temperature, "Exit Temperature (°F):", tags[3], b.temperature_column, "°F"),
       Number(In::kDesc, name.outlet + "Angle", "Outlet Orientation (degrees):", tags[4], "EXH_OUT_ANGLE", "degrees")});
  if (!b.has_flare) return;
  sheet.Add(
      b.page, "Local flare",
      {Number(In::kDesc, name.flare + "FeedRate", "Flare Feed Rate (scf/hr):", b.flare_tags[0], "FLA_FEED_RATE",
              "scf/hr"),
       Number(In::kDesc, name.flare + "CombustionT", "Combustion Temperature (°F):", b.flare_tags[1],
              "FLA_COMBUST_TEMP", "°F"),
       Number(In::kDesc, name.flare + "Efficiency", "Combustion Efficiency (%):", b.flare_tags[2], "FLA_EFFIC", "%")});
}

void AddByEnabled(SheetSpec& sheet, const Routing& b, const Names& name) {
  const std::vector<std::string> lists = {name.destination};
  const auto empties = b.drops_remote ? Enabling::Empties::kAlways : Enabling::Empties::kNever;
  sheet.Add({
      {.mode = b.mode, .lists = lists, .when = Remote(name.destination), .fields = {name.sent_to}, .empties = empties},
      {.mode = b.mode, .lists = lists, .when = Local(name.destination), .fields = name.Outlets()},
      {.mode = b.mode, .lists = lists, .when = VentedLocally(name.destination), .fields = {name.temperature}},
      {.mode = b.mode, .lists = lists, .when = FlaredLocally(name.destination), .fields = name.Flares()},
  });
  if (b.drops_remote)
    sheet.Add({{.mode = b.mode,
                .lists = lists,
                .when = ReadsNone(name.destination, {kVentedRemotely, kFlaredRemotely}),
                .fields = {name.destination},
                .only_on = true}});
  if (b.unlocks_remote)
    sheet.Add({{.mode = b.mode,
                .lists = lists,
                .when = Remote(name.destination),
                .fields = {name.sent_to},
                .does = Enabling::Does::kEnableAndLock,
                .only_on = true}});
}

void AddByLocked(SheetSpec& sheet, const Names& name) {
  std::vector<std::string> outlets = name.Outlets();
  outlets.push_back(name.temperature);
  sheet.Add({
      {.mode = In::kDesc,
       .lists = {name.destination},
       .when = Remote(name.destination),
       .fields = {name.sent_to},
       .does = Enabling::Does::kEnableAndLock,
       .empties = Enabling::Empties::kAlways},
      {.mode = In::kDesc,
       .lists = {name.destination},
       .when = ReadsNone(name.destination, {kVentedRemotely, kFlaredRemotely, kToSystem}),
       .fields = outlets,
       .does = Enabling::Does::kLock},
  });
}

// The local destination takes the place of the remote one that lacks its ID.
void FallBackToLocal(Judging& j, Fallback fallback) {
  const int destination = j.Other(0);
  const bool vent = j.view().Text(destination) == kVentedRemotely;
  const int item = vent ? 0 : 1;
  j.FallBack(destination, vent ? kVentedLocally : kFlaredLocally, fallback == Fallback::kTextAndIndex ? item : -1,
             vent ? "No Vent ID given. Changing Ventilation to Vented Locally"
                  : "No Flare ID given. Changing Ventilation to Flared Locally");
}

}  // namespace

void AddRouting(SheetSpec& sheet, const Routing& b) {
  const Names name(b);
  AddFields(sheet, b, name);
  sheet.destination = name.destination;
  sheet.sent_to = name.sent_to;
  if (b.kind == Routing::Kind::kByEnabled)
    AddByEnabled(sheet, b, name);
  else
    AddByLocked(sheet, name);
}

void ApplyTogether(SheetSpec& sheet, const std::vector<std::string>& lists) {
  const auto is_served = [&](const std::string& list) {
    return std::find(lists.begin(), lists.end(), list) != lists.end();
  };
  for (Enabling& row : sheet.enablings)
    if (std::all_of(row.lists.begin(), row.lists.end(), is_served)) row.lists = lists;
}

Condition Remote(const std::string& destination) {
  return Reads(destination, {kVentedRemotely, kFlaredRemotely});
}
Condition Local(const std::string& destination) {
  return Reads(destination, {kVentedLocally, kFlaredLocally});
}
Condition VentedLocally(const std::string& destination) {
  return Reads(destination, {kVentedLocally});
}
Condition FlaredLocally(const std::string& destination) {
  return Reads(destination, {kFlaredLocally});
}

CheckSpec RequiredRemoteID(const std::string& destination, Fallback fallback) {
  CheckSpec check = Own("CheckRequired", "", {destination}, [fallback](Judging& j) {
    const bool failed = JudgeRequired(j);
    j.MarkEither(failed);
    if (failed && j.context().saving && fallback != Fallback::kNone) FallBackToLocal(j, fallback);
  });
  check.expected = "required";
  return check;
}

DestinationList DestinationsFor(const std::string& destination) {
  for (const DestinationKind& kind : kKinds)
    if (destination == kind.remote) return {kind.type, kind.prefix};
  return {};
}

void LoadVentFlareList(Session& s, Form& form, const std::string& destination, const std::string& sent_to) {
  NotingSheetFaults(s.notices, [&] {
    Control& list = form.At(sent_to);
    const std::string remembered = list.text;
    list.items.clear();
    list.text.clear();
    list.index = -1;
    for (const DestinationKind& kind : kKinds) {
      if (form.At(destination).text != kind.remote) continue;
      const Value structure = s.At("PD_PLATFORM_DESC").Field("PD_ID_AK");
      s.db.ForEach("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC WHERE PD_ID_AK=? AND ED_EQUIP_TYP=? ORDER BY ED_ID_AK",
                   {structure, std::string(kind.type)}, [&](const RowView& row) {
                     list.items.push_back(std::string(kind.prefix).append(row.Text(0)));
                     const bool again = kind.remote == std::string(kVentedRemotely) && list.items.back() == remembered;
                     if (again) SelectItem(form, sent_to, static_cast<int>(list.items.size()) - 1);
                   });
    }
  });
}

}  // namespace merlu
