// Imports, exports, the annual pass and the start of the program on a disk that fails under them.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "base/fault.h"
#include "faults/injection.h"
#include "shell/dialogs.h"
#include "shell/main_program.h"

namespace merlu::test {
namespace {

bool Holds(const std::string& path, const std::string& condition) {
  return ToInteger(RawValue(path, "SELECT " + condition)) == 1;
}

bool IsNotThere(const std::string& path) {
  return !fs::exists(path);
}

// ---- import ----

void MakeOther(TestRun& run) {
  const std::string other = run.folder.path("other.mdb");
  MakeInventory(TemplatePath(), other, OneOfEachType(2, 4));
  Raw(other, {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X'||CMPLX_ID_NUM"});
}

void Import(TestRun& run) {
  run.dialogs.push_back([&run](Form&) {
    run.Set("txtImportFilename", run.folder.path("other.mdb"));
    run.Click("cmdLoad");
    if (!run.At("lvwStructures").rows.empty()) {
      run.Pick("lvwStructures", {0, 1});
      run.Click("cmdImport");
    }
  });
  run.Click("mnuEStructB");
}

TEST(FaultyDiskUnderExchanges, AnImportIsThereWholeOrNotAtAll) {
  ExpectToSurviveFaults({.name = "import",
                         .plan = OneOfEachType(2, 2),
                         .prepare = MakeOther,
                         .act = Import,
                         .is_done =
                             [](TestRun&, const std::string& path) {
                               return Holds(path,
                                            "(SELECT COUNT(*) FROM PD_PLATFORM_DESC)=4 AND (SELECT SYS_MAX_MO "
                                            "FROM SYS_CONFIG)=4");
                             },
                         .when_failed =
                             [](TestRun& run) {
                               if (!run.s.db.IsOpen()) return;
                               EXPECT_EQ(run.s.last_month, ToInteger(run.Sql("SELECT SYS_MAX_MO FROM SYS_CONFIG")));
                             },
                         .again =
                             [](TestRun& run) {
                               if (!run.s.db.IsOpen()) run.Start(run.folder.path("inventory.mdb"));
                               run.TakeBoxes();
                             }});
}

// ---- exports ----

struct ExportDialog {
  const char* menu;
  const char* list;
  const char* button;
};

void Export(TestRun& run, const ExportDialog& dialog) {
  const std::string target = run.folder.path("target.mdb");
  if (!IsNotThere(target)) run.answers = {Button::kYes};
  run.dialogs.push_back([&run, dialog, target](Form&) {
    if (run.At(dialog.list).rows.empty()) return;
    run.Pick(dialog.list, 0);
    run.Set("txtExportFilename", target);
    run.Click(dialog.button);
  });
  run.Click(dialog.menu);
}

void StartAgainWithoutDatabase(TestRun& run) {
  if (!run.s.db.IsOpen() || run.s.tree.nodes.empty()) run.Start(run.folder.path("inventory.mdb"));
  run.TakeBoxes();
}

void ExpectToSurviveAsExport(const char* name, const ExportDialog& dialog, const std::string& rows_that_must_be) {
  static std::string before;
  ExpectToSurviveFaults({.name = name,
                         .plan = OneOfEachType(2, 2),
                         .prepare = [](TestRun& run) { before = FileBytes(run.folder.path("inventory.mdb")); },
                         .act = [dialog](TestRun& run) { Export(run, dialog); },
                         .is_done =
                             [rows_that_must_be](TestRun& run, const std::string& path) {
                               EXPECT_TRUE(FileBytes(path) == before) << "an export changed the working database";
                               const std::string target = run.folder.path("target.mdb");
                               if (IsNotThere(target)) return false;
                               try {
                                 return NullToEmpty(RawValue(target, "PRAGMA integrity_check")) == "ok" &&
                                        Holds(target, rows_that_must_be);
                               } catch (const Fault&) {
                                 return false;  // half a file, which must have been reported
                               }
                             },
                         .again = StartAgainWithoutDatabase});
}

TEST(FaultyDiskUnderExchanges, ASurveyExportThatFailsTells) {
  ExpectToSurviveAsExport("export survey", {"mnuFExport", "lvwSurveys", "cmdOK"},
                          "(SELECT COUNT(*) FROM PA_PLATFORM_ACTV)=2");
}

TEST(FaultyDiskUnderExchanges, AStructureExportThatFailsTells) {
  ExpectToSurviveAsExport("export structure", {"mnuEStructS", "lvwStructures", "cmdExport"},
                          "(SELECT COUNT(*) FROM PD_PLATFORM_DESC)=1 AND (SELECT COUNT(*) FROM ED_EQUIP_DESC)=16");
}

TEST(FaultyDiskUnderExchanges, AnInventoryExportThatFailsTells) {
  ExpectToSurviveAsExport("export inventory", {"mnuFExportInventory", "lvwSurveys", "cmdOK"},
                          "(SELECT COUNT(*) FROM PD_PLATFORM_DESC)=2");
}

// ---- the annual pass ----

TEST(FaultyDiskUnderExchanges, AnAnnualPassThatFailsTells) {
  InventoryPlan plan = OneOfEachType(1, 12);
  plan.fault_share = 0.5;
  const auto name = [](TestRun& run) { run.files = {run.folder.path("summary.pdf")}; };
  ExpectToSurviveFaults({.name = "annual pass",
                         .plan = plan,
                         .prepare = name,
                         .act = [](TestRun& run) { run.Click("frmInvQCPrint"); },
                         .is_done =
                             [](TestRun& run, const std::string& path) {
                               return fs::exists(run.folder.path("summary.pdf")) &&
                                      Holds(path, "(SELECT COUNT(*) FROM QCInventory WHERE [Level]='ZSUMMARY')=1");
                             },
                         .when_failed =
                             [](TestRun& run) {
                               EXPECT_FALSE(run.s.wait.showing);
                               for (const auto& entry : fs::directory_iterator(run.folder.path()))
                                 EXPECT_FALSE(entry.path().filename().string().starts_with(".merlu-"));
                             },
                         .again = name});
}

// ---- the start ----

TEST(FaultyDiskUnderExchanges, AStartThatFailsTells) {
  ExpectToSurviveFaults({.name = "start",
                         .plan = OneOfEachType(2, 2),
                         .prepare = [](TestRun& run) { CloseMainWindow(run.s); },
                         .act = [](TestRun& run) { run.Start(run.folder.path("inventory.mdb")); },
                         .is_done =
                             [](TestRun& run, const std::string&) {
                               return run.s.db.IsOpen() && run.s.tree.nodes.size() == 1 + 2 + 2 * 2 + 2 * 2 * 15;
                             }});
}

}  // namespace
}  // namespace merlu::test
