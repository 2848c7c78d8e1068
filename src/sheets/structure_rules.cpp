// What the structure's sheet is held to.
#include "base/numbers.h"
#include "rules/checks.h"
#include "sheets/structure.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kPlatform = "Platform";
constexpr const char* kNoEquipment = "Equipment records are missing for platform";
constexpr double kLeastTotal = 99.8, kMostTotal = 100;

// The order in which the composition is added up.
constexpr const char* kGases[] = {"H2S", "O2",  "CO2", "N2",  "C1", "C2", "C3",
                                  "iC4", "nC4", "iC5", "nC5", "C6", "C7", "C8"};

// Stored under a separate name that no field has.
CheckSpec EquipmentPresence() {
  return Own("EquipmentPresence", kNoEquipment, {kStructureStatus}, [](Judging& j) {
    j.Under(kPlatform);
    j.WithoutTip();
    const bool active = !j.view().IsChecked(j.Other(0));
    if (active) j.NeedContext();
    j.Say(active && !j.context().has_equipment, kNoEquipment);
  });
}

// A structure may report no composition at all; the total is computed, and is no input.
CheckSpec SalesGasTotal() {
  std::vector<std::string> parts;
  for (const char* gas : kGases) parts.push_back(std::string(names::txtSTRUCTURE_SalesGas) + gas + "Content");
  const std::string text = RangeText(kLeastTotal, kMostTotal);
  CheckSpec check = Own("SalesGasTotal", text, parts, [text](Judging& j) {
    double sum = 0;
    bool any = false;
    for (std::size_t i = 0; i < std::size(kGases); ++i) {
      const int part = j.Other(i);
      any = any || j.view().IsFilled(part);
      if (j.view().IsNumeric(part)) sum += j.view().Number(part);
    }
    if (!any) return;
    j.Become(GeneralNumber(sum));
    JudgeRequiredRange(j, kLeastTotal, kMostTotal, text);
    if (!(sum > kMostTotal || sum < kLeastTotal)) j.Mark(Mark::kFace);
  });
  check.expected = RequiredRange(kLeastTotal, kMostTotal).expected;
  return check;
}

// Kept so that rows in files of older versions go away; no rule raises the text any more.
CheckSpec WithdrawRetired() {
  return Own("WithdrawRetired", finding::kRetiredSum, {}, [](Judging& j) { j.Withdraw(finding::kRetiredSum); });
}

// A field that need not be filled looks passed, and an older finding stays until it is filled.
CheckSpec ExemptWhat() {
  CheckSpec check = PassedUnless(Reads(names::cmbMinorSourceExempt, {"Yes"}), RequiredMarked());
  check.text = finding::kBlank;
  return check;
}

std::vector<Rule> FieldRules() {
  return {
      {1, DESC, names::txtSTRUCTURE_Area, RequiredMarked()},
      {2, DESC, names::txtSTRUCTURE_Block, RequiredMarked()},
      {3, DESC, names::txtSTRUCTURE_Name, RequiredMarked()},
      {4, DESC, names::txtSTRUCTURE_LeaseNo, RequiredMarked()},
      {5, DESC, names::txtSTRUCTURE_Lon, RequiredRange(-98, -81)},
      {6, DESC, names::txtSTRUCTURE_Lat, RequiredRange(23, 31)},
      {7, DESC, names::txtSTRUCTURE_DistShore, RequiredRange(0, 500)},
      {8, DESC, names::txtSTRUCTURE_WaterDepth, RequiredMarked()},
      {9, DESC, names::cmbMinorSourceExemptWhat, ExemptWhat()},
      {1, ACTV, names::txtSTRUCTURE_ProdOil, RequiredRange(0, 5000000)},
      {2, ACTV, names::txtSTRUCTURE_ProdNG, RequiredRange(0, 20000)},
      {3, ACTV, names::txtSTRUCTURE_ThruOil, RequiredRange(0, 5000000)},
      {4, ACTV, names::txtSTRUCTURE_ThruNG, RequiredRange(0, 20000)},
      {5, ACTV, names::txtSTRUCTURE_TotalFuelUsageNG, RequiredRange(0, 1000000000000)},
      {6, ACTV, names::txtSTRUCTURE_TotalFuelUsageGasoline, RequiredRange(0, 10000)},
      {7, ACTV, names::txtSTRUCTURE_TotalFuelUsageDiesel, RequiredRange(0, 10000000)},
      {8, ACTV, kStructureStatus, EquipmentPresence()},
  };
}

}  // namespace

std::vector<RuleGroup> StructureRules() {
  return {
      {"CheckStructureFields", FieldRules()},
      {"CheckSalesGasComposition", {{1, DESC, names::txtSTRUCTURE_SalesGasTotal, SalesGasTotal()}}},
      {"WithdrawRetiredFindings",
       {{1, ACTV, names::txtSTRUCTURE_TotalFuelUsageDiesel, WithdrawRetired()},
        {2, ACTV, names::txtSTRUCTURE_TotalFuelUsageGasoline, WithdrawRetired()},
        {3, ACTV, names::txtSTRUCTURE_TotalFuelUsageNG, WithdrawRetired()}}},
  };
}

}  // namespace merlu
