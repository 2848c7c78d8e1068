// The annual pass from its menu entry to its document.
#include "shell/annual_summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>

#include "inventory_qc/inventory_run.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kBlank = "Required field left blank";
constexpr const char* kNothing = "There are no missing data, outliers, or inconsistencies in this dataset.";
constexpr const char* kFewer =
    "You have completed fewer than 12 surveys\nAre you sure you want to run the QA Summary now?";

class AnnualPass : public testing::Test {
 protected:
  void Run(const std::string& sql) { run.s.db.Execute(sql); }
  // A structure without findings in the pass, in the months of the inventory.
  void StartClean() {
    run.StartWithStructure();
    Clean();
  }
  void Clean() {
    Run("PRAGMA synchronous=OFF");  // many short writes; nothing is tested of the disk
    Run("UPDATE PA_PLATFORM_ACTV SET status='A',PROD_NG=1,PROD_OIL=1");
    Run("UPDATE PD_PLATFORM_DESC SET LATITUDE=28,LONGITUDE=-90,DIST_TO_SHORE=5,SalesGasC1Content=100");
  }
  // Equipment with bare rows under the structure of that number, in months 1 to `months`.
  int Equip(const std::string& type, const std::string& id, int months = 1, const std::string& complex = "1001") {
    const std::string k = std::to_string(++key);
    Run("INSERT INTO ED_EQUIP_DESC (ED_ID_AK,PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID) SELECT " + k + ",PD_ID_AK,'" +
        type + "','" + id + "' FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='" + complex + "'");
    Run("INSERT INTO ED_" + type + " (ED_ID_AK) VALUES (" + k + ")");
    for (int month = 1; month <= months; ++month) {
      const std::string a = std::to_string(key * 20 + month);
      Run("INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_MO,EA_YR,EA_EQUIP_TYP,EA_STATUS) VALUES (" + a + "," + k +
          "," + std::to_string(month) + ",2017,'" + type + "','A')");
      if (type != "FUG") Run("INSERT INTO EA_" + type + " (EA_ID_AK) VALUES (" + a + ")");
    }
    return key;
  }
  int Flare(const std::string& id = "F1", int months = 1, const std::string& complex = "1001") {
    const int flare = Equip("FLA", id, months, complex);
    Run("UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=1 WHERE ED_ID_AK=" + std::to_string(flare));
    Run("UPDATE EA_FLA SET VOL_FLARED=1");
    return flare;
  }
  Texts Read(const std::string& columns, const std::string& condition = "[Level]<>'ZSUMMARY'") {
    Texts rows;
    const Rows found = run.s.db.Query("SELECT " + columns + " FROM QCInventory WHERE " + condition + " ORDER BY rowid");
    for (const Values& row : found.rows) {
      std::string text;
      for (const Value& value : row) text += (text.empty() ? "" : " | ") + NullToEmpty(value);
      rows.push_back(text);
    }
    return rows;
  }
  // "FieldID: text" of the findings of a new run.
  Texts Findings(const std::string& condition = "[Level]<>'ZSUMMARY'") {
    RunInventoryPasses(run.s);
    return Read("FieldID||': '||[Desc]", condition);
  }
  std::string Summary() { return NullToEmpty(run.Sql("SELECT [Desc] FROM QCInventory WHERE [Level]='ZSUMMARY'")); }
  void Export(Button answer = Button::kYes) {
    run.answers = {answer};
    run.files = {pdf};
    ExportAnnualSummary(run.s);
  }
  TestRun run;
  std::string pdf = run.folder.path("summary.pdf");
  int key = 1000;
};

// ---- guards and questions ----

