// The frame of the vent, boiler, engine, turbine, drilling and mud sheets, and the blocks of fields that they
// share with one another and with the flare. What differs by type stands in one table per block.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>

#include "blocks.h"
#include "sheets/contract.h"
#include "sheets/units.h"

namespace merlu::test {
namespace {

using namespace blocks;

void ExpectOff(TestRun& run, const std::string& control) {
  EXPECT_FALSE(run.At(control).enabled) << control;
  EXPECT_EQ(run.At(control).back, Back::kFace) << control;
}

void ExpectOn(TestRun& run, const std::string& control) {
  EXPECT_TRUE(run.At(control).enabled) << control;
  EXPECT_EQ(run.At(control).back, Back::kWindow) << control;
}

constexpr auto kNameByType = [](const auto& info) { return info.param.type; };

// ---- title, monthly block, focus, status and comment ----

struct FrameCase {
  std::string type, letters;
  std::string title, edit_title, cleared_actv, cleared_desc;  // cleared_*: empty where the title stays
  std::string focus_actv, focus_desc;
  Names monthly;  // controls and labels of the monthly block but for comment and status
  std::string not_found_on_load = "Equipment record not found";
  std::string not_found_on_save = "Equipment record not found";
};

void PrintTo(const FrameCase& c, std::ostream* out) {
  *out << c.type;
}

class SheetFrame : public testing::TestWithParam<FrameCase> {
 protected:
  const FrameCase& sheet() const { return GetParam(); }
  std::string Named(const std::string& kind, const std::string& rest) const { return kind + sheet().letters + rest; }
  // In view, in that mode.
  void Open(Mode mode) {
    run.StartWith(sheet().type, "X1");
    run.GoTo(sheet().type, "X1", mode);
  }
  std::string Title() { return run.At(Named("fra", "")).caption; }
  bool Emphasis() { return run.At(Named("fra", "")).emphasis; }
  const SheetSpec& Table() { return *FindSheet(sheet().type); }
  TestRun run;
};

TEST_P(SheetFrame, is_called_by_its_long_name_in_view_and_by_its_edit_title_while_editing) {
  for (Mode mode : {Mode::kDesc, Mode::kActv}) {
    if (mode == Mode::kDesc)
      Open(mode);
    else
      run.GoTo(sheet().type, "X1", mode);
    EXPECT_EQ(Title(), sheet().title);
    EXPECT_FALSE(Emphasis());
    run.Click("cmdEdit");
    EXPECT_EQ(Title(), sheet().edit_title);
    EXPECT_TRUE(Emphasis());
    run.Click("cmdCANCEL");
    EXPECT_EQ(Title(), sheet().title);
    EXPECT_FALSE(Emphasis());
  }
}

TEST_P(SheetFrame, says_the_mode_when_it_is_cleared_where_its_type_does_so) {
  Open(Mode::kDesc);
  ClearFrame(run.s, Table());
  EXPECT_EQ(Title(), sheet().cleared_desc.empty() ? sheet().title : sheet().cleared_desc);
  run.GoTo(sheet().type, "X1", Mode::kActv);
  ClearFrame(run.s, Table());
  EXPECT_EQ(Title(), sheet().cleared_actv.empty() ? sheet().title : sheet().cleared_actv);
}

TEST_P(SheetFrame, shows_the_monthly_block_in_activity_mode_only) {
  Names block = sheet().monthly;
  block.insert(block.end(), {Named("txt", "_Comments"), Named("lbl", "_Comments")});
  Open(Mode::kDesc);
  for (const std::string& name : block) EXPECT_FALSE(run.Visible(name)) << name;
  run.Click("cmdEdit");
  for (const std::string& name : block) EXPECT_FALSE(run.Visible(name)) << name;
  EXPECT_FALSE(run.Visible(Named("chk", "_Status")));
  run.Click("cmdCANCEL");
  run.GoTo(sheet().type, "X1", Mode::kActv);
  for (const std::string& name : block) EXPECT_TRUE(run.Visible(name)) << name;
  EXPECT_FALSE(run.Visible(Named("chk", "_Status")));
  run.Click("cmdEdit");
  EXPECT_TRUE(run.Visible(Named("chk", "_Status")));
}

TEST_P(SheetFrame, keeps_the_description_s_fields_on_view_and_locked_in_a_month) {
  Open(Mode::kActv);
  run.Click("cmdEdit");
  Names monthly = sheet().monthly;
  monthly.push_back(Named("txt", "_Comments"));
  int description_fields = 0;
  for (const FieldSpec& field : Table().fields) {
    const bool is_monthly = std::find(monthly.begin(), monthly.end(), field.control) != monthly.end();
    EXPECT_TRUE(run.Visible(field.control)) << field.control;
    if (is_monthly) continue;
    EXPECT_TRUE(run.At(field.control).locked) << field.control;
    ++description_fields;
  }
  EXPECT_GT(description_fields, 0);
}

TEST_P(SheetFrame, gives_the_focus_to_the_mode_s_first_field) {
  Open(Mode::kDesc);
  run.Click("cmdEdit");
  EXPECT_EQ(run.s.desk.Find(Named("frm", ""))->focus, sheet().focus_desc);
  run.Click("cmdCANCEL");
  run.GoTo(sheet().type, "X1", Mode::kActv);
  run.Click("cmdEdit");
  EXPECT_EQ(run.s.desk.Find(Named("frm", ""))->focus, sheet().focus_actv);
}

TEST_P(SheetFrame, tells_that_its_record_is_gone_and_fails_the_save) {
  run.StartWithStructure();
  run.AddEquipment(sheet().type, "X1");
  run.Select(run.Key());
  run.AddEquipment(sheet().type, "X2");
  run.s.db.Execute("DELETE FROM ED_" + sheet().type +
                   " WHERE ED_ID_AK=(SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE ED_MERLU_EQUIP_ID='X1')");
  run.TakeBoxes();
  run.Select(run.Key(sheet().type, "X1"));
  EXPECT_EQ(run.TakeBoxes(), Names{sheet().not_found_on_load});
  run.Click("cmdEdit");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Names{sheet().not_found_on_save});
  EXPECT_TRUE(run.s.save_failed);
}

TEST_P(SheetFrame, has_a_box_for_the_status_and_a_monthly_comment) {
  Open(Mode::kActv);
  EXPECT_EQ(run.At(Named("chk", "_Status")).caption, "No Emissions to Report");
  EXPECT_EQ(run.Text("lblNoEmissions"), "No Emissions to Report");
  EXPECT_FALSE(run.Visible("lblNoEmissions"));
  run.Click("cmdEdit");
  run.Put({{Named("txt", "_Comments"), " slow month "}});
  run.Check(Named("chk", "_Status"), true);
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(run.Visible("lblNoEmissions"));
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EA_COMNT_TXT||EA_STATUS FROM EA_EQUIP_ACTV")), " slow month I");
  EXPECT_EQ(run.Text(Named("txt", "_Comments")), " slow month ");
}

INSTANTIATE_TEST_SUITE_P(
    Sheets, SheetFrame,
    testing::Values(FrameCase{.type = "VEN",
                              .letters = "VEN",
                              .title = "Cold Vent",
                              .edit_title = "Vent - EDIT DATA",
                              .cleared_actv = "Vents - ACTIVITY EDIT MODE",
                              .cleared_desc = "Vents - DESCRIPTION EDIT MODE",
                              .focus_actv = "txtVEN_HrsOperated",
                              .focus_desc = "cmbVEN_VentType",
                              .monthly = {"txtVEN_VOCMolWeight", "txtVEN_VolVented", "txtVEN_ConcH2S", "txtVEN_ConcVOC",
                                          "txtVEN_HrsOperated"}},
                    FrameCase{.type = "BOI",
                              .letters = "BOI",
                              .title = "Boiler/Heater/Burner",
                              .edit_title = "Boiler/Heater/Burner - EDIT DATA",
                              .focus_actv = "txtBOI_HrsOperated",
                              .focus_desc = "txtBOI_HeatInputRate",
                              .monthly = {"txtBOI_FuelUsageRateOil", "txtBOI_HrsOperated", "txtBOI_TotalFuelUsed",
                                          "txtBOI_TotalFuelUsedOil"}},
                    FrameCase{.type = "DIE",
                              .letters = "DIE",
                              .title = "Diesel or Gasoline Engine",
                              .edit_title = "Diesel or Gasoline Engine - EDIT DATA",
                              .cleared_actv = "Diesel or Gasoline Engine - ACTIVITY EDIT MODE",
                              .cleared_desc = "Diesel or Gasoline Engine - DESCRIPTION EDIT MODE",
                              .focus_actv = "txtDIE_TotalFuelUsed",
                              .focus_desc = "txtDIE_OperatingHP",
                              .monthly = {"txtDIE_HrsOperated", "txtDIE_TotalFuelUsed"}},
                    FrameCase{.type = "NGE",
                              .letters = "NGE",
                              .title = "Natural Gas Engine",
                              .edit_title = "Natural Gas Engine - EDIT DATA",
                              .focus_actv = "txtNGE_HrsOperated",
                              .focus_desc = "txtNGE_OperatingHP",
                              .monthly = {"txtNGE_TotalFuelUsed", "txtNGE_HrsOperated"}},
                    FrameCase{.type = "NGT",
                              .letters = "NGT",
                              .title = "Natural Gas, Diesel, or Dual-Fuel Turbine",
                              .edit_title = "Natural Gas, Diesel, or Dual-Fuel Turbine - EDIT DATA",
                              .focus_actv = "txtNGT_HrsOperated",
                              .focus_desc = "txtNGT_Mfr",
                              .monthly = {"txtNGT_HrsOperated", "txtNGT_TotalFuelUsed", "txtNGT_HrsOperated_Diesel",
                                          "txtNGT_TotalFuelUsed_Diesel"}},
                    FrameCase{
                        .type = "DRI",
                        .letters = "JAC",
                        .title = "Drilling Equipment",
                        .edit_title = "Drilling Equipment - EDIT DATA",
                        .focus_actv = "txtJAC_HrsOperated",
                        .monthly = {"txtJAC_HrsOperated", "txtJAC_DieselUsage", "txtJAC_GasolineUsage",
                                    "txtJAC_NGUsage", "txtJAC_DrillingEquipment", "lblJAC_DrillingRigIfApplicable"}},
                    FrameCase{.type = "MUD",
                              .letters = "MUD",
                              .title = "Mud Degassing",
                              .edit_title = "MUD Degassing - EDIT DATA",
                              .focus_actv = "txtMUD_DaysPerMonth",
                              .focus_desc = "cmbMud_MudType",
                              .monthly = {"txtMUD_DaysPerMonth"},
                              .not_found_on_load = "Equipment record not found in LoadMUDFrame",
                              .not_found_on_save = "Equipment record not found in SaveMUDFrame"}),
    [](const auto& info) { return info.param.type; });

// ---- the exhaust outlet ----

class ExhaustOutlet : public testing::TestWithParam<ExhaustCase> {
 protected:
  const ExhaustCase& block() const { return GetParam(); }
  std::string Named(const std::string& rest) const { return block().Named(rest); }
};

TEST_P(ExhaustOutlet, has_its_captions_and_tags) {
  TestRun run;
  run.StartWith(block().type, "X1");
  const std::vector<std::array<std::string, 3>> fields = {
      {"Hgt", "Outlet Height (ft above msl):", "Exhaust Outlet Height"},
      {"InnerDiam", "Outlet Inner Diameter (in):", "Exhaust Outlet Inner Diameter"},
      {"ExitVel", "Exit Velocity (ft/s):", "Exhaust Exit Velocity"},
      {block().temperature, "Exit Temperature (°F):", "Exhaust Exit Temperature"},
      {"Angle", "Outlet Orientation (degrees):", "Exhaust Outlet Orientation"}};
  for (const auto& [field, caption, tag] : fields) {
    EXPECT_EQ(run.At(Named(field)).caption, caption);
    EXPECT_EQ(run.At(Named(field)).tag, tag);
    EXPECT_EQ(run.At(Named(field)).page, 1);
  }
}

TEST_P(ExhaustOutlet, is_kept_in_the_description_and_read_back) {
  TestRun run;
  run.StartWith(block().type, "X1");
  run.Keep({{Named("Hgt"), "1.5"},
            {Named("InnerDiam"), "2.5"},
            {Named("ExitVel"), "3.5"},
            {Named(block().temperature), "4.5"},
            {Named("Angle"), "5.5"}});
  EXPECT_EQ(NullToEmpty(run.Sql(
                "SELECT EXH_OUT_HGT||' '||EXH_OUT_INNER_DIAM||' '||EXH_OUT_EXIT_VEL||' '||EXH_OUT_EXIT_TEMP||' '"
                "||EXH_OUT_ANGLE FROM ED_" +
                block().type)),
            "1.5 2.5 3.5 4.5 5.5");
  EXPECT_EQ(run.Text(Named("Hgt")) + " " + run.Text(Named("InnerDiam")) + " " + run.Text(Named("ExitVel")) + " " +
                run.Text(Named(block().temperature)) + " " + run.Text(Named("Angle")),
            "1.5 2.5 3.5 4.5 5.5");
}

INSTANTIATE_TEST_SUITE_P(Sheets, ExhaustOutlet, testing::ValuesIn(kExhausts), kNameByType);

TEST(ExhaustOutlet, of_a_gas_engine_keeps_any_orientation) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.Click("cmdEdit");
  run.Set("txtNGE_ExhaustOutletAngle", "999");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(ToNumber(run.Sql("SELECT EXH_OUT_ANGLE FROM ED_NGE")), 999);
}

