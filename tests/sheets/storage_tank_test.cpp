#include <gtest/gtest.h>

#include <algorithm>

#include "bounds.h"

namespace merlu::test {
namespace {

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

std::string Stored(TestRun& run, const std::string& column, const std::string& table = "ED_STO") {
  return NullToEmpty(run.Sql("SELECT " + column + " FROM " + table));
}

void SelectAgain(TestRun& run) {
  run.Select(run.Key());
  run.Select(run.Key("STO", "T1"));
}

// Shape and orientation as they are stored, with no field typed into.
void Shape(TestRun& run, const Geometry& geometry, const std::string& dimensions) {
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

std::string Words(const Geometry& geometry) {
  return std::string("\"") + geometry.shape + "\" \"" + geometry.orientation + "\"";
}

// ---- what shows, and what is kept ----

TEST(StorageTank, keeps_an_answer_about_the_flash_tank_that_is_no_item_of_its_list) {
  TestRun run;
  run.StartWith("STO", "S1");
  run.s.db.Execute("UPDATE ED_STO SET IS_EQUIPPED_WITH_FLASH_TANK='Unknown'");
  run.Select(run.Key());
  run.Select(run.Key("STO", "S1"));
  EXPECT_EQ(run.Text("cboEquippedWithFlashTank"), "Unknown");
  EXPECT_EQ(run.At("cboEquippedWithFlashTank").index, -1);
  run.Keep({});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT IS_EQUIPPED_WITH_FLASH_TANK FROM ED_STO")), "Unknown");
  run.Keep({{"cboEquippedWithFlashTank", "No"}});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT IS_EQUIPPED_WITH_FLASH_TANK FROM ED_STO")), "No");
}

TEST(StorageTank, shows_its_pages_and_titles) {
  TestRun run;
  run.StartWith("STO", "T1");
  EXPECT_EQ(run.At("tabSTO").items, (Texts{"General Info.", "Ventilation System", "Control Equipment", "QC Results"}));
  EXPECT_EQ(run.At("tabSTO").page_available, (std::vector<bool>{true, true, true, true}));
  EXPECT_EQ(run.At("fraSTO").caption, "Storage Tank");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraSTO").caption, "Storage Tank - EDIT DATA");
  run.Click("cmdCANCEL");
  for (const Field& field : kMonth) EXPECT_FALSE(run.At(field.control).visible) << field.control;
  run.GoTo("STO", "T1", Mode::kActv);
  EXPECT_EQ(run.At("tabSTO").page_available, (std::vector<bool>{true, false, false, true}));
  for (const Field& field : kMonth) EXPECT_TRUE(run.At(field.control).visible) << field.control;
}

TEST(StorageTank, shows_every_field_with_its_caption_and_lists_it_under_its_name) {
  TestRun run;
  run.StartWith("STO", "T1");
  const auto expect = [&](const Field& field) {
    EXPECT_EQ(run.At(field.control).caption, field.caption) << field.control;
    EXPECT_EQ(run.At(field.control).tag, field.tag) << field.control;
  };
  for (const Field& field : kMonth) expect(field);
  for (const Field& field : kDescription) expect(field);
  expect({"cmbSTO_VentedToID", "Remote Vent/Flare ID:", "Low Pressure Vent/Flare ID"});
  EXPECT_EQ(run.At("txtSTO_Comments").tag, "Comments");
}

TEST(StorageTank, keeps_every_field_of_the_description_in_its_column) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  const Texts elsewhere = {"txtSTO_ExhaustOutletExitT", "txtSTO_TankShellDiam", "txtSTO_TankShellLength"};
  const auto is_elsewhere = [&](const Field& field) {
    return std::find(elsewhere.begin(), elsewhere.end(), field.control) != elsewhere.end();
  };
  for (const Field& field : kDescription)
    if (field.control == elsewhere[0]) run.Put({{kDestination, "Vented Locally"}, {field.control, field.text}});
  for (const Field& field : kDescription)
    if (!is_elsewhere(field)) run.Set(field.control, field.text);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  SelectAgain(run);
  for (const Field& field : kDescription) {
    const bool lacking = is_elsewhere(field) && field.control != elsewhere[0];  // a standing box has neither
    EXPECT_EQ(Stored(run, field.column), lacking ? "" : field.stored) << field.control;
    EXPECT_EQ(run.Text(field.control), lacking ? "" : field.text) << field.control;
  }
  run.Click("cmdEdit");
  run.Put({{kShape, "Cylindrical"},
           {kOrientation, "Horizontal"},
           {"txtSTO_TankShellDiam", "21.5"},
           {"txtSTO_TankShellLength", "22.5"}});
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Stored(run, "TANK_SHELL_DIAM"), "21.5");
  EXPECT_EQ(Stored(run, "TANK_SHELL_LENGTH"), "22.5");
}

TEST(StorageTank, keeps_every_field_of_a_month_in_its_column) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.GoTo("STO", "T1", Mode::kActv);
  Values typed;
  for (const Field& field : kMonth) typed.emplace_back(field.control, field.text);
  run.Keep(typed);
  for (const Field& field : kMonth) {
    EXPECT_EQ(Stored(run, field.column, "EA_STO"), field.stored) << field.control;
    EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  }
}

