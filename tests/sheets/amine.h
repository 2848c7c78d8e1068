// The fields of the amine unit with their columns and bounds, for its tests.
#pragma once

#include <gtest/gtest.h>

#include "forms/desk.h"
#include "rules/bounds.h"

namespace merlu::test::amine_unit {

using Texts = std::vector<std::string>;
using Found = std::vector<std::pair<std::string, std::string>>;

constexpr const char* kTotal = "txtAMI_UNGConcTotal";
constexpr const char* kTotalTag = "Unprocessed Natural Gas Concentrations Total";
constexpr const char* kTotalFinding = "Value not in expected range (99.8 to 100)";
constexpr const char* kExceeds = "Value exceeds N.G. throughput for structure";
constexpr const char* kZeroHours = "Zero hours for active equipment";
constexpr const char* kThroughput = "txtAMI_TotalGasThru";
constexpr const char* kHours = "txtAMI_HrsOperated";
constexpr const char* kDestination = "cmbAMI_GasesVentOrFlare";
constexpr const char* kTechnology = "cmbAMI_ControlTechnology";
constexpr const char* kRecovery = "Vapor Recovery and/or Condenser (VR/C)";

// A field, and a text typed into it with what its column holds then.
struct Field {
  const char *control, *caption, *tag, *column, *text, *stored;
};

const Field kMonth[] = {
    {"txtAMI_TotalGasThru", "Processed Throughput (MMscf):", "Processed Throughput", "TOT_GAS_THRUPUT", "1.5", "1.5"},
    {"txtAMI_HrsOperated", "Hours Operated (hrs):", "Hours Operated", "OP_HR", "2.5", "2.5"},
};

const Field kDescription[] = {
    {"txtAMI_ConcNGH2S", "H2S:", "H2S Concentration", "Conc_NGH2S", "3.5", "3.5"},
    {"txtAMI_ConcMethane", "Methane:", "Methane Concentration", "Conc_Methane", "4.5", "4.5"},
    {"txtAMI_ConcEthane", "Ethane:", "Ethane Concentration", "Conc_Ethane", "5.5", "5.5"},
    {"txtAMI_ConcC3HC", "C3 Hydrocarbons:", "C3 Hyrdrocarbon Concentration", "Conc_C3HC", "6.5", "6.5"},
    {"txtAMI_ConcC4HC", " C4 Hydrocarbons:", "C4 Hyrdrocarbon Concentration", "Conc_C4HC", "7.5", "7.5"},
    {"txtAMI_ConcC5HC", "C5 Hydrocarbons:", "C5 Hyrdrocarbon Concentration", "Conc_C5HC", "8.5", "8.5"},
    {"txtAMI_ConcC6HC", "C6 Hydrocarbons:", "C6 Hyrdrocarbon Concentration", "Conc_C6HC", "9.5", "9.5"},
    {"txtAMI_ConcC7HC", "C7 Hydrocarbons:", "C7 Hyrdrocarbon Concentration", "Conc_C7HC", "10.5", "10.5"},
    {"txtAMI_ConcC8plusHC", "C8+ Hydrocarbons:", "C8+ Hyrdrocarbon Concentration", "Conc_C8plus_HC", "11.5", "11.5"},
    {"txtAMI_ConcO2", "O2:", "O2 Concentration", "CONC_O2", "12.5", "12.5"},
    {"txtAMI_ConcCO2", "CO2:", "CO2 Concentration", "CONC_CO2", "13.5", "13.5"},
    {"txtAMI_ConcN2", "N2:", "N2 Concentration", "CONC_N2", "14.5", "14.5"},
    {"cmbAMI_AmineType", "Amine Type:", "Amine Type", "AMINE_TYP", "TEA", "TEA"},
    {"txtAMI_SourTemp", "Unprocessed sour gas feed temperature (°F):", "Sour gas feed temperature", "Sour_Temp", "16.5",
     "16.5"},
    {"txtAMI_SourPress", "Unprocessed sour gas feed pressure (psig):", "Sour gas feed pressure", "Sour_Pres", "17.5",
     "17.5"},
    {"cmbAmi_UseFlashTank", "Equipped with a flash tank:", "Equipped with flash tank?", "FLASHTANK_FLG", "No", "False"},
    {"txtAMI_FlashTemp", "Flash Tank Temperature (°F):", "Flash Tank Temperature", "Flash_Temp", "19.5", "19.5"},
    {"txtAMI_FlashPress", "Flash Tank pressure (psig):", "Flash Tank  Pressure", "Flash_Pres", "20.5", "20.5"},
    {"cmbAmi_Disposition", "Destination of Flash Gas:", "Destination of Flash Gas", "Disposition", "Flared", "FL"},
    {"txtAMI_Nbr", "Number of Absorber Trays:", "Number of Absorb trays", "NUM", "22.5", "22.5"},
    {"txtAMI_AmineFeedPress", "Lean amine feed pressure (psig):", "Lean Amine feed pressure", "Amine_Feed_Pres", "23.5",
     "23.5"},
    {"txtAMI_AmineFeedTemp", "Lean amine feed temperature (°F):", "Lean Amine feed temperature", "Amine_Feed_Temp",
     "24.5", "24.5"},
    {"txtAMI_AmineFeedFlowRate", "Lean amine feed flowrate (gal/min):", "Lean Amine feed flowrate",
     "Amine_Feed_FlowRate", "25.5", "25.5"},
    {"txtAMI_AmineFeedAminePct", "lean amine feed amine content (% wt):", "Lean Amine feed amine content",
     "Amine_Feed_AminePct", "26.5", "26.5"},
    {"txtAMI_AmineFeedH2SPct", "lean amine feed H2S content (% wt):", "Lean Amine feed H2S content",
     "Amine_Feed_H2SPct", "27.5", "27.5"},
    {"txtAMI_AmineFeedCO2Pct", "lean amine feed CO2 content (% wt):", "Lean Amine feed CO2 content",
     "Amine_Feed_CO2Pct", "28.5", "28.5"},
    {"cmbAMI_GasesVentOrFlare", "Emission Destination", "Emissions Destination", "EMIS_DEST", "Flared Locally", "FL"},
    {"txtAMI_ExhaustOutletHgt", "Outlet Height (ft above msl):", "Ventilation Outlet Height", "EXH_OUT_HGT", "30.5",
     "30.5"},
    {"txtAMI_ExhaustOutletInnerDiam", "Outlet Inner Diameter (in):", "Ventilation Outlet Inner Diameter",
     "EXH_OUT_INNER_DIAM", "31.5", "31.5"},
    {"txtAMI_ExhaustOutletExitVel", "Exit Velocity (ft/s):", "Ventilation Exit Velocity", "EXH_OUT_EXIT_VEL", "32.5",
     "32.5"},
    {"txtAMI_ExhaustOutletT", "Exit Temperature (°F):", "Ventilation Exit Temperature", "EXH_OUT_TEMP", "33.5", "33.5"},
    {"txtAMI_ExhaustOutletAngle", "Outlet Orientation (degrees):", "Ventilation Outlet Orientation", "EXH_OUT_ANGLE",
     "34.5", "34.5"},
    {"txtAMI_FlareFeedRate", "Flare Feed Rate (scf/hr):", "Flare Feed Rate", "FLA_FEED_RATE", "35.5", "35.5"},
    {"txtAMI_FlareCombustionT", "Combustion Temperature (°F):", "Flare Combustion Temperature", "FLA_COMBUST_TEMP",
     "36.5", "36.5"},
    {"txtAMI_FlareEfficiency", "Combustion Efficiency (%):", "Combustion Efficiency", "FLA_EFFIC", "37.5", "37.5"},
    {"cmbAMI_ControlTechnology", "Installed Control Equipment:", "Installed Control Equipment", "CTRL_TECH",
     "SR + VR/C", "SRVC"},
    {"txtAMI_CondenserT", "Condenser Temperature (°F):", "Condenser Temperature", "CONDENSER_TEMP", "39.5", "39.5"},
    {"txtAMI_CondenserP", "Condenser Pressure (psia):", "Condenser Pressure", "CONDENSER_PRES", "40.5", "40.5"},
    {"txtAMI_SRURecoveryEff", "Sulfur Recovery Efficiency (%):", "Sulfur Recovery Efficiency", "SRU_RECOVERY_EFFIC",
     "41.5", "41.5"},
    {"cmbAMI_OtherControlDevice", "Other Control Device (Y/N):", "Other Control Device?", "OTH_CTRL_DEVICE", "Yes",
     "True"},
    {"txtAMI_OtherControlDesc", "Description:", "Other Control Device Descript.", "OTH_CTRL_DESC", "a scrubber",
     "a scrubber"},
    {"txtAMI_OtherControlEffSOx", "SOx Efficiency (%):", "SOx Efficiency", "OTH_CTRL_EFFIC_SOX", "44.5", "44.5"},
    {"txtAMI_OtherControlEffNOx", "NOx Efficiency (%):", "NOx Efficiency", "OTH_CTRL_EFFIC_NOX", "45.5", "45.5"},
    {"txtAMI_OtherControlEffCO", "CO Efficiency (%):", "CO Efficiency", "OTH_CTRL_EFFIC_CO", "46.5", "46.5"},
    {"txtAMI_OtherControlEffVOC", "VOC Efficiency (%):", "VOC Efficiency", "OTH_CTRL_EFFIC_VOC", "47.5", "47.5"},
    {"txtAMI_OtherControlEffPM10", "PM10 Efficiency (%):", "PM10 Efficiency", "OTH_CTRL_EFFIC_PM10", "48.5", "48.5"},
};

const Bound kConcentrations[] = {
    {"txtAMI_ConcNGH2S", "H2S Concentration", 0, 100},
    {"txtAMI_ConcMethane", "Methane Concentration", 0, 100},
    {"txtAMI_ConcEthane", "Ethane Concentration", 0, 100},
    {"txtAMI_ConcC3HC", "C3 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC4HC", "C4 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC5HC", "C5 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC6HC", "C6 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC7HC", "C7 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC8plusHC", "C8+ Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcO2", "O2 Concentration", 0, 100},
    {"txtAMI_ConcCO2", "CO2 Concentration", 0, 100},
    {"txtAMI_ConcN2", "N2 Concentration", 0, 100},
};

const std::vector<Bound> kModelBounds = {
    {"txtAMI_SourPress", "Sour gas feed pressure", 0, 1000},
    {"txtAMI_SourTemp", "Sour gas feed temperature", 32, 180},
    {"txtAMI_Nbr", "Number of Absorb trays", 0, 22},
    {"txtAMI_AmineFeedPress", "Lean Amine feed pressure", 0, 1600},
    {"txtAMI_AmineFeedTemp", "Lean Amine feed temperature", 32, 180},
    {"txtAMI_AmineFeedFlowRate", "Lean Amine feed flowrate", 0, 400},
    {"txtAMI_AmineFeedAminePct", "Lean Amine feed amine content", 0, 50},
    {"txtAMI_AmineFeedH2SPct", "Lean Amine feed H2S content", 0, 1},
    {"txtAMI_AmineFeedCO2Pct", "Lean Amine feed CO2 content", 0, 1},
};
const std::vector<Bound> kFlashBounds = {
    {"txtAMI_FlashTemp", "Flash Tank Temperature", 32, 180},
    {"txtAMI_FlashPress", "Flash Tank  Pressure", 0, 200},
};

const char* const kModelFields[] = {"txtAMI_SourPress",
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
                                    "cmbAmi_UseFlashTank",
                                    "cmbAmi_Disposition"};
const char* const kOutletFields[] = {"txtAMI_ExhaustOutletHgt",     "txtAMI_ExhaustOutletInnerDiam",
                                     "txtAMI_ExhaustOutletExitVel", "txtAMI_ExhaustOutletT",
                                     "txtAMI_ExhaustOutletAngle",   "txtAMI_FlareFeedRate",
                                     "txtAMI_FlareCombustionT",     "txtAMI_FlareEfficiency"};

inline std::string StoredText(TestRun& run, const std::string& column, const std::string& table = "ED_AMI") {
  return NullToEmpty(run.Sql("SELECT " + column + " FROM " + table));
}

inline bool IsStoredNull(TestRun& run, const std::string& column) {
  return IsNull(run.Sql("SELECT " + column + " FROM ED_AMI"));
}

inline void SelectAgain(TestRun& run) {
  run.Select(run.Key());
  run.Select(run.Key("AMI", "A1"));
}

// Twelve concentrations: the first two as given, the others 0.
inline Values Composition(const std::string& first, const std::string& second) {
  Values values;
  for (const Bound& one : kConcentrations) values.emplace_back(one.control, "0");
  values[0].second = first;
  values[1].second = second;
  return values;
}

}  // namespace merlu::test::amine_unit
