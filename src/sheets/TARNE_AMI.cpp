// Amine unit: the composition of the unprocessed gas with its total, the inputs of the emissions model, and the
// destination of the vented gas.
#include "base/numbers.h"
#include "qc/qc_log.h"
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kThroughput = "txtAMI_TotalGasThru";
constexpr const char* kHours = "txtAMI_HrsOperated";
constexpr const char* kTotal = "txtAMI_UNGConcTotal";
constexpr const char* kModel = "OptAMI_ModlEdit";
constexpr const char* kFlashTank = "cmbAmi_UseFlashTank";
constexpr const char* kDestination = "cmbAMI_GasesVentOrFlare";
constexpr const char* kSystem = "Routed to System";
constexpr const char* kTechnology = "cmbAMI_ControlTechnology";
constexpr const char* kCondenser = "Vapor Recovery and/or Condenser (VR/C)";
constexpr const char* kRecovery = "Sulfur Recovery (SR)";
constexpr const char* kBothTechnologies = "SR + VR/C";
constexpr double kLeastTotal = 99.8, kMostTotal = 100;
constexpr double kMostHours = 744;

// In the order of the sum and of the rules.
constexpr const char* kConcentrations[] = {"ConcNGH2S",    "ConcMethane", "ConcEthane", "ConcC3HC",
                                           "ConcC4HC",     "ConcC5HC",    "ConcC6HC",   "ConcC7HC",
                                           "ConcC8plusHC", "ConcO2",      "ConcCO2",    "ConcN2"};

std::string TextBox(const char* field) {
  return std::string("txtAMI_") + field;
}

Condition ModelInputs() {
  return IsSet(kModel);
}

// The check while there is a flash tank; without one the field looks passed and its finding stays.
CheckSpec WithFlashTank(CheckSpec check) {
  return PassedUnless(Reads(kFlashTank, {"Yes"}), std::move(check));
}

constexpr const char* kOverThroughput = "Value exceeds N.G. throughput for structure";
constexpr const char* kZeroHours = "Zero hours for active equipment";

// A plain finding beside the range's mark.
void CheckThroughputOfStructure(Judging& j) {
  // in full precision, unlike the other sheets' totals
  const double total = j.context().totals[static_cast<std::size_t>(Total::kThroughputGas)];
  j.Say(j.Number() > total && RoundHalfToEven(total) != 0, kOverThroughput);
}

// Equipment that processed something in the month.
Condition IsActive() {
  return Both(IsOff("chkAMI_Status"), IsOverZero(kThroughput));
}

// Runs only on hours that passed their own check.
CheckSpec ZeroHours() {
  const auto check = [](Judging& j) {
    const bool failed = j.MayFail() && !(j.Number() > 0);
    j.Say(failed, kZeroHours);
    if (failed) j.Mark(Mark::kFlag);
  };
  return LooksWhen(Both(IsFilledIn(kTheField), IsWithin(kTheField, 0, kMostHours)),
                   FailsWhen(IsActive(), Own("ZeroHours", kZeroHours, {}, check)));
}

// The total is computed, and is no input.
CheckSpec ConcentrationTotal() {
  std::vector<std::string> parts;
  for (const char* name : kConcentrations) parts.push_back(TextBox(name));
  const auto check = [text = RangeText(kLeastTotal, kMostTotal)](Judging& j) {
    double sum = 0;
    for (std::size_t i = 0; i < std::size(kConcentrations); ++i)
      if (j.view().IsNumeric(j.Other(i))) sum += j.view().Number(j.Other(i));
    j.Become(GeneralNumber(sum));
    JudgeRequiredRange(j, kLeastTotal, kMostTotal, text);
    if (!(sum < kLeastTotal || sum > kMostTotal)) j.Mark(Mark::kFace);
  };
  CheckSpec total = RequiredRange(kLeastTotal, kMostTotal);
  total.reads = parts;
  total.run = check;
  return total;
}

