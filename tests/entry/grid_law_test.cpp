// The law of the month grid: what it locks and shows is what the sheets lock and show, and what its save leaves is what
// End Edit & Save would have left record by record. Random inventories, all types; MERLU_GRID_SEEDS for a long run.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <random>

#include "base/text.h"
#include "entry/month_grid.h"
#include "session/types.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

int Seeds(int in_the_suite) {
  const char* more = std::getenv("MERLU_GRID_SEEDS");
  return more == nullptr ? in_the_suite : std::max(in_the_suite, std::atoi(more));
}

std::vector<const SheetSpec*> WithMonths() {
  std::vector<const SheetSpec*> sheets = {&StructureSheet()};
  for (const SheetSpec* sheet : AllSheets())
    if (sheet->has_activity) sheets.push_back(sheet);
  return sheets;
}

// Two structures with two pieces of every type and three months, made once.
const std::string& PlainInventory() {
  static const TemporaryFolder folder;
  static const std::string path = [] {
    TestRun run;
    run.StartWithStructure();
    run.AddStructure("1002");
    for (const char* complex : {"1001", "1002"})
      for (const SheetSpec* sheet : AllSheets())
        for (const char* id : {"X1", "X2"}) {
          run.Select(run.Key("", "", 0, complex));
          run.AddEquipment(sheet->type, id);
        }
    for (int month = 2; month <= 3; ++month) {
      run.SelectRoot();
      run.AddMonth();
    }
    std::ofstream(folder.path("plain.mdb")).close();
    run.s.db.CopyTo(folder.path("plain.mdb"));
    return folder.path("plain.mdb");
  }();
  return path;
}

// ---- a random inventory ----

using Random = std::mt19937;

bool OneIn(Random& random, unsigned many) {
  return random() % many == 0;
}

template <typename T>
const T& AnyOf(Random& random, const std::vector<T>& all) {
  return all[random() % all.size()];
}

Value RandomValue(Random& random, const FieldSpec& field) {
  if (OneIn(random, 5)) return Null{};
  const Texts kDestinations = {"VENX1", "VENX2", "FLAX1", "FLAX9", "x"};
  switch (field.stored) {
    case Stored::kNumber:
    case Stored::kComputed:
      if (OneIn(random, 25)) return std::string("abc");
      return OneIn(random, 4) ? double(random() % 2000) : double(random() % 100) / 2;
    case Stored::kYesNo: return OneIn(random, 2);
    case Stored::kDestination: return AnyOf(random, kDestinations);
    case Stored::kText: return std::string(OneIn(random, 2) ? "a text" : "");
    default: break;
  }
  if (field.items.empty() || OneIn(random, 12)) return std::string("unlisted");
  const Item& item = AnyOf(random, field.items);
  return field.stored == Stored::kCode ? item.code : item.text;
}

void Scatter(Database& db, Random& random, const std::vector<FieldSpec>& fields, In mode, const std::string& table,
             const std::string& key) {
  Values keys;
  for (const Values& row : db.Query("SELECT " + key + " FROM " + table + " ORDER BY 1").rows) keys.push_back(row[0]);
  for (const Value& each : keys)
    for (const FieldSpec& field : fields)
      if (field.mode == mode && !field.column.empty() && field.stored != Stored::kNone)
        db.Execute("UPDATE " + table + " SET [" + field.column + "]=? WHERE " + key + "=?",
                   {RandomValue(random, field), each});
}

std::string Mixed(unsigned seed, const TemporaryFolder& folder) {
  const std::string path = folder.path("mixed.mdb");
  fs::copy_file(PlainInventory(), path);
  Database db;
  db.Open(path);
  Random random{seed};
  WriteBatch batch(db);
  for (const SheetSpec* sheet : AllSheets()) {
    Scatter(db, random, sheet->fields, In::kDesc, sheet->ed_table(), "ED_ID_AK");
    if (sheet->has_activity) Scatter(db, random, sheet->fields, In::kActv, sheet->ea_table(), "EA_ID_AK");
  }
  Scatter(db, random, StructureSheet().fields, In::kActv, "PA_PLATFORM_ACTV", "SA_ID_AK");
  for (const Values& row : db.Query("SELECT EA_ID_AK FROM EA_EQUIP_ACTV ORDER BY 1").rows)
    if (OneIn(random, 6))
      db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS=?,EA_COMNT_TXT=? WHERE EA_ID_AK=?",
                 {OneIn(random, 2) ? Value(std::string("I")) : Value(Null{}), std::string("noted"), row[0]});
  batch.Commit();
  db.Close();
  return path;
}

