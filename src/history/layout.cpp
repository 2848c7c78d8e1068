#include "history/layout.h"

#include <array>
#include <set>

namespace merlu {
namespace {

struct Part {
  const char* name;
  const char* sql;  // as the engine keeps it
};

// A mark in the file's header: 'MERH'
constexpr std::int64_t kApplication = 1296388680;

constexpr std::array<Part, 9> kLayout = {{
    // the inventory it belongs to, and that inventory's change counter at the last common commit
    {"about", "CREATE TABLE about (what TEXT PRIMARY KEY, value)"},
    {"step",
     "CREATE TABLE step (id INTEGER PRIMARY KEY, made_at TEXT, who TEXT, what TEXT, place TEXT, stood_at TEXT, "
     "stands_at TEXT, shown INTEGER, bytes INTEGER, state INTEGER)"},
    {"part", "CREATE TABLE part (id INTEGER PRIMARY KEY, step INTEGER, changes BLOB)"},
    {"part_of_step", "CREATE INDEX part_of_step ON part (step)"},
    // an interrupted edit, and its fields
    {"draft", "CREATE TABLE draft (id INTEGER PRIMARY KEY, owner TEXT, place TEXT, at TEXT)"},
    {"draft_field", "CREATE TABLE draft_field (draft INTEGER, control TEXT, field TEXT, stored TEXT, entered TEXT)"},
    // comments by finding, and the value of the field when the comment was written
    {"comment", "CREATE TABLE comment (id INTEGER PRIMARY KEY, finding TEXT, comment TEXT, value TEXT)"},
    // copied values that were not confirmed yet, as they were stored
    {"copied", "CREATE TABLE copied (id INTEGER PRIMARY KEY, record TEXT, record_key INTEGER, field TEXT, value TEXT)"},
    // exports of a month to the agency, with the newest step of then
    {"hand_in",
     "CREATE TABLE hand_in (id INTEGER PRIMARY KEY, year INTEGER, month INTEGER, made_at TEXT, step INTEGER)"},
}};

}  // namespace

void MakeLayout(Database& db) {
  WriteBatch batch(db);
  // another program may have been faster
  if (ToInteger(db.Single("SELECT COUNT(*) FROM history.sqlite_schema")) > 0) return;
  for (const Part& part : kLayout) {
    std::string sql = part.sql;
    const std::size_t at = sql.find(part.name);
    db.Execute(sql.insert(at, "history."));
  }
  db.Execute("PRAGMA history.application_id=" + std::to_string(kApplication));
  batch.Commit();
}

bool HasLayout(Database& db) {
  std::set<std::string> wanted;
  for (const Part& part : kLayout) wanted.insert(part.sql);
  std::size_t found = 0;
  bool others = false;
  db.ForEach("SELECT sql FROM history.sqlite_schema WHERE sql IS NOT NULL", {}, [&](const RowView& row) {
    if (wanted.contains(std::string(row.Text(0))))
      ++found;
    else
      others = true;
  });
  return found == wanted.size() && !others && ToInteger(db.Single("PRAGMA history.application_id")) == kApplication;
}

std::vector<RecordedTable> RecordedCompanionTables() {
  return {{"history.comment", {"id", "finding", "comment", "value"}, 0},
          {"history.copied", {"id", "record", "record_key", "field", "value"}, 0}};
}

}  // namespace merlu
