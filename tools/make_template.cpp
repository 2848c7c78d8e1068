// Makes the empty-database template from the schema: make_template schema.sql mr.dbt
#include <sqlite3.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: make_template SCHEMA TEMPLATE\n";
    return 2;
  }
  std::ifstream in(argv[1]);
  std::stringstream schema;
  schema << in.rdbuf();
  if (!in || schema.str().empty()) {
    std::cerr << "make_template: cannot read " << argv[1] << "\n";
    return 1;
  }
  std::remove(argv[2]);
  sqlite3* db = nullptr;
  char* message = nullptr;
  const bool made = sqlite3_open(argv[2], &db) == SQLITE_OK &&
                    sqlite3_exec(db, schema.str().c_str(), nullptr, nullptr, &message) == SQLITE_OK &&
                    sqlite3_exec(db, "VACUUM", nullptr, nullptr, &message) == SQLITE_OK;
  if (!made) std::cerr << "make_template: " << (message != nullptr ? message : sqlite3_errmsg(db)) << "\n";
  sqlite3_free(message);
  sqlite3_close(db);
  if (!made) std::remove(argv[2]);
  return made ? 0 : 1;
}