FieldSpec Concentration(const char* field, const char* caption, const char* tag, const char* column) {
  return Number(DESC, TextBox(field), caption, std::string(tag) + " Concentration", column, "% by volume");
}

FieldSpec Option(const char* control, const char* caption, const char* column) {
  FieldSpec field = YesNo(DESC, control, caption, "", column);
  field.kind = Kind::kOption;
  field.items.clear();
  field.frame = "fraAMI2";
  if (field.column.empty()) field.stored = Stored::kNone;
  return field;
}

void AddMonthAndComposition(SheetSpec& sheet) {
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, kThroughput, "Processed Throughput (MMscf):", "Processed Throughput", "TOT_GAS_THRUPUT",
                       "MMscf"),
                Number(ACTV, kHours, "Hours Operated (hrs):", "Hours Operated", "OP_HR", "hrs"),
            });
  FieldSpec total =
      Number(DESC, kTotal, "Total:", "Unprocessed Natural Gas Concentrations Total", "UNG_CONC_TOTAL", "% by volume");
  total.stored = Stored::kComputed;
  sheet.Add(0, "Unprocessed Natural Gas Concentrations (% by volume)",
            {
                Concentration("ConcNGH2S", "H2S:", "H2S", "Conc_NGH2S"),
                Concentration("ConcMethane", "Methane:", "Methane", "Conc_Methane"),
                Concentration("ConcEthane", "Ethane:", "Ethane", "Conc_Ethane"),
                Concentration("ConcC3HC", "C3 Hydrocarbons:", "C3 Hyrdrocarbon", "Conc_C3HC"),
                Concentration("ConcC4HC", " C4 Hydrocarbons:", "C4 Hyrdrocarbon", "Conc_C4HC"),
                Concentration("ConcC5HC", "C5 Hydrocarbons:", "C5 Hyrdrocarbon", "Conc_C5HC"),
                Concentration("ConcC6HC", "C6 Hydrocarbons:", "C6 Hyrdrocarbon", "Conc_C6HC"),
                Concentration("ConcC7HC", "C7 Hydrocarbons:", "C7 Hyrdrocarbon", "Conc_C7HC"),
                Concentration("ConcC8plusHC", "C8+ Hydrocarbons:", "C8+ Hyrdrocarbon", "Conc_C8plus_HC"),
                Concentration("ConcO2", "O2:", "O2", "CONC_O2"),
                Concentration("ConcCO2", "CO2:", "CO2", "CONC_CO2"),
                Concentration("ConcN2", "N2:", "N2", "CONC_N2"),
                total,
            });
}

