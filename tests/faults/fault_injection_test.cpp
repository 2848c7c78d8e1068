// Every operation survives a failing disk: it reports the failure, leaves the file sound, and works afterwards.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "faults/faulty_files.h"
#include "faults/injection.h"
#include "session/node_keys.h"

namespace merlu::test {
namespace {

constexpr const char* kUser = "01234";

InventoryPlan Small(int months = 3) {
  InventoryPlan plan;
  plan.structures = 2;
  plan.equipment = 32;
  plan.months = months;
  return plan;
}

Value OnDisk(const std::string& path, const std::string& sql) {
  return RawValue(path, sql);
}

bool Holds(const std::string& path, const std::string& condition) {
  return ToInteger(OnDisk(path, "SELECT " + condition)) == 1;
}

std::string Flare(TestRun& run) {
  const Value id = run.Sql("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC WHERE ED_EQUIP_TYP='FLA' AND PD_ID_AK=1");
  return EquipmentSuffix("FLA", NullToEmpty(id));
}

std::string FirstStructure(int month) {
  return month > 0 ? StructureMonthKey(kUser, month, 2017, "10001", "1") : StructureKey(kUser, "10001", "1");
}

void EditFlare(TestRun& run) {
  run.Select(FirstStructure(1) + Flare(run));
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "77"}, {"txtFLA_VolFlared", "77"}, {"txtFLA_Comments", "77"}});
}

bool FlareIsSaved(TestRun&, const std::string& path) {
  return Holds(path,
               "EXISTS(SELECT 1 FROM EA_FLA f JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=f.EA_ID_AK WHERE f.OP_HR=77 "
               "AND f.VOL_FLARED=77 AND a.EA_COMNT_TXT='77')");
}

void FlareIsBeingEdited(TestRun& run) {
  EXPECT_TRUE(run.s.editing);
  EXPECT_FALSE(run.s.tree.enabled);
  EXPECT_TRUE(run.Visible("cmdSaveEdits"));
  for (const char* field : {"txtFLA_HrsOperated", "txtFLA_VolFlared", "txtFLA_Comments"}) {
    EXPECT_EQ(run.Text(field), "77");
    EXPECT_FALSE(run.At(field).locked);
  }
}

TEST(FaultyDisk, ends_with_the_run_that_asked_for_it) {
  const sqlite3_vfs* const before = sqlite3_vfs_find(nullptr);
  {
    const FaultyFiles faulty;
    EXPECT_NE(sqlite3_vfs_find(nullptr), before);
  }
  EXPECT_EQ(sqlite3_vfs_find(nullptr), before);
}

TEST(FaultyDisk, ASaveThatFailsKeepsTheEditOpenWithTheTypedValues) {
  ExpectToSurviveFaults({.name = "save",
                         .plan = Small(),
                         .prepare = EditFlare,
                         .act = [](TestRun& run) { run.Click("cmdSaveEdits"); },
                         .is_done = FlareIsSaved,
                         .when_failed = FlareIsBeingEdited});
}

TEST(FaultyDisk, ASaveIsMadeAlsoWhenTheDaysFirstBackupFails) {
  ExpectToSurviveFaults({.name = "first save of the day",
                         .plan = Small(),
                         .prepare = EditFlare,
                         .act = [](TestRun& run) { run.Click("cmdSaveEdits"); },
                         .is_done = FlareIsSaved,
                         .when_failed = FlareIsBeingEdited,
                         .backed_up = false});
}

TEST(FaultyDisk, ASaveThatEndsTheEditKeepsItOpenWhenItFails) {
  ExpectToSurviveFaults({.name = "save and end",
                         .plan = Small(),
                         .prepare = EditFlare,
                         .act = [](TestRun& run) { run.Click("cmdSaveExit"); },
                         .is_done = FlareIsSaved,
                         .when_failed = FlareIsBeingEdited});
}

TEST(FaultyDisk, AnOperatorsSaveThatFailsKeepsTheEditOpen) {
  ExpectToSurviveFaults({.name = "operator",
                         .plan = Small(),
                         .prepare =
                             [](TestRun& run) {
                               run.SelectRoot();
                               run.Click("cmdEdit");
                               run.Set("txtUSER_City", "Elsewhere");
                             },
                         .act = [](TestRun& run) { run.Click("cmdSaveExit"); },
                         .is_done =
                             [](TestRun&, const std::string& path) {
                               return Holds(path, "EXISTS(SELECT 1 FROM CO_COMPANY WHERE City='Elsewhere')");
                             },
                         .when_failed =
                             [](TestRun& run) {
                               EXPECT_TRUE(run.s.editing);
                               EXPECT_EQ(run.Text("txtUSER_City"), "Elsewhere");
                             }});
}

TEST(FaultyDisk, AMonthIsThereWholeOrNotAtAll) {
  ExpectToSurviveFaults(
      {.name = "month",
       .plan = Small(),
       .prepare = [](TestRun& run) { run.SelectRoot(); },
       .act = [](TestRun& run) { run.Click("cmdUSER_AddSurvey"); },
       .is_done = [](TestRun&,
                     const std::string& path) { return Holds(path, "(SELECT SYS_MAX_MO FROM SYS_CONFIG)=4"); },
       .when_failed = [](TestRun& run) { EXPECT_EQ(run.s.last_month, 3); }});
}

