#include "store/cursor.h"

#include <gtest/gtest.h>

#include <memory>

#include "base/fault.h"
#include "session/session.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Three structures, 10, 20 and 30, on a cursor at the first.
class Structures : public testing::Test {
 protected:
  Structures() {
    db.Open(path);
    for (int id : {30, 10, 20})
      db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,Area,Name) VALUES (?,?,?)",
                 {std::int64_t{id}, std::string(id == 30 ? "GI" : "EC"), "N" + std::to_string(id)});
    at = std::make_unique<Cursor>(db, "PD_PLATFORM_DESC");
  }
  std::int64_t Id() { return ToInteger(at->Field("PD_ID_AK")); }
  std::string Name() { return NullToEmpty(at->Field("Name")); }
  template <typename Work>
  static int FaultOf(Work&& work) {
    try {
      work();
      return 0;
    } catch (const Fault& fault) {
      return fault.number;
    }
  }

  TemporaryFolder folder;
  std::string path = CopyTemplate(folder);
  Database db;
  std::unique_ptr<Cursor> at;
};

// ---- moves ----

TEST_F(Structures, are_opened_on_the_first_row) {
  EXPECT_EQ(Id(), 10);
  EXPECT_TRUE(at->HasRow());
}

TEST_F(Structures, count_to_zero_exactly_when_there_are_none) {
  EXPECT_FALSE(at->IsEmpty());
  db.Execute("DELETE FROM PD_PLATFORM_DESC");
  EXPECT_TRUE(at->IsEmpty());
}

TEST_F(Structures, have_no_current_row_when_there_are_none) {
  Cursor none(db, "EA_FLA");
  EXPECT_FALSE(none.HasRow());
  EXPECT_EQ(FaultOf([&] { none.Field("OP_HR"); }), 3021);
  none.MoveFirst();
  EXPECT_FALSE(none.HasRow());
}

// ---- finds ----

TEST_F(Structures, are_found_by_a_column_without_regard_to_its_case_or_that_of_the_text) {
  EXPECT_TRUE(at->FindFirst({{"area", std::string("gi")}}));
  EXPECT_EQ(Id(), 30);
}

TEST_F(Structures, are_found_from_the_first_row_on_wherever_the_cursor_stands) {
  ASSERT_TRUE(at->FindFirst({{"PD_ID_AK", std::int64_t{30}}}));
  EXPECT_TRUE(at->FindFirst({{"Area", std::string("EC")}}));
  EXPECT_EQ(Id(), 10);
}

TEST_F(Structures, are_found_by_several_columns_at_once) {
  EXPECT_TRUE(at->FindFirst({{"Area", std::string("EC")}, {"Name", std::string("N20")}}));
  EXPECT_EQ(Id(), 20);
  EXPECT_FALSE(at->FindFirst({{"Area", std::string("GI")}, {"Name", std::string("N20")}}));
}

TEST_F(Structures, are_found_by_a_condition_of_the_caller_s_own) {
  EXPECT_TRUE(at->FindFirstWhere("PD_ID_AK>? AND Area=?", {std::int64_t{10}, std::string("EC")}));
  EXPECT_EQ(Id(), 20);
}

TEST_F(Structures, leave_no_current_row_after_a_find_without_a_match) {
  EXPECT_FALSE(at->FindFirst({{"PD_ID_AK", std::int64_t{99}}}));
  EXPECT_FALSE(at->HasRow());
  EXPECT_EQ(FaultOf([&] { Id(); }), 3021);
  EXPECT_EQ(FaultOf([&] { at->Edit(); }), 3021);
  EXPECT_TRUE(at->FindFirst({{"PD_ID_AK", std::int64_t{20}}}));
  EXPECT_EQ(Id(), 20);
}

TEST_F(Structures, match_no_null) {
  EXPECT_FALSE(at->FindFirst({{"Block", Null{}}}));
  EXPECT_FALSE(at->HasRow());
}

