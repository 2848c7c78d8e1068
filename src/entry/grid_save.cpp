// The month grid's way into the store: its changed records in one commit, all or none, and what is confirmed.
#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <utility>

#include "entry/grid_row.h"
#include "history/notes.h"
#include "session/act.h"
#include "sheets/units.h"

namespace merlu {
namespace {

constexpr const char* kChanged = "another program has changed this record; save again to store what is typed";
constexpr const char* kDeleted = "another program has deleted this record; save again to leave it out";
constexpr const char* kInactive = "its structure reports no emissions for this month";
constexpr std::size_t kFewRecords = 20;  // are read one by one, more as a whole month

}  // namespace

// The records of one type that are saved, as they are stored now.
class MonthGrid::Saving {
 public:
  Saving(Database& db, std::vector<RowPtr> rows) : db_(db), rows_(std::move(rows)) {
    // where nothing can have changed since, they are as they were read
    const auto is_fresh = [&](const RowPtr& row) { return row->read_at == db.ChangeCount(); };
    if (!std::all_of(rows_.begin(), rows_.end(), is_fresh)) Read();
  }

  const std::vector<RowPtr>& rows() const { return rows_; }
  bool IsOfStructures() const { return rows_.front()->stored.IsOfStructure(); }
  // Null for a deleted one.
  const MonthRow* Now(const Row& row) const {
    if (!contexts_) return &row.stored;
    const auto found = now_.find(row.stored.key());
    return found == now_.end() ? nullptr : &found->second;
  }
  const Context& ContextOf(const Row& row) {
    const MonthRow& now = *Now(row);
    return (contexts_ ? *contexts_ : *row.contexts).Of(now.keys.PD_ID_AK, now.at.Year, now.at.Month);
  }

  void Read() {
    now_.clear();
    contexts_.emplace(db_);
    const SheetSpec* sheet = rows_.front()->sheet();
    const auto take = [&](MonthRow row) {
      const std::int64_t key = row.key();
      now_.emplace(key, std::move(row));
    };
    if (rows_.size() <= kFewRecords) {
      for (const RowPtr& row : rows_) ReadMonthRows(db_, *contexts_, sheet, {.key = row->stored.key()}, take);
      return;
    }
    std::map<int, int> months;
    for (const RowPtr& row : rows_) ++months[row->stored.at.Month];
    for (const auto& [month, count] : months) ReadMonthRows(db_, *contexts_, sheet, {.month = month}, take);
  }

