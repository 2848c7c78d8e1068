#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "base/text.h"
#include "qc/qc_log.h"
#include "records/judge_records.h"
#include "session/find_rows.h"
#include "session/types.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "support/heard_sql.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class Template : public testing::Test {
 protected:
  Template() { db.Open(CopyTemplate(folder)); }

  std::vector<std::string> Tables() {
    std::vector<std::string> names;
    db.ForEach("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%' ORDER BY name", {},
               [&](const RowView& row) { names.emplace_back(row.Text(0)); });
    return names;
  }
  std::vector<std::string> Columns(const std::string& table) {
    std::vector<std::string> names;
    db.ForEach("SELECT name FROM pragma_table_info(?) ORDER BY cid", {table},
               [&](const RowView& row) { names.emplace_back(row.Text(0)); });
    return names;
  }
  bool Has(const std::string& table, const std::string& column) {
    const std::vector<std::string> columns = Columns(table);
    return std::any_of(columns.begin(), columns.end(),
                       [&](const std::string& name) { return EqualsIgnoringCase(name, column); });
  }

  static bool IsTwin(const std::string& table) { return table.starts_with("H_"); }

  TemporaryFolder folder;
  Database db;
};

const std::map<std::string, std::vector<std::string>>& SharedTables() {
  static const std::map<std::string, std::vector<std::string>> tables = {
      {"SYS_CONFIG", {"sys_yr", "SYS_MAX_MO", "ERR_CHK_LVL"}},
      {"CO_COMPANY",
       {"RIMA_CO_NUM", "CO_NAME", "ADDR1", "ADDR2", "City", "State", "Zip", "Contact", "Phone", "Fax", "Email",
        "ProgramVersion"}},
      {"PD_PLATFORM_DESC",
       {"PD_ID_AK",
        "RIMA_CO_NUM",
        "CMPLX_ID_NUM",
        "STRUCT_NUM",
        "Area",
        "Block",
        "Name",
        "LONGITUDE",
        "LATITUDE",
        "DIST_TO_SHORE",
        "WATER_DEPTH_FT",
        "LEASE_NUM",
        "SalesGasC1Content",
        "SalesGasC2Content",
        "SalesGasC3Content",
        "SalesGasiC4Content",
        "SalesGasnC4Content",
        "SalesGasiC5Content",
        "SalesGasnC5Content",
        "SalesGasC6Content",
        "SalesGasC7Content",
        "SalesGasC8PlusContent",
        "SalesGasCO2Content",
        "SalesGasH2SContent",
        "SalesGasN2Content",
        "SalesGasO2Content",
        "SALES_GAS_TOTAL",
        "MINOR_SOURCE_EXEMPT",
        "MINOR_SOURCE_EXEMPT_WHAT",
        "status",
        "PD_QC_DT"}},
      {"PA_PLATFORM_ACTV",
       {"SA_ID_AK", "PD_ID_AK", "PA_MO", "PA_YR", "status", "PROD_OIL", "PROD_NG", "THRU_OIL", "THRU_NG",
        "TOT_FUEL_USE_NG", "TOT_FUEL_USE_GAS", "TOT_FUEL_USE_DIE", "COMNT_TXT", "PA_QC_DT"}},
      {"ED_EQUIP_DESC", {"ED_ID_AK", "PD_ID_AK", "ED_EQUIP_TYP", "ED_MERLU_EQUIP_ID", "ED_QC_DT"}},
      {"EA_EQUIP_ACTV",
       {"EA_ID_AK", "ED_ID_AK", "EA_MO", "EA_YR", "EA_EQUIP_TYP", "EA_STATUS", "EA_COMNT_TXT", "EA_QC_DT"}},
      {"QC",
       {"UserID", "Month", "Year", "Level", "CmplxID", "StructID", "EquipType", "EquipID", "FieldID", "Desc",
        "Comments", "EditMode"}},
      {"QCInventory",
       {"UserID", "Month", "Year", "CmplxID", "StructID", "Level", "EquipType", "EquipID", "FieldID", "TimeStamp",
        "FieldDesc", "Desc"}},
      {"listPNE", {"Mfr", "Model"}},
      {"listPRE", {"ServiceType", "Mfr", "Model"}},
  };
  return tables;
}

