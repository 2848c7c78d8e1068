// Steps in the companion, undone and redone, and unusable companions.
#include <gtest/gtest.h>

#include <fstream>

#include "history/companion.h"
#include "history/layout.h"
#include "history/notes.h"
#include "history/steps.h"
#include "support/pauses.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Every row of every table with its number and the exact form of its values.
std::string Everything(Database& db) {
  std::string all;
  for (const RecordedTable& table : *db.recorder().tables()) {
    if (table.IsAttached()) continue;
    std::string columns;
    for (const std::string& column : table.columns) columns += "||','||quote([" + column + "])";
    db.ForEach("SELECT rowid" + columns + " FROM [" + table.name + "] ORDER BY rowid", {},
               [&](const RowView& row) { all += table.name + ": " + std::string(row.Text(0)) + "\n"; });
  }
  return all;
}

class History : public testing::Test {
 protected:
  History() {
    path = CopyTemplate(folder);
    Raw(path, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('12345')",
               "INSERT INTO SYS_CONFIG (sys_yr,SYS_MAX_MO) VALUES (2017,1)"});
    Open();
  }
  ~History() override {
    companion.Close();
    db.Close();
  }

  void Open() {
    db.Open(path);
    db.RecordChanges(RecordedCompanionTables());
    companion.Open(db, [] { return StepTitle{"2017-03-05 14:02:00", "anna", "Change", "somewhere", "", ""}; });
  }
  void Reopen() {
    companion.Close();
    db.Close();
    Open();
  }

  void DoStep(const std::string& what, const std::vector<std::string>& statements) {
    companion.BeginStep({"2017-03-05 14:02:00", "anna", what, "there", "a", "b"});
    for (const std::string& sql : statements) db.Execute(sql);
    companion.EndStep();
  }
  void AddStructure() {
    DoStep("structure",
           {"INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,Area) VALUES (1,'GI')",
            "INSERT INTO ED_EQUIP_DESC VALUES (5,1,'FLA','F1',NULL)", "INSERT INTO ED_FLA (ED_ID_AK) VALUES (5)",
            "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_MO) VALUES (9,5,1)",
            "INSERT INTO EA_FLA (EA_ID_AK) VALUES (9)", "INSERT INTO QC (rowid,FieldID) VALUES (40,'x')"});
  }
  std::int64_t Newest() { return Steps(companion).front().id; }
  std::string File() const { return path + ".history"; }

  TemporaryFolder folder;
  std::string path;
  Database db;
  Companion companion;
};

TEST_F(History, is_not_made_before_something_is_written) {
  EXPECT_FALSE(fs::exists(File()));
  EXPECT_FALSE(NextUndo(companion));
  EXPECT_EQ(companion.why_not(), "");
  AddStructure();
  EXPECT_TRUE(fs::exists(File())) << companion.why_not();
}

TEST_F(History, keeps_what_a_step_is_called_and_how_many_values_it_wrote) {
  AddStructure();
  const std::vector<HistoryStep> steps = Steps(companion);
  ASSERT_EQ(steps.size(), 1u);  // its batches together
  EXPECT_EQ(steps[0].title.what, "structure");
  EXPECT_EQ(steps[0].title.who, "anna");
  EXPECT_EQ(steps[0].title.place, "there");
  EXPECT_EQ(steps[0].values, 3);  // the area, the ID, the finding
  EXPECT_FALSE(steps[0].undone);
}

TEST_F(History, takes_a_cascade_back_and_does_it_again) {
  const std::string empty = Everything(db);
  AddStructure();
  const std::string full = Everything(db);
  DoStep("deletion", {"DELETE FROM QC", "DELETE FROM PD_PLATFORM_DESC"});
  EXPECT_FALSE(UndoSteps(companion, Newest()));
  EXPECT_EQ(Everything(db), full);
  EXPECT_EQ(NextUndo(companion)->title.what, "structure");
  EXPECT_EQ(NextRedo(companion)->title.what, "deletion");
  EXPECT_FALSE(UndoSteps(companion, NextUndo(companion)->id));
  EXPECT_EQ(Everything(db), empty);
  EXPECT_FALSE(NextUndo(companion));
  EXPECT_FALSE(RedoSteps(companion, NextRedo(companion)->id));
  EXPECT_EQ(Everything(db), full);
  EXPECT_FALSE(RedoSteps(companion, NextRedo(companion)->id));
  EXPECT_EQ(Everything(db), empty);
  EXPECT_FALSE(NextRedo(companion));
}

