// The tables that a statement names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace merlu {

struct NamedTable {
  std::string schema;  // empty when the statement names none
  std::string name;
};

// The names after FROM, JOIN, INTO and UPDATE, without functions and inner queries.
std::vector<NamedTable> NamedTables(std::string_view sql);

// Whether one of them is missing from the open file.
bool LacksNamedTable(sqlite3* db, std::string_view sql);

}  // namespace merlu
