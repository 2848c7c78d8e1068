#include "inventory_qc/checks_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "inventory_qc/inventory_run.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using enum InventoryCheck;
using enum Applies;
using Texts = std::vector<std::string>;

constexpr const char* kBlank = "Required field left blank";

// Every line a second time, by hand.
// clang-format off
const std::vector<InventoryRow> kLines = {
    {"USER", "Contact", "Contact", "CO_COMPANY", "Name of MERLU user"},
    {"USER", "Phone", "Phone", "CO_COMPANY", "Phone number of MERLU user"},
    {"USER", "CO_NAME", "CO_NAME", "CO_COMPANY", "Company name"},
    {"STRUCTURE", "Area", "Area", "PD_PLATFORM_DESC", "Area"},
    {"STRUCTURE", "Block", "Block", "PD_PLATFORM_DESC", "Block"},
    {"STRUCTURE", "Name", "Name", "PD_PLATFORM_DESC", "Name"},
    {"STRUCTURE", "Latitude", "LATITUDE", "PD_PLATFORM_DESC", "Latitude"},
    {"STRUCTURE", "Longitude", "LONGITUDE", "PD_PLATFORM_DESC", "Longitude"},
    {"STRUCTURE", "DIST_TO_SHORE", "DIST_TO_SHORE", "PD_PLATFORM_DESC", "Distance to shore"},
    {"STRUCTURE", "Prod_NG", "PROD_NG", "PA_PLATFORM_ACTV", "Gas production (MMscf)"},
    {"STRUCTURE", "Prod_Oil", "PROD_OIL", "PA_PLATFORM_ACTV", "Crude oil production (barrels)"},
    {"STRUCTURE", "SalesGasComposition", "", "PD_PLATFORM_DESC",
     "Sales composition (mole% for all listed components)", kSalesGas},
    {"AMI", "TOT_GAS_THRUPUT", "TOT_GAS_THRUPUT", "EA_AMI", "Processed throughput(MMscf)"},
    {"AMI", "OP_HR", "OP_HR", "EA_AMI", "Hours operated"},
    {"AMI", "Conc_NGH2S", "Conc_NGH2S", "ED_AMI", "Unprocessed natural gas concentrations (% by vol): H2S"},
    {"AMI", "Conc_Methane", "Conc_Methane", "ED_AMI", "Unprocessed natural gas concentrations (% by vol): Methane"},
    {"AMI", "Conc_Ethane", "Conc_Ethane", "ED_AMI", "Unprocessed natural gas concentrations (% by vol): Ethane"},
    {"AMI", "Conc_C3HC", "Conc_C3HC", "ED_AMI", "Unprocessed natural gas concentrations (% by vol): C3 hydrocarbons"},
    {"AMI", "Conc_C4HC", "Conc_C4HC", "ED_AMI", "Unprocessed gatural gas concentrations (% by vol): C4 hydrocarbons"},
    {"AMI", "Conc_C5HC", "Conc_C5HC", "ED_AMI", "Unprocessed natural gas concentrations (% by vol): C5 hydrocarbons"},
    {"AMI", "Conc_C6HC", "Conc_C6HC", "ED_AMI", "Unprocessed natural gas concentrations (% by vol): C6 hydrocarbons"},
    {"AMI", "Conc_C7HC", "Conc_C7HC", "ED_AMI", "Unprocessed natural gas concentrations (% by vol): C7 hydrocarbons"},
    {"AMI", "Conc_C8plus_HC", "Conc_C8plus_HC", "ED_AMI",
     "Unprocessed natural gas concentrations (% by vol): C8+ hydrocarbons"},
    {"AMI", "Emis_H2S", "Emis_H2S", "ED_AMI",
     "Quantity emitted when uncontrolled (%): H2S", kRequired, kWithoutModelInputs},
    {"AMI", "Emis_Methane", "Emis_Methane", "ED_AMI",
     "Quantity emitted when uncontrolled (%): Methane", kRequired, kWithoutModelInputs},
    {"AMI", "Emis_Ethane", "Emis_Ethane", "ED_AMI",
     "Quantity emitted when uncontrolled (%): Ethane", kRequired, kWithoutModelInputs},
    {"AMI", "Emis_C3HC", "Emis_C3HC", "ED_AMI",
     "Quantity emitted when uncontrolled (%): C3 hydrocarbons", kRequired, kWithoutModelInputs},
    {"AMI", "Emis_C4HC", "Emis_C4HC", "ED_AMI",
     "Quantity emitted when uncontrolled (%): C4 hydrocarbons", kRequired, kWithoutModelInputs},
    {"AMI", "Emis_C5HC", "Emis_C5HC", "ED_AMI",
     "Quantity emitted when uncontrolled (%): C5 hydrocarbons", kRequired, kWithoutModelInputs},
    {"AMI", "Emis_C6HC", "Emis_C6HC", "ED_AMI",
     "Quantity emitted when uncontrolled (%): C6 hydrocarbons", kRequired, kWithoutModelInputs},
    {"AMI", "Emis_C7HC", "Emis_C7HC", "ED_AMI",
     "Quantity emitted when uncontrolled (%): C7 hydrocarbons", kRequired, kWithoutModelInputs},
    {"AMI", "Emis_C8plus_HC", "Emis_C8plus_HC", "ED_AMI",
     "Quantity emitted when uncontrolled (%): C8+ hydrocarbons", kRequired, kWithoutModelInputs},
    {"AMI", "Amine_Typ", "AMINE_TYP", "ED_AMI", "Amine type", kRequired, kWithModelInputs},
    {"AMI", "FLASHTANK_FLG", "FLASHTANK_FLG", "ED_AMI",
     "Equipped with a flash tank (y/n)", kRequired, kWithModelInputs},
    {"AMI", "Disposition", "Disposition", "ED_AMI", "Disposition of flash gas", kNothing, kWithModelInputs},
    {"AMI", "EMIS_DEST", "EMIS_DEST", "ED_AMI", "Gases vented or flared"},
    {"BOI", "Fuel_Typ", "FUEL_TYP", "ED_BOI", "Fuel type"},
    {"BOI", "MAX_RATED_HI_RATE", "MAX_RATED_HI_RATE", "ED_BOI", "Max rated heat input"},
    {"BOI", "OP_HR", "OP_HR", "EA_BOI", "Hours operated"},
    {"BOI", "HEAT_INPUT_RATE", "HEAT_INPUT_RATE", "ED_BOI", "Average heat input"},
    {"BOI", "OTH_CTRL_DEVICE", "OTH_CTRL_DEVICE", "ED_BOI", "Control device identified", kDevice},
    {"DIE", "FUEL_TYP", "FUEL_TYP", "ED_DIE", "Fuel type"},
    {"DIE", "Max_HP", "MAX_HP", "ED_DIE", "Maximum rated horsepower"},
    {"DIE", "OP_HR", "OP_HR", "EA_DIE", "Hours operated"},
    {"DIE", "OP_HP", "OP_HP", "ED_DIE", "Operating horsepower"},
    {"DIE", "MAX_RATED_FUEL_USE", "MAX_RATED_FUEL_USE", "ED_DIE", "Max rated fuel usage"},
    {"DIE", "FUEL_USE_RATE", "FUEL_USE_RATE", "ED_DIE", "Average fuel usage"},
    {"DIE", "OTH_CTRL_DEVICE", "OTH_CTRL_DEVICE", "ED_DIE", "Control device identified", kDevice},
    {"FLA", "Vol_Flared", "VOL_FLARED", "EA_FLA", "Volume flared (Mscf) reported for continuous flaring"},
    {"FLA", "CTRL_FLA_PILOT_FLG", "CTRL_FLA_PILOT_FLG", "ED_FLA", "Continuous pilot"},
    {"FLA", "PILOT_FUEL_FEED_RATE", "PILOT_FUEL_FEED_RATE", "ED_FLA",
     "Pilot fuel feed rate (Mscfd)", kRequired, kWithoutPilotAnswer},
    {"GLY", "TOT_GAS_THRUPUT", "TOT_GAS_THRUPUT", "EA_GLY", "Processed throughput (MMscf)"},
    {"GLY", "FLASH_TANK_FLG", "FLASH_TANK_FLG", "ED_GLY", "Equipped with a flash tank (y/n)"},
    {"GLY", "Disposition", "Disposition", "ED_GLY", "Disposition of flash gas"},
    {"DRI", "HrsOperated", "OP_HR", "EA_DRI", "Hours operated"},
    {"DRI", "DIESEL_USE", "DIESEL_USE", "EA_DRI", "Total diesel fuel usage (gals)"},
    {"DRI", "GASOLINE_USE", "GASOLINE_USE", "EA_DRI", "Total gasoline fuel usage (gals)"},
    {"DRI", "NG_USE", "NG_USE", "EA_DRI", "Total natural gas fuel usage (Mscf)"},
    {"MUD", "DAYS_PER_MO", "DAYS_PER_MO", "EA_MUD", "Days drilling with mud"},
    {"MUD", "Mud_Typ", "Mud_Typ", "ED_MUD", "Mud type (water-based, synthetic, oil-based)"},
    {"NGE", "ENGINE_STROKE_CYCLE", "ENGINE_STROKE_CYCLE", "ED_NGE", "Engine stroke"},
    {"NGE", "ENGINE_BURN_TYP", "ENGINE_BURN_TYP", "ED_NGE", "Engine burn"},
    {"NGE", "OP_HR", "OP_HR", "EA_NGE", "Hours operated"},
    {"NGE", "OP_HP", "OP_HP", "ED_NGE", "Operating horsepower"},
    {"NGE", "MAX_RATED_FUEL_USE", "MAX_RATED_FUEL_USE", "ED_NGE", "Max rated fuel usage"},
    {"NGE", "FUEL_USE_RATE", "FUEL_USE_RATE", "ED_NGE", "Average fuel usage"},
    {"NGE", "OTH_CTRL_DEVICE", "OTH_CTRL_DEVICE", "ED_NGE", "Control device identified", kDevice},
    {"NGT", "HrsOperated", "OP_HR", "EA_NGT", "Hours operated"},
    {"NGT", "OperatingHP", "OP_HP", "ED_NGT", "Operating horsepower"},
    {"NGT", "MaxRatedFuelUsage", "MAX_RATED_FUEL_USE", "ED_NGT", "Max rated fuel usage"},
    {"NGT", "FuelUsageRate", "FUEL_USE_RATE", "ED_NGT", "Average fuel usage"},
    {"NGT", "OtherControlDevice", "OTH_CTRL_DEVICE", "ED_NGT", "Control device identified", kDevice},
    {"LOA", "TANK_PAINT_COLOR", "TANK_PAINT_COLOR", "ED_LOA", "Storage tank paint color"},
    {"LOA", "TANK_PAINT_COND", "TANK_PAINT_COND", "ED_LOA", "Storage tank paint condition"},
    {"LOA", "VOL_LOADED", "VOL_LOADED", "EA_LOA", "Volume loaded (barrels) to ships and barges"},
    {"LOS", "Vessel_Typ", "VESSEL_TYP", "ED_LOS", "Type of vessel"},
    {"LOS", "API_SpGrav", "API_SPGRAV", "ED_LOS", "API gravity of stored oil"},
    {"LOS", "US_Op_Pres", "US_OP_PRES", "EA_LOS", "Operating pressure upstream of vessel"},
    {"LOS", "US_OP_Temp", "US_OP_TEMP", "EA_LOS", "Operating temperature upstream of vessel"},
    {"LOS", "DS_Op_Pres", "DS_OP_PRES", "EA_LOS", "Operating pressure of vessel"},
    {"LOS", "DS_OP_Temp", "DS_OP_TEMP", "EA_LOS", "Operating temperature (F) of vessel"},
    {"LOS", "Thruput", "THRUPUT", "EA_LOS", "Oil condensate throughput(for vessel)"},
    {"PNE", "Mfg", "MFG", "ED_PNE", "Manufacturer"},
    {"PNE", "Model", "model", "ED_PNE", "Model"},
    {"PNE", "OP_HR", "OP_HR", "EA_PNE", "Hours operated"},
    {"PRE", "Mfg", "MFG", "ED_PRE", "Manufacturer"},
    {"PRE", "Model", "model", "ED_PRE", "Model"},
    {"PRE", "OP_HR", "OP_HR", "EA_PRE", "Hours operated"},
    {"PRE", "Service_Typ", "SERVICE_TYP", "ED_PRE", "Service type"},
    {"STO", "Thruput", "THRUPUT", "EA_STO", "Product throughput (barrels)"},
    {"STO", "Prod_Type", "PROD_TYP", "ED_STO", "Product type"},
    {"STO", "Tank_Paint_Color", "TANK_PAINT_COLOR", "ED_STO", "Tank paint color"},
    {"STO", "Tank_Paint_Cnd", "TANK_PAINT_CND", "ED_STO", "Tank paint condition"},
    {"STO", "Tank_Shape", "TANK_SHAPE", "ED_STO", "Tank shape"},
    {"STO", "Tank_Orientation", "TANK_ORIENTATION", "ED_STO", "Tank orientation"},
    {"STO", "Tank_Shell_Hgt", "TANK_SHELL_HGT", "ED_STO", "Tank shell height", kRequired, kTankHasHeight},
    {"STO", "Tank_Shell_Diam", "TANK_SHELL_DIAM", "ED_STO", "Tank Shell diameter", kRequired, kTankIsCylindrical},
    {"STO", "Tank_Shell_Width1", "TANK_SHELL_WIDTH1", "ED_STO", "Tank shell width #1", kRequired, kTankIsRectangular},
    {"STO", "Tank_Shell_Width2", "TANK_SHELL_WIDTH2", "ED_STO",
     "Tank shell width #2", kRequired, kTankStandsRectangular},
    {"STO", "Tank_Roof_Typ", "TANK_ROOF_TYP", "ED_STO", "Roof shape"},
    {"STO", "Tank_Roof_Hgt", "TANK_ROOF_HGT", "ED_STO", "Roof height above shell", kRequired, kRoofIsFixed},
    {"VEN", "OP_HR", "OP_HR", "EA_VEN", "Hours operated, excluding upsets"},
    {"VEN", "Vol_Vented", "VOL_VENTED", "EA_VEN", "Volume (Mscf) vented, excluding upsets"},
    {"FUG", "StreamType", "STREAM_TYP", "ED_FUG", "Stream type (gas, heavy oil, light oil, or water/oil)"},
    {"FUG", "WGT_PER_VOC", "WGT_PER_VOC", "ED_FUG", "Average VOC weight%"},
    {"FUG", "Components", "", "ED_FUG", "Components handling stream type at facility", kComponents},
};
// clang-format on

