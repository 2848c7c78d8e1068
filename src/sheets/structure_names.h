// Names of the controls of the structure's sheet that more than one file uses.
#pragma once

namespace merlu::names {

inline constexpr const char* chkSTRUCTURE_Status = "chkSTRUCTURE_Status";
inline constexpr const char* cmdSTRUCTURE_EditQCComment = "cmdSTRUCTURE_EditQCComment";
inline constexpr const char* lvwSTRUCTURE_QCResults = "lvwSTRUCTURE_QCResults";
inline constexpr const char* tabSTRUCTURE = "tabSTRUCTURE";
inline constexpr const char* txtSTRUCTURE_Area = "txtSTRUCTURE_Area";
inline constexpr const char* txtSTRUCTURE_Block = "txtSTRUCTURE_Block";
inline constexpr const char* txtSTRUCTURE_CmplxID = "txtSTRUCTURE_CmplxID";
inline constexpr const char* txtSTRUCTURE_Comments = "txtSTRUCTURE_Comments";
inline constexpr const char* txtSTRUCTURE_DistShore = "txtSTRUCTURE_DistShore";
inline constexpr const char* txtSTRUCTURE_Lat = "txtSTRUCTURE_Lat";
inline constexpr const char* txtSTRUCTURE_LeaseNo = "txtSTRUCTURE_LeaseNo";
inline constexpr const char* txtSTRUCTURE_Lon = "txtSTRUCTURE_Lon";
inline constexpr const char* txtSTRUCTURE_Name = "txtSTRUCTURE_Name";
inline constexpr const char* txtSTRUCTURE_ProdNG = "txtSTRUCTURE_ProdNG";
inline constexpr const char* txtSTRUCTURE_ProdOil = "txtSTRUCTURE_ProdOil";
inline constexpr const char* txtSTRUCTURE_SalesGas = "txtSTRUCTURE_SalesGas";
inline constexpr const char* txtSTRUCTURE_SalesGasTotal = "txtSTRUCTURE_SalesGasTotal";
inline constexpr const char* txtSTRUCTURE_StructID = "txtSTRUCTURE_StructID";
inline constexpr const char* txtSTRUCTURE_ThruNG = "txtSTRUCTURE_ThruNG";
inline constexpr const char* txtSTRUCTURE_ThruOil = "txtSTRUCTURE_ThruOil";
inline constexpr const char* txtSTRUCTURE_TotalFuelUsageDiesel = "txtSTRUCTURE_TotalFuelUsageDiesel";
inline constexpr const char* txtSTRUCTURE_TotalFuelUsageGasoline = "txtSTRUCTURE_TotalFuelUsageGasoline";
inline constexpr const char* txtSTRUCTURE_TotalFuelUsageNG = "txtSTRUCTURE_TotalFuelUsageNG";
inline constexpr const char* txtSTRUCTURE_WaterDepth = "txtSTRUCTURE_WaterDepth";
inline constexpr const char* cmbMinorSourceExempt = "cmbMinorSourceExempt";
inline constexpr const char* cmbMinorSourceExemptWhat = "cmbMinorSourceExemptWhat";

}  // namespace merlu::names
