#include "store/database.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "base/fault.h"
#include "support/pauses.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Another program with a connection to the file. It exists before this one opens the file, waits for a
// letter, does what the letter says, and answers.
class OtherProgram {
 public:
  explicit OtherProgram(const std::string& path) {
    int to_child[2], to_parent[2];
    if (pipe(to_child) != 0 || pipe(to_parent) != 0) throw std::runtime_error("no pipe");
    child_ = fork();
    if (child_ < 0) throw std::runtime_error("no process");
    if (child_ == 0) {
      close(to_child[1]);
      close(to_parent[0]);
      Serve(path, to_child[0], to_parent[1]);
    }
    close(to_child[0]);
    close(to_parent[1]);
    ask_ = to_child[1];
    answer_ = to_parent[0];
  }
  ~OtherProgram() {
    close(ask_);  // the child reads the end and leaves
    close(answer_);
    waitpid(child_, nullptr, 0);
  }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  void HoldAll() { Do('X'); }     // no other may read
  void HoldWrites() { Do('W'); }  // no other may write
  void HoldRead() { Do('R'); }    // no other may commit
  void Release() { Do('C'); }

 private:
  void Do(char letter) {
    char answer = 0;
    ASSERT_EQ(write(ask_, &letter, 1), 1);
    ASSERT_EQ(read(answer_, &answer, 1), 1);
    ASSERT_EQ(answer, 'y') << "the other program could not do " << letter;
  }

  [[noreturn]] static void Serve(const std::string& path, int in, int out) {
    sqlite3* db = nullptr;
    char letter = 0;
    while (read(in, &letter, 1) == 1) {
      if (db == nullptr) sqlite3_open(path.c_str(), &db);
      const char* sql = letter == 'X'   ? "BEGIN EXCLUSIVE"
                        : letter == 'W' ? "BEGIN IMMEDIATE"
                        : letter == 'R' ? "BEGIN; SELECT COUNT(*) FROM sqlite_master"
                                        : "COMMIT";
      const char answer = sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK ? 'y' : 'n';
      if (write(out, &answer, 1) != 1) break;
    }
    sqlite3_close(db);
    _exit(0);
  }

  pid_t child_ = -1;
  int ask_ = -1, answer_ = -1;
};

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}

// Number of the fault that the work ends with, 0 without one.
template <typename Work>
int FaultOf(Work&& work) {
  try {
    work();
    return 0;
  } catch (const Fault& fault) {
    EXPECT_FALSE(fault.description.empty());
    EXPECT_EQ(fault.source, "MERLU store");
    return fault.number;
  }
}

class DatabaseFile : public testing::Test {
 protected:
  int Open(const std::string& at) {
    return FaultOf([&] { db.Open(at); });
  }
  int Execute(const std::string& sql) {
    return FaultOf([&] { db.Execute(sql); });
  }
  TemporaryFolder folder;
  std::string path = CopyTemplate(folder);
  Database db;
};

// ---- statements ----

TEST_F(DatabaseFile, counts_the_changes_of_a_table_apart_unless_rows_of_others_follow) {
  db.Open(path);
  db.Execute("CREATE TABLE parent (id INTEGER PRIMARY KEY, note)");
  db.Execute("CREATE TABLE child (id REFERENCES parent ON UPDATE CASCADE)");
  db.Execute("INSERT INTO parent VALUES (1,''),(2,'')");
  db.Execute("INSERT INTO child VALUES (1),(2)");
  Database::TableChanges &parent = db.ChangesOf("parent"), &child = db.ChangesOf("child");
  const std::int64_t of_parent = parent.Count(), of_child = child.Count();
  db.ExecuteOn(parent, "UPDATE parent SET note=?", {std::string("x")});
  EXPECT_EQ(parent.Count(), of_parent + 2);
  EXPECT_EQ(child.Count(), of_child);
  db.ExecuteOn(parent, "UPDATE parent SET id=id+?", {std::int64_t{2}});
  EXPECT_GT(parent.Count(), of_parent + 2);
  EXPECT_GT(child.Count(), of_child);
}

// The engine counts its memory as long as this lives; no connection may be open at either end.
struct CountedMemory {
  CountedMemory() { Set(1); }
  ~CountedMemory() { Set(0); }
  static void Set(int on) {
    EXPECT_EQ(sqlite3_shutdown(), SQLITE_OK);
    EXPECT_EQ(sqlite3_config(SQLITE_CONFIG_MEMSTATUS, on), SQLITE_OK);
    EXPECT_EQ(sqlite3_initialize(), SQLITE_OK);
    WatchPauses();
  }
};