TEST_F(Template, holds_the_shared_tables_with_their_columns_and_two_for_each_type_and_no_other) {
  std::set<std::string> expected;
  for (const auto& [table, columns] : SharedTables()) {
    expected.insert(table);
    for (const std::string& column : columns) EXPECT_TRUE(Has(table, column)) << table << "." << column;
  }
  for (const char* type : {"AMI", "BOI", "DIE", "DRI", "FLA", "FUG", "GLY", "LOA", "LOS", "MUD", "NGE", "NGT", "PNE",
                           "PRE", "STO", "VEN"}) {
    expected.insert(std::string("ED_") + type);
    if (type != std::string("FUG")) expected.insert(std::string("EA_") + type);
  }
  std::set<std::string> found;
  for (const std::string& table : Tables())
    if (!IsTwin(table)) found.insert(table);
  EXPECT_EQ(found, expected);
}

TEST_F(Template, holds_no_mark_of_the_repair) {
  EXPECT_FALSE(db.HasTable("QC_XREF"));
}

TEST_F(Template, holds_a_twin_with_the_same_columns_in_the_same_order_for_each_of_the_35_tables_of_an_import) {
  int twins = 0;
  for (const std::string& table : Tables()) {
    if (!IsTwin(table)) continue;
    EXPECT_EQ(Columns(table), Columns(table.substr(2))) << table;
    ++twins;
  }
  EXPECT_EQ(twins, 35);
  for (const std::string& table : Tables())
    EXPECT_EQ(db.HasTable("H_" + table), (table[0] == 'P' || table[0] == 'E') && table[2] == '_') << table;
}

TEST_F(Template, is_empty_but_for_the_lists_of_makes_and_models) {
  for (const std::string& table : Tables()) {
    const std::int64_t rows = ToInteger(db.Single("SELECT COUNT(*) FROM [" + table + "]"));
    EXPECT_EQ(rows > 0, table.starts_with("list")) << table;
  }
}

TEST_F(Template, keys_every_description_and_every_month_by_its_whole_number) {
  for (const std::string& table : Tables()) {
    if (!table.starts_with("ED_") && !table.starts_with("EA_") && !table.starts_with("PD_") &&
        !table.starts_with("PA_"))
      continue;
    const std::string key = table.starts_with("PD_")   ? "PD_ID_AK"
                            : table.starts_with("PA_") ? "SA_ID_AK"
                                                       : table.substr(0, 2) + "_ID_AK";
    EXPECT_EQ(NullToEmpty(db.Single("SELECT group_concat(name) FROM pragma_table_info(?) WHERE pk>0", {table})), key)
        << table;
  }
  EXPECT_EQ(NullToEmpty(db.Single("SELECT name FROM pragma_table_info('CO_COMPANY') WHERE pk>0")), "RIMA_CO_NUM");
}

TEST_F(Template, has_a_column_for_every_field_of_every_sheet) {
  std::size_t seen = 0;
  for (const SheetSpec* sheet : AllSheets())
    for (const FieldSpec& field : sheet->fields) {
      if (field.column.empty()) continue;
      const std::string table = field.mode == In::kActv ? sheet->ea_table() : sheet->ed_table();
      EXPECT_TRUE(Has(table, field.column)) << field.control << ": " << table << "." << field.column;
      ++seen;
    }
  for (const FieldSpec& field : StructureSheet().fields) {
    const std::string table = field.mode == In::kActv ? "PA_PLATFORM_ACTV" : "PD_PLATFORM_DESC";
    EXPECT_TRUE(Has(table, field.column)) << field.control << ": " << table << "." << field.column;
    ++seen;
  }
  EXPECT_GT(seen, 300u);
}

