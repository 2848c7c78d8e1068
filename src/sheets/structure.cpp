// The sheet of a structure: a description, and its activity in each month.
#include "sheets/structure.h"

#include "session/main_names.h"
#include "sheets/build.h"
#include "sheets/contract.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kDescriptionFrame = "fraStructureDescriptive";
constexpr const char* kMonthFrame = "fraStructureActivity";
constexpr const char* kStatus = kStructureStatus;

FieldSpec Id(const char* control, const char* caption, const char* column) {
  FieldSpec field = Text(DESC, control, caption, "", column);
  field.stored = Stored::kNone;
  return field;
}

FieldSpec Gas(const char* control, const char* name, const char* column) {
  return Number(DESC, std::string(names::txtSTRUCTURE_SalesGas) + control + "Content",
                std::string(name) + " (%):", std::string("Sales Gas ") + name + " Content",
                std::string("SalesGas") + column + "Content", "%");
}

FieldSpec Computed(FieldSpec field) {
  field.stored = Stored::kComputed;
  return field;
}

FieldSpec Exempt(const char* control, const char* caption, const char* tag, const char* column,
                 std::vector<std::string> items) {
  FieldSpec field = OpenItemText(DESC, control, caption, tag, column, std::move(items));
  field.any_case = true;
  return field;
}

void AddDescription(SheetSpec& sheet) {
  sheet.Add(0, "Identification",
            {
                Id(names::txtSTRUCTURE_CmplxID, "RIMA Complex ID:", "CMPLX_ID_NUM"),
                Id(names::txtSTRUCTURE_StructID, "RIMA Structure ID:", "STRUCT_NUM"),
                Text(DESC, names::txtSTRUCTURE_Area, "Area:", "Area", "Area"),
                Text(DESC, names::txtSTRUCTURE_Block, "Block:", "Block", "Block"),
                Text(DESC, names::txtSTRUCTURE_Name, "Name:", "Name", "Name"),
                Text(DESC, names::txtSTRUCTURE_LeaseNo, "Lease Number:", "Lease Number", "LEASE_NUM"),
            });
  sheet.Add(
      0, "Location",
      {
          Number(DESC, names::txtSTRUCTURE_Lon, "Longitude (degrees, west negative):", "Longitude", "LONGITUDE",
                 "degrees, west negative"),
          Number(DESC, names::txtSTRUCTURE_Lat, "Latitude (degrees):", "Latitude", "LATITUDE", "degrees"),
          Number(DESC, names::txtSTRUCTURE_DistShore, "Distance to Shore:", "Distance to Shore", "DIST_TO_SHORE"),
          Number(DESC, names::txtSTRUCTURE_WaterDepth, "Water Depth (ft):", "Water Depth", "WATER_DEPTH_FT", "ft"),
      });
  sheet.Add(0, "Minor source",
            {
                Exempt(names::cmbMinorSourceExempt, "Minor Source Exempt from Reporting:", "Minor Source Exempt",
                       "MINOR_SOURCE_EXEMPT", {"Yes", "No"}),
                Exempt(names::cmbMinorSourceExemptWhat, "What is exempt:", "Minor Source Exempt What",
                       "MINOR_SOURCE_EXEMPT_WHAT",
                       {"Caisson", "Living Quarters", "Wellhead Protector", "Other (describe in coments)"}),
            });
  sheet.Add(0, "Sales gas composition",
            {
                Gas("C1", "C1", "C1"),
                Gas("C2", "C2", "C2"),
                Gas("C3", "C3", "C3"),
                Gas("iC4", "iC4", "iC4"),
                Gas("nC4", "nC4", "nC4"),
                Gas("iC5", "iC5", "iC5"),
                Gas("nC5", "nC5", "nC5"),
                Gas("C6", "C6", "C6"),
                Gas("C7", "C7", "C7"),
                Gas("C8", "C8+", "C8Plus"),
                Gas("CO2", "CO2", "CO2"),
                Gas("H2S", "H2S", "H2S"),
                Gas("N2", "N2", "N2"),
                Gas("O2", "O2", "O2"),
                Computed(Number(DESC, names::txtSTRUCTURE_SalesGasTotal, "Total (%):", "Sales Gas Total",
                                "SALES_GAS_TOTAL", "%")),
            });
}

void AddMonth(SheetSpec& sheet) {
  sheet.Add(0, "Production",
            {
                Number(ACTV, names::txtSTRUCTURE_ProdOil, "Oil Production (bbl):", "Oil Production", "PROD_OIL", "bbl"),
                Number(ACTV, names::txtSTRUCTURE_ProdNG, "Natural Gas Production (MMscf):", "Natural Gas Production",
                       "PROD_NG", "MMscf"),
            });
  sheet.Add(0, "Throughput",
            {
                Number(ACTV, names::txtSTRUCTURE_ThruOil, "Oil Throughput (bbl):", "Oil Throughput", "THRU_OIL", "bbl"),
                Number(ACTV, names::txtSTRUCTURE_ThruNG, "Natural Gas Throughput (MMscf):", "Natural Gas Throughput",
                       "THRU_NG", "MMscf"),
            });
  sheet.Add(0, "Total fuel usage",
            {
                Number(ACTV, names::txtSTRUCTURE_TotalFuelUsageNG,
                       "Natural Gas (Mscf):", "Total Fuel Usage, Natural Gas", "TOT_FUEL_USE_NG", "Mscf"),
                Number(ACTV, names::txtSTRUCTURE_TotalFuelUsageGasoline,
                       "Gasoline (gal):", "Total Fuel Usage, Gasoline", "TOT_FUEL_USE_GAS", "gal"),
                Number(ACTV, names::txtSTRUCTURE_TotalFuelUsageDiesel, "Diesel (gal):", "Total Fuel Usage, Diesel",
                       "TOT_FUEL_USE_DIE", "gal"),
            });
  sheet.Add(0, "Comments",
            {
                Text(ACTV, names::txtSTRUCTURE_Comments, "Comments:", "Comments", "COMNT_TXT"),
            });
}

