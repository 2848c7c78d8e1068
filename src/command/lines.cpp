#include "command/lines.h"

#include "base/text.h"

namespace merlu {

std::string JsonLine(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string OneLine(std::string text) {
  for (char& c : text)
    if (c == '\n' || c == '\r') c = ' ';
  return text;
}

std::string Printable(std::string_view text) {
  std::string printable = ValidUtf8(text);
  for (char& c : printable)
    if ((c >= 0 && c < ' ') || c == '\x7f') c = ' ';
  return printable;
}

std::string Thousands(std::int64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3 && text[at - 4] != '-';) text.insert(at -= 3, ",");
  return text;
}

}  // namespace merlu
