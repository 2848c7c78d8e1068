// Tampered database files, opened as the working file: each is refused with a message, or the program copes with it.
#include <gtest/gtest.h>

#include "base/fault.h"
#include "forms/desk.h"
#include "inventory.h"
#include "script/json_views.h"
#include "shell/dialogs.h"
#include "shell/main_program.h"
#include "shell/messages.h"
#include "shell/sheet_acts.h"
#include "support/tampered.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// Does what a user might do, wherever it is possible.
class Visitor {
 public:
  explicit Visitor(TestRun& run) : run_(run) {}

  void UseEverything() {
    for (int mode = 0; mode < 2; ++mode) {
      VisitNodes();
      Press("mnuSetEditMode");
    }
    if (!run_.s.tree.nodes.empty()) Do([&] { ClickNode(run_.s, 0); });
    for (const char* command : {"cmdUSER_AddSurvey", "mnuEStructB", "mnuFExport", "frmInvQCPrint"}) Press(command);
  }

 private:
  static constexpr int kMostNodes = 60;

  // As the front ends do: a fault that an act passes on is shown.
  template <typename Work>
  void Do(Work&& work) {
    try {
      work();
      ShowNotices(run_.s);
    } catch (const Fault& fault) {
      TellFault(run_.s, fault);
    }
  }

  void Press(const std::string& name) {
    Form* form = run_.s.main;
    if (form == nullptr || run_.s.ended) return;
    run_.answers = {Button::kYes};
    Do([&] { act::Click(run_.s.desk, *form, name); });
    if (run_.boxes.size() > 1000) run_.boxes.clear();
  }

  void VisitNodes() {
    EXPECT_FALSE(Line(TreeJson(run_.s.tree)).empty());
    const int count = std::min(kMostNodes, static_cast<int>(run_.s.tree.nodes.size()));
    for (int node = 0; node < count && node < static_cast<int>(run_.s.tree.nodes.size()); ++node) {
      Do([&] { ClickNode(run_.s, node); });
      for (const Form* form : run_.s.desk.showing)
        for (const Control& control : form->controls()) Line(ControlJson(*form, control));
      for (const char* command : {"cmdQC", "cmdEdit", "cmdSaveEdits", "cmdSaveExit", "cmdCANCEL"}) Press(command);
    }
  }

  TestRun& run_;
};

class HostileFile : public testing::TestWithParam<Tampering> {
 protected:
  HostileFile() {
    run.program_folder = run.data_folder = run.folder.path();
    fs::copy_file(TemplatePath(), run.folder.path("mr.dbt"));
    InventoryPlan plan;
    plan.structures = 2;
    plan.equipment = 32;
    plan.months = 2;
    MakeInventory(TemplatePath(), path, plan);
  }
  TestRun run;
  const std::string path = run.folder.path("inventory.mdb");
};

TEST_P(HostileFile, IsRefusedWithAMessageOrLivedWith) {
  Raw(path, GetParam().statements);
  run.Start(path);
  if (!run.s.db.IsOpen()) {
    ASSERT_FALSE(run.boxes.empty());
    EXPECT_NE(run.boxes.back().text.find("Error # "), std::string::npos) << run.boxes.back().text;
  }
  Visitor(run).UseEverything();
  run.s.db.Close();
  EXPECT_EQ(NullToEmpty(RawValue(path, "PRAGMA integrity_check")), "ok");
}

INSTANTIATE_TEST_SUITE_P(All, HostileFile, testing::ValuesIn(Tamperings()),
                         [](const auto& info) { return std::string(info.param.name); });

// A month or year outside the calendar would be counted up to.
TEST_F(HostileFile, WithAMonthOrYearThatCannotBeIsRefused) {
  for (const char* value :
       {"SYS_MAX_MO=13", "SYS_MAX_MO=-1", "SYS_MAX_MO=2147483647", "SYS_MAX_MO=9223372036854775807",
        "SYS_MAX_MO=4294967297", "sys_yr=-2017", "sys_yr=20170", "sys_yr=9223372036854775807", "SYS_MAX_MO='99'"}) {
    Raw(path, {"UPDATE SYS_CONFIG SET SYS_MAX_MO=2, sys_yr=2017", std::string("UPDATE SYS_CONFIG SET ") + value});
    run.Start(path);
    const Texts boxes = run.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1u) << value;
    EXPECT_NE(boxes[0].find("Error # 3428"), std::string::npos) << boxes[0];
    EXPECT_FALSE(run.s.db.IsOpen()) << value;
  }
}

// Nothing that a file brings along is run.
TEST_F(HostileFile, WithTriggersIsUsedAsIfItHadNone) {
  Raw(path, {"CREATE TRIGGER wipe AFTER UPDATE ON CO_COMPANY BEGIN DELETE FROM PD_PLATFORM_DESC; END",
             "CREATE TRIGGER refuse BEFORE UPDATE ON SYS_CONFIG BEGIN SELECT RAISE(ABORT,'no'); END"});
  run.Start(path);
  run.Click("cmdEdit");
  run.Set("txtUSER_City", "Elsewhere");
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 2);
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Survey Month added to Activity Database"});
}

}  // namespace
}  // namespace merlu::test