TEST_F(Structures, take_an_apostrophe_as_part_of_the_text) {
  db.Execute("UPDATE PD_PLATFORM_DESC SET Name='O''Brien' WHERE PD_ID_AK=20");
  EXPECT_TRUE(at->FindFirst({{"Name", std::string("O'Brien")}}));
  EXPECT_EQ(Id(), 20);
}

TEST_F(Structures, tell_a_column_that_does_not_exist) {
  EXPECT_EQ(FaultOf([&] { at->Field("NO_SUCH"); }), 3265);
  EXPECT_EQ(FaultOf([&] { at->FindFirst({{"NO_SUCH", std::int64_t{1}}}); }), 3265);
  at->MoveFirst();
  at->Edit();
  EXPECT_EQ(FaultOf([&] { at->SetField("NO_SUCH", std::int64_t{1}); }), 3265);
}

TEST_F(Structures, tell_a_table_that_does_not_exist) {
  EXPECT_EQ(FaultOf([&] { Cursor none(db, "EA_FUG"); }), 3078);
}

// ---- changes ----

TEST_F(Structures, are_changed_where_the_cursor_stands_and_only_at_the_update) {
  at->FindFirst({{"PD_ID_AK", std::int64_t{20}}});
  at->Edit();
  at->SetField("Name", std::string("New"));
  at->SetField("LATITUDE", 28.5);
  EXPECT_EQ(NullToEmpty(db.Single("SELECT Name FROM PD_PLATFORM_DESC WHERE PD_ID_AK=20")), "N20");
  at->Update();
  EXPECT_EQ(Name(), "New");
  EXPECT_EQ(Id(), 20);
  EXPECT_EQ(ToNumber(db.Single("SELECT LATITUDE FROM PD_PLATFORM_DESC WHERE PD_ID_AK=20")), 28.5);
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM PD_PLATFORM_DESC WHERE Name='New'")), 1);
}

TEST_F(Structures, are_not_changed_without_an_edit) {
  EXPECT_EQ(FaultOf([&] { at->SetField("Name", std::string("New")); }), 3020);
  EXPECT_EQ(FaultOf([&] { at->Update(); }), 3020);
  at->Edit();
  at->Update();
  EXPECT_EQ(FaultOf([&] { at->Update(); }), 3020);
}

TEST_F(Structures, drop_a_change_that_was_begun_when_the_cursor_moves) {
  at->Edit();
  at->SetField("Name", std::string("New"));
  at->MoveFirst();
  EXPECT_EQ(FaultOf([&] { at->Update(); }), 3020);
  at->AddNew();
  at->FindFirst({{"PD_ID_AK", std::int64_t{10}}});
  EXPECT_EQ(FaultOf([&] { at->Update(); }), 3020);
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM PD_PLATFORM_DESC WHERE Name LIKE 'N_0'")), 3);
}

TEST_F(Structures, grow_by_a_row_that_does_not_become_current) {
  at->AddNew();
  at->SetField("PD_ID_AK", std::int64_t{40});
  at->SetField("Name", std::string("N40"));
  at->Update();
  EXPECT_EQ(Id(), 10);
  EXPECT_TRUE(at->FindFirst({{"PD_ID_AK", std::int64_t{40}}}));
  EXPECT_EQ(Name(), "N40");
}

TEST_F(Structures, refuse_a_key_that_exists_and_go_on) {
  at->AddNew();
  at->SetField("PD_ID_AK", std::int64_t{20});
  EXPECT_EQ(FaultOf([&] { at->Update(); }), 3022);
  EXPECT_EQ(FaultOf([&] { at->Update(); }), 3020);
  EXPECT_EQ(Id(), 10);
}

TEST_F(Structures, get_a_row_without_any_value) {
  Cursor config(db, "SYS_CONFIG");
  config.AddNew();
  config.Update();
  EXPECT_FALSE(config.IsEmpty());
  EXPECT_TRUE(IsNull(config.Field("sys_yr")));
}