TEST_F(DatabaseFile, keeps_the_statements_of_the_last_time_only) {
  db.Close();
  const CountedMemory counted;
  Open(path);
  const auto run = [this](int from, int to) {
    for (int i = from; i < to; ++i) db.Execute("UPDATE SYS_CONFIG SET sys_yr=" + std::to_string(i));
  };
  run(0, 2000);
  const sqlite3_int64 used = sqlite3_memory_used();
  EXPECT_GT(used, 1 << 19);
  run(2000, 20000);
  EXPECT_LT(sqlite3_memory_used(), used + (1 << 20));
  db.Close();
}

TEST_F(DatabaseFile, goes_on_with_a_query_while_other_statements_push_it_out) {
  Open(path);
  for (int i = 1; i <= 3; ++i) db.Execute("INSERT INTO listPNE DEFAULT VALUES");
  int rows = 0;
  db.ForEach("SELECT rowid FROM listPNE", {}, [&](const RowView&) {
    ++rows;
    for (int i = 0; i < 2000; ++i) db.Single("SELECT " + std::to_string(i));
  });
  EXPECT_EQ(rows, ToInteger(db.Single("SELECT COUNT(*) FROM listPNE")));
  EXPECT_GE(rows, 3);
}

TEST_F(DatabaseFile, refuses_values_that_a_statement_has_no_place_for) {
  Open(path);
  const auto both = [this](const char* sql, const Values& values) { return FaultOf([&] { db.Execute(sql, values); }); };
  EXPECT_EQ(both("UPDATE SYS_CONFIG SET sys_yr=?", {std::int64_t{1}, std::int64_t{2}}), 3146);
  EXPECT_EQ(both("UPDATE SYS_CONFIG SET sys_yr=2017", {std::string("x")}), 3146);
  EXPECT_EQ(both("UPDATE SYS_CONFIG SET sys_yr=?", {std::int64_t{1}}), 0);
}

TEST_F(DatabaseFile, knows_a_missing_table_from_any_other_mistake) {
  Open(path);
  EXPECT_EQ(Execute("SELECT * FROM NO_SUCH"), 3078);
  EXPECT_EQ(Execute("SELECT * FROM [NO_SUCH] WHERE 1"), 3078);
  EXPECT_EQ(Execute("INSERT INTO main.NO_SUCH VALUES (1)"), 3078);
  EXPECT_EQ(Execute("UPDATE NO_SUCH SET a=1"), 3078);
  EXPECT_EQ(Execute("SELECT 1 FROM QC JOIN \"NO_SUCH\" ON 1"), 3078);
  EXPECT_EQ(Execute("DELETE FROM other.QC"), 3078);
  EXPECT_EQ(Execute("SELECT NO_SUCH FROM QC"), 3265);
  EXPECT_EQ(Execute("SELECT 'FROM NO_SUCH', NO_SUCH FROM QC"), 3265);
  EXPECT_EQ(Execute("SELECT * FROM (SELECT NO_SUCH FROM QC)"), 3265);
  EXPECT_EQ(Execute("SELECT 'no such table'('QC')"), 3146);
  EXPECT_EQ(Execute("SELECT FROM"), 3146);
  EXPECT_EQ(Execute("SELECT * FROM pragma_table_info('QC')"), 0);
}

// ---- opening ----

TEST_F(DatabaseFile, opens_with_its_cascades_on_and_writes_nothing) {
  const std::string before = FileBytes(path);
  EXPECT_EQ(Open(path), 0);
  EXPECT_TRUE(db.IsOpen());
  EXPECT_EQ(db.path(), path);
  EXPECT_EQ(ToInteger(db.Single("PRAGMA foreign_keys")), 1);
  db.Close();
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(FileBytes(path), before);
}

TEST_F(DatabaseFile, is_missing_under_a_path_that_leads_nowhere_or_to_a_folder) {
  EXPECT_EQ(Open(folder.path("nothing.mdb")), 3024);
  EXPECT_FALSE(fs::exists(folder.path("nothing.mdb")));
  EXPECT_EQ(Open(folder.path()), 3024);
  EXPECT_EQ(Open(""), 3024);
  EXPECT_FALSE(db.IsOpen());
}

TEST_F(DatabaseFile, is_no_database_when_it_holds_something_else) {
  const std::string text = std::string(5000, 'x') + "\n";
  WriteBytes(path, text);
  EXPECT_EQ(Open(path), 3343);
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(FileBytes(path), text);
}