TEST_F(History, outlasts_the_end_of_the_program) {
  const std::string empty = Everything(db);
  AddStructure();
  Reopen();
  ASSERT_TRUE(NextUndo(companion));
  EXPECT_FALSE(UndoSteps(companion, Newest()));
  EXPECT_EQ(Everything(db), empty);
  Reopen();
  EXPECT_TRUE(NextRedo(companion));
}

TEST_F(History, takes_several_steps_back_at_once) {
  const std::string empty = Everything(db);
  AddStructure();
  const std::int64_t first = Newest();
  DoStep("change", {"UPDATE PD_PLATFORM_DESC SET Area='WD',Block='7'"});
  DoStep("another", {"UPDATE PD_PLATFORM_DESC SET Area='XX'", "INSERT INTO QC (FieldID) VALUES ('y')"});
  EXPECT_FALSE(UndoSteps(companion, first));
  EXPECT_EQ(Everything(db), empty);
  EXPECT_EQ(NextRedo(companion)->id, first);
}

TEST_F(History, ends_what_could_be_redone_with_a_new_step) {
  AddStructure();
  DoStep("change", {"UPDATE PD_PLATFORM_DESC SET Area='WD'"});
  UndoSteps(companion, Newest());
  ASSERT_TRUE(NextRedo(companion));
  DoStep("new", {"UPDATE PD_PLATFORM_DESC SET Block='8'"});
  EXPECT_FALSE(NextRedo(companion));
  EXPECT_EQ(NextUndo(companion)->title.what, "new");
  EXPECT_FALSE(UndoSteps(companion, Newest()));
  EXPECT_EQ(NextUndo(companion)->title.what, "structure");
}

struct Meddling {
  const char* name;
  std::vector<std::string> step, theirs;
  const char* table;
};

class OthersWrote : public History, public testing::WithParamInterface<Meddling> {};

TEST_P(OthersWrote, and_the_undo_changes_nothing) {
  AddStructure();
  DoStep("mine", GetParam().step);
  Raw(path, GetParam().theirs);
  const std::string before = Everything(db);
  const auto in_the_way = UndoSteps(companion, Newest());
  ASSERT_TRUE(in_the_way);
  EXPECT_EQ(in_the_way->table, GetParam().table);
  EXPECT_EQ(Everything(db), before);
  EXPECT_EQ(NextUndo(companion)->title.what, "mine");
}

const std::vector<Meddling> kMeddlings = {
    {"the_same_value",
     {"UPDATE PD_PLATFORM_DESC SET Area='WD'"},
     {"UPDATE PD_PLATFORM_DESC SET Area='XX'"},
     "PD_PLATFORM_DESC"},
    {"another_value_of_the_row",
     {"UPDATE PD_PLATFORM_DESC SET Area='WD'"},
     {"UPDATE PD_PLATFORM_DESC SET Block='9'"},
     "PD_PLATFORM_DESC"},
    {"the_row_away", {"UPDATE EA_FLA SET OP_HR=7"}, {"DELETE FROM EA_FLA"}, "EA_FLA"},
    {"a_row_in_the_place_of_a_deleted_one",
     {"DELETE FROM QC"},
     {"INSERT INTO QC (rowid,FieldID) VALUES (40,'z')"},
     "QC"},
    {"a_child_of_an_added_row",
     {"INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (2)"},
     {"INSERT INTO ED_EQUIP_DESC VALUES (77,2,'FLA','F9',NULL)"},
     "ED_EQUIP_DESC"},
    {"the_parent_of_a_deleted_row_away",
     {"DELETE FROM EA_FLA"},
     {"PRAGMA foreign_keys=ON", "DELETE FROM EA_EQUIP_ACTV"},
     "EA_FLA"},
};

