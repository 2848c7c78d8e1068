#include "records/structure_fields.h"
#include "records/structure_names.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;

FieldSpec Id(const char* control, const char* caption, const char* column) {
  FieldSpec field = Text(DESC, control, caption, "", column);
  field.stored = Stored::kNone;
  return field;
}

FieldSpec Gas(const char* control, const char* name, const char* column) {
  return Number(DESC, std::string(names::txtSTRUCTURE_SalesGas) + control + "Content",
                std::string(name) + " (%):", std::string("Sales Gas ") + name + " Content",
                std::string("SalesGas") + column + "Content");
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

std::vector<FieldSpec> Under(const char* block, std::vector<FieldSpec> fields) {
  for (FieldSpec& field : fields) field.block = block;
  return fields;
}

std::vector<FieldSpec> Description() {
  SheetSpec sheet;
  sheet.fields =
      Under("Identification", {
                                  Id(names::txtSTRUCTURE_CmplxID, "RIMA Complex ID:", "CMPLX_ID_NUM"),
                                  Id(names::txtSTRUCTURE_StructID, "RIMA Structure ID:", "STRUCT_NUM"),
                                  Text(DESC, names::txtSTRUCTURE_Area, "Area:", "Area", "Area"),
                                  Text(DESC, names::txtSTRUCTURE_Block, "Block:", "Block", "Block"),
                                  Text(DESC, names::txtSTRUCTURE_Name, "Name:", "Name", "Name"),
                                  Text(DESC, names::txtSTRUCTURE_LeaseNo, "Lease Number:", "Lease Number", "LEASE_NUM"),
                              });
  sheet.Add(0, "Location",
            {
                Number(DESC, names::txtSTRUCTURE_Lon, "Longitude (degrees, west negative):", "Longitude", "LONGITUDE"),
                Number(DESC, names::txtSTRUCTURE_Lat, "Latitude (degrees):", "Latitude", "LATITUDE"),
                Number(DESC, names::txtSTRUCTURE_DistShore, "Distance to Shore:", "Distance to Shore", "DIST_TO_SHORE"),
                Number(DESC, names::txtSTRUCTURE_WaterDepth, "Water Depth (ft):", "Water Depth", "WATER_DEPTH_FT"),
            });
  sheet.Add(0, "Minor source",
            {
                Exempt(names::cmbMinorSourceExempt, "Minor Source Exempt from Reporting:", "Minor Source Exempt",
                       "MINOR_SOURCE_EXEMPT", {"Yes", "No"}),
                Exempt(names::cmbMinorSourceExemptWhat, "What is exempt:", "Minor Source Exempt What",
                       "MINOR_SOURCE_EXEMPT_WHAT",
                       {"Caisson", "Living Quarters", "Wellhead Protector", "Other (describe in coments)"}),
            });
  sheet.Add(
      0, "Sales gas composition",
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
          Computed(Number(DESC, names::txtSTRUCTURE_SalesGasTotal, "Total (%):", "Sales Gas Total", "SALES_GAS_TOTAL")),
      });
  return sheet.fields;
}

std::vector<FieldSpec> Month() {
  SheetSpec sheet;
  sheet.Add(0, "Production",
            {
                Number(ACTV, names::txtSTRUCTURE_ProdOil, "Oil Production (bbl):", "Oil Production", "PROD_OIL"),
                Number(ACTV, names::txtSTRUCTURE_ProdNG, "Natural Gas Production (MMscf):", "Natural Gas Production",
                       "PROD_NG"),
            });
  sheet.Add(0, "Throughput",
            {
                Number(ACTV, names::txtSTRUCTURE_ThruOil, "Oil Throughput (bbl):", "Oil Throughput", "THRU_OIL"),
                Number(ACTV, names::txtSTRUCTURE_ThruNG, "Natural Gas Throughput (MMscf):", "Natural Gas Throughput",
                       "THRU_NG"),
            });
  sheet.Add(0, "Total fuel usage",
            {
                Number(ACTV, names::txtSTRUCTURE_TotalFuelUsageNG,
                       "Natural Gas (Mscf):", "Total Fuel Usage, Natural Gas", "TOT_FUEL_USE_NG"),
                Number(ACTV, names::txtSTRUCTURE_TotalFuelUsageGasoline,
                       "Gasoline (gal):", "Total Fuel Usage, Gasoline", "TOT_FUEL_USE_GAS"),
                Number(ACTV, names::txtSTRUCTURE_TotalFuelUsageDiesel, "Diesel (gal):", "Total Fuel Usage, Diesel",
                       "TOT_FUEL_USE_DIE"),
            });
  sheet.Add(0, "Comments",
            {
                Text(ACTV, names::txtSTRUCTURE_Comments, "Comments:", "Comments", "COMNT_TXT"),
            });
  return sheet.fields;
}

}  // namespace

const std::vector<FieldSpec>& StructureFields() {
  static const std::vector<FieldSpec> fields = [] {
    std::vector<FieldSpec> all = Description();
    for (const FieldSpec& field : Month()) all.push_back(field);
    return all;
  }();
  return fields;
}

}  // namespace merlu