TEST_F(DatabaseFile, is_damaged_when_its_first_page_is_broken_behind_the_header) {
  std::string bytes = FileBytes(path);
  bytes.replace(100, 3900, std::string(3900, '\x55'));
  WriteBytes(path, bytes);
  EXPECT_EQ(Open(path), 3428);
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(FileBytes(path), bytes);
}

TEST_F(DatabaseFile, without_permission_to_write_for_anybody_is_read_only_even_for_the_superuser) {
  const std::string before = FileBytes(path);
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  EXPECT_EQ(Open(path), 3051);
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(FileBytes(path), before);
}

TEST_F(DatabaseFile, held_by_another_program_is_in_use_at_the_open) {
  OtherProgram other(path);
  const std::string before = FileBytes(path);
  other.HoldAll();
  const WithoutPauses without_pauses;
  EXPECT_EQ(Open(path), 3356);
  EXPECT_FALSE(db.IsOpen());
  other.Release();
  EXPECT_EQ(Open(path), 0);
  EXPECT_EQ(FileBytes(path), before);
}

TEST_F(DatabaseFile, that_another_program_reads_opens_all_the_same) {
  OtherProgram other(path);
  other.HoldRead();
  EXPECT_EQ(Open(path), 0);
}

TEST_F(DatabaseFile, opened_a_second_time_leaves_the_first_one) {
  const std::string second = CopyTemplate(folder, "second.mdb");
  db.Open(path);
  db.Execute("INSERT INTO SYS_CONFIG (sys_yr) VALUES (2017)");
  db.Open(second);
  EXPECT_EQ(db.path(), second);
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM SYS_CONFIG")), 0);
}

TEST_F(DatabaseFile, can_be_closed_twice) {
  db.Open(path);
  db.Close();
  db.Close();
  EXPECT_EQ(Open(path), 0);
}

// ---- faults during the work ----

TEST_F(DatabaseFile, that_was_never_opened_is_not_set) {
  EXPECT_EQ(Execute("SELECT 1"), 91);
  EXPECT_EQ(FaultOf([&] { db.Single("SELECT 1"); }), 91);
  EXPECT_EQ(FaultOf([&] { db.ReadOnlyQuery("SELECT 1"); }), 91);
  EXPECT_EQ(FaultOf([&] { const WriteBatch batch(db); }), 91);
  EXPECT_EQ(db.ChangeCount(), 0);
}

TEST_F(DatabaseFile, gives_each_failure_the_number_that_the_screens_speak_of) {
  db.Open(path);
  db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (1)");
  db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('a1')");
  EXPECT_EQ(Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (1)"), 3022);
  EXPECT_EQ(Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('A1')"), 3022);
  EXPECT_EQ(Execute("INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK) VALUES (1,99)"), 3201);
  EXPECT_EQ(Execute("SELECT * FROM EA_FUG"), 3078);
  EXPECT_EQ(Execute("SELECT NO_SUCH FROM QC"), 3265);
  EXPECT_EQ(Execute("SELEC * FROM QC"), 3146);
}

TEST_F(DatabaseFile, locked_by_another_program_during_the_work_is_in_use) {
  OtherProgram other(path);
  db.Open(path);
  other.HoldWrites();
  const WithoutPauses without_pauses;
  EXPECT_EQ(Execute("INSERT INTO SYS_CONFIG (sys_yr) VALUES (2017)"), 3261);
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM SYS_CONFIG")), 0);
  other.Release();
  other.HoldAll();
  EXPECT_EQ(Execute("SELECT COUNT(*) FROM SYS_CONFIG"), 3261);
  other.Release();
  EXPECT_EQ(Execute("INSERT INTO SYS_CONFIG (sys_yr) VALUES (2017)"), 0);
}

TEST_F(DatabaseFile, locked_for_a_moment_is_waited_for) {
  OtherProgram other(path);
  db.Open(path);
  for (const bool writes : {true, false}) {
    writes ? other.HoldWrites() : other.HoldAll();
    bool held = true;
    const WithoutPauses instead([&](int milliseconds) {
      if (milliseconds >= 200 && std::exchange(held, false)) other.Release();
    });
    EXPECT_EQ(Execute(writes ? "INSERT INTO SYS_CONFIG (sys_yr) VALUES (2017)" : "SELECT COUNT(*) FROM SYS_CONFIG"), 0);
    EXPECT_FALSE(held);
    EXPECT_LE(instead.milliseconds(), 250);
  }
}

TEST_F(DatabaseFile, locked_for_longer_is_waited_for_a_quarter_of_a_second) {
  OtherProgram other(path);
  db.Open(path);
  other.HoldAll();
  {
    const WithoutPauses counted;
    EXPECT_EQ(Execute("SELECT COUNT(*) FROM SYS_CONFIG"), 3261);
    EXPECT_EQ(counted.milliseconds(), 250);
  }
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Execute("SELECT COUNT(*) FROM SYS_CONFIG"), 3261);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(250));
}

