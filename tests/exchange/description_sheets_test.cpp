// The workbook of an inventory with whatever a database can hold, read back by readers that others wrote.
#include "exchange/description_sheets.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <limits>

#include "base/fault.h"
#include "store/files.h"
#include "support/read_back.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

std::string Repeat(std::string_view part, std::size_t count) {
  std::string text;
  while (count-- > 0) text += part;
  return text;
}

const Values& Texts() {
  static const Values texts = {"007",
                               "0123456789012345678",
                               Null{},
                               "Буровая установка № 5",
                               "海上平台三号",
                               "منصة الحفر",
                               "קידוח",
                               "😀 pumps 🛢🛢",
                               "",
                               "=SUM(A1:A9)",
                               "'quoted \"twice\" <b>&amp;</b>",
                               " blanks around ",
                               "two\nlines",
                               "two\r\nlines\tand a tab",
                               "_x0041_ is no A",
                               "<r>rich</r>",
                               "http://example.com/a?b=c",
                               "TRUE",
                               "1E5",
                               "2017-03-05 14:02:00",
                               "a\x01\x1F letters without a picture",
                               "\uFFFE and \uFFFF",
                               Repeat("long ", 6553) + "12",
                               Repeat("ж", 32767),
                               Repeat("🛢", 16383),
                               Repeat("é", 8222),
                               std::string("\xC3\xA9t\xC3\xA9")};
  return texts;
}

const Values& Numbers() {
  static const Values numbers = {0.0,      -1.5,      1e-300, Null{}, 0.1 + 0.2, -123456789.123456789, 1e300,
                                 5e-324,   99.999999, -0.001, 1e15,   1e16,      123456789012345678.0, 1.0 / 3,
                                 -2.5e-10, 744.0};
  return numbers;
}

const Values& Dates() {
  static const Values dates = {"2017-03-05 14:02:00", Null{},       "2017-12-31 23:59:59", "1900-03-01 00:00:00",
                               "1900-02-28 12:00:00", "2016-02-29", "9999-12-31 23:59:59", "no date at all",
                               "2017-02-30 00:00:00"};
  return dates;
}

class DescriptionSheets : public testing::Test {
 protected:
  DescriptionSheets() { db.Open(database); }

  // Rows of each exported table, each column in turn through what a column of its kind can hold; kAllInTurn rows come
  // to all of it.
  const std::int64_t kAllInTurn = static_cast<std::int64_t>(Texts().size()) + 1;
  void FillEveryTable(std::int64_t rows) {
    const WriteBatch batch(db);
    for (const ExportedTable& table : ExportedTables()) FillTable(std::string(table.name), rows);
  }

  void FillTable(const std::string& table, std::int64_t rows) {
    const Rows columns = db.Query("SELECT name,type FROM pragma_table_info('" + table + "')");
    const std::string places = Repeat(",?", columns.rows.size()).substr(1);
    for (std::int64_t row = 1; row <= rows; ++row) {
      Values values;
      for (std::size_t i = 0; i < columns.rows.size(); ++i)
        values.push_back(ValueOf(NullToEmpty(columns.rows[i][0]), NullToEmpty(columns.rows[i][1]),
                                 static_cast<std::size_t>(row) + i, row));
      db.Execute("INSERT INTO [" + table + "] VALUES (" + places + ")", values);
    }
  }

  static Value ValueOf(const std::string& column, const std::string& type, std::size_t turn, std::int64_t row) {
    const auto in_turn = [turn](const Values& values) { return values[turn % values.size()]; };
    if (type == "INTEGER") return row;
    if (column == "RIMA_CO_NUM") return "0" + std::to_string(row);
    if (type == "DATETIME") return in_turn(Dates());
    if (type == "DOUBLE") return in_turn(Numbers());
    if (type == "BOOLEAN") return in_turn({true, false, Null{}});
    return in_turn(Texts());
  }

  void Export(const std::string& path) {
    const auto file = path.ends_with("x") ? NewXlsx(path) : NewXls(path);
    ExportDescriptions(db, *file, [this](std::string_view table, int done, int total) {
      told.emplace_back(table);
      EXPECT_LE(done, total);
    });
  }
  void ExpectWhole(const char* name) {
    Export(folder.path(name));
    const Finished check = CheckWorkbook(database, folder.path(name));
    EXPECT_EQ(check.status, 0) << check.output;
    EXPECT_NE(check.output.find(" 0 differences"), std::string::npos) << check.output;
  }

  TemporaryFolder folder;
  std::string database = CopyTemplate(folder);
  Database db;
  std::vector<std::string> told;
};

