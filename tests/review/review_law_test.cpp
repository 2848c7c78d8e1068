// Random inventories: what the findings, the matrix and the hand-in show, held against a model that is computed plainly
// from the rows and from what the rules say, after every change.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "base/text.h"
#include "forms/grid_model.h"
#include "history/notes.h"
#include "qc/comment_key.h"
#include "records/judge_records.h"
#include "review/hand_in.h"
#include "session/place.h"
#include "session/types.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "shell/completeness_dock.h"
#include "shell/docks.h"
#include "shell/findings_dock.h"
#include "support/heard_sql.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// ---- the model ----

struct PlainFinding {
  std::string tag, text, comment, value, state;
};

struct PlainRecord {
  std::string structure, equipment, structure_text;  // the keys of the matrix's rows, and the text of the place
  int month = 0;
  bool inactive = false, empty = false, checked = false;
  std::vector<PlainFinding> findings;

  int In(const std::string& state) const {
    return static_cast<int>(std::count_if(findings.begin(), findings.end(),
                                          [&](const PlainFinding& finding) { return finding.state == state; }));
  }
  // By the table of states, the first that holds.
  std::string State() const {
    if (inactive) return "inactive";
    if (empty) return "empty";
    if (In("open") > 0) return "open";
    if (In("stale") > 0) return "stale";
    if (!findings.empty()) return "explained";
    return checked ? "clean" : "unchecked";
  }
  int Number() const {
    const std::string state = State();
    return state == "explained" ? static_cast<int>(findings.size()) : In(state);
  }
};

class PlainModel {
 public:
  explicit PlainModel(Session& s) : s_(s) {
    for (const Mode mode : {Mode::kDesc, Mode::kActv})
      JudgeAll(s.db, {.mode = mode}, [&](const JudgedRecord& judged) { Take(mode, judged); });
  }
  std::vector<PlainRecord> records;

 private:
  bool IsEmpty(const std::string& table, const char* key, std::int64_t id, const std::set<std::string>& spared) {
    const Rows row = s_.db.Query("SELECT * FROM " + table + " WHERE " + key + "=?", {id});
    for (std::size_t i = 0; i < row.columns.size(); ++i)
      if (!spared.contains(row.columns[i]) && !IsNull(row.rows.at(0)[i])) return false;
    return true;
  }

  struct Structure {
    std::string complex, number, text;
  };
  const Structure& StructureOf(std::int64_t key) {
    const auto [found, is_new] = structures_.try_emplace(key);
    Structure& structure = found->second;
    if (!is_new) return structure;
    const Rows rows = s_.db.Query("SELECT CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC WHERE PD_ID_AK=?", {key});
    structure.complex = Trim(NullToEmpty(rows.rows.at(0)[0]));
    structure.number = Trim(NullToEmpty(rows.rows.at(0)[1]));
    structure.text = StructureTextOf(s_.db, structure.complex, structure.number);
    return structure;
  }

  void Take(Mode mode, const JudgedRecord& judged) {
    PlainRecord record;
    const bool months = mode == Mode::kActv, equipment = !judged.IsOfStructure();
    const auto one = [&](const std::string& sql, std::int64_t key) { return s_.db.Single(sql, {key}); };
    const auto& [complex, number, structure_text] = StructureOf(judged.keys.PD_ID_AK);
    record.structure = complex + "/" + number;
    record.structure_text = structure_text;
    const std::string type = equipment ? judged.sheet->type : "NA";
    const std::string id = equipment ? Trim(std::string(judged.id)) : "NA";
    if (equipment) record.equipment = type + "/" + id;
    record.month = judged.month;
    if (months) {
      const std::int64_t key = equipment ? judged.keys.EA_ID_AK : judged.keys.SA_ID_AK;
      const Value structure_status =
          s_.db.Single("SELECT status FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=? AND PA_MO=? ORDER BY rowid LIMIT 1",
                       {judged.keys.PD_ID_AK, std::int64_t{judged.month}});
      record.inactive = NullToEmpty(structure_status) == "I";
      if (equipment && NullToEmpty(one("SELECT EA_STATUS FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?", key)) == "I")
        record.inactive = true;
      record.empty = equipment ? IsEmpty("EA_" + type, "EA_ID_AK", key, {"EA_ID_AK"})
                               : IsEmpty("PA_PLATFORM_ACTV", "SA_ID_AK", key,
                                         {"SA_ID_AK", "PD_ID_AK", "PA_MO", "PA_YR", "status", "PA_QC_DT", "COMNT_TXT"});
      record.checked = !IsNull(equipment ? one("SELECT EA_QC_DT FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?", key)
                                         : one("SELECT PA_QC_DT FROM PA_PLATFORM_ACTV WHERE SA_ID_AK=?", key));
    } else {
      record.checked = !IsNull(one("SELECT PD_QC_DT FROM PD_PLATFORM_DESC WHERE PD_ID_AK=?", judged.keys.PD_ID_AK));
    }
    AddFindings(
        mode, judged,
        {equipment ? level::kEquipment : level::kStructure, "", judged.month, judged.year, complex, number, type, id},
        record);
    records.push_back(std::move(record));
  }

