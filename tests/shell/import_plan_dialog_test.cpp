// The preview of an import: it shows what the import does.
#include <gtest/gtest.h>

#include "history/backups.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// An inventory of two months, and another one of three months with two structures.
class ImportPreview : public testing::Test {
 protected:
  ImportPreview() {
    there.StartWithStructure();
    there.AddEquipment("FLA", "F1");
    there.Select(there.Key());
    there.AddEquipment("FUG", "G1");
    there.AddStructure("2002", "1", "B");
    there.AddMonth();
    there.AddMonth();
    CloseDatabase(there.s);
    here.Start();
    here.AddStructure("3003", "1", "C");
    here.AddMonth();
    here.TakeBoxes();
  }
  void Open(const std::vector<int>& rows) {
    here.dialogs.emplace_front([this, rows](Form&) {
      here.Set("txtImportFilename", there.s.path);
      here.Click("cmdLoad");
      here.Pick("lvwStructures", rows);
      inside();
      here.Click("cmdCANCEL");
    });
    here.Click("mnuEStructB");
  }
  // What the preview shows; the details are those of the picked row.
  void Preview(int row = 0) {
    here.dialogs.emplace_front([this, row](Form& form) {
      EXPECT_EQ(form.name(), "frmImportPlan");
      here.Pick("lvwPLN_Structures", row);
      structures = here.At("lvwPLN_Structures").rows;
      columns = here.At("lvwPLN_Details").columns;
      details = here.At("lvwPLN_Details").rows;
      here.Click("cmdClose");
    });
    here.Click("cmdPlan");
  }
  int ImportBackups() const {
    int count = 0;
    for (const Backup& backup : Backups(here.s.path)) count += backup.why == backup_reason::kImport;
    return count;
  }

  TestRun there, here;
  std::function<void()> inside;
  Rows structures, details;
  std::vector<std::string> columns;
};

TEST_F(ImportPreview, says_what_the_import_does_then) {
  inside = [this] {
    Preview();
    EXPECT_EQ(here.Count("PD_PLATFORM_DESC"), 1) << "nothing is written";
    EXPECT_EQ(ImportBackups(), 0);
    here.Click("cmdImport");
  };
  Open({0, 1});
  EXPECT_EQ(structures, (Rows{{"1001/1", "add", "2", "3", ""}, {"2002/1", "add", "0", "3", ""}}));
  EXPECT_EQ(columns, (std::vector<std::string>{"Type", "ID", "Months"}));
  EXPECT_EQ(details, (Rows{{"Combustion Flare", "F1", "3"}, {"Fugitives", "G1", "2"}}));
  EXPECT_EQ(here.Count("PD_PLATFORM_DESC"), 3);
  EXPECT_EQ(here.Count("PA_PLATFORM_ACTV"), 9);
  EXPECT_EQ(here.Count("ED_EQUIP_DESC"), 2);
  EXPECT_EQ(here.Count("EA_FLA"), 3);
  EXPECT_EQ(here.s.last_month, 3);
  EXPECT_EQ(ImportBackups(), 1);
}

TEST_F(ImportPreview, shows_no_details_while_no_structure_is_picked) {
  inside = [this] {
    here.dialogs.emplace_front([this](Form& form) {
      here.Pick("lvwPLN_Structures", 0);
      EXPECT_EQ(form.At("lvwPLN_Details").rows.size(), 2u);
      here.Pick("lvwPLN_Structures", std::vector<int>{});
      EXPECT_TRUE(form.At("lvwPLN_Details").rows.empty());
      here.Click("cmdClose");
    });
    here.Click("cmdPlan");
  };
  Open({0, 1});
}

TEST_F(ImportPreview, says_which_months_the_structure_gets) {
  here.AddMonth();
  here.AddMonth();
  here.TakeBoxes();
  inside = [this] {
    Preview();
    here.Click("cmdImport");
  };
  Open({0});
  EXPECT_EQ(structures, (Rows{{"1001/1", "add", "2", "", "4"}}));
  EXPECT_EQ(here.Count("PA_PLATFORM_ACTV"), 8);
  EXPECT_EQ(here.Count("EA_FLA"), 4);
}

TEST_F(ImportPreview, says_what_differs_in_a_structure_that_exists_and_makes_no_backup_of_a_refused_import) {
  here.ChangeTo(Mode::kDesc);
  here.SelectRoot();
  here.AddStructure("1001", "1", "Other");
  here.TakeBoxes();
  inside = [this] {
    Preview(0);
    EXPECT_EQ(columns, (std::vector<std::string>{"Place", "Field", "Here", "There"}));
    ASSERT_FALSE(details.empty());
    EXPECT_EQ(details[0], (std::vector<std::string>{"GI, 43, Other", "Name", "Other", "A"}));
    Preview(1);
    EXPECT_EQ(columns, (std::vector<std::string>{"Type", "ID", "Months"}));
    here.TakeBoxes();
    here.Click("cmdImport");
    EXPECT_EQ(here.TakeBoxes(),
              std::vector<std::string>{"RIMA Structure ID already exists in database - import cancelled."});
  };
  Open({0, 1});
  EXPECT_EQ(structures, (Rows{{"1001/1", "refused: exists", "2", "", ""},
                              {"2002/1", "not added: another one exists", "0", "", ""}}));
  EXPECT_EQ(here.Count("PD_PLATFORM_DESC"), 2);
  EXPECT_EQ(ImportBackups(), 0);
  EXPECT_EQ(here.At("mnuEUndo").caption.find("Import"), std::string::npos);
}

TEST_F(ImportPreview, refuses_another_year_and_what_is_not_sound) {
  Raw(there.s.path, {"DELETE FROM ED_FUG"});
  inside = [this] { Preview(); };
  Open({0, 1});
  EXPECT_EQ(structures[0][1], "refused: not sound");
  EXPECT_EQ(structures[1][1], "not added: another one exists");
  EXPECT_EQ(details, (Rows{{"Fugitives: G1 lacks its row in ED_FUG."}}));
  Raw(there.s.path, {"UPDATE SYS_CONFIG SET sys_yr=2016"});
  Open({0, 1});
  EXPECT_EQ(structures[0][1], "refused: another year");
  EXPECT_EQ(structures[1][1], "refused: another year");
}

TEST_F(ImportPreview, wants_a_picked_structure) {
  inside = [this] {
    here.Click("cmdPlan");
    EXPECT_EQ(here.TakeBoxes(), std::vector<std::string>{"No Structures selected for importing."});
  };
  Open({});
}

}  // namespace
}  // namespace merlu::test