TEST_F(DescriptionSheets, of_an_empty_inventory_have_their_heads) {
  ExpectWhole("empty.xls");
  ExpectWhole("empty.xlsx");
  const Sheet sheet = ReadSheet(db, ExportedTables()[0], [] {});
  ASSERT_EQ(sheet.rows.size(), 6u);
  EXPECT_EQ(std::get<double>(sheet.rows[3].cells[1]), 0);
}

TEST_F(DescriptionSheets, keep_every_value_in_xls) {
  FillEveryTable(kAllInTurn);
  ExpectWhole("awkward.xls");
}

TEST_F(DescriptionSheets, keep_every_value_in_xlsx) {
  FillEveryTable(kAllInTurn);
  ExpectWhole("awkward.xlsx");
}

TEST_F(DescriptionSheets, keep_twenty_thousand_pieces_of_equipment) {
  db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (1)");
  const char* kMany = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<20500) ";
  db.Execute(kMany + std::string("INSERT INTO ED_EQUIP_DESC SELECT i,1,'MUD',printf('%08d',i),'2017-03-05' FROM n"));
  db.Execute(kMany + std::string("INSERT INTO ED_MUD (ED_ID_AK) SELECT i FROM n"));
  ExpectWhole("many.xls");
  ExpectWhole("many.xlsx");
  EXPECT_GT(std::count(told.begin(), told.end(), "ED_EQUIP_DESC"), 20);
}

TEST_F(DescriptionSheets, are_right_in_a_file_of_many_megabytes) {
  db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (1)");
  for (std::int64_t i = 1; i <= 152; ++i)
    db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME) VALUES (?,?)",
               {std::to_string(i), Repeat(i % 2 == 0 ? "ж" : "🛢", 16000) + std::to_string(i)});
  ExpectWhole("large.xls");
  EXPECT_GT(FileSize(folder.path("large.xls")), 7'200'000u);
}

TEST_F(DescriptionSheets, are_told_of_in_the_order_of_the_workbook) {
  Export(folder.path("out.xls"));
  ASSERT_EQ(told.size(), ExportedTables().size());
  for (std::size_t i = 0; i < told.size(); ++i) EXPECT_EQ(told[i], ExportedTables()[i].name);
}

TEST_F(DescriptionSheets, take_in_every_description_table_of_the_schema) {
  std::vector<std::string> tables, exported;
  for (const Values& row : db.Query("SELECT name FROM sqlite_master WHERE type='table' AND (name LIKE 'ED!_%' ESCAPE "
                                    "'!' OR name IN ('CO_COMPANY','PD_PLATFORM_DESC')) ORDER BY name")
                               .rows)
    tables.push_back(NullToEmpty(row[0]));
  for (const ExportedTable& table : ExportedTables()) exported.emplace_back(table.name);
  std::sort(exported.begin(), exported.end());
  EXPECT_EQ(exported, tables);
}

TEST_F(DescriptionSheets, have_the_note_two_rows_below_the_last_record) {
  FillTable("PD_PLATFORM_DESC", 3);
  const Sheet sheet = ReadSheet(db, ExportedTables()[1], [] {});
  ASSERT_EQ(sheet.rows.size(), 6u + 3 + 2);
  EXPECT_TRUE(sheet.rows[9].cells.empty());
  EXPECT_EQ(std::get<std::string>(sheet.rows[10].cells[0]),
            "This table is the master list of Platforms(structures). PD_ID_AK is the link to the Master Equipment List "
            "in PD_EQUIP_DESC.");
}

TEST_F(DescriptionSheets, hold_a_number_that_no_cell_can_hold_as_a_text) {
  db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,LATITUDE,LONGITUDE) VALUES (1,?,?)",
             {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::max()});
  const Sheet sheet = ReadSheet(db, ExportedTables()[1], [] {});
  EXPECT_TRUE(std::holds_alternative<std::string>(sheet.rows[6].cells[8]));
  EXPECT_TRUE(std::holds_alternative<double>(sheet.rows[6].cells[7]));
  Export(folder.path("largest.xlsx"));
  const Finished read = Python(
      "-c \"import openpyxl,sys; print(openpyxl.load_workbook(sys.argv[1])"
      "['PD_PLATFORM_DESC']['H7'].value > 1.79e308)\" '" +
      folder.path("largest.xlsx") + "'");
  EXPECT_EQ(read.output, "True\n");
}

TEST_F(DescriptionSheets, mend_bytes_that_are_no_text) {
  db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME) VALUES ('1',CAST(x'41FF42' AS TEXT))");
  const Sheet sheet = ReadSheet(db, ExportedTables()[0], [] {});
  EXPECT_EQ(std::get<std::string>(sheet.rows[6].cells[1]), "A\uFFFDB");
}