// ---- another control device ----

class OtherControlDevice : public testing::TestWithParam<DeviceCase> {
 protected:
  const DeviceCase& block() const { return GetParam(); }
  std::string Device() const { return block().Device(); }
  std::string Description() const { return block().Description(); }
  std::string Efficiency(const std::string& gas) const { return block().Efficiency(gas); }
  Names Dependents() const {
    Names names = {Description()};
    for (const std::string& gas : block().gases) names.push_back(Efficiency(gas));
    return names;
  }
  // Of the record that has them stored: a device with a description and efficiencies 1, 2, ...
  Values Filled() const {
    Values values = {{Device(), "Yes"}, {Description(), "scrubber"}};
    int percent = 0;
    for (const std::string& gas : block().gases) values.emplace_back(Efficiency(gas), std::to_string(++percent));
    return values;
  }
  void Open() { run.StartWith(block().type, "X1"); }
  TestRun run;
};

TEST_P(OtherControlDevice, turns_its_fields_on_with_yes_and_off_otherwise) {
  Open();
  run.Click("cmdEdit");
  for (const std::string& field : Dependents()) ExpectOff(run, field);
  run.Set(Device(), "Yes");
  for (const std::string& field : Dependents()) ExpectOn(run, field);
  run.Set(Device(), "No");
  for (const std::string& field : Dependents()) ExpectOff(run, field);
}