TEST_F(Template, keeps_numbers_and_texts_in_columns_of_their_kind) {
  for (const SheetSpec* sheet : AllSheets())
    for (const FieldSpec& field : sheet->fields) {
      if (field.column.empty()) continue;
      const std::string table = field.mode == In::kActv ? sheet->ea_table() : sheet->ed_table();
      const std::string type = NullToEmpty(
          db.Single("SELECT type FROM pragma_table_info(?) WHERE name=? COLLATE NOCASE", {table, field.column}));
      const bool number = field.stored == Stored::kNumber || field.stored == Stored::kComputed;
      EXPECT_EQ(type, number                           ? "DOUBLE"
                      : field.stored == Stored::kYesNo ? "BOOLEAN"
                                                       : "TEXT")
          << table << "." << field.column;
    }
}

TEST_F(Template, compares_every_text_without_regard_to_case) {
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open_v2(db.path().c_str(), &raw, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
  for (const std::string& table : Tables()) {
    if (IsTwin(table)) continue;
    for (const std::string& column : Columns(table)) {
      const char *type = nullptr, *collation = nullptr;
      ASSERT_EQ(sqlite3_table_column_metadata(raw, nullptr, table.c_str(), column.c_str(), &type, &collation, nullptr,
                                              nullptr, nullptr),
                SQLITE_OK);
      EXPECT_STREQ(collation, type == std::string("TEXT") ? "NOCASE" : "BINARY") << table << "." << column;
    }
  }
  sqlite3_close(raw);
}

TEST_F(Template, takes_what_hangs_below_a_row_with_it) {
  std::map<std::string, std::string> parents = {{"PA_PLATFORM_ACTV", "PD_PLATFORM_DESC"},
                                                {"ED_EQUIP_DESC", "PD_PLATFORM_DESC"},
                                                {"EA_EQUIP_ACTV", "ED_EQUIP_DESC"}};
  for (const EquipmentType& type : EquipmentTypes()) {
    parents["ED_" + std::string(type.code)] = "ED_EQUIP_DESC";
    if (type.has_activity) parents["EA_" + std::string(type.code)] = "EA_EQUIP_ACTV";
  }
  for (const std::string& table : Tables()) {
    const Rows links =
        db.Query("SELECT \"table\",on_delete,on_update,\"from\",\"to\" FROM pragma_foreign_key_list(?)", {table});
    const auto parent = parents.find(table);
    ASSERT_EQ(links.rows.size(), parent == parents.end() ? 0u : 1u) << table;
    if (parent == parents.end()) continue;
    const Values& link = links.rows.front();
    EXPECT_EQ(NullToEmpty(link[0]), parent->second) << table;
    EXPECT_EQ(NullToEmpty(link[1]), "CASCADE") << table;
    EXPECT_EQ(NullToEmpty(link[3]), NullToEmpty(link[4])) << table;
  }
}

TEST_F(Template, loses_everything_of_a_structure_with_its_row_and_nothing_of_another) {
  for (int structure : {1, 2}) {
    db.Execute("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK) VALUES (?)", {std::int64_t{structure}});
    db.Execute("INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK) VALUES (?,?)",
               {std::int64_t{structure}, std::int64_t{structure}});
    for (const EquipmentType& type : EquipmentTypes()) {
      const std::int64_t id = structure * 100 + type.number;
      db.Execute("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK) VALUES (?,?)", {id, std::int64_t{structure}});
      db.Execute("INSERT INTO ED_" + std::string(type.code) + " (ED_ID_AK) VALUES (?)", {id});
      db.Execute("INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK) VALUES (?,?)", {id, id});
      if (type.has_activity) db.Execute("INSERT INTO EA_" + std::string(type.code) + " (EA_ID_AK) VALUES (?)", {id});
    }
  }
  db.Execute("DELETE FROM PD_PLATFORM_DESC WHERE PD_ID_AK=1");
  for (const std::string& table : Tables()) {
    if (table[0] != 'P' && table[0] != 'E') continue;
    const std::int64_t left = table == "ED_EQUIP_DESC" || table == "EA_EQUIP_ACTV" ? 16 : 1;
    EXPECT_EQ(ToInteger(db.Single("SELECT COUNT(*) FROM [" + table + "]")), left) << table;
  }
}

// ---- how the finds look their rows up ----

class Lookups : public testing::Test {
 protected:
  // The finds of the work, each searched by an index and none by walking its table.
  template <typename Work>
  void ExpectSearches(const char* what, Work&& work) {
    heard_.clear();
    work();
    const std::vector<std::string> finds = std::exchange(heard_, {});
    EXPECT_FALSE(finds.empty()) << what;
    for (const std::string& sql : finds) {
      std::string plan;
      for (const Values& step : run.s.db.Query("EXPLAIN QUERY PLAN " + sql).rows) plan += NullToEmpty(step[3]) + "\n";
      EXPECT_NE(plan.find("SEARCH"), std::string::npos) << what << ": " << sql << "\n" << plan;
      EXPECT_EQ(plan.find("SCAN"), std::string::npos) << what << ": " << sql << "\n" << plan;
    }
  }
  // No cursor is on the row already, so that every find looks its row up.
  void Wander() {
    for (const char* table :
         {"PD_PLATFORM_DESC", "PA_PLATFORM_ACTV", "ED_EQUIP_DESC", "EA_EQUIP_ACTV", "EA_FLA", "ED_FLA"})
      run.s.At(table).FindFirstWhere("0", {});
  }

  // Those that search.
  std::vector<std::string> heard_;
  HeardSql listener_{HeardSql::Of::kStatements, [this](std::string_view sql) {
                       if (sql.find("WHERE") != std::string_view::npos) heard_.emplace_back(sql);
                     }};
  TestRun run;
};

TEST_F(Lookups, of_the_finds_by_key_are_searches) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  Session& s = run.s;
  const auto lookup = [&](const char* what, const std::function<bool()>& find) {
    Wander();
    ExpectSearches(what, [&] { EXPECT_TRUE(find()) << what; });
  };
  lookup("structure", [&] { return MoveToPDRecord(s, s.PD_ID_AK); });
  lookup("structure month", [&] { return MoveToPARecord(s, s.SA_ID_AK); });
  lookup("structure month by its month", [&] { return MoveToPAActvRecordByMo(s, s.PD_ID_AK, 1, 2017); });
  lookup("record of a sheet", [&] { return FindEquipRecord(s, s.current, "ED_FLA", "EA_FLA"); });
  lookup("record of a structure", [&] { return FindStructureRecord(s); });
  lookup("operator", [&] { return FindOperatorRecord(s); });
}