void ShowStatus(Session& s, Form& form) {
  form.At(names::lblNoEmissions).visible = s.InActv() && form.At(kStatus).checked;
}

SheetSpec Structure() {
  SheetSpec sheet;
  sheet.level = level::kStructure;
  sheet.letters = "STRUCTURE";
  sheet.frame_name = names::fraStructure;
  sheet.title = "Structure";
  sheet.edit_title = "Structure - EDIT DATA";
  sheet.pages = {"General Information", "QC Results"};
  sheet.description_frame = kDescriptionFrame;
  sheet.month_frame = kMonthFrame;
  sheet.focus_actv = names::txtSTRUCTURE_ProdOil;
  sheet.focus_desc = names::txtSTRUCTURE_Area;
  sheet.not_found_on_load = "Structure record not found";
  sheet.not_found_on_save = "Record not found";
  sheet.plain_faults = true;
  AddDescription(sheet);
  AddMonth(sheet);
  for (FieldSpec& field : sheet.fields) field.frame = field.mode == ACTV ? kMonthFrame : kDescriptionFrame;
  sheet.rules = StructureRules();
  sheet.after_lock = ShowStatus;
  sheet.after_unlock = [](Session&, Form& form) { form.At(names::lblNoEmissions).visible = false; };
  sheet.after_save = [](Session& s, Form&) {
    if (s.InActv()) PropagateStatus(s);
  };
  return sheet;
}

}  // namespace

const SheetSpec& StructureSheet() {
  static const SheetSpec sheet = Structure();
  return sheet;
}

void PutStructureSheet(Session& s, Form& main) {
  const SheetSpec& sheet = StructureSheet();
  Put(main, Kind::kFrame, sheet.frame(), sheet.title, {});
  PutTab(main, sheet.tab(), sheet.pages, {sheet.frame()});
  Put(main, Kind::kFrame, kDescriptionFrame, "", {sheet.tab()});
  Put(main, Kind::kFrame, kMonthFrame, "", {sheet.tab()});
  for (const FieldSpec& field : sheet.fields) PutField(main, field, sheet.tab());
  for (const char* unused : {"Phone", "Email", "Contact"})
    Put(main, Kind::kText, std::string("txtSTRUCTURE_") + unused, std::string(unused) + ":", {kDescriptionFrame})
        .visible = false;
  main.At(sheet.comments()).lines = true;
  Put(main, Kind::kFrame, names::Frame1, "", {kMonthFrame});
  Put(main, Kind::kCheck, kStatus, "No Emissions to Report", {names::Frame1, 0, "Comments"});
  PutLabel(main, names::lblNoEmissions, "No Emissions to Report", {sheet.frame()}).visible = false;
  PutLabel(main, sheet.date_label(), kNoQCDate, {sheet.frame()});
  Put(main, Kind::kButton, names::cmdSTRUCTURE_AddEquip, "New Equipment", {sheet.tab()});
  PutResults(main, sheet.list(), sheet.comment_button(), "Error Source", {sheet.tab(), 1});
  main.On(names::cmbMinorSourceExempt, Event::kClick, [&s, &main] {
    if (s.editing && main.At(names::cmbMinorSourceExempt).text == "No")
      SelectItem(main, names::cmbMinorSourceExemptWhat, -1);
  });
}

void PropagateStatus(Session& s, std::int64_t only_SA_ID_AK) {
  // rows that have the status already are left alone, which spares writing the whole table
  const std::string update =
      "UPDATE EA_EQUIP_ACTV SET EA_STATUS=p.status FROM ED_EQUIP_DESC d JOIN PA_PLATFORM_ACTV p ON "
      "p.PD_ID_AK=d.PD_ID_AK "
      "WHERE d.ED_ID_AK=EA_EQUIP_ACTV.ED_ID_AK AND p.PA_YR=EA_EQUIP_ACTV.EA_YR AND p.PA_MO=EA_EQUIP_ACTV.EA_MO AND "
      "EA_EQUIP_ACTV.EA_STATUS IS NOT p.status AND EA_EQUIP_ACTV.EA_EQUIP_TYP";
  const std::string which = only_SA_ID_AK == 0 ? "" : " AND p.SA_ID_AK=?";
  const Values key = only_SA_ID_AK == 0 ? Values() : Values(1, only_SA_ID_AK);
  s.db.Execute(update + "<>'FUG'" + which, key);
  s.db.Execute(update + "='FUG'" + which, key);
}

}  // namespace merlu