// Runs over some months leave findings, comments and dates behind.
void RunSome(TestRun& run, Random& random) {
  run.ChangeTo(Mode::kActv);
  run.SelectRoot();
  for (const std::string& key : run.TreeKeys()) {
    const std::size_t length = CountCharacters(key);
    if (length != 21 && (length != 32 || !OneIn(random, 3))) continue;
    run.Select(key);
    if (run.WhyNotClick("cmdQC").empty()) run.Click("cmdQC");
  }
  run.s.db.Execute("UPDATE QC SET Comments='known' WHERE rowid%3=0");
  run.s.db.Execute("UPDATE QC SET [Desc]='of an older version' WHERE rowid%7=0");
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_QC_DT=NULL WHERE EA_ID_AK%4=0");
  if (OneIn(random, 2)) {
    run.Select(run.Key("", "", 3, "1002"));
    run.Click("cmdEdit");
    run.Check("chkSTRUCTURE_Status", true);
    run.Click("cmdSaveExit");
  }
  run.SelectRoot();
  run.TakeBoxes();
}

// The same twice: clocks and keys included.
void StartMixed(TestRun& run, unsigned seed) {
  run.Start(Mixed(seed, run.folder));
  Random random{seed + 1};
  RunSome(run, random);
}

Texts Dump(TestRun& run) {
  Texts all;
  for (const Values& table :
       run.s.db
           .Query("SELECT name FROM main.sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite%' ORDER BY name")
           .rows) {
    const std::string name = NullToEmpty(table[0]);
    for (const Values& row : run.s.db.Query("SELECT rowid,* FROM main.[" + name + "] ORDER BY rowid").rows) {
      std::string text = name;
      for (const Value& value : row)
        text += "|" + std::to_string(value.index()) + (IsNull(value) ? "-" : NullToEmpty(value));
      all.push_back(text);
    }
  }
  std::sort(all.begin(), all.end());
  return all;
}

// ---- the cells are those of the sheet ----

void ExpectTheSheet(TestRun& run, const MonthGrid& grid, int row) {
  SCOPED_TRACE(grid.RowKey(row));
  run.Select(grid.RowKey(row));
  const bool open = run.WhyNotClick("cmdEdit").empty();
  if (open) run.Click("cmdEdit");
  for (int column = grid.FixedColumns(); column < static_cast<int>(grid.Columns().size()); ++column) {
    const std::string& name = grid.Columns()[static_cast<std::size_t>(column)].name;
    const GridCell cell = grid.Cell(row, column);
    const Control& control = run.At(name);
    const std::string why = open ? run.WhyNotSet(name) : "no edit";
    EXPECT_EQ(cell.locked, !why.empty()) << name << ": " << why;
    EXPECT_EQ(cell.text, control.kind == Kind::kCheck ? (control.checked ? "on" : "off") : control.text) << name;
    EXPECT_EQ(cell.was, control.was) << name;
    if (control.kind != Kind::kCheck) {
      EXPECT_EQ(grid.Columns()[static_cast<std::size_t>(column)].items, control.items);
    }
  }
  if (open) run.Click("cmdCANCEL");
}

TEST(GridLaw, locks_and_shows_what_the_sheets_do) {
  const int seeds = Seeds(2);
  for (unsigned seed = 1; seed <= static_cast<unsigned>(seeds); ++seed) {
    SCOPED_TRACE(seed);
    TestRun run;
    StartMixed(run, seed);
    MonthGrid grid(run.s);
    for (const SheetSpec* sheet : WithMonths()) {
      grid.ShowMonth(sheet, 1 + static_cast<int>(seed % 3));
      ASSERT_EQ(grid.RowCount(), sheet == &StructureSheet() ? 2 : 4);
      for (int row = 0; row < grid.RowCount(); ++row) ExpectTheSheet(run, grid, row);
    }
  }
}

// ---- the save ----

struct TypedKey {
  int type;
  std::size_t place;  // in the tree
  std::string key;
  bool operator<(const TypedKey& other) const { return std::tie(type, place) < std::tie(other.type, other.place); }
};
using Typed = std::map<TypedKey, std::map<std::string, std::string>>;  // control and text