  void AddFindings(Mode mode, const JudgedRecord& judged, const QCLocation& at, PlainRecord& record) {
    struct Logged {
      std::string tag, text, comment;
      bool taken = false;
    };
    std::vector<Logged> log;
    s_.db.ForEach(
        "SELECT FieldID,[Desc],Comments FROM QC WHERE [Level]=? AND [Month]=? AND CmplxID=? AND StructID=? "
        "AND EquipType=? AND EquipID=? ORDER BY rowid",
        {at.Level, std::int64_t{at.Month}, at.CmplxID, at.StructID, at.EquipType, at.EquipID}, [&](const RowView& row) {
          log.push_back({std::string(row.Text(0)), std::string(row.Text(1)), std::string(row.Text(2))});
        });
    const auto state = [&](PlainFinding finding) {
      finding.state = "open";
      if (!Trim(finding.comment).empty()) {
        const auto known = CommentOf(s_.companion, CommentKey(at, finding.tag, finding.text));
        finding.state =
            known && known->comment == finding.comment && known->value != finding.value ? "stale" : "explained";
      }
      return finding;
    };
    const bool raises = mode == Mode::kDesc || (!record.inactive && !record.empty);
    std::vector<std::pair<int, PlainFinding>> found;
    for (const JudgedFinding& finding : raises ? StandingFindings(*judged.verdicts) : std::vector<JudgedFinding>()) {
      PlainFinding made{std::string(finding.tag), std::string(finding.text), "", judged.stored->Text(finding.field),
                        ""};
      for (Logged& row : log)
        if (IsSameTag(row.tag, finding.tag)) {
          row.taken = true;
          if (row.text == finding.text) made.comment = row.comment;
        }
      found.emplace_back(finding.field, state(made));
    }
    const RecordFields& fields = judged.rules->fields();
    for (const Logged& row : log) {
      if (row.taken) continue;
      int field = 0;
      while (field < fields.size() && !IsSameTag(fields[field].tag, row.tag)) ++field;
      found.emplace_back(
          field, state({row.tag, row.text, row.comment, field < fields.size() ? judged.stored->Text(field) : "", ""}));
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (auto& [field, finding] : found) record.findings.push_back(std::move(finding));
  }

  Session& s_;
  std::map<std::int64_t, Structure> structures_;
};

std::string CellText(const std::string& state, int number) {
  return state == "open" || state == "stale" || state == "explained" ? state + " " + std::to_string(number) : state;
}

// The cell of a structure's, or of one piece's, month.
std::string PlainCell(const std::vector<PlainRecord>& records, const std::string& structure,
                      const std::string& equipment, int month) {
  const Texts worst_first = {"open", "stale", "empty", "unchecked", "explained", "clean", "inactive"};
  std::map<std::string, int> number;
  std::set<std::string> states;
  for (const PlainRecord& record : records) {
    if (record.structure != structure || record.month != month) continue;
    if (!equipment.empty() && record.equipment != equipment) continue;
    std::string state = record.State();
    // of the descriptions all findings count together, and without one the structure's date
    if (month == 0 && record.findings.empty()) state = record.checked ? "clean" : "unchecked";
    states.insert(state);
    number[state] += record.Number();
  }
  // a month of a structure is there with the structure's own row
  const bool own_row = std::any_of(records.begin(), records.end(), [&](const PlainRecord& record) {
    return record.structure == structure && record.month == month && record.equipment.empty();
  });
  if (equipment.empty() && !own_row) return "-";
  if (month == 0 && states.contains("explained")) states.erase("unchecked");
  for (const std::string& state : worst_first)
    if (states.contains(state)) return CellText(state, number[state]);
  return "-";
}

// ---- random inventories ----

class ReviewLaw : public testing::Test {
 protected:
  void SetUp() override {
    run.Start();
    for (const char* complex : {"2002", "1001", "3003"}) run.AddStructure(complex, "1", std::string("N") + complex);
    for (const char* complex : {"1001", "2002"})
      for (const char* type : {"FLA", "BOI", "MUD", "PNE", "FUG", "VEN", "STO", "NGT"}) {
        run.Select(run.Key("", "", 0, complex));
        run.AddEquipment(type, std::string(type) + "b");
        if (Chance(2)) {
          run.Select(run.Key("", "", 0, complex));
          run.AddEquipment(type, std::string(type) + "a");
        }
      }
    run.AddMonth();
    run.AddMonth();
    run.TakeBoxes();
    run.Click("mnuRFindings");
    run.Click("mnuRCompleteness");
  }
  bool Chance(int in) { return random() % static_cast<unsigned>(in) == 0; }
  std::int64_t Any(const std::string& table, const char* key) {
    const Rows rows = run.s.db.Query("SELECT " + std::string(key) + " FROM " + table);
    return rows.rows.empty() ? 0 : ToInteger(rows.rows[random() % rows.rows.size()][0]);
  }
  void Do(const std::string& sql, const Values& values = {}) { run.s.db.Execute(sql, values); }

