// Fugitives: what leaks on a structure, in one stream. The one type without activity: no month, no status,
// no date of last QC.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In DESC = In::kDesc;
constexpr In BOTH = In::kBoth;
constexpr const char* kSize = "cmbFUG_FacilitySize";
constexpr const char* kInspected = "cmbFUG_IsLDARInPlace";
constexpr const char* kMonths = "txtFUG_MonthsBetweenInspections";
constexpr const char* kMethod = "cmbFUG_MethodOfInspection";
constexpr const char* kSmall = "Small (<=1000 components)";
constexpr const char* kMedium = "Medium (1000-10,000 components)";
constexpr const char* kLarge = "Large (>10,000 components)";

struct Count {
  const char* field;
  const char* caption;
  const char* tag;
  const char* column;
};

// In the order of the rules.
constexpr Count kCounts[] = {
    {"Valves", "Valves:", "No. Valves", "VALVES_QTY"},
    {"PumpSeals", "Pump Seals:", "No. Pump Seals", "PUMP_SEALS_QTY"},
    {"Connectors", "Connectors:", "No. Connectors", "Connectors_qty"},
    {"Flanges", "Flanges:", "No. Flanges", "Flanges_qty"},
    {"OpenEndedLines", "Open Ended Lines:", "No. Open Ended Lines", "Open_Ended_Lines_qty"},
    {"CentCompWetSeals", "Centrifugal Compressors-# Wet seals:", "No. Compressor wet seals", "CENTCOMPWET_SEALS_QTY"},
    {"CentCompDrySeals", "Centrifugal Compressors-# Dry seals:", "No. Compressor dry seals", "CENTCOMPDRY_SEALS_QTY"},
    {"RecipCompSeals", "Recip. Comp. - # Shaft packing seals:", "No. Recip Compressor seals", "RECIPCOMP_SEALS_QTY"},
    {"OtherCompSeals", "Other Compressors - # seals:", "No. Other Compressor seals", "OTH_COMP_SEALS_QTY"},
    {"Diaphragms", "Diaphragms:", "No. Diaphragms", "Diaphragms_qty"},
    {"Drains", "Drains:", "No. Drains", "Drains_qty"},
    {"DumpArms", "Dump Arms:", "No. Dump Arms", "Dump_Arms_qty"},
    {"Hatches", "Hatches:", "No. Hatches", "Hatches_qty"},
    {"Instruments", "Instruments:", "No. Instruments", "Instruments_qty"},
    {"Meters", "Meters:", "No. Meters", "Meters_qty"},
    {"PressureReliefValves", "Pressure Relief Valves:", "No. Pressure Relief Valves", "PRES_RELIEF_VALVES_QTY"},
    {"PolishedRods", "Polished Rods:", "No. Polished Rods", "POLISHED_RODS_QTY"},
    {"OtherReliefValves", "Other Relief Valves:", "No. Other Relief Valves", "OTH_RELIEF_VALVES_QTY"},
};

constexpr std::size_t kFirstSeal = 5, kBehindSeals = 9;  // of compressors

std::string TextBox(const Count& count) {
  return std::string("txtFUG_") + count.field;
}

// The size that the facility claims against the number of its components.
bool DoesNotMatch(const std::string& size, float total) {
  if (size == kSmall) return total > 1000;
  if (size == kMedium) return total < 1000 || total > 10000;
  return size == kLarge && total < 10000;
}

CheckSpec SizeMatches() {
  constexpr const char* kText = "Facility Size doesn't match inventory";
  std::vector<std::string> counts;
  for (const Count& count : kCounts) counts.push_back(TextBox(count));
  return Own("FacilitySize", kText, counts, [](Judging& j) {
    double total = 0;
    const auto add = [&](std::size_t from, std::size_t behind) {
      for (std::size_t i = from; i < behind; ++i) total += j.view().Number(j.Other(i));
    };
    // the seals of compressors come first, which shows in sums of very large numbers
    add(kFirstSeal, kBehindSeals);
    add(0, kFirstSeal);
    add(kBehindSeals, std::size(kCounts));
    const bool failed = DoesNotMatch(j.Text(), static_cast<float>(total));
    j.Say(failed, kText);
    if (failed) j.Mark(Mark::kFlag);
  });
}