void AddModelInputs(SheetSpec& sheet) {
  Control frame;
  frame.name = "fraAMI2";
  frame.kind = Kind::kFrame;
  frame.caption = "Specify emissions by";
  frame.parent = sheet.tab();
  frame.page = 1;
  sheet.extra = {frame};
  sheet.Add(1, "Specify emissions by",
            {
                Option("zOptAMI_EmisEdit", "Quantity emitted (%)", ""),
                Option(kModel, "Model inputs", "MODELINPUTS_FLG"),
            });
  sheet.Add(1, "Sour gas and flash tank",
            {
                ItemText(DESC, "cmbAMI_AmineType", "Amine Type:", "Amine Type", "AMINE_TYP",
                         {"MEA", "DEA", "TEA", "MDEA", "GDA"}),
                Number(DESC, "txtAMI_SourTemp",
                       "Unprocessed sour gas feed temperature (°F):", "Sour gas feed temperature", "Sour_Temp", "°F"),
                Number(DESC, "txtAMI_SourPress", "Unprocessed sour gas feed pressure (psig):", "Sour gas feed pressure",
                       "Sour_Pres", "psig"),
                YesNo(DESC, kFlashTank, "Equipped with a flash tank:", "Equipped with flash tank?", "FLASHTANK_FLG"),
                Number(DESC, "txtAMI_FlashTemp", "Flash Tank Temperature (°F):", "Flash Tank Temperature", "Flash_Temp",
                       "°F"),
                Number(DESC, "txtAMI_FlashPress", "Flash Tank pressure (psig):", "Flash Tank  Pressure", "Flash_Pres",
                       "psig"),
                Coded(DESC, "cmbAmi_Disposition", "Destination of Flash Gas:", "Destination of Flash Gas",
                      "Disposition", {{"Vented", "VL"}, {"Flared", "FL"}, {kSystem, "RS"}}),
                Number(DESC, "txtAMI_Nbr", "Number of Absorber Trays:", "Number of Absorb trays", "NUM"),
            });
  sheet.Add(
      1, "Lean amine feed",
      {
          Number(DESC, "txtAMI_AmineFeedPress", "Lean amine feed pressure (psig):", "Lean Amine feed pressure",
                 "Amine_Feed_Pres", "psig"),
          Number(DESC, "txtAMI_AmineFeedTemp", "Lean amine feed temperature (°F):", "Lean Amine feed temperature",
                 "Amine_Feed_Temp", "°F"),
          Number(DESC, "txtAMI_AmineFeedFlowRate", "Lean amine feed flowrate (gal/min):", "Lean Amine feed flowrate",
                 "Amine_Feed_FlowRate", "gal/min"),
          Number(DESC, "txtAMI_AmineFeedAminePct", "lean amine feed amine content (% wt):",
                 "Lean Amine feed amine content", "Amine_Feed_AminePct", "% wt"),
          Number(DESC, "txtAMI_AmineFeedH2SPct", "lean amine feed H2S content (% wt):", "Lean Amine feed H2S content",
                 "Amine_Feed_H2SPct", "% wt"),
          Number(DESC, "txtAMI_AmineFeedCO2Pct", "lean amine feed CO2 content (% wt):", "Lean Amine feed CO2 content",
                 "Amine_Feed_CO2Pct", "% wt"),
      });
}

// Fields on no page, neither loaded nor saved.
void AddUnseenFields(SheetSpec& sheet) {
  const struct {
    const char* control;
    const char* gas;
  } kUnseen[] = {{"H2S", "H2S"},
                 {"Methane", "Methane"},
                 {"Ethane", "Ethane"},
                 {"C3HC", "C3 Hydrocarbon"},
                 {"C4HC", "C4 Hydrocarbon"},
                 {"C5HC", "C5 Hydrocarbon"},
                 {"C6HC", "C6 Hydrocarbon"},
                 {"C7HC", "C7 Hydrocarbon"},
                 {"C8plusHC", "C8+ Hydrocarbon"}};
  for (const auto& unseen : kUnseen) {
    FieldSpec field =
        Number(DESC, std::string("xtAMI_Emitted") + unseen.control, "", std::string(unseen.gas) + " % Emitted", "");
    field.stored = Stored::kNone;
    field.page = kOffPage;
    sheet.fields.push_back(field);
  }
}

constexpr const char* kModelFields[] = {
    "txtAMI_SourPress",
    "txtAMI_SourTemp",
    "txtAMI_FlashTemp",
    "txtAMI_FlashPress",
    "txtAMI_Nbr",
    "txtAMI_AmineFeedPress",
    "txtAMI_AmineFeedTemp",
    "txtAMI_AmineFeedFlowRate",
    "txtAMI_AmineFeedAminePct",
    "txtAMI_AmineFeedH2SPct",
    "txtAMI_AmineFeedCO2Pct",
    "cmbAMI_AmineType",
    kFlashTank,
    "cmbAmi_Disposition",
};

void Connect(Session& s, Form& form) {
  form.On(kModel, Event::kClick, [&s, &form] {
    if (!s.editing || s.InActv()) return;
    for (const char* name : kModelFields) {
      form.At(name).locked = false;
      form.At(name).back = Back::kWindow;
    }
  });
}