TEST_F(DatabaseFile, says_in_words_what_a_lock_is) {
  OtherProgram other(path);
  other.HoldAll();
  const WithoutPauses without_pauses;
  try {
    db.Open(path);
    FAIL() << "opened under an exclusive lock";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.description, "The database is locked by another program.");
  }
}

// ---- statements ----

TEST_F(DatabaseFile, gives_every_value_back_as_the_kind_that_it_is) {
  db.Open(path);
  db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,Area,LATITUDE) VALUES (?,?,?)",
             {std::int64_t{7}, std::string("O'Brien \"x\"; --"), 28.5});
  const Rows rows = db.Query("SELECT PD_ID_AK,Area,LATITUDE,Block FROM PD_PLATFORM_DESC");
  EXPECT_EQ(rows.columns, (std::vector<std::string>{"PD_ID_AK", "Area", "LATITUDE", "Block"}));
  ASSERT_EQ(rows.rows.size(), 1u);
  EXPECT_EQ(rows.rows[0], (Values{std::int64_t{7}, std::string("O'Brien \"x\"; --"), 28.5, Null{}}));
}

TEST_F(DatabaseFile, gives_a_boolean_column_back_as_yes_or_no) {
  db.Open(path);
  db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (1)");
  for (int id = 1; id <= 3; ++id)
    db.Execute("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK) VALUES (?,1)", {std::int64_t{id}});
  db.Execute("INSERT INTO ED_FLA (ED_ID_AK,CTRL_FLA_PILOT_FLG) VALUES (1,?)", {true});
  db.Execute("INSERT INTO ED_FLA (ED_ID_AK,CTRL_FLA_PILOT_FLG) VALUES (2,?)", {false});
  db.Execute("INSERT INTO ED_FLA (ED_ID_AK) VALUES (3)");
  const Rows rows = db.Query("SELECT CTRL_FLA_PILOT_FLG FROM ED_FLA ORDER BY ED_ID_AK");
  EXPECT_EQ(rows.rows, (std::vector<Values>{{true}, {false}, {Null{}}}));
}

