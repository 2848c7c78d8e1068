// A record judged from its rows, held against the same record on its sheet.
#include "records/judge_records.h"
#include "sheets/record_rows.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>

#include "sheets/contract.h"
#include "sheets/sheet_form.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// All of a verdict as text.
std::string Said(const Verdicts& verdicts) {
  std::string said;
  for (const Verdict& v : verdicts.all) {
    said += std::to_string(v.field) + "|" + std::string(v.tag) + "|" + std::to_string(static_cast<int>(v.log)) + "|";
    said += std::string(v.text) + "|" + std::string(v.other_text) + "|" + std::to_string(static_cast<int>(v.mark));
    said += "|" + std::to_string(v.change) + "\n";
  }
  for (const FieldChange& change : verdicts.changes) said += std::to_string(change.field) + "|" + change.text + "\n";
  return said;
}

// Values as other programs store them: odd numbers and texts, codes and items of lists, and what is none of them.
class OddValues {
 public:
  explicit OddValues(std::uint32_t seed) : random_(seed) {}

  Value For(const FieldSpec& field) {
    if (Chance(5)) return Null{};
    const bool odd = Chance(4);
    if (field.stored == Stored::kDestination) {
      const std::vector<std::string> kStored = {"FLAF1", "VENV1", "VENV9", "FLA", "V1", "flaf1"};
      return Pick(kStored);
    }
    if (field.stored == Stored::kYesNo) return odd ? Value(std::int64_t{7}) : Value(std::int64_t{Chance(2)});
    if (!field.items.empty() && !odd) {
      const Item& item = Pick(field.items);
      return field.stored == Stored::kCode ? item.code : item.text;
    }
    if (!field.items.empty() || field.kind == Kind::kList) return Pick(kTexts);
    return odd ? Value(Pick(kTexts)) : Value(Pick(kNumbers));
  }
  bool Chance(int in) { return random_() % static_cast<unsigned>(in) == 0; }

 private:
  template <typename Of>
  const Of& Pick(const std::vector<Of>& from) {
    return from[random_() % from.size()];
  }
  const std::vector<std::string> kTexts = {"",   " ",   "abc",   "12abc", "1,200", " 12 ",
                                           "-5", "1e3", "1e400", "Yes",   "None",  "no item"};
  const std::vector<double> kNumbers = {0,    1,     -1,     0.1,   0.1 + 0.2, 744,  744.0000000000001, 99.8, 100,
                                        1e15, 1e300, 1e-300, 12.25, 1.0 / 3,   5000, 123456789.123,     40,   1000};
  std::mt19937 random_;
};

class JudgedRows : public testing::Test {
 protected:
  void SetUp() override {
    run.StartWithStructure();
    for (const char* id : {"V1", "V2"}) Add("VEN", id);
    Add("FLA", "F1");
    for (const SheetSpec* sheet : AllSheets()) Add(sheet->type, "X1");
    run.AddMonth();
  }
  void Add(const std::string& type, const std::string& id) {
    run.Select(run.Key("", ""));
    run.AddEquipment(type, id);
  }
  void Fill(const std::vector<FieldSpec>& fields, In mode, const std::string& table, const std::string& key,
            std::int64_t id, OddValues& odd) {
    for (const FieldSpec& field : fields)
      if (field.mode == mode && !field.column.empty() && field.stored != Stored::kNone)
        run.s.db.Execute("UPDATE " + table + " SET [" + field.column + "]=? WHERE " + key + "=?", {odd.For(field), id});
  }
  void ExpectEqual(const RuleSet& rules, const Form& form, const JudgedRecord& record, const std::string& what) {
    const RecordView shown = ViewOfForm(rules.fields(), form);
    RecordView fresh = shown;
    Verdicts verdicts;
    Judge(rules, run.s.mode, fresh, *record.context, verdicts);
    EXPECT_EQ(Said(*record.verdicts), Said(verdicts)) << what;
    for (int field = 0; field < rules.fields().size(); ++field) {
      EXPECT_EQ(record.view->Text(field), fresh.Text(field)) << what << " " << rules.fields()[field].control;
      EXPECT_EQ(record.view->IsChecked(field), fresh.IsChecked(field)) << what << " " << rules.fields()[field].control;
    }
  }
  TestRun run;
};

TEST_F(JudgedRows, of_all_types_say_what_their_sheets_say) {
  Session& s = run.s;
  OddValues odd(20170305);
  for (const Mode mode : {Mode::kDesc, Mode::kActv})
    for (const SheetSpec* sheet : AllSheets()) {
      if (mode == Mode::kActv && !sheet->has_activity) continue;
      run.GoTo(sheet->type, "X1", mode);
      for (int round = 0; round < 8; ++round) {
        WriteBatch batch(s.db);
        Fill(sheet->fields, In::kDesc, sheet->ed_table(), "ED_ID_AK", s.ED_ID_AK, odd);
        if (mode == Mode::kActv) {
          Fill(sheet->fields, In::kActv, sheet->ea_table(), "EA_ID_AK", s.EA_ID_AK, odd);
          s.db.Execute(std::string("UPDATE EA_EQUIP_ACTV SET EA_STATUS=") + (odd.Chance(3) ? "'I'" : "'A'") +
                           " WHERE EA_ID_AK=?",
                       {s.EA_ID_AK});
          for (std::size_t total = 1; total < kTotals; ++total) {
            const std::string set = odd.Chance(3) ? "=NULL" : "=500.0";
            s.db.Execute(std::string("UPDATE PA_PLATFORM_ACTV SET ") + kTotalColumns[total] + set + " WHERE SA_ID_AK=?",
                         {s.SA_ID_AK});
          }
        }
        batch.Commit();
        ClearFrame(s, *sheet);
        LoadFrame(s, *sheet);
        const RecordKeys keys{s.PD_ID_AK, s.SA_ID_AK, s.ED_ID_AK, s.EA_ID_AK};
        EXPECT_TRUE(JudgeRecord(s.db, *sheet, mode, keys, [&](const JudgedRecord& record) {
          ExpectEqual(RulesOf(*sheet), SheetForm(s, *sheet), record, sheet->type + " " + ModeText(mode));
        }));
        ASSERT_FALSE(HasFailure());
      }
    }
}