// Values of a record with which a line applies, and with which it does not.
struct Condition {
  Texts on, off;
};

const std::map<Applies, Condition>& Conditions() {
  const std::string cylinder = "TANK_SHAPE='C',TANK_ORIENTATION='H'";
  const std::string cylinder_up = "TANK_SHAPE='C',TANK_ORIENTATION='V'";
  const std::string box = "TANK_SHAPE='R',TANK_ORIENTATION='H'", box_up = "TANK_SHAPE='R',TANK_ORIENTATION='V'";
  const std::string none = "TANK_SHAPE=NULL,TANK_ORIENTATION='V'";
  static const std::map<Applies, Condition> conditions = {
      {kAlways, {{}, {}}},
      {kWithoutModelInputs, {{"MODELINPUTS_FLG=0"}, {"MODELINPUTS_FLG=1"}}},
      {kWithModelInputs, {{"MODELINPUTS_FLG=1"}, {"MODELINPUTS_FLG=0"}}},
      {kWithoutPilotAnswer, {{"CTRL_FLA_PILOT_FLG=NULL"}, {"CTRL_FLA_PILOT_FLG=1", "CTRL_FLA_PILOT_FLG=0"}}},
      {kTankHasHeight, {{cylinder_up, box_up, box}, {cylinder, none}}},
      {kTankIsCylindrical, {{cylinder_up, cylinder}, {box, box_up, none}}},
      {kTankIsRectangular, {{box_up, box}, {cylinder, cylinder_up, none}}},
      {kTankStandsRectangular, {{box_up}, {box, cylinder_up, cylinder, none}}},
      {kRoofIsFixed, {{"FIXED_ROOF=1"}, {"FIXED_ROOF=0", "FIXED_ROOF=NULL"}}},
  };
  return conditions;
}