TEST_F(AnnualPass, needs_a_structure_and_with_one_alone_equipment) {
  run.Start();
  ExportAnnualSummary(run.s);
  run.AddStructure("1001");
  ExportAnnualSummary(run.s);
  ASSERT_EQ(run.boxes.size(), 2u);
  for (const Box& box : run.boxes) EXPECT_EQ(box.title, "Data Entry Error");
  EXPECT_EQ(run.TakeBoxes(),
            (Texts{"You must create a platform and enter equipment first.", "You must enter equipment first."}));
  EXPECT_TRUE(run.file_questions.empty());
  EXPECT_EQ(run.Count("QCInventory"), 0);
}

TEST_F(AnnualPass, of_fewer_than_12_surveys_asks_first_from_the_menu_too) {
  StartClean();
  Flare();
  run.s.last_month = 11;
  Export();
  fs::copy_file(run.s.path, run.folder.path("again.mdb"));
  TestRun again;
  again.Start(run.folder.path("again.mdb"));
  again.answers = {Button::kNo};
  again.Click("frmInvQCPrint");
  run.boxes.push_back(again.boxes.at(0));
  ASSERT_EQ(run.boxes.size(), 2u);
  for (const Box& box : run.boxes) {
    EXPECT_EQ(box.text, kFewer);
    EXPECT_EQ(box.title, "Incomplete Inventory");
    EXPECT_EQ(box.icon, Icon::kQuestion);
    EXPECT_EQ(box.buttons, (std::vector<Button>{Button::kYes, Button::kNo}));
  }
}

TEST_F(AnnualPass, with_two_structures_and_no_equipment_goes_on_and_tells_it) {
  run.StartWithStructure();
  run.AddStructure("1002");
  Clean();
  Export();
  EXPECT_EQ(run.TakeBoxes(), Texts{kFewer});
  EXPECT_EQ(
      Read("[Level],CmplxID,StructID,[Month],[Year],EquipType,EquipID,FieldID,FieldDesc,[Desc]"),
      (Texts{
          "STRUCTURE | 1001 | 1 | 1 | 2017 | NA | NA | NA | STRUCTURE | Equipment records are missing for platform",
          "STRUCTURE | 1002 | 1 | 1 | 2017 | NA | NA | NA | STRUCTURE | Equipment records are missing for platform"}));
  EXPECT_EQ(run.opened, Texts{pdf});
}

TEST_F(AnnualPass, of_12_surveys_asks_nothing_but_the_file) {
  StartClean();
  Flare();
  run.s.last_month = 12;
  Export();
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  ASSERT_EQ(run.file_questions.size(), 1u);
  EXPECT_EQ(run.file_questions[0].kind, FileQuestion::Kind::kSave);
  EXPECT_EQ(run.file_questions[0].title, "Save Annual Inventory Summary as...");
  EXPECT_EQ(run.file_questions[0].filter_name, "PDF (*.pdf) ");
  EXPECT_EQ(run.file_questions[0].pattern, "*.pdf");
}

TEST_F(AnnualPass, that_is_not_wanted_is_terminated_and_keeps_the_old_findings) {
  StartClean();
  Flare();
  Run("INSERT INTO QCInventory (UserID,[Desc]) VALUES ('12345','old')");
  Export(Button::kNo);
  EXPECT_EQ(run.TakeBoxes(), (Texts{kFewer, "Inventory QC terminated."}));
  EXPECT_EQ(run.Count("QCInventory WHERE [Desc]='old'"), 1);
  EXPECT_EQ(run.Count("QCInventory"), 1);
  EXPECT_TRUE(run.file_questions.empty());
  EXPECT_FALSE(fs::exists(pdf));
}

TEST_F(AnnualPass, without_a_file_name_is_cancelled_and_keeps_the_old_findings) {
  StartClean();
  Flare();
  Run("INSERT INTO QCInventory (UserID,[Desc]) VALUES ('12345','old')");
  pdf = "";
  Export();
  EXPECT_EQ(run.TakeBoxes(), (Texts{kFewer, "No file name given, cancelling export."}));
  EXPECT_EQ(run.Count("QCInventory WHERE [Desc]='old'"), 1);
  EXPECT_TRUE(run.opened.empty());
}