TEST(StorageTank, keeps_each_item_of_its_lists_as_its_code_or_its_text) {
  struct {
    const char *list, *column;
    Values items;
  } const lists[] = {
      {kShape, "TANK_SHAPE", {{"Cylindrical", "C"}, {"Rectangular", "R"}}},
      {kOrientation, "TANK_ORIENTATION", {{"Vertical", "V"}, {"Horizontal", "H"}}},
      {"cmbSTO_TankRoofType", "TANK_ROOF_TYP", {{"Cone", "C"}, {"Dome", "D"}, {"Flat", "F"}, {"Peaked", "P"}}},
      {"cmbSTO_TankPaintColor",
       "TANK_PAINT_COLOR",
       {{"Aluminum/Specular", "AS"},
        {"Aluminum/Diffuse", "AD"},
        {"Grey/Light", "GL"},
        {"Grey/Med", "GM"},
        {"Red/Primer", "RP"},
        {"White/NA", "WN"}}},
      {"cmbSTO_TankPaintCondition", "TANK_PAINT_CND", {{"Good", "G"}, {"Poor", "P"}}},
      {"cmbSTO_ProductType", "PROD_TYP", {{"Crude", "CR"}, {"Condensate", "CO"}}},
      {kTechnology, "CTRL_TECH", {{kCondenser, "VR/C"}, {"None", "NONE"}}},
      {"cmbSTO_FixedRoof", "FIXED_ROOF", {{"Yes", "True"}, {"No", "False"}}},
      {"cmbSTO_OtherControlDevice", "OTH_CTRL_DEVICE", {{"Yes", "True"}, {"No", "False"}}},
      {"cboEquippedWithFlashTank", "IS_EQUIPPED_WITH_FLASH_TANK", {{"No", "No"}, {"Yes", "Yes"}}},
  };
  TestRun run;
  run.StartWith("STO", "T1");
  for (const auto& list : lists) {
    EXPECT_EQ(Stored(run, list.column), "") << list.column;
    Texts items;
    for (const auto& [item, code] : list.items) {
      run.Keep({{list.list, item}});
      EXPECT_EQ(Stored(run, list.column), code) << item;
      SelectAgain(run);
      EXPECT_EQ(run.Text(list.list), item);
      EXPECT_EQ(run.At(list.list).index, static_cast<int>(items.size())) << item;
      items.push_back(item);
    }
    EXPECT_EQ(run.At(list.list).items, items);
  }
}

// ---- geometry ----

TEST(StorageTank, offers_the_dimensions_of_its_shape_and_orientation) {
  TestRun run;
  run.StartWith("STO", "T1");
  const auto expect = [&](const Geometry& geometry, const char* when) {
    for (int i = 0; i < 5; ++i) {
      const Control& field = run.At(kDimensions[i].control);
      const bool on = geometry.on_screen[i] != '.';
      EXPECT_EQ(field.enabled, on) << field.name << " of " << Words(geometry) << " " << when;
      EXPECT_EQ(field.back, on ? Back::kWindow : Back::kFace) << field.name << " of " << Words(geometry) << " " << when;
    }
  };
  for (const Geometry& geometry : kGeometries) {
    Shape(run, geometry, "NULL");
    run.Click("cmdEdit");
    expect(geometry, "opened");
    for (const Geometry& other : kGeometries) {
      if (*other.shape == '\0' || *other.orientation == '\0') continue;  // a list is never chosen blank again
      run.Put({{kShape, other.shape}, {kOrientation, other.orientation}});
      expect(other, "clicked");
    }
    run.Click("cmdCANCEL");
  }
}

