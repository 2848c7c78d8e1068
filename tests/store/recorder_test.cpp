// What a connection records of the rows that its batches change.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "support/test_run.h"

namespace merlu::test {
namespace {

class Recording : public testing::Test {
 protected:
  Recording() {
    db.Open(CopyTemplate(folder));
    db.RecordChanges();
    db.Listen([this](const Changes& changes) {
      ++told;
      last.clear();
      for (const RowChange& row : changes.rows)
        last.push_back(changes.TableOf(row).name + " " + std::to_string(row.rowid) + " " +
                       (row.Added()     ? "added"
                        : row.Removed() ? "removed"
                                        : "changed"));
    });
  }

  void Batch(const std::vector<std::string>& statements) {
    WriteBatch batch(db);
    for (const std::string& sql : statements) db.Execute(sql);
    batch.Commit();
  }

  // Every row of every table with its number and the exact form of its values.
  std::string Everything() {
    std::string all;
    for (const RecordedTable& table : *db.recorder().tables()) {
      std::string columns;
      for (const std::string& column : table.columns) columns += "||','||quote([" + column + "])";
      db.ForEach("SELECT rowid" + columns + " FROM [" + table.name + "] ORDER BY rowid", {},
                 [&](const RowView& row) { all += table.name + ": " + std::string(row.Text(0)) + "\n"; });
    }
    return all;
  }