std::string Said(const InventoryRow& line) {
  return std::string(line.pass) + " | " + std::string(line.field_id) + " | " + std::string(line.column) + " | " +
         std::string(line.table) + " | " + std::string(line.field_desc);
}

TEST(InventoryChecks, are_these_lines_in_this_order_letter_for_letter) {
  const std::vector<InventoryRow>& lines = InventoryChecks();
  ASSERT_EQ(lines.size(), kLines.size());
  for (std::size_t i = 0; i < kLines.size(); ++i) {
    EXPECT_EQ(Said(lines[i]), Said(kLines[i])) << "line " << i;
    EXPECT_EQ(lines[i].check, kLines[i].check) << Said(kLines[i]);
    EXPECT_EQ(lines[i].applies, kLines[i].applies) << Said(kLines[i]);
  }
}

TEST(InventoryChecks, are_so_many_in_each_pass) {
  std::map<std::string, int> counts;
  for (const InventoryRow& line : InventoryChecks()) ++counts[std::string(line.pass)];
  const std::map<std::string, int> expected = {{"USER", 3}, {"STRUCTURE", 9}, {"AMI", 24}, {"BOI", 5}, {"DIE", 7},
                                               {"FLA", 3},  {"GLY", 3},       {"DRI", 4},  {"MUD", 2}, {"NGE", 7},
                                               {"NGT", 5},  {"LOA", 3},       {"LOS", 7},  {"PNE", 3}, {"PRE", 4},
                                               {"STO", 12}, {"VEN", 2},       {"FUG", 3}};
  EXPECT_EQ(counts, expected);
}