TEST(StorageTank, offers_no_dimension_before_both_lists_are_chosen) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  run.Set(kShape, "Rectangular");
  for (const Dimension& dimension : kDimensions) EXPECT_FALSE(run.At(dimension.control).enabled) << dimension.control;
  run.Set(kOrientation, "Vertical");
  EXPECT_TRUE(run.At("txtSTO_TankShellHgt").enabled);
}

TEST(StorageTank, asks_for_the_dimensions_of_its_shape_and_orientation) {
  TestRun run;
  run.StartWith("STO", "T1");
  for (int round = 0; round < 2; ++round)
    for (const Geometry& geometry : kGeometries) {
      Shape(run, geometry, "NULL");
      run.Click("cmdQC");
      for (int i = 0; i < 5; ++i)
        EXPECT_EQ(run.Finding(kDimensions[i].tag), geometry.in_rules[i] != '.' ? kBlankFinding : "")
            << kDimensions[i].tag << " of " << Words(geometry);
    }
}

TEST(StorageTank, stores_the_dimensions_of_its_shape_and_orientation_and_drops_the_others) {
  TestRun run;
  run.StartWith("STO", "T1");
  for (const Geometry& geometry : kGeometries) {
    Shape(run, geometry, "12.5");
    run.Keep({});
    for (int i = 0; i < 5; ++i)
      EXPECT_EQ(Stored(run, kDimensions[i].column), geometry.in_row[i] != '.' ? "12.5" : "")
          << kDimensions[i].column << " of " << Words(geometry);
  }
}

TEST(StorageTank, laid_down_as_a_box_keeps_its_diameter_on_the_screen_until_the_save) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Keep({{kShape, "Cylindrical"},
            {kOrientation, "Vertical"},
            {"txtSTO_TankShellDiam", "20"},
            {"txtSTO_TankShellHgt", "30"}});
  EXPECT_EQ(Stored(run, "TANK_SHELL_DIAM"), "20");
  run.Click("cmdEdit");
  run.Put({{kShape, "Rectangular"}, {kOrientation, "Horizontal"}});
  EXPECT_EQ(run.Text("txtSTO_TankShellDiam"), "20");
  EXPECT_FALSE(run.At("txtSTO_TankShellDiam").enabled);
  EXPECT_EQ(run.WhyNotSet("txtSTO_TankShellDiam"), "is disabled");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsNull(run.Sql("SELECT TANK_SHELL_DIAM FROM ED_STO")));
  EXPECT_EQ(run.Text("txtSTO_TankShellDiam"), "");
  EXPECT_EQ(Stored(run, "TANK_SHELL_HGT"), "30");
}

// ---- bounds ----

TEST(StorageTank, standing_round_is_held_to_the_bounds_of_diameter_and_height) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kShape, "Cylindrical"}, {kOrientation, "Vertical"}},
             .required = {{"txtSTO_TankShellDiam", "Tank Shell Diameter", 0, 50},
                          {"txtSTO_TankShellHgt", "Tank Shell Height", 2, 50}}});
}

TEST(StorageTank, standing_square_is_held_to_the_bounds_of_height_and_widths) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kShape, "Rectangular"}, {kOrientation, "Vertical"}},
             .required = {{"txtSTO_TankShellHgt", "Tank Shell Height", 2, 50},
                          {"txtSTO_TankShellWidth1", "Tank Shell Width", 2, 50},
                          {"txtSTO_TankShellWidth2", "2nd Tank Shell Width", 2, 50}}});
}

TEST(StorageTank, lying_round_is_held_to_the_bounds_of_diameter_and_length) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kShape, "Cylindrical"}, {kOrientation, "Horizontal"}},
             .required = {{"txtSTO_TankShellDiam", "Tank Shell Diameter", 0, 50},
                          {"txtSTO_TankShellLength", "Tank Shell Length", 2, 50}}});
}