TEST_P(OtherControlDevice, turns_its_fields_on_and_off_when_an_edit_of_either_mode_begins) {
  Open();
  run.Keep(Filled());
  run.GoTo(block().type, "X1", Mode::kActv);
  run.Click("cmdEdit");
  for (const std::string& field : Dependents()) {
    ExpectOn(run, field);
    EXPECT_TRUE(run.At(field).locked) << field;
  }
  run.Click("cmdCANCEL");
  run.GoTo(block().type, "X1", Mode::kDesc);
  run.Keep({{Device(), "No"}});
  run.GoTo(block().type, "X1", Mode::kActv);
  run.Click("cmdEdit");
  for (const std::string& field : Dependents()) ExpectOff(run, field);
}

TEST_P(OtherControlDevice, turns_nothing_off_in_view) {
  Open();
  run.Keep({{Device(), "No"}});
  run.Select(run.Key());
  run.Select(run.Key(block().type, "X1"));
  EXPECT_EQ(run.Text(Device()), "No");
  for (const std::string& field : Dependents()) {
    EXPECT_TRUE(run.At(field).enabled) << field;
    EXPECT_TRUE(run.At(field).locked) << field;
  }
}

TEST_P(OtherControlDevice, that_is_not_there_keeps_its_old_texts_in_the_store) {
  Open();
  run.Keep(Filled());
  run.Keep({{Device(), "No"}});
  std::string columns = "OTH_CTRL_DEVICE||OTH_CTRL_DESC", expected = "0scrubber";
  int percent = 0;
  for (const std::string& gas : block().gases) {
    columns += "||' '||CAST(OTH_CTRL_EFFIC_" + gas + " AS INTEGER)";
    expected += " " + std::to_string(++percent);
  }
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT " + columns + " FROM ED_" + block().type)), expected);
  EXPECT_EQ(run.Text(Description()), "scrubber");
  EXPECT_EQ(run.Text(Efficiency(block().gases.back())), std::to_string(percent));
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE FieldID LIKE '%Control Efficiency'"), 0);
}

