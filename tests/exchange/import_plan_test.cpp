// What an import would do, and which structures would break an inventory.
#include "exchange/import_plan.h"

#include <gtest/gtest.h>

#include "exchange/import_file.h"
#include "inventory.h"
#include "session/types.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class ImportPlanned : public testing::Test {
 protected:
  void Make(int months_here, int months_there) {
    for (const std::string& path : {Here(), There()}) fs::remove(path);
    MakeInventory(TemplatePath(), Here(), OneOfEachType(1, months_here));
    MakeInventory(TemplatePath(), There(), OneOfEachType(2, months_there));
    for (const std::string& path : {Here(), There()})
      Raw(path, {"UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID=ED_EQUIP_TYP||1"});
    Raw(There(), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X'||CMPLX_ID_NUM"});
  }
  std::string Here() { return folder.path("here.mdb"); }
  std::string There() { return folder.path("there.mdb"); }
  ImportPlan MakePlan(const std::vector<int>& rows = {0, 1}) {
    Database here, there;
    here.Open(Here());
    there.OpenPrivateCopy(There());
    CheckImportFile(there, ReadImportLayout(here));
    const std::vector<ListedStructure> listed = ListStructures(there);
    std::vector<StructureName> names;
    for (const int row : rows) names.push_back(listed.at(static_cast<std::size_t>(row)).name);
    return PlanImport(here, there, names);
  }
  TemporaryFolder folder;
};

TEST_F(ImportPlanned, refuses_what_the_trees_could_not_show) {
  Make(2, 2);
  Raw(Here(),
      {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<1000) INSERT INTO "
       "PD_PLATFORM_DESC (PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM) SELECT i+100,'01234','M'||i,'1' FROM n"});
  const ImportPlan plan = MakePlan();
  EXPECT_FALSE(plan.adds);
  EXPECT_EQ(plan.refusal,
            "The inventory would have 1,003 structures, the program has room for 1,001. Nothing was imported.");
  for (const PlannedStructure& planned : plan.structures) EXPECT_EQ(ActionText(planned.action), "refused: not sound");
}

TEST_F(ImportPlanned, adds_sound_structures_with_their_equipment_and_months) {
  Make(2, 2);
  const ImportPlan plan = MakePlan();
  EXPECT_TRUE(plan.adds);
  EXPECT_EQ(plan.refusal, "");
  ASSERT_EQ(plan.structures.size(), 2u);
  for (const PlannedStructure& planned : plan.structures) {
    EXPECT_EQ(ActionText(planned.action), "add");
    EXPECT_EQ(planned.equipment.size(), 16u);
    for (const PlannedEquipment& one : planned.equipment) EXPECT_EQ(one.months, one.type == "FUG" ? 1 : 2) << one.type;
    EXPECT_EQ(MonthsText(planned.months_here), "");
    EXPECT_EQ(MonthsText(planned.months_there), "");
  }
}

TEST_F(ImportPlanned, tells_the_months_that_either_side_lacks_also_those_before_the_first) {
  Make(4, 3);
  Raw(There(), {"PRAGMA foreign_keys=ON", "DELETE FROM EA_EQUIP_ACTV WHERE EA_MO<>2",
                "DELETE FROM PA_PLATFORM_ACTV WHERE PA_MO<>2"});
  const ImportPlan plan = MakePlan({0});
  EXPECT_TRUE(plan.adds);
  EXPECT_EQ(MonthsText(plan.structures[0].months_there), "1, 3, 4");
  Make(1, 3);
  EXPECT_EQ(MonthsText(MakePlan({0}).structures[0].months_here), "2, 3");
}

TEST_F(ImportPlanned, refuses_another_year_and_what_exists_with_its_differences) {
  Make(2, 2);
  Raw(There(), {"UPDATE SYS_CONFIG SET sys_yr=2016"});
  EXPECT_EQ(MakePlan({0}).refusal, "Inventory Year of Import File (2016) does not match your database (2017).");
  EXPECT_EQ(ActionText(MakePlan({0}).structures[0].action), "refused: another year");
  Make(2, 2);
  Raw(There(), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM=substr(CMPLX_ID_NUM,2) WHERE PD_ID_AK=1",
                "UPDATE PD_PLATFORM_DESC SET Name='Other' WHERE PD_ID_AK=1",
                "UPDATE EA_FLA SET OP_HR=1 WHERE EA_ID_AK=(SELECT MIN(EA_ID_AK) FROM EA_FLA)"});
  const ImportPlan plan = MakePlan();
  EXPECT_EQ(plan.refusal, "RIMA Structure ID already exists in database - import cancelled.");
  EXPECT_EQ(ActionText(plan.structures[0].action), "refused: exists");
  EXPECT_EQ(ActionText(plan.structures[1].action), "not added: another one exists");
  std::string fields;
  for (const ImportDifference& one : plan.structures[0].differences) fields += one.field + "|";
  EXPECT_EQ(fields, "Name|Hours Operated, excl. upsets|");
  EXPECT_EQ(plan.structures[0].differences[0].there, "Other");
}

TEST_F(ImportPlanned, finds_nothing_different_in_a_copy) {
  Make(2, 2);
  fs::remove(There());
  fs::copy_file(Here(), There());
  EXPECT_TRUE(MakePlan({0}).structures[0].differences.empty());
}

