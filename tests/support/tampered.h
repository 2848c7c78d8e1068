// Ways to tamper with an inventory file, as statements.
#pragma once

#include <string>
#include <vector>

namespace merlu::test {

struct Tampering {
  const char* name;
  std::vector<std::string> statements;
};

inline std::string Remade(const std::string& table) {
  return "CREATE TABLE made AS SELECT * FROM " + table;
}

inline const std::vector<Tampering>& Tamperings() {
  static const std::vector<Tampering> all = {
      {"AViewForATable", {Remade("QC"), "DROP TABLE QC", "CREATE VIEW QC AS SELECT * FROM made"}},
      {"ATableWithoutRowKeys",
       {"DROP TABLE QC", "CREATE TABLE QC (UserID TEXT PRIMARY KEY, Month INTEGER) WITHOUT ROWID"}},
      {"TablesWithoutTypesAndKeys",
       {"PRAGMA foreign_keys=OFF", "DROP VIEW Structures", Remade("PD_PLATFORM_DESC"), "DROP TABLE PD_PLATFORM_DESC",
        "ALTER TABLE made RENAME TO PD_PLATFORM_DESC",
        "UPDATE PD_PLATFORM_DESC SET PD_ID_AK='abc', STRUCT_NUM=17.5, Name=x'00ff00'"}},
      {"AMissingColumn", {"ALTER TABLE EA_FLA DROP COLUMN OP_HR", "ALTER TABLE QC DROP COLUMN FieldID"}},
      {"AMissingTable", {"DROP TABLE ED_STO"}},
      {"VeryLongTexts",
       {"UPDATE PD_PLATFORM_DESC SET Name=hex(zeroblob(500000)), Area=hex(zeroblob(500000))",
        "UPDATE CO_COMPANY SET CO_NAME=hex(zeroblob(500000))",
        "UPDATE EA_EQUIP_ACTV SET EA_COMNT_TXT=hex(zeroblob(50000))"}},
      {"VeryLongIdentifiers",
       {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM=hex(zeroblob(20000)) WHERE PD_ID_AK=1",
        "UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID=hex(zeroblob(500000)) WHERE ED_ID_AK=3"}},
      {"Blobs",
       {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM=x'00ff', Name=x'8080'", "UPDATE EA_FLA SET OP_HR=x'31'",
        "UPDATE CO_COMPANY SET Phone=x'00'", "UPDATE EA_EQUIP_ACTV SET EA_QC_DT=x'ff', EA_STATUS=x'41'"}},
      {"TextsForNumbers",
       {"UPDATE EA_FLA SET OP_HR='many', VOL_FLARED='1e999'", "UPDATE PD_PLATFORM_DESC SET LATITUDE='north'",
        "UPDATE PA_PLATFORM_ACTV SET PROD_OIL=9e999, PROD_NG=-9e999"}},
      {"InvalidUtf8",
       {"UPDATE PD_PLATFORM_DESC SET Name=CAST(x'ff41fe' AS TEXT), STRUCT_NUM=CAST(x'c3' AS TEXT)||PD_ID_AK",
        "UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID=CAST(x'80' AS TEXT)||ED_ID_AK",
        "UPDATE CO_COMPANY SET RIMA_CO_NUM=CAST(x'f09f' AS TEXT)"}},
      {"NegativeKeys",
       {"UPDATE PD_PLATFORM_DESC SET PD_ID_AK=-PD_ID_AK", "UPDATE ED_EQUIP_DESC SET ED_ID_AK=ED_ID_AK-1000",
        "UPDATE EA_EQUIP_ACTV SET EA_ID_AK=1-EA_ID_AK"}},
      {"HugeKeys",
       {"UPDATE PD_PLATFORM_DESC SET PD_ID_AK=9223372036854775807 WHERE PD_ID_AK=1",
        "UPDATE ED_EQUIP_DESC SET ED_ID_AK=9223372036854775807 WHERE ED_ID_AK=1",
        "UPDATE EA_EQUIP_ACTV SET EA_ID_AK=-9223372036854775807 WHERE EA_ID_AK=1"}},
      {"RowsWithoutParents",
       {"PRAGMA foreign_keys=OFF", "DELETE FROM PD_PLATFORM_DESC WHERE PD_ID_AK=1",
        "DELETE FROM ED_EQUIP_DESC WHERE ED_ID_AK=20", "DELETE FROM EA_EQUIP_ACTV WHERE EA_ID_AK=40"}},
      {"RowsWithoutTheirTypes", {"DELETE FROM ED_FLA", "DELETE FROM EA_BOI", "DELETE FROM PA_PLATFORM_ACTV"}},
      {"UnknownTypes",
       {"UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP='XXX'", "UPDATE EA_EQUIP_ACTV SET EA_EQUIP_TYP='LONGER TYPE'"}},
      {"TypesOfOthers", {"UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP='FLA'", "UPDATE EA_EQUIP_ACTV SET EA_EQUIP_TYP='VEN'"}},
      {"StrangeMonths",
       {"UPDATE PA_PLATFORM_ACTV SET PA_MO=13 WHERE SA_ID_AK=1", "UPDATE EA_EQUIP_ACTV SET EA_MO=-1 WHERE EA_ID_AK<9",
        "UPDATE EA_EQUIP_ACTV SET EA_MO=123456789012 WHERE EA_ID_AK=9", "UPDATE PA_PLATFORM_ACTV SET PA_YR=NULL"}},
      {"NoMonthsAtAll", {"UPDATE SYS_CONFIG SET SYS_MAX_MO=NULL, sys_yr=NULL"}},
      {"Duplicates",
       {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='1', STRUCT_NUM='1'",
        "UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID='SAME'", "INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('X01234')",
        "INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES (NULL)"}},
      {"NullsEverywhere",
       {"UPDATE PD_PLATFORM_DESC SET RIMA_CO_NUM=NULL, CMPLX_ID_NUM=NULL, STRUCT_NUM=NULL, Area=NULL",
        "UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP=NULL, ED_MERLU_EQUIP_ID=NULL", "UPDATE EA_EQUIP_ACTV SET EA_MO=NULL"}},
      {"AMillionConfigurations",
       {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<1000000) INSERT INTO SYS_CONFIG SELECT "
        "2017,12,i FROM n"}},
      {"AHundredThousandFindings",
       {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<100000) INSERT INTO QC "
        "(UserID,CmplxID,StructID,EquipType,EquipID,Month,Year,Level,FieldID) SELECT "
        "'01234','10001','1','FLA',NULL,1,2017,'EQUIPMENT',i FROM n"}},
      {"ACircleOfReferences",
       {"PRAGMA foreign_keys=OFF", "DROP TABLE QCInventory",
        "CREATE TABLE QCInventory (Level TEXT, Parent TEXT REFERENCES QCInventory(Level) ON DELETE CASCADE)"}},
      {"UniqueIndexesAndChecks",
       {"CREATE UNIQUE INDEX one_month ON PA_PLATFORM_ACTV (PA_MO,PD_ID_AK)",
        "CREATE UNIQUE INDEX one_field ON QC (FieldID)"}},
  };
  return all;
}