// ---- the summary row ----

TEST_F(AnnualPass, over_a_complete_inventory_leaves_and_reads_the_summary_row_alone) {
  StartClean();
  Flare();
  RunInventoryPasses(run.s);
  EXPECT_EQ(Read("[Level],UserID,[Month],[Year],CmplxID,StructID,EquipType,EquipID,FieldID,FieldDesc,[Desc]", "1"),
            Texts{std::string("ZSUMMARY | 12345 | 99 | 9999 | NA | NA | NA | NA | NA | AA | ") + kNothing});
  EXPECT_EQ(run.Count("QCInventory WHERE [TimeStamp] LIKE '1976-07-04%'"), 1);
  const InventoryReport report = ReadInventoryReport(run.s);
  EXPECT_EQ(report.summary, kNothing);
  EXPECT_EQ(report.findings, 0);
  EXPECT_TRUE(report.sections.empty());
}

TEST_F(AnnualPass, stores_the_place_of_each_finding_and_counts_all_but_the_summary_row) {
  StartClean();
  Flare();
  Run("UPDATE CO_COMPANY SET Contact=NULL,Phone=NULL");
  Run("UPDATE PD_PLATFORM_DESC SET Area=NULL,SalesGasC1Content=NULL");
  Run("UPDATE EA_FLA SET VOL_FLARED=NULL");
  for (int time = 0; time < 2; ++time) {  // a second run replaces what the first one found
    RunInventoryPasses(run.s);
    const std::string user = "USER | 12345 | 99 | 9999 | NA | NA | NA | NA | ";
    const std::string structure = "STRUCTURE | 12345 | 1 | 2017 | 1001 | 1 | NA | NA | ";
    EXPECT_EQ(Read("[Level],UserID,[Month],[Year],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc]"),
              (Texts{user + "Contact | " + kBlank, user + "Phone | " + kBlank, structure + "Area | " + kBlank,
                     structure + "SalesGasComposition | Sum of gas composition fields <> 100%.",
                     std::string("EQUIPMENT | 12345 | 1 | 2017 | 1001 | 1 | FLA | F1 | Vol_Flared | ") + kBlank}));
    EXPECT_EQ(run.Count("QCInventory WHERE [TimeStamp] LIKE '1976-07-04%'"), 6);
    EXPECT_EQ(Summary(), "5 errors found in this dataset.");
    EXPECT_EQ(run.Count("QCInventory WHERE [Level]='ZSUMMARY' AND rowid=(SELECT MAX(rowid) FROM QCInventory)"), 1);
  }
}

// ---- status and first rows ----

TEST_F(AnnualPass, takes_equipment_without_status_for_active_but_skips_structures_without_one) {
  StartClean();
  Flare();
  Run("UPDATE EA_FLA SET VOL_FLARED=NULL");
  Run("UPDATE PA_PLATFORM_ACTV SET PROD_NG=NULL");
  EXPECT_EQ(Findings(), (Texts{"Prod_NG: Required field left blank", "Vol_Flared: Required field left blank"}));
  Run("UPDATE EA_EQUIP_ACTV SET EA_STATUS=NULL");
  Run("UPDATE PA_PLATFORM_ACTV SET status=NULL");
  EXPECT_EQ(Findings(), Texts{"Vol_Flared: Required field left blank"});
  Run("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I'");
  EXPECT_EQ(Findings(), Texts{});
}

TEST_F(AnnualPass, judges_every_record_by_the_first_description_of_its_type) {
  StartClean();
  const std::string first = std::to_string(Flare("F1"));
  const std::string second = std::to_string(Flare("F2"));
  Run("UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=NULL,PILOT_FUEL_FEED_RATE=1 WHERE ED_ID_AK=" + first);
  RunInventoryPasses(run.s);
  EXPECT_EQ(Read("EquipID,FieldID"), (Texts{"F1 | CTRL_FLA_PILOT_FLG", "F2 | CTRL_FLA_PILOT_FLG"}));
  Run("UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=1 WHERE ED_ID_AK=" + first);
  Run("UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=NULL WHERE ED_ID_AK=" + second);
  EXPECT_EQ(Findings(), Texts{});
}