TEST(StorageTank, lying_square_is_held_to_the_bounds_of_height_length_and_width) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kShape, "Rectangular"}, {kOrientation, "Horizontal"}},
             .required = {{"txtSTO_TankShellHgt", "Tank Shell Height", 2, 50},
                          {"txtSTO_TankShellLength", "Tank Shell Length", 2, 50},
                          {"txtSTO_TankShellWidth1", "Tank Shell Width", 2, 50}}});
}

TEST(StorageTank, is_held_to_the_bounds_of_roof_and_breather_vent) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{"cmbSTO_FixedRoof", "Yes"}},
             .required = {{"txtSTO_TankRoofHgt", "Roof Height", 0, 20},
                          {"txtSTO_BreatherVentPressure", "Breather Vent Pressure", 0.01, 5},
                          {"txtSTO_BreatherVentVacuum", "Breather Vent Vacuum", -5, -0.01}}});
}

TEST(StorageTank, flared_locally_is_held_to_the_bounds_of_outlet_flare_and_device) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Flared Locally"}, {"cmbSTO_OtherControlDevice", "Yes"}},
             .required = {{"txtSTO_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtSTO_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 36},
                          {"txtSTO_ExhaustOutletExitVel", "Ventilation Exit Velocity", 0, 1100},
                          {"txtSTO_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtSTO_FlareFeedRate", "Flare Feed Rate", 0, 10000},
                          {"txtSTO_FlareCombustionT", "Combustion Temperature", 1400, 2000},
                          {"txtSTO_FlareEfficiency", "Combustion Efficiency", 50, 99.9}},
             .if_filled = {{"txtSTO_OtherControlEffVOC", "VOC Efficiency", 0, 99.9}}});
}

TEST(StorageTank, vented_locally_is_held_to_the_bounds_of_the_outlet) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Vented Locally"}},
             .required = {{"txtSTO_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtSTO_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 36},
                          {"txtSTO_ExhaustOutletExitVel", "Ventilation Exit Velocity", 0, 1100},
                          {"txtSTO_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtSTO_ExhaustOutletExitT", "Ventilation Exit Temperature", 50, 1100}}});
}

TEST(StorageTank, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "STO",
             .mode = Mode::kActv,
             .description = {{kShape, "Cylindrical"}, {kOrientation, "Vertical"}, {"txtSTO_TankShellHgt", "50"}},
             .required = {{kLiquid, "Avg Liquid Height", 1, 50},
                          {"txtSTO_TankBulkLiqT", "Bulk Liquid Temp", 50, 150},
                          {"txtSTO_APIGravity", "API Gravity", 1, 75},
                          {"txtSTO_ReidVP", "Reid Vapor Pressure", 0.5, 20},
                          {kThroughput, "Product Throughput", 0, 5000000},
                          {"txtSTO_TankVOCMolWeight", "Avg Molecular Wt VOCs", 0, 200},
                          {"txtSTO_TankVaporWeightPercentVOC", "Avg Percent by Wt VOCs", 0, 98}}});
}

TEST(StorageTank, needs_a_vacuum_setting_below_zero) {
  TestRun run;
  run.StartWith("STO", "T1");
  for (const auto& [vacuum, finding] :
       Values{{"-0.01", ""}, {"-5", ""}, {"0", "Value not in expected range (-5 to -0.01)"}}) {
    run.Keep({{"txtSTO_BreatherVentVacuum", vacuum}});
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Breather Vent Vacuum"), finding) << vacuum;
  }
}

// ---- blank records ----

TEST(StorageTank, blank_in_a_month_lacks_these_in_their_order) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.GoTo("STO", "T1", Mode::kActv);
  run.Click("cmdQC");
  Found expected;
  for (const char* tag : {"Avg Liquid Height", "Bulk Liquid Temp", "API Gravity", "Reid Vapor Pressure",
                          "Product Throughput", "Avg Molecular Wt VOCs", "Avg Percent by Wt VOCs"})
    expected.emplace_back(tag, kBlankFinding);
  EXPECT_EQ(run.Findings(), expected);
}

