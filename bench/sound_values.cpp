#include "sound_values.h"

#include <algorithm>
#include <optional>

#include "quiet_platform.h"
#include "sheets/sheet_form.h"
#include "sheets/structure.h"

namespace merlu {
namespace {

constexpr double kFreeNumber = 10;  // of a field without bounds
constexpr const char* kFreeText = "Sample";
constexpr const char* kStructure = "structure";

// What a field on its own cannot know: totals, comparisons with other fields, lists filled from tables.
struct Tied {
  const char* type;  // null for every type
  const char* column;
  Value value;
};

const std::vector<Tied>& TiedValues() {
  static const std::vector<Tied> rows = {
      {nullptr, "EMIS_DEST", "VL"},  // vented here: no other equipment is named
      // a composition adds up to 100
      {"AMI", "Conc_Methane", 90.0},
      {"AMI", "Conc_Ethane", 5.0},
      {"AMI", "CONC_CO2", 4.0},
      {"AMI", "Conc_NGH2S", 1.0},
      {"AMI", "Conc_C3HC", 0.0},
      {"AMI", "Conc_C4HC", 0.0},
      {"AMI", "Conc_C5HC", 0.0},
      {"AMI", "Conc_C6HC", 0.0},
      {"AMI", "Conc_C7HC", 0.0},
      {"AMI", "Conc_C8plus_HC", 0.0},
      {"AMI", "CONC_O2", 0.0},
      {"AMI", "CONC_N2", 0.0},
      {"AMI", "UNG_CONC_TOTAL", 100.0},
      {"FUG", "FACIL_SIZE", "S"},         // its counts are few
      {"STO", "TANK_AVG_LIQ_HGT", 10.0},  // below the shell, whichever way it lies
      {"PNE", "MFG", "Generic"},
      {"PNE", "model", "Diaphragm pump"},
      {"PRE", "MFG", "Generic"},
      {"PRE", "model", "Pilot controller"},
      {kStructure, "SalesGasC1Content", 95.0},
      {kStructure, "SalesGasC2Content", 5.0},
      {kStructure, "SalesGasC3Content", 0.0},
      {kStructure, "SalesGasiC4Content", 0.0},
      {kStructure, "SalesGasnC4Content", 0.0},
      {kStructure, "SalesGasiC5Content", 0.0},
      {kStructure, "SalesGasnC5Content", 0.0},
      {kStructure, "SalesGasC6Content", 0.0},
      {kStructure, "SalesGasC7Content", 0.0},
      {kStructure, "SalesGasC8PlusContent", 0.0},
      {kStructure, "SalesGasCO2Content", 0.0},
      {kStructure, "SalesGasH2SContent", 0.0},
      {kStructure, "SalesGasN2Content", 0.0},
      {kStructure, "SalesGasO2Content", 0.0},
      {kStructure, "SALES_GAS_TOTAL", 100.0},
      {kStructure, "MINOR_SOURCE_EXEMPT", "No"},
      {kStructure, "MINOR_SOURCE_EXEMPT_WHAT", Null{}},
      {kStructure, "COMNT_TXT", Null{}},
      // the most that the structure's rules allow
      {kStructure, "THRU_OIL", 5000000.0},
      {kStructure, "THRU_NG", 20000.0},
      {kStructure, "TOT_FUEL_USE_NG", 1e12},
      {kStructure, "TOT_FUEL_USE_GAS", 10000.0},
      {kStructure, "TOT_FUEL_USE_DIE", 10000000.0},
  };
  return rows;
}

const Tied* FindTied(const std::string& type, const std::string& column) {
  for (const Tied& row : TiedValues())
    if (column == row.column && (row.type == nullptr || type == row.type)) return &row;
  return nullptr;
}

bool IsList(const FieldSpec& field) {
  return field.stored == Stored::kYesNo || field.stored == Stored::kCode || field.stored == Stored::kItemText;
}

bool IsKept(const FieldSpec& field) {
  return !field.column.empty() && field.stored != Stored::kNone && field.stored != Stored::kDestination;
}

Value FirstItem(const FieldSpec& field) {
  if (field.items.empty()) return field.stored == Stored::kYesNo ? Value(true) : Value(kFreeText);
  const Item& first = field.items.front();
  if (field.stored == Stored::kYesNo) return first.text == "Yes";
  return field.stored == Stored::kCode ? first.code : first.text;
}

std::string ShownText(const FieldSpec& field, const Value& value) {
  if (IsNull(value)) return "";
  if (field.stored == Stored::kYesNo) return ToNumber(value) != 0 ? "Yes" : "No";
  for (const Item& item : field.items)
    if (field.stored == Stored::kCode && item.code == NullToEmpty(value)) return item.text;
  return NullToEmpty(value);
}

// What the rules of a field demand of it, as far as their conditions hold on the form.
struct Demands {
  bool is_judged = false;  // a rule reads the field
  bool applies = false;    // ... and its condition holds
  bool required = false;
  std::optional<double> low, high;
};

bool IsRequirement(const std::string& check) {
  return check.starts_with("CheckRequired") || check.starts_with("RequiredRange") || check == "CheckMin";
}

Demands DemandsOn(const FieldSpec& field, const std::vector<RuleGroup>& groups, const Form& form) {
  Demands demands;
  for (const RuleGroup& group : groups) {
    for (const Rule& rule : group.rules) {
      if (rule.field != field.control || (rule.mode != In::kBoth && rule.mode != field.mode)) continue;
      demands.is_judged = true;
      if (!rule.when.holds(form)) continue;
      demands.applies = true;
      if (IsRequirement(rule.check.name)) demands.required = true;
      if (rule.check.has_low) demands.low = std::max(rule.check.low, demands.low.value_or(rule.check.low));
      if (rule.check.has_high) demands.high = std::min(rule.check.high, demands.high.value_or(rule.check.high));
    }
  }
  return demands;
}

// A field that the others leave out stays blank, as on paper.
bool IsLeftOut(const FieldSpec& field, const Demands& demands, const Form& form) {
  return (demands.is_judged && !demands.applies) || !field.kept_when.holds(form);
}

Value FreeValue(const FieldSpec& field, const Demands& demands) {
  switch (field.stored) {
    case Stored::kNumber:
      if (demands.low && demands.high) return (*demands.low + *demands.high) / 2;
      return std::max(kFreeNumber, demands.low.value_or(kFreeNumber));
    case Stored::kText: return kFreeText;
    case Stored::kComputed: return Null{};
    default: return FirstItem(field);
  }
}

Value SoundValueOf(const FieldSpec& field, const std::string& type, const Demands& demands) {
  const Tied* tied = FindTied(type, field.column);
  return tied != nullptr ? tied->value : FreeValue(field, demands);
}

SoundValue Choose(const FieldSpec& field, const std::string& type, const Demands& demands) {
  SoundValue chosen{field.column, SoundValueOf(field, type, demands), {}};
  if (field.stored == Stored::kComputed) return chosen;
  if (demands.required) chosen.faults.emplace_back(Null{});
  if (demands.low) chosen.faults.emplace_back(*demands.low - 1);
  if (demands.high) chosen.faults.emplace_back(*demands.high + 1);
  return chosen;
}

void Select(Form& form, const FieldSpec& field, const Value& value) {
  Control& control = form.At(field.control);
  if (field.kind == Kind::kOption)
    control.checked = ToNumber(value) != 0;
  else
    control.text = ShownText(field, value);
}

// Lists come first: the conditions of the rules read them.
SoundRecord ChooseAll(const std::vector<FieldSpec>& fields, const std::vector<RuleGroup>& groups,
                      const std::string& type, Form& form) {
  for (const FieldSpec& field : fields)
    if (IsKept(field) && IsList(field)) Select(form, field, SoundValueOf(field, type, {}));
  SoundRecord record;
  for (const FieldSpec& field : fields) {
    if (!IsKept(field)) continue;
    std::vector<SoundValue>& values = field.mode == In::kActv ? record.month : record.description;
    const bool taken =
        std::any_of(values.begin(), values.end(), [&](const SoundValue& v) { return v.column == field.column; });
    if (taken) continue;
    const Demands demands = DemandsOn(field, groups, form);
    if (IsLeftOut(field, demands, form))
      values.push_back({field.column, Null{}, {}});
    else
      values.push_back(Choose(field, type, demands));
  }
  return record;
}

}  // namespace

SoundRecord SoundEquipment(const SheetSpec& sheet) {
  QuietPlatform platform;
  Session s(platform, platform, platform);
  return ChooseAll(sheet.fields, sheet.rules, sheet.type, SheetForm(s, sheet));
}

SoundRecord SoundStructure() {
  QuietPlatform platform;
  Session s(platform, platform, platform);
  Form form("frmMain", "");
  PutStructureSheet(s, form);
  return ChooseAll(StructureSheet().fields, StructureSheet().rules, kStructure, form);
}

}  // namespace merlu