// ---- platforms without equipment, inactive months ----

TEST_F(AnnualPass, tells_a_platform_without_equipment_for_each_of_its_months) {
  run.StartWithStructure();
  run.AddStructure("1002");
  run.AddMonth();
  Clean();
  Flare("F1", 2);
  RunInventoryPasses(run.s);
  EXPECT_EQ(Read("CmplxID,[Month],FieldDesc,[Desc]"),
            (Texts{"1002 | 1 | STRUCTURE | Equipment records are missing for platform",
                   "1002 | 2 | STRUCTURE | Equipment records are missing for platform"}));
  EXPECT_EQ(Summary(), "2 errors found in this dataset.");
}

TEST_F(AnnualPass, drops_what_it_found_in_the_inactive_months_of_a_structure) {
  run.StartWithStructure();
  run.AddStructure("1002");
  run.AddMonth();
  run.AddMonth();
  Clean();
  Flare("F1", 3);
  Run("UPDATE EA_FLA SET VOL_FLARED=NULL");
  Run("UPDATE PA_PLATFORM_ACTV SET status='I' WHERE PA_MO=3");
  Run("UPDATE PA_PLATFORM_ACTV SET status='I' WHERE PA_MO=2 AND PD_ID_AK=(SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE "
      "CMPLX_ID_NUM='1002')");
  RunInventoryPasses(run.s);
  EXPECT_EQ(Read("CmplxID,[Month],FieldID"),
            (Texts{"1002 | 1 | NA", "1001 | 1 | Vol_Flared", "1001 | 2 | Vol_Flared"}));
  EXPECT_EQ(run.Count("QCInventory WHERE [Month]=3"), 0);
  EXPECT_EQ(Summary(), "3 errors found in this dataset.");
}

// ---- fugitives ----

TEST_F(AnnualPass, puts_all_fugitives_where_the_vents_ended) {
  run.StartWithStructure();
  run.AddStructure("1002");
  Clean();
  Equip("FUG", "G1");
  Equip("FUG", "G2", 1, "1002");
  Equip("VEN", "V1", 2, "1002");
  RunInventoryPasses(run.s);
  const std::string place = "12345 | 2 | 2017 | 1002 | 1 | V1 | ";
  EXPECT_EQ(Read("UserID,[Month],[Year],CmplxID,StructID,EquipID,FieldID,[Desc]", "EquipType='FUG'"),
            (Texts{place + "StreamType | " + kBlank, place + "WGT_PER_VOC | " + kBlank,
                   place + "Components | All components are blank.", place + "StreamType | " + kBlank,
                   place + "WGT_PER_VOC | " + kBlank, place + "Components | All components are blank."}));
}

TEST_F(AnnualPass, puts_fugitives_in_the_month_of_the_last_vent_record_though_it_is_inactive) {
  StartClean();
  Equip("FUG", "G1");
  Equip("VEN", "V1", 1);
  const std::string second = std::to_string(Equip("VEN", "V2", 3));
  Run("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I' WHERE ED_ID_AK=" + second);
  RunInventoryPasses(run.s);
  // the status is read after the activity cursor has moved
  EXPECT_EQ(Read("[Month],EquipID", "FieldID='StreamType'"), Texts{"3 | V1"});
}

// ---- what it leaves alone, faults ----

