// Steps taken back and done again, row for row.
#include <algorithm>
#include <deque>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "history/companion.h"
#include "history/layout.h"
#include "history/steps.h"

namespace merlu {
namespace {

constexpr const char* kSource = "MERLU history";

// Rows of one table as they are now, as bytes.
class RowReader {
 public:
  RowReader(Database& db, const RecordedTable& table) : db_(db), columns_(static_cast<int>(table.columns.size())) {
    for (const std::string& column : table.columns) sql_ += (sql_.empty() ? "SELECT [" : ",[") + column + "]";
    sql_ += " FROM " + table.Quoted() + " WHERE rowid=?";
  }

  std::string Read(std::int64_t rowid) {
    std::string bytes;
    db_.ForEach(sql_, {rowid}, [&](const RowView& row) {
      for (int column = 0; column < columns_; ++column) AppendValue(bytes, ValueOf(row, column));
    });
    return bytes;
  }

 private:
  static StoredValue ValueOf(const RowView& row, int column) {
    using Kind = StoredValue::Kind;
    switch (row.TypeOf(column)) {
      case RowView::ColumnType::kInteger: return {.kind = Kind::kInteger, .integer = row.Integer(column)};
      case RowView::ColumnType::kReal: return {.kind = Kind::kReal, .real = row.Number(column)};
      case RowView::ColumnType::kText: return {.kind = Kind::kText, .bytes = row.Text(column)};
      case RowView::ColumnType::kBlob: return {.kind = Kind::kBlob, .bytes = row.Text(column)};
      case RowView::ColumnType::kNull: break;
    }
    return {};
  }

  Database& db_;
  int columns_;
  std::string sql_;
};

// A column of one table that names rows of another one by their number.
struct Relation {
  std::string child, column, parent;
};

std::vector<Relation> RelationsOf(Database& db) {
  std::vector<Relation> relations;
  for (const RecordedTable& table : *db.recorder().tables()) {
    if (table.IsAttached()) continue;
    db.ForEach("SELECT \"from\",\"table\" FROM pragma_foreign_key_list(?,'main')", {table.name},
               [&](const RowView& row) {
                 relations.push_back({table.name, std::string(row.Text(0)), std::string(row.Text(1))});
               });
  }
  return relations;
}

class Replay {
 public:
  Replay(Database& db, bool backwards) : db_(db), backwards_(backwards) {
    const auto& tables = *db.recorder().tables();
    for (std::size_t i = 0; i < tables.size(); ++i) {
      numbers_.emplace(tables[i].name, static_cast<std::uint16_t>(i));
      readers_.emplace_back(db, tables[i]);
    }
  }

  // Compares the rows of a packed part, and changes them to their other state.
  std::optional<InTheWay> Part(std::string_view packed) {
    const std::vector<KeptRow> kept = UnpackChanges(packed);
    std::deque<std::string> bytes;
    Changes changes;
    changes.tables = db_.recorder().tables();
    changes.rows.reserve(kept.size());
    for (const KeptRow& row : kept) {
      const std::uint16_t table = TableOf(row);
      const std::string& now = bytes.emplace_back(readers_[table].Read(row.rowid));
      std::string& other = bytes.emplace_back();
      if (!OtherSide(row, now, backwards_, other)) return InTheWay{row.table, row.rowid};
      changes.rows.push_back({table, row.rowid, now, other});
      if (other.empty()) gone_[row.table].insert(row.rowid);
      if (now.empty()) came_[row.table].insert(row.rowid);
    }
    ApplyChanges(db_, changes);
    return std::nullopt;
  }

  // A row that has lost its parent by this: one that came in from elsewhere, or whose parent went elsewhere.
  std::optional<InTheWay> LostRow() {
    for (const Relation& relation : RelationsOf(db_)) {
      if (const auto child = ChildOfGone(relation)) return child;
      if (const auto child = CameWithoutParent(relation)) return child;
    }
    return std::nullopt;
  }

 private:
  std::uint16_t TableOf(const KeptRow& row) const {
    const auto found = numbers_.find(row.table);
    if (found == numbers_.end()) throw Fault(fault_number::kDamaged, kSource, "A step of the history is damaged.");
    return found->second;
  }

  std::optional<InTheWay> ChildOfGone(const Relation& relation) {
    constexpr std::size_t kFew = 500;  // more are found faster by one look at all rows
    const auto found = gone_.find(relation.parent);
    if (found == gone_.end()) return std::nullopt;
    const std::set<std::int64_t>& gone = found->second;
    std::optional<InTheWay> child;
    const std::string select = "SELECT rowid,[" + relation.column + "] FROM main.[" + relation.child + "]";
    const auto look = [&](const RowView& row) {
      if (!child && !row.IsNull(1) && gone.contains(row.Integer(1)) && !IsThere(relation.parent, row.Integer(1)))
        child = InTheWay{relation.child, row.Integer(0)};
    };
    if (gone.size() > kFew)
      db_.ForEach(select, {}, look);
    else
      for (const std::int64_t key : gone) db_.ForEach(select + " WHERE [" + relation.column + "]=?", {key}, look);
    return child;
  }