TEST_F(DescriptionSheets, with_a_text_too_long_for_a_cell_are_a_fault) {
  db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME) VALUES ('1',?)", {Repeat("x", 32768)});
  for (const char* name : {"long.xls", "long.xlsx"}) {
    EXPECT_THROW(Export(folder.path(name)), Fault);
    EXPECT_FALSE(FileExists(folder.path(name)));
  }
}

TEST_F(DescriptionSheets, fit_their_columns_to_what_stands_in_them) {
  db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME,City,Email) VALUES ('1','Blue Water Exploration','X',?)",
             {Repeat("x", 500)});
  const Sheet sheet = ReadSheet(db, ExportedTables()[0], [] {});
  EXPECT_GT(sheet.widths[1], 22);
  EXPECT_LT(sheet.widths[1], 35);
  EXPECT_LT(sheet.widths[4], 10);
  EXPECT_EQ(sheet.widths[10], 60);
}

TEST_F(DescriptionSheets, that_cannot_be_written_are_a_fault) {
  for (const char* name : {"none/out.xls", "none/out.xlsx"}) {
    try {
      Export(folder.path(name));
      FAIL() << "a fault";
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.number, fault_number::kNoSuchFolder);
      EXPECT_NE(fault.description.find(folder.path(name)), std::string::npos) << fault.description;
    }
  }
}

TEST_F(DescriptionSheets, on_a_disk_that_takes_nothing_are_a_fault) {
  ASSERT_TRUE(fs::exists("/dev/full"));
  for (const bool xlsx : {false, true}) {
    const auto file = xlsx ? NewXlsx("/dev/full") : NewXls("/dev/full");
    EXPECT_THROW(ExportDescriptions(db, *file, [](std::string_view, int, int) {}), Fault) << xlsx;
  }
}

// No file of this process grows beyond a size, as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t size) {
    before_ = std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit small = {size, limit_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, before_);
  }

 private:
  rlimit limit_{};
  void (*before_)(int) = nullptr;
};

TEST_F(DescriptionSheets, for_which_the_disk_has_no_room_are_a_fault_and_no_workbook) {
  FillEveryTable(1);
  for (const char* name : {"full.xls", "full.xlsx"}) {
    Export(folder.path(name));
    const std::uint64_t whole = FileSize(folder.path(name));
    for (const rlim_t size : {whole / 10, whole / 2, whole - 1}) {
      std::filesystem::remove(folder.path(name));
      const FullDisk full(size);
      EXPECT_THROW(Export(folder.path(name)), Fault) << name << " " << size;
      // no file is no workbook, without asking the reader
      EXPECT_TRUE(!FileExists(folder.path(name)) || CheckWorkbook(database, folder.path(name)).status != 0)
          << name << " " << size;
    }
  }
}

TEST_F(DescriptionSheets, for_which_the_disk_has_no_room_leave_no_file_open) {
  FillEveryTable(1);
  const auto open_files = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
  Export(folder.path("full.xlsx"));
  const std::uint64_t whole = FileSize(folder.path("full.xlsx"));
  const auto before = open_files();
  for (const rlim_t size : {rlim_t{0}, whole / 10, whole / 2, whole - 1}) {
    const FullDisk full(size);
    EXPECT_THROW(Export(folder.path("full.xlsx")), Fault) << size;
    EXPECT_EQ(open_files(), before) << size;
  }
  EXPECT_THROW(ExportDescriptions(db, *NewXlsx("/dev/full"), [](std::string_view, int, int) {}), Fault);
  EXPECT_EQ(open_files(), before);
}

TEST_F(DescriptionSheets, go_on_in_further_lines_where_a_text_is_wider_than_its_column) {
  db.Execute("INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME,Email) VALUES ('1','short',?)", {Repeat("long ", 60)});
  const Sheet sheet = ReadSheet(db, ExportedTables()[0], [] {});
  EXPECT_EQ(sheet.widths[10], 60);
  EXPECT_TRUE(Wraps(sheet, 6, 10));
  EXPECT_FALSE(Wraps(sheet, 6, 1));
  Export(folder.path("wrapped.xlsx"));
  EXPECT_EQ(Python("-c \"import openpyxl; s = openpyxl.load_workbook('" + folder.path("wrapped.xlsx") +
                   "')['CO_COMPANY']; print(s['K7'].alignment.wrap_text, s['B7'].alignment.wrap_text)\"")
                .output,
            "True None\n");
}

}  // namespace
}  // namespace merlu::test