// One act at random on the grid, written down.
void Act(TestRun& run, MonthGrid& grid, Random& random, const SheetSpec* sheet, const Texts& order, Typed& typed) {
  const std::vector<const SheetSpec*> sheets = WithMonths();
  const auto type = static_cast<int>(std::find(sheets.begin(), sheets.end(), sheet) - sheets.begin());
  if (OneIn(random, 2))
    grid.ShowMonth(sheet, 1 + static_cast<int>(random() % 3));
  else if (sheet == &StructureSheet())
    grid.ShowRecord(sheet, ToInteger(run.Sql("SELECT MIN(PD_ID_AK) FROM PD_PLATFORM_DESC")));
  else
    grid.ShowRecord(
        sheet, ToInteger(run.Sql("SELECT MAX(ED_ID_AK) FROM ED_EQUIP_DESC WHERE ED_EQUIP_TYP='" + sheet->type + "'")));
  const Texts kTexts = {"", "5", "40", "744", "745", "99999999", "12,5", "abc", "-1", "0", "=6*7"};
  for (int row = 0; row < grid.RowCount(); ++row)
    for (int column = grid.FixedColumns(); column < static_cast<int>(grid.Columns().size()); ++column) {
      const GridColumn& head = grid.Columns()[static_cast<std::size_t>(column)];
      const bool status = head.name.ends_with("_Status");
      if (!OneIn(random, status ? 9 : 3) || grid.Cell(row, column).locked) continue;
      const std::string text = AnyOf(random, head.items.empty() ? kTexts : head.items);
      if (grid.Cell(row, column).text == text) continue;
      grid.SetCell(row, column, text);
      const auto place = std::find(order.begin(), order.end(), grid.RowKey(row)) - order.begin();
      typed[{type, static_cast<std::size_t>(place), grid.RowKey(row)}][head.name] = grid.Cell(row, column).text;
    }
}

void SaveOneByOne(TestRun& run, const Typed& records) {
  for (const auto& [at, cells] : records) {
    run.Select(at.key);
    // a value that is again as stored is no change
    std::map<std::string, std::string> changes;
    for (const auto& [control, text] : cells) {
      const Control& field = run.At(control);
      if (field.kind == Kind::kCheck ? field.checked != (text == "on") : field.text != text) changes[control] = text;
    }
    if (changes.empty()) continue;
    run.Click("cmdEdit");
    for (const auto& [control, text] : changes)
      if (run.At(control).kind == Kind::kCheck)
        run.Check(control, text == "on");
      else
        run.Set(control, text);
    run.Click("cmdSaveExit");
  }
}

TEST(GridLaw, a_save_leaves_what_the_sheets_would_leave_record_by_record) {
  const int seeds = Seeds(6);
  int all = 0;
  std::size_t told = 0;
  for (unsigned seed = 1; seed <= static_cast<unsigned>(seeds); ++seed) {
    SCOPED_TRACE(seed);
    TestRun by_grid, by_record;
    StartMixed(by_grid, seed);
    StartMixed(by_record, seed);
    ASSERT_EQ(Dump(by_grid), Dump(by_record));
    Random random{seed * 77};
    MonthGrid grid(by_grid.s);
    Typed typed;
    const bool structures = OneIn(random, 4);
    const Texts order = by_grid.TreeKeys();
    if (structures) {
      Act(by_grid, grid, random, &StructureSheet(), order, typed);
    } else {
      const std::vector<const SheetSpec*> sheets = WithMonths();
      for (int act = 0; act < 4; ++act)
        Act(by_grid, grid, random, sheets[1 + random() % (sheets.size() - 1)], order, typed);
      Act(by_grid, grid, random, &TARNE_PNE(), order, typed);  // the type whose months can fall back to a local vent
    }
    const int records = grid.ChangedRecords();
    const GridSaved saved = grid.Save();
    EXPECT_EQ(saved.refused, "");
    EXPECT_EQ(saved.records, records);
    all += records;
    told += saved.messages.size();
    EXPECT_EQ(by_grid.TakeBoxes(), Texts());
    SaveOneByOne(by_record, typed);
    const Texts a = Dump(by_grid), b = Dump(by_record);
    Texts only_grid, only_record;
    std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(only_grid));
    std::set_difference(b.begin(), b.end(), a.begin(), a.end(), std::back_inserter(only_record));
    EXPECT_EQ(only_grid, only_record);
    EXPECT_EQ(a.size(), b.size());
    if (testing::Test::HasFailure()) break;
  }
  EXPECT_GT(all, 5 * seeds);
  EXPECT_GT(told, 0U) << "a destination that falls back is told, and never in a box";
}

}  // namespace
}  // namespace merlu::test