// ---- against the schema ----

class InventoryColumns : public testing::Test {
 protected:
  InventoryColumns() { db.Open(CopyTemplate(folder)); }
  std::set<std::string> Of(std::string_view table) {
    std::set<std::string> names;
    db.ForEach("SELECT name FROM pragma_table_info(?)", {std::string(table)},
               [&](const RowView& row) { names.emplace(row.Text(0)); });
    return names;
  }
  TemporaryFolder folder;
  Database db;
};

TEST_F(InventoryColumns, of_every_line_stand_in_its_table) {
  for (const InventoryRow& line : InventoryChecks()) {
    const bool sum = line.check == kSalesGas || line.check == kComponents;
    EXPECT_EQ(line.column.empty(), sum) << Said(line);
    EXPECT_EQ(Of(line.table).count(std::string(line.column)), sum ? 0u : 1u) << Said(line);
  }
}

// ---- each line at work ----

// A structure in one month with one piece of equipment of every type, and nothing missing.
class CompleteInventory : public testing::Test {
 protected:
  CompleteInventory() {
    run.StartWithStructure();
    int key = 1000;
    Run("PRAGMA synchronous=OFF");  // many short writes; nothing is tested of the disk
    Run("UPDATE PA_PLATFORM_ACTV SET status='A',PROD_NG=1,PROD_OIL=1");
    Run("UPDATE PD_PLATFORM_DESC SET LATITUDE=28,LONGITUDE=-90,DIST_TO_SHORE=5,SalesGasC1Content=100");
    for (const InventoryRow& line : kLines) {
      const std::string type(line.pass);
      if (type.size() != 3 || !types.insert(type).second) continue;
      const std::string k = std::to_string(++key);
      Run("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID) SELECT " + k + ",PD_ID_AK,'" +
          type + "','" + type + "-1' FROM PD_PLATFORM_DESC");
      Run("INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_MO,EA_YR,EA_EQUIP_TYP,EA_STATUS) VALUES (" + k + "," + k +
          ",1,2017,'" + type + "','A')");
      for (const std::string side : {"ED_", "EA_"}) {
        if (side + type == "EA_FUG") continue;
        Run("INSERT INTO " + side + type + " (" + side + "ID_AK) VALUES (" + k + ")");
        Fill(side + type, side + "ID_AK");
      }
    }
  }
  void Run(const std::string& sql) { run.s.db.Execute(sql); }
  void Fill(const std::string& table, const std::string& key) {
    Texts columns;
    run.s.db.ForEach("SELECT name FROM pragma_table_info(?)", {table},
                     [&](const RowView& row) { columns.emplace_back(row.Text(0)); });
    std::string values;
    for (const std::string& column : columns)
      if (column != key) values += (values.empty() ? "[" : ",[") + column + "]=1";
    Run("UPDATE " + table + " SET " + values);
  }
  // "level type FieldID FieldDesc: text" of the findings after a run, in their order.
  Texts Findings() {
    RunInventoryPasses(run.s);
    Texts findings;
    run.s.db.ForEach(
        "SELECT [Level],EquipType,FieldID,FieldDesc,[Desc] FROM QCInventory WHERE [Level]<>'ZSUMMARY' ORDER BY rowid",
        {}, [&](const RowView& row) {
          findings.push_back(std::string(row.Text(0)) + " " + std::string(row.Text(1)) + " " +
                             std::string(row.Text(2)) + " " + std::string(row.Text(3)) + ": " +
                             std::string(row.Text(4)));
        });
    return findings;
  }
  static std::string Expected(const InventoryRow& line, const std::string& text = kBlank) {
    const std::string level = line.pass.size() == 3 ? "EQUIPMENT" : std::string(line.pass);
    const std::string type = line.pass.size() == 3 ? std::string(line.pass) : "NA";
    return level + " " + type + " " + std::string(line.field_id) + " " + std::string(line.field_desc) + ": " + text;
  }
  void Set(const InventoryRow& line, const std::string& values) {
    Run("UPDATE " + std::string(line.table) + " SET " + values);
  }
  // Empties the column, runs, and fills it again.
  Texts FindingsWithout(const InventoryRow& line) {
    Run("CREATE TEMP TABLE kept AS SELECT * FROM " + std::string(line.table));
    Set(line, "[" + std::string(line.column) + "]=NULL");
    Texts findings = Findings();
    Set(line, "[" + std::string(line.column) + "]=(SELECT [" + std::string(line.column) + "] FROM kept)");
    Run("DROP TABLE kept");
    return findings;
  }
  TestRun run;
  std::set<std::string> types;
};

