#include "command/console.h"

#include <charconv>

namespace merlu {
namespace {

bool IsNumber(const std::string& text) {
  double number = 0;
  // a sign that the conversion does not know is part of a number to a spreadsheet
  const char* begin = text.data() + (text.starts_with('+') ? 1 : 0);
  const auto [end, error] = std::from_chars(begin, text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

bool LooksLikeFormula(const std::string& text) {
  return text.find_first_of("=+-@") == 0 && !IsNumber(text);
}

}  // namespace

void Complain(Console& console, const std::string& command, const std::string& file, const std::string& why) {
  console.err << "merlu " << command << ": " << (file.empty() ? "" : file + ": ") << why << "\n";
}

std::string CsvField(const std::string& text) {
  const std::string safe = LooksLikeFormula(text) ? "'" + text : text;
  if (safe.find_first_of(",\"\r\n") == std::string::npos) return safe;
  std::string quoted = "\"";
  for (const char c : safe) quoted += c == '"' ? "\"\"" : std::string(1, c);
  return quoted + "\"";
}

std::string CsvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (std::size_t i = 0; i < fields.size(); ++i) line += (i == 0 ? "" : ",") + CsvField(fields[i]);
  return line + "\r\n";
}

}  // namespace merlu
