#include "store/named_tables.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace merlu {
namespace {

bool IsNamePart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// Splits a statement into names, texts and single signs.
class Tokens {
 public:
  explicit Tokens(std::string_view sql) : sql_(sql) {}

  // Empty at the end. A name comes without its brackets or quotes, a text with its first quote only.
  std::string Next() {
    while (at_ < sql_.size() && (sql_[at_] == ' ' || sql_[at_] == '\n' || sql_[at_] == '\t')) ++at_;
    if (at_ == sql_.size()) return "";
    const char c = sql_[at_];
    if (c == '[') return Until(']');
    if (c == '"' || c == '`') return Until(c);
    if (c == '\'') return "'" + Until(c);
    std::size_t end = at_;
    while (end < sql_.size() && IsNamePart(sql_[end])) ++end;
    if (end == at_) ++end;
    const std::string token(sql_.substr(at_, end - at_));
    at_ = end;
    return token;
  }
  char Ahead() const { return at_ < sql_.size() ? sql_[at_] : ' '; }

 private:
  std::string Until(char close) {
    const std::size_t begin = at_ + 1, end = sql_.find(close, begin);
    at_ = end == std::string_view::npos ? sql_.size() : end + 1;
    return std::string(sql_.substr(begin, end == std::string_view::npos ? end : end - begin));
  }

  std::string_view sql_;
  std::size_t at_ = 0;
};

bool ComesBeforeATable(const std::string& token) {
  for (const char* word : {"FROM", "JOIN", "INTO", "UPDATE"})
    if (EqualsIgnoringCase(token, word)) return true;
  return false;
}

}  // namespace

std::vector<NamedTable> NamedTables(std::string_view sql) {
  std::vector<NamedTable> tables;
  Tokens tokens(sql);
  for (std::string token = tokens.Next(); !token.empty(); token = tokens.Next()) {
    if (!ComesBeforeATable(token)) continue;
    NamedTable table{"", tokens.Next()};
    if (tokens.Ahead() == '.') {
      tokens.Next();
      table.schema = std::exchange(table.name, tokens.Next());
    }
    if (table.name != "(" && !table.name.empty() && tokens.Ahead() != '(') tables.push_back(table);
  }
  return tables;
}

bool LacksNamedTable(sqlite3* db, std::string_view sql) {
  const std::vector<NamedTable> tables = NamedTables(sql);
  return std::any_of(tables.begin(), tables.end(), [db](const NamedTable& table) {
    const char* schema = table.schema.empty() ? nullptr : table.schema.c_str();
    return sqlite3_table_column_metadata(db, schema, table.name.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr,
                                         nullptr) == SQLITE_ERROR;
  });
}

}  // namespace merlu
