#include "base/text.h"

#include <algorithm>

namespace merlu {
namespace {

char UpperChar(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char LowerChar(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

std::string TrimRight(std::string_view text) {
  const auto last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string() : TrimRight(text.substr(first));
}

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; at < text.size(); ++at)
    if (!IsContinuation(text[at]) && count-- == 0) break;
  return std::string(text.substr(0, at));
}

std::string LastCharacters(std::string_view text, std::size_t count) {
  const std::size_t length = CountCharacters(text);
  if (length <= count) return std::string(text);
  return std::string(text.substr(FirstCharacters(text, length - count).size()));
}

std::string PadLeft(std::string_view text, std::size_t width) {
  const std::size_t length = CountCharacters(text);
  return std::string(length < width ? width - length : 0, ' ').append(text);
}

std::string Upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), UpperChar);
  return result;
}

std::string Lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), LowerChar);
  return result;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerChar(x) == LowerChar(y); });
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
  const auto less = [](char x, char y) {
    return static_cast<unsigned char>(LowerChar(x)) < static_cast<unsigned char>(LowerChar(y));
  };
  if (std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), less)) return true;
  if (std::lexicographical_compare(b.begin(), b.end(), a.begin(), a.end(), less)) return false;
  return a < b;
}

}  // namespace merlu