  std::vector<std::string> Sorted() const {
    std::vector<std::string> rows = last;
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  TemporaryFolder folder;
  Database db;
  int told = 0;
  std::vector<std::string> last;
};

using Lines = std::vector<std::string>;

TEST_F(Recording, tells_the_rows_of_a_batch_once_when_it_is_committed) {
  {
    WriteBatch batch(db);
    db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,Name) VALUES (7,'A')");
    db.Execute("UPDATE PD_PLATFORM_DESC SET Name='B' WHERE PD_ID_AK=7");
    {
      WriteBatch inner(db);
      db.Execute("INSERT INTO QC (FieldID) VALUES ('x')");
      inner.Commit();
    }
    EXPECT_EQ(told, 0);
    batch.Commit();
  }
  EXPECT_EQ(told, 1);
  EXPECT_EQ(Sorted(), (Lines{"PD_PLATFORM_DESC 7 added", "QC 1 added"}));
}

TEST_F(Recording, sees_the_rows_of_cascades) {
  Batch({"INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (1)", "INSERT INTO ED_EQUIP_DESC VALUES (5,1,'FLA','F1',NULL)",
         "INSERT INTO ED_FLA (ED_ID_AK) VALUES (5)",
         "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_MO) VALUES (9,5,1)",
         "INSERT INTO EA_FLA (EA_ID_AK) VALUES (9)"});
  Batch({"DELETE FROM PD_PLATFORM_DESC"});
  EXPECT_EQ(Sorted(), (Lines{"EA_EQUIP_ACTV 9 removed", "EA_FLA 9 removed", "ED_EQUIP_DESC 5 removed",
                             "ED_FLA 5 removed", "PD_PLATFORM_DESC 1 removed"}));
}

TEST_F(Recording, knows_the_column_that_is_the_row_number_itself) {
  Database other;
  other.Open(CopyTemplate(folder, "other.mdb"));
  other.Execute("CREATE TABLE T_ONE (name TEXT, id Integer PRIMARY KEY, more INTEGER)");
  other.Execute("CREATE TABLE T_PAIR (a INTEGER, b INTEGER, PRIMARY KEY (a,b))");
  other.Execute("CREATE TABLE T_PAIR_TURNED (a INTEGER, b INTEGER, PRIMARY KEY (b,a))");
  other.Execute("CREATE TABLE T_TEXT (id TEXT PRIMARY KEY)");
  other.Execute("CREATE TABLE T_NONE (id INTEGER)");
  other.RecordChanges();
  std::map<std::string, int> keys;
  for (const RecordedTable& table : *other.recorder().tables())
    if (table.name.starts_with("T_")) keys[table.name] = table.key;
  EXPECT_EQ(keys, (std::map<std::string, int>{
                      {"T_NONE", -1}, {"T_ONE", 1}, {"T_PAIR", -1}, {"T_PAIR_TURNED", -1}, {"T_TEXT", -1}}));
}

TEST_F(Recording, names_rows_of_tables_without_a_key_by_their_number) {
  Batch({"INSERT INTO QC (rowid,FieldID) VALUES (41,'a'),(42,'b')"});
  Batch({"DELETE FROM QC WHERE FieldID='b'", "UPDATE QC SET Comments='why'"});
  EXPECT_EQ(Sorted(), (Lines{"QC 41 changed", "QC 42 removed"}));
}

TEST_F(Recording, leaves_out_what_came_to_nothing) {
  Batch({"INSERT INTO QC (FieldID) VALUES ('a')"});
  told = 0;
  Batch({"INSERT INTO QC (FieldID) VALUES ('b')", "DELETE FROM QC WHERE FieldID='b'", "UPDATE QC SET FieldID='c'",
         "UPDATE QC SET FieldID='a'"});
  EXPECT_EQ(told, 0);
}

TEST_F(Recording, writes_a_single_statement_in_a_batch_of_its_own) {
  db.Execute("INSERT INTO QC (FieldID) VALUES ('a')");
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(db.InBatch());
}

TEST_F(Recording, sees_a_change_however_its_statement_begins) {
  db.Execute("WITH numbers(n) AS (VALUES (1),(2)) INSERT INTO QC (Month) SELECT n FROM numbers");
  EXPECT_EQ(Sorted(), (Lines{"QC 1 added", "QC 2 added"}));
  db.Execute("\n  update QC SET FieldID='a' WHERE Month=2");
  EXPECT_EQ(last, Lines{"QC 2 changed"});
  db.Execute("REPLACE INTO QC (rowid,FieldID) VALUES (1,'b')");
  EXPECT_EQ(last, Lines{"QC 1 changed"});
  EXPECT_EQ(told, 3);
  EXPECT_FALSE(db.InBatch());
}

TEST_F(Recording, forgets_what_was_taken_back) {
  WriteBatch batch(db);
  db.Execute("INSERT INTO QC (FieldID) VALUES ('kept')");
  {
    const AllOrNothing whole(db);
    db.Execute("INSERT INTO QC (FieldID) VALUES ('lost')");
    db.Execute("UPDATE QC SET FieldID='other' WHERE FieldID='kept'");
  }
  // the second row fails, and with it the statement
  EXPECT_THROW(db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (3),(3)"), Fault);
  batch.Commit();
  EXPECT_EQ(last, (Lines{"QC 1 added"}));
}

TEST_F(Recording, takes_a_row_that_gets_another_key_as_one_that_goes_and_one_that_comes) {
  Batch({"INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (1)",
         "INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK) VALUES (4,1)"});
  Batch({"UPDATE PD_PLATFORM_DESC SET PD_ID_AK=2"});
  EXPECT_EQ(Sorted(), (Lines{"PA_PLATFORM_ACTV 4 changed", "PD_PLATFORM_DESC 1 removed", "PD_PLATFORM_DESC 2 added"}));
}

TEST_F(Recording, tells_that_anything_may_have_changed_when_another_program_wrote) {
  bool all = false;
  db.Listen([&](const Changes& changes) { all = changes.all; });
  Raw(folder.path("inventory.mdb"), {"INSERT INTO QC (FieldID) VALUES ('theirs')"});
  db.NoticeOthers();
  EXPECT_TRUE(all);
}

// Values of every kind, in rows that are added, changed and removed, there and back.
TEST_F(Recording, brings_rows_back_and_forth_value_by_value) {
  Batch({"INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,Name,LONGITUDE,LATITUDE) VALUES (1,'',5,-0.0)",
         "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,EA_MO,EA_COMNT_TXT) VALUES (9223372036854775807,-3,x'00ff'),(-5,1,NULL)",
         "INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PROD_OIL,PROD_NG,status) VALUES (1,1e300,0.1,'ä')",
         "INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME) VALUES ('12345','x')",
         "INSERT INTO QC (rowid,FieldID) VALUES (10,'a'),(12,'b')"});
  const std::string before = Everything();
  std::vector<Changes> seen;
  db.Listen([&](const Changes& changes) {
    Changes copy;
    copy.tables = changes.tables;
    copy.bytes = std::make_unique<const std::string>(*changes.bytes);
    for (RowChange row : changes.rows) {
      const auto moved = [&](std::string_view part) {
        return part.empty() ? part
                            : std::string_view(copy.bytes->data() + (part.data() - changes.bytes->data()), part.size());
      };
      row.before = moved(row.before);
      row.after = moved(row.after);
      copy.rows.push_back(row);
    }
    seen.push_back(std::move(copy));
  });
  Batch({"DELETE FROM QC WHERE FieldID='a'", "INSERT INTO QC (FieldID) VALUES ('c')",
         "UPDATE PD_PLATFORM_DESC SET Name='B',LONGITUDE=5.5,PD_ID_AK=3", "DELETE FROM EA_EQUIP_ACTV",
         "UPDATE PA_PLATFORM_ACTV SET PROD_OIL=NULL,status='I'", "UPDATE CO_COMPANY SET RIMA_CO_NUM='54321'"});
  const std::string after = Everything();
  ASSERT_EQ(seen.size(), 1u);
  Changes step = std::move(seen.front());
  for (const std::string& wanted : {before, after}) {
    for (RowChange& row : step.rows) std::swap(row.before, row.after);
    const WithoutRelations loose(db);
    WriteBatch batch(db);
    ApplyChanges(db, step);
    batch.Commit();
    EXPECT_EQ(Everything(), wanted);
  }
}

TEST(StoredRows, read_back_as_they_were_written) {
  using Kind = StoredValue::Kind;
  const std::vector<StoredValue> values = {
      {},
      {.kind = Kind::kInteger, .integer = std::numeric_limits<std::int64_t>::min()},
      {.kind = Kind::kReal, .real = 0.1},
      {.kind = Kind::kText, .bytes = ""},
      {.kind = Kind::kBlob, .bytes = std::string_view("\0\1", 2)}};
  std::string row;
  for (const StoredValue& value : values) AppendValue(row, value);
  EXPECT_EQ(RowValues(row), values);
  for (std::size_t cut = 2; cut < row.size(); ++cut) {
    std::string_view rest(row.data(), cut);
    StoredValue value;
    while (TakeValue(rest, value)) {
    }
  }
  EXPECT_THROW(RowValues(std::string_view(row.data(), row.size() - 1)), Fault);
  EXPECT_THROW(RowValues("\7"), Fault);
}

// A partner that cannot write its part does not make the batch fail.
class Unwilling : public BatchPartner {
 public:
  explicit Unwilling(Database& db) : db_(db) {}
  void Begin() override {}
  void Write(const Changes&) override {
    db_.Execute("ROLLBACK");  // as the engine does when a disk is full
    throw Fault(fault_number::kDiskFullStore, "test", "full");
  }
  bool StepAside(const Fault&) override {
    db_.SetPartner(nullptr);
    return true;
  }

 private:
  Database& db_;
};

TEST_F(Recording, writes_a_batch_alone_when_the_partner_fails) {
  Batch(
      {"INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (1)", "INSERT INTO ED_EQUIP_DESC VALUES (5,1,'FLA','F1',NULL)"});
  Unwilling partner(db);
  db.SetPartner(&partner);
  told = 0;
  Batch({"DELETE FROM PD_PLATFORM_DESC", "INSERT INTO QC (rowid,FieldID) VALUES (77,'x')"});
  EXPECT_EQ(told, 1);
  EXPECT_EQ(Sorted(), (Lines{"ED_EQUIP_DESC 5 removed", "PD_PLATFORM_DESC 1 removed", "QC 77 added"}));
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM ED_EQUIP_DESC")), 0);
  EXPECT_EQ(ToInteger(db.Single("SELECT rowid FROM QC")), 77);
  EXPECT_EQ(ToInteger(db.Single("PRAGMA foreign_keys")), 1);
  Batch({"DELETE FROM QC"});
  EXPECT_EQ(last, (Lines{"QC 77 removed"}));
}

}  // namespace
}  // namespace merlu::test