TEST(StorageTank, blank_in_its_description_lacks_these_in_their_order) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  const auto findings = [&](std::initializer_list<const char*> tags) {
    run.s.db.Execute("DELETE FROM QC");
    run.Click("cmdQC");
    Found expected;
    for (const char* tag : tags) expected.emplace_back(tag, kBlankFinding);
    EXPECT_EQ(run.Findings(), expected);
  };
  findings({"Tank Shape", "Tank Orientation", "Fixed (not floating)?", "Roof Shape", "Paint Color", "Paint Condition",
            "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type", "Emissions Destination",
            "Installed Control Equipment"});
  run.Put({{kShape, "Rectangular"},
           {kOrientation, "Vertical"},
           {"cmbSTO_FixedRoof", "Yes"},
           {kDestination, "Vented Locally"},
           {kTechnology, kCondenser},
           {"cmbSTO_OtherControlDevice", "Yes"}});
  findings({"Tank Shell Height", "Tank Shell Width", "2nd Tank Shell Width", "Roof Shape", "Roof Height", "Paint Color",
            "Paint Condition", "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type",
            "Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Outlet Orientation", "Ventilation Exit Temperature", "Other Control Device Descript."});
  run.Put({{"cmbSTO_FixedRoof", "No"},
           {kDestination, "Flared Locally"},
           {kTechnology, "None"},
           {"cmbSTO_OtherControlDevice", "No"}});
  findings({"Tank Shell Height", "Tank Shell Width", "2nd Tank Shell Width", "Roof Shape", "Paint Color",
            "Paint Condition", "Breather Vent Pressure", "Breather Vent Vacuum", "Product Type",
            "Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Outlet Orientation", "Flare Feed Rate", "Combustion Temperature", "Combustion Efficiency"});
}

// ---- conditions ----

TEST(StorageTank, withdraws_the_findings_of_fields_that_no_longer_apply) {
  struct {
    const char *list, *with, *without;
    Texts tags;
  } const cases[] = {
      {"cmbSTO_FixedRoof", "Yes", "No", {"Roof Height"}},
      {"cmbSTO_OtherControlDevice", "Yes", "No", {"Other Control Device Descript."}},
      {kDestination, "Vented Locally", "Flared Locally", {"Ventilation Exit Temperature"}},
      {kDestination,
       "Flared Locally",
       "Vented Locally",
       {"Flare Feed Rate", "Combustion Temperature", "Combustion Efficiency"}},
      {kDestination,
       "Vented Locally",
       "Flared Remotely",
       {"Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
        "Ventilation Outlet Orientation"}},
  };
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  for (const auto& one : cases) {
    run.Set(one.list, one.with);
    run.Click("cmdQC");
    for (const std::string& tag : one.tags) EXPECT_EQ(run.Finding(tag), kBlankFinding) << tag;
    run.s.db.Execute("UPDATE QC SET Comments='known'");
    run.Set(one.list, one.without);
    run.Click("cmdQC");
    for (const std::string& tag : one.tags) EXPECT_EQ(run.Finding(tag), "") << tag;
  }
}