struct Unsound {
  const char* name;
  std::vector<std::string> statements;
  const char* why;
};

class UnsoundStructure : public ImportPlanned, public testing::WithParamInterface<Unsound> {};

TEST_P(UnsoundStructure, is_refused_in_words_and_keeps_the_other_out) {
  Make(2, 2);
  std::vector<std::string> statements = {"PRAGMA foreign_keys=OFF"};
  statements.insert(statements.end(), GetParam().statements.begin(), GetParam().statements.end());
  Raw(There(), statements);
  const ImportPlan plan = MakePlan();
  EXPECT_FALSE(plan.adds);
  EXPECT_EQ(ActionText(plan.structures[0].action), "refused: not sound");
  EXPECT_EQ(plan.structures[0].why, GetParam().why);
  EXPECT_EQ(plan.refusal,
            "The structure X10001/1 cannot be imported. " + std::string(GetParam().why) + " Nothing was imported.");
  EXPECT_TRUE(MakePlan({1}).adds) << "the sound one alone";
}

const std::string kFlare = "(SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE PD_ID_AK=1 AND ED_EQUIP_TYP='FLA')";
const std::string kFlareMonth = "(SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_MO=2 AND ED_ID_AK=" + kFlare + ")";

const Unsound kUnsound[] = {
    {"month_twice", {"UPDATE PA_PLATFORM_ACTV SET PA_MO=2 WHERE PD_ID_AK=1 AND PA_MO=1"}, "It has month 2 twice."},
    {"structure_twice",
     {"INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,CMPLX_ID_NUM,STRUCT_NUM) SELECT 9,lower(CMPLX_ID_NUM),STRUCT_NUM FROM "
      "PD_PLATFORM_DESC WHERE PD_ID_AK=1"},
     "The file holds it twice."},
    {"equipment_month_twice",
     {"UPDATE EA_EQUIP_ACTV SET EA_MO=1 WHERE EA_ID_AK=" + kFlareMonth},
     "Combustion Flare: FLA1 has month 1 twice."},
    {"equipment_month_beyond",
     {"UPDATE EA_EQUIP_ACTV SET EA_MO=7 WHERE EA_ID_AK=" + kFlareMonth},
     "Combustion Flare: FLA1 has month 7, its structure has not."},
    {"no_description_row",
     {"DELETE FROM ED_FLA WHERE ED_ID_AK=" + kFlare},
     "Combustion Flare: FLA1 lacks its row in ED_FLA."},
    {"no_month_row",
     {"DELETE FROM EA_FLA WHERE EA_ID_AK=" + kFlareMonth},
     "Combustion Flare: FLA1 lacks its row of month 2 in EA_FLA."},
    {"wrong_type_of_month",
     {"UPDATE EA_EQUIP_ACTV SET EA_EQUIP_TYP='VEN' WHERE EA_ID_AK=" + kFlareMonth},
     "Combustion Flare: FLA1 is of another type in month 2."},
    {"row_of_another_type",
     {"INSERT INTO ED_VEN (ED_ID_AK) VALUES (" + kFlare + ")"},
     "Combustion Flare: FLA1 has a row in ED_VEN, which is not its type's table."},
    {"same_id",
     {"UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP='FLA', ED_MERLU_EQUIP_ID='fla1' WHERE PD_ID_AK=1 AND ED_EQUIP_TYP='VEN'",
      "UPDATE EA_EQUIP_ACTV SET EA_EQUIP_TYP='FLA' WHERE ED_ID_AK IN (SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE "
      "ED_MERLU_EQUIP_ID='fla1' COLLATE BINARY)",
      "INSERT INTO ED_FLA (ED_ID_AK) SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE ED_MERLU_EQUIP_ID='fla1' COLLATE BINARY",
      "DELETE FROM ED_VEN WHERE ED_ID_AK IN (SELECT ED_ID_AK FROM ED_FLA)",
      "INSERT INTO EA_FLA (EA_ID_AK) SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='FLA' AND EA_ID_AK NOT IN "
      "(SELECT EA_ID_AK FROM EA_FLA)"},
     "Combustion Flare: FLA1 is there twice."},
    {"same_id_beyond_ascii",
     {"UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID='É1' WHERE PD_ID_AK=1 AND ED_EQUIP_TYP='FLA'",
      "UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP='FLA', ED_MERLU_EQUIP_ID='é1' WHERE PD_ID_AK=1 AND ED_EQUIP_TYP='VEN'",
      "UPDATE EA_EQUIP_ACTV SET EA_EQUIP_TYP='FLA' WHERE ED_ID_AK IN (SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE "
      "ED_MERLU_EQUIP_ID='é1' COLLATE BINARY)",
      "INSERT INTO ED_FLA (ED_ID_AK) SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE ED_MERLU_EQUIP_ID='é1' COLLATE BINARY",
      "DELETE FROM ED_VEN WHERE ED_ID_AK IN (SELECT ED_ID_AK FROM ED_FLA)",
      "INSERT INTO EA_FLA (EA_ID_AK) SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='FLA' AND EA_ID_AK NOT IN "
      "(SELECT EA_ID_AK FROM EA_FLA)"},
     "Combustion Flare: É1 is there twice."},
};

INSTANTIATE_TEST_SUITE_P(files, UnsoundStructure, testing::ValuesIn(kUnsound),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace merlu::test
