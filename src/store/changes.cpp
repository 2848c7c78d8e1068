// The engine declares its pre-update hook only with this definition.
#ifndef SQLITE_ENABLE_PREUPDATE_HOOK
#define SQLITE_ENABLE_PREUPDATE_HOOK 1
#endif
#include "store/changes.h"

#include <sqlite3.h>

#include <algorithm>
#include <compare>
#include <cstring>
#include <limits>
#include <utility>

#include "base/fault.h"
#include "store/engine.h"

namespace merlu {
namespace {

constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

std::uint64_t ZigZag(std::int64_t number) {
  return (static_cast<std::uint64_t>(number) << 1U) ^ static_cast<std::uint64_t>(number >> 63U);
}

std::int64_t UnZigZag(std::uint64_t number) {
  return static_cast<std::int64_t>((number >> 1U) ^ (~(number & 1U) + 1U));
}

// Whether the number is stored as well by its whole number; the negative zero is not.
bool IsWhole(double number) {
  constexpr double kMost = 9007199254740992.0;  // every whole number up to this one is exactly a double
  if (!(number > -kMost && number < kMost)) return false;
  const auto whole = static_cast<double>(static_cast<std::int64_t>(number));
  return std::memcmp(&whole, &number, sizeof number) == 0;
}

void AppendTag(std::string& row, StoredValue::Kind kind) {
  row += static_cast<char>(kind);
}

constexpr std::size_t kMostNumberBytes = 10;  // 64 bits, 7 in each

char* WriteNumber(char* to, std::uint64_t number) {
  for (; number >= 0x80U; number >>= 7U) *to++ = static_cast<char>((number & 0x7FU) | 0x80U);
  *to++ = static_cast<char>(number);
  return to;
}

void AppendTagged(std::string& row, StoredValue::Kind kind, std::uint64_t number) {
  if (number < 0x80U) {  // most of them
    row += static_cast<char>(kind);
    row += static_cast<char>(number);
    return;
  }
  char bytes[1 + kMostNumberBytes] = {static_cast<char>(kind)};
  row.append(bytes, static_cast<std::size_t>(WriteNumber(bytes + 1, number) - bytes));
}

void AppendInteger(std::string& row, std::int64_t number) {
  AppendTagged(row, StoredValue::Kind::kInteger, ZigZag(number));
}

void AppendReal(std::string& row, double number) {
  if (IsWhole(number)) return AppendInteger(row, static_cast<std::int64_t>(number));
  char bytes[1 + sizeof number] = {static_cast<char>(StoredValue::Kind::kReal)};
  std::memcpy(bytes + 1, &number, sizeof number);
  row.append(bytes, sizeof bytes);
}

void AppendBytes(std::string& row, StoredValue::Kind kind, std::string_view bytes) {
  AppendTagged(row, kind, bytes.size());
  row.append(bytes);
}

// The engine copies a text that has no zero byte behind it, a blob it does not.
std::string_view TextOf(sqlite3_value* value) {
  const void* text = sqlite3_value_encoding(value) == SQLITE_UTF8 ? sqlite3_value_blob(value)
                                                                  : static_cast<const void*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {static_cast<const char*>(text), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool TakeReal(std::string_view& row, double& number) {
  if (row.size() < sizeof number) return false;
  std::memcpy(&number, row.data(), sizeof number);
  row.remove_prefix(sizeof number);
  return true;
}

bool TakeBytes(std::string_view& row, std::string_view& bytes) {
  std::uint64_t size = 0;
  if (!TakeNumber(row, size) || size > row.size()) return false;
  bytes = row.substr(0, static_cast<std::size_t>(size));
  row.remove_prefix(bytes.size());
  return true;
}

}  // namespace

void AppendNumber(std::string& bytes, std::uint64_t number) {
  if (number < 0x80U) {
    bytes += static_cast<char>(number);
    return;
  }
  char written[kMostNumberBytes];
  bytes.append(written, static_cast<std::size_t>(WriteNumber(written, number) - written));
}

bool TakeNumber(std::string_view& bytes, std::uint64_t& number) {
  number = 0;
  for (unsigned shift = 0; shift < 64 && !bytes.empty(); shift += 7) {
    const auto byte = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    number |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
    if (byte < 0x80U) return true;
  }
  return false;
}

void AppendValue(std::string& row, sqlite3_value* value) {
  using Kind = StoredValue::Kind;
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER: return AppendInteger(row, sqlite3_value_int64(value));
    case SQLITE_FLOAT: return AppendReal(row, sqlite3_value_double(value));
    case SQLITE_TEXT: return AppendBytes(row, Kind::kText, TextOf(value));
    case SQLITE_BLOB: {
      const auto* blob = static_cast<const char*>(sqlite3_value_blob(value));
      const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
      return AppendBytes(row, Kind::kBlob, blob == nullptr ? std::string_view() : std::string_view(blob, size));
    }
    default: return AppendTag(row, Kind::kNull);
  }
}

void AppendValue(std::string& row, const StoredValue& value) {
  using Kind = StoredValue::Kind;
  switch (value.kind) {
    case Kind::kNull: return AppendTag(row, Kind::kNull);
    case Kind::kInteger: return AppendInteger(row, value.integer);
    case Kind::kReal: return AppendReal(row, value.real);
    case Kind::kText:
    case Kind::kBlob: return AppendBytes(row, value.kind, value.bytes);
  }
}

bool TakeValue(std::string_view& row, StoredValue& value) {
  using Kind = StoredValue::Kind;
  if (row.empty() || static_cast<unsigned char>(row.front()) > static_cast<unsigned char>(Kind::kBlob)) return false;
  value = StoredValue{.kind = static_cast<Kind>(row.front())};
  row.remove_prefix(1);
  switch (value.kind) {
    case Kind::kNull: return true;
    case Kind::kReal: return TakeReal(row, value.real);
    case Kind::kText:
    case Kind::kBlob: return TakeBytes(row, value.bytes);
    case Kind::kInteger: break;
  }
  std::uint64_t number = 0;
  if (!TakeNumber(row, number)) return false;
  value.integer = UnZigZag(number);
  return true;
}

std::vector<StoredValue> RowValues(std::string_view row) {
  std::vector<StoredValue> values;
  while (!row.empty()) {
    StoredValue value;
    if (!TakeValue(row, value)) throw Fault(fault_number::kDamaged, kStoreSource, "A recorded row is damaged.");
    values.push_back(value);
  }
  return values;
}

Value ToValue(const StoredValue& value) {
  using Kind = StoredValue::Kind;
  switch (value.kind) {
    case Kind::kInteger: return value.integer;
    case Kind::kReal: return value.real;
    case Kind::kText:
    case Kind::kBlob: return std::string(value.bytes);
    case Kind::kNull: break;
  }
  return Null{};
}

std::string RecordedTable::Quoted() const {
  const auto dot = name.find('.');
  return dot == std::string::npos ? "main.[" + name + "]" : name.substr(0, dot) + ".[" + name.substr(dot + 1) + "]";
}

void ChangeRecorder::Start(sqlite3* db, std::vector<RecordedTable> tables) {
  Stop();
  by_name_.clear();
  for (std::size_t i = 0; i < tables.size(); ++i) by_name_.emplace(tables[i].name, static_cast<std::uint16_t>(i));
  tables_ = std::make_shared<const std::vector<RecordedTable>>(std::move(tables));
  db_ = db;
  sqlite3_preupdate_hook(
      db,
      [](void* self, sqlite3* at, int act, const char* schema, const char* table, sqlite3_int64 from,
         sqlite3_int64 to) { Changing(self, at, act, schema, table, from, to); },
      this);
}

void ChangeRecorder::Stop() {
  if (db_ != nullptr) sqlite3_preupdate_hook(db_, nullptr, nullptr);
  db_ = nullptr;
  BackTo(0);
}

void ChangeRecorder::BackTo(std::size_t mark) {
  if (mark >= entries_.size()) return;
  bytes_.resize(entries_[mark].at);
  entries_.resize(mark);
}

void ChangeRecorder::Changing(void* self, sqlite3*, int act, const char* schema, const char* table, long long from,
                              long long to) {
  auto& recorder = *static_cast<ChangeRecorder*>(self);
  const bool own = std::strcmp(schema, "main") == 0;
  const auto found = own ? recorder.by_name_.find(std::string_view(table))
                         : recorder.by_name_.find(std::string(schema).append(".").append(table));
  if (found == recorder.by_name_.end()) return;
  if (act == SQLITE_UPDATE && from != to) {  // a new row number: recorded as a deletion and an insertion
    recorder.Add(SQLITE_DELETE, found->second, from, from);
    recorder.Add(SQLITE_INSERT, found->second, to, to);
  } else {
    recorder.Add(act, found->second, from, to);
  }
}

void ChangeRecorder::Add(int act, std::uint16_t table, std::int64_t from, std::int64_t to) {
  Entry entry{table, act == SQLITE_INSERT ? to : from, bytes_.size(), 0, 0};
  const int columns = sqlite3_preupdate_count(db_);
  if (act != SQLITE_INSERT) entry.before = AppendRow(sqlite3_preupdate_old, columns);
  if (act != SQLITE_DELETE) entry.after = AppendRow(sqlite3_preupdate_new, columns);
  entries_.push_back(entry);
}

std::uint32_t ChangeRecorder::AppendRow(int (*read)(sqlite3*, int, sqlite3_value**), int columns) {
  const std::size_t start = bytes_.size();
  for (int column = 0; column < columns; ++column) {
    sqlite3_value* value = nullptr;
    if (read(db_, column, &value) == SQLITE_OK && value != nullptr)
      AppendValue(bytes_, value);
    else
      AppendTag(bytes_, StoredValue::Kind::kNull);
  }
  return static_cast<std::uint32_t>(bytes_.size() - start);
}

Changes ChangeRecorder::Take() {
  Changes changes;
  changes.tables = tables_;
  changes.bytes = std::make_unique<const std::string>(std::move(bytes_));
  bytes_ = {};
  const std::string_view bytes = *changes.bytes;
  // the entries of one row together, in their order
  struct Named {
    std::uint16_t table;
    std::int64_t rowid;
    std::uint32_t entry;
    auto operator<=>(const Named&) const = default;
    bool IsOfRow(const Named& other) const { return table == other.table && rowid == other.rowid; }
  };
  std::vector<Named> named;
  named.reserve(entries_.size());
  for (const Entry& entry : entries_)
    named.push_back({entry.table, entry.rowid, static_cast<std::uint32_t>(named.size())});
  if (!std::is_sorted(named.begin(), named.end())) std::sort(named.begin(), named.end());
  std::vector<std::uint32_t> last(entries_.size(), kNone);  // by the first entry of each row
  for (std::size_t i = 0, end = 0; i < named.size(); i = end) {
    for (end = i + 1; end < named.size() && named[end].IsOfRow(named[i]);) ++end;
    last[named[i].entry] = named[end - 1].entry;
  }
  changes.rows.reserve(entries_.size());
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (last[i] == kNone) continue;
    const Entry& first = entries_[i];
    const Entry& end = entries_[last[i]];
    changes.rows.push_back(
        {first.table, first.rowid, bytes.substr(first.at, first.before), bytes.substr(end.at + end.before, end.after)});
  }
  std::erase_if(changes.rows, [](const RowChange& row) { return row.before == row.after; });
  entries_.clear();
  return changes;
}

}  // namespace merlu