INSTANTIATE_TEST_SUITE_P(Rows, OthersWrote, testing::ValuesIn(kMeddlings),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(History, redoes_nothing_over_another_programs_change) {
  AddStructure();
  DoStep("mine", {"UPDATE PD_PLATFORM_DESC SET Area='WD'"});
  UndoSteps(companion, Newest());
  Raw(path, {"UPDATE PD_PLATFORM_DESC SET Area='XX'"});
  EXPECT_TRUE(RedoSteps(companion, Newest()));
  EXPECT_EQ(NullToEmpty(db.Single("SELECT Area FROM PD_PLATFORM_DESC")), "XX");
}

TEST_F(History, lets_the_oldest_steps_go) {
  companion.most_steps = 3;
  AddStructure();
  for (int i = 0; i < 5; ++i)
    DoStep(std::to_string(i), {"UPDATE PD_PLATFORM_DESC SET Block='" + std::to_string(i) + "'"});
  std::vector<std::string> names;
  for (const HistoryStep& step : Steps(companion)) names.push_back(step.title.what);
  EXPECT_EQ(names, (std::vector<std::string>{"4", "3", "2"}));
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM history.part")), 3);
}

TEST_F(History, stays_under_its_size) {
  companion.most_bytes = 20000;
  AddStructure();
  for (int i = 0; i < 50; ++i)
    DoStep(std::to_string(i),
           {"UPDATE PD_PLATFORM_DESC SET Block='" + std::string(1000, static_cast<char>('a' + i % 26)) + "'"});
  EXPECT_LE(ToInteger(db.Single("SELECT SUM(LENGTH(changes)) FROM history.part")), 20000);
  EXPECT_GE(Steps(companion).size(), 5u);
  EXPECT_LE(fs::file_size(File()), 120000u);
}

TEST_F(History, takes_back_with_a_step_what_it_kept_in_mind) {
  AddStructure();
  companion.BeginStep({"", "", "copy", "", "", ""});
  {
    WriteBatch batch(db);
    db.Execute("UPDATE EA_FLA SET OP_HR=7");
    KeepCopied(companion, "EA_FLA", 9, {{"OP_HR", "7"}});
    KeepComment(companion, "F1 hours", {"odd", "7"});
    batch.Commit();
  }
  companion.EndStep();
  ASSERT_EQ(CopiedOf(companion, "EA_FLA", 9).size(), 1u);
  EXPECT_EQ(CommentOf(companion, "F1 hours")->value, "7");
  EXPECT_FALSE(UndoSteps(companion, Newest()));
  EXPECT_TRUE(CopiedOf(companion, "EA_FLA", 9).empty());
  EXPECT_FALSE(CommentOf(companion, "F1 hours"));
  EXPECT_FALSE(RedoSteps(companion, Newest()));
  EXPECT_EQ(CopiedOf(companion, "EA_FLA", 9).front().value, "7");
}

TEST_F(History, knows_the_newest_hand_in_of_each_month) {
  AddStructure();
  KeepHandIn(companion, 2017, 3, "2017-04-01 10:00:00");
  DoStep("later", {"UPDATE PD_PLATFORM_DESC SET Area='WD'"});
  KeepHandIn(companion, 2017, 1, "2017-04-02 10:00:00");
  KeepHandIn(companion, 2017, 3, "2017-04-03 10:00:00");
  const std::vector<HandIn> all = HandIns(companion);
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[0].month, 1);
  EXPECT_EQ(all[1].when, "2017-04-03 10:00:00");
  EXPECT_EQ(all[1].step, Newest());
}

TEST_F(History, keeps_drafts_without_touching_the_inventory) {
  AddStructure();
  const std::int64_t counter = db.FileChangeCounter();
  Draft draft{0, "me", "there", "at", {{"txtFLA_HrsOperated", "Hours", "", "7"}}};
  EXPECT_TRUE(KeepDraft(companion, draft));
  draft.fields.push_back({"txtFLA_B", "B", "1", "2"});
  EXPECT_TRUE(KeepDraft(companion, draft));
  Reopen();
  ASSERT_EQ(Drafts(companion).size(), 1u);
  ASSERT_EQ(Drafts(companion)[0].fields.size(), 2u);
  EXPECT_EQ(Drafts(companion)[0].fields[1].entered, "2");
  EXPECT_EQ(db.FileChangeCounter(), counter);
  companion.ForgetDraftWithBatch(draft.id);
  DoStep("save", {"UPDATE EA_FLA SET OP_HR=7"});
  EXPECT_TRUE(Drafts(companion).empty());
}

// ---- a companion of no use ----

TEST_F(History, that_is_damaged_costs_no_save) {
  AddStructure();
  companion.Close();
  db.Close();
  std::ofstream(File(), std::ios::binary) << "no database at all, but long enough to be one";
  Open();
  EXPECT_EQ(companion.why_not(), "No history is being kept: inventory.mdb.history is damaged.");
  DoStep("save", {"UPDATE EA_FLA SET OP_HR=7"});
  EXPECT_EQ(ToInteger(db.Single("SELECT OP_HR FROM EA_FLA")), 7);
  EXPECT_FALSE(NextUndo(companion));
}

TEST_F(History, of_another_inventory_is_left_alone) {
  AddStructure();
  companion.Close();
  db.Close();
  const std::string other = CopyTemplate(folder, "other.mdb");
  Raw(other, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('54321')",
              "INSERT INTO SYS_CONFIG (sys_yr,SYS_MAX_MO) VALUES (2017,1)"});
  fs::copy_file(File(), other + ".history");
  path = other;
  Open();
  EXPECT_EQ(companion.why_not(), "No history is being kept: other.mdb.history belongs to another inventory.");
  EXPECT_FALSE(NextUndo(companion));
  DoStep("save", {"UPDATE CO_COMPANY SET CO_NAME='x'"});
  EXPECT_EQ(NullToEmpty(db.Single("SELECT CO_NAME FROM CO_COMPANY")), "x");
}