TEST_F(AnnualPass, leaves_the_monthly_log_the_sheet_and_the_location_as_they_were) {
  run.StartWith("FLA", "F1");
  Run("INSERT INTO QC (UserID,[Month],[Year],[Level],FieldID,[Desc]) VALUES ('12345',1,2017,'SURVEY','X','kept')");
  run.TakeBoxes();
  const std::int64_t findings = run.Count("QC");
  const Mode mode = run.s.mode;
  Export();
  EXPECT_EQ(run.opened, Texts{pdf});
  EXPECT_EQ(run.Count("QC"), findings);
  EXPECT_EQ(run.Count("QC WHERE [Desc]='kept'"), 1);
  EXPECT_EQ(run.s.current.EquipID, "F1");
  EXPECT_EQ(run.s.mode, mode);
  EXPECT_TRUE(run.s.desk.Find("frmFLA")->visible);
}

TEST_F(AnnualPass, tells_a_fault_of_one_pass_and_goes_on_with_the_next) {
  StartClean();
  Flare();
  Equip("VEN", "V1");
  Run("DROP TABLE ED_FLA");
  EXPECT_EQ(Findings(), (Texts{"OP_HR: Required field left blank", "Vol_Vented: Required field left blank"}));
  const Texts told = run.TakeBoxes();
  ASSERT_EQ(told.size(), 1u);
  EXPECT_TRUE(std::isdigit(told[0].at(0))) << told[0];
  EXPECT_NE(told[0].find("ED_FLA"), std::string::npos) << told[0];
}

TEST_F(AnnualPass, comes_as_far_as_the_missing_description_of_a_type) {
  StartClean();
  Flare();
  Equip("AMI", "A1");
  Run("DELETE FROM ED_AMI");
  RunInventoryPasses(run.s);
  Texts boxes = run.TakeBoxes();
  EXPECT_EQ(std::count(boxes.begin(), boxes.end(), "3021 No current record."), 1);
  EXPECT_EQ(Read("FieldID", "EquipType='AMI'"), (Texts{"TOT_GAS_THRUPUT", "OP_HR"})) << "they stand before it";
  Run("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I' WHERE EA_EQUIP_TYP='AMI'");
  RunInventoryPasses(run.s);
  boxes = run.TakeBoxes();
  EXPECT_EQ(std::count(boxes.begin(), boxes.end(), "3021 No current record."), 0);
}