TEST_F(CompleteInventory, raises_nothing) {
  EXPECT_EQ(types.size(), 16u);
  EXPECT_EQ(Findings(), Texts{});
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(run.Count("QCInventory"), 1);
}

TEST_F(CompleteInventory, raises_the_one_finding_of_a_line_whose_column_is_null) {
  int judged = 0;
  for (const InventoryRow& line : kLines) {
    if (line.check != kRequired || line.applies != kAlways) continue;
    EXPECT_EQ(FindingsWithout(line), Texts{Expected(line)}) << Said(line);
    ++judged;
  }
  EXPECT_EQ(judged, 82);
}

TEST_F(CompleteInventory, raises_the_findings_of_all_passes_in_their_order) {
  Texts expected;
  for (const InventoryRow& line : kLines) {
    if (line.check != kRequired || line.applies != kAlways) continue;
    Set(line, "[" + std::string(line.column) + "]=NULL");
    expected.push_back(Expected(line));
  }
  EXPECT_EQ(Findings(), expected);
}

TEST_F(CompleteInventory, raises_the_finding_of_a_conditional_line_only_where_it_applies) {
  int judged = 0;
  for (const InventoryRow& line : kLines) {
    if (line.applies == kAlways) continue;
    const int raised = line.check == kNothing ? 0 : 1;
    ASSERT_TRUE(raised == 0 || line.check == kRequired);
    Run("CREATE TEMP TABLE before AS SELECT * FROM " + std::string(line.table));
    for (const std::string& values : Conditions().at(line.applies).on) {
      Set(line, values);
      const Texts found = FindingsWithout(line);
      EXPECT_EQ(std::count(found.begin(), found.end(), Expected(line)), raised) << Said(line) << " with " << values;
    }
    for (const std::string& values : Conditions().at(line.applies).off) {
      Set(line, values);
      const Texts found = FindingsWithout(line);
      EXPECT_EQ(std::count(found.begin(), found.end(), Expected(line)), 0) << Said(line) << " with " << values;
    }
    for (const std::string column :
         {"MODELINPUTS_FLG", "CTRL_FLA_PILOT_FLG", "TANK_SHAPE", "TANK_ORIENTATION", "FIXED_ROOF"})
      if (run.Count("pragma_table_info('before') WHERE name='" + column + "'") == 1)
        Set(line, column + "=(SELECT " + column + " FROM before)");
    Run("DROP TABLE before");
    ++judged;
  }
  EXPECT_EQ(judged, 18);
  EXPECT_EQ(Findings(), Texts{});
}

