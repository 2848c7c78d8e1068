#include "exchange/csv.h"

#include <algorithm>
#include <optional>
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

std::string_view Digits(std::string_view& text) {
  const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
  text.remove_prefix(digits.size());
  return digits;
}

// The digits before and after the separator of a number; nothing for another text.
std::optional<std::pair<std::size_t, std::size_t>> PartsAround(char mark, std::string_view field) {
  if (field.starts_with('-') || field.starts_with('+')) field.remove_prefix(1);
  const std::size_t before = Digits(field).size();
  if (!field.starts_with(mark)) return std::nullopt;
  field.remove_prefix(1);
  const std::size_t behind = Digits(field).size();
  if (before == 0 || behind == 0 || !field.empty()) return std::nullopt;
  return std::pair(before, behind);
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

bool IsDecimalComma(std::string_view field) {
  return PartsAround(',', field).has_value();
}

bool HasDecimalCommas(std::string_view text, const std::vector<std::vector<std::string>>& rows) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  if (SeparatorOf(text) == ';') return true;
  bool commas = false;
  for (const std::vector<std::string>& row : rows)
    for (const std::string& field : row) {
      if (PartsAround('.', field)) return false;
      const auto parts = PartsAround(',', field);
      if (parts && (parts->first > 3 || parts->second != 3)) commas = true;  // no mark of thousands
    }
  return commas;
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
