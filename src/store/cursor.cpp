#include "store/cursor.h"

#include <algorithm>

#include "base/fault.h"
#include "base/text.h"
#include "store/engine.h"

namespace merlu {
namespace {

constexpr const char* kFirst = "ORDER BY rowid LIMIT 1";

}  // namespace

Cursor::Cursor(Database& db, std::string table) : db_(db), changes_(db.ChangesOf(table)), table_(std::move(table)) {
  select_ = "SELECT rowid,* FROM [" + table_ + "] ";
  // by the statement that goes to the first row, without the row number
  columns_ = db_.Query(select_ + kFirst).columns;
  booleans_ = db_.BooleansOf(select_ + kFirst);
  columns_.erase(columns_.begin());
  booleans_.erase(booleans_.begin());
  for (std::size_t i = 0; i < columns_.size(); ++i) places_.emplace(columns_[i], i);
  refresh_.sql = select_ + "WHERE rowid=?";
  MoveFirst();
}

bool Cursor::IsEmpty() {
  return ToInteger(db_.Single("SELECT EXISTS(SELECT 1 FROM [" + table_ + "])")) == 0;
}

// A move abandons a change that was begun.
void Cursor::Abandon() {
  change_ = Change::kNone;
  pending_.clear();
}

bool Cursor::Load(std::string_view tail, const Values& values) {
  Abandon();
  Database::KeptQuery query;
  query.sql.reserve(select_.size() + tail.size());
  query.sql.append(select_).append(tail);
  bound_.clear();
  for (const Value& value : values) bound_.push_back(&value);
  return Fetch(query, bound_);
}

bool Cursor::Fetch(Database::KeptQuery& query, const std::vector<const Value*>& values) {
  if (!db_.FirstRow(query, values, booleans_, row_id_, row_)) return false;
  position_ = Position::kOnRow;
  seen_changes_ = changes_.Count();
  return true;
}

void Cursor::MoveFirst() {
  if (!Load(kFirst, {})) position_ = Position::kEmpty;
}

bool Cursor::FindFirst(const Criteria& criteria) {
  Abandon();
  const bool again = std::equal(criteria.begin(), criteria.end(), found_by_.begin(), found_by_.end(),
                                [](const auto& wanted, const std::string& column) { return wanted.first == column; });
  if (!again || find_.sql.empty()) {
    found_by_.clear();
    find_ = {select_, {}};
    for (const auto& [column, value] : criteria) {
      find_.sql.append(found_by_.empty() ? "WHERE [" : " AND [").append(column).append("]=?");
      found_by_.emplace_back(column);
    }
    find_.sql.append(" ORDER BY rowid LIMIT 1");
  }
  bound_.clear();
  for (const auto& [column, value] : criteria) bound_.push_back(&value);
  const bool found = Fetch(find_, bound_);
  if (!found) position_ = Position::kNowhere;
  return found;
}

bool Cursor::FindFirstWhere(const std::string& condition, const Values& values) {
  const bool found = Load("WHERE " + condition + " ORDER BY rowid LIMIT 1", values);
  if (!found) position_ = Position::kNowhere;
  return found;
}

std::size_t Cursor::ColumnIndex(std::string_view column) const {
  if (const auto found = places_.find(column); found != places_.end()) return found->second;
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (EqualsIgnoringCase(columns_[i], column)) return i;
  throw Fault(fault_number::kNoSuchItem, kStoreSource,
              "Item not found in this collection: " + table_ + "." + std::string(column) + ".");
}

void Cursor::Refresh() {
  if (seen_changes_ == changes_.Count()) return;
  // a row that a statement deleted is not found, and the cursor keeps what it read
  const Value row_id = row_id_;
  Fetch(refresh_, {&row_id});
  seen_changes_ = changes_.Count();
}

const Value& Cursor::Field(std::string_view column) {
  if (position_ != Position::kOnRow) throw Fault(fault_number::kNoCurrentRow, kStoreSource, "No current record.");
  Refresh();
  return row_[ColumnIndex(column)];
}

const Value& Cursor::LastRead(std::string_view column) const {
  if (position_ != Position::kOnRow) throw Fault(fault_number::kNoCurrentRow, kStoreSource, "No current record.");
  return row_[ColumnIndex(column)];
}

void Cursor::Edit() {
  if (position_ != Position::kOnRow) throw Fault(fault_number::kNoCurrentRow, kStoreSource, "No current record.");
  change_ = Change::kEdit;
  pending_.clear();
}

void Cursor::AddNew() {
  change_ = Change::kAdd;
  pending_.clear();
}

void Cursor::SetField(std::string_view column, Value value) {
  if (change_ == Change::kNone) throw Fault(fault_number::kNoChange, kStoreSource, "Update without AddNew or Edit.");
  pending_.emplace_back(ColumnIndex(column), std::move(value));
}

void Cursor::Update() {
  const Change change = std::exchange(change_, Change::kNone);
  std::vector<std::pair<std::size_t, Value>> pending = std::move(pending_);
  pending_.clear();
  if (change == Change::kNone) throw Fault(fault_number::kNoChange, kStoreSource, "Update without AddNew or Edit.");
  std::string names, marks;
  Values values;
  for (auto& [column, value] : pending) {
    const std::string& name = columns_[column];
    if (change == Change::kEdit)
      names.append(names.empty() ? "[" : ",[").append(name).append("]=?");
    else
      names.append(names.empty() ? "[" : ",[").append(name).append("]"), marks.append(marks.empty() ? "?" : ",?");
    values.push_back(std::move(value));
  }
  if (change == Change::kAdd) {
    db_.ExecuteOn(changes_,
                  names.empty() ? "INSERT INTO [" + table_ + "] DEFAULT VALUES"
                                : "INSERT INTO [" + table_ + "] (" + names + ") VALUES (" + marks + ")",
                  values);
    if (position_ == Position::kEmpty) MoveFirst();
  } else if (!names.empty()) {
    values.emplace_back(row_id_);
    if (db_.ExecuteOn(changes_, "UPDATE [" + table_ + "] SET " + names + " WHERE rowid=?", values) == 0)
      throw Fault(fault_number::kRecordDeleted, kStoreSource, "Record is deleted.");
  }
}

}  // namespace merlu