TEST_F(CompleteInventory, takes_an_empty_string_for_a_value) {
  for (const InventoryRow& line : kLines) {
    if (line.check != kRequired || line.applies != kAlways) continue;
    const std::string type = NullToEmpty(run.Sql("SELECT type FROM pragma_table_info('" + std::string(line.table) +
                                                 "') WHERE name='" + std::string(line.column) + "'"));
    if (type == "TEXT") Set(line, "[" + std::string(line.column) + "]=''");
  }
  EXPECT_EQ(run.Count("ED_STO WHERE PROD_TYP='' AND TANK_SHAPE=''"), 1);
  EXPECT_EQ(Findings(), Texts{});
}

// ---- sums ----

TEST_F(CompleteInventory, wants_the_sales_gas_to_be_exactly_100) {
  const Texts told = {
      "STRUCTURE NA SalesGasComposition Sales composition (mole% for all listed components): "
      "Sum of gas composition fields <> 100%."};
  for (const char* sum : {"99.999", "99.9", "100.001", "0", "NULL"}) {
    Run(std::string("UPDATE PD_PLATFORM_DESC SET SalesGasC1Content=") + sum);
    EXPECT_EQ(Findings(), told) << sum;
  }
  for (const std::string gas :
       {"O2", "CO2", "N2", "C1", "C2", "C3", "iC4", "nC4", "iC5", "nC5", "C6", "C7", "C8Plus", "H2S"}) {
    Run("UPDATE PD_PLATFORM_DESC SET SalesGas" + gas + "Content=100");
    EXPECT_EQ(Findings(), Texts{}) << gas;
    Run("UPDATE PD_PLATFORM_DESC SET SalesGas" + gas + "Content=NULL");
  }
}