TEST(FaultyDisk, ASurveysQCRunTells) {
  InventoryPlan plan = Small();
  plan.fault_share = 0.5;
  ExpectToSurviveFaults({.name = "survey QC",
                         .plan = plan,
                         .prepare = [](TestRun& run) { run.Select(SurveyKey(kUser, 1, 2017)); },
                         .act = [](TestRun& run) { run.Click("cmdQC"); },
                         .is_done =
                             [](TestRun&, const std::string& path) {
                               return Holds(path,
                                            "(SELECT COUNT(*) FROM QC)>0 AND (SELECT COUNT(*) FROM "
                                            "PA_PLATFORM_ACTV WHERE PA_QC_DT IS NOT NULL)=2");
                             },
                         .when_failed = [](TestRun& run) { EXPECT_FALSE(run.s.wait.showing); }});
}

TEST(FaultyDisk, AStatusReachesAllEquipmentOrNone) {
  ExpectToSurviveFaults({.name = "status",
                         .plan = Small(),
                         .prepare =
                             [](TestRun& run) {
                               run.Select(FirstStructure(2));
                               run.Click("cmdEdit");
                               run.Check("chkSTRUCTURE_Status", true);
                             },
                         .act = [](TestRun& run) { run.Click("cmdSaveEdits"); },
                         .is_done =
                             [](TestRun&, const std::string& path) {
                               return Holds(path, "(SELECT COUNT(*) FROM EA_EQUIP_ACTV WHERE EA_STATUS='I')=16");
                             },
                         .when_failed =
                             [](TestRun& run) {
                               EXPECT_TRUE(run.s.editing);
                               EXPECT_TRUE(run.At("chkSTRUCTURE_Status").checked);
                               EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_STATUS='I'"), 0);
                             }});
}

void GoToDescription(TestRun& run, const std::string& key) {
  run.ChangeTo(Mode::kDesc);
  run.Select(key);
  run.answers = {Button::kOK};
}

TEST(FaultyDisk, AStructureIsDeletedWholeOrNotAtAll) {
  const auto go = [](TestRun& run) { GoToDescription(run, FirstStructure(0)); };
  ExpectToSurviveFaults(
      {.name = "delete structure",
       .plan = Small(),
       .prepare = go,
       .act = [](TestRun& run) { run.Click("mnuEDelete"); },
       .is_done = [](TestRun&,
                     const std::string& path) { return Holds(path, "(SELECT COUNT(*) FROM PD_PLATFORM_DESC)=1"); },
       .again = go});
}

TEST(FaultyDisk, EquipmentIsDeletedWholeOrNotAtAll) {
  const auto go = [](TestRun& run) { GoToDescription(run, FirstStructure(0) + Flare(run)); };
  ExpectToSurviveFaults(
      {.name = "delete equipment",
       .plan = Small(),
       .prepare = go,
       .act = [](TestRun& run) { run.Click("mnuEDelete"); },
       .is_done = [](TestRun&,
                     const std::string& path) { return Holds(path, "(SELECT COUNT(*) FROM ED_EQUIP_DESC)=31"); },
       .again = go});
}

// The record that shows is still the one that a save would go to.
void StructureCanBeEdited(TestRun& run) {
  run.TakeBoxes();
  run.Click("cmdEdit");
  run.Set("txtSTRUCTURE_Block", "999");
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{});
  EXPECT_EQ(ToInteger(run.Sql("SELECT COUNT(*) FROM PD_PLATFORM_DESC WHERE Block='999' AND PD_ID_AK=1")), 1);
  run.boxes.push_back({"told before 999"});
}

TEST(FaultyDisk, ANewStructureIsThereWholeOrNotAtAll) {
  ExpectToSurviveFaults(
      {.name = "new structure",
       .plan = Small(),
       .prepare =
           [](TestRun& run) {
             run.ChangeTo(Mode::kDesc);
             run.Select(FirstStructure(0));
           },
       .act =
           [](TestRun& run) {
             run.dialogs.push_back([&run](Form&) {
               run.Put({{"txtComplxID", "777"},
                        {"txtStructID", "1"},
                        {"txtArea", "GI"},
                        {"txtBlock", "1"},
                        {"txtName", "N"}});
               run.Click("cmdOK");
             });
             run.Click("mnuENewStructure");
           },
       .is_done = [](TestRun&,
                     const std::string& path) { return Holds(path, "(SELECT COUNT(*) FROM PD_PLATFORM_DESC)=3"); },
       .when_failed = StructureCanBeEdited});
}

TEST(FaultyDisk, NewEquipmentIsThereWholeOrNotAtAll) {
  ExpectToSurviveFaults(
      {.name = "new equipment",
       .plan = Small(),
       .prepare =
           [](TestRun& run) {
             run.ChangeTo(Mode::kDesc);
             run.Select(FirstStructure(0) + Flare(run));
           },
       .act =
           [](TestRun& run) {
             run.dialogs.push_back([&run](Form&) {
               run.Set("txtEquipID", "NEW");
               run.Set("cmbEquipType", "Boiler, Heater, or Burner");
               run.Click("cmdOK");
             });
             run.Click("mnuENewEquipment");
           },
       .is_done = [](TestRun&,
                     const std::string& path) { return Holds(path, "(SELECT COUNT(*) FROM ED_EQUIP_DESC)=33"); },
       .when_failed =
           [](TestRun& run) {
             run.TakeBoxes();
             run.Click("cmdEdit");
             run.Set("txtFLA_ConcH2S", "41");
             run.Click("cmdSaveEdits");
             run.Click("cmdCANCEL");
             EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{});
             run.boxes.push_back({"told before 999"});
           }});
}

}  // namespace
}  // namespace merlu::test