  Value Odd(const FieldSpec& field) {
    const std::vector<double> numbers = {0, 1, -1, 744, 800, 12.25, 5000, 40, 99999};
    if (Chance(4)) return Null{};
    if (field.stored == Stored::kDestination) return std::string(Chance(2) ? "VENVENb" : "FLAFLA9");
    if (!field.items.empty()) {
      const Item& item = field.items[random() % field.items.size()];
      return field.stored == Stored::kCode ? item.code : item.text;
    }
    if (field.stored == Stored::kYesNo) return std::int64_t{Chance(2)};
    if (field.kind == Kind::kList) return std::string("Unit");
    return numbers[random() % numbers.size()];
  }
  // Several columns of a row, together.
  void FillRow(const std::vector<FieldSpec>& fields, In mode, const std::string& table, const std::string& key,
               std::int64_t id) {
    WriteBatch batch(run.s.db);
    for (const FieldSpec& field : fields)
      if (field.mode == mode && !field.column.empty() && field.stored != Stored::kNone && Chance(2))
        run.s.db.Execute("UPDATE [" + table + "] SET [" + field.column + "]=? WHERE " + key + "=?", {Odd(field), id});
    batch.Commit();
  }

  void ChangeMonth() {
    const std::int64_t key = Any("EA_EQUIP_ACTV WHERE EA_EQUIP_TYP<>'FUG'", "EA_ID_AK");
    const SheetSpec* sheet =
        FindSheet(NullToEmpty(run.s.db.Single("SELECT EA_EQUIP_TYP FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?", {key})));
    FillRow(sheet->fields, In::kActv, sheet->ea_table(), "EA_ID_AK", key);
    if (Chance(3))
      Do("UPDATE EA_EQUIP_ACTV SET EA_STATUS=? WHERE EA_ID_AK=?", {std::string(Chance(2) ? "I" : "A"), key});
    if (Chance(2)) Do("UPDATE EA_EQUIP_ACTV SET EA_QC_DT='2017-03-01 00:00:00' WHERE EA_ID_AK=?", {key});
  }
  void ChangeDescription() {
    const std::int64_t key = Any("ED_EQUIP_DESC", "ED_ID_AK");
    const SheetSpec* sheet =
        FindSheet(NullToEmpty(run.s.db.Single("SELECT ED_EQUIP_TYP FROM ED_EQUIP_DESC WHERE ED_ID_AK=?", {key})));
    FillRow(sheet->fields, In::kDesc, sheet->ed_table(), "ED_ID_AK", key);
  }
  void ChangeStructure() {
    if (Chance(2)) {
      FillRow(StructureSheet().fields, In::kDesc, "PD_PLATFORM_DESC", "PD_ID_AK", Any("PD_PLATFORM_DESC", "PD_ID_AK"));
      // its own columns stay what they are called by
      Do("UPDATE PD_PLATFORM_DESC SET "
         "RIMA_CO_NUM='12345',CMPLX_ID_NUM=(PD_ID_AK)||'',STRUCT_NUM='1',Area='GI',Block='1',"
         "Name='S'||(9-PD_ID_AK%10)");
    } else {
      const std::int64_t key = Any("PA_PLATFORM_ACTV", "SA_ID_AK");
      FillRow(StructureSheet().fields, In::kActv, "PA_PLATFORM_ACTV", "SA_ID_AK", key);
      if (Chance(3))
        Do("UPDATE PA_PLATFORM_ACTV SET status=? WHERE SA_ID_AK=?", {std::string(Chance(2) ? "I" : "A"), key});
      if (Chance(2)) Do("UPDATE PA_PLATFORM_ACTV SET PA_QC_DT='2017-03-01 00:00:00' WHERE SA_ID_AK=?", {key});
    }
    if (Chance(3))
      Do("UPDATE PD_PLATFORM_DESC SET PD_QC_DT='2017-03-01' WHERE PD_ID_AK=?", {Any("PD_PLATFORM_DESC", "PD_ID_AK")});
  }
  // A row for a finding that shows, for a tag that nothing raises, or for what is no record at all.
  void ChangeLog() {
    const std::int64_t row = Any("QC", "rowid");
    switch (random() % 7) {
      case 0: return Do("DELETE FROM QC WHERE rowid=?", {row});
      case 1: return Do("UPDATE QC SET Comments=? WHERE rowid=?", {std::string(Chance(2) ? " " : "because"), row});
      case 2: return Do("UPDATE QC SET [Desc]='Another text' WHERE rowid=?", {row});
      case 3:
        return Do("INSERT INTO QC VALUES ('12345',1,2017,'EQUIPMENT','7777','1','FLA','F9','Hours','Gone','','ACTV')");
      case 4: return Do("UPDATE QC SET EquipID='moved' WHERE rowid=? AND [Level]='EQUIPMENT'", {row});
      case 5: return Do("UPDATE QC SET EquipID=EquipID||' ' WHERE rowid=? AND [Level]='EQUIPMENT'", {row});
      default: {
        FindingsModel& all = Findings(run.s);
        if (all.RowCount() == 0) return;
        const int at = static_cast<int>(random() % static_cast<unsigned>(all.RowCount()));
        if (all.At(at).row != 0) return;
        const QCLocation l = LocationOf(all.review(), all.RecordAt(at));
        const bool equipment = l.Is(level::kEquipment);
        Do("INSERT INTO QC VALUES (?,?,?,?,?,?,?,?,?,?,?,?)",
           {l.UserID, std::int64_t{l.Month}, std::int64_t{l.Year}, l.Level, l.CmplxID, l.StructID,
            equipment ? l.EquipType : "NA", equipment ? l.EquipID : "NA", all.At(at).kind->tag,
            Chance(3) ? "Older text" : all.At(at).kind->text, std::string(Chance(2) ? "because" : ""),
            std::string(l.Month == 0 ? "DESC" : "ACTV")});
        const KnownComment known{"because", Chance(2) ? all.At(at).value : "another value"};
        WriteBatch batch(run.s.db);
        if (Chance(2)) KeepComment(run.s.companion, CommentKey(l, all.At(at).kind->tag, all.At(at).kind->text), known);
        batch.Commit();
      }
    }
  }
  void ChangeRows() {
    const std::int64_t piece = Any("ED_EQUIP_DESC", "ED_ID_AK");
    switch (random() % 4) {
      case 0: return Do("DELETE FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?", {Any("EA_EQUIP_ACTV", "EA_ID_AK")});
      case 1: return Do("UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID='R'||ED_ID_AK WHERE ED_ID_AK=?", {piece});
      case 2:
        return Do("DELETE FROM ED_EQUIP_DESC WHERE ED_ID_AK=? AND (SELECT COUNT(*) FROM ED_EQUIP_DESC)>9", {piece});
      default: return Do("DELETE FROM PA_PLATFORM_ACTV WHERE SA_ID_AK=?", {Any("PA_PLATFORM_ACTV", "SA_ID_AK")});
    }
  }
  void Change() {
    const unsigned what = random() % 20;
    if (what < 8) return ChangeMonth();
    if (what < 10) return ChangeDescription();
    if (what < 13) return ChangeStructure();
    if (what < 19) return ChangeLog();
    ChangeRows();
  }