TEST_P(OtherControlDevice, is_kept_as_yes_no_or_null) {
  Open();
  run.Keep({});
  EXPECT_TRUE(IsNull(run.Sql("SELECT OTH_CTRL_DEVICE FROM ED_" + block().type)));
  run.Keep({{Device(), "Yes"}});
  EXPECT_EQ(run.Sql("SELECT OTH_CTRL_DEVICE FROM ED_" + block().type), Value(true));
  EXPECT_EQ(run.At(Device()).index, 0);
  run.Keep({{Device(), "No"}});
  EXPECT_EQ(run.Sql("SELECT OTH_CTRL_DEVICE FROM ED_" + block().type), Value(false));
  EXPECT_EQ(run.At(Device()).index, 1);
}

TEST_P(OtherControlDevice, has_its_captions_and_tags) {
  Open();
  EXPECT_EQ(run.At(Device()).caption, "Other Control Device (Y/N):");
  EXPECT_EQ(run.At(Device()).tag, block().device_tag);
  EXPECT_EQ(run.At(Device()).items, (Names{"Yes", "No"}));
  EXPECT_EQ(run.At(Description()).caption, "Description:");
  EXPECT_EQ(run.At(Description()).tag, block().description_tag);
  EXPECT_EQ(run.At(Description()).label, block().description_label);
  if (!block().description_label.empty()) {
    EXPECT_EQ(run.Text(block().description_label), "Description:");
  }
  for (const std::string& gas : block().gases) {
    EXPECT_EQ(run.At(Efficiency(gas)).caption, gas + " Efficiency (%):");
    EXPECT_EQ(run.At(Efficiency(gas)).tag, gas + " Control Efficiency");
  }
  Names all = Dependents();
  all.push_back(Device());
  for (const std::string& field : all) EXPECT_EQ(run.At(field).page, block().page) << field;
}