TEST_F(JudgedRows, of_a_structure_say_what_its_sheet_says) {
  Session& s = run.s;
  OddValues odd(7);
  for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
    run.ChangeTo(mode);
    run.Select(run.Key("", "", mode == Mode::kActv ? 1 : 0));
    for (int round = 0; round < 20; ++round) {
      WriteBatch batch(s.db);
      Fill(StructureSheet().fields, In::kDesc, "PD_PLATFORM_DESC", "PD_ID_AK", s.PD_ID_AK, odd);
      if (mode == Mode::kActv)
        Fill(StructureSheet().fields, In::kActv, "PA_PLATFORM_ACTV", "SA_ID_AK", s.SA_ID_AK, odd);
      batch.Commit();
      ClearFrame(s, StructureSheet());
      LoadFrame(s, StructureSheet());
      EXPECT_TRUE(
          JudgeRecord(s.db, StructureSheet(), mode, {s.PD_ID_AK, s.SA_ID_AK, 0, 0}, [&](const JudgedRecord& record) {
            ExpectEqual(RulesOf(StructureSheet()), *s.main, record, ModeText(mode));
          }));
      ASSERT_FALSE(HasFailure());
    }
  }
}

TEST_F(JudgedRows, all_at_once_say_what_each_says_alone) {
  Session& s = run.s;
  std::map<std::int64_t, std::string> alone;
  int records = 0, months = 0;
  JudgeAll(s.db, {.mode = Mode::kActv}, [&](const JudgedRecord& record) {
    ++records;
    if (record.IsOfStructure()) ++months;
    if (!record.IsOfStructure()) alone[record.keys.EA_ID_AK] = Said(*record.verdicts);
  });
  EXPECT_EQ(records, run.Count("EA_EQUIP_ACTV WHERE EA_EQUIP_TYP<>'FUG'") + run.Count("PA_PLATFORM_ACTV"));
  EXPECT_EQ(months, run.Count("PA_PLATFORM_ACTV"));
  for (const SheetSpec* sheet : AllSheets()) {
    if (!sheet->has_activity) continue;
    const std::int64_t key =
        ToInteger(s.db.Single("SELECT MAX(EA_ID_AK) FROM EA_EQUIP_ACTV WHERE EA_EQUIP_TYP=?", {sheet->type}));
    EXPECT_TRUE(JudgeRecord(s.db, *sheet, Mode::kActv, {0, 0, 0, key}, [&](const JudgedRecord& record) {
      EXPECT_EQ(Said(*record.verdicts), alone[key]) << sheet->type;
    }));
  }
  EXPECT_FALSE(JudgeRecord(s.db, *AllSheets()[0], Mode::kActv, {0, 0, 0, 4711}, [](const JudgedRecord&) {}));
}

TEST_F(JudgedRows, are_judged_on_another_thread_over_a_connection_of_its_own) {
  int here = 0, there = 0;
  std::thread other([&] {
    Database db;
    db.Open(run.s.path);
    JudgeAll(db, {.mode = Mode::kActv},
             [&](const JudgedRecord& record) { there += static_cast<int>(StandingFindings(*record.verdicts).size()); });
  });
  JudgeAll(run.s.db, {.mode = Mode::kActv},
           [&](const JudgedRecord& record) { here += static_cast<int>(StandingFindings(*record.verdicts).size()); });
  other.join();
  EXPECT_GT(here, 0);
  EXPECT_EQ(here, there);
}

TEST_F(JudgedRows, know_their_values_their_status_and_their_last_check) {
  Session& s = run.s;
  run.GoTo("FLA", "X1", Mode::kActv);
  const RecordKeys keys{0, 0, 0, s.EA_ID_AK};
  const auto with = [&](const auto& expect) {
    EXPECT_TRUE(JudgeRecord(s.db, *FindSheet("FLA"), Mode::kActv, keys, expect));
  };
  with([](const JudgedRecord& r) { EXPECT_TRUE(!r.has_values && !r.inactive && !r.checked && !r.structure_inactive); });
  s.db.Execute("UPDATE EA_FLA SET OP_HR=5 WHERE EA_ID_AK=?", {s.EA_ID_AK});
  s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I',EA_QC_DT='2017-01-01 00:00:00' WHERE EA_ID_AK=?", {s.EA_ID_AK});
  s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  with([](const JudgedRecord& r) { EXPECT_TRUE(r.has_values && r.inactive && r.checked && r.structure_inactive); });
}

}  // namespace
}  // namespace merlu::test