void AddVentilationAndControl(SheetSpec& sheet) {
  using Empties = Enabling::Empties;
  AddRouting(sheet, {.letters = "AMI",
                     .page = 2,
                     .to_system = true,
                     .destination_caption = "Emission Destination",
                     .temperature_control = "txtAMI_ExhaustOutletT",
                     .temperature_column = "EXH_OUT_TEMP",
                     .note_label = "lblAMI_VentedToIDNote",
                     .note = "(selected from current structure)",
                     .mode = DESC});
  sheet.keeps_sent_to_for = kSystem;
  sheet.Add({{.mode = DESC,
              .lists = {kDestination},
              .when = ReadsNone(kDestination, {kSystem}),
              .fields = {"cmbAMI_VentedToID", "txtAMI_ExhaustOutletHgt", "txtAMI_ExhaustOutletInnerDiam",
                         "txtAMI_ExhaustOutletExitVel", "txtAMI_ExhaustOutletT", "txtAMI_ExhaustOutletAngle",
                         "txtAMI_FlareFeedRate", "txtAMI_FlareCombustionT", "txtAMI_FlareEfficiency"},
              .empties = Empties::kAlways,
              .only_off = true}});
  AddControlTechnology(
      sheet, {.letters = "AMI",
              .page = 3,
              .items = {{"None", "NONE"}, {kCondenser, "VR/C"}, {kRecovery, "SR"}, {kBothTechnologies, "SRVC"}},
              .with_condenser = {kCondenser, kBothTechnologies},
              .empties = Empties::kAlways,
              .mode = DESC});
  sheet.Add(3, "Control technology",
            {
                Number(DESC, "txtAMI_SRURecoveryEff", "Sulfur Recovery Efficiency (%):", "Sulfur Recovery Efficiency",
                       "SRU_RECOVERY_EFFIC", "%"),
            });
  sheet.Add({{.mode = DESC,
              .lists = {kTechnology},
              .when = Reads(kTechnology, {kRecovery, kBothTechnologies}),
              .fields = {"txtAMI_SRURecoveryEff"},
              .empties = Empties::kAlways}});
  ApplyTogether(sheet, {kDestination, kTechnology});
}

std::vector<Rule> FieldRules() {
  std::vector<Rule> rules = {
      {1, ACTV, kThroughput, RequiredRange(0, 15500)},
      {2, ACTV, kThroughput,
       LooksWhen(IsFilledIn(kTheField),
                 WithMonth(Own("WithinStructureTotal", kOverThroughput, {}, CheckThroughputOfStructure)))},
      {3, ACTV, kHours, RequiredRange(0, 744)},
      {4, ACTV, kHours, ZeroHours()},
  };
  int order = 4;
  for (const char* name : kConcentrations) rules.push_back({++order, DESC, TextBox(name), RequiredRange(0, 100)});
  rules.push_back({++order, DESC, kTotal, ConcentrationTotal()});
  return rules;
}

std::vector<Rule> ModelInputRules() {
  constexpr Otherwise kStays = Otherwise::kNothing;  // without model inputs nothing runs, not even the unmarking
  const Condition model = ModelInputs();
  return {
      {18, DESC, "cmbAMI_AmineType", Required(Marks::kEither), model, kStays},
      {19, DESC, kFlashTank, Required(Marks::kEither), model, kStays},
      {20, DESC, "txtAMI_SourPress", RequiredRange(0, 1000), model, kStays},
      {21, DESC, "txtAMI_SourTemp", RequiredRange(32, 180), model, kStays},
      {22, DESC, "cmbAmi_Disposition", WithFlashTank(Required(Marks::kEither)), model, kStays},
      {23, DESC, "txtAMI_FlashTemp", WithFlashTank(RequiredRange(32, 180)), model, kStays},
      {24, DESC, "txtAMI_FlashPress", WithFlashTank(RequiredRange(0, 200)), model, kStays},
      {25, DESC, "txtAMI_Nbr", RequiredRange(0, 22), model, kStays},
      {26, DESC, "txtAMI_AmineFeedPress", RequiredRange(0, 1600), model, kStays},
      {27, DESC, "txtAMI_AmineFeedTemp", RequiredRange(32, 180), model, kStays},
      {28, DESC, "txtAMI_AmineFeedFlowRate", RequiredRange(0, 400), model, kStays},
      {29, DESC, "txtAMI_AmineFeedAminePct", RequiredRange(0, 50), model, kStays},
      {30, DESC, "txtAMI_AmineFeedH2SPct", RequiredRange(0, 1), model, kStays},
      {31, DESC, "txtAMI_AmineFeedCO2Pct", RequiredRange(0, 1), model, kStays},
  };
}