TEST(StorageTank, checks_no_condenser_and_withdraws_what_stands_on_one_that_is_not_installed) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  run.Put({{kTechnology, kCondenser}, {"txtSTO_CondenserT", "9999"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Condenser Temperature"), "");
  EXPECT_EQ(run.Finding("Condenser Pressure"), "");
  // findings of old runs
  run.s.db.Execute("UPDATE QC SET FieldID='Condenser Temperature' WHERE FieldID='Roof Shape'");
  run.s.db.Execute("UPDATE QC SET FieldID='Condenser Pressure' WHERE FieldID='Paint Color'");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Condenser Temperature"), kBlankFinding);
  EXPECT_EQ(run.Finding("Condenser Pressure"), kBlankFinding);
  run.Set(kTechnology, "None");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Condenser Temperature"), "");
  EXPECT_EQ(run.Finding("Condenser Pressure"), "");
}

TEST(StorageTank, without_another_control_device_keeps_its_efficiency_and_raises_nothing) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Keep({{"cmbSTO_OtherControlDevice", "Yes"}, {"txtSTO_OtherControlEffVOC", "100"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("VOC Efficiency"), RangeFinding(0, 99.9));
  run.Keep({{"cmbSTO_OtherControlDevice", "No"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("VOC Efficiency"), "");
  EXPECT_EQ(Stored(run, "OTH_CTRL_EFFIC_VOC"), "100");
}

TEST(StorageTank, turns_roof_condenser_and_other_device_on_and_off_and_keeps_their_texts) {
  struct {
    const char *list, *with, *without;
    Texts fields;
  } const cases[] = {
      {"cmbSTO_FixedRoof", "Yes", "No", {"txtSTO_TankRoofHgt"}},
      {kTechnology, kCondenser, "None", {"txtSTO_CondenserT", "txtSTO_CondenserP"}},
      {"cmbSTO_OtherControlDevice", "Yes", "No", {"txtSTO_OtherControlDesc", "txtSTO_OtherControlEffVOC"}}};
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  const auto expect = [&](const Texts& names, bool on, const std::string& when) {
    for (const std::string& name : names) {
      EXPECT_EQ(run.At(name).enabled, on) << name << " " << when;
      EXPECT_EQ(run.At(name).back, on ? Back::kWindow : Back::kFace) << name << " " << when;
    }
  };
  for (const auto& one : cases) {
    expect(one.fields, false, "blank");
    run.Set(one.list, one.with);
    expect(one.fields, true, one.with);
    for (const std::string& name : one.fields) run.Set(name, "7");
    run.Set(one.list, one.without);
    expect(one.fields, false, one.without);
    for (const std::string& name : one.fields) EXPECT_EQ(run.Text(name), "7") << name;
  }
  run.Click("cmdSaveEdits");
  for (const auto& one : cases) {
    expect(one.fields, false, std::string("opened with ") + one.without);
    for (const std::string& name : one.fields) EXPECT_EQ(run.Text(name), "7") << name << " after the save";
    run.Set(one.list, one.with);
  }
  run.Click("cmdSaveEdits");
  for (const auto& one : cases) expect(one.fields, true, std::string("opened with ") + one.with);
}

TEST(StorageTank, in_a_month_leaves_what_its_lists_turn_on_and_off_alone) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.GoTo("STO", "T1", Mode::kActv);
  run.Click("cmdEdit");
  for (const char* name : {"txtSTO_TankShellDiam", "txtSTO_TankRoofHgt", "txtSTO_ExhaustOutletHgt", "txtSTO_CondenserT",
                           "cmbSTO_VentedToID"}) {
    EXPECT_TRUE(run.At(name).enabled) << name;
    EXPECT_TRUE(run.At(name).locked) << name;
    EXPECT_EQ(run.At(name).back, Back::kFace) << name;
  }
}

TEST(StorageTank, depends_on_its_flash_tank_in_nothing) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdQC");
  const Found blank = run.Findings();
  run.Keep({{"cboEquippedWithFlashTank", "Yes"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), blank);
  EXPECT_EQ(run.Finding("Equipped with flash tank"), "");
}

// ---- the liquid's height ----

// Dimensions as stored, then the month of the tank in an edit.
void GoToMonthOf(TestRun& run, const char* shape, const char* orientation, const char* diameter, const char* height) {
  const auto code = [](const char* text) {
    return *text == '\0' ? std::string("NULL") : "'" + std::string(1, *text) + "'";
  };
  run.s.db.Execute("UPDATE ED_STO SET TANK_SHAPE=" + code(shape) + ", TANK_ORIENTATION=" + code(orientation) +
                   ", TANK_SHELL_DIAM=" + diameter + ", TANK_SHELL_HGT=" + height);
  run.GoTo("STO", "T1", Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Select(run.Key("STO", "T1", 1));
  run.Click("cmdEdit");
}

TEST(StorageTank, holds_its_liquid_to_the_height_or_when_it_lies_round_to_the_diameter) {
  struct {
    const char *shape, *orientation, *diameter, *height, *liquid, *finding;
  } const cases[] = {
      {"Cylindrical", "Vertical", "NULL", "30", "40", kOverHeight},
      {"Cylindrical", "Vertical", "20", "30", "30", ""},
      {"Cylindrical", "Vertical", "45", "30", "30.5", kOverHeight},
      {"Cylindrical", "Horizontal", "30", "NULL", "40", kOverDiameter},
      {"Cylindrical", "Horizontal", "30", "NULL", "30", ""},
      {"Cylindrical", "Horizontal", "NULL", "45", "2", kOverDiameter},
      {"Rectangular", "Vertical", "NULL", "30", "40", kOverHeight},
      {"Rectangular", "Horizontal", "NULL", "30", "40", kOverHeight},
      {"Rectangular", "Horizontal", "20", "30", "25", ""},
      {"Cylindrical", "", "30", "NULL", "2", kOverHeight},
      {"", "Horizontal", "30", "NULL", "2", kOverHeight},
      {"", "", "NULL", "NULL", "2", kOverHeight},
      {"Cylindrical", "Vertical", "30", "NULL", "", kBlankFinding},
      {"Cylindrical", "Vertical", "30", "30", "60", "Value not in expected range (1 to 50)"},
  };
  for (const auto& one : cases) {
    TestRun run;
    run.StartWith("STO", "T1");
    GoToMonthOf(run, one.shape, one.orientation, one.diameter, one.height);
    run.Set(kLiquid, one.liquid);
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Avg Liquid Height"), one.finding)
        << one.liquid << " in \"" << one.shape << "\" \"" << one.orientation << "\" " << one.diameter << " by "
        << one.height;
  }
}

TEST(StorageTank, is_overfull_without_looking_failed_while_the_height_is_in_its_range) {
  TestRun run;
  run.StartWith("STO", "T1");
  GoToMonthOf(run, "Cylindrical", "Vertical", "NULL", "30");
  run.Set(kLiquid, "60");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg Liquid Height"), "Value not in expected range (1 to 50)");
  EXPECT_EQ(run.At(kLiquid).back, Back::kFlag);
  run.Set(kLiquid, "40");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg Liquid Height"), kOverHeight);
  EXPECT_EQ(run.At(kLiquid).back, Back::kWindow);
  run.Set(kLiquid, "30");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg Liquid Height"), "");
}

TEST(StorageTank, forgets_what_explained_a_low_liquid_height_at_the_next_run) {
  TestRun run;
  run.StartWith("STO", "T1");
  GoToMonthOf(run, "Cylindrical", "Vertical", "NULL", "30");
  run.Set(kLiquid, "0.5");
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='being emptied'");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg Liquid Height"), "Value not in expected range (1 to 50)");
  EXPECT_EQ(run.Count("QC WHERE FieldID='Avg Liquid Height' AND Comments=''"), 1);
  EXPECT_EQ(run.Count("QC WHERE FieldID='API Gravity' AND Comments='being emptied'"), 1) << "as other fields do not";
}

// ---- the structure's throughput ----

TEST(StorageTank, may_not_pass_more_than_its_structure) {
  struct {
    const char *total, *throughput, *finding;
  } const cases[] = {{"NULL", "10", ""},
                     {"0", "10", ""},
                     {"0.4", "10", ""},
                     {"0.6", "10", kExceeds},
                     {"10", "10", ""},
                     {"10", "10.5", kExceeds},
                     {"100", "5000001", kExceeds},
                     {"6000000", "5000001", "Value not in expected range (0 to 5000000)"},
                     {"10", "", kBlankFinding},
                     {"10", "9.5", ""},
                     {"4000000", "4000000.1", ""},  // the same in single precision
                     {"4000000", "4000000.5", kExceeds}};
  TestRun run;
  run.StartWith("STO", "T1");
  run.GoTo("STO", "T1", Mode::kActv);
  run.Click("cmdEdit");
  for (const auto& one : cases) {
    run.s.db.Execute(std::string("UPDATE PA_PLATFORM_ACTV SET THRU_OIL=") + one.total);
    run.Set(kThroughput, one.throughput);
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Product Throughput"), one.finding) << one.throughput << " of " << one.total;
  }
}

// ---- colours ----

TEST(StorageTank, looks_passed_again_once_a_required_field_is_filled) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Click("cmdEdit");
  run.Set("cmbSTO_OtherControlDevice", "Yes");
  run.Click("cmdQC");
  const Values choices = {{kShape, "Cylindrical"},
                          {kOrientation, "Vertical"},
                          {"cmbSTO_FixedRoof", "No"},
                          {"cmbSTO_TankRoofType", "Flat"},
                          {"cmbSTO_TankPaintColor", "White/NA"},
                          {"cmbSTO_TankPaintCondition", "Good"},
                          {"cmbSTO_ProductType", "Crude"},
                          {kTechnology, "None"},
                          {"txtSTO_OtherControlDesc", "scrubber"}};
  for (const auto& [name, text] : choices) EXPECT_EQ(run.At(name).back, Back::kFlag) << name;
  run.Put(choices);
  run.Click("cmdQC");
  for (const auto& [name, text] : choices) EXPECT_EQ(run.At(name).back, Back::kWindow) << name;
}

}  // namespace
}  // namespace merlu::test