  std::optional<InTheWay> CameWithoutParent(const Relation& relation) {
    const auto found = came_.find(relation.child);
    if (found == came_.end()) return std::nullopt;
    const std::string sql = "SELECT [" + relation.column + "] FROM main.[" + relation.child +
                            "] AS c WHERE rowid=? AND [" + relation.column +
                            "] IS NOT NULL AND NOT EXISTS (SELECT 1 FROM main.[" + relation.parent +
                            "] WHERE rowid=c.[" + relation.column + "])";
    for (const std::int64_t rowid : found->second)
      if (!IsNull(db_.Single(sql, {rowid}))) return InTheWay{relation.child, rowid};
    return std::nullopt;
  }

  bool IsThere(const std::string& table, std::int64_t rowid) {
    return !IsNull(db_.Single("SELECT 1 FROM main.[" + table + "] WHERE rowid=?", {rowid}));
  }

  Database& db_;
  bool backwards_;
  std::unordered_map<std::string, std::uint16_t> numbers_;
  std::deque<RowReader> readers_;
  std::map<std::string, std::set<std::int64_t>> gone_, came_;
};

// No step is kept of what happens as long as this lives.
class Paused {
 public:
  explicit Paused(Companion& companion) : companion_(companion) { companion_.Pause(); }
  ~Paused() { companion_.Resume(); }
  Paused(const Paused&) = delete;
  Paused& operator=(const Paused&) = delete;

 private:
  Companion& companion_;
};

std::optional<InTheWay> ReplayAll(Companion& companion, const std::vector<std::int64_t>& steps, bool backwards) {
  Database& db = *companion.db();
  AllOrNothing whole(db);
  Replay replay(db, backwards);
  for (const std::int64_t step : steps) {
    std::vector<std::string> parts = PartsOf(companion, step);
    if (backwards) std::reverse(parts.begin(), parts.end());
    for (const std::string& part : parts)
      if (auto in_the_way = replay.Part(part)) return in_the_way;
    db.Execute("UPDATE history.step SET state=? WHERE id=?",
               {std::int64_t{backwards ? step_state::kUndone : step_state::kDone}, step});
  }
  if (auto in_the_way = replay.LostRow()) return in_the_way;
  whole.Keep();
  return std::nullopt;
}

std::optional<InTheWay> Run(Companion& companion, const char* which, std::int64_t step, bool backwards) {
  if (!companion.Want()) throw Fault(fault_number::kFileAccess, kSource, companion.why_not());
  Database& db = *companion.db();
  const WithoutRelations loose(db);
  const Paused paused(companion);
  WriteBatch batch(db);
  if (!companion.IsAttached()) throw Fault(fault_number::kInUseTable, kSource, companion.why_not());
  std::vector<std::int64_t> steps;
  db.ForEach(which, {step}, [&](const RowView& row) { steps.push_back(row.Integer(0)); });
  auto in_the_way = ReplayAll(companion, steps, backwards);
  batch.Commit();
  return in_the_way;
}

}  // namespace

std::optional<InTheWay> UndoSteps(Companion& companion, std::int64_t step) {
  return Run(companion, "SELECT id FROM history.step WHERE id>=? AND state=0 ORDER BY id DESC", step, true);
}

std::optional<InTheWay> RedoSteps(Companion& companion, std::int64_t step) {
  return Run(companion, "SELECT id FROM history.step WHERE id<=? AND state=1 ORDER BY id", step, false);
}

namespace {

// Some rows of a part of a step, compared with what the step made of them, or with what they were before it.
bool IsAsLeftBy(Database& db, const std::string& part, bool before) {
  constexpr std::size_t kEnough = 20;
  std::vector<KeptRow> kept = UnpackChanges(part);
  if (kept.size() > kEnough) kept.resize(kEnough);
  std::string other;
  return std::all_of(kept.begin(), kept.end(), [&](const KeptRow& row) {
    for (const RecordedTable& table : *db.recorder().tables())
      if (table.name == row.table) return OtherSide(row, RowReader(db, table).Read(row.rowid), !before, other);
    return false;
  });
}

}  // namespace

bool IsAsNewestStepLeftIt(const Companion& companion) {
  const std::optional<HistoryStep> newest = NextUndo(companion), undone = NextRedo(companion);
  if (!newest) return true;
  Database& db = *companion.db();
  const std::vector<std::string> done = PartsOf(companion, newest->id);
  if (done.empty() || IsAsLeftBy(db, done.back(), false)) return true;
  // after an undo the rows of the step before it may be another program's, of before the step that was undone
  if (!undone) return false;
  const std::vector<std::string> parts = PartsOf(companion, undone->id);
  return !parts.empty() && IsAsLeftBy(db, parts.front(), true);
}

}  // namespace merlu
