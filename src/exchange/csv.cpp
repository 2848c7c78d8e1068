#include "exchange/csv.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"

namespace merlu {
namespace {

char SeparatorOf(std::string_view text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  const auto count = [line](char separator) { return std::count(line.begin(), line.end(), separator); };
  char best = ',';
  for (const char candidate : {';', '\t'})
    if (count(candidate) > count(best)) best = candidate;
  return best;
}

bool LooksLikeFormula(std::string_view text) {
  return !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos &&
         !IsNumericText(text);
}

}  // namespace

std::vector<std::vector<std::string>> ParseCsv(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  const char separator = SeparatorOf(text);
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> row;
  std::string field;
  bool quoted = false;
  const auto end_field = [&] { row.push_back(std::exchange(field, {})); };
  const auto end_row = [&] {
    end_field();
    rows.push_back(std::exchange(row, {}));
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted) {
      if (c != '"')
        field += c;
      else if (i + 1 < text.size() && text[i + 1] == '"')
        field += text[++i];
      else
        quoted = false;
    } else if (c == '"' && field.empty()) {
      quoted = true;
    } else if (c == separator) {
      end_field();
    } else if (c == '\n') {
      end_row();
    } else if (c == '\r') {
      if (i + 1 == text.size() || text[i + 1] != '\n') end_row();
    } else {
      field += c;
    }
  }
  if (!field.empty() || !row.empty()) end_row();
  return rows;
}

std::string CsvField(std::string_view text) {
  std::string field = LooksLikeFormula(text) ? "'" : "";
  field += text;
  if (field.find_first_of(",\"\r\n") == std::string::npos) return field;
  std::string quoted = "\"";
  for (const char c : field) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

std::string CsvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) line += ',';
    line += CsvField(fields[i]);
  }
  return line + "\r\n";
}

}  // namespace merlu