TEST_F(DatabaseFile, counts_the_rows_that_a_statement_changes) {
  db.Open(path);
  const std::int64_t before = db.ChangeCount();
  EXPECT_EQ(db.Execute("INSERT INTO SYS_CONFIG (sys_yr) VALUES (1),(2),(3)"), 3);
  EXPECT_EQ(db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=1 WHERE sys_yr>1"), 2);
  EXPECT_EQ(db.Execute("DELETE FROM SYS_CONFIG WHERE sys_yr=9"), 0);
  EXPECT_EQ(db.ChangeCount() - before, 5);
}

TEST_F(DatabaseFile, gives_null_for_a_single_value_of_no_rows) {
  db.Open(path);
  EXPECT_TRUE(IsNull(db.Single("SELECT sys_yr FROM SYS_CONFIG")));
  EXPECT_TRUE(IsNull(db.Single("SELECT MAX(sys_yr) FROM SYS_CONFIG")));
}

TEST_F(DatabaseFile, runs_a_query_inside_the_same_query) {
  db.Open(path);
  db.Execute("INSERT INTO SYS_CONFIG (sys_yr) VALUES (1),(2),(3)");
  const std::string sql = "SELECT sys_yr FROM SYS_CONFIG ORDER BY sys_yr";
  std::vector<std::int64_t> seen;
  EXPECT_EQ(db.ForEach(sql, {},
                       [&](const RowView& outer) {
                         db.ForEach(sql, {}, [&](const RowView& inner) {
                           seen.push_back(outer.Integer(0) * 10 + inner.Integer(0));
                         });
                       }),
            3);
  EXPECT_EQ(seen, (std::vector<std::int64_t>{11, 12, 13, 21, 22, 23, 31, 32, 33}));
}

TEST_F(DatabaseFile, forgets_the_values_of_the_run_before) {
  db.Open(path);
  const char* sql = "INSERT INTO SYS_CONFIG (sys_yr,SYS_MAX_MO) VALUES (?,?)";
  db.Execute(sql, {std::int64_t{2017}, std::int64_t{4}});
  db.Execute(sql, {std::int64_t{2018}});
  EXPECT_TRUE(IsNull(db.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG WHERE sys_yr=2018")));
}

TEST_F(DatabaseFile, goes_on_after_a_fault_in_the_middle_of_a_query) {
  db.Open(path);
  db.Execute("INSERT INTO SYS_CONFIG (sys_yr) VALUES (1),(2)");
  const char* sql = "SELECT sys_yr FROM SYS_CONFIG";
  EXPECT_EQ(
      FaultOf([&] { db.ForEach(sql, {}, [](const RowView&) { throw Fault(13, "MERLU store", "type mismatch"); }); }),
      13);
  EXPECT_EQ(db.ForEach(sql, {}, [](const RowView&) {}), 2);
}

TEST_F(DatabaseFile, knows_its_tables_without_regard_to_case) {
  db.Open(path);
  EXPECT_TRUE(db.HasTable("EA_LOA"));
  EXPECT_TRUE(db.HasTable("ea_loa"));
  EXPECT_FALSE(db.HasTable("EA_FUG"));
  EXPECT_FALSE(db.HasTable("ix_QC_location"));
}

TEST_F(DatabaseFile, compares_texts_without_regard_to_case) {
  db.Open(path);
  db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,CMPLX_ID_NUM) VALUES (1,'aB1')");
  EXPECT_EQ(ToInteger(db.Single("SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE cmplx_id_num=?", {std::string("Ab1")})),
            1);
}

// ---- statements from outside ----

class ReadOnlyQuery : public DatabaseFile {
 protected:
  ReadOnlyQuery() {
    db.Open(path);
    db.Execute("INSERT INTO SYS_CONFIG (sys_yr,SYS_MAX_MO) VALUES (2017,3)");
  }
  int Refusal(const std::string& sql) {
    return FaultOf([&] { db.ReadOnlyQuery(sql); });
  }
};

TEST_F(ReadOnlyQuery, refuses_every_statement_that_could_write) {
  const std::string before = FileBytes(path);
  const std::string other = folder.path("other.mdb");
  for (const std::string& sql : std::vector<std::string>{"INSERT INTO SYS_CONFIG (sys_yr) VALUES (1)",
                                                         "UPDATE SYS_CONFIG SET sys_yr=1",
                                                         "DELETE FROM SYS_CONFIG",
                                                         "REPLACE INTO SYS_CONFIG (rowid,sys_yr) VALUES (1,1)",
                                                         "WITH x AS (SELECT 1) DELETE FROM SYS_CONFIG",
                                                         "INSERT INTO SYS_CONFIG (sys_yr) VALUES (1) RETURNING sys_yr",
                                                         "CREATE TABLE T (A)",
                                                         "CREATE TEMP TABLE T (A)",
                                                         "CREATE TABLE T AS SELECT * FROM SYS_CONFIG",
                                                         "CREATE INDEX i ON SYS_CONFIG (sys_yr)",
                                                         "CREATE VIEW v AS SELECT 1",
                                                         "CREATE TRIGGER t AFTER INSERT ON QC BEGIN SELECT 1; END",
                                                         "DROP TABLE QC",
                                                         "ALTER TABLE QC ADD COLUMN A",
                                                         "ATTACH '" + other + "' AS other",
                                                         "DETACH main",
                                                         "VACUUM",
                                                         "VACUUM INTO '" + other + "'",
                                                         "REINDEX",
                                                         "ANALYZE",
                                                         "BEGIN",
                                                         "BEGIN IMMEDIATE",
                                                         "COMMIT",
                                                         "ROLLBACK",
                                                         "SAVEPOINT a",
                                                         "RELEASE a",
                                                         "PRAGMA user_version=5",
                                                         "PRAGMA journal_mode=WAL",
                                                         "PRAGMA foreign_keys=OFF",
                                                         "PRAGMA writable_schema=ON",
                                                         "PRAGMA application_id=1",
                                                         "EXPLAIN DELETE FROM SYS_CONFIG"})
    EXPECT_EQ(Refusal(sql), 3051) << sql;
  EXPECT_FALSE(fs::exists(other));
  EXPECT_EQ(FileBytes(path), before);
  EXPECT_EQ(ToInteger(db.Single("PRAGMA foreign_keys")), 1);
}

TEST_F(ReadOnlyQuery, refuses_to_load_an_extension) {
  for (const char* sql :
       {"SELECT load_extension('x')", "SELECT LOAD_EXTENSION('x','y')", "SELECT 1 FROM QC WHERE load_extension('x')"}) {
    try {
      db.ReadOnlyQuery(sql);
      ADD_FAILURE() << sql;
    } catch (const Fault& fault) {
      EXPECT_NE(fault.description.find("not authorized"), std::string::npos) << fault.description;
    }
  }
}

TEST_F(ReadOnlyQuery, refuses_two_statements_and_none) {
  EXPECT_EQ(Refusal("SELECT 1; SELECT 2"), 3051);
  EXPECT_EQ(Refusal("SELECT 1; DELETE FROM SYS_CONFIG"), 3051);
  EXPECT_EQ(Refusal(""), 3051);
  EXPECT_EQ(Refusal("  ;"), 3051);
  EXPECT_EQ(Refusal("-- nothing"), 3051);
  EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM SYS_CONFIG")), 1);
}

TEST_F(ReadOnlyQuery, reads) {
  const Rows rows = db.ReadOnlyQuery("SELECT sys_yr, SYS_MAX_MO AS last FROM SYS_CONFIG;  \n");
  EXPECT_EQ(rows.columns, (std::vector<std::string>{"sys_yr", "last"}));
  EXPECT_EQ(rows.rows, (std::vector<Values>{{std::int64_t{2017}, std::int64_t{3}}}));
}

TEST_F(ReadOnlyQuery, lets_every_statement_pass_that_only_reads) {
  for (const char* sql :
       {"SELECT COUNT(*) FROM QC", "VALUES (1)",
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3) SELECT MAX(i) FROM n",
        "SELECT name FROM sqlite_master LIMIT 1", "PRAGMA table_info(QC)", "PRAGMA index_list(QC)",
        "PRAGMA foreign_key_list(EA_FLA)", "PRAGMA integrity_check", "SELECT upper('a')", "SELECT 1 -- the end",
        "EXPLAIN QUERY PLAN SELECT * FROM QC"})
    EXPECT_FALSE(db.ReadOnlyQuery(sql).columns.empty()) << sql;
}

TEST_F(ReadOnlyQuery, tells_a_statement_that_cannot_be_understood) {
  EXPECT_EQ(Refusal("SELEC 1"), 3146);
  EXPECT_EQ(Refusal("SELECT * FROM EA_FUG"), 3078);
  EXPECT_EQ(Refusal("SELECT NO_SUCH FROM QC"), 3265);
}

TEST_F(ReadOnlyQuery, leaves_the_program_s_own_statements_free_to_write) {
  EXPECT_EQ(Refusal("DELETE FROM SYS_CONFIG"), 3051);
  EXPECT_EQ(Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=4"), 0);
  db.ReadOnlyQuery("SELECT 1");
  EXPECT_EQ(Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=5"), 0);
  EXPECT_EQ(ToInteger(db.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG")), 5);
}

// ---- values ----

TEST(Value, becomes_a_number_by_the_leading_number_of_a_text) {
  EXPECT_EQ(ToNumber(Null{}), 0);
  EXPECT_EQ(ToNumber(true), 1);
  EXPECT_EQ(ToNumber(std::int64_t{7}), 7);
  EXPECT_EQ(ToNumber(2.5), 2.5);
  EXPECT_EQ(ToNumber(std::string("12abc")), 12);
}

TEST(Value, becomes_a_whole_number_within_its_range) {
  EXPECT_EQ(ToInteger(std::int64_t{9007199254740993}), 9007199254740993);
  EXPECT_EQ(ToInteger(2.9), 2);
  EXPECT_EQ(ToInteger(1e300), 0);
  EXPECT_EQ(ToInteger(std::string("x")), 0);
  EXPECT_EQ(ToInteger(Null{}), 0);
}

TEST(NullToEmpty, shows_every_kind_of_value_as_text) {
  EXPECT_EQ(NullToEmpty(Null{}), "");
  EXPECT_EQ(NullToEmpty(true), "True");
  EXPECT_EQ(NullToEmpty(false), "False");
  EXPECT_EQ(NullToEmpty(std::int64_t{-3}), "-3");
  EXPECT_EQ(NullToEmpty(0.1 + 0.2), "0.3");
  EXPECT_EQ(NullToEmpty(std::string(" A ")), " A ");
}

}  // namespace
}  // namespace merlu::test