std::vector<Rule> VentilationRules() {
  const Condition local = Local(kDestination), flared = FlaredLocally(kDestination);
  const Condition condenser = Reads(kTechnology, {kBothTechnologies, kCondenser});
  return {
      {32, DESC, kDestination, RequiredMarked()},
      {33, DESC, "cmbAMI_VentedToID", RequiredRemoteID(kDestination, Fallback::kTextAndIndex), Remote(kDestination)},
      {34, DESC, "txtAMI_ExhaustOutletHgt", RequiredRange(-30, 100), local},
      {35, DESC, "txtAMI_ExhaustOutletInnerDiam", RequiredRange(2, 12), local},
      {36, DESC, "txtAMI_ExhaustOutletExitVel", RequiredRange(5, 1100), local},
      {37, DESC, "txtAMI_ExhaustOutletT", RequiredRange(70, 250), VentedLocally(kDestination)},
      {38, DESC, "txtAMI_ExhaustOutletAngle", RequiredRange(0, 180), local},
      {39, DESC, "txtAMI_FlareFeedRate", RequiredRange(0, 4000), flared},
      {40, DESC, "txtAMI_FlareCombustionT", RequiredRange(1400, 2000), flared},
      {41, DESC, "txtAMI_FlareEfficiency", RequiredRange(50, 99.9), flared},
      {42, DESC, kTechnology, Required(Marks::kEither)},
      {43, DESC, "txtAMI_CondenserT", RequiredRange(32, 212), condenser},
      {44, DESC, "txtAMI_CondenserP", RequiredRange(0.5, 1000), condenser},
      {45, DESC, "txtAMI_SRURecoveryEff", RequiredRange(50, 99.9), Reads(kTechnology, {kBothTechnologies, kRecovery})},
  };
}

SheetSpec Amine() {
  SheetSpec sheet;
  sheet.type = "AMI";
  sheet.number = 1;
  sheet.letters = "AMI";
  sheet.title = "Amine Unit";
  sheet.edit_title = "Amine Unit - EDIT DATA";
  sheet.comments_caption = "Comments:";
  sheet.pages = {"General Info.", "Model Inputs", "Ventilation System", "Control Equipment", "QC Results"};
  sheet.comments_tag = "Comments";
  sheet.focus_actv = kThroughput;
  sheet.focus_desc = "txtAMI_ConcNGH2S";
  sheet.inactive_takes_comments = true;
  sheet.before_rules = [](Session& s, QCLocation& location) { DelQCRecordsForLocAndBelow(s, location); };
  AddMonthAndComposition(sheet);
  AddModelInputs(sheet);
  AddUnseenFields(sheet);
  AddVentilationAndControl(sheet);
  sheet.connect = Connect;
  sheet.rules = {{"CheckAMIFields", FieldRules()},
                 {"CheckAMIModelInputs", ModelInputRules()},
                 {"CheckAMIVentilation", VentilationRules()}};
  AddOtherControl(
      sheet, {.letters = "AMI", .page = 3, .efficiency_tag = " Efficiency", .first_order = 46, .marks_passes = true});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_AMI() {
  static const SheetSpec sheet = Amine();
  return sheet;
}

}  // namespace merlu