TEST_F(Lookups, of_every_type_s_tables_are_searches) {
  run.StartWithStructure();
  for (const EquipmentType& type : EquipmentTypes()) {
    ExpectSearches(type.code.data(), [&] {
      run.s.At("ED_" + std::string(type.code)).FindFirst({{"ED_ID_AK", std::int64_t{1}}});
    });
    if (type.has_activity)
      ExpectSearches(type.code.data(), [&] {
        run.s.At("EA_" + std::string(type.code)).FindFirst({{"EA_ID_AK", std::int64_t{1}}});
      });
  }
}

TEST_F(Lookups, of_a_finding_are_searches) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  Session& s = run.s;
  QCLocation here = s.current;
  ExpectSearches("finding", [&] { EXPECT_FALSE(FindQCRecord(s, here, "Hours Operated, excl. upsets")); });
  ExpectSearches("withdrawal", [&] { DelQCRecordsForEquip(s, here); });
  ExpectSearches("count", [&] { EXPECT_EQ(CountQCErrors(s, here), 0); });
  const RecordKeys keys{s.PD_ID_AK, s.SA_ID_AK, s.ED_ID_AK, s.EA_ID_AK};
  ExpectSearches("record",
                 [&] { EXPECT_TRUE(JudgeRecord(s.db, *FindSheet("FLA"), s.mode, keys, [](const JudgedRecord&) {})); });
  ExpectSearches("structure",
                 [&] { EXPECT_TRUE(JudgeRecord(s.db, StructureSheet(), s.mode, keys, [](const JudgedRecord&) {})); });
}

}  // namespace
}  // namespace merlu::test