TEST_F(AnnualPass, tells_a_record_without_its_master_once_and_stays_where_it_stood) {
  StartClean();
  Flare();
  Run("PRAGMA foreign_keys=OFF");
  Run("INSERT INTO EA_FLA (EA_ID_AK) VALUES (99999)");
  RunInventoryPasses(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equip Activity ID 99999 not found!"});
  EXPECT_EQ(Read("CmplxID,[Month],EquipID,FieldID"), Texts{"1001 | 1 | F1 | Vol_Flared"});
}

TEST_F(AnnualPass, takes_the_status_of_the_month_where_it_stands_for_a_record_without_its_master) {
  StartClean();
  Flare();
  Run("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I'");
  Run("PRAGMA foreign_keys=OFF");
  Run("INSERT INTO EA_FLA (EA_ID_AK) VALUES (99999)");
  RunInventoryPasses(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equip Activity ID 99999 not found!"});
  EXPECT_EQ(Read("FieldID"), Texts{});
}

TEST_F(AnnualPass, tells_a_month_without_its_structure_and_judges_it_by_the_one_where_it_stands) {
  StartClean();
  Flare();
  Run("PRAGMA foreign_keys=OFF");
  Run("INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK,PA_MO,PA_YR,status) VALUES (99999,777,1,2017,'A')");
  RunInventoryPasses(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{"Platform Desc ID 777 not found!"});
  EXPECT_EQ(Read("CmplxID,[Month],FieldID"), (Texts{"1001 | 1 | Prod_NG", "1001 | 1 | Prod_Oil"}));
}

TEST_F(AnnualPass, drops_what_it_found_of_an_inactive_structure_without_a_complex) {
  StartClean();
  run.AddStructure("1002");
  Run("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM=NULL,Name=NULL WHERE CMPLX_ID_NUM='1002'");
  Run("UPDATE PA_PLATFORM_ACTV SET status='I' WHERE PD_ID_AK<>(SELECT MIN(PD_ID_AK) FROM PD_PLATFORM_DESC)");
  const int flare = Flare();
  Run("UPDATE ED_EQUIP_DESC SET PD_ID_AK=(SELECT MAX(PD_ID_AK) FROM PD_PLATFORM_DESC) WHERE ED_ID_AK=" +
      std::to_string(flare));
  Flare("F2");
  Run("UPDATE EA_FLA SET VOL_FLARED=NULL");
  RunInventoryPasses(run.s);
  EXPECT_EQ(Read("CmplxID,EquipID,FieldID"), Texts{"1001 | F2 | Vol_Flared"});
}

TEST_F(AnnualPass, finds_columns_in_any_spelling) {
  StartClean();
  Flare();
  Run("ALTER TABLE EA_FLA RENAME COLUMN VOL_FLARED TO Vol_Flared");
  Run("ALTER TABLE PD_PLATFORM_DESC RENAME COLUMN LATITUDE TO Latitude");
  Run("UPDATE EA_FLA SET Vol_Flared=NULL");
  RunInventoryPasses(run.s);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
  EXPECT_EQ(Read("FieldID"), Texts{"Vol_Flared"});
}

TEST_F(AnnualPass, that_cannot_keep_its_findings_says_so) {
  StartClean();
  Flare();
  Run("DROP TABLE QCInventory");
  Export();
  const Texts boxes = run.TakeBoxes();
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_TRUE(boxes[1].starts_with("Error displaying report. ")) << boxes[1];
  EXPECT_FALSE(fs::exists(pdf));
  EXPECT_FALSE(run.s.wait.showing);
}

// ---- the document ----

TEST_F(AnnualPass, shows_the_wait_screen_writes_the_document_and_opens_it) {
  StartClean();
  Flare();
  Export();
  EXPECT_NE(std::find(run.wait_texts.begin(), run.wait_texts.end(), "Please Wait..."), run.wait_texts.end());
  EXPECT_EQ(run.s.wait.title, "Preparing QA Summary");
  EXPECT_FALSE(run.s.wait.showing);
  EXPECT_EQ(run.opened, Texts{pdf});
  EXPECT_TRUE(FileBytes(pdf).starts_with("%PDF-"));
  EXPECT_FALSE(fs::exists(run.folder.path("summary.rpt")));
}

TEST_F(AnnualPass, overwrites_a_document_of_that_name_and_touches_no_other_file) {
  StartClean();
  Flare();
  std::ofstream(pdf) << "old";
  std::ofstream(run.folder.path("summary.rpt")) << "another's";
  Export();
  EXPECT_EQ(run.TakeBoxes(), Texts{kFewer});
  EXPECT_TRUE(FileBytes(pdf).starts_with("%PDF-"));
  EXPECT_EQ(FileBytes(run.folder.path("summary.rpt")), "another's");
}

TEST_F(AnnualPass, tells_three_lines_where_it_may_not_write_and_leaves_what_was_there) {
  StartClean();
  Flare();
  std::ofstream(pdf) << "old";
  fs::permissions(pdf, fs::perms::owner_read);
  Export();
  ASSERT_EQ(run.boxes.size(), 2u);
  EXPECT_EQ(run.boxes[1].text,
            "There was an error saving the report.\n"
            "Make sure you have permission to create files in the selected directory.\n"
            "You must select another location in order to save the report.");
  EXPECT_EQ(run.boxes[1].icon, Icon::kStop);
  EXPECT_EQ(FileBytes(pdf), "old");
  EXPECT_TRUE(run.opened.empty());
  EXPECT_FALSE(run.s.wait.showing);
}

TEST_F(AnnualPass, tells_any_other_failure_by_its_number_and_leaves_nothing) {
  StartClean();
  Flare();
  const std::string folder = run.folder.path("target");
  fs::create_directories(folder + "/summary.pdf");
  for (const auto& [path, box] : std::vector<std::pair<std::string, std::string>>{
           {folder + "/summary.pdf", "52 Cannot write the file " + folder + "/summary.pdf: it is a folder."},
           {run.folder.path("nowhere/summary.pdf"),
            "76 Cannot write the file " + run.folder.path("nowhere/summary.pdf") + ": No such file or directory."}}) {
    pdf = path;
    Export();
    EXPECT_EQ(run.TakeBoxes(), (Texts{kFewer, box}));
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
  EXPECT_FALSE(fs::exists(run.folder.path("nowhere")));
  EXPECT_TRUE(run.opened.empty());
  EXPECT_FALSE(run.s.wait.showing);
}

TEST_F(AnnualPass, never_writes_over_the_inventory) {
  StartClean();
  Flare();
  fs::create_symlink(run.s.path, run.folder.path("link.pdf"));
  for (const std::string& path : {run.s.path, run.folder.path("link.pdf")}) {
    pdf = path;
    Export();
    ASSERT_EQ(run.boxes.size(), 2u);
    EXPECT_TRUE(run.TakeBoxes()[1].starts_with("52 This is the database that you are working with."));
  }
  EXPECT_TRUE(FileBytes(run.s.path).starts_with("SQLite format 3"));
}

TEST_F(AnnualPass, goes_through_a_link_to_the_file_that_it_leads_to) {
  StartClean();
  Flare();
  std::ofstream(run.folder.path("real.pdf")) << "old";
  fs::create_symlink("real.pdf", pdf);
  Export();
  EXPECT_TRUE(fs::is_symlink(pdf));
  EXPECT_TRUE(FileBytes(run.folder.path("real.pdf")).starts_with("%PDF-"));
}

// ---- what is printed ----

TEST_F(AnnualPass, is_read_as_summary_operator_structures_and_equipment_in_words) {
  run.StartWithStructure();
  run.AddStructure("1002", "2", "B");
  run.AddMonth();
  Clean();
  Flare("F2", 2, "1002");
  Flare("F1", 2);
  Run("UPDATE EA_FLA SET VOL_FLARED=NULL");
  Run("UPDATE CO_COMPANY SET Contact=NULL");
  Run("UPDATE PA_PLATFORM_ACTV SET PROD_OIL=NULL WHERE PA_MO=2");
  RunInventoryPasses(run.s);
  const InventoryReport report = ReadInventoryReport(run.s);
  EXPECT_EQ(report.summary, "7 errors found in this dataset.");
  EXPECT_EQ(report.findings, 7);
  EXPECT_EQ(report.year, "2017");
  EXPECT_EQ(report.printed.day, 5);
  ASSERT_FALSE(report.operator_lines.empty());
  EXPECT_EQ(report.operator_lines[0], "Blue Water, RIMA company no. 12345");
  Texts lines;
  for (const ReportSection& section : report.sections)
    for (const ReportLine& line : section.lines)
      lines.push_back(section.heading + " | " + section.place + " | " + line.where + " | " + line.item);
  const std::string a = "GI, 43, A (complex 1001, structure 1)", b = "GI, 43, B (complex 1002, structure 2)";
  const std::string flared = "Volume flared (Mscf) reported for continuous flaring",
                    oil = "Crude oil production (barrels)";
  EXPECT_EQ(lines, (Texts{"Operator |  |  | Name of MERLU user", "Structures, February 2017 | " + a + " |  | " + oil,
                          "Structures, February 2017 | " + b + " |  | " + oil,
                          "Equipment, January 2017 | " + a + " | Combustion Flare: F1 | " + flared,
                          "Equipment, February 2017 | " + a + " | Combustion Flare: F1 | " + flared,
                          "Equipment, January 2017 | " + b + " | Combustion Flare: F2 | " + flared,
                          "Equipment, February 2017 | " + b + " | Combustion Flare: F2 | " + flared}));
  for (const ReportSection& section : report.sections)
    for (const ReportLine& line : section.lines) EXPECT_EQ(line.finding, kBlank);
}

TEST_F(AnnualPass, lists_the_items_of_one_place_by_their_names_under_one_heading) {
  StartClean();
  Flare();
  Run("UPDATE PD_PLATFORM_DESC SET Block=NULL,Area=NULL,LATITUDE=NULL,Name=NULL");
  RunInventoryPasses(run.s);
  const InventoryReport report = ReadInventoryReport(run.s);
  ASSERT_EQ(report.sections.size(), 1u);
  EXPECT_EQ(report.sections[0].place, "?, ?, ? (complex 1001, structure 1)");
  Texts items;
  for (const ReportLine& line : report.sections[0].lines) items.push_back(line.item);
  EXPECT_EQ(items, (Texts{"Area", "Block", "Latitude", "Name"}));
}

TEST_F(AnnualPass, shows_a_question_mark_for_the_missing_part_of_a_name) {
  StartClean();
  Flare();
  Run("UPDATE PD_PLATFORM_DESC SET Area=NULL");
  RunInventoryPasses(run.s);
  EXPECT_EQ(ReadInventoryReport(run.s).sections.at(0).place, "?, 43, A (complex 1001, structure 1)");
}

TEST_F(AnnualPass, prints_a_finding_once_and_the_item_as_it_is_stored) {
  run.StartWithStructure();
  Clean();
  Run("INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,Area) SELECT "
      "900,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,'ZZ' FROM PD_PLATFORM_DESC");
  RunInventoryPasses(run.s);
  const InventoryReport report = ReadInventoryReport(run.s);
  EXPECT_EQ(report.findings, run.Count("QCInventory WHERE [Level]<>'ZSUMMARY'"));
  ASSERT_EQ(report.sections.size(), 1u);
  EXPECT_EQ(report.sections[0].lines.at(0).item, "STRUCTURE");
}

TEST_F(AnnualPass, tells_operators_apart_where_there_are_two) {
  StartClean();
  Flare();
  Run("INSERT INTO CO_COMPANY (RIMA_CO_NUM,CO_NAME) VALUES ('777','Other')");
  Run("UPDATE CO_COMPANY SET Contact=NULL,Phone='1'");
  RunInventoryPasses(run.s);
  Texts places;
  for (const ReportSection& section : ReadInventoryReport(run.s).sections) places.push_back(section.place);
  EXPECT_EQ(places, (Texts{"RIMA company no. 12345", "RIMA company no. 777"}));
}

TEST_F(AnnualPass, that_a_fault_broke_never_says_that_nothing_is_missing) {
  StartClean();
  Flare();
  Run("DROP TABLE ED_FLA");
  const InventoryRun result = RunInventoryPasses(run.s);
  EXPECT_EQ(result.broken, Texts{"Combustion Flare"});
  const std::string summary = ReadInventoryReport(run.s, result).summary;
  EXPECT_EQ(summary, "This run is not complete. An error ended: Combustion Flare.");
}

TEST_F(AnnualPass, that_had_nothing_to_look_at_says_so) {
  StartClean();
  Run("DELETE FROM PA_PLATFORM_ACTV");
  InventoryRun result = RunInventoryPasses(run.s);
  EXPECT_FALSE(result.had_records);
  EXPECT_EQ(ReadInventoryReport(run.s, result).summary,
            "There was nothing to look at: no active month and no equipment.");
  Equip("FUG", "U1");
  EXPECT_TRUE(RunInventoryPasses(run.s).had_records);
}

}  // namespace
}  // namespace merlu::test
