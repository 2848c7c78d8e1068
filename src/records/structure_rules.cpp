// What the structure's sheet is held to.
#include "base/numbers.h"
#include "qc/checks.h"
#include "qc/qc_log.h"
#include "records/structure_record.h"
#include "sheets/rules.h"

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

void CheckEquipmentPresence(RuleRun& r) {
  if (r.form.At("chkSTRUCTURE_Status").checked || HasEquipment(r.s, r.location))
    ClearQCError(r.s, r.location, kPlatform, kNoEquipment);
  else
    AddQCError(r.s, r.location, kPlatform, kNoEquipment);
}

void CheckSalesGas(RuleRun& r) {
  double sum = 0;
  bool any = false;
  for (const char* gas : kGases) {
    const Control& part = r.form.At(std::string("txtSTRUCTURE_SalesGas") + gas + "Content");
    any = any || IsFilled(part);
    if (IsNumericText(part.text)) sum += LeadingNumber(part.text);
  }
  if (!any) return;  // a structure may report no composition at all
  r.field.text = GeneralNumber(sum);
  const bool flagged = sum > kMostTotal || sum < kLeastTotal;
  CheckRequiredRange(r.s, r.location, r.field, kLeastTotal, kMostTotal);
  // the total is never editable, so a pass must not make it look so
  if (!flagged) r.field.back = Back::kFace;
}

// Kept so that rows in files of older versions go away; no rule raises the text any more.
void WithdrawRetired(RuleRun& r) {
  ClearQCError(r.s, r.location, r.field.tag, finding::kRetiredSum);
}

// A field that need not be filled looks passed, and an older finding stays until it is filled.
void CheckExemptWhat(RuleRun& r) {
  if (r.form.At("cmbMinorSourceExempt").text == "Yes")
    CheckRequiredMarked(r.s, r.location, r.field);
  else
    MarkField(r.s, false, r.field);
}

std::vector<Rule> FieldRules() {
  return {
      {1, DESC, "txtSTRUCTURE_Area", RequiredMarked()},
      {2, DESC, "txtSTRUCTURE_Block", RequiredMarked()},
      {3, DESC, "txtSTRUCTURE_Name", RequiredMarked()},
      {4, DESC, "txtSTRUCTURE_LeaseNo", RequiredMarked()},
      {5, DESC, "txtSTRUCTURE_Lon", RequiredRange(-98, -81)},
      {6, DESC, "txtSTRUCTURE_Lat", RequiredRange(23, 31)},
      {7, DESC, "txtSTRUCTURE_DistShore", RequiredRange(0, 500)},
      {8, DESC, "txtSTRUCTURE_WaterDepth", RequiredMarked()},
      {9, DESC, "cmbMinorSourceExemptWhat", Own("CheckRequiredMarked", finding::kBlank, CheckExemptWhat)},
      {1, ACTV, "txtSTRUCTURE_ProdOil", RequiredRange(0, 5000000)},
      {2, ACTV, "txtSTRUCTURE_ProdNG", RequiredRange(0, 20000)},
      {3, ACTV, "txtSTRUCTURE_ThruOil", RequiredRange(0, 5000000)},
      {4, ACTV, "txtSTRUCTURE_ThruNG", RequiredRange(0, 20000)},
      {5, ACTV, "txtSTRUCTURE_TotalFuelUsageNG", RequiredRange(0, 1000000000000)},
      {6, ACTV, "txtSTRUCTURE_TotalFuelUsageGasoline", RequiredRange(0, 10000)},
      {7, ACTV, "txtSTRUCTURE_TotalFuelUsageDiesel", RequiredRange(0, 10000000)},
      {8, ACTV, "chkSTRUCTURE_Status", Own("EquipmentPresence", kNoEquipment, CheckEquipmentPresence)},
  };
}

}  // namespace

const std::vector<RuleGroup>& StructureRules() {
  static const std::vector<RuleGroup> groups = {
      {"CheckStructureFields", FieldRules()},
      {"CheckSalesGasComposition",
       {{1, DESC, "txtSTRUCTURE_SalesGasTotal",
         Own("SalesGasTotal", RangeText(kLeastTotal, kMostTotal), CheckSalesGas)}}},
      {"WithdrawRetiredFindings",
       {{1, ACTV, "txtSTRUCTURE_TotalFuelUsageDiesel", Own("WithdrawRetired", finding::kRetiredSum, WithdrawRetired)},
        {2, ACTV, "txtSTRUCTURE_TotalFuelUsageGasoline", Own("WithdrawRetired", finding::kRetiredSum, WithdrawRetired)},
        {3, ACTV, "txtSTRUCTURE_TotalFuelUsageNG", Own("WithdrawRetired", finding::kRetiredSum, WithdrawRetired)}}},
  };
  return groups;
}

}  // namespace merlu
