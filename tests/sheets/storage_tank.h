// The fields and shapes of the storage tank, for its tests.
#pragma once

#include <gtest/gtest.h>
#include <algorithm>

#include "rules/bounds.h"

namespace merlu::test::tank {

using Texts = std::vector<std::string>;
using Found = std::vector<std::pair<std::string, std::string>>;

constexpr const char* kShape = "cmbSTO_TankShape";
constexpr const char* kOrientation = "cmbSTO_TankOrientation";
constexpr const char* kLiquid = "txtSTO_TankAvgLiquidHgt";
constexpr const char* kThroughput = "txtSTO_Throughput";
constexpr const char* kDestination = "cmbSTO_GasesVentOrFlare";
constexpr const char* kTechnology = "cmbSTO_ControlTechnology";
constexpr const char* kCondenser = "Vapor Recovery and/or Condenser (VR/C)";
constexpr const char* kOverHeight = "Avg. Liquid Height > Shell Height";
constexpr const char* kOverDiameter = "Avg. Liquid Height > Shell Diameter";
constexpr const char* kExceeds = "Value exceeds crude oil throughput for structure";

// A field, and a text typed into it with what its column holds then.
struct Field {
  const char *control, *caption, *tag, *column, *text, *stored;
};

const Field kMonth[] = {
    {"txtSTO_Throughput", "Product Throughput (bbl):", "Product Throughput", "THRUPUT", "1.5", "1.5"},
    {"txtSTO_TankAvgLiquidHgt", "Average Liquid Height (ft):", "Avg Liquid Height", "TANK_AVG_LIQ_HGT", "2.5", "2.5"},
    {"txtSTO_TankBulkLiqT", "Bulk Liquid Temperature (°F):", "Bulk Liquid Temp", "TANK_BULK_LIQ_TEMP", "3.5", "3.5"},
    {"txtSTO_APIGravity", "API Gravity (°API):", "API Gravity", "API_GRAV", "4.5", "4.5"},
    {"txtSTO_ReidVP", "Reid Vapor Pressure (psia):", "Reid Vapor Pressure", "REID_VP", "5.5", "5.5"},
    {"txtSTO_TankVaporWeightPercentVOC", "Average Percent by Weight of VOCs in Tank Vapor (%):",
     "Avg Percent by Wt VOCs", "TANK_VAPWGT_PVOC", "6.5", "6.5"},
    {"txtSTO_TankVOCMolWeight", "Average Molecular Weight of VOCs in Tank Vapor (lb/lb-mol):", "Avg Molecular Wt VOCs",
     "TANK_VOC_MOLEWGT", "7.5", "7.5"},
};

const Field kDescription[] = {
    {"cmbSTO_TankShape", "Tank Shape:", "Tank Shape", "TANK_SHAPE", "Rectangular", "R"},
    {"cmbSTO_TankOrientation", "Tank Orientation:", "Tank Orientation", "TANK_ORIENTATION", "Vertical", "V"},
    {"txtSTO_TankShellDiam", "Tank Shell Diameter (ft):", "Tank Shell Diameter", "TANK_SHELL_DIAM", "10.5", "10.5"},
    {"txtSTO_TankShellHgt", "Tank Shell Height (ft):", "Tank Shell Height", "TANK_SHELL_HGT", "11.5", "11.5"},
    {"txtSTO_TankShellLength", "Tank Shell Length (ft):", "Tank Shell Length", "TANK_SHELL_LENGTH", "12.5", "12.5"},
    {"txtSTO_TankShellWidth1", "Tank Shell Width (ft):", "Tank Shell Width", "TANK_SHELL_WIDTH1", "13.5", "13.5"},
    {"txtSTO_TankShellWidth2", "2nd Tank Shell Width (ft):", "2nd Tank Shell Width", "TANK_SHELL_WIDTH2", "14.5",
     "14.5"},
    {"cmbSTO_FixedRoof", "Is the roof fixed (not floating)?", "Fixed (not floating)?", "FIXED_ROOF", "Yes", "True"},
    {"cmbSTO_TankRoofType", "Roof Shape:", "Roof Shape", "TANK_ROOF_TYP", "Peaked", "P"},
    {"txtSTO_TankRoofHgt", "Roof Height Above Shell (ft):", "Roof Height", "TANK_ROOF_HGT", "17.5", "17.5"},
    {"cmbSTO_TankPaintColor", "Paint Color:", "Paint Color", "TANK_PAINT_COLOR", "Grey/Med", "GM"},
    {"cmbSTO_TankPaintCondition", "Paint Condition:", "Paint Condition", "TANK_PAINT_CND", "Poor", "P"},
    {"txtSTO_BreatherVentPressure", "Breather Vent Pressure Setting (psig):", "Breather Vent Pressure",
     "BREATH_VEN_PRES", "20.5", "20.5"},
    {"txtSTO_BreatherVentVacuum", "Breather Vent Vacuum Setting (psig):", "Breather Vent Vacuum", "BREATH_VEN_VAC",
     "21.5", "21.5"},
    {"cmbSTO_ProductType", "Product Type:", "Product Type", "PROD_TYP", "Condensate", "CO"},
    {"cboEquippedWithFlashTank", "Equipped with a flash tank?", "Equipped with flash tank",
     "IS_EQUIPPED_WITH_FLASH_TANK", "Yes", "Yes"},
    {"cmbSTO_GasesVentOrFlare", "Emissions Destination", "Emissions Destination", "EMIS_DEST", "Flared Locally", "FL"},
    {"txtSTO_ExhaustOutletHgt", "Outlet Height (ft above msl):", "Ventilation Outlet Height", "EXH_OUT_HGT", "25.5",
     "25.5"},
    {"txtSTO_ExhaustOutletInnerDiam", "Outlet Inner Diameter (in):", "Ventilation Outlet Inner Diameter",
     "EXH_OUT_INNER_DIAM", "26.5", "26.5"},
    {"txtSTO_ExhaustOutletExitVel", "Exit Velocity (ft/s):", "Ventilation Exit Velocity", "EXH_OUT_EXIT_VEL", "27.5",
     "27.5"},
    {"txtSTO_ExhaustOutletExitT", "Exit Temperature (°F):", "Ventilation Exit Temperature", "EXH_OUT_EXIT_TEMP", "28.5",
     "28.5"},
    {"txtSTO_ExhaustOutletAngle", "Outlet Orientation (degrees):", "Ventilation Outlet Orientation", "EXH_OUT_ANGLE",
     "29.5", "29.5"},
    {"txtSTO_FlareFeedRate", "Flare Feed Rate (scf/hr):", "Flare Feed Rate", "FLA_FEED_RATE", "30.5", "30.5"},
    {"txtSTO_FlareCombustionT", "Combustion Temperature (°F):", "Combustion Temperature", "FLA_COMBUST_TEMP", "31.5",
     "31.5"},
    {"txtSTO_FlareEfficiency", "Combustion Efficiency (%):", "Combustion Efficiency", "FLA_EFFIC", "32.5", "32.5"},
    {"cmbSTO_ControlTechnology", "Installed Control Equipment:", "Installed Control Equipment", "CTRL_TECH",
     "Vapor Recovery and/or Condenser (VR/C)", "VR/C"},
    {"txtSTO_CondenserP", "Condenser Pressure (psia):", "Condenser Pressure", "CONDENSER_PRES", "34.5", "34.5"},
    {"txtSTO_CondenserT", "Condenser Temperature (°F):", "Condenser Temperature", "CONDENSER_TEMP", "35.5", "35.5"},
    {"cmbSTO_OtherControlDevice", "Other Control Device (Y/N):", "Other Control Device", "OTH_CTRL_DEVICE", "Yes",
     "True"},
    {"txtSTO_OtherControlDesc", "Description:", "Other Control Device Descript.", "OTH_CTRL_DESC", "a scrubber",
     "a scrubber"},
    {"txtSTO_OtherControlEffVOC", "VOC Efficiency (%):", "VOC Efficiency", "OTH_CTRL_EFFIC_VOC", "38.5", "38.5"},
};

// The five dimensions in the order diameter, height, length, width, second width.
struct Dimension {
  const char *control, *tag, *column;
};
const Dimension kDimensions[] = {{"txtSTO_TankShellDiam", "Tank Shell Diameter", "TANK_SHELL_DIAM"},
                                 {"txtSTO_TankShellHgt", "Tank Shell Height", "TANK_SHELL_HGT"},
                                 {"txtSTO_TankShellLength", "Tank Shell Length", "TANK_SHELL_LENGTH"},
                                 {"txtSTO_TankShellWidth1", "Tank Shell Width", "TANK_SHELL_WIDTH1"},
                                 {"txtSTO_TankShellWidth2", "2nd Tank Shell Width", "TANK_SHELL_WIDTH2"}};

// Which of the five there are, as five characters: a letter for yes, a point for no.
struct Geometry {
  const char *shape, *orientation;
  const char *on_screen, *in_rules, *in_row;
};
const Geometry kGeometries[] = {
    {"Cylindrical", "Vertical", "DH...", "DH...", "DH..."},
    {"Rectangular", "Vertical", ".H.W2", ".H.W2", ".H.W2"},
    {"Cylindrical", "Horizontal", "D.L..", "D.L..", "D.L.."},
    {"Rectangular", "Horizontal", ".HLW.", ".HLW.", ".HLW."},
    {"", "", ".....", ".....", "...W."},
    {"", "Vertical", ".....", ".....", "...W2"},
    {"", "Horizontal", ".....", "..L..", "..LW."},
    {"Cylindrical", "", ".....", "D....", "D...."},
    {"Rectangular", "", ".....", ".H.W.", ".H.W."},
};

inline std::string StoredText(TestRun& run, const std::string& column, const std::string& table = "ED_STO") {
  return NullToEmpty(run.Sql("SELECT " + column + " FROM " + table));
}

inline void SelectAgain(TestRun& run) {
  run.Select(run.Key());
  run.Select(run.Key("STO", "T1"));
}

// Shape and orientation as they are stored, with no field typed into.
inline void Shape(TestRun& run, const Geometry& geometry, const std::string& dimensions) {
  const auto code = [](const char* text) {
    return *text == '\0' ? std::string("NULL") : "'" + std::string(1, *text) + "'";
  };
  std::string set =
      "UPDATE ED_STO SET TANK_SHAPE=" + code(geometry.shape) + ", TANK_ORIENTATION=" + code(geometry.orientation);
  for (const Dimension& dimension : kDimensions) set += std::string(", ") + dimension.column + "=" + dimensions;
  run.s.db.Execute(set);
  SelectAgain(run);
  ASSERT_EQ(run.Text(kShape), geometry.shape);
  ASSERT_EQ(run.Text(kOrientation), geometry.orientation);
}

inline std::string Words(const Geometry& geometry) {
  return std::string("\"") + geometry.shape + "\" \"" + geometry.orientation + "\"";
}

}  // namespace merlu::test::tank