// ---- what keeps a file from being imported ----

// A table without its key, with the same columns and rows.
inline std::vector<std::string> WithoutKeys(const std::string& table, const std::string& more) {
  return {"PRAGMA foreign_keys=OFF", "CREATE TABLE copy AS SELECT * FROM " + table, "DROP TABLE " + table,
          "ALTER TABLE copy RENAME TO " + table, more};
}

inline const std::vector<Tampering>& ForeignTamperings() {
  static const std::vector<Tampering> all = {
      {"a_trigger", {"CREATE TRIGGER bad AFTER INSERT ON QC BEGIN DELETE FROM QC; END"}},
      {"a_view_in_place_of_a_table",
       {"PRAGMA foreign_keys=OFF", "ALTER TABLE EA_FLA RENAME TO hidden",
        "CREATE VIEW EA_FLA AS SELECT * FROM hidden"}},
      {"a_virtual_table", {"DROP TABLE listPNE", "CREATE VIRTUAL TABLE listPNE USING fts5(Mfr, Model)"}},
      {"a_further_virtual_table", {"CREATE VIRTUAL TABLE further USING fts5(a)"}},
      {"a_missing_table", {"DROP TABLE EA_FLA"}},
      {"a_missing_column", {"ALTER TABLE EA_FLA DROP COLUMN OP_HR"}},
      {"a_further_column", {"ALTER TABLE EA_FLA ADD COLUMN more TEXT"}},
      {"a_renamed_column", {"ALTER TABLE EA_FLA RENAME COLUMN OP_HR TO OP_HOUR"}},
      {"a_computed_column",
       {"ALTER TABLE EA_FLA DROP COLUMN OP_HR", "ALTER TABLE EA_FLA ADD COLUMN OP_HR DOUBLE AS (EA_ID_AK)"}},
      {"a_text_for_a_number", {"UPDATE EA_FLA SET OP_HR='many'"}},
      {"a_blob", {"UPDATE PD_PLATFORM_DESC SET Name=x'00FF'"}},
      {"an_endless_number", {"UPDATE EA_FLA SET OP_HR=9e999"}},
      {"a_yes_no_of_two", {"UPDATE ED_AMI SET MODELINPUTS_FLG=2"}},
      {"a_fraction_for_a_month", {"UPDATE PA_PLATFORM_ACTV SET PA_YR=2017.5"}},
      {"month_thirteen", {"UPDATE PA_PLATFORM_ACTV SET PA_MO=13 WHERE PA_MO=2"}},
      {"a_month_of_millions", {"UPDATE EA_EQUIP_ACTV SET EA_MO=500000 WHERE EA_ID_AK=1"}},
      {"no_month", {"UPDATE PA_PLATFORM_ACTV SET PA_MO=NULL"}},
      {"an_unknown_type", {"UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP='XYZ' WHERE ED_ID_AK=1"}},
      {"a_negative_key", {"UPDATE ED_EQUIP_DESC SET ED_ID_AK=-5 WHERE ED_ID_AK=1"}},
      {"the_key_zero", {"UPDATE EA_EQUIP_ACTV SET EA_ID_AK=0 WHERE EA_ID_AK=1"}},
      {"a_key_past_32_bits", {"UPDATE PD_PLATFORM_DESC SET PD_ID_AK=3000000000 WHERE PD_ID_AK=2"}},
      {"a_key_twice", WithoutKeys("ED_EQUIP_DESC", "UPDATE ED_EQUIP_DESC SET ED_ID_AK=1 WHERE ED_ID_AK=2")},
      {"a_row_without_key", WithoutKeys("EA_EQUIP_ACTV", "UPDATE EA_EQUIP_ACTV SET EA_ID_AK=NULL WHERE EA_ID_AK=2")},
      {"bytes_that_are_no_text", {"UPDATE PD_PLATFORM_DESC SET Name=CAST(x'C0AF' AS TEXT)"}},
      {"half_a_character", {"UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID=CAST(x'41E2' AS TEXT)"}},
  };
  return all;
}

}  // namespace merlu::test