void AddFields(SheetSpec& sheet) {
  FieldSpec inspected = OpenItemText(DESC, kInspected, "Is active Leak Detection and Repair (LDAR) program in place?",
                                     "LDAR Program", "IS_LDAR_IN_PLACE", {"Yes", "No"});
  inspected.label = "lblFUG_IsLDAPInPlace";
  sheet.Add(0, "Stream",
            {
                Coded(DESC, "cmbFUG_StreamType", "Stream Type:", "Stream Type", "STREAM_TYP",
                      {{"Light Oil (>=20 APIG)", "LO"},
                       {"Heavy Oil (<20 APIG)", "HO"},
                       {"Oil/Water/Gas", "OG"},
                       {"Oil/Water", "OW"},
                       {"Gas", "GA"},
                       {"NGL", "NG"}}),
                Coded(DESC, kSize, "Facility Size:", "Facility Size", "FACIL_SIZE",
                      {{kSmall, "S"}, {kMedium, "M"}, {kLarge, "L"}}),
                Number(DESC, "txtFUG_WeightPercentVOC", "Avg. VOC Weight Percent of Fugitives:", "VOC Weight %",
                       "WGT_PER_VOC"),
                Number(DESC, "txtFUG_EquipElev", "Avg Equipment Elev. (ft above msl):", "Equipment Elevation",
                       "EQUIP_ELEV", "ft above msl"),
                OpenItemText(DESC, "cmbFUG_CountType", "Actual or Default Counts?", "Count Type", "COUNT_TYPE",
                             {"Actual", "Default"}),
            });
  sheet.Add(0, "Inspection",
            {
                inspected,
                Number(DESC, kMonths, "Number of months between inspections", "Months Between Inspections",
                       "NBR_MONTHS_BETWEEN_INSPECTIONS"),
                OpenItemText(DESC, kMethod, "Method of inspection", "Method of Inspection", "INSPECTION_METHOD",
                             {"Optical Instrument", "Vapor Analyzer", "Visual Inspection"}),
            });
  std::vector<FieldSpec> counts;
  for (const Count& count : kCounts)
    counts.push_back(Number(DESC, TextBox(count), count.caption, count.tag, count.column));
  sheet.Add(0, "Equipment Inventory (number of components)", counts);
}

// Fields on no page: never loaded, so that every save stores Null in their columns.
void AddUnseenFields(SheetSpec& sheet) {
  SheetSpec block;
  AddOtherControl(block, {.letters = "FUG"});
  for (FieldSpec& field : block.fields) {
    field.page = kOffPage;
    field.loads = false;
    sheet.fields.push_back(field);
  }
}

std::vector<Rule> FieldRules() {
  std::vector<Rule> rules = {
      {0, BOTH, kMonths, EmptyUnlessNumeric()},
      {1, BOTH, "cmbFUG_StreamType", Required(Marks::kEither)},
      {2, BOTH, kSize, Required(Marks::kEither)},
      {3, BOTH, "txtFUG_WeightPercentVOC", RequiredRange(0, 100)},
      {4, BOTH, "txtFUG_EquipElev", RequiredRange(10, 350)},
      {5, BOTH, "cmbFUG_CountType", Required(Marks::kEither)},
      {6, BOTH, kInspected, Required(Marks::kEither)},
  };
  int order = 6;
  for (const Count& count : kCounts) rules.push_back({++order, BOTH, TextBox(count), AtLeast(0)});
  rules.push_back({25, BOTH, kSize, SizeMatches()});
  rules.push_back({26, BOTH, kMonths, Required(Marks::kEither), Reads(kInspected, {"Yes"}), Otherwise::kWithdrawBlank});
  rules.push_back({27, BOTH, kMethod, Required(Marks::kEither), Reads(kInspected, {"Yes"}), Otherwise::kWithdrawBlank});
  return rules;
}

SheetSpec Fugitives() {
  SheetSpec sheet;
  sheet.type = "FUG";
  sheet.number = 5;
  sheet.letters = "FUG";
  sheet.title = "Fugitives";
  sheet.edit_title = "Fugitives - EDIT DATA";
  sheet.comments_caption = "Comments:";
  sheet.pages = {"General Information", "QC Results"};
  sheet.focus_desc = "cmbFUG_StreamType";
  sheet.has_activity = false;
  AddFields(sheet);
  AddUnseenFields(sheet);
  // a load that selects an item applies this too, before it loads the two fields
  sheet.Add({{.lists = {kInspected},
              .when = Reads(kInspected, {"Yes"}),
              .fields = {kMonths, kMethod},
              .does = Enabling::Does::kLock,
              .empties = Enabling::Empties::kAlways,
              .in_view_too = true}});
  sheet.rules = {{"CheckFUGFields", FieldRules()}};
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_FUG() {
  static const SheetSpec sheet = Fugitives();
  return sheet;
}

}  // namespace merlu