  void ExpectFindings(const PlainModel& model) {
    std::multiset<std::string> expected, shown;
    for (const PlainRecord& record : model.records)
      for (const PlainFinding& finding : record.findings)
        expected.insert(std::to_string(record.month) + "|" + record.structure_text + "|" + record.equipment + "|" +
                        finding.tag + "|" + finding.value + "|" + finding.text + "|" + finding.comment + "|" +
                        finding.state);
    FindingsModel& rows = Findings(run.s);
    int gone = 0;
    for (int row = 0; row < rows.RowCount(); ++row) {
      const ReviewedRecord& record = rows.RecordAt(row);
      if (record.gone) {
        ++gone;
        continue;
      }
      const QCLocation l = LocationOf(rows.review(), record);
      shown.insert(std::to_string(l.Month) + "|" + StructureTextOf(run.s.db, l.CmplxID, l.StructID) + "|" +
                   (record.IsEquipment() ? l.EquipType + "/" + Trim(l.EquipID) : "") + "|" + rows.Text(row, 1) + "|" +
                   rows.Text(row, 2) + "|" + rows.Text(row, 4) + "|" + rows.Text(row, 5) + "|" + rows.Text(row, 6));
    }
    Texts too_many, missing;
    std::set_difference(shown.begin(), shown.end(), expected.begin(), expected.end(), std::back_inserter(too_many));
    std::set_difference(expected.begin(), expected.end(), shown.begin(), shown.end(), std::back_inserter(missing));
    EXPECT_EQ(too_many, missing) << "they should both be empty";
    // each row of the log is one finding, or the other row under a finding's tag
    EXPECT_LE(gone, run.Count("QC"));
  }