TEST_F(Structures, that_a_statement_deleted_keep_the_cursor_until_it_is_requeried) {
  db.Execute("DELETE FROM PD_PLATFORM_DESC WHERE PD_ID_AK=10");
  EXPECT_EQ(Id(), 10);
  at->Requery();
  EXPECT_EQ(Id(), 20);
}

TEST_F(Structures, that_a_statement_deleted_cannot_be_changed) {
  db.Execute("DELETE FROM PD_PLATFORM_DESC WHERE PD_ID_AK=10");
  at->Edit();
  at->SetField("Name", std::string("New"));
  EXPECT_EQ(FaultOf([&] { at->Update(); }), 3167);
}

TEST_F(Structures, that_a_statement_added_are_seen_after_a_requery) {
  db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (5)");
  at->Requery();
  EXPECT_EQ(Id(), 5);
}

TEST_F(Structures, show_what_another_cursor_or_a_followed_key_has_changed) {
  Cursor other(db, "pd_platform_desc");
  other.FindFirst({{"PD_ID_AK", std::int64_t{10}}});
  other.Edit();
  other.SetField("Name", std::string("other"));
  other.Update();
  EXPECT_EQ(Name(), "other");
  db.Execute("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK) VALUES (1,10)");
  Cursor equipment(db, "ED_EQUIP_DESC");
  at->Edit();
  at->SetField("PD_ID_AK", std::int64_t{11});
  at->Update();
  EXPECT_EQ(ToInteger(equipment.Field("PD_ID_AK")), 11);
}

TEST_F(Structures, show_what_another_program_has_changed_once_it_is_noticed) {
  Raw(path, {"UPDATE PD_PLATFORM_DESC SET Name='theirs' WHERE PD_ID_AK=10"});
  const std::int64_t before = db.ChangeCount();
  db.NoticeOthers();
  EXPECT_EQ(db.ChangeCount(), before + 1);
  EXPECT_EQ(Name(), "theirs");
  db.NoticeOthers();
  EXPECT_EQ(db.ChangeCount(), before + 1);
}

TEST_F(Structures, give_a_yes_no_column_as_yes_or_no) {
  db.Execute("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK) VALUES (1,10)");
  db.Execute("INSERT INTO ED_FLA (ED_ID_AK,CTRL_FLA_PILOT_FLG) VALUES (1,1)");
  Cursor flare(db, "ED_FLA");
  EXPECT_EQ(flare.Field("CTRL_FLA_PILOT_FLG"), Value(true));
  flare.Edit();
  flare.SetField("CTRL_FLA_PILOT_FLG", false);
  flare.Update();
  EXPECT_EQ(flare.Field("CTRL_FLA_PILOT_FLG"), Value(false));
}

TEST_F(Structures, are_reached_by_two_cursors_with_places_of_their_own) {
  Cursor other(db, "PD_PLATFORM_DESC");
  ASSERT_TRUE(other.FindFirst({{"PD_ID_AK", std::int64_t{30}}}));
  EXPECT_EQ(Id(), 10);
  EXPECT_EQ(ToInteger(other.Field("PD_ID_AK")), 30);
}

TEST_F(Structures, name_their_columns_in_the_order_of_the_table) {
  Cursor config(db, "SYS_CONFIG");
  EXPECT_EQ(config.columns(), (std::vector<std::string>{"sys_yr", "SYS_MAX_MO", "ERR_CHK_LVL"}));
  EXPECT_EQ(config.table(), "SYS_CONFIG");
}

TEST(Cursors, that_were_never_opened_are_not_set) {
  Cursors cursors;
  EXPECT_FALSE(cursors.IsOpen());
  try {
    cursors.At("QC");
    FAIL() << "a cursor without a database";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number, 91);
    EXPECT_EQ(fault.description, "No inventory is open.");
  }
}

}  // namespace
}  // namespace merlu::test
