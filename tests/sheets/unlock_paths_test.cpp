// What is open in an edit depends on the record alone, whatever way led to the edit.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "forms/desk.h"
#include "sheets/sheet_form.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Open = std::map<std::string, std::string>;  // control, and its enabled, locked and back

class UnlockPaths : public testing::TestWithParam<const SheetSpec*> {
 protected:
  const SheetSpec& sheet() const { return *GetParam(); }

  std::string Key(const std::string& id, Mode mode) { return run.Key(sheet().type, id, mode == Mode::kActv ? 1 : 0); }

  Open Shown() {
    Open open;
    for (const Control& control : SheetForm(run.s, sheet()).controls())
      open[control.name] = std::string(control.enabled ? "enabled" : "disabled") + (control.locked ? " locked" : "") +
                           (control.back == Back::kWindow ? " window"
                            : control.back == Back::kFace ? " face"
                                                          : " flag");
    return open;
  }

  // Chooses at random in every list that can be changed and types into the fields that are open.
  void ChangeAtRandom() {
    Form& form = SheetForm(run.s, sheet());
    for (const FieldSpec& field : sheet().fields) {
      Control& control = form.At(field.control);
      if (!WhyNot(run.s.desk, form, control, true).empty() && control.kind == Kind::kList) continue;
      if (control.kind == Kind::kOption) {
        if (random() % 2 == 0) act::Click(run.s.desk, form, field.control);
      } else if (control.kind == Kind::kList && !control.items.empty()) {
        act::Choose(run.s.desk, form, field.control, control.items[random() % control.items.size()]);
      } else if (control.kind == Kind::kText && random() % 2 == 0) {
        act::Type(run.s.desk, form, field.control, random() % 3 == 0 ? "99999999" : "40");
      }
    }
  }

  void GoTo(const std::string& id, Mode mode) {
    run.SelectRoot();  // which drops the sheet
    run.ChangeTo(mode);
    run.SelectRoot();
    run.Select(Key(id, mode));
  }

  void KeepAtRandom(const std::string& id, Mode mode) {
    GoTo(id, mode);
    run.Click("cmdEdit");
    ChangeAtRandom();
    ChangeAtRandom();
    run.Click("cmdSaveEdits");
    run.Click("cmdCANCEL");
  }

  // What an edit of the record shows on a sheet that is made anew.
  Open Fresh(Mode mode) {
    GoTo("X1", mode);
    run.Click("cmdEdit");
    const Open open = Shown();
    run.Click("cmdCANCEL");
    return open;
  }

  void ExpectSameOnEveryPath(Mode mode) {
    const Open fresh = Fresh(mode);
    const auto edit = [&](const char* path) {
      run.Click("cmdEdit");
      EXPECT_EQ(Shown(), fresh) << path;
    };
    edit("after Cancel");
    run.Click("cmdSaveEdits");
    EXPECT_EQ(Shown(), fresh) << "after Save";
    run.Click("cmdQC");
    run.Click("cmdSaveEdits");
    EXPECT_EQ(Shown(), fresh) << "after a run and Save";
    ChangeAtRandom();
    run.Click("cmdCANCEL");
    edit("after a change that was cancelled");
    run.Click("cmdSaveExit");
    edit("after End Edit & Save");
    run.Click("cmdCANCEL");
    run.Click("cmdQC");
    edit("after a run in view");
    run.Click("cmdCANCEL");
    run.Select(Key("X2", mode));
    run.Click("cmdEdit");
    ChangeAtRandom();
    run.Click("cmdQC");
    run.Click("cmdCANCEL");
    run.Select(Key("X1", mode));
    edit("after another record");
    run.Click("cmdCANCEL");
  }

  TestRun run;
  std::mt19937 random{20171};
};

TEST_P(UnlockPaths, to_a_record_all_open_the_same) {
  run.answers.assign(2000, Button::kOK);
  run.StartWith("VEN", "V1");
  for (const auto& [code, id] :
       std::vector<std::pair<std::string, std::string>>{{"FLA", "F1"}, {sheet().type, "X1"}, {sheet().type, "X2"}}) {
    run.Select(run.Key());
    run.AddEquipment(code, id);
  }
  run.SelectRoot();
  run.AddMonth();
  for (int round = 0; round < 3; ++round) {
    for (const char* id : {"X1", "X2"}) {
      KeepAtRandom(id, Mode::kDesc);
      if (sheet().has_activity) KeepAtRandom(id, Mode::kActv);
    }
    ExpectSameOnEveryPath(Mode::kDesc);
    if (sheet().has_activity) ExpectSameOnEveryPath(Mode::kActv);
  }
}

INSTANTIATE_TEST_SUITE_P(Sheets, UnlockPaths, testing::ValuesIn(AllSheets()),
                         [](const auto& info) { return info.param->type; });

}  // namespace
}  // namespace merlu::test