  void ExpectMatrix(const PlainModel& model) {
    Form& dock = CompletenessDock(run.s);
    run.Set("cmbCMP_Show", "Structures");
    RefreshDocks(run.s);
    const GridModel& grid = *dock.At("grdCMP_Matrix").grid;
    std::set<std::string> structures;
    for (const PlainRecord& record : model.records) structures.insert(record.structure);
    ASSERT_EQ(grid.RowCount(), static_cast<int>(structures.size()));
    for (const std::string& structure : structures) {
      const int row = grid.FindRow(structure);
      ASSERT_GE(row, 0) << structure;
      int ready = 0;
      for (int month = 0; month <= 12; ++month) {
        const std::string cell = PlainCell(model.records, structure, "", month);
        EXPECT_EQ(grid.Cell(row, month + 1).text, cell) << structure << " " << month;
        const bool is_ready = cell.starts_with("explained") || cell == "clean" || cell == "inactive";
        ready += month > 0 && is_ready ? 1 : 0;
      }
      EXPECT_EQ(grid.Cell(row, 14).text, std::to_string(ready) + " of 12");
    }
    for (const std::string& text :
         Texts(dock.At("cmbCMP_Show").items.begin() + 1, dock.At("cmbCMP_Show").items.end())) {
      run.Set("cmbCMP_Show", text);
      RefreshDocks(run.s);
      for (const PlainRecord& record : model.records) {
        if (record.structure_text != text || record.equipment.empty()) continue;
        const int row = grid.FindRow(record.equipment);
        ASSERT_GE(row, 0) << record.equipment;
        EXPECT_EQ(grid.Cell(row, record.month + 1).text,
                  PlainCell(model.records, record.structure, record.equipment, record.month))
            << text << " " << record.equipment << " " << record.month;
      }
    }
  }

  void ExpectHandIn(const PlainModel& model) {
    for (const int month : {0, 1, 2}) {
      const auto checks = HandInChecks(run.s.db, run.s.companion, Findings(run.s).review(), month);
      std::int64_t unfinished = 0, open = 0, stale = 0;
      for (const PlainRecord& record : model.records) {
        if (record.inactive || (month != 0 && record.month != 0 && record.month != month)) continue;
        open += record.In("open");
        stale += record.In("stale");
        const bool has_date = record.month != 0 || record.equipment.empty();
        unfinished += (record.month != 0 && record.empty) || (has_date && !record.checked) ? 1 : 0;
      }
      for (const ReviewedRecord& record : Findings(run.s).review().records)
        if (record.gone && (month == 0 || record.month == 0 || record.month == month)) open += record.open;
      EXPECT_EQ(checks[2].count, unfinished) << month;
      EXPECT_EQ(checks[3].count, open) << month;
      EXPECT_EQ(checks[4].count, stale) << month;
    }
  }