TEST_F(History, of_an_inventory_of_the_same_name_that_holds_other_rows_is_known_for_it) {
  fs::copy_file(path, folder.path("copy.mdb"));
  AddStructure();
  companion.Close();
  db.Close();
  fs::copy_file(File(), folder.path("copy.mdb.history"));
  path = folder.path("copy.mdb");
  Open();
  EXPECT_FALSE(companion.IsAttached());
  EXPECT_NE(companion.why_not(), "");
}

TEST_F(History, is_still_this_inventorys_after_an_undo_above_another_programs_change) {
  AddStructure();
  Raw(path, {"UPDATE PD_PLATFORM_DESC SET Area='WC'", "DELETE FROM QC"});
  DoStep("save", {"UPDATE CO_COMPANY SET CO_NAME='x'", "UPDATE CO_COMPANY SET CO_NAME='y'"});
  EXPECT_FALSE(UndoSteps(companion, Newest()));
  Reopen();
  EXPECT_TRUE(companion.IsAttached()) << companion.why_not();
  ASSERT_TRUE(NextRedo(companion));
  EXPECT_FALSE(RedoSteps(companion, NextRedo(companion)->id));
  EXPECT_EQ(NullToEmpty(db.Single("SELECT CO_NAME FROM CO_COMPANY")), "y");
  Reopen();
  EXPECT_TRUE(companion.IsAttached()) << companion.why_not();
}

TEST_F(History, of_an_inventory_of_the_same_name_is_known_for_it_after_an_undo_too) {
  AddStructure();
  fs::copy_file(path, folder.path("copy.mdb"));
  DoStep("save", {"UPDATE CO_COMPANY SET CO_NAME='x'"});
  EXPECT_FALSE(UndoSteps(companion, Newest()));
  companion.Close();
  db.Close();
  fs::copy_file(File(), folder.path("copy.mdb.history"));
  path = folder.path("copy.mdb");
  // as many changes
  Raw(path, {"DELETE FROM QC"});
  Raw(path, {"UPDATE CO_COMPANY SET CO_NAME='z'"});
  Open();
  EXPECT_FALSE(companion.IsAttached());
}

TEST_F(History, that_another_program_holds_costs_no_save) {
  AddStructure();
  Database holder;
  holder.Open(File());
  {
    WriteBatch lock(holder);
    const WithoutPauses without_pauses;
    DoStep("save", {"UPDATE EA_FLA SET OP_HR=7"});
    EXPECT_EQ(ToInteger(db.Single("SELECT OP_HR FROM EA_FLA")), 7);
    EXPECT_EQ(companion.why_not(), "No history is being kept: inventory.mdb.history is locked by another program.");
  }
  holder.Close();
  DoStep("later", {"UPDATE EA_FLA SET OP_HR=8"});
  EXPECT_EQ(companion.why_not(), "");
  EXPECT_EQ(NextUndo(companion)->title.what, "later");
}

TEST_F(History, is_not_blamed_for_a_lock_on_the_inventory) {
  AddStructure();
  Database holder;
  holder.Open(path);
  const WithoutPauses without_pauses;
  for (const bool writes : {true, false}) {
    holder.Execute(writes ? "BEGIN IMMEDIATE" : "BEGIN");
    if (!writes) holder.Query("SELECT COUNT(*) FROM EA_FLA");
    companion.BeginStep({"2017-03-05 14:02:00", "anna", "refused", "there", "a", "b"});
    EXPECT_THROW(db.Execute("UPDATE EA_FLA SET OP_HR=7"), Fault);
    companion.EndStep();
    EXPECT_EQ(companion.why_not(), "") << writes;
    holder.Execute("ROLLBACK");
    DoStep("kept", {"UPDATE EA_FLA SET OP_HR=" + std::to_string(writes ? 8 : 9)});
    EXPECT_EQ(NextUndo(companion)->title.what, "kept");
  }
  EXPECT_EQ(Steps(companion).size(), 3U) << "each commit that went through is a step";
}