 private:
  Database& db_;
  std::vector<RowPtr> rows_;
  std::optional<Contexts> contexts_;  // none: they are as the grid has read them
  std::map<std::int64_t, MonthRow> now_;
};

namespace {

// The nodes and those above them, in the order that shows.
std::vector<int> InOrderTo(const Tree& tree, const std::vector<int>& nodes) {
  std::vector<bool> wanted(tree.nodes.size());
  for (int node : nodes)
    for (; node >= 0 && !wanted[static_cast<std::size_t>(node)];
         node = tree.nodes[static_cast<std::size_t>(node)].parent)
      wanted[static_cast<std::size_t>(node)] = true;
  std::vector<int> order, waiting;
  const auto wait = [&](const std::vector<int>& siblings) {
    std::copy_if(siblings.rbegin(), siblings.rend(), std::back_inserter(waiting),
                 [&](int node) { return wanted[static_cast<std::size_t>(node)]; });
  };
  wait(tree.roots);
  while (!waiting.empty()) {
    order.push_back(waiting.back());
    waiting.pop_back();
    wait(tree.nodes[static_cast<std::size_t>(order.back())].children);
  }
  return order;
}

}  // namespace

// The structures, then the types in their order; in each as the tree.
std::vector<MonthGrid::RowPtr> MonthGrid::ChangedInOrder() const {
  std::map<const SheetSpec*, int> types;
  int type = 0;
  types[&StructureSheet()] = type++;
  for (const SheetSpec* sheet : AllSheets()) types[sheet] = type++;
  std::vector<int> nodes;
  nodes.reserve(changed_.size());
  for (const auto& [key, row] : changed_) nodes.push_back(s_.tree.Find(key));
  std::vector<int> rank(s_.tree.nodes.size());
  int at = 0;
  for (int node : InOrderTo(s_.tree, nodes)) rank[static_cast<std::size_t>(node)] = at++;
  std::vector<std::pair<std::pair<int, int>, RowPtr>> order;
  order.reserve(changed_.size());
  auto next = nodes.begin();
  for (const auto& [key, row] : changed_) {
    const int node = *next++;
    order.push_back({{types[row->sheet()], node < 0 ? at : rank[static_cast<std::size_t>(node)]}, row});
  }
  std::stable_sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<RowPtr> rows;
  rows.reserve(order.size());
  for (auto& [place, row] : order) rows.push_back(std::move(row));
  return rows;
}

namespace {

std::vector<CopiedField> CopiedNow(const std::vector<const FieldSpec*>& fields, const std::vector<bool>& copied,
                                   const Values& values) {
  std::vector<CopiedField> kept;
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (copied[i]) kept.push_back({fields[i]->column, NullToEmpty(values[i])});
  return kept;
}

bool Any(const std::vector<bool>& flags) {
  return std::find(flags.begin(), flags.end(), true) != flags.end();
}

}  // namespace

std::vector<MonthGrid::Saving> MonthGrid::ReadChanged() const {
  std::vector<Saving> types;
  std::vector<RowPtr> order = ChangedInOrder();
  for (auto begin = order.begin(), end = begin; begin != order.end(); begin = end) {
    end = std::find_if(begin, order.end(), [&](const RowPtr& row) { return row->sheet() != (*begin)->sheet(); });
    types.emplace_back(s_.db, std::vector<RowPtr>(std::move_iterator(begin), std::move_iterator(end)));
  }
  return types;
}

void MonthGrid::Refuse(Row& row, const std::string& why, GridSaved& saved) {
  row.problem = why;
  if (saved.refused.empty()) saved.refused = row.stored.PlaceText() + ": " + why;
  ++revision_;
}

// Marks what another program has changed or deleted since the grid read it.
void MonthGrid::RefuseChanged(const std::vector<Saving>& types, GridSaved& saved) {
  for (const Saving& type : types)
    for (const RowPtr& row : type.rows()) {
      row->problem.clear();
      const MonthRow* now = type.Now(*row);
      if (now == nullptr) {
        row->gone = true;
        Refuse(*row, kDeleted, saved);
      } else if (now != &row->stored &&
                 (now->row != row->stored.row || now->structure_inactive != row->stored.structure_inactive)) {
        row->Rebase(*now);
        row->gone = now->structure_inactive;
        Refuse(*row, row->gone ? std::string(kInactive) + "; save again to leave it out" : kChanged, saved);
      }
    }
}

void MonthGrid::SaveRow(RecordSaver& saver, const Row& row, const MonthRow& now, const Context& context,
                        GridSaved& saved) {
  const SavedRecord done = saver.Save(row.Typed(), now, context);
  saved.findings += done.findings;
  for (const std::string& message : done.messages)
    saved.messages.push_back((row.stored.id.empty() ? row.stored.structure : row.stored.id) + ": " + message);
  if (Any(row.copied) || Any(row.kept))
    KeepCopied(s_.companion, MonthKindOf(row.sheet()).table, row.stored.key(),
               CopiedNow(row.fields(), row.copied, done.values));
  ++saved.records;
}

std::string MonthGrid::PlaceOfChanges() const {
  if (changed_.empty()) return "";
  const std::string first = changed_.begin()->second->stored.PlaceText();
  return changed_.size() == 1 ? first : first + " and " + std::to_string(changed_.size() - 1) + " more";
}

GridSaved MonthGrid::Save() {
  GridSaved saved;
  std::erase_if(changed_, [](const auto& changed) { return changed.second->gone; });
  if (changed_.empty()) return saved;
  const Act act(s_, "Month Grid", PlaceOfChanges(), s_.current);
  if (!act.MayWrite()) {
    saved.refused = "Nothing was saved: there is no backup.";
    return saved;
  }
  RowPtr at = changed_.begin()->second;
  try {
    WriteBatch batch(s_.db);
    AllOrNothing whole(s_.db);
    s_.db.NoticeOthers();  // other programs cannot write from here on
    std::vector<Saving> types = ReadChanged();
    RefuseChanged(types, saved);
    if (!saved.refused.empty()) return saved;
    RecordSaver saver(s_);
    bool expects = changed_.size() <= kFewRecords;
    for (Saving& type : types) {
      // structures that were saved have given their equipment their status, and checked it
      if (types.front().IsOfStructures() && !type.IsOfStructures()) type.Read();
      if (!type.IsOfStructures() && !std::exchange(expects, true)) saver.ExpectMany();
      for (const RowPtr& row : type.rows()) {
        at = row;
        const MonthRow& now = *type.Now(*row);
        if (now.structure_inactive) throw Fault(fault_number::kNoCurrentRow, "MERLU entry", kInactive);
        SaveRow(saver, *row, now, type.ContextOf(*row), saved);
      }
    }
    saver.StoreDates();
    whole.Keep();
    batch.Commit();
    saver.Committed();
    changed_.clear();
    ++revision_;
  } catch (const Fault& fault) {
    saved = {};
    Refuse(*at, fault.description, saved);
  }
  return saved;
}

int MonthGrid::Confirm(const std::vector<int>& picked) {
  int confirmed = 0;
  std::vector<RowPtr> kept;
  for (const int number : Picked(picked)) {
    const RowPtr row = At(number);
    confirmed += static_cast<int>(std::count(row->copied.begin(), row->copied.end(), true));
    if (Any(row->kept)) kept.push_back(row);
  }
  // what was saved as copied is confirmed at once; what is not saved yet, with the save
  if (!kept.empty()) {
    const Act act(s_, "Confirm Copied Values");
    if (!act.MayWrite()) return 0;
    WriteBatch batch(s_.db);
    for (const RowPtr& row : kept) KeepCopied(s_.companion, MonthKindOf(row->sheet()).table, row->stored.key(), {});
    batch.Commit();
  }
  for (const int number : Picked(picked)) {
    const RowPtr row = At(number);
    row->copied.assign(row->copied.size(), false);
    row->kept.assign(row->kept.size(), false);
    Note(row);
  }
  return confirmed;
}

}  // namespace merlu