TEST_F(CompleteInventory, wants_some_component_of_fugitives_whatever_their_status) {
  Run("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I' WHERE EA_EQUIP_TYP='FUG'");
  const Texts columns = {"PUMP_SEALS_QTY",
                         "Connectors_qty",
                         "Flanges_qty",
                         "Open_Ended_Lines_qty",
                         "CENTCOMPWET_SEALS_QTY",
                         "CENTCOMPDRY_SEALS_QTY",
                         "RECIPCOMP_SEALS_QTY",
                         "OTH_COMP_SEALS_QTY",
                         "Diaphragms_qty",
                         "Drains_qty",
                         "Dump_Arms_qty",
                         "Hatches_qty",
                         "Instruments_qty",
                         "Meters_qty",
                         "PRES_RELIEF_VALVES_QTY",
                         "POLISHED_RODS_QTY",
                         "OTH_RELIEF_VALVES_QTY",
                         "VALVES_QTY"};
  for (const std::string& column : columns) Run("UPDATE ED_FUG SET " + column + "=NULL");
  const Texts blank = {Expected(kLines.back(), "All components are blank.")};
  EXPECT_EQ(Findings(), blank);
  for (const std::string& column : columns) {
    Run("UPDATE ED_FUG SET " + column + "=1");
    EXPECT_EQ(Findings(), Texts{}) << column;
    Run("UPDATE ED_FUG SET " + column + "=0");
  }
  EXPECT_EQ(Findings(), blank);
  Run("DELETE FROM ED_FUG");
  EXPECT_EQ(Findings(), Texts{});
}

