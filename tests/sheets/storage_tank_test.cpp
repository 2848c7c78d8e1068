#include "storage_tank.h"

namespace merlu::test {
namespace {

using namespace tank;

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
    const bool lacking = is_elsewhere(field) && field.control != elsewhere[0];  // an upright box has neither
    EXPECT_EQ(StoredText(run, field.column), lacking ? "" : field.stored) << field.control;
    EXPECT_EQ(run.Text(field.control), lacking ? "" : field.text) << field.control;
  }
  run.Click("cmdEdit");
  run.Put({{kShape, "Cylindrical"},
           {kOrientation, "Horizontal"},
           {"txtSTO_TankShellDiam", "21.5"},
           {"txtSTO_TankShellLength", "22.5"}});
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText(run, "TANK_SHELL_DIAM"), "21.5");
  EXPECT_EQ(StoredText(run, "TANK_SHELL_LENGTH"), "22.5");
}

TEST(StorageTank, keeps_every_field_of_a_month_in_its_column) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.GoTo("STO", "T1", Mode::kActv);
  Values typed;
  for (const Field& field : kMonth) typed.emplace_back(field.control, field.text);
  run.Keep(typed);
  for (const Field& field : kMonth) {
    EXPECT_EQ(StoredText(run, field.column, "EA_STO"), field.stored) << field.control;
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
    EXPECT_EQ(StoredText(run, list.column), "") << list.column;
    Texts items;
    for (const auto& [item, code] : list.items) {
      run.Keep({{list.list, item}});
      EXPECT_EQ(StoredText(run, list.column), code) << item;
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

TEST(StorageTank, stores_the_dimensions_of_its_shape_and_orientation_and_drops_the_others) {
  TestRun run;
  run.StartWith("STO", "T1");
  for (const Geometry& geometry : kGeometries) {
    Shape(run, geometry, "12.5");
    run.Keep({});
    for (int i = 0; i < 5; ++i)
      EXPECT_EQ(StoredText(run, kDimensions[i].column), geometry.in_row[i] != '.' ? "12.5" : "")
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
  EXPECT_EQ(StoredText(run, "TANK_SHELL_DIAM"), "20");
  run.Click("cmdEdit");
  run.Put({{kShape, "Rectangular"}, {kOrientation, "Horizontal"}});
  EXPECT_EQ(run.Text("txtSTO_TankShellDiam"), "20");
  EXPECT_FALSE(run.At("txtSTO_TankShellDiam").enabled);
  EXPECT_EQ(run.WhyNotSet("txtSTO_TankShellDiam"), "is disabled");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsNull(run.Sql("SELECT TANK_SHELL_DIAM FROM ED_STO")));
  EXPECT_EQ(run.Text("txtSTO_TankShellDiam"), "");
  EXPECT_EQ(StoredText(run, "TANK_SHELL_HGT"), "30");
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

// ---- what a run leaves ----

TEST(StorageTank, without_another_control_device_keeps_its_efficiency_and_raises_nothing) {
  TestRun run;
  run.StartWith("STO", "T1");
  run.Keep({{"cmbSTO_OtherControlDevice", "Yes"}, {"txtSTO_OtherControlEffVOC", "100"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("VOC Efficiency"), RangeFinding(0, 99.9));
  run.Keep({{"cmbSTO_OtherControlDevice", "No"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("VOC Efficiency"), "");
  EXPECT_EQ(StoredText(run, "OTH_CTRL_EFFIC_VOC"), "100");
}

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

}  // namespace
}  // namespace merlu::test