TEST_F(History, opened_while_the_inventory_is_locked_names_the_inventory) {
  AddStructure();
  companion.Close();
  Database holder;
  holder.Open(path);
  WriteBatch lock(holder);
  holder.Execute("UPDATE EA_FLA SET OP_HR=7");
  fs::remove(File());
  const WithoutPauses without_pauses;
  companion.Open(db, {});
  EXPECT_FALSE(companion.Want());
  EXPECT_EQ(companion.why_not(), "No history is being kept: inventory.mdb is locked by another program.");
}

TEST_F(History, that_is_deleted_meanwhile_costs_no_save_and_is_made_anew) {
  AddStructure();
  fs::remove(File());
  DoStep("save", {"UPDATE EA_FLA SET OP_HR=7"});
  EXPECT_EQ(ToInteger(db.Single("SELECT OP_HR FROM EA_FLA")), 7);
  EXPECT_EQ(companion.why_not(), "No history is being kept: inventory.mdb.history was moved or deleted.");
  DoStep("later", {"UPDATE EA_FLA SET OP_HR=8"});
  EXPECT_EQ(companion.why_not(), "");
  ASSERT_EQ(Steps(companion).size(), 1u);
  EXPECT_FALSE(UndoSteps(companion, Newest()));
  EXPECT_EQ(ToInteger(db.Single("SELECT OP_HR FROM EA_FLA")), 7);
}

TEST_F(History, goes_with_no_inventory_that_was_moved_away) {
  companion.Close();
  companion.Open(db, nullptr);
  fs::rename(path, folder.path("moved.mdb"));
  EXPECT_FALSE(companion.Want());
  EXPECT_FALSE(fs::exists(File()));
  fs::rename(folder.path("moved.mdb"), path);
}

TEST_F(History, has_the_connection_record_what_it_is_to_keep) {
  companion.Close();
  db.Close();
  db.Open(path);
  ASSERT_FALSE(db.recorder().IsOn());
  companion.Open(db, nullptr);
  AddStructure();
  EXPECT_FALSE(UndoSteps(companion, Newest()));
  EXPECT_TRUE(IsNull(db.Single("SELECT 1 FROM PD_PLATFORM_DESC")));
}

TEST_F(History, that_cannot_be_written_costs_no_save) {
  AddStructure();
  companion.Close();
  db.Close();
  fs::permissions(File(), fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  Open();
  EXPECT_EQ(companion.why_not(), "No history is being kept: inventory.mdb.history cannot be written.");
  DoStep("save", {"UPDATE EA_FLA SET OP_HR=7"});
  EXPECT_EQ(ToInteger(db.Single("SELECT OP_HR FROM EA_FLA")), 7);
}

TEST_F(History, that_holds_more_than_its_own_tables_is_damaged) {
  AddStructure();
  companion.Close();
  db.Close();
  Raw(File(), {"CREATE TABLE more (x)"});
  Open();
  EXPECT_FALSE(companion.IsAttached());
}

TEST_F(History, whose_steps_are_no_steps_changes_nothing) {
  AddStructure();
  const std::string before = Everything(db);
  db.Execute("UPDATE history.part SET changes=x'4d4831010a6e6f2d746162'");
  EXPECT_THROW(UndoSteps(companion, Newest()), Fault);
  EXPECT_EQ(Everything(db), before);
  EXPECT_FALSE(db.InBatch());
  DoStep("save", {"UPDATE EA_FLA SET OP_HR=7"});
  EXPECT_FALSE(UndoSteps(companion, Newest()));
}

TEST(PackedSteps, survive_any_cut_and_any_changed_byte) {
  TemporaryFolder folder;
  Database db;
  db.Open(CopyTemplate(folder));
  db.RecordChanges();
  std::string packed;
  db.Listen([&](const Changes& changes) { packed = PackChanges(changes).bytes; });
  db.Execute("INSERT INTO QC (FieldID,[Desc]) VALUES ('a','b'),('c','d')");
  {
    WriteBatch batch(db);
    db.Execute("DELETE FROM QC WHERE FieldID='a'");
    db.Execute("UPDATE QC SET Comments='x',[Desc]='y'");
    batch.Commit();
  }
  EXPECT_EQ(UnpackChanges(packed).size(), 2u);
  const auto read = [](const std::string& bytes) {
    try {
      std::string other;
      for (const KeptRow& row : UnpackChanges(bytes)) OtherSide(row, row.row, true, other);
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.number, fault_number::kDamaged);
    }
  };
  for (std::size_t cut = 0; cut < packed.size(); ++cut) read(packed.substr(0, cut));
  for (std::size_t at = 0; at < packed.size(); ++at)
    for (const char byte : {'\0', '\1', '\x7f', '\x80', '\xff'}) {
      std::string changed = packed;
      changed[at] = byte;
      read(changed);
    }
}

}  // namespace
}  // namespace merlu::test