// ---- control devices ----

class ControlDevice : public CompleteInventory, public testing::WithParamInterface<std::string> {
 protected:
  const InventoryRow& Line() {
    return *std::find_if(kLines.begin(), kLines.end(),
                         [](const InventoryRow& line) { return line.pass == GetParam() && line.check == kDevice; });
  }
  Texts With(const std::string& device, const std::string& nox, const std::string& rest) {
    Set(Line(), "OTH_CTRL_DEVICE=" + device + ",OTH_CTRL_EFFIC_NOX=" + nox + ",OTH_CTRL_EFFIC_CO=" + rest +
                    ",OTH_CTRL_EFFIC_VOC=" + rest + ",OTH_CTRL_EFFIC_PM10=" + rest + ",OTH_CTRL_EFFIC_SOX=" + rest);
    return Findings();
  }
};

TEST_P(ControlDevice, without_efficiencies_is_told) {
  const Texts told = {Expected(Line(), "Control device identified - but no efficiencies given..")};
  EXPECT_EQ(With("1", "NULL", "NULL"), told);
  EXPECT_EQ(With("1", "0", "0"), told);
  EXPECT_EQ(With("1", "-1", "NULL"), told);
  EXPECT_EQ(With("1", "0.5", "NULL"), Texts{});
}

TEST_P(ControlDevice, that_is_not_identified_but_has_efficiencies_is_told) {
  const Texts told = {Expected(Line(), "No control device identified - but  efficiencies given.")};
  EXPECT_EQ(With("NULL", "5", "NULL"), told);
  EXPECT_EQ(With("0", "NULL", "5"), told);
  EXPECT_EQ(With("0", "0", "NULL"), Texts{});
  EXPECT_EQ(With("NULL", "NULL", "NULL"), Texts{});
}

TEST_P(ControlDevice, counts_every_efficiency) {
  for (const char* gas : {"NOX", "CO", "VOC", "PM10", "SOX"}) {
    With("0", "NULL", "NULL");
    Set(Line(), std::string("OTH_CTRL_EFFIC_") + gas + "=3");
    EXPECT_EQ(Findings(), Texts{Expected(Line(), "No control device identified - but  efficiencies given.")}) << gas;
  }
}

INSTANTIATE_TEST_SUITE_P(Types, ControlDevice, testing::Values("BOI", "DIE", "NGE", "NGT"),
                         [](const auto& type) { return type.param; });

// The months are read without the columns that other kinds of lines would look at.
TEST(InventoryChecks, ask_of_a_month_only_that_a_column_is_filled) {
  int lines = 0;
  for (const InventoryRow& line : InventoryChecks()) {
    if (!line.table.starts_with("EA_")) continue;
    ++lines;
    EXPECT_EQ(line.check, InventoryCheck::kRequired) << line.field_id;
    EXPECT_EQ(line.applies, Applies::kAlways) << line.field_id;
    EXPECT_FALSE(line.column.empty());
  }
  EXPECT_GT(lines, 15);
}

}  // namespace
}  // namespace merlu::test