  void ExpectAll() {
    const PlainModel model(run.s);
    ExpectFindings(model);
    ExpectMatrix(model);
    ExpectHandIn(model);
  }

  std::mt19937 random{20170422};
  // Rows that the program has read: of equipment to be judged, and of the log to be reviewed.
  std::ptrdiff_t pieces_read = 0, log_read = 0;
  HeardSql listener{HeardSql::Of::kRows, [this](std::string_view sql) {
                      if (sql.starts_with("SELECT d.PD_ID_AK,d.ED_ID_AK,d.ED_MERLU_EQUIP_ID,")) ++pieces_read;
                      if (sql.starts_with("SELECT rowid,FieldID,[Desc],Comments,[Level]")) ++log_read;
                    }};
  TestRun run;
};

TEST_F(ReviewLaw, holds_after_every_change_record_by_record) {
  int anew = 0, in_parts = 0;
  for (int round = 0; round < 150; ++round) {
    pieces_read = 0;
    Change();
    const std::vector<ReviewedRecord>& records = Findings(run.s).review().records;
    const auto all = std::count_if(records.begin(), records.end(), [](const auto& r) { return r.IsEquipment(); });
    (pieces_read >= all ? anew : in_parts) += 1;
    ExpectAll();
    ASSERT_FALSE(HasFailure()) << "round " << round;
  }
  EXPECT_GT(in_parts, anew) << "most changes cost their own records only";
}

TEST_F(ReviewLaw, holds_after_undo_and_redo_and_what_another_program_wrote) {
  for (int round = 0; round < 25; ++round) {
    Change();
    if (Chance(2) && run.At("mnuEUndo").enabled) run.Click("mnuEUndo");
    if (Chance(4) && run.At("mnuERedo").enabled) run.Click("mnuERedo");
    if (Chance(4)) {
      Raw(run.s.path, {"UPDATE EA_FLA SET OP_HR=" + std::to_string(random() % 2000)});
      run.s.db.NoticeOthers();
    }
    run.TakeBoxes();
    ExpectAll();
    ASSERT_FALSE(HasFailure()) << "round " << round;
  }
}

// One change is one record's work, whatever else the inventory holds.
TEST_F(ReviewLaw, a_saved_value_costs_its_own_record) {
  Findings(run.s);
  Do("UPDATE EA_FLA SET OP_HR=900 WHERE EA_ID_AK=?", {Any("EA_FLA", "EA_ID_AK")});
  pieces_read = 0;
  Findings(run.s);
  EXPECT_EQ(pieces_read, 1);
  Do("UPDATE ED_FLA SET CONC_H2S=900 WHERE ED_ID_AK=?", {Any("ED_FLA", "ED_ID_AK")});
  pieces_read = 0;
  Findings(run.s);
  EXPECT_GT(pieces_read, 0);
  EXPECT_LE(pieces_read, 4) << "a description and its three months";
}

// Of the log a changed structure reads its own rows, and those of no record.
TEST_F(ReviewLaw, a_changed_structure_costs_its_own_rows_of_the_log) {
  const auto add = [&](const char* complex, int rows) {
    for (int row = 0; row < rows; ++row)
      Do("INSERT INTO QC VALUES ('12345',1,2017,'EQUIPMENT',?,'1','FLA','FLAb',?,'Odd','','ACTV')",
         {std::string(complex), "Field " + std::to_string(row)});
  };
  add("1001", 5);
  add("2002", 70);
  add("7777", 2);
  Findings(run.s);
  Do("UPDATE PD_PLATFORM_DESC SET LATITUDE=7 WHERE CMPLX_ID_NUM='1001'");
  log_read = 0;
  Findings(run.s);
  EXPECT_EQ(log_read, 7);
  ExpectAll();
}

}  // namespace
}  // namespace merlu::test