INSTANTIATE_TEST_SUITE_P(Sheets, OtherControlDevice, testing::ValuesIn(kDevices), kNameByType);

TEST(OtherControlDevice, of_a_vent_has_no_other_efficiency_than_that_of_voc) {
  TestRun run;
  run.StartWith("VEN", "V1");
  const Form& form = *run.s.desk.Find("frmVEN");
  EXPECT_NE(form.Find("txtVEN_OtherControlEffVOC"), nullptr);
  for (const char* gas : {"SOx", "NOx", "CO", "PM10"})
    EXPECT_EQ(form.Find(std::string("txtVEN_OtherControlEff") + gas), nullptr) << gas;
}

// ---- a stack ----

struct StackCase {
  std::string type, temperature, velocity_tag, temperature_caption, temperature_tag;
};

void PrintTo(const StackCase& c, std::ostream* out) {
  *out << c.type;
}

class StackBlock : public testing::TestWithParam<StackCase> {
 protected:
  const StackCase& block() const { return GetParam(); }
  std::string Named(const std::string& rest) const { return "txt" + block().type + "_Stack" + rest; }
  TestRun run;
};

TEST_P(StackBlock, has_its_captions_and_tags) {
  run.StartWith(block().type, "X1");
  const std::vector<std::array<std::string, 3>> fields = {
      {"OutletElev", "Stack Outlet Elevation (ft msl):", "Stack Outlet Elevation"},
      {"InnerDiam", "Stack Inner Diameter (in):", "Stack Inner Diameter"},
      {"ExitVel", "Avg. Exit Velocity (ft/s), excl. upsets:", block().velocity_tag},
      {block().temperature, block().temperature_caption, block().temperature_tag},
      {"Angle", "Stack Orientation (degrees):", "Stack Orientation"}};
  for (const auto& [field, caption, tag] : fields) {
    EXPECT_EQ(run.At(Named(field)).caption, caption);
    EXPECT_EQ(run.At(Named(field)).tag, tag);
  }
}

TEST_P(StackBlock, is_kept_in_the_description_and_read_back) {
  run.StartWith(block().type, "X1");
  run.Keep({{Named("OutletElev"), "1.5"},
            {Named("InnerDiam"), "2.5"},
            {Named("ExitVel"), "3.5"},
            {Named(block().temperature), "4.5"},
            {Named("Angle"), "5.5"}});
  EXPECT_EQ(NullToEmpty(run.Sql(
                "SELECT STK_OUT_ELEV||' '||STK_INNER_DIAM||' '||STK_EXIT_VEL||' '||STK_EXIT_TEMP||' '||STK_ANGLE "
                "FROM ED_" +
                block().type)),
            "1.5 2.5 3.5 4.5 5.5");
  EXPECT_EQ(run.Text(Named("OutletElev")) + " " + run.Text(Named("InnerDiam")) + " " + run.Text(Named("ExitVel")) +
                " " + run.Text(Named(block().temperature)) + " " + run.Text(Named("Angle")),
            "1.5 2.5 3.5 4.5 5.5");
}

INSTANTIATE_TEST_SUITE_P(Sheets, StackBlock,
                         testing::Values(StackCase{"FLA", "ExitT", "Avg. Exit Velocity",
                                                   "Avg. Combustion Temp. (°F):", "Avg. Combustion Temperature"},
                                         StackCase{"VEN", "T", "Exit Velocity",
                                                   "Avg. Exit Temperature (°F):", "Exit Temperature"}),
                         [](const auto& info) { return info.param.type; });

}  // namespace
}  // namespace merlu::test
